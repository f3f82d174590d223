#include "objects/OrvObject.h"

#include "core/OrvDumpBanner.h"
#include "core/OrvHostCallbacks.h"
#include "core/OrvLoadTracker.h"
#include "core/OrvObjectSlots.h"
#include "environment/CKelEnvApp.h"
#include "environment/OrvAppEnv.h"
#include "mfc/CException.h"
#include "objects/CFlaggedError.h"
#include "objects/OrvNodeLoadScope.h"
#include "objects/OrvObjectIndexerHelper.h"
#include "objects/OrvSerializeStatus.h"
#include "objects/ui_OrvObject.h"

IMPLEMENT_SERIAL(OrvObject, OrvBaseObject, VERSIONABLE_SCHEMA | 8)

namespace {

int DeliverCoreMessage(OrvObject* doc, ORV_CORE_MESSAGE_ID id, unsigned long long param,
                       long long extra) {
    return doc->SendOrvCoreMessage(id, param, extra);
}

// Documents are nodes: with this layer linked in, the core's messages reach them.
[[maybe_unused]] const bool kCoreMessagesDelivered =
    (SetOrvCoreMessageSender(&DeliverCoreMessage), true);

// Objects nested inside one another while loading, beyond which a file counts as damaged: each
// level is a stack frame of the loader, and a crafted file must not exhaust the stack.
constexpr std::size_t kMaxLoadDepth = 1000;

const wchar_t* StateName(int state) {
    switch (state) {
    case OrvObject::ACTIVE:
        return L"ACTIVE";
    case OrvObject::SUPPRESSED:
        return L"SUPPRESSED";
    case OrvObject::DELETED:
        return L"DELETED";
    case OrvObject::LOCKED:
        return L"LOCKED";
    default:
        return L"Nothing";
    }
}

const wchar_t* CompareName(int result) {
    switch (result) {
    case NO_MATCH:
        return L"NO_MATCH";
    case COMPLETE_MATCH:
        return L"COMPLETE_MATCH";
    case PROFILE_NODEPTH_MATCH:
        return L"PROFILE_NODEPTH_MATCH";
    case PARTIAL_PROFILE_MATCH:
        return L"PARTIAL_PROFILE_MATCH";
    case PARTIAL_MATCH_SUBSET:
        return L"PARTIAL_MATCH_SUBSET";
    default:
        return L"Nothing";
    }
}

OrvObject* AsNode(CObject* object) {
    return DYNAMIC_DOWNCAST(OrvObject, object);
}

// Removes every occurrence of `object`; answers whether one went.
bool RemoveEvery(CObList& list, CObject* object) {
    bool removed = false;
    for (POSITION pos = list.GetHeadPosition(); pos;) {
        const POSITION at = pos;
        if (list.GetNext(pos) == object) {
            list.RemoveAt(at);
            removed = true;
        }
    }
    return removed;
}

} // namespace

OrvObject::OrvObject() = default;

OrvObject::~OrvObject() {
    if (OrvNodeLoadScope::Destroyed(this))
        OrvObject::ReleaseLinks();
    delete m_pUiObject;
    DestroyPattern();
    DetachFromAllUserObjects();
}

// Layout, in file order: class tag; the OrvBaseObject part; the persistent users (schema 2);
// label, created by, date created, last modified; id; state; owner; last modified by (schema 3);
// status word (4); original owner (5); display colour (6); pattern manager (7); registered name
// for indexing (8).
void OrvObject::Serialize(CArchive& ar) {
    if (ar.IsLoading())
        OrvNodeLoadScope::Loading(this);
    ar.SerializeClass(RUNTIME_CLASS(OrvObject));
    if (ar.IsStoring()) {
        OrvBaseObject::Serialize(ar);
        StoreUserObjects(ar);
        ar << m_Label << m_CreatedBy << m_DateCreated << m_LastModified;
        ar << m_ObjectId << static_cast<int>(m_iState);
        WriteGuardedReference(ar, m_pOwner);
        ar << m_LastModifiedBy << m_wNodeStatus;
        WriteGuardedReference(ar, m_pOriginalOwner);
        ar << m_DisplayColor;
        WriteGuardedReference(ar, m_pPatternMngr);
        ar << m_RegNameForAutoIndexing;
        return;
    }

    const UINT schema = ar.GetObjectSchema();
    OrvNodeLoadScope scope(this);
    try {
        Load(ar, schema);
    } catch (...) {
        // The nodes this load made are freed by the scope; drop the links to them. Only the node
        // part is being loaded: what a derived class owns is left alone here.
        OrvObject::ReleaseLinks();
        throw;
    }
    scope.Commit();
}

