// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Handlers, their order and the way of an event outward, as the platform's headers describe them.

#include "EventTestSupport.h"

#include <gtest/gtest.h>
#include <memory>

namespace {

// A window with a group box that holds a button: button, box, root of the window, window, application.
class EventTarget : public testing::Test
{
protected:
    EventTarget()
    {
        const Rect theBounds = {100, 100, 300, 400};
        const Rect theBoxBounds = {10, 10, 100, 200};
        const Rect theButtonBounds = {30, 30, 50, 100};
        CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes, &theBounds, &mWindow);
        CreateGroupBoxControl(mWindow, &theBoxBounds, CFSTR("Box"), true, &mBox);
        CreatePushButtonControl(mWindow, &theButtonBounds, CFSTR("Button"), &mButton);
        EmbedControl(mButton, mBox);
    }
    ~EventTarget() override
    {
        if (mWindow != nullptr) {
            DisposeWindow(mWindow);
        }
    }

    EventTargetRef Button() const { return GetControlEventTarget(mButton); }
    EventTargetRef Box() const { return GetControlEventTarget(mBox); }
    EventTargetRef Window() const { return GetWindowEventTarget(mWindow); }

    static EventTargetRef Application() { return GetApplicationEventTarget(); }

    static OSStatus Send(EventTargetRef theTarget, OptionBits theOptions = 0)
    {
        const TestEvent theEvent;
        return SendEventToEventTargetWithOptions(theEvent.Get(), theTarget, theOptions);
    }

    Log mLog;
    WindowRef mWindow = nullptr;
    ControlRef mBox = nullptr;
    ControlRef mButton = nullptr;
};

OSStatus Ignore(EventHandlerCallRef, EventRef, void*)
{
    return eventNotHandledErr;
}

} // namespace

// --- Order and answers ------------------------------------------------------------------------------

TEST_F(EventTarget, TheHandlerInstalledLastIsAskedFirst)
{
    const TestHandler theFirst(Button(), "first", mLog, eventNotHandledErr);
    const TestHandler theSecond(Button(), "second", mLog, eventNotHandledErr);
    const TestHandler theThird(Button(), "third", mLog, eventNotHandledErr);
    EXPECT_EQ(Send(Button()), eventNotHandledErr);
    EXPECT_EQ(mLog, (Log{"third", "second", "first"}));
}

TEST_F(EventTarget, AnUnhandledEventGoesOutwardToTheApplication)
{
    const TestHandler theApplication(Application(), "application", mLog, eventNotHandledErr);
    const TestHandler theWindow(Window(), "window", mLog, eventNotHandledErr);
    const TestHandler theBox(Box(), "box", mLog, eventNotHandledErr);
    const TestHandler theButton(Button(), "button", mLog, eventNotHandledErr);
    EXPECT_EQ(Send(Button()), eventNotHandledErr);
    EXPECT_EQ(mLog, (Log{"button", "box", "window", "application"}));
}

TEST_F(EventTarget, AHandledEventGoesNoFurther)
{
    const TestHandler theWindow(Window(), "window", mLog, eventNotHandledErr);
    const TestHandler theLower(Button(), "lower", mLog, eventNotHandledErr);
    const TestHandler theUpper(Button(), "upper", mLog, noErr);
    EXPECT_EQ(Send(Button()), noErr);
    EXPECT_EQ(mLog, Log{"upper"});
}

TEST_F(EventTarget, AnyOtherAnswerEndsTheWayAndReachesTheSender)
{
    const TestHandler theWindow(Window(), "window", mLog, noErr);
    const TestHandler theButton(Button(), "button", mLog, userCanceledErr);
    EXPECT_EQ(Send(Button()), userCanceledErr);
    EXPECT_EQ(mLog, Log{"button"});
}

TEST_F(EventTarget, PassingToTheNextTargetLeavesTheRestOfThisOneOut)
{
    const TestHandler theWindow(Window(), "window", mLog, noErr);
    const TestHandler theLower(Button(), "lower", mLog, noErr);
    const TestHandler theUpper(Button(), "upper", mLog, eventPassToNextTargetErr);
    EXPECT_EQ(Send(Button()), noErr);
    EXPECT_EQ(mLog, (Log{"upper", "window"}));
}

