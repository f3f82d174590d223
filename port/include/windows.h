// The Win32 subset this library uses.
#pragma once

#include "win/error.h"
#include "win/types.h"
#if __has_include("win/registry.h")
#include "win/registry.h"
#endif
