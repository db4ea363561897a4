// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The order of handlers and the way of an event outward, as the platform's headers describe them.

#include "EventTestSupport.h"

#include <memory>
#include <Presentation/PresenterRegistry.h>

namespace {

using EventTargetDelivery = EventTargetTest;

} // namespace

// --- Order and answers ------------------------------------------------------------------------------

TEST_F(EventTargetDelivery, TheHandlerInstalledLastIsAskedFirst)
{
    const TestHandler theFirst(Button(), "first", mLog, eventNotHandledErr);
    const TestHandler theSecond(Button(), "second", mLog, eventNotHandledErr);
    const TestHandler theThird(Button(), "third", mLog, eventNotHandledErr);
    EXPECT_EQ(Send(Button()), eventNotHandledErr);
    EXPECT_EQ(mLog, (Log{"third", "second", "first"}));
}

TEST_F(EventTargetDelivery, AnUnhandledEventGoesOutwardToTheApplication)
{
    const TestHandler theApplication(Application(), "application", mLog, eventNotHandledErr);
    const TestHandler theWindow(Window(), "window", mLog, eventNotHandledErr);
    const TestHandler theBox(Box(), "box", mLog, eventNotHandledErr);
    const TestHandler theButton(Button(), "button", mLog, eventNotHandledErr);
    EXPECT_EQ(Send(Button()), eventNotHandledErr);
    EXPECT_EQ(mLog, (Log{"button", "box", "window", "application"}));
}

TEST_F(EventTargetDelivery, AHandledEventGoesNoFurther)
{
    const TestHandler theWindow(Window(), "window", mLog, eventNotHandledErr);
    const TestHandler theLower(Button(), "lower", mLog, eventNotHandledErr);
    const TestHandler theUpper(Button(), "upper", mLog, noErr);
    EXPECT_EQ(Send(Button()), noErr);
    EXPECT_EQ(mLog, Log{"upper"});
}

TEST_F(EventTargetDelivery, AnyOtherAnswerEndsTheWayAndReachesTheSender)
{
    const TestHandler theWindow(Window(), "window", mLog, noErr);
    const TestHandler theButton(Button(), "button", mLog, userCanceledErr);
    EXPECT_EQ(Send(Button()), userCanceledErr);
    EXPECT_EQ(mLog, Log{"button"});
}

TEST_F(EventTargetDelivery, PassingToTheNextTargetLeavesTheRestOfThisOneOut)
{
    const TestHandler theWindow(Window(), "window", mLog, noErr);
    const TestHandler theLower(Button(), "lower", mLog, noErr);
    const TestHandler theUpper(Button(), "upper", mLog, eventPassToNextTargetErr);
    EXPECT_EQ(Send(Button()), noErr);
    EXPECT_EQ(mLog, (Log{"upper", "window"}));
}

TEST_F(EventTargetDelivery, PassingFromTheLastTargetIsNoHandling)
{
    const TestHandler theLower(Application(), "lower", mLog, noErr);
    const TestHandler theUpper(Application(), "upper", mLog, eventPassToNextTargetErr);
    EXPECT_EQ(Send(Application()), eventNotHandledErr);
    EXPECT_EQ(mLog, Log{"upper"});
}

TEST_F(EventTargetDelivery, OnlyHandlersForTheTypeAreCalled)
{
    const auto theRefusal = [](EventHandlerCallRef, EventRef) { return OSStatus(eventNotHandledErr); };
    const TestHandler theOther(Button(), "other kind", mLog, theRefusal, {kOtherTestEvent});
    const TestHandler theClass(Button(), "other class", mLog, theRefusal, {{'xxxx', 1}});
    const TestHandler theBoth(Button(), "both", mLog, theRefusal, {kOtherTestEvent, kTestEvent});
    Send(Button());
    EXPECT_EQ(mLog, Log{"both"});
}

