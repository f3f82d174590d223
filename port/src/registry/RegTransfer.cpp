#include "RegTransfer.h"

#include "RegistryRoots.h"
#include "RegistryStore.h"

#include "port/TextConversion.h"
#include "win/registry.h"

#include <memory>

namespace port::registry {
namespace {

std::string Narrow(HKEY root, const std::wstring& path) {
    return WideToNarrow(FullKeyName(root, path));
}

std::shared_ptr<RegistryStore> StoreOf(HKEY root) {
    auto store = RootStore(root);
    if (!store)
        throw RegFileError("not a registry root");
    return store;
}

void ExportKey(RegistryStore& store, HKEY root, const std::wstring& path, KeyId id,
               std::vector<RegFileKey>& out) {
    RegFileKey key{root, path, false, {}};
    for (auto& value : store.Values(id))
        key.values.push_back(
            RegFileValue{std::move(value.name), false, value.type, std::move(value.data)});
    out.push_back(std::move(key));
    for (const auto& subkey : store.Subkeys(id))
        ExportKey(store, root, path.empty() ? subkey.name : path + L"\\" + subkey.name, subkey.id,
                  out);
}

std::optional<KeyId> Find(RegistryStore& store, const std::wstring& path) {
    std::optional<KeyId> id = RegistryStore::kRoot;
    for (const auto& name : SplitKeyPath(path)) {
        id = store.FindSubkey(*id, name);
        if (!id)
            break;
    }
    return id;
}

KeyId Create(RegistryStore& store, const std::wstring& path) {
    KeyId id = RegistryStore::kRoot;
    for (const auto& name : SplitKeyPath(path)) {
        const auto found = store.FindSubkey(id, name);
        id = found ? *found : store.CreateSubkey(id, name);
    }
    return id;
}

void Apply(RegistryStore& store, const RegFileKey& key) {
    if (key.remove) {
        if (const auto id = Find(store, key.path))
            store.DeleteTree(*id);
        return;
    }
    const KeyId id = Create(store, key.path);
    for (const auto& value : key.values) {
        if (value.remove)
            store.DeleteValue(id, value.name);
        else
            store.SetValue(id, value.name, value.type, value.data);
    }
}

} // namespace

std::vector<RegFileKey> ExportTree(HKEY root, const std::wstring& path) {
    auto store = StoreOf(root);
    auto lock = store->Lock();
    try {
        const auto id = Find(*store, path);
        if (!id)
            throw RegFileError("key not found: " + Narrow(root, path));
        std::vector<RegFileKey> keys;
        ExportKey(*store, root, path, *id, keys);
        return keys;
    } catch (const SqliteError& error) {
        throw RegFileError("cannot read " + store->Path() + ": " + error.what());
    }
}

void ImportKeys(const std::vector<RegFileKey>& keys) {
    const HKEY order[] = {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER};
    std::vector<std::shared_ptr<RegistryStore>> stores;
    for (HKEY root : order) {
        for (const auto& key : keys) {
            if (key.root != root)
                continue;
            auto store = StoreOf(root);
            if (!store->Writable())
                throw RegFileError("access denied: cannot write " + Narrow(root, key.path) + " (" +
                                   store->Path() + ")");
            stores.push_back(std::move(store));
            break;
        }
    }
    for (const auto& store : stores) {
        auto lock = store->Lock();
        try {
            RegistryStore::Transaction transaction(*store);
            for (const auto& key : keys)
                if (RootStore(key.root) == store)
                    Apply(*store, key);
            transaction.Commit();
        } catch (const SqliteError& error) {
            throw RegFileError("cannot write " + store->Path() + ": " + error.what());
        }
    }
}

} // namespace port::registry
