// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The keyboard focus, and what keys do that no handler wanted.

#include "ManagerTestSupport.h"

#include <Presentation/PresenterRegistry.h>
#include <Windows/Controls.h>

namespace {

class KeyboardFocus : public ControlKindTest
{
protected:
    ~KeyboardFocus() override { Host::SetFullKeyboardAccess(true); }

    // Lets the loop turn once, as it does before a person could press a key.
    static void Turn() { RunCurrentEventLoop(0); }
};

const std::vector<EventTypeSpec> kFocusEvents = {{kEventClassControl, kEventControlSetFocusPart},
                                                 {kEventClassControl, kEventControlFocusPartChanged},
                                                 {kEventClassTextField, kEventTextAccepted}};

} // namespace

// --- Moving it ---------------------------------------------------------------------------------------

TEST_F(KeyboardFocus, StartsNowhere)
{
    EXPECT_EQ(Focus(), nullptr);
    EXPECT_EQ(ClearKeyboardFocus(mWindow), errNoRootControl);
    EXPECT_EQ(AdvanceKeyboardFocus(mWindow), errCouldntSetFocus);
}

TEST_F(KeyboardFocus, ComesAndGoesWithItsEvents)
{
    ControlRef theFirst = NewFieldAt(10, 10);
    ControlRef theSecond = NewFieldAt(10, 40);
    Watch(theFirst, "first", kFocusEvents);
    Watch(theSecond, "second", kFocusEvents);
    EXPECT_EQ(SetFocus(theFirst), noErr);
    EXPECT_EQ(Focus(), theFirst);
    EXPECT_EQ(TakeLog(), (Log{"first: SetFocusPart", "first: FocusPartChanged"}));
    EXPECT_EQ(SetFocus(theSecond), noErr);
    EXPECT_EQ(Focus(), theSecond);
    EXPECT_EQ(TakeLog(), (Log{"first: SetFocusPart", "first: FocusPartChanged", "second: SetFocusPart",
                              "second: FocusPartChanged"}));
    EXPECT_EQ(ClearKeyboardFocus(mWindow), noErr);
    EXPECT_EQ(Focus(), nullptr);
    EXPECT_EQ(TakeLog(), (Log{"second: SetFocusPart", "second: FocusPartChanged"}));
}

