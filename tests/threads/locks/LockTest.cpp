// The library's lock and its two scope guards, across threads.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "threads/OrvAutoCriticalSection.h"
#include "threads/OrvCriticalSection.h"
#include "threads/OrvCriticalSectionLoader.h"

namespace {

// Whether a second thread finds the lock free (it takes and returns it at once).
bool OtherThreadCanTake(OrvCriticalSection& lock) {
    int taken = 0;
    std::thread other([&] {
        taken = lock.LockIfUnlocked();
        if (taken)
            lock.Unlock();
    });
    other.join();
    return taken != 0;
}

// A second thread that holds the lock until told to let go.
class OtherHolder {
public:
    explicit OtherHolder(OrvCriticalSection& lock)
        : m_thread([this, &lock] {
              lock.Lock();
              m_holding = true;
              while (!m_release)
                  std::this_thread::yield();
              lock.Unlock();
          }) {
        while (!m_holding)
            std::this_thread::yield();
    }
    ~OtherHolder() { Release(); }
    void Release() {
        m_release = true;
        if (m_thread.joinable())
            m_thread.join();
    }

private:
    std::atomic<bool> m_holding{false};
    std::atomic<bool> m_release{false};
    std::thread m_thread;
};

TEST(OrvCriticalSection, ReentrantForItsOwnerOnly) {
    OrvCriticalSection lock;
    lock.Lock();
    lock.Lock();
    EXPECT_NE(lock.LockIfUnlocked(), 0); // a third level
    EXPECT_FALSE(OtherThreadCanTake(lock));
    lock.Unlock();
    lock.Unlock();
    EXPECT_FALSE(OtherThreadCanTake(lock));
    lock.Unlock();
    EXPECT_TRUE(OtherThreadCanTake(lock));
}

TEST(OrvCriticalSection, LockIfUnlockedFailsWhileAnotherThreadHoldsIt) {
    OrvCriticalSection lock;
    OtherHolder holder(lock);
    EXPECT_EQ(lock.LockIfUnlocked(), 0);
    holder.Release();
    EXPECT_NE(lock.LockIfUnlocked(), 0);
    lock.Unlock();
}

TEST(OrvAutoCriticalSection, HoldsForItsScope) {
    OrvCriticalSection lock;
    {
        const OrvAutoCriticalSection guard(lock);
        EXPECT_FALSE(OtherThreadCanTake(lock));
    }
    EXPECT_TRUE(OtherThreadCanTake(lock));
}

TEST(OrvAutoCriticalSection, KeepsThreadsApart) {
    OrvCriticalSection lock;
    long total = 0; // protected by the lock alone
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&] {
            for (int i = 0; i < 10000; ++i) {
                const OrvAutoCriticalSection outer(lock);
                const OrvAutoCriticalSection inner(lock);
                ++total;
            }
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(total, 40000);
}

TEST(OrvCriticalSectionLoader, LockNowOneTakesAndTheDestructorReleases) {
    OrvCriticalSection lock;
    {
        const OrvCriticalSectionLoader guard(lock, 1);
        EXPECT_FALSE(OtherThreadCanTake(lock));
    }
    EXPECT_TRUE(OtherThreadCanTake(lock));
}

TEST(OrvCriticalSectionLoader, LockNowZeroReleasesNothingAtDestruction) {
    OrvCriticalSection lock;
    lock.Lock(); // this thread's own level, which the guard must leave alone
    { const OrvCriticalSectionLoader guard(lock, 0); }
    EXPECT_FALSE(OtherThreadCanTake(lock));
    lock.Unlock();
    EXPECT_TRUE(OtherThreadCanTake(lock));
}

TEST(OrvCriticalSectionLoader, OnlyLockNowExactlyOneTakesTheLock) {
    OrvCriticalSection lock;
    for (int lockNow : {2, -1, 0}) {
        const OrvCriticalSectionLoader guard(lock, lockNow);
        EXPECT_TRUE(OtherThreadCanTake(lock)) << lockNow;
    }
}

TEST(OrvCriticalSectionLoader, SecondLockOnTheSameGuardDoesNotEnterAgain) {
    OrvCriticalSection lock;
    {
        OrvCriticalSectionLoader guard(lock, 1);
        guard.Lock();
        guard.Lock();
        EXPECT_FALSE(OtherThreadCanTake(lock));
    }
    // The single release at destruction undid everything the guard took.
    EXPECT_TRUE(OtherThreadCanTake(lock));
}

TEST(OrvCriticalSectionLoader, EnterIfUnlockedFailsWhileAnotherThreadHoldsTheLock) {
    OrvCriticalSection lock;
    OtherHolder holder(lock);
    OrvCriticalSectionLoader guard(lock, 0);
    EXPECT_EQ(guard.EnterIfUnlocked(), 0);
    holder.Release();
    // The flag stayed clear, so a later Lock really enters and the guard then holds the lock.
    guard.Lock();
    EXPECT_FALSE(OtherThreadCanTake(lock));
}

TEST(OrvCriticalSectionLoader, EnterIfUnlockedFromTheOwningThreadAddsOneLevelAndReleasesIt) {
    OrvCriticalSection lock;
    lock.Lock();
    {
        OrvCriticalSectionLoader guard(lock, 0);
        EXPECT_NE(guard.EnterIfUnlocked(), 0);
    }
    // The guard gave back its own level; this thread's first level still stands.
    EXPECT_FALSE(OtherThreadCanTake(lock));
    lock.Unlock();
    EXPECT_TRUE(OtherThreadCanTake(lock));
}

TEST(OrvCriticalSectionLoader, EnterIfUnlockedTakesAFreeLockOnce) {
    OrvCriticalSection lock;
    {
        OrvCriticalSectionLoader guard(lock, 0);
        EXPECT_NE(guard.EnterIfUnlocked(), 0);
        EXPECT_NE(guard.EnterIfUnlocked(), 0); // held already: no second level
        EXPECT_FALSE(OtherThreadCanTake(lock));
    }
    EXPECT_TRUE(OtherThreadCanTake(lock));
}

} // namespace
