// The archive layouts of the folder list, the folder manager and the folders: exact bytes of a
// small tree, a round trip of a large one, and damaged archives.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "ActiveDocumentTest.h"
#include "FolderTestTree.h"
#include "mfc/CException.h"
#include "mfc/CMemFile.h"
#include "objects/OrvFeaturesFolder.h"
#include "objects/OrvSerializeStatus.h"
#include "support/ArchiveBytes.h"
#include "support/ArchiveRoundTrip.h"

namespace {

Bytes Store(const CObject* object) {
    return StoreBytes([&](CArchive& ar) { ar << object; });
}

// Loads a folder list; an archive exception propagates.
std::unique_ptr<OrvFolderObList> Load(const Bytes& bytes) {
    OrvFolderObList* list = nullptr;
    LoadBytes(bytes, [&](CArchive& ar) { ar >> list; });
    return std::unique_ptr<OrvFolderObList>(list);
}

// The fields of a default OrvObject behind its two class tags: no users, four empty strings,
// id 0, state ACTIVE, no owner, empty modifier, status 0, no original owner, no colour, no
// pattern, empty registered name.
ArchiveBytes ObjectFields() {
    ArchiveBytes s;
    s.Word(0).String(L"").String(L"").String(L"").String(L"").Dword(0).Dword(0).Word(0);
    return s.String(L"").Word(0).Word(0).Dword(0xFFFFFFFF).Word(0).String(L"");
}

class FolderArchive : public ActiveDocumentTest {
protected:
    // Deletes the features that a load made and nothing owns.
    void ForgetLoadedFeatures(const std::set<TestFeature*>& before) {
        std::vector<TestFeature*> made;
        for (TestFeature* feature : TestFeature::Live())
            if (!before.count(feature))
                made.push_back(feature);
        for (TestFeature* feature : made)
            delete feature;
    }
};

// The list of one plain object a, whose tree is [F: a].
Bytes SmallTreeBytes(unsigned folderChildTag) {
    ArchiveBytes s;
    s.NewClass("OrvFolderObList", 1).Word(0x8001); // class 1, the list 2
    s.NewClass("OrvObject", 8).NewClass("OrvBaseObject", 2).Append(ObjectFields()); // classes 3, 4
    s.Word(1).Word(0x8003).Word(0x8003).Word(0x8004).Append(ObjectFields());        // a is 5
    s.NewClass("OrvFolderManager", 1).Word(0x8006); // class 6, manager 7
    s.Word(0x8003).Word(0x8004).Append(ObjectFields());
    s.Word(1).NewClass("OrvBaseFolder", 1); // class 8, F is 9
    s.Word(0x8003).Word(0x8004).Append(ObjectFields()).String(L"F");
    s.Word(1).Word(folderChildTag);
    return s.bytes();
}

TEST_F(FolderArchive, SmallTreeHasTheExactBytes) {
    OrvObject a;
    CObList initial;
    initial.AddTail(&a);
    OrvFolderObList list;
    list.Initialize(&initial);
    auto folder = std::make_unique<OrvBaseFolder>();
    folder->SetName(L"F");
    ASSERT_EQ(1, list.AddToNewFolder(initial, folder.release(), nullptr));

    EXPECT_EQ(SmallTreeBytes(0x0005), Store(&list));

    auto loaded = Load(SmallTreeBytes(0x0005));
    ASSERT_EQ(1, loaded->GetCount());
    OrvObject* loadedA = loaded->GetHead();
    OrvBaseFolder* loadedF = loaded->GetParentFolderOfObject(loadedA);
    ASSERT_NE(nullptr, loadedF);
    EXPECT_TRUE(loadedF->GetName() == L"F");
    EXPECT_EQ(-1, loadedF->GetFolderId());
    EXPECT_EQ(1, loaded->GetFolderManager()->TopLevel().GetCount());
    // The plain object outlives the tree that refers to it.
    loaded.reset();
    delete loadedA;
}

// A list without plain objects whose top level holds the folder F (twice when asked) and F's
// children the references `children`.
Bytes FolderOnlyBytes(std::initializer_list<unsigned> children, bool nameFTwice) {
    ArchiveBytes s;
    s.NewClass("OrvFolderObList", 1).Word(0x8001); // class 1, the list 2
    s.NewClass("OrvObject", 8).NewClass("OrvBaseObject", 2).Append(ObjectFields()); // classes 3, 4
    s.Word(0);                                      // empty flat list
    s.NewClass("OrvFolderManager", 1).Word(0x8005); // class 5, manager 6
    s.Word(0x8003).Word(0x8004).Append(ObjectFields());
    s.Word(nameFTwice ? 2 : 1).NewClass("OrvBaseFolder", 1); // class 7, F is 8
    s.Word(0x8003).Word(0x8004).Append(ObjectFields()).String(L"F");
    s.Word(static_cast<unsigned>(children.size()));
    for (unsigned tag : children)
        s.Word(tag);
    if (nameFTwice)
        s.Word(0x0008);
    return s.bytes();
}

int LoadCause(const Bytes& bytes) {
    return ArchiveCause([&] { Load(bytes); });
}

TEST_F(FolderArchive, AFolderThatHoldsItselfOrHasTwoOwnersIsRefused) {
    // The spelling itself loads.
    auto plain = Load(FolderOnlyBytes({}, false));
    EXPECT_EQ("[F:]", DescribeTree(*plain));
    EXPECT_EQ(CArchiveException::badIndex, LoadCause(FolderOnlyBytes({0x0008}, false)));
    EXPECT_EQ(CArchiveException::badIndex, LoadCause(FolderOnlyBytes({}, true)));
}

// The failing load frees G and S each on its own: G must drop its children when its links are
// released, or it frees S once more.
TEST_F(FolderArchive, AFolderTreeLoadedInsideAFailingNodeLoadIsFreedOnce) {
    // The list's owner is a folder G holding a folder S; the file ends right behind them, inside
    // the list's node part.
    ArchiveBytes s;
    s.NewClass("OrvFolderObList", 1).Word(0x8001);
    s.NewClass("OrvObject", 8).NewClass("OrvBaseObject", 2);
    s.Word(0).String(L"").String(L"").String(L"").String(L"").Dword(0).Dword(0);
    s.NewClass("OrvBaseFolder", 1)
        .Word(0x8003)
        .Word(0x8004)
        .Append(ObjectFields())
        .String(L"G"); // G is 6
    s.Word(1).Word(0x8005).Word(0x8003).Word(0x8004).Append(ObjectFields()).String(L"S").Word(0);
    EXPECT_EQ(CArchiveException::endOfFile, LoadCause(s.bytes()));
}

// A tree of features in folders of two classes, several levels deep.
class LargeTree {
public:
    LargeTree(int count, unsigned seed) : m_features(count) {
        std::mt19937 random(seed);
        CObList all;
        for (int number = 0; number < count; ++number)
            all.AddTail(m_features[number]);
        m_list.Initialize(&all);
        // Runs of neighbours go into new folders, again and again, so that folders nest.
        for (int round = 0; round < count / 4; ++round) {
            const auto& top = m_list.GetFolderManager()->TopLevel();
            std::vector<std::pair<const CObList*, CObject*>> entries;
            Gather(top, entries);
            const auto& [level, first] = entries[random() % entries.size()];
            CObList run;
            POSITION pos = level->Find(first);
            for (unsigned length = 1 + random() % 6; pos && length > 0; --length)
                run.AddTail(level->GetNext(pos));
            std::unique_ptr<OrvBaseFolder> folder;
            if (random() % 2)
                folder = std::make_unique<OrvFeaturesFolder>();
            else
                folder = std::make_unique<OrvBaseFolder>();
            folder->SetName(CString(std::to_wstring(round).c_str()));
            if (m_list.AddToNewFolder(run, folder.get(), nullptr))
                folder.release();
        }
        m_list.SetOwner(&m_list);
    }

