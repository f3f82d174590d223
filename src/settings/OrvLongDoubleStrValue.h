// OrvLongDoubleStrValue: a double setting kept in the registry as REG_SZ text with six decimals,
// so that every digit beyond them is lost there.
#pragma once

#include "port/Export.h"

#include "settings/OrvSettingsValue.h"

class ORV_API OrvLongDoubleStrValue : public OrvSettingsValue {
    DECLARE_SERIAL(OrvLongDoubleStrValue)
public:
    // The datum has the precision of a double, as long double has where the format comes from.
    OrvLongDoubleStrValue(CString name, long double data);

    void SetValue(long double data) { m_Data = static_cast<double>(data); }
    void GetValue(long double& data) const { data = m_Data; }

    void Serialize(CArchive& ar) override;
    void DumpData(FILE* file) override;
    int SaveValueToRegistry(OrvSettingsKey* key) override;
    int RestoreValueFromRegistry(OrvSettingsKey* key) override;
    std::span<std::byte> GetDataBits() override { return DataBitsOf(m_Data); }

protected:
    OrvLongDoubleStrValue() = default;

    double m_Data = 0.0;
};
