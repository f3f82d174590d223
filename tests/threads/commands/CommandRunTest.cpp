// A command's way from RunCommand to the end of its record: on the calling thread and on
// workers, with refusals, duplicates, groups, termination, suspension and parents with children.
#include <stdexcept>
#include <thread>

#include "CommandFixture.h"
#include "mfc/CException.h"

namespace commands_test {
namespace {

class CommandRunTest : public CommandTest {};

constexpr OrveThreadType kPlain = OrveThreadType(0);
constexpr OrveThreadEndType kEnd = OrveThreadEndType(0);

TEST(CommandRunWithoutManager, AnswersZeroAndLeavesTheCallerAlone) {
    ScriptedNode node;
    EXPECT_EQ(OrvThreadBaseMgr::RunCommand(&node, 5, nullptr, kPlain, kEnd), 0);
    EXPECT_EQ(node.log.executes, 0);
    EXPECT_EQ(OrvThreadBaseMgr::Instance(), nullptr);
    EXPECT_EQ(OrvThreadBaseMgr::IsAnyThreadsRunningOrWaiting(nullptr), 0);
}

TEST_F(CommandRunTest, WithThreadMultiZeroTheCommandEndsBeforeRunCommandReturns) {
    UseSettings(0, 1);
    ScriptedNode node;
    OrvThreadData* record = nullptr;
    bool recordIsAUser = false;
    node.work = [&](void*&) {
        record = manager->FindThreadData(&node, 5, nullptr);
        recordIsAUser = node.GetIsUsingThisObject(record);
        return ThreadDone;
    };
    EXPECT_EQ(OrvThreadBaseMgr::RunCommand(&node, 5, nullptr, kPlain, kEnd), 1);
    EXPECT_EQ(node.log.executes, 1);
    ASSERT_NE(record, nullptr);
    EXPECT_TRUE(recordIsAUser); // the record stood in the node's transient users
    EXPECT_EQ(node.log.executeThread, GetCurrentThreadId());
    EXPECT_EQ(manager->started, 0); // no thread
    EXPECT_EQ(manager->begun, 0);
    EXPECT_EQ(Listed(), 0); // done (1) and "ThreadDel" 1: destroyed at once
    EXPECT_EQ(manager->destroyed, 1);
    EXPECT_FALSE(node.GetIsUsingThisObject(record)); // gone from the transient users too
}

TEST_F(CommandRunTest, SeparateRunningOffOrNoSettingsRunOnTheCallingThread) {
    ScriptedNode node;
    manager->SetCanRunSeparateProcess(0);
    EXPECT_EQ(manager->GetCanRunSeparateProcess(), 0);
    EXPECT_EQ(OrvThreadBaseMgr::RunCommand(&node, 5, nullptr, kPlain, kEnd), 1);
    manager->SetCanRunSeparateProcess(1);
    Host().appSettings = nullptr; // the switch starts at 0 and nothing overrides it
    EXPECT_EQ(OrvThreadBaseMgr::RunCommand(&node, 6, nullptr, kPlain, kEnd), 1);
    EXPECT_EQ(node.log.executes, 2);
    EXPECT_EQ(manager->started, 0);
}

TEST_F(CommandRunTest, ResultsBecomeStatusesAndThreadDelZeroKeepsThem) {
    UseSettings(1, 0); // a worker's record then stays whatever its end
    ScriptedNode done, zero, keep;
    zero.result = OrveThreadStatus(0);
    keep.result = ThreadDoneKeep;
    ScriptedNode throwsMfc, throwsStd;
    throwsMfc.work = [](void*&) -> OrveThreadStatus { throw new CException(); };
    throwsStd.work = [](void*&) -> OrveThreadStatus { throw std::runtime_error("work"); };
    OrvObject plain; // the base answers failure at once
    for (OrvObject* node :
         std::initializer_list<OrvObject*>{&done, &zero, &keep, &throwsMfc, &throwsStd, &plain})
        EXPECT_GT(OrvThreadBaseMgr::RunCommand(node, 5, nullptr, kPlain, kEnd), 0);
    ASSERT_TRUE(WorkersGone());
    ASSERT_EQ(Listed(), 6);
    EXPECT_EQ(ListedAt(0)->GetThreadStatus(), ThreadDone);
    EXPECT_EQ(ListedAt(1)->GetThreadStatus(), ThreadFailed);
    EXPECT_EQ(ListedAt(2)->GetThreadStatus(), ThreadDoneKeep);
    EXPECT_EQ(ListedAt(3)->GetThreadStatus(), ThreadFailed);
    EXPECT_EQ(ListedAt(4)->GetThreadStatus(), ThreadFailed);
    EXPECT_EQ(ListedAt(5)->GetThreadStatus(), ThreadFailed);
    EXPECT_EQ(manager->destroyed, 0);
    EXPECT_EQ(manager->doneNotices, 6);
    EXPECT_EQ(manager->RunningCount(), 0);
    // Done, failed, terminated go; kept and waiting records stay.
    ListedAt(2)->SetThreadStatus(ThreadTerminated);
    ListedAt(3)->SetThreadStatus(ThreadWaitingForChild);
    ListedAt(4)->SetThreadStatus(ThreadWaitingToRun);
    ListedAt(5)->SetThreadStatus(ThreadRunning);
    EXPECT_EQ(manager->DeleteAllDoneThreads(), 3);
    EXPECT_EQ(Listed(), 3);
    EXPECT_EQ(manager->destroyed, 0); // no destroy notice on this path
}

TEST_F(CommandRunTest, OnTheCallingThreadTheRecordGoesUnlessItWaitsForAChild) {
    UseSettings(0, 0); // "ThreadDel" is a worker's rule
    ScriptedNode keep, parent;
    keep.result = ThreadDoneKeep;
    EXPECT_EQ(OrvThreadBaseMgr::RunCommand(&keep, 5, nullptr, kPlain, kEnd), 1);
    EXPECT_EQ(Listed(), 0);
    EXPECT_EQ(OrvThreadBaseMgr::RunCommand(&parent, 5, nullptr, kPlain, ThreadEndWaitForChild), 1);
    EXPECT_EQ(Listed(), 1);
    EXPECT_EQ(manager->destroyed, 1);
}

TEST_F(CommandRunTest, TheSameCommandIsRefusedWhileItsRecordStands) {
    UseSettings(0, 0);
    ScriptedNode node;
    OrvThreadDataLink parameter, other; // a parameter is always read as a link
    // Waiting for a child, the record keeps its parameter.
    EXPECT_EQ(OrvThreadBaseMgr::RunCommand(&node, 5, &parameter, kPlain, ThreadEndWaitForChild), 1);
    ASSERT_EQ(Listed(), 1);
    EXPECT_EQ(OrvThreadBaseMgr::RunCommand(&node, 5, &parameter, kPlain, kEnd), 0);
    EXPECT_EQ(OrvThreadBaseMgr::RunCommand(&node, 5, nullptr, kPlain, kEnd),
              0); // null matches any parameter
    EXPECT_EQ(Listed(), 1);
    EXPECT_EQ(node.log.executes, 1);
    EXPECT_EQ(OrvThreadBaseMgr::RunCommand(&node, 5, &other, kPlain, kEnd),
              1); // another parameter: another command
    // An id of 0 never matches.
    EXPECT_EQ(OrvThreadBaseMgr::RunCommand(&node, 0, nullptr, kPlain, kEnd), 1);
    EXPECT_EQ(OrvThreadBaseMgr::RunCommand(&node, 0, nullptr, kPlain, kEnd), 1);
    EXPECT_EQ(Listed(), 1); // those ended on this thread and went
    EXPECT_EQ(node.log.executes, 4);
}

TEST_F(CommandRunTest, TheNodeMayReplaceTheParameter) {
    UseSettings(0, 1);
    ScriptedNode node;
    OrvThreadDataLink given, replaced;
    node.work = [&](void*& parameter) {
        parameter = &replaced;
        return ThreadDone;
    };
    EXPECT_EQ(OrvThreadBaseMgr::RunCommand(&node, 5, &given, kPlain, ThreadEndWaitForChild), 1);
    ASSERT_EQ(Listed(), 1); // status 8 keeps the record, its parameter and its id
    EXPECT_EQ(ListedAt(0)->GetThreadStatus(), ThreadWaitingForChild);
    EXPECT_EQ(ListedAt(0)->GetCommandParameter(), &replaced);
}

TEST_F(CommandRunTest, LastIdentifiersFollowTheLastStartedCommand) {
    UseSettings(0, 1);
    ScriptedNode node;
    int a = 0, b = 0;
    OrvThreadDataLink link;
    link.SetIdentifierA(&a);
    link.SetIdentifierB(&b);
    OrvThreadBaseMgr::RunCommand(&node, 9, &link, kPlain, kEnd);
    EXPECT_EQ(manager->LastContextID(), 9u);
    EXPECT_EQ(manager->LastIdentifierA(), &a);
    EXPECT_EQ(manager->LastIdentifierB(), &b);
    OrvThreadBaseMgr::RunCommand(&node, 4, nullptr, kPlain, kEnd);
    EXPECT_EQ(manager->LastContextID(), 4u);
    EXPECT_EQ(manager->LastIdentifierA(), nullptr);
    EXPECT_EQ(manager->LastIdentifierB(), nullptr);
}

TEST_F(CommandRunTest, AWorkerRunsTheCommandAndRetiresTheRecord) {
    ScriptedNode node;
    std::atomic<int> separate{-1};
    std::atomic<OrvThreadData*> own{nullptr};
    node.work = [&](void*&) {
        separate = OrvThreadBaseMgr::GetIsSeperateThread();
        own = manager->FindThreadDataForCurrentThread();
        return ThreadDone;
    };
    EXPECT_EQ(OrvThreadBaseMgr::GetIsSeperateThread(), 0);
    EXPECT_EQ(OrvThreadBaseMgr::GetHdMainThreadId(), GetCurrentThreadId());
    const int id = OrvThreadBaseMgr::RunCommand(&node, 5, nullptr, kPlain, kEnd);
    EXPECT_GT(id, 0);
    EXPECT_NE(static_cast<DWORD>(id), GetCurrentThreadId());
    ASSERT_TRUE(Eventually([&] { return manager->destroyed == 1; }));
    EXPECT_EQ(node.log.executeThread, static_cast<DWORD>(id));
    EXPECT_EQ(separate, 1);
    EXPECT_NE(own.load(), nullptr);
    EXPECT_EQ(manager->started, 1);
    EXPECT_EQ(manager->begun, 1);
    EXPECT_EQ(manager->doneNotices, 1);
    EXPECT_EQ(manager->RunningCount(), 0);
    EXPECT_EQ(Listed(), 0);
    EXPECT_TRUE(WorkersGone());
}

TEST_F(CommandRunTest, ATerminateBeforeTheWorkersFirstStepMeansNoWork) {
    UseSettings(1, 0);
    ScriptedNode first, second;
    int a = 0, b = 0;
    OrvThreadDataLink firstLink, secondLink; // equal links, group 0: duplicates
    firstLink.SetIdentifierA(&a);
    firstLink.SetIdentifierB(&b);
    secondLink = firstLink;
    std::atomic<bool> terminated{false};
    manager->onBegin = [&](OrvThreadData* data) {
        if (data->GetCallingObject() == &first) // held at its start until the duplicate came
            Eventually([&] { return terminated.load(); });
    };
    ASSERT_GT(OrvThreadBaseMgr::RunCommand(&first, 5, &firstLink, kPlain, kEnd), 0);
    OrvThreadData* firstRecord = ListedAt(0);
    ASSERT_GT(OrvThreadBaseMgr::RunCommand(&second, 5, &secondLink, kPlain, kEnd), 0);
    terminated = true;
    ASSERT_TRUE(WorkersGone());
    EXPECT_EQ(first.log.terminates, 1);
    EXPECT_EQ(first.log.executes, 0);
    EXPECT_EQ(firstRecord->GetThreadStatus(), ThreadTerminated);
    EXPECT_EQ(firstRecord->GetThreadHandle(), nullptr);
    EXPECT_EQ(firstRecord->GetEndTimeStr(), L"");
    EXPECT_EQ(second.log.executes, 1);
    EXPECT_EQ(ListedAt(1)->GetThreadStatus(), ThreadDone);
}

TEST_F(CommandRunTest, MembersOfOneGroupRunSideBySide) {
    BlockingNode first, second;
    int a = 0, b = 0;
    OrvThreadDataLink firstLink, secondLink;
    firstLink.SetIdentifierA(&a);
    firstLink.SetIdentifierB(&b);
    firstLink.SetGroupNum(2);
    secondLink = firstLink;
    ASSERT_GT(OrvThreadBaseMgr::RunCommand(&first, 5, &firstLink, kPlain, kEnd), 0);
    ASSERT_GT(OrvThreadBaseMgr::RunCommand(&second, 5, &secondLink, kPlain, kEnd), 0);
    ASSERT_TRUE(Eventually([&] { return first.inWork && second.inWork; }));
    OrvThreadData* owner = nullptr;
    void* handle = nullptr;
    EXPECT_EQ(manager->GetThreadDuplicateOwner(ListedAt(1), owner, handle), 1);
    EXPECT_EQ(owner, ListedAt(0));
    EXPECT_EQ(handle, ListedAt(0)->GetThreadHandle());
    EXPECT_EQ(manager->GetNumThreadsRunningOrWaiting(&document), 2);
    first.release = second.release = true;
    ASSERT_TRUE(WorkersGone());
    EXPECT_EQ(first.log.terminates + second.log.terminates, 0);
    EXPECT_EQ(manager->destroyed, 2);
}

TEST_F(CommandRunTest, SuspensionParksTheWorkerAndOnlyRunningCounts) {
    std::atomic<long> steps{0};
    std::atomic<bool> release{false};
    ScriptedNode node;
    node.work = [&](void*&) {
        while (!release)
            ++steps;
        return ThreadDone;
    };
    ASSERT_GT(OrvThreadBaseMgr::RunCommand(&node, 5, nullptr, kPlain, kEnd), 0);
    ASSERT_TRUE(Eventually([&] { return steps > 0; }));
    OrvThreadData* record = ListedAt(0);
    EXPECT_EQ(record->SuspendThread(), ThreadRunning);
    EXPECT_EQ(record->GetThreadStatus(), ThreadSuspended);
    const long parked = steps;
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    EXPECT_EQ(steps, parked); // really stopped, not just marked
    EXPECT_EQ(manager->GetNumThreadsRunningOrWaiting(&document), 0);       // 3 does not count
    EXPECT_EQ(OrvThreadBaseMgr::IsAnyThreadsRunningOrWaiting(nullptr), 1); // the raw count
    EXPECT_EQ(manager->AllThreadsDone(), 0);
    EXPECT_EQ(record->ResumeThread(), ThreadSuspended);
    EXPECT_EQ(record->GetThreadStatus(), ThreadRunning);
    EXPECT_TRUE(Eventually([&] { return steps > parked; }));
    EXPECT_EQ(OrvThreadBaseMgr::IsAnyThreadsRunningOrWaiting(&document), 1);
    release = true;
    ASSERT_TRUE(WorkersGone());
}

TEST_F(CommandRunTest, WaitingForAllThreadsEndsWithTheirWorkers) {
    BlockingNode nodes[3];
    for (BlockingNode& node : nodes)
        ASSERT_GT(OrvThreadBaseMgr::RunCommand(&node, 5, nullptr, kPlain, kEnd), 0);
    ASSERT_TRUE(Eventually([&] { return nodes[0].inWork && nodes[1].inWork && nodes[2].inWork; }));
    EXPECT_EQ(manager->GetNumThreadsNotDone(), 3);
    void* handles[2] = {nullptr, &handles};
    EXPECT_EQ(manager->GetThreadsNotDone(handles, 1), 3);
    EXPECT_EQ(handles[0], ListedAt(0)->GetThreadHandle());
    EXPECT_EQ(handles[1], &handles); // untouched past max
    EXPECT_EQ(manager->AnyThreadsRunning(), 1);
    std::thread releaser([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        for (BlockingNode& node : nodes)
            node.release = true;
    });
    manager->WaitForAllThreadsToBeDone();
    EXPECT_EQ(manager->AllThreadsDone(), 1);
    for (BlockingNode& node : nodes)
        EXPECT_EQ(node.log.executes, 1);
    releaser.join();
    ASSERT_TRUE(WorkersGone());
}

TEST_F(CommandRunTest, AChildHandsItsEndToTheParentOnWorkers) {
    UseSettings(1, 0); // keep the records to look at them
    ScriptedNode parent, child;
    child.result = ThreadDoneKeep;
    ASSERT_GT(OrvThreadBaseMgr::RunCommand(&parent, 5, nullptr, kPlain, ThreadEndWaitForChild), 0);
    OrvThreadData* parentRecord = ListedAt(0);
    ASSERT_TRUE(
        Eventually([&] { return parentRecord->GetThreadStatus() == ThreadWaitingForChild; }));
    EXPECT_NE(parentRecord->GetThreadHandle(), nullptr); // kept for the child to find
    EXPECT_EQ(manager->RunningCount(), 1);
    ASSERT_GT(OrvThreadBaseMgr::RunCommand(&child, 6, nullptr, ThreadTypeChild, kEnd), 0);
    OrvThreadData* childRecord = ListedAt(1);
    ASSERT_TRUE(WorkersGone());
    EXPECT_EQ(parent.log.childDones, 1);
    EXPECT_EQ(parentRecord->GetThreadStatus(), ThreadDoneKeep); // the child's
    EXPECT_EQ(parentRecord->GetThreadHandle(), nullptr);
    EXPECT_EQ(parentRecord->GetCommandParameter(), nullptr);
    EXPECT_EQ(parentRecord->GetEndTimeStr(), childRecord->GetEndTimeStr());
    EXPECT_EQ(parentRecord->GetTimeTaken().IsEmpty(), false);
    // Up twice; down by the child's decrement and the done notices of parent and child.
    EXPECT_EQ(manager->RunningCount(), -1);
    EXPECT_EQ(manager->doneNotices, 2);
}

TEST_F(CommandRunTest, AChildWhosePredecessorHasNoHandleFindsNoParent) {
    UseSettings(0, 0);
    ScriptedNode parent, child;
    EXPECT_EQ(OrvThreadBaseMgr::RunCommand(&parent, 5, nullptr, kPlain, ThreadEndWaitForChild), 1);
    ASSERT_EQ(ListedAt(0)->GetThreadStatus(), ThreadWaitingForChild);
    EXPECT_EQ(ListedAt(0)->GetThreadHandle(), nullptr); // ran on the calling thread
    EXPECT_EQ(OrvThreadBaseMgr::RunCommand(&child, 6, nullptr, ThreadTypeChild, kEnd), 1);
    EXPECT_EQ(parent.log.childDones, 0);
    EXPECT_EQ(ListedAt(0)->GetThreadStatus(), ThreadWaitingForChild);
    EXPECT_EQ(manager->RunningCount(), 0);
}

TEST_F(CommandRunTest, TheTestEnvironmentStoresTheTimeTaken) {
    UseSettings(0, 1);
    ScriptedNode node;
    unsetenv("KEL_TEST_ENV");
    OrvThreadBaseMgr::RunCommand(&node, 5, nullptr, kPlain, kEnd);
    EXPECT_EQ(node.GetTimeTakenForGTP(), L"");
    setenv("KEL_TEST_ENV", "yes", 1); // exactly "YES" only
    OrvThreadBaseMgr::RunCommand(&node, 5, nullptr, kPlain, kEnd);
    EXPECT_EQ(node.GetTimeTakenForGTP(), L"");
    setenv("KEL_TEST_ENV", "YES", 1);
    OrvThreadBaseMgr::RunCommand(&node, 5, nullptr, kPlain, kEnd);
    unsetenv("KEL_TEST_ENV");
    EXPECT_EQ(node.GetTimeTakenForGTP(), L"00:00:00");
}

} // namespace
} // namespace commands_test