TEST_F(KeyboardFocus, StaysInSilenceWhereItIs)
{
    ControlRef theField = NewEditText();
    SetFocus(theField);
    Watch(theField, "field", kFocusEvents);
    EXPECT_EQ(SetFocus(theField), noErr);
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(KeyboardFocus, TellsThePartsBeforeAndAfter)
{
    ControlRef theField = NewEditText();
    std::vector<int> theParts;
    Watch(theField, "field", {{kEventClassControl, kEventControlFocusPartChanged}}, [&](EventRef theEvent) {
        theParts.push_back(
            Parameter<ControlPartCode>(theEvent, kEventParamControlPreviousPart, typeControlPartCode));
        theParts.push_back(
            Parameter<ControlPartCode>(theEvent, kEventParamControlCurrentPart, typeControlPartCode));
        return OSStatus{eventNotHandledErr};
    });
    SetFocus(theField);
    SetKeyboardFocus(mWindow, theField, kControlFocusNoPart);
    EXPECT_EQ(theParts, (std::vector<int>{0, kControlEditTextPart, kControlEditTextPart, 0}));
}

TEST_F(KeyboardFocus, DirectionsLeadToTheOnlyPartAndOutOfIt)
{
    ControlRef theField = NewEditText();
    EXPECT_EQ(SetKeyboardFocus(mWindow, theField, kControlFocusNoPart), noErr);
    EXPECT_EQ(Focus(), nullptr);
    EXPECT_EQ(SetKeyboardFocus(mWindow, theField, kControlFocusNextPart), noErr);
    EXPECT_EQ(Focus(), theField);
    EXPECT_EQ(SetKeyboardFocus(mWindow, theField, kControlFocusPrevPart), noErr);
    EXPECT_EQ(Focus(), nullptr);
    EXPECT_EQ(SetKeyboardFocus(mWindow, NewStaticText(), kControlFocusNextPart), errCouldntSetFocus);
}

TEST_F(KeyboardFocus, IsRefusedWhereItCannotBe)
{
    ControlRef theField = NewEditText();
    EXPECT_EQ(SetFocus(NewStaticText()), errCouldntSetFocus);
    Host::SetFullKeyboardAccess(false);
    EXPECT_EQ(SetKeyboardFocus(mWindow, NewPushButton(), kControlButtonPart), errCouldntSetFocus);
    EXPECT_EQ(SetKeyboardFocus(mWindow, theField, kControlButtonPart), errCouldntSetFocus);
    DisableControl(theField);
    EXPECT_EQ(SetFocus(theField), errCouldntSetFocus);
    EnableControl(theField);
    HideControl(theField);
    EXPECT_EQ(SetFocus(theField), errCouldntSetFocus);
    ShowControl(theField);
    EXPECT_EQ(SetKeyboardFocus(nullptr, theField, kControlEditTextPart), errInvalidWindowRef);
    EXPECT_EQ(SetKeyboardFocus(NewWindow(), theField, kControlEditTextPart), paramErr);
    EXPECT_EQ(SetFocus(nullptr), errUnknownControl);
    EXPECT_EQ(Focus(), nullptr);
    ControlRef theFocus = nullptr;
    EXPECT_EQ(GetKeyboardFocus(nullptr, &theFocus), errInvalidWindowRef);
    EXPECT_EQ(GetKeyboardFocus(mWindow, nullptr), paramErr);
    EXPECT_EQ(ClearKeyboardFocus(nullptr), errInvalidWindowRef);
    EXPECT_EQ(AdvanceKeyboardFocus(nullptr), errInvalidWindowRef);
    EXPECT_EQ(ReverseKeyboardFocus(nullptr), errInvalidWindowRef);
}

TEST_F(KeyboardFocus, AHandlerMayRefuseItButNotKeepIt)
{
    ControlRef theFirst = NewFieldAt(10, 10);
    ControlRef theSecond = NewFieldAt(10, 40);
    SetFocus(theFirst);
    Watch(theFirst, "first", {{kEventClassControl, kEventControlSetFocusPart}}, [](EventRef theEvent) {
        const ControlPartCode thePart = kControlEditTextPart;
        SetEventParameter(theEvent, kEventParamControlPart, typeControlPartCode, sizeof thePart, &thePart);
        return OSStatus{noErr};
    });
    Watch(theSecond, "second", {{kEventClassControl, kEventControlSetFocusPart}}, [](EventRef theEvent) {
        const ControlPartCode thePart = kControlFocusNoPart;
        SetEventParameter(theEvent, kEventParamControlPart, typeControlPartCode, sizeof thePart, &thePart);
        return OSStatus{noErr};
    });
    EXPECT_EQ(SetFocus(theSecond), errCouldntSetFocus);
    EXPECT_EQ(Focus(), nullptr);
}

TEST_F(KeyboardFocus, AHandlersErrorRefusesIt)
{
    ControlRef theField = NewEditText();
    Watch(theField, "field", {{kEventClassControl, kEventControlSetFocusPart}},
          [](EventRef) { return OSStatus{errCouldntSetFocus}; });
    EXPECT_EQ(SetFocus(theField), errCouldntSetFocus);
    EXPECT_EQ(Focus(), nullptr);
}

TEST_F(KeyboardFocus, AHandlerThatMovesItElsewhereHasItsWay)
{
    ControlRef theFirst = NewFieldAt(10, 10);
    ControlRef theSecond = NewFieldAt(10, 40);
    ControlRef theThird = NewFieldAt(10, 70);
    SetFocus(theFirst);
    Watch(theFirst, "first", {{kEventClassControl, kEventControlFocusPartChanged}}, [&](EventRef) {
        SetFocus(theThird);
        return OSStatus{eventNotHandledErr};
    });
    EXPECT_EQ(SetFocus(theSecond), errCouldntSetFocus);
    EXPECT_EQ(Focus(), theThird);
}

TEST_F(KeyboardFocus, SurvivesTheDisposalOfEitherControlOnTheWay)
{
    for (const bool theIsFirst : {true, false}) {
        ControlRef theFirst = NewFieldAt(10, 10);
        ControlRef theSecond = NewFieldAt(10, 40);
        SetFocus(theFirst);
        EventWatch theWatch(GetControlEventTarget(theFirst), "first", mLog,
                            {{kEventClassControl, kEventControlSetFocusPart}}, [&](EventRef) {
                                DisposeControl(theIsFirst ? theFirst : theSecond);
                                return OSStatus{eventNotHandledErr};
                            });
        EXPECT_EQ(SetFocus(theSecond), theIsFirst ? OSErr{noErr} : OSErr{errCouldntSetFocus});
        EXPECT_EQ(Focus(), theIsFirst ? theSecond : nullptr);
        KillControls(mWindow);
    }
}

// --- Leaving controls that cannot keep it ------------------------------------------------------------

TEST_F(KeyboardFocus, LeavesAControlThatIsHiddenDisabledOrGoesBeforeThat)
{
    const std::vector<EventTypeSpec> theTypes = {{kEventClassControl, kEventControlFocusPartChanged},
                                                 {kEventClassControl, kEventControlVisibilityChanged},
                                                 {kEventClassControl, kEventControlEnabledStateChanged},
                                                 {kEventClassControl, kEventControlDispose}};
    ControlRef theField = NewEditText();
    Watch(theField, "field", theTypes);
    SetFocus(theField);
    TakeLog();
    HideControl(theField);
    EXPECT_EQ(TakeLog(), (Log{"field: FocusPartChanged", "field: VisibilityChanged"}));
    ShowControl(theField);
    SetFocus(theField);
    TakeLog();
    DisableControl(theField);
    EXPECT_EQ(TakeLog(), (Log{"field: FocusPartChanged", "field: EnabledStateChanged"}));
    EnableControl(theField);
    SetFocus(theField);
    TakeLog();
    DisposeControl(theField);
    EXPECT_EQ(TakeLog(), (Log{"field: FocusPartChanged", "field: Dispose"}));
    EXPECT_EQ(Focus(), nullptr);
}

TEST_F(KeyboardFocus, LeavesAControlWhoseContainerIsHiddenOrMoved)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theField = NewEditText();
    EmbedControl(theField, theBox);
    SetFocus(theField);
    HideControl(theBox);
    EXPECT_EQ(Focus(), nullptr);
    ShowControl(theBox);
    SetFocus(theField);
    WindowRef theOther = NewWindow();
    ControlRef theRoot = nullptr;
    CreateRootControl(theOther, &theRoot);
    EmbedControl(theBox, theRoot);
    EXPECT_EQ(Focus(), nullptr);
}

