// Whole documents: a round trip of ten thousand nodes with owners, user lists both ways, recycled
// nodes, flags and indexers; a document with a folder list; and damaged documents, cut short or
// with flipped bits, which must end in an archive exception without a crash or a leak.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>

#include <map>
#include <memory>
#include <set>

#include "ActiveDocumentTest.h"
#include "addin/DemoFolders.h"
#include "support/ArchiveRoundTrip.h"
#include "support/DumpCapture.h"

namespace {

// Builds a document of `count` nodes in the active document `doc`. Node 0 is a recycle bin; the
// others hang in a tree of four children each. Node i uses node i - 1 (a reference back in the
// file), every tenth node is also used by the one after it (a reference forward), every seventh
// is recycled into the bin, and some are recycled where they stand.
std::vector<OrvObject*> BuildDocument(NodeDocument& doc, int count) {
    std::vector<OrvObject*> nodes;
    nodes.push_back(doc.Add<DocFolder>(L"Bin", &doc));
    for (int i = 1; i < count; ++i) {
        OrvObject* owner = i < 5 ? static_cast<OrvObject*>(&doc) : nodes[(i - 1) / 4];
        CString name;
        name.Format(L"Node %d", i);
        OrvObject* node = i % 5 == 0 ? static_cast<OrvObject*>(doc.Add<DocFolder>(name, owner))
                                     : static_cast<OrvObject*>(doc.Add<DocNode>(name, owner));
        node->SetNodeStatus(static_cast<WORD>(i & 0x7), 1);
        node->SetDisplayColor(static_cast<DWORD>(i * 2654435761u) & 0x00FFFFFF);
        if (i % 11 == 0)
            node->SetState(OrvObject::SUPPRESSED);
        if (i % 13 == 0)
            node->LockThis();
        if (i % 17 == 0) {
            node->GetFlag()->SetFlag();
            node->GetFlag()->SetFlagErrorType(SEGMENT);
        }
        if (i % 19 == 0)
            node->GetUiObject(); // stamps the audit fields
        nodes.push_back(node);
        node->AddToUserObjectsList(nodes[i - 1], 0);
        if (i % 10 == 1)
            nodes[i - 1]->AddToUserObjectsList(node, 0);
        if (i % 9 == 0)
            node->AddToUserObjectsList(nodes[i - 1], 1); // transient: not stored
    }
    for (int i = 7; i < count; i += 7) {
        nodes[i]->Recycle();
        nodes[i]->SetOwner(nodes[0]);
    }
    for (int i = 12; i < count; i += 24)
        if (i % 7 != 0)
            nodes[i]->Recycle(); // under its owner still
    return nodes;
}

std::vector<std::uint8_t> Store(NodeDocument& doc) {
    return StoreBytes([&](CArchive& ar) { ar << static_cast<CObject*>(&doc); });
}

std::unique_ptr<NodeDocument> Load(const std::vector<std::uint8_t>& bytes) {
    NodeDocument* loaded = nullptr;
    LoadBytes(bytes, [&](CArchive& ar) { ar >> loaded; });
    return std::unique_ptr<NodeDocument>(loaded);
}

std::vector<OrvObject*> Nodes(NodeDocument& doc) {
    std::vector<OrvObject*> nodes;
    for (POSITION pos = doc.m_Nodes.GetHeadPosition(); pos;)
        nodes.push_back(static_cast<OrvObject*>(doc.m_Nodes.GetNext(pos)));
    return nodes;
}

// A link as a position in the document: -1 for the document node, -2 for null.
int Where(const std::map<const CObject*, int>& index, const CObject* object) {
    if (!object)
        return -2;
    auto it = index.find(object);
    return it == index.end() ? -3 : it->second;
}

// The users as positions, in order. A load may list a recycled node in its original owner's list
// before the place it was written at (the load's repair adds it when the node is read inside that
// list); the document removes the duplicates, so the order of such an entry may differ, and the
// users are compared as a set.
std::set<int> UserPositions(OrvObject* node, const std::map<const CObject*, int>& index) {
    CObList users;
    node->GetAllUserObjects(&users);
    std::set<int> positions;
    for (POSITION pos = users.GetHeadPosition(); pos;)
        positions.insert(Where(index, users.GetNext(pos)));
    return positions;
}

std::map<const CObject*, int> IndexOf(NodeDocument& doc, const std::vector<OrvObject*>& nodes) {
    std::map<const CObject*, int> index{{&doc, -1}};
    for (std::size_t i = 0; i < nodes.size(); ++i)
        index[nodes[i]] = static_cast<int>(i);
    return index;
}

using DocumentTest = ActiveDocumentTest;

TEST_F(DocumentTest, TenThousandNodesComeBack) {
    const int count = 10000;
    auto nodes = BuildDocument(m_document, count);
    m_document.ChangeName(L"Document");
    const auto bytes = Store(m_document);
    auto loaded = Load(bytes);
    ASSERT_TRUE(loaded);
    auto back = Nodes(*loaded);
    ASSERT_EQ(back.size(), nodes.size());
    EXPECT_EQ(loaded->Name(), CString(L"Document"));
    EXPECT_EQ(loaded->m_LastId, m_document.m_LastId);

    const auto before = IndexOf(m_document, nodes);
    const auto after = IndexOf(*loaded, back);
    int recycledKept = 0, recycledLost = 0;
    for (int i = 0; i < count; ++i) {
        OrvObject* a = nodes[i];
        OrvObject* b = back[i];
        SCOPED_TRACE(i);
        ASSERT_EQ(b->GetClassNameW(), a->GetClassNameW());
        EXPECT_EQ(b->Name(), a->Name());
        EXPECT_EQ(b->GetObjectId(), a->GetObjectId());
        EXPECT_EQ(b->GetState(), a->GetState());
        EXPECT_EQ(b->GetNodeStatus(0xFFFF), a->GetNodeStatus(0xFFFF));
        EXPECT_EQ(b->GetDisplayColor(), a->GetDisplayColor());
        EXPECT_EQ(b->GetRegNameForAutoIndexing(), a->GetRegNameForAutoIndexing());
        EXPECT_EQ(b->GetCreatedBy(), a->GetCreatedBy());
        EXPECT_EQ(b->GetDateCreated(), a->GetDateCreated());
        EXPECT_EQ(b->GetLastModified(), a->GetLastModified());
        EXPECT_EQ(b->GetLastModifiedBy(), a->GetLastModifiedBy());
        EXPECT_EQ(b->GetFlag()->GetFlag(), a->GetFlag()->GetFlag());
        EXPECT_EQ(b->GetFlag()->GetFlagErrorType(), a->GetFlag()->GetFlagErrorType());
        EXPECT_EQ(Where(after, b->GetOwner()), Where(before, a->GetOwner()));
        // A node recycled where it stands loses its link on load, and with it, depending on
        // whether the owner's list was read before or after the node, its entry in that list.
        auto expectedUsers = UserPositions(a, before);
        auto loadedUsers = UserPositions(b, after);
        for (int k = 12; k < count; k += 24)
            if (k % 7 != 0 && nodes[k]->GetOwner() == a) {
                expectedUsers.erase(k);
                loadedUsers.erase(k);
            }
        EXPECT_EQ(loadedUsers, expectedUsers);
        EXPECT_EQ(loaded->m_pIndexer->FindIndex(b), m_document.m_pIndexer->FindIndex(a));
        if (a->GetOriginalOwner() && a->GetOriginalOwner() != a->GetOwner()) {
            EXPECT_EQ(Where(after, b->GetOriginalOwner()), Where(before, a->GetOriginalOwner()));
            ++recycledKept;
        } else if (a->GetOriginalOwner()) {
            EXPECT_EQ(b->GetOriginalOwner(), nullptr); // recycled where it stands: link undone
            EXPECT_EQ(b->GetState(), OrvObject::DELETED);
            ++recycledLost;
        }
        if (i % 9 == 0 && i > 0) { // a transient user is not stored
            EXPECT_EQ(a->GetIsUsingThisObject(nodes[i - 1]), 1);
            EXPECT_EQ(b->GetIsUsingThisObject(back[i - 1]), 0);
        }
    }
    EXPECT_GT(recycledKept, 1000);
    EXPECT_GT(recycledLost, 300);
    EXPECT_EQ(loaded->m_pIndexer->GetIndexers().GetCount(), 2);

    // The loaded document goes on issuing ids where the stored one stopped.
    NodeDocument::Activate(loaded.get());
    auto* fresh = loaded->Add<DocNode>(L"New", loaded.get());
    EXPECT_EQ(fresh->GetObjectId(), m_document.m_LastId + 1);
    EXPECT_EQ(loaded->m_pIndexer->FindIndex(fresh),
              m_document.m_pIndexer->FindIndex(nodes[1]) + 8000);
    NodeDocument::Activate(&m_document);
}

// Without nodes recycled where they stand (whose link a load undoes), a loaded document stores
// the bytes it was loaded from.
TEST_F(DocumentTest, StoringTwiceGivesTheSameBytes) {
    BuildDocument(m_document, 12);
    const auto first = Store(m_document);
    auto loaded = Load(first);
    ASSERT_TRUE(loaded);
    EXPECT_EQ(Store(*loaded), first);
}

// Asserts that loading `bytes` ends in an archive exception; answers its cause.
int LoadFails(const std::vector<std::uint8_t>& bytes) {
    try {
        auto loaded = Load(bytes);
        ADD_FAILURE() << "loaded";
    } catch (CArchiveException* e) {
        const int cause = e->m_cause;
        e->Delete();
        return cause;
    }
    return -1;
}

// Cut short anywhere, the document fails with an archive exception.
void ExpectEveryTruncationFails(const std::vector<std::uint8_t>& bytes) {
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        SCOPED_TRACE(length);
        LoadFails(std::vector<std::uint8_t>(bytes.begin(), bytes.begin() + length));
    }
}

