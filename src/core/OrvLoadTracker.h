// Ownership checks for lists loaded from an archive. An archive can name an object a second time
// by back-reference; a list that owns its elements must take only the objects the archive created
// for it, or a damaged file could make two owners of one object (or an object its own child).
//
// While a tracker is open on the thread, every OrvBaseObject constructed is recorded as fresh. A
// loading list claims each element: a fresh object that is not itself being loaded is taken
// (once); anything else belongs to someone else.
#pragma once

#include "port/Export.h"

#include <cstddef>

class CObject;

class ORV_API OrvLoadTracker {
public:
    // Opens the thread's tracking (or joins the one already open) and marks `loading`, the object
    // whose Serialize runs, as busy until the last tracker opened for it closes.
    explicit OrvLoadTracker(const CObject* loading);
    ~OrvLoadTracker();
    OrvLoadTracker(const OrvLoadTracker&) = delete;
    OrvLoadTracker& operator=(const OrvLoadTracker&) = delete;

    // How many distinct objects are being loaded on this thread, one inside the other.
    static std::size_t Depth();

    // True, once, for an object created while tracking and not being loaded.
    bool Claim(const CObject* object);

    // Called by OrvBaseObject's constructor and destructor.
    static void Created(const CObject* object);
    static void Destroyed(const CObject* object);

private:
    const CObject* m_loading;
    bool m_opened;
};
