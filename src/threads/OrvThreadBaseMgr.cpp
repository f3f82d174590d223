#include "threads/OrvThreadBaseMgr.h"

#include <algorithm>

#include "core/OrvHostCallbacks.h"
#include "core/OrvObjectSlots.h"
#include "settings/OrvSettingsKey.h"
#include "threads/OrvCriticalSectionLoader.h"
#include "threads/OrvThreadData.h"
#include "threads/OrvThreadDataLink.h"

OrvThreadBaseMgr* OrvThreadBaseMgr::m_pInstance = nullptr;
DWORD OrvThreadBaseMgr::m_HdThreadId = 0;

namespace {

// With the manager linked in, a node's RunCommand reaches it.
[[maybe_unused]] const bool kCommandsRun =
    (SetOrvCommandRunner(&OrvThreadBaseMgr::RunCommand), true);

constexpr int kDocumentWaitRounds = 180;
constexpr int kTargetWaitRounds = 301;
constexpr DWORD kWaitRoundMs = 1000;

// Leaves `value` alone when there is no settings tree or no such value.
void ReadAppSetting(const wchar_t* name, int& value) {
    if (OrvSettingsKey* app = GetAppSettingsCB())
        app->GetValue(name, value);
}

bool IsFinished(OrveThreadStatus status) {
    return status == ThreadDone || status == ThreadTerminated || status == ThreadFailed ||
           status == ThreadDoneKeep;
}

const OrvThreadDataLink* LinkOf(const OrvThreadData* data) {
    return static_cast<const OrvThreadDataLink*>(data->GetCommandParameter());
}

bool HasIdentifierA(const OrvThreadData* data, void* identifierA) {
    const OrvThreadDataLink* link = LinkOf(data);
    return link && link->GetIdentifierA() == identifierA;
}

} // namespace

OrvThreadBaseMgr::OrvThreadBaseMgr() {
    m_HdThreadId = GetCurrentThreadId();
}

OrvThreadBaseMgr::~OrvThreadBaseMgr() = default;

int OrvThreadBaseMgr::SetDoNotUpdateProgressDlg() {
    return 1;
}

int OrvThreadBaseMgr::SetUpdateProgressDlg() {
    return 1;
}

int OrvThreadBaseMgr::OnStartRunningThreadData(OrvThreadData*) {
    ++m_nRunningThreads;
    return 1;
}

int OrvThreadBaseMgr::OnDoneRunningThreadData(OrvThreadData* data) {
    int destroy = 1;
    ReadAppSetting(L"ThreadDel", destroy);
    if (destroy && data) {
        const OrveThreadStatus status = data->GetThreadStatus();
        if (status != ThreadDoneKeep && status != ThreadWaitingForChild)
            DestroyThreadData(data);
    }
    --m_nRunningThreads;
    return 1;
}

int OrvThreadBaseMgr::OnDestroyThreadData(OrvThreadData*) {
    return 1;
}

int OrvThreadBaseMgr::OnBeginThread(OrvThreadData*) {
    return 1;
}

OrvThreadBaseMgr* OrvThreadBaseMgr::Instance() {
    return m_pInstance;
}

int OrvThreadBaseMgr::RunCommand(OrvObject* caller, DWORD contextId, void* parameter,
                                 OrveThreadType type, OrveThreadEndType endType) {
    if (!m_pInstance)
        return 0;
    return m_pInstance->RunCommand_i(caller, contextId, parameter, type, endType);
}

int OrvThreadBaseMgr::GetIsSeperateThread() {
    return GetCurrentThreadId() != m_HdThreadId;
}

DWORD OrvThreadBaseMgr::GetHdMainThreadId() {
    return m_HdThreadId;
}

int OrvThreadBaseMgr::IsAnyThreadsRunningOrWaiting(OrvObject* document) {
    return m_pInstance && m_pInstance->GetNumThreadsRunningOrWaiting(document) > 0;
}

