#include "frame/OrvAfx.h"

#include "mfc/CWinApp.h"

CWinApp* OrvAfx::m_pWinApp = nullptr;
HWND OrvAfx::m_hMainWnd = nullptr;
AFX_MODULE_STATE* OrvAfx::m_pModuleState = nullptr;
int OrvAfx::m_bUseOwnState = 0;

void OrvAfx::SetWinApp(CWinApp* app) {
    if (!app)
        return;
    m_pWinApp = app;
    if (!m_bUseOwnState)
        return;
    if (const CWinThread* thread = AfxGetThread())
        SetMainHWnd(thread->m_hMainWnd);
}

void OrvAfx::SetMainHWnd(HWND window) {
    if (window)
        m_hMainWnd = window;
}

void OrvAfx::SetModuleState(AFX_MODULE_STATE* state) {
    if (state)
        m_pModuleState = state;
}

CWinApp* OrvAfx::GetWinApp() {
    return m_pWinApp ? m_pWinApp : AfxGetApp();
}

HWND OrvAfx::GetMainWnd() {
    const CWinApp* app = GetWinApp();
    return app ? app->m_hMainWnd : nullptr;
}

HWND OrvAfx::GetMainHWnd() {
    return m_hMainWnd ? m_hMainWnd : GetMainWnd();
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
