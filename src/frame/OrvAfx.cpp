#include "frame/OrvAfx.h"

CWinApp* OrvAfx::m_pWinApp = nullptr;
HWND OrvAfx::m_hMainWnd = nullptr;
AFX_MODULE_STATE* OrvAfx::m_pModuleState = nullptr;
int OrvAfx::m_bUseOwnState = 0;

void OrvAfx::SetWinApp(CWinApp* app) {
    if (app)
        m_pWinApp = app;
}

void OrvAfx::SetMainHWnd(HWND window) {
    if (window)
        m_hMainWnd = window;
}

void OrvAfx::SetModuleState(AFX_MODULE_STATE* state) {
    if (state)
        m_pModuleState = state;
}

// This platform has no framework application or thread state to fall back on: what the add-in
// stored is all there is.
CWinApp* OrvAfx::GetWinApp() {
    return m_pWinApp;
}

HWND OrvAfx::GetMainHWnd() {
    return m_hMainWnd;
}

AFX_MODULE_STATE* OrvAfx::GetModuleState() {
    return m_pModuleState;
}

int OrvAfx::GetUseOwnState() {
    return m_bUseOwnState;
}

void OrvAfx::SetUseOwnState(int useOwnState) {
    m_bUseOwnState = useOwnState;
}