TEST_F(KeyboardFocus, CannotComeBackToAControlThatIsGoing)
{
    ControlRef theField = NewEditText();
    SetFocus(theField);
    OSErr theStatus = noErr;
    Watch(theField, "field", {{kEventClassControl, kEventControlDispose}}, [&](EventRef) {
        theStatus = SetFocus(theField);
        return OSStatus{eventNotHandledErr};
    });
    DisposeControl(theField);
    EXPECT_EQ(theStatus, errCouldntSetFocus);
    EXPECT_EQ(Focus(), nullptr);
}

// --- Order -------------------------------------------------------------------------------------------

TEST_F(KeyboardFocus, AdvancesFromTopToBottomAndLeftToRightAndRound)
{
    ControlRef theLast = NewFieldAt(10, 70);
    ControlRef theRight = NewFieldAt(100, 10);
    ControlRef theLeft = NewFieldAt(10, 10);
    NewStaticText();
    ControlRef theHidden = NewFieldAt(10, 40);
    HideControl(theHidden);
    const std::vector<ControlRef> theOrder = {theLeft, theRight, theLast, theLeft};
    for (ControlRef theExpected : theOrder) {
        EXPECT_EQ(AdvanceKeyboardFocus(mWindow), noErr);
        EXPECT_EQ(Focus(), theExpected);
    }
    EXPECT_EQ(ReverseKeyboardFocus(mWindow), noErr);
    EXPECT_EQ(Focus(), theLast);
    EXPECT_EQ(ReverseKeyboardFocus(mWindow), noErr);
    EXPECT_EQ(Focus(), theRight);
}

TEST_F(KeyboardFocus, ReachesEveryControlUnlessFullKeyboardAccessIsOff)
{
    ControlRef theSlider = NewSlider();
    ControlRef theButton = NewPushButton();
    Host::SetFullKeyboardAccess(false);
    EXPECT_EQ(AdvanceKeyboardFocus(mWindow), errCouldntSetFocus);
    Host::SetFullKeyboardAccess(true);
    EXPECT_EQ(AdvanceKeyboardFocus(mWindow), noErr);
    EXPECT_EQ(Focus(), theSlider);
    EXPECT_EQ(AdvanceKeyboardFocus(mWindow), noErr);
    EXPECT_EQ(Focus(), theButton);
    EXPECT_EQ(SetKeyboardFocus(mWindow, theSlider, kControlIndicatorPart), noErr);
}

