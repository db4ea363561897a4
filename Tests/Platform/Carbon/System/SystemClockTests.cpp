// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The machine's clock, and waiting by it.

#include "EventTestSupport.h"

#include <thread>

TEST(SystemClock, TheMachinesClockDoesNotGoBack)
{
    const EventTime theFirst = GetCurrentEventTime();
    EXPECT_GE(GetCurrentEventTime(), theFirst);
}

TEST(SystemClock, AnEventPostedByAnotherThreadEndsTheWait)
{
    FlushEventQueue(GetMainEventQueue());
    std::thread thePoster([] {
        const TestEvent theEvent(1);
        PostEventToQueue(GetMainEventQueue(), theEvent.Get(), kEventPriorityStandard);
    });
    EventRef theEvent = nullptr;
    EXPECT_EQ(ReceiveNextEvent(1, &kTestEvent, kEventDurationForever, kEventRemoveFromQueue, &theEvent),
              noErr);
    thePoster.join();
    EXPECT_EQ(GetEventRetainCount(theEvent), 1u);
    ReleaseEvent(theEvent);
}

TEST(SystemClock, AShortWaitEndsByItself)
{
    FlushEventQueue(GetMainEventQueue());
    EventRef theEvent = nullptr;
    EXPECT_EQ(ReceiveNextEvent(1, &kTestEvent, kEventDurationMillisecond, kEventRemoveFromQueue, &theEvent),
              eventLoopTimedOutErr);
}
