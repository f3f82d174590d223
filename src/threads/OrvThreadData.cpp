#include "threads/OrvThreadData.h"

#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <optional>

#include "core/OrvHostCallbacks.h"
#include "mfc/CException.h"
#include "mfc/CTime.h"
#include "threads/OrvCriticalSectionLoader.h"
#include "threads/OrvThreadBaseMgr.h"
#include "threads/OrvThreadDataLink.h"

IMPLEMENT_DYNAMIC(OrvThreadData, OrvObject)

namespace {

constexpr DWORD kStartPauseMs = 100;

bool IsDoneStatus(OrveThreadStatus status) {
    return status == ThreadDone || status == ThreadDoneKeep || status == ThreadWaitingForChild;
}

// A time value as local time on the twelve-hour clock without a marker: 13 prints as 1, 0 as 12.
CString TwelveHourClock(LONGLONG time) {
    const CTime local(time);
    int hour = local.GetHour();
    if (hour > 12)
        hour -= 12;
    else if (hour == 0)
        hour = 12;
    CString text;
    text.Format(L"%02d:%02d:%02d", hour, local.GetMinute(), local.GetSecond());
    return text;
}

ULONGLONG FileTimeTicks(const SYSTEMTIME& time) {
    FILETIME file{};
    SystemTimeToFileTime(&time, &file);
    return (static_cast<ULONGLONG>(file.dwHighDateTime) << 32) | file.dwLowDateTime;
}

// Where a worker waits for the thread that started it to clear the creating flag. It lives
// outside the records so that the creator's wake-up call touches no record.
struct CreationGate {
    std::mutex mutex;
    std::condition_variable cleared;
};

CreationGate& Gate() {
    static CreationGate gate;
    return gate;
}

bool IsTestEnvironment() {
    const char* value = std::getenv("KEL_TEST_ENV");
    return value && std::strcmp(value, "YES") == 0;
}

} // namespace

OrvThreadData::OrvThreadData(OrvObject* caller, DWORD contextId, void* parameter,
                             OrveThreadType type, OrveThreadEndType endType)
    : m_pDocument(GetActiveDocument()), m_ThreadID(0), m_hThread(nullptr), m_bCreatingThread(FALSE),
      m_ThreadStatus(ThreadNotStarted), m_StartSystemTime{}, m_StartTime(0), m_EndSystemTime{},
      m_EndTime(0), m_pCallingObject(caller), m_pCommandParameter(parameter),
      m_CommandContextID(contextId), m_ActionProgress(0), m_ThreadType(type),
      m_ThreadEndType(endType) {
    if (!caller)
        return;
    // A node has no lock of its own: its user list is changed under the manager's, which is also
    // held wherever a worker destroys a record.
    if (OrvThreadBaseMgr* manager = OrvThreadBaseMgr::Instance()) {
        OrvCriticalSectionLoader guard(manager->m_Lock, 1);
        caller->AddToUserObjectsList(this, 1);
    } else {
        caller->AddToUserObjectsList(this, 1);
    }
}

OrvThreadData::~OrvThreadData() {
    if (m_pCallingObject && !m_bCallerGone.load()) {
        if (OrvThreadBaseMgr* manager = OrvThreadBaseMgr::Instance()) {
            OrvCriticalSectionLoader guard(manager->m_Lock, 1);
            m_pCallingObject->RemoveFromUserObjectsList(this);
        } else {
            m_pCallingObject->RemoveFromUserObjectsList(this);
        }
    }
    if (HANDLE own = m_hOwnThread.exchange(nullptr))
        CloseHandle(own);
}

int OrvThreadData::RemoveFromUserObjectsList(OrvObject* user) {
    if (user != m_pCallingObject)
        return 0;
    if (OrvThreadBaseMgr* manager = OrvThreadBaseMgr::Instance()) {
        OrvCriticalSectionLoader lock(manager->m_Lock, 1);
        m_bCallerGone.store(true); // the node is going: a later free must not reach it
        manager->DestroyThreadData(this);
    } else {
        delete this;
    }
    return 1;
}

