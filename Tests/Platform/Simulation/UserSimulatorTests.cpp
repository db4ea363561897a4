// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "SimulatorTestSupport.h"

namespace {

// The Apple events that a handler has got.
std::vector<OSType> gAsked;

using UserSimulator = UserSimulatorTest;

using Host::UserResult;

const Log kClickOnButton = {"mouse moved", "mouse down", "click", "mouse up", "hit"};

// Clicking ---------------------------------------------------------------------------------------------

TEST_F(UserSimulator, ClicksAControlByReference)
{
    ExpectDone(mUser.Click(mProgram.mButton));
    EXPECT_EQ(Take(), kClickOnButton);
}

TEST_F(UserSimulator, ClicksAControlByItsIdentifier)
{
    ExpectDone(mUser.Click({mProgram.mWindow.Get(), {'rset', 1}}));
    EXPECT_EQ(Take(), kClickOnButton);
}

TEST_F(UserSimulator, ClickingACheckBoxTurnsItOver)
{
    ExpectDone(mUser.Click(mProgram.mCheckBox));
    EXPECT_EQ(GetControl32BitValue(mProgram.mCheckBox), 1);
    EXPECT_EQ(Take(), (Log{"mouse moved", "mouse down", "click", "mouse up", "value", "hit"}));
    ExpectDone(mUser.Click(mProgram.mCheckBox));
    EXPECT_EQ(GetControl32BitValue(mProgram.mCheckBox), 0);
}

TEST_F(UserSimulator, AClickSendsTheCommandOfTheControl)
{
    SetControlCommandID(mProgram.mButton, 'rset');
    ExpectDone(mUser.Click(mProgram.mButton));
    EXPECT_EQ(Take().back(), "command");
}

TEST_F(UserSimulator, AClickThatAHandlerConsumedDoesNothing)
{
    Consume("mouse down");
    ExpectDone(mUser.Click(mProgram.mCheckBox));
    EXPECT_EQ(GetControl32BitValue(mProgram.mCheckBox), 0);
    EXPECT_EQ(Take(), (Log{"mouse moved", "mouse down", "mouse up"}));
}

TEST_F(UserSimulator, ClickingAFieldGivesItTheKeys)
{
    ExpectDone(mUser.Click(mProgram.mField));
    ControlRef theFocus = nullptr;
    GetKeyboardFocus(mProgram.mWindow.Get(), &theFocus);
    EXPECT_EQ(theFocus, mProgram.mField);
}

TEST_F(UserSimulator, ClicksOneOfTwoArrows)
{
    static std::vector<ControlPartCode> theParts;
    theParts.clear();
    const auto Action = [](ControlRef, ControlPartCode thePart) { theParts.push_back(thePart); };
    const Rect theBounds = MakeRect(250, 10, 266, 42);
    ControlRef theArrows = nullptr;
    CreateLittleArrowsControl(mProgram.mWindow.Get(), &theBounds, 0, 0, 10, 1, &theArrows);
    SetControlAction(theArrows, Action);
    ExpectDone(mUser.ClickPart(theArrows, kControlUpButtonPart));
    ExpectDone(mUser.ClickPart(theArrows, kControlDownButtonPart));
    EXPECT_EQ(theParts, (std::vector<ControlPartCode>{kControlUpButtonPart, kControlDownButtonPart}));
}

TEST_F(UserSimulator, HoldsTheModifiersDuringAClick)
{
    UInt32 theModifiers = 0;
    mWindowLog.mAnswer = [&theModifiers](const std::string& theName, EventRef theEvent) {
        if (theName == "mouse down") {
            theModifiers = Parameter<UInt32>(theEvent, kEventParamKeyModifiers, typeUInt32);
        }
        return OSStatus{eventNotHandledErr};
    };
    ExpectDone(mUser.Click(mProgram.mButton, optionKey));
    EXPECT_EQ(theModifiers, UInt32{optionKey});
    EXPECT_EQ(GetCurrentKeyModifiers(), 0u);
}

TEST_F(UserSimulator, MayDisposeTheControlByClickingIt)
{
    Log theLog;
    EventLog theButton(GetControlEventTarget(mProgram.mButton), theLog);
    theButton.mAnswer = [this](const std::string& theName, EventRef) {
        if (theName == "hit") {
            DisposeControl(mProgram.mButton);
        }
        return OSStatus{eventNotHandledErr};
    };
    ExpectDone(mUser.Click(mProgram.mButton));
    EXPECT_FALSE(IsValidControlHandle(mProgram.mButton));
}

// Refusals ---------------------------------------------------------------------------------------------

TEST_F(UserSimulator, RefusesAHiddenControl)
{
    HideControl(mProgram.mButton);
    Take();
    ExpectRefusal(mUser.Click(mProgram.mButton), "the push button 'rset' 1 is hidden");
}

TEST_F(UserSimulator, RefusesADisabledControl)
{
    DisableControl(mProgram.mSlider);
    Take();
    ExpectRefusal(mUser.DragSlider(mProgram.mSlider, 7), "the slider 'temp' 1 is disabled");
    EXPECT_EQ(GetControl32BitValue(mProgram.mSlider), 5);
}

TEST_F(UserSimulator, RefusesAControlInAHiddenWindow)
{
    HideWindow(mProgram.mWindow.Get());
    Take();
    ExpectRefusal(mUser.Click(mProgram.mButton), "the window \"Thermostat\" is hidden");
}

TEST_F(UserSimulator, RefusesAControlInACollapsedWindow)
{
    CollapseWindow(mProgram.mWindow.Get(), true);
    Take();
    ExpectRefusal(mUser.Click(mProgram.mButton), "the window \"Thermostat\" is collapsed");
}

TEST_F(UserSimulator, RefusesAControlBehindAModalWindow)
{
    const TestWindow theAlert(MakeRect(600, 80, 800, 180), CFSTR("Alert"), kMovableModalWindowClass,
                              kWindowNoAttributes);
    Take();
    ExpectRefusal(mUser.Click(mProgram.mButton),
                  "the window \"Thermostat\" is behind the window \"Alert\", which is modal");
}

TEST_F(UserSimulator, RefusesAControlCoveredByAnotherWindow)
{
    const TestWindow theCover(MakeRect(100, 80, 420, 280), CFSTR("Cover"));
    Take();
    ExpectRefusal(mUser.Click(mProgram.mButton),
                  "the push button 'rset' 1 is covered by the window \"Cover\"");
}

TEST_F(UserSimulator, RefusesAControlCoveredByAnotherControl)
{
    const Rect theBounds = MakeRect(0, 90, 200, 140);
    ControlRef theCover = nullptr;
    CreatePushButtonControl(mProgram.mWindow.Get(), &theBounds, CFSTR("Cover"), &theCover);
    mProgram.Name(theCover, 'covr');
    Take();
    ExpectRefusal(mUser.Click(mProgram.mButton),
                  "the push button 'rset' 1 is covered by the push button 'covr' 1");
}

TEST_F(UserSimulator, RefusesAControlOutsideOfItsWindow)
{
    MoveControl(mProgram.mButton, 1000, 10);
    Take();
    ExpectRefusal(mUser.Click(mProgram.mButton), "the push button 'rset' 1 lies outside of its window");
}

TEST_F(UserSimulator, RefusesAControlThatIsNotThere)
{
    const WindowRef theWindow = mProgram.mWindow.Get();
    ExpectRefusal(mUser.Click({theWindow, {'none', 2}}),
                  "there is no control 'none' 2 in the window \"Thermostat\"");
    ExpectRefusal(mUser.Click(static_cast<ControlRef>(nullptr)), "there is no such control");
    ExpectRefusal(mUser.DragSlider({theWindow, {'none', 2}}, 0),
                  "there is no control 'none' 2 in the window \"Thermostat\"");
    DisposeControl(mProgram.mButton);
    Take();
    ExpectRefusal(mUser.Click(mProgram.mButton), "there is no such control");
}

TEST_F(UserSimulator, RefusesAControlInAWindowThatIsGone)
{
    const WindowRef theWindow = mProgram.mWindow.Get();
    DisposeWindow(theWindow);
    Take();
    ExpectRefusal(mUser.Click({theWindow, {'rset', 1}}),
                  "there is no control 'rset' 1 in a window that is gone");
}

TEST_F(UserSimulator, RefusesAPartThatTheControlDoesNotHave)
{
    ExpectRefusal(mUser.ClickPart(mProgram.mButton, kControlUpButtonPart),
                  "the push button 'rset' 1 has no part 20");
}

// Dragging ---------------------------------------------------------------------------------------------

TEST_F(UserSimulator, DragsASliderToAValue)
{
    ExpectDone(mUser.DragSlider(mProgram.mSlider, 9));
    EXPECT_EQ(GetControl32BitValue(mProgram.mSlider), 9);
    EXPECT_EQ(Take(),
              (Log{"mouse down", "click", "mouse dragged", "mouse dragged", "mouse up", "value", "hit"}));
}

TEST_F(UserSimulator, DragsThroughTheWholeRangeOfNumbers)
{
    SetControl32BitMinimum(mProgram.mSlider, -2147483647 - 1);
    SetControl32BitMaximum(mProgram.mSlider, 2147483647);
    ExpectDone(mUser.DragSlider(mProgram.mSlider, 2147483647));
    EXPECT_EQ(GetControl32BitValue(mProgram.mSlider), 2147483647);
    ExpectDone(mUser.DragSlider(mProgram.mSlider, -2147483647 - 1));
    EXPECT_EQ(GetControl32BitValue(mProgram.mSlider), -2147483647 - 1);
    ExpectDone(mUser.DragSlider(mProgram.mSlider, 3));
    EXPECT_EQ(GetControl32BitValue(mProgram.mSlider), 3);
}

TEST_F(UserSimulator, RefusesAValueBeyondTheSlider)
{
    ExpectRefusal(mUser.DragSlider(mProgram.mSlider, 11), "the slider 'temp' 1 goes from 0 to 10");
    ExpectRefusal(mUser.DragSlider(mProgram.mSlider, -1), "the slider 'temp' 1 goes from 0 to 10");
}

TEST_F(UserSimulator, RefusesToDragWhatHasNoIndicator)
{
    ExpectRefusal(mUser.DragSlider(mProgram.mButton, 1), "the push button 'rset' 1 has no indicator to drag");
}

// Typing -----------------------------------------------------------------------------------------------

TEST_F(UserSimulator, TypesTextIntoTheField)
{
    FocusField();
    ExpectDone(mUser.TypeText("Living Room #2"));
    EXPECT_EQ(TextOf(mProgram.mField), "Living Room #2");
}

TEST_F(UserSimulator, TypesWhatNoKeyTypes)
{
    FocusField();
    ExpectDone(mUser.TypeText("Küche ж𝄞"));
    EXPECT_EQ(TextOf(mProgram.mField), "Küche ж𝄞");
}

TEST_F(UserSimulator, SelectsAllCutsCopiesAndPastes)
{
    FocusField();
    mUser.TypeText("abc");
    ExpectDone(mUser.PressKey(kVK_ANSI_A, cmdKey));
    ExpectDone(mUser.PressKey(kVK_ANSI_C, cmdKey));
    EXPECT_EQ(TextOf(mProgram.mField), "abc");
    mUser.PressKey(kVK_End);
    ExpectDone(mUser.PressKey(kVK_ANSI_V, cmdKey));
    EXPECT_EQ(TextOf(mProgram.mField), "abcabc");
    mUser.PressKey(kVK_ANSI_A, cmdKey);
    ExpectDone(mUser.PressKey(kVK_ANSI_X, cmdKey));
    EXPECT_EQ(TextOf(mProgram.mField), "");
    mUser.PressKey(kVK_ANSI_V, cmdKey);
    EXPECT_EQ(TextOf(mProgram.mField), "abcabc");
}

TEST_F(UserSimulator, EveryCharacterIsAKeyDownAndAKeyUp)
{
    FocusField();
    Take();
    ExpectDone(mUser.TypeText("aB"));
    EXPECT_EQ(Take(), (Log{"key down", "key up", "modifiers", "key down", "key up", "modifiers"}));
}

TEST_F(UserSimulator, RefusesToTypeWithoutAField)
{
    ClearKeyboardFocus(mProgram.mWindow.Get());
    Take();
    ExpectRefusal(mUser.TypeText("a"), "the keys go to no edit text");
}

TEST_F(UserSimulator, RefusesToTypeWhatIsNoText)
{
    FocusField();
    Take();
    ExpectRefusal(mUser.TypeText("a\xFF"), "the text to type is not UTF-8");
    EXPECT_EQ(TextOf(mProgram.mField), "");
}

TEST_F(UserSimulator, BackspaceTakesTheLastCharacterAway)
{
    FocusField();
    mUser.TypeText("Room");
    ExpectDone(mUser.PressKey(kVK_Delete));
    EXPECT_EQ(TextOf(mProgram.mField), "Roo");
}

TEST_F(UserSimulator, ReturnPressesTheDefaultButton)
{
    SetWindowDefaultButton(mProgram.mWindow.Get(), mProgram.mButton);
    SetControlCommandID(mProgram.mButton, 'rset');
    Take();
    ExpectDone(mUser.PressKey(kVK_Return));
    EXPECT_EQ(Take(), (Log{"key down", "hit", "command", "key up"}));
}

TEST_F(UserSimulator, TabMovesTheKeysToTheNextControl)
{
    const Rect theBounds = MakeRect(10, 130, 210, 150);
    ControlRef theNext = nullptr;
    CreateEditUnicodeTextControl(mProgram.mWindow.Get(), &theBounds, nullptr, false, nullptr, &theNext);
    FocusField();
    ExpectDone(mUser.TypeText("Kitchen\t\tblue"));
    EXPECT_EQ(TextOf(mProgram.mField), "Kitchen");
    EXPECT_EQ(TextOf(theNext), "blue");
}

// Windows ----------------------------------------------------------------------------------------------

Rect ContentOf(WindowRef theWindow)
{
    Rect theBounds = {};
    GetWindowBounds(theWindow, kWindowContentRgn, &theBounds);
    return theBounds;
}

void ExpectBounds(const Rect& theRect, short theLeft, short theTop, short theRight, short theBottom)
{
    EXPECT_EQ(theRect.left, theLeft);
    EXPECT_EQ(theRect.top, theTop);
    EXPECT_EQ(theRect.right, theRight);
    EXPECT_EQ(theRect.bottom, theBottom);
}

const Log kPressOnFrame = {"mouse moved", "mouse down", "mouse up"};

TEST_F(UserSimulator, ClosesAWindow)
{
    const WindowRef theWindow = mProgram.mWindow.Get();
    ExpectDone(mUser.CloseWindow(theWindow));
    EXPECT_FALSE(IsValidWindowPtr(theWindow));
    ExpectRefusal((Take(), mUser.CloseWindow(theWindow)), "the window is gone");
}

TEST_F(UserSimulator, PressesTheCloseBoxBeforeTheWindowIgAskedToClose)
{
    Consume("close");
    ExpectDone(mUser.CloseWindow(mProgram.mWindow.Get()));
    EXPECT_EQ(Take(), (Log{"mouse moved", "mouse down", "mouse up", "close"}));
    EXPECT_TRUE(IsValidWindowPtr(mProgram.mWindow.Get()));
}

TEST_F(UserSimulator, RefusesToCloseAWindowWithoutACloseBox)
{
    const TestWindow thePlain(MakeRect(600, 80, 700, 120), CFSTR("Plain"), kDocumentWindowClass,
                              kWindowNoAttributes);
    Take();
    ExpectRefusal(mUser.CloseWindow(thePlain.Get()), "the window \"Plain\" has no close box");
    EXPECT_TRUE(IsValidWindowPtr(thePlain.Get()));
}

TEST_F(UserSimulator, MovesAWindowByItsTitleBar)
{
    ExpectDone(mUser.MoveWindow(mProgram.mWindow.Get(), 300, 250));
    ExpectBounds(ContentOf(mProgram.mWindow.Get()), 300, 250, 620, 450);
    EXPECT_EQ(Take(), (Log{"mouse moved", "mouse down", "mouse up", "drag started", "bounds changing",
                           "bounds changed", "drag completed"}));
}

TEST_F(UserSimulator, TellsThatAPersonMovedTheWindow)
{
    UInt32 theCause = 0;
    mWindowLog.mAnswer = [&theCause](const std::string& theName, EventRef theEvent) {
        if (theName == "bounds changed") {
            theCause = Parameter<UInt32>(theEvent, kEventParamAttributes, typeUInt32);
        }
        return OSStatus{eventNotHandledErr};
    };
    ExpectDone(mUser.MoveWindow(mProgram.mWindow.Get(), 300, 250));
    EXPECT_EQ(theCause, UInt32{kWindowBoundsChangeUserDrag | kWindowBoundsChangeOriginChanged});
    ExpectDone(mUser.ResizeWindow(mProgram.mWindow.Get(), 400, 300));
    EXPECT_EQ(theCause, UInt32{kWindowBoundsChangeUserResize | kWindowBoundsChangeSizeChanged});
}

TEST_F(UserSimulator, LeavesAWindowAloneThatIsInThePlaceAlready)
{
    ExpectDone(mUser.MoveWindow(mProgram.mWindow.Get(), 100, 80));
    EXPECT_EQ(Take(), kPressOnFrame);
}

TEST_F(UserSimulator, ResizesAWindowByItsCorner)
{
    ExpectDone(mUser.ResizeWindow(mProgram.mWindow.Get(), 400, 300));
    ExpectBounds(ContentOf(mProgram.mWindow.Get()), 100, 80, 500, 380);
    EXPECT_EQ(Take(), (Log{"mouse moved", "mouse down", "mouse up", "resize started", "bounds changing",
                           "bounds changed", "resize completed"}));
}

TEST_F(UserSimulator, RefusesASizeBeyondTheLimits)
{
    const HISize theSmallest = {200, 100};
    const HISize theLargest = {800, 600};
    SetWindowResizeLimits(mProgram.mWindow.Get(), &theSmallest, &theLargest);
    const WindowRef theWindow = mProgram.mWindow.Get();
    ExpectRefusal(mUser.ResizeWindow(theWindow, 199, 100),
                  "the window \"Thermostat\" cannot be made 199 × 100");
    ExpectRefusal(mUser.ResizeWindow(theWindow, 200, 99),
                  "the window \"Thermostat\" cannot be made 200 × 99");
    ExpectRefusal(mUser.ResizeWindow(theWindow, 801, 600),
                  "the window \"Thermostat\" cannot be made 801 × 600");
    ExpectRefusal(mUser.ResizeWindow(theWindow, 800, 601),
                  "the window \"Thermostat\" cannot be made 800 × 601");
    ExpectDone(mUser.ResizeWindow(theWindow, 200, 100));
    ExpectDone(mUser.ResizeWindow(theWindow, 800, 600));
}

TEST_F(UserSimulator, RefusesASizeThatIsNone)
{
    ExpectRefusal(mUser.ResizeWindow(mProgram.mWindow.Get(), 0, 100),
                  "the window \"Thermostat\" cannot be made 0 × 100");
    ExpectRefusal(mUser.ResizeWindow(mProgram.mWindow.Get(), 100, -5),
                  "the window \"Thermostat\" cannot be made 100 × -5");
}

TEST_F(UserSimulator, ZoomsAWindowAndBack)
{
    ExpectDone(mUser.ZoomWindow(mProgram.mWindow.Get()));
    const Rect theLarge = ContentOf(mProgram.mWindow.Get());
    EXPECT_GT(theLarge.right - theLarge.left, 900);
    EXPECT_EQ(Take(), (Log{"mouse moved", "mouse down", "mouse up", "zoom", "bounds changing",
                           "bounds changed", "zoomed"}));
    ExpectDone(mUser.ZoomWindow(mProgram.mWindow.Get()));
    ExpectBounds(ContentOf(mProgram.mWindow.Get()), 100, 80, 420, 280);
}

TEST_F(UserSimulator, CollapsesAWindowAndExpandsItAgain)
{
    ExpectDone(mUser.CollapseWindow(mProgram.mWindow.Get()));
    EXPECT_TRUE(IsWindowCollapsed(mProgram.mWindow.Get()));
    const Log theLog = Take();
    EXPECT_EQ(Log(theLog.begin(), theLog.begin() + 6),
              (Log{"mouse moved", "mouse down", "mouse up", "collapse", "collapsing", "collapsed"}));
    ExpectRefusal(mUser.CollapseWindow(mProgram.mWindow.Get()), "the window \"Thermostat\" is collapsed");
    ExpectDone(mUser.ExpandWindow(mProgram.mWindow.Get()));
    EXPECT_FALSE(IsWindowCollapsed(mProgram.mWindow.Get()));
    EXPECT_EQ(Take().front(), "expand");
}

TEST_F(UserSimulator, RefusesToExpandWhatIsNotCollapsed)
{
    const WindowRef theWindow = mProgram.mWindow.Get();
    ExpectRefusal(mUser.ExpandWindow(theWindow), "the window \"Thermostat\" is not collapsed");
    HideWindow(theWindow);
    Take();
    ExpectRefusal(mUser.ExpandWindow(theWindow), "the window \"Thermostat\" is not collapsed");
    DisposeWindow(theWindow);
    Take();
    ExpectRefusal(mUser.ExpandWindow(theWindow), "the window is gone");
}

TEST_F(UserSimulator, RefusesToExpandAWindowBehindAModalOne)
{
    CollapseWindow(mProgram.mWindow.Get(), true);
    const TestWindow theAlert(MakeRect(600, 80, 800, 180), CFSTR("Alert"), kMovableModalWindowClass,
                              kWindowNoAttributes);
    Take();
    ExpectRefusal(mUser.ExpandWindow(mProgram.mWindow.Get()),
                  "the window \"Thermostat\" cannot be expanded now");
}

TEST_F(UserSimulator, ActivatesAWindowByItsTitleBar)
{
    const TestWindow theOther(MakeRect(500, 300, 700, 400), CFSTR("Other"));
    EXPECT_FALSE(IsWindowActive(mProgram.mWindow.Get()));
    ExpectDone(mUser.ActivateWindow(mProgram.mWindow.Get()));
    EXPECT_TRUE(IsWindowActive(mProgram.mWindow.Get()));
    EXPECT_FALSE(IsWindowActive(theOther.Get()));
}

// One action on a window's frame, and what is said of a window without that part of it.
struct FrameRow
{
    const char* theName;
    UserResult (*theAction)(Host::UserSimulator&, WindowRef);
    const char* theLack;
};

class UserSimulatorFrames : public UserSimulatorTest, public testing::WithParamInterface<FrameRow>
{
};

TEST_P(UserSimulatorFrames, DoNothingWhenAHandlerConsumedThePress)
{
    const Rect theBounds = ContentOf(mProgram.mWindow.Get());
    Consume("mouse down");
    ExpectDone(GetParam().theAction(mUser, mProgram.mWindow.Get()));
    EXPECT_EQ(Take(), kPressOnFrame);
    ASSERT_TRUE(IsValidWindowPtr(mProgram.mWindow.Get()));
    EXPECT_FALSE(IsWindowCollapsed(mProgram.mWindow.Get()));
    ExpectBounds(ContentOf(mProgram.mWindow.Get()), theBounds.left, theBounds.top, theBounds.right,
                 theBounds.bottom);
}

TEST_P(UserSimulatorFrames, AreRefusedWhenThePartIsNotThere)
{
    const TestWindow theBare(MakeRect(600, 80, 700, 120), CFSTR("Bare"), kPlainWindowClass,
                             kWindowNoAttributes);
    Take();
    ExpectRefusal(GetParam().theAction(mUser, theBare.Get()),
                  std::string("the window \"Bare\" ") + GetParam().theLack);
}

TEST_P(UserSimulatorFrames, AreRefusedWhenThePartIsCovered)
{
    const TestWindow theCover(MakeRect(90, 20, 500, 400), CFSTR("Cover"));
    Take();
    ExpectRefusal(GetParam().theAction(mUser, mProgram.mWindow.Get()),
                  "the frame of the window \"Thermostat\" is covered");
}

TEST_P(UserSimulatorFrames, AreRefusedWhenTheWindowIsHidden)
{
    HideWindow(mProgram.mWindow.Get());
    Take();
    ExpectRefusal(GetParam().theAction(mUser, mProgram.mWindow.Get()), "the window \"Thermostat\" is hidden");
}

TEST_P(UserSimulatorFrames, AreRefusedWhenTheWindowIsGone)
{
    DisposeWindow(mProgram.mWindow.Get());
    Take();
    ExpectRefusal(GetParam().theAction(mUser, mProgram.mWindow.Get()), "the window is gone");
}

INSTANTIATE_TEST_SUITE_P(Actions, UserSimulatorFrames,
                         testing::Values(FrameRow{"Close",
                                                  [](Host::UserSimulator& theUser, WindowRef theWindow) {
                                                      return theUser.CloseWindow(theWindow);
                                                  },
                                                  "has no close box"},
                                         FrameRow{"Move",
                                                  [](Host::UserSimulator& theUser, WindowRef theWindow) {
                                                      return theUser.MoveWindow(theWindow, 9, 99);
                                                  },
                                                  "has no title bar"},
                                         FrameRow{"Resize",
                                                  [](Host::UserSimulator& theUser, WindowRef theWindow) {
                                                      return theUser.ResizeWindow(theWindow, 99, 99);
                                                  },
                                                  "cannot be resized"},
                                         FrameRow{"Zoom",
                                                  [](Host::UserSimulator& theUser, WindowRef theWindow) {
                                                      return theUser.ZoomWindow(theWindow);
                                                  },
                                                  "has no zoom box"},
                                         FrameRow{"Collapse",
                                                  [](Host::UserSimulator& theUser, WindowRef theWindow) {
                                                      return theUser.CollapseWindow(theWindow);
                                                  },
                                                  "has no collapse box"},
                                         FrameRow{"Activate",
                                                  [](Host::UserSimulator& theUser, WindowRef theWindow) {
                                                      return theUser.ActivateWindow(theWindow);
                                                  },
                                                  "has no title bar"}),
                         [](const testing::TestParamInfo<FrameRow>& theInfo) {
                             return theInfo.param.theName;
                         });

// Looking ----------------------------------------------------------------------------------------------

TEST_F(UserSimulator, TellsWhatAControlShows)
{
    EXPECT_EQ(mUser.DescribeControl(mProgram.mSlider),
              "├─────────●──────────┤ 5 of 0…10          slider 'temp' 1");
    EXPECT_EQ(mUser.DescribeControl({mProgram.mWindow.Get(), {'none', 1}}), "");
}

TEST_F(UserSimulator, ChoosesInAComboBox)
{
    const HIRect theBounds = CGRectMake(10, 150, 150, 20);
    HIViewRef theBox = nullptr;
    HIComboBoxCreate(&theBounds, nullptr, nullptr, nullptr, 0, &theBox);
    HIComboBoxAppendTextItem(theBox, CFSTR("Oslo"), nullptr);
    HIComboBoxAppendTextItem(theBox, CFSTR("Rome"), nullptr);
    EmbedControl(theBox, HIViewGetRoot(mProgram.mWindow.Get()));
    HIViewSetVisible(theBox, true);
    ExpectDone(mUser.ChooseInPopUp(theBox, "Rome"));
    ExpectDone(mUser.TypeText("!"));
    EXPECT_EQ(mUser.DescribeControl(theBox).substr(0, 8), "[Rome!  ");
}

TEST_F(UserSimulator, TellsTheHelpOfAControlThatIsSeen)
{
    HMHelpContentRec theHelp = {};
    theHelp.version = kMacHelpVersion;
    theHelp.content[kHMMinimumContentIndex].contentType = kHMCFStringContent;
    theHelp.content[kHMMinimumContentIndex].u.tagCFString = CFSTR("What it is called.");
    theHelp.content[kHMMaximumContentIndex].contentType = kHMNoContent;
    EXPECT_EQ(mUser.DescribeHelp(mProgram.mField), "");
    HMSetControlHelpContent(mProgram.mField, &theHelp);
    EXPECT_EQ(mUser.DescribeHelp(mProgram.mField), "What it is called.");
    HideControl(mProgram.mField);
    EXPECT_EQ(mUser.DescribeHelp(mProgram.mField), "");
    ShowControl(mProgram.mField);
    HideWindow(mProgram.mWindow.Get());
    EXPECT_EQ(mUser.DescribeHelp(mProgram.mField), "");
    EXPECT_EQ(mUser.DescribeHelp(ControlRef{}), "");
}

TEST_F(UserSimulator, KeepsNoPictureOfWhatIsNotDrawnNotShownOrHasNoPlace)
{
    const std::string thePath = testing::TempDir() + "no-picture.png";
    EXPECT_EQ(mUser.SavePicture(mProgram.mField, thePath).Reason(),
              "the program has not drawn such a control");
    EXPECT_FALSE(mUser.SavePicture(ControlRef{}, thePath));
    EXPECT_EQ(mUser.SavePicture(mProgram.mWindow.Get(), "/dev/null/picture.png").Reason(),
              "the file \"/dev/null/picture.png\" cannot be written");
    HideWindow(mProgram.mWindow.Get());
    EXPECT_EQ(mUser.SavePicture(mProgram.mWindow.Get(), thePath).Reason(), "the window is not shown");
    EXPECT_FALSE(mUser.SavePicture(WindowRef{}, thePath));
}

TEST_F(UserSimulator, OpensAndPrintsFilesAndStartsTheProgramAgain)
{
    const AEEventHandlerUPP theHandler = [](const AppleEvent* theEvent, AppleEvent*, SRefCon) -> OSErr {
        OSType theIdentifier = 0;
        AEGetAttributePtr(theEvent, keyEventIDAttr, typeType, nullptr, &theIdentifier, sizeof theIdentifier,
                          nullptr);
        gAsked.push_back(theIdentifier);
        return noErr;
    };
    AEInstallEventHandler(kCoreEventClass, typeWildCard, theHandler, SRefCon{}, false);
    gAsked.clear();
    ExpectDone(mUser.OpenFiles({"/tmp", "/"}));
    ExpectDone(mUser.PrintFiles({"/tmp"}));
    ExpectDone(mUser.StartAgain());
    EXPECT_EQ(gAsked, (std::vector<OSType>{kAEOpenDocuments, kAEPrintDocuments, kAEReopenApplication}));
    ExpectRefusal(mUser.OpenFiles({"/tmp", "/absent"}), "there is no file \"/absent\"");
    ExpectRefusal(mUser.PrintFiles({}), "no file is named");
    EXPECT_EQ(gAsked.size(), 3u);
    AERemoveEventHandler(kCoreEventClass, typeWildCard, theHandler, false);
}

TEST_F(UserSimulator, TellsWhatIsOnTheScreen)
{
    FocusField();
    mUser.TypeText("Kitchen");
    EXPECT_EQ(mUser.DescribeScreen(),
              "\"Thermostat\" - document window, active\n"
              "   at 100, 80; 320 × 200; close box; collapse box; zoom box; resizable\n"
              " ├─ ├─────────●──────────┤ 5 of 0…10      slider 'temp' 1\n"
              " ├─ [ ] Heating on                        check box 'heat' 1\n"
              " ├─ [Kitchen         ]                    edit text 'room' 1, has the keys\n"
              " └─ ( Reset )                             push button 'rset' 1\n");
}

} // namespace
