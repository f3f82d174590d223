#include "settings/OrvSettingsKey.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "core/OrvDumpBanner.h"
#include "core/OrvLoadTracker.h"
#include "settings/OrvColorValue.h"
#include "settings/OrvDoubleValue.h"
#include "settings/OrvIntArrayValue.h"
#include "settings/OrvIntValue.h"
#include "settings/OrvLongDoubleStrValue.h"
#include "settings/OrvPointValue.h"
#include "settings/OrvRectValue.h"
#include "settings/OrvStringValue.h"
#include "settings/OrvTimeValue.h"

IMPLEMENT_SERIAL(OrvSettingsKey, OrvBaseObject, VERSIONABLE_SCHEMA | 1)

namespace {

// Settings trees are a few levels deep; a file that nests far deeper is damaged.
constexpr std::size_t kMaxLoadDepth = 256;

// Copies a plain datum over the value's bits, as far as the value has bits.
template <class T> void StoreBitsInto(OrvSettingsValue* value, const T& data) {
    const std::span<std::byte> bits = value->GetDataBits();
    if (!bits.empty())
        std::memcpy(bits.data(), &data, std::min(sizeof(T), bits.size()));
}

CString NameOf(CObject* element) {
    if (auto* value = DYNAMIC_DOWNCAST(OrvSettingsValue, element))
        return value->GetName();
    if (auto* key = DYNAMIC_DOWNCAST(OrvSettingsKey, element))
        return key->GetName();
    return CString();
}

bool HasElementNamed(const CObList& list, const CString& name) {
    for (POSITION pos = list.GetHeadPosition(); pos;)
        if (NameOf(list.GetNext(pos)) == name)
            return true;
    return false;
}

} // namespace

OrvSettingsKey::OrvSettingsKey() = default;

OrvSettingsKey::OrvSettingsKey(CString name, CString path)
    : m_Name(std::move(name)), m_Path(std::move(path)) {}

OrvSettingsKey::~OrvSettingsKey() {
    m_RootKey = nullptr;
    DestroyList();
}

int OrvSettingsKey::GetHasPermissionsToWriteToHKLM() {
    HKEY handle = nullptr;
    const LSTATUS status = RegCreateKeyExW(HKEY_LOCAL_MACHINE, L"Software", 0, nullptr, 0,
                                           KEY_WRITE, nullptr, &handle, nullptr);
    if (status != ERROR_SUCCESS)
        return 0;
    RegCloseKey(handle);
    return 1;
}

HKEY OrvSettingsKey::SetKey(HKEY rootKey) {
    return std::exchange(m_RootKey, rootKey);
}

HKEY OrvSettingsKey::GetHandleToKey(int create, int readOnly) {
    HKEY handle = nullptr;
    const REGSAM access = readOnly ? KEY_READ : KEY_ALL_ACCESS;
    LSTATUS status;
    if (create) {
        wchar_t noClass[] = L"";
        status =
            RegCreateKeyExW(m_RootKey, m_Path, 0, noClass, 0, access, nullptr, &handle, nullptr);
    } else {
        status = RegOpenKeyExW(m_RootKey, m_Path, 0, access, &handle);
    }
    return status == ERROR_SUCCESS ? handle : nullptr;
}

void OrvSettingsKey::AddValue(CString name, int data) {
    m_List.AddHead(new OrvIntValue(std::move(name), data));
}
void OrvSettingsKey::AddValue(CString name, unsigned long data) {
    m_List.AddHead(new OrvColorValue(std::move(name), data));
}
void OrvSettingsKey::AddValue(CString name, DWORD data) {
    m_List.AddHead(new OrvColorValue(std::move(name), data));
}
void OrvSettingsKey::AddValue(CString name, double data) {
    m_List.AddHead(new OrvDoubleValue(std::move(name), data));
}
void OrvSettingsKey::AddValue(CString name, long double data) {
    m_List.AddHead(new OrvLongDoubleStrValue(std::move(name), data));
}
void OrvSettingsKey::AddValue(CString name, CString data) {
    m_List.AddHead(new OrvStringValue(std::move(name), std::move(data)));
}
void OrvSettingsKey::AddValue(CString name, CPoint data) {
    m_List.AddHead(new OrvPointValue(std::move(name), data));
}
void OrvSettingsKey::AddValue(CString name, CRect data) {
    m_List.AddHead(new OrvRectValue(std::move(name), data));
}
void OrvSettingsKey::AddValue(CString name, CTime data) {
    m_List.AddHead(new OrvTimeValue(std::move(name), data));
}
void OrvSettingsKey::AddValue(CString name, const CArray<int, int>& data) {
    m_List.AddHead(new OrvIntArrayValue(std::move(name), data));
}

void OrvSettingsKey::AddKey(OrvSettingsKey* key) {
    m_List.AddHead(key);
}