TEST_F(EventTargetDelivery, AHandlerGetsItsEventAndItsUserData)
{
    struct Call
    {
        EventRef theEvent;
        int theCount;
    } theCall = {nullptr, 0};
    const EventHandlerUPP theFunction = [](EventHandlerCallRef theReference, EventRef theEvent,
                                           void* theData) {
        auto* theSeen = static_cast<Call*>(theData);
        theSeen->theEvent = theEvent;
        theSeen->theCount += theReference != nullptr ? 1 : 100;
        return OSStatus(noErr);
    };
    EventHandlerRef theHandler = nullptr;
    ASSERT_EQ(InstallEventHandler(Button(), theFunction, 1, &kTestEvent, &theCall, &theHandler), noErr);
    const TestEvent theEvent;
    EXPECT_EQ(SendEventToEventTarget(theEvent.Get(), Button()), noErr);
    EXPECT_EQ(theCall.theEvent, theEvent.Get());
    EXPECT_EQ(theCall.theCount, 1);
}

// --- Calling the next handler -----------------------------------------------------------------------

TEST_F(EventTargetDelivery, CallingTheNextHandlerAsksTheRestAndGivesTheirAnswer)
{
    OSStatus theNext = noErr;
    const TestHandler theWindow(Window(), "window", mLog, OSStatus(77));
    const TestHandler theLower(Button(), "lower", mLog, eventNotHandledErr);
    const TestHandler theUpper(Button(), "upper", mLog, [&](EventHandlerCallRef theCall, EventRef theEvent) {
        theNext = CallNextEventHandler(theCall, theEvent);
        mLog.push_back("upper again");
        return OSStatus(noErr);
    });
    EXPECT_EQ(Send(Button()), noErr);
    EXPECT_EQ(theNext, 77);
    EXPECT_EQ(mLog, (Log{"upper", "lower", "window", "upper again"}));
}

TEST_F(EventTargetDelivery, HandlersThatWereAskedByAnotherAreNotAskedAgain)
{
    const TestHandler theWindow(Window(), "window", mLog, eventNotHandledErr);
    const TestHandler theLower(Button(), "lower", mLog, eventNotHandledErr);
    const TestHandler theUpper(Button(), "upper", mLog, [](EventHandlerCallRef theCall, EventRef theEvent) {
        return CallNextEventHandler(theCall, theEvent);
    });
    EXPECT_EQ(Send(Button()), eventNotHandledErr);
    EXPECT_EQ(mLog, (Log{"upper", "lower", "window"}));
}

TEST_F(EventTargetDelivery, PassingOnAfterTheOthersWereAskedIsNoHandling)
{
    const TestHandler theWindow(Window(), "window", mLog, noErr);
    const TestHandler theUpper(Button(), "upper", mLog, [](EventHandlerCallRef theCall, EventRef theEvent) {
        CallNextEventHandler(theCall, theEvent);
        return OSStatus(eventPassToNextTargetErr);
    });
    EXPECT_EQ(Send(Button()), eventNotHandledErr);
    EXPECT_EQ(mLog, (Log{"upper", "window"}));
}

TEST_F(EventTargetDelivery, CallsOfTheNextHandlerNest)
{
    const auto thePassOn = [](EventHandlerCallRef theCall, EventRef theEvent) {
        return CallNextEventHandler(theCall, theEvent);
    };
    const TestHandler theThird(Button(), "third", mLog, OSStatus(5));
    const TestHandler theSecond(Button(), "second", mLog, thePassOn);
    const TestHandler theFirst(Button(), "first", mLog, thePassOn);
    EXPECT_EQ(Send(Button()), 5);
    EXPECT_EQ(mLog, (Log{"first", "second", "third"}));
}

TEST_F(EventTargetDelivery, ACallReferenceIsGoodOnlyInsideItsHandler)
{
    EventHandlerCallRef theKept = nullptr;
    const TestHandler theHandler(Button(), "button", mLog, [&](EventHandlerCallRef theCall, EventRef) {
        theKept = theCall;
        return OSStatus(CallNextEventHandler(theCall, nullptr));
    });
    EXPECT_EQ(Send(Button()), paramErr);
    const TestEvent theEvent;
    EXPECT_EQ(CallNextEventHandler(theKept, theEvent.Get()), paramErr);
    EXPECT_EQ(CallNextEventHandler(nullptr, theEvent.Get()), paramErr);
}

