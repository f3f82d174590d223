// What a dump writes into a FILE*, read back as text, and the pieces the dumps print.
#pragma once

#include <cstdio>
#include <functional>
#include <string>

std::string CaptureDump(const std::function<void(FILE*)>& dump);

// The form the dumps give an address: 16 upper-case hex digits, as MSVC prints %p.
std::string PointerText(const void* p);

// "\n" + 28 "=" + " <name> <which> " + 32 "=" + "\n".
std::string Banner(const std::string& name, const std::string& which);
