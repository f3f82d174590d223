#include "settings/OrvIntValue.h"

#include <utility>

#include "core/OrvDumpBanner.h"
#include "settings/SettingsRegistryIO.h"

IMPLEMENT_SERIAL(OrvIntValue, OrvSettingsValue, VERSIONABLE_SCHEMA | 1)

OrvIntValue::OrvIntValue(CString name, int data)
    : OrvSettingsValue(std::move(name)), m_Data(data) {}

void OrvIntValue::Serialize(CArchive& ar) {
    OrvSettingsValue::Serialize(ar);
    if (ar.IsStoring())
        ar << m_Data;
    else
        ar >> m_Data;
}

void OrvIntValue::DumpData(FILE* file) {
    if (!file)
        return;
    OrvDumpBanner(file, L"OrvIntValue", L"Start");
    port::FilePrintf(file, L"\n m_Data: %d", m_Data);
    OrvDumpBanner(file, L"OrvIntValue", L"End");
}

int OrvIntValue::SaveValueToRegistry(OrvSettingsKey* key) {
    return orv_settings::WriteRegistryValue(key, m_Name, REG_DWORD, &m_Data, sizeof(m_Data));
}

int OrvIntValue::RestoreValueFromRegistry(OrvSettingsKey* key) {
    return orv_settings::ReadRegistryFixed(key, m_Name, &m_Data, sizeof(m_Data));
}
