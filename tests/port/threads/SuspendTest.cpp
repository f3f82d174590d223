// SuspendThread and ResumeThread: Windows' suspend count, and a suspended thread that really
// stands still.
#include <gtest/gtest.h>

#include "ThreadTestSupport.h"

namespace {

constexpr DWORD kFailed = static_cast<DWORD>(-1);

class SuspendCounter : public ::testing::Test {
protected:
    void SetUp() override {
        thread = CreateThread(nullptr, 0, RunCounter, &counter, 0, nullptr);
        ASSERT_NE(thread, nullptr);
        ASSERT_TRUE(CounterPasses(counter, 0));
    }
    void TearDown() override {
        while (ResumeThread(thread) > 1) {
        }
        counter.stop = true;
        EXPECT_EQ(WaitForSingleObject(thread, 10000), WAIT_OBJECT_0);
        CloseHandle(thread);
    }

    // True when the counter has not moved over a pause.
    bool StandsStill() {
        const long before = counter.count;
        Sleep(60);
        return counter.count == before;
    }

    Counter counter;
    HANDLE thread = nullptr;
};

TEST_F(SuspendCounter, CountsNestAndOnlyTheLastResumeReleases) {
    EXPECT_EQ(SuspendThread(thread), 0u);
    EXPECT_TRUE(StandsStill());
    EXPECT_EQ(SuspendThread(thread), 1u);
    EXPECT_EQ(SuspendThread(thread), 2u);
    EXPECT_EQ(ResumeThread(thread), 3u);
    EXPECT_EQ(ResumeThread(thread), 2u);
    EXPECT_TRUE(StandsStill());
    EXPECT_EQ(ResumeThread(thread), 1u);
    EXPECT_TRUE(CounterPasses(counter, counter.count));
    // Resuming a running thread changes nothing and answers 0.
    EXPECT_EQ(ResumeThread(thread), 0u);
    EXPECT_EQ(ResumeThread(thread), 0u);
}

TEST_F(SuspendCounter, CountStopsAtTheMaximum) {
    for (DWORD i = 0; i < MAXIMUM_SUSPEND_COUNT; ++i)
        ASSERT_EQ(SuspendThread(thread), i);
    SetLastError(0);
    EXPECT_EQ(SuspendThread(thread), kFailed);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_SIGNAL_REFCOUNT_EXCEEDED));
    EXPECT_EQ(ResumeThread(thread), static_cast<DWORD>(MAXIMUM_SUSPEND_COUNT));
    EXPECT_TRUE(StandsStill());
}

TEST_F(SuspendCounter, RepeatedSuspendResumeKeepsTheThreadAlive) {
    for (int round = 0; round < 200; ++round) {
        ASSERT_EQ(SuspendThread(thread), 0u);
        ASSERT_EQ(ResumeThread(thread), 1u);
    }
    EXPECT_TRUE(CounterPasses(counter, counter.count));
}

TEST(Suspend, CreateSuspendedWaitsForResume) {
    GatedWork work;
    work.gate.Open();
    HANDLE thread = CreateThread(nullptr, 0, RunGatedWork, &work, CREATE_SUSPENDED, nullptr);
    ASSERT_NE(thread, nullptr);
    EXPECT_EQ(WaitForSingleObject(thread, 60), static_cast<DWORD>(WAIT_TIMEOUT));
    EXPECT_EQ(work.seenThreadId.load(), 0u); // not one step of the routine
    EXPECT_EQ(SuspendThread(thread), 1u);
    EXPECT_EQ(ResumeThread(thread), 2u);
    EXPECT_EQ(WaitForSingleObject(thread, 60), static_cast<DWORD>(WAIT_TIMEOUT));
    EXPECT_EQ(ResumeThread(thread), 1u);
    EXPECT_EQ(WaitForSingleObject(thread, 10000), WAIT_OBJECT_0);
    EXPECT_NE(work.seenThreadId.load(), 0u);
    CloseHandle(thread);
}

TEST(Suspend, ThreadBlockedInAWaitStaysParkedWhenReleased) {
    GatedWork work;
    HANDLE thread = CreateThread(nullptr, 0, RunGatedWork, &work, 0, nullptr);
    ASSERT_NE(thread, nullptr);
    while (work.seenThreadId == 0u)
        Sleep(1);
    EXPECT_EQ(SuspendThread(thread), 0u);
    work.gate.Open(); // the worker may wake, but must not run on
    EXPECT_EQ(WaitForSingleObject(thread, 80), static_cast<DWORD>(WAIT_TIMEOUT));
    EXPECT_FALSE(work.done);
    EXPECT_EQ(ResumeThread(thread), 1u);
    EXPECT_EQ(WaitForSingleObject(thread, 10000), WAIT_OBJECT_0);
    EXPECT_TRUE(work.done);
    CloseHandle(thread);
}

struct SelfSuspension {
    std::atomic<int> stage{0};
    DWORD previousCount = 99;
};

DWORD WINAPI SuspendSelf(LPVOID parameter) {
    auto* self = static_cast<SelfSuspension*>(parameter);
    self->stage = 1;
    self->previousCount = SuspendThread(GetCurrentThread());
    self->stage = 2;
    return 0;
}

TEST(Suspend, ThreadCanSuspendItselfThroughThePseudoHandle) {
    SelfSuspension self;
    HANDLE thread = CreateThread(nullptr, 0, SuspendSelf, &self, 0, nullptr);
    ASSERT_NE(thread, nullptr);
    while (self.stage == 0)
        Sleep(1);
    EXPECT_EQ(WaitForSingleObject(thread, 60), static_cast<DWORD>(WAIT_TIMEOUT));
    EXPECT_EQ(self.stage.load(), 1);
    EXPECT_EQ(ResumeThread(thread), 1u);
    EXPECT_EQ(WaitForSingleObject(thread, 10000), WAIT_OBJECT_0);
    EXPECT_EQ(self.stage.load(), 2);
    EXPECT_EQ(self.previousCount, 0u);
    CloseHandle(thread);
}

TEST(Suspend, EndedAndInvalidThreadsCannotBeSuspended) {
    GatedWork work;
    work.gate.Open();
    HANDLE thread = CreateThread(nullptr, 0, RunGatedWork, &work, 0, nullptr);
    ASSERT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(SuspendThread(thread), kFailed);
    EXPECT_EQ(ResumeThread(thread), 0u);
    CloseHandle(thread);
    SetLastError(0);
    EXPECT_EQ(SuspendThread(thread), kFailed);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));
    EXPECT_EQ(ResumeThread(thread), kFailed);
}

} // namespace