template <class T> void OrvSettingsKey::StoreBits(CString& name, const T& data) {
    if (OrvSettingsValue* value = FindSettingsValue(name))
        StoreBitsInto(value, data);
}

template <class T> void OrvSettingsKey::LoadBits(CString& name, T& data) {
    OrvSettingsValue* value = FindSettingsValue(name);
    if (!value)
        return;
    const std::span<std::byte> bits = value->GetDataBits();
    if (!bits.empty())
        std::memcpy(&data, bits.data(), std::min(sizeof(T), bits.size()));
}

// A colour travels as the 32 bits that `unsigned long` has on Windows.
void OrvSettingsKey::SetValue(CString name, int data) {
    StoreBits(name, data);
}
void OrvSettingsKey::SetValue(CString name, unsigned long data) {
    StoreBits(name, static_cast<DWORD>(data));
}
void OrvSettingsKey::SetValue(CString name, DWORD data) {
    StoreBits(name, data);
}
void OrvSettingsKey::SetValue(CString name, double data) {
    StoreBits(name, data);
}
void OrvSettingsKey::SetValue(CString name, long double data) {
    StoreBits(name, static_cast<double>(data));
}
void OrvSettingsKey::SetValue(CString name, CPoint data) {
    StoreBits(name, data);
}
void OrvSettingsKey::SetValue(CString name, CRect data) {
    StoreBits(name, data);
}
void OrvSettingsKey::SetValue(CString name, CTime data) {
    StoreBits(name, data);
}

// Texts and arrays have no plain bits to overwrite: only a value of their own class takes them.
void OrvSettingsKey::SetValue(CString name, CString data) {
    if (auto* value = DYNAMIC_DOWNCAST(OrvStringValue, FindSettingsValue(name)))
        value->SetValue(std::move(data));
}
void OrvSettingsKey::SetValue(CString name, const CArray<int, int>& data) {
    if (auto* value = DYNAMIC_DOWNCAST(OrvIntArrayValue, FindSettingsValue(name)))
        value->SetValue(data);
}

void OrvSettingsKey::GetValue(CString name, int& data) {
    LoadBits(name, data);
}
void OrvSettingsKey::GetValue(CString name, unsigned long& data) {
    DWORD bits = static_cast<DWORD>(data);
    LoadBits(name, bits);
    data = bits;
}
void OrvSettingsKey::GetValue(CString name, DWORD& data) {
    LoadBits(name, data);
}
void OrvSettingsKey::GetValue(CString name, double& data) {
    LoadBits(name, data);
}
void OrvSettingsKey::GetValue(CString name, long double& data) {
    double bits = static_cast<double>(data);
    LoadBits(name, bits);
    data = bits;
}
void OrvSettingsKey::GetValue(CString name, CPoint& data) {
    LoadBits(name, data);
}
void OrvSettingsKey::GetValue(CString name, CRect& data) {
    LoadBits(name, data);
}
void OrvSettingsKey::GetValue(CString name, CTime& data) {
    LoadBits(name, data);
}
void OrvSettingsKey::GetValue(CString name, CString& data) {
    if (auto* value = DYNAMIC_DOWNCAST(OrvStringValue, FindSettingsValue(name)))
        value->GetValue(data);
}
void OrvSettingsKey::GetValue(CString name, CArray<int, int>& data) {
    if (auto* value = DYNAMIC_DOWNCAST(OrvIntArrayValue, FindSettingsValue(name)))
        value->GetValue(data);
}

OrvSettingsKey* OrvSettingsKey::GetKey(CString name) {
    return FindSettingsKey(name);
}

OrvSettingsKey* OrvSettingsKey::GetSettingsKey(CString name) {
    return FindSettingsKey(name);
}

CString OrvSettingsKey::GetName(OrvBaseObject* child) {
    return NameOf(child);
}

OrvSettingsValue* OrvSettingsKey::FindSettingsValue(CString& name) {
    for (POSITION pos = m_List.GetHeadPosition(); pos;) {
        CObject* child = m_List.GetNext(pos);
        if (auto* value = DYNAMIC_DOWNCAST(OrvSettingsValue, child)) {
            if (value->GetName() == name)
                return value;
        } else if (auto* key = DYNAMIC_DOWNCAST(OrvSettingsKey, child)) {
            if (OrvSettingsValue* found = key->FindSettingsValue(name))
                return found;
        }
    }
    return nullptr;
}

OrvSettingsKey* OrvSettingsKey::FindSettingsKey(CString& name) {
    for (POSITION pos = m_List.GetHeadPosition(); pos;) {
        auto* key = DYNAMIC_DOWNCAST(OrvSettingsKey, m_List.GetNext(pos));
        if (!key)
            continue;
        if (key->m_Name == name)
            return key;
        if (OrvSettingsKey* found = key->FindSettingsKey(name))
            return found;
    }
    return nullptr;
}

void OrvSettingsKey::DestroyList() {
    ResetContent(m_List);
}

