// Two display options read from the application settings tree.
#pragma once

#include "port/Export.h"

// "OpenOperationDialogToLastPage" of the "Display" group; 0 when the tree, the group or the value
// is missing.
ORV_API int GetLastopernDlgtab();
// "CollapseOperationOnPreview" of the same group, with the same default.
ORV_API int GetCollapseOnPreview();
