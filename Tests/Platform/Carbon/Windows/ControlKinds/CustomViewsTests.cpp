// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Views whose program says where they can be pressed: user panes and those of a class of its own.

#include "Objects/ObjectTestSupport.h"

namespace {

const EventTypeSpec kHitTest = {kEventClassControl, kEventControlHitTest};
const ControlPartCode kDialPart = 7;

// The left half of a view is its part, the right half is none.
OSStatus HitLeftHalf(EventRef theEvent)
{
    const auto thePlace = Parameter<Point>(theEvent, kEventParamMouseLocation, typeQDPoint);
    const ControlPartCode thePart = thePlace.h < 50 ? kDialPart : ControlPartCode{kControlNoPart};
    SetEventParameter(theEvent, kEventParamControlPart, typeControlPartCode, sizeof thePart, &thePart);
    return noErr;
}

class CustomViews : public ViewTest
{
protected:
    // A pane of 100 by 100 at 20, 30, and its features.
    HIViewRef NewPane(UInt32 theFeatures = 0)
    {
        const Rect theBounds = MakeRect(20, 30, 120, 130);
        ControlRef thePane = nullptr;
        EXPECT_EQ(CreateUserPaneControl(mWindow, &theBounds, theFeatures, &thePane), noErr);
        EXPECT_EQ(HIViewAddSubview(Root(), thePane), noErr);
        return thePane;
    }

    static int PartAt(HIViewRef theView, int theAcross, int theDown)
    {
        const HIPoint thePoint = CGPointMake(static_cast<CGFloat>(theAcross), static_cast<CGFloat>(theDown));
        HIViewPartCode thePart = -1;
        EXPECT_EQ(HIViewGetPartHit(theView, &thePoint, &thePart), noErr);
        return thePart;
    }
};

const std::vector<EventTypeSpec> kPresses = {kHitTest,
                                             {kEventClassControl, kEventControlClick},
                                             {kEventClassControl, kEventControlTrack},
                                             {kEventClassControl, kEventControlHit}};

} // namespace

TEST_F(CustomViews, TheProgramSaysWhichPartIsHit)
{
    HIViewRef thePane = NewPane();
    EXPECT_EQ(PartAt(thePane, 10, 10), kControlNoPart);
    Watch(thePane, "pane", {kHitTest}, HitLeftHalf);
    EXPECT_EQ(PartAt(thePane, 10, 10), kDialPart);
    EXPECT_EQ(PartAt(thePane, 60, 10), kControlNoPart);
    TakeLog();
    EXPECT_EQ(PartAt(thePane, 100, 10), kControlNoPart);
    EXPECT_EQ(TakeLog(), Log{});
    EXPECT_EQ(HIViewChangeFeatures(thePane, kHIViewFeatureIgnoresClicks, 0), noErr);
    EXPECT_EQ(PartAt(thePane, 10, 10), kControlNoPart);
}

TEST_F(CustomViews, AnAnswerThatIsAnErrorIsNoPart)
{
    HIViewRef thePane = NewPane();
    Watch(thePane, "pane", {kHitTest}, [](EventRef theEvent) {
        HitLeftHalf(theEvent);
        return OSStatus{paramErr};
    });
    EXPECT_EQ(PartAt(thePane, 10, 10), kControlNoPart);
}

TEST_F(CustomViews, APressOnAPartIsTrackedAndHits)
{
    HIViewRef thePane = NewPane();
    Watch(thePane, "pane", kPresses, [](EventRef theEvent) {
        return GetEventKind(theEvent) == kEventControlHitTest ? HitLeftHalf(theEvent)
                                                              : OSStatus{eventNotHandledErr};
    });
    Click(30, 40);
    EXPECT_EQ(TakeLog(), (Log{"pane: Click", "pane: HitTest", "pane: Track", "pane: HitTest", "pane: Hit"}));
    Click(90, 40);
    EXPECT_EQ(TakeLog(), (Log{"pane: Click", "pane: HitTest"}));
}

TEST_F(CustomViews, AReleaseBesideThePartHitsNothing)
{
    HIViewRef thePane = NewPane();
    Watch(thePane, "pane", kPresses, [](EventRef theEvent) {
        return GetEventKind(theEvent) == kEventControlHitTest ? HitLeftHalf(theEvent)
                                                              : OSStatus{eventNotHandledErr};
    });
    Mouse(kEventMouseDown, 30, 40);
    Mouse(kEventMouseDragged, 90, 40);
    Mouse(kEventMouseUp, 90, 40);
    EXPECT_EQ(TakeLog(),
              (Log{"pane: Click", "pane: HitTest", "pane: Track", "pane: HitTest", "pane: HitTest"}));
}

TEST_F(CustomViews, AViewMayBeDisposedByWhoeverIsAsked)
{
    for (const UInt32 theKind : {kEventControlHitTest, kEventControlTrack, kEventControlHit}) {
        HIViewRef thePane = NewPane();
        Watch(thePane, "pane", kPresses, [=](EventRef theEvent) {
            if (GetEventKind(theEvent) == theKind) {
                DisposeControl(thePane);
            }
            return GetEventKind(theEvent) == kEventControlHitTest ? HitLeftHalf(theEvent)
                                                                  : OSStatus{eventNotHandledErr};
        });
        Click(30, 40);
        EXPECT_FALSE(HIViewIsValid(thePane));
        EXPECT_EQ(PartAt(NewPane(), 10, 10), kControlNoPart);
        KillControls(mWindow);
        TakeLog();
    }
}

TEST_F(CustomViews, AViewOfTheProgramIsPressedAsAPaneIs)
{
    TestClass theClass("test.dial", kHIViewClassID, mLog, {kHitTest, {kEventClassControl, kEventControlHit}});
    theClass.On(kEventClassControl, kEventControlHitTest,
                [](HIObjectRef, EventRef theEvent) { return HitLeftHalf(theEvent); });
    HIViewRef theView = theClass.NewView();
    SetFrame(theView, 20, 30, 100, 100);
    ASSERT_EQ(HIViewAddSubview(Root(), theView), noErr);
    ASSERT_EQ(HIViewSetVisible(theView, true), noErr);
    TakeLog();
    Click(30, 40);
    EXPECT_EQ(TakeLog().back(), "test.dial: Hit");
    DisposeControl(theView);
}
