// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Where windows are put by a rule, and transitions. The screen is 1024 by 768 pixels, with a menu bar of 22;
// the test's window has its content at 100, 100, 500, 400 and a title bar of 22.

#include "ManagerTestSupport.h"

namespace {

class WindowPlacing : public WindowTest
{
protected:
    // Where the structure's top left comes to be.
    std::string Reposition(WindowRef theWindow, WindowRef theParent, WindowPositionMethod theMethod)
    {
        EXPECT_EQ(RepositionWindow(theWindow, theParent, theMethod), noErr);
        const Rect theStructure = Bounds(theWindow, kWindowStructureRgn);
        return std::to_string(theStructure.left) + ", " + std::to_string(theStructure.top);
    }

    OSStatus Slide(WindowTransitionAction theAction, const Rect& theRect)
    {
        return TransitionWindow(mWindow, kWindowSlideTransitionEffect, theAction, &theRect);
    }
};

const std::vector<EventTypeSpec> kTransitions = {{kEventClassWindow, kEventWindowTransitionStarted},
                                                 {kEventClassWindow, kEventWindowTransitionCompleted},
                                                 {kEventClassWindow, kEventWindowShown},
                                                 {kEventClassWindow, kEventWindowHidden},
                                                 {kEventClassWindow, kEventWindowBoundsChanged}};

} // namespace

TEST_F(WindowPlacing, CentresOnTheScreenWithoutTheMenuBar)
{
    WindowRef theWindow = NewWindow();
    EXPECT_EQ(Reposition(theWindow, nullptr, kWindowCenterOnMainScreen), "312, 234");
    EXPECT_EQ(Reposition(theWindow, mWindow, kWindowCenterOnParentWindowScreen), "312, 234");
    EXPECT_EQ(Reposition(mWindow, mWindow, kWindowCenterOnParentWindowScreen), "312, 234");
    EXPECT_FALSE(IsWindowVisible(theWindow));
}

TEST_F(WindowPlacing, CentresOnTheParent)
{
    WindowRef theWindow = NewWindow();
    SizeWindow(theWindow, 200, 100, true);
    EXPECT_EQ(Reposition(theWindow, mWindow, kWindowCenterOnParentWindow), "200, 178");
}

TEST_F(WindowPlacing, LeavesAThirdOfTheHeightAboveAnAlert)
{
    WindowRef theWindow = NewWindow(kMovableAlertWindowClass, kWindowNoAttributes);
    EXPECT_EQ(Reposition(theWindow, nullptr, kWindowAlertPositionOnMainScreen), "312, 163");
    EXPECT_EQ(Reposition(theWindow, mWindow, kWindowAlertPositionOnParentWindowScreen), "312, 163");
    SizeWindow(theWindow, 200, 100, true);
    EXPECT_EQ(Reposition(theWindow, mWindow, kWindowAlertPositionOnParentWindow), "200, 144");
}

TEST_F(WindowPlacing, ACascadeGoesDownAndToTheRight)
{
    EXPECT_EQ(Reposition(mWindow, nullptr, kWindowCascadeOnMainScreen), "20, 42");
    WindowRef theSecond = NewWindow();
    EXPECT_EQ(Reposition(theSecond, nullptr, kWindowCascadeOnMainScreen), "40, 62");
    WindowRef theThird = NewWindow();
    EXPECT_EQ(Reposition(theThird, mWindow, kWindowCascadeOnParentWindowScreen), "60, 82");
    DisposeWindow(theSecond);
    WindowRef theFourth = NewWindow();
    EXPECT_EQ(Reposition(theFourth, nullptr, kWindowCascadeOnMainScreen), "40, 62") << "the gap";
}

TEST_F(WindowPlacing, ACascadeMayStartAtItsParent)
{
    WindowRef theSecond = NewWindow();
    EXPECT_EQ(Reposition(theSecond, mWindow, kWindowCascadeOnParentWindow), "120, 98");
    WindowRef theThird = NewWindow();
    EXPECT_EQ(Reposition(theThird, mWindow, kWindowCascadeStartAtParentWindowScreen), "140, 118");
}

TEST_F(WindowPlacing, ACascadeStartsAgainWhereTheScreenEnds)
{
    std::string theFirst;
    std::string theLast;
    for (int theCount = 0; theCount < 21; ++theCount) {
        theLast = Reposition(NewWindow(), nullptr, kWindowCascadeOnMainScreen);
        theFirst = theFirst.empty() ? theLast : theFirst;
    }
    EXPECT_EQ(theFirst, "20, 42");
    EXPECT_EQ(theLast, "420, 442");
    EXPECT_EQ(Reposition(NewWindow(), nullptr, kWindowCascadeOnMainScreen), theFirst);
}

TEST_F(WindowPlacing, AWindowBeginsOnTheScreen)
{
    WindowRef theLarge = NewWindow();
    SizeWindow(theLarge, 3000, 2000, true);
    EXPECT_EQ(Reposition(theLarge, nullptr, kWindowCenterOnMainScreen), "0, 22");
    EXPECT_EQ(Reposition(theLarge, mWindow, kWindowAlertPositionOnParentWindow), "0, 22");
}

