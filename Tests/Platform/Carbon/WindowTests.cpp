// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Windows: creation, showing, order, activation, bounds, titles, closing.

#include "ManagerTestSupport.h"

#include <Presentation/PresenterRegistry.h>
#include <Windows/Windows.h>

namespace {

class WindowManager : public ManagerTest
{
protected:
    static const WindowAttributes kStandard =
        kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute;

    static Rect Bounds(WindowRef theWindow, WindowRegionCode theRegion)
    {
        Rect theBounds = MakeRect(0, 0, 0, 0);
        EXPECT_EQ(GetWindowBounds(theWindow, theRegion, &theBounds), noErr);
        return theBounds;
    }

    static std::string Content(WindowRef theWindow) { return Describe(Bounds(theWindow, kWindowContentRgn)); }

    static std::string Title(WindowRef theWindow)
    {
        CFStringRef theTitle = nullptr;
        EXPECT_EQ(CopyWindowTitleAsCFString(theWindow, &theTitle), noErr);
        std::string theText = TextOf(theTitle);
        CFRelease(theTitle);
        return theText;
    }

    // Every window, front to back.
    static std::vector<WindowRef> Order()
    {
        std::vector<WindowRef> theWindows;
        for (WindowRef theWindow = GetWindowList(); theWindow != nullptr;
             theWindow = GetNextWindow(theWindow)) {
            theWindows.push_back(theWindow);
        }
        return theWindows;
    }

    static Host::PresenterEvents& Person() { return Host::PresenterRegistry::Events(); }
};

using Windows = std::vector<WindowRef>;

} // namespace

// --- Creation ----------------------------------------------------------------------------------------

TEST_F(WindowManager, AWindowStartsHiddenModifiedAndWithoutATitle)
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

} // namespace

