// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ViewTestSupport.h"

#include <cmath>

namespace {

class ViewCoordinates : public ViewTest
{
protected:
    static std::string Text(const HIPoint& thePoint)
    {
        std::ostringstream theText;
        theText << thePoint.x << ", " << thePoint.y;
        return theText.str();
    }
    using ViewTest::Text;

    HIViewRef mOuter = NewBox(Root(), MakeRect(20, 30, 220, 130));
    HIViewRef mInner = NewBox(mOuter, MakeRect(5, 7, 55, 27));
};

} // namespace

TEST_F(ViewCoordinates, BoundsBeginAtTheViewAndTheFrameInTheViewAround)
{
    HIRect theBounds = CGRectZero;
    EXPECT_EQ(HIViewGetBounds(mInner, &theBounds), noErr);
    EXPECT_EQ(Text(theBounds), "0, 0, 50 x 20");
    EXPECT_EQ(Frame(mInner), "5, 7, 50 x 20");
    EXPECT_EQ(Frame(mOuter), "20, 30, 200 x 100");
    EXPECT_EQ(Frame(Root()), "0, 0, 400 x 300");
}

TEST_F(ViewCoordinates, InAWindowThatIsNotCompositingTheFrameIsInTheViewAroundToo)
{
    mWindow = NewWindow();
    const HIViewRef theBox = NewGroupBox();
    const HIViewRef theSlider = NewSlider();
    ASSERT_EQ(EmbedControl(theSlider, theBox), noErr);
    EXPECT_EQ(Frame(theSlider), "5, 5, 116 x 20");
    SetFrame(theSlider, 15, 25, 50, 10);
    Rect theBounds = {};
    GetControlBounds(theSlider, &theBounds);
    EXPECT_EQ(Describe(theBounds), "20, 30, 70, 40");
}

TEST_F(ViewCoordinates, AFrameIsSetWithTheEventsOfBounds)
{
    Watch(mInner, "inner");
    SetFrame(mInner, 1, 2, 30, 40);
    EXPECT_EQ(Frame(mInner), "1, 2, 30 x 40");
    EXPECT_EQ(TakeLog(), (Log{"inner: InvalidateForSizeChange", "inner: BoundsChanged"}));
    EXPECT_EQ(HIViewMoveBy(mInner, 10, -5), noErr);
    EXPECT_EQ(Frame(mInner), "11, -3, 30 x 40");
    EXPECT_EQ(HIViewPlaceInSuperviewAt(mInner, 3, 4), noErr);
    EXPECT_EQ(Frame(mInner), "3, 4, 30 x 40");
    EXPECT_EQ(TakeLog(), (Log{"inner: BoundsChanged", "inner: BoundsChanged"}));
}

TEST_F(ViewCoordinates, FractionsAreRoundedAndWhatIsTooFarStaysAtTheEnd)
{
    const HIRect theFraction = CGRectMake(CGFloat(1.5), CGFloat(2.4), CGFloat(10.2), CGFloat(9.9));
    EXPECT_EQ(HIViewSetFrame(mInner, &theFraction), noErr);
    EXPECT_EQ(Frame(mInner), "2, 2, 10 x 10");
    const HIRect theHuge = CGRectMake(CGFloat(1e9), CGFloat(NAN), CGFloat(INFINITY), CGFloat(10));
    EXPECT_EQ(HIViewSetFrame(mInner, &theHuge), noErr);
    EXPECT_EQ(Frame(mInner), "32747, 0, 0 x 0"); // bounds end at 32767, and the view around begins at 20
}

TEST_F(ViewCoordinates, PlacesOfWhatIsNoViewAreRefused)
{
    HIRect theRect = CGRectMake(1, 1, 1, 1);
    EXPECT_EQ(HIViewGetBounds(nullptr, &theRect), errUnknownControl);
    EXPECT_EQ(Text(theRect), "0, 0, 0 x 0");
    EXPECT_EQ(HIViewGetFrame(nullptr, &theRect), errUnknownControl);
    EXPECT_EQ(HIViewGetBounds(mInner, nullptr), paramErr);
    EXPECT_EQ(HIViewGetFrame(mInner, nullptr), paramErr);
    EXPECT_EQ(HIViewSetFrame(mInner, nullptr), paramErr);
    EXPECT_EQ(HIViewSetFrame(nullptr, &theRect), errUnknownControl);
    EXPECT_EQ(HIViewMoveBy(nullptr, 1, 1), errUnknownControl);
    EXPECT_EQ(HIViewPlaceInSuperviewAt(nullptr, 1, 1), errUnknownControl);
}

