// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Sliders, scroll bars, progress bars and little arrows.

#include "ManagerTestSupport.h"

#include <cstdint>

namespace {

class Ranges : public ControlKindTest
{
protected:
    ControlRef NewScrollBar(SInt32 theValue = 50, bool theIsLive = false,
                            ControlActionUPP theAction = nullptr)
    {
        // 16 by 200: arrows of 16, a track of 168.
        const Rect theBounds = MakeRect(300, 0, 316, 200);
        ControlRef theControl = nullptr;
        EXPECT_EQ(CreateScrollBarControl(mWindow, &theBounds, theValue, 0, 100, 0, theIsLive, theAction,
                                         &theControl),
                  noErr);
        return theControl;
    }
};

} // namespace

// --- Sliders -----------------------------------------------------------------------------------------

TEST_F(Ranges, ADragOfASliderSetsItOnceAtTheEnd)
{
    ControlRef theSlider = NewSlider(0, 0, 10); // the indicator's middle travels from 18 to 118
    Watch(theSlider, "slider", kWithoutHilite);
    Mouse(kEventMouseDown, 18, 20);
    Mouse(kEventMouseDragged, 38, 20);
    Mouse(kEventMouseDragged, 68, 20);
    EXPECT_EQ(GetControl32BitValue(theSlider), 0);
    Mouse(kEventMouseUp, 88, 20);
    EXPECT_EQ(GetControl32BitValue(theSlider), 7);
    EXPECT_EQ(TakeLog(), (Log{"slider: ValueFieldChanged", "slider: Hit"}));
}

TEST_F(Ranges, ADragOfALiveSliderSetsItStepByStep)
{
    ControlRef theSlider = NewSlider(0, 0, 10, true);
    SetControlAction(theSlider, NoteAction);
    Watch(theSlider, "slider", kWithoutHilite);
    Mouse(kEventMouseDown, 18, 20);
    EXPECT_EQ(Actions(), std::vector<int>{});
    Mouse(kEventMouseDragged, 38, 20);
    EXPECT_EQ(GetControl32BitValue(theSlider), 2);
    Mouse(kEventMouseDragged, 39, 20);
    Mouse(kEventMouseDragged, 1000, 900);
    EXPECT_EQ(GetControl32BitValue(theSlider), 10);
    Mouse(kEventMouseUp, 1000, 900);
    EXPECT_EQ(TakeLog(), (Log{"slider: ValueFieldChanged", "slider: ValueFieldChanged", "slider: Hit"}));
    EXPECT_EQ(Actions(), (std::vector<int>{kControlIndicatorPart, kControlIndicatorPart}));
}

TEST_F(Ranges, APressBesideTheIndicatorBringsItThere)
{
    ControlRef theSlider = NewSlider(0, 0, 10);
    Click(88, 20);
    EXPECT_EQ(GetControl32BitValue(theSlider), 7);
}

TEST_F(Ranges, APressOnTheIndicatorsEdgeDoesNotMoveIt)
{
    ControlRef theSlider = NewSlider(5, 0, 10);
    Click(62, 20);
    EXPECT_EQ(GetControl32BitValue(theSlider), 5);
    Click(75, 20);
    EXPECT_EQ(GetControl32BitValue(theSlider), 5);
}

TEST_F(Ranges, AnUprightSliderHasItsMinimumAtTheBottom)
{
    const Rect theBounds = MakeRect(200, 10, 220, 126);
    ControlRef theSlider = nullptr;
    CreateSliderControl(mWindow, &theBounds, 5, 0, 10, kControlSliderDoesNotPoint, 0, false, nullptr,
                        &theSlider);
    Click(210, 11);
    EXPECT_EQ(GetControl32BitValue(theSlider), 10);
    Click(210, 124);
    EXPECT_EQ(GetControl32BitValue(theSlider), 0);
}

TEST_F(Ranges, TheWidestRangeIsDraggedWithoutTrouble)
{
    ControlRef theSlider = NewSlider(0, INT32_MIN, INT32_MAX);
    Click(500, 20);
    Click(12, 20);
    EXPECT_EQ(GetControl32BitValue(theSlider), SInt32{INT32_MIN});
    Click(125, 20);
    EXPECT_EQ(GetControl32BitValue(theSlider), SInt32{INT32_MAX});
    const Rect theTiny = MakeRect(200, 200, 203, 203);
    SetControlBounds(theSlider, &theTiny);
    Click(201, 201);
    EXPECT_EQ(GetControl32BitValue(theSlider), SInt32{INT32_MAX});
}

