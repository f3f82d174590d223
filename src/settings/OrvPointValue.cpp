#include "settings/OrvPointValue.h"

#include <cwchar>
#include <utility>

#include "core/OrvDumpBanner.h"
#include "settings/SettingsRegistryIO.h"

IMPLEMENT_SERIAL(OrvPointValue, OrvSettingsValue, VERSIONABLE_SCHEMA | 1)

OrvPointValue::OrvPointValue(CString name, CPoint data)
    : OrvSettingsValue(std::move(name)), m_Data(data) {}

void OrvPointValue::Serialize(CArchive& ar) {
    OrvSettingsValue::Serialize(ar);
    if (ar.IsStoring())
        ar << m_Data;
    else
        ar >> m_Data;
}

void OrvPointValue::DumpData(FILE* file) {
    if (!file)
        return;
    CString point;
    point.Format(L"m_Data.x = %d, m_Data.y = %d", m_Data.x, m_Data.y);
    OrvDumpBanner(file, L"OrvPointValue", L"Start");
    port::FilePrintf(file, L"\n Point: %s", point.GetString());
    OrvDumpBanner(file, L"OrvPointValue", L"End");
}

int OrvPointValue::SaveValueToRegistry(OrvSettingsKey* key) {
    CString text;
    text.Format(L"%ld %ld", static_cast<long>(m_Data.x), static_cast<long>(m_Data.y));
    return orv_settings::WriteRegistryText(key, m_Name, text);
}

int OrvPointValue::RestoreValueFromRegistry(OrvSettingsKey* key) {
    CString text;
    if (!orv_settings::ReadRegistryText(key, m_Name, text))
        return 0;
    std::swscanf(text.GetString(), L"%d %d", &m_Data.x, &m_Data.y);
    return 1;
}