// --- Options ----------------------------------------------------------------------------------------

TEST_F(EventTargetDelivery, WithoutPropagationOnlyTheTargetIsAsked)
{
    const TestHandler theWindow(Window(), "window", mLog, noErr);
    const TestHandler theLower(Button(), "lower", mLog, eventNotHandledErr);
    const TestHandler theUpper(Button(), "upper", mLog, [](EventHandlerCallRef theCall, EventRef theEvent) {
        return CallNextEventHandler(theCall, theEvent);
    });
    EXPECT_EQ(Send(Button(), kEventTargetDontPropagate), eventNotHandledErr);
    EXPECT_EQ(mLog, (Log{"upper", "lower"}));
}

struct AnswersOfAll
{
    OSStatus theUpper;
    OSStatus theLower;
    OSStatus theResult;
};

class EventTargetToAll : public EventTargetTest, public testing::WithParamInterface<AnswersOfAll>
{
};

TEST_P(EventTargetToAll, EveryHandlerIsAskedAndTheStrongestAnswerIsKept)
{
    const TestHandler theLower(Box(), "lower", mLog, GetParam().theLower);
    const TestHandler theUpper(Button(), "upper", mLog, GetParam().theUpper);
    EXPECT_EQ(Send(Button(), kEventTargetSendToAllHandlers), GetParam().theResult);
    EXPECT_EQ(mLog, (Log{"upper", "lower"}));
}

INSTANTIATE_TEST_SUITE_P(
    EachPair, EventTargetToAll,
    testing::Values(AnswersOfAll{noErr, eventNotHandledErr, noErr},
                    AnswersOfAll{eventNotHandledErr, noErr, noErr},
                    AnswersOfAll{eventNotHandledErr, eventNotHandledErr, eventNotHandledErr},
                    AnswersOfAll{eventPassToNextTargetErr, noErr, noErr},
                    AnswersOfAll{eventPassToNextTargetErr, eventPassToNextTargetErr, eventNotHandledErr},
                    AnswersOfAll{userCanceledErr, noErr, userCanceledErr},
                    AnswersOfAll{noErr, userCanceledErr, userCanceledErr},
                    AnswersOfAll{userCanceledErr, paramErr, userCanceledErr}));

TEST_F(EventTargetDelivery, AHandlerThatAsksTheOthersItselfCannotHideTheirAnswer)
{
    const TestHandler theLower(Box(), "lower", mLog, noErr);
    const TestHandler theUpper(Button(), "upper", mLog, [](EventHandlerCallRef theCall, EventRef theEvent) {
        CallNextEventHandler(theCall, theEvent);
        return OSStatus(eventNotHandledErr);
    });
    EXPECT_EQ(Send(Button(), kEventTargetSendToAllHandlers), noErr);
    EXPECT_EQ(mLog, (Log{"upper", "lower"}));
}

TEST_F(EventTargetDelivery, PassingToTheNextTargetHidesNothingFromAll)
{
    const TestHandler theLower(Button(), "lower", mLog, eventNotHandledErr);
    const TestHandler theUpper(Button(), "upper", mLog, eventPassToNextTargetErr);
    EXPECT_EQ(Send(Button(), kEventTargetSendToAllHandlers), eventNotHandledErr);
    EXPECT_EQ(mLog, (Log{"upper", "lower"}));
}

TEST_F(EventTargetDelivery, AllHandlersOfOneTargetCanBeToldAlone)
{
    const TestHandler theWindow(Window(), "window", mLog, noErr);
    const TestHandler theLower(Button(), "lower", mLog, noErr);
    const TestHandler theUpper(Button(), "upper", mLog, noErr);
    EXPECT_EQ(Send(Button(), kEventTargetSendToAllHandlers | kEventTargetDontPropagate), noErr);
    EXPECT_EQ(mLog, (Log{"upper", "lower"}));
}

// --- Changes during a pass --------------------------------------------------------------------------

