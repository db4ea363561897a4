// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What every window does: showing, collapsing, its frame and bounds, title, states and end.

#include "ManagerTestSupport.h"

namespace {

using Window = WindowTest;

} // namespace

// --- Creation ----------------------------------------------------------------------------------------

TEST_F(Window, AWindowStartsHiddenModifiedAndWithoutATitle)
{
    WindowRef theWindow = NewWindow();
    EXPECT_TRUE(IsValidWindowPtr(theWindow));
    EXPECT_FALSE(IsWindowVisible(theWindow));
    EXPECT_FALSE(IsWindowCollapsed(theWindow));
    EXPECT_FALSE(IsWindowActive(theWindow));
    EXPECT_TRUE(IsWindowModified(theWindow));
    EXPECT_EQ(Title(theWindow), "");
    EXPECT_EQ(GetWindowRetainCount(theWindow), 1u);
    EXPECT_EQ(GetWRefCon(theWindow), SRefCon{});
    EXPECT_EQ(Content(theWindow), "100, 100, 500, 400");
}

namespace {

struct ClassRow
{
    const char* theName;
    WindowClass theClass;
    WindowAttributes theAllowed; // of the boxes and the resizing
    bool theIsActivated;         // by being shown in front
    int theTitleBar;
};

class WindowClasses : public ManagerTest, public testing::WithParamInterface<ClassRow>
{
};

const WindowAttributes kDocumentThings = kWindowStandardDocumentAttributes;
const WindowAttributes kPaletteThings =
    kWindowCloseBoxAttribute | kWindowFullZoomAttribute | kWindowResizableAttribute;

const ClassRow kClassRows[] = {
    {"Alert", kAlertWindowClass, 0, true, 0},
    {"MovableAlert", kMovableAlertWindowClass, 0, true, 22},
    {"Modal", kModalWindowClass, 0, true, 0},
    {"MovableModal", kMovableModalWindowClass, kWindowResizableAttribute, true, 22},
    {"Floating", kFloatingWindowClass, kPaletteThings, true, 16},
    {"Document", kDocumentWindowClass, kDocumentThings, true, 22},
    {"Utility", kUtilityWindowClass, kPaletteThings, true, 16},
    {"Help", kHelpWindowClass, 0, false, 0},
    {"Sheet", kSheetWindowClass, kWindowResizableAttribute, true, 0},
    {"Toolbar", kToolbarWindowClass, 0, false, 0},
    {"Plain", kPlainWindowClass, 0, true, 0},
    {"Overlay", kOverlayWindowClass, 0, false, 0},
    {"SheetAlert", kSheetAlertWindowClass, 0, true, 0},
    {"AltPlain", kAltPlainWindowClass, 0, true, 0},
    {"Simple", kSimpleWindowClass, 0, true, 0},
    {"Drawer", kDrawerWindowClass, kWindowResizableAttribute, true, 0},
};

INSTANTIATE_TEST_SUITE_P(Classes, WindowClasses, testing::ValuesIn(kClassRows),
                         [](const auto& theInfo) { return std::string(theInfo.param.theName); });

// Palettes and toolbars are made without a collapse or zoom box that they do not have.
bool IsBoxThatIsDropped(const ClassRow& theRow, WindowAttributes theAttribute)
{
    const bool theIsForgiving = theRow.theClass == kFloatingWindowClass ||
                                theRow.theClass == kUtilityWindowClass ||
                                theRow.theClass == kToolbarWindowClass;
    return theIsForgiving && (theAttribute & (kWindowCollapseBoxAttribute | kWindowFullZoomAttribute)) != 0;
}

} // namespace

