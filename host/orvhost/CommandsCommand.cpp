// `orvhost commands`: a batch of long commands on the host's document, run the way an add-in runs
// them: through a manager derived from OrvThreadBaseMgr, some on worker threads and some on the
// calling thread, with a refused duplicate, a replacing duplicate, a parent with its child and a
// termination. Each record is printed when it goes.
#include <cstdio>
#include <memory>
#include <vector>

#include "HostCallbacks.h"
#include "HostCommand.h"
#include "core/OrvHostCallbacks.h"
#include "threads/OrvThreadBaseMgr.h"
#include "threads/OrvThreadData.h"
#include "threads/OrvThreadDataLink.h"

namespace {

const char* StatusName(OrveThreadStatus status) {
    static const char* const names[] = {"not started", "done",       "running",
                                        "suspended",   "terminated", "failed",
                                        "done, kept",  "waiting",    "waiting for child"};
    return status >= 0 && status <= ThreadWaitingForChild ? names[status] : "?";
}

void PrintRecord(const char* event, OrvThreadData* data) {
    const CStringA name(data->GetProcessName());
    const CStringA start(data->GetStartTimeStr());
    const CStringA end(data->GetEndTimeStr());
    const CStringA taken(data->GetTimeTaken());
    std::printf("%-9s %-22s id %-3u status %-17s start %-8s end %-8s taken %s\n", event,
                name.GetString(), data->GetCommandContextID(), StatusName(data->GetThreadStatus()),
                start.GetString(), end.GetString(), taken.GetString());
}

// The host's manager: it says when a command starts on a worker and prints a record as it goes.
class HostThreadMgr : public OrvThreadBaseMgr {
public:
    HostThreadMgr() { m_pInstance = this; }
    ~HostThreadMgr() override { m_pInstance = nullptr; }

    OrvThreadData* RecordOfThisThread() { return FindThreadDataForCurrentThread(); }

protected:
    int OnStartRunningThreadData(OrvThreadData* data) override {
        const CStringA name(data->GetProcessName());
        std::printf("start     %-22s id %-3u on a worker thread\n", name.GetString(),
                    data->GetCommandContextID());
        return OrvThreadBaseMgr::OnStartRunningThreadData(data);
    }
    int OnDestroyThreadData(OrvThreadData* data) override {
        PrintRecord("ended", data);
        return OrvThreadBaseMgr::OnDestroyThreadData(data);
    }
};

HostThreadMgr* g_manager = nullptr;

// A demonstration operation: it works in steps, reports its progress through the host's
// progress callback and its record, polls for the user's cancel, and stops when terminated.
class DemoOperation : public OrvObject {
public:
    DemoOperation(const wchar_t* name, int steps, OrveThreadStatus result)
        : m_Steps(steps), m_Result(result) {
        ChangeName(name);
    }

