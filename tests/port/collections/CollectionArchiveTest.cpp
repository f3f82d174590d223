// The archive forms of the collections, checked against bytes written out by hand from the MFC
// format: counts, the object protocol inside lists, raw and string elements.
#include <afx.h>
#include <afxtempl.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include "TestNode.h"
#include "support/ArchiveBytes.h"
#include "support/ArchiveRoundTrip.h"

namespace {

class CollectionArchiveTest : public ::testing::Test {
protected:
    void TearDown() override { CNode::DeleteAll(); }
};

// The fields of a CNode that follow its class or class tag: int, wide string.
void NodeFields(ArchiveBytes& out, int value, const std::wstring& name) {
    out.Int(value).String(name);
}

} // namespace

TEST_F(CollectionArchiveTest, ObListWritesASharedObjectOnceThenItsIndex) {
    CNode* shared = new CNode(9, L"s");
    CNode* a = new CNode(1, L"a", shared);
    CNode* b = new CNode(2, L"b", shared);
    CNode* c = new CNode(3, L"c", a);
    CObList list;
    list.AddTail(a);
    list.AddTail(b);
    list.AddTail(c);

    ArchiveBytes expected;
    expected.Word(3);              // count
    expected.NewClass("CNode", 1); // class -> index 1
    NodeFields(expected, 1, L"a"); // a -> index 2
    expected.Word(0x8001);         // a's reference: a new CNode (class index 1)
    NodeFields(expected, 9, L"s"); // shared -> index 3
    expected.Word(0x0000);         // shared's reference: null
    expected.Word(0x8001);         // b: a new CNode -> index 4
    NodeFields(expected, 2, L"b");
    expected.Word(0x0003); // b's reference: shared, already index 3
    expected.Word(0x8001); // c -> index 5
    NodeFields(expected, 3, L"c");
    expected.Word(0x0002); // c's reference: a, index 2

    EXPECT_EQ(StoreBytes([&](CArchive& ar) { list.Serialize(ar); }), expected.bytes());

    CObList loaded;
    EXPECT_EQ(LoadBytes(expected.bytes(), [&](CArchive& ar) { loaded.Serialize(ar); }), 0u);
    ASSERT_EQ(loaded.GetCount(), 3);
    auto* la = dynamic_cast<CNode*>(loaded.GetAt(loaded.FindIndex(0)));
    auto* lb = dynamic_cast<CNode*>(loaded.GetAt(loaded.FindIndex(1)));
    auto* lc = dynamic_cast<CNode*>(loaded.GetAt(loaded.FindIndex(2)));
    ASSERT_TRUE(la && lb && lc);
    EXPECT_EQ(la->m_name, L"a");
    EXPECT_EQ(lc->m_value, 3);
    EXPECT_EQ(la->m_next, lb->m_next);
    EXPECT_EQ(lc->m_next, la);
    auto* ls = dynamic_cast<CNode*>(la->m_next);
    ASSERT_TRUE(ls);
    EXPECT_EQ(ls->m_name, L"s");
    EXPECT_EQ(ls->m_next, nullptr);
}

TEST_F(CollectionArchiveTest, ObListBackReferencesPastTheSmallIndexRange) {
    // A chain of 33000 nodes, each referring to the one before: from index 0x7FFF on, a
    // reference is 0x7FFF and a 32-bit index.
    constexpr int kCount = 33000;
    CObList list;
    CNode* previous = nullptr;
    for (int i = 0; i < kCount; ++i) {
        previous = new CNode(i, L"", previous);
        list.AddTail(previous);
    }
    ArchiveBytes expected;
    expected.Word(kCount);
    for (int i = 0; i < kCount; ++i) {
        if (i == 0)
            expected.NewClass("CNode", 1);
        else
            expected.Word(0x8001);
        NodeFields(expected, i, L"");
        // Node i has index i + 2; the node before it, i + 1.
        const unsigned before = static_cast<unsigned>(i + 1);
        if (i == 0) {
            expected.Word(0);
        } else if (before < 0x7FFF) {
            expected.Word(before);
        } else {
            expected.Word(0x7FFF);
            expected.Dword(before);
        }
    }
    const Bytes stored = StoreBytes([&](CArchive& ar) { list.Serialize(ar); });
    ASSERT_EQ(stored.size(), expected.bytes().size());
    EXPECT_TRUE(stored == expected.bytes());

    CNode::DeleteAll();
    CObList loaded;
    EXPECT_EQ(LoadBytes(expected.bytes(), [&](CArchive& ar) { loaded.Serialize(ar); }), 0u);
    ASSERT_EQ(loaded.GetCount(), kCount);
    CObject* before = nullptr;
    for (POSITION pos = loaded.GetHeadPosition(); pos;) {
        auto* node = static_cast<CNode*>(loaded.GetNext(pos));
        ASSERT_EQ(node->m_next, before);
        before = node;
    }
}

