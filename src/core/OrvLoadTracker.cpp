#include "core/OrvLoadTracker.h"

#include <memory>
#include <unordered_map>
#include <unordered_set>

namespace {

struct TrackingState {
    std::unordered_set<const CObject*> fresh;
    // How many trackers of each object are open: a class and its base may each open one.
    std::unordered_map<const CObject*, std::size_t> busy;
};

thread_local std::unique_ptr<TrackingState> t_state;

} // namespace

OrvLoadTracker::OrvLoadTracker(const CObject* loading) : m_loading(loading), m_opened(!t_state) {
    if (m_opened)
        t_state = std::make_unique<TrackingState>();
    ++t_state->busy[loading];
}

OrvLoadTracker::~OrvLoadTracker() {
    const auto entry = t_state->busy.find(m_loading);
    if (--entry->second == 0)
        t_state->busy.erase(entry);
    if (m_opened)
        t_state.reset();
}

std::size_t OrvLoadTracker::Depth() {
    return t_state ? t_state->busy.size() : 0;
}

bool OrvLoadTracker::Claim(const CObject* object) {
    if (!object || t_state->busy.count(object))
        return false;
    return t_state->fresh.erase(object) == 1;
}

void OrvLoadTracker::Created(const CObject* object) {
    if (t_state)
        t_state->fresh.insert(object);
}

void OrvLoadTracker::Destroyed(const CObject* object) {
    if (t_state)
        t_state->fresh.erase(object);
}
