// The free functions over object lists and arrays.
#include <gtest/gtest.h>

#include "objects/ObjectListHelpers.h"
#include "objects/OrvObject.h"

namespace {

// Appends `objects` to `list`, in order.
void Fill(CObList& list, std::initializer_list<CObject*> objects) {
    for (CObject* object : objects)
        list.AddTail(object);
}

// Counts its destructions.
class Counted : public CObject {
public:
    explicit Counted(int* deaths) : m_deaths(deaths) {}
    ~Counted() override { ++*m_deaths; }

private:
    int* m_deaths;
};

TEST(ObjectListHelpers, DeleteAllSkipsNullsAndEmpties) {
    int deaths = 0;
    CObList list;
    Fill(list, {new Counted(&deaths), nullptr, new Counted(&deaths)});
    EXPECT_EQ(DeleteAllElements_CObList(list), 3);
    EXPECT_EQ(deaths, 2);
    EXPECT_TRUE(list.IsEmpty());

    CObArray array;
    array.Add(new Counted(&deaths));
    array.Add(nullptr);
    EXPECT_EQ(DeleteAllElements_CObArray(array), 2);
    EXPECT_EQ(deaths, 3);
    EXPECT_EQ(array.GetSize(), 0);
}

TEST(ObjectListHelpers, IndexAndNullPurge) {
    CObList list;
    OrvObject a, b;
    Fill(list, {&a, nullptr, &b, nullptr});
    EXPECT_EQ(GetIndexOfObject(list, &b), 2);
    EXPECT_EQ(GetIndexOfObject(list, nullptr), 1);
    OrvObject c;
    EXPECT_EQ(GetIndexOfObject(list, &c), -1);
    EXPECT_EQ(PurgeNullNodesFromList(list), 2);
    EXPECT_EQ(list.GetCount(), 2);
    EXPECT_EQ(GetIndexOfObject(list, nullptr), -1);
}

TEST(ObjectListHelpers, ConversionsAppend) {
    OrvObject a, b, c;
    CObArray array;
    array.Add(&a);
    array.Add(&b);
    CObList list;
    list.AddTail(&c);
    EXPECT_EQ(CObArray_To_CObList(array, list), 2);
    ASSERT_EQ(list.GetCount(), 3);
    EXPECT_EQ(list.GetTail(), &b);
    EXPECT_EQ(CObList_To_CObArray(list, array), 3);
    ASSERT_EQ(array.GetSize(), 5);
    EXPECT_EQ(array[2], &c);
}

TEST(ObjectListHelpers, UnionIntoAOrIntoResult) {
    OrvObject x, y, z;
    CObList a, b;
    Fill(a, {&x, &y});
    Fill(b, {&y, &z});
    CObList result;
    EXPECT_EQ(CObList_Union(a, b, &result), 3);
    EXPECT_EQ(a.GetCount(), 2);
    EXPECT_EQ(b.GetCount(), 2);
    EXPECT_EQ(result.GetTail(), &z);
    EXPECT_EQ(CObList_Union(a, b, nullptr), 3);
    EXPECT_EQ(a.GetTail(), &z);
}

TEST(ObjectListHelpers, IntersectionKeepsDuplicatesFoundInB) {
    OrvObject x, y, z;
    CObList a, b;
    Fill(a, {&x, &y, &x, &z});
    b.AddTail(&x);
    CObList result;
    EXPECT_EQ(CObList_Xtion(a, b, &result), 2);
    EXPECT_EQ(a.GetCount(), 4);
    EXPECT_EQ(result.GetHead(), &x);
    EXPECT_EQ(result.GetTail(), &x);
    EXPECT_EQ(CObList_Xtion(a, b, nullptr), 2);
    EXPECT_EQ(a.GetCount(), 2);
}

int ByName(const void* left, const void* right) {
    auto* a = static_cast<OrvObject*>(*static_cast<CObject* const*>(left));
    auto* b = static_cast<OrvObject*>(*static_cast<CObject* const*>(right));
    return a->Name().Compare(b->Name().GetString());
}

TEST(ObjectListHelpers, SortHandsTheComparatorElementPointers) {
    EXPECT_EQ(CObList_Sort(nullptr, ByName), 0);
    CObList list;
    EXPECT_EQ(CObList_Sort(&list, ByName), 0);
    OrvObject c, a, b;
    c.ChangeName(L"c");
    a.ChangeName(L"a");
    b.ChangeName(L"b");
    Fill(list, {&c, &a, &b});
    EXPECT_EQ(CObList_Sort(&list, ByName), 1);
    ASSERT_EQ(list.GetCount(), 3);
    EXPECT_EQ(list.GetHead(), &a);
    EXPECT_EQ(list.GetTail(), &c);
}

TEST(ObjectListHelpers, FindAndAddTakesNodesOnly) {
    OrvObject a, b;
    int deaths = 0;
    Counted other(&deaths);
    CObList target, source;
    FindAndAdd(target, source);
    EXPECT_TRUE(target.IsEmpty());
    Fill(source, {&a, &other});
    FindAndAdd(target, source); // an empty target takes everything
    EXPECT_EQ(target.GetCount(), 2);
    source.AddTail(&b);
    FindAndAdd(target, source);
    ASSERT_EQ(target.GetCount(), 3);
    EXPECT_EQ(target.GetTail(), &b);
    CObList more;
    more.AddTail(&a);
    Counted stranger(&deaths);
    CObList strangers;
    strangers.AddTail(&stranger);
    FindAndAdd(more, strangers);
    EXPECT_EQ(more.GetCount(), 1);
}

TEST(ObjectListHelpers, CopiedNameSkipsTakenNames) {
    OrvObject first, second, unrelated;
    first.ChangeName(L"Pocket - Copy ");
    second.ChangeName(L"Pocket - Copy 2 ");
    unrelated.ChangeName(L"pocket - copy 3 ");
    int deaths = 0;
    Counted notANode(&deaths);
    CObList objects;
    Fill(objects, {&first, &notANode, &second, &unrelated});
    CString out;
    ChangeNameForCopiedFeatAndOper(objects, L"Copy", L"Pocket", out);
    EXPECT_EQ(out, CString(L"Pocket - Copy 3 ")); // the comparison is case-sensitive
    CObList none;
    ChangeNameForCopiedFeatAndOper(none, L"Copy", L"Drill", out);
    EXPECT_EQ(out, CString(L"Drill - Copy "));
}

} // namespace
