#include "mfc/CWinApp.h"

namespace {

AFX_MODULE_STATE g_moduleState;
thread_local CWinThread* t_currentThread = nullptr;

} // namespace

CWinApp::CWinApp() {
    g_moduleState.m_pCurrentWinApp = this;
    t_currentThread = this;
}

CWinApp::~CWinApp() {
    if (g_moduleState.m_pCurrentWinApp == this)
        g_moduleState.m_pCurrentWinApp = nullptr;
    if (t_currentThread == this)
        t_currentThread = nullptr;
}

AFX_MODULE_STATE* AfxGetModuleState() {
    return &g_moduleState;
}

CWinApp* AfxGetApp() {
    return g_moduleState.m_pCurrentWinApp;
}

CWinThread* AfxGetThread() {
    return t_currentThread;
}
