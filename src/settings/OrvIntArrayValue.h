// OrvIntArrayValue: an array of ints; in the registry the raw elements as REG_BINARY.
#pragma once

#include "port/Export.h"

#include "mfc/CArray.h"
#include "settings/OrvSettingsValue.h"

class ORV_API OrvIntArrayValue : public OrvSettingsValue {
    DECLARE_SERIAL(OrvIntArrayValue)
public:
    OrvIntArrayValue(CString name, const CArray<int, int>& data);

    void SetValue(const CArray<int, int>& data) { m_Data.Copy(data); }
    void GetValue(CArray<int, int>& data) const { data.Copy(m_Data); }

    // A 32-bit count, then each element as a 32-bit integer.
    void Serialize(CArchive& ar) override;
    void DumpData(FILE* file) override;
    int SaveValueToRegistry(OrvSettingsKey* key) override;
    // A value of another registry type leaves the array as it was.
    int RestoreValueFromRegistry(OrvSettingsKey* key) override;

protected:
    OrvIntArrayValue() = default;

    CArray<int, int> m_Data;
};
