// Whole-tree operations of the registry tool: export, all-or-nothing import, tree deletion.
#pragma once

#include "RegFile.h"

namespace port::registry {

// The key and everything below it, parents before children, subkeys in enumeration order.
// Throws RegFileError when the key doesn't exist.
std::vector<RegFileKey> ExportTree(HKEY root, const std::wstring& path);

// Applies the sections in order, HKEY_LOCAL_MACHINE first and then HKEY_CURRENT_USER, each root
// in one transaction. Every root involved is checked for writing before anything is written; a
// failure rolls the root's transaction back and throws RegFileError.
void ImportKeys(const std::vector<RegFileKey>& keys);

} // namespace port::registry
