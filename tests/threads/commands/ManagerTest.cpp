// The manager's walks, terminations, bounded waits and its lock, on records in known states.
#include <thread>

#include "CommandFixture.h"
#include "threads/OrvCriticalSectionLoader.h"

namespace commands_test {
namespace {

class ManagerTest : public CommandTest {
protected:
    OrvThreadData* Add(OrvObject* caller, DWORD id, void* parameter, OrveThreadStatus status,
                       OrveThreadType type = OrveThreadType(0)) {
        auto* data = new OrvThreadData(caller, id, parameter, type, OrveThreadEndType(0));
        data->SetThreadStatus(status);
        manager->List(data);
        return data;
    }
};

TEST_F(ManagerTest, DestroyingARecordOutsideTheListStillDeletesAndTellsIt) {
    ScriptedNode node;
    auto* outside = new OrvThreadData(&node, 3, nullptr, OrveThreadType(0), OrveThreadEndType(0));
    ASSERT_TRUE(node.GetIsUsingThisObject(outside));
    EXPECT_EQ(manager->DestroyThreadData(outside), 0);
    EXPECT_EQ(manager->destroyed, 1);
    EXPECT_FALSE(node.GetIsUsingThisObject(outside));
    Add(&node, 4, nullptr, ThreadDone);
    EXPECT_EQ(manager->DestroyThreadData(ListedAt(0)), 0); // listed: also 0
    EXPECT_EQ(Listed(), 0);
    EXPECT_EQ(manager->DestroyThreadData(nullptr), 0);
    EXPECT_EQ(manager->destroyed, 2);
}

TEST_F(ManagerTest, EmptyListAnswers) {
    EXPECT_EQ(manager->DeleteAllDoneThreads(), 0);
    EXPECT_EQ(manager->AnyThreadsRunning(), 0);
    EXPECT_EQ(manager->AllThreadsDone(), 1);
    EXPECT_EQ(manager->GetNumThreadsNotDone(), 0);
    EXPECT_EQ(manager->GetThreadsNotDone(nullptr, 0), 0);
    manager->WaitForAllThreadsToBeDone();
    manager->TerminateLastCreated();
    EXPECT_EQ(manager->ThreadInList(nullptr), 0);
    EXPECT_EQ(manager->GetHaveThreadData(nullptr), 0);
    EXPECT_EQ(manager->ThreadExist(nullptr), 0);
    EXPECT_EQ(manager->GetAreAllThreadsInThisDocDone(&document), 1);
    EXPECT_EQ(manager->GetNumThreadsRunningOrWaiting(&document), 0);
    EXPECT_EQ(manager->FindThreadData(nullptr, 1, nullptr), nullptr);
    OrvThreadData* owner = nullptr;
    void* handle = nullptr;
    EXPECT_EQ(manager->GetThreadDuplicateOwner(nullptr, owner, handle), 0);
    EXPECT_EQ(manager->GetThreadPrevParentOwner(nullptr, owner, handle, 0), 0);
}

TEST_F(ManagerTest, StatusQueriesCountWhatTheyName) {
    ScriptedNode node;
    OrvObject otherDocument;
    Add(&node, 1, nullptr, ThreadDone);
    Add(&node, 2, nullptr, ThreadWaitingForChild);
    EXPECT_EQ(manager->AnyThreadsRunning(), 0); // 1, 4, 5, 6 and 8 are not running
    Add(&node, 3, nullptr, ThreadWaitingToRun);
    EXPECT_EQ(manager->AnyThreadsRunning(), 1);
    EXPECT_EQ(manager->AllThreadsDone(), 1);
    Add(&node, 4, nullptr, ThreadSuspended);
    Add(&node, 5, nullptr, ThreadRunning);
    EXPECT_EQ(manager->AllThreadsDone(), 0);
    EXPECT_EQ(manager->GetNumThreadsNotDone(), 2);
    // 7 and 2 of the document count; 3 does not.
    EXPECT_EQ(manager->GetNumThreadsRunningOrWaiting(&document), 2);
    EXPECT_EQ(OrvThreadBaseMgr::IsAnyThreadsRunningOrWaiting(&document), 1);
    EXPECT_EQ(manager->GetNumThreadsRunningOrWaiting(&otherDocument), 0);
    EXPECT_EQ(manager->GetAreAllThreadsInThisDocDone(&document), 0);
    EXPECT_EQ(manager->GetAreAllThreadsInThisDocDone(&otherDocument), 1);
    // A null document reads the raw running count, which may go below zero.
    manager->AddRunning(-1);
    EXPECT_EQ(manager->GetNumThreadsRunningOrWaiting(nullptr), -1);
    EXPECT_EQ(OrvThreadBaseMgr::IsAnyThreadsRunningOrWaiting(nullptr), 0);
}

TEST_F(ManagerTest, FindsTheFirstMatchingRecordAndItsParent) {
    ScriptedNode node;
    int a = 0, b = 0;
    OrvThreadDataLink grouped, ungrouped;
    grouped.SetIdentifierA(&a);
    grouped.SetIdentifierB(&b);
    grouped.SetGroupNum(5);
    ungrouped = grouped;
    ungrouped.SetGroupNum(0);
    OrvThreadData* first = Add(&node, 7, &grouped, ThreadDone);
    OrvThreadData* second = Add(&node, 7, &ungrouped, ThreadDone, ThreadTypeChild);
    EXPECT_EQ(manager->FindThreadData(&node, 7, nullptr), first);
    EXPECT_EQ(manager->FindThreadData(&node, 7, &ungrouped), second);
    EXPECT_EQ(manager->ThreadInList(second), 1);
    OrvThreadData* owner = nullptr;
    void* handle = nullptr;
    // The head has no parent; a predecessor without a handle is none.
    EXPECT_EQ(manager->GetThreadPrevParentOwner(first, owner, handle, 0), 0);
    EXPECT_EQ(manager->GetThreadPrevParentOwner(second, owner, handle, 0), 0);
    EXPECT_EQ(owner, nullptr);
    EXPECT_EQ(manager->GetThreadDuplicateOwner(second, owner, handle), 0);
}

TEST_F(ManagerTest, ParentAndDuplicateOwnersNeedHandlesAndGroups) {
    BlockingNode parentNode;
    ScriptedNode node;
    int a = 0, b = 0;
    OrvThreadDataLink parentLink, childLink;
    parentLink.SetIdentifierA(&a);
    parentLink.SetIdentifierB(&b);
    parentLink.SetGroupNum(5);
    childLink = parentLink;
    ASSERT_GT(OrvThreadBaseMgr::RunCommand(&parentNode, 7, &parentLink, OrveThreadType(0),
                                           OrveThreadEndType(0)),
              0);
    OrvThreadData* parent = ListedAt(0);
    ASSERT_TRUE(Eventually([&] { return parentNode.inWork.load(); }));
    OrvThreadData* child = Add(&node, 8, &childLink, ThreadNotStarted);
    OrvThreadData* owner = nullptr;
    void* handle = nullptr;
    EXPECT_EQ(manager->GetThreadPrevParentOwner(child, owner, handle, 1), 1); // equal groups
    EXPECT_EQ(owner, parent);
    EXPECT_EQ(handle, parent->GetThreadHandle());
    childLink.SetGroupNum(6);
    owner = nullptr;
    EXPECT_EQ(manager->GetThreadPrevParentOwner(child, owner, handle, 1), 0);
    EXPECT_EQ(manager->GetThreadPrevParentOwner(child, owner, handle, 0), 1);
    EXPECT_EQ(manager->GetThreadDuplicateOwner(child, owner, handle), 0); // groups differ
    childLink.SetGroupNum(5);
    owner = nullptr;
    EXPECT_EQ(manager->GetThreadDuplicateOwner(child, owner, handle), 1);
    EXPECT_EQ(owner, parent);
    parentNode.release = true;
    ASSERT_TRUE(WorkersGone());
}

TEST_F(ManagerTest, TerminationsTellTheNodeAndMarkTheRecord) {
    UseSettings(1, 0);
    BlockingNode first, second, third;
    int a = 0, b = 0, c = 0;
    OrvThreadDataLink firstLink, secondLink, thirdLink;
    firstLink.SetIdentifierA(&a);
    secondLink.SetIdentifierA(&b);
    secondLink.SetIdentifierB(&c);
    thirdLink.SetIdentifierA(&a);
    thirdLink.SetGroupNum(1);
    ASSERT_GT(OrvThreadBaseMgr::RunCommand(&first, 1, &firstLink, OrveThreadType(0),
                                           OrveThreadEndType(0)),
              0);
    ASSERT_GT(OrvThreadBaseMgr::RunCommand(&third, 3, &thirdLink, OrveThreadType(0),
                                           OrveThreadEndType(0)),
              0);
    ASSERT_GT(OrvThreadBaseMgr::RunCommand(&second, 2, &secondLink, OrveThreadType(0),
                                           OrveThreadEndType(0)),
              0);
    ASSERT_TRUE(Eventually([&] { return first.inWork && second.inWork && third.inWork; }));
    EXPECT_EQ(manager->ThreadExist(&a), 1);

    // Only the newest command, and only while its identifiers are the last ones.
    manager->TerminateLastCreated();
    EXPECT_EQ(second.log.terminates, 1);
    EXPECT_EQ(ListedAt(2)->GetThreadStatus(), ThreadTerminated);
    EXPECT_EQ(ListedAt(2)->GetThreadHandle(), nullptr);
    EXPECT_EQ(ListedAt(2)->GetThreadID(), 0u);
    EXPECT_EQ(manager->ThreadExist(&b), 0);

    // Every running command on target a, whatever its group; bounded wait ends at once.
    manager->DestructThread(&a);
    EXPECT_EQ(first.log.terminates, 1);
    EXPECT_EQ(third.log.terminates, 1);
    EXPECT_EQ(manager->ThreadExist(&a), 0);
    ASSERT_TRUE(WorkersGone());
    // The workers ended after the terminations and left the status as it was.
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(ListedAt(i)->GetThreadStatus(), ThreadTerminated);
    EXPECT_EQ(manager->DeleteAllDoneThreads(), 3);
}

TEST_F(ManagerTest, TerminatingADocumentLeavesOtherDocumentsRunning) {
    UseSettings(1, 1);
    OrvObject otherDocument;
    BlockingNode mine, theirs;
    ASSERT_GT(
        OrvThreadBaseMgr::RunCommand(&mine, 1, nullptr, OrveThreadType(0), OrveThreadEndType(0)),
        0);
    Host().document = &otherDocument;
    ASSERT_GT(
        OrvThreadBaseMgr::RunCommand(&theirs, 1, nullptr, OrveThreadType(0), OrveThreadEndType(0)),
        0);
    Host().document = &document;
    ASSERT_TRUE(Eventually([&] { return mine.inWork && theirs.inWork; }));
    manager->TerminateAllThreadsInThisDoc(&document);
    EXPECT_EQ(mine.log.terminates, 1);
    EXPECT_EQ(theirs.log.terminates, 0);
    EXPECT_EQ(manager->GetAreAllThreadsInThisDocDone(&document), 1);
    EXPECT_EQ(manager->GetAreAllThreadsInThisDocDone(&otherDocument), 0);
    theirs.release = true;
    ASSERT_TRUE(WorkersGone());
    EXPECT_EQ(Listed(), 0);
}

TEST_F(ManagerTest, AWorkerWaitsForTheLockThatAnotherThreadHolds) {
    std::atomic<int> enteredFromWorker{-1};
    ScriptedNode node;
    node.work = [&](void*&) {
        OrvCriticalSectionLoader guard(manager->Lock(), 0);
        enteredFromWorker = guard.EnterIfUnlocked();
        return ThreadDone;
    };
    {
        OrvCriticalSectionLoader held(manager->Lock(), 1);
        ASSERT_GT(OrvThreadBaseMgr::RunCommand(&node, 5, nullptr, OrveThreadType(0),
                                               OrveThreadEndType(0)),
                  0);
        ASSERT_TRUE(Eventually([&] { return node.log.executes == 1 && enteredFromWorker >= 0; }));
        EXPECT_EQ(enteredFromWorker, 0);
        // The worker now waits to retire its record.
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        EXPECT_EQ(Listed(), 1);
        EXPECT_EQ(manager->destroyed, 0);
        OrvCriticalSectionLoader again(manager->Lock(), 0);
        EXPECT_EQ(again.EnterIfUnlocked(), 1); // the same thread enters once more
    }
    ASSERT_TRUE(Eventually([&] { return manager->destroyed == 1; }));
    ASSERT_TRUE(WorkersGone());
}

} // namespace
} // namespace commands_test
