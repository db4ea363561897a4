// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What windows do by themselves, and what a person asks of them.

#include "ManagerTestSupport.h"

#include <Windows/Windows.h>

namespace {

using WindowDefaults = WindowTest;

} // namespace

// --- Closing -----------------------------------------------------------------------------------------

TEST_F(WindowDefaults, APersonsCloseIsARequestFirst)
{
    Watch(mWindow, "window",
          {{kEventClassWindow, kEventWindowClose}, {kEventClassWindow, kEventWindowClosed}});
    EXPECT_TRUE(Person().CloseAsked(Host::IdentifierOf(mWindow)));
    EXPECT_EQ(TakeLog(), (Log{"window: Close", "window: Closed"}));
    EXPECT_FALSE(IsValidWindowPtr(mWindow));
}

TEST_F(WindowDefaults, AHandlerMayRefuseToClose)
{
    Watch(mWindow, "window", {{kEventClassWindow, kEventWindowClose}},
          [](EventRef) { return OSStatus{noErr}; });
    Person().CloseAsked(Host::IdentifierOf(mWindow));
    EXPECT_TRUE(IsValidWindowPtr(mWindow));
    EXPECT_TRUE(IsWindowVisible(mWindow));
}

TEST_F(WindowDefaults, WithoutTheStandardHandlerACloseIsTheProgramsTask)
{
    WindowRef theWindow = NewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes);
    ShowWindow(theWindow);
    Person().CloseAsked(Host::IdentifierOf(theWindow));
    EXPECT_TRUE(IsValidWindowPtr(theWindow));
}

// --- A person's hand ---------------------------------------------------------------------------------

TEST_F(WindowDefaults, APersonsCollapseIsARequestFirst)
{
    Watch(mWindow, "window",
          {{kEventClassWindow, kEventWindowCollapse},
           {kEventClassWindow, kEventWindowCollapsed},
           {kEventClassWindow, kEventWindowExpand},
           {kEventClassWindow, kEventWindowExpanded}});
    EXPECT_TRUE(Person().CollapseAsked(Host::IdentifierOf(mWindow), true));
    EXPECT_TRUE(Person().CollapseAsked(Host::IdentifierOf(mWindow), false));
    EXPECT_EQ(TakeLog(),
              (Log{"window: Collapse", "window: Collapsed", "window: Expand", "window: Expanded"}));
}

TEST_F(WindowDefaults, ADragByHandSaysSo)
{
    UInt32 theAttributes = 0;
    Watch(mWindow, "window", EventWatch::WindowEvents(), [&](EventRef theEvent) {
        theAttributes |= Parameter<UInt32>(theEvent, kEventParamAttributes, typeUInt32);
        return OSStatus{eventNotHandledErr};
    });
    EXPECT_TRUE(Person().WindowMoved(Host::IdentifierOf(mWindow), {10, 60}));
    EXPECT_EQ(Content(mWindow), "10, 60, 410, 360");
    EXPECT_EQ(TakeLog(), (Log{"window: DragStarted", "window: BoundsChanging", "window: BoundsChanged",
                              "window: DragCompleted"}));
    EXPECT_EQ(theAttributes, UInt32{kWindowBoundsChangeUserDrag | kWindowBoundsChangeOriginChanged});
    EXPECT_FALSE(Person().WindowMoved(Host::IdentifierOf(mWindow), {10, 60}));
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(WindowDefaults, AResizeByHandKeepsToTheLimits)
{
    const HISize theSmallest = CGSizeMake(200, 150);
    SetWindowResizeLimits(mWindow, &theSmallest, nullptr);
    UInt32 theAttributes = 0;
    Watch(mWindow, "window", EventWatch::WindowEvents(), [&](EventRef theEvent) {
        theAttributes |= Parameter<UInt32>(theEvent, kEventParamAttributes, typeUInt32);
        return OSStatus{eventNotHandledErr};
    });
    EXPECT_TRUE(Person().WindowResized(Host::IdentifierOf(mWindow), {50, 160}));
    EXPECT_EQ(Content(mWindow), "100, 100, 300, 260");
    EXPECT_EQ(TakeLog(), (Log{"window: ResizeStarted", "window: BoundsChanging", "window: BoundsChanged",
                              "window: ResizeCompleted"}));
    EXPECT_EQ(theAttributes, UInt32{kWindowBoundsChangeUserResize | kWindowBoundsChangeSizeChanged});
    ChangeWindowAttributes(mWindow, 0, kWindowResizableAttribute);
    EXPECT_FALSE(Person().WindowResized(Host::IdentifierOf(mWindow), {400, 400}));
}

TEST_F(WindowDefaults, ZoomingFillsTheScreenAndComesBack)
{
    Watch(mWindow, "window",
          {{kEventClassWindow, kEventWindowZoom},
           {kEventClassWindow, kEventWindowBoundsChanged},
           {kEventClassWindow, kEventWindowZoomed}});
    EXPECT_TRUE(Person().ZoomAsked(Host::IdentifierOf(mWindow)));
    EXPECT_EQ(Content(mWindow), "0, 44, 1024, 768");
    EXPECT_EQ(TakeLog(), (Log{"window: Zoom", "window: BoundsChanged", "window: Zoomed"}));
    const Point thePoint = {30, 35};
    EXPECT_EQ(FindWindow(thePoint, nullptr), inZoomIn);
    Person().ZoomAsked(Host::IdentifierOf(mWindow));
    EXPECT_EQ(Content(mWindow), "100, 100, 500, 400");
}

TEST_F(WindowDefaults, AClickOnAWindowBehindBringsItToFront)
{
    WindowRef theOther = NewWindow();
    MoveWindow(theOther, 200, 200, false);
    ShowWindow(theOther);
    Click(5, 250);
    EXPECT_EQ(ActiveNonFloatingWindow(), mWindow);
    EXPECT_EQ(FrontWindow(), mWindow);
}

TEST_F(WindowDefaults, AModalWindowKeepsThePersonFromThoseBehindIt)
{
    WindowRef theDialog = NewWindow(kModalWindowClass, kWindowStandardHandlerAttribute);
    ShowWindow(theDialog);
    Click(5, 5);
    EXPECT_EQ(ActiveNonFloatingWindow(), theDialog);
    EXPECT_FALSE(Person().CloseAsked(Host::IdentifierOf(mWindow)));
    HideWindow(theDialog);
    EXPECT_TRUE(Person().CloseAsked(Host::IdentifierOf(mWindow)));
}
