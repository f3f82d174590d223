// The Win32 registry functions over the SQLite stores of the predefined roots.
#include "RegistryHandles.h"
#include "RegistryStore.h"

#include "win/registry.h"

#include <cstring>
#include <new>

namespace port::registry {
namespace {

constexpr REGSAM kWriteRights = KEY_SET_VALUE | KEY_CREATE_SUB_KEY | KEY_CREATE_LINK | 0x00010000u |
                                0x00040000u | 0x00080000u; // DELETE, WRITE_DAC, WRITE_OWNER
constexpr std::size_t kMaxKeyNameLength = 255;

LSTATUS StatusOf(const SqliteError& error) {
    switch (error.code & 0xFF) {
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_CANTOPEN:
    case SQLITE_AUTH:
        return ERROR_ACCESS_DENIED;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return ERROR_BADDB;
    case SQLITE_NOMEM:
        return ERROR_NOT_ENOUGH_MEMORY;
    default:
        return ERROR_CANTWRITE;
    }
}

// Runs one registry call; a store failure becomes its Win32 status instead of an exception.
template <typename Call> LSTATUS Guarded(Call&& call) {
    try {
        return call();
    } catch (const SqliteError& error) {
        return StatusOf(error);
    } catch (const std::bad_alloc&) {
        return ERROR_NOT_ENOUGH_MEMORY;
    }
}

std::optional<KeyId> Walk(RegistryStore& store, KeyId from,
                          const std::vector<std::wstring>& components) {
    std::optional<KeyId> id = from;
    for (const auto& name : components) {
        id = store.FindSubkey(*id, name);
        if (!id)
            break;
    }
    return id;
}

std::wstring NameOf(LPCWSTR name) {
    return name ? std::wstring(name) : std::wstring();
}

// Copies data out as RegQueryValueExW does: the size with no buffer, ERROR_MORE_DATA and the
// needed size when the buffer is too small.
LSTATUS CopyData(const Bytes& data, LPBYTE buffer, LPDWORD size) {
    if (!size)
        return ERROR_SUCCESS;
    const DWORD needed = static_cast<DWORD>(data.size());
    if (buffer && *size < needed) {
        *size = needed;
        return ERROR_MORE_DATA;
    }
    if (buffer && needed > 0)
        std::memcpy(buffer, data.data(), needed);
    *size = needed;
    return ERROR_SUCCESS;
}

// Copies a name with its terminator into a buffer of *length characters.
LSTATUS CopyName(const std::wstring& name, LPWSTR buffer, LPDWORD length) {
    if (name.size() + 1 > *length)
        return ERROR_MORE_DATA;
    std::wmemcpy(buffer, name.c_str(), name.size() + 1);
    *length = static_cast<DWORD>(name.size());
    return ERROR_SUCCESS;
}

void SetFileTime(PFILETIME time, std::int64_t value) {
    if (!time)
        return;
    time->dwLowDateTime = static_cast<DWORD>(static_cast<std::uint64_t>(value) & 0xFFFFFFFFu);
    time->dwHighDateTime = static_cast<DWORD>(static_cast<std::uint64_t>(value) >> 32);
}

template <typename T> void SetIf(T* out, T value) {
    if (out)
        *out = value;
}

// Runs a call on the open key behind a handle that grants `rights` and, for a write, whose store
// can be written; a bad handle or a missing right answers its status without running the call.
template <typename Call> LSTATUS GuardedOnKey(HKEY hKey, REGSAM rights, bool writes, Call&& call) {
    return Guarded([&]() -> LSTATUS {
        const auto key = ResolveHandle(hKey);
        if (!key)
            return ERROR_INVALID_HANDLE;
        if (!(key->access & rights) || (writes && !key->store->Writable()))
            return ERROR_ACCESS_DENIED;
        return call(*key);
    });
}

} // namespace
} // namespace port::registry

using namespace port::registry;

