// The ownership checks of loading lists: an object can be claimed once, only when it was made
// while tracking, and not while its own load is under way, however many trackers that load opens.
#include <gtest/gtest.h>

#include <memory>

#include "core/OrvLoadTracker.h"
#include "objects/OrvObject.h"

namespace {

TEST(LoadTracker, AnObjectStaysBusyUntilItsLastTrackerCloses) {
    OrvObject before; // made before tracking: never fresh
    OrvLoadTracker document(&before);
    auto made = std::make_unique<OrvObject>();
    {
        // A class and its base part each open one while the object loads.
        OrvLoadTracker asClass(made.get());
        {
            OrvLoadTracker asBase(made.get());
            EXPECT_EQ(OrvLoadTracker::Depth(), 2u);
        }
        EXPECT_EQ(OrvLoadTracker::Depth(), 2u);
        EXPECT_FALSE(document.Claim(made.get()));
    }
    EXPECT_EQ(OrvLoadTracker::Depth(), 1u);
    EXPECT_FALSE(document.Claim(&before));
    EXPECT_TRUE(document.Claim(made.get()));
    EXPECT_FALSE(document.Claim(made.get())); // once
}

TEST(LoadTracker, AnObjectDestroyedBeforeItIsClaimedCannotBeClaimed) {
    OrvObject host;
    OrvLoadTracker tracker(&host);
    const CObject* gone = nullptr;
    {
        OrvObject made;
        gone = &made;
    }
    EXPECT_FALSE(tracker.Claim(gone));
    EXPECT_EQ(OrvLoadTracker::Depth(), 1u);
}

} // namespace
