// OrvDoubleValue: a double setting; in the registry the raw 8 bytes as REG_BINARY.
#pragma once

#include "port/Export.h"

#include "settings/OrvSettingsValue.h"

class ORV_API OrvDoubleValue : public OrvSettingsValue {
    DECLARE_SERIAL(OrvDoubleValue)
public:
    OrvDoubleValue(CString name, double data);

    void SetValue(double data) { m_Data = data; }
    void GetValue(double& data) const { data = m_Data; }

    void Serialize(CArchive& ar) override;
    void DumpData(FILE* file) override;
    int SaveValueToRegistry(OrvSettingsKey* key) override;
    int RestoreValueFromRegistry(OrvSettingsKey* key) override;
    std::span<std::byte> GetDataBits() override { return DataBitsOf(m_Data); }

protected:
    OrvDoubleValue() = default;

    double m_Data = 0.0;
};
