// The Win32 thread subset: kernel object handles, threads with their suspend count, waits on
// thread handles, critical sections, Sleep, and the calling thread's last-error code.
//
// Handles are reference-counted: each handle keeps its object alive until CloseHandle, and a
// running thread keeps its own. A thread handle is signalled once its thread routine has
// returned. SuspendThread parks the target thread in a handler of a real-time signal
// (SIGRTMIN + 4) until ResumeThread brings its count back to 0.
#pragma once

#include "port/Export.h"

#include "win/error.h"
#include "win/time.h"
#include "win/types.h"

#ifndef WINAPI
#define WINAPI
#endif
#ifndef INVALID_HANDLE_VALUE
#define INVALID_HANDLE_VALUE ((HANDLE)(LONG_PTR)-1)
#endif
#ifndef INFINITE
#define INFINITE 0xFFFFFFFF
#endif

#define STILL_ACTIVE 259
#define CREATE_SUSPENDED 0x00000004
#define STACK_SIZE_PARAM_IS_A_RESERVATION 0x00010000
#define MAXIMUM_SUSPEND_COUNT 0x7F
#define MAXIMUM_WAIT_OBJECTS 64

#define WAIT_OBJECT_0 0x00000000
#define WAIT_ABANDONED_0 0x00000080
#define WAIT_TIMEOUT 0x00000102
#define WAIT_FAILED ((DWORD)0xFFFFFFFF)

#define ERROR_SIGNAL_REFCOUNT_EXCEEDED 298L

using LPTHREAD_START_ROUTINE = DWORD(WINAPI*)(LPVOID lpThreadParameter);

ORV_API DWORD GetLastError();
ORV_API void SetLastError(DWORD dwErrCode);

ORV_API BOOL CloseHandle(HANDLE hObject);

// Security attributes are accepted and ignored; the stack size is rounded up to what POSIX
// threads allow. Flags: CREATE_SUSPENDED and STACK_SIZE_PARAM_IS_A_RESERVATION.
ORV_API HANDLE CreateThread(struct _SECURITY_ATTRIBUTES* lpThreadAttributes, SIZE_T dwStackSize,
                            LPTHREAD_START_ROUTINE lpStartAddress, LPVOID lpParameter,
                            DWORD dwCreationFlags, LPDWORD lpThreadId);
// The pseudo handle (HANDLE)-2: it always means the thread that uses it and needs no closing.
ORV_API HANDLE GetCurrentThread();
// The kernel's id of the calling thread (gettid).
ORV_API DWORD GetCurrentThreadId();
ORV_API DWORD GetThreadId(HANDLE Thread);
ORV_API BOOL GetExitCodeThread(HANDLE hThread, LPDWORD lpExitCode);
// Both answer the previous suspend count, or (DWORD)-1 on failure.
ORV_API DWORD SuspendThread(HANDLE hThread);
ORV_API DWORD ResumeThread(HANDLE hThread);

ORV_API DWORD WaitForSingleObject(HANDLE hHandle, DWORD dwMilliseconds);
ORV_API DWORD WaitForMultipleObjects(DWORD nCount, const HANDLE* lpHandles, BOOL bWaitAll,
                                     DWORD dwMilliseconds);
ORV_API void Sleep(DWORD dwMilliseconds);

namespace port {
class CriticalSectionState;
}

// A recursive lock. The state lives on the heap from InitializeCriticalSection to
// DeleteCriticalSection.
typedef struct _RTL_CRITICAL_SECTION {
    port::CriticalSectionState* State;
} CRITICAL_SECTION, *PCRITICAL_SECTION, *LPCRITICAL_SECTION;

ORV_API void InitializeCriticalSection(LPCRITICAL_SECTION lpCriticalSection);
ORV_API void EnterCriticalSection(LPCRITICAL_SECTION lpCriticalSection);
ORV_API BOOL TryEnterCriticalSection(LPCRITICAL_SECTION lpCriticalSection);
ORV_API void LeaveCriticalSection(LPCRITICAL_SECTION lpCriticalSection);
ORV_API void DeleteCriticalSection(LPCRITICAL_SECTION lpCriticalSection);
