// OrvRectValue: a rectangle setting; REG_SZ "left top right bottom" in the registry.
#pragma once

#include "port/Export.h"

#include "mfc/CRect.h"
#include "settings/OrvSettingsValue.h"

class ORV_API OrvRectValue : public OrvSettingsValue {
    DECLARE_SERIAL(OrvRectValue)
public:
    OrvRectValue(CString name, CRect data);

    void SetValue(CRect data) { m_Data = data; }
    void GetValue(CRect& data) const { data = m_Data; }

    void Serialize(CArchive& ar) override;
    void DumpData(FILE* file) override;
    int SaveValueToRegistry(OrvSettingsKey* key) override;
    // A text that holds fewer numbers sets only the leading sides.
    int RestoreValueFromRegistry(OrvSettingsKey* key) override;
    std::span<std::byte> GetDataBits() override { return DataBitsOf(m_Data); }

protected:
    OrvRectValue() = default;

    CRect m_Data;
};
