// Full key names as regedit and reg.exe spell them.
#include "RegFile.h"
#include "RegistryRoots.h"

#include "port/TextConversion.h"
#include "win/registry.h"

namespace port::registry {

HKEY ParseKeyName(std::wstring_view name, std::wstring& path) {
    const std::size_t separator = std::min(name.find(L'\\'), name.size());
    const std::string root = FoldName(name.substr(0, separator));
    HKEY key = nullptr;
    if (root == "HKCU" || root == "HKEY_CURRENT_USER")
        key = HKEY_CURRENT_USER;
    else if (root == "HKLM" || root == "HKEY_LOCAL_MACHINE")
        key = HKEY_LOCAL_MACHINE;
    else
        throw RegFileError("unknown root '" + WideToNarrow(name.substr(0, separator)) +
                           "' in key '" + WideToNarrow(name) + "'");
    path.clear();
    for (const auto& part : SplitKeyPath(name.substr(separator))) {
        if (part.size() > 255)
            throw RegFileError("key name longer than 255 characters in '" + WideToNarrow(name) +
                               "'");
        path += (path.empty() ? L"" : L"\\") + part;
    }
    return key;
}

std::wstring FullKeyName(HKEY root, const std::wstring& path) {
    std::wstring name = RootName(root);
    if (!path.empty())
        name += L"\\" + path;
    return name;
}

} // namespace port::registry