// --- The first focus ---------------------------------------------------------------------------------

TEST_F(KeyboardFocus, IsAtTheFirstControlWhenThePersonComes)
{
    NewFieldAt(10, 40);
    ControlRef theFirst = NewFieldAt(10, 10, "Kitchen");
    EXPECT_EQ(Focus(), nullptr);
    Turn();
    EXPECT_EQ(Focus(), theFirst);
    EXPECT_EQ(Selection(theFirst), "0-7");
}

TEST_F(KeyboardFocus, ComesToTheFirstControlBeforeTheFirstKey)
{
    ControlRef theField = NewFieldAt(10, 10);
    Host::PresenterRegistry::Events().KeyPressed({kVK_ANSI_A, "a", 0});
    Host::PresenterRegistry::Events().KeyReleased({kVK_ANSI_A, "a", 0});
    EXPECT_EQ(TextIn(theField), "a");
}

TEST_F(KeyboardFocus, StaysWhereTheProgramHasPutIt)
{
    NewFieldAt(10, 10);
    ControlRef theSecond = NewFieldAt(10, 40);
    SetFocus(theSecond);
    Turn();
    EXPECT_EQ(Focus(), theSecond);
    ClearKeyboardFocus(mWindow);
    Turn();
    EXPECT_EQ(Focus(), nullptr);
}

TEST_F(KeyboardFocus, IsNotGivenToAWindowThatSeesToItsKeysItself)
{
    mWindow = NewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes);
    ShowWindow(mWindow);
    NewEditText();
    Turn();
    EXPECT_EQ(Focus(), nullptr);
}

TEST_F(KeyboardFocus, WaitsForAControlThatCanHaveIt)
{
    Turn();
    ControlRef theField = NewFieldAt(10, 10);
    Turn();
    EXPECT_EQ(Focus(), theField);
}

// --- Keys --------------------------------------------------------------------------------------------

TEST_F(KeyboardFocus, TabIntoAFieldSelectsItsTextAndOutOfItNothing)
{
    ControlRef theFirst = NewFieldAt(10, 10, "Kitchen");
    ControlRef theSecond = NewFieldAt(10, 40, "Attic");
    Key(kVK_Tab, "\t");
    EXPECT_EQ(Selection(theFirst), "0-7");
    Key(kVK_Tab, "\t");
    EXPECT_EQ(Selection(theFirst), "7-7");
    EXPECT_EQ(Selection(theSecond), "0-5");
    Type("Hall");
    EXPECT_EQ(TextIn(theSecond), "Hall");
}

TEST_F(KeyboardFocus, AFocusThatTheProgramMovesLeavesTheSelection)
{
    ControlRef theField = NewFieldAt(10, 10, "Kitchen");
    Select(theField, 2, 4);
    SetFocus(theField);
    EXPECT_EQ(Selection(theField), "2-4");
}

TEST_F(KeyboardFocus, KeysPressThePartsOfAScrollBar)
{
    const Rect theBounds = MakeRect(300, 10, 316, 200);
    ControlRef theBar = nullptr;
    CreateScrollBarControl(mWindow, &theBounds, 5, 0, 9, 2, false, nullptr, &theBar);
    std::vector<int> theParts;
    Watch(theBar, "bar", {{kEventClassControl, kEventControlHit}}, [&](EventRef theEvent) {
        theParts.push_back(Parameter<ControlPartCode>(theEvent, kEventParamControlPart, typeControlPartCode));
        return OSStatus{eventNotHandledErr};
    });
    Key(kVK_Tab, "\t");
    EXPECT_EQ(Focus(), theBar);
    for (const UInt32 theCode :
         {kVK_UpArrow, kVK_LeftArrow, kVK_DownArrow, kVK_RightArrow, kVK_PageUp, kVK_PageDown}) {
        Key(theCode, "");
    }
    EXPECT_EQ(theParts, (std::vector<int>{kControlUpButtonPart, kControlUpButtonPart, kControlDownButtonPart,
                                          kControlDownButtonPart, kControlPageUpPart, kControlPageDownPart}));
    Key(kVK_End, "");
    EXPECT_EQ(GetControl32BitValue(theBar), 9);
    Key(kVK_Home, "");
    EXPECT_EQ(GetControl32BitValue(theBar), 0);
    EXPECT_EQ(theParts.size(), 8u);
    EXPECT_EQ(Key(kVK_Space, " "), eventNotHandledErr);
    SetControl32BitMaximum(theBar, 0);
    EXPECT_EQ(Key(kVK_DownArrow, ""), eventNotHandledErr) << "there is nothing to scroll";
}

