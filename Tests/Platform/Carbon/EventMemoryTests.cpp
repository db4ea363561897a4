// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What the Event Manager does when there is no memory: it says so, and nothing has changed.

#include "AllocationFailures.h"
#include "EventTestSupport.h"

namespace {

OSStatus CountCall(EventHandlerCallRef, EventRef, void* theData)
{
    ++*static_cast<int*>(theData);
    return noErr;
}

OSStatus StatusOf(const AllocationFailures& theFailures)
{
    return theFailures.HasFailed() ? OSStatus(memFullErr) : OSStatus(noErr);
}

// The first, second, ... allocation of one call failing.
template <class Attempt>
void FailEach(const Attempt& theAttempt)
{
    EXPECT_GT(FailEachAllocation(theAttempt), 0u) << "no allocation failed";
}

} // namespace

TEST(EventMemory, AnEventIsMadeOrNot)
{
    FailEach([](AllocationFailures& theFailures) {
        EventRef theEvent = InventedReference<EventRef>();
        const OSStatus theStatus = CreateEvent(nullptr, kTestClass, 1, 1, 0, &theEvent);
        theFailures.Stop();
        EXPECT_EQ(theStatus, StatusOf(theFailures));
        EXPECT_EQ(theEvent == nullptr, theFailures.HasFailed());
        ReleaseEvent(theEvent);
    });
}

TEST(EventMemory, ACopyIsMadeOrNot)
{
    TestEvent theEvent;
    theEvent.Set(kName, typeUInt32, UInt32(1));
    FailEach([&](AllocationFailures& theFailures) {
        const EventRef theCopy = CopyEvent(theEvent.Get());
        theFailures.Stop();
        EXPECT_EQ(theCopy == nullptr, theFailures.HasFailed());
        ReleaseEvent(theCopy);
    });
}

TEST(EventMemory, AParameterIsReplacedOrStays)
{
    TestEvent theEvent;
    theEvent.Set(kName, typeUInt32, UInt32(0));
    UInt32 theOld = 0;
    UInt32 theNew = 1;
    FailEach([&](AllocationFailures& theFailures) {
        const OSStatus theStatus =
            SetEventParameter(theEvent.Get(), kName, typeUInt32, sizeof theNew, &theNew);
        theFailures.Stop();
        EXPECT_EQ(theStatus, StatusOf(theFailures));
        UInt32 theRead = 99;
        GetEventParameter(theEvent.Get(), kName, typeUInt32, nullptr, sizeof theRead, nullptr, &theRead);
        EXPECT_EQ(theRead, theFailures.HasFailed() ? theOld : theNew);
    });
}

TEST(EventMemory, AParameterIsAddedOrNot)
{
    FailEach([](AllocationFailures& theFailures) {
        EventRef theEvent = nullptr;
        const UInt32 theValue = 5;
        CreateEvent(nullptr, kTestClass, 1, 1, 0, &theEvent);
        const OSStatus theStatus = SetEventParameter(theEvent, kName, typeUInt32, sizeof theValue, &theValue);
        theFailures.Stop();
        EXPECT_EQ(theStatus == noErr, !theFailures.HasFailed());
        EXPECT_EQ(RemoveEventParameter(theEvent, kName) == noErr, !theFailures.HasFailed());
        ReleaseEvent(theEvent);
    });
}

TEST(EventMemory, AConversionIsMadeOrNot)
{
    TestEvent theEvent;
    theEvent.Set(kName, typeQDPoint, Point{1, 2});
    FailEach([&](AllocationFailures& theFailures) {
        HIPoint thePoint = CGPointMake(9, 9);
        const OSStatus theStatus = GetEventParameter(theEvent.Get(), kName, typeHIPoint, nullptr,
                                                     sizeof thePoint, nullptr, &thePoint);
        theFailures.Stop();
        EXPECT_EQ(theStatus, StatusOf(theFailures));
        EXPECT_EQ(thePoint.x, theFailures.HasFailed() ? 9 : 2);
    });
}

