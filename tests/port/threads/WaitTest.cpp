// WaitForSingleObject and WaitForMultipleObjects on thread handles, and Sleep.
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <thread>

#include "ThreadTestSupport.h"

namespace {

// Three gated workers with their handles.
class WaitOnThreads : public ::testing::Test {
protected:
    void SetUp() override {
        for (std::size_t i = 0; i < handles.size(); ++i) {
            work[i].exitCode = static_cast<DWORD>(10 + i);
            handles[i] = CreateThread(nullptr, 0, RunGatedWork, &work[i], 0, nullptr);
            ASSERT_NE(handles[i], nullptr);
        }
    }
    void TearDown() override {
        for (std::size_t i = 0; i < handles.size(); ++i) {
            work[i].gate.Open();
            if (handles[i]) {
                WaitForSingleObject(handles[i], INFINITE);
                CloseHandle(handles[i]);
            }
        }
    }

    std::array<GatedWork, 3> work;
    std::array<HANDLE, 3> handles{};
};

TEST_F(WaitOnThreads, SingleWaitTimesOutWhileRunningAndSucceedsAtTheEnd) {
    EXPECT_EQ(WaitForSingleObject(handles[0], 0), static_cast<DWORD>(WAIT_TIMEOUT));
    EXPECT_EQ(WaitForSingleObject(handles[0], 30), static_cast<DWORD>(WAIT_TIMEOUT));
    work[0].gate.Open();
    EXPECT_EQ(WaitForSingleObject(handles[0], 10000), WAIT_OBJECT_0);
    // A thread handle stays signalled.
    EXPECT_EQ(WaitForSingleObject(handles[0], 0), WAIT_OBJECT_0);
}

TEST_F(WaitOnThreads, WaitAllNeedsEveryThreadToEnd) {
    work[0].gate.Open();
    work[2].gate.Open();
    ASSERT_EQ(WaitForSingleObject(handles[0], INFINITE), WAIT_OBJECT_0);
    ASSERT_EQ(WaitForSingleObject(handles[2], INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(WaitForMultipleObjects(3, handles.data(), TRUE, 0), static_cast<DWORD>(WAIT_TIMEOUT));
    EXPECT_EQ(WaitForMultipleObjects(3, handles.data(), TRUE, 30),
              static_cast<DWORD>(WAIT_TIMEOUT));

    work[1].gate.Open();
    EXPECT_EQ(WaitForMultipleObjects(3, handles.data(), TRUE, INFINITE), WAIT_OBJECT_0);
    DWORD code = 0;
    ASSERT_TRUE(GetExitCodeThread(handles[1], &code));
    EXPECT_EQ(code, 11u);
}

TEST_F(WaitOnThreads, WaitAnyAnswersTheIndexOfTheEndedThread) {
    EXPECT_EQ(WaitForMultipleObjects(3, handles.data(), FALSE, 20),
              static_cast<DWORD>(WAIT_TIMEOUT));
    work[2].gate.Open();
    EXPECT_EQ(WaitForMultipleObjects(3, handles.data(), FALSE, INFINITE), WAIT_OBJECT_0 + 2);

    // With several ended, the lowest index wins.
    work[1].gate.Open();
    ASSERT_EQ(WaitForSingleObject(handles[1], INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(WaitForMultipleObjects(3, handles.data(), FALSE, 0), WAIT_OBJECT_0 + 1);
}

TEST_F(WaitOnThreads, WaitEndsWhenAThreadEndsDuringIt) {
    // A helper thread opens the gate after the wait has begun.
    std::thread opener([this] {
        Sleep(50);
        work[1].gate.Open();
    });
    EXPECT_EQ(WaitForMultipleObjects(3, handles.data(), FALSE, 10000), WAIT_OBJECT_0 + 1);
    opener.join();
}

TEST_F(WaitOnThreads, BadArgumentsFail) {
    SetLastError(0);
    EXPECT_EQ(WaitForMultipleObjects(0, handles.data(), TRUE, 0), WAIT_FAILED);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(WaitForMultipleObjects(1, nullptr, TRUE, 0), WAIT_FAILED);

    std::array<HANDLE, MAXIMUM_WAIT_OBJECTS + 1> many;
    many.fill(handles[0]);
    SetLastError(0);
    EXPECT_EQ(WaitForMultipleObjects(MAXIMUM_WAIT_OBJECTS + 1, many.data(), FALSE, 0), WAIT_FAILED);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    // 64 copies are within the limit for wait-any, but one object twice fails a wait-all.
    EXPECT_EQ(WaitForMultipleObjects(MAXIMUM_WAIT_OBJECTS, many.data(), FALSE, 0),
              static_cast<DWORD>(WAIT_TIMEOUT));
    SetLastError(0);
    EXPECT_EQ(WaitForMultipleObjects(2, many.data(), TRUE, 0), WAIT_FAILED);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));

    const std::array<HANDLE, 2> withBad{handles[0], reinterpret_cast<HANDLE>(0x7ffc)};
    SetLastError(0);
    EXPECT_EQ(WaitForMultipleObjects(2, withBad.data(), FALSE, 0), WAIT_FAILED);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));
    EXPECT_EQ(WaitForSingleObject(nullptr, 0), WAIT_FAILED);
}

TEST(WaitMany, SixtyFourThreadsAtOnce) {
    std::array<GatedWork, MAXIMUM_WAIT_OBJECTS> work;
    std::array<HANDLE, MAXIMUM_WAIT_OBJECTS> handles{};
    for (std::size_t i = 0; i < handles.size(); ++i) {
        handles[i] = CreateThread(nullptr, 0, RunGatedWork, &work[i], 0, nullptr);
        ASSERT_NE(handles[i], nullptr);
    }
    EXPECT_EQ(WaitForMultipleObjects(MAXIMUM_WAIT_OBJECTS, handles.data(), TRUE, 0),
              static_cast<DWORD>(WAIT_TIMEOUT));
    for (auto& each : work)
        each.gate.Open();
    EXPECT_EQ(WaitForMultipleObjects(MAXIMUM_WAIT_OBJECTS, handles.data(), TRUE, INFINITE),
              WAIT_OBJECT_0);
    for (HANDLE handle : handles)
        EXPECT_TRUE(CloseHandle(handle));
}

TEST(WaitSleep, SleepLastsAtLeastItsTime) {
    const ULONGLONG before = GetTickCount64();
    Sleep(40);
    EXPECT_GE(GetTickCount64() - before, 40u);
    Sleep(0); // a yield: returns
}

} // namespace
