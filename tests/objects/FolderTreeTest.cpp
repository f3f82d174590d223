// The operations of the folder tree: deletion and removal of folders, numbering, searches,
// copies and owners.
#include <gtest/gtest.h>

#include "FolderTestTree.h"
#include "objects/OrvFeaturesFolder.h"

namespace {

// A list whose flat order is 0 1 2 ... and whose tree the test builds by moving features into
// folders; the flat order never changes while it does so.
class FolderTree : public ::testing::Test {
protected:
    void SetUp() override {
        CObList initial;
        f.Fill(initial, {0, 1, 2, 3, 4, 5});
        list.Initialize(&initial);
    }

    // Groups `numbers` (neighbours of one level of `parent`) into a new folder `name`.
    template <class Parent>
    OrvBaseFolder* GroupIn(Parent& parent, const wchar_t* name,
                           std::initializer_list<int> numbers) {
        CObList objects;
        f.Fill(objects, numbers);
        OrvBaseFolder* folder = MakeFolder(name).release();
        EXPECT_EQ(1, parent.AddToNewFolder(objects, folder, nullptr));
        return folder;
    }
    OrvBaseFolder* Group(const wchar_t* name, std::initializer_list<int> numbers) {
        return GroupIn(list, name, numbers);
    }

    OrvFolderManager& Tree() { return *list.GetFolderManager(); }

