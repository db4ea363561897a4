// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// When views are drawn, and what becomes of it.

#include "Views/DrawingTestSupport.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <Simulation/UserSimulator.h>

using DrawnView = DrawingTest;

namespace {

const Rect kBounds = {10, 20, 30, 50}; // 30 wide and 20 high

std::string TextOfFile(const std::string& thePath)
{
    std::ifstream theFile(thePath, std::ios::binary);
    return {std::istreambuf_iterator<char>(theFile), {}};
}

} // namespace

TEST_F(DrawnView, ANewOneIsDrawnOnceBeforeTheLoopWaits)
{
    NewFilledPane(kBounds, "pane");
    EXPECT_EQ(TakeLog(), Log());
    EXPECT_EQ(Draws(), Log(1, "pane: 0, 0, 30, 20"));
    EXPECT_EQ(Draws(), Log());
}

TEST_F(DrawnView, ItIsNotDrawnWhileThereAreEvents)
{
    const ControlRef thePane = NewFilledPane(kBounds, "pane");
    EventRef theEvent = nullptr;
    CreateEvent(nullptr, 'test', 1, 0, kEventAttributeNone, &theEvent);
    PostEventToQueue(GetMainEventQueue(), theEvent, kEventPriorityStandard);
    ReleaseEvent(theEvent);
    while (ReceiveNextEvent(0, nullptr, 0, true, &theEvent) == noErr) {
        ReleaseEvent(theEvent);
        EXPECT_EQ(TakeLog(), Log());
        EXPECT_TRUE(HIViewGetNeedsDisplay(thePane));
    }
    EXPECT_EQ(TakeLog().size(), 1u);
    EXPECT_FALSE(HIViewGetNeedsDisplay(thePane));
}

TEST_F(DrawnView, OriginAndDirectionAreThoseOfTheView)
{
    const ControlRef thePane = NewPane(kBounds);
    DrawWith(thePane, "pane", [](CGContextRef theContext) {
        CGContextSetRGBFillColor(theContext, 0, 0, 1, 1);
        CGContextFillRect(theContext, CGRectMake(1, 2, 3, 4));
    });
    RunLoop();
    const auto thePicture = PictureOf(thePane);
    ASSERT_NE(thePicture, nullptr);
    EXPECT_EQ(thePicture->theWidth, 30);
    EXPECT_EQ(thePicture->theHeight, 20);
    EXPECT_EQ(thePicture->theScale, 1);
    EXPECT_EQ(PixelAt(*thePicture, 1, 2), 0xFF0000FFu);
    EXPECT_EQ(PixelAt(*thePicture, 3, 5), 0xFF0000FFu);
    EXPECT_EQ(PixelAt(*thePicture, 0, 2), 0u);
    EXPECT_EQ(PixelAt(*thePicture, 1, 1), 0u);
    EXPECT_EQ(PixelAt(*thePicture, 1, 6), 0u);
    EXPECT_EQ(PixelAt(*thePicture, 4, 2), 0u);
}

TEST_F(DrawnView, WhatWasMarkedIsDrawnAndTheRestStays)
{
    const ControlRef thePane = NewPane(kBounds);
    CGFloat theRed = 1;
    CGFloat theHeight = 15;
    DrawWith(thePane, "pane", [&](CGContextRef theContext) {
        CGContextSetRGBFillColor(theContext, theRed, 0, 0, 1);
        CGContextFillRect(theContext, CGRectMake(0, 0, 100, theHeight));
    });
    Draws();
    theRed = 0;
    theHeight = 12;
    for (const CGRect& thePart : {CGRectMake(2, 3, 4, 5), CGRectMake(8, 10, 1.5, 8)}) {
        EXPECT_EQ(HIViewSetNeedsDisplayInRect(thePane, &thePart, true), noErr);
    }
    EXPECT_EQ(Draws(), Log(1, "pane: 2, 3, 10, 18"));
    const auto thePicture = PictureOf(thePane);
    ASSERT_NE(thePicture, nullptr);
    EXPECT_EQ(PixelAt(*thePicture, 2, 3), 0xFF000000u);
    EXPECT_EQ(PixelAt(*thePicture, 9, 11), 0xFF000000u);
    EXPECT_EQ(PixelAt(*thePicture, 9, 12), 0u);
    EXPECT_EQ(PixelAt(*thePicture, 10, 14), 0xFFFF0000u);
    EXPECT_EQ(PixelAt(*thePicture, 1, 3), 0xFFFF0000u);
    EXPECT_EQ(PixelAt(*thePicture, 10, 3), 0xFFFF0000u);
    EXPECT_EQ(PixelAt(*thePicture, 2, 2), 0xFFFF0000u);
}

