#include "FolderTestObjects.h"

IMPLEMENT_SERIAL(TestFeature, OrvObject, 1)
IMPLEMENT_DYNAMIC(CountedFolder, OrvBaseFolder)

int CountedFolder::s_live = 0;

TestFeature::TestFeature(int number) : m_Number(number) {
    Live().insert(this);
}

TestFeature::~TestFeature() {
    Live().erase(this);
}

void TestFeature::Serialize(CArchive& ar) {
    ar.SerializeClass(RUNTIME_CLASS(TestFeature));
    OrvObject::Serialize(ar);
    if (ar.IsStoring())
        ar << m_Number;
    else
        ar >> m_Number;
}

std::set<TestFeature*>& TestFeature::Live() {
    static std::set<TestFeature*> live;
    return live;
}
