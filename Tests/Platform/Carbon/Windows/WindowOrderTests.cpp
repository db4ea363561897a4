// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The order of windows from front to back, and which of them are active.

#include "ManagerTestSupport.h"

namespace {

using WindowOrder = WindowTest;

} // namespace

TEST_F(WindowOrder, WindowsStandInLayers)
{
    WindowRef theHelp = NewWindow(kHelpWindowClass, kWindowNoAttributes);
    WindowRef theUtility = NewWindow(kUtilityWindowClass, kWindowNoAttributes);
    WindowRef theModal = NewWindow(kModalWindowClass, kWindowNoAttributes);
    WindowRef theFloating = NewWindow(kFloatingWindowClass, kWindowNoAttributes);
    WindowRef theToolbar = NewWindow(kToolbarWindowClass, kWindowNoAttributes);
    WindowRef theDocument = NewWindow();
    WindowRef theOverlay = NewWindow(kOverlayWindowClass, kWindowNoAttributes);
    EXPECT_EQ(Order(), (Windows{theOverlay, theHelp, theUtility, theModal, theFloating, theToolbar,
                                theDocument, mWindow}));
    BringToFront(mWindow);
    EXPECT_EQ(Order(), (Windows{theOverlay, theHelp, theUtility, theModal, theFloating, theToolbar, mWindow,
                                theDocument}));
    SendBehind(theHelp, mWindow);
    EXPECT_EQ(Order()[1], theHelp);
    EXPECT_EQ(GetPreviousWindow(theDocument), mWindow);
    EXPECT_EQ(GetPreviousWindow(theOverlay), nullptr);
    EXPECT_EQ(GetNextWindow(theDocument), nullptr);
    EXPECT_EQ(GetNextWindow(nullptr), nullptr);
}

TEST_F(WindowOrder, SelectingBringsToFrontAndActivates)
{
    WindowRef theOther = NewWindow();
    ShowWindow(theOther);
    const std::vector<EventTypeSpec> theTypes = {{kEventClassWindow, kEventWindowActivated},
                                                 {kEventClassWindow, kEventWindowDeactivated}};
    Watch(mWindow, "first", theTypes);
    Watch(theOther, "second", theTypes);
    SelectWindow(mWindow);
    EXPECT_EQ(FrontNonFloatingWindow(), mWindow);
    EXPECT_TRUE(IsWindowActive(mWindow));
    EXPECT_FALSE(IsWindowActive(theOther));
    EXPECT_EQ(TakeLog(), (Log{"second: Deactivated", "first: Activated"}));
    SelectWindow(mWindow);
    SelectWindow(nullptr);
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(WindowOrder, SendingBehindPassesTheActivationOn)
{
    WindowRef theOther = NewWindow();
    ShowWindow(theOther);
    SendBehind(theOther, mWindow);
    EXPECT_EQ(Order(), (Windows{mWindow, theOther}));
    EXPECT_EQ(ActiveNonFloatingWindow(), mWindow);
    SendBehind(mWindow, nullptr);
    EXPECT_EQ(Order(), (Windows{theOther, mWindow}));
    SendBehind(mWindow, mWindow);
    SendBehind(mWindow, InventedReference<WindowRef>());
    EXPECT_EQ(Order(), (Windows{theOther, mWindow}));
}

TEST_F(WindowOrder, ActivationByHandMayLeaveTheOrder)
{
    WindowRef theOther = NewWindow();
    ShowWindow(theOther);
    EXPECT_EQ(ActivateWindow(mWindow, true), noErr);
    EXPECT_EQ(ActiveNonFloatingWindow(), mWindow);
    EXPECT_EQ(FrontNonFloatingWindow(), theOther);
    EXPECT_EQ(ActivateWindow(mWindow, false), noErr);
    EXPECT_EQ(ActiveNonFloatingWindow(), nullptr);
    EXPECT_EQ(ActivateWindow(nullptr, true), errInvalidWindowRef);
}

TEST_F(WindowOrder, PalettesAreActiveWhileTheyAreShown)
{
    WindowRef thePalette = NewWindow(kFloatingWindowClass, kWindowNoAttributes);
    ShowWindow(thePalette);
    EXPECT_TRUE(IsWindowActive(thePalette));
    EXPECT_TRUE(IsWindowActive(mWindow));
    EXPECT_EQ(ActiveNonFloatingWindow(), mWindow);
    EXPECT_EQ(FrontWindow(), thePalette);
    EXPECT_EQ(FrontNonFloatingWindow(), mWindow);
    HideWindow(thePalette);
    EXPECT_FALSE(IsWindowActive(thePalette));
}

TEST_F(WindowOrder, AWindowWithoutActivatesIsPassedOver)
{
    WindowRef theQuiet = NewWindow(kDocumentWindowClass, kWindowNoActivatesAttribute);
    ShowWindow(theQuiet);
    EXPECT_FALSE(IsWindowActive(theQuiet));
    EXPECT_EQ(ActiveNonFloatingWindow(), mWindow);
}

TEST_F(WindowOrder, OnlyTheNetChangeOfTheActiveWindowIsPosted)
{
    FlushEventQueue(GetMainEventQueue());
    WindowRef theSecond = NewWindow();
    WindowRef theThird = NewWindow();
    ShowWindow(theSecond);
    ShowWindow(theThird);
    const EventTypeSpec theType = {kEventClassApplication, kEventAppActiveWindowChanged};
    EXPECT_EQ(GetNumEventsInQueue(GetMainEventQueue()), 1u);
    EventRef theEvent =
        AcquireFirstMatchingEventInQueue(GetMainEventQueue(), 1, &theType, kEventQueueOptionsNone);
    ASSERT_NE(theEvent, nullptr);
    EXPECT_EQ(Parameter<WindowRef>(theEvent, kEventParamPreviousWindow, typeWindowRef), mWindow);
    EXPECT_EQ(Parameter<WindowRef>(theEvent, kEventParamCurrentWindow, typeWindowRef), theThird);
    ReleaseEvent(theEvent);
    SelectWindow(mWindow);
    EXPECT_EQ(GetNumEventsInQueue(GetMainEventQueue()), 0u);
}

TEST_F(WindowOrder, AHandlerMayActivateAnotherWindow)
{
    WindowRef theSecond = NewWindow();
    WindowRef theThird = NewWindow();
    ShowWindow(theSecond);
    ShowWindow(theThird);
    SelectWindow(mWindow);
    Watch(mWindow, "window", {{kEventClassWindow, kEventWindowDeactivated}}, [&](EventRef) {
        SelectWindow(theThird);
        return OSStatus{eventNotHandledErr};
    });
    SelectWindow(theSecond);
    EXPECT_EQ(ActiveNonFloatingWindow(), theThird);
    EXPECT_FALSE(IsWindowActive(theSecond));
}
