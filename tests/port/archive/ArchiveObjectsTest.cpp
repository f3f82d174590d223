// The object protocol: classes and objects numbered together, references, schemas.
#include <gtest/gtest.h>

#include <memory>

#include "ArchiveTestClasses.h"
#include "support/ArchiveRoundTrip.h"

namespace {

class ArchiveObjects : public ::testing::Test {
protected:
    void TearDown() override { CNode::DeleteAll(); }
};

// The worked example: pA = {5, L"ab", pB}, pB = {7, L"", pA}. The class tag of index 1 is the
// WORD 0x8001, little-endian like every other value.
const char* const kWorkedExample = "FF FF 01 00 05 00 43 4E 6F 64 65"
                                   " 05 00 00 00 FF FE FF 02 61 00 62 00"
                                   " 01 80"
                                   " 07 00 00 00 FF FE FF 00"
                                   " 02 00";

} // namespace

TEST_F(ArchiveObjects, WorkedExampleByteForByte) {
    auto* pA = new CNode(5, L"ab");
    auto* pB = new CNode(7, L"");
    pA->m_pNext = pB;
    pB->m_pNext = pA;
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { ar << pA; }), Hex(kWorkedExample));
    CNode::DeleteAll();

    LoadBytes(Hex(kWorkedExample), [](CArchive& ar) {
        CNode* pA = nullptr;
        ar >> pA;
        ASSERT_NE(pA, nullptr);
        EXPECT_EQ(pA->m_n, 5);
        EXPECT_EQ(pA->m_str, L"ab");
        auto* pB = DYNAMIC_DOWNCAST(CNode, pA->m_pNext);
        ASSERT_NE(pB, nullptr);
        EXPECT_EQ(pB->m_n, 7);
        EXPECT_EQ(pB->m_str, L"");
        EXPECT_EQ(pB->m_pNext, pA); // the cycle closes on the same object
    });
    EXPECT_EQ(CNode::Live().size(), 2u);
}

TEST_F(ArchiveObjects, NullNewClassOldClassAndBackReference) {
    auto* pA = new CNode(1, L"");
    auto* pB = new CLeaf;
    pB->m_n = 2;
    auto* pC = new CNode(3, L"");
    const Bytes bytes = StoreBytes(
        [&](CArchive& ar) { ar << static_cast<CObject*>(nullptr) << pA << pB << pC << pA; });
    EXPECT_EQ(bytes, Hex("00 00"
                         " FF FF 01 00 05 00 43 4E 6F 64 65 01 00 00 00 FF FE FF 00 00 00"
                         " FF FF 01 00 05 00 43 4C 65 61 66 02 00 00 00 FF FE FF 00 00 00"
                         " 01 80 03 00 00 00 FF FE FF 00 00 00"
                         " 02 00"));
    CNode::DeleteAll();
    LoadBytes(bytes, [](CArchive& ar) {
        CObject* pNull = reinterpret_cast<CObject*>(1);
        CNode *pA, *pB, *pC, *pAgain;
        ar >> pNull >> pA >> pB >> pC >> pAgain;
        EXPECT_EQ(pNull, nullptr);
        EXPECT_EQ(pA->GetRuntimeClass(), RUNTIME_CLASS(CNode));
        EXPECT_EQ(pB->GetRuntimeClass(), RUNTIME_CLASS(CLeaf));
        EXPECT_EQ(pB->m_n, 2);
        EXPECT_EQ(pC->GetRuntimeClass(), RUNTIME_CLASS(CNode));
        EXPECT_EQ(pC->m_n, 3);
        EXPECT_EQ(pAgain, pA);
    });
}

TEST_F(ArchiveObjects, BackReferenceOfTheWrongKindIsBadClass) {
    EXPECT_EQ(LoadCause(Hex("FF FF 01 00 05 00 43 4E 6F 64 65 01 00 00 00 FF FE FF 00 00 00"
                            " 02 00"),
                        [](CArchive& ar) {
                            CNode* pNode;
                            ar >> pNode;
                            ar.ReadObject(RUNTIME_CLASS(CLeaf));
                        }),
              CArchiveException::badClass);
}

// Indexes from 0x7FFF on take the escape WORD 0x7FFF and a DWORD, for objects and classes.
TEST_F(ArchiveObjects, BigIndexesEscapeToDoubleWords) {
    const auto mapped = std::make_unique<COther[]>(0x7FFE);
    auto* pA = new CNode(1, L"");
    auto* pB = new CNode(2, L"");
    const auto writeAll = [&](CArchive& ar) {
        for (int i = 0; i < 0x7FFE; ++i)
            ar.MapObject(&mapped[i]);
        ar << pA << pA << pB << &mapped[0x7FFD];
    };
    const Bytes bytes = StoreBytes(writeAll);
    EXPECT_EQ(bytes, Hex("FF FF 01 00 05 00 43 4E 6F 64 65 01 00 00 00 FF FE FF 00 00 00"
                         " FF 7F 00 80 00 00"
                         " FF 7F FF 7F 00 80 02 00 00 00 FF FE FF 00 00 00"
                         " FE 7F"));
    CNode::DeleteAll();
    LoadBytes(bytes, [&](CArchive& ar) {
        for (int i = 0; i < 0x7FFE; ++i)
            ar.MapObject(&mapped[i]);
        CNode *pA, *pAgain, *pB;
        CObject* pMapped;
        ar >> pA >> pAgain >> pB >> pMapped;
        EXPECT_EQ(pAgain, pA);
        EXPECT_EQ(pB->m_n, 2);
        EXPECT_EQ(pMapped, &mapped[0x7FFD]);
    });
}

