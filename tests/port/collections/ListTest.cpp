// The linked lists: walking, inserting and removing at the ends and in the middle, searching, and
// the exceptions for misuse.
#include <vector>

#include <afx.h>
#include <afxtempl.h>
#include <gtest/gtest.h>

#include "support/ArchiveRoundTrip.h"

namespace {

std::vector<int> Forward(const CList<int, int>& list) {
    std::vector<int> out;
    for (POSITION pos = list.GetHeadPosition(); pos;)
        out.push_back(list.GetNext(pos));
    return out;
}

std::vector<int> Backward(const CList<int, int>& list) {
    std::vector<int> out;
    for (POSITION pos = list.GetTailPosition(); pos;)
        out.push_back(list.GetPrev(pos));
    return out;
}

void ExpectOrder(const CList<int, int>& list, const std::vector<int>& expected) {
    EXPECT_EQ(Forward(list), expected);
    std::vector<int> reversed(expected.rbegin(), expected.rend());
    EXPECT_EQ(Backward(list), reversed);
    EXPECT_EQ(list.GetCount(), static_cast<INT_PTR>(expected.size()));
}

} // namespace

TEST(CListTest, EmptyListHasNoPositionsAndRefusesHeadAndTail) {
    CList<int, int> list;
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(list.GetSize(), 0);
    EXPECT_EQ(list.GetHeadPosition(), nullptr);
    EXPECT_EQ(list.GetTailPosition(), nullptr);
    EXPECT_EQ(list.FindIndex(0), nullptr);
    EXPECT_EQ(list.Find(3), nullptr);
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { list.GetHead(); }));
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { list.GetTail(); }));
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { list.RemoveHead(); }));
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { list.RemoveTail(); }));
}

TEST(CListTest, AddsAtBothEndsAndRemovesThem) {
    CList<int, int> list;
    list.AddTail(2);
    list.AddHead(1);
    list.AddTail(3);
    ExpectOrder(list, {1, 2, 3});
    EXPECT_EQ(list.GetHead(), 1);
    EXPECT_EQ(list.GetTail(), 3);
    EXPECT_EQ(list.RemoveHead(), 1);
    EXPECT_EQ(list.RemoveTail(), 3);
    ExpectOrder(list, {2});
    EXPECT_EQ(list.GetHeadPosition(), list.GetTailPosition());
    EXPECT_EQ(list.RemoveTail(), 2);
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(list.GetHeadPosition(), nullptr);
    // The list is usable again after being emptied.
    list.AddHead(9);
    ExpectOrder(list, {9});
}

TEST(CListTest, RemoveAtHeadMiddleAndTailRelinksNeighbours) {
    CList<int, int> list;
    for (int i = 1; i <= 5; ++i)
        list.AddTail(i);
    list.RemoveAt(list.GetHeadPosition());
    ExpectOrder(list, {2, 3, 4, 5});
    list.RemoveAt(list.GetTailPosition());
    ExpectOrder(list, {2, 3, 4});
    list.RemoveAt(list.FindIndex(1));
    ExpectOrder(list, {2, 4});
    EXPECT_EQ(list.GetHead(), 2);
    EXPECT_EQ(list.GetTail(), 4);
}

TEST(CListTest, InsertBeforeHeadAndAfterTailMoveTheEnds) {
    CList<int, int> list;
    POSITION middle = list.AddTail(5);
    POSITION head = list.InsertBefore(middle, 4);
    EXPECT_EQ(list.GetHeadPosition(), head);
    POSITION tail = list.InsertAfter(middle, 6);
    EXPECT_EQ(list.GetTailPosition(), tail);
    list.InsertBefore(middle, 45);
    list.InsertAfter(middle, 55);
    ExpectOrder(list, {4, 45, 5, 55, 6});
    // A null position means the head for InsertBefore and the tail for InsertAfter.
    list.InsertBefore(nullptr, 0);
    list.InsertAfter(nullptr, 99);
    ExpectOrder(list, {0, 4, 45, 5, 55, 6, 99});
}

TEST(CListTest, FindStartsAfterTheGivenPositionAndFindIndexCountsFromTheHead) {
    CList<int, int> list;
    for (int v : {7, 1, 7, 2, 7})
        list.AddTail(v);
    POSITION first = list.Find(7);
    EXPECT_EQ(first, list.GetHeadPosition());
    POSITION second = list.Find(7, first);
    EXPECT_EQ(second, list.FindIndex(2));
    POSITION third = list.Find(7, second);
    EXPECT_EQ(third, list.GetTailPosition());
    EXPECT_EQ(list.Find(7, third), nullptr);
    EXPECT_EQ(list.Find(3), nullptr);
    // FindIndex counts from the head and stops at the end; SetAt and GetAt reach the element.
    EXPECT_EQ(list.GetAt(list.FindIndex(3)), 2);
    EXPECT_EQ(list.FindIndex(5), nullptr);
    EXPECT_EQ(list.FindIndex(-1), nullptr);
    list.SetAt(first, 11);
    EXPECT_EQ(list.GetHead(), 11);
    list.GetAt(list.GetTailPosition()) = 22;
    EXPECT_EQ(list.GetTail(), 22);
}

