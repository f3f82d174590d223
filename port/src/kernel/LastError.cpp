// The calling thread's last-error code.
#include "win/threads.h"

namespace {
thread_local DWORD t_lastError = ERROR_SUCCESS;
}

DWORD GetLastError() {
    return t_lastError;
}

void SetLastError(DWORD dwErrCode) {
    t_lastError = dwErrCode;
}
