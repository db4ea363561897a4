// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What the kinds of controls have of their own: creation, data, and what a person does with the mouse.

#include "ManagerTestSupport.h"

#include <cstdint>

namespace {

class ControlKinds : public ManagerTest
{
protected:
    static bool Flag(ControlRef theControl, ResType theTag)
    {
        Boolean theFlag = 2;
        Size theSize = 0;
        EXPECT_EQ(GetControlData(theControl, 0, theTag, sizeof theFlag, &theFlag, &theSize), noErr);
        EXPECT_EQ(theSize, 1);
        return theFlag != 0;
    }

    static void CheckFlag(ControlRef theControl, ResType theTag, bool theStart)
    {
        EXPECT_EQ(Flag(theControl, theTag), theStart);
        const Boolean theOther = !theStart;
        EXPECT_EQ(SetControlData(theControl, 0, theTag, sizeof theOther, &theOther), noErr);
        EXPECT_EQ(Flag(theControl, theTag), !theStart);
        EXPECT_EQ(SetControlData(theControl, 0, theTag, 2, "ab"), errDataSizeMismatch);
        Boolean theFlag = 0;
        EXPECT_EQ(GetControlData(theControl, 0, theTag, 0, &theFlag, nullptr), errDataSizeMismatch);
    }

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

    ControlRef NewLittleArrows(ControlActionUPP theAction = nullptr)
    {
        const Rect theBounds = MakeRect(300, 210, 313, 234);
        ControlRef theControl = nullptr;
        EXPECT_EQ(CreateLittleArrowsControl(mWindow, &theBounds, 5, 0, 9, 3, &theControl), noErr);
        SetControlAction(theControl, theAction);
        return theControl;
    }

    // The parts that action procedures were called with.
    static std::vector<int>& Actions()
    {
        static std::vector<int> theActions;
        return theActions;
    }

    static void NoteAction(ControlRef, ControlPartCode thePart) { Actions().push_back(thePart); }

    ControlKinds() { Actions().clear(); }
};

const std::vector<EventTypeSpec> kWithoutHilite = {{kEventClassControl, kEventControlValueFieldChanged},
                                                   {kEventClassControl, kEventControlHit},
                                                   {kEventClassCommand, kEventCommandProcess}};

} // namespace

// --- Push buttons ------------------------------------------------------------------------------------

TEST_F(ControlKinds, AClickOnAButtonHitsItAndSendsItsCommand)
{
    ControlRef theButton = NewPushButton();
    SetControlCommandID(theButton, 'doit');
    HICommandExtended theCommand = {};
    ControlPartCode thePart = 0;
    UInt32 theClickCount = 0;
    Watch(theButton, "button", EventWatch::ControlEvents(), [&](EventRef theEvent) {
        if (GetEventClass(theEvent) == kEventClassCommand) {
            theCommand = Parameter<HICommandExtended>(theEvent, kEventParamDirectObject, typeHICommand);
        } else if (GetEventKind(theEvent) == kEventControlHit) {
            thePart = Parameter<ControlPartCode>(theEvent, kEventParamControlPart, typeControlPartCode);
            theClickCount = Parameter<UInt32>(theEvent, kEventParamClickCount, typeUInt32);
        }
        return OSStatus{eventNotHandledErr};
    });
    Click(20, 50);
    EXPECT_EQ(TakeLog(), (Log{"button: Click", "button: Track", "button: HiliteChanged",
                              "button: HiliteChanged", "button: Hit", "button: CommandProcess"}));
    EXPECT_EQ(UInt32{theCommand.attributes}, UInt32{kHICommandFromControl});
    EXPECT_EQ(UInt32{theCommand.commandID}, UInt32{'doit'});
    EXPECT_EQ(ControlRef{theCommand.source.control}, theButton);
    EXPECT_EQ(thePart, kControlButtonPart);
    EXPECT_EQ(theClickCount, 1u);
}

TEST_F(ControlKinds, AHitThatSomebodyHandledSendsNoCommand)
{
    ControlRef theButton = NewPushButton();
    SetControlCommandID(theButton, 'doit');
    Watch(mWindow, "window", kWithoutHilite, [](EventRef) { return OSStatus{noErr}; });
    Click(20, 50);
    EXPECT_EQ(TakeLog(), Log{"window: Hit"});
}

