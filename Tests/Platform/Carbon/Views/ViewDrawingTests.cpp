// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "DrawingTestSupport.h"

#include <cmath>
#include <limits>

namespace {

const Rect kBounds = {10, 20, 30, 50}; // 30 wide and 20 high

class ViewDrawing : public DrawingTest
{
protected:
    ViewDrawing()
        : mPane(NewFilledPane(kBounds, "pane"))
    {
        Draws();
    }

    ControlRef mPane;
};

} // namespace

TEST_F(ViewDrawing, MarksAreTakenAway)
{
    const CGRect theSmall = CGRectMake(0, 0, 5, 5);
    const CGRect theLarge = CGRectMake(0, 0, 6, 6);
    EXPECT_EQ(HIViewSetNeedsDisplayInRect(mPane, &theLarge, true), noErr);
    EXPECT_TRUE(HIViewGetNeedsDisplay(mPane));
    EXPECT_EQ(HIViewSetNeedsDisplayInRect(mPane, &theSmall, false), noErr);
    EXPECT_TRUE(HIViewGetNeedsDisplay(mPane));
    EXPECT_EQ(HIViewSetNeedsDisplayInRect(mPane, &theLarge, false), noErr);
    EXPECT_FALSE(HIViewGetNeedsDisplay(mPane));
    HIViewSetNeedsDisplay(mPane, true);
    HIViewSetNeedsDisplay(mPane, false);
    EXPECT_EQ(Draws(), Log());
}

TEST_F(ViewDrawing, RegionsAreMarked)
{
    RgnHandle theRegion = NewRgn();
    SetRectRgn(theRegion, 1, 2, 11, 12);
    EXPECT_EQ(HIViewSetNeedsDisplayInRegion(mPane, theRegion, true), noErr);
    EXPECT_EQ(Draws(), Log(1, "pane: 1, 2, 11, 12"));
    EXPECT_EQ(HIViewSetNeedsDisplayInRegion(mPane, nullptr, true), noErr);
    EXPECT_EQ(Draws(), Log());
    DisposeRgn(theRegion);
}

TEST_F(ViewDrawing, OnlyWhatIsInsideIsMarked)
{
    const CGFloat theNone = std::numeric_limits<CGFloat>::quiet_NaN();
    const CGFloat theHuge = std::numeric_limits<CGFloat>::max();
    CGRect thePart = CGRectMake(25, -5, theHuge, 10);
    HIViewSetNeedsDisplayInRect(mPane, &thePart, true);
    EXPECT_EQ(Draws(), Log(1, "pane: 25, 0, 30, 5"));
    thePart = CGRectMake(30, 0, 5, 5);
    HIViewSetNeedsDisplayInRect(mPane, &thePart, true);
    EXPECT_EQ(Draws(), Log());
    thePart = CGRectMake(theNone, 0, 5, 5);
    HIViewSetNeedsDisplayInRect(mPane, &thePart, true);
    EXPECT_EQ(Draws(), Log(1, "pane: 0, 0, 30, 5"));
    thePart = CGRectMake(-theHuge, -theHuge, 1, 1);
    HIViewSetNeedsDisplayInRect(mPane, &thePart, true);
    EXPECT_EQ(Draws(), Log());
}

TEST_F(ViewDrawing, DrawingCanBeDisabled)
{
    HIViewSetNeedsDisplay(mPane, true);
    EXPECT_TRUE(HIViewIsDrawingEnabled(mPane));
    EXPECT_EQ(HIViewSetDrawingEnabled(mPane, false), noErr);
    EXPECT_FALSE(HIViewIsDrawingEnabled(mPane));
    HIViewSetNeedsDisplay(mPane, true);
    Draw1Control(mPane);
    EXPECT_EQ(Draws(), Log());
    EXPECT_EQ(HIViewSetDrawingEnabled(mPane, true), noErr);
    EXPECT_EQ(Draws(), Log());
    HIViewSetNeedsDisplay(mPane, true);
    EXPECT_EQ(Draws().size(), 1u);
}

TEST_F(ViewDrawing, RenderingDrawsWhatIsMarkedNow)
{
    const ControlRef theInner = NewFilledPane({0, 0, 10, 10}, "inner");
    const ControlRef theOther = NewFilledPane({60, 0, 70, 10}, "other");
    HIViewAddSubview(mPane, theInner);
    EXPECT_EQ(HIViewRender(mPane), noErr);
    EXPECT_EQ(TakeLog(), Log(1, "inner: 0, 0, 10, 10"));
    EXPECT_EQ(HIWindowFlush(mWindow), noErr);
    EXPECT_EQ(TakeLog(), Log(1, "other: 0, 0, 10, 10"));
    EXPECT_EQ(Draws(), Log());
    DisposeControl(theOther);
}

TEST_F(ViewDrawing, ControlsAreDrawnAgainWithAllInThem)
{
    const ControlRef theInner = NewFilledPane({0, 0, 10, 10}, "inner");
    HIViewAddSubview(mPane, theInner);
    Draws();
    DrawOneControl(mPane);
    EXPECT_EQ(TakeLog(), (Log{"pane: 0, 0, 30, 20", "inner: 0, 0, 10, 10"}));
    DrawControls(mWindow);
    EXPECT_EQ(TakeLog(), (Log{"pane: 0, 0, 30, 20", "inner: 0, 0, 10, 10"}));
    Draw1Control(NewPushButton());
    EXPECT_EQ(Draws(), Log());
}

TEST_F(ViewDrawing, WhatIsNoViewIsToldSo)
{
    const CGRect thePart = CGRectMake(0, 0, 5, 5);
    EXPECT_EQ(HIViewSetNeedsDisplay(nullptr, true), errUnknownControl);
    EXPECT_EQ(HIViewSetNeedsDisplayInRect(nullptr, &thePart, true), errUnknownControl);
    EXPECT_EQ(HIViewSetNeedsDisplayInRect(mPane, nullptr, true), paramErr);
    EXPECT_EQ(HIViewSetNeedsDisplayInRegion(nullptr, nullptr, true), errUnknownControl);
    EXPECT_EQ(HIViewSetDrawingEnabled(nullptr, true), errUnknownControl);
    EXPECT_EQ(HIViewRender(nullptr), errUnknownControl);
    EXPECT_EQ(HIWindowFlush(nullptr), errInvalidWindowRef);
    EXPECT_FALSE(HIViewGetNeedsDisplay(nullptr));
    EXPECT_FALSE(HIViewIsDrawingEnabled(nullptr));
    EXPECT_TRUE(HIViewIsDrawingEnabled(NewPushButton()));
    Draw1Control(nullptr);
    DrawControls(nullptr);
}
