// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Installing and removing handlers, as the platform's headers describe it.

#include "EventTestSupport.h"

namespace {

using EventTarget = EventTargetTest;

OSStatus Ignore(EventHandlerCallRef, EventRef, void*)
{
    return eventNotHandledErr;
}

} // namespace

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