// With any one bit flipped, the document loads (a name or a value changed: still a document, which
// `use` walks) or fails with an archive exception; both happen.
void ExpectFlippedBitsLoadOrFail(
    const std::vector<std::uint8_t>& bytes, void (*use)(NodeDocument&) = [](NodeDocument&) {}) {
    int failures = 0, loads = 0;
    for (std::size_t at = 0; at < bytes.size(); ++at)
        for (int bit = 0; bit < 8; ++bit) {
            auto flipped = bytes;
            flipped[at] ^= static_cast<std::uint8_t>(1u << bit);
            try {
                use(*Load(flipped));
                ++loads;
            } catch (CArchiveException* e) {
                e->Delete();
                ++failures;
            }
        }
    EXPECT_GT(failures, 0);
    EXPECT_GT(loads, 0);
}

TEST_F(DocumentTest, EveryTruncationIsAnArchiveException) {
    BuildDocument(m_document, 40);
    ExpectEveryTruncationFails(Store(m_document));
}

TEST_F(DocumentTest, DamagedStructureIsAnArchiveException) {
    BuildDocument(m_document, 10);
    const auto bytes = Store(m_document);
    // The document's class name: "NodeDocument" starts after the tag, schema and length.
    auto badName = bytes;
    badName[6] ^= 0x01;
    EXPECT_EQ(LoadFails(badName), CArchiveException::badClass);
    // The document's own tag: a reference to a class index that does not exist.
    auto badTag = bytes;
    badTag[18] = 0x7F;
    badTag[19] = 0x80;
    EXPECT_EQ(LoadFails(badTag), CArchiveException::badIndex);
}

