// Two display options read from the application settings tree.
#pragma once

// "OpenOperationDialogToLastPage" of the "Display" group; 0 when the tree, the group or the value
// is missing.
int GetLastopernDlgtab();
// "CollapseOperationOnPreview" of the same group, with the same default.
int GetCollapseOnPreview();
