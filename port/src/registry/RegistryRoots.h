// Where each predefined root is kept, and the open store of each.
#pragma once

#include "RegistryStore.h"

#include "win/types.h"

#include <memory>
#include <string>

namespace port::registry {

// HKEY_CURRENT_USER in ${XDG_CONFIG_HOME:-$HOME/.config}/Halden/registry/user.db,
// HKEY_LOCAL_MACHINE in /etc/Halden/registry/machine.db; ORV_REGISTRY_DIR puts both in that folder.
// Empty for a handle that is not a predefined root.
std::string RootDatabasePath(HKEY root);

// The store of a predefined root as the environment names it now, opened on first use and kept
// for the life of the process; null for any other handle.
std::shared_ptr<RegistryStore> RootStore(HKEY root);

// "HKEY_CURRENT_USER" or "HKEY_LOCAL_MACHINE".
const wchar_t* RootName(HKEY root);

} // namespace port::registry
