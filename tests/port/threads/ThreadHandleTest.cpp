// Thread creation, handles, ids and exit codes.
#include <gtest/gtest.h>
#include <unistd.h>

#include <thread>

#include "ThreadTestSupport.h"

namespace {

TEST(ThreadHandle, ThreadRunsWithParameterAndReportsItsKernelIdAndExitCode) {
    GatedWork work;
    work.exitCode = 42;
    DWORD id = 0;
    HANDLE thread = CreateThread(nullptr, 64 * 1024, RunGatedWork, &work, 0, &id);
    ASSERT_NE(thread, nullptr);
    DWORD code = 0;
    ASSERT_TRUE(GetExitCodeThread(thread, &code));
    EXPECT_EQ(code, static_cast<DWORD>(STILL_ACTIVE));

    work.gate.Open();
    ASSERT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    ASSERT_TRUE(GetExitCodeThread(thread, &code));
    EXPECT_EQ(code, 42u);
    // The ended thread's handle stays valid until it is closed; ids are the kernel's.
    EXPECT_EQ(GetThreadId(thread), id);
    EXPECT_EQ(work.seenThreadId.load(), id);
    EXPECT_NE(id, GetCurrentThreadId());
    EXPECT_EQ(GetCurrentThreadId(), static_cast<DWORD>(gettid()));
    EXPECT_TRUE(CloseHandle(thread));
}

TEST(ThreadHandle, PseudoHandleMeansTheCallingThread) {
    HANDLE self = GetCurrentThread();
    EXPECT_EQ(self, reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-2)));
    EXPECT_EQ(GetThreadId(self), GetCurrentThreadId());
    DWORD code = 0;
    ASSERT_TRUE(GetExitCodeThread(self, &code));
    EXPECT_EQ(code, static_cast<DWORD>(STILL_ACTIVE));
    // Waiting on oneself cannot succeed: it times out.
    EXPECT_EQ(WaitForSingleObject(self, 10), static_cast<DWORD>(WAIT_TIMEOUT));
    EXPECT_TRUE(CloseHandle(self)); // a pseudo handle needs no closing and closing it is harmless

    // In another thread the same value names that thread.
    DWORD seen = 0;
    DWORD actual = 0;
    std::thread other([&] {
        seen = GetThreadId(GetCurrentThread());
        actual = GetCurrentThreadId();
    });
    other.join();
    EXPECT_EQ(seen, actual);
    EXPECT_NE(seen, GetCurrentThreadId());
}

TEST(ThreadHandle, ClosedAndForeignHandlesAreRefused) {
    GatedWork work;
    work.gate.Open();
    HANDLE thread = CreateThread(nullptr, 0, RunGatedWork, &work, 0, nullptr);
    ASSERT_NE(thread, nullptr);
    ASSERT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    ASSERT_TRUE(CloseHandle(thread));

    SetLastError(0);
    EXPECT_FALSE(CloseHandle(thread));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));
    EXPECT_EQ(GetThreadId(thread), 0u);
    DWORD code = 0;
    EXPECT_FALSE(GetExitCodeThread(thread, &code));
    EXPECT_FALSE(CloseHandle(nullptr));
    EXPECT_FALSE(CloseHandle(INVALID_HANDLE_VALUE));
    int notAHandle = 0;
    EXPECT_FALSE(CloseHandle(&notAHandle));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));
}

TEST(ThreadHandle, BadCreationArgumentsAreRefused) {
    SetLastError(0);
    EXPECT_EQ(CreateThread(nullptr, 0, nullptr, nullptr, 0, nullptr), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    GatedWork work;
    SetLastError(0);
    EXPECT_EQ(CreateThread(nullptr, 0, RunGatedWork, &work, 0x8, nullptr), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}

TEST(ThreadHandle, ThreadOutlivesItsClosedHandle) {
    GatedWork work;
    work.exitCode = 7;
    HANDLE thread = CreateThread(nullptr, 0, RunGatedWork, &work, 0, nullptr);
    ASSERT_NE(thread, nullptr);
    ASSERT_TRUE(CloseHandle(thread));
    work.gate.Open(); // the worker still runs to its end without a handle on it
    for (int i = 0; i < 10000 && !work.done; ++i)
        Sleep(1);
    EXPECT_TRUE(work.done);
}

TEST(ThreadHandle, LastErrorBelongsToEachThread) {
    SetLastError(1234);
    DWORD seen = 99;
    std::thread other([&] {
        seen = GetLastError();
        SetLastError(5);
    });
    other.join();
    EXPECT_EQ(seen, 0u);
    EXPECT_EQ(GetLastError(), 1234u);
}

} // namespace