TEST_P(WindowClasses, TakeOnlyTheirAttributes)
{
    const Rect theBounds = MakeRect(100, 100, 200, 200);
    for (const WindowAttributes theAttribute : {kWindowCloseBoxAttribute, kWindowHorizontalZoomAttribute,
                                                kWindowCollapseBoxAttribute, kWindowResizableAttribute}) {
        WindowRef theWindow = nullptr;
        const bool theIsAllowed = (GetParam().theAllowed & theAttribute) != 0;
        EXPECT_EQ(CreateNewWindow(GetParam().theClass, theAttribute, &theBounds, &theWindow),
                  theIsAllowed ? OSStatus{noErr} : OSStatus{errUnsupportedWindowAttributesForClass})
            << theAttribute;
        EXPECT_EQ(theWindow != nullptr, theIsAllowed);
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

TEST_F(WindowManager, CreationRefusesBadRequests)
{
    const Rect theBounds = MakeRect(10, 10, 20, 20);
    const Rect theEmpty = MakeRect(10, 10, 10, 20);
    WindowRef theWindow = InventedReference<WindowRef>();
    EXPECT_EQ(CreateNewWindow(99, 0, &theBounds, &theWindow), errUnrecognizedWindowClass);
    EXPECT_EQ(theWindow, nullptr);
    EXPECT_EQ(CreateNewWindow(kAllWindowClasses, 0, &theBounds, &theWindow), errUnrecognizedWindowClass);
    EXPECT_EQ(CreateNewWindow(kDocumentWindowClass, 0, nullptr, &theWindow), paramErr);
    EXPECT_EQ(CreateNewWindow(kDocumentWindowClass, 0, &theEmpty, &theWindow), paramErr);
    EXPECT_EQ(CreateNewWindow(kDocumentWindowClass, 0, &theBounds, nullptr), paramErr);
    EXPECT_EQ(CreateNewWindow(kDocumentWindowClass, 1 << 12, &theBounds, &theWindow),
              errUnsupportedWindowAttributesForClass);
}

TEST_F(WindowManager, ReferencesAreCounted)
{
    WindowRef theWindow = NewWindow();
    EXPECT_EQ(RetainWindow(theWindow), noErr);
    EXPECT_EQ(GetWindowRetainCount(theWindow), 2u);
    DisposeWindow(theWindow);
    EXPECT_TRUE(IsValidWindowPtr(theWindow));
    EXPECT_EQ(ReleaseWindow(theWindow), noErr);
    EXPECT_FALSE(IsValidWindowPtr(theWindow));
    EXPECT_EQ(GetWindowRetainCount(theWindow), 0u);
    EXPECT_EQ(ReleaseWindow(theWindow), errInvalidWindowRef);
    EXPECT_EQ(RetainWindow(theWindow), errInvalidWindowRef);
}

// --- Showing -----------------------------------------------------------------------------------------

TEST_F(WindowManager, ShowingTellsBeforeAndAfterThenActivates)
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

TEST_F(WindowManager, HidingTellsBeforeAndAfterThenActivatesTheNext)
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

TEST_F(WindowManager, TheStateHasChangedBetweenTheTwoEvents)
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

TEST_F(WindowManager, EveryHandlerHearsOfAChangeAndTheApplicationToo)
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

TEST_F(WindowManager, ShowHideLeavesTheActivationAlone)
{
    WindowRef theWindow = NewWindow();
    Watch(theWindow, "window");
    ShowHide(theWindow, true);
    EXPECT_EQ(ActiveNonFloatingWindow(), mWindow);
    ShowHide(theWindow, false);
    EXPECT_EQ(TakeLog(), (Log{"window: Showing", "window: Shown", "window: Hiding", "window: Hidden"}));
}

TEST_F(WindowManager, AHandlerMayUndoOrDisposeWhileItIsShown)
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

TEST_F(WindowManager, CollapsingAndExpandingTellBeforeAndAfter)
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

TEST_F(WindowManager, TheContentOfACollapsedWindowIsEmptyButItsPortIsNot)
{
    CollapseWindow(mWindow, true);
    EXPECT_EQ(Content(mWindow), "0, 0, 0, 0");
    EXPECT_EQ(Describe(Bounds(mWindow, kWindowGlobalPortRgn)), "100, 100, 500, 400");
    const Rect theNew = MakeRect(10, 60, 110, 160);
    EXPECT_EQ(SetWindowBounds(mWindow, kWindowContentRgn, &theNew), noErr);
    CollapseWindow(mWindow, false);
    EXPECT_EQ(Content(mWindow), "10, 60, 110, 160");
}

TEST_F(WindowManager, OnlyAWindowWithTheBoxCollapses)
{
    WindowRef theWindow = NewWindow(kPlainWindowClass, kWindowNoAttributes);
    EXPECT_FALSE(IsWindowCollapsable(theWindow));
    EXPECT_EQ(CollapseWindow(theWindow, true), windowWrongStateErr);
    EXPECT_EQ(CollapseWindow(theWindow, false), noErr);
    EXPECT_FALSE(IsWindowCollapsed(theWindow));
    EXPECT_EQ(CollapseWindow(nullptr, true), errInvalidWindowRef);
}

TEST_F(WindowManager, CollapsingAllTakesEveryShownWindowThatCan)
{
    WindowRef theHidden = NewWindow();
    WindowRef thePlain = NewWindow(kPlainWindowClass, kWindowNoAttributes);
    ShowWindow(thePlain);
    EXPECT_EQ(CollapseAllWindows(true), noErr);
    EXPECT_TRUE(IsWindowCollapsed(mWindow));
    EXPECT_FALSE(IsWindowCollapsed(theHidden));
    EXPECT_FALSE(IsWindowCollapsed(thePlain));
    EXPECT_EQ(CollapseAllWindows(false), noErr);
    EXPECT_FALSE(IsWindowCollapsed(mWindow));
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

TEST_F(WindowManager, AHandlerMayChangeTheBoundsThatAreComing)
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

TEST_F(WindowManager, TheStructureIsTheContentWithItsFrame)
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

TEST_F(WindowManager, TheBoxesOfATitleBarStandFromTheLeft)
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

TEST_F(WindowManager, AWindowIsMovedAndSized)
{
    MoveWindow(mWindow, 10, 60, false);
    EXPECT_EQ(Content(mWindow), "10, 60, 410, 360");
    EXPECT_EQ(MoveWindowStructure(mWindow, 10, 60), noErr);
    EXPECT_EQ(Content(mWindow), "10, 82, 410, 382");
    SizeWindow(mWindow, 50, 40, true);
    EXPECT_EQ(Content(mWindow), "10, 82, 60, 122");
    SizeWindow(mWindow, 0, 40, true);
    EXPECT_EQ(Content(mWindow), "10, 82, 60, 122");
    Rect thePort;
    EXPECT_EQ(Describe(*GetWindowPortBounds(mWindow, &thePort)), "0, 0, 50, 40");
}

TEST_F(WindowManager, MovingMayBringToFront)
{
    WindowRef theOther = NewWindow();
    ShowWindow(theOther);
    MoveWindow(mWindow, 10, 60, true);
    EXPECT_EQ(FrontWindow(), mWindow);
    EXPECT_EQ(ActiveNonFloatingWindow(), mWindow);
}

TEST_F(WindowManager, BadBoundsAreRefused)
{
    Rect theBounds = MakeRect(10, 10, 10, 20);
    EXPECT_EQ(SetWindowBounds(mWindow, kWindowContentRgn, &theBounds), paramErr);
    EXPECT_EQ(SetWindowBounds(mWindow, kWindowContentRgn, nullptr), paramErr);
    theBounds = MakeRect(10, 10, 20, 30); // nothing is left below the title bar
    EXPECT_EQ(SetWindowBounds(mWindow, kWindowStructureRgn, &theBounds), paramErr);
    EXPECT_EQ(SetWindowBounds(mWindow, kWindowTitleBarRgn, &theBounds), errWindowRegionCodeInvalid);
    EXPECT_EQ(GetWindowBounds(mWindow, 77, &theBounds), errWindowRegionCodeInvalid);
    EXPECT_EQ(GetWindowBounds(mWindow, kWindowContentRgn, nullptr), paramErr);
    EXPECT_EQ(SetWindowBounds(nullptr, kWindowContentRgn, &theBounds), errInvalidWindowRef);
    EXPECT_EQ(GetWindowBounds(nullptr, kWindowContentRgn, &theBounds), errInvalidWindowRef);
    EXPECT_EQ(Describe(theBounds), "0, 0, 0, 0");
    EXPECT_EQ(Describe(*GetWindowPortBounds(nullptr, &theBounds)), "0, 0, 0, 0");
    EXPECT_EQ(GetWindowPortBounds(mWindow, nullptr), nullptr);
}

TEST_F(WindowManager, AWindowMayGoWhileItIsMoved)
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

TEST_F(WindowManager, ResizeLimitsAreKept)
{
    HISize theSmallest = CGSizeMake(1, 1);
    HISize theLargest = CGSizeMake(1, 1);
    EXPECT_EQ(GetWindowResizeLimits(mWindow, &theSmallest, &theLargest), noErr);
    EXPECT_EQ(theSmallest.width, 0);
    EXPECT_EQ(theLargest.height, 32767);
    const HISize theNew = CGSizeMake(200, 150);
    EXPECT_EQ(SetWindowResizeLimits(mWindow, &theNew, nullptr), noErr);
    EXPECT_EQ(GetWindowResizeLimits(mWindow, &theSmallest, nullptr), noErr);
    EXPECT_EQ(theSmallest.width, 200);
    SizeWindow(mWindow, 50, 50, true); // the program may
    EXPECT_EQ(Content(mWindow), "100, 100, 150, 150");
    EXPECT_EQ(SetWindowResizeLimits(nullptr, nullptr, nullptr), errInvalidWindowRef);
    EXPECT_EQ(GetWindowResizeLimits(nullptr, nullptr, nullptr), errInvalidWindowRef);
}

// --- Titles ------------------------------------------------------------------------------------------

TEST_F(WindowManager, ATitleTellsItsChangeToTheWindowAlone)
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

TEST_F(WindowManager, BadTitlesAreRefused)
{
    CFStringRef theTitle = CFSTR("x");
    EXPECT_EQ(SetWindowTitleWithCFString(mWindow, nullptr), paramErr);
    EXPECT_EQ(SetWindowTitleWithCFString(nullptr, theTitle), errInvalidWindowRef);
    EXPECT_EQ(CopyWindowTitleAsCFString(nullptr, &theTitle), errInvalidWindowRef);
    EXPECT_EQ(theTitle, nullptr);
    EXPECT_EQ(CopyWindowTitleAsCFString(mWindow, nullptr), paramErr);
    Str255 theText = {9};
    GetWTitle(nullptr, theText);
    EXPECT_EQ(theText[0], 0);
    GetWTitle(mWindow, nullptr);
    SetWTitle(mWindow, nullptr);
    SetWTitle(nullptr, theText);
}

// --- Order and activation ----------------------------------------------------------------------------

TEST_F(WindowManager, WindowsStandInLayers)
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

TEST_F(WindowManager, SelectingBringsToFrontAndActivates)
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

TEST_F(WindowManager, SendingBehindPassesTheActivationOn)
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

TEST_F(WindowManager, ActivationByHandMayLeaveTheOrder)
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

TEST_F(WindowManager, PalettesAreActiveWhileTheyAreShown)
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

TEST_F(WindowManager, AWindowWithoutActivatesIsPassedOver)
{
    WindowRef theQuiet = NewWindow(kDocumentWindowClass, kWindowNoActivatesAttribute);
    ShowWindow(theQuiet);
    EXPECT_FALSE(IsWindowActive(theQuiet));
    EXPECT_EQ(ActiveNonFloatingWindow(), mWindow);
}

TEST_F(WindowManager, ControlsFollowTheActivationOfTheirWindow)
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

TEST_F(WindowManager, OnlyTheNetChangeOfTheActiveWindowIsPosted)
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

TEST_F(WindowManager, AHandlerMayActivateAnotherWindow)
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

TEST_F(WindowManager, WindowsAreFoundByClass)
{
    WindowRef thePalette = NewWindow(kFloatingWindowClass, kWindowNoAttributes);
    WindowRef theHidden = NewWindow();
    EXPECT_EQ(GetFrontWindowOfClass(kDocumentWindowClass, false), theHidden);
    EXPECT_EQ(GetFrontWindowOfClass(kDocumentWindowClass, true), mWindow);
    EXPECT_EQ(GetFrontWindowOfClass(kAllWindowClasses, false), thePalette);
    EXPECT_EQ(GetNextWindowOfClass(theHidden, kDocumentWindowClass, false), mWindow);
    EXPECT_EQ(GetNextWindowOfClass(mWindow, kDocumentWindowClass, false), nullptr);
    EXPECT_EQ(GetNextWindowOfClass(kFirstWindowOfClass, kDocumentWindowClass, false), theHidden);
    EXPECT_EQ(GetNextWindowOfClass(nullptr, kDocumentWindowClass, false), nullptr);
    EXPECT_EQ(GetFrontWindowOfClass(kHelpWindowClass, false), nullptr);
}

TEST_F(WindowManager, APointIsInAPartOfTheFrontmostWindow)
{
    const auto thePart = [](int theAcross, int theDown, WindowRef theExpected) {
        const Point thePoint = {static_cast<short>(theDown), static_cast<short>(theAcross)};
        WindowRef theFound = InventedReference<WindowRef>();
        const WindowPartCode theCode = FindWindow(thePoint, &theFound);
        EXPECT_EQ(theFound, theExpected);
        return theCode;
    };
    EXPECT_EQ(thePart(105, 80, mWindow), inGoAway);
    EXPECT_EQ(thePart(120, 80, mWindow), inCollapseBox);
    EXPECT_EQ(thePart(130, 80, mWindow), inZoomOut);
    EXPECT_EQ(thePart(300, 80, mWindow), inDrag);
    EXPECT_EQ(thePart(300, 200, mWindow), inContent);
    EXPECT_EQ(thePart(499, 399, mWindow), inGrow);
    EXPECT_EQ(thePart(10, 5, nullptr), inMenuBar);
    EXPECT_EQ(thePart(10, 500, nullptr), inDesk);
    WindowRef theDialog = NewWindow(kModalWindowClass, kWindowNoAttributes);
    ShowWindow(theDialog);
    EXPECT_EQ(thePart(98, 98, theDialog), inStructure);
    CollapseWindow(mWindow, true);
    HideWindow(theDialog);
    EXPECT_EQ(thePart(300, 200, nullptr), inDesk);
    const Point thePoint = {200, 300};
    EXPECT_EQ(FindWindow(thePoint, nullptr), inDesk);
}

// --- State of its own --------------------------------------------------------------------------------

TEST_F(WindowManager, AttributesChangeWhereTheyMay)
{
    Watch(mWindow, "window", {{kEventClassWindow, kEventWindowAttributesChanged}});
    EXPECT_EQ(ChangeWindowAttributes(mWindow, kWindowNoActivatesAttribute, kWindowCloseBoxAttribute), noErr);
    WindowAttributes theAttributes = 0;
    EXPECT_EQ(GetWindowAttributes(mWindow, &theAttributes), noErr);
    EXPECT_EQ(theAttributes, (kStandard | kWindowNoActivatesAttribute) & ~kWindowCloseBoxAttribute);
    EXPECT_EQ(TakeLog(), Log{"window: AttributesChanged"});
    EXPECT_EQ(ChangeWindowAttributes(mWindow, kWindowNoActivatesAttribute, kWindowCloseBoxAttribute), noErr);
    EXPECT_EQ(TakeLog(), Log{});
    EXPECT_EQ(ChangeWindowAttributes(mWindow, 1, 1), windowAttributesConflictErr);
    EXPECT_EQ(ChangeWindowAttributes(mWindow, kWindowCompositingAttribute, 0), windowAttributeImmutableErr);
    EXPECT_EQ(ChangeWindowAttributes(mWindow, 0, kWindowCompositingAttribute), windowAttributeImmutableErr);
    EXPECT_EQ(ChangeWindowAttributes(nullptr, 0, 0), errInvalidWindowRef);
    EXPECT_EQ(GetWindowAttributes(mWindow, nullptr), paramErr);
    WindowRef thePalette = NewWindow(kFloatingWindowClass, kWindowNoAttributes);
    EXPECT_EQ(ChangeWindowAttributes(thePalette, kWindowCollapseBoxAttribute, 0), noErr);
    WindowRef thePlain = NewWindow(kPlainWindowClass, kWindowNoAttributes);
    EXPECT_EQ(ChangeWindowAttributes(thePlain, kWindowCloseBoxAttribute, 0),
              errUnsupportedWindowAttributesForClass);
}

TEST_F(WindowManager, TheModifiedFlagTellsItsNewState)
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

TEST_F(WindowManager, KeepsReferenceKindAndProperties)
{
    SetWindowKind(mWindow, 77);
    EXPECT_EQ(GetWindowKind(mWindow), 77);
    SetWRefCon(mWindow, SRefCon{});
    EXPECT_EQ(GetWRefCon(mWindow), SRefCon{});
    ByteCount theSize = 0;
    char theRead[4] = {};
    EXPECT_EQ(SetWindowProperty(mWindow, 'LMTE', 'data', 3, "abc"), noErr);
    EXPECT_EQ(GetWindowPropertySize(mWindow, 'LMTE', 'data', &theSize), noErr);
    EXPECT_EQ(theSize, 3u);
    EXPECT_EQ(GetWindowProperty(mWindow, 'LMTE', 'data', 3, nullptr, theRead), noErr);
    EXPECT_STREQ(theRead, "abc");
    EXPECT_EQ(RemoveWindowProperty(mWindow, 'LMTE', 'data'), noErr);
    EXPECT_EQ(GetWindowProperty(mWindow, 'LMTE', 'data', 3, nullptr, theRead), errWindowPropertyNotFound);
    EXPECT_EQ(SetWindowProperty(mWindow, 'wind', 'data', 3, "abc"), errInvalidWindowProperty);
}

TEST_F(WindowManager, BadReferencesGiveAStatusAndNothingElse)
{
    WindowRef theDisposed = NewWindow();
    DisposeWindow(theDisposed);
    WindowRef theForeign = reinterpret_cast<WindowRef>(NewSlider());
    for (WindowRef theBad : {WindowRef{nullptr}, theDisposed, theForeign, kFirstWindowOfClass}) {
        WindowClass theClass = 1;
        Rect theRect;
        ByteCount theSize = 0;
        EXPECT_FALSE(IsValidWindowPtr(theBad));
        EXPECT_FALSE(IsWindowVisible(theBad));
        EXPECT_FALSE(IsWindowActive(theBad));
        EXPECT_FALSE(IsWindowCollapsed(theBad));
        EXPECT_FALSE(IsWindowCollapsable(theBad));
        EXPECT_EQ(GetWindowEventTarget(theBad), nullptr);
        EXPECT_EQ(GetWindowClass(theBad, &theClass), errInvalidWindowRef);
        EXPECT_EQ(GetWindowStructureWidths(theBad, &theRect), errInvalidWindowRef);
        EXPECT_EQ(MoveWindowStructure(theBad, 1, 1), errInvalidWindowRef);
        EXPECT_EQ(GetWindowKind(theBad), 0);
        EXPECT_EQ(GetWRefCon(theBad), SRefCon{});
        EXPECT_EQ(SetWindowProperty(theBad, 'LMTE', 'data', 0, nullptr), errInvalidWindowRef);
        EXPECT_EQ(GetWindowProperty(theBad, 'LMTE', 'data', 0, nullptr, nullptr), errInvalidWindowRef);
        EXPECT_EQ(GetWindowPropertySize(theBad, 'LMTE', 'data', &theSize), errInvalidWindowRef);
        EXPECT_EQ(RemoveWindowProperty(theBad, 'LMTE', 'data'), errInvalidWindowRef);
        ShowWindow(theBad);
        HideWindow(theBad);
        ShowHide(theBad, true);
        MoveWindow(theBad, 1, 1, true);
        SizeWindow(theBad, 1, 1, true);
        BringToFront(theBad);
        SendBehind(theBad, mWindow);
        SetWindowKind(theBad, 1);
        SetWRefCon(theBad, SRefCon{});
        DisposeWindow(theBad);
    }
    EXPECT_EQ(Order(), Windows{mWindow});
}

// --- Closing -----------------------------------------------------------------------------------------

TEST_F(WindowManager, ClosingTellsInThePlatformsOrder)
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

TEST_F(WindowManager, AHiddenWindowClosesWithoutHiding)
{
    WindowRef theWindow = NewWindow();
    Watch(theWindow, "window");
    DisposeWindow(theWindow);
    EXPECT_EQ(TakeLog(), (Log{"window: Closed", "window: Dispose"}));
}

TEST_F(WindowManager, NothingBringsAClosingWindowBack)
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

TEST_F(WindowManager, APersonsCloseIsARequestFirst)
{
    Watch(mWindow, "window",
          {{kEventClassWindow, kEventWindowClose}, {kEventClassWindow, kEventWindowClosed}});
    EXPECT_TRUE(Person().CloseAsked(Host::IdentifierOf(mWindow)));
    EXPECT_EQ(TakeLog(), (Log{"window: Close", "window: Closed"}));
    EXPECT_FALSE(IsValidWindowPtr(mWindow));
}

TEST_F(WindowManager, AHandlerMayRefuseToClose)
{
    Watch(mWindow, "window", {{kEventClassWindow, kEventWindowClose}},
          [](EventRef) { return OSStatus{noErr}; });
    Person().CloseAsked(Host::IdentifierOf(mWindow));
    EXPECT_TRUE(IsValidWindowPtr(mWindow));
    EXPECT_TRUE(IsWindowVisible(mWindow));
}

TEST_F(WindowManager, WithoutTheStandardHandlerACloseIsTheProgramsTask)
{
    WindowRef theWindow = NewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes);
    ShowWindow(theWindow);
    Person().CloseAsked(Host::IdentifierOf(theWindow));
    EXPECT_TRUE(IsValidWindowPtr(theWindow));
}

// --- A person's hand ---------------------------------------------------------------------------------

TEST_F(WindowManager, APersonsCollapseIsARequestFirst)
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

TEST_F(WindowManager, ADragByHandSaysSo)
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

TEST_F(WindowManager, AResizeByHandKeepsToTheLimits)
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

TEST_F(WindowManager, ZoomingFillsTheScreenAndComesBack)
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

TEST_F(WindowManager, AClickOnAWindowBehindBringsItToFront)
{
    WindowRef theOther = NewWindow();
    MoveWindow(theOther, 200, 200, false);
    ShowWindow(theOther);
    Click(5, 250);
    EXPECT_EQ(ActiveNonFloatingWindow(), mWindow);
    EXPECT_EQ(FrontWindow(), mWindow);
}

TEST_F(WindowManager, AModalWindowKeepsThePersonFromThoseBehindIt)
{
    WindowRef theDialog = NewWindow(kModalWindowClass, kWindowStandardHandlerAttribute);
    ShowWindow(theDialog);
    Click(5, 5);
    EXPECT_EQ(ActiveNonFloatingWindow(), theDialog);
    EXPECT_FALSE(Person().CloseAsked(Host::IdentifierOf(mWindow)));
    HideWindow(theDialog);
    EXPECT_TRUE(Person().CloseAsked(Host::IdentifierOf(mWindow)));
}

// --- Sizes -------------------------------------------------------------------------------------------

static_assert(sizeof(WindowClass) == 4 && sizeof(WindowAttributes) == 4, "32 bits on every host");
static_assert(sizeof(WindowRegionCode) == 2 && sizeof(WindowPartCode) == 2, "16 bits on every host");
static_assert(kWindowStandardDocumentAttributes == 31 && kWindowStandardFloatingAttributes == 9,
              "as on the platform");
