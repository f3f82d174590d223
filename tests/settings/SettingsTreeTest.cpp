// Look-up, typing, merge and text dump of the settings tree.
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <cstdio>
#include <string>

#include "SettingsValues.h"
#include "settings/OrvIntValue.h"
#include "settings/OrvSettingsKey.h"
#include "settings/OrvStringValue.h"
#include "support/DumpCapture.h"

namespace {

// A key that shows its protected look-ups and list.
class OpenKey : public OrvSettingsKey {
public:
    using OrvSettingsKey::FindSettingsKey;
    using OrvSettingsKey::FindSettingsValue;
    using OrvSettingsKey::OrvSettingsKey;
    CObList& List() { return m_List; }
};

std::vector<CString> NamesOf(OrvSettingsKey& owner, CObList& list) {
    std::vector<CString> names;
    for (POSITION pos = list.GetHeadPosition(); pos;)
        names.push_back(owner.GetName(static_cast<OrvBaseObject*>(list.GetNext(pos))));
    return names;
}

TEST(SettingsLookup, BareNameIsFoundAnywhereDepthFirst) {
    OrvSettingsKey root(L"Root", L"Software\\OrvTest\\Root");
    auto* group = new OrvSettingsKey(L"Group", L"Software\\OrvTest\\Group");
    auto* nested = new OrvSettingsKey(L"Nested", L"Software\\OrvTest\\Nested");
    nested->AddValue(L"Deep", 3);
    group->AddKey(nested);
    group->AddValue(L"Shared", 2);
    root.AddValue(L"Shared", 1); // added after the group: earlier in the list
    root.AddKey(group);          // now the group heads the list and shadows the root's value

    EXPECT_EQ(ValueOf(root, L"Deep", 0), 3);
    EXPECT_EQ(ValueOf(root, L"Shared", 0), 2);
    EXPECT_EQ(root.GetKey(L"Nested"), nested);
    EXPECT_EQ(root.GetSettingsKey(L"Group"), group);
    EXPECT_EQ(group->GetKey(L"Group"), nullptr); // a key does not find itself
}

TEST(SettingsLookup, NamesCompareExactly) {
    OrvSettingsKey root(L"Root", L"P");
    root.AddValue(L"Value", 5);
    root.AddKey(new OrvSettingsKey(L"Child", L"Q"));
    EXPECT_EQ(ValueOf(root, L"value", -1), -1);
    EXPECT_EQ(root.GetKey(L"child"), nullptr);
    EXPECT_EQ(root.GetKey(L"Missing"), nullptr);
}

TEST(SettingsLookup, LaterDuplicateShadowsTheEarlierOne) {
    OrvSettingsKey root(L"Root", L"P");
    root.AddValue(L"Twice", 1);
    root.AddValue(L"Twice", 2);
    EXPECT_EQ(ValueOf(root, L"Twice", 0), 2);
    root.SetValue(L"Twice", 3);
    EXPECT_EQ(ValueOf(root, L"Twice", 0), 3);
    OpenKey open(L"O", L"P");
    open.AddValue(L"A", 1);
    open.AddValue(L"B", 2);
    open.AddKey(new OrvSettingsKey(L"K", L"Q"));
    EXPECT_EQ(NamesOf(open, open.List()), (std::vector<CString>{L"K", L"B", L"A"}));
}

TEST(SettingsLookup, MissingNameLeavesTheArgumentAndChangesNothing) {
    OrvSettingsKey root(L"Root", L"P");
    root.AddValue(L"Present", 1);
    int i = 77;
    CString s = L"mine";
    CArray<int, int> a;
    a.Add(4);
    root.GetValue(L"Absent", i);
    root.GetValue(L"Absent", s);
    root.GetValue(L"Absent", a);
    root.SetValue(L"Absent", 5);
    EXPECT_EQ(i, 77);
    EXPECT_EQ(s, L"mine");
    EXPECT_EQ(a.GetSize(), 1);
}

TEST(SettingsTyping, IntSetOnADoubleOverwritesItsLowBits) {
    OrvSettingsKey root(L"Root", L"P");
    root.AddValue(L"D", 1.5); // 0x3FF8000000000000
    root.SetValue(L"D", 1);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(ValueOf(root, L"D", 0.0)), 0x3FF8000000000001u);
    EXPECT_EQ(ValueOf(root, L"D", -1), 1); // reads the low 4 bytes as an int
}

// The array and text overloads test the value's class: on a plain value they do nothing.
TEST(SettingsTyping, ArraysAndTextOnAPlainValueAreRefused) {
    OrvSettingsKey root(L"Root", L"P");
    root.AddValue(L"I", 9);
    CArray<int, int> a;
    a.Add(1);
    root.SetValue(L"I", a);
    root.GetValue(L"I", a);
    root.SetValue(L"I", CString(L"text"));
    EXPECT_EQ(ValueOf(root, L"I", CString(L"before")), L"before");
    EXPECT_EQ(ValueOf(root, L"I", 0), 9);
    EXPECT_EQ(a.GetSize(), 1);
}

TEST(SettingsTyping, ColourAndLongDoubleOverloadsKeepTheirWidths) {
    OrvSettingsKey root(L"Root", L"P");
    root.AddValue(L"C", static_cast<unsigned long>(0x00FF8040u));
    root.AddValue(L"L", 0.5L);
    root.SetValue(L"C", 0x1234567890ul); // only 32 bits are a colour
    root.SetValue(L"L", 0.25L);
    EXPECT_EQ(ValueOf<unsigned long>(root, L"C"), 0x34567890u);
    EXPECT_EQ(ValueOf<DWORD>(root, L"C"), 0x34567890u);
    EXPECT_EQ(ValueOf<long double>(root, L"L"), 0.25L);
}

