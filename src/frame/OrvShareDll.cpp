#include "frame/OrvShareDll.h"

#include "core/OrvHostCallbacks.h"
#include "mfc/StringResources.h"

void InitShareDll() {
    port::SetStringResourceLoader([](UINT id, std::wstring& text) {
        const CString found = GetProductSpecificStringCB(id);
        if (found.IsEmpty())
            return false;
        text = found.GetString();
        return true;
    });
}
