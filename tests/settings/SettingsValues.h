// A value read from a key in one expression, and one value of each of the nine value classes,
// put into a key and checked in it.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "settings/OrvSettingsKey.h"

// The value `name` as the key's GetValue hands it out into a variable holding `start`.
template <class T> T ValueOf(OrvSettingsKey& key, const wchar_t* name, T start = T()) {
    key.GetValue(name, start);
    return start;
}

struct NineValues {
    int i;
    unsigned long c;
    double d;
    long double l;
    CString s;
    CPoint p;
    CRect r;
    CTime t;
    std::vector<int> a;

    // Added I first and A last, so that A heads the key's list.
    void AddTo(OrvSettingsKey& key) const {
        CArray<int, int> array;
        for (int value : a)
            array.Add(value);
        key.AddValue(L"I", i);
        key.AddValue(L"C", c);
        key.AddValue(L"D", d);
        key.AddValue(L"L", l);
        key.AddValue(L"S", s);
        key.AddValue(L"P", p);
        key.AddValue(L"R", r);
        key.AddValue(L"T", t);
        key.AddValue(L"A", array);
    }

    // Each value the key holds equals this one's.
    void ExpectIn(OrvSettingsKey& key) const {
        NineValues got{};
        CArray<int, int> array;
        key.GetValue(L"I", got.i);
        key.GetValue(L"C", got.c);
        key.GetValue(L"D", got.d);
        key.GetValue(L"L", got.l);
        key.GetValue(L"S", got.s);
        key.GetValue(L"P", got.p);
        key.GetValue(L"R", got.r);
        key.GetValue(L"T", got.t);
        key.GetValue(L"A", array);
        for (INT_PTR k = 0; k < array.GetSize(); ++k)
            got.a.push_back(array[k]);
        EXPECT_EQ(got.i, i);
        EXPECT_EQ(got.c, c);
        EXPECT_EQ(got.d, d);
        EXPECT_EQ(got.l, l);
        EXPECT_EQ(got.s, s);
        EXPECT_EQ(got.p, p);
        EXPECT_TRUE(got.r == r);
        EXPECT_EQ(got.t.GetTime(), t.GetTime());
        EXPECT_EQ(got.a, a);
    }
};
