// OrvTimeValue: a time setting. The registry keeps it as REG_SZ decimal text of a 32-bit number,
// so only the low 32 bits of the time survive there.
#pragma once

#include "port/Export.h"

#include "mfc/CTime.h"
#include "settings/OrvSettingsValue.h"

class ORV_API OrvTimeValue : public OrvSettingsValue {
    DECLARE_SERIAL(OrvTimeValue)
public:
    OrvTimeValue(CString name, CTime data);

    void SetValue(CTime data) { m_Data = data; }
    void GetValue(CTime& data) const { data = m_Data; }

    void Serialize(CArchive& ar) override;
    void DumpData(FILE* file) override;
    int SaveValueToRegistry(OrvSettingsKey* key) override;
    // The text's number becomes the low half of a zeroed 64-bit time.
    int RestoreValueFromRegistry(OrvSettingsKey* key) override;
    std::span<std::byte> GetDataBits() override { return DataBitsOf(m_Data); }

protected:
    OrvTimeValue() = default;

    CTime m_Data;
};