TEST_F(KeyboardFocus, PageKeysMoveASliderByATenthOfItsRange)
{
    ControlRef theSlider = NewSlider(50, 0, 100);
    Key(kVK_Tab, "\t");
    Key(kVK_PageUp, "");
    EXPECT_EQ(GetControl32BitValue(theSlider), 60);
    Key(kVK_PageDown, "");
    Key(kVK_PageDown, "");
    EXPECT_EQ(GetControl32BitValue(theSlider), 40);
}

TEST_F(KeyboardFocus, ArrowsGoFromRadioButtonToRadioButtonAndPressIt)
{
    std::vector<ControlRef> theButtons(3);
    for (short theIndex = 0; theIndex < 3; ++theIndex) {
        const Rect theBounds = MakeRect(300, 10 + 20 * theIndex, 380, 26 + 20 * theIndex);
        CreateRadioButtonControl(mWindow, &theBounds, CFSTR("One"), 0, true,
                                 &theButtons[static_cast<size_t>(theIndex)]);
    }
    DisableControl(theButtons[1]);
    SetKeyboardFocus(mWindow, theButtons[0], kControlRadioButtonPart);
    Watch(theButtons[0], "first", {{kEventClassControl, kEventControlHit}});
    Watch(theButtons[2], "last", {{kEventClassControl, kEventControlHit}});
    Key(kVK_DownArrow, "");
    EXPECT_EQ(Focus(), theButtons[2]);
    EXPECT_EQ(GetControl32BitValue(theButtons[2]), 1);
    Key(kVK_RightArrow, "");
    EXPECT_EQ(Focus(), theButtons[0]);
    Key(kVK_UpArrow, "");
    EXPECT_EQ(Focus(), theButtons[2]);
    EXPECT_EQ(TakeLog(), (Log{"last: Hit", "first: Hit", "last: Hit"}));
}

TEST_F(KeyboardFocus, TabMovesItAndShiftTabMovesItBack)
{
    ControlRef theFirst = NewFieldAt(10, 10);
    ControlRef theSecond = NewFieldAt(10, 40);
    EXPECT_EQ(Key(kVK_Tab, "\t"), noErr);
    EXPECT_EQ(Focus(), theFirst);
    Key(kVK_Tab, "\t");
    EXPECT_EQ(Focus(), theSecond);
    Key(kVK_Tab, "\t", shiftKey);
    EXPECT_EQ(Focus(), theFirst);
}

TEST_F(KeyboardFocus, AKeyGoesThroughTheHandlersBeforeItDoesAnything)
{
    ControlRef theField = NewEditText();
    SetFocus(theField);
    const std::vector<EventTypeSpec> theTypes = {{kEventClassKeyboard, kEventRawKeyDown},
                                                 {kEventClassTextInput, kEventTextInputUnicodeForKeyEvent}};
    Watch(theField, "field", theTypes);
    Watch(mWindow, "window", theTypes);
    EventWatch theApplication(GetApplicationEventTarget(), "application", mLog, {theTypes[0]});
    Type("a");
    EXPECT_EQ(TextIn(theField), "a");
    EXPECT_EQ(mLog.size(), 4u);
    EXPECT_EQ(mLog.back().substr(0, 6), "field:");
    TakeLog();
    EventWatch theTaker(GetWindowEventTarget(mWindow), "taker", mLog, {theTypes[0]},
                        [](EventRef) { return OSStatus{noErr}; });
    EXPECT_EQ(Key(kVK_ANSI_B, "b"), noErr);
    EXPECT_EQ(TextIn(theField), "a");
    EXPECT_EQ(mLog.size(), 2u);
}

