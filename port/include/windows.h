// The Win32 subset this library uses.
#pragma once

#include "win/error.h"
#include "win/gdi_types.h"
#include "win/registry.h"
#include "win/threads.h"
#include "win/time.h"
#include "win/types.h"
