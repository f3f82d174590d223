// The serialisable root: its class tag, gated on the document's storage version, and the
// declared node's defaults.
#include <gtest/gtest.h>

#include <cmath>

#include "ActiveDocumentTest.h"
#include "core/OrvBaseObject.h"
#include "objects/OrvObject.h"
#include "support/ArchiveBytes.h"
#include "support/ArchiveRoundTrip.h"

// Records the schema that the base part leaves for it.
class SchemaProbe : public OrvBaseObject {
    DECLARE_SERIAL(SchemaProbe)
public:
    UINT m_SchemaSeen = 0;
    void Serialize(CArchive& ar) override {
        OrvBaseObject::Serialize(ar);
        if (ar.IsLoading())
            m_SchemaSeen = ar.GetObjectSchema();
    }
};
IMPLEMENT_SERIAL(SchemaProbe, OrvBaseObject, 1)

namespace {

using OrvBaseObjectArchive = ActiveDocumentTest;

TEST_F(OrvBaseObjectArchive, StoringWritesTheClassTag) {
    OrvBaseObject object;
    ArchiveBytes b;
    b.NewClass("OrvBaseObject", 2).ClassRef(1); // the object's class, then its base part's tag
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { ar << static_cast<CObject*>(&object); }), b.bytes());

    SchemaProbe probe;
    ArchiveBytes p;
    p.NewClass("SchemaProbe", 1).NewClass("OrvBaseObject", 2);
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { ar << static_cast<CObject*>(&probe); }), p.bytes());
}

std::unique_ptr<SchemaProbe> LoadProbe(const std::vector<std::uint8_t>& bytes, std::size_t* left) {
    CObject* loaded = nullptr;
    *left = LoadBytes(bytes, [&](CArchive& ar) { ar >> loaded; });
    return std::unique_ptr<SchemaProbe>(dynamic_cast<SchemaProbe*>(loaded));
}

// From storage version 6.2 on (0 counts as 40, a negative one goes by its size) the base part
// has its tag and schema 2; up to 6.0 it has none and schema 1.
TEST_F(OrvBaseObjectArchive, TheDocumentsVersionDecidesTheTagAndTheSchema) {
    ArchiveBytes tagged, untagged;
    tagged.NewClass("SchemaProbe", 1).NewClass("OrvBaseObject", 2);
    untagged.NewClass("SchemaProbe", 1);
    for (float version : {0.0f, 6.2f, 32.0f, -7.0f, 6.0f, 5.0f, 1.0f}) {
        SCOPED_TRACE(version);
        SetStorageVersion(version);
        const bool newer = version == 0.0f || std::fabs(version) > 6.0f;
        std::size_t left = 99;
        auto probe = LoadProbe((newer ? tagged : untagged).bytes(), &left);
        ASSERT_TRUE(probe);
        EXPECT_EQ(left, 0u);
        EXPECT_EQ(probe->m_SchemaSeen, newer ? 2u : 1u);
    }
}

TEST_F(OrvBaseObjectArchive, TagOfAnotherClassIsRefused) {
    SetStorageVersion(0.0f);
    ArchiveBytes b;
    b.NewClass("SchemaProbe", 1).ClassRef(1); // the base tag names SchemaProbe's own class...
    std::size_t left = 0;
    // ... which is derived from OrvBaseObject, so it is accepted; a class outside the family is
    // not.
    EXPECT_TRUE(LoadProbe(b.bytes(), &left));
    ArchiveBytes bad;
    bad.NewClass("SchemaProbe", 1).NewClass("CObList", 0);
    EXPECT_EQ(ArchiveCause([&] { LoadProbe(bad.bytes(), &left); }), CArchiveException::badClass);
}

TEST(OrvBaseObjectDeathTest, LoadingWithoutADocumentFaults) {
    NodeDocument::Activate(nullptr); // the active-document slot answers no document
    ArchiveBytes b;
    b.NewClass("SchemaProbe", 1).NewClass("OrvBaseObject", 2);
    std::size_t left = 0;
    EXPECT_DEATH(LoadProbe(b.bytes(), &left), "");
}

TEST(OrvBaseObjectClass, ArchivesCreateTheLibraryClassesByName) {
    for (const char* name :
         {"OrvBaseObject", "OrvObject", "OrvSettingsKey", "OrvSettingsValue", "OrvIntValue",
          "OrvColorValue", "OrvDoubleValue", "OrvLongDoubleStrValue", "OrvStringValue",
          "OrvPointValue", "OrvRectValue", "OrvTimeValue", "OrvIntArrayValue"}) {
        SCOPED_TRACE(name);
        std::unique_ptr<CObject> object(CRuntimeClass::CreateObject(name));
        ASSERT_TRUE(object);
        EXPECT_STREQ(object->GetRuntimeClass()->m_lpszClassName, name);
    }
}

} // namespace
