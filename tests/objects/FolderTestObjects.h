// Objects for the folder tests: a feature that archives a number and counts its live instances,
// and a folder that counts its live instances and cannot be archived.
#pragma once

#include <set>

#include "objects/OrvBaseFolder.h"
#include "objects/OrvObject.h"

class TestFeature : public OrvObject {
    DECLARE_SERIAL(TestFeature)
public:
    TestFeature() : TestFeature(0) {}
    explicit TestFeature(int number);
    ~TestFeature() override;

    void Serialize(CArchive& ar) override;
    OrvObject* Clone() override { return new TestFeature(m_Number); }

    int m_Number;

    // Every TestFeature alive, for the tests that must delete what a failed load left behind.
    static std::set<TestFeature*>& Live();
};

class CountedFolder : public OrvBaseFolder {
    DECLARE_DYNAMIC(CountedFolder)
public:
    CountedFolder() { ++s_live; }
    ~CountedFolder() override { --s_live; }

    static int s_live;
};
