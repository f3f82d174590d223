#include "CommandTestSupport.h"

#include <dirent.h>
#include <sys/stat.h>

#include <chrono>
#include <string>
#include <thread>

namespace commands_test {

HostState& Host() {
    static HostState state;
    return state;
}

namespace {
OrvObject* ActiveDocument() {
    return Host().document;
}
OrvSettingsKey* AppSettings() {
    return Host().appSettings;
}
} // namespace

void RegisterCallbacks() {
    OrvShareRegisterDocCBK(nullptr, nullptr, ActiveDocument, nullptr, nullptr, nullptr, nullptr,
                           AppSettings, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
}

std::unique_ptr<OrvSettingsKey> MakeThreadSettings(int multi, int del, int num) {
    auto key = std::make_unique<OrvSettingsKey>(L"Application", L"Software\\Test\\Application");
    key->AddValue(L"ThreadMulti", multi);
    key->AddValue(L"ThreadNum", num);
    key->AddValue(L"ThreadDel", del);
    return key;
}

TestManager::TestManager() {
    m_pInstance = this;
}

TestManager::~TestManager() {
    DeleteAll();
    m_pInstance = nullptr;
}

void TestManager::DeleteAll() {
    CObList all;
    GetAllThreads(all);
    for (POSITION pos = all.GetHeadPosition(); pos;)
        DestroyThreadData(static_cast<OrvThreadData*>(all.GetNext(pos)));
}

void TestManager::List(OrvThreadData* data) {
    m_ThreadList.AddTail(data);
}

int TestManager::OnStartRunningThreadData(OrvThreadData* data) {
    ++started;
    return OrvThreadBaseMgr::OnStartRunningThreadData(data);
}

int TestManager::OnDoneRunningThreadData(OrvThreadData* data) {
    ++doneNotices;
    return OrvThreadBaseMgr::OnDoneRunningThreadData(data);
}

int TestManager::OnDestroyThreadData(OrvThreadData* data) {
    ++destroyed;
    return OrvThreadBaseMgr::OnDestroyThreadData(data);
}

bool TestManager::AllWorkersEnded() {
    if (begun != started)
        return false;
    const std::lock_guard guard(m_WorkerGuard);
    for (DWORD id : m_Workers)
        if (!ThreadGone(id))
            return false;
    return true;
}

int TestManager::OnBeginThread(OrvThreadData* data) {
    {
        const std::lock_guard guard(m_WorkerGuard);
        m_Workers.push_back(GetCurrentThreadId());
    }
    ++begun;
    if (onBegin)
        onBegin(data);
    return OrvThreadBaseMgr::OnBeginThread(data);
}

namespace {
void Count(CommandLog& log, OrveCommandType type) {
    if (type == CommandExecute) {
        ++log.executes;
        log.executeThread = GetCurrentThreadId();
    } else if (type == CommandTerminate) {
        ++log.terminates;
    } else if (type == CommandChildDone) {
        ++log.childDones;
    }
}
} // namespace

OrveThreadStatus ScriptedNode::HandleCommand(OrveCommandType type, unsigned int, void*& parameter) {
    Count(log, type);
    if (type != CommandExecute)
        return ThreadDone;
    return work ? work(parameter) : result;
}

OrveThreadStatus BlockingNode::HandleCommand(OrveCommandType type, unsigned int, void*&) {
    Count(log, type);
    if (type == CommandTerminate)
        stop = true;
    if (type != CommandExecute)
        return ThreadDone;
    inWork = true;
    while (!stop && !release)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    inWork = false;
    return stop ? ThreadFailed : ThreadDone;
}

bool Eventually(const std::function<bool()>& condition) {
    for (int step = 0; step < 20000; ++step) {
        if (condition())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return condition();
}

bool ThreadGone(DWORD id) {
    struct stat info {};
    return stat(("/proc/self/task/" + std::to_string(id)).c_str(), &info) != 0;
}

int ProcessThreadCount() {
    int count = 0;
    if (DIR* tasks = opendir("/proc/self/task")) {
        while (const dirent* entry = readdir(tasks))
            if (entry->d_name[0] != '.')
                ++count;
        closedir(tasks);
    }
    return count;
}

} // namespace commands_test