int OrvThreadBaseMgr::GetCanRunSeparateProcess() const {
    return m_bCanRunSeparateProcess.load();
}

void OrvThreadBaseMgr::SetCanRunSeparateProcess(int canRun) {
    m_bCanRunSeparateProcess.store(canRun);
}

std::vector<OrvThreadData*> OrvThreadBaseMgr::Records(std::uint64_t* removals) const {
    const std::lock_guard guard(m_ListGuard);
    if (removals)
        *removals = m_Removals;
    std::vector<OrvThreadData*> records;
    records.reserve(static_cast<std::size_t>(m_ThreadList.GetCount()));
    for (POSITION pos = m_ThreadList.GetHeadPosition(); pos;)
        records.push_back(static_cast<OrvThreadData*>(m_ThreadList.GetNext(pos)));
    return records;
}

void OrvThreadBaseMgr::GetAllThreads(CObList& list) {
    const std::lock_guard guard(m_ListGuard);
    for (POSITION pos = m_ThreadList.GetHeadPosition(); pos;)
        list.AddTail(m_ThreadList.GetNext(pos));
}

int OrvThreadBaseMgr::RunCommand_i(OrvObject* caller, DWORD contextId, void* parameter,
                                   OrveThreadType type, OrveThreadEndType endType) {
    if (FindThreadData(caller, contextId, parameter))
        return 0; // the same command is listed already
    int multiThread = 0;
    int threadNum = 0; // read as the add-in expects; no limit on parallel commands is applied
    if (m_bCanRunSeparateProcess.load())
        ReadAppSetting(L"ThreadMulti", multiThread);
    ReadAppSetting(L"ThreadNum", threadNum);

    auto* data = new OrvThreadData(caller, contextId, parameter, type, endType);
    data->m_bClaimed.store(true); // this thread uses it until RunCommand hands it on
    SetLastIdentifiers(contextId, parameter);
    TerminateSimiliarDuplicateThreads(caller, contextId, parameter);
    {
        const std::lock_guard guard(m_ListGuard);
        m_ThreadList.AddTail(data);
    }
    return data->RunCommand(multiThread);
}

OrvThreadData* OrvThreadBaseMgr::FindThreadData(OrvObject* caller, DWORD contextId,
                                                void* parameter) {
    const std::lock_guard guard(m_ListGuard);
    for (POSITION pos = m_ThreadList.GetHeadPosition(); pos;) {
        auto* data = static_cast<OrvThreadData*>(m_ThreadList.GetNext(pos));
        if (data->GetIsDataMatching(caller, contextId, parameter))
            return data;
    }
    return nullptr;
}

OrvThreadData* OrvThreadBaseMgr::FindThreadDataForCurrentThread() {
    const DWORD current = GetCurrentThreadId();
    const std::lock_guard guard(m_ListGuard);
    for (POSITION pos = m_ThreadList.GetHeadPosition(); pos;) {
        auto* data = static_cast<OrvThreadData*>(m_ThreadList.GetNext(pos));
        if (data->GetThreadID() == current)
            return data;
    }
    return nullptr;
}

int OrvThreadBaseMgr::DestroyThreadData(OrvThreadData* data) {
    OrvCriticalSectionLoader lock(m_Lock, 1);
    if (!data)
        return 0;
    {
        const std::lock_guard guard(m_ListGuard);
        if (POSITION pos = m_ThreadList.Find(data)) {
            m_ThreadList.RemoveAt(pos);
            ++m_Removals;
        }
    }
    OnDestroyThreadData(data);
    OrvThreadData::DeleteOrOrphan(data);
    return 0;
}

bool OrvThreadBaseMgr::StillListed(OrvThreadData* data, std::uint64_t removals) {
    {
        const std::lock_guard guard(m_ListGuard);
        if (m_Removals == removals)
            return true;
    }
    return ThreadInList(data);
}