TEST_P(WindowClasses, TakeOnlyTheirAttributes)
{
    const Rect theBounds = MakeRect(100, 100, 200, 200);
    for (const WindowAttributes theAttribute : {kWindowCloseBoxAttribute, kWindowHorizontalZoomAttribute,
                                                kWindowCollapseBoxAttribute, kWindowResizableAttribute}) {
        WindowRef theWindow = nullptr;
        const bool theIsAllowed =
            (GetParam().theAllowed & theAttribute) != 0 || IsBoxThatIsDropped(GetParam(), theAttribute);
        EXPECT_EQ(CreateNewWindow(GetParam().theClass, theAttribute, &theBounds, &theWindow),
                  theIsAllowed ? OSStatus{noErr} : OSStatus{errUnsupportedWindowAttributesForClass})
            << theAttribute;
        ASSERT_EQ(theWindow != nullptr, theIsAllowed);
        if (theIsAllowed) {
            WindowAttributes theAttributes = 0;
            GetWindowAttributes(theWindow, &theAttributes);
            EXPECT_EQ(theAttributes, GetParam().theAllowed & theAttribute);
            DisposeWindow(theWindow);
        }
    }
}

TEST_P(WindowClasses, AreActivatedByShowingAsTheirScopeHasIt)
{
    WindowRef theWindow = NewWindow(GetParam().theClass, kWindowNoAttributes);
    ShowWindow(theWindow);
    EXPECT_EQ(IsWindowActive(theWindow) != 0, GetParam().theIsActivated);
    WindowClass theClass = 0;
    EXPECT_EQ(GetWindowClass(theWindow, &theClass), noErr);
    EXPECT_EQ(theClass, GetParam().theClass);
}

TEST_P(WindowClasses, HaveTheTitleBarOfTheirClass)
{
    WindowRef theWindow = NewWindow(GetParam().theClass, kWindowNoAttributes);
    Rect theBar = MakeRect(0, 0, 0, 0);
    const OSStatus theStatus = GetWindowBounds(theWindow, kWindowTitleBarRgn, &theBar);
    EXPECT_EQ(theStatus, GetParam().theTitleBar > 0 ? OSStatus{noErr} : OSStatus{errWindowRegionCodeInvalid});
    EXPECT_EQ(theBar.bottom - theBar.top, GetParam().theTitleBar);
}

// --- Showing -----------------------------------------------------------------------------------------

