// OrvPointValue: a point setting; REG_SZ "x y" in the registry.
#pragma once

#include "port/Export.h"

#include "mfc/CPoint.h"
#include "settings/OrvSettingsValue.h"

class ORV_API OrvPointValue : public OrvSettingsValue {
    DECLARE_SERIAL(OrvPointValue)
public:
    OrvPointValue(CString name, CPoint data);

    void SetValue(CPoint data) { m_Data = data; }
    void GetValue(CPoint& data) const { data = m_Data; }

    void Serialize(CArchive& ar) override;
    void DumpData(FILE* file) override;
    int SaveValueToRegistry(OrvSettingsKey* key) override;
    // A text that holds fewer numbers sets only the leading coordinates.
    int RestoreValueFromRegistry(OrvSettingsKey* key) override;
    std::span<std::byte> GetDataBits() override { return DataBitsOf(m_Data); }

protected:
    OrvPointValue() = default;

    CPoint m_Data;
};
