// The serialisable root: its class tag, gated on the document's storage version, and the
// declared node's defaults.
#include <gtest/gtest.h>

#include "addin/NodeDocument.h"
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

class OrvBaseObjectArchive : public ::testing::Test {
protected:
    void SetUp() override { NodeDocument::Activate(&m_document); }
    void TearDown() override { NodeDocument::Activate(nullptr); }
    void SetStorageVersion(float version) { m_document.m_StorageUnits = version; }
    NodeDocument m_document;
};

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

TEST_F(OrvBaseObjectArchive, NewerDocumentReadsTheTagAndItsSchema) {
    ArchiveBytes b;
    b.NewClass("SchemaProbe", 1).NewClass("OrvBaseObject", 2);
    for (float version : {0.0f /* counts as 40 */, 6.2f, 32.0f, -7.0f /* by its size */}) {
        SCOPED_TRACE(version);
        SetStorageVersion(version);
        std::size_t left = 99;
        auto probe = LoadProbe(b.bytes(), &left);
        ASSERT_TRUE(probe);
        EXPECT_EQ(left, 0u);
        EXPECT_EQ(probe->m_SchemaSeen, 2u);
    }
}

TEST_F(OrvBaseObjectArchive, DocumentOfVersionSixHasNoTagAndSchemaOne) {
    ArchiveBytes b;
    b.NewClass("SchemaProbe", 1);
    for (float version : {6.0f, 5.0f, 1.0f}) {
        SCOPED_TRACE(version);
        SetStorageVersion(version);
        std::size_t left = 99;
        auto probe = LoadProbe(b.bytes(), &left);
        ASSERT_TRUE(probe);
        EXPECT_EQ(left, 0u);
        EXPECT_EQ(probe->m_SchemaSeen, 1u);
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
    bool thrown = false;
    try {
        LoadProbe(bad.bytes(), &left);
    } catch (CArchiveException* e) {
        thrown = true;
        EXPECT_EQ(e->m_cause, CArchiveException::badClass);
        e->Delete();
    }
    EXPECT_TRUE(thrown);
}

TEST(OrvBaseObjectDeathTest, LoadingWithoutADocumentFaults) {
    NodeDocument::Activate(nullptr); // the active-document slot answers no document
    ArchiveBytes b;
    b.NewClass("SchemaProbe", 1).NewClass("OrvBaseObject", 2);
    std::size_t left = 0;
    EXPECT_DEATH(LoadProbe(b.bytes(), &left), "");
}

TEST(OrvBaseObjectClass, NamesAndRuntimeClasses) {
    OrvBaseObject base;
    SchemaProbe probe;
    OrvObject node;
    EXPECT_EQ(base.GetClassNameW(), L"OrvBaseObject");
    EXPECT_EQ(node.GetClassNameW(), L"OrvObject");
    EXPECT_EQ(base.GetRuntimeClassForAutoIndexing(), RUNTIME_CLASS(OrvBaseObject));
    EXPECT_EQ(probe.GetRuntimeClassForAutoIndexing(), RUNTIME_CLASS(SchemaProbe));
    EXPECT_EQ(node.GetRuntimeClassForAutoIndexing(), RUNTIME_CLASS(OrvObject));
    EXPECT_EQ(RUNTIME_CLASS(OrvBaseObject)->m_wSchema & 0xFFFF, 2u);
    EXPECT_EQ(RUNTIME_CLASS(OrvObject)->m_wSchema & 0xFFFF, 8u);
    EXPECT_TRUE(RUNTIME_CLASS(OrvObject)->IsDerivedFrom(RUNTIME_CLASS(OrvBaseObject)));
    base.DumpData(nullptr);
    base.OnPostLoadFromStorageNotify();
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

TEST(OrvObjectMessages, PlainNodeAnswersZeroAndLeavesTheVariable) {
    OrvObject node;
    int answer = 17;
    EXPECT_EQ(node.SendOrvCoreMessage(ORV_MSG_IS_DOC_MODIFIED,
                                      reinterpret_cast<std::uintptr_t>(&answer), 0),
              0);
    EXPECT_EQ(answer, 17);
}

} // namespace