TEST_F(DocumentTest, ANodeListedTwiceIsRefused) {
    // A document whose node list names one node twice: the second entry is a back-reference.
    BuildDocument(m_document, 3);
    m_document.m_Nodes.AddTail(m_document.m_Nodes.GetHead());
    const auto bytes = Store(m_document);
    m_document.m_Nodes.RemoveTail();
    EXPECT_EQ(LoadFails(bytes), CArchiveException::badIndex);
}

TEST_F(DocumentTest, FlippedBitsLoadOrFailCleanly) {
    BuildDocument(m_document, 12);
    ExpectFlippedBitsLoadOrFail(Store(m_document));
}

} // namespace

namespace {

// A chain in which each node's user list names the next node, not yet written: every node is
// written inside the one before, one level deeper.
std::vector<std::uint8_t> ChainDocument(NodeDocument& doc, int length) {
    std::vector<OrvObject*> chain;
    for (int i = 0; i < length; ++i)
        chain.push_back(doc.Add<DocNode>(L"c", &doc));
    for (int i = 0; i + 1 < length; ++i)
        chain[i]->AddToUserObjectsList(chain[i + 1], 0);
    return Store(doc);
}

TEST_F(DocumentTest, DeepNestingLoadsUpToALimit) {
    auto loaded = Load(ChainDocument(m_document, 500));
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->m_Nodes.GetCount(), 500);
}

TEST_F(DocumentTest, NestingBeyondTheLimitIsAnArchiveException) {
    EXPECT_EQ(LoadFails(ChainDocument(m_document, 1200)), CArchiveException::genericException);
}

} // namespace

