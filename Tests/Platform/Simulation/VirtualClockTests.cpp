// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The clock that tests turn by hand.

#include "EventTestSupport.h"
#include "StandardErrorCapture.h"

namespace {

using VirtualClock = EventLoopTest;

} // namespace

TEST_F(VirtualClock, WaitingInVainTakesItsTime)
{
    Post(1);
    EventRef theEvent = InventedReference<EventRef>();
    EXPECT_EQ(ReceiveNextEvent(1, &kOtherTestEvent, 5, kEventRemoveFromQueue, &theEvent),
              eventLoopTimedOutErr);
    EXPECT_EQ(theEvent, nullptr);
    EXPECT_EQ(mClock.Now(), 1005);
}

TEST_F(VirtualClock, AWaitThatWouldNeverEndSaysSo)
{
    EventRef theEvent = nullptr;
    // Posting and quitting wake the loop once for nothing.
    EXPECT_EQ(ReceiveNextEvent(0, nullptr, kEventDurationForever, kEventRemoveFromQueue, &theEvent),
              eventLoopTimedOutErr);
    EXPECT_EQ(StandardErrorCapture::TakeLines(),
              Lines{"The event loop waits for ever: no event, timer or deadline is left."});
}

TEST_F(VirtualClock, IsTheTimeOfAllUntilItGoes)
{
    EXPECT_EQ(GetCurrentEventTime(), 1000);
    EXPECT_EQ(mClock.Now(), 1000);
    {
        const Host::VirtualClock theOther(5);
        EXPECT_EQ(GetCurrentEventTime(), 5);
    }
    const EventTime theMachines = GetCurrentEventTime();
    EXPECT_NE(theMachines, 1000);
    EXPECT_NE(theMachines, 5);
}

TEST_F(VirtualClock, GoesForwardByHandAndNeverBack)
{
    mClock.Advance(2.5);
    EXPECT_EQ(GetCurrentEventTime(), 1002.5);
    mClock.Advance(-1);
    EXPECT_EQ(mClock.Now(), 1002.5);
}
