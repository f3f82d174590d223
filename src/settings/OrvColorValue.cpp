#include "settings/OrvColorValue.h"

#include <utility>

#include "core/OrvDumpBanner.h"
#include "settings/SettingsRegistryIO.h"

IMPLEMENT_SERIAL(OrvColorValue, OrvSettingsValue, VERSIONABLE_SCHEMA | 1)

OrvColorValue::OrvColorValue(CString name, unsigned long data)
    : OrvSettingsValue(std::move(name)), m_Data(static_cast<COLORREF>(data)) {}

void OrvColorValue::Serialize(CArchive& ar) {
    OrvSettingsValue::Serialize(ar);
    if (ar.IsStoring())
        ar << m_Data;
    else
        ar >> m_Data;
}

void OrvColorValue::DumpData(FILE* file) {
    if (!file)
        return;
    OrvDumpBanner(file, L"OrvColorValue", L"Start");
    port::FilePrintf(file, L"\n m_Data: %d", m_Data);
    OrvDumpBanner(file, L"OrvColorValue", L"End");
}

int OrvColorValue::SaveValueToRegistry(OrvSettingsKey* key) {
    return orv_settings::WriteRegistryValue(key, m_Name, REG_DWORD, &m_Data, sizeof(m_Data));
}

int OrvColorValue::RestoreValueFromRegistry(OrvSettingsKey* key) {
    return orv_settings::ReadRegistryFixed(key, m_Name, &m_Data, sizeof(m_Data));
}
