#include "settings/OrvTimeValue.h"

#include <cstdint>
#include <cwchar>
#include <utility>

#include "core/OrvDumpBanner.h"
#include "settings/SettingsRegistryIO.h"

IMPLEMENT_SERIAL(OrvTimeValue, OrvSettingsValue, VERSIONABLE_SCHEMA | 1)

OrvTimeValue::OrvTimeValue(CString name, CTime data)
    : OrvSettingsValue(std::move(name)), m_Data(data) {}

void OrvTimeValue::Serialize(CArchive& ar) {
    OrvSettingsValue::Serialize(ar);
    if (ar.IsStoring())
        ar << m_Data;
    else
        ar >> m_Data;
}

void OrvTimeValue::DumpData(FILE* file) {
    if (!file)
        return;
    OrvDumpBanner(file, L"OrvTimeValue", L"Start");
    OrvDumpBanner(file, L"OrvTimeValue", L"End");
}

int OrvTimeValue::SaveValueToRegistry(OrvSettingsKey* key) {
    // A 32-bit "%ld" given the 64-bit time prints its low half as a signed number.
    CString text;
    text.Format(L"%ld", static_cast<long>(static_cast<std::int32_t>(m_Data.GetTime())));
    return orv_settings::WriteRegistryText(key, m_Name, text);
}

int OrvTimeValue::RestoreValueFromRegistry(OrvSettingsKey* key) {
    CString text;
    if (!orv_settings::ReadRegistryText(key, m_Name, text))
        return 0;
    std::int32_t low = 0;
    LONGLONG time = 0;
    if (std::swscanf(text.GetString(), L"%d", &low) == 1)
        time = static_cast<std::uint32_t>(low);
    m_Data = CTime(time);
    return 1;
}
