// OrvStringValue: a text setting; REG_SZ in the registry.
#pragma once

#include "port/Export.h"

#include <utility>

#include "settings/OrvSettingsValue.h"

class ORV_API OrvStringValue : public OrvSettingsValue {
    DECLARE_SERIAL(OrvStringValue)
public:
    OrvStringValue(CString name, CString data);

    void SetValue(CString data) { m_Data = std::move(data); }
    void GetValue(CString& data) const { data = m_Data; }

    void Serialize(CArchive& ar) override;
    void DumpData(FILE* file) override;
    int SaveValueToRegistry(OrvSettingsKey* key) override;
    int RestoreValueFromRegistry(OrvSettingsKey* key) override;

protected:
    OrvStringValue() = default;

    CString m_Data;
};
