// The schema check of the folder manager and the folder list on loading.
#pragma once

#include "win/types.h"

namespace folder_level {

// A class tag leaves the loaded schema for its Serialize to read; 0xFFFFFFFF means that there was
// none, which only a broken load can leave. Such a load is ended by an archive exception
// (badSchema) rather than carried on.
void RequireSchema(UINT schema);

} // namespace folder_level
