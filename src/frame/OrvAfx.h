// OrvAfx: the add-in's framework state (application, main window, module state), shared with the
// library's message boxes and wait cursor.
#pragma once

#include "port/Export.h"

#include "win/types.h"

class CWinApp;
struct AFX_MODULE_STATE;

class ORV_API OrvAfx {
public:
    // Empty arguments are ignored, so none of these can be cleared again. SetWinApp also takes
    // the main window of the calling thread's framework thread, when the use-own-state flag is
    // set and there is one.
    static void SetWinApp(CWinApp* app);
    static void SetMainHWnd(HWND window);
    static void SetModuleState(AFX_MODULE_STATE* state);

    // The stored application, else the module state's.
    static CWinApp* GetWinApp();
    // The main window of GetWinApp(), or null. Windows are known by their handles here, so this
    // answers the handle.
    static HWND GetMainWnd();
    // The stored handle, else GetMainWnd().
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
