// String resources by id: the loader that LoadString asks, installed by the library's frame.
#pragma once

#include <functional>
#include <string>

#include "win/types.h"

namespace port {

// Fills text with the string of id and answers true, or answers false for an unknown id.
using StringResourceLoader = std::function<bool(UINT id, std::wstring& text)>;

// Installs the loader for the whole process; an empty function removes it.
void SetStringResourceLoader(StringResourceLoader loader);

// The string of id through the installed loader. Without a loader, or for an id the loader does
// not know, text is left empty and the answer is false.
bool LoadStringResource(UINT id, std::wstring& text);

} // namespace port
