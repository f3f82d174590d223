// The environment that stamps the audit fields reads the registry: the program gets one of its own.
#include "support/TempRegistry.h"

namespace {

TempRegistryDir g_registry;

} // namespace