TEST_F(KeyboardFocus, ReturnPressesTheDefaultButtonAndEscapeTheOther)
{
    ControlRef theDefault = NewPushButton("OK");
    ControlRef theCancel = NewPushButton("Cancel");
    EXPECT_EQ(SetWindowDefaultButton(mWindow, theDefault), noErr);
    EXPECT_EQ(SetWindowCancelButton(mWindow, theCancel), noErr);
    const std::vector<EventTypeSpec> theHit = {{kEventClassControl, kEventControlHit}};
    Watch(theDefault, "default", theHit);
    Watch(theCancel, "cancel", theHit);
    SetFocus(NewEditText());
    EXPECT_EQ(Key(kVK_Return, "\r"), noErr);
    EXPECT_EQ(Key(kVK_ANSI_KeypadEnter, "\x03"), noErr);
    EXPECT_EQ(Key(kVK_Escape, "\x1B"), noErr);
    EXPECT_EQ(Key(kVK_ANSI_Period, ".", cmdKey), noErr);
    EXPECT_EQ(TakeLog(), (Log{"default: Hit", "default: Hit", "cancel: Hit", "cancel: Hit"}));
    DisableControl(theDefault);
    Key(kVK_Return, "\r");
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(KeyboardFocus, DefaultAndCancelButtonsAreKeptAndForgotten)
{
    ControlRef theButton = NewPushButton();
    ControlRef theFound = InventedReference<ControlRef>();
    EXPECT_EQ(GetWindowDefaultButton(mWindow, &theFound), noErr);
    EXPECT_EQ(theFound, nullptr);
    SetWindowDefaultButton(mWindow, theButton);
    EXPECT_EQ(GetWindowDefaultButton(mWindow, &theFound), noErr);
    EXPECT_EQ(theFound, theButton);
    EXPECT_EQ(SetWindowDefaultButton(mWindow, nullptr), noErr);
    GetWindowDefaultButton(mWindow, &theFound);
    EXPECT_EQ(theFound, nullptr);
    SetWindowCancelButton(mWindow, theButton);
    DisposeControl(theButton);
    EXPECT_EQ(GetWindowCancelButton(mWindow, &theFound), noErr);
    EXPECT_EQ(theFound, nullptr);
    EXPECT_EQ(SetWindowDefaultButton(mWindow, theButton), errUnknownControl);
    EXPECT_EQ(SetWindowDefaultButton(nullptr, nullptr), errInvalidWindowRef);
    EXPECT_EQ(SetWindowDefaultButton(NewWindow(), NewPushButton()), paramErr);
    EXPECT_EQ(GetWindowDefaultButton(nullptr, &theFound), errInvalidWindowRef);
    EXPECT_EQ(GetWindowCancelButton(mWindow, nullptr), paramErr);
}

TEST_F(KeyboardFocus, KeysOfAWindowNeedTheStandardHandler)
{
    mWindow = NewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes);
    ShowWindow(mWindow);
    NewEditText();
    EXPECT_EQ(Key(kVK_Tab, "\t"), eventNotHandledErr);
    EXPECT_EQ(Focus(), nullptr);
}

TEST_F(KeyboardFocus, SpaceAndArrowsWorkControlsWithFullKeyboardAccess)
{
    Host::SetFullKeyboardAccess(true);
    ControlRef theSlider = NewSlider(5, 0, 10);
    ControlRef theCheckBox = NewCheckBox();
    const std::vector<EventTypeSpec> theTypes = {{kEventClassControl, kEventControlValueFieldChanged},
                                                 {kEventClassControl, kEventControlHit}};
    Watch(theSlider, "slider", theTypes);
    Watch(theCheckBox, "check box", theTypes);
    SetKeyboardFocus(mWindow, theSlider, kControlIndicatorPart);
    for (const UInt32 theCode :
         {kVK_RightArrow, kVK_UpArrow, kVK_LeftArrow, kVK_End, kVK_Home, kVK_DownArrow}) {
        Key(theCode, "");
    }
    EXPECT_EQ(GetControl32BitValue(theSlider), 0);
    EXPECT_EQ(TakeLog().size(), 10u); // the last arrow found the slider at its end
    SetKeyboardFocus(mWindow, theCheckBox, kControlCheckBoxPart);
    Key(kVK_Space, " ");
    EXPECT_EQ(GetControl32BitValue(theCheckBox), 1);
    EXPECT_EQ(TakeLog(), (Log{"check box: ValueFieldChanged", "check box: Hit"}));
}