TEST_F(EventTargetDelivery, AHandlerMayRemoveItself)
{
    const TestHandler theLower(Button(), "lower", mLog, eventNotHandledErr);
    std::unique_ptr<TestHandler> theUpper;
    theUpper = std::make_unique<TestHandler>(Button(), "upper", mLog, [&](EventHandlerCallRef, EventRef) {
        EXPECT_EQ(theUpper->Remove(), noErr);
        return OSStatus(eventNotHandledErr);
    });
    Send(Button());
    Send(Button());
    EXPECT_EQ(mLog, (Log{"upper", "lower", "lower"}));
}

TEST_F(EventTargetDelivery, AHandlerMayDeleteItselfWithItsUserData)
{
    const TestHandler theLower(Button(), "lower", mLog, eventNotHandledErr);
    TestHandler* theUpper = nullptr;
    theUpper = new TestHandler(Button(), "upper", mLog, [&theUpper](EventHandlerCallRef, EventRef) {
        // The action is a part of what is deleted, so it touches nothing afterwards.
        delete theUpper;
        return OSStatus(eventNotHandledErr);
    });
    Send(Button());
    Send(Button());
    EXPECT_EQ(mLog, (Log{"upper", "lower", "lower"}));
}

TEST_F(EventTargetDelivery, AHandlerRemovedDuringAPassIsNotCalledByIt)
{
    TestHandler theWindow(Window(), "window", mLog, eventNotHandledErr);
    TestHandler theLower(Button(), "lower", mLog, eventNotHandledErr);
    const TestHandler theUpper(Button(), "upper", mLog, [&](EventHandlerCallRef, EventRef) {
        theLower.Remove();
        theWindow.Remove();
        return OSStatus(eventNotHandledErr);
    });
    Send(Button());
    EXPECT_EQ(mLog, Log{"upper"});
}

TEST_F(EventTargetDelivery, RemovingAHandlerThatWasAskedAlreadyKeepsThePlaces)
{
    const TestHandler theThird(Button(), "third", mLog, eventNotHandledErr);
    std::unique_ptr<TestHandler> theFirst;
    const TestHandler theSecond(Button(), "second", mLog, [&](EventHandlerCallRef, EventRef) {
        theFirst->Remove();
        return OSStatus(eventNotHandledErr);
    });
    theFirst = std::make_unique<TestHandler>(Button(), "first", mLog, eventNotHandledErr);
    Send(Button());
    Send(Button());
    EXPECT_EQ(mLog, (Log{"first", "second", "third", "second", "third"}));
}

TEST_F(EventTargetDelivery, AHandlerInstalledDuringAPassIsFirstCalledByTheNextEvent)
{
    std::unique_ptr<TestHandler> theNew;
    const TestHandler theOld(Button(), "old", mLog, [&](EventHandlerCallRef, EventRef) {
        if (theNew == nullptr) {
            theNew = std::make_unique<TestHandler>(Button(), "new", mLog, eventNotHandledErr);
        }
        return OSStatus(eventNotHandledErr);
    });
    Send(Button());
    EXPECT_EQ(mLog, Log{"old"});
    Send(Button());
    EXPECT_EQ(mLog, (Log{"old", "new", "old"}));
}

TEST_F(EventTargetDelivery, AHandlerMayTakeItselfOutAndPutItselfBackOnTop)
{
    struct Self
    {
        EventTargetRef theTarget;
        EventHandlerRef theReference;
        EventHandlerUPP theFunction;
        int theCount;
    };
    const EventHandlerUPP theFunction = [](EventHandlerCallRef, EventRef, void* theData) {
        auto* theSelf = static_cast<Self*>(theData);
        ++theSelf->theCount;
        EXPECT_EQ(RemoveEventHandler(theSelf->theReference), noErr);
        EXPECT_EQ(InstallEventHandler(theSelf->theTarget, theSelf->theFunction, 1, &kTestEvent, theSelf,
                                      &theSelf->theReference),
                  noErr);
        return OSStatus(eventNotHandledErr);
    };
    Self theSelf = {Button(), nullptr, theFunction, 0};
    ASSERT_EQ(InstallEventHandler(Button(), theFunction, 1, &kTestEvent, &theSelf, &theSelf.theReference),
              noErr);
    Send(Button());
    EXPECT_EQ(theSelf.theCount, 1);
    Send(Button());
    EXPECT_EQ(theSelf.theCount, 2);
}

