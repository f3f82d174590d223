// The hash maps: lookup, overwrite, removal, walking, bucket order and misuse.
#include <map>
#include <set>

#include <afx.h>
#include <afxtempl.h>
#include <gtest/gtest.h>

#include "support/ArchiveRoundTrip.h"

TEST(CMapTest, SetAtOverwritesAndLookupFinds) {
    CMap<int, int, CString, const CString&> map;
    CString text;
    EXPECT_FALSE(map.Lookup(1, text));
    map.SetAt(1, L"one");
    map.SetAt(2, L"two");
    map.SetAt(1, L"uno");
    EXPECT_EQ(map.GetCount(), 2);
    ASSERT_TRUE(map.Lookup(1, text));
    EXPECT_EQ(text, L"uno");
    map[3] = L"three";
    EXPECT_EQ(map[3], L"three");
    // operator[] adds an empty value for a new key.
    EXPECT_TRUE(map[4].IsEmpty());
    EXPECT_EQ(map.GetSize(), 4);
}

TEST(CMapTest, RemoveKeyTakesOnlyThatKey) {
    CMap<int, int, int, int> map;
    // 200 keys in 17 buckets make chains of about a dozen; removing every third key takes
    // associations from the heads, middles and ends of the chains.
    for (int i = 0; i < 200; ++i)
        map[i] = i * i;
    for (int i = 0; i < 200; i += 3)
        EXPECT_TRUE(map.RemoveKey(i));
    EXPECT_FALSE(map.RemoveKey(0));
    EXPECT_FALSE(map.RemoveKey(1000));
    EXPECT_EQ(map.GetCount(), 200 - 67);
    for (int i = 0; i < 200; ++i) {
        int value = -1;
        EXPECT_EQ(map.Lookup(i, value), i % 3 != 0) << i;
        if (i % 3 != 0) {
            EXPECT_EQ(value, i * i);
        }
    }
}

TEST(CMapTest, WalkingVisitsEveryAssociationOnce) {
    CMap<int, int, int, int> map;
    EXPECT_EQ(map.GetStartPosition(), nullptr);
    for (int i = 0; i < 100; ++i)
        map[i * 7] = i;
    std::map<int, int> seen;
    POSITION pos = map.GetStartPosition();
    EXPECT_EQ(pos, BEFORE_START_POSITION);
    while (pos) {
        int key = 0;
        int value = 0;
        map.GetNextAssoc(pos, key, value);
        EXPECT_TRUE(seen.emplace(key, value).second);
    }
    ASSERT_EQ(seen.size(), 100u);
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(seen[i * 7], i);
}

TEST(CMapTest, BucketsInOrderNewestFirst) {
    // With 5 buckets and the default hash of small integers (16807 * key mod 2^31 - 1, then mod
    // 5): key 1 -> 16807 % 5 = 2, key 2 -> 33614 % 5 = 4, key 3 -> 50421 % 5 = 1,
    // key 4 -> 67228 % 5 = 3, key 5 -> 84035 % 5 = 0, key 6 -> 100842 % 5 = 2.
    CMap<int, int, int, int> map;
    map.InitHashTable(5);
    EXPECT_EQ(map.GetHashTableSize(), 5u);
    for (int key = 1; key <= 6; ++key)
        map[key] = key * 10;
    std::vector<int> order;
    for (POSITION pos = map.GetStartPosition(); pos;) {
        int key = 0;
        int value = 0;
        map.GetNextAssoc(pos, key, value);
        order.push_back(key);
    }
    EXPECT_EQ(order, (std::vector<int>{5, 3, 6, 1, 4, 2}));
}

TEST(CMapTest, DefaultHashOfKnownValues) {
    // Hand-computed: 127773 is quotient 1, remainder 0, so 16807 * 0 - 2836 * 1 = -2836, plus
    // 2^31 - 1 gives 2147480811.
    EXPECT_EQ(HashKey<int>(127773), 2147480811u);
    EXPECT_EQ(HashKey<int>(1), 16807u);
    EXPECT_EQ(HashKey<int>(0), 0u);
    // Strings: hash * 33 + character; "ab" = 97 * 33 + 98 = 3299.
    EXPECT_EQ(HashKey<LPCTSTR>(L"ab"), 3299u);
    EXPECT_EQ(HashKey<const CString&>(CString(L"ab")), 3299u);
}

TEST(CMapTest, InitHashTableOnlyWhileEmptyAndRemoveAllKeepsIt) {
    CMap<int, int, int, int> map;
    EXPECT_EQ(map.GetHashTableSize(), 17u);
    map[1] = 1;
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { map.InitHashTable(31); }));
    map.RemoveAll();
    EXPECT_TRUE(map.IsEmpty());
    map.InitHashTable(31, FALSE);
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { map.InitHashTable(0); }));
    map[2] = 2;
    int value = 0;
    EXPECT_TRUE(map.Lookup(2, value));
    EXPECT_EQ(map.GetHashTableSize(), 31u);
}

TEST(CMapTest, BadPositionsAreInvalidArguments) {
    CMap<int, int, int, int> map;
    int key = 0;
    int value = 0;
    POSITION pos = BEFORE_START_POSITION;
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { map.GetNextAssoc(pos, key, value); }));
    map[1] = 1;
    map[2] = 2;
    pos = map.GetStartPosition();
    map.GetNextAssoc(pos, key, value);
    ASSERT_NE(pos, nullptr);
    POSITION stale = pos;
    int nextKey = 0;
    map.GetNextAssoc(pos, nextKey, value);
    map.RemoveKey(nextKey);
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { map.GetNextAssoc(stale, key, value); }));
    POSITION null = nullptr;
    EXPECT_TRUE(ThrowsMfc<CInvalidArgException>([&] { map.GetNextAssoc(null, key, value); }));
}

TEST(CMapStringToPtrTest, KeysAreCaseSensitiveStrings) {
    int a = 0;
    int b = 0;
    CMapStringToPtr map;
    map.SetAt(L"Key", &a);
    map[L"key"] = &b;
    void* found = nullptr;
    ASSERT_TRUE(map.Lookup(L"Key", found));
    EXPECT_EQ(found, &a);
    ASSERT_TRUE(map.Lookup(L"key", found));
    EXPECT_EQ(found, &b);
    EXPECT_FALSE(map.Lookup(L"KEY", found));
    EXPECT_EQ(map.HashKey(L"ab"), 3299u);
    std::set<CString> keys;
    for (POSITION pos = map.GetStartPosition(); pos;) {
        CString key;
        void* value = nullptr;
        map.GetNextAssoc(pos, key, value);
        keys.insert(key);
    }
    EXPECT_EQ(keys, (std::set<CString>{L"Key", L"key"}));
    EXPECT_TRUE(map.RemoveKey(L"Key"));
    EXPECT_FALSE(map.Lookup(L"Key", found));
}

TEST(CMapPtrToPtrTest, HashesTheAddressWithoutItsLowBits) {
    CMapPtrToPtr map;
    EXPECT_EQ(map.HashKey(reinterpret_cast<void*>(0x1230)), 0x123u);
    int values[4] = {};
    for (int& v : values)
        map[&v] = &values[3 - (&v - values)];
    void* found = nullptr;
    ASSERT_TRUE(map.Lookup(&values[0], found));
    EXPECT_EQ(found, &values[3]);
    EXPECT_EQ(map.GetCount(), 4);
    EXPECT_TRUE(map.RemoveKey(&values[1]));
    EXPECT_FALSE(map.Lookup(&values[1], found));
}
