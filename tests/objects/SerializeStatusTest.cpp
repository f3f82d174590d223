// The process-wide status word of storing and loading, and the post-load notification list.
#include <gtest/gtest.h>

#include "core/OrvBaseObject.h"
#include "objects/OrvObject.h"
#include "objects/OrvSerializeNotify.h"
#include "objects/OrvSerializeStatus.h"

namespace {

// The status word after logging errors of the given areas, and the location reported: bit 0 marks
// an error, 0x8000 no location of its own, and of two areas the lower bit is reported.
TEST(SerializationStatus, LoggingAndLocations) {
    struct Row {
        std::vector<unsigned> areas;
        unsigned status, location;
    };
    const Row rows[] = {{{}, 0x0000, 0x0000},
                        {{0}, 0x0001, 0x0000},
                        {{0x9000}, 0x9001, 0x1000},
                        {{0x0400, 0x0040}, 0x0441, 0x0040},
                        {{0x8000}, 0x8001, 0x0000}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.status);
        InitialiseSerializationStatus(0);
        for (unsigned area : row.areas)
            LogSerializationError(area);
        EXPECT_EQ(GetSerializationStatus(), row.status);
        EXPECT_EQ(GetErrorLocation(), row.location);
        EXPECT_EQ(IsErrorDetected(), row.areas.empty() ? 0u : 1u);
    }
}

TEST(SerializationStatus, InitialiseWithMarkIsNoError) {
    LogSerializationError(0x0020);
    InitialiseSerializationStatus(1);
    EXPECT_EQ(GetSerializationStatus(), 0x0002u);
    EXPECT_EQ(IsErrorDetected(), 0u);
    EXPECT_EQ(GetErrorLocation(), 0u);
}

TEST(SerializationStatus, AnalyseOwnerLogsOnlyAMissingOwner) {
    OrvObject owner;
    InitialiseSerializationStatus(0);
    EXPECT_EQ(AnalyseOwner(&owner, 0x0020), 1);
    EXPECT_EQ(GetSerializationStatus(), 0u);
    EXPECT_EQ(AnalyseOwner(nullptr, 0x0020), 1);
    EXPECT_EQ(GetSerializationStatus(), 0x9021u);
    EXPECT_EQ(GetErrorLocation(), 0x0020u);
}

// Records the order in which it is told that loading has ended.
class Listener : public OrvBaseObject {
public:
    explicit Listener(std::vector<int>* log, int id) : m_log(log), m_id(id) {}
    void OnPostLoadFromStorageNotify() override { m_log->push_back(m_id); }

private:
    std::vector<int>* m_log;
    int m_id;
};

TEST(SerializeNotify, NotifiesInOrderAndKeepsTheList) {
    OrvSerializeNotify::Clear();
    std::vector<int> log;
    Listener a(&log, 1), b(&log, 2);
    EXPECT_EQ(OrvSerializeNotify::RegisterForNotification(nullptr), 0);
    EXPECT_EQ(OrvSerializeNotify::RegisterForNotification(&a), 1);
    EXPECT_EQ(OrvSerializeNotify::RegisterForNotification(&b), 1);
    EXPECT_EQ(OrvSerializeNotify::RegisterForNotification(&a), 1);
    OrvSerializeNotify::PostLoadFromStorageNotify();
    EXPECT_EQ(log, (std::vector<int>{1, 2, 1}));
    OrvSerializeNotify::PostLoadFromStorageNotify();
    EXPECT_EQ(log.size(), 6u);
    OrvSerializeNotify::Clear();
}

TEST(SerializeNotify, RemoveTakesTheLastEntryOfTheObject) {
    OrvSerializeNotify::Clear();
    std::vector<int> log;
    Listener a(&log, 1), b(&log, 2);
    OrvSerializeNotify::RegisterForNotification(&a);
    OrvSerializeNotify::RegisterForNotification(&b);
    OrvSerializeNotify::RegisterForNotification(&a);
    EXPECT_EQ(OrvSerializeNotify::RemoveFromNotification(nullptr), 0);
    EXPECT_EQ(OrvSerializeNotify::RemoveFromNotification(&a), 1);
    OrvSerializeNotify::PostLoadFromStorageNotify();
    EXPECT_EQ(log, (std::vector<int>{1, 2}));
    // An object that is not listed: still 1, nothing changes.
    Listener c(&log, 3);
    EXPECT_EQ(OrvSerializeNotify::RemoveFromNotification(&c), 1);
    OrvSerializeNotify::Clear();
}

} // namespace
