#include "objects/OrvNodeLoadScope.h"

#include <memory>
#include <vector>

#include "objects/OrvObject.h"

namespace {

// The nodes in the order they began loading; a node destroyed during the load leaves a null in
// its slot. Each node knows its slot, so that no look-up is needed.
struct ScopeRecord {
    const OrvObject* owner;
    std::vector<OrvObject*> slots;
    std::size_t alive = 0;
    bool lost = false;

    bool Holds(const OrvObject* node, std::size_t slot) const {
        return slot < slots.size() && slots[slot] == node;
    }
};

thread_local std::unique_ptr<ScopeRecord> t_record;

} // namespace

OrvNodeLoadScope::OrvNodeLoadScope(const OrvObject* owner) : m_outer(!t_record) {
    if (m_outer) {
        t_record = std::make_unique<ScopeRecord>();
        t_record->owner = owner;
    }
}

OrvNodeLoadScope::~OrvNodeLoadScope() {
    if (!m_outer)
        return;
    std::unique_ptr<ScopeRecord> record = std::move(t_record);
    if (m_committed)
        return;
    for (OrvObject* node : record->slots)
        if (node)
            node->ReleaseLinks();
    for (OrvObject* node : record->slots)
        delete node;
}

void OrvNodeLoadScope::Loading(OrvObject* node) {
    if (!t_record || node == t_record->owner || t_record->Holds(node, node->m_LoadSlot))
        return;
    node->m_LoadSlot = t_record->slots.size();
    t_record->slots.push_back(node);
    ++t_record->alive;
}

bool OrvNodeLoadScope::Destroyed(OrvObject* node) {
    if (!t_record || !t_record->Holds(node, node->m_LoadSlot))
        return false;
    t_record->slots[node->m_LoadSlot] = nullptr;
    --t_record->alive;
    t_record->lost = true;
    return true;
}

bool OrvNodeLoadScope::LostNodes() const {
    return t_record && t_record->lost;
}

std::size_t OrvNodeLoadScope::NodesMade() const {
    return t_record ? t_record->alive : 0;
}