void OrvThreadBaseMgr::Terminate(OrvThreadData* data) {
    data->TerminateThread();
    data->SetThreadStatus(ThreadTerminated);
}

void OrvThreadBaseMgr::TerminateSimiliarDuplicateThreads(OrvObject* caller, DWORD contextId,
                                                         void* parameter) {
    // The lock keeps each record alive while its node is told to stop: a worker that ends
    // meanwhile waits to retire its record.
    OrvCriticalSectionLoader lock(m_Lock, 1);
    std::uint64_t removals = 0;
    for (OrvThreadData* data : Records(&removals)) {
        if (StillListed(data, removals) &&
            data->GetIsSimiliarDuplicate(caller, contextId, parameter) &&
            data->GetIsThreadRunning())
            Terminate(data);
    }
}

void OrvThreadBaseMgr::SetLastIdentifiers(DWORD contextId, void* parameter) {
    const std::lock_guard guard(m_ListGuard);
    m_LastContextID = contextId;
    m_LastIdentifierA = nullptr;
    m_LastIdentifierB = nullptr;
    if (const auto* link = static_cast<const OrvThreadDataLink*>(parameter)) {
        m_LastIdentifierA = link->GetIdentifierA();
        m_LastIdentifierB = link->GetIdentifierB();
    }
}

int OrvThreadBaseMgr::DeleteAllDoneThreads() {
    OrvCriticalSectionLoader lock(m_Lock, 1);
    std::vector<OrvThreadData*> done;
    {
        const std::lock_guard guard(m_ListGuard);
        for (POSITION pos = m_ThreadList.GetHeadPosition(); pos;) {
            const POSITION at = pos;
            auto* data = static_cast<OrvThreadData*>(m_ThreadList.GetNext(pos));
            if (!data->GetIsThreadRunning() && !data->GetIsThreadWaitingToRun() &&
                !data->GetIsThreadWaitingForChildToRun()) {
                m_ThreadList.RemoveAt(at);
                ++m_Removals;
                done.push_back(data);
            }
        }
    }
    for (OrvThreadData* data : done)
        OrvThreadData::DeleteOrOrphan(data);
    return static_cast<int>(done.size());
}

int OrvThreadBaseMgr::AnyThreadsRunning() {
    const std::lock_guard guard(m_ListGuard);
    for (POSITION pos = m_ThreadList.GetHeadPosition(); pos;) {
        const OrveThreadStatus status =
            static_cast<OrvThreadData*>(m_ThreadList.GetNext(pos))->GetThreadStatus();
        if (!IsFinished(status) && status != ThreadWaitingForChild)
            return 1;
    }
    return 0;
}

int OrvThreadBaseMgr::AllThreadsDone() {
    const std::lock_guard guard(m_ListGuard);
    for (POSITION pos = m_ThreadList.GetTailPosition(); pos;)
        if (static_cast<OrvThreadData*>(m_ThreadList.GetPrev(pos))->GetIsThreadRunning())
            return 0;
    return 1;
}

int OrvThreadBaseMgr::GetNumThreadsNotDone() {
    const std::lock_guard guard(m_ListGuard);
    int count = 0;
    for (POSITION pos = m_ThreadList.GetHeadPosition(); pos;)
        if (static_cast<OrvThreadData*>(m_ThreadList.GetNext(pos))->GetIsThreadRunning())
            ++count;
    return count;
}

int OrvThreadBaseMgr::GetThreadsNotDone(void** handles, int max) {
    OrvCriticalSectionLoader lock(m_Lock, 1);
    int count = 0;
    for (OrvThreadData* data : Records()) {
        HANDLE thread = data->GetThreadHandle();
        // The pseudo handle stands in only while CreateThread returns; it is no thread to wait on.
        if (!data->GetIsThreadRunning() || !thread || thread == GetCurrentThread())
            continue;
        if (count < max)
            handles[count] = thread;
        ++count;
    }
    return count;
}