TEST_F(ArchiveObjects, IndexJustBelowTheEscapeIsAWord) {
    const auto mapped = std::make_unique<COther[]>(0x7FFC);
    auto* pA = new CNode(1, L"");
    auto* pB = new CNode(2, L"");
    const Bytes bytes = StoreBytes([&](CArchive& ar) {
        for (int i = 0; i < 0x7FFC; ++i)
            ar.MapObject(&mapped[i]);
        ar << pA << pA << pB;
    });
    // The class gets 0x7FFD (tag 0xFFFD), pA 0x7FFE.
    EXPECT_EQ(bytes, Hex("FF FF 01 00 05 00 43 4E 6F 64 65 01 00 00 00 FF FE FF 00 00 00"
                         " FE 7F"
                         " FD FF 02 00 00 00 FF FE FF 00 00 00"));
}

TEST_F(ArchiveObjects, SerializeClassWritesAClassTag) {
    COther other;
    const Bytes bytes = StoreBytes([&](CArchive& ar) { ar << &other; });
    EXPECT_EQ(bytes, Hex("FF FF 01 00 06 00 43 4F 74 68 65 72 01 80"));
    LoadBytes(bytes, [](CArchive& ar) {
        std::unique_ptr<CObject> p(ar.ReadObject(RUNTIME_CLASS(COther)));
        EXPECT_TRUE(p->IsKindOf(RUNTIME_CLASS(COther)));
    });
}

TEST_F(ArchiveObjects, VersionableSchemaReachesSerializeOnceAndIsRemembered) {
    CVersioned own;
    // The versionable bit is not written: schema 3.
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { ar << &own; }),
              Hex("FF FF 03 00 0A 00 43 56 65 72 73 69 6F 6E 65 64"));

    // An older document at schema 2, two objects of the class.
    LoadBytes(Hex("FF FF 02 00 0A 00 43 56 65 72 73 69 6F 6E 65 64 01 80"), [](CArchive& ar) {
        EXPECT_EQ(ar.GetObjectSchema(), 0xFFFFFFFFu);
        std::unique_ptr<CObject> p1(ar.ReadObject(nullptr));
        std::unique_ptr<CObject> p2(ar.ReadObject(nullptr));
        auto* v1 = static_cast<CVersioned*>(p1.get());
        auto* v2 = static_cast<CVersioned*>(p2.get());
        EXPECT_EQ(v1->m_firstSchema, 2u);
        EXPECT_EQ(v1->m_secondSchema, 0xFFFFFFFFu);
        EXPECT_EQ(v2->m_firstSchema, 2u);
        EXPECT_EQ(ar.GetObjectSchema(), 0xFFFFFFFFu);
    });
    // The current version loads with its own schema.
    LoadBytes(Hex("FF FF 03 00 0A 00 43 56 65 72 73 69 6F 6E 65 64"), [](CArchive& ar) {
        std::unique_ptr<CObject> p(ar.ReadObject(RUNTIME_CLASS(CVersioned)));
        EXPECT_EQ(static_cast<CVersioned*>(p.get())->m_firstSchema, 3u);
    });
}

TEST_F(ArchiveObjects, SerializeClassOnLoadSetsTheObjectSchema) {
    LoadBytes(Hex("FF FF 01 00 06 00 43 4F 74 68 65 72"), [](CArchive& ar) {
        ar.SerializeClass(RUNTIME_CLASS(COther));
        EXPECT_EQ(ar.GetObjectSchema(), 1u);
        EXPECT_EQ(ar.GetObjectSchema(), 0xFFFFFFFFu);
        ar.SetObjectSchema(9);
        EXPECT_EQ(ar.GetObjectSchema(), 9u);
    });
}

TEST_F(ArchiveObjects, MapObjectNumbersWithoutWriting) {
    COther known;
    const Bytes bytes = StoreBytes([&](CArchive& ar) {
        ar.MapObject(&known);
        ar << &known;
    });
    EXPECT_EQ(bytes, Hex("01 00"));
    LoadBytes(bytes, [&](CArchive& ar) {
        ar.MapObject(&known);
        CObject* p;
        ar >> p;
        EXPECT_EQ(p, &known);
    });
}

TEST_F(ArchiveObjects, ClassesWithoutSerialCannotBeWrittenOrAskedFor) {
    CDynamicOnly dynamicOnly;
    EXPECT_TRUE(ThrowsMfc<CNotSupportedException>(
        [&] { StoreBytes([&](CArchive& ar) { ar << &dynamicOnly; }); }));
    EXPECT_EQ(
        LoadCause(Hex(kWorkedExample), [](CArchive& ar) { ar.ReadObject(RUNTIME_CLASS(CObject)); }),
        -2);
}
