// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// How views follow the views that their rules name.

#include "Views/ViewTestSupport.h"

namespace {

class Layout : public ViewTest
{
protected:
    static void Lay(HIViewRef theView, const HILayoutInfo& theRules)
    {
        ASSERT_EQ(HIViewSetLayoutInfo(theView, &theRules), noErr);
    }

    static HISideBinding Side(HIBindingKind theKind, HIViewRef theView = nullptr)
    {
        return {theView, theKind, 0};
    }

    // Moves along with another view.
    static HILayoutInfo Along(HIViewRef theView)
    {
        HILayoutInfo theRules = {};
        theRules.binding.left = Side(kHILayoutBindLeft, theView);
        theRules.binding.right = Side(kHILayoutBindLeft, theView);
        theRules.binding.top = Side(kHILayoutBindTop, theView);
        theRules.binding.bottom = Side(kHILayoutBindTop, theView);
        return theRules;
    }

    void ResizeWindow(int theWidth, int theHeight) const
    {
        SizeWindow(mWindow, static_cast<short>(theWidth), static_cast<short>(theHeight), true);
    }

    HIViewRef mView = NewBox(Root(), MakeRect(10, 20, 110, 120));
};

} // namespace

TEST_F(Layout, AViewStretchesWithTheWindow)
{
    HILayoutInfo theRules = {};
    theRules.binding.left = Side(kHILayoutBindLeft);
    theRules.binding.right = Side(kHILayoutBindRight);
    theRules.binding.top = Side(kHILayoutBindTop);
    theRules.binding.bottom = Side(kHILayoutBindBottom);
    Lay(mView, theRules);
    Watch(mView, "view");
    ResizeWindow(450, 280);
    EXPECT_EQ(Frame(mView), "10, 20, 150 x 80");
    EXPECT_EQ(TakeLog(), (Log{"view: InvalidateForSizeChange", "view: BoundsChanged"}));
}

TEST_F(Layout, AViewStaysAtTheFarCorner)
{
    HILayoutInfo theRules = {};
    theRules.binding.left = Side(kHILayoutBindRight);
    theRules.binding.right = Side(kHILayoutBindRight);
    theRules.binding.top = Side(kHILayoutBindBottom);
    theRules.binding.bottom = Side(kHILayoutBindBottom);
    Lay(mView, theRules);
    ResizeWindow(450, 280);
    EXPECT_EQ(Frame(mView), "60, 0, 100 x 100");
}

TEST_F(Layout, AViewWithoutRulesStays)
{
    Lay(mView, HILayoutInfo());
    ResizeWindow(450, 280);
    EXPECT_EQ(Frame(mView), "10, 20, 100 x 100");
}

TEST_F(Layout, AViewIsNeverTurnedInsideOut)
{
    HILayoutInfo theRules = {};
    theRules.binding.right = Side(kHILayoutBindRight);
    theRules.binding.bottom = Side(kHILayoutBindBottom);
    Lay(mView, theRules);
    ResizeWindow(250, 150);
    EXPECT_EQ(Frame(mView), "10, 20, 0 x 0");
}

TEST_F(Layout, AViewFollowsAnotherOneAndAThirdFollowsThat)
{
    const HIViewRef theSecond = NewBox(Root(), MakeRect(120, 20, 170, 40));
    const HIViewRef theThird = NewBox(Root(), MakeRect(180, 20, 230, 40));
    Lay(theSecond, Along(mView));
    Lay(theThird, Along(theSecond));
    EXPECT_EQ(HIViewMoveBy(mView, 5, 7), noErr);
    EXPECT_EQ(Frame(theSecond), "125, 27, 50 x 20");
    EXPECT_EQ(Frame(theThird), "185, 27, 50 x 20");
}

TEST_F(Layout, ASideFollowsTheFarSideOfAnotherView)
{
    const HIViewRef theSecond = NewBox(Root(), MakeRect(120, 20, 170, 40));
    HILayoutInfo theRules = {};
    theRules.binding.left = Side(kHILayoutBindRight, mView);
    theRules.binding.right = Side(kHILayoutBindRight, mView);
    Lay(theSecond, theRules);
    SetFrame(mView, 10, 20, 130, 100);
    EXPECT_EQ(Frame(theSecond), "150, 20, 50 x 20");
}

TEST_F(Layout, ViewsThatFollowEachOtherDoNotGoRoundForEver)
{
    const HIViewRef theSecond = NewBox(Root(), MakeRect(120, 20, 170, 40));
    Lay(mView, Along(theSecond));
    Lay(theSecond, Along(mView));
    EXPECT_EQ(HIViewMoveBy(mView, 5, 0), noErr);
    EXPECT_EQ(Frame(mView), "15, 20, 100 x 100");
    EXPECT_EQ(Frame(theSecond), "125, 20, 50 x 20");
}

TEST_F(Layout, AMovedParentTakesItsViewsAlongAndBindsOnlyToItsSize)
{
    const HIViewRef theInner = NewBox(mView, MakeRect(10, 10, 20, 20));
    HILayoutInfo theRules = {};
    theRules.binding.left = Side(kHILayoutBindLeft);
    theRules.binding.right = Side(kHILayoutBindRight);
    Lay(theInner, theRules);
    EXPECT_EQ(HIViewMoveBy(mView, 30, 30), noErr);
    EXPECT_EQ(Frame(theInner), "10, 10, 10 x 10");
    SetFrame(mView, 40, 50, 150, 100);
    EXPECT_EQ(Frame(theInner), "10, 10, 60 x 10");
}

