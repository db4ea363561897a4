// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The calls on windows, as the platform's headers describe them.

#include "ManagerTestSupport.h"

namespace {

using WindowManager = WindowTest;

} // namespace

// --- Creation ----------------------------------------------------------------------------------------

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

TEST_F(WindowManager, ShowHideLeavesTheActivationAlone)
{
    WindowRef theWindow = NewWindow();
    Watch(theWindow, "window");
    ShowHide(theWindow, true);
    EXPECT_EQ(ActiveNonFloatingWindow(), mWindow);
    ShowHide(theWindow, false);
    EXPECT_EQ(TakeLog(), (Log{"window: Showing", "window: Shown", "window: Hiding", "window: Hidden"}));
}

// --- Collapsing --------------------------------------------------------------------------------------

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
    SetWindowTitleWithCFString(mWindow, CFSTR("kept"));
    GetWTitle(mWindow, nullptr);
    SetWTitle(mWindow, nullptr);
    SetWTitle(nullptr, theText);
    EXPECT_EQ(Title(mWindow), "kept");
}

// --- Order and activation ----------------------------------------------------------------------------

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

// --- Sizes -------------------------------------------------------------------------------------------

static_assert(sizeof(WindowClass) == 4 && sizeof(WindowAttributes) == 4, "32 bits on every host");
static_assert(sizeof(WindowRegionCode) == 2 && sizeof(WindowPartCode) == 2, "16 bits on every host");
static_assert(kWindowStandardDocumentAttributes == 31 && kWindowStandardFloatingAttributes == 9,
              "as on the platform");
