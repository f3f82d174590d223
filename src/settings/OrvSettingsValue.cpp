#include "settings/OrvSettingsValue.h"

#include <utility>

#include "core/OrvDumpBanner.h"

IMPLEMENT_SERIAL(OrvSettingsValue, OrvBaseObject, VERSIONABLE_SCHEMA | 1)

OrvSettingsValue::OrvSettingsValue(CString name) : m_Name(std::move(name)) {}

void OrvSettingsValue::Serialize(CArchive& ar) {
    OrvBaseObject::Serialize(ar);
    if (ar.IsStoring())
        ar << m_Name;
    else
        ar >> m_Name;
}

void OrvSettingsValue::DumpData(FILE* file) {
    if (!file)
        return;
    OrvDumpBanner(file, L"OrvSettingsValue", L"Start");
    port::FilePrintf(file, L"\n m_Name: %s", m_Name.GetString());
    OrvDumpBanner(file, L"OrvSettingsValue", L"End");
}

int OrvSettingsValue::SaveValueToRegistry(OrvSettingsKey*) {
    return 0;
}

int OrvSettingsValue::RestoreValueFromRegistry(OrvSettingsKey*) {
    return 0;
}

std::span<std::byte> OrvSettingsValue::GetDataBits() {
    return {};
}