TEST_F(Layout, InAWindowThatIsNotCompositingTheParentsSidesCount)
{
    mWindow = NewWindow();
    const HIViewRef theBox = NewGroupBox();
    const HIViewRef theSlider = NewSlider();
    ASSERT_EQ(EmbedControl(theSlider, theBox), noErr);
    Lay(theSlider, Along(nullptr));
    EXPECT_EQ(HIViewMoveBy(theBox, 10, 20), noErr);
    Rect theBounds = {};
    GetControlBounds(theSlider, &theBounds);
    EXPECT_EQ(Describe(theBounds), "20, 30, 136, 50");
}

TEST_F(Layout, AViewIsScaledWithAnother)
{
    HILayoutInfo theRules = {};
    theRules.scale.x.ratio = CGFloat(0.5);
    theRules.scale.y.toView = mView;
    theRules.scale.y.ratio = 2;
    const HIViewRef theSecond = NewBox(Root(), MakeRect(120, 20, 170, 40));
    Lay(theSecond, theRules);
    ResizeWindow(440, 300);
    EXPECT_EQ(Frame(theSecond), "120, 20, 220 x 200");
    SetFrame(mView, 10, 20, 100, 50);
    EXPECT_EQ(Frame(theSecond), "120, 20, 220 x 100");
}

TEST_F(Layout, AViewKeepsItsPlaceInAnother)
{
    const HIViewRef theSecond = NewBox(Root(), MakeRect(0, 0, 40, 20));
    struct Row
    {
        HIPositionKind theKind;
        const char* theFrame;
    };
    const Row kRows[] = {{kHILayoutPositionNone, "0, 0, 40 x 20"},
                         {kHILayoutPositionCenter, "43, 61, 40 x 20"},
                         {kHILayoutPositionMin, "13, 21, 40 x 20"},
                         {kHILayoutPositionMax, "73, 101, 40 x 20"}};
    for (const Row& theRow : kRows) {
        HILayoutInfo theRules = {};
        theRules.position.x = {mView, theRow.theKind, 2};
        theRules.position.y = {mView, theRow.theKind, 0};
        SetFrame(theSecond, 0, 0, 40, 20);
        SetFrame(mView, 10, 20, 100, 100);
        Lay(theSecond, theRules);
        SetFrame(mView, 11, 21, 100, 100);
        EXPECT_EQ(Frame(theSecond), theRow.theFrame) << theRow.theKind;
    }
}

TEST_F(Layout, ASuspendedViewDoesNotFollowAndDoesNotMakeUpForIt)
{
    const HIViewRef theSecond = NewBox(Root(), MakeRect(120, 20, 170, 40));
    Lay(theSecond, Along(mView));
    EXPECT_EQ(HIViewSuspendLayout(Root()), noErr);
    EXPECT_EQ(HIViewMoveBy(mView, 5, 7), noErr);
    EXPECT_EQ(HIViewResumeLayout(Root()), noErr);
    EXPECT_EQ(Frame(theSecond), "120, 20, 50 x 20");
    EXPECT_EQ(HIViewMoveBy(mView, 1, 1), noErr);
    EXPECT_EQ(Frame(theSecond), "121, 21, 50 x 20");
}

TEST_F(Layout, AViewOfAnotherWindowIsNotFollowed)
{
    const HIViewRef theView = mView;
    mWindow = NewWindow(kDocumentWindowClass, kCompositing);
    const HIViewRef theOther = NewBox(Root(), MakeRect(0, 0, 10, 10));
    Lay(theOther, Along(theView));
    EXPECT_EQ(HIViewMoveBy(theView, 5, 7), noErr);
    EXPECT_EQ(Frame(theOther), "0, 0, 10 x 10");
}

TEST_F(Layout, AViewThatIsGoneMovesNothing)
{
    const HIViewRef theSecond = NewBox(Root(), MakeRect(120, 20, 170, 40));
    Lay(theSecond, Along(mView));
    DisposeControl(mView);
    ResizeWindow(450, 280);
    EXPECT_EQ(Frame(theSecond), "120, 20, 50 x 20");
}

TEST_F(Layout, AHandlerMayDisposeWhatFollowsAndWhatIsFollowed)
{
    const HIViewRef theSecond = NewBox(Root(), MakeRect(120, 20, 170, 40));
    const HIViewRef theThird = NewBox(Root(), MakeRect(180, 20, 230, 40));
    Lay(theSecond, Along(mView));
    Lay(theThird, Along(mView));
    Watch(theSecond, "second", {{kEventClassControl, kEventControlBoundsChanged}}, [=](EventRef) {
        DisposeControl(theThird);
        DisposeControl(mView);
        DisposeControl(theSecond);
        return OSStatus{noErr};
    });
    EXPECT_EQ(HIViewMoveBy(mView, 5, 7), noErr);
    EXPECT_FALSE(HIViewIsValid(mView));
    EXPECT_FALSE(HIViewIsValid(theSecond));
    EXPECT_FALSE(HIViewIsValid(theThird));
}

TEST_F(Layout, ALongChainEndsBeforeTheStackDoes)
{
    std::vector<HIViewRef> theChain = {mView};
    for (int theIndex = 0; theIndex < 1100; ++theIndex) {
        theChain.push_back(NewBox(Root(), MakeRect(0, 0, 10, 10)));
        Lay(theChain.back(), Along(theChain[theChain.size() - 2]));
    }
    EXPECT_EQ(HIViewMoveBy(mView, 5, 0), noErr);
    EXPECT_EQ(Frame(theChain[999]), "5, 0, 10 x 10");
    EXPECT_EQ(Frame(theChain.back()), "0, 0, 10 x 10");
}
