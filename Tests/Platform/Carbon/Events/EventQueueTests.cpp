// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "EventTestSupport.h"

#include <gtest/gtest.h>

namespace {

class EventQueue : public testing::Test
{
protected:
    EventQueue() { FlushEventQueue(mQueue); }
    ~EventQueue() override { FlushEventQueue(mQueue); }

    // The kinds of the queued events, in the order in which they are taken.
    std::vector<UInt32> Kinds() const
    {
        std::vector<UInt32> theKinds;
        FindSpecificEventInQueue(
            mQueue,
            [](EventRef theEvent, void* theData) {
                static_cast<std::vector<UInt32>*>(theData)->push_back(GetEventKind(theEvent));
                return Boolean(false);
            },
            &theKinds);
        return theKinds;
    }

    // Posts a new event; only the queue holds it.
    EventRef Post(UInt32 theKind, EventPriority thePriority = kEventPriorityStandard) const
    {
        const TestEvent theEvent(theKind);
        EXPECT_EQ(PostEventToQueue(mQueue, theEvent.Get(), thePriority), noErr);
        return theEvent.Get();
    }

    EventQueueRef mQueue = GetMainEventQueue();
};

} // namespace

TEST_F(EventQueue, ThereIsOneQueue)
{
    EXPECT_NE(mQueue, nullptr);
    EXPECT_EQ(GetCurrentEventQueue(), mQueue);
}

TEST_F(EventQueue, EventsAreTakenByPriorityThenInTheOrderOfPosting)
{
    Post(1, kEventPriorityLow);
    Post(2, kEventPriorityStandard);
    Post(3, kEventPriorityHigh);
    Post(4, kEventPriorityStandard);
    Post(5, kEventPriorityHigh);
    Post(6, kEventPriorityLow);
    EXPECT_EQ(Kinds(), (std::vector<UInt32>{3, 5, 2, 4, 1, 6}));
    EXPECT_EQ(GetNumEventsInQueue(mQueue), 6u);
}

TEST_F(EventQueue, TheQueueHoldsACountOnAnEvent)
{
    const TestEvent theEvent;
    PostEventToQueue(mQueue, theEvent.Get(), kEventPriorityStandard);
    EXPECT_EQ(GetEventRetainCount(theEvent.Get()), 2u);
    EXPECT_TRUE(IsEventInQueue(mQueue, theEvent.Get()));
    EXPECT_EQ(RemoveEventFromQueue(mQueue, theEvent.Get()), noErr);
    EXPECT_EQ(GetEventRetainCount(theEvent.Get()), 1u);
    EXPECT_FALSE(IsEventInQueue(mQueue, theEvent.Get()));
    EXPECT_EQ(RemoveEventFromQueue(mQueue, theEvent.Get()), eventNotInQueueErr);
}

TEST_F(EventQueue, AnEventIsPostedOnlyOnce)
{
    const EventRef theEvent = Post(1);
    EXPECT_EQ(PostEventToQueue(mQueue, theEvent, kEventPriorityHigh), eventAlreadyPostedErr);
    EXPECT_EQ(GetEventRetainCount(theEvent), 1u);
    EXPECT_EQ(GetNumEventsInQueue(mQueue), 1u);
}

TEST_F(EventQueue, FlushingLetsEverythingGo)
{
    const EventRef theEvent = Post(1);
    Post(2);
    EXPECT_EQ(FlushEventQueue(mQueue), noErr);
    EXPECT_EQ(GetNumEventsInQueue(mQueue), 0u);
    EXPECT_EQ(GetEventRetainCount(theEvent), 0u);
}

TEST_F(EventQueue, FlushingTypesKeepsTheOthersInOrder)
{
    Post(1);
    Post(2);
    Post(3);
    Post(2);
    const EventTypeSpec theTypes[] = {{kTestClass, 2}, {'xxxx', 3}};
    EXPECT_EQ(FlushEventsMatchingListFromQueue(mQueue, 2, theTypes), noErr);
    EXPECT_EQ(Kinds(), (std::vector<UInt32>{1, 3}));
}

