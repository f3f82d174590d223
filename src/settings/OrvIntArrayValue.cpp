#include "settings/OrvIntArrayValue.h"

#include <cstring>
#include <utility>
#include <vector>

#include "core/OrvDumpBanner.h"
#include "settings/SettingsRegistryIO.h"

IMPLEMENT_SERIAL(OrvIntArrayValue, OrvSettingsValue, VERSIONABLE_SCHEMA | 1)

OrvIntArrayValue::OrvIntArrayValue(CString name, const CArray<int, int>& data)
    : OrvSettingsValue(std::move(name)) {
    m_Data.Copy(data);
}

void OrvIntArrayValue::Serialize(CArchive& ar) {
    OrvSettingsValue::Serialize(ar);
    if (ar.IsStoring()) {
        ar << static_cast<int>(m_Data.GetSize());
        for (INT_PTR i = 0; i < m_Data.GetSize(); ++i)
            ar << m_Data[i];
        return;
    }
    int count = 0;
    ar >> count;
    if (count < 0)
        AfxThrowArchiveException(CArchiveException::genericException);
    // Read into a vector first, growing with the data actually there, so that a damaged count
    // neither allocates for nothing nor leaves the array half filled.
    std::vector<int> elements;
    for (int i = 0; i < count; ++i) {
        int element = 0;
        ar >> element;
        elements.push_back(element);
    }
    m_Data.SetSize(count);
    for (int i = 0; i < count; ++i)
        m_Data[i] = elements[static_cast<std::size_t>(i)];
}

void OrvIntArrayValue::DumpData(FILE* file) {
    if (!file)
        return;
    OrvDumpBanner(file, L"OrvIntArrayValue", L"Start");
    OrvDumpBanner(file, L"OrvIntArrayValue", L"End");
}

int OrvIntArrayValue::SaveValueToRegistry(OrvSettingsKey* key) {
    return orv_settings::WriteRegistryValue(key, m_Name, REG_BINARY, m_Data.GetData(),
                                            static_cast<DWORD>(m_Data.GetSize() * sizeof(int)));
}

int OrvIntArrayValue::RestoreValueFromRegistry(OrvSettingsKey* key) {
    DWORD type = REG_NONE;
    std::vector<BYTE> bytes;
    if (!orv_settings::ReadRegistryBinary(key, m_Name, type, bytes))
        return 0;
    if (type != REG_BINARY)
        return 1;
    const INT_PTR count = static_cast<INT_PTR>(bytes.size() / sizeof(int));
    m_Data.SetSize(count);
    if (count > 0)
        std::memcpy(m_Data.GetData(), bytes.data(), static_cast<std::size_t>(count) * sizeof(int));
    return 1;
}