void OrvObject::Load(CArchive& ar, UINT schema) {
    OrvLoadTracker tracker(this);
    if (OrvLoadTracker::Depth() > kMaxLoadDepth)
        AfxThrowArchiveException(CArchiveException::genericException);
    OrvBaseObject::Serialize(ar);
    if (schema >= 2)
        LoadUserObjects(ar);
    ar >> m_Label >> m_CreatedBy >> m_DateCreated >> m_LastModified;
    int state = ACTIVE;
    ar >> m_ObjectId >> state;
    m_iState = static_cast<OrvObjState>(state);
    ar >> m_pOwner;
    if (schema >= 3)
        ar >> m_LastModifiedBy;
    else
        m_LastModifiedBy = m_CreatedBy;
    m_wNodeStatus = 0;
    if (schema >= 4)
        ar >> m_wNodeStatus;
    m_pOriginalOwner = nullptr;
    if (schema >= 5)
        LoadOriginalOwner(ar);
    m_DisplayColor = 0xFFFFFFFF;
    if (schema >= 6)
        ar >> m_DisplayColor;
    if (schema >= 7)
        LoadPatternMgr(ar, tracker);
    if (schema >= 8) {
        ar >> m_RegNameForAutoIndexing;
    } else {
        CRuntimeClass* indexClass = GetRuntimeClassForAutoIndexing();
        m_RegNameForAutoIndexing = indexClass ? CString(indexClass->m_lpszClassName) : CString();
    }
}

void OrvObject::StoreUserObjects(CArchive& ar) {
    m_UserObjects.Serialize(ar);
}

// The CObList form, read element by element so that only nodes are accepted: a file that names
// another class here is damaged. Any failure becomes a generic archive exception.
void OrvObject::LoadUserObjects(CArchive& ar) {
    try {
        for (DWORD_PTR left = ar.ReadCount(); left > 0; --left) {
            OrvObject* user = nullptr;
            ar >> user;
            m_UserObjects.AddTail(user);
        }
    } catch (CException* e) {
        e->Delete();
        AfxThrowArchiveException(CArchiveException::genericException);
    }
}

void OrvObject::LoadOriginalOwner(CArchive& ar) {
    try {
        ar >> m_pOriginalOwner;
        if (m_pOriginalOwner && !m_pOriginalOwner->m_UserObjects.Find(this))
            m_pOriginalOwner->AddToUserObjectsList(this, 0);
    } catch (CException* e) {
        e->Delete();
        m_pOriginalOwner = nullptr;
    }
    // A node that still sits under the owner it was recycled from is no longer linked to it.
    if (m_pOwner && m_pOwner == m_pOriginalOwner)
        SetOriginalOwner(nullptr);
}

// The manager is owned by this node, so it must be an object that this load made for it alone.
// Until the pattern classes are registered only a null reference can stand here.
void OrvObject::LoadPatternMgr(CArchive& ar, OrvLoadTracker& tracker) {
    CRuntimeClass* managerClass = CRuntimeClass::FromName("OrvObjectPatternMgr");
    CObject* manager = ar.ReadObject(managerClass ? managerClass : RUNTIME_CLASS(OrvObject));
    if (manager && !managerClass)
        AfxThrowArchiveException(CArchiveException::badClass);
    if (manager && !tracker.Claim(manager))
        AfxThrowArchiveException(CArchiveException::badIndex);
    DestroyPattern();
    m_pPatternMngr = static_cast<OrvObject*>(manager);
}

