// The edits of OrvFolderObList and their replay on the tree.
#include <gtest/gtest.h>

#include "FolderTestTree.h"
#include "mfc/CException.h"

namespace {

class FolderListEdits : public ::testing::Test {
protected:
    // Flat 0 1 2 3 4; tree 0 [F: 1 2] 3 4.
    void SetUp() override {
        CObList initial;
        f.Fill(initial, {0, 1, 2, 3, 4});
        list.Initialize(&initial);
        CObList grouped;
        f.Fill(grouped, {1, 2});
        folder = MakeFolder(L"F").release();
        ASSERT_EQ(1, list.AddToNewFolder(grouped, folder, nullptr));
        ASSERT_EQ("0 [F: 1 2] 3 4", DescribeTree(list));
    }

    void ExpectInStep() {
        CObList walk;
        list.GetFolderManager()->GetAllChilds(walk);
        EXPECT_EQ(Entries(walk), Entries(list.GetObList()));
    }

    Features f{10};
    OrvFolderObList list;
    OrvBaseFolder* folder = nullptr;
};

TEST_F(FolderListEdits, FlatEditsAreReplayedWhereTheReferenceStands) {
    list.AddHead(f[5]);
    list.AddTail(f[6]);
    EXPECT_NE(nullptr, list.InsertAfter(f[7], f[2]));
    EXPECT_NE(nullptr, list.InsertBefore(f[8], f[1]));
    list.SetAt(f[9], f[2]);
    EXPECT_EQ("5 0 8 1 9 7 3 4 6", DescribeFlat(list));
    EXPECT_EQ("5 0 [F: 8 1 9 7] 3 4 6", DescribeTree(list));
    EXPECT_EQ(1, list.Remove(static_cast<OrvObject*>(f[1])));
    EXPECT_EQ(f[5], list.RemoveHead());
    EXPECT_EQ("0 [F: 8 9 7] 3 4 6", DescribeTree(list));
    ExpectInStep();
}

TEST_F(FolderListEdits, AbsentReferencesChangeNothing) {
    EXPECT_EQ(nullptr, list.InsertAfter(f[7], f[9]));
    EXPECT_EQ(nullptr, list.InsertBefore(f[7], f[9]));
    EXPECT_EQ(0, list.Remove(static_cast<OrvObject*>(f[9])));
    EXPECT_EQ(0, list.Remove(static_cast<CObject*>(f[9])));
    bool refused = false;
    try {
        list.SetAt(f[7], f[9]);
    } catch (CInvalidArgException* e) {
        refused = true;
        e->Delete();
    }
    EXPECT_TRUE(refused);
    EXPECT_EQ("0 1 2 3 4", DescribeFlat(list));
    EXPECT_EQ("0 [F: 1 2] 3 4", DescribeTree(list));
}

TEST_F(FolderListEdits, UpdateIgnoresUnknownActionsAndReferencesNowhere) {
    OrvFolderManager* manager = list.GetFolderManager();
    manager->Update(static_cast<ORV_ENUM_OB_ACTION_TYPE>(7), f[8], f[1]);
    manager->Update(ORV_OB_INSERT_AFTER, f[8], f[9]);
    manager->Update(ORV_OB_INSERT_BEFORE, f[8], f[9]);
    manager->Update(ORV_OB_REPLACE, f[8], f[9]);
    manager->Update(ORV_OB_REMOVE, f[9], f[9]);
    EXPECT_EQ("0 [F: 1 2] 3 4", DescribeTree(list));
}

TEST_F(FolderListEdits, RemoveOfACObjectLooksOnlyAtTheTopLevel) {
    EXPECT_EQ(1, list.Remove(static_cast<CObject*>(f[1])));
    EXPECT_EQ("0 2 3 4", DescribeFlat(list));
    EXPECT_EQ("0 [F: 1 2] 3 4", DescribeTree(list));
    EXPECT_EQ(1, list.Remove(static_cast<CObject*>(f[3])));
    EXPECT_EQ("0 [F: 1 2] 4", DescribeTree(list));
    EXPECT_EQ(1, list.Remove(static_cast<OrvObject*>(f[2])));
    EXPECT_EQ("0 [F: 1] 4", DescribeTree(list));
}

TEST_F(FolderListEdits, AddHeadOfAListTellsTheTreeNothing) {
    CObList more;
    f.Fill(more, {7, 8});
    list.AddHead(&more);
    EXPECT_EQ("7 8 0 1 2 3 4", DescribeFlat(list));
    EXPECT_EQ("0 [F: 1 2] 3 4", DescribeTree(list));
    // AddTail of a list goes entry by entry through the tree.
    list.AddTail(&more);
    EXPECT_EQ("0 [F: 1 2] 3 4 7 8", DescribeTree(list));
}

TEST_F(FolderListEdits, RemoveAllDeletesTheFoldersOnly) {
    const int before = CountedFolder::s_live;
    list.RemoveAll();
    EXPECT_EQ(before - 1, CountedFolder::s_live);
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ("", DescribeTree(list));
    EXPECT_EQ(nullptr, list.RemoveHead());
    EXPECT_EQ(1u, TestFeature::Live().count(f[1]));
}

TEST_F(FolderListEdits, TreeEditsRebuildTheFlatList) {
    ASSERT_EQ(1, list.Remove(static_cast<OrvObject*>(f[4])));
    EXPECT_EQ(1, list.InsertObjectInFolder(f[4], folder, 1));
    EXPECT_EQ("0 4 1 2 3", DescribeFlat(list));
    ASSERT_EQ(1, list.Remove(static_cast<OrvObject*>(f[0])));
    EXPECT_EQ(1, list.InsertObjectAfterFolder(f[0], folder));
    EXPECT_EQ("[F: 4 1 2] 0 3", DescribeTree(list));
    OrvBaseFolder* inner = MakeFolder(L"G").release();
    EXPECT_EQ(1, list.InsertFolderInFolderObject(inner, folder, 0));
    OrvBaseFolder* last = MakeFolder(L"H").release();
    EXPECT_EQ(1, list.InsertFolderAfterObject(last, f[3]));
    ASSERT_EQ(1, list.Remove(static_cast<OrvObject*>(f[3])));
    EXPECT_EQ(1, list.InsertObjectInFolder(f[3], inner, 0));
    EXPECT_EQ("[F: 4 1 2 [G: 3]] 0 [H:]", DescribeTree(list));
    EXPECT_EQ("4 1 2 3 0", DescribeFlat(list));
    ExpectInStep();
}

TEST_F(FolderListEdits, RemoveFolderHandsTheSubtreeToTheCaller) {
    OrvBaseFolder* inner = MakeFolder(L"G").release();
    ASSERT_EQ(1, list.InsertFolderInFolderObject(inner, folder, 0));
    ASSERT_EQ(1, list.Remove(static_cast<OrvObject*>(f[3])));
    ASSERT_EQ(1, list.InsertObjectInFolder(f[3], inner, 0));
    EXPECT_EQ(1, list.RemoveFolder(folder));
    std::unique_ptr<OrvBaseFolder> owned(folder);
    EXPECT_EQ("0 4", DescribeFlat(list));
    EXPECT_EQ("0 4", DescribeTree(list));
    EXPECT_EQ("1 2 [G: 3]", Describe(owned->Children()));
    EXPECT_EQ(0, list.RemoveFolder(nullptr));
}

TEST_F(FolderListEdits, FoldersAlreadyInTheTreeAreNotPlacedTwice) {
    OrvFolderManager* manager = list.GetFolderManager();
    EXPECT_EQ(0, manager->InsertFolderAfterObject(folder, f[4]));
    EXPECT_EQ(0, manager->InsertFolderInFolderObject(folder, folder, 0));
    EXPECT_EQ(0, manager->CreateNewFolder(f[3], folder, nullptr));
    // A detached folder cannot be hung below itself either.
    ASSERT_EQ(1, manager->RemoveFolder(folder));
    std::unique_ptr<OrvBaseFolder> owned(folder);
    EXPECT_EQ(0, owned->InsertFolderInFolderObject(owned.get(), owned.get(), 0));
    EXPECT_EQ(0, manager->CreateNewFolder(f[1], owned.get(), nullptr));
    EXPECT_EQ("0 3 4", DescribeTree(list));
}

TEST(FolderListWithoutTree, BehavesAsAPlainList) {
    Features f(4);
    CObList initial;
    f.Fill(initial, {0, 1});
    OrvFolderObList list(initial);
    EXPECT_EQ(nullptr, list.GetFolderManager());
    list.AddTail(f[2]);
    list.InsertBefore(f[3], f[0]);
    EXPECT_EQ("3 0 1 2", DescribeFlat(list));
    auto folder = MakeFolder(L"F");
    EXPECT_EQ(1, list.InsertObjectInFolder(f[0], folder.get(), 0));
    EXPECT_EQ(1, list.InsertFolderAfterObject(folder.get(), f[0]));
    EXPECT_EQ(0, list.RemoveEmptyFolders());
    EXPECT_EQ(0, list.IsAnyObjectPresnentInBetween(folder.get(), f[0]));
    EXPECT_EQ(0, list.CreateNewFolder(f[0], folder.get(), nullptr));
    EXPECT_TRUE(folder->Children().IsEmpty());
    EXPECT_EQ("3 0 1 2", DescribeFlat(list));
    list.SetOwner(f[3]);
    EXPECT_EQ(f[3], f[1]->GetOwner());
    EXPECT_EQ(f[3], f[3]->GetOwner());
}

TEST(FolderListInitialize, ReplacesTheTreeAndItsFolders) {
    Features f(3);
    CObList initial;
    f.Fill(initial, {0, 1});
    OrvFolderObList list;
    list.Initialize(&initial);
    ASSERT_EQ(1, list.CreateNewFolder(f[1], MakeFolder(L"F").release(), nullptr));
    const int live = CountedFolder::s_live;
    CObList next;
    f.Fill(next, {2, 0});
    list.Initialize(&next);
    EXPECT_EQ(live - 1, CountedFolder::s_live);
    EXPECT_EQ("2 0", DescribeTree(list));
    EXPECT_EQ("2 0", DescribeFlat(list));
    list.Initialize();
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ("", DescribeTree(list));
}

} // namespace
