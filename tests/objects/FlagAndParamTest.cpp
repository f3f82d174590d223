// The flagged error and the parameter helpers: fields, copies, archive layouts and dumps.
#include <gtest/gtest.h>

#include <cmath>

#include "ActiveDocumentTest.h"
#include "geometry/FRConstants.h"
#include "objects/CFlaggedError.h"
#include "objects/OrvDocParamHelper.h"
#include "objects/OrvSetupParamHelper.h"
#include "support/ArchiveBytes.h"
#include "support/ArchiveRoundTrip.h"
#include "support/DumpCapture.h"

namespace {

using FlaggedErrorTest = ActiveDocumentTest;

TEST_F(FlaggedErrorTest, ConstructionCloneAndReset) {
    CFlaggedError made;
    EXPECT_EQ(made.ReportError(), -1);
    EXPECT_EQ(made.GetFlagErrorType(), NORMAL);
    EXPECT_EQ(made.GetFlag(), 0);

    CFlaggedError flag(77, SEGMENT);
    flag.SetFlag();
    flag.SetCanClearError(1);
    flag.SetAllowEditingFlag(1);
    std::unique_ptr<CFlaggedError> clone(flag.Clone());
    EXPECT_EQ(clone->GetFlag(), 1);
    EXPECT_EQ(clone->GetFlagErrorType(), SEGMENT);
    EXPECT_EQ(clone->ReportError(), 77);
    EXPECT_EQ(clone->GetCanClearError(), 1);
    EXPECT_EQ(clone->GetAllowEditingFlag(), 1);

    // Resetting the flag keeps the reason.
    flag.ResetFlag();
    EXPECT_EQ(flag.GetFlag(), 0);
    EXPECT_EQ(flag.GetFlagErrorType(), SEGMENT);
}

TEST_F(FlaggedErrorTest, StoredLayoutIsTagFlagAndType) {
    CFlaggedError flag(5, STOCK);
    flag.SetFlag();
    flag.SetCanClearError(1);
    ArchiveBytes expected;
    expected.NewClass("CFlaggedError", 2).Int(1).Int(1);
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { flag.Serialize(ar); }), expected.bytes());
}

TEST_F(FlaggedErrorTest, LoadReadsTypeOnlyBehindATagOfSchemaTwo) {
    ArchiveBytes current;
    current.NewClass("CFlaggedError", 2).Int(1).Int(2);
    CFlaggedError flag(9, STOCK);
    EXPECT_EQ(LoadBytes(current.bytes(), [&](CArchive& ar) { flag.Serialize(ar); }), 0u);
    EXPECT_EQ(flag.GetFlag(), 1);
    EXPECT_EQ(flag.GetFlagErrorType(), SEGMENT);
    EXPECT_EQ(flag.ReportError(), 9); // not in the file

    ArchiveBytes schemaOne;
    schemaOne.NewClass("CFlaggedError", 1).Int(1);
    CFlaggedError older(9, STOCK);
    EXPECT_EQ(LoadBytes(schemaOne.bytes(), [&](CArchive& ar) { older.Serialize(ar); }), 0u);
    EXPECT_EQ(older.GetFlag(), 1);
    EXPECT_EQ(older.GetFlagErrorType(), STOCK);
}

TEST_F(FlaggedErrorTest, OldDocumentHasNoTagAndKeepsTheConstructedType) {
    SetStorageVersion(32.0f);
    ArchiveBytes old;
    old.Int(1);
    CFlaggedError flag(3, SEGMENT);
    EXPECT_EQ(LoadBytes(old.bytes(), [&](CArchive& ar) { flag.Serialize(ar); }), 0u);
    EXPECT_EQ(flag.GetFlag(), 1);
    EXPECT_EQ(flag.GetFlagErrorType(), SEGMENT);
    // 32.002 itself is still an old document; just above it has the tag.
    SetStorageVersion(32.002f);
    CFlaggedError edge(3, NORMAL);
    EXPECT_EQ(LoadBytes(old.bytes(), [&](CArchive& ar) { edge.Serialize(ar); }), 0u);
    SetStorageVersion(32.01f);
    ArchiveBytes tagged;
    tagged.NewClass("CFlaggedError", 2).Int(0).Int(1);
    EXPECT_EQ(LoadBytes(tagged.bytes(), [&](CArchive& ar) { edge.Serialize(ar); }), 0u);
    EXPECT_EQ(edge.GetFlagErrorType(), STOCK);
}

TEST_F(FlaggedErrorTest, TruncatedFlagThrowsAndKeepsTheFlag) {
    ArchiveBytes cut;
    cut.NewClass("CFlaggedError", 2).Int(1).Word(2);
    CFlaggedError flag(3, NORMAL);
    EXPECT_EQ(
        ArchiveCause([&] { LoadBytes(cut.bytes(), [&](CArchive& ar) { flag.Serialize(ar); }); }),
        CArchiveException::endOfFile);
    EXPECT_EQ(flag.GetFlag(), 0);
}