void OrvObject::WriteGuardedReference(CArchive& ar, const CObject* reference) {
    bool failed = false;
    try {
        ar << reference;
    } catch (CException* e) {
        e->Delete();
        failed = true;
    } catch (...) { // any failure of a reference is stored as null and logged
        failed = true;
    }
    if (failed) {
        LogSerializationError(ORV_SERIALIZE_REFERENCE_ERROR);
        ar << static_cast<const CObject*>(nullptr);
    }
}

CString OrvObject::GetClassNameW() {
    return L"OrvObject";
}

void OrvObject::DumpData(FILE* file) {
    if (!file)
        return;
    OrvDumpBanner(file, L"OrvObject", L"Start");
    port::FilePrintf(file, L"\n m_Label: %s", m_Label.GetString());
    port::FilePrintf(file, L"\n m_CreatedBy: %s", m_CreatedBy.GetString());
    port::FilePrintf(file, L"\n m_DateCreated: %s", m_DateCreated.GetString());
    port::FilePrintf(file, L"\n m_LastModified: %s", m_LastModified.GetString());
    port::FilePrintf(file, L"\n m_LastModifiedBy: %s", m_LastModifiedBy.GetString());
    port::FilePrintf(file, L"\n m_ObjectId: %d", static_cast<int>(m_ObjectId));
    port::FilePrintf(file, L"\n m_iState : %s", StateName(m_iState));
    port::FilePrintf(file, L"\n Address of this: %p", static_cast<const void*>(this));
    for (POSITION pos = m_UserObjects.GetHeadPosition(); pos;) {
        if (OrvObject* user = AsNode(m_UserObjects.GetNext(pos))) {
            port::FilePrintf(file, L"\n Address of pObj: %p", static_cast<const void*>(user));
            port::FilePrintf(file, L"\n strObjName: %s", user->GetClassNameW().GetString());
        }
    }
    port::FilePrintf(file, L"\n m_CompareRes : %s", CompareName(m_CompareRes));
    port::FilePrintf(file, L"\n <---- m_pPatternMngr Start ---->");
    if (m_pPatternMngr)
        m_pPatternMngr->DumpData(file);
    port::FilePrintf(file, L"\n <---- m_pPatternMngr End ---->");
    port::FilePrintf(file, m_bIsMerged ? L"\n m_bIsMerged : YES" : L"\n m_bIsMerged : NO");
    port::FilePrintf(file, m_bMergeInProgress ? L"\n m_bMergeInProgress : YES"
                                              : L"\n m_bMergeInProgress : NO");
    OrvDumpBanner(file, L"OrvObject", L"End");
}

void OrvObject::DumpUserObjs(FILE* file) {
    if (!file)
        return;
    port::FilePrintf(file, L"\n ");
    port::FilePrintf(file, L"\nDumping for ======User Objects====== Start\n");
    port::FilePrintf(file, L"\n TotalUserObjects: %d", static_cast<int>(m_UserObjects.GetCount()));
    int number = 0;
    for (POSITION pos = m_UserObjects.GetHeadPosition(); pos; ++number) {
        CObject* entry = m_UserObjects.GetNext(pos);
        port::FilePrintf(file, L"\n ----");
        port::FilePrintf(file, L"\n UserObjNo: %d", number);
        OrvObject* user = AsNode(entry);
        if (!user)
            continue;
        port::FilePrintf(file, L"\n ObjName: %s", user->Name().GetString());
        port::FilePrintf(file, L"\n ObjectClassName : %s,  Address of pObj: %p",
                         user->GetClassNameW().GetString(), static_cast<const void*>(user));
        if (OrvObject* owner = user->GetOwner())
            port::FilePrintf(file, L"\n ObjectsOwnerClassName : %s,  Address of ObjectsOwner: %p",
                             owner->GetClassNameW().GetString(), static_cast<const void*>(owner));
    }
    port::FilePrintf(file, L"\nDumping for ======User Objects====== End\n");
}

void OrvObject::OnPostLoadFromStorageNotify() {}

