// OrvNodeLoadScope: the nodes that an archive loads on this thread while a document loads. A load
// that fails part way leaves nodes that nothing owns yet, and nodes whose links point at objects
// the archive has already deleted; the scope frees them all without following a single link. Every
// node load opens one (the outermost answers for the whole load); a document opens its own around
// its loading and commits it once everything is in place.
#pragma once

#include "port/Export.h"

#include <cstddef>

class OrvObject;

class ORV_API OrvNodeLoadScope {
public:
    // Opens recording on this thread for the load of `owner` (which is not recorded). A scope
    // opened while another is open records nothing itself: the outer one answers for the load.
    explicit OrvNodeLoadScope(const OrvObject* owner);
    // Without Commit: drops the links of every recorded node still alive, then deletes them.
    ~OrvNodeLoadScope();
    OrvNodeLoadScope(const OrvNodeLoadScope&) = delete;
    OrvNodeLoadScope& operator=(const OrvNodeLoadScope&) = delete;

    // The load succeeded: the recorded nodes belong to the document.
    void Commit() { m_committed = true; }

    // Called when a node's Serialize starts loading and from its destructor. Destroyed answers
    // whether the node was loaded in the load under way: such a node must not follow its links,
    // which may lead to nodes of the same failed load that are already gone.
    static void Loading(OrvObject* node);
    static bool Destroyed(OrvObject* node);

    // Whether a node made in this load was deleted again before the end (an object whose loading
    // failed and was caught further up). Nodes made beside it may still point at it, so a
    // document refuses such a load.
    bool LostNodes() const;
    // How many nodes made in this load are alive.
    std::size_t NodesMade() const;

private:
    bool m_outer;
    bool m_committed = false;
};