void OrvSettingsKey::ResetContent(CObList& list) {
    for (POSITION pos = list.GetHeadPosition(); pos;)
        delete list.GetNext(pos);
    list.RemoveAll();
}

void OrvSettingsKey::MergeContents(CObList& loaded, CObList& defaults) {
    // Loaded options this version no longer has go.
    for (POSITION pos = loaded.GetHeadPosition(); pos;) {
        const POSITION at = pos;
        CObject* element = loaded.GetNext(pos);
        if (!HasElementNamed(defaults, NameOf(element))) {
            loaded.RemoveAt(at);
            delete element;
        }
    }
    // Options newer than the document take their defaults.
    for (POSITION pos = defaults.GetHeadPosition(); pos;) {
        const POSITION at = pos;
        CObject* element = defaults.GetNext(pos);
        const CString name = NameOf(element);
        if (HasElementNamed(loaded, name))
            continue;
        // Documents from before this option keep the behaviour they were made with.
        if (name == L"MillFeatureCreationStyle")
            if (auto* value = DYNAMIC_DOWNCAST(OrvSettingsValue, element))
                StoreBitsInto(value, 0);
        defaults.RemoveAt(at);
        loaded.AddHead(element);
    }
}

int OrvSettingsKey::SaveValuesToRegistry() {
    int result = 1;
    for (POSITION pos = m_List.GetHeadPosition(); pos;) {
        CObject* child = m_List.GetNext(pos);
        if (auto* value = DYNAMIC_DOWNCAST(OrvSettingsValue, child)) {
            if (!value->SaveValueToRegistry(this))
                result = 0;
        } else if (auto* key = DYNAMIC_DOWNCAST(OrvSettingsKey, child)) {
            if (!key->SaveValuesToRegistry())
                result = 0;
        }
    }
    return result;
}

int OrvSettingsKey::RestoreValuesFromRegistry() {
    int result = 1;
    for (POSITION pos = m_List.GetHeadPosition(); pos;) {
        CObject* child = m_List.GetNext(pos);
        if (auto* value = DYNAMIC_DOWNCAST(OrvSettingsValue, child)) {
            if (!value->RestoreValueFromRegistry(this))
                result = 0;
        } else if (auto* key = DYNAMIC_DOWNCAST(OrvSettingsKey, child)) {
            if (!key->RestoreValuesFromRegistry())
                result = 0;
        }
    }
    return result;
}

void OrvSettingsKey::Serialize(CArchive& ar) {
    OrvBaseObject::Serialize(ar);
    if (ar.IsStoring()) {
        m_List.Serialize(ar);
        return;
    }
    CObList defaults;
    defaults.AddTail(&m_List);
    m_List.RemoveAll();
    OrvLoadTracker tracker(this);
    try {
        if (OrvLoadTracker::Depth() > kMaxLoadDepth)
            AfxThrowArchiveException(CArchiveException::genericException);
        m_List.Serialize(ar);
    } catch (...) { // the key gets its list and defaults back before the failure goes on
        AdoptLoadedList(tracker);
        RestoreDefaults(defaults);
        throw;
    }
    if (!AdoptLoadedList(tracker)) {
        RestoreDefaults(defaults);
        AfxThrowArchiveException(CArchiveException::badIndex);
    }
    MergeContents(m_List, defaults);
    ResetContent(defaults);
}

bool OrvSettingsKey::AdoptLoadedList(OrvLoadTracker& tracker) {
    bool whole = true;
    for (POSITION pos = m_List.GetHeadPosition(); pos;) {
        const POSITION at = pos;
        if (!tracker.Claim(m_List.GetNext(pos))) {
            m_List.RemoveAt(at);
            whole = false;
        }
    }
    return whole;
}

void OrvSettingsKey::RestoreDefaults(CObList& defaults) {
    ResetContent(m_List);
    m_List.AddTail(&defaults);
    defaults.RemoveAll();
}

void OrvSettingsKey::DumpData(FILE* file) {
    if (!file)
        return;
    OrvDumpBanner(file, L"OrvSettingsKey", L"Start");
    port::FilePrintf(file, L"\n m_Name: %s", m_Name.GetString());
    port::FilePrintf(file, L"\n m_Path: %s", m_Path.GetString());
    port::FilePrintf(file, L"\nDumping for m_List Start\n");
    port::FilePrintf(file, L"\n m_List Total Items : %d\n", static_cast<int>(m_List.GetCount()));
    int counter = 0;
    for (POSITION pos = m_List.GetHeadPosition(); pos;) {
        CObject* child = m_List.GetNext(pos);
        port::FilePrintf(file, L"\n m_List count: %d\n", counter++);
        if (auto* object = DYNAMIC_DOWNCAST(OrvBaseObject, child))
            object->DumpData(file);
    }
    port::FilePrintf(file, L"\nDumping for m_List End\n");
    OrvDumpBanner(file, L"OrvSettingsKey", L"End");
}
