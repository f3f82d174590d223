// The node's behaviour: ids, states, status bits, suppression and locking through the tree, the
// list states, user lists, recycling, merge, copy and the companion.
#include <gtest/gtest.h>

#include "ActiveDocumentTest.h"
#include "objects/OrvCallbackHelper.h"
#include "objects/ui_OrvObject.h"
#include "support/DumpCapture.h"

namespace {

using NodeTest = ActiveDocumentTest;

TEST(NodeWithoutHost, ObjectIdIsAskedAgainUntilIssued) {
    NodeDocument::Activate(nullptr); // the id slot answers 0 without an active document
    OrvObject node;
    EXPECT_EQ(node.GetObjectId(), 0u);
    NodeDocument document;
    NodeDocument::Activate(&document);
    document.m_LastId = 40;
    EXPECT_EQ(node.GetObjectId(), 41u);
    EXPECT_EQ(node.GetObjectId(), 41u); // kept
    node.ChangeName(L"Pocket");
    EXPECT_EQ(node.GetObjNamePlusObjID(), CString(L"Pocket-41"));
    node.Invalidate();
    EXPECT_EQ(node.Name(), CString());
    EXPECT_EQ(node.GetObjectId(), 42u);
    NodeDocument::Activate(nullptr);
}

TEST_F(NodeTest, StatesAndStatusBits) {
    OrvObject node;
    EXPECT_EQ(node.GetState(), OrvObject::ACTIVE);
    node.SetState(static_cast<OrvObject::OrvObjState>(4));
    EXPECT_EQ(node.GetState(), OrvObject::ACTIVE);
    node.SetState(static_cast<OrvObject::OrvObjState>(-1));
    EXPECT_EQ(node.GetState(), OrvObject::ACTIVE);
    EXPECT_EQ(node.LockThis(), 1);
    EXPECT_EQ(node.IsLocked(), 1);
    EXPECT_EQ(node.IsLockedCheckOnly(), 1);
    EXPECT_EQ(node.CanEditLabel(), 0);
    EXPECT_EQ(node.UnLockThis(), 1);
    EXPECT_EQ(node.GetState(), OrvObject::ACTIVE);
    EXPECT_EQ(node.CanEditLabel(), 1);

    node.SetNodeStatus(0x0006, 1);
    EXPECT_EQ(node.GetNodeStatus(0xFFFF), 0x0006);
    node.SetNodeStatus(0x0002, 0); // any mask clears the whole word
    EXPECT_EQ(node.GetNodeStatus(0xFFFF), 0);
    node.SetNodeStatus(0x0007, 1);
    node.SetNodeStatus(0, 0); // mask 0 keeps bit 0 alone
    EXPECT_EQ(node.GetNodeStatus(0xFFFF), 0x0001);
    EXPECT_EQ(node.GetNodeStatus(0x0002), 0);
}

TEST_F(NodeTest, SuppressionInheritsDownLockingDoesNot) {
    OrvObject owner, child, grandchild;
    child.SetOwner(&owner);
    grandchild.SetOwner(&child);
    EXPECT_EQ(child.CanSuppress(), 1);
    owner.SetState(OrvObject::SUPPRESSED);
    EXPECT_EQ(child.GetState(), OrvObject::ACTIVE);
    EXPECT_EQ(child.IsSuppressed(), 1);
    EXPECT_EQ(grandchild.IsSuppressed(), 1);
    EXPECT_EQ(child.CanSuppress(), 0);
    EXPECT_EQ(owner.CanSuppress(), 1);

    owner.SetState(OrvObject::LOCKED);
    EXPECT_EQ(child.IsLocked(), 0);
    EXPECT_EQ(child.CanLock(), 0);
    EXPECT_EQ(grandchild.CanLock(), 1);
    EXPECT_EQ(child.IsSuppressed(), 0);
}

// A node that is not editable counts as suppressed and cannot have its label edited.
class FixedNode : public OrvObject {
public:
    int IsEditable() override { return 0; }
};

TEST_F(NodeTest, NotEditableCountsAsSuppressed) {
    FixedNode fixed;
    OrvObject child;
    child.SetOwner(&fixed);
    EXPECT_EQ(fixed.IsSuppressed1(), 1);
    EXPECT_EQ(fixed.CanEditLabel(), 0);
    EXPECT_EQ(child.IsSuppressed1(), 1);
}

TEST_F(NodeTest, ChildrenStates) {
    OrvObject probe, a, b;
    CObList list;
    EXPECT_EQ(probe.GetChildrenDisplayState(nullptr), 3);
    EXPECT_EQ(probe.GetChildrenDisplayState(&list), 3);
    list.AddTail(&a);
    list.AddTail(&b);
    EXPECT_EQ(probe.GetChildrenDisplayState(&list), 2);
    a.SetNodeStatus(0x0002, 1);
    EXPECT_EQ(probe.GetChildrenDisplayState(&list), 0);
    b.SetNodeStatus(0x0002, 1);
    EXPECT_EQ(probe.GetChildrenDisplayState(&list), 1);
    // Raw values are compared: another bit beside the display bit changes nothing.
    b.SetNodeStatus(0x0004, 1);
    EXPECT_EQ(probe.GetChildrenDisplayState(&list), 1);

    EXPECT_EQ(probe.GetChildrenSuppressedState(&list), 2);
    a.SetState(OrvObject::SUPPRESSED);
    EXPECT_EQ(probe.GetChildrenSuppressedState(&list), 0);
    EXPECT_EQ(probe.GetChildrenLockedState(&list), 2);
    a.SetState(OrvObject::LOCKED);
    b.SetState(OrvObject::LOCKED);
    EXPECT_EQ(probe.GetChildrenLockedState(&list), 1);

    // The walk stops at the first null entry.
    OrvObject c;
    list.RemoveAll();
    list.AddTail(&a);
    list.AddTail(static_cast<CObject*>(nullptr));
    list.AddTail(&c);
    EXPECT_EQ(probe.GetChildrenLockedState(&list), 1);
    // A null head counts as 0.
    list.RemoveAll();
    list.AddTail(static_cast<CObject*>(nullptr));
    EXPECT_EQ(probe.GetChildrenLockedState(&list), 2);
}

TEST_F(NodeTest, UserListsHoldAnObjectInOneListOnly) {
    OrvObject used, user;
    used.AddToUserObjectsList(&user, 1);
    EXPECT_EQ(used.GetCountOfUserObjects(), 0);
    EXPECT_EQ(used.GetIsUsingThisObject(&user), 1);
    used.AddToUserObjectsList(&user, 0);
    EXPECT_EQ(used.GetCountOfUserObjects(), 1);
    used.AddToUserObjectsList(&user, 0);
    EXPECT_EQ(used.GetCountOfUserObjects(), 1);
    used.AddToUserObjectsList(&user, 1);
    EXPECT_EQ(used.GetCountOfUserObjects(), 0);
    EXPECT_EQ(used.RemoveFromUserObjectsList(&user), 1);
    EXPECT_EQ(used.GetIsUsingThisObject(&user), 0);
    EXPECT_EQ(used.RemoveFromUserObjectsList(&user), 0);
}

TEST_F(NodeTest, GetAllUserObjectsAppendsThePersistentList) {
    OrvObject a, b, transient;
    OrvObject used; // goes first, while its users still stand
    used.AddToUserObjectsList(&a, 0);
    used.AddToUserObjectsList(&b, 0);
    used.AddToUserObjectsList(&transient, 1);
    CObList all;
    used.GetAllUserObjects(&all);
    ASSERT_EQ(all.GetCount(), 2);
    EXPECT_EQ(all.GetHead(), &a);
    EXPECT_EQ(all.GetTail(), &b);
}

TEST_F(NodeTest, RecycleAndRestore) {
    OrvObject owner, node;
    node.SetOwner(&owner);
    EXPECT_EQ(node.Recycle(), 1);
    EXPECT_EQ(node.GetOriginalOwner(), &owner);
    EXPECT_EQ(node.IsRecycled(), 1);
    EXPECT_EQ(owner.GetCountOfUserObjects(), 1);
    EXPECT_EQ(owner.GetIsUsingThisObject(&node), 1);
    EXPECT_EQ(node.GetIsUsingThisObject(&owner), 1); // the original owner counts
    EXPECT_EQ(node.Restore(), 1);
    EXPECT_EQ(node.GetOriginalOwner(), nullptr);
    EXPECT_EQ(node.GetState(), OrvObject::ACTIVE);
    EXPECT_EQ(owner.GetCountOfUserObjects(), 0);
}

TEST_F(NodeTest, RemovingTheOriginalOwnerAloneAnswersZero) {
    OrvObject owner, node;
    node.SetOwner(&owner);
    node.Recycle();
    // The node stands in no list of its own, so only the link goes.
    EXPECT_EQ(node.RemoveFromUserObjectsList(&owner), 0);
    EXPECT_EQ(node.GetOriginalOwner(), nullptr);
    owner.RemoveFromUserObjectsList(&node);
}

// Records who told it to drop a user.
class RecordingNode : public OrvObject {
public:
    std::vector<OrvObject*> m_told;
    int RemoveFromUserObjectsList(OrvObject* user) override {
        m_told.push_back(user);
        return OrvObject::RemoveFromUserObjectsList(user);
    }
};

TEST_F(NodeTest, DestructorTellsEveryUser) {
    RecordingNode a, b;
    auto* used = new OrvObject;
    const std::uintptr_t gone = reinterpret_cast<std::uintptr_t>(used);
    used->AddToUserObjectsList(&a, 0);
    used->AddToUserObjectsList(&b, 1);
    delete used;
    ASSERT_EQ(a.m_told.size(), 1u);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(a.m_told[0]), gone);
    ASSERT_EQ(b.m_told.size(), 1u);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(b.m_told[0]), gone);
}

