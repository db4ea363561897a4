// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ManagerTestSupport.h"

#include <Windows/Windows.h>

using StandardHandlers = ManagerTest;

TEST_F(StandardHandlers, AWindowGetsAndLosesItsOwn)
{
    const WindowRef theWindow = NewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes);
    ShowWindow(theWindow);
    Host::PresenterEvents& thePerson = Host::PresenterRegistry::Events();
    EXPECT_EQ(InstallStandardEventHandler(GetWindowEventTarget(theWindow)), noErr);
    EXPECT_EQ(RemoveStandardEventHandler(GetWindowEventTarget(theWindow)), noErr);
    thePerson.CloseAsked(Host::IdentifierOf(theWindow));
    EXPECT_TRUE(IsValidWindowPtr(theWindow));
    EXPECT_EQ(InstallStandardEventHandler(GetWindowEventTarget(theWindow)), noErr);
    thePerson.CloseAsked(Host::IdentifierOf(theWindow));
    EXPECT_FALSE(IsValidWindowPtr(theWindow));
}

TEST_F(StandardHandlers, OtherTargetsHaveNone)
{
    const ControlRef theButton = NewPushButton();
    for (const EventTargetRef theTarget : {GetApplicationEventTarget(), GetControlEventTarget(theButton)}) {
        EXPECT_EQ(InstallStandardEventHandler(theTarget), noErr);
        EXPECT_EQ(RemoveStandardEventHandler(theTarget), noErr);
    }
    WindowAttributes theAttributes = 0;
    GetWindowAttributes(mWindow, &theAttributes);
    EXPECT_NE(theAttributes & kWindowStandardHandlerAttribute, 0u);
}

TEST_F(StandardHandlers, ABadTargetIsRefused)
{
    const WindowRef theWindow = NewWindow();
    const EventTargetRef theOld = GetWindowEventTarget(theWindow);
    DisposeWindow(theWindow);
    for (const EventTargetRef theBad : {theOld, EventTargetRef{nullptr}}) {
        EXPECT_EQ(InstallStandardEventHandler(theBad), paramErr);
        EXPECT_EQ(RemoveStandardEventHandler(theBad), paramErr);
    }
}
