// Registry forms of the nine value classes, the restore and save rules, and the key handles.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "settings/OrvSettingsKey.h"
#include "support/TempRegistry.h"

namespace {

std::vector<BYTE> Le32(std::uint32_t value) {
    return {static_cast<BYTE>(value), static_cast<BYTE>(value >> 8), static_cast<BYTE>(value >> 16),
            static_cast<BYTE>(value >> 24)};
}

// An int array filled from a list (the array itself can't be copied).
struct Ints {
    CArray<int, int> array;
    Ints(std::initializer_list<int> values) {
        for (int value : values)
            array.Add(value);
    }
    operator const CArray<int, int>&() const { return array; }
};

// Each test works under a key path of its own.
// The program's own registry, for every test.
TempRegistryDir g_registry;

std::wstring PathFor(const char* test) {
    return L"Software\\OrvTest\\" + std::wstring(CString(test).GetString());
}

class SettingsRegistryTest : public ::testing::Test {
protected:
    std::wstring m_path = PathFor(::testing::UnitTest::GetInstance()->current_test_info()->name());
    const wchar_t* path() const { return m_path.c_str(); }
};

TEST_F(SettingsRegistryTest, EachTypeIsStoredInItsDocumentedForm) {
    OrvSettingsKey key(L"Forms", path());
    key.AddValue(L"Int", -2);
    key.AddValue(L"Color", static_cast<unsigned long>(0x00112233u));
    key.AddValue(L"Double", 1.5);
    key.AddValue(L"LongDouble", 2.25L);
    key.AddValue(L"String", CString(L"ab"));
    key.AddValue(L"Point", CPoint(1, -2));
    key.AddValue(L"Rect", CRect(1, 2, 3, 4));
    key.AddValue(L"Time", CTime(0x12345678LL));
    key.AddValue(L"Array", Ints({7, -1}));
    ASSERT_EQ(key.SaveValuesToRegistry(), 1);

    struct Expected {
        const wchar_t* name;
        DWORD type;
        std::vector<BYTE> bytes;
    };
    const Expected expected[] = {
        {L"Int", REG_DWORD, {0xFE, 0xFF, 0xFF, 0xFF}},
        {L"Color", REG_DWORD, {0x33, 0x22, 0x11, 0x00}},
        {L"Double", REG_BINARY, {0, 0, 0, 0, 0, 0, 0xF8, 0x3F}},
        {L"LongDouble", REG_SZ, WideBytes(L"2.250000")},
        {L"String", REG_SZ, WideBytes(L"ab")},
        {L"Point", REG_SZ, WideBytes(L"1 -2")},
        {L"Rect", REG_SZ, WideBytes(L"1 2 3 4")},
        {L"Time", REG_SZ, WideBytes(L"305419896")},
        {L"Array", REG_BINARY, {7, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF}},
    };
    for (const Expected& value : expected) {
        SCOPED_TRACE(CStringA(value.name).GetString());
        const RawValue raw = ReadRaw(HKEY_CURRENT_USER, path(), value.name);
        ASSERT_EQ(raw.status, ERROR_SUCCESS);
        EXPECT_EQ(raw.type, value.type);
        EXPECT_EQ(raw.bytes, value.bytes);
    }
}

TEST_F(SettingsRegistryTest, EveryTypeTravelsThroughTheRegistry) {
    {
        OrvSettingsKey saved(L"Trip", path());
        saved.AddValue(L"Int", 42);
        saved.AddValue(L"Color", static_cast<unsigned long>(0x00ABCDEFu));
        saved.AddValue(L"Double", 0.1);
        saved.AddValue(L"LongDouble", 3.5L);
        saved.AddValue(L"String", CString(L"t\u00e9xt"));
        saved.AddValue(L"Point", CPoint(-5, 6));
        saved.AddValue(L"Rect", CRect(-1, -2, 30, 40));
        saved.AddValue(L"Time", CTime(1700000000LL));
        saved.AddValue(L"Array", Ints({1, 2, 3}));
        ASSERT_EQ(saved.SaveValuesToRegistry(), 1);
    }
    OrvSettingsKey key(L"Trip", path());
    key.AddValue(L"Int", 0);
    key.AddValue(L"Color", 0ul);
    key.AddValue(L"Double", 0.0);
    key.AddValue(L"LongDouble", 0.0L);
    key.AddValue(L"String", CString());
    key.AddValue(L"Point", CPoint());
    key.AddValue(L"Rect", CRect());
    key.AddValue(L"Time", CTime());
    key.AddValue(L"Array", Ints({}));
    EXPECT_EQ(key.RestoreValuesFromRegistry(), 1);

    int i = 0;
    unsigned long c = 0;
    double d = 0;
    long double l = 0;
    CString s;
    CPoint p;
    CRect r;
    CTime t;
    CArray<int, int> a;
    key.GetValue(L"Int", i);
    key.GetValue(L"Color", c);
    key.GetValue(L"Double", d);
    key.GetValue(L"LongDouble", l);
    key.GetValue(L"String", s);
    key.GetValue(L"Point", p);
    key.GetValue(L"Rect", r);
    key.GetValue(L"Time", t);
    key.GetValue(L"Array", a);
    EXPECT_EQ(i, 42);
    EXPECT_EQ(c, 0x00ABCDEFu);
    EXPECT_EQ(d, 0.1); // the raw double loses nothing
    EXPECT_EQ(l, 3.5L);
    EXPECT_EQ(s, L"t\u00e9xt");
    EXPECT_EQ(p, CPoint(-5, 6));
    EXPECT_TRUE(r == CRect(-1, -2, 30, 40));
    EXPECT_EQ(t.GetTime(), 1700000000);
    ASSERT_EQ(a.GetSize(), 3);
    EXPECT_EQ(a[2], 3);
}

TEST_F(SettingsRegistryTest, LongDoubleKeepsSixDecimals) {
    OrvSettingsKey key(L"K", path());
    key.AddValue(L"Small", 1e-7L);
    key.AddValue(L"Digits", 1.23456789L);
    ASSERT_EQ(key.SaveValuesToRegistry(), 1);
    EXPECT_EQ(ReadRaw(HKEY_CURRENT_USER, path(), L"Small").bytes, WideBytes(L"0.000000"));
    EXPECT_EQ(key.RestoreValuesFromRegistry(), 1);
    long double small = -1, digits = -1;
    key.GetValue(L"Small", small);
    key.GetValue(L"Digits", digits);
    EXPECT_EQ(small, 0.0L);
    EXPECT_EQ(static_cast<double>(digits), 1.234568);
}

TEST_F(SettingsRegistryTest, OnlyTheLow32BitsOfATimeSurvive) {
    OrvSettingsKey key(L"K", path());
    key.AddValue(L"Past32", CTime(0x100000005LL)); // 2^32 + 5
    key.AddValue(L"Past31", CTime(0x80000001LL));  // prints as a negative 32-bit number
    ASSERT_EQ(key.SaveValuesToRegistry(), 1);
    EXPECT_EQ(ReadRaw(HKEY_CURRENT_USER, path(), L"Past32").bytes, WideBytes(L"5"));
    EXPECT_EQ(ReadRaw(HKEY_CURRENT_USER, path(), L"Past31").bytes, WideBytes(L"-2147483647"));
    EXPECT_EQ(key.RestoreValuesFromRegistry(), 1);
    CTime past32, past31;
    key.GetValue(L"Past32", past32);
    key.GetValue(L"Past31", past31);
    EXPECT_EQ(past32.GetTime(), 5);
    // The low half is written into a zeroed 64-bit number: it comes back unsigned.
    EXPECT_EQ(past31.GetTime(), 0x80000001LL);
}

TEST_F(SettingsRegistryTest, EmptyKeyRestoresAndSavesWithSuccess) {
    OrvSettingsKey key(L"Empty", path());
    EXPECT_EQ(key.RestoreValuesFromRegistry(), 1);
    EXPECT_EQ(key.SaveValuesToRegistry(), 1);
}

TEST_F(SettingsRegistryTest, MissingKeyKeepsTheDefaultAndFailsTheWholeRestore) {
    const std::wstring saved = m_path + L"\\Saved";
    const std::wstring never = m_path + L"\\Never";
    {
        OrvSettingsKey writer(L"W", saved.c_str());
        writer.AddValue(L"A", 11);
        writer.AddValue(L"B", 12);
        ASSERT_EQ(writer.SaveValuesToRegistry(), 1);
    }
    OrvSettingsKey root(L"Root", saved.c_str());
    root.AddValue(L"A", 1);
    auto* child = new OrvSettingsKey(L"Child", never.c_str());
    child->AddValue(L"C", 3);
    root.AddKey(child);
    root.AddValue(L"B", 2);

    EXPECT_EQ(root.RestoreValuesFromRegistry(), 0);
    int a = 0, b = 0, c = 0;
    root.GetValue(L"A", a);
    root.GetValue(L"B", b);
    root.GetValue(L"C", c);
    EXPECT_EQ(a, 11); // read although the restore as a whole failed
    EXPECT_EQ(b, 12);
    EXPECT_EQ(c, 3);

    // The usual pattern: a failed restore is followed by a save, which writes the defaults.
    EXPECT_EQ(root.SaveValuesToRegistry(), 1);
    EXPECT_EQ(ReadRaw(HKEY_CURRENT_USER, never.c_str(), L"C").bytes, Le32(3));
    EXPECT_EQ(root.RestoreValuesFromRegistry(), 1);
}

TEST_F(SettingsRegistryTest, MissingValueInAnExistingKeyFailsAndKeepsItsDefault) {
    ASSERT_EQ(WriteRaw(HKEY_CURRENT_USER, path(), L"Present", REG_DWORD, Le32(9).data(), 4),
              ERROR_SUCCESS);
    OrvSettingsKey key(L"K", path());
    key.AddValue(L"Absent", 1.25);
    key.AddValue(L"Present", 0);
    EXPECT_EQ(key.RestoreValuesFromRegistry(), 0);
    double absent = 0;
    int present = 0;
    key.GetValue(L"Absent", absent);
    key.GetValue(L"Present", present);
    EXPECT_EQ(absent, 1.25);
    EXPECT_EQ(present, 9);
}

TEST_F(SettingsRegistryTest, PointTextWithOneNumberSetsOnlyX) {
    const std::wstring text = L"12 a";
    ASSERT_EQ(WriteRaw(HKEY_CURRENT_USER, path(), L"P", REG_SZ, text.c_str(),
                       static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))),
              ERROR_SUCCESS);
    OrvSettingsKey key(L"K", path());
    key.AddValue(L"P", CPoint(3, 4));
    EXPECT_EQ(key.RestoreValuesFromRegistry(), 1);
    CPoint p;
    key.GetValue(L"P", p);
    EXPECT_EQ(p, CPoint(12, 4));
}

