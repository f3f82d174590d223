// Registry forms of the nine value classes, the restore and save rules, and the key handles.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "SettingsValues.h"
#include "settings/OrvSettingsKey.h"
#include "support/TempRegistry.h"

namespace {

std::vector<BYTE> Le32(std::uint32_t value) {
    return {static_cast<BYTE>(value), static_cast<BYTE>(value >> 8), static_cast<BYTE>(value >> 16),
            static_cast<BYTE>(value >> 24)};
}

// The program's own registry, for every test; each test works under a key path of its own.
TempRegistryDir g_registry;

std::wstring PathFor(const char* test) {
    return L"Software\\OrvTest\\" + std::wstring(CString(test).GetString());
}

class SettingsRegistryTest : public ::testing::Test {
protected:
    // Plants REG_SZ text under the test's key, with or without its terminator.
    void PlantText(const wchar_t* name, const std::wstring& text, bool terminated = true) {
        ASSERT_EQ(WriteRaw(HKEY_CURRENT_USER, path(), name, REG_SZ, text.c_str(),
                           static_cast<DWORD>((text.size() + terminated) * sizeof(wchar_t))),
                  ERROR_SUCCESS);
    }
    std::wstring m_path = PathFor(::testing::UnitTest::GetInstance()->current_test_info()->name());
    const wchar_t* path() const { return m_path.c_str(); }
};

TEST_F(SettingsRegistryTest, EachTypeIsStoredInItsDocumentedForm) {
    OrvSettingsKey key(L"Forms", path());
    NineValues{-2,
               0x00112233ul,
               1.5,
               2.25L,
               L"ab",
               CPoint(1, -2),
               CRect(1, 2, 3, 4),
               CTime(0x12345678LL),
               {7, -1}}
        .AddTo(key);
    ASSERT_EQ(key.SaveValuesToRegistry(), 1);

    struct Expected {
        const wchar_t* name;
        DWORD type;
        std::vector<BYTE> bytes;
    };
    const Expected expected[] = {
        {L"I", REG_DWORD, {0xFE, 0xFF, 0xFF, 0xFF}},
        {L"C", REG_DWORD, {0x33, 0x22, 0x11, 0x00}},
        {L"D", REG_BINARY, {0, 0, 0, 0, 0, 0, 0xF8, 0x3F}},
        {L"L", REG_SZ, WideBytes(L"2.250000")},
        {L"S", REG_SZ, WideBytes(L"ab")},
        {L"P", REG_SZ, WideBytes(L"1 -2")},
        {L"R", REG_SZ, WideBytes(L"1 2 3 4")},
        {L"T", REG_SZ, WideBytes(L"305419896")},
        {L"A", REG_BINARY, {7, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF}},
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
    // The raw double loses nothing; the text is not ASCII.
    const NineValues saved{42,
                           0x00ABCDEFul,
                           0.1,
                           3.5L,
                           L"t\u00e9xt",
                           CPoint(-5, 6),
                           CRect(-1, -2, 30, 40),
                           CTime(1700000000LL),
                           {1, 2, 3}};
    {
        OrvSettingsKey writer(L"Trip", path());
        saved.AddTo(writer);
        ASSERT_EQ(writer.SaveValuesToRegistry(), 1);
    }
    OrvSettingsKey key(L"Trip", path());
    NineValues{0, 0ul, 0.0, 0.0L, CString(), CPoint(), CRect(), CTime(), {}}.AddTo(key);
    EXPECT_EQ(key.RestoreValuesFromRegistry(), 1);
    saved.ExpectIn(key);
}

TEST_F(SettingsRegistryTest, LongDoubleKeepsSixDecimals) {
    OrvSettingsKey key(L"K", path());
    key.AddValue(L"Small", 1e-7L);
    key.AddValue(L"Digits", 1.23456789L);
    ASSERT_EQ(key.SaveValuesToRegistry(), 1);
    EXPECT_EQ(ReadRaw(HKEY_CURRENT_USER, path(), L"Small").bytes, WideBytes(L"0.000000"));
    EXPECT_EQ(key.RestoreValuesFromRegistry(), 1);
    EXPECT_EQ(ValueOf(key, L"Small", -1.0L), 0.0L);
    EXPECT_EQ(static_cast<double>(ValueOf(key, L"Digits", -1.0L)), 1.234568);
}

TEST_F(SettingsRegistryTest, OnlyTheLow32BitsOfATimeSurvive) {
    OrvSettingsKey key(L"K", path());
    key.AddValue(L"Past32", CTime(0x100000005LL)); // 2^32 + 5
    key.AddValue(L"Past31", CTime(0x80000001LL));  // prints as a negative 32-bit number
    ASSERT_EQ(key.SaveValuesToRegistry(), 1);
    EXPECT_EQ(ReadRaw(HKEY_CURRENT_USER, path(), L"Past32").bytes, WideBytes(L"5"));
    EXPECT_EQ(ReadRaw(HKEY_CURRENT_USER, path(), L"Past31").bytes, WideBytes(L"-2147483647"));
    EXPECT_EQ(key.RestoreValuesFromRegistry(), 1);
    EXPECT_EQ(ValueOf<CTime>(key, L"Past32").GetTime(), 5);
    // The low half is written into a zeroed 64-bit number: it comes back unsigned.
    EXPECT_EQ(ValueOf<CTime>(key, L"Past31").GetTime(), 0x80000001LL);
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
    EXPECT_EQ(ValueOf(root, L"A", 0), 11); // read although the restore as a whole failed
    EXPECT_EQ(ValueOf(root, L"B", 0), 12);
    EXPECT_EQ(ValueOf(root, L"C", 0), 3);

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
    EXPECT_EQ(ValueOf(key, L"Absent", 0.0), 1.25);
    EXPECT_EQ(ValueOf(key, L"Present", 0), 9);
}

// A point's text with one number sets only x, a rectangle's with two numbers left and top; text
// without its terminator is read whole.
TEST_F(SettingsRegistryTest, ShortAndUnterminatedTextIsReadAsFarAsItGoes) {
    PlantText(L"P", L"12 a");
    PlantText(L"R", L"5 6");
    PlantText(L"S", L"abc", false);
    OrvSettingsKey key(L"K", path());
    key.AddValue(L"P", CPoint(3, 4));
    key.AddValue(L"R", CRect(1, 2, 3, 4));
    key.AddValue(L"S", CString(L"default"));
    EXPECT_EQ(key.RestoreValuesFromRegistry(), 1);
    EXPECT_EQ(ValueOf<CPoint>(key, L"P"), CPoint(12, 4));
    EXPECT_TRUE(ValueOf<CRect>(key, L"R") == CRect(5, 6, 3, 4));
    EXPECT_EQ(ValueOf<CString>(key, L"S"), L"abc");
}

// An int array that finds a DWORD keeps its array; of a binary value it takes whole elements.
TEST_F(SettingsRegistryTest, IntArraysReadOnlyWholeElementsOfBinaryValues) {
    ASSERT_EQ(WriteRaw(HKEY_CURRENT_USER, path(), L"Dword", REG_DWORD, Le32(77).data(), 4),
              ERROR_SUCCESS);
    const BYTE six[] = {1, 0, 0, 0, 2, 0};
    ASSERT_EQ(WriteRaw(HKEY_CURRENT_USER, path(), L"Six", REG_BINARY, six, 6), ERROR_SUCCESS);
    OrvSettingsKey key(L"K", path());
    CArray<int, int> pair, nines;
    pair.Add(1);
    pair.Add(2);
    for (int k = 0; k < 3; ++k)
        nines.Add(9);
    key.AddValue(L"Dword", pair);
    key.AddValue(L"Six", nines);
    EXPECT_EQ(key.RestoreValuesFromRegistry(), 1);
    CArray<int, int> a;
    key.GetValue(L"Dword", a);
    ASSERT_EQ(a.GetSize(), 2);
    EXPECT_EQ(a[0], 1);
    EXPECT_EQ(a[1], 2);
    key.GetValue(L"Six", a);
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