LSTATUS RegCreateKeyExW(HKEY hKey, LPCWSTR lpSubKey, DWORD, LPWSTR, DWORD, REGSAM samDesired,
                        LPSECURITY_ATTRIBUTES, PHKEY phkResult, LPDWORD lpdwDisposition) {
    if (!phkResult)
        return ERROR_INVALID_PARAMETER;
    return Guarded([&]() -> LSTATUS {
        const auto parent = ResolveHandle(hKey);
        if (!parent)
            return ERROR_INVALID_HANDLE;
        const auto components = SplitKeyPath(NameOf(lpSubKey));
        for (const auto& name : components)
            if (name.size() > kMaxKeyNameLength)
                return ERROR_INVALID_PARAMETER;
        RegistryStore& store = *parent->store;
        if ((samDesired & kWriteRights) && !store.Writable())
            return ERROR_ACCESS_DENIED;
        auto lock = store.Lock();
        DWORD disposition = REG_OPENED_EXISTING_KEY;
        std::optional<KeyId> id = Walk(store, parent->id, components);
        if (!id) {
            if (!store.Writable() || !(parent->access & KEY_CREATE_SUB_KEY))
                return ERROR_ACCESS_DENIED;
            RegistryStore::Transaction transaction(store);
            if (!store.KeyExists(parent->id))
                return ERROR_KEY_DELETED;
            KeyId current = parent->id;
            for (const auto& name : components) {
                if (auto found = store.FindSubkey(current, name)) {
                    current = *found;
                } else {
                    current = store.CreateSubkey(current, name);
                    disposition = REG_CREATED_NEW_KEY;
                }
            }
            transaction.Commit();
            id = current;
        }
        *phkResult = AddHandle(OpenKey{parent->store, *id, samDesired});
        SetIf(lpdwDisposition, disposition);
        return ERROR_SUCCESS;
    });
}

LSTATUS RegOpenKeyExW(HKEY hKey, LPCWSTR lpSubKey, DWORD, REGSAM samDesired, PHKEY phkResult) {
    if (!phkResult)
        return ERROR_INVALID_PARAMETER;
    return Guarded([&]() -> LSTATUS {
        const auto parent = ResolveHandle(hKey);
        if (!parent)
            return ERROR_INVALID_HANDLE;
        RegistryStore& store = *parent->store;
        auto lock = store.Lock();
        const auto id = Walk(store, parent->id, SplitKeyPath(NameOf(lpSubKey)));
        if (!id || !store.KeyExists(*id))
            return ERROR_FILE_NOT_FOUND;
        if ((samDesired & kWriteRights) && !store.Writable())
            return ERROR_ACCESS_DENIED;
        *phkResult = AddHandle(OpenKey{parent->store, *id, samDesired});
        return ERROR_SUCCESS;
    });
}