TEST_F(Ranges, SlidersRefuseBadRangesAndTickMarksWithoutAPoint)
{
    const Rect theBounds = MakeRect(0, 0, 100, 20);
    const auto theCreate = [&](SInt32 theMinimum, SInt32 theMaximum, ControlSliderOrientation theOrientation,
                               UInt16 theTicks) {
        ControlRef theSlider = InventedReference<ControlRef>();
        const OSStatus theStatus = CreateSliderControl(mWindow, &theBounds, 0, theMinimum, theMaximum,
                                                       theOrientation, theTicks, false, nullptr, &theSlider);
        EXPECT_EQ(theSlider == nullptr, theStatus != noErr);
        return theStatus;
    };
    EXPECT_EQ(theCreate(10, 0, kControlSliderPointsDownOrRight, 0), paramErr);
    EXPECT_EQ(theCreate(0, 10, kControlSliderDoesNotPoint, 5), paramErr);
    EXPECT_EQ(theCreate(0, 10, 3, 0), paramErr);
    EXPECT_EQ(theCreate(0, 10, kControlSliderPointsUpOrLeft, 5), noErr);
    EXPECT_EQ(theCreate(0, 0, kControlSliderDoesNotPoint, 0), noErr);
    EXPECT_EQ(CreateSliderControl(mWindow, &theBounds, 0, 0, 1, 9, 0, false, nullptr, nullptr), paramErr);
}

// --- Scroll bars -------------------------------------------------------------------------------------

namespace {

struct ScrollRow
{
    const char* theName;
    int theDown;
    ControlPartCode thePart;
};

// The thumb of 16 stands in the middle of the track, from 92 to 108.
const ScrollRow kScrollRows[] = {
    {"Up", 5, kControlUpButtonPart},       {"PageUp", 50, kControlPageUpPart},
    {"Thumb", 100, kControlIndicatorPart}, {"PageDown", 150, kControlPageDownPart},
    {"Down", 195, kControlDownButtonPart},
};

} // namespace

TEST_F(Ranges, AScrollBarHasFiveParts)
{
    ControlRef theBar = NewScrollBar();
    for (const ScrollRow& theRow : kScrollRows) {
        const Point thePoint = {static_cast<short>(theRow.theDown), 308};
        EXPECT_EQ(TestControl(theBar, thePoint), theRow.thePart) << theRow.theName;
    }
}

TEST_F(Ranges, ArrowsAndPagesOfAScrollBarOnlyCallTheActionOnPurpose)
{
    ControlRef theBar = NewScrollBar(50, false, NoteAction);
    for (const ScrollRow& theRow : kScrollRows) {
        if (theRow.thePart != kControlIndicatorPart) {
            Click(308, theRow.theDown);
            EXPECT_EQ(GetControl32BitValue(theBar), 50);
        }
    }
    EXPECT_EQ(Actions(), (std::vector<int>{kControlUpButtonPart, kControlPageUpPart, kControlPageDownPart,
                                           kControlDownButtonPart}));
}

TEST_F(Ranges, TheThumbOfAScrollBarIsDragged)
{
    ControlRef theBar = NewScrollBar(0);
    Mouse(kEventMouseDown, 308, 20);
    Mouse(kEventMouseUp, 308, 20 + 76);
    EXPECT_EQ(GetControl32BitValue(theBar), 50);
    Mouse(kEventMouseDown, 308, 100);
    Mouse(kEventMouseUp, 308, -1000);
    EXPECT_EQ(GetControl32BitValue(theBar), 0);
}

TEST_F(Ranges, AViewSizeMakesTheThumbProportional)
{
    ControlRef theBar = NewScrollBar(0);
    SetControlViewSize(theBar, 100); // half of the whole: 84 of 168
    const Point theInside = {99, 308};
    const Point theOutside = {101, 308};
    EXPECT_EQ(TestControl(theBar, theInside), kControlIndicatorPart);
    EXPECT_EQ(TestControl(theBar, theOutside), kControlPageDownPart);
}