    Features f{8};
    OrvFolderObList list;
};

TEST_F(FolderTree, DeleteFolderPutsTheChildrenInItsPlace) {
    OrvBaseFolder* first = Group(L"F", {0, 1});
    EXPECT_EQ("[F: 0 1] 2 3 4 5", DescribeTree(list));
    EXPECT_EQ(1, list.DeleteFolderObject(first));
    EXPECT_EQ("0 1 2 3 4 5", DescribeTree(list));
    EXPECT_EQ("0 1 2 3 4 5", DescribeFlat(list));

    OrvBaseFolder* outer = Group(L"G", {1, 2, 3});
    OrvBaseFolder* nested = GroupIn(*outer, L"H", {1, 2});
    EXPECT_EQ("0 [G: [H: 1 2] 3] 4 5", DescribeTree(list));
    EXPECT_EQ(1, list.DeleteFolderObject(nested));
    EXPECT_EQ("0 [G: 1 2 3] 4 5", DescribeTree(list));
    auto stranger = MakeFolder(L"X");
    EXPECT_EQ(0, list.DeleteFolderObject(stranger.get()));
    EXPECT_EQ(0, list.DeleteFolderObject(nullptr));
}

TEST_F(FolderTree, DeleteFolderHoistsSubFoldersNotTheirContents) {
    OrvBaseFolder* outer = Group(L"F", {1, 2, 3});
    GroupIn(*outer, L"G", {2});
    ASSERT_EQ("0 [F: 1 [G: 2] 3] 4 5", DescribeTree(list));
    const int live = CountedFolder::s_live;
    EXPECT_EQ(1, Tree().DeleteFolder(outer));
    EXPECT_EQ(live - 1, CountedFolder::s_live);
    EXPECT_EQ("0 1 [G: 2] 3 4 5", DescribeTree(list));
}

TEST_F(FolderTree, AFolderNextToNoObjectGoesToTheHeadOfTheLevel) {
    EXPECT_EQ(1, Tree().InsertFolderBeforeObject(MakeFolder(L"A").release(), nullptr));
    EXPECT_EQ(1, Tree().InsertFolderAfterObject(MakeFolder(L"B").release(), nullptr));
    OrvBaseFolder* group = Group(L"F", {3, 4});
    EXPECT_EQ(1, group->InsertFolderAfterObject(MakeFolder(L"C").release(), nullptr));
    EXPECT_EQ(1, group->InsertFolderBeforeObject(MakeFolder(L"D").release(), nullptr));
    EXPECT_EQ("[B:] [A:] 0 1 2 [F: [D:] [C:] 3 4] 5", DescribeTree(list));
    auto stranger = MakeFolder(L"X");
    EXPECT_EQ(0, Tree().InsertFolderAfterObject(stranger.get(), f[7]));
    EXPECT_EQ(0, Tree().InsertFolderAfterObject(nullptr, f[1]));
}

TEST_F(FolderTree, RemoveEmptyFoldersCountsOnlyPlainObjects) {
    OrvBaseFolder* outer = Group(L"F", {1});
    ASSERT_EQ(1, outer->CreateNewFolder(f[1], MakeFolder(L"G").release(), nullptr));
    list.Remove(static_cast<OrvObject*>(f[1]));
    ASSERT_EQ("0 [F: [G:]] 2 3 4 5", DescribeTree(list));
    ASSERT_EQ(1, Tree().CreateNewFolder(f[3], MakeFolder(L"H").release(), nullptr));
    Group(L"K", {4});
    EXPECT_TRUE(outer->IsEmpty());
    EXPECT_EQ(0, list.RemoveEmptyFolders());
    EXPECT_EQ("0 2 3 [K: 4] 5", DescribeTree(list));

    OrvFolderManager empty;
    empty.CreateNewFolder(nullptr, MakeFolder(L"A").release(), nullptr);
    EXPECT_EQ(0, empty.IsAnyObjectPresnentInBetween(nullptr, f[0]));
    empty.InsertFolderInFolderObject(MakeFolder(L"B").release(),
                                     static_cast<OrvBaseFolder*>(empty.TopLevel().GetHead()), 0);
    EXPECT_EQ("[A: [B:]]", Describe(empty.TopLevel()));
    EXPECT_EQ(1, empty.RemoveEmptyFolders());
    EXPECT_EQ("", Describe(empty.TopLevel()));
}

TEST_F(FolderTree, FolderIdsArePreOrder) {
    OrvBaseFolder* first = Group(L"A", {0, 1});
    OrvBaseFolder* second = Group(L"C", {3});
    OrvBaseFolder* sub = GroupIn(*first, L"B", {1});
    EXPECT_EQ(-1, first->GetFolderId());
    EXPECT_EQ(-1, first->GetSequenceNo());
    EXPECT_EQ(-1, first->GetParentFolderId());
    list.GenerateFolderIds();
    EXPECT_EQ(1, first->GetFolderId());
    EXPECT_EQ(2, sub->GetFolderId());
    EXPECT_EQ(3, second->GetFolderId());
    EXPECT_EQ(-1, sub->GetParentFolderId());
    EXPECT_EQ(sub, first->GetSubFolder(2));
    EXPECT_EQ(nullptr, first->GetSubFolder(3));

    // Append goes by these numbers, into the folder that has it however deep.
    list.Append(f[6], 2);
    list.Append(f[7], 99);
    EXPECT_EQ("[A: 0 [B: 1 6]] 2 [C: 3] 4 5 7", DescribeTree(list));
    EXPECT_EQ("0 1 2 3 4 5 6 7", DescribeFlat(list));
    list.AddNewFolder(MakeFolder(L"D").release(), nullptr, 3);
    EXPECT_EQ("[A: 0 [B: 1 6]] 2 [C: 3 [D:]] 4 5 7", DescribeTree(list));
}

TEST_F(FolderTree, ParentFolderIsNullAtTheTopAndNowhere) {
    OrvBaseFolder* outer = Group(L"F", {1, 2});
    OrvBaseFolder* nested = GroupIn(*outer, L"G", {2});
    EXPECT_EQ(nullptr, list.GetParentFolderOfObject(f[0]));
    EXPECT_EQ(nullptr, list.GetParentFolderOfObject(f[7]));
    EXPECT_EQ(nullptr, list.GetParentFolderOfObject(nullptr));
    EXPECT_EQ(outer, list.GetParentFolderOfObject(f[1]));
    EXPECT_EQ(nested, list.GetParentFolderOfObject(f[2]));
    EXPECT_EQ(outer, list.GetParentFolderOfObject(nested));
    EXPECT_EQ(1, outer->Contains(f[2]));
    EXPECT_EQ(0, outer->Contains(f[0]));
    CObList direct;
    outer->GetChilds(direct);
    EXPECT_EQ("1 [G: 2]", Describe(direct));
}

TEST_F(FolderTree, ObjectsBetweenAFolderAndAnObject) {
    OrvBaseFolder* empty = MakeFolder(L"E").release();
    ASSERT_EQ(1, Tree().CreateNewFolder(f[1], empty, nullptr));
    OrvBaseFolder* full = Group(L"F", {3});
    ASSERT_EQ("0 [E:] 1 2 [F: 3] 4 5", DescribeTree(list));
    EXPECT_EQ(0, list.IsAnyObjectPresnentInBetween(empty, f[1]));
    EXPECT_EQ(0, list.IsAnyObjectPresnentInBetween(empty, f[0]));
    EXPECT_EQ(1, list.IsAnyObjectPresnentInBetween(empty, f[2]));
    EXPECT_EQ(1, list.IsAnyObjectPresnentInBetween(full, f[4]));
    EXPECT_EQ(0, list.IsAnyObjectPresnentInBetween(full, static_cast<OrvObject*>(nullptr)));

    EXPECT_EQ(1, list.IsAnyObjectPresnentInBetween(empty, full));
    EXPECT_EQ(1, list.IsAnyObjectPresnentInBetween(full, empty));
    ASSERT_EQ(1, list.RemoveFolder(empty));
    ASSERT_EQ(1, list.InsertObjectAfterFolder(empty, full));
    ASSERT_EQ(1, Tree().RemoveObject(f[1]));
    ASSERT_EQ(1, Tree().RemoveObject(f[2]));
    ASSERT_EQ("0 [F: 3] [E:] 4 5", DescribeTree(list));
    // The second folder's content does not lie between, the first folder's does.
    EXPECT_EQ(0, list.IsAnyObjectPresnentInBetween(empty, full));
    EXPECT_EQ(1, list.IsAnyObjectPresnentInBetween(full, empty));
    EXPECT_EQ(0, list.IsAnyObjectPresnentInBetween(full, static_cast<OrvBaseFolder*>(nullptr)));
}

TEST_F(FolderTree, SetOwnerReachesEveryFolderAndObjectButTheManager) {
    OrvBaseFolder* outer = Group(L"F", {1, 2});
    OrvBaseFolder* nested = GroupIn(*outer, L"G", {2});
    list.SetOwner(f[7]);
    for (int number : {0, 1, 2, 5})
        EXPECT_EQ(f[7], f[number]->GetOwner()) << number;
    EXPECT_EQ(f[7], outer->GetOwner());
    EXPECT_EQ(f[7], nested->GetOwner());
    EXPECT_EQ(nullptr, Tree().GetOwner());
    EXPECT_EQ(nullptr, list.GetOwner());
}

TEST_F(FolderTree, AddToNewFolderActsInTheLevelOfTheHead) {
    OrvBaseFolder* outer = Group(L"F", {1, 2, 3});
    CObList inner;
    f.Fill(inner, {2, 3});
    ASSERT_EQ(1, list.AddToNewFolder(inner, nullptr, f[6]));
    EXPECT_EQ("0 [F: 1 [: 2 3]] 4 5", DescribeTree(list));
    OrvBaseFolder* made = list.GetParentFolderOfObject(f[2]);
    ASSERT_NE(nullptr, made);
    EXPECT_EQ(RUNTIME_CLASS(OrvBaseFolder), made->GetRuntimeClass());
    EXPECT_EQ(outer, list.GetParentFolderOfObject(made));
    EXPECT_EQ(f[6], made->GetOwner());

    CObList none;
    EXPECT_EQ(0, list.AddToNewFolder(none, nullptr, nullptr));
    none.AddTail(static_cast<CObject*>(nullptr));
    EXPECT_EQ(0, list.AddToNewFolder(none, nullptr, nullptr));
    CObList absent;
    f.Fill(absent, {7});
    EXPECT_EQ(0, list.AddToNewFolder(absent, nullptr, nullptr));
    EXPECT_EQ("0 [F: 1 [: 2 3]] 4 5", DescribeTree(list));
}

TEST_F(FolderTree, CreateNewFolderAppendsOnlyAtTheManager) {
    auto kept = MakeFolder(L"K");
    OrvBaseFolder* outer = Group(L"F", {1});
    EXPECT_EQ(0, outer->CreateNewFolder(f[7], kept.get(), nullptr));
    EXPECT_EQ(1, list.CreateNewFolder(f[7], kept.release(), nullptr));
    EXPECT_EQ(1, list.CreateNewFolder(f[1], MakeFolder(L"G").release(), nullptr));
    EXPECT_EQ("0 [F: [G:] 1] 2 3 4 5 [K:]", DescribeTree(list));
    EXPECT_EQ("0 1 2 3 4 5", DescribeFlat(list));
}

TEST_F(FolderTree, CopyIsShallowAndCloneFolderIsDeep) {
    OrvBaseFolder* outer = Group(L"F", {1, 2});
    CObList inner;
    f.Fill(inner, {2});
    auto features = std::make_unique<OrvFeaturesFolder>();
    features->SetName(L"G");
    ASSERT_EQ(1, outer->AddToNewFolder(inner, features.release(), nullptr));
    outer->SetOwner(f[7]);

    OrvFolderObList copy;
    copy.Copy(list);
    EXPECT_EQ(DescribeTree(list), DescribeTree(copy));
    EXPECT_EQ(Entries(list.GetObList()), Entries(copy.GetObList()));
    OrvBaseFolder* copied = copy.GetParentFolderOfObject(f[1]);
    OrvBaseFolder* copiedInner = copy.GetParentFolderOfObject(f[2]);
    ASSERT_NE(nullptr, copied);
    EXPECT_NE(outer, copied);
    EXPECT_EQ(RUNTIME_CLASS(OrvBaseFolder), copied->GetRuntimeClass());
    EXPECT_EQ(RUNTIME_CLASS(OrvBaseFolder), copiedInner->GetRuntimeClass());
    copy.DeleteFolderObject(copied);
    EXPECT_EQ("0 [F: 1 [G: 2]] 3 4 5", DescribeTree(list));
    EXPECT_EQ("0 1 [G: 2] 3 4 5", DescribeTree(copy));

    std::unique_ptr<OrvBaseFolder> clone(outer->CloneFolder());
    EXPECT_TRUE(clone->GetName() == L"F");
    EXPECT_EQ("1 [G: 2]", Describe(clone->Children()));
    EXPECT_EQ(RUNTIME_CLASS(OrvBaseFolder), clone->GetRuntimeClass());
    CObList cloned;
    clone->GetAllChilds(cloned);
    ASSERT_EQ(2, cloned.GetCount());
    EXPECT_NE(f[1], cloned.GetHead());
    EXPECT_NE(f[2], cloned.GetTail());
    OrvBaseFolder* clonedInner = nullptr;
    ASSERT_EQ(1, clone->GetParentFolder(static_cast<OrvObject*>(cloned.GetTail()), clonedInner));
    ASSERT_NE(nullptr, clonedInner);
    EXPECT_NE(copiedInner, clonedInner);
    EXPECT_EQ(f[7], clonedInner->GetOwner());
    EXPECT_EQ(nullptr, clone->GetOwner());
    // The cloned objects are the caller's, and must outlive the folders that hold them.
    clone.reset();
    for (POSITION pos = cloned.GetHeadPosition(); pos;)
        delete cloned.GetNext(pos);
}

TEST(FolderTypes, BothFoldersAnswerTypeZero) {
    OrvBaseFolder base;
    OrvFeaturesFolder features;
    OrvBaseFolder& asBase = features;
    EXPECT_EQ(0, base.GetFolderType());
    EXPECT_EQ(0, asBase.GetFolderType());
    EXPECT_TRUE(features.IsKindOf(RUNTIME_CLASS(OrvBaseFolder)));
}

} // namespace
