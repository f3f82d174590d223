// A record stays alive for as long as a thread still uses it: the thread that started its worker
// (held back after CreateThread here by wrapping the port's CreateThread at link time), and a
// worker whose record the manager is asked to delete while the command is still under way. Run
// under AddressSanitizer or ThreadSanitizer, a record freed too early is reported.
#include <thread>

#include "CommandFixture.h"

namespace commands_test {
namespace {

std::atomic<bool> g_holdIssuer{false};
std::atomic<DWORD> g_heldWait{0xFFFF};
constexpr DWORD kHoldMs = 600; // far beyond the worker's 100 ms start pause and its work

} // namespace
} // namespace commands_test

// The linker sends the library's calls of CreateThread here (-Wl,--wrap); __real_ is the port's.
extern "C" HANDLE RealCreateThread(_SECURITY_ATTRIBUTES*, SIZE_T, LPTHREAD_START_ROUTINE, LPVOID,
                                   DWORD, LPDWORD) __asm__(ORV_REAL_CREATE_THREAD);
extern "C" HANDLE WrappedCreateThread(_SECURITY_ATTRIBUTES* attributes, SIZE_T stack,
                                      LPTHREAD_START_ROUTINE start, LPVOID parameter, DWORD flags,
                                      LPDWORD id) __asm__(ORV_WRAP_CREATE_THREAD);
extern "C" HANDLE WrappedCreateThread(_SECURITY_ATTRIBUTES* attributes, SIZE_T stack,
                                      LPTHREAD_START_ROUTINE start, LPVOID parameter, DWORD flags,
                                      LPDWORD id) {
    HANDLE thread = RealCreateThread(attributes, stack, start, parameter, flags, id);
    // The issuer stalls as a descheduled thread would: until the worker has ended, or for long
    // enough that it would have, had it not waited for the issuer.
    if (thread && commands_test::g_holdIssuer.load())
        commands_test::g_heldWait = WaitForSingleObject(thread, commands_test::kHoldMs);
    return thread;
}

namespace commands_test {
namespace {

constexpr OrveThreadType kPlain = OrveThreadType(0);
constexpr OrveThreadEndType kEnd = OrveThreadEndType(0);

class RecordLifetimeTest : public CommandTest {
protected:
    void TearDown() override {
        g_holdIssuer = false;
        CommandTest::TearDown();
    }
};

TEST_F(RecordLifetimeTest, WorkerEndsOnlyAfterItsIssuerHasStoredTheHandle) {
    for (const OrveThreadStatus result : {ThreadDone, ThreadFailed, ThreadDoneKeep}) {
        ScriptedNode node;
        node.result = result;
        const int destroyedBefore = manager->destroyed;
        g_holdIssuer = true;
        const int threadId = OrvThreadBaseMgr::RunCommand(&node, 5, nullptr, kPlain, kEnd);
        g_holdIssuer = false;
        EXPECT_GT(threadId, 0);
        // The worker ran the command but could not end it while the issuer was held.
        EXPECT_EQ(g_heldWait.load(), static_cast<DWORD>(WAIT_TIMEOUT));
        EXPECT_EQ(node.log.executes, 1);
        ASSERT_TRUE(WorkersGone());
        EXPECT_EQ(manager->doneNotices, manager->started);
        if (result == ThreadDoneKeep) {
            ASSERT_EQ(Listed(), 1); // kept, with the handle and id cleared by the worker's end
            EXPECT_EQ(ListedAt(0)->GetThreadHandle(), nullptr);
            EXPECT_EQ(ListedAt(0)->GetThreadID(), 0u);
            manager->DeleteAll();
        } else {
            EXPECT_EQ(Listed(), 0);
            EXPECT_EQ(manager->destroyed, destroyedBefore + 1);
        }
    }
}

TEST_F(RecordLifetimeTest, TerminationWhileTheIssuerIsHeldStopsTheWorkBeforeItBegins) {
    ScriptedNode node;
    manager->onBegin = [&](OrvThreadData* data) { data->TerminateThread(); };
    g_holdIssuer = true;
    EXPECT_GT(OrvThreadBaseMgr::RunCommand(&node, 5, nullptr, kPlain, kEnd), 0);
    g_holdIssuer = false;
    ASSERT_TRUE(WorkersGone());
    EXPECT_EQ(node.log.terminates, 1);
    EXPECT_EQ(node.log.executes, 0);
}

// A terminated record counts as done for DeleteAllDoneThreads while its worker still works.
TEST_F(RecordLifetimeTest, DeletingADoneRecordWhoseWorkerStillRunsLeavesTheFreeToTheWorker) {
    std::atomic<bool> release{false};
    ScriptedNode node; // its terminate handler does not stop the work
    node.work = [&](void*&) {
        while (!release)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return ThreadDone;
    };
    OrvThreadDataLink link;
    link.SetIdentifierA(&node);
    EXPECT_GT(OrvThreadBaseMgr::RunCommand(&node, 5, &link, kPlain, kEnd), 0);
    ASSERT_TRUE(Eventually([&] { return node.log.executes == 1; }));
    manager->TerminateIfRunning(&node);
    EXPECT_EQ(manager->DeleteAllDoneThreads(), 1);
    EXPECT_EQ(Listed(), 0);
    release = true; // the worker ends the command on its record, then frees it
    ASSERT_TRUE(WorkersGone());
    EXPECT_EQ(node.log.terminates, 1);
}

// The node goes while its worker, back from the work, waits for the manager's lock to end it.
TEST_F(RecordLifetimeTest, DeletingTheNodeWhileItsWorkerEndsFreesTheRecordOnce) {
    std::atomic<bool> release{false};
    auto node = std::make_unique<ScriptedNode>();
    node->work = [&](void*&) {
        while (!release)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return ThreadDone;
    };
    EXPECT_GT(OrvThreadBaseMgr::RunCommand(node.get(), 5, nullptr, kPlain, kEnd), 0);
    ASSERT_TRUE(Eventually([&] { return node->log.executes == 1; }));
    {
        OrvCriticalSectionLoader lock(manager->Lock(), 1); // no record goes while it is held
        OrvThreadData* record = ListedAt(0);
        ASSERT_NE(record, nullptr);
        release = true;
        // The result has become the status: the worker has left the node's code for good.
        ASSERT_TRUE(Eventually([&] { return record->GetThreadStatus() == ThreadDone; }));
        node.reset(); // unlists the record; its worker frees it once it has the lock
        EXPECT_EQ(Listed(), 0);
        EXPECT_EQ(manager->destroyed, 1);
    }
    ASSERT_TRUE(WorkersGone());
    EXPECT_EQ(manager->destroyed, 1);
}

} // namespace
} // namespace commands_test