    OrveThreadStatus HandleCommand(OrveCommandType type, unsigned int, void*&) override {
        const CStringA name(Name());
        if (type == CommandTerminate) {
            std::printf("terminate %-22s\n", name.GetString());
            ++m_Terminations; // ends the work under way
            return ThreadTerminated;
        }
        if (type == CommandChildDone) {
            std::printf("child of  %-22s has ended\n", name.GetString());
            return ThreadDone;
        }
        const int terminationsBefore = m_Terminations;
        OrvThreadData* record = g_manager->RecordOfThisThread();
        for (int step = 1; step <= m_Steps; ++step) {
            if (m_Terminations != terminationsBefore || IsUserJobCancelled())
                return ThreadFailed;
            const long long percent = 100LL * step / m_Steps;
            if (record)
                record->SetActionProgress(percent);
            OrvProgressCallback(percent);
            Sleep(20);
        }
        m_bWorked = true;
        return m_Result;
    }

private:
    const int m_Steps;
    const OrveThreadStatus m_Result;
    std::atomic<int> m_Terminations{0};

public:
    std::atomic<bool> m_bWorked{false};
};

// The add-in's catalogue has the thread settings; the host's short tree gets them here.
void AddThreadSettings() {
    OrvSettingsKey& app = orvhost::AppSettings();
    int probe = -1;
    app.GetValue(L"ThreadMulti", probe);
    if (probe != -1)
        return;
    app.AddValue(L"ThreadMulti", 1);
    app.AddValue(L"ThreadNum", 5);
    app.AddValue(L"ThreadDel", 1);
}

OrvThreadDataLink LinkTo(void* target) {
    OrvThreadDataLink link;
    link.SetIdentifierA(target);
    return link;
}

// Waits until no listed record runs or has a worker that was told to stop.
void WaitForWorkers() {
    for (int round = 0; round < 3000; ++round) {
        CObList all;
        g_manager->GetAllThreads(all);
        bool busy = false;
        for (POSITION pos = all.GetHeadPosition(); pos && !busy;) {
            const OrveThreadStatus status =
                static_cast<OrvThreadData*>(all.GetNext(pos))->GetThreadStatus();
            busy =
                status == ThreadRunning || status == ThreadSuspended || status == ThreadTerminated;
        }
        if (!busy)
            return;
        Sleep(10);
    }
}

int RunCommands(const orvhost::Arguments&) {
    orvhost::StartLibrary();
    AddThreadSettings();
    HostThreadMgr manager;
    g_manager = &manager;
    constexpr auto kPlain = OrveThreadType(0);
    constexpr auto kEnd = OrveThreadEndType(0);

    DemoOperation face(L"Face 1", 3, ThreadDone), pocket(L"Pocket 1", 10, ThreadDone),
        drill(L"Drill 1", 2, ThreadDone), tap(L"Drill 1 tapping", 3, ThreadDoneKeep),
        contour(L"Contour 1", 50, ThreadDone);

    manager.SetCanRunSeparateProcess(0);
    std::printf("Face 1 on the calling thread: %d\n",
                OrvThreadBaseMgr::RunCommand(&face, 101, nullptr, kPlain, kEnd));
    manager.SetCanRunSeparateProcess(1);

    OrvThreadDataLink pocketLink = LinkTo(&pocket), pocketAgain = LinkTo(&pocket);
    std::printf("Pocket 1 started: %s\n",
                OrvThreadBaseMgr::RunCommand(&pocket, 102, &pocketLink, kPlain, kEnd) ? "yes"
                                                                                      : "no");
    std::printf("Pocket 1 again, same parameter: %s\n",
                OrvThreadBaseMgr::RunCommand(&pocket, 102, &pocketLink, kPlain, kEnd) ? "started"
                                                                                      : "refused");
    std::printf("Pocket 1 again, new parameter on the same target: %s\n",
                OrvThreadBaseMgr::RunCommand(&pocket, 102, &pocketAgain, kPlain, kEnd) ? "started"
                                                                                       : "refused");

    OrvThreadBaseMgr::RunCommand(&drill, 103, nullptr, kPlain, ThreadEndWaitForChild);
    for (int wait = 0; wait < 500 && !drill.m_bWorked; ++wait)
        Sleep(10); // the parent's own part ends before its child starts
    OrvThreadBaseMgr::RunCommand(&tap, 104, nullptr, ThreadTypeChild, kEnd);

    OrvThreadDataLink contourLink = LinkTo(&contour);
    OrvThreadBaseMgr::RunCommand(&contour, 105, &contourLink, kPlain, kEnd);
    Sleep(300);
    std::printf("terminating Contour 1\n");
    manager.DestructThread(&contour);

    manager.WaitForAllThreadsToBeDone();
    WaitForWorkers();
    std::printf("records still listed: %d\n", manager.GetNumThreadsNotDone());
    CObList left;
    manager.GetAllThreads(left);
    for (POSITION pos = left.GetHeadPosition(); pos;)
        PrintRecord("listed", static_cast<OrvThreadData*>(left.GetNext(pos)));
    std::printf("deleted as done: %d\n", manager.DeleteAllDoneThreads());
    g_manager = nullptr;
    orvhost::StopLibrary();
    return 0;
}

const orvhost::CommandRegistrar
    registrar({"commands", "commands   run a batch of long commands on workers and on this thread",
               RunCommands});

} // namespace
