#include "settings/OrvDoubleValue.h"

#include <utility>

#include "core/OrvDumpBanner.h"
#include "settings/SettingsRegistryIO.h"

IMPLEMENT_SERIAL(OrvDoubleValue, OrvSettingsValue, VERSIONABLE_SCHEMA | 1)

OrvDoubleValue::OrvDoubleValue(CString name, double data)
    : OrvSettingsValue(std::move(name)), m_Data(data) {}

void OrvDoubleValue::Serialize(CArchive& ar) {
    OrvSettingsValue::Serialize(ar);
    if (ar.IsStoring())
        ar << m_Data;
    else
        ar >> m_Data;
}

void OrvDoubleValue::DumpData(FILE* file) {
    if (!file)
        return;
    OrvDumpBanner(file, L"OrvDoubleValue", L"Start");
    port::FilePrintf(file, L"\n m_Data: %8.6f", m_Data);
    OrvDumpBanner(file, L"OrvDoubleValue", L"End");
}

int OrvDoubleValue::SaveValueToRegistry(OrvSettingsKey* key) {
    return orv_settings::WriteRegistryValue(key, m_Name, REG_BINARY, &m_Data, sizeof(m_Data));
}

int OrvDoubleValue::RestoreValueFromRegistry(OrvSettingsKey* key) {
    return orv_settings::ReadRegistryFixed(key, m_Name, &m_Data, sizeof(m_Data));
}