TEST_F(EventTarget, PassingFromTheLastTargetIsNoHandling)
{
    const TestHandler theLower(Application(), "lower", mLog, noErr);
    const TestHandler theUpper(Application(), "upper", mLog, eventPassToNextTargetErr);
    EXPECT_EQ(Send(Application()), eventNotHandledErr);
    EXPECT_EQ(mLog, Log{"upper"});
}

TEST_F(EventTarget, OnlyHandlersForTheTypeAreCalled)
{
    const auto theRefusal = [](EventHandlerCallRef, EventRef) { return OSStatus(eventNotHandledErr); };
    const TestHandler theOther(Button(), "other kind", mLog, theRefusal, {kOtherTestEvent});
    const TestHandler theClass(Button(), "other class", mLog, theRefusal, {{'xxxx', 1}});
    const TestHandler theBoth(Button(), "both", mLog, theRefusal, {kOtherTestEvent, kTestEvent});
    Send(Button());
    EXPECT_EQ(mLog, Log{"both"});
}

TEST_F(EventTarget, AHandlerGetsItsEventAndItsUserData)
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

// --- Installing and removing ------------------------------------------------------------------------

TEST_F(EventTarget, TheSameFunctionWithTheSameDataIsInstalledOnce)
{
    EventHandlerRef theReference = nullptr;
    int theData = 0;
    EXPECT_EQ(InstallEventHandler(Button(), Ignore, 1, &kTestEvent, &theData, nullptr), noErr);
    EXPECT_EQ(InstallEventHandler(Button(), Ignore, 1, &kOtherTestEvent, &theData, &theReference),
              eventHandlerAlreadyInstalledErr);
    EXPECT_EQ(theReference, nullptr);
    EXPECT_EQ(InstallEventHandler(Button(), Ignore, 1, &kTestEvent, nullptr, nullptr), noErr);
    EXPECT_EQ(InstallEventHandler(Window(), Ignore, 1, &kTestEvent, &theData, nullptr), noErr);
}

TEST_F(EventTarget, ARemovedHandlerCanBeInstalledAgain)
{
    EventHandlerRef theReference = nullptr;
    ASSERT_EQ(InstallEventHandler(Button(), Ignore, 1, &kTestEvent, nullptr, &theReference), noErr);
    EXPECT_EQ(RemoveEventHandler(theReference), noErr);
    EXPECT_EQ(RemoveEventHandler(theReference), paramErr);
    EXPECT_EQ(InstallEventHandler(Button(), Ignore, 1, &kTestEvent, nullptr, &theReference), noErr);
}

TEST_F(EventTarget, TypesCanComeLater)
{
    EventHandlerRef theReference = nullptr;
    int theCount = 0;
    const EventHandlerUPP theFunction = [](EventHandlerCallRef, EventRef, void* theData) {
        ++*static_cast<int*>(theData);
        return OSStatus(eventNotHandledErr);
    };
    ASSERT_EQ(InstallEventHandler(Button(), theFunction, 0, nullptr, &theCount, &theReference), noErr);
    Send(Button());
    EXPECT_EQ(theCount, 0);
    EXPECT_EQ(AddEventTypesToHandler(theReference, 1, &kTestEvent), noErr);
    Send(Button());
    EXPECT_EQ(theCount, 1);
}

TEST_F(EventTarget, ATypeAddedTwiceIsDeliveredOnceAndRemovedTwice)
{
    TestHandler theHandler(Button(), "called", mLog, eventNotHandledErr);
    EXPECT_EQ(AddEventTypesToHandler(theHandler.Get(), 1, &kTestEvent), noErr);
    Send(Button());
    EXPECT_EQ(mLog, Log{"called"});
    EXPECT_EQ(RemoveEventTypesFromHandler(theHandler.Get(), 1, &kTestEvent), noErr);
    Send(Button());
    EXPECT_EQ(mLog.size(), 2u);
    EXPECT_EQ(RemoveEventTypesFromHandler(theHandler.Get(), 1, &kTestEvent), noErr);
    Send(Button());
    EXPECT_EQ(mLog.size(), 2u);
    EXPECT_EQ(RemoveEventTypesFromHandler(theHandler.Get(), 1, &kTestEvent), noErr);
}

