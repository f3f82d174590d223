// The Win32 subset this library uses.
#pragma once

#include "win/error.h"
#include "win/files.h"
#include "win/msgbox.h"
#include "win/rect.h"
#include "win/registry.h"
#include "win/threads.h"
#include "win/time.h"
#include "win/types.h"
