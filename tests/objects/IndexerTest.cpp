// The automatic numbering by class: positions, releases, clearing, replacing, registered names,
// reference correction, and the registers' archive layouts and dumps.
#include <gtest/gtest.h>

#include <memory>

#include "ActiveDocumentTest.h"
#include "objects/OrvObjectIndexer.h"
#include "support/ArchiveBytes.h"
#include "support/ArchiveRoundTrip.h"
#include "support/DumpCapture.h"

namespace {

class IndexerTest : public ActiveDocumentTest {
protected:
    OrvObjectIndexerHelper& Helper() { return *m_document.m_pIndexer; }
    OrvObjectIndexer* Register(int index) {
        POSITION pos = Helper().GetIndexers().FindIndex(index);
        return pos ? static_cast<OrvObjectIndexer*>(Helper().GetIndexers().GetAt(pos)) : nullptr;
    }
};

TEST_F(IndexerTest, NumbersByClassAndKeepsNumbersAfterRelease) {
    auto* first = m_document.Add<DocNode>(L"a", nullptr);
    auto* second = m_document.Add<DocNode>(L"b", nullptr);
    auto* third = m_document.Add<DocNode>(L"c", nullptr);
    auto* plain = m_document.Add<OrvObject>(L"p", nullptr);
    EXPECT_EQ(Helper().FindIndex(third), 2);
    EXPECT_EQ(Helper().FindIndex(plain), 0);
    EXPECT_EQ(third->GetRegNameForAutoIndexing(), CString(L"DocNode"));
    ASSERT_NE(Register(0), nullptr);
    EXPECT_EQ(Register(0)->GetIndexClassName(), CString(L"DocNode"));
    EXPECT_EQ(Register(0)->GetReferences(), 3u);

    Helper().ReleaseIndexer(first);
    EXPECT_EQ(Helper().FindIndex(third), 2);
    EXPECT_EQ(Register(0)->GetReferences(), 2u);
    Helper().ClearUnusedIndexers(); // references above 0: nothing
    EXPECT_EQ(Helper().FindIndex(second), 1);
    Helper().ReleaseIndexer(second);
    Helper().ReleaseIndexer(third);
    Helper().ReleaseIndexer(third); // at 0 it stays 0
    EXPECT_EQ(Register(0)->GetReferences(), 0u);
    Helper().ReleaseIndexer(nullptr);
    Helper().ClearUnusedIndexers();
    EXPECT_EQ(Helper().FindIndex(third), -1);
    auto* fresh = m_document.Add<DocNode>(L"d", nullptr);
    EXPECT_EQ(Helper().FindIndex(fresh), 0);
    EXPECT_EQ(Helper().FindIndex(plain), 0); // another class is untouched
}

TEST_F(IndexerTest, ReplaceKeepsThePosition) {
    m_document.Add<DocNode>(L"a", nullptr);
    auto* old = m_document.Add<DocNode>(L"b", nullptr);
    OrvObject outsider; // not numbered
    auto* replacement = m_document.Add<DocNode>(L"c", nullptr);
    Helper().ReplaceObj(old, replacement);
    EXPECT_EQ(Helper().FindIndex(replacement), 1);
    EXPECT_EQ(Helper().FindIndex(old), -1);
    EXPECT_EQ(Register(0)->GetReferences(), 3u);
    Helper().ReplaceObj(&outsider, old); // unknown: nothing changes
    EXPECT_EQ(Helper().FindIndex(old), -1);
    EXPECT_EQ(Helper().FindIndex(&outsider), -1);
}

// Registered under a class name that the helper counts as no node class.
class StationNode : public OrvObject {
public:
    CString GetRegisterNodeName() override { return L"OrvToolStation"; }
};

TEST_F(IndexerTest, CorrectReferencesLeavesNonNodeClasses) {
    m_document.Add<DocNode>(L"a", nullptr);
    m_document.Add<DocFolder>(L"f", nullptr);
    m_document.Add<StationNode>(L"s", nullptr);
    m_document.Add<StationNode>(L"t", nullptr);
    std::map<CString, unsigned int> empty;
    Helper().CorrectIndexersReferences(empty);
    EXPECT_TRUE(empty.empty());
    EXPECT_EQ(Register(0)->GetReferences(), 1u);
    std::map<CString, unsigned int> counts{{L"Folder", 4}, {L"OrvToolStation", 9}};
    Helper().CorrectIndexersReferences(counts);
    EXPECT_EQ(Register(0)->GetReferences(), 0u); // DocNode is missing from the map
    EXPECT_EQ(counts.count(L"DocNode"), 1u);
    EXPECT_EQ(Register(1)->GetReferences(), 4u);
    EXPECT_EQ(Register(2)->GetIndexClassName(), CString(L"OrvToolStation"));
    EXPECT_EQ(Register(2)->GetReferences(), 2u);
}

TEST_F(IndexerTest, RegisterLayoutAndOldSchema) {
    OrvObjectIndexer indexer(L"Hole");
    indexer.AddId(7);
    indexer.AddId(0x01020304);
    indexer.AddReference();
    ArchiveBytes expected;
    expected.NewClass("OrvObjectIndexer", 2).ClassRef(1).NewClass("OrvBaseObject", 2);
    expected.String(L"Hole").Dword(2).Dword(7).Dword(0x01020304).Int(1);
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { ar << static_cast<CObject*>(&indexer); }),
              expected.bytes());

    ArchiveBytes old;
    old.NewClass("OrvObjectIndexer", 1).ClassRef(1).NewClass("OrvBaseObject", 2);
    old.String(L"Pocket").Dword(3).Dword(1).Dword(2).Dword(3);
    CObject* loaded = nullptr;
    EXPECT_EQ(LoadBytes(old.bytes(), [&](CArchive& ar) { ar >> loaded; }), 0u);
    std::unique_ptr<CObject> owned(loaded);
    auto* register_ = static_cast<OrvObjectIndexer*>(loaded);
    EXPECT_EQ(register_->GetIndexClassName(), CString(L"Pocket"));
    EXPECT_EQ(register_->GetReferences(), 3u);
    EXPECT_EQ(register_->GetIdList().GetCount(), 3);
    EXPECT_EQ(register_->GetIdList().GetTail(), 3u);
}