int OrvThreadData::RunCommand(int threadMode) {
    if (!m_pCallingObject) {
        const int threadId = static_cast<int>(m_ThreadID.load());
        EndUnexecutedClaim(this);
        return threadId;
    }
    if (threadMode == 0) {
        m_bClaimed.store(true);
        HandleCommand(0);
        return 1;
    }
    if (static_cast<int>(m_ThreadID.load()) <= 0 && m_ThreadStatus.load() != ThreadTerminated) {
        m_bClaimed.store(true); // handed to the worker, which ends it
        {
            const std::lock_guard guard(m_FieldGuard);
            GetSystemTime(&m_StartSystemTime);
            m_StartTime = static_cast<LONGLONG>(std::time(nullptr));
        }
        m_ThreadStatus.store(ThreadRunning);
        if (OrvThreadBaseMgr* manager = OrvThreadBaseMgr::Instance())
            manager->OnStartRunningThreadData(this);
        m_bCreatingThread.store(TRUE);
        DWORD threadId = 0;
        HANDLE thread =
            CreateThread(nullptr, 0, &OrvThreadData::ThreadProcedure, this, 0, &threadId);
        m_hOwnThread.store(thread);
        m_hThread.store(thread);
        m_ThreadID.store(threadId);
        if (!thread) {
            m_bCreatingThread.store(FALSE);
            EndUnexecutedClaim(this); // no worker will end it
            return 0;
        }
        // The last touch of the record: once the flag is clear, the worker may free it.
        {
            const std::lock_guard gate(Gate().mutex);
            m_bCreatingThread.store(FALSE);
        }
        Gate().cleared.notify_all();
        return static_cast<int>(threadId);
    }
    return static_cast<int>(m_ThreadID.load());
}

void OrvThreadData::WaitForCreator() const {
    std::unique_lock gate(Gate().mutex);
    Gate().cleared.wait(gate, [this] { return !m_bCreatingThread.load(); });
}

bool OrvThreadData::EndClaim() {
    m_bClaimed.store(false);
    return m_bOrphaned.load();
}

void OrvThreadData::EndUnexecutedClaim(OrvThreadData* record) {
    OrvThreadBaseMgr* manager = OrvThreadBaseMgr::Instance();
    std::optional<OrvCriticalSectionLoader> lock;
    if (manager)
        lock.emplace(manager->m_Lock, 1);
    if (record->EndClaim())
        delete record;
}

void OrvThreadData::DeleteOrOrphan(OrvThreadData* record) {
    if (record->m_bClaimed.load())
        record->m_bOrphaned.store(true);
    else
        delete record;
}

DWORD WINAPI OrvThreadData::ThreadProcedure(LPVOID record) {
    // The pause lets CreateThread return and the handle be stored, and gives a newer duplicate
    // the moment to terminate this command before it does any work.
    Sleep(kStartPauseMs);
    static_cast<OrvThreadData*>(record)->HandleCommand(1);
    return 0;
}

void OrvThreadData::SetStatusUnlessTerminated(OrveThreadStatus status) {
    OrveThreadStatus current = m_ThreadStatus.load();
    while (current != ThreadTerminated && !m_ThreadStatus.compare_exchange_weak(current, status)) {
    }
}

void OrvThreadData::TakeEndTime() {
    const std::lock_guard guard(m_FieldGuard);
    GetSystemTime(&m_EndSystemTime);
    m_EndTime = static_cast<LONGLONG>(std::time(nullptr));
}