TEST_F(NodeTest, DeletedOwnerClearsTheRecycledLink) {
    OrvObject node;
    {
        OrvObject owner;
        node.SetOwner(&owner);
        node.Recycle();
    }
    // The owner's destructor told the node through RemoveFromUserObjectsList.
    EXPECT_EQ(node.GetOriginalOwner(), nullptr);
    EXPECT_EQ(node.GetState(), OrvObject::DELETED);
}

TEST_F(NodeTest, MergeInvalidatesTheOther) {
    OrvObject kept, merged;
    kept.ChangeName(L"Keep");
    merged.ChangeName(L"Gone");
    const DWORD keptId = kept.GetObjectId();
    merged.GetObjectId();
    EXPECT_EQ(kept.Merge(&merged), 1);
    EXPECT_EQ(kept.Name(), CString(L"Keep"));
    EXPECT_EQ(kept.GetObjectId(), keptId);
    EXPECT_EQ(kept.IsMerged(), 0);
    EXPECT_EQ(merged.Name(), CString());
    EXPECT_EQ(merged.IsMerged(), 1);
    EXPECT_EQ(merged.IsMergeInProgress(), 0);
    const DWORD before = m_document.m_LastId;
    EXPECT_EQ(merged.GetObjectId(), before + 1); // a fresh id
}