TEST_F(EventTargetDelivery, AHandlerMayDisposeItsControl)
{
    const TestHandler theWindow(Window(), "window", mLog, eventNotHandledErr);
    const TestHandler theBox(Box(), "box", mLog, eventNotHandledErr);
    const TestHandler theLower(Button(), "lower", mLog, eventNotHandledErr);
    const TestHandler theUpper(Button(), "upper", mLog, [&](EventHandlerCallRef, EventRef) {
        DisposeControl(mButton);
        return OSStatus(eventNotHandledErr);
    });
    EXPECT_EQ(Send(Button()), eventNotHandledErr);
    EXPECT_EQ(mLog, (Log{"upper", "box", "window"}));
}

TEST_F(EventTargetDelivery, AHandlerMayCloseTheWindowItIsIn)
{
    const TestHandler theApplication(Application(), "application", mLog, noErr);
    const TestHandler theWindow(Window(), "window", mLog, eventNotHandledErr);
    const TestHandler theLower(Button(), "lower", mLog, eventNotHandledErr);
    const TestHandler theUpper(Button(), "upper", mLog, [&](EventHandlerCallRef, EventRef) {
        DisposeWindow(mWindow);
        mWindow = nullptr;
        return OSStatus(eventNotHandledErr);
    });
    EXPECT_EQ(Send(Button()), noErr);
    EXPECT_EQ(mLog, (Log{"upper", "application"}));
}

TEST_F(EventTargetDelivery, TheWayOutwardIsSettledWhenSendingBegins)
{
    const TestHandler theBox(Box(), "box", mLog, eventNotHandledErr);
    const TestHandler theWindow(Window(), "window", mLog, eventNotHandledErr);
    const TestHandler theButton(Button(), "button", mLog, [&](EventHandlerCallRef, EventRef) {
        ControlRef theRoot = nullptr;
        GetRootControl(mWindow, &theRoot);
        EmbedControl(mButton, theRoot);
        return OSStatus(eventNotHandledErr);
    });
    Send(Button());
    EXPECT_EQ(mLog, (Log{"button", "box", "window"}));
    mLog.clear();
    Send(Button());
    EXPECT_EQ(mLog, (Log{"button", "window"}));
}

TEST_F(EventTargetDelivery, AHandlerMaySendTheSameKindOfEventAgain)
{
    int theDepth = 0;
    const TestHandler theButton(Button(), "button", mLog, [&](EventHandlerCallRef, EventRef) {
        return ++theDepth < 5 ? Send(Button()) : OSStatus(33);
    });
    EXPECT_EQ(Send(Button()), 33);
    EXPECT_EQ(mLog.size(), 5u);
}

TEST_F(EventTargetDelivery, AHandlerRemovedInsideANestedEventIsGoneFromTheOuterOne)
{
    TestHandler theLower(Button(), "lower", mLog, eventNotHandledErr);
    int theDepth = 0;
    const TestHandler theUpper(Button(), "upper", mLog, [&](EventHandlerCallRef, EventRef) {
        if (++theDepth == 1) {
            Send(Button());
            theLower.Remove();
        }
        return OSStatus(eventNotHandledErr);
    });
    Send(Button());
    EXPECT_EQ(mLog, (Log{"upper", "upper", "lower"}));
}

TEST_F(EventTargetDelivery, TheEventStaysAliveWhileItIsOnItsWay)
{
    EventRef theEvent = nullptr;
    CreateEvent(nullptr, kTestClass, 1, 0, 0, &theEvent);
    OSType theClass = 0;
    const TestHandler theHandler(Button(), "button", mLog, [&](EventHandlerCallRef, EventRef theSent) {
        ReleaseEvent(theSent);
        theClass = GetEventClass(theSent);
        return OSStatus(noErr);
    });
    EXPECT_EQ(SendEventToEventTarget(theEvent, Button()), noErr);
    EXPECT_EQ(theClass, kTestClass);
    EXPECT_EQ(GetEventRetainCount(theEvent), 0u);
}

