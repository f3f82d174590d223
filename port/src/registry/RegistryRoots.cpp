#include "RegistryRoots.h"

#include "win/registry.h"

#include <cstdlib>
#include <map>
#include <mutex>

namespace port::registry {

std::string RootDatabasePath(HKEY root) {
    const bool user = root == HKEY_CURRENT_USER;
    if (!user && root != HKEY_LOCAL_MACHINE)
        return {};
    const char* file = user ? "user.db" : "machine.db";
    if (const char* dir = std::getenv("ORV_REGISTRY_DIR"); dir && *dir)
        return std::string(dir) + "/" + file;
    if (!user)
        return std::string("/etc/Halden/registry/") + file;
    std::string config;
    if (const char* xdg = std::getenv("XDG_CONFIG_HOME"); xdg && *xdg)
        config = xdg;
    else if (const char* home = std::getenv("HOME"); home && *home)
        config = std::string(home) + "/.config";
    else
        config = ".config";
    return config + "/Halden/registry/" + file;
}

std::shared_ptr<RegistryStore> RootStore(HKEY root) {
    static std::mutex mutex;
    static std::map<std::string, std::shared_ptr<RegistryStore>> stores;
    std::string path = RootDatabasePath(root);
    if (path.empty())
        return nullptr;
    std::lock_guard lock(mutex);
    auto& store = stores[path];
    if (!store)
        store = std::make_shared<RegistryStore>(std::move(path));
    return store;
}

const wchar_t* RootName(HKEY root) {
    if (root == HKEY_CURRENT_USER)
        return L"HKEY_CURRENT_USER";
    if (root == HKEY_LOCAL_MACHINE)
        return L"HKEY_LOCAL_MACHINE";
    return L"";
}

} // namespace port::registry