int OrvThreadData::HandleCommand(int onWorkerThread) {
    if (!m_pCallingObject) {
        m_ThreadID.store(0);
        m_hThread.store(nullptr);
        return 0;
    }
    OrvThreadBaseMgr* manager = OrvThreadBaseMgr::Instance();
    // While CreateThread has not returned yet, a null handle does not mean terminated.
    if (onWorkerThread && m_bCreatingThread.load()) {
        HANDLE none = nullptr;
        m_hThread.compare_exchange_strong(none, GetCurrentThread());
    }
    if (onWorkerThread && manager)
        manager->OnBeginThread(this);

    // Terminated before it began. The status counts too: a termination between the worker's
    // stand-in handle and the creator's store of the real one leaves a handle behind.
    if (onWorkerThread && (!m_hThread.load() || m_ThreadStatus.load() == ThreadTerminated)) {
        m_ThreadStatus.store(ThreadTerminated);
    } else {
        {
            const std::lock_guard guard(m_FieldGuard);
            GetSystemTime(&m_StartSystemTime);
        }
        OrveThreadStatus result = ThreadFailed;
        bool failed = false;
        void* parameter = m_pCommandParameter.load();
        try {
            result = m_pCallingObject->HandleCommand(CommandExecute, m_CommandContextID.load(),
                                                     parameter);
            m_pCommandParameter.store(parameter); // the node may have replaced it
        } catch (CException* exception) {
            exception->Delete();
            failed = true;
        } catch (...) { // the node's failure must not end the worker: the record fails
            failed = true;
        }
        if (failed) {
            m_ThreadStatus.store(ThreadFailed);
        } else {
            SetStatusUnlessTerminated(result == 0 ? ThreadFailed : result);
            if (m_ThreadEndType == ThreadEndWaitForChild) {
                for (OrveThreadStatus done : {ThreadDone, ThreadDoneKeep})
                    m_ThreadStatus.compare_exchange_strong(done, ThreadWaitingForChild);
            }
        }
    }
    // The creator may still be storing the handle and id: its writes come before the end.
    if (onWorkerThread)
        WaitForCreator();
    // Steps from here run under the manager's lock: a parent found is kept alive to its
    // retirement, and whoever deletes this record later is ordered after this worker's last use.
    std::optional<OrvCriticalSectionLoader> lock;
    if (manager)
        lock.emplace(manager->m_Lock, 1);
    const bool orphaned = EndClaim();
    TakeEndTime();

    if (manager && m_ThreadType == ThreadTypeChild) {
        OrvThreadData* parent = nullptr;
        void* parentHandle = nullptr;
        if (manager->GetThreadPrevParentOwner(this, parent, parentHandle, 0)) {
            SYSTEMTIME endSystemTime;
            LONGLONG endTime;
            {
                const std::lock_guard fields(m_FieldGuard);
                endSystemTime = m_EndSystemTime;
                endTime = m_EndTime;
            }
            parent->ReSetEndThreadTime(endSystemTime, endTime);
            parent->HandleChildDone(m_ThreadStatus.load());
            manager->DecrementRunningThreadCnt();
            RetireListed(*manager, parent, onWorkerThread);
        }
    }

    const OrveThreadStatus status = m_ThreadStatus.load();
    if (IsDoneStatus(status) && IsTestEnvironment() && !m_bCallerGone.load())
        m_pCallingObject->SetTimeTakenForGTP(GetTimeTaken());

    if (!(m_ThreadEndType == ThreadEndWaitForChild && status == ThreadWaitingForChild)) {
        m_pCommandParameter.store(nullptr);
        m_ThreadID.store(0);
        m_hThread.store(nullptr);
        // An orphan is unlisted already, so this frees only a listed record.
        if (manager)
            RetireListed(*manager, this, onWorkerThread);
    }
    if (orphaned)
        delete this; // a deletion came while the command ran; it was left to this thread
    return 1;
}

void OrvThreadData::RetireListed(OrvThreadBaseMgr& manager, OrvThreadData* record,
                                 int onWorkerThread) {
    if (!manager.ThreadInList(record))
        return;
    if (onWorkerThread)
        manager.OnDoneRunningThreadData(record);
    else
        manager.DestroyThreadData(record);
}

OrveThreadStatus OrvThreadData::SuspendThread() {
    const OrveThreadStatus before = m_ThreadStatus.load();
    if (HANDLE thread = m_hThread.load()) {
        ::SuspendThread(thread);
        m_ThreadStatus.store(ThreadSuspended);
    }
    return before;
}

OrveThreadStatus OrvThreadData::ResumeThread() {
    const OrveThreadStatus before = m_ThreadStatus.load();
    if (HANDLE thread = m_hThread.load()) {
        ::ResumeThread(thread);
        m_ThreadStatus.store(ThreadRunning);
    }
    return before;
}

OrveThreadStatus OrvThreadData::TerminateThread() {
    const OrveThreadStatus before = m_ThreadStatus.load();
    if (!m_hThread.load())
        return before;
    // Cleared first: a worker that has not begun yet finds no handle and skips the work.
    m_hThread.store(nullptr);
    m_ThreadID.store(0);
    m_ThreadStatus.store(ThreadTerminated);
    void* parameter = m_pCommandParameter.load();
    m_pCallingObject->HandleCommand(CommandTerminate, m_CommandContextID.load(), parameter);
    return before;
}

