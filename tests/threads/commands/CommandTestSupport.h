// What the command tests share: a manager derived the way the add-in derives it, nodes whose
// HandleCommand the tests script, the callbacks and the application settings the manager reads.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <set>
#include <vector>

#include "core/OrvHostCallbacks.h"
#include "objects/OrvObject.h"
#include "settings/OrvSettingsKey.h"
#include "threads/OrvThreadBaseMgr.h"
#include "threads/OrvThreadData.h"
#include "threads/OrvThreadDataLink.h"

namespace commands_test {

// The document and the application settings that the callbacks hand out.
struct HostState {
    OrvObject* document = nullptr;
    OrvSettingsKey* appSettings = nullptr;
};
HostState& Host();
// Registers the document and settings slots; the others stay empty.
void RegisterCallbacks();

// An application key holding the three thread settings.
std::unique_ptr<OrvSettingsKey> MakeThreadSettings(int multi, int del, int num = 5);

// A manager that installs itself and records what the base class tells it.
class TestManager : public OrvThreadBaseMgr {
public:
    TestManager();
    ~TestManager() override;

    // Deletes every record still listed (their workers must have ended).
    void DeleteAll();
    int RunningCount() const { return m_nRunningThreads.load(); }
    void AddRunning(int delta) { m_nRunningThreads += delta; }
    DWORD LastContextID() const { return m_LastContextID; }
    void* LastIdentifierA() const { return m_LastIdentifierA; }
    void* LastIdentifierB() const { return m_LastIdentifierB; }
    OrvCriticalSection& Lock() { return m_Lock; }

    using OrvThreadBaseMgr::DestroyThreadData;
    using OrvThreadBaseMgr::FindThreadData;
    using OrvThreadBaseMgr::FindThreadDataForCurrentThread;
    using OrvThreadBaseMgr::GetNumThreadsRunningOrWaiting;
    using OrvThreadBaseMgr::RunCommand_i;

    // Appends a record made by a test, the way RunCommand_i lists its own.
    void List(OrvThreadData* data);

    std::atomic<int> destroyed{0};
    std::atomic<int> begun{0};
    std::atomic<int> doneNotices{0};
    std::atomic<int> started{0};
    // Runs on a worker before its work; set before the command starts.
    std::function<void(OrvThreadData*)> onBegin;
    // Whether every worker started so far has begun and its thread has ended.
    bool AllWorkersEnded();

protected:
    std::mutex m_WorkerGuard;
    std::vector<DWORD> m_Workers; // the thread of each worker that began
    int OnStartRunningThreadData(OrvThreadData* data) override;
    int OnDoneRunningThreadData(OrvThreadData* data) override;
    int OnDestroyThreadData(OrvThreadData* data) override;
    int OnBeginThread(OrvThreadData* data) override;
};

// What a node's HandleCommand was asked, counted per command type.
struct CommandLog {
    std::atomic<int> executes{0};
    std::atomic<int> terminates{0};
    std::atomic<int> childDones{0};
    std::atomic<DWORD> executeThread{0};
};

// A node whose work is a function of the test's choosing; the default answers `result`.
class ScriptedNode : public OrvObject {
public:
    OrveThreadStatus result = ThreadDone;
    std::function<OrveThreadStatus(void*&)> work;
    CommandLog log;

    OrveThreadStatus HandleCommand(OrveCommandType type, unsigned int contextId,
                                   void*& parameter) override;
};

// A node whose work runs until it is told to stop or released.
class BlockingNode : public OrvObject {
public:
    std::atomic<bool> stop{false};
    std::atomic<bool> release{false};
    std::atomic<bool> inWork{false};
    CommandLog log;

    OrveThreadStatus HandleCommand(OrveCommandType type, unsigned int contextId,
                                   void*& parameter) override;
};

// Waits (in 1 ms steps, up to 20 s) until the condition holds; answers whether it did.
bool Eventually(const std::function<bool()>& condition);

// Threads of this process, from the kernel.
int ProcessThreadCount();
// Whether the thread of that kernel id has ended.
bool ThreadGone(DWORD id);

} // namespace commands_test