TEST_F(ControlKinds, ACommandClimbsFromItsControlToTheApplication)
{
    ControlRef theButton = NewPushButton();
    SetControlCommandID(theButton, 'doit');
    EventWatch theApplication(GetApplicationEventTarget(), "application", mLog, kWithoutHilite);
    Watch(mWindow, "window", {{kEventClassCommand, kEventCommandProcess}});
    Click(20, 50);
    EXPECT_EQ(TakeLog(), (Log{"application: Hit", "window: CommandProcess", "application: CommandProcess"}));
}

TEST_F(ControlKinds, AReleaseOutsideIsNoClick)
{
    ControlRef theButton = NewPushButton();
    Watch(theButton, "button", EventWatch::ControlNotifications());
    Mouse(kEventMouseDown, 20, 50);
    EXPECT_EQ(GetControlHilite(theButton), kControlButtonPart);
    Mouse(kEventMouseDragged, 20, 300);
    EXPECT_EQ(GetControlHilite(theButton), 0);
    Mouse(kEventMouseDragged, 20, 51);
    EXPECT_EQ(GetControlHilite(theButton), kControlButtonPart);
    Mouse(kEventMouseUp, 20, 300);
    EXPECT_EQ(GetControlHilite(theButton), 0);
    EXPECT_EQ(TakeLog(), (Log{"button: Click", "button: Track", "button: HiliteChanged",
                              "button: HiliteChanged", "button: HiliteChanged", "button: HiliteChanged"}));
}

TEST_F(ControlKinds, AButtonsDataTellsItsRoles)
{
    ControlRef theButton = NewPushButton();
    CheckFlag(theButton, kControlPushButtonDefaultTag, false);
    CheckFlag(theButton, kControlPushButtonCancelTag, false);
}

// --- Presses that do nothing -------------------------------------------------------------------------

