// A thread as a kernel object: its POSIX thread, kernel id, exit code and suspend count.
#pragma once

#include <pthread.h>

#include <atomic>
#include <cstdint>

#include "KernelObject.h"

namespace port {

class ThreadObject final : public KernelObject, public std::enable_shared_from_this<ThreadObject> {
public:
    // Runs routine(parameter) on a new detached POSIX thread; null with the last error set when
    // the thread cannot be made.
    static std::shared_ptr<ThreadObject> Start(LPTHREAD_START_ROUTINE routine, LPVOID parameter,
                                               SIZE_T stackSize, bool suspended);
    // The calling thread's object; a thread not made by Start gets one on first use.
    static std::shared_ptr<ThreadObject> Current();

    bool IsSignalled() const override { return m_finished; }
    DWORD Id() const { return m_id.load(); }
    // STILL_ACTIVE until the routine has returned.
    DWORD ExitCode() const;
    DWORD Suspend();
    DWORD Resume();
    // Blocks the calling thread, which must be this one, while the suspend count is above 0.
    void ParkWhileSuspended();

private:
    enum : std::uint32_t { Running, Parked, Ended };

    static void* Main(void* start);
    void Finish(DWORD exitCode);

    pthread_t m_thread{};
    std::atomic<std::uint32_t> m_id{0};
    // m_killLock orders the park signal against the thread's end: no signal once m_exited is set.
    std::mutex m_killLock;
    bool m_exited = false;
    std::atomic<std::int32_t> m_suspendCount{0}; // written under m_killLock
    std::atomic<std::uint32_t> m_runState{Running};
    // Under WaitLock().
    bool m_finished = false;
    DWORD m_exitCode = STILL_ACTIVE;
};

} // namespace port
