// Selections against the flat order and the folders: sorting, sequence, same folder, duplicates.
#include <gtest/gtest.h>

#include "FolderTestTree.h"
#include "objects/ObjectSequence.h"

namespace {

class FolderSequence : public ::testing::Test {
protected:
    // Flat 0 1 2 3; tree 0 [F: 1 2] 3.
    void SetUp() override {
        CObList initial;
        f.Fill(initial, {0, 1, 2, 3});
        list.Initialize(&initial);
        CObList grouped;
        f.Fill(grouped, {1, 2});
        ASSERT_EQ(1, list.AddToNewFolder(grouped, MakeFolder(L"F").release(), nullptr));
    }

    // A selection of the given features.
    std::unique_ptr<CObList> Selection(std::initializer_list<int> numbers) {
        auto selection = std::make_unique<CObList>();
        f.Fill(*selection, numbers);
        return selection;
    }

    Features f{8};
    OrvFolderObList list;
};

TEST_F(FolderSequence, SortListFollowsTheOrderAndDropsStrangers) {
    auto selection = Selection({3, 1, 7, 1});
    SortList(*selection, list.GetObList());
    EXPECT_EQ("1 3", Describe(*selection));

    CObList empty;
    auto untouched = Selection({3, 1});
    SortList(*untouched, empty);
    EXPECT_EQ("3 1", Describe(*untouched));
    SortList(empty, list.GetObList());
    EXPECT_TRUE(empty.IsEmpty());
}

TEST_F(FolderSequence, SequenceIsTestedAfterSorting) {
    auto reversed = Selection({1, 0});
    EXPECT_EQ(1, AreObjectsInSequence(*reversed, list.GetObList()));
    EXPECT_EQ("0 1", Describe(*reversed));
    EXPECT_EQ(0, AreObjectsInSequence(*Selection({0, 2}), list.GetObList()));
    EXPECT_EQ(1, AreObjectsInSequence(*Selection({3}), list.GetObList()));
    EXPECT_EQ(1, AreObjectsInSequence(*Selection({3, 2}), list.GetObList()));
    // Nothing of the selection is in the order: it sorts to nothing and runs out at once.
    EXPECT_EQ(1, AreObjectsInSequence(*Selection({7}), list.GetObList()));
}

TEST_F(FolderSequence, SameFolderComparesParentFolders) {
    EXPECT_EQ(1, list.AreObjectsInSameFolder(*Selection({2, 1})));
    EXPECT_EQ(1, list.AreObjectsInSameFolder(*Selection({0, 3})));
    EXPECT_EQ(0, list.AreObjectsInSameFolder(*Selection({0, 1})));
    EXPECT_EQ(1, list.AreObjectsInSameFolder(*Selection({})));
    // An object nowhere has no parent folder, like one at the top level.
    EXPECT_EQ(1, list.AreObjectsInSameFolder(*Selection({7, 0})));

    EXPECT_EQ(1, list.AreObjectsInSequenceAndSameFolder(*Selection({2, 1})));
    EXPECT_EQ(0, list.AreObjectsInSequenceAndSameFolder(*Selection({0, 3})));
    EXPECT_EQ(0, list.AreObjectsInSequenceAndSameFolder(*Selection({0, 1})));
}

TEST_F(FolderSequence, RemoveDuplicatesKeepsTheFirstAndLeavesTheTree) {
    list.AddHead(Selection({1, 0}).get());
    ASSERT_EQ("1 0 0 1 2 3", DescribeFlat(list));
    list.RemoveDuplicates();
    EXPECT_EQ("1 0 2 3", DescribeFlat(list));
    EXPECT_EQ("0 [F: 1 2] 3", DescribeTree(list));
}

} // namespace