TEST_F(NodeTest, CopyParametersAndAssociate) {
    OrvObject source, target;
    EXPECT_EQ(target.CopyParameters(nullptr), 0);
    source.ChangeName(L"Source");
    source.SetState(OrvObject::SUPPRESSED);
    source.SetNodeStatus(0x0005, 1);
    source.SetDisplayColor(0x00123456);
    source.SetCompareResult(PARTIAL_MATCH_SUBSET);
    source.SetRegNameForAutoIndexing(L"Hole");
    EXPECT_EQ(target.CopyParameters(&source), 1);
    EXPECT_EQ(target.GetState(), OrvObject::SUPPRESSED);
    EXPECT_EQ(target.GetNodeStatus(0xFFFF), 0x0005);
    EXPECT_EQ(target.GetDisplayColor(), 0x00123456u);
    EXPECT_EQ(target.GetCompareResult(), PARTIAL_MATCH_SUBSET);
    EXPECT_EQ(target.GetRegNameForAutoIndexing(), CString(L"Hole"));
    EXPECT_EQ(target.Name(), CString()); // not copied

    OrvObject associated;
    source.AssociateParameters(&associated);
    EXPECT_EQ(associated.Name(), CString(L"Source"));
    EXPECT_EQ(associated.GetState(), OrvObject::SUPPRESSED);
    EXPECT_EQ(associated.GetDisplayColor(), 0xFFFFFFFFu);
    source.AssociateParameters(nullptr);
}

TEST_F(NodeTest, MatchAndWhatAPlainNodeIgnores) {
    OrvObject node, match;
    node.SetMatch(&match);
    EXPECT_EQ(node.GetMatch(), &match);
    EXPECT_EQ(node.GetMatchId(), match.GetObjectId());
    EXPECT_NE(node.GetMatchId(), 0u);
    node.SetMatch(nullptr);
    EXPECT_EQ(node.GetMatchId(), 0u);
    EXPECT_EQ(node.Compare(&match), NO_MATCH);
    node.SetNodeDesc(L"ignored");
    EXPECT_EQ(node.GetNodeDesc(), CString());
    FRPosition point(1, 2, 3);
    EXPECT_EQ(node.GetRefPointForPattern(point), 0);
    EXPECT_EQ(point.x(), 1.0);
    int answer = 5;
    EXPECT_EQ(node.SendOrvCoreMessage(ORV_MSG_IS_DOC_MODIFIED,
                                      reinterpret_cast<std::uintptr_t>(&answer), 0),
              0);
    EXPECT_EQ(answer, 5);
}

// A companion that records the calls it receives.
class RecordingCompanion : public ui_OrvObject {
public:
    using ui_OrvObject::ui_OrvObject;
    void ResetFlagForStockChange() override { ++m_resets; }
    int m_resets = 0;
};