TEST_F(EventTargetDelivery, AnEventThatAHandlerReleasesTooOftenGoesNoFurther)
{
    EventRef theEvent = nullptr;
    ASSERT_EQ(CreateEvent(nullptr, kTestClass, 1, 0, 0, &theEvent), noErr);
    const TestHandler theOuter(GetApplicationEventTarget(), "outer", mLog, noErr);
    const TestHandler theInner(Button(), "inner", mLog, [](EventHandlerCallRef, EventRef theReleased) {
        for (int theTime = 0; theTime < 3; ++theTime) {
            ReleaseEvent(theReleased);
        }
        EXPECT_EQ(GetEventClass(theReleased), 0u);
        EXPECT_EQ(RetainEvent(theReleased), nullptr);
        return OSStatus(eventNotHandledErr);
    });
    EXPECT_EQ(SendEventToEventTarget(theEvent, Button()), eventNotHandledErr);
    EXPECT_EQ(mLog, Log{"inner"});
    EXPECT_EQ(GetEventRetainCount(theEvent), 0u);
    EXPECT_EQ(SendEventToEventTarget(theEvent, Button()), paramErr);
}

TEST_F(EventTargetDelivery, EventsOnTheirWayAreFoundFromTheInnermostHandlerAndFromOtherThreads)
{
    const TestEvent theOuterEvent(1);
    const TestEvent theInnerEvent(2);
    std::vector<UInt32> theKinds;
    const auto theAsk = [&] {
        theKinds.push_back(GetEventKind(theInnerEvent.Get()));
        theKinds.push_back(GetEventKind(theOuterEvent.Get()));
    };
    const TestHandler theHandler(Button(), "button", mLog,
                                 [&](EventHandlerCallRef, EventRef theEvent) {
                                     if (theEvent == theOuterEvent.Get()) {
                                         return SendEventToEventTarget(theInnerEvent.Get(), Button());
                                     }
                                     theAsk();
                                     std::thread(theAsk).join();
                                     return OSStatus(noErr);
                                 },
                                 {kTestEvent, kOtherTestEvent});
    EXPECT_EQ(SendEventToEventTarget(theOuterEvent.Get(), Button()), noErr);
    EXPECT_EQ(theKinds, (std::vector<UInt32>{2, 1, 2, 1}));
}

TEST_F(EventTargetDelivery, ParametersSetByAHandlerReachTheSender)
{
    const TestHandler theHandler(Button(), "button", mLog, [](EventHandlerCallRef, EventRef theEvent) {
        const UInt32 theValue = 21;
        return SetEventParameter(theEvent, 'answ', typeUInt32, sizeof theValue, &theValue);
    });
    const TestEvent theEvent;
    SendEventToEventTarget(theEvent.Get(), Button());
    UInt32 theValue = 0;
    GetEventParameter(theEvent.Get(), 'answ', typeUInt32, nullptr, sizeof theValue, nullptr, &theValue);
    EXPECT_EQ(theValue, 21u);
}

TEST_F(EventTargetDelivery, AThousandHandlersAreAskedInOrder)
{
    std::vector<std::unique_ptr<TestHandler>> theHandlers;
    theHandlers.reserve(1000);
    for (int theNumber = 0; theNumber < 1000; ++theNumber) {
        theHandlers.push_back(
            std::make_unique<TestHandler>(Button(), std::to_string(theNumber), mLog, eventNotHandledErr));
    }
    Send(Button());
    ASSERT_EQ(mLog.size(), 1000u);
    EXPECT_EQ(mLog.front(), "999");
    EXPECT_EQ(mLog.back(), "0");
}

// --- The current event ------------------------------------------------------------------------------

