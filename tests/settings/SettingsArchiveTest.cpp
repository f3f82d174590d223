// Archive forms of the settings tree: exact bytes, loading, the merge with newer defaults, and
// damaged input.
#include <gtest/gtest.h>

#include "SettingsValues.h"
#include "addin/NodeDocument.h"
#include "settings/OrvSettingsKey.h"
#include "support/ArchiveBytes.h"
#include "support/ArchiveRoundTrip.h"

// A group whose constructor is its table of defaults, as the catalogue's groups are.
class TestSettingsGroup : public OrvSettingsKey {
    DECLARE_SERIAL(TestSettingsGroup)
public:
    TestSettingsGroup() : OrvSettingsKey(L"Group", L"Software\\OrvTest\\Group") {
        AddValue(L"Inner1", 10);
        AddValue(L"Inner2", 20);
    }
};

class TestSettingsRoot : public OrvSettingsKey {
    DECLARE_SERIAL(TestSettingsRoot)
public:
    TestSettingsRoot() : OrvSettingsKey(L"Root", L"Software\\OrvTest\\Root") {
        AddValue(L"Keep", 1);
        AddValue(L"MillFeatureCreationStyle", 1);
        AddValue(L"NewOpt", 7);
        AddKey(new TestSettingsGroup);
    }
    // The names of the children, head first.
    std::vector<CString> Names() {
        std::vector<CString> names;
        for (POSITION pos = m_List.GetHeadPosition(); pos;)
            names.push_back(GetName(static_cast<OrvBaseObject*>(m_List.GetNext(pos))));
        return names;
    }
};

IMPLEMENT_SERIAL(TestSettingsGroup, OrvSettingsKey, VERSIONABLE_SCHEMA | 1)
IMPLEMENT_SERIAL(TestSettingsRoot, OrvSettingsKey, VERSIONABLE_SCHEMA | 1)

namespace {

// One value of each of the nine types, scaled by `seed`.
NineValues Nine(int seed) {
    return {5 * seed,
            0x00112233ul * seed,
            1.5 * seed,
            static_cast<long double>(2.25 * seed),
            seed == 1 ? L"ab" : L"",
            CPoint(1 * seed, 2 * seed),
            CRect(1 * seed, 2 * seed, 3 * seed, 4 * seed),
            CTime(0x12345678LL * seed),
            {7 * seed, 8 * seed}};
}

// The nine values as OrvSettingsKey::Serialize writes them, by the format's rules: the base
// class tag (class 1), the count, then each value with its class description the first time
// (class 2k, object 2k + 1) and the base tag as a reference to class 1.
std::vector<std::uint8_t> NineBytes() {
    ArchiveBytes b;
    b.NewClass("OrvBaseObject", 2).Count(9);
    b.NewClass("OrvIntArrayValue", 1).ClassRef(1).String(L"A").Int(2).Int(7).Int(8);
    b.NewClass("OrvTimeValue", 1).ClassRef(1).String(L"T").Dword(0x8000000A).Qword(0x12345678);
    b.NewClass("OrvRectValue", 1).ClassRef(1).String(L"R").Int(1).Int(2).Int(3).Int(4);
    b.NewClass("OrvPointValue", 1).ClassRef(1).String(L"P").Int(1).Int(2);
    b.NewClass("OrvStringValue", 1).ClassRef(1).String(L"S").String(L"ab");
    b.NewClass("OrvLongDoubleStrValue", 1).ClassRef(1).String(L"L").Double(2.25);
    b.NewClass("OrvDoubleValue", 1).ClassRef(1).String(L"D").Double(1.5);
    b.NewClass("OrvColorValue", 1).ClassRef(1).String(L"C").Dword(0x00112233);
    b.NewClass("OrvIntValue", 1).ClassRef(1).String(L"I").Int(5);
    return b.bytes();
}

class SettingsArchiveTest : public ::testing::Test {
protected:
    void SetUp() override { NodeDocument::Activate(&m_document); } // storage units 0: version 40
    void TearDown() override { NodeDocument::Activate(nullptr); }
    NodeDocument m_document;
};

TEST_F(SettingsArchiveTest, KeyWithOneValueOfEachTypeStoresTheDocumentedBytes) {
    OrvSettingsKey key(L"K", L"Software\\OrvTest\\K");
    Nine(1).AddTo(key);
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { key.Serialize(ar); }), NineBytes());
}