ui_OrvObject* MakeCompanion(OrvObject* node) {
    return new RecordingCompanion(node);
}

// A node class family with a companion, and a flag.
class CompanionNode : public DocNode {
public:
    static OrvCallbackHelper& Helper() {
        static OrvCallbackHelper helper;
        return helper;
    }

protected:
    OrvCallbackHelper* iCallbackHelper() override { return &Helper(); }
};

TEST_F(NodeTest, CompanionIsMadeOnceAndStampsTheAuditFields) {
    CompanionNode node;
    EXPECT_EQ(node.GetCreatedBy(), CString());
    EXPECT_EQ(node.GetLastModified(), CString());
    // Without a factory no companion comes about, but the audit fields are stamped.
    EXPECT_EQ(node.GetUiObject(), nullptr);
    EXPECT_FALSE(node.GetLastModified().IsEmpty());
    EXPECT_EQ(node.GetDateCreated(), node.GetLastModified());
    EXPECT_EQ(node.GetCreatedBy(), node.GetLastModifiedBy());
    // The stamp is "MM/dd/yyyy::HH:mm".
    const CString stamp = node.GetLastModified();
    ASSERT_EQ(stamp.GetLength(), 17);
    EXPECT_EQ(stamp[2], L'/');
    EXPECT_EQ(stamp[5], L'/');
    EXPECT_EQ(stamp.Mid(10, 2), CString(L"::"));
    EXPECT_EQ(stamp[14], L':');

    CompanionNode::Helper().SetCBUiObjCreate(MakeCompanion);
    EXPECT_EQ(CompanionNode::Helper().GetCBUiObjCreate(), &MakeCompanion);
    ui_OrvObject* companion = node.GetUiObject();
    ASSERT_NE(companion, nullptr);
    EXPECT_EQ(companion->GetObject(), &node);
    EXPECT_EQ(node.GetUiObject(), companion);

    node.m_Flag.SetFlag();
    node.m_Flag.SetFlagErrorType(SEGMENT);
    node.ResetFlagForStockChange();
    EXPECT_EQ(node.m_Flag.GetFlag(), 0);
    EXPECT_EQ(node.m_Flag.GetFlagErrorType(), NORMAL);
    EXPECT_EQ(static_cast<RecordingCompanion*>(companion)->m_resets, 1);
    node.ResetFlagForSegDel();
    EXPECT_EQ(static_cast<RecordingCompanion*>(companion)->m_resets, 2);
    CompanionNode::Helper().SetCBUiObjCreate(nullptr);
}

TEST_F(NodeTest, Dumps) {
    OrvObject node, user;
    node.ChangeName(L"Face");
    node.GetObjectId();
    node.SetState(OrvObject::LOCKED);
    node.SetCompareResult(COMPLETE_MATCH);
    user.ChangeName(L"Op");
    node.AddToUserObjectsList(&user, 0);
    const std::string expected =
        Banner("OrvObject", "Start") + "\n m_Label: Face\n m_CreatedBy: \n m_DateCreated: " +
        "\n m_LastModified: \n m_LastModifiedBy: \n m_ObjectId: " +
        std::to_string(node.GetObjectId()) +
        "\n m_iState : LOCKED\n Address of this: " + PointerText(&node) +
        "\n Address of pObj: " + PointerText(&user) +
        "\n strObjName: OrvObject\n m_CompareRes : COMPLETE_MATCH" +
        "\n <---- m_pPatternMngr Start ---->\n <---- m_pPatternMngr End ---->" +
        "\n m_bIsMerged : NO\n m_bMergeInProgress : NO" + Banner("OrvObject", "End");
    EXPECT_EQ(CaptureDump([&](FILE* f) { node.DumpData(f); }), expected);

    user.SetOwner(&node);
    const std::string users =
        "\n \nDumping for ======User Objects====== Start\n"
        "\n TotalUserObjects: 1\n ----\n UserObjNo: 0\n ObjName: Op"
        "\n ObjectClassName : OrvObject,  Address of pObj: " +
        PointerText(&user) +
        "\n ObjectsOwnerClassName : OrvObject,  Address of ObjectsOwner: " + PointerText(&node) +
        "\nDumping for ======User Objects====== End\n";
    EXPECT_EQ(CaptureDump([&](FILE* f) { node.DumpUserObjs(f); }), users);
    node.SetState(static_cast<OrvObject::OrvObjState>(3));
    node.DumpData(nullptr);
    node.DumpUserObjs(nullptr);
    node.RemoveFromUserObjectsList(&user);
}

} // namespace