TEST_F(EventTarget, BadArgumentsOfInstallingAreRefused)
{
    EventHandlerRef theReference = InventedReference<EventHandlerRef>();
    EXPECT_EQ(InstallEventHandler(nullptr, Ignore, 1, &kTestEvent, nullptr, &theReference), paramErr);
    EXPECT_EQ(theReference, nullptr);
    EXPECT_EQ(
        InstallEventHandler(InventedReference<EventTargetRef>(), Ignore, 1, &kTestEvent, nullptr, nullptr),
        paramErr);
    EXPECT_EQ(InstallEventHandler(Button(), nullptr, 1, &kTestEvent, nullptr, nullptr), paramErr);
    EXPECT_EQ(InstallEventHandler(Button(), Ignore, 1, nullptr, nullptr, nullptr), paramErr);
}

TEST_F(EventTarget, BadHandlerReferencesAreRefused)
{
    for (const EventHandlerRef theReference :
         {EventHandlerRef(nullptr), InventedReference<EventHandlerRef>()}) {
        EXPECT_EQ(RemoveEventHandler(theReference), paramErr);
        EXPECT_EQ(AddEventTypesToHandler(theReference, 1, &kTestEvent), paramErr);
        EXPECT_EQ(RemoveEventTypesFromHandler(theReference, 1, &kTestEvent), paramErr);
    }
    const TestHandler theHandler(Button(), "handler", mLog, noErr);
    EXPECT_EQ(AddEventTypesToHandler(theHandler.Get(), 1, nullptr), paramErr);
    EXPECT_EQ(RemoveEventTypesFromHandler(theHandler.Get(), 1, nullptr), paramErr);
}

TEST_F(EventTarget, HandlersGoWithTheirTarget)
{
    TestHandler theHandler(Button(), "button", mLog, noErr);
    const EventTargetRef theTarget = Button();
    DisposeControl(mButton);
    EXPECT_EQ(Send(theTarget), paramErr);
    EXPECT_EQ(theHandler.Remove(), paramErr);
    EXPECT_EQ(InstallEventHandler(theTarget, Ignore, 1, &kTestEvent, nullptr, nullptr), paramErr);
    EXPECT_TRUE(mLog.empty());
}

TEST_F(EventTarget, NoObjectHasNoTarget)
{
    EXPECT_EQ(GetControlEventTarget(nullptr), nullptr);
    EXPECT_EQ(GetWindowEventTarget(nullptr), nullptr);
    EXPECT_EQ(GetMenuEventTarget(nullptr), nullptr);
    EXPECT_EQ(GetControlEventTarget(InventedReference<ControlRef>()), nullptr);
    EXPECT_EQ(Send(nullptr), paramErr);
}

// --- Calling the next handler -----------------------------------------------------------------------

TEST_F(EventTarget, CallingTheNextHandlerAsksTheRestAndGivesTheirAnswer)
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

TEST_F(EventTarget, HandlersThatWereAskedByAnotherAreNotAskedAgain)
{
    const TestHandler theWindow(Window(), "window", mLog, eventNotHandledErr);
    const TestHandler theLower(Button(), "lower", mLog, eventNotHandledErr);
    const TestHandler theUpper(Button(), "upper", mLog, [](EventHandlerCallRef theCall, EventRef theEvent) {
        return CallNextEventHandler(theCall, theEvent);
    });
    EXPECT_EQ(Send(Button()), eventNotHandledErr);
    EXPECT_EQ(mLog, (Log{"upper", "lower", "window"}));
}

