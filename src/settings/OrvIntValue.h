// OrvIntValue: a signed 32-bit setting; REG_DWORD in the registry.
#pragma once

#include "port/Export.h"

#include "settings/OrvSettingsValue.h"

class ORV_API OrvIntValue : public OrvSettingsValue {
    DECLARE_SERIAL(OrvIntValue)
public:
    OrvIntValue(CString name, int data);

    void SetValue(int data) { m_Data = data; }
    void GetValue(int& data) const { data = m_Data; }

    void Serialize(CArchive& ar) override;
    void DumpData(FILE* file) override;
    int SaveValueToRegistry(OrvSettingsKey* key) override;
    int RestoreValueFromRegistry(OrvSettingsKey* key) override;
    std::span<std::byte> GetDataBits() override { return DataBitsOf(m_Data); }

protected:
    OrvIntValue() = default;

    int m_Data = 0;
};
