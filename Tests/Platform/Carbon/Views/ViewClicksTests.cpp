// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Which view an event of the mouse is for, and pressing it.

#include "ViewTestSupport.h"

namespace {

// An event of the mouse at a point of the window's content, which is at 100, 100.
class MouseEvent : public TestEvent
{
public:
    MouseEvent(WindowRef theWindow, int theAcross, int theDown, UInt32 theKind = kEventMouseDown)
        : TestEvent(kEventClassMouse, theKind)
    {
        const HIPoint thePlace =
            CGPointMake(static_cast<CGFloat>(100 + theAcross), static_cast<CGFloat>(100 + theDown));
        SetEventParameter(Get(), kEventParamMouseLocation, typeHIPoint, sizeof thePlace, &thePlace);
        SetEventParameter(Get(), kEventParamWindowRef, typeWindowRef, sizeof theWindow, &theWindow);
    }
};

class ViewClicks : public ViewTest
{
protected:
    HIViewRef ViewFor(HIViewRef theStart, const MouseEvent& theEvent)
    {
        HIViewRef theView = InventedReference<HIViewRef>();
        EXPECT_EQ(HIViewGetViewForMouseEvent(theStart, theEvent.Get(), &theView), noErr);
        return theView;
    }

    HIViewRef mOuter = NewBox(Root(), MakeRect(10, 10, 110, 110));
    HIViewRef mInner = NewBox(mOuter, MakeRect(20, 20, 60, 60));
};

const EventTypeSpec kIntercept = {kEventClassControl, kEventControlInterceptSubviewClick};

} // namespace

TEST_F(ViewClicks, TheDeepestViewAtThePlaceIsTheOne)
{
    EXPECT_EQ(ViewFor(Root(), MouseEvent(mWindow, 40, 40)), mInner);
    EXPECT_EQ(ViewFor(Root(), MouseEvent(mWindow, 100, 100)), mOuter);
    EXPECT_EQ(ViewFor(Root(), MouseEvent(mWindow, 200, 200)), Root());
    EXPECT_EQ(ViewFor(mOuter, MouseEvent(mWindow, 200, 200)), nullptr);
    HIViewSetVisible(mInner, false);
    EXPECT_EQ(ViewFor(Root(), MouseEvent(mWindow, 40, 40)), mOuter);
}

TEST_F(ViewClicks, AViewMayTakeWhatIsForThoseInIt)
{
    Watch(mOuter, "outer", {kIntercept}, [](EventRef theEvent) {
        EXPECT_NE(Parameter<EventRef>(theEvent, kEventParamEventRef, typeEventRef), nullptr);
        return OSStatus{noErr};
    });
    EXPECT_EQ(ViewFor(Root(), MouseEvent(mWindow, 40, 40)), mOuter);
    EXPECT_EQ(TakeLog().size(), 1u);
    EXPECT_EQ(ViewFor(Root(), MouseEvent(mWindow, 100, 100)), mOuter);
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(ViewClicks, AViewThatIsDisposedOnTheWayIsNot)
{
    Watch(mOuter, "outer", {kIntercept}, [this](EventRef) {
        DisposeControl(mOuter);
        return OSStatus{eventNotHandledErr};
    });
    EXPECT_EQ(ViewFor(Root(), MouseEvent(mWindow, 40, 40)), nullptr);
}

TEST_F(ViewClicks, AClickIsOneOfThePerson)
{
    ControlRef theButton = NewPushButton();
    const Rect theBounds = MakeRect(200, 10, 280, 30);
    SetControlBounds(theButton, &theBounds);
    Watch(theButton, "button", kWithoutHilite);
    EXPECT_EQ(HIViewClick(theButton, MouseEvent(mWindow, 210, 20).Get()), noErr);
    Mouse(kEventMouseUp, 210, 20);
    EXPECT_EQ(TakeLog().back(), "button: Hit");
}

TEST_F(ViewClicks, OtherEventsAreNone)
{
    HIViewRef theView = nullptr;
    const MouseEvent thePress(mWindow, 40, 40);
    EXPECT_EQ(HIViewClick(nullptr, thePress.Get()), errUnknownControl);
    EXPECT_EQ(HIViewClick(mInner, MouseEvent(mWindow, 40, 40, kEventMouseMoved).Get()), paramErr);
    EXPECT_EQ(HIViewClick(mInner, TestEvent().Get()), paramErr);
    EXPECT_EQ(HIViewClick(mInner, TestEvent(kEventClassMouse, kEventMouseDown).Get()), paramErr);
    EXPECT_EQ(HIViewClick(mInner, nullptr), paramErr);
    EXPECT_EQ(HIViewGetViewForMouseEvent(mInner, nullptr, &theView), paramErr);
    EXPECT_EQ(HIViewGetViewForMouseEvent(nullptr, thePress.Get(), &theView), errUnknownControl);
    EXPECT_EQ(HIViewGetViewForMouseEvent(mInner, thePress.Get(), nullptr), paramErr);
    EXPECT_EQ(HIViewRemoveFromSuperview(mInner), noErr);
    EXPECT_EQ(HIViewClick(mInner, thePress.Get()), paramErr);
    DisposeControl(mInner);
}