LSTATUS RegCloseKey(HKEY hKey) {
    if (hKey == HKEY_CURRENT_USER || hKey == HKEY_LOCAL_MACHINE)
        return ERROR_SUCCESS;
    return RemoveHandle(hKey) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

LSTATUS RegQueryValueExW(HKEY hKey, LPCWSTR lpValueName, LPDWORD, LPDWORD lpType, LPBYTE lpData,
                         LPDWORD lpcbData) {
    if (lpData && !lpcbData)
        return ERROR_INVALID_PARAMETER;
    return GuardedOnKey(hKey, KEY_QUERY_VALUE, false, [&](const OpenKey& key) -> LSTATUS {
        std::optional<ValueRecord> value;
        {
            auto lock = key.store->Lock();
            value = key.store->FindValue(key.id, NameOf(lpValueName));
        }
        if (!value)
            return ERROR_FILE_NOT_FOUND;
        SetIf(lpType, value->type);
        return CopyData(ApiFromStored(value->type, value->data), lpData, lpcbData);
    });
}

LSTATUS RegSetValueExW(HKEY hKey, LPCWSTR lpValueName, DWORD, DWORD dwType, const BYTE* lpData,
                       DWORD cbData) {
    if (!lpData && cbData > 0)
        return ERROR_INVALID_PARAMETER;
    return GuardedOnKey(hKey, KEY_SET_VALUE, true, [&](const OpenKey& key) -> LSTATUS {
        RegistryStore& store = *key.store;
        const Bytes data = StoredFromApi(dwType, lpData, cbData);
        auto lock = store.Lock();
        RegistryStore::Transaction transaction(store);
        if (!store.KeyExists(key.id))
            return ERROR_KEY_DELETED;
        store.SetValue(key.id, NameOf(lpValueName), dwType, data);
        transaction.Commit();
        return ERROR_SUCCESS;
    });
}

LSTATUS RegDeleteValueW(HKEY hKey, LPCWSTR lpValueName) {
    return GuardedOnKey(hKey, KEY_SET_VALUE, true, [&](const OpenKey& key) -> LSTATUS {
        RegistryStore& store = *key.store;
        auto lock = store.Lock();
        RegistryStore::Transaction transaction(store);
        if (!store.KeyExists(key.id))
            return ERROR_KEY_DELETED;
        if (!store.DeleteValue(key.id, NameOf(lpValueName)))
            return ERROR_FILE_NOT_FOUND;
        transaction.Commit();
        return ERROR_SUCCESS;
    });
}

LSTATUS RegEnumValueW(HKEY hKey, DWORD dwIndex, LPWSTR lpValueName, LPDWORD lpcchValueName, LPDWORD,
                      LPDWORD lpType, LPBYTE lpData, LPDWORD lpcbData) {
    if (!lpValueName || !lpcchValueName || (lpData && !lpcbData))
        return ERROR_INVALID_PARAMETER;
    return GuardedOnKey(hKey, KEY_QUERY_VALUE, false, [&](const OpenKey& key) -> LSTATUS {
        std::optional<ValueRecord> value;
        {
            auto lock = key.store->Lock();
            value = key.store->ValueAt(key.id, dwIndex);
        }
        if (!value)
            return ERROR_NO_MORE_ITEMS;
        if (const LSTATUS status = CopyName(value->name, lpValueName, lpcchValueName))
            return status;
        SetIf(lpType, value->type);
        return CopyData(ApiFromStored(value->type, value->data), lpData, lpcbData);
    });
}

LSTATUS RegEnumKeyExW(HKEY hKey, DWORD dwIndex, LPWSTR lpName, LPDWORD lpcchName, LPDWORD,
                      LPWSTR lpClass, LPDWORD lpcchClass, PFILETIME lpftLastWriteTime) {
    if (!lpName || !lpcchName)
        return ERROR_INVALID_PARAMETER;
    return GuardedOnKey(hKey, KEY_ENUMERATE_SUB_KEYS, false, [&](const OpenKey& key) -> LSTATUS {
        std::optional<SubkeyRecord> subkey;
        {
            auto lock = key.store->Lock();
            subkey = key.store->SubkeyAt(key.id, dwIndex);
        }
        if (!subkey)
            return ERROR_NO_MORE_ITEMS;
        if (const LSTATUS status = CopyName(subkey->name, lpName, lpcchName))
            return status;
        if (lpClass && lpcchClass && *lpcchClass > 0)
            lpClass[0] = L'\0';
        SetIf(lpcchClass, DWORD{0});
        SetFileTime(lpftLastWriteTime, subkey->written);
        return ERROR_SUCCESS;
    });
}

LSTATUS RegDeleteKeyW(HKEY hKey, LPCWSTR lpSubKey) {
    if (!lpSubKey)
        return ERROR_INVALID_PARAMETER;
    return Guarded([&]() -> LSTATUS {
        const auto parent = ResolveHandle(hKey);
        if (!parent)
            return ERROR_INVALID_HANDLE;
        RegistryStore& store = *parent->store;
        auto lock = store.Lock();
        const auto id = Walk(store, parent->id, SplitKeyPath(lpSubKey));
        if (!id || !store.KeyExists(*id))
            return ERROR_FILE_NOT_FOUND;
        // A root can't be deleted, nor a key that still has subkeys.
        if (*id == RegistryStore::kRoot || !store.Writable() || store.HasSubkeys(*id))
            return ERROR_ACCESS_DENIED;
        RegistryStore::Transaction transaction(store);
        store.DeleteTree(*id);
        transaction.Commit();
        return ERROR_SUCCESS;
    });
}

LSTATUS RegQueryInfoKeyW(HKEY hKey, LPWSTR lpClass, LPDWORD lpcchClass, LPDWORD, LPDWORD lpcSubKeys,
                         LPDWORD lpcbMaxSubKeyLen, LPDWORD lpcbMaxClassLen, LPDWORD lpcValues,
                         LPDWORD lpcbMaxValueNameLen, LPDWORD lpcbMaxValueLen,
                         LPDWORD lpcbSecurityDescriptor, PFILETIME lpftLastWriteTime) {
    return GuardedOnKey(hKey, KEY_QUERY_VALUE, false, [&](const OpenKey& key) -> LSTATUS {
        KeyInfo info;
        {
            auto lock = key.store->Lock();
            info = key.store->Info(key.id);
        }
        if (lpClass && lpcchClass && *lpcchClass > 0)
            lpClass[0] = L'\0';
        SetIf(lpcchClass, DWORD{0});
        SetIf(lpcSubKeys, info.subkeys);
        SetIf(lpcbMaxSubKeyLen, info.maxSubkeyName);
        SetIf(lpcbMaxClassLen, DWORD{0});
        SetIf(lpcValues, info.values);
        SetIf(lpcbMaxValueNameLen, info.maxValueName);
        SetIf(lpcbMaxValueLen, info.maxValueData);
        SetIf(lpcbSecurityDescriptor, DWORD{0});
        SetFileTime(lpftLastWriteTime, info.written);
        return ERROR_SUCCESS;
    });
}
