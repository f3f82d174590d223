// Helpers for the thread tests: a gate that holds worker threads until opened, and thread
// routines built on it.
#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>

#include "win/threads.h"

class Gate {
public:
    void Open() {
        {
            const std::lock_guard guard(m_lock);
            m_open = true;
        }
        m_opened.notify_all();
    }
    void Wait() {
        std::unique_lock lock(m_lock);
        m_opened.wait(lock, [this] { return m_open; });
    }

private:
    std::mutex m_lock;
    std::condition_variable m_opened;
    bool m_open = false;
};

// A worker that waits for its gate, then returns its exit code.
struct GatedWork {
    Gate gate;
    DWORD exitCode = 0;
    std::atomic<DWORD> seenThreadId{0};
    std::atomic<bool> done{false}; // set as the last touch of this object by the worker
};

inline DWORD WINAPI RunGatedWork(LPVOID parameter) {
    auto* work = static_cast<GatedWork*>(parameter);
    work->seenThreadId = GetCurrentThreadId();
    work->gate.Wait();
    const DWORD exitCode = work->exitCode;
    work->done = true;
    return exitCode;
}

// A worker that counts as fast as it can, with a system call in each round, until told to stop.
struct Counter {
    std::atomic<long> count{0};
    std::atomic<bool> stop{false};
};

inline DWORD WINAPI RunCounter(LPVOID parameter) {
    auto* counter = static_cast<Counter*>(parameter);
    while (!counter->stop) {
        ++counter->count;
        Sleep(0);
    }
    return 0;
}

// Waits (up to about ten seconds) until the counter has moved past a value.
inline bool CounterPasses(const Counter& counter, long value) {
    for (int i = 0; i < 10000 && counter.count <= value; ++i)
        Sleep(1);
    return counter.count > value;
}