TEST_F(SettingsArchiveTest, KeyThroughTheObjectProtocolStartsWithItsOwnClass) {
    OrvSettingsKey key(L"K", L"Software\\OrvTest\\K");
    key.AddValue(L"I", 5);
    ArchiveBytes b;
    b.NewClass("OrvSettingsKey", 1).NewClass("OrvBaseObject", 2).Count(1);
    b.NewClass("OrvIntValue", 1).ClassRef(3).String(L"I").Int(5);
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { ar << static_cast<CObject*>(&key); }), b.bytes());
}

TEST_F(SettingsArchiveTest, NineValuesLoadIntoAKeyWithTheSameOptions) {
    OrvSettingsKey key(L"K", L"Software\\OrvTest\\K");
    Nine(0).AddTo(key);
    EXPECT_EQ(LoadBytes(NineBytes(), [&](CArchive& ar) { key.Serialize(ar); }), 0u);
    Nine(1).ExpectIn(key);
    // And the tree stores again to the same bytes.
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { key.Serialize(ar); }), NineBytes());
}

// An older document: it holds "Dropped", which this version no longer has, lacks "NewOpt" and
// "MillFeatureCreationStyle", and its nested group lacks "Inner2".
std::vector<std::uint8_t> OlderDocument() {
    ArchiveBytes b;
    b.NewClass("TestSettingsRoot", 1).NewClass("OrvBaseObject", 2).Count(3); // classes 1, 3
    b.NewClass("OrvIntValue", 1).ClassRef(3).String(L"Keep").Int(5);         // class 4, obj 5
    b.ClassRef(4).ClassRef(3).String(L"Dropped").Int(9);                     // obj 6
    b.NewClass("TestSettingsGroup", 1).ClassRef(3).Count(1);                 // class 7, obj 8
    b.ClassRef(4).ClassRef(3).String(L"Inner1").Int(11);                     // obj 9
    return b.bytes();
}

TEST_F(SettingsArchiveTest, OlderDocumentMergesWithTheCurrentDefaults) {
    CObject* loaded = nullptr;
    EXPECT_EQ(LoadBytes(OlderDocument(), [&](CArchive& ar) { ar >> loaded; }), 0u);
    std::unique_ptr<TestSettingsRoot> root(dynamic_cast<TestSettingsRoot*>(loaded));
    ASSERT_TRUE(root);

    EXPECT_EQ(ValueOf(*root, L"Keep", -1), 5);                     // the archive beats the default
    EXPECT_EQ(ValueOf(*root, L"MillFeatureCreationStyle", -1), 0); // older than it: 0, not 1
    EXPECT_EQ(ValueOf(*root, L"NewOpt", -1), 7);   // newer than the document: the default
    EXPECT_EQ(ValueOf(*root, L"Dropped", -1), -1); // gone
    EXPECT_EQ(ValueOf(*root, L"Inner1", -1), 11);  // the nested group merged too
    EXPECT_EQ(ValueOf(*root, L"Inner2", -1), 20);

    // Defaults moved to the head in their own order; the loaded ones follow in file order.
    EXPECT_EQ(root->Names(),
              (std::vector<CString>{L"MillFeatureCreationStyle", L"NewOpt", L"Keep", L"Group"}));

    // The next save no longer holds the dropped option.
    ArchiveBytes b;
    b.NewClass("TestSettingsRoot", 1).NewClass("OrvBaseObject", 2).Count(4);
    b.NewClass("OrvIntValue", 1).ClassRef(3).String(L"MillFeatureCreationStyle").Int(0);
    b.ClassRef(4).ClassRef(3).String(L"NewOpt").Int(7);
    b.ClassRef(4).ClassRef(3).String(L"Keep").Int(5);
    b.NewClass("TestSettingsGroup", 1).ClassRef(3).Count(2);
    b.ClassRef(4).ClassRef(3).String(L"Inner2").Int(20);
    b.ClassRef(4).ClassRef(3).String(L"Inner1").Int(11);
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { ar << static_cast<CObject*>(root.get()); }),
              b.bytes());
}

