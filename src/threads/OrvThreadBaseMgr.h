// OrvThreadBaseMgr: the list of every command record of the process, and the way a node's command
// runs: refused when already listed, after its duplicates are terminated, on a worker thread or on
// the calling thread. The add-in derives the manager, makes it on its main thread and assigns
// m_pInstance; everything here does nothing when there is no instance.
//
// m_Lock is the one reentrant lock of the library, taken where the manager's contract names it.
// The list's own links are changed and walked under a private guard that is never held while
// anything else is called, so that commands may be started from several threads.
#pragma once

#include "port/Export.h"

#include <atomic>
#include <cstdint>
#include <mutex>
#include <vector>

#include <afx.h>
#include <windows.h>

#include "core/OrvThreadEnums.h"
#include "threads/OrvCriticalSection.h"

class OrvObject;
class OrvThreadData;

class ORV_API OrvThreadBaseMgr {
public:
    // Destroys the lock and the list; neither deletes the records nor stops their threads.
    virtual ~OrvThreadBaseMgr();
    OrvThreadBaseMgr(const OrvThreadBaseMgr&) = delete;
    OrvThreadBaseMgr& operator=(const OrvThreadBaseMgr&) = delete;

    virtual int SetDoNotUpdateProgressDlg();
    virtual int SetUpdateProgressDlg();

protected:
    // Counts a command that starts on a worker.
    virtual int OnStartRunningThreadData(OrvThreadData* data);
    // A worker's record has ended: destroyed unless "ThreadDel" is 0 or it is to stay (status 6
    // or 8); the running count goes down either way.
    virtual int OnDoneRunningThreadData(OrvThreadData* data);
    virtual int OnDestroyThreadData(OrvThreadData* data);
    // Called on the worker before its work.
    virtual int OnBeginThread(OrvThreadData* data);

public:
    static OrvThreadBaseMgr* Instance();
    // 0 without an instance, else RunCommand_i's answer.
    static int RunCommand(OrvObject* caller, DWORD contextId, void* parameter, OrveThreadType type,
                          OrveThreadEndType endType);
    // True off the host's main thread.
    static int GetIsSeperateThread();
    static DWORD GetHdMainThreadId();
    static int IsAnyThreadsRunningOrWaiting(OrvObject* document);

    int GetCanRunSeparateProcess() const;
    void SetCanRunSeparateProcess(int canRun);
    // Appends every record, oldest first.
    void GetAllThreads(CObList& list);
    // Deletes the records that neither run nor wait (to run or for a child); answers how many.
    int DeleteAllDoneThreads();
    int AnyThreadsRunning();
    int AllThreadsDone();
    int GetNumThreadsNotDone();
    // Copies up to `max` handles of running records; answers how many there are.
    int GetThreadsNotDone(void** handles, int max);
    void WaitForAllThreadsToBeDone();
    void WaitForMultipleThreadsToBeDone();
    void TerminateLastCreated();
    void TerminateIfRunning(void* identifierA);
    int ThreadInList(OrvThreadData* data);
    int GetHaveThreadData(OrvThreadData* data);
    int ThreadExist(void* identifierA);
    // Terminates the target's commands and waits up to 301 seconds for their handles to go.
    void DestructThread(void* identifierA);
    // Terminates the document's commands and waits, holding the lock, up to 180 seconds.
    void TerminateAllThreadsInThisDoc(OrvObject* document);
    int GetAreAllThreadsInThisDocDone(OrvObject* document);
    int GetThreadDuplicateOwner(OrvThreadData* data, OrvThreadData*& owner, void*& handle);
    // The record right in front of `data`, when it has a thread handle (and, with checkGroup,
    // shares a non-zero group number).
    int GetThreadPrevParentOwner(OrvThreadData* data, OrvThreadData*& owner, void*& handle,
                                 int checkGroup);
    int DoNotUpdateProgressDlg();
    int UpdateProgressDlg();

protected:
    // Stores the current thread as the host's main thread.
    OrvThreadBaseMgr();

    int RunCommand_i(OrvObject* caller, DWORD contextId, void* parameter, OrveThreadType type,
                     OrveThreadEndType endType);
    OrvThreadData* FindThreadData(OrvObject* caller, DWORD contextId, void* parameter);
    OrvThreadData* FindThreadDataForCurrentThread();
    // Unlists (when listed) and deletes the record; always 0.
    int DestroyThreadData(OrvThreadData* data);
    void TerminateSimiliarDuplicateThreads(OrvObject* caller, DWORD contextId, void* parameter);
    void SetLastIdentifiers(DWORD contextId, void* parameter);
    int GetNumThreadsRunningOrWaiting(OrvObject* document);
    void DecrementRunningThreadCnt();

    static OrvThreadBaseMgr* m_pInstance;
    static DWORD m_HdThreadId;

    CObList m_ThreadList{10};
    std::atomic<int> m_nRunningThreads{0};
    std::atomic<int> m_bCanRunSeparateProcess{1};
    OrvCriticalSection m_Lock;
    void* m_LastIdentifierA = nullptr;
    void* m_LastIdentifierB = nullptr;
    DWORD m_LastContextID = 0;

private:
    friend class OrvThreadData;

    // The records, oldest first, taken under the list's guard, and how many removals the list
    // had seen then. The records stay alive while the caller holds m_Lock, which every deletion
    // takes; only what this thread does meanwhile (a node told to stop) can remove one.
    std::vector<OrvThreadData*> Records(std::uint64_t* removals = nullptr) const;
    // Whether a record of a copy taken at `removals` still stands in the list.
    bool StillListed(OrvThreadData* data, std::uint64_t removals);
    // Terminates a record, tells its node, and marks it terminated.
    static void Terminate(OrvThreadData* data);

    mutable std::mutex m_ListGuard; // the list's links, its removal count, the last identifiers
    std::uint64_t m_Removals = 0;
};
