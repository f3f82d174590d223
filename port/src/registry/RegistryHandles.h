// The keys behind HKEY handles: predefined roots and the handles that RegCreateKeyExW and
// RegOpenKeyExW hand out.
#pragma once

#include "RegistryStore.h"

#include "win/types.h"

#include <memory>
#include <optional>

namespace port::registry {

struct OpenKey {
    std::shared_ptr<RegistryStore> store;
    KeyId id = RegistryStore::kRoot;
    REGSAM access = 0;
};

// A new handle for the key; handles are never reused within a process.
HKEY AddHandle(OpenKey key);
// The key behind a predefined root or an open handle; nothing for an unknown or closed handle.
std::optional<OpenKey> ResolveHandle(HKEY handle);
bool RemoveHandle(HKEY handle);

} // namespace port::registry