TEST_F(DrawnView, EveryChangeOfItsStateIsDrawnAndNothingElse)
{
    const ControlRef thePane = NewFilledPane(kBounds, "pane");
    const ControlRef theOther = NewFilledPane({50, 20, 60, 30}, "other");
    Draws();
    const Log theOne(1, "pane: 0, 0, 30, 20");
    SetControl32BitMaximum(thePane, 100);
    EXPECT_EQ(Draws(), theOne);
    SetControl32BitValue(thePane, 7);
    SetControl32BitValue(thePane, 8);
    EXPECT_EQ(Draws(), theOne);
    SetControl32BitValue(thePane, 8);
    EXPECT_EQ(Draws(), Log());
    SetControlTitleWithCFString(thePane, CFSTR("Title"));
    EXPECT_EQ(Draws(), theOne);
    HiliteControl(thePane, 1);
    EXPECT_EQ(Draws(), theOne);
    DisableControl(thePane);
    EXPECT_EQ(Draws(), theOne);
    MoveControl(thePane, 100, 100);
    EXPECT_EQ(Draws(), Log());
    SizeControl(thePane, 40, 20);
    EXPECT_EQ(Draws(), Log(1, "pane: 0, 0, 40, 20"));
    DisposeControl(theOther);
    EXPECT_EQ(Draws(), Log());
}

TEST_F(DrawnView, ItWaitsUntilItCanBeSeen)
{
    const ControlRef thePane = NewFilledPane(kBounds, "pane");
    HideWindow(mWindow);
    EXPECT_EQ(Draws(), Log());
    ShowWindow(mWindow);
    EXPECT_EQ(Draws().size(), 1u);
    HideControl(thePane);
    EXPECT_EQ(HIViewSetNeedsDisplay(thePane, true), noErr);
    EXPECT_EQ(Draws(), Log());
    ShowControl(thePane);
    EXPECT_EQ(Draws().size(), 1u);
}

TEST_F(DrawnView, ThoseThatHoldOthersAreDrawnFirst)
{
    const ControlRef theInner = NewFilledPane({0, 0, 10, 10}, "inner");
    const ControlRef theOuter = NewFilledPane({0, 0, 40, 40}, "outer");
    ASSERT_EQ(HIViewAddSubview(theOuter, theInner), noErr);
    DrawWith(Root(), "root");
    HIViewSetNeedsDisplay(Root(), true);
    EXPECT_EQ(Draws(), (Log{"root: 0, 0, 400, 300", "outer: 0, 0, 40, 40", "inner: 0, 0, 10, 10"}));
}

TEST_F(DrawnView, OneWithoutHandlerHasNoPicture)
{
    const ControlRef thePane = NewPane(kBounds);
    RunLoop();
    EXPECT_EQ(PictureOf(thePane), nullptr);
    EXPECT_FALSE(HIViewGetNeedsDisplay(thePane));
    EXPECT_EQ(PictureOf(NewPushButton()), nullptr);
}

TEST_F(DrawnView, WhatIsMarkedByAHandlerIsDrawnNext)
{
    const ControlRef theFirst = NewPane(kBounds);
    const ControlRef theSecond = NewFilledPane({50, 20, 60, 30}, "second");
    DrawWith(theFirst, "first", [=](CGContextRef) {
        HIViewSetNeedsDisplay(theFirst, true);
        HIViewSetNeedsDisplay(theSecond, true);
    });
    const Log theRound = {"first: 0, 0, 30, 20", "second: 0, 0, 10, 10"};
    EXPECT_EQ(Draws(), (Log{theRound[0], theRound[1], theRound[0]}));
    EXPECT_EQ(Draws(), (Log{theRound[0], theRound[1], theRound[0]}));
}

TEST_F(DrawnView, AHandlerMayDisposeItHideItAndRenderIt)
{
    const ControlRef theGone = NewPane(kBounds);
    const ControlRef theHidden = NewPane(kBounds);
    const ControlRef theEager = NewPane(kBounds);
    DrawWith(theGone, "gone", [=](CGContextRef) {
        HideControl(theHidden);
        DisposeControl(theGone);
    });
    DrawWith(theHidden, "hidden");
    DrawWith(theEager, "eager", [=](CGContextRef) { Draw1Control(theEager); });
    const Log theDraws = Draws();
    EXPECT_EQ(std::count(theDraws.begin(), theDraws.end(), "gone: 0, 0, 30, 20"), 1);
    EXPECT_EQ(std::count(theDraws.begin(), theDraws.end(), "hidden: 0, 0, 30, 20"), 0);
    EXPECT_FALSE(IsValidControlHandle(theGone));
}