TEST_F(SettingsRegistryTest, RectTextWithTwoNumbersSetsLeftAndTop) {
    const std::wstring text = L"5 6";
    ASSERT_EQ(WriteRaw(HKEY_CURRENT_USER, path(), L"R", REG_SZ, text.c_str(),
                       static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))),
              ERROR_SUCCESS);
    OrvSettingsKey key(L"K", path());
    key.AddValue(L"R", CRect(1, 2, 3, 4));
    EXPECT_EQ(key.RestoreValuesFromRegistry(), 1);
    CRect r;
    key.GetValue(L"R", r);
    EXPECT_TRUE(r == CRect(5, 6, 3, 4));
}

TEST_F(SettingsRegistryTest, TextWithoutTerminatorIsReadWhole) {
    const std::wstring text = L"abc";
    ASSERT_EQ(WriteRaw(HKEY_CURRENT_USER, path(), L"S", REG_SZ, text.c_str(),
                       static_cast<DWORD>(text.size() * sizeof(wchar_t))),
              ERROR_SUCCESS);
    OrvSettingsKey key(L"K", path());
    key.AddValue(L"S", CString(L"default"));
    EXPECT_EQ(key.RestoreValuesFromRegistry(), 1);
    CString s;
    key.GetValue(L"S", s);
    EXPECT_EQ(s, L"abc");
}