TEST_F(ViewCoordinates, PointsAndRectanglesAreConvertedBetweenViewsAndTheWindow)
{
    HIPoint thePoint = CGPointMake(1, 2);
    EXPECT_EQ(HIViewConvertPoint(&thePoint, mInner, Root()), noErr);
    EXPECT_EQ(Text(thePoint), "26, 39");
    EXPECT_EQ(HIViewConvertPoint(&thePoint, Root(), mInner), noErr);
    EXPECT_EQ(Text(thePoint), "1, 2");
    HIRect theRect = CGRectMake(1, 2, 3, 4);
    EXPECT_EQ(HIViewConvertRect(&theRect, mInner, mOuter), noErr);
    EXPECT_EQ(Text(theRect), "6, 9, 3 x 4");

    Rect theStructure = {};
    Rect theContent = {};
    GetWindowBounds(mWindow, kWindowStructureRgn, &theStructure);
    GetWindowBounds(mWindow, kWindowContentRgn, &theContent);
    EXPECT_EQ(HIViewConvertPoint(&thePoint, Root(), nullptr), noErr);
    EXPECT_EQ(thePoint.x, static_cast<CGFloat>(1 + theContent.left - theStructure.left));
    EXPECT_EQ(thePoint.y, static_cast<CGFloat>(2 + theContent.top - theStructure.top));
    EXPECT_EQ(HIViewConvertPoint(&thePoint, nullptr, Root()), noErr);
    EXPECT_EQ(Text(thePoint), "1, 2");
}

TEST_F(ViewCoordinates, NothingIsConvertedBetweenTwoWindowsOrOutOfNone)
{
    WindowRef theOther = NewWindow();
    HIPoint thePoint = CGPointMake(1, 2);
    EXPECT_EQ(HIViewConvertPoint(&thePoint, mInner, HIViewGetRoot(theOther)), paramErr);
    EXPECT_EQ(HIViewConvertPoint(&thePoint, nullptr, nullptr), paramErr);
    EXPECT_EQ(HIViewConvertPoint(&thePoint, InventedReference<ControlRef>(), mInner), errUnknownControl);
    EXPECT_EQ(HIViewConvertPoint(&thePoint, mInner, InventedReference<ControlRef>()), errUnknownControl);
    EXPECT_EQ(HIViewConvertPoint(nullptr, mInner, mOuter), paramErr);
    EXPECT_EQ(HIViewConvertRect(nullptr, mInner, mOuter), paramErr);
    ASSERT_EQ(HIViewRemoveFromSuperview(mOuter), noErr);
    EXPECT_EQ(HIViewConvertPoint(&thePoint, mInner, mOuter), paramErr);
    EXPECT_EQ(Text(thePoint), "1, 2");
    DisposeControl(mOuter);
    DisposeWindow(theOther);
}

TEST_F(ViewCoordinates, AnySpaceIsConvertedIntoAnyOther)
{
    HIPoint thePoint = CGPointMake(1, 2);
    HIPointConvert(&thePoint, kHICoordSpaceView, mInner, kHICoordSpace72DPIGlobal, nullptr);
    EXPECT_EQ(Text(thePoint), "126, 139"); // the content is at 100, 100
    HIPointConvert(&thePoint, kHICoordSpaceScreenPixel, nullptr, kHICoordSpaceView, mOuter);
    EXPECT_EQ(Text(thePoint), "6, 9");
    Rect theStructure = {};
    GetWindowBounds(mWindow, kWindowStructureRgn, &theStructure);
    HIRect theRect = CGRectMake(0, 0, 5, 6);
    HIRectConvert(&theRect, kHICoordSpaceWindow, mWindow, kHICoordSpace72DPIGlobal, nullptr);
    EXPECT_EQ(theRect.origin.x, static_cast<CGFloat>(theStructure.left));
    EXPECT_EQ(theRect.origin.y, static_cast<CGFloat>(theStructure.top));
    EXPECT_EQ(theRect.size.width, CGFloat{5});
    HISize theSize = CGSizeMake(3, 4);
    HISizeConvert(&theSize, kHICoordSpaceView, mInner, kHICoordSpaceWindow, mWindow);
    EXPECT_EQ(theSize.width, CGFloat{3});
    EXPECT_EQ(theSize.height, CGFloat{4});
}

