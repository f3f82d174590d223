// OrvAfx: the add-in's framework state (application, main window, module state), shared with the
// library's message boxes and wait cursor.
#pragma once

#include "win/types.h"

class CWinApp;
struct AFX_MODULE_STATE;

class OrvAfx {
public:
    // Empty arguments are ignored, so none of these can be cleared again.
    static void SetWinApp(CWinApp* app);
    static void SetMainHWnd(HWND window);
    static void SetModuleState(AFX_MODULE_STATE* state);

    static CWinApp* GetWinApp();
    static HWND GetMainHWnd();
    static AFX_MODULE_STATE* GetModuleState();

    static int GetUseOwnState();
    static void SetUseOwnState(int useOwnState);

private:
    static CWinApp* m_pWinApp;
    static HWND m_hMainWnd;
    static AFX_MODULE_STATE* m_pModuleState;
    static int m_bUseOwnState;
};