TEST_F(EventTarget, PassingOnAfterTheOthersWereAskedIsNoHandling)
{
    const TestHandler theWindow(Window(), "window", mLog, noErr);
    const TestHandler theUpper(Button(), "upper", mLog, [](EventHandlerCallRef theCall, EventRef theEvent) {
        CallNextEventHandler(theCall, theEvent);
        return OSStatus(eventPassToNextTargetErr);
    });
    EXPECT_EQ(Send(Button()), eventNotHandledErr);
    EXPECT_EQ(mLog, (Log{"upper", "window"}));
}

TEST_F(EventTarget, CallsOfTheNextHandlerNest)
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

TEST_F(EventTarget, ACallReferenceIsGoodOnlyInsideItsHandler)
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

TEST_F(EventTarget, WithoutPropagationOnlyTheTargetIsAsked)
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

class EventTargetToAll : public EventTarget, public testing::WithParamInterface<AnswersOfAll>
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

TEST_F(EventTarget, AHandlerThatAsksTheOthersItselfCannotHideTheirAnswer)
{
    const TestHandler theLower(Box(), "lower", mLog, noErr);
    const TestHandler theUpper(Button(), "upper", mLog, [](EventHandlerCallRef theCall, EventRef theEvent) {
        CallNextEventHandler(theCall, theEvent);
        return OSStatus(eventNotHandledErr);
    });
    EXPECT_EQ(Send(Button(), kEventTargetSendToAllHandlers), noErr);
    EXPECT_EQ(mLog, (Log{"upper", "lower"}));
}

TEST_F(EventTarget, PassingToTheNextTargetHidesNothingFromAll)
{
    const TestHandler theLower(Button(), "lower", mLog, eventNotHandledErr);
    const TestHandler theUpper(Button(), "upper", mLog, eventPassToNextTargetErr);
    EXPECT_EQ(Send(Button(), kEventTargetSendToAllHandlers), eventNotHandledErr);
    EXPECT_EQ(mLog, (Log{"upper", "lower"}));
}

TEST_F(EventTarget, AllHandlersOfOneTargetCanBeToldAlone)
{
    const TestHandler theWindow(Window(), "window", mLog, noErr);
    const TestHandler theLower(Button(), "lower", mLog, noErr);
    const TestHandler theUpper(Button(), "upper", mLog, noErr);
    EXPECT_EQ(Send(Button(), kEventTargetSendToAllHandlers | kEventTargetDontPropagate), noErr);
    EXPECT_EQ(mLog, (Log{"upper", "lower"}));
}

// --- Changes during a pass --------------------------------------------------------------------------

TEST_F(EventTarget, AHandlerMayRemoveItself)
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

TEST_F(EventTarget, AHandlerMayDeleteItselfWithItsUserData)
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

TEST_F(EventTarget, AHandlerRemovedDuringAPassIsNotCalledByIt)
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

TEST_F(EventTarget, RemovingAHandlerThatWasAskedAlreadyKeepsThePlaces)
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

TEST_F(EventTarget, AHandlerInstalledDuringAPassIsFirstCalledByTheNextEvent)
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

TEST_F(EventTarget, AHandlerMayTakeItselfOutAndPutItselfBackOnTop)
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

TEST_F(EventTarget, AHandlerMayDisposeItsControl)
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

TEST_F(EventTarget, AHandlerMayCloseTheWindowItIsIn)
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

TEST_F(EventTarget, TheWayOutwardIsSettledWhenSendingBegins)
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

TEST_F(EventTarget, AHandlerMaySendTheSameKindOfEventAgain)
{
    int theDepth = 0;
    const TestHandler theButton(Button(), "button", mLog, [&](EventHandlerCallRef, EventRef) {
        return ++theDepth < 5 ? Send(Button()) : OSStatus(33);
    });
    EXPECT_EQ(Send(Button()), 33);
    EXPECT_EQ(mLog.size(), 5u);
}

TEST_F(EventTarget, AHandlerRemovedInsideANestedEventIsGoneFromTheOuterOne)
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

TEST_F(EventTarget, TheEventStaysAliveWhileItIsOnItsWay)
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

TEST_F(EventTarget, ParametersSetByAHandlerReachTheSender)
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

TEST_F(EventTarget, AThousandHandlersAreAskedInOrder)
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