TEST_F(ViewCoordinates, AnObjectThatIsNotOfItsSpaceLeavesThePointAlone)
{
    HIPoint thePoint = CGPointMake(1, 2);
    HIPointConvert(&thePoint, kHICoordSpaceView, nullptr, kHICoordSpace72DPIGlobal, nullptr);
    HIPointConvert(&thePoint, kHICoordSpaceWindow, nullptr, kHICoordSpace72DPIGlobal, nullptr);
    HIPointConvert(&thePoint, kHICoordSpaceView, mInner, 9, nullptr);
    ASSERT_EQ(HIViewRemoveFromSuperview(mOuter), noErr);
    HIPointConvert(&thePoint, kHICoordSpaceView, mOuter, kHICoordSpace72DPIGlobal, nullptr);
    EXPECT_EQ(Text(thePoint), "1, 2");
    HIPointConvert(nullptr, kHICoordSpaceView, mInner, kHICoordSpace72DPIGlobal, nullptr);
    HIRectConvert(nullptr, kHICoordSpaceView, mInner, kHICoordSpace72DPIGlobal, nullptr);
    DisposeControl(mOuter);
}

TEST_F(ViewCoordinates, ThePartIsFoundByAPointOfTheView)
{
    ControlRef theButton = NewPushButton();
    ASSERT_EQ(HIViewAddSubview(mOuter, theButton), noErr);
    SetFrame(theButton, 50, 50, 80, 20);
    const HIPoint theMiddle = CGPointMake(40, 10);
    const HIPoint theOutside = CGPointMake(80, 10);
    HIViewPartCode thePart = kHIViewDisabledPart;
    EXPECT_EQ(HIViewGetPartHit(theButton, &theMiddle, &thePart), noErr);
    EXPECT_EQ(thePart, kControlButtonPart);
    EXPECT_EQ(HIViewGetPartHit(theButton, &theOutside, &thePart), noErr);
    EXPECT_EQ(thePart, kHIViewNoPart);
    for (OSStatus (*theSwitch)(HIViewRef, Boolean) :
         {HIViewSetVisible, HIViewSetEnabled, HIViewSetActivated}) {
        EXPECT_EQ(theSwitch(theButton, false), noErr);
        thePart = kHIViewDisabledPart;
        EXPECT_EQ(HIViewGetPartHit(theButton, &theMiddle, &thePart), noErr);
        EXPECT_EQ(thePart, kHIViewNoPart);
        EXPECT_EQ(theSwitch(theButton, true), noErr);
    }
    EXPECT_EQ(HIViewGetPartHit(nullptr, &theMiddle, &thePart), errUnknownControl);
    EXPECT_EQ(HIViewGetPartHit(theButton, nullptr, &thePart), paramErr);
    EXPECT_EQ(HIViewGetPartHit(theButton, &theMiddle, nullptr), paramErr);
}

TEST_F(ViewCoordinates, ASubviewIsFoundByAPointOfTheViewAround)
{
    const HIPoint theInside = CGPointMake(30, 40);
    const HIPoint theBeside = CGPointMake(10, 40);
    HIViewRef theHit = nullptr;
    EXPECT_EQ(HIViewGetSubviewHit(Root(), &theInside, true, &theHit), noErr);
    EXPECT_EQ(theHit, mInner);
    EXPECT_EQ(HIViewGetSubviewHit(Root(), &theInside, false, &theHit), noErr);
    EXPECT_EQ(theHit, mOuter);
    EXPECT_EQ(HIViewGetSubviewHit(Root(), &theBeside, true, &theHit), noErr);
    EXPECT_EQ(theHit, nullptr);
    EXPECT_EQ(HIViewSetVisible(mInner, false), noErr);
    EXPECT_EQ(HIViewGetSubviewHit(Root(), &theInside, true, &theHit), noErr);
    EXPECT_EQ(theHit, mOuter);
    EXPECT_EQ(HIViewGetSubviewHit(nullptr, &theInside, true, &theHit), errUnknownControl);
    EXPECT_EQ(HIViewGetSubviewHit(Root(), nullptr, true, &theHit), paramErr);
    EXPECT_EQ(HIViewGetSubviewHit(Root(), &theInside, true, nullptr), paramErr);
}