TEST_F(EventQueue, AComparatorFindsTheFirstEventThatItAccepts)
{
    Post(1);
    const EventRef theSecond = Post(2);
    Post(2);
    UInt32 theWanted = 2;
    const EventComparatorUPP theComparator = [](EventRef theEvent, void* theData) {
        return Boolean(GetEventKind(theEvent) == *static_cast<UInt32*>(theData));
    };
    EXPECT_EQ(FindSpecificEventInQueue(mQueue, theComparator, &theWanted), theSecond);
    EXPECT_EQ(GetEventRetainCount(theSecond), 1u);
    EXPECT_EQ(GetNumEventsInQueue(mQueue), 3u);
    theWanted = 9;
    EXPECT_EQ(FindSpecificEventInQueue(mQueue, theComparator, &theWanted), nullptr);
    EXPECT_EQ(NewEventComparatorUPP(theComparator), theComparator);
    DisposeEventComparatorUPP(theComparator);
}

TEST_F(EventQueue, AComparatorMayChangeTheQueue)
{
    Post(1);
    Post(2);
    EventQueueRef theQueue = mQueue;
    const EventComparatorUPP theFlusher = [](EventRef, void* theData) {
        FlushEventQueue(*static_cast<EventQueueRef*>(theData));
        return Boolean(true);
    };
    EXPECT_EQ(FindSpecificEventInQueue(mQueue, theFlusher, &theQueue), nullptr);
    EXPECT_EQ(GetNumEventsInQueue(mQueue), 0u);
}

TEST_F(EventQueue, TheFirstMatchingEventIsAcquiredAndStays)
{
    Post(1);
    const EventRef theSecond = Post(2);
    const EventTypeSpec theType = {kTestClass, 2};
    const EventRef theFound = AcquireFirstMatchingEventInQueue(mQueue, 1, &theType, kEventQueueOptionsNone);
    EXPECT_EQ(theFound, theSecond);
    EXPECT_EQ(GetEventRetainCount(theFound), 2u);
    EXPECT_TRUE(IsEventInQueue(mQueue, theFound));
    ReleaseEvent(theFound);
    const EventRef theAny = AcquireFirstMatchingEventInQueue(mQueue, 0, nullptr, kEventQueueOptionsNone);
    EXPECT_EQ(GetEventKind(theAny), 1u);
    ReleaseEvent(theAny);
    const EventTypeSpec theAbsent = {kTestClass, 3};
    EXPECT_EQ(AcquireFirstMatchingEventInQueue(mQueue, 1, &theAbsent, kEventQueueOptionsNone), nullptr);
}

TEST_F(EventQueue, BadArgumentsAreRefused)
{
    const TestEvent theEvent;
    const auto theAccept = [](EventRef, void*) { return Boolean(true); };
    Post(1);
    for (const EventQueueRef theQueue : {EventQueueRef(nullptr), InventedReference<EventQueueRef>()}) {
        EXPECT_EQ(PostEventToQueue(theQueue, theEvent.Get(), kEventPriorityStandard), paramErr);
        EXPECT_FALSE(IsEventInQueue(theQueue, theEvent.Get()));
        EXPECT_EQ(RemoveEventFromQueue(theQueue, theEvent.Get()), paramErr);
        EXPECT_EQ(FlushEventQueue(theQueue), paramErr);
        EXPECT_EQ(FlushEventsMatchingListFromQueue(theQueue, 1, &kTestEvent), paramErr);
        EXPECT_EQ(FindSpecificEventInQueue(theQueue, theAccept, nullptr), nullptr);
        EXPECT_EQ(AcquireFirstMatchingEventInQueue(theQueue, 0, nullptr, 0), nullptr);
        EXPECT_EQ(GetNumEventsInQueue(theQueue), 0u);
    }
    EXPECT_EQ(FlushEventsMatchingListFromQueue(mQueue, 1, nullptr), paramErr);
    EXPECT_EQ(FlushEventsMatchingListFromQueue(mQueue, 0, &kTestEvent), paramErr);
    EXPECT_EQ(FindSpecificEventInQueue(mQueue, nullptr, nullptr), nullptr);
    EXPECT_EQ(AcquireFirstMatchingEventInQueue(mQueue, 1, nullptr, 0), nullptr);
    EXPECT_EQ(GetNumEventsInQueue(mQueue), 1u);
}
