// The framework's thread and application objects, reduced to what the library reads from them:
// the main window. This platform has no CWnd; a window is known by its handle, so a thread keeps
// its main window's handle.
#pragma once

#include "port/Export.h"

#include "win/types.h"

class ORV_API CWinThread {
public:
    CWinThread() = default;
    virtual ~CWinThread() = default;
    CWinThread(const CWinThread&) = delete;
    CWinThread& operator=(const CWinThread&) = delete;

    HWND m_hMainWnd = nullptr;
};

// The application: constructing it makes it the application of the module state and the
// framework thread of the constructing thread; destroying it undoes both.
class ORV_API CWinApp : public CWinThread {
public:
    CWinApp();
    ~CWinApp() override;
};

// The framework's module state; this platform has one per process.
struct ORV_API AFX_MODULE_STATE {
    CWinApp* m_pCurrentWinApp = nullptr;
};

ORV_API AFX_MODULE_STATE* AfxGetModuleState();
// The application of the module state, or null.
ORV_API CWinApp* AfxGetApp();
// The framework thread object of the calling thread, or null.
ORV_API CWinThread* AfxGetThread();
