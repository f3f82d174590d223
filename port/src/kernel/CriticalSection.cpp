// Critical sections: a mutex on the heap with its owner and depth, so that the owner may enter
// again. Leaving a section that the calling thread does not own does nothing.
#include <pthread.h>

#include <atomic>
#include <mutex>

#include "win/threads.h"

namespace port {

class CriticalSectionState {
public:
    void Enter() {
        if (OwnedHere()) {
            ++m_depth;
            return;
        }
        m_mutex.lock();
        Take();
    }
    bool TryEnter() {
        if (OwnedHere()) {
            ++m_depth;
            return true;
        }
        if (!m_mutex.try_lock())
            return false;
        Take();
        return true;
    }
    void Leave() {
        if (!OwnedHere())
            return;
        if (--m_depth > 0)
            return;
        m_owner.store(pthread_t{}, std::memory_order_relaxed);
        m_mutex.unlock();
    }

private:
    // Only the owner can find its own id here; other threads see another id or none.
    bool OwnedHere() const {
        return pthread_equal(m_owner.load(std::memory_order_relaxed), pthread_self()) != 0;
    }
    void Take() {
        m_owner.store(pthread_self(), std::memory_order_relaxed);
        m_depth = 1;
    }

    std::mutex m_mutex;
    std::atomic<pthread_t> m_owner{};
    long m_depth = 0; // touched by the owner only
};

} // namespace port

void InitializeCriticalSection(LPCRITICAL_SECTION lpCriticalSection) {
    lpCriticalSection->State = new port::CriticalSectionState;
}

void EnterCriticalSection(LPCRITICAL_SECTION lpCriticalSection) {
    lpCriticalSection->State->Enter();
}

BOOL TryEnterCriticalSection(LPCRITICAL_SECTION lpCriticalSection) {
    return lpCriticalSection->State->TryEnter() ? TRUE : FALSE;
}

void LeaveCriticalSection(LPCRITICAL_SECTION lpCriticalSection) {
    lpCriticalSection->State->Leave();
}

void DeleteCriticalSection(LPCRITICAL_SECTION lpCriticalSection) {
    delete lpCriticalSection->State;
    lpCriticalSection->State = nullptr;
}