TEST_F(KeyboardFocus, ArrowsPressLittleArrowsAndFollowTickMarks)
{
    Host::SetFullKeyboardAccess(true);
    const Rect theBounds = MakeRect(300, 210, 313, 234);
    ControlRef theArrows = nullptr;
    CreateLittleArrowsControl(mWindow, &theBounds, 5, 0, 9, 3, &theArrows);
    Watch(theArrows, "arrows", {{kEventClassControl, kEventControlHit}});
    SetKeyboardFocus(mWindow, theArrows, kControlUpButtonPart);
    Key(kVK_UpArrow, "\x1E");
    Key(kVK_DownArrow, "\x1F");
    Key(kVK_LeftArrow, "\x1C");
    EXPECT_EQ(TakeLog(), (Log{"arrows: Hit", "arrows: Hit"}));
    ControlRef theSlider = nullptr;
    CreateSliderControl(mWindow, &theBounds, 0, 0, 100, kControlSliderPointsUpOrLeft, 5, false, nullptr,
                        &theSlider);
    SetKeyboardFocus(mWindow, theSlider, kControlIndicatorPart);
    Key(kVK_RightArrow, "\x1D");
    EXPECT_EQ(GetControl32BitValue(theSlider), 25);
}

TEST_F(KeyboardFocus, AClickOnAnEditTextTakesIt)
{
    ControlRef theField = NewEditText();
    Click(20, 140);
    EXPECT_EQ(Focus(), theField);
    NewPushButton();
    Click(20, 50);
    EXPECT_EQ(Focus(), theField);
}

// --- The user focus ----------------------------------------------------------------------------------

TEST_F(KeyboardFocus, TheUserFocusIsTheFocusedControlOfTheActiveWindow)
{
    EXPECT_EQ(GetUserFocusWindow(), mWindow);
    EXPECT_EQ(GetUserFocusEventTarget(), GetWindowEventTarget(mWindow));
    ControlRef theField = NewEditText();
    SetFocus(theField);
    EXPECT_EQ(GetUserFocusEventTarget(), GetControlEventTarget(theField));
    HideWindow(mWindow);
    EXPECT_EQ(GetUserFocusWindow(), nullptr);
    EXPECT_EQ(GetUserFocusEventTarget(), GetApplicationEventTarget());
}

TEST_F(KeyboardFocus, AWindowIsToldWhenTheUserFocusComesAndGoes)
{
    WindowRef theOther = NewWindow();
    Watch(mWindow, "first",
          {{kEventClassWindow, kEventWindowFocusRelinquish}, {kEventClassWindow, kEventWindowFocusAcquired}});
    Watch(theOther, "second",
          {{kEventClassWindow, kEventWindowFocusRelinquish}, {kEventClassWindow, kEventWindowFocusAcquired}});
    ShowWindow(theOther);
    EXPECT_EQ(TakeLog(), (Log{"first: FocusRelinquish", "second: FocusAcquired"}));
    EXPECT_EQ(SetUserFocusWindow(mWindow), noErr);
    EXPECT_EQ(GetUserFocusWindow(), mWindow);
    EXPECT_EQ(ActiveNonFloatingWindow(), theOther);
    EXPECT_EQ(TakeLog(), (Log{"second: FocusRelinquish", "first: FocusAcquired"}));
    EXPECT_EQ(SetUserFocusWindow(kUserFocusAuto), noErr);
    EXPECT_EQ(GetUserFocusWindow(), theOther);
    EXPECT_EQ(TakeLog(), (Log{"first: FocusRelinquish", "second: FocusAcquired"}));
    EXPECT_EQ(SetUserFocusWindow(nullptr), errInvalidWindowRef);
}

TEST_F(KeyboardFocus, AClickOnAnotherWindowTakesTheUserFocusBack)
{
    WindowRef thePalette = NewWindow(kFloatingWindowClass, kWindowStandardHandlerAttribute);
    ShowWindow(thePalette);
    EXPECT_EQ(GetUserFocusWindow(), mWindow);
    SetUserFocusWindow(thePalette);
    EXPECT_EQ(GetUserFocusWindow(), thePalette);
    HideWindow(thePalette);
    EXPECT_EQ(GetUserFocusWindow(), mWindow);
}