void OrvThreadData::HandleChildDone(OrveThreadStatus childStatus) {
    if (m_hThread.load() && m_pCallingObject) {
        void* parameter = m_pCommandParameter.load();
        m_pCallingObject->HandleCommand(CommandChildDone, m_CommandContextID.load(), parameter);
    }
    m_ThreadStatus.store(childStatus);
    m_pCommandParameter.store(nullptr);
    m_ThreadID.store(0);
    m_hThread.store(nullptr);
}

int OrvThreadData::GetIsDataMatching(OrvObject* caller, DWORD contextId, void* parameter) {
    return caller == m_pCallingObject && contextId != 0 && contextId == m_CommandContextID.load() &&
           (parameter == nullptr || parameter == m_pCommandParameter.load());
}

int OrvThreadData::GetIsSimiliarDuplicate(OrvObject*, DWORD contextId, void* parameter) {
    void* own = m_pCommandParameter.load();
    if (contextId == 0 || contextId != m_CommandContextID.load() || !parameter || !own)
        return 0;
    const auto* theirs = static_cast<const OrvThreadDataLink*>(parameter);
    const auto* ours = static_cast<const OrvThreadDataLink*>(own);
    if (theirs->GetIdentifierA() != ours->GetIdentifierA() ||
        theirs->GetIdentifierB() != ours->GetIdentifierB())
        return 0;
    if (theirs->GetGroupNum() == 0 || ours->GetGroupNum() == 0)
        return 1;
    return theirs->GetGroupNum() != ours->GetGroupNum() ? 1 : 0;
}

int OrvThreadData::GetIsThreadRunning() const {
    const OrveThreadStatus status = m_ThreadStatus.load();
    return status == ThreadRunning || status == ThreadSuspended;
}

int OrvThreadData::GetIsThreadWaitingToRun() const {
    return m_ThreadStatus.load() == ThreadWaitingToRun;
}

int OrvThreadData::GetIsThreadWaitingForChildToRun() const {
    return m_ThreadStatus.load() == ThreadWaitingForChild;
}

CString OrvThreadData::GetActionProgressString() const {
    CString text;
    text.Format(L"%d %s", static_cast<int>(m_ActionProgress.load()), L"%");
    return text;
}

CString OrvThreadData::GetProcessName() {
    return m_pCallingObject ? m_pCallingObject->Name() : CString();
}

CString OrvThreadData::GetCurrentAction() const {
    CString action;
    action.LoadString(m_CommandContextID.load());
    return action;
}

CString OrvThreadData::GetStartTimeStr() const {
    if (m_ThreadStatus.load() == ThreadNotStarted)
        return CString();
    const std::lock_guard guard(m_FieldGuard);
    return TwelveHourClock(m_StartTime);
}

CString OrvThreadData::GetEndTimeStr() const {
    if (!IsDoneStatus(m_ThreadStatus.load()))
        return CString();
    const std::lock_guard guard(m_FieldGuard);
    return TwelveHourClock(m_EndTime);
}

CString OrvThreadData::GetTimeTaken() const {
    if (!IsDoneStatus(m_ThreadStatus.load()))
        return CString();
    DWORD seconds;
    {
        const std::lock_guard guard(m_FieldGuard);
        seconds = DeltaTime(m_StartSystemTime, m_EndSystemTime);
    }
    CString text;
    text.Format(L"%02d:%02d:%02d", static_cast<int>(seconds / 3600),
                static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60));
    return text;
}

DWORD OrvThreadData::DeltaTime(SYSTEMTIME start, SYSTEMTIME end) {
    return static_cast<DWORD>((FileTimeTicks(end) - FileTimeTicks(start)) / 10000000ULL);
}

void OrvThreadData::ReSetEndThreadTime(SYSTEMTIME& endSystemTime, LONGLONG& endTime) {
    const std::lock_guard guard(m_FieldGuard);
    m_EndSystemTime = endSystemTime;
    m_EndTime = endTime;
}

CString OrvThreadData::GetActionString() const {
    const std::lock_guard guard(m_FieldGuard);
    return m_ActionString;
}

void OrvThreadData::SetActionString(const CString& action) {
    const std::lock_guard guard(m_FieldGuard);
    m_ActionString = action;
}