TEST_F(Ranges, AScrollBarWithNothingToScrollHasNoParts)
{
    ControlRef theBar = NewScrollBar(0);
    SetControl32BitMaximum(theBar, 0);
    const Point thePoint = {5, 308};
    EXPECT_EQ(TestControl(theBar, thePoint), kControlNoPart);
    CheckFlag(theBar, kControlScrollBarShowsArrowsTag, true);
}

// --- Progress bars and little arrows -----------------------------------------------------------------

TEST_F(Ranges, AProgressBarTakesNoPress)
{
    const Rect theBounds = MakeRect(10, 40, 110, 60);
    ControlRef theBar = nullptr;
    EXPECT_EQ(CreateProgressBarControl(mWindow, &theBounds, 50, 0, 100, true, &theBar), noErr);
    Watch(theBar, "bar", kWithoutHilite);
    Click(20, 50);
    EXPECT_EQ(TakeLog(), Log{});
    CheckFlag(theBar, kControlProgressBarIndeterminateTag, true);
    CheckFlag(theBar, kControlProgressBarAnimatingTag, true);
    EXPECT_EQ(CreateProgressBarControl(mWindow, &theBounds, 0, 1, 0, false, &theBar), paramErr);
}

TEST_F(Ranges, LittleArrowsNeverChangeTheirOwnValueOnPurpose)
{
    ControlRef theArrows = NewLittleArrows(NoteAction);
    std::vector<int> theHits;
    Watch(theArrows, "arrows", kWithoutHilite, [&](EventRef theEvent) {
        theHits.push_back(Parameter<ControlPartCode>(theEvent, kEventParamControlPart, typeControlPartCode));
        return OSStatus{eventNotHandledErr};
    });
    Click(305, 215);
    Click(305, 230);
    EXPECT_EQ(GetControl32BitValue(theArrows), 5);
    EXPECT_EQ(TakeLog(), (Log{"arrows: Hit", "arrows: Hit"}));
    EXPECT_EQ(theHits, (std::vector<int>{kControlUpButtonPart, kControlDownButtonPart}));
    EXPECT_EQ(Actions(), (std::vector<int>{kControlUpButtonPart, kControlDownButtonPart}));
}

TEST_F(Ranges, LittleArrowsOnlyKeepTheIncrement)
{
    ControlRef theArrows = NewLittleArrows();
    SInt32 theIncrement = 0;
    EXPECT_EQ(GetControlData(theArrows, 0, kControlLittleArrowsIncrementValueTag, sizeof theIncrement,
                             &theIncrement, nullptr),
              noErr);
    EXPECT_EQ(theIncrement, 3);
    theIncrement = -8;
    EXPECT_EQ(SetControlData(theArrows, 0, kControlLittleArrowsIncrementValueTag, sizeof theIncrement,
                             &theIncrement),
              noErr);
    EXPECT_EQ(GetControlData(theArrows, 0, kControlLittleArrowsIncrementValueTag, 2, &theIncrement, nullptr),
              errDataSizeMismatch);
}

// Relevance bars and chasing arrows ----------------------------------------------------------------------

TEST_F(Ranges, ARelevanceBarKeepsItsValueWithinItsRangeAndTakesNoPress)
{
    const Rect theBounds = MakeRect(20, 200, 120, 216);
    ControlRef theBar = nullptr;
    EXPECT_EQ(CreateRelevanceBarControl(mWindow, &theBounds, 90, 10, 50, &theBar), noErr);
    EXPECT_EQ(GetControl32BitValue(theBar), 50);
    EXPECT_EQ(TestControl(theBar, Point{208, 60}), kControlNoPart);
    EXPECT_EQ(SetKeyboardFocus(mWindow, theBar, kControlFocusNextPart), errCouldntSetFocus);
    ControlRef theOther = InventedReference<ControlRef>();
    EXPECT_EQ(CreateRelevanceBarControl(mWindow, &theBounds, 0, 50, 10, &theOther), paramErr);
    EXPECT_EQ(theOther, nullptr);
}

TEST_F(Ranges, ChasingArrowsTurnUntilTheyAreToldNotTo)
{
    const Rect theBounds = MakeRect(20, 200, 36, 216);
    ControlRef theArrows = nullptr;
    EXPECT_EQ(CreateChasingArrowsControl(mWindow, &theBounds, &theArrows), noErr);
    CheckFlag(theArrows, kControlChasingArrowsAnimatingTag, true);
    EXPECT_EQ(TestControl(theArrows, Point{208, 28}), kControlNoPart);
}