TEST_F(EventTargetDelivery, APersonsEventIsTheCurrentOneWhileTheDispatcherWorksOnIt)
{
    EventRef theSeen = nullptr;
    UInt32 theModifiers = 0;
    const TestHandler theHandler(GetApplicationEventTarget(), "application", mLog,
                                 [&](EventHandlerCallRef, EventRef) {
                                     theSeen = GetCurrentEvent();
                                     theModifiers = GetCurrentEventKeyModifiers();
                                     return OSStatus(noErr);
                                 });
    TestEvent theEvent(kTestClass, 1, kEventAttributeUserEvent);
    theEvent.Set(kEventParamKeyModifiers, typeUInt32, UInt32(shiftKey | optionKey));
    SendEventToEventTarget(theEvent.Get(), GetEventDispatcherTarget());
    EXPECT_EQ(theSeen, theEvent.Get());
    EXPECT_EQ(theModifiers, UInt32(shiftKey | optionKey));
    EXPECT_EQ(GetCurrentEvent(), nullptr);
    EXPECT_EQ(GetCurrentEventKeyModifiers(), UInt32(shiftKey | optionKey));
}

TEST_F(EventTargetDelivery, OtherEventsAreNotTheCurrentOne)
{
    EventRef theSeen = InventedReference<EventRef>();
    const TestHandler theHandler(GetApplicationEventTarget(), "application", mLog,
                                 [&](EventHandlerCallRef, EventRef) {
                                     theSeen = GetCurrentEvent();
                                     return OSStatus(noErr);
                                 });
    const TestEvent theEvent;
    SendEventToEventTarget(theEvent.Get(), GetEventDispatcherTarget());
    EXPECT_EQ(theSeen, nullptr);
}

TEST_F(EventTargetDelivery, AnEventThatAProgramSendsToATargetLeavesTheCurrentOneAsItIs)
{
    TestEvent theOwn(kTestClass, 2, kEventAttributeUserEvent);
    theOwn.Set(kEventParamKeyModifiers, typeUInt32, UInt32(controlKey));
    std::vector<EventRef> theSeen;
    std::vector<UInt32> theModifiers;
    const TestHandler theHandler(GetApplicationEventTarget(), "application", mLog,
                                 [&](EventHandlerCallRef, EventRef theEvent) {
                                     theSeen.push_back(GetCurrentEvent());
                                     theModifiers.push_back(GetCurrentEventKeyModifiers());
                                     if (theEvent != theOwn.Get()) {
                                         SendEventToEventTarget(theOwn.Get(), Button());
                                     }
                                     return OSStatus(noErr);
                                 },
                                 {kTestEvent, kOtherTestEvent});
    TestEvent thePersons(kTestClass, 1, kEventAttributeUserEvent);
    thePersons.Set(kEventParamKeyModifiers, typeUInt32, UInt32(shiftKey));
    SendEventToEventTarget(thePersons.Get(), GetEventDispatcherTarget());
    EXPECT_EQ(theSeen, (std::vector<EventRef>{thePersons.Get(), thePersons.Get()}));
    EXPECT_EQ(theModifiers, (std::vector<UInt32>{shiftKey, shiftKey}));
}

TEST_F(EventTargetDelivery, AHandlerOnTheDispatcherSeesTheCurrentEvent)
{
    EventRef theSeen = nullptr;
    const TestHandler theHandler(GetEventDispatcherTarget(), "dispatcher", mLog,
                                 [&](EventHandlerCallRef, EventRef) {
                                     theSeen = GetCurrentEvent();
                                     return OSStatus(noErr);
                                 });
    const TestEvent theEvent(kTestClass, 1, kEventAttributeUserEvent);
    SendEventToEventTarget(theEvent.Get(), GetEventDispatcherTarget());
    EXPECT_EQ(theSeen, theEvent.Get());
}

TEST_F(EventTargetDelivery, TheModifiersOfThisMomentAreThoseThatThePresenterReports)
{
    Host::PresenterRegistry::Events().ModifiersChanged(shiftKey);
    EXPECT_EQ(GetCurrentKeyModifiers(), UInt32(shiftKey));
    Host::PresenterRegistry::Events().ModifiersChanged(0);
    EXPECT_EQ(GetCurrentKeyModifiers(), 0u);
}