CRuntimeClass* OrvObject::GetRuntimeClassForAutoIndexing() {
    return GetRuntimeClass();
}

CFlaggedError* OrvObject::GetFlag() {
    return nullptr;
}

int OrvObject::SendOrvCoreMessage(ORV_CORE_MESSAGE_ID, unsigned long long, long long) {
    return 0;
}

void OrvObject::onCreate() {
    orv_getActiveAutoIdHelper()->AddObj(this);
}

CString OrvObject::Name() {
    return m_Label;
}

void OrvObject::ChangeName(const CString& name) {
    m_Label = name;
}

OrvObject::OrvObjState OrvObject::GetState() {
    return m_iState;
}

void OrvObject::SetState(OrvObjState state) {
    if (state >= ACTIVE && state <= LOCKED)
        m_iState = state;
}

int OrvObject::IsEditable() {
    return 1;
}

int OrvObject::IsSuppressed1() {
    if (m_iState == SUPPRESSED)
        return 1;
    if (!IsEditable())
        return 1;
    return m_pOwner ? m_pOwner->IsSuppressed1() : 0;
}

int OrvObject::CanSuppress() {
    return m_pOwner ? !m_pOwner->IsSuppressed1() : 1;
}

int OrvObject::CanEditLabel() {
    return IsEditable() ? !IsLocked() : 0;
}

int OrvObject::CanHide() {
    return 1;
}

int OrvObject::GetNodeStatus(WORD mask) {
    return m_wNodeStatus & mask;
}

void OrvObject::SetNodeStatus(WORD mask, int on) {
    if (on)
        m_wNodeStatus = static_cast<WORD>(m_wNodeStatus | mask);
    else
        m_wNodeStatus = static_cast<WORD>(m_wNodeStatus & static_cast<WORD>(!mask));
}

template <typename Property> int OrvObject::ListState(CObList* list, Property property) {
    if (!list || list->IsEmpty())
        return 3;
    OrvObject* head = AsNode(list->GetHead());
    const int reference = head ? property(head) : 0;
    for (POSITION pos = list->GetHeadPosition(); pos;) {
        OrvObject* node = AsNode(list->GetNext(pos));
        if (!node)
            break;
        if (property(node) != reference)
            return 0;
    }
    return reference ? 1 : 2;
}

e_OrvSelSetDisplayState OrvObject::GetChildrenDisplayState(CObList* list) {
    return static_cast<e_OrvSelSetDisplayState>(ListState(
        list, [](OrvObject* node) { return node->GetNodeStatus(ORV_NODE_STATUS_DISPLAY); }));
}

e_OrvSelSetSuppressState OrvObject::GetChildrenSuppressedState(CObList* list) {
    return static_cast<e_OrvSelSetSuppressState>(
        ListState(list, [](OrvObject* node) { return node->IsSuppressed1(); }));
}

int OrvObject::IsLocked() {
    return m_iState == LOCKED;
}

int OrvObject::CanLock() {
    return m_pOwner ? !m_pOwner->IsLocked() : 1;
}

e_OrvSelSetLockState OrvObject::GetChildrenLockedState(CObList* list) {
    return static_cast<e_OrvSelSetLockState>(
        ListState(list, [](OrvObject* node) { return node->IsLocked(); }));
}

int OrvObject::CanHideDisplay() {
    return 0;
}

void OrvObject::AssociateParameters(OrvObject* target) {
    if (!target || !target->IsKindOf(RUNTIME_CLASS(OrvObject)))
        return;
    target->m_iState = m_iState;
    target->m_Label = m_Label;
}

COMPARE_RESULT OrvObject::Compare(OrvObject*) {
    return NO_MATCH;
}

const OrvParamHelper* OrvObject::GetParamHelper() {
    return nullptr;
}

int OrvObject::RemoveFromUserObjectsList(OrvObject* user) {
    if (m_pOriginalOwner == user)
        m_pOriginalOwner = nullptr;
    int removed = 0;
    try {
        if (RemoveEvery(m_UserObjects, user))
            removed = 1;
        if (RemoveEvery(m_TransientUserObjects, user))
            removed = 1;
    } catch (CException* e) {
        e->Delete();
    }
    return removed;
}

