// The run-time information of the test document's classes, once for the program, and a registry
// of the program's own for the environment that stamps the audit fields.
#define NODE_DOCUMENT_IMPLEMENTATION
#include "NodeDocument.h"
#include "tests/settings/RegistryFixture.h"
