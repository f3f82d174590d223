// The record on its own: links, matching, duplicates, its place in the caller's user list and
// its texts.
#include <cstdlib>
#include <ctime>

#include "CommandFixture.h"

namespace commands_test {
namespace {

OrvThreadDataLink Link(void* a, void* b, DWORD group) {
    OrvThreadDataLink link;
    link.SetIdentifierA(a);
    link.SetIdentifierB(b);
    link.SetGroupNum(group);
    return link;
}

class ThreadDataTest : public CommandTest {};

TEST_F(ThreadDataTest, DuplicatesAreSameTargetOutsideOneGroup) {
    int a = 0, b = 0, other = 0;
    OrvThreadDataLink ours = Link(&a, &b, 0);
    OrvObject node;
    OrvThreadData record(&node, 10, &ours, OrveThreadType(0), OrveThreadEndType(0));

    OrvThreadDataLink same = Link(&a, &b, 0);
    OrvThreadDataLink otherA = Link(&other, &b, 0);
    OrvThreadDataLink otherB = Link(&a, &other, 0);
    EXPECT_EQ(record.GetIsSimiliarDuplicate(nullptr, 10, &same), 1); // the object is ignored
    EXPECT_EQ(record.GetIsSimiliarDuplicate(&node, 11, &same), 0);
    EXPECT_EQ(record.GetIsSimiliarDuplicate(&node, 0, &same), 0);
    EXPECT_EQ(record.GetIsSimiliarDuplicate(&node, 10, nullptr), 0);
    EXPECT_EQ(record.GetIsSimiliarDuplicate(&node, 10, &otherA), 0);
    EXPECT_EQ(record.GetIsSimiliarDuplicate(&node, 10, &otherB), 0);

    // Groups: either number 0 is a duplicate; equal non-zero numbers run side by side.
    OrvThreadDataLink group3 = Link(&a, &b, 3);
    EXPECT_EQ(record.GetIsSimiliarDuplicate(&node, 10, &group3), 1);
    ours.SetGroupNum(3);
    EXPECT_EQ(record.GetIsSimiliarDuplicate(&node, 10, &group3), 0);
    EXPECT_EQ(record.GetIsSimiliarDuplicate(&node, 10, &same), 1);
    OrvThreadDataLink group4 = Link(&a, &b, 4);
    EXPECT_EQ(record.GetIsSimiliarDuplicate(&node, 10, &group4), 1);

    OrvThreadData withoutParameter(&node, 10, nullptr, OrveThreadType(0), OrveThreadEndType(0));
    EXPECT_EQ(withoutParameter.GetIsSimiliarDuplicate(&node, 10, &same), 0);
}

TEST_F(ThreadDataTest, MatchingNeedsCallerAndNonZeroIdAndAnyOrEqualParameter) {
    OrvThreadDataLink parameter, other;
    OrvObject node, stranger;
    OrvThreadData record(&node, 10, &parameter, OrveThreadType(0), OrveThreadEndType(0));
    EXPECT_EQ(record.GetIsDataMatching(&node, 10, &parameter), 1);
    EXPECT_EQ(record.GetIsDataMatching(&node, 10, nullptr), 1);
    EXPECT_EQ(record.GetIsDataMatching(&node, 10, &other), 0);
    EXPECT_EQ(record.GetIsDataMatching(&stranger, 10, nullptr), 0);
    EXPECT_EQ(record.GetIsDataMatching(&node, 11, nullptr), 0);
    OrvThreadData idZero(&node, 0, nullptr, OrveThreadType(0), OrveThreadEndType(0));
    EXPECT_EQ(idZero.GetIsDataMatching(&node, 0, nullptr), 0);
}

TEST_F(ThreadDataTest, StandsInTheCallersTransientUsersAndTakesTheDocument) {
    OrvObject node;
    auto* record = new OrvThreadData(&node, 3, nullptr, OrveThreadType(0), OrveThreadEndType(0));
    EXPECT_EQ(record->GetDocument(), &document);
    EXPECT_EQ(record->GetCallingObject(), &node);
    EXPECT_EQ(record->GetThreadStatus(), ThreadNotStarted);
    EXPECT_EQ(record->GetThreadID(), 0u);
    EXPECT_EQ(record->GetThreadHandle(), nullptr);
    EXPECT_TRUE(node.GetIsUsingThisObject(record));
    EXPECT_EQ(record->RemoveFromUserObjectsList(&document), 0); // not its caller: stays
    delete record;
    EXPECT_FALSE(node.GetIsUsingThisObject(record));
}

TEST_F(ThreadDataTest, TheCallersDeletionDestroysItsRecordsThroughTheManager) {
    auto* node = new OrvObject;
    auto* record = new OrvThreadData(node, 3, nullptr, OrveThreadType(0), OrveThreadEndType(0));
    manager->List(record);
    manager->List(new OrvThreadData(node, 4, nullptr, OrveThreadType(0), OrveThreadEndType(0)));
    ASSERT_EQ(Listed(), 2);
    delete node;
    EXPECT_EQ(Listed(), 0);
    EXPECT_EQ(manager->destroyed, 2);
}

TEST_F(ThreadDataTest, RecordWithoutCallerDoesNothing) {
    OrvThreadData record(nullptr, 3, nullptr, OrveThreadType(0), OrveThreadEndType(0));
    EXPECT_EQ(record.RunCommand(1), 0);
    EXPECT_EQ(record.HandleCommand(1), 0);
    EXPECT_EQ(record.GetThreadStatus(), ThreadNotStarted);
    EXPECT_EQ(record.GetProcessName(), L"");
}

TEST_F(ThreadDataTest, SuspendResumeAndTerminateWithoutHandleChangeNothing) {
    ScriptedNode node;
    OrvThreadData record(&node, 3, nullptr, OrveThreadType(0), OrveThreadEndType(0));
    record.SetThreadStatus(ThreadWaitingToRun);
    EXPECT_EQ(record.SuspendThread(), ThreadWaitingToRun);
    EXPECT_EQ(record.ResumeThread(), ThreadWaitingToRun);
    EXPECT_EQ(record.TerminateThread(), ThreadWaitingToRun);
    EXPECT_EQ(record.GetThreadStatus(), ThreadWaitingToRun);
    EXPECT_EQ(node.log.terminates, 0);
}

// Sets the start the way a run would, for the time texts.
class TimedRecord : public OrvThreadData {
public:
    using OrvThreadData::OrvThreadData;
    void SetStart(const SYSTEMTIME& start, LONGLONG time) {
        m_StartSystemTime = start;
        m_StartTime = time;
    }
};

class UtcClock {
public:
    UtcClock() {
        if (const char* tz = std::getenv("TZ"))
            m_Saved = tz, m_Had = true;
        setenv("TZ", "UTC", 1);
        tzset();
    }
    ~UtcClock() {
        if (m_Had)
            setenv("TZ", m_Saved.c_str(), 1);
        else
            unsetenv("TZ");
        tzset();
    }

private:
    std::string m_Saved;
    bool m_Had = false;
};

SYSTEMTIME At(WORD day, WORD hour, WORD minute, WORD second, WORD millis) {
    SYSTEMTIME time{};
    time.wYear = 2024;
    time.wMonth = 3;
    time.wDay = day;
    time.wHour = hour;
    time.wMinute = minute;
    time.wSecond = second;
    time.wMilliseconds = millis;
    return time;
}

constexpr LONGLONG kNewYear2024 = 1704067200; // 2024-01-01 00:00:00 UTC

TEST_F(ThreadDataTest, TimesPrintOnTheTwelveHourClockOnceTheyMean) {
    const UtcClock utc;
    OrvObject node;
    TimedRecord record(&node, 3, nullptr, OrveThreadType(0), OrveThreadEndType(0));
    EXPECT_EQ(record.GetStartTimeStr(), L""); // status 0
    record.SetStart(At(1, 10, 0, 0, 0), kNewYear2024 + 13 * 3600 + 5 * 60 + 9);
    record.SetThreadStatus(ThreadRunning);
    EXPECT_EQ(record.GetStartTimeStr(), L"01:05:09");
    record.SetStart(At(1, 10, 0, 0, 0), kNewYear2024 + 10 * 60);
    EXPECT_EQ(record.GetStartTimeStr(), L"12:10:00");

    SYSTEMTIME end = At(2, 12, 1, 5, 900);
    LONGLONG endTime = kNewYear2024 + 12 * 3600 + 30 * 60;
    record.ReSetEndThreadTime(end, endTime);
    EXPECT_EQ(record.GetEndTimeStr(), L""); // still running
    EXPECT_EQ(record.GetTimeTaken(), L"");
    for (OrveThreadStatus status : {ThreadTerminated, ThreadFailed}) {
        record.SetThreadStatus(status);
        EXPECT_EQ(record.GetEndTimeStr(), L"");
        EXPECT_EQ(record.GetTimeTaken(), L"");
    }
    for (OrveThreadStatus status : {ThreadDone, ThreadDoneKeep, ThreadWaitingForChild}) {
        record.SetThreadStatus(status);
        EXPECT_EQ(record.GetEndTimeStr(), L"12:30:00");
        // 1 March 10:00:00 to 2 March 12:01:05.9: 26 hours, the hours are not wrapped.
        EXPECT_EQ(record.GetTimeTaken(), L"26:01:05");
    }
}

TEST(ThreadDataTimes, DeltaTimeCountsWholeSeconds) {
    EXPECT_EQ(OrvThreadData::DeltaTime(At(1, 10, 0, 0, 0), At(1, 10, 1, 30, 999)), 90u);
    EXPECT_EQ(OrvThreadData::DeltaTime(At(1, 10, 0, 0, 0), At(2, 12, 1, 5, 900)), 93665u);
    EXPECT_EQ(OrvThreadData::DeltaTime(At(1, 23, 59, 59, 500), At(2, 0, 0, 0, 0)), 0u);
}

TEST_F(ThreadDataTest, ProgressAndActionTexts) {
    ScriptedNode node;
    node.ChangeName(L"Pocket 1");
    OrvThreadData record(&node, 3, nullptr, OrveThreadType(0), OrveThreadEndType(0));
    record.SetActionProgress(42);
    EXPECT_EQ(record.GetActionProgressString(), L"42 %");
    record.SetActionString(L"Roughing");
    EXPECT_EQ(record.GetActionString(), L"Roughing");
    EXPECT_EQ(record.GetProcessName(), L"Pocket 1");
}

} // namespace
} // namespace commands_test