TEST(SettingsMerge, OneLevelByNameWithTheMillFeatureException) {
    OpenKey key(L"K", L"P");
    CObList loaded, defaults;
    loaded.AddTail(new OrvIntValue(L"Old", 1));
    loaded.AddTail(new OrvIntValue(L"Both", 2));
    loaded.AddTail(new OrvSettingsKey(L"Same", L"Q")); // a key matches a value of its name
    defaults.AddTail(new OrvIntValue(L"Both", 20));
    defaults.AddTail(new OrvIntValue(L"Same", 30));
    defaults.AddTail(new OrvIntValue(L"New1", 40));
    defaults.AddTail(new OrvIntValue(L"MillFeatureCreationStyle", 1));
    defaults.AddTail(new OrvStringValue(L"New2", L"x"));

    key.MergeContents(loaded, defaults);
    EXPECT_EQ(NamesOf(key, loaded), (std::vector<CString>{L"New2", L"MillFeatureCreationStyle",
                                                          L"New1", L"Both", L"Same"}));
    EXPECT_EQ(NamesOf(key, defaults), (std::vector<CString>{L"Both", L"Same"}));

    int mill = -1;
    static_cast<OrvIntValue*>(loaded.GetAt(loaded.FindIndex(1)))->GetValue(mill);
    EXPECT_EQ(mill, 0);
    int both = 0;
    static_cast<OrvIntValue*>(loaded.GetAt(loaded.FindIndex(3)))->GetValue(both);
    EXPECT_EQ(both, 2);
    key.ResetContent(loaded);
    key.ResetContent(defaults);
    EXPECT_TRUE(loaded.IsEmpty());
    EXPECT_TRUE(defaults.IsEmpty());
}

TEST(SettingsDump, KeyDumpsItsHeaderThenEachChild) {
    OrvSettingsKey key(L"Key", L"Software\\X");
    key.AddValue(L"N", 5);
    key.AddValue(L"S", CString(L"ab"));
    const std::string expected =
        Banner("OrvSettingsKey", "Start") + "\n m_Name: Key" + "\n m_Path: Software\\X" +
        "\nDumping for m_List Start\n" + "\n m_List Total Items : 2\n" + "\n m_List count: 0\n" +
        Banner("OrvStringValue", "Start") + "\n m_Data: ab" + Banner("OrvStringValue", "End") +
        "\n m_List count: 1\n" + Banner("OrvIntValue", "Start") + "\n m_Data: 5" +
        Banner("OrvIntValue", "End") + "\nDumping for m_List End\n" +
        Banner("OrvSettingsKey", "End");
    EXPECT_EQ(CaptureDump([&](FILE* f) { key.DumpData(f); }), expected);
}

TEST(SettingsDump, EachValueClassWritesItsOwnLine) {
    OrvSettingsKey key(L"K", L"P");
    key.AddValue(L"I", 0);
    CArray<int, int> a;
    key.AddValue(L"A", a);
    key.AddValue(L"T", CTime(5));
    key.AddValue(L"L", 1.0L);
    key.AddValue(L"R", CRect(1, 2, 3, 4));
    key.AddValue(L"P", CPoint(-1, 2));
    key.AddValue(L"C", static_cast<unsigned long>(0x00FF0000u));
    key.AddValue(L"D", 3.14159265);
    const std::string expected =
        Banner("OrvDoubleValue", "Start") + "\n m_Data: 3.141593" +
        Banner("OrvDoubleValue", "End") + Banner("OrvColorValue", "Start") + "\n m_Data: 16711680" +
        Banner("OrvColorValue", "End") + Banner("OrvPointValue", "Start") +
        "\n Point: m_Data.x = -1, m_Data.y = 2" + Banner("OrvPointValue", "End") +
        Banner("OrvRectValue", "Start") +
        "\n Rect: m_Data.left = 1, m_Data.top = 2, m_Data.right = 3, m_Data.bottom = 4" +
        Banner("OrvRectValue", "End") + Banner("OrvDoubleStrValue", "Start") +
        Banner("OrvDoubleStrValue", "End") + Banner("OrvTimeValue", "Start") +
        Banner("OrvTimeValue", "End") + Banner("OrvIntArrayValue", "Start") +
        Banner("OrvIntArrayValue", "End");
    std::string text = CaptureDump([&](FILE* f) { key.DumpData(f); });
    // Cut the values' part out of the key's dump: from the first value banner to the int value.
    const std::size_t from = text.find(Banner("OrvDoubleValue", "Start"));
    const std::size_t to = text.find("\n m_List count: 7\n");
    ASSERT_NE(from, std::string::npos);
    ASSERT_NE(to, std::string::npos);
    std::string values = text.substr(from, to - from);
    for (int i = 1; i < 7; ++i) {
        const std::string counter = "\n m_List count: " + std::to_string(i) + "\n";
        values.erase(values.find(counter), counter.size());
    }
    EXPECT_EQ(values, expected);
}

TEST(SettingsDump, PlainValueDumpsItsNameAndNullFileWritesNothing) {
    class PlainValue : public OrvSettingsValue {
    public:
        PlainValue() : OrvSettingsValue(L"Plain") {}
    } plain;
    EXPECT_EQ(CaptureDump([&](FILE* f) { plain.DumpData(f); }),
              Banner("OrvSettingsValue", "Start") + "\n m_Name: Plain" +
                  Banner("OrvSettingsValue", "End"));
    OrvSettingsKey key(L"K", L"P");
    key.AddValue(L"I", 1);
    key.DumpData(nullptr);
    plain.DumpData(nullptr);
    EXPECT_EQ(plain.SaveValueToRegistry(&key), 0);
    EXPECT_EQ(plain.RestoreValueFromRegistry(&key), 0);
}

} // namespace
