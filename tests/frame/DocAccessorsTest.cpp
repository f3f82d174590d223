// The document accessors: the message each sends, and the answers without a document.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "addin/NodeDocument.h"
#include "core/OrvDocAccessors.h"

namespace {

OrvObject* NoDocument() {
    return nullptr;
}

void RegisterNoDocument() {
    OrvShareRegisterDocCBK(nullptr, nullptr, NoDocument, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr, nullptr);
}

// The add-in's document, recording every message it is sent.
class RecordingDocument : public NodeDocument {
public:
    struct Message {
        ORV_CORE_MESSAGE_ID id;
        unsigned long long param;
        long long extra;
    };
    std::vector<Message> m_Messages;

    int SendOrvCoreMessage(ORV_CORE_MESSAGE_ID id, unsigned long long param,
                           long long extra) override {
        m_Messages.push_back({id, param, extra});
        return NodeDocument::SendOrvCoreMessage(id, param, extra);
    }
};

TEST(DocAccessorsWithoutDocument, AnswerZeroOrEmpty) {
    RegisterNoDocument();
    EXPECT_EQ(IsDocumentModified(), 0);
    EXPECT_EQ(IsDocumentUnitsMm(), 0);
    EXPECT_EQ(GetDocumentUnits(), 0);
    EXPECT_EQ(IsFEATTreeActive(), 0);
    EXPECT_EQ(IsOPERTreeActive(), 0);
    EXPECT_EQ(IsToolTreeActive(), 0);
    EXPECT_EQ(GetDocTitle(), L"");
    EXPECT_EQ(GetDocServicePack(), L"");
    int flag = 5;
    EXPECT_EQ(GetShowExceptionMsgFlag(flag), 0);
    EXPECT_EQ(SetShowExceptionMsgFlag(flag), 0);
    EXPECT_EQ(flag, 5);
    EXPECT_EQ(RemoveNodeFromSelection(nullptr), 0);
    SetDocumentModifiedFlag(1);            // nothing to tell
    EXPECT_EQ(IsDocumentUnitsMetric(), 1); // units code 0 counts as metric
}

TEST(DocAccessorsWithoutDocumentDeathTest, StorageUnitsAssumeADocument) {
    RegisterNoDocument();
    EXPECT_DEATH(GetActiveDocReadStorageUnits(), "");
    EXPECT_DEATH(SetActiveDocReadStorageUnits(6.0f), "");
}

class DocAccessors : public ::testing::Test {
protected:
    void SetUp() override { NodeDocument::Activate(&m_document); }
    void TearDown() override { NodeDocument::Activate(nullptr); }
    RecordingDocument& doc() { return m_document; }
    RecordingDocument m_document;
};

TEST_F(DocAccessors, StorageUnitsOfZeroCountAsVersion40) {
    for (const auto& [stored, read] : {std::pair{0.0f, 40.0f},
                                       {5e-7f, 40.0f},
                                       {-5e-7f, 40.0f},
                                       {2e-6f, 2e-6f},
                                       {6.1f, 6.1f}}) { // RESABS of zero: 40
        doc().m_StorageUnits = stored;
        EXPECT_EQ(GetActiveDocReadStorageUnits(), read) << stored;
    }
    ASSERT_EQ(doc().m_Messages.size(), 5u);
    EXPECT_EQ(doc().m_Messages[0].id, 201);
    EXPECT_EQ(doc().m_Messages[0].extra, 0);
    SetActiveDocReadStorageUnits(32.5f);
    EXPECT_EQ(doc().m_Messages.at(5).id, 202);
    EXPECT_EQ(doc().m_StorageUnits, 32.5f);
}

TEST_F(DocAccessors, EachQuerySendsItsMessage) {
    doc().m_Modified = 1;
    doc().m_Units = 3;
    doc().m_Title = L"Part1";
    EXPECT_EQ(IsDocumentModified(), 1);
    EXPECT_EQ(GetDocumentUnits(), 3);
    EXPECT_EQ(GetDocTitle(), L"Part1");
    EXPECT_EQ(IsDocumentUnitsMm(), 0); // unit code 3 is not millimetres
    EXPECT_EQ(IsFEATTreeActive(), 0);
    EXPECT_EQ(IsOPERTreeActive(), 0);
    EXPECT_EQ(IsToolTreeActive(), 0);
    EXPECT_EQ(GetDocServicePack(), L"");
    EXPECT_EQ(IsDocumentUnitsMetric(), 0); // unit code 3
    // The flag messages pass the caller's variable, the selection message the pointer itself.
    int flag = 1;
    EXPECT_EQ(GetShowExceptionMsgFlag(flag), 0);
    EXPECT_EQ(SetShowExceptionMsgFlag(flag), 0);
    RemoveNodeFromSelection(reinterpret_cast<ui_OrvObject*>(0x1234));
    std::vector<int> ids;
    for (const auto& message : doc().m_Messages)
        ids.push_back(message.id);
    EXPECT_EQ(ids, (std::vector<int>{204, 206, 227, 205, 269, 270, 271, 290, 206, 275, 276, 284}));
    const auto address = static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(&flag));
    EXPECT_EQ(doc().m_Messages[9].param, address);
    EXPECT_EQ(doc().m_Messages[10].param, address);
    EXPECT_EQ(doc().m_Messages[11].param, 0x1234u);
}

TEST_F(DocAccessors, ModifiedFlagGoesToTheGivenDocumentFirst) {
    RecordingDocument other;
    SetDocumentModifiedFlag(1, &other);
    EXPECT_EQ(other.m_Modified, 1);
    EXPECT_TRUE(doc().m_Messages.empty());
    SetDocumentModifiedFlag(1);
    EXPECT_EQ(doc().m_Modified, 1);
    EXPECT_EQ(doc().m_Messages.at(0).id, 203);
}

TEST(UnitCodes, MetricCodesAreZeroToTwoAndSixToEight) {
    for (int code = -1; code <= 10; ++code) {
        const bool metric =
            code == 0 || code == 1 || code == 2 || code == 6 || code == 7 || code == 8;
        EXPECT_EQ(IsUnitsMetric(code), metric ? 1 : 0) << code;
    }
}

} // namespace