TEST(EventMemory, AHandlerIsInstalledOrNot)
{
    // The target is made when it is first asked for.
    ASSERT_NE(GetApplicationEventTarget(), nullptr);
    FailEach([](AllocationFailures& theFailures) {
        int theCount = 0;
        EventHandlerRef theHandler = nullptr;
        const OSStatus theStatus = InstallEventHandler(GetApplicationEventTarget(), CountCall, 1, &kTestEvent,
                                                       &theCount, &theHandler);
        theFailures.Stop();
        EXPECT_EQ(theStatus, StatusOf(theFailures));
        const TestEvent theEvent;
        SendEventToEventTarget(theEvent.Get(), GetApplicationEventTarget());
        EXPECT_EQ(theCount, theFailures.HasFailed() ? 0 : 1);
        EXPECT_EQ(RemoveEventHandler(theHandler) == noErr, !theFailures.HasFailed());
    });
}

TEST(EventMemory, TypesAreAddedOrNot)
{
    ASSERT_NE(GetApplicationEventTarget(), nullptr);
    FailEach([](AllocationFailures& theFailures) {
        int theCount = 0;
        EventHandlerRef theHandler = nullptr;
        InstallEventHandler(GetApplicationEventTarget(), CountCall, 0, nullptr, &theCount, &theHandler);
        const OSStatus theStatus = AddEventTypesToHandler(theHandler, 1, &kTestEvent);
        theFailures.Stop();
        EXPECT_EQ(theStatus == noErr, !theFailures.HasFailed());
        const TestEvent theEvent;
        SendEventToEventTarget(theEvent.Get(), GetApplicationEventTarget());
        EXPECT_EQ(theCount, theFailures.HasFailed() ? 0 : 1);
        RemoveEventHandler(theHandler);
    });
}

TEST(EventMemory, AnEventIsSentOrNot)
{
    int theCount = 0;
    EventHandlerRef theHandler = nullptr;
    InstallEventHandler(GetApplicationEventTarget(), CountCall, 1, &kTestEvent, &theCount, &theHandler);
    const TestEvent theEvent;
    FailEach([&](AllocationFailures& theFailures) {
        theCount = 0;
        const OSStatus theStatus = SendEventToEventTarget(theEvent.Get(), GetApplicationEventTarget());
        theFailures.Stop();
        EXPECT_EQ(theStatus, StatusOf(theFailures));
        EXPECT_EQ(theCount, theFailures.HasFailed() ? 0 : 1);
    });
    RemoveEventHandler(theHandler);
}

TEST(EventMemory, AnEventIsPostedOrNot)
{
    FlushEventQueue(GetMainEventQueue());
    FailEach([](AllocationFailures& theFailures) {
        // Each round needs room for one more.
        EventRef theEvents[9] = {};
        OSStatus theStatus = noErr;
        for (EventRef& theEvent : theEvents) {
            CreateEvent(nullptr, kTestClass, 1, 1, 0, &theEvent);
            if (theEvent != nullptr && theStatus == noErr) {
                theStatus = PostEventToQueue(GetMainEventQueue(), theEvent, kEventPriorityLow);
            }
        }
        theFailures.Stop();
        for (const EventRef theEvent : theEvents) {
            EXPECT_EQ(GetEventRetainCount(theEvent),
                      theEvent == nullptr ? 0u : 1u + IsEventInQueue(GetMainEventQueue(), theEvent));
            ReleaseEvent(theEvent);
        }
        FlushEventQueue(GetMainEventQueue());
    });
}

TEST(EventMemory, ATimerIsStartedOrNot)
{
    FailEach([](AllocationFailures& theFailures) {
        EventLoopTimerRef theTimer = InventedReference<EventLoopTimerRef>();
        const OSStatus theStatus = InstallEventLoopTimer(
            GetMainEventLoop(), 1, 0, [](EventLoopTimerRef, void*) {}, nullptr, &theTimer);
        theFailures.Stop();
        EXPECT_EQ(theStatus, StatusOf(theFailures));
        EXPECT_EQ(theTimer == nullptr, theFailures.HasFailed());
        EXPECT_EQ(RemoveEventLoopTimer(theTimer) == noErr, !theFailures.HasFailed());
    });
}