TEST_F(KeyboardFocus, AChosenWindowThatLeavesTheScreenGivesTheKeysToTheActiveOneUntilItIsBack)
{
    const auto theHiding = [](WindowRef theWindow, bool theIsBack) { ShowHide(theWindow, theIsBack); };
    const auto theCollapsing = [](WindowRef theWindow, bool theIsBack) {
        CollapseWindow(theWindow, !theIsBack);
    };
    for (void (*theLeave)(WindowRef, bool) : {+theHiding, +theCollapsing}) {
        WindowRef theActive = NewWindow();
        ShowWindow(theActive);
        ASSERT_TRUE(IsWindowActive(theActive));
        SetUserFocusWindow(mWindow);
        const std::vector<EventTypeSpec> theTypes = {{kEventClassWindow, kEventWindowFocusAcquired},
                                                     {kEventClassWindow, kEventWindowFocusRelinquish}};
        const EventWatch theFirst(GetWindowEventTarget(mWindow), "chosen", mLog, theTypes);
        const EventWatch theSecond(GetWindowEventTarget(theActive), "active", mLog, theTypes);
        theLeave(mWindow, false);
        EXPECT_EQ(GetUserFocusWindow(), theActive);
        EXPECT_EQ(TakeLog(), (Log{"chosen: FocusRelinquish", "active: FocusAcquired"}));
        theLeave(mWindow, true);
        EXPECT_EQ(GetUserFocusWindow(), mWindow);
        EXPECT_EQ(TakeLog(), (Log{"active: FocusRelinquish", "chosen: FocusAcquired"}));
        SetUserFocusWindow(kUserFocusAuto);
        DisposeWindow(theActive);
        SelectWindow(mWindow);
        TakeLog();
    }
}

// --- Handlers that want it back -----------------------------------------------------------------------

namespace {

// A field that takes the focus back, once, from inside the event that takes it away.
class ClingingField : public KeyboardFocus
{
protected:
    ClingingField()
        : mField(NewFieldAt(10, 10))
    {
        SetFocus(mField);
        Watch(mField, "field", kFocusEvents, [this](EventRef theEvent) {
            const bool theIsLoss =
                GetEventKind(theEvent) == kEventControlSetFocusPart &&
                Parameter<ControlPartCode>(theEvent, kEventParamControlPart, typeControlPartCode) == 0;
            if (theIsLoss && mIsClinging) {
                mIsClinging = false;
                SetKeyboardFocus(GetControlOwner(mField), mField, kControlEditTextPart);
            }
            return OSStatus{eventNotHandledErr};
        });
    }

    ControlRef mField;
    bool mIsClinging = true;
};

const Log kTakenBackAndLost = {"field: SetFocusPart", "field: SetFocusPart", "field: FocusPartChanged",
                               "field: SetFocusPart", "field: FocusPartChanged"};

} // namespace

TEST_F(ClingingField, MayTakeTheFocusBackAndIsNotToldThatItIsLost)
{
    EXPECT_EQ(ClearKeyboardFocus(mWindow), noErr);
    EXPECT_EQ(Focus(), mField);
    EXPECT_EQ(TakeLog(), (Log{"field: SetFocusPart", "field: SetFocusPart", "field: FocusPartChanged"}));
}

TEST_F(ClingingField, LosesTheFocusAllTheSameWhenItIsHiddenOrDisabled)
{
    HideControl(mField);
    EXPECT_EQ(Focus(), nullptr);
    EXPECT_EQ(TakeLog(), kTakenBackAndLost);
    ShowControl(mField);
    mIsClinging = false;
    SetFocus(mField);
    mIsClinging = true;
    TakeLog();
    DisableControl(mField);
    EXPECT_EQ(Focus(), nullptr);
    EXPECT_EQ(TakeLog(), kTakenBackAndLost);
}

TEST_F(ClingingField, LosesTheFocusAllTheSameWhenItGoesToAnotherWindow)
{
    WindowRef theOther = NewWindow();
    ControlRef theRoot = nullptr;
    CreateRootControl(theOther, &theRoot);
    EXPECT_EQ(EmbedControl(mField, theRoot), noErr);
    EXPECT_EQ(Focus(), nullptr);
    EXPECT_EQ(TakeLog(), kTakenBackAndLost);
}

TEST_F(KeyboardFocus, LeavesAControlThatComesIntoAContainerThatIsHiddenOrDisabled)
{
    for (const auto theCall : {+[](ControlRef theBox) { HideControl(theBox); },
                               +[](ControlRef theBox) { DisableControl(theBox); }}) {
        ControlRef theBox = NewGroupBox();
        ControlRef theField = NewFieldAt(10, 10);
        theCall(theBox);
        SetFocus(theField);
        const EventWatch theWatch(GetControlEventTarget(theField), "field", mLog, kFocusEvents);
        EXPECT_EQ(EmbedControl(theField, theBox), noErr);
        EXPECT_EQ(Focus(), nullptr);
        EXPECT_EQ(TakeLog(), (Log{"field: SetFocusPart", "field: FocusPartChanged"}));
    }
}
