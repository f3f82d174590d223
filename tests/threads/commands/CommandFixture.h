// A fixture with a document, the thread settings and a manager, that waits for every worker to
// end before it takes them down.
#pragma once

#include <gtest/gtest.h>

#include <thread>

#include "CommandTestSupport.h"
#include "threads/OrvCriticalSectionLoader.h"

namespace commands_test {

class CommandTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::thread([] {}).join(); // a sanitizer's helper thread starts with the first thread
        m_BaseThreads = ProcessThreadCount();
        RegisterCallbacks();
        Host().document = &document;
        UseSettings(1, 1);
        manager = std::make_unique<TestManager>();
    }
    void TearDown() override {
        EXPECT_TRUE(WorkersGone()) << "a command's thread outlived its test";
        manager.reset();
        Host().appSettings = nullptr;
        Host().document = nullptr;
    }
    void UseSettings(int multi, int del) {
        settings = MakeThreadSettings(multi, del);
        Host().appSettings = settings.get();
    }
    int Listed() {
        CObList all;
        manager->GetAllThreads(all);
        return static_cast<int>(all.GetCount());
    }
    OrvThreadData* ListedAt(int index) {
        CObList all;
        manager->GetAllThreads(all);
        POSITION pos = all.FindIndex(index);
        return pos ? static_cast<OrvThreadData*>(all.GetAt(pos)) : nullptr;
    }
    // Once the workers' threads have ended, taking the manager's lock orders this thread after
    // their last use of records and nodes: a worker's last step in the library releases it. The
    // count of threads alone can mislead (a thread of the test before may still be ending when
    // the base is counted), so each worker's own thread is waited for too.
    bool WorkersGone() {
        const bool gone = Eventually(
            [&] { return manager->AllWorkersEnded() && ProcessThreadCount() <= m_BaseThreads; });
        OrvCriticalSectionLoader lock(manager->Lock(), 1);
        return gone;
    }

    OrvObject document;
    std::unique_ptr<OrvSettingsKey> settings;
    std::unique_ptr<TestManager> manager;

private:
    int m_BaseThreads = 0;
};

} // namespace commands_test
