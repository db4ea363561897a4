// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What the Event Manager does when there is no memory: it says so, and nothing has changed.

#include "AllocationFailures.h"
#include "EventTestSupport.h"

#include <array>

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

// More than an event has room for in itself.
using LargeData = std::array<UInt8, 64>;

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
    const LargeData theOld = {0};
    const LargeData theNew = {1};
    theEvent.Set(kName, typeChar, theOld);
    FailEach([&](AllocationFailures& theFailures) {
        const OSStatus theStatus = SetEventParameter(theEvent.Get(), kName, typeChar, sizeof theNew, &theNew);
        theFailures.Stop();
        EXPECT_EQ(theStatus, StatusOf(theFailures));
        LargeData theRead = {99};
        GetEventParameter(theEvent.Get(), kName, typeChar, nullptr, sizeof theRead, nullptr, &theRead);
        EXPECT_EQ(theRead[0], theFailures.HasFailed() ? theOld[0] : theNew[0]);
    });
}

TEST(EventMemory, AParameterIsAddedOrNot)
{
    FailEach([](AllocationFailures& theFailures) {
        EventRef theEvent = nullptr;
        const LargeData theValue = {5};
        CreateEvent(nullptr, kTestClass, 1, 1, 0, &theEvent);
        const OSStatus theStatus = SetEventParameter(theEvent, kName, typeChar, sizeof theValue, &theValue);
        theFailures.Stop();
        EXPECT_EQ(theStatus == noErr, !theFailures.HasFailed());
        EXPECT_EQ(RemoveEventParameter(theEvent, kName) == noErr, !theFailures.HasFailed());
        ReleaseEvent(theEvent);
    });
}

TEST(EventMemory, MoreParametersThanUsualAreAddedOrNot)
{
    FailEach([](AllocationFailures& theFailures) {
        TestEvent theEvent;
        UInt32 theAdded = 0;
        while (theAdded < 20 && theEvent.Set(kName + theAdded, typeUInt32, theAdded) == noErr) {
            ++theAdded;
        }
        theFailures.Stop();
        EXPECT_EQ(theAdded < 20, theFailures.HasFailed());
        for (UInt32 theIndex = 0; theIndex < 20; ++theIndex) {
            UInt32 theRead = 99;
            GetEventParameter(theEvent.Get(), kName + theIndex, typeUInt32, nullptr, sizeof theRead, nullptr,
                              &theRead);
            EXPECT_EQ(theRead, theIndex < theAdded ? theIndex : 99u);
        }
    });
}

TEST(EventMemory, AConversionIsMadeOrNot)
{
    TestEvent theEvent;
    theEvent.Set(kName, typeCFStringRef, CFSTR("a text of some length"));
    FailEach([&](AllocationFailures& theFailures) {
        UniChar theText[21] = {'?'};
        const OSStatus theStatus = GetEventParameter(theEvent.Get(), kName, typeUnicodeText, nullptr,
                                                     sizeof theText, nullptr, theText);
        theFailures.Stop();
        EXPECT_EQ(theStatus, StatusOf(theFailures));
        EXPECT_EQ(theText[0], theFailures.HasFailed() ? '?' : 'a');
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

TEST(EventMemory, AnEventIsSentThroughManyObjectsOrNot)
{
    int theCount = 0;
    EventHandlerRef theHandler = nullptr;
    InstallEventHandler(GetApplicationEventTarget(), CountCall, 1, &kTestEvent, &theCount, &theHandler);
    const Rect theBounds = {40, 40, 140, 140};
    WindowRef theWindow = nullptr;
    CreateNewWindow(kDocumentWindowClass, kWindowNoAttributes, &theBounds, &theWindow);
    ControlRef theInnermost = nullptr;
    CreateRootControl(theWindow, &theInnermost);
    for (int theDepth = 0; theDepth < 10; ++theDepth) {
        const ControlRef theOuter = theInnermost;
        const Rect thePane = {0, 0, 90, 90};
        ASSERT_EQ(CreateGroupBoxControl(theWindow, &thePane, nullptr, true, &theInnermost), noErr);
        ASSERT_EQ(EmbedControl(theInnermost, theOuter), noErr);
    }
    const TestEvent theEvent;
    FailEach([&](AllocationFailures& theFailures) {
        theCount = 0;
        const OSStatus theStatus =
            SendEventToEventTarget(theEvent.Get(), GetControlEventTarget(theInnermost));
        theFailures.Stop();
        EXPECT_EQ(theStatus, StatusOf(theFailures));
        EXPECT_EQ(theCount, theFailures.HasFailed() ? 0 : 1);
    });
    DisposeWindow(theWindow);
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
