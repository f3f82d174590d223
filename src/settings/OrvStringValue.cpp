#include "settings/OrvStringValue.h"

#include <utility>

#include "core/OrvDumpBanner.h"
#include "settings/SettingsRegistryIO.h"

IMPLEMENT_SERIAL(OrvStringValue, OrvSettingsValue, VERSIONABLE_SCHEMA | 1)

OrvStringValue::OrvStringValue(CString name, CString data)
    : OrvSettingsValue(std::move(name)), m_Data(std::move(data)) {}

void OrvStringValue::Serialize(CArchive& ar) {
    OrvSettingsValue::Serialize(ar);
    if (ar.IsStoring())
        ar << m_Data;
    else
        ar >> m_Data;
}

void OrvStringValue::DumpData(FILE* file) {
    if (!file)
        return;
    OrvDumpBanner(file, L"OrvStringValue", L"Start");
    port::FilePrintf(file, L"\n m_Data: %s", m_Data.GetString());
    OrvDumpBanner(file, L"OrvStringValue", L"End");
}

int OrvStringValue::SaveValueToRegistry(OrvSettingsKey* key) {
    return orv_settings::WriteRegistryText(key, m_Name, m_Data);
}

int OrvStringValue::RestoreValueFromRegistry(OrvSettingsKey* key) {
    return orv_settings::ReadRegistryText(key, m_Name, m_Data);
}
