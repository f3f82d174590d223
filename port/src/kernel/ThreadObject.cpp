// Threads on POSIX threads. SuspendThread sends the park signal; its handler blocks the target on
// a futex until the suspend count is back to 0. Only futex calls and atomics run in the handler,
// all of them safe in a signal handler.
#include "ThreadObject.h"

#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>

namespace port {
namespace {

thread_local ThreadObject* t_current = nullptr;

// Owns the object of a thread that was not made by CreateThread.
struct AdoptedThread {
    std::shared_ptr<ThreadObject> object;
    ~AdoptedThread() { t_current = nullptr; }
};
thread_local AdoptedThread t_adopted;

template <typename Word> void FutexWait(std::atomic<Word>& word, Word expected) {
    static_assert(sizeof(Word) == 4 && std::atomic<Word>::is_always_lock_free);
    syscall(SYS_futex, reinterpret_cast<Word*>(&word), FUTEX_WAIT_PRIVATE, expected, nullptr,
            nullptr, 0);
}

template <typename Word> void FutexWakeAll(std::atomic<Word>& word) {
    syscall(SYS_futex, reinterpret_cast<Word*>(&word), FUTEX_WAKE_PRIVATE, INT_MAX, nullptr,
            nullptr, 0);
}

int ParkSignal() {
    return SIGRTMIN + 4;
}

void OnParkSignal(int) {
    const int savedErrno = errno;
    if (t_current)
        t_current->ParkWhileSuspended();
    errno = savedErrno;
}

void InstallParkHandler() {
    static std::once_flag once;
    std::call_once(once, [] {
        struct sigaction action {};
        action.sa_handler = OnParkSignal;
        action.sa_flags = SA_RESTART;
        sigemptyset(&action.sa_mask);
        sigaction(ParkSignal(), &action, nullptr);
    });
}

// Keeps the park signal away while the calling thread holds a thread's m_killLock, so that no
// thread is ever parked with that lock held.
class ParkSignalBlocker {
public:
    ParkSignalBlocker() {
        sigset_t park;
        sigemptyset(&park);
        sigaddset(&park, ParkSignal());
        pthread_sigmask(SIG_BLOCK, &park, &m_previous);
    }
    ~ParkSignalBlocker() { pthread_sigmask(SIG_SETMASK, &m_previous, nullptr); }
    ParkSignalBlocker(const ParkSignalBlocker&) = delete;
    ParkSignalBlocker& operator=(const ParkSignalBlocker&) = delete;

private:
    sigset_t m_previous;
};

struct StartBlock {
    std::shared_ptr<ThreadObject> thread;
    LPTHREAD_START_ROUTINE routine;
    LPVOID parameter;
};

} // namespace

std::shared_ptr<ThreadObject> ThreadObject::Start(LPTHREAD_START_ROUTINE routine, LPVOID parameter,
                                                  SIZE_T stackSize, bool suspended) {
    auto thread = std::make_shared<ThreadObject>();
    thread->m_suspendCount.store(suspended ? 1 : 0);
    auto block = std::make_unique<StartBlock>(StartBlock{thread, routine, parameter});

    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    if (stackSize > 0) {
        const auto page = static_cast<SIZE_T>(sysconf(_SC_PAGESIZE));
        const SIZE_T minimum = PTHREAD_STACK_MIN;
        const SIZE_T size = (std::max(stackSize, minimum) + page - 1) / page * page;
        pthread_attr_setstacksize(&attributes, size);
    }
    const int failed = pthread_create(&thread->m_thread, &attributes, Main, block.get());
    pthread_attr_destroy(&attributes);
    if (failed) {
        SetLastError(failed == EAGAIN ? ERROR_NOT_ENOUGH_MEMORY : ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    block.release(); // the new thread owns it now
    while (thread->m_id.load() == 0)
        FutexWait(thread->m_id, 0u);
    return thread;
}

void* ThreadObject::Main(void* start) {
    const std::unique_ptr<StartBlock> block(static_cast<StartBlock*>(start));
    ThreadObject& self = *block->thread;
    t_current = &self;
    self.m_id.store(static_cast<DWORD>(gettid()));
    FutexWakeAll(self.m_id);
    self.ParkWhileSuspended(); // CREATE_SUSPENDED
    self.Finish(block->routine(block->parameter));
    t_current = nullptr;
    return nullptr;
}

void ThreadObject::Finish(DWORD exitCode) {
    const ParkSignalBlocker blocker;
    {
        const std::lock_guard guard(m_killLock);
        m_exited = true;
        m_runState.store(Ended);
        FutexWakeAll(m_runState);
    }
    {
        const std::lock_guard guard(WaitLock());
        m_exitCode = exitCode;
        m_finished = true;
    }
    WaitCondition().notify_all();
}

std::shared_ptr<ThreadObject> ThreadObject::Current() {
    if (t_current)
        return t_current->shared_from_this();
    auto thread = std::make_shared<ThreadObject>();
    thread->m_thread = pthread_self();
    thread->m_id.store(static_cast<DWORD>(gettid()));
    t_adopted.object = thread;
    t_current = thread.get();
    return thread;
}

DWORD ThreadObject::ExitCode() const {
    const std::lock_guard guard(WaitLock());
    return m_exitCode;
}

void ThreadObject::ParkWhileSuspended() {
    if (m_suspendCount.load() <= 0)
        return;
    const std::uint32_t before = m_runState.exchange(Parked);
    FutexWakeAll(m_runState);
    for (std::int32_t count; (count = m_suspendCount.load()) > 0;)
        FutexWait(m_suspendCount, count);
    m_runState.store(before);
}

DWORD ThreadObject::Suspend() {
    const bool self = t_current == this;
    std::int32_t previous = 0;
    {
        const ParkSignalBlocker blocker;
        const std::lock_guard guard(m_killLock);
        if (m_exited) {
            SetLastError(ERROR_ACCESS_DENIED);
            return static_cast<DWORD>(-1);
        }
        previous = m_suspendCount.load();
        if (previous >= MAXIMUM_SUSPEND_COUNT) {
            SetLastError(ERROR_SIGNAL_REFCOUNT_EXCEEDED);
            return static_cast<DWORD>(-1);
        }
        m_suspendCount.store(previous + 1);
        if (previous == 0 && !self) {
            InstallParkHandler();
            pthread_kill(m_thread, ParkSignal());
        }
    }
    if (previous == 0 && self) {
        ParkWhileSuspended();
    } else if (previous == 0) {
        // Returns once the target is parked (or has ended), so that it makes no more progress.
        while (m_runState.load() == Running && m_suspendCount.load() > 0)
            FutexWait(m_runState, static_cast<std::uint32_t>(Running));
    }
    return static_cast<DWORD>(previous);
}

DWORD ThreadObject::Resume() {
    const ParkSignalBlocker blocker;
    const std::lock_guard guard(m_killLock);
    const std::int32_t previous = m_suspendCount.load();
    if (previous > 0) {
        m_suspendCount.store(previous - 1);
        if (previous == 1)
            FutexWakeAll(m_suspendCount);
    }
    return static_cast<DWORD>(previous);
}

} // namespace port
