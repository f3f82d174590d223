// Critical sections: reentrant for their owner, exclusive between threads.
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "win/threads.h"

namespace {

class CriticalSectionTest : public ::testing::Test {
protected:
    void SetUp() override { InitializeCriticalSection(&section); }
    void TearDown() override { DeleteCriticalSection(&section); }

    bool OtherThreadCanEnter() {
        bool entered = false;
        std::thread other([&] {
            entered = TryEnterCriticalSection(&section) != FALSE;
            if (entered)
                LeaveCriticalSection(&section);
        });
        other.join();
        return entered;
    }

    CRITICAL_SECTION section{};
};

TEST_F(CriticalSectionTest, OwnerReentersAndMustLeaveEachLevel) {
    EnterCriticalSection(&section);
    EXPECT_TRUE(TryEnterCriticalSection(&section));
    EnterCriticalSection(&section);
    EXPECT_FALSE(OtherThreadCanEnter());
    LeaveCriticalSection(&section);
    LeaveCriticalSection(&section);
    EXPECT_FALSE(OtherThreadCanEnter());
    LeaveCriticalSection(&section);
    EXPECT_TRUE(OtherThreadCanEnter());
}

TEST_F(CriticalSectionTest, LeaveByAThreadThatDoesNotOwnItIsIgnored) {
    EnterCriticalSection(&section);
    std::thread other([&] { LeaveCriticalSection(&section); });
    other.join();
    EXPECT_FALSE(OtherThreadCanEnter());
    LeaveCriticalSection(&section);
    EXPECT_TRUE(OtherThreadCanEnter());
}

TEST_F(CriticalSectionTest, KeepsIncrementsFromSeveralThreadsApart) {
    long total = 0; // deliberately not atomic: only the section protects it
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&] {
            for (int i = 0; i < 20000; ++i) {
                EnterCriticalSection(&section);
                EnterCriticalSection(&section);
                ++total;
                LeaveCriticalSection(&section);
                LeaveCriticalSection(&section);
            }
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(total, 80000);
}

} // namespace
