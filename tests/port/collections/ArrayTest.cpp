// The growable arrays: sizes, growth, insertion and removal, and the exceptions for misuse.
#include <vector>

#include <afx.h>
#include <afxtempl.h>
#include <gtest/gtest.h>

#include "support/ArchiveRoundTrip.h"

namespace {

std::vector<int> Contents(const CArray<int, int>& array) {
    std::vector<int> out;
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
        out.push_back(array[i]);
    return out;
}

} // namespace

TEST(CArrayTest, EmptyArrayHasNoDataAndUpperBoundMinusOne) {
    CArray<int, int> array;
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.GetSize(), 0);
    EXPECT_EQ(array.GetCount(), 0);
    EXPECT_EQ(array.GetUpperBound(), -1);
    EXPECT_EQ(array.GetData(), nullptr);
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { array.GetAt(0); }));
}

TEST(CArrayTest, AddAnswersIndexesAndGrowthKeepsValues) {
    CArray<int, int> array;
    for (int i = 0; i < 1000; ++i)
        EXPECT_EQ(array.Add(i * 3), i);
    EXPECT_EQ(array.GetUpperBound(), 999);
    EXPECT_EQ(array[0], 0);
    EXPECT_EQ(array.GetAt(500), 1500);
    EXPECT_EQ(array.GetData()[999], 2997);
    array.FreeExtra();
    EXPECT_EQ(array.ElementAt(999), 2997);
}

TEST(CArrayTest, SetSizeZeroFillsAndShrinks) {
    CArray<int, int> array;
    array.SetSize(3, 16);
    EXPECT_EQ(Contents(array), (std::vector<int>{0, 0, 0}));
    array[1] = 7;
    array.SetSize(5);
    EXPECT_EQ(Contents(array), (std::vector<int>{0, 7, 0, 0, 0}));
    array.SetSize(2);
    EXPECT_EQ(Contents(array), (std::vector<int>{0, 7}));
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { array.SetSize(-1); }));
    EXPECT_EQ(array.GetSize(), 2);
}

TEST(CArrayTest, SetAtGrowFillsTheGapWithZeros) {
    CArray<int, int> array;
    array.Add(1);
    array.SetAtGrow(4, 5);
    EXPECT_EQ(Contents(array), (std::vector<int>{1, 0, 0, 0, 5}));
    array.SetAtGrow(2, 3);
    EXPECT_EQ(Contents(array), (std::vector<int>{1, 0, 3, 0, 5}));
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { array.SetAtGrow(-1, 0); }));
}

TEST(CArrayTest, InsertAtInsideAndPastTheEnd) {
    CArray<int, int> array;
    array.Add(1);
    array.Add(4);
    array.InsertAt(1, 2, 2);
    EXPECT_EQ(Contents(array), (std::vector<int>{1, 2, 2, 4}));
    array.InsertAt(0, 0);
    EXPECT_EQ(Contents(array), (std::vector<int>{0, 1, 2, 2, 4}));
    // Past the end: the array grows to the index, then takes the copies.
    array.InsertAt(7, 9, 2);
    EXPECT_EQ(Contents(array), (std::vector<int>{0, 1, 2, 2, 4, 0, 0, 9, 9}));
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { array.InsertAt(-1, 0); }));
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { array.InsertAt(0, 0, 0); }));
}

TEST(CArrayTest, InsertAtWithAnElementOfTheSameArray) {
    CArray<int, const int&> array;
    for (int i = 0; i < 4; ++i)
        array.Add(i + 10);
    // The argument refers into the array, which moves when it grows.
    array.InsertAt(0, array[3], 100);
    EXPECT_EQ(array[0], 13);
    EXPECT_EQ(array[99], 13);
    EXPECT_EQ(array[100], 10);
    array.SetAtGrow(500, array[103]);
    EXPECT_EQ(array[500], 13);
}

TEST(CArrayTest, InsertAnotherArrayAndAppendAndCopy) {
    CArray<int, int> array;
    CArray<int, int> other;
    array.Add(1);
    array.Add(5);
    other.Add(2);
    other.Add(3);
    array.InsertAt(1, &other);
    EXPECT_EQ(Contents(array), (std::vector<int>{1, 2, 3, 5}));
    array.InsertAt(1, &array);
    EXPECT_EQ(Contents(array), (std::vector<int>{1, 1, 2, 3, 5, 2, 3, 5}));
    EXPECT_EQ(other.Append(array), 2);
    EXPECT_EQ(other.GetSize(), 10);
    EXPECT_EQ(other[9], 5);
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { other.Append(other); }));
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { other.InsertAt(0, nullptr); }));
    other.Copy(array);
    EXPECT_EQ(Contents(other), Contents(array));
    other.Copy(other);
    EXPECT_EQ(Contents(other), Contents(array));
}

TEST(CArrayTest, RemoveAtChecksTheWholeRange) {
    CArray<int, int> array;
    for (int i = 0; i < 6; ++i)
        array.Add(i);
    array.RemoveAt(0);
    array.RemoveAt(4);
    EXPECT_EQ(Contents(array), (std::vector<int>{1, 2, 3, 4}));
    array.RemoveAt(1, 2);
    EXPECT_EQ(Contents(array), (std::vector<int>{1, 4}));
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { array.RemoveAt(2); }));
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { array.RemoveAt(1, 2); }));
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { array.RemoveAt(-1); }));
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { array.RemoveAt(0, -1); }));
    array.RemoveAt(0, 2);
    EXPECT_TRUE(array.IsEmpty());
    array.RemoveAt(0, 0);
}

TEST(CArrayTest, IndexesOutsideTheArrayAreInvalidArguments) {
    CArray<int, int> array;
    array.SetSize(2);
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { array[2]; }));
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { array.SetAt(-1, 0); }));
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { array.ElementAt(5); }));
    const CArray<int, int>& constant = array;
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { constant.GetAt(2); }));
    array.RemoveAll();
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { array.GetAt(0); }));
}

TEST(CStringArrayTest, HoldsStringsAndCopiesThem) {
    CStringArray array;
    array.Add(L"one");
    array.Add(CString(L"two"));
    array.InsertAt(1, L"half");
    EXPECT_EQ(array.GetSize(), 3);
    EXPECT_EQ(array[1], L"half");
    CStringArray copy;
    copy.Copy(array);
    array[0] = L"changed";
    EXPECT_EQ(copy[0], L"one");
    EXPECT_STREQ(array.GetRuntimeClass()->m_lpszClassName, "CStringArray");
}

TEST(CObArrayTest, HoldsPointersAndCPtrArrayRefusesArchiving) {
    CStringArray a;
    CObArray array;
    array.Add(&a);
    array.Add(nullptr);
    EXPECT_EQ(array[0], &a);
    EXPECT_EQ(array[1], nullptr);
    CPtrArray pointers;
    pointers.Add(&a);
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    EXPECT_TRUE(ThrowsMfc<CNotSupportedException>([&] { pointers.Serialize(ar); }));
    ar.Abort();
}
