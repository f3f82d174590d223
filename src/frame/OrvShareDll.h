// The module frame: what the add-in calls once after loading the library.
#pragma once

#include "port/Export.h"

// Makes the library's resources reachable: string ids given to CString::LoadString resolve
// through the add-in's product-specific strings. (The library's run-time classes are in the class
// list from static construction on.)
ORV_API void InitShareDll();
