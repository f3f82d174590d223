// OrvObject: the node of the document tree. The add-in's document object is one, and so is every
// thing the document holds (folders, pattern managers, command records, and the add-in's features,
// operations and setups). It carries identity and audit fields, a life state, status bits, the
// lists of the objects that use it, the owner links that carry recycling, the interface companion,
// the optional pattern, the merge, compare and copy protocol, and the archive layout.
#pragma once

#include "port/Export.h"

#include <cstddef>
#include <cstdio>

#include "core/OrvBaseObject.h"
#include "core/OrvCoreMessage.h"
#include "core/OrvThreadEnums.h"
#include "geometry/FRPosition.h"
#include "mfc/CObList.h"
#include "objects/OrvCallbackHelper.h"
#include "win/types.h"

class CFlaggedError;
class OrvParamHelper;
class OrvDirectionRestriction;
class OrvLoadTracker;
class ui_OrvObject;

enum COMPARE_RESULT : int {
    NO_MATCH = 0,
    COMPLETE_MATCH = 1,
    PROFILE_NODEPTH_MATCH = 2,
    PARTIAL_PROFILE_MATCH = 3,
    PARTIAL_MATCH_SUBSET = 4,
};

// What a list of nodes says about one property: 0 mixed, 1 all have it, 2 none has it, 3 the list
// is null or empty.
enum e_OrvSelSetDisplayState : int {
    ORV_SELSET_DISPLAY_MIXED = 0,
    ORV_SELSET_DISPLAY_ALL = 1,
    ORV_SELSET_DISPLAY_NONE = 2,
    ORV_SELSET_DISPLAY_EMPTY = 3,
};
enum e_OrvSelSetSuppressState : int {
    ORV_SELSET_SUPPRESS_MIXED = 0,
    ORV_SELSET_SUPPRESS_ALL = 1,
    ORV_SELSET_SUPPRESS_NONE = 2,
    ORV_SELSET_SUPPRESS_EMPTY = 3,
};
enum e_OrvSelSetLockState : int {
    ORV_SELSET_LOCK_MIXED = 0,
    ORV_SELSET_LOCK_ALL = 1,
    ORV_SELSET_LOCK_NONE = 2,
    ORV_SELSET_LOCK_EMPTY = 3,
};

// The status bit that GetChildrenDisplayState reads as the display flag.
constexpr WORD ORV_NODE_STATUS_DISPLAY = 0x0002;

class ORV_API OrvObject : public OrvBaseObject {
    DECLARE_SERIAL(OrvObject)
public:
    enum OrvObjState : int { ACTIVE = 0, SUPPRESSED = 1, DELETED = 2, LOCKED = 3 };

    OrvObject();
    // Deletes the companion and the pattern, and detaches this object from its users. It does not
    // tell its owner or original owner.
    ~OrvObject() override;

    // Schema 8; see the layout in the source.
    void Serialize(CArchive& ar) override;
    CString GetClassNameW() override;
    void DumpData(FILE* file) override;
    void OnPostLoadFromStorageNotify() override;
    CRuntimeClass* GetRuntimeClassForAutoIndexing() override;

    virtual CFlaggedError* GetFlag();
    // Answers a message of the library (`param` is the address of the answer or argument). A node
    // that is not a document answers 0 and leaves the variable alone.
    virtual int SendOrvCoreMessage(ORV_CORE_MESSAGE_ID id, unsigned long long param,
                                   long long extra);
    // Enters this object into the indexer of the active document.
    virtual void onCreate();
    virtual CString Name();
    virtual void ChangeName(const CString& name);
    virtual OrvObjState GetState();
    // Values outside 0 to 3 are ignored.
    virtual void SetState(OrvObjState state);
    virtual int IsEditable();
    virtual int IsSuppressed1();
    virtual int CanSuppress();
    virtual int CanEditLabel();
    virtual int CanHide();
    virtual int GetNodeStatus(WORD mask);
    // Setting ORs the mask in; clearing ANDs with the logical negation of the mask, so that any
    // non-zero mask clears the whole word and mask 0 keeps bit 0 alone.
    virtual void SetNodeStatus(WORD mask, int on);
    virtual e_OrvSelSetDisplayState GetChildrenDisplayState(CObList* list);
    virtual e_OrvSelSetSuppressState GetChildrenSuppressedState(CObList* list);
    virtual int IsLocked();
    virtual int CanLock();
    virtual e_OrvSelSetLockState GetChildrenLockedState(CObList* list);
    virtual int CanHideDisplay();
    virtual void AssociateParameters(OrvObject* target);
    virtual COMPARE_RESULT Compare(OrvObject* other);
    virtual const OrvParamHelper* GetParamHelper();
    virtual int RemoveFromUserObjectsList(OrvObject* user);
    virtual int GetIsUsingThisObject(OrvObject* object);
    virtual int GetIsPatternSupported();
    virtual int GetRefPointForPattern(FRPosition& point);
    virtual int GetIsPatternObject();
    virtual OrvDirectionRestriction* GetPatternDirectionRestriction();
    virtual OrvDirectionRestriction* GetLinearPatternDirectionRestriction();
    virtual int CopyParameters(OrvObject* source);
    virtual OrvObject* Clone();
    // A long command's work, run by its record on a worker or the calling thread.
    virtual OrveThreadStatus HandleCommand(OrveCommandType type, unsigned int contextId,
                                           void*& parameter);
    virtual int IsLockedCheckOnly();
    virtual int Invalidate();
    virtual int Merge(OrvObject* other);
    virtual int IsMerged();
    virtual void SetMergeInProgress(int inProgress);
    virtual int IsMergeInProgress();
    virtual int Recycle();
    virtual int Restore();
    virtual int IsRecycled();
    virtual int LockThis();
    virtual int UnLockThis();
    virtual int SetDisplayColor(DWORD color);
    virtual DWORD GetDisplayColor();
    virtual void SetNodeDesc(CString description);
    virtual CString GetNodeDesc();
    virtual CString GetRegisterNodeName();
    virtual void DumpTarvexObjects(FILE* file);
    virtual void DumpUserObjs(FILE* file);
    virtual void SetTimeTakenForGTP(CString time);
    virtual CString GetTimeTakenForGTP();
    virtual int IsRebuildReqOnStockChange();
    virtual int IsDirtyOnStockChange();
    virtual void ResetFlagForStockChange();
    virtual void ResetFlagForSegDel();