void OrvThreadBaseMgr::WaitForMultipleThreadsToBeDone() {
    const int count = GetNumThreadsNotDone();
    if (count == 0)
        return;
    std::vector<HANDLE> handles(static_cast<std::size_t>(count));
    const int found = std::min(GetThreadsNotDone(handles.data(), count), count);
    // Waiting for all of them is waiting for each block of what one call can take.
    for (int first = 0; first < found; first += MAXIMUM_WAIT_OBJECTS) {
        const int block = std::min(found - first, static_cast<int>(MAXIMUM_WAIT_OBJECTS));
        WaitForMultipleObjects(static_cast<DWORD>(block), handles.data() + first, TRUE, INFINITE);
    }
}

void OrvThreadBaseMgr::WaitForAllThreadsToBeDone() {
    while (!AllThreadsDone())
        WaitForMultipleThreadsToBeDone();
}

void OrvThreadBaseMgr::TerminateLastCreated() {
    OrvCriticalSectionLoader lock(m_Lock, 1);
    OrvThreadData* tail = nullptr;
    void* lastA = nullptr;
    void* lastB = nullptr;
    DWORD lastContext = 0;
    {
        const std::lock_guard guard(m_ListGuard);
        if (m_ThreadList.IsEmpty())
            return;
        tail = static_cast<OrvThreadData*>(m_ThreadList.GetTail());
        lastA = m_LastIdentifierA;
        lastB = m_LastIdentifierB;
        lastContext = m_LastContextID;
    }
    const OrvThreadDataLink* link = LinkOf(tail);
    if (tail->GetIsThreadRunning() && tail->GetCommandContextID() == lastContext && link &&
        link->GetIdentifierA() == lastA && link->GetIdentifierB() == lastB)
        Terminate(tail);
}

void OrvThreadBaseMgr::TerminateIfRunning(void* identifierA) {
    OrvCriticalSectionLoader lock(m_Lock, 1);
    std::uint64_t removals = 0;
    const std::vector<OrvThreadData*> records = Records(&removals);
    for (auto it = records.rbegin(); it != records.rend(); ++it) {
        OrvThreadData* data = *it;
        if (data && StillListed(data, removals) && !IsFinished(data->GetThreadStatus()) &&
            HasIdentifierA(data, identifierA))
            Terminate(data);
    }
}

int OrvThreadBaseMgr::ThreadInList(OrvThreadData* data) {
    const std::lock_guard guard(m_ListGuard);
    for (POSITION pos = m_ThreadList.GetTailPosition(); pos;)
        if (m_ThreadList.GetPrev(pos) == data)
            return 1;
    return 0;
}

int OrvThreadBaseMgr::GetHaveThreadData(OrvThreadData* data) {
    return data ? ThreadInList(data) : 0;
}

int OrvThreadBaseMgr::ThreadExist(void* identifierA) {
    const std::lock_guard guard(m_ListGuard);
    for (POSITION pos = m_ThreadList.GetTailPosition(); pos;) {
        auto* data = static_cast<OrvThreadData*>(m_ThreadList.GetPrev(pos));
        if (HasIdentifierA(data, identifierA) && data->GetThreadHandle())
            return 1;
    }
    return 0;
}

void OrvThreadBaseMgr::DestructThread(void* identifierA) {
    TerminateIfRunning(identifierA);
    for (int round = 0; round < kTargetWaitRounds && ThreadExist(identifierA); ++round)
        Sleep(kWaitRoundMs);
}

void OrvThreadBaseMgr::TerminateAllThreadsInThisDoc(OrvObject* document) {
    OrvCriticalSectionLoader lock(m_Lock, 1);
    std::uint64_t removals = 0;
    const std::vector<OrvThreadData*> records = Records(&removals);
    for (auto it = records.rbegin(); it != records.rend(); ++it) {
        OrvThreadData* data = *it;
        if (data && StillListed(data, removals) && !IsFinished(data->GetThreadStatus()) &&
            data->GetDocument() == document)
            Terminate(data);
    }
    for (int round = 0; round < kDocumentWaitRounds && !GetAreAllThreadsInThisDocDone(document);
         ++round)
        Sleep(kWaitRoundMs);
}

