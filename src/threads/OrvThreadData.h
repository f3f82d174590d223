// OrvThreadData: the record of one command. It ties the calling node, the command's id and
// parameter, the thread that runs it, its status, times and progress text. The record stands in
// the manager's list and in the calling node's transient user list, so that the node's deletion
// ends it.
//
// The status, thread handle and id, the creating flag and the parameter are written by the worker
// and by the thread that terminates or suspends the command, without the manager's lock; they are
// atomic so that each read sees a whole value. The action text and the times have a small guard
// of their own for the same reason.
//
// Lifetime: a record is never freed while a thread that will still use it is on its way.
// - The thread that starts the worker writes the handle and id after CreateThread returns and
//   then clears the creating flag, reading nothing from the record afterwards. The worker waits
//   for that flag before it ends the command, so its retirement (which may free the record)
//   always comes after the creator's last write.
// - From RunCommand_i listing it until its executor (the calling thread, or the worker) takes the
//   manager's lock at the end of the work, the record is claimed. A deletion through the manager
//   meanwhile (DestroyThreadData, DeleteAllDoneThreads, the calling node going away) unlists it
//   at once and answers as always, but leaves the freeing to the executor, which does it under
//   the manager's lock when it is done with the record.
// What stays the caller's duty: a node must not be deleted while its command still runs inside
// the node's own HandleCommand, which no record can make safe.
#pragma once

#include "port/Export.h"

#include <atomic>
#include <mutex>

#include <windows.h>

#include "core/OrvThreadEnums.h"
#include "objects/OrvObject.h"

class OrvThreadBaseMgr;

class ORV_API OrvThreadData : public OrvObject {
    DECLARE_DYNAMIC(OrvThreadData)
public:
    // Takes the active document; with a caller, enters the caller's transient users.
    OrvThreadData(OrvObject* caller, DWORD contextId, void* parameter, OrveThreadType type,
                  OrveThreadEndType endType);
    ~OrvThreadData() override;

    // The calling object's going away destroys the record (through the manager): 1. Any other
    // user: 0.
    int RemoveFromUserObjectsList(OrvObject* user) override;

    // Runs the command once the record is listed. threadMode 0: on this thread, answers 1 when
    // done. Otherwise starts a worker and answers its thread id (0 without a calling object).
    int RunCommand(int threadMode);
    // Each answers the status from before the call; nothing changes without a thread handle.
    OrveThreadStatus SuspendThread();
    OrveThreadStatus ResumeThread();
    // Cooperative: the thread is not killed, the node is told by CommandTerminate.
    OrveThreadStatus TerminateThread();
    // The child of this parent record has ended with that status, which becomes this one's.
    void HandleChildDone(OrveThreadStatus childStatus);
    // Runs the node's work and retires the record; it may be gone when this returns. 0 without a
    // calling object, else 1. The node's own command handler stays reachable beside it.
    int HandleCommand(int onWorkerThread);
    using OrvObject::HandleCommand;

    // Same target (identifiers A and B of both links) and not members of one group.
    int GetIsSimiliarDuplicate(OrvObject* object, DWORD contextId, void* parameter);
    // Same caller and non-zero id, and a null parameter or this record's.
    int GetIsDataMatching(OrvObject* caller, DWORD contextId, void* parameter);
    int GetIsThreadRunning() const;
    int GetIsThreadWaitingToRun() const;
    int GetIsThreadWaitingForChildToRun() const;

    CString GetActionProgressString() const;
    CString GetProcessName();
    // The string resource named by the context id.
    CString GetCurrentAction() const;
    // Local times on the twelve-hour clock, empty until the command started or ended.
    CString GetStartTimeStr() const;
    CString GetEndTimeStr() const;
    CString GetTimeTaken() const;
    // Whole seconds from start to end.
    static DWORD DeltaTime(SYSTEMTIME start, SYSTEMTIME end);
    void ReSetEndThreadTime(SYSTEMTIME& endSystemTime, LONGLONG& endTime);

    OrvObject* GetDocument() const { return m_pDocument; }
    DWORD GetThreadID() const { return m_ThreadID.load(); }
    HANDLE GetThreadHandle() const { return m_hThread.load(); }
    OrveThreadStatus GetThreadStatus() const { return m_ThreadStatus.load(); }
    void SetThreadStatus(OrveThreadStatus status) { m_ThreadStatus.store(status); }
    OrvObject* GetCallingObject() const { return m_pCallingObject; }
    void* GetCommandParameter() const { return m_pCommandParameter.load(); }
    void SetCommandParameter(void* parameter) { m_pCommandParameter.store(parameter); }
    DWORD GetCommandContextID() const { return m_CommandContextID.load(); }
    void SetCommandContextID(DWORD contextId) { m_CommandContextID.store(contextId); }
    CString GetActionString() const;
    void SetActionString(const CString& action);
    LONGLONG GetActionProgress() const { return m_ActionProgress.load(); }
    void SetActionProgress(LONGLONG progress) { m_ActionProgress.store(progress); }
    OrveThreadType GetThreadType() const { return m_ThreadType; }
    void SetThreadType(OrveThreadType type) { m_ThreadType = type; }
    OrveThreadEndType GetThreadEndType() const { return m_ThreadEndType; }
    void SetThreadEndType(OrveThreadEndType endType) { m_ThreadEndType = endType; }

protected:
    OrvObject* m_pDocument;
    std::atomic<DWORD> m_ThreadID;
    std::atomic<HANDLE> m_hThread;
    std::atomic<BOOL> m_bCreatingThread;
    std::atomic<OrveThreadStatus> m_ThreadStatus;
    SYSTEMTIME m_StartSystemTime;
    LONGLONG m_StartTime;
    SYSTEMTIME m_EndSystemTime;
    LONGLONG m_EndTime;
    OrvObject* m_pCallingObject;
    std::atomic<void*> m_pCommandParameter;
    std::atomic<DWORD> m_CommandContextID;
    CString m_ActionString;
    std::atomic<LONGLONG> m_ActionProgress;
    OrveThreadType m_ThreadType;
    OrveThreadEndType m_ThreadEndType;

private:
    static DWORD WINAPI ThreadProcedure(LPVOID record);
    void TakeEndTime();
    // The status becomes `status` unless the command was terminated meanwhile.
    void SetStatusUnlessTerminated(OrveThreadStatus status);
    // Destroys the record when it still stands in the manager's list: on a worker through the
    // manager's end-of-run notice, on the calling thread at once. The caller holds the lock.
    static void RetireListed(OrvThreadBaseMgr& manager, OrvThreadData* record, int onWorkerThread);
    // Blocks until the thread that started this record's worker has cleared the creating flag.
    void WaitForCreator() const;
    // Ends the claim of the executor; the manager's lock is held when there is a manager. Answers
    // whether a deletion came meanwhile, which leaves the freeing to the caller.
    bool EndClaim();
    // Ends a claim that no executor will end (no calling object, no thread), freeing an orphan.
    static void EndUnexecutedClaim(OrvThreadData* record);
    // Frees the record now, or marks it for its executor to free; the manager's lock is held.
    static void DeleteOrOrphan(OrvThreadData* record);
    friend class OrvThreadBaseMgr;

    std::atomic<HANDLE> m_hOwnThread{nullptr}; // what CreateThread gave; closed with the record
    std::atomic<bool> m_bClaimed{false};       // an executor will still use the record
    std::atomic<bool> m_bOrphaned{false};      // unlisted and deleted while claimed
    std::atomic<bool> m_bCallerGone{false};    // the calling node is being destroyed
    mutable std::mutex m_FieldGuard;           // the times and the action text
};