TEST_F(ControlKinds, DisabledAndHiddenControlsTakeNoPress)
{
    ControlRef theButton = NewPushButton();
    Watch(theButton, "button", EventWatch::ControlEvents());
    DisableControl(theButton);
    TakeLog();
    Click(20, 50);
    EnableControl(theButton);
    HideControl(theButton);
    TakeLog();
    Click(20, 50);
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(ControlKinds, ADisabledControlCoversWhatIsBehindIt)
{
    ControlRef theBehind = NewPushButton("behind");
    ControlRef theFront = NewPushButton("front");
    DisableControl(theFront);
    Watch(theBehind, "behind", EventWatch::ControlEvents());
    Click(20, 50);
    EXPECT_EQ(TakeLog(), Log{});
    HideControl(theFront);
    Mouse(kEventMouseDown, 20, 50);
    EXPECT_EQ(TakeLog(), (Log{"behind: Click", "behind: Track", "behind: HiliteChanged"}));
}

TEST_F(ControlKinds, AClickThatAHandlerTakesIsNotTracked)
{
    ControlRef theButton = NewPushButton();
    Watch(theButton, "button", EventWatch::ControlEvents(), [](EventRef) { return OSStatus{noErr}; });
    Click(20, 50);
    EXPECT_EQ(TakeLog(), Log{"button: Click"});
}

TEST_F(ControlKinds, TrackingThatAHandlerTakesHitsThePartThatItGives)
{
    ControlRef theButton = NewPushButton();
    ControlPartCode thePart = 0;
    Watch(theButton, "button", EventWatch::ControlEvents(), [&](EventRef theEvent) {
        if (GetEventKind(theEvent) == kEventControlTrack) {
            const ControlPartCode theHit = 42;
            SetEventParameter(theEvent, kEventParamControlPart, typeControlPartCode, sizeof theHit, &theHit);
            return OSStatus{noErr};
        }
        thePart = Parameter<ControlPartCode>(theEvent, kEventParamControlPart, typeControlPartCode);
        return OSStatus{eventNotHandledErr};
    });
    Click(20, 50);
    EXPECT_EQ(TakeLog(), (Log{"button: Click", "button: Track", "button: Hit"}));
    EXPECT_EQ(thePart, 42);
}

TEST_F(ControlKinds, AMousePressThatAHandlerTakesReachesNoControl)
{
    ControlRef theButton = NewPushButton();
    Watch(theButton, "button", EventWatch::ControlEvents());
    EventWatch theWindow(GetWindowEventTarget(mWindow), "window", mLog, {{kEventClassMouse, kEventMouseDown}},
                         [](EventRef) { return OSStatus{noErr}; });
    Click(20, 50);
    EXPECT_EQ(TakeLog().size(), 1u);
}

TEST_F(ControlKinds, WithoutTheStandardHandlerControlsAreNotTracked)
{
    mWindow = NewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes);
    ShowWindow(mWindow);
    Watch(NewPushButton(), "button", EventWatch::ControlEvents());
    Click(20, 50);
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(ControlKinds, AControlDisposedWhileItIsHeldIsForgotten)
{
    ControlRef theCheckBox = NewCheckBox();
    Mouse(kEventMouseDown, 20, 80);
    DisposeControl(theCheckBox);
    EXPECT_EQ(Mouse(kEventMouseUp, 20, 80), eventNotHandledErr);
}

TEST_F(ControlKinds, AControlMayBeDisposedAtAnyStepOfAClick)
{
    for (const UInt32 theKind :
         {kEventControlClick, kEventControlTrack, kEventControlHiliteChanged, kEventControlGetAutoToggleValue,
          kEventControlValueFieldChanged, kEventControlHit}) {
        ControlRef theCheckBox = NewCheckBox();
        EventWatch theWatch(GetControlEventTarget(theCheckBox), "check box", mLog,
                            EventWatch::ControlEvents(), [&](EventRef theEvent) {
                                if (GetEventKind(theEvent) == theKind) {
                                    DisposeControl(theCheckBox);
                                }
                                return OSStatus{eventNotHandledErr};
                            });
        Click(20, 80);
        EXPECT_FALSE(IsValidControlHandle(theCheckBox)) << theKind;
    }
}

TEST_F(ControlKinds, AReleaseThatAHandlerKeptIsForgottenAtTheNextPress)
{
    ControlRef theButton = NewPushButton();
    Mouse(kEventMouseDown, 20, 50);
    {
        EventWatch theWindow(GetWindowEventTarget(mWindow), "window", mLog,
                             {{kEventClassMouse, kEventMouseUp}}, [](EventRef) { return OSStatus{noErr}; });
        Mouse(kEventMouseUp, 20, 50);
    }
    EXPECT_EQ(GetControlHilite(theButton), kControlButtonPart);
    NewCheckBox();
    Mouse(kEventMouseDown, 20, 80);
    EXPECT_EQ(GetControlHilite(theButton), 0);
}

// --- Check boxes and radio buttons -------------------------------------------------------------------

namespace {

struct ToggleRow
{
    const char* theName;
    bool theIsRadioButton;
    bool theAutoToggle;
    SInt32 theStart;
    SInt32 theEnd;
};

class Toggling : public ManagerTest, public testing::WithParamInterface<ToggleRow>
{
};

const ToggleRow kToggleRows[] = {
    {"CheckBoxOff", false, true, 0, 1},     {"CheckBoxOn", false, true, 1, 0},
    {"CheckBoxMixed", false, true, 2, 1},   {"CheckBoxByProgram", false, false, 1, 1},
    {"RadioButtonOff", true, true, 0, 1},   {"RadioButtonOn", true, true, 1, 1},
    {"RadioButtonMixed", true, true, 2, 1}, {"RadioButtonByProgram", true, false, 0, 0},
};

INSTANTIATE_TEST_SUITE_P(Rows, Toggling, testing::ValuesIn(kToggleRows),
                         [](const auto& theInfo) { return std::string(theInfo.param.theName); });

} // namespace

TEST_P(Toggling, HappensBeforeTheHitIsTold)
{
    const ToggleRow& theRow = GetParam();
    ControlRef theControl = theRow.theIsRadioButton ? NewRadioButton(theRow.theStart, theRow.theAutoToggle)
                                                    : NewCheckBox(theRow.theStart, theRow.theAutoToggle);
    Watch(theControl, "control", kWithoutHilite);
    Click(20, theRow.theIsRadioButton ? 110 : 80);
    EXPECT_EQ(GetControl32BitValue(theControl), theRow.theEnd);
    const Log theChange = {"control: ValueFieldChanged", "control: Hit"};
    EXPECT_EQ(TakeLog(), theRow.theStart == theRow.theEnd ? Log{"control: Hit"} : theChange);
}

TEST_F(ControlKinds, AHandlerMayChooseTheToggledValue)
{
    ControlRef theCheckBox = NewCheckBox();
    Watch(theCheckBox, "check box", {{kEventClassControl, kEventControlGetAutoToggleValue}},
          [](EventRef theEvent) {
              const SInt32 theMixed = kControlCheckBoxMixedValue;
              SetEventParameter(theEvent, kEventParamControlValue, typeSInt32, sizeof theMixed, &theMixed);
              return OSStatus{noErr};
          });
    Click(20, 80);
    EXPECT_EQ(GetControl32BitValue(theCheckBox), kControlCheckBoxMixedValue);
}

TEST_F(ControlKinds, InitialValuesOutOfRangeAreAtTheNearerEnd)
{
    EXPECT_EQ(GetControl32BitValue(NewCheckBox(7)), 2);
    EXPECT_EQ(GetControl32BitValue(NewCheckBox(-7)), 0);
    EXPECT_EQ(GetControl32BitValue(NewRadioButton(7)), 2);
}

// --- Sliders -----------------------------------------------------------------------------------------

TEST_F(ControlKinds, ADragOfASliderSetsItOnceAtTheEnd)
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

TEST_F(ControlKinds, ADragOfALiveSliderSetsItStepByStep)
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

TEST_F(ControlKinds, APressBesideTheIndicatorBringsItThere)
{
    ControlRef theSlider = NewSlider(0, 0, 10);
    Click(88, 20);
    EXPECT_EQ(GetControl32BitValue(theSlider), 7);
}

TEST_F(ControlKinds, APressOnTheIndicatorsEdgeDoesNotMoveIt)
{
    ControlRef theSlider = NewSlider(5, 0, 10);
    Click(62, 20);
    EXPECT_EQ(GetControl32BitValue(theSlider), 5);
    Click(75, 20);
    EXPECT_EQ(GetControl32BitValue(theSlider), 5);
}

TEST_F(ControlKinds, AnUprightSliderHasItsMinimumAtTheBottom)
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

TEST_F(ControlKinds, TheWidestRangeIsDraggedWithoutTrouble)
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

TEST_F(ControlKinds, SlidersRefuseBadRangesAndTickMarksWithoutAPoint)
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

TEST_F(ControlKinds, AScrollBarHasFiveParts)
{
    ControlRef theBar = NewScrollBar();
    for (const ScrollRow& theRow : kScrollRows) {
        const Point thePoint = {static_cast<short>(theRow.theDown), 308};
        EXPECT_EQ(TestControl(theBar, thePoint), theRow.thePart) << theRow.theName;
    }
}

TEST_F(ControlKinds, ArrowsAndPagesOfAScrollBarOnlyCallTheActionOnPurpose)
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

TEST_F(ControlKinds, TheThumbOfAScrollBarIsDragged)
{
    ControlRef theBar = NewScrollBar(0);
    Mouse(kEventMouseDown, 308, 20);
    Mouse(kEventMouseUp, 308, 20 + 76);
    EXPECT_EQ(GetControl32BitValue(theBar), 50);
    Mouse(kEventMouseDown, 308, 100);
    Mouse(kEventMouseUp, 308, -1000);
    EXPECT_EQ(GetControl32BitValue(theBar), 0);
}

TEST_F(ControlKinds, AViewSizeMakesTheThumbProportional)
{
    ControlRef theBar = NewScrollBar(0);
    SetControlViewSize(theBar, 100); // half of the whole: 84 of 168
    const Point theInside = {99, 308};
    const Point theOutside = {101, 308};
    EXPECT_EQ(TestControl(theBar, theInside), kControlIndicatorPart);
    EXPECT_EQ(TestControl(theBar, theOutside), kControlPageDownPart);
}

TEST_F(ControlKinds, AScrollBarWithNothingToScrollHasNoParts)
{
    ControlRef theBar = NewScrollBar(0);
    SetControl32BitMaximum(theBar, 0);
    const Point thePoint = {5, 308};
    EXPECT_EQ(TestControl(theBar, thePoint), kControlNoPart);
    CheckFlag(theBar, kControlScrollBarShowsArrowsTag, true);
}

// --- Progress bars and little arrows -----------------------------------------------------------------

TEST_F(ControlKinds, AProgressBarTakesNoPress)
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

TEST_F(ControlKinds, LittleArrowsNeverChangeTheirOwnValueOnPurpose)
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

TEST_F(ControlKinds, LittleArrowsOnlyKeepTheIncrement)
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

// --- Texts -------------------------------------------------------------------------------------------

namespace {

struct TextRow
{
    const char* theName;
    OSStatus (*theMaker)(WindowRef theWindow, const Rect* theBounds, CFStringRef theText,
                         ControlRef* theControl);
};

class TextControls : public ManagerTest, public testing::WithParamInterface<TextRow>
{
protected:
    ControlRef Make(CFStringRef theText)
    {
        const Rect theBounds = MakeRect(10, 130, 210, 150);
        ControlRef theControl = nullptr;
        EXPECT_EQ(GetParam().theMaker(mWindow, &theBounds, theText, &theControl), noErr);
        return theControl;
    }
};

const TextRow kTextRows[] = {
    {"StaticText",
     [](WindowRef theWindow, const Rect* theBounds, CFStringRef theText, ControlRef* theControl) {
         return CreateStaticTextControl(theWindow, theBounds, theText, nullptr, theControl);
     }},
    {"EditText",
     [](WindowRef theWindow, const Rect* theBounds, CFStringRef theText, ControlRef* theControl) {
         return CreateEditTextControl(theWindow, theBounds, theText, false, true, nullptr, theControl);
     }},
    {"EditUnicodeText",
     [](WindowRef theWindow, const Rect* theBounds, CFStringRef theText, ControlRef* theControl) {
         return CreateEditUnicodeTextControl(theWindow, theBounds, theText, false, nullptr, theControl);
     }},
    {"Password",
     [](WindowRef theWindow, const Rect* theBounds, CFStringRef theText, ControlRef* theControl) {
         return CreateEditUnicodeTextControl(theWindow, theBounds, theText, true, nullptr, theControl);
     }},
};

INSTANTIATE_TEST_SUITE_P(Kinds, TextControls, testing::ValuesIn(kTextRows),
                         [](const auto& theInfo) { return std::string(theInfo.param.theName); });

} // namespace

TEST_P(TextControls, ShowTheTextOfTheirCreation)
{
    EXPECT_EQ(TextIn(Make(TestString("Gr\xC3\xBC\xC3\x9F Gott"))), "Gr\xC3\xBC\xC3\x9F Gott");
    EXPECT_EQ(TextIn(Make(nullptr)), "");
}

TEST_P(TextControls, TakeAndGiveStringsWithoutTellingAnybody)
{
    ControlRef theControl = Make(CFSTR("old"));
    Watch(theControl, "text", EventWatch::ControlNotifications());
    const TestString theNew("new \xF0\x9F\x8E\xB9");
    const CFStringRef theString = theNew;
    EXPECT_EQ(SetControlData(theControl, 0, kControlEditTextCFStringTag, sizeof theString, &theString),
              noErr);
    EXPECT_EQ(CFGetRetainCount(theString), 1);
    EXPECT_EQ(TextIn(theControl), "new \xF0\x9F\x8E\xB9");
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_P(TextControls, AStringThatIsReadBelongsToTheCaller)
{
    ControlRef theControl = Make(CFSTR("text"));
    CFStringRef theString = nullptr;
    Size theSize = 0;
    EXPECT_EQ(
        GetControlData(theControl, 0, kControlEditTextCFStringTag, sizeof theString, &theString, &theSize),
        noErr);
    EXPECT_EQ(theSize, Size{sizeof theString});
    EXPECT_EQ(CFGetRetainCount(theString), 1);
    DisposeControl(theControl);
    EXPECT_EQ(TextOf(theString), "text");
    CFRelease(theString);
}

TEST_P(TextControls, TakeAndGiveBytesOfTheSystemsEncoding)
{
    ControlRef theControl = Make(CFSTR(""));
    EXPECT_EQ(SetControlData(theControl, 0, kControlEditTextTextTag, 4, "Caf\x8E"), noErr);
    EXPECT_EQ(TextIn(theControl), "Caf\xC3\xA9");
    Size theSize = 0;
    EXPECT_EQ(GetControlDataSize(theControl, 0, kControlEditTextTextTag, &theSize), noErr);
    EXPECT_EQ(theSize, 4);
    char theBuffer[4] = {'x', 'x', 'x', 'x'};
    EXPECT_EQ(GetControlData(theControl, 0, kControlEditTextTextTag, 3, theBuffer, &theSize), noErr);
    EXPECT_EQ(theSize, 4);
    EXPECT_EQ(std::string(theBuffer, 4), "Cafx");
    EXPECT_EQ(SetControlData(theControl, 0, kControlEditTextTextTag, 0, nullptr), noErr);
    EXPECT_EQ(TextIn(theControl), "");
}

TEST_P(TextControls, RefuseNullStringsAndWrongSizes)
{
    ControlRef theControl = Make(CFSTR("kept"));
    const CFStringRef theNull = nullptr;
    EXPECT_EQ(SetControlData(theControl, 0, kControlEditTextCFStringTag, sizeof theNull, &theNull), paramErr);
    EXPECT_EQ(SetControlData(theControl, 0, kControlEditTextCFStringTag, 1, &theNull), errDataSizeMismatch);
    EXPECT_EQ(SetControlData(theControl, 0, kControlEditTextTextTag, 4, nullptr), paramErr);
    EXPECT_EQ(SetControlData(theControl, 0, kControlEditTextTextTag, -4, "text"), paramErr);
    CFStringRef theString = nullptr;
    EXPECT_EQ(GetControlData(theControl, 0, kControlEditTextCFStringTag, 1, &theString, nullptr),
              errDataSizeMismatch);
    EXPECT_EQ(theString, nullptr);
    EXPECT_EQ(TextIn(theControl), "kept");
}

TEST_P(TextControls, TheirTitleIsNotTheirTextOnPurpose)
{
    ControlRef theControl = Make(CFSTR("text"));
    CFStringRef theTitle = nullptr;
    CopyControlTitleAsCFString(theControl, &theTitle);
    EXPECT_EQ(TextOf(theTitle), "");
    CFRelease(theTitle);
    SetControlTitleWithCFString(theControl, CFSTR("title"));
    EXPECT_EQ(TextIn(theControl), "text");
}

TEST_F(ControlKinds, TheEditTextPartIsAPartOfEditTextsOnly)
{
    Size theSize = 0;
    EXPECT_EQ(GetControlDataSize(NewEditText("abc"), kControlEditTextPart, kControlEditTextTextTag, &theSize),
              noErr);
    EXPECT_EQ(
        GetControlDataSize(NewStaticText("abc"), kControlEditTextPart, kControlStaticTextTextTag, &theSize),
        errInvalidPartCode);
}

TEST_F(ControlKinds, PasswordTagsBelongToPasswordFields)
{
    const Rect theBounds = MakeRect(0, 0, 100, 20);
    ControlRef theField = nullptr;
    CreateEditUnicodeTextControl(mWindow, &theBounds, CFSTR("secret"), true, nullptr, &theField);
    Size theSize = 0;
    EXPECT_EQ(GetControlDataSize(theField, 0, kControlEditTextPasswordTag, &theSize), noErr);
    EXPECT_EQ(theSize, 6);
    CFStringRef theString = nullptr;
    EXPECT_EQ(GetControlData(theField, 0, kControlEditTextPasswordCFStringTag, sizeof theString, &theString,
                             nullptr),
              noErr);
    EXPECT_EQ(TextOf(theString), "secret");
    CFRelease(theString);
    ControlRef theOpen = NewEditText("open");
    EXPECT_EQ(GetControlDataSize(theOpen, 0, kControlEditTextPasswordTag, &theSize), errDataNotSupported);
    EXPECT_EQ(GetControlDataSize(theOpen, 0, kControlEditTextPasswordCFStringTag, &theSize),
              errDataNotSupported);
}

TEST_F(ControlKinds, ASelectionStaysInsideItsText)
{
    ControlRef theField = NewEditText("hello");
    const auto theSelect = [&](SInt16 theStart, SInt16 theEnd) {
        ControlEditTextSelectionRec theSelection = {theStart, theEnd};
        EXPECT_EQ(SetControlData(theField, kControlEditTextPart, kControlEditTextSelectionTag,
                                 sizeof theSelection, &theSelection),
                  noErr);
        EXPECT_EQ(GetControlData(theField, 0, kControlEditTextSelectionTag, sizeof theSelection,
                                 &theSelection, nullptr),
                  noErr);
        return std::to_string(theSelection.selStart) + "-" + std::to_string(theSelection.selEnd);
    };
    EXPECT_EQ(theSelect(1, 3), "1-3");
    EXPECT_EQ(theSelect(2, 99), "2-5");
    EXPECT_EQ(theSelect(4, 2), "2-2");
    EXPECT_EQ(theSelect(-9, -3), "0-0");
    EXPECT_EQ(theSelect(0, 5), "0-5");
}

TEST_F(ControlKinds, InsertionsReplaceTheSelection)
{
    ControlRef theField = NewEditText("hello");
    const ControlEditTextSelectionRec theSelection = {1, 4};
    SetControlData(theField, 0, kControlEditTextSelectionTag, sizeof theSelection, &theSelection);
    const CFStringRef theString = CFSTR("ipp");
    EXPECT_EQ(SetControlData(theField, 0, kControlEditTextInsertCFStringRefTag, sizeof theString, &theString),
              noErr);
    EXPECT_EQ(TextIn(theField), "hippo");
    EXPECT_EQ(SetControlData(theField, 0, kControlEditTextInsertTextBufferTag, 1, "!"), noErr);
    EXPECT_EQ(TextIn(theField), "hipp!o");
    Size theSize = 0;
    EXPECT_EQ(GetControlDataSize(theField, 0, kControlEditTextInsertCFStringRefTag, &theSize),
              errDataNotSupported);
    EXPECT_EQ(GetControlDataSize(theField, 0, kControlEditTextInsertTextBufferTag, &theSize),
              errDataNotSupported);
    UInt32 theCount = 0;
    EXPECT_EQ(GetControlData(theField, 0, kControlEditTextCharCount, sizeof theCount, &theCount, nullptr),
              noErr);
    EXPECT_EQ(theCount, 6u);
    EXPECT_EQ(SetControlData(theField, 0, kControlEditTextCharCount, sizeof theCount, &theCount),
              errDataNotSupported);
}

TEST_F(ControlKinds, TextsHaveFlags)
{
    CheckFlag(NewEditText(), kControlEditTextLockedTag, false);
    CheckFlag(NewEditText(), kControlEditTextSingleLineTag, false);
    CheckFlag(NewStaticText(), kControlStaticTextIsMultilineTag, true);
}

TEST_F(ControlKinds, TextsTakeAStyleAtCreation)
{
    const Rect theBounds = MakeRect(0, 0, 100, 20);
    ControlFontStyleRec theStyle = {};
    theStyle.just = 1;
    ControlRef theControls[3] = {};
    CreateStaticTextControl(mWindow, &theBounds, CFSTR("a"), &theStyle, &theControls[0]);
    CreateEditTextControl(mWindow, &theBounds, CFSTR("a"), false, false, &theStyle, &theControls[1]);
    CreateEditUnicodeTextControl(mWindow, &theBounds, CFSTR("a"), false, &theStyle, &theControls[2]);
    for (ControlRef theControl : theControls) {
        ControlFontStyleRec theRead = {};
        GetControlData(theControl, 0, kControlFontStyleTag, sizeof theRead, &theRead, nullptr);
        EXPECT_EQ(SInt16{theRead.just}, 1);
    }
}

// --- Data through handlers ---------------------------------------------------------------------------

TEST_F(ControlKinds, AHandlerMayKeepTheDataItself)
{
    ControlRef theText = NewStaticText("inside");
    std::string theKept;
    Watch(theText, "text", EventWatch::ControlEvents(), [&](EventRef theEvent) {
        EXPECT_EQ(Parameter<OSType>(theEvent, kEventParamControlDataTag, typeEnumeration), OSType{'text'});
        auto* theBuffer = Parameter<Ptr>(theEvent, kEventParamControlDataBuffer, typePtr);
        ByteCount theSize = Parameter<ByteCount>(theEvent, kEventParamControlDataBufferSize, typeByteCount);
        if (GetEventKind(theEvent) == kEventControlSetData) {
            theKept.assign(theBuffer, theSize);
        } else {
            theSize = theKept.copy(theBuffer, theSize);
            SetEventParameter(theEvent, kEventParamControlDataBufferSize, typeByteCount, sizeof theSize,
                              &theSize);
        }
        return OSStatus{noErr};
    });
    EXPECT_EQ(SetControlData(theText, 0, 'text', 7, "outside"), noErr);
    EXPECT_EQ(theKept, "outside");
    char theBuffer[20] = {};
    Size theSize = 0;
    EXPECT_EQ(GetControlData(theText, 0, 'text', sizeof theBuffer, theBuffer, &theSize), noErr);
    EXPECT_STREQ(theBuffer, "outside");
    EXPECT_EQ(theSize, 7);
    EXPECT_EQ(TakeLog(), (Log{"text: SetData", "text: GetData"}));
}

TEST_F(ControlKinds, DataOfAControlDisposedByItsHandlerIsAStatus)
{
    ControlRef theText = NewStaticText("text");
    Watch(theText, "text", EventWatch::ControlEvents(), [&](EventRef) {
        DisposeControl(theText);
        return OSStatus{eventNotHandledErr};
    });
    char theByte = 0;
    EXPECT_EQ(GetControlData(theText, 0, 'text', 1, &theByte, nullptr), errUnknownControl);
}

// --- Finding and simulating --------------------------------------------------------------------------

TEST_F(ControlKinds, TheFrontmostDeepestVisibleControlIsFound)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theBehind = NewPushButton("behind");
    ControlRef theFront = NewPushButton("front");
    EmbedControl(theBehind, theBox);
    EmbedControl(theFront, theBox);
    ControlRef theFound = nullptr;
    const Point thePoint = {50, 20};
    EXPECT_EQ(FindControl(thePoint, mWindow, &theFound), kControlButtonPart);
    EXPECT_EQ(theFound, theFront);
    DisableControl(theFront);
    EXPECT_EQ(FindControl(thePoint, mWindow, &theFound), kControlNoPart);
    EXPECT_EQ(theFound, theFront);
    HideControl(theFront);
    EXPECT_EQ(FindControl(thePoint, mWindow, &theFound), kControlButtonPart);
    EXPECT_EQ(theFound, theBehind);
    HideControl(theBox);
    EXPECT_EQ(FindControl(thePoint, mWindow, &theFound), kControlNoPart);
    EXPECT_EQ(theFound, nullptr);
    EXPECT_EQ(FindControl(thePoint, nullptr, &theFound), kControlNoPart);
    EXPECT_EQ(FindControl(thePoint, mWindow, nullptr), kControlNoPart);
    EXPECT_EQ(TestControl(nullptr, thePoint), kControlNoPart);
}

TEST_F(ControlKinds, TestingAPointAsksForAllStates)
{
    ControlRef theButton = NewPushButton();
    const Point theInside = {50, 20};
    const Point theOutside = {65, 20};
    EXPECT_EQ(TestControl(theButton, theInside), kControlButtonPart);
    EXPECT_EQ(TestControl(theButton, theOutside), kControlNoPart);
    DeactivateControl(theButton);
    EXPECT_EQ(TestControl(theButton, theInside), kControlNoPart);
}

TEST_F(ControlKinds, ASimulatedClickDoesWhatAClickDoes)
{
    ControlRef theCheckBox = NewCheckBox();
    SetControlCommandID(theCheckBox, 'doit');
    Watch(theCheckBox, "check box", kWithoutHilite);
    ControlPartCode thePart = 0;
    EXPECT_EQ(HIViewSimulateClick(theCheckBox, 0, 0, &thePart), noErr);
    EXPECT_EQ(thePart, kControlCheckBoxPart);
    EXPECT_EQ(GetControl32BitValue(theCheckBox), 1);
    EXPECT_EQ(TakeLog(),
              (Log{"check box: ValueFieldChanged", "check box: Hit", "check box: CommandProcess"}));
}

TEST_F(ControlKinds, ASimulatedClickRefusesWhatCannotBeClicked)
{
    ControlRef theButton = NewPushButton();
    ControlPartCode thePart = 99;
    EXPECT_EQ(HIViewSimulateClick(theButton, kControlUpButtonPart, 0, &thePart), errInvalidPartCode);
    EXPECT_EQ(thePart, kControlNoPart);
    EXPECT_EQ(HIViewSimulateClick(NewStaticText(), 0, 0, nullptr), errInvalidPartCode);
    DisableControl(theButton);
    EXPECT_EQ(HIViewSimulateClick(theButton, 0, 0, nullptr), errControlHiddenOrDisabled);
    EXPECT_EQ(HIViewSimulateClick(nullptr, 0, 0, &thePart), errUnknownControl);
    ControlRef theArrows = NewLittleArrows(NoteAction);
    EXPECT_EQ(HIViewSimulateClick(theArrows, kControlUpButtonPart, 0, nullptr), noErr);
    EXPECT_EQ(Actions(), std::vector<int>{kControlUpButtonPart});
}