TEST_F(SettingsRegistryTest, IntArrayFindingADwordKeepsItsArray) {
    ASSERT_EQ(WriteRaw(HKEY_CURRENT_USER, path(), L"A", REG_DWORD, Le32(77).data(), 4),
              ERROR_SUCCESS);
    OrvSettingsKey key(L"K", path());
    key.AddValue(L"A", Ints({1, 2}));
    EXPECT_EQ(key.RestoreValuesFromRegistry(), 1);
    CArray<int, int> a;
    key.GetValue(L"A", a);
    ASSERT_EQ(a.GetSize(), 2);
    EXPECT_EQ(a[0], 1);
    EXPECT_EQ(a[1], 2);
}

TEST_F(SettingsRegistryTest, IntArrayTakesWholeElementsOfABinaryValue) {
    const BYTE six[] = {1, 0, 0, 0, 2, 0};
    ASSERT_EQ(WriteRaw(HKEY_CURRENT_USER, path(), L"A", REG_BINARY, six, 6), ERROR_SUCCESS);
    OrvSettingsKey key(L"K", path());
    key.AddValue(L"A", Ints({9, 9, 9}));
    EXPECT_EQ(key.RestoreValuesFromRegistry(), 1);
    CArray<int, int> a;
    key.GetValue(L"A", a);
    ASSERT_EQ(a.GetSize(), 1);
    EXPECT_EQ(a[0], 1);
}

