#include "settings/OrvLongDoubleStrValue.h"

#include <cwchar>
#include <utility>

#include "core/OrvDumpBanner.h"
#include "settings/SettingsRegistryIO.h"

IMPLEMENT_SERIAL(OrvLongDoubleStrValue, OrvSettingsValue, VERSIONABLE_SCHEMA | 1)

OrvLongDoubleStrValue::OrvLongDoubleStrValue(CString name, long double data)
    : OrvSettingsValue(std::move(name)), m_Data(static_cast<double>(data)) {}

void OrvLongDoubleStrValue::Serialize(CArchive& ar) {
    OrvSettingsValue::Serialize(ar);
    if (ar.IsStoring())
        ar << m_Data;
    else
        ar >> m_Data;
}

void OrvLongDoubleStrValue::DumpData(FILE* file) {
    if (!file)
        return;
    // The banner word has never carried the "Long".
    OrvDumpBanner(file, L"OrvDoubleStrValue", L"Start");
    OrvDumpBanner(file, L"OrvDoubleStrValue", L"End");
}

int OrvLongDoubleStrValue::SaveValueToRegistry(OrvSettingsKey* key) {
    CString text;
    text.Format(L"%lf", m_Data);
    return orv_settings::WriteRegistryText(key, m_Name, text);
}

int OrvLongDoubleStrValue::RestoreValueFromRegistry(OrvSettingsKey* key) {
    CString text;
    if (!orv_settings::ReadRegistryText(key, m_Name, text))
        return 0;
    std::swscanf(text.GetString(), L"%lf", &m_Data);
    return 1;
}