int OrvObject::GetIsUsingThisObject(OrvObject* object) {
    return object == m_pOriginalOwner || m_UserObjects.Find(object) ||
           m_TransientUserObjects.Find(object);
}

int OrvObject::GetIsPatternSupported() {
    return 0;
}

int OrvObject::GetRefPointForPattern(FRPosition&) {
    return 0;
}

int OrvObject::GetIsPatternObject() {
    return 0;
}

OrvDirectionRestriction* OrvObject::GetPatternDirectionRestriction() {
    return m_pOwner ? m_pOwner->GetPatternDirectionRestriction() : nullptr;
}

OrvDirectionRestriction* OrvObject::GetLinearPatternDirectionRestriction() {
    return m_pOwner ? m_pOwner->GetLinearPatternDirectionRestriction() : nullptr;
}

// The pattern of the source is copied by the pattern manager's own CopyParameters, which comes
// with the pattern classes.
int OrvObject::CopyParameters(OrvObject* source) {
    if (!source)
        return 0;
    m_iState = source->m_iState;
    m_wNodeStatus = source->m_wNodeStatus;
    m_DisplayColor = source->m_DisplayColor;
    m_CompareRes = source->m_CompareRes;
    m_RegNameForAutoIndexing = source->m_RegNameForAutoIndexing;
    return 1;
}

OrvObject* OrvObject::Clone() {
    return nullptr;
}

int OrvObject::RunCommand(unsigned int id, void* parameter, OrveThreadType type,
                          OrveThreadEndType endType) {
    return RunOrvCommand(this, id, parameter, type, endType);
}

OrveThreadStatus OrvObject::HandleCommand(OrveCommandType, unsigned int, void*&) {
    return ThreadFailed;
}

int OrvObject::IsLockedCheckOnly() {
    return m_iState == LOCKED;
}

void OrvObject::iCreate() {}

OrvCallbackHelper* OrvObject::iCallbackHelper() {
    return nullptr;
}

int OrvObject::Invalidate() {
    m_ObjectId = 0;
    m_Label.Empty();
    return 1;
}

int OrvObject::Merge(OrvObject* other) {
    if (other)
        return other->Merge(nullptr);
    m_bMergeInProgress = 1;
    m_bIsMerged = Invalidate();
    m_bMergeInProgress = 0;
    return m_bIsMerged;
}

int OrvObject::IsMerged() {
    return m_bIsMerged;
}

void OrvObject::SetMergeInProgress(int inProgress) {
    m_bMergeInProgress = inProgress;
}

int OrvObject::IsMergeInProgress() {
    return m_bMergeInProgress;
}

int OrvObject::Recycle() {
    SetOriginalOwner(m_pOwner);
    SetState(DELETED);
    return 1;
}

int OrvObject::Restore() {
    SetOriginalOwner(nullptr);
    SetState(ACTIVE);
    return 1;
}

int OrvObject::IsRecycled() {
    return GetState() == DELETED;
}

int OrvObject::LockThis() {
    SetState(LOCKED);
    return 1;
}

int OrvObject::UnLockThis() {
    SetState(ACTIVE);
    return 1;
}

int OrvObject::SetDisplayColor(DWORD color) {
    m_DisplayColor = color;
    return 1;
}

DWORD OrvObject::GetDisplayColor() {
    return m_DisplayColor;
}

void OrvObject::SetNodeDesc(CString) {}

CString OrvObject::GetNodeDesc() {
    return m_NodeDesc;
}

CString OrvObject::GetRegisterNodeName() {
    return CString();
}

void OrvObject::DumpTarvexObjects(FILE*) {}

void OrvObject::SetTimeTakenForGTP(CString time) {
    m_TimeTakenForGTP = time;
}

CString OrvObject::GetTimeTakenForGTP() {
    return m_TimeTakenForGTP;
}

int OrvObject::IsRebuildReqOnStockChange() {
    return 0;
}