TEST_F(CollectionArchiveTest, TruncatedObListEndsInEndOfFileAndLeaksNothing) {
    CNode* a = new CNode(1, L"a", new CNode(2, L"b"));
    CObList list;
    list.AddTail(a);
    list.AddTail(a);
    Bytes bytes = StoreBytes([&](CArchive& ar) { list.Serialize(ar); });
    CNode::DeleteAll();
    // Cut inside the second node's string, then claim more elements than there are.
    for (std::size_t cut : {bytes.size() - 3, std::size_t{5}}) {
        CObList loaded;
        Bytes part(bytes.begin(), bytes.begin() + static_cast<long>(cut));
        EXPECT_EQ(
            ArchiveCause([&] { LoadBytes(part, [&](CArchive& ar) { loaded.Serialize(ar); }); }),
            CArchiveException::endOfFile);
        CNode::DeleteAll();
    }
    Bytes more = bytes;
    more[0] = 3;
    CObList loaded;
    EXPECT_EQ(ArchiveCause([&] { LoadBytes(more, [&](CArchive& ar) { loaded.Serialize(ar); }); }),
              CArchiveException::endOfFile);
    EXPECT_EQ(loaded.GetCount(), 2);
}

TEST_F(CollectionArchiveTest, ObArrayWithNullsAndRepeats) {
    CNode* a = new CNode(7, L"x");
    CObArray array;
    array.Add(a);
    array.Add(nullptr);
    array.Add(a);
    ArchiveBytes expected;
    expected.Word(3);
    expected.NewClass("CNode", 1);
    NodeFields(expected, 7, L"x");
    expected.Word(0); // a's reference
    expected.Word(0); // the null element
    expected.Word(2); // a again
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { array.Serialize(ar); }), expected.bytes());
    CObArray loaded;
    loaded.Add(nullptr); // replaced by the load
    EXPECT_EQ(LoadBytes(expected.bytes(), [&](CArchive& ar) { loaded.Serialize(ar); }), 0u);
    ASSERT_EQ(loaded.GetSize(), 3);
    EXPECT_EQ(loaded[1], nullptr);
    EXPECT_EQ(loaded[0], loaded[2]);
    EXPECT_EQ(static_cast<CNode*>(loaded[0])->m_name, L"x");
}

TEST_F(CollectionArchiveTest, IntArrayIsRawLittleEndian) {
    CArray<int, int> array;
    array.Add(1);
    array.Add(-2);
    array.Add(0x01020304);
    const Bytes expected{0x03, 0x00, 0x01, 0x00, 0x00, 0x00, 0xFE,
                         0xFF, 0xFF, 0xFF, 0x04, 0x03, 0x02, 0x01};
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { array.Serialize(ar); }), expected);
    CArray<int, int> loaded;
    loaded.Add(99);
    EXPECT_EQ(LoadBytes(expected, [&](CArchive& ar) { loaded.Serialize(ar); }), 0u);
    ASSERT_EQ(loaded.GetSize(), 3);
    EXPECT_EQ(loaded[0], 1);
    EXPECT_EQ(loaded[1], -2);
    EXPECT_EQ(loaded[2], 0x01020304);
}

TEST_F(CollectionArchiveTest, LargeCountsUseTheLongForm) {
    // 70000 elements: count 0xFFFF then the DWORD 70000 (0x00011170).
    CArray<BYTE, BYTE> array;
    array.SetSize(70000);
    array[69999] = 0xAB;
    const Bytes stored = StoreBytes([&](CArchive& ar) { array.Serialize(ar); });
    ASSERT_EQ(stored.size(), 6u + 70000u);
    EXPECT_EQ(Bytes(stored.begin(), stored.begin() + 6),
              (Bytes{0xFF, 0xFF, 0x70, 0x11, 0x01, 0x00}));
    EXPECT_EQ(stored.back(), 0xAB);
    CArray<BYTE, BYTE> loaded;
    EXPECT_EQ(LoadBytes(stored, [&](CArchive& ar) { loaded.Serialize(ar); }), 0u);
    EXPECT_EQ(loaded.GetSize(), 70000);
    EXPECT_EQ(loaded[69999], 0xAB);
}

TEST_F(CollectionArchiveTest, ArrayCountBeyondTheDataIsEndOfFile) {
    // Claims 0x7FFFFFFF ints but holds two.
    const Bytes bytes{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F, 1, 0, 0, 0, 2, 0, 0, 0};
    CArray<int, int> loaded;
    EXPECT_EQ(ArchiveCause([&] { LoadBytes(bytes, [&](CArchive& ar) { loaded.Serialize(ar); }); }),
              CArchiveException::endOfFile);
    CStringArray strings;
    EXPECT_EQ(ArchiveCause([&] { LoadBytes(bytes, [&](CArchive& ar) { strings.Serialize(ar); }); }),
              CArchiveException::endOfFile);
}