TEST_F(DrawnView, AContextThatTheProgramKeepsStaysGood)
{
    const ControlRef thePane = NewPane(kBounds);
    CGContextRef theKept = nullptr;
    DrawWith(thePane, "pane", [&](CGContextRef theContext) { theKept = CGContextRetain(theContext); });
    RunLoop();
    ASSERT_NE(theKept, nullptr);
    DisposeControl(thePane);
    CGContextFillRect(theKept, CGRectMake(0, 0, 30, 20));
    CGContextRelease(theKept);
}

TEST_F(DrawnView, WhatIsVeryFarAwayIsNotDrawn)
{
    const ControlRef thePane = NewFilledPane({0, 0, 10, 30000}, "pane");
    EXPECT_EQ(Draws(), Log(1, "pane: 0, 0, 4096, 10"));
    EXPECT_EQ(PictureOf(thePane)->theWidth, 4096);
}

TEST_F(DrawnView, ItIsDrawnAsFineAsTheScreen)
{
    class FineScreen : public Host::HeadlessPresenter
    {
    public:
        int ScaleOf(Host::ObjectId) const override { return 2; }
    };
    const ControlRef thePane = NewFilledPane(kBounds, "pane");
    ASSERT_TRUE(Host::PresenterRegistry::Use(std::make_unique<FineScreen>()));
    EXPECT_EQ(Draws(), Log(1, "pane: 0, 0, 30, 20"));
    const auto thePicture = PictureOf(thePane);
    ASSERT_TRUE(Host::PresenterRegistry::Use(Host::HeadlessPresenter::Make()));
    ASSERT_NE(thePicture, nullptr);
    EXPECT_EQ(thePicture->theScale, 2);
    EXPECT_EQ(thePicture->theWidth, 60);
    EXPECT_EQ(PixelAt(*thePicture, 59, 39), 0xFFFF0000u);
    EXPECT_EQ(PictureOf(thePane), thePicture);
}

TEST_F(DrawnView, APersonCanKeepThePictureOfAViewAndOfItsWindow)
{
    const ControlRef thePane = NewFilledPane(kBounds, "pane");
    RunLoop();
    const std::string thePath = testing::TempDir() + "drawn-view.png";
    EXPECT_TRUE(Host::UserSimulator().SavePicture(thePane, thePath));
    EXPECT_EQ(TextOfFile(thePath), Host::PngOf(*PictureOf(thePane)));
    EXPECT_TRUE(Host::UserSimulator().SavePicture(mWindow, thePath));
    Host::HeadlessSnapshot theScreen;
    Host::PresenterRegistry::ReplayLooks(theScreen);
    const Host::Picture theWhole = theScreen.DrawingOf(theScreen.WindowsFrontToBack().front()->theId);
    EXPECT_EQ(TextOfFile(thePath), Host::PngOf(theWhole));
    EXPECT_EQ(theWhole.theWidth, 400);
    EXPECT_EQ(PixelAt(theWhole, 20, 10), 0xFFFF0000u);
    EXPECT_EQ(PixelAt(theWhole, 49, 29), 0xFFFF0000u);
    EXPECT_EQ(PixelAt(theWhole, 19, 10), 0xFFFFFFFFu);
    EXPECT_EQ(PixelAt(theWhole, 50, 29), 0xFFFFFFFFu);
    HideControl(thePane);
    Host::PresenterRegistry::ReplayLooks(theScreen);
    EXPECT_EQ(PixelAt(theScreen.DrawingOf(theScreen.WindowsFrontToBack().front()->theId), 20, 10),
              0xFFFFFFFFu);
}

TEST_F(DrawnView, AHandlerMayEndTheLoopAndPostWhatItWaitsFor)
{
    const ControlRef thePane = NewPane(kBounds);
    DrawWith(thePane, "pane", [](CGContextRef) { QuitEventLoop(GetCurrentEventLoop()); });
    EXPECT_EQ(RunCurrentEventLoop(0), eventLoopQuitErr);
    const ControlRef theOther = NewPane(kBounds);
    DrawWith(theOther, "other", [](CGContextRef) {
        EventRef theEvent = nullptr;
        CreateEvent(nullptr, 'test', 1, 0, kEventAttributeNone, &theEvent);
        PostEventToQueue(GetMainEventQueue(), theEvent, kEventPriorityStandard);
        ReleaseEvent(theEvent);
    });
    const EventTypeSpec theType = {'test', 1};
    EventRef theEvent = nullptr;
    EXPECT_EQ(ReceiveNextEvent(1, &theType, 0, true, &theEvent), noErr);
    ReleaseEvent(theEvent);
}
