// Damaged archives end in a CArchiveException with MFC's cause, delete the object being made
// and leak nothing.
#include <gtest/gtest.h>

#include <string>

#include "ArchiveTestClasses.h"
#include "support/ArchiveRoundTrip.h"

// Class names of 63 and 64 characters: a description holds at most 63.
class C12345678901234567890123456789012345678901234567890123456789012 : public CObject {
    DECLARE_SERIAL(C12345678901234567890123456789012345678901234567890123456789012)
};
class C123456789012345678901234567890123456789012345678901234567890123 : public CObject {
    DECLARE_SERIAL(C123456789012345678901234567890123456789012345678901234567890123)
};
IMPLEMENT_SERIAL(C12345678901234567890123456789012345678901234567890123456789012, CObject, 1)
IMPLEMENT_SERIAL(C123456789012345678901234567890123456789012345678901234567890123, CObject, 1)

namespace {

class ArchiveDamage : public ::testing::Test {
protected:
    void TearDown() override { CNode::DeleteAll(); }
};

Bytes Description(const std::string& name) {
    Bytes bytes = Hex("FF FF 01 00");
    bytes.push_back(static_cast<BYTE>(name.size()));
    bytes.push_back(0);
    bytes.insert(bytes.end(), name.begin(), name.end());
    return bytes;
}

void ReadNode(CArchive& ar) {
    CNode* p = nullptr;
    ar >> p;
}

const char* const kNodeHead = "FF FF 01 00 05 00 43 4E 6F 64 65 05 00 00 00 FF FE FF 00 ";

} // namespace

TEST_F(ArchiveDamage, TruncatedAtEveryLengthOfTheWorkedExample) {
    const Bytes full = Hex("FF FF 01 00 05 00 43 4E 6F 64 65"
                           " 05 00 00 00 FF FE FF 02 61 00 62 00"
                           " 01 80"
                           " 07 00 00 00 FF FE FF 00"
                           " 02 00");
    ASSERT_EQ(full.size(), 35u);
    for (size_t cut = 0; cut < full.size(); ++cut) {
        SCOPED_TRACE(cut);
        // A class name cut short is an unknown class, as in MFC; everything else ran out of data.
        const int expected =
            cut >= 6 && cut <= 10 ? CArchiveException::badClass : CArchiveException::endOfFile;
        EXPECT_EQ(LoadCause(Bytes(full.begin(), full.begin() + static_cast<long>(cut)), ReadNode),
                  expected);
        EXPECT_TRUE(CNode::Live().empty()) << "objects of a failed load were not deleted";
    }
}

TEST_F(ArchiveDamage, IndexesOutOfRange) {
    EXPECT_EQ(LoadCause(Hex("03 00"), ReadNode), CArchiveException::badIndex);
    EXPECT_EQ(LoadCause(Hex("05 80"), ReadNode), CArchiveException::badIndex);
    EXPECT_EQ(LoadCause(Hex("00 80"), ReadNode), CArchiveException::badIndex);
    EXPECT_EQ(LoadCause(Hex("FF 7F 09 00 00 00"), ReadNode), CArchiveException::badIndex);
    EXPECT_EQ(LoadCause(Hex("FF 7F 09 00 00 80"), ReadNode), CArchiveException::badIndex);
    // A reference from inside an object to a slot not yet filled.
    EXPECT_EQ(LoadCause(Hex(std::string(kNodeHead) + "03 00"), ReadNode),
              CArchiveException::badIndex);
    EXPECT_TRUE(CNode::Live().empty());
}

TEST_F(ArchiveDamage, ObjectTagOnAClassSlotAndClassTagOnAnObjectSlot) {
    EXPECT_EQ(LoadCause(Hex(std::string(kNodeHead) + "01 00"), ReadNode),
              CArchiveException::badIndex);
    EXPECT_EQ(LoadCause(Hex(std::string(kNodeHead) + "02 80"), ReadNode),
              CArchiveException::badIndex);
    EXPECT_TRUE(CNode::Live().empty());
}

TEST_F(ArchiveDamage, ObjectTagWhereOnlyAClassMayStand) {
    LoadBytes(Hex("FF FF 01 00 06 00 43 4F 74 68 65 72"),
              [](CArchive& ar) { ar.SerializeClass(RUNTIME_CLASS(COther)); });
    EXPECT_EQ(
        LoadCause(Hex("00 00"), [](CArchive& ar) { ar.SerializeClass(RUNTIME_CLASS(COther)); }),
        CArchiveException::badIndex);
}

TEST_F(ArchiveDamage, UnknownAndOverlongClassNames) {
    EXPECT_EQ(LoadCause(Hex("FF FF 01 00 05 00 43 4E 6F 70 65"), ReadNode),
              CArchiveException::badClass);
    // Made without SERIAL: not a class an archive may name.
    EXPECT_EQ(
        LoadCause(Description("CDynamicOnly"), [](CArchive& ar) { delete ar.ReadObject(nullptr); }),
        CArchiveException::badClass);

    const std::string name63 = "C12345678901234567890123456789012345678901234567890123456789012";
    const std::string name64 = "C123456789012345678901234567890123456789012345678901234567890123";
    ASSERT_EQ(name63.size(), 63u);
    ASSERT_EQ(name64.size(), 64u);
    LoadBytes(Description(name63), [](CArchive& ar) {
        CObject* p = ar.ReadObject(nullptr);
        EXPECT_TRUE(p->IsKindOf(
            RUNTIME_CLASS(C12345678901234567890123456789012345678901234567890123456789012)));
        delete p;
    });
    EXPECT_EQ(LoadCause(Description(name64), [](CArchive& ar) { delete ar.ReadObject(nullptr); }),
              CArchiveException::badClass);
}

TEST_F(ArchiveDamage, SchemaMismatchOfANonVersionableClass) {
    EXPECT_EQ(
        LoadCause(Hex("FF FF 02 00 05 00 43 4E 6F 64 65 05 00 00 00 FF FE FF 00 00 00"), ReadNode),
        CArchiveException::badSchema);
}

TEST_F(ArchiveDamage, ClassNotDerivedFromTheOneAskedFor) {
    EXPECT_EQ(LoadCause(Hex("FF FF 01 00 06 00 43 4F 74 68 65 72 01 80"), ReadNode),
              CArchiveException::badClass);
    // Asking for the derived class when the stream holds the base.
    EXPECT_EQ(LoadCause(Hex(std::string(kNodeHead) + "00 00"),
                        [](CArchive& ar) { ar.ReadObject(RUNTIME_CLASS(CLeaf)); }),
              CArchiveException::badClass);
    EXPECT_TRUE(CNode::Live().empty());
}