    static void Gather(const CObList& level,
                       std::vector<std::pair<const CObList*, CObject*>>& entries) {
        for (POSITION pos = level.GetHeadPosition(); pos;) {
            CObject* entry = level.GetNext(pos);
            entries.emplace_back(&level, entry);
            if (auto* folder = DYNAMIC_DOWNCAST(OrvBaseFolder, entry))
                Gather(folder->Children(), entries);
        }
    }

    static int Depth(const CObList& level) {
        int deepest = 0;
        for (POSITION pos = level.GetHeadPosition(); pos;)
            if (auto* folder = DYNAMIC_DOWNCAST(OrvBaseFolder, level.GetNext(pos)))
                deepest = std::max(deepest, 1 + Depth(folder->Children()));
        return deepest;
    }

    // The tree's text with the class of every folder.
    static std::string Classes(const CObList& level) {
        std::string text;
        std::vector<std::pair<const CObList*, CObject*>> entries;
        Gather(level, entries);
        for (const auto& entry : entries)
            if (CObject* object = entry.second; DYNAMIC_DOWNCAST(OrvBaseFolder, object))
                text += object->GetRuntimeClass()->m_lpszClassName[3];
        return text;
    }

    Features m_features;
    OrvFolderObList m_list;
};

TEST_F(FolderArchive, LargeTreeRoundTrips) {
    LargeTree tree(4000, 7);
    const CObList& top = tree.m_list.GetFolderManager()->TopLevel();
    ASSERT_GE(LargeTree::Depth(top), 4);

    const std::set<TestFeature*> before = TestFeature::Live();
    auto loaded = Load(Store(&tree.m_list));
    const CObList& loadedTop = loaded->GetFolderManager()->TopLevel();
    EXPECT_EQ(DescribeTree(tree.m_list), DescribeTree(*loaded));
    EXPECT_EQ(DescribeFlat(tree.m_list), DescribeFlat(*loaded));
    EXPECT_EQ(LargeTree::Classes(top), LargeTree::Classes(loadedTop));
    CObList walk;
    loaded->GetFolderManager()->GetAllChilds(walk);
    EXPECT_EQ(Entries(walk), Entries(loaded->GetObList()));
    // Owners were references to the list itself, and come back as the loaded list.
    std::vector<std::pair<const CObList*, CObject*>> entries;
    LargeTree::Gather(loadedTop, entries);
    int owned = 0;
    for (const auto& entry : entries)
        owned += static_cast<OrvObject*>(entry.second)->GetOwner() == loaded.get();
    EXPECT_EQ(static_cast<int>(entries.size()), owned);
    loaded.reset();
    ForgetLoadedFeatures(before);
}

TEST_F(FolderArchive, EveryTruncationEndsInAnArchiveException) {
    LargeTree tree(12, 3);
    tree.m_list.SetOwner(nullptr);
    const Bytes bytes = Store(&tree.m_list);
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        const std::set<TestFeature*> before = TestFeature::Live();
        bool thrown = false;
        try {
            Load(Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length)));
        } catch (CArchiveException* e) {
            thrown = true;
            e->Delete();
        }
        EXPECT_TRUE(thrown) << length;
        ForgetLoadedFeatures(before);
    }
}

TEST_F(FolderArchive, ATreeThatCannotBeWrittenIsLoggedAndWrittenAsNull) {
    Features f(2);
    CObList initial;
    f.Fill(initial, {0, 1});
    OrvFolderObList list;
    list.Initialize(&initial);
    // CountedFolder is not serialisable: writing the tree fails inside.
    ASSERT_EQ(1, list.CreateNewFolder(f[1], MakeFolder(L"F").release(), nullptr));
    InitialiseSerializationStatus(0);
    const Bytes bytes = Store(&list);
    EXPECT_EQ(0x1001u, GetSerializationStatus());
    // The last reference written is the null one.
    ASSERT_GE(bytes.size(), 2u);
    EXPECT_EQ(0, bytes[bytes.size() - 2]);
    EXPECT_EQ(0, bytes[bytes.size() - 1]);
    InitialiseSerializationStatus(0);
}

} // namespace