TEST(CListTest, StaleForeignAndMadeUpPositionsAreInvalidArguments) {
    CList<int, int> list;
    POSITION removed = list.AddTail(1);
    list.AddTail(2);
    list.RemoveAt(removed);
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { list.GetAt(removed); }));
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { list.RemoveAt(removed); }));
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { list.InsertAfter(removed, 3); }));

    POSITION null = nullptr;
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { list.GetNext(null); }));
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { list.GetAt(nullptr); }));

    CList<int, int> other;
    for (int i = 0; i < 5; ++i)
        other.AddTail(i);
    POSITION foreign = other.GetTailPosition();
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { list.SetAt(foreign, 0); }));
    POSITION madeUp = reinterpret_cast<POSITION>(0x12345678);
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { list.GetPrev(madeUp); }));
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { list.Find(2, madeUp); }));
    ExpectOrder(list, {2});

    list.RemoveAll();
    POSITION gone = other.GetHeadPosition();
    other.RemoveAll();
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { other.GetAt(gone); }));
}

TEST(CListTest, AddingAWholeListKeepsItsOrderEvenIntoItself) {
    CList<int, int> list;
    CList<int, int> more;
    list.AddTail(5);
    for (int v : {1, 2, 3})
        more.AddTail(v);
    list.AddHead(&more);
    ExpectOrder(list, {1, 2, 3, 5});
    list.AddTail(&more);
    ExpectOrder(list, {1, 2, 3, 5, 1, 2, 3});
    CList<int, int> self;
    self.AddTail(1);
    self.AddTail(2);
    self.AddTail(&self);
    ExpectOrder(self, {1, 2, 1, 2});
    self.AddHead(&self);
    ExpectOrder(self, {1, 2, 1, 2, 1, 2, 1, 2});
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { self.AddTail(nullptr); }));
}

TEST(CListTest, RemovedSlotsAreReusedWithoutDisturbingOrder) {
    CList<int, int> list;
    for (int round = 0; round < 3; ++round) {
        for (int i = 0; i < 100; ++i)
            list.AddTail(i);
        for (int i = 0; i < 50; ++i)
            list.RemoveHead();
    }
    // 50..99 after the first round; the second round's removals take those, leaving 0..99; the
    // third's take 0..49 of the second, leaving 50..99 then the third's own 0..99.
    std::vector<int> expected;
    for (int i = 50; i < 100; ++i)
        expected.push_back(i);
    for (int i = 0; i < 100; ++i)
        expected.push_back(i);
    ExpectOrder(list, expected);
}

TEST(CListTest, AnyBlockSizeHoldsLongListsAndStableReferences) {
    // Block sizes below, at and above a power of two, crossing many chunk boundaries.
    for (INT_PTR blockSize : {1, 3, 10, 64, 100000}) {
        CList<int, int> list(blockSize);
        std::vector<int*> addresses;
        std::vector<int> expected;
        for (int i = 0; i < 3000; ++i) {
            addresses.push_back(&list.GetAt(list.AddTail(i)));
            expected.push_back(i);
        }
        for (int i = 0; i < 3000; i += 7)
            *addresses[static_cast<std::size_t>(i)] = -i;
        for (int i = 0; i < 3000; i += 7)
            expected[static_cast<std::size_t>(i)] = -i;
        ExpectOrder(list, expected);
        EXPECT_EQ(list.GetAt(list.FindIndex(2999)), 2999) << blockSize;
    }
}

TEST(CListTest, BlockSizeMustBePositive) {
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([] { CList<int, int> list(0); }));
}

TEST(CStringListTest, FindsByValueAndTakesPlainText) {
    CStringList list;
    list.AddTail(L"alpha");
    list.AddTail(CString(L"beta"));
    list.AddHead(L"zero");
    EXPECT_EQ(list.GetCount(), 3);
    EXPECT_EQ(list.Find(L"beta"), list.GetTailPosition());
    EXPECT_EQ(list.Find(L"Beta"), nullptr);
    CString removed = list.RemoveHead();
    EXPECT_EQ(removed, L"zero");
    EXPECT_EQ(list.GetHead(), L"alpha");
}

TEST(CObListTest, HoldsPointersWithoutOwningThem) {
    CStringList a;
    CStringList b;
    CObList list;
    list.AddTail(&a);
    list.AddTail(&b);
    list.AddTail(&a);
    EXPECT_EQ(list.Find(&a, list.GetHeadPosition()), list.GetTailPosition());
    EXPECT_EQ(list.GetAt(list.FindIndex(1)), &b);
    EXPECT_TRUE(list.IsKindOf(RUNTIME_CLASS(CObList)));
    EXPECT_STREQ(list.GetRuntimeClass()->m_lpszClassName, "CObList");
    list.RemoveAll();
    EXPECT_TRUE(list.IsEmpty());
}

TEST(CPtrListTest, KeepsAddressesAndRefusesToArchiveThem) {
    int x = 0;
    CPtrList list;
    list.AddTail(&x);
    list.AddTail(static_cast<void*>(nullptr));
    EXPECT_EQ(list.GetHead(), &x);
    EXPECT_EQ(list.Find(nullptr), list.GetTailPosition());
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    EXPECT_TRUE(ThrowsMfc<CNotSupportedException>([&] { list.Serialize(ar); }));
    ar.Abort();
}