TEST_F(FlaggedErrorTest, Dump) {
    CFlaggedError flag(42, SEGMENT);
    flag.SetFlag();
    flag.SetAllowEditingFlag(1);
    const std::string expected = Banner("CFlaggedError", "Start") +
                                 "\n m_eFlaggedErrorType : SEGMENT\n m_bFlag : YES"
                                 "\n m_iErrorStringID: 42\n m_bCanClearError : NO"
                                 "\n m_bAllowEditing : YES" +
                                 Banner("CFlaggedError", "End");
    EXPECT_EQ(CaptureDump([&](FILE* f) { flag.DumpData(f); }), expected);
    CFlaggedError odd(1, static_cast<FlaggedErrorEnum>(7));
    EXPECT_NE(CaptureDump([&](FILE* f) { odd.DumpData(f); }).find("Type : Nothing\n m_bFlag : NO"),
              std::string::npos);
    flag.DumpData(nullptr);
}

TEST(SetupParamHelper, DefaultsAndLayout) {
    OrvSetupParamHelper helper;
    EXPECT_EQ(helper.Direction().z(), 1.0);
    EXPECT_EQ(helper.GetAngle(), 0.0);
    EXPECT_EQ(helper.Clearance(), 0.0);
    helper.GetReferencePosition() = FRPosition(1, 2, 3);
    helper.FromPoint() = FRPosition(4, 5, 6);
    helper.Clearance() = 7.5;
    helper.SetAngle(0.25);
    ArchiveBytes expected; // no class tag: direction, reference, from point, clearance, angle
    expected.Double(0).Double(0).Double(1).Double(1).Double(2).Double(3);
    expected.Double(4).Double(5).Double(6).Double(7.5).Double(0.25);
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { helper.Serialize(ar); }), expected.bytes());

    OrvSetupParamHelper loaded;
    EXPECT_EQ(LoadBytes(expected.bytes(), [&](CArchive& ar) { loaded.Serialize(ar); }), 0u);
    EXPECT_EQ(loaded.GetReferencePosition().y(), 2.0);
    EXPECT_EQ(loaded.FromPoint().z(), 6.0);
    EXPECT_EQ(loaded.Clearance(), 7.5);
    EXPECT_EQ(loaded.GetAngle(), 0.25);
}

bool Near(const FRPosition& p, double x, double y, double z) {
    return std::fabs(p.x() - x) < 1e-9 && std::fabs(p.y() - y) < 1e-9 &&
           std::fabs(p.z() - z) < 1e-9;
}

TEST(SetupParamHelper, TransformWithDefaultsTurnsMinusZUp) {
    OrvSetupParamHelper helper;
    // The plane of (0, 0, -1): a half turn about X, nothing else.
    const FRPosition p = FRPosition(1, 2, 3) * helper.Transform();
    EXPECT_TRUE(Near(p, 1, -2, -3)) << p.x() << " " << p.y() << " " << p.z();
}

TEST(SetupParamHelper, TransformMovesThenTurnsThenRotates) {
    OrvSetupParamHelper helper;
    helper.GetReferencePosition() = FRPosition(1, 0, 0);
    helper.SetAngle(PI / 2);
    // (2,0,0): moved to (1,0,0), unchanged by the half turn about X, then a quarter turn about -Z
    // takes it to (0,-1,0). (1,1,0): (0,1,0), (0,-1,0), then (-1,0,0).
    EXPECT_TRUE(Near(FRPosition(2, 0, 0) * helper.Transform(), 0, -1, 0));
    EXPECT_TRUE(Near(FRPosition(1, 1, 0) * helper.Transform(), -1, 0, 0));
}

TEST(DocParamHelper, FieldsAndLayout) {
    OrvDocParamHelper helper(0);
    EXPECT_EQ(helper.IsDocumentUnitsMm(), 1);
    EXPECT_EQ(helper.GetDocParamReadStorageUnits(), 40.0f);
    helper.SetDocParamReadStorageUnits(31.5f);
    EXPECT_EQ(helper.GetDocParamReadStorageUnits(), 31.5f);
    helper.SetDocParamUnits(3);
    EXPECT_EQ(helper.IsDocumentUnitsMm(), 0);
    helper.SetDocumentModifiedFlag(1);
    ArchiveBytes expected;
    expected.Int(3); // the units alone
    EXPECT_EQ(StoreBytes([&](CArchive& ar) { helper.Serialize(ar); }), expected.bytes());
    OrvDocParamHelper loaded(0);
    EXPECT_EQ(LoadBytes(expected.bytes(), [&](CArchive& ar) { loaded.Serialize(ar); }), 0u);
    EXPECT_EQ(loaded.GetDocParamUnits(), 3);
    EXPECT_EQ(loaded.IsDocumentModified(), 0);
    EXPECT_EQ(loaded.GetDocParamReadStorageUnits(), 40.0f);
}

} // namespace