TEST_F(SettingsRegistryTest, SetKeyMovesTheParentOnlyAndAnswersTheOldRoot) {
    const std::wstring childPath = m_path + L"\\Child";
    OrvSettingsKey parent(L"P", path());
    auto* child = new OrvSettingsKey(L"C", childPath.c_str());
    child->AddValue(L"InChild", 1);
    parent.AddKey(child);
    EXPECT_EQ(parent.SetKey(HKEY_LOCAL_MACHINE), HKEY_CURRENT_USER);
    parent.AddValue(L"InParent", 2);
    ASSERT_EQ(parent.SaveValuesToRegistry(), 1);
    EXPECT_EQ(ReadRaw(HKEY_CURRENT_USER, childPath.c_str(), L"InChild").bytes, Le32(1));
    EXPECT_NE(ReadRaw(HKEY_LOCAL_MACHINE, childPath.c_str(), L"InChild").status, ERROR_SUCCESS);
    EXPECT_EQ(ReadRaw(HKEY_LOCAL_MACHINE, path(), L"InParent").bytes, Le32(2));
    EXPECT_NE(ReadRaw(HKEY_CURRENT_USER, path(), L"InParent").status, ERROR_SUCCESS);
    EXPECT_EQ(parent.SetKey(HKEY_CURRENT_USER), HKEY_LOCAL_MACHINE);
}

TEST_F(SettingsRegistryTest, HandleToKeyOpensCreatesAndHonoursReadOnly) {
    OrvSettingsKey key(L"K", path());
    EXPECT_EQ(key.GetHandleToKey(0, 1), nullptr); // not there yet
    HKEY created = key.GetHandleToKey(1, 0);
    ASSERT_NE(created, nullptr);
    const DWORD one = 1;
    EXPECT_EQ(RegSetValueExW(created, L"V", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&one), 4),
              ERROR_SUCCESS);
    RegCloseKey(created);

    HKEY readOnly = key.GetHandleToKey(0, 1);
    ASSERT_NE(readOnly, nullptr);
    EXPECT_EQ(RegSetValueExW(readOnly, L"V", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&one), 4),
              ERROR_ACCESS_DENIED);
    RegCloseKey(readOnly);
}

TEST_F(SettingsRegistryTest, WritableMachineRootGivesPermission) {
    // The test registry keeps HKEY_LOCAL_MACHINE in a folder this process can write.
    EXPECT_EQ(OrvSettingsKey::GetHasPermissionsToWriteToHKLM(), 1);
}

} // namespace