int OrvThreadBaseMgr::GetAreAllThreadsInThisDocDone(OrvObject* document) {
    OrvCriticalSectionLoader lock(m_Lock, 1);
    const std::lock_guard guard(m_ListGuard);
    for (POSITION pos = m_ThreadList.GetTailPosition(); pos;) {
        auto* data = static_cast<OrvThreadData*>(m_ThreadList.GetPrev(pos));
        if (data && !IsFinished(data->GetThreadStatus()) && data->GetDocument() == document)
            return 0;
    }
    return 1;
}

int OrvThreadBaseMgr::GetThreadDuplicateOwner(OrvThreadData* data, OrvThreadData*& owner,
                                              void*& handle) {
    if (!data)
        return 0;
    OrvCriticalSectionLoader lock(m_Lock, 1);
    const OrvThreadDataLink* ours = LinkOf(data);
    for (OrvThreadData* other : Records()) {
        HANDLE otherHandle = other->GetThreadHandle();
        const OrvThreadDataLink* theirs = LinkOf(other);
        if (other == data || !otherHandle || !ours || !theirs ||
            theirs->GetIdentifierA() != ours->GetIdentifierA() ||
            theirs->GetIdentifierB() != ours->GetIdentifierB())
            continue;
        if (ours->GetGroupNum() == 0 || ours->GetGroupNum() != theirs->GetGroupNum())
            return 0;
        owner = other;
        handle = otherHandle;
        return 1;
    }
    return 0;
}

int OrvThreadBaseMgr::GetThreadPrevParentOwner(OrvThreadData* data, OrvThreadData*& owner,
                                               void*& handle, int checkGroup) {
    if (!data)
        return 0;
    OrvCriticalSectionLoader lock(m_Lock, 1);
    const std::vector<OrvThreadData*> records = Records();
    const auto at = std::find(records.begin(), records.end(), data);
    if (at == records.end() || at == records.begin())
        return 0;
    OrvThreadData* previous = *(at - 1);
    HANDLE previousHandle = previous->GetThreadHandle();
    if (!previousHandle)
        return 0;
    const OrvThreadDataLink* ours = LinkOf(data);
    const OrvThreadDataLink* theirs = LinkOf(previous);
    if (checkGroup && ours && theirs &&
        (ours->GetGroupNum() == 0 || ours->GetGroupNum() != theirs->GetGroupNum()))
        return 0;
    owner = previous;
    handle = previousHandle;
    return 1;
}

int OrvThreadBaseMgr::GetNumThreadsRunningOrWaiting(OrvObject* document) {
    try {
        if (!document)
            return m_nRunningThreads.load();
        const std::lock_guard guard(m_ListGuard);
        int count = 0;
        for (POSITION pos = m_ThreadList.GetHeadPosition(); pos;) {
            auto* data = static_cast<OrvThreadData*>(m_ThreadList.GetNext(pos));
            const OrveThreadStatus status = data->GetThreadStatus();
            if (data->GetDocument() == document &&
                (status == ThreadWaitingToRun || status == ThreadRunning))
                ++count;
        }
        return count;
    } catch (...) {
        return 1; // the safe answer for a caller about to close a document
    }
}

void OrvThreadBaseMgr::DecrementRunningThreadCnt() {
    --m_nRunningThreads;
}

int OrvThreadBaseMgr::DoNotUpdateProgressDlg() {
    SetDoNotUpdateProgressDlg();
    return 1;
}

int OrvThreadBaseMgr::UpdateProgressDlg() {
    SetUpdateProgressDlg();
    return 1;
}