namespace {

// Six features F0 ... F5 under the document, grouped into the demonstration's nested folders.
std::vector<OrvObject*> BuildFolderDocument(NodeDocument& doc) {
    std::vector<OrvObject*> features;
    CObList list;
    for (int i = 0; i < 6; ++i) {
        CString name;
        name.Format(L"F%d", i);
        features.push_back(doc.Add<DocNode>(name, &doc));
        list.AddTail(features.back());
    }
    BuildDemoFolders(doc.m_FolderList, list, &doc);
    return features;
}

std::string FolderViews(const NodeDocument& doc) {
    return CaptureDump([&](FILE* file) { DumpFolderViews(doc.m_FolderList, file); });
}

TEST_F(DocumentTest, TheFolderListComesBackWithItsTree) {
    BuildFolderDocument(m_document);
    auto loaded = Load(Store(m_document));
    ASSERT_TRUE(loaded);
    EXPECT_EQ(FolderViews(*loaded), "Flat list: 6 objects\n"
                                    "   1 F0\n   2 F1\n   3 F2\n   4 F3\n   5 F4\n   6 F5\n"
                                    "Folder tree:\n"
                                    "  F0\n"
                                    "  [Roughing] (id 1)\n"
                                    "    F1\n"
                                    "    [Pockets] (id 2)\n"
                                    "      F2\n"
                                    "      F3\n"
                                    "  [Finishing] (id 3)\n"
                                    "    F4\n"
                                    "  F5\n");
    // The list refers to the loaded document's own nodes, and the folders keep their class and
    // their owner.
    const auto back = Nodes(*loaded);
    CObList flat;
    flat.AddTail(&loaded->m_FolderList.GetObList());
    ASSERT_EQ(flat.GetCount(), 6);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(flat.GetAt(flat.FindIndex(i)), back[static_cast<std::size_t>(i)]);
    OrvBaseFolder* roughing = loaded->m_FolderList.GetParentFolderOfObject(back[1]);
    ASSERT_NE(roughing, nullptr);
    EXPECT_STREQ(roughing->GetRuntimeClass()->m_lpszClassName, "OrvFeaturesFolder");
    EXPECT_EQ(roughing->GetOwner(), loaded.get());
    EXPECT_EQ(back[3]->GetOwner(), loaded.get());
    // A loaded document stores the bytes it was loaded from.
    EXPECT_EQ(Store(*loaded), Store(m_document));
}

TEST_F(DocumentTest, AFolderListThatBringsANodeOfItsOwnIsRefused) {
    auto features = BuildFolderDocument(m_document);
    // A node that the document does not list, written inside the folder list's flat list.
    auto stray = std::make_unique<DocNode>();
    m_document.m_FolderList.AddTail(stray.get());
    const auto bytes = Store(m_document);
    m_document.m_FolderList.Remove(static_cast<OrvObject*>(stray.get()));
    EXPECT_EQ(LoadFails(bytes), CArchiveException::badIndex);
}

// Cut short anywhere, or with any bit flipped, a document with folders loads or fails with an
// archive exception, and whatever the failed load made is freed once.
TEST_F(DocumentTest, DamagedFolderDocumentsFailCleanly) {
    BuildFolderDocument(m_document);
    const auto bytes = Store(m_document);
    ExpectEveryTruncationFails(bytes);
    ExpectFlippedBitsLoadOrFail(bytes, [](NodeDocument& loaded) { FolderViews(loaded); });
}

// A damaged document, found by fuzzing, whose folder list enters itself in a node's user list: the
// list object the load made is gone afterwards, and no node may still point at it.
TEST_F(DocumentTest, NoNodeKeepsTheLoadedFolderListObject) {
    std::ifstream in(ORV_SOURCE_DIR "/tests/objects/data/folder-list-in-a-user-list.doc",
                     std::ios::binary);
    const std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(in),
                                          std::istreambuf_iterator<char>()};
    ASSERT_FALSE(bytes.empty());
    auto loaded = Load(bytes);
    FILE* sink = std::fopen("/dev/null", "w");
    loaded->DumpData(sink); // walks every user list
    std::fclose(sink);
    for (OrvObject* node : Nodes(*loaded)) {
        CObList users;
        node->GetAllUserObjects(&users);
        for (POSITION pos = users.GetHeadPosition(); pos;)
            EXPECT_EQ(dynamic_cast<OrvFolderObList*>(users.GetNext(pos)), nullptr);
    }
}

} // namespace
