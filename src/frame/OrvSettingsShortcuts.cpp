#include "frame/OrvSettingsShortcuts.h"

#include "core/OrvHostCallbacks.h"
#include "settings/OrvSettingsKey.h"

namespace {

int DisplayOption(const wchar_t* name) {
    OrvSettingsKey* app = GetAppSettingsCB();
    if (!app)
        return 0;
    OrvSettingsKey* display = app->GetKey(L"Display");
    if (!display)
        return 0;
    int value = 0;
    display->GetValue(name, value);
    return value;
}

} // namespace

int GetLastopernDlgtab() {
    return DisplayOption(L"OpenOperationDialogToLastPage");
}

int GetCollapseOnPreview() {
    return DisplayOption(L"CollapseOperationOnPreview");
}
