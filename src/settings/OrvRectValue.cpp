#include "settings/OrvRectValue.h"

#include <cwchar>
#include <utility>

#include "core/OrvDumpBanner.h"
#include "settings/SettingsRegistryIO.h"

IMPLEMENT_SERIAL(OrvRectValue, OrvSettingsValue, VERSIONABLE_SCHEMA | 1)

OrvRectValue::OrvRectValue(CString name, CRect data)
    : OrvSettingsValue(std::move(name)), m_Data(data) {}

void OrvRectValue::Serialize(CArchive& ar) {
    OrvSettingsValue::Serialize(ar);
    if (ar.IsStoring())
        ar << m_Data;
    else
        ar >> m_Data;
}

void OrvRectValue::DumpData(FILE* file) {
    if (!file)
        return;
    CString rect;
    rect.Format(L"m_Data.left = %d, m_Data.top = %d, m_Data.right = %d, m_Data.bottom = %d",
                m_Data.left, m_Data.top, m_Data.right, m_Data.bottom);
    OrvDumpBanner(file, L"OrvRectValue", L"Start");
    port::FilePrintf(file, L"\n Rect: %s", rect.GetString());
    OrvDumpBanner(file, L"OrvRectValue", L"End");
}

int OrvRectValue::SaveValueToRegistry(OrvSettingsKey* key) {
    CString text;
    text.Format(L"%ld %ld %ld %ld", static_cast<long>(m_Data.left), static_cast<long>(m_Data.top),
                static_cast<long>(m_Data.right), static_cast<long>(m_Data.bottom));
    return orv_settings::WriteRegistryText(key, m_Name, text);
}

int OrvRectValue::RestoreValueFromRegistry(OrvSettingsKey* key) {
    CString text;
    if (!orv_settings::ReadRegistryText(key, m_Name, text))
        return 0;
    std::swscanf(text.GetString(), L"%d %d %d %d", &m_Data.left, &m_Data.top, &m_Data.right,
                 &m_Data.bottom);
    return 1;
}
