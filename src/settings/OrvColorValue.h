// OrvColorValue: a colour reference, 0x00BBGGRR; REG_DWORD in the registry.
#pragma once

#include "port/Export.h"

#include "settings/OrvSettingsValue.h"

class ORV_API OrvColorValue : public OrvSettingsValue {
    DECLARE_SERIAL(OrvColorValue)
public:
    OrvColorValue(CString name, unsigned long data);

    // The colour is 32 bits: higher bits of the argument are dropped.
    void SetValue(unsigned long data) { m_Data = static_cast<COLORREF>(data); }
    void GetValue(unsigned long& data) const { data = m_Data; }

    void Serialize(CArchive& ar) override;
    void DumpData(FILE* file) override;
    int SaveValueToRegistry(OrvSettingsKey* key) override;
    int RestoreValueFromRegistry(OrvSettingsKey* key) override;
    std::span<std::byte> GetDataBits() override { return DataBitsOf(m_Data); }

protected:
    OrvColorValue() = default;

    COLORREF m_Data = 0;
};