TEST_F(Window, ShowingTellsBeforeAndAfterThenActivates)
{
    WindowRef theWindow = NewWindow();
    Watch(mWindow, "old");
    Watch(theWindow, "new");
    ShowWindow(theWindow);
    EXPECT_TRUE(IsWindowVisible(theWindow));
    EXPECT_EQ(TakeLog(),
              (Log{"new: Showing", "new: Shown", "old: Deactivated", "old: HandleDeactivate",
                   "new: Activated", "new: HandleActivate", "old: FocusRelinquish", "new: FocusAcquired"}));
    ShowWindow(theWindow);
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(Window, HidingTellsBeforeAndAfterThenActivatesTheNext)
{
    WindowRef theWindow = NewWindow();
    ShowWindow(theWindow);
    Watch(mWindow, "old");
    Watch(theWindow, "new");
    HideWindow(theWindow);
    EXPECT_FALSE(IsWindowVisible(theWindow));
    EXPECT_EQ(TakeLog(),
              (Log{"new: Hiding", "new: Hidden", "new: Deactivated", "new: HandleDeactivate",
                   "old: Activated", "old: HandleActivate", "new: FocusRelinquish", "old: FocusAcquired"}));
    HideWindow(theWindow);
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(Window, TheStateHasChangedBetweenTheTwoEvents)
{
    std::vector<bool> theStates;
    Watch(mWindow, "window",
          {{kEventClassWindow, kEventWindowHiding}, {kEventClassWindow, kEventWindowHidden}}, [&](EventRef) {
              theStates.push_back(IsWindowVisible(mWindow) != 0);
              return OSStatus{eventNotHandledErr};
          });
    HideWindow(mWindow);
    EXPECT_EQ(theStates, (std::vector<bool>{true, false}));
}

TEST_F(Window, EveryHandlerHearsOfAChangeAndTheApplicationToo)
{
    const std::vector<EventTypeSpec> theTypes = {{kEventClassWindow, kEventWindowHidden}};
    Watch(mWindow, "first", theTypes, [](EventRef) { return OSStatus{noErr}; });
    Watch(mWindow, "second", theTypes, [](EventRef) { return OSStatus{noErr}; });
    WindowRef theNamed = nullptr;
    EventWatch theApplication(
        GetApplicationEventTarget(), "application", mLog, theTypes, [&](EventRef theEvent) {
            theNamed = Parameter<WindowRef>(theEvent, kEventParamDirectObject, typeWindowRef);
            return OSStatus{eventNotHandledErr};
        });
    HideWindow(mWindow);
    EXPECT_EQ(TakeLog(), (Log{"second: Hidden", "first: Hidden", "application: Hidden"}));
    EXPECT_EQ(theNamed, mWindow);
}

TEST_F(Window, AHandlerMayUndoOrDisposeWhileItIsShown)
{
    WindowRef theWindow = NewWindow();
    Watch(theWindow, "window",
          {{kEventClassWindow, kEventWindowShowing}, {kEventClassWindow, kEventWindowShown}},
          [&](EventRef theEvent) {
              if (GetEventKind(theEvent) == kEventWindowShowing) {
                  DisposeWindow(theWindow);
              }
              return OSStatus{eventNotHandledErr};
          });
    ShowWindow(theWindow);
    EXPECT_EQ(TakeLog(), Log{"window: Showing"});
    EXPECT_FALSE(IsValidWindowPtr(theWindow));
    EXPECT_EQ(ActiveNonFloatingWindow(), mWindow);
}

// --- Collapsing --------------------------------------------------------------------------------------

TEST_F(Window, CollapsingAndExpandingTellBeforeAndAfter)
{
    const std::vector<EventTypeSpec> theTypes = {
        {kEventClassWindow, kEventWindowCollapsing},  {kEventClassWindow, kEventWindowCollapsed},
        {kEventClassWindow, kEventWindowExpanding},   {kEventClassWindow, kEventWindowExpanded},
        {kEventClassWindow, kEventWindowDeactivated}, {kEventClassWindow, kEventWindowActivated}};
    Watch(mWindow, "window", theTypes);
    EXPECT_TRUE(IsWindowCollapsable(mWindow));
    EXPECT_EQ(CollapseWindow(mWindow, true), noErr);
    EXPECT_TRUE(IsWindowCollapsed(mWindow));
    EXPECT_TRUE(IsWindowVisible(mWindow));
    EXPECT_EQ(TakeLog(), (Log{"window: Collapsing", "window: Collapsed", "window: Deactivated"}));
    EXPECT_EQ(CollapseWindow(mWindow, true), noErr);
    EXPECT_EQ(TakeLog(), Log{});
    EXPECT_EQ(CollapseWindow(mWindow, false), noErr);
    EXPECT_FALSE(IsWindowCollapsed(mWindow));
    EXPECT_EQ(TakeLog(), (Log{"window: Expanding", "window: Expanded", "window: Activated"}));
}

TEST_F(Window, TheContentOfACollapsedWindowIsEmptyButItsPortIsNot)
{
    CollapseWindow(mWindow, true);
    EXPECT_EQ(Content(mWindow), "0, 0, 0, 0");
    EXPECT_EQ(Describe(Bounds(mWindow, kWindowGlobalPortRgn)), "100, 100, 500, 400");
    const Rect theNew = MakeRect(10, 60, 110, 160);
    EXPECT_EQ(SetWindowBounds(mWindow, kWindowContentRgn, &theNew), noErr);
    CollapseWindow(mWindow, false);
    EXPECT_EQ(Content(mWindow), "10, 60, 110, 160");
}

// --- Bounds ------------------------------------------------------------------------------------------

namespace {

struct WindowBoundsRow
{
    const char* theName;
    Rect theNew; // top, left, bottom, right
    UInt32 theAttributes;
};

class WindowBounds : public ManagerTest, public testing::WithParamInterface<WindowBoundsRow>
{
};

const WindowBoundsRow kWindowBoundsRows[] = {
    {"Moved", {110, 120, 410, 520}, kWindowBoundsChangeOriginChanged},
    {"Resized", {100, 100, 450, 550}, kWindowBoundsChangeSizeChanged},
    {"Both", {50, 50, 450, 550}, kWindowBoundsChangeOriginChanged | kWindowBoundsChangeSizeChanged},
};

INSTANTIATE_TEST_SUITE_P(Changes, WindowBounds, testing::ValuesIn(kWindowBoundsRows),
                         [](const auto& theInfo) { return std::string(theInfo.param.theName); });

} // namespace

TEST_P(WindowBounds, TellWhatChangesAndWhatChanged)
{
    Log theParameters;
    Watch(mWindow, "window", EventWatch::WindowEvents(), [&](EventRef theEvent) {
        std::string theText = NameOf(theEvent);
        for (const EventParamName theName :
             {kEventParamOriginalBounds, kEventParamPreviousBounds, kEventParamCurrentBounds}) {
            theText += "; " + Describe(Parameter<Rect>(theEvent, theName, typeQDRectangle));
        }
        EXPECT_EQ(Parameter<UInt32>(theEvent, kEventParamAttributes, typeUInt32), GetParam().theAttributes);
        theParameters.push_back(theText);
        return OSStatus{eventNotHandledErr};
    });
    EXPECT_EQ(SetWindowBounds(mWindow, kWindowContentRgn, &GetParam().theNew), noErr);
    const std::string theRest = "; 100, 100, 500, 400; 100, 100, 500, 400; " + Describe(GetParam().theNew);
    EXPECT_EQ(theParameters, (Log{"BoundsChanging" + theRest, "BoundsChanged" + theRest}));
    EXPECT_EQ(SetWindowBounds(mWindow, kWindowContentRgn, &GetParam().theNew), noErr);
    EXPECT_EQ(TakeLog().size(), 2u);
}

TEST_F(Window, AHandlerMayChangeTheBoundsThatAreComing)
{
    const std::vector<EventTypeSpec> theTypes = {{kEventClassWindow, kEventWindowBoundsChanging}};
    OSStatus theAnswer = noErr;
    Watch(mWindow, "window", theTypes, [&](EventRef theEvent) {
        const Rect theWanted = MakeRect(1, 2, 301, 202);
        SetEventParameter(theEvent, kEventParamCurrentBounds, typeQDRectangle, sizeof theWanted, &theWanted);
        return theAnswer;
    });
    const Rect theNew = MakeRect(10, 60, 110, 160);
    SetWindowBounds(mWindow, kWindowContentRgn, &theNew);
    EXPECT_EQ(Content(mWindow), "1, 2, 301, 202");
    theAnswer = eventNotHandledErr;
    SetWindowBounds(mWindow, kWindowContentRgn, &theNew);
    EXPECT_EQ(Content(mWindow), "10, 60, 110, 160");
}

TEST_F(Window, TheStructureIsTheContentWithItsFrame)
{
    EXPECT_EQ(Describe(Bounds(mWindow, kWindowStructureRgn)), "100, 78, 500, 400");
    Rect theWidths;
    EXPECT_EQ(GetWindowStructureWidths(mWindow, &theWidths), noErr);
    EXPECT_EQ(Describe(theWidths), "0, 22, 0, 0");
    const Rect theNew = MakeRect(50, 50, 250, 250);
    EXPECT_EQ(SetWindowBounds(mWindow, kWindowStructureRgn, &theNew), noErr);
    EXPECT_EQ(Content(mWindow), "50, 72, 250, 250");
    WindowRef theDialog = NewWindow(kModalWindowClass, kWindowNoAttributes);
    EXPECT_EQ(Describe(Bounds(theDialog, kWindowStructureRgn)), "97, 97, 503, 403");
    WindowRef theBare = NewWindow(kDocumentWindowClass, kWindowNoTitleBarAttribute);
    EXPECT_EQ(Describe(Bounds(theBare, kWindowStructureRgn)), "100, 100, 500, 400");
}

TEST_F(Window, TheBoxesOfATitleBarStandFromTheLeft)
{
    EXPECT_EQ(Describe(Bounds(mWindow, kWindowTitleBarRgn)), "100, 78, 500, 100");
    EXPECT_EQ(Describe(Bounds(mWindow, kWindowCloseBoxRgn)), "100, 78, 114, 100");
    EXPECT_EQ(Describe(Bounds(mWindow, kWindowCollapseBoxRgn)), "114, 78, 128, 100");
    EXPECT_EQ(Describe(Bounds(mWindow, kWindowZoomBoxRgn)), "128, 78, 142, 100");
    EXPECT_EQ(Describe(Bounds(mWindow, kWindowDragRgn)), "142, 78, 500, 100");
    EXPECT_EQ(Describe(Bounds(mWindow, kWindowGrowRgn)), "485, 385, 500, 400");
    WindowRef theBare = NewWindow(kDocumentWindowClass, kWindowNoAttributes);
    Rect theBounds;
    for (const WindowRegionCode theRegion :
         {kWindowCloseBoxRgn, kWindowCollapseBoxRgn, kWindowZoomBoxRgn, kWindowGrowRgn}) {
        EXPECT_EQ(GetWindowBounds(theBare, theRegion, &theBounds), errWindowRegionCodeInvalid) << theRegion;
    }
    EXPECT_EQ(Describe(Bounds(theBare, kWindowDragRgn)), "100, 78, 500, 100");
}

TEST_F(Window, AWindowMayGoWhileItIsMoved)
{
    for (const UInt32 theKind : {UInt32{kEventWindowBoundsChanging}, UInt32{kEventWindowBoundsChanged}}) {
        WindowRef theWindow = NewWindow();
        EventWatch theWatch(GetWindowEventTarget(theWindow), "window", mLog, {{kEventClassWindow, theKind}},
                            [&](EventRef) {
                                DisposeWindow(theWindow);
                                return OSStatus{eventNotHandledErr};
                            });
        const Rect theNew = MakeRect(10, 60, 110, 160);
        EXPECT_EQ(SetWindowBounds(theWindow, kWindowContentRgn, &theNew), noErr);
        EXPECT_FALSE(IsValidWindowPtr(theWindow));
    }
}

// --- Titles ------------------------------------------------------------------------------------------

TEST_F(Window, ATitleTellsItsChangeToTheWindowAlone)
{
    Watch(mWindow, "window", {{kEventClassWindow, kEventWindowTitleChanged}});
    EventWatch theApplication(GetApplicationEventTarget(), "application", mLog,
                              {{kEventClassWindow, kEventWindowTitleChanged}});
    EXPECT_EQ(SetWindowTitleWithCFString(mWindow, TestString("Na\xC3\xAFve")), noErr);
    EXPECT_EQ(SetWindowTitleWithCFString(mWindow, TestString("Na\xC3\xAFve")), noErr);
    EXPECT_EQ(TakeLog(), Log{"window: TitleChanged"});
    EXPECT_EQ(Title(mWindow), "Na\xC3\xAFve");
    Str255 theTitle;
    GetWTitle(mWindow, theTitle);
    EXPECT_EQ(std::string(theTitle + 1, theTitle + 1 + theTitle[0]), "Na\x95ve");
    const unsigned char theNew[] = {2, 'o', 'k'};
    SetWTitle(mWindow, theNew);
    EXPECT_EQ(Title(mWindow), "ok");
    EXPECT_EQ(TakeLog(), Log{"window: TitleChanged"});
}

// --- Order and activation ----------------------------------------------------------------------------

TEST_F(Window, ControlsFollowTheActivationOfTheirWindow)
{
    ControlRef theSlider = NewSlider();
    Watch(theSlider, "slider");
    WindowRef theOther = NewWindow();
    ShowWindow(theOther);
    EXPECT_FALSE(IsControlActive(theSlider));
    EXPECT_EQ(TakeLog(), Log{"slider: Deactivate"});
    SelectWindow(mWindow);
    EXPECT_TRUE(IsControlActive(theSlider));
    EXPECT_EQ(TakeLog(), Log{"slider: Activate"});
    Watch(mWindow, "window", {{kEventClassWindow, kEventWindowHandleDeactivate}},
          [](EventRef) { return OSStatus{noErr}; });
    SelectWindow(theOther);
    EXPECT_TRUE(IsControlActive(theSlider)); // the handler took it on itself
}

// --- State of its own --------------------------------------------------------------------------------

TEST_F(Window, TheModifiedFlagTellsItsNewState)
{
    std::vector<bool> theStates;
    Watch(mWindow, "window", {{kEventClassWindow, kEventWindowModified}}, [&](EventRef theEvent) {
        theStates.push_back(Parameter<Boolean>(theEvent, kEventParamWindowModifiedFlag, typeBoolean) != 0);
        return OSStatus{eventNotHandledErr};
    });
    EXPECT_EQ(SetWindowModified(mWindow, true), noErr);
    EXPECT_EQ(SetWindowModified(mWindow, false), noErr);
    EXPECT_FALSE(IsWindowModified(mWindow));
    EXPECT_EQ(SetWindowModified(mWindow, true), noErr);
    EXPECT_EQ(theStates, (std::vector<bool>{false, true}));
    EXPECT_EQ(SetWindowModified(nullptr, true), errInvalidWindowRef);
    EXPECT_FALSE(IsWindowModified(nullptr));
}

// --- Closing -----------------------------------------------------------------------------------------

TEST_F(Window, ClosingTellsInThePlatformsOrder)
{
    WindowRef theOther = NewWindow();
    SendBehind(theOther, mWindow);
    ShowWindow(theOther);
    SelectWindow(mWindow);
    ControlRef theSlider = NewSlider();
    Watch(mWindow, "window");
    Watch(theSlider, "slider");
    Watch(theOther, "next", {{kEventClassWindow, kEventWindowActivated}});
    DisposeWindow(mWindow);
    EXPECT_EQ(TakeLog(),
              (Log{"window: Hiding", "window: Hidden", "window: Deactivated", "next: Activated",
                   "window: FocusRelinquish", "window: Closed", "slider: Dispose", "window: Dispose"}));
    EXPECT_EQ(Order(), Windows{theOther});
}

TEST_F(Window, AHiddenWindowClosesWithoutHiding)
{
    WindowRef theWindow = NewWindow();
    Watch(theWindow, "window");
    DisposeWindow(theWindow);
    EXPECT_EQ(TakeLog(), (Log{"window: Closed", "window: Dispose"}));
}

TEST_F(Window, NothingBringsAClosingWindowBack)
{
    Watch(mWindow, "window", {{kEventClassWindow, kEventWindowClosed}}, [&](EventRef) {
        RetainWindow(mWindow);
        ShowWindow(mWindow);
        DisposeWindow(mWindow);
        DisposeWindow(mWindow);
        ControlRef theControl = nullptr;
        const Rect theBounds = MakeRect(0, 0, 10, 10);
        EXPECT_EQ(CreatePushButtonControl(mWindow, &theBounds, nullptr, &theControl), paramErr);
        EXPECT_EQ(CreateRootControl(mWindow, nullptr), errInvalidWindowRef);
        EXPECT_FALSE(IsWindowVisible(mWindow));
        EXPECT_TRUE(IsValidWindowPtr(mWindow));
        return OSStatus{eventNotHandledErr};
    });
    DisposeWindow(mWindow);
    EXPECT_EQ(TakeLog(), Log{"window: Closed"});
    EXPECT_FALSE(IsValidWindowPtr(mWindow));
}