TEST_F(CollectionArchiveTest, StringArrayAndStringListAreCountThenStrings) {
    ArchiveBytes expected;
    expected.Word(2);
    expected.String(L"ab");
    expected.String(L"");
    EXPECT_EQ(expected.bytes(), (Bytes{0x02, 0x00, 0xFF, 0xFE, 0xFF, 0x02, 0x61, 0x00, 0x62, 0x00,
                                       0xFF, 0xFE, 0xFF, 0x00}));

    CArray<CString, const CString&> array;
    CStringArray stringArray;
    CStringList list;
    for (const wchar_t* text : {L"ab", L""}) {
        array.Add(text);
        stringArray.Add(text);
        list.AddTail(text);
    }
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { array.Serialize(ar); }), expected.bytes());
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { stringArray.Serialize(ar); }), expected.bytes());
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { list.Serialize(ar); }), expected.bytes());

    CStringList loadedList;
    EXPECT_EQ(LoadBytes(expected.bytes(), [&](CArchive& ar) { loadedList.Serialize(ar); }), 0u);
    ASSERT_EQ(loadedList.GetCount(), 2);
    EXPECT_EQ(loadedList.GetHead(), L"ab");
    EXPECT_TRUE(loadedList.GetTail().IsEmpty());
    CStringArray loadedArray;
    EXPECT_EQ(LoadBytes(expected.bytes(), [&](CArchive& ar) { loadedArray.Serialize(ar); }), 0u);
    ASSERT_EQ(loadedArray.GetSize(), 2);
    EXPECT_EQ(loadedArray[0], L"ab");
}

TEST_F(CollectionArchiveTest, TemplateListOfPointsIsRawStructures) {
    CList<CPoint, CPoint> list;
    list.AddTail(CPoint(1, -1));
    list.AddTail(CPoint(0x100, 2));
    const Bytes expected{0x02, 0x00, 0x01, 0x00, 0x00, 0x00, 0xFF, 0xFF, 0xFF,
                         0xFF, 0x00, 0x01, 0x00, 0x00, 0x02, 0x00, 0x00, 0x00};
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { list.Serialize(ar); }), expected);
    CList<CPoint, CPoint> loaded;
    EXPECT_EQ(LoadBytes(expected, [&](CArchive& ar) { loaded.Serialize(ar); }), 0u);
    ASSERT_EQ(loaded.GetCount(), 2);
    EXPECT_EQ(loaded.GetTail(), CPoint(0x100, 2));
}

TEST_F(CollectionArchiveTest, MapWritesBucketsInOrder) {
    // 17 buckets: key 1 hashes to 16807 (bucket 16807 % 17 = 11), key 2 to 33614 (bucket 5).
    CMap<int, int, int, int> map;
    map[1] = 10;
    map[2] = 20;
    const Bytes expected{0x02, 0x00, 0x02, 0x00, 0x00, 0x00, 0x14, 0x00, 0x00,
                         0x00, 0x01, 0x00, 0x00, 0x00, 0x0A, 0x00, 0x00, 0x00};
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { map.Serialize(ar); }), expected);
    CMap<int, int, int, int> loaded;
    EXPECT_EQ(LoadBytes(expected, [&](CArchive& ar) { loaded.Serialize(ar); }), 0u);
    int value = 0;
    EXPECT_TRUE(loaded.Lookup(1, value));
    EXPECT_EQ(value, 10);
    EXPECT_TRUE(loaded.Lookup(2, value));
    EXPECT_EQ(value, 20);
    EXPECT_EQ(loaded.GetCount(), 2);
}

// A type with its own archive form, chosen by specialising SerializeElements.
struct Tagged {
    int value = 0;
};
template <> void SerializeElements<Tagged>(CArchive& ar, Tagged* elements, INT_PTR count) {
    for (INT_PTR i = 0; i < count; ++i) {
        if (ar.IsStoring())
            ar << static_cast<BYTE>(elements[i].value);
        else {
            BYTE b = 0;
            ar >> b;
            elements[i].value = b;
        }
    }
}

TEST_F(CollectionArchiveTest, SerializeElementsCanBeSpecialised) {
    CArray<Tagged, const Tagged&> array;
    array.Add(Tagged{5});
    array.Add(Tagged{6});
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { array.Serialize(ar); }),
              (Bytes{0x02, 0x00, 0x05, 0x06}));
}
