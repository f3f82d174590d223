#include "objects/FolderSchema.h"

#include "mfc/CException.h"

namespace folder_level {

void RequireSchema(UINT schema) {
    if (schema == 0xFFFFFFFF)
        AfxThrowArchiveException(CArchiveException::badSchema);
}

} // namespace folder_level