    ui_OrvObject* GetUiObject();
    OrvObject* GetOwner() const { return m_pOwner; }
    void SetOwner(OrvObject* owner) { m_pOwner = owner; }
    OrvObject* GetOriginalOwner() const { return m_pOriginalOwner; }
    void SetOriginalOwner(OrvObject* owner);
    void UpdateLastModified();
    void SetRegNameForAutoIndexing(const CString& name) { m_RegNameForAutoIndexing = name; }
    const CString& GetRegNameForAutoIndexing() const { return m_RegNameForAutoIndexing; }
    CString GetObjNamePlusObjID();
    int IsSuppressed() { return IsSuppressed1(); }
    DWORD GetObjectId();
    void AddToUserObjectsList(OrvObject* user, int transient);
    INT_PTR GetCountOfUserObjects() const { return m_UserObjects.GetCount(); }
    void DetachFromAllUserObjects();
    void GetAllUserObjects(CObList* list);
    // Runs a long command of this node through the command manager.
    int RunCommand(unsigned int id, void* parameter, OrveThreadType type,
                   OrveThreadEndType endType);
    void RemoveDuplicatesFromUserObjects();
    // The pattern manager, a node that this object owns; null when it is not patterned.
    OrvObject* GetPatternMgr() const { return m_pPatternMngr; }
    int DestroyPattern();
    int GetIsPatterned() const { return m_pPatternMngr != nullptr; }
    COMPARE_RESULT GetCompareResult() const { return m_CompareRes; }
    void SetCompareResult(COMPARE_RESULT result) { m_CompareRes = result; }
    OrvObject* GetMatch() const { return m_pMatch; }
    DWORD GetMatchId() const { return m_MatchId; }
    void SetMatch(OrvObject* match);
    const CString& GetCreatedBy() const { return m_CreatedBy; }
    const CString& GetDateCreated() const { return m_DateCreated; }
    const CString& GetLastModified() const { return m_LastModified; }
    const CString& GetLastModifiedBy() const { return m_LastModifiedBy; }
    static void FindDangling(int);

    // Drops every link to other objects (owner, original owner, user lists, match, pattern
    // manager) without telling them and without deleting anything. For tearing a whole graph of
    // nodes down at once, when the objects on the other ends may already be gone and each node is
    // deleted on its own. A class that owns other nodes drops those too, so that deleting it then
    // frees nothing twice.
    virtual void ReleaseLinks();

protected:
    virtual void iCreate();
    virtual OrvCallbackHelper* iCallbackHelper();

private:
    // One of the three references: written inside a guard that logs 0x9000 and writes null when
    // writing it raises.
    static void WriteGuardedReference(CArchive& ar, const CObject* reference);
    // The load of the fields behind the class tag, for a file of the given schema.
    void Load(CArchive& ar, UINT schema);
    void LoadOriginalOwner(CArchive& ar);
    void LoadPatternMgr(CArchive& ar, OrvLoadTracker& tracker);
    void StoreUserObjects(CArchive& ar);
    void LoadUserObjects(CArchive& ar);
    // The one walk behind the three GetChildren...State operations.
    template <typename Property> static int ListState(CObList* list, Property property);

    CString m_Label;
    CString m_CreatedBy;
    CString m_DateCreated;
    CString m_LastModified;
    CString m_LastModifiedBy;
    CString m_NodeDesc;
    DWORD m_ObjectId = 0;
    OrvObjState m_iState = ACTIVE;
    ui_OrvObject* m_pUiObject = nullptr;
    WORD m_wNodeStatus = 0;
    CString m_RegNameForAutoIndexing;
    CString m_TimeTakenForGTP;
    CObList m_UserObjects{10};
    CObList m_TransientUserObjects{10};
    OrvObject* m_pOwner = nullptr;
    OrvObject* m_pOriginalOwner = nullptr;
    DWORD m_MatchId = 0;
    OrvObject* m_pMatch = nullptr;
    COMPARE_RESULT m_CompareRes = NO_MATCH;
    DWORD m_DisplayColor = 0xFFFFFFFF;
    OrvObject* m_pPatternMngr = nullptr;
    int m_bIsMerged = 0;
    int m_bMergeInProgress = 0;

    // This node's place in the record of the load under way (see OrvNodeLoadScope).
    friend class OrvNodeLoadScope;
    std::size_t m_LoadSlot = static_cast<std::size_t>(-1);
};