TEST_F(SettingsArchiveTest, StoredMillFeatureCreationStyleIsKept) {
    ArchiveBytes b;
    b.NewClass("OrvBaseObject", 2).Count(1);
    b.NewClass("OrvIntValue", 1).ClassRef(1).String(L"MillFeatureCreationStyle").Int(1);
    TestSettingsRoot root;
    LoadBytes(b.bytes(), [&](CArchive& ar) { root.Serialize(ar); });
    EXPECT_EQ(ValueOf(root, L"MillFeatureCreationStyle", -1), 1);
}

TEST_F(SettingsArchiveTest, DocumentOfStorageVersionSixHasNoBaseClassTags) {
    m_document.m_StorageUnits = 6.0f;
    ArchiveBytes b;
    b.Count(1).NewClass("OrvIntValue", 1).String(L"Keep").Int(3);
    TestSettingsRoot root;
    EXPECT_EQ(LoadBytes(b.bytes(), [&](CArchive& ar) { root.Serialize(ar); }), 0u);
    EXPECT_EQ(ValueOf(root, L"Keep", 0), 3);
}

// Loading damaged bytes into a key must throw an archive exception and leave its defaults.
void ExpectRejectedKeepingDefaults(const std::vector<std::uint8_t>& bytes) {
    OrvSettingsKey key(L"K", L"Software\\OrvTest\\K");
    Nine(3).AddTo(key);
    EXPECT_GE(LoadCause(bytes, [&](CArchive& ar) { key.Serialize(ar); }), 0);
    Nine(3).ExpectIn(key);
}

// Loads one object through the object protocol; answers the archive exception's cause.
int ObjectLoadCause(const ArchiveBytes& b) {
    return LoadCause(b.bytes(), [](CArchive& ar) {
        CObject* key = nullptr;
        ar >> key;
        delete key;
    });
}

TEST_F(SettingsArchiveTest, TruncatedArchiveAtEveryLengthIsRejectedAndLosesNothing) {
    const std::vector<std::uint8_t> whole = NineBytes();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        SCOPED_TRACE(length);
        ExpectRejectedKeepingDefaults(
            std::vector<std::uint8_t>(whole.begin(), whole.begin() + length));
    }
}

TEST_F(SettingsArchiveTest, ObjectNamedTwiceInOneListIsRejected) {
    ArchiveBytes b;
    b.NewClass("OrvBaseObject", 2).Count(2);
    b.NewClass("OrvIntValue", 1).ClassRef(1).String(L"I").Int(1); // class 2, object 3
    b.ObjectRef(3);
    ExpectRejectedKeepingDefaults(b.bytes());
}

TEST_F(SettingsArchiveTest, KeyThatListsItselfIsRejected) {
    ArchiveBytes b;
    b.NewClass("OrvSettingsKey", 1).NewClass("OrvBaseObject", 2).Count(1).ObjectRef(2);
    EXPECT_EQ(ObjectLoadCause(b), CArchiveException::badIndex);
}

TEST_F(SettingsArchiveTest, KeysNestedFarDeeperThanAnyCatalogueAreRejected) {
    // 300 keys, each the only child of the one before, complete and well formed.
    ArchiveBytes b;
    b.NewClass("OrvSettingsKey", 1).NewClass("OrvBaseObject", 2).Count(1); // classes 1 and 3
    for (int level = 0; level < 300; ++level)
        b.ClassRef(1).ClassRef(3).Count(level == 299 ? 0 : 1);
    EXPECT_EQ(ObjectLoadCause(b), CArchiveException::genericException);
}

TEST_F(SettingsArchiveTest, NegativeArrayCountIsRejected) {
    ArchiveBytes b;
    b.NewClass("OrvBaseObject", 2).Count(1);
    b.NewClass("OrvIntArrayValue", 1).ClassRef(1).String(L"A").Int(-1);
    ExpectRejectedKeepingDefaults(b.bytes());
}

TEST_F(SettingsArchiveTest, EightBitNamesLoadToo) {
    ArchiveBytes b;
    b.NewClass("OrvBaseObject", 2).Count(1);
    b.NewClass("OrvIntValue", 1).ClassRef(1).Byte(4);
    for (char c : std::string("Keep"))
        b.Byte(static_cast<std::uint8_t>(c));
    b.Int(42);
    TestSettingsRoot root;
    LoadBytes(b.bytes(), [&](CArchive& ar) { root.Serialize(ar); });
    EXPECT_EQ(ValueOf(root, L"Keep", 0), 42);
}

} // namespace