TEST_F(WindowPlacing, RefusesMethodsWithoutTheirParent)
{
    EXPECT_EQ(RepositionWindow(nullptr, nullptr, kWindowCenterOnMainScreen), errInvalidWindowRef);
    EXPECT_EQ(RepositionWindow(mWindow, nullptr, 0), paramErr);
    EXPECT_EQ(RepositionWindow(mWindow, nullptr, 11), paramErr);
    EXPECT_EQ(RepositionWindow(mWindow, nullptr, kWindowCenterOnParentWindow), paramErr);
    EXPECT_EQ(RepositionWindow(mWindow, mWindow, kWindowCenterOnParentWindow), paramErr);
    EXPECT_EQ(RepositionWindow(mWindow, mWindow, kWindowCascadeStartAtParentWindowScreen), paramErr);
    EXPECT_EQ(RepositionWindow(mWindow, nullptr, kWindowAlertPositionOnParentWindowScreen), paramErr);
    EXPECT_EQ(Content(mWindow), "100, 100, 500, 400");
}

// --- Transitions -------------------------------------------------------------------------------------

TEST_F(WindowPlacing, ATransitionShowsAndHides)
{
    Watch(mWindow, "window", kTransitions);
    EXPECT_EQ(TransitionWindow(mWindow, kWindowZoomTransitionEffect, kWindowHideTransitionAction, nullptr),
              noErr);
    EXPECT_FALSE(IsWindowVisible(mWindow));
    EXPECT_EQ(TransitionWindow(mWindow, kWindowFadeTransitionEffect, kWindowShowTransitionAction, nullptr),
              noErr);
    EXPECT_TRUE(IsWindowActive(mWindow));
    const Log theExpected = {"window: TransitionStarted", "window: Hidden", "window: TransitionCompleted",
                             "window: TransitionStarted", "window: Shown",  "window: TransitionCompleted"};
    EXPECT_EQ(TakeLog(), theExpected);
}

TEST_F(WindowPlacing, ATransitionMovesTheStructure)
{
    Watch(mWindow, "window", kTransitions);
    EXPECT_EQ(Slide(kWindowMoveTransitionAction, MakeRect(10, 50, 210, 172)), noErr);
    EXPECT_EQ(Content(mWindow), "10, 72, 210, 172");
    EXPECT_EQ(TakeLog(),
              (Log{"window: TransitionStarted", "window: BoundsChanged", "window: TransitionCompleted"}));
    EXPECT_EQ(Slide(kWindowResizeTransitionAction, MakeRect(10, 50, 310, 172)), noErr);
    EXPECT_EQ(Content(mWindow), "10, 72, 310, 172");
}

TEST_F(WindowPlacing, RefusesTransitionsThatDoNotGoTogether)
{
    const Rect theRect = MakeRect(0, 50, 100, 150);
    const WindowTransitionAction kShow = kWindowShowTransitionAction;
    EXPECT_EQ(TransitionWindow(nullptr, kWindowZoomTransitionEffect, kShow, nullptr), errInvalidWindowRef);
    EXPECT_EQ(TransitionWindow(mWindow, 0, kShow, nullptr), paramErr);
    EXPECT_EQ(TransitionWindow(mWindow, 6, kShow, nullptr), paramErr);
    EXPECT_EQ(TransitionWindow(mWindow, kWindowZoomTransitionEffect, 5, nullptr), paramErr);
    EXPECT_EQ(TransitionWindow(mWindow, kWindowZoomTransitionEffect, kWindowMoveTransitionAction, &theRect),
              paramErr);
    EXPECT_EQ(TransitionWindow(mWindow, kWindowSlideTransitionEffect, kWindowMoveTransitionAction, nullptr),
              paramErr);
    EXPECT_EQ(Content(mWindow), "100, 100, 500, 400");
}

TEST_F(WindowPlacing, AWindowMayBeDisposedInItsTransition)
{
    Watch(mWindow, "window", {{kEventClassWindow, kEventWindowHidden}}, [this](EventRef) {
        DisposeWindow(mWindow);
        return OSStatus{eventNotHandledErr};
    });
    EXPECT_EQ(TransitionWindow(mWindow, kWindowZoomTransitionEffect, kWindowHideTransitionAction, nullptr),
              noErr);
    EXPECT_FALSE(IsValidWindowPtr(mWindow));
}

TEST_F(WindowPlacing, ATransitionWithTheParentIsASheets)
{
    WindowRef theSheet = NewWindow(kSheetWindowClass, kWindowNoAttributes);
    const WindowTransitionEffect kSheet = kWindowSheetTransitionEffect;
    EXPECT_EQ(TransitionWindowAndParent(theSheet, mWindow, kSheet, kWindowShowTransitionAction, nullptr),
              noErr);
    EXPECT_TRUE(IsWindowVisible(theSheet));
    EXPECT_EQ(TransitionWindowAndParent(theSheet, theSheet, kSheet, kWindowHideTransitionAction, nullptr),
              paramErr);
    EXPECT_EQ(TransitionWindowAndParent(theSheet, mWindow, kWindowFadeTransitionEffect,
                                        kWindowHideTransitionAction, nullptr),
              paramErr);
    EXPECT_EQ(TransitionWindowAndParent(theSheet, nullptr, kSheet, kWindowHideTransitionAction, nullptr),
              errInvalidWindowRef);
    EXPECT_TRUE(IsWindowVisible(theSheet));
}