int OrvObject::IsDirtyOnStockChange() {
    return 0;
}

void OrvObject::ResetFlagForStockChange() {
    if (CFlaggedError* flag = GetFlag()) {
        flag->ResetFlag();
        flag->SetFlagErrorType(NORMAL);
    }
    if (ui_OrvObject* companion = GetUiObject())
        companion->ResetFlagForStockChange();
}

void OrvObject::ResetFlagForSegDel() {
    ResetFlagForStockChange();
}

ui_OrvObject* OrvObject::GetUiObject() {
    if (m_pUiObject)
        return m_pUiObject;
    OrvCallbackHelper* helper = iCallbackHelper();
    if (helper && helper->GetCBUiObjCreate())
        m_pUiObject = helper->GetCBUiObjCreate()(this);
    UpdateLastModified();
    if (m_CreatedBy.IsEmpty())
        m_CreatedBy = AppEnv()->GetUserNameW();
    if (m_DateCreated.IsEmpty())
        m_DateCreated = m_LastModified;
    return m_pUiObject;
}

void OrvObject::SetOriginalOwner(OrvObject* owner) {
    if (m_pOriginalOwner)
        m_pOriginalOwner->RemoveFromUserObjectsList(this);
    m_pOriginalOwner = owner;
    if (owner)
        owner->AddToUserObjectsList(this, 0);
}

void OrvObject::UpdateLastModified() {
    const CKelEnvApp* env = AppEnv();
    m_LastModified = env->GetCurrentDate() + L"::" + env->GetTickCount();
    m_LastModifiedBy = env->GetUserNameW();
}

CString OrvObject::GetObjNamePlusObjID() {
    CString text;
    text.Format(L"%s-%d", Name().GetString(), static_cast<int>(GetObjectId()));
    return text;
}

DWORD OrvObject::GetObjectId() {
    if (m_ObjectId == 0)
        m_ObjectId = static_cast<DWORD>(GetNewObjectIdCB());
    return m_ObjectId;
}

void OrvObject::AddToUserObjectsList(OrvObject* user, int transient) {
    CObList& to = transient ? m_TransientUserObjects : m_UserObjects;
    CObList& from = transient ? m_UserObjects : m_TransientUserObjects;
    if (POSITION at = from.Find(user))
        from.RemoveAt(at);
    if (!to.Find(user))
        to.AddTail(user);
}

void OrvObject::DetachFromAllUserObjects() {
    try {
        while (!m_UserObjects.IsEmpty())
            if (OrvObject* user = AsNode(m_UserObjects.RemoveHead()))
                user->RemoveFromUserObjectsList(this);
        while (!m_TransientUserObjects.IsEmpty())
            if (OrvObject* user = AsNode(m_TransientUserObjects.RemoveHead()))
                user->RemoveFromUserObjectsList(this);
    } catch (CException* e) {
        e->Delete();
    }
}

void OrvObject::GetAllUserObjects(CObList* list) {
    if (list)
        list->AddTail(&m_UserObjects);
}

void OrvObject::RemoveDuplicatesFromUserObjects() {
    CObList unique(10);
    for (POSITION pos = m_UserObjects.GetHeadPosition(); pos;) {
        CObject* entry = m_UserObjects.GetNext(pos);
        if (!unique.Find(entry))
            unique.AddTail(entry);
    }
    m_UserObjects.RemoveAll();
    m_UserObjects.AddTail(&unique);
}

int OrvObject::DestroyPattern() {
    delete m_pPatternMngr;
    m_pPatternMngr = nullptr;
    return 1;
}

void OrvObject::SetMatch(OrvObject* match) {
    m_pMatch = match;
    m_MatchId = match ? match->GetObjectId() : 0;
}

void OrvObject::FindDangling(int) {}

void OrvObject::ReleaseLinks() {
    m_pOwner = nullptr;
    m_pOriginalOwner = nullptr;
    m_pMatch = nullptr;
    m_pPatternMngr = nullptr;
    m_UserObjects.RemoveAll();
    m_TransientUserObjects.RemoveAll();
}