TEST_F(IndexerTest, HelperRoundTripKeepsSchemaAndRegisters) {
    m_document.Add<DocNode>(L"a", nullptr);
    m_document.Add<DocFolder>(L"b", nullptr);
    const auto bytes =
        StoreBytes([&](CArchive& ar) { ar << static_cast<CObject*>(m_document.m_pIndexer); });
    ArchiveBytes head; // the helper's class, its tag, the base part, two registers
    head.NewClass("OrvObjectIndexerHelper", 2).ClassRef(1).NewClass("OrvBaseObject", 2).Count(2);
    ASSERT_GT(bytes.size(), head.bytes().size());
    EXPECT_TRUE(std::equal(head.bytes().begin(), head.bytes().end(), bytes.begin()));

    CObject* loaded = nullptr;
    EXPECT_EQ(LoadBytes(bytes, [&](CArchive& ar) { ar >> loaded; }), 0u);
    std::unique_ptr<CObject> owned(loaded);
    auto* helper = static_cast<OrvObjectIndexerHelper*>(loaded);
    EXPECT_EQ(helper->GetObjectSchemaNumber(), 2u);
    ASSERT_EQ(helper->GetIndexers().GetCount(), 2);
    auto* folder = static_cast<OrvObjectIndexer*>(helper->GetIndexers().GetTail());
    EXPECT_EQ(folder->GetIndexClassName(), CString(L"Folder"));
    EXPECT_EQ(folder->GetIdList().GetHead(), 2u);
}

TEST_F(IndexerTest, HelperRefusesARegisterTwiceAndOtherClasses) {
    ArchiveBytes twice;
    twice.NewClass("OrvObjectIndexerHelper", 2).ClassRef(1).NewClass("OrvBaseObject", 2).Count(2);
    twice.NewClass("OrvObjectIndexer", 2).ClassRef(4).ClassRef(3);
    twice.String(L"A").Dword(0).Int(0).ObjectRef(5);
    CObject* loaded = nullptr;
    const auto read = [&](CArchive& ar) { ar >> loaded; };
    EXPECT_EQ(LoadCause(twice.bytes(), read), CArchiveException::badIndex);

    ArchiveBytes node; // a node where a register belongs
    node.NewClass("OrvObjectIndexerHelper", 2).ClassRef(1).NewClass("OrvBaseObject", 2).Count(1);
    node.NewClass("OrvObject", 8);
    EXPECT_EQ(LoadCause(node.bytes(), read), CArchiveException::badClass);
}

TEST_F(IndexerTest, Dumps) {
    m_document.Add<DocNode>(L"a", nullptr);
    const std::string expected =
        Banner("OrvObjectIndexerHelper", "Start") + "\nDumping for m_ObjIndexerList Start\n" +
        "\n m_ObjIndexerList Total Items : 1\n" + "\n m_ObjIndexerList count: 0\n" +
        Banner("OrvObjectIndexer", "Start") + "\n m_className: DocNode" +
        "\n m_nIndexReferences: 1" + Banner("OrvObjectIndexer", "End") +
        "\nDumping for m_ObjIndexerList End\n" + "\n m_nObjectSchemaNumber: 2" +
        Banner("OrvObjectIndexerHelper", "End");
    EXPECT_EQ(CaptureDump([&](FILE* f) { Helper().DumpData(f); }), expected);
}

} // namespace
