// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "InputGateTestSupport.h"

#include <memory>

namespace {

using InputGate = InputGateTest;

using Host::ControlDrag;
using Host::DragPhase;
using Host::KeyAction;
using Host::ObjectId;
using Host::PointerAction;
using Host::PointerButton;
using Host::PresenterRegistry;

constexpr ObjectId kUnknown = 0x7FFFFFFF;

// Pointer ----------------------------------------------------------------------------------------------

TEST_F(InputGate, APressTellsTheWindowWhereAndWithWhat)
{
    PointerAction thePress = At(mWindow, 300, 150, PointerButton::kSecondary);
    thePress.theClickCount = 2;
    thePress.theModifiers = shiftKey;
    bool theIsSeen = false;
    mWindowLog.mAnswer = [&](const std::string&, EventRef theEvent) {
        theIsSeen = true;
        const HIPoint thePlace = Parameter<HIPoint>(theEvent, kEventParamMouseLocation, typeHIPoint);
        EXPECT_EQ(thePlace.x, CGFloat{400});
        EXPECT_EQ(thePlace.y, CGFloat{230});
        Rect theFrame = {};
        GetWindowBounds(mProgram.mWindow.Get(), kWindowStructureRgn, &theFrame);
        const HIPoint theInner = Parameter<HIPoint>(theEvent, kEventParamWindowMouseLocation, typeHIPoint);
        EXPECT_EQ(theInner.x, static_cast<CGFloat>(400 - theFrame.left));
        EXPECT_EQ(theInner.y, static_cast<CGFloat>(230 - theFrame.top));
        EXPECT_EQ(Parameter<WindowRef>(theEvent, kEventParamWindowRef, typeWindowRef),
                  mProgram.mWindow.Get());
        EXPECT_EQ(Parameter<WindowPartCode>(theEvent, kEventParamWindowPartCode, typeWindowPartCode),
                  inContent);
        EXPECT_EQ(Parameter<UInt32>(theEvent, kEventParamKeyModifiers, typeUInt32), UInt32{shiftKey});
        EXPECT_EQ(Parameter<UInt16>(theEvent, kEventParamMouseButton, typeMouseButton), 2);
        EXPECT_EQ(Parameter<UInt32>(theEvent, kEventParamClickCount, typeUInt32), 2u);
        EXPECT_EQ(Parameter<UInt32>(theEvent, kEventParamMouseChord, typeUInt32), 2u);
        return OSStatus{eventNotHandledErr};
    };
    EXPECT_TRUE(Gate().PointerPressed(thePress));
    EXPECT_EQ(Take(), Log{"mouse down"});
    EXPECT_TRUE(theIsSeen);
}

TEST_F(InputGate, AReleaseGoesToTheWindowThatWasPressed)
{
    Gate().PointerPressed(At(mWindow, 300, 150));
    PointerAction theRelease = At(kUnknown, 2000, 2000);
    EXPECT_TRUE(Gate().PointerReleased(theRelease));
    EXPECT_EQ(Take(), (Log{"mouse down", "mouse up"}));
}

TEST_F(InputGate, DropsAReleaseWithoutAPress)
{
    EXPECT_FALSE(Gate().PointerReleased(At(mWindow, 300, 150)));
    EXPECT_EQ(Take(), Log());
}

TEST_F(InputGate, DropsAReleaseOfAnotherButton)
{
    Gate().PointerPressed(At(mWindow, 300, 150));
    Take();
    EXPECT_FALSE(Gate().PointerReleased(At(mWindow, 300, 150, PointerButton::kTertiary)));
    EXPECT_EQ(Take(), Log());
}

TEST_F(InputGate, DropsASecondPressOfTheSameButton)
{
    Gate().PointerPressed(At(mWindow, 300, 150));
    EXPECT_FALSE(Gate().PointerPressed(At(mWindow, 300, 150)));
    EXPECT_EQ(Take(), Log{"mouse down"});
}

TEST_F(InputGate, ASecondButtonIsToldWithTheChord)
{
    std::vector<UInt32> theChords;
    mWindowLog.mAnswer = [&](const std::string&, EventRef theEvent) {
        theChords.push_back(Parameter<UInt32>(theEvent, kEventParamMouseChord, typeUInt32));
        return OSStatus{eventNotHandledErr};
    };
    Gate().PointerPressed(At(mWindow, 300, 150));
    Gate().PointerPressed(At(mWindow, 300, 150, PointerButton::kTertiary));
    Gate().PointerReleased(At(mWindow, 300, 150));
    Gate().PointerReleased(At(mWindow, 300, 150, PointerButton::kTertiary));
    EXPECT_EQ(Take(), (Log{"mouse down", "mouse down", "mouse up", "mouse up"}));
    EXPECT_EQ(theChords, (std::vector<UInt32>{1, 5, 4, 0}));
}

TEST_F(InputGate, MovesAreDragsWhileAButtonIsDown)
{
    Gate().PointerMoved(At(mWindow, 290, 150));
    Gate().PointerMoved(At(mWindow, 295, 150));
    Gate().PointerPressed(At(mWindow, 295, 150));
    Gate().PointerMoved(At(kUnknown, 300, 155));
    Gate().PointerReleased(At(mWindow, 300, 155));
    Gate().PointerMoved(At(mWindow, 290, 150));
    EXPECT_EQ(Take(),
              (Log{"mouse moved", "mouse moved", "mouse down", "mouse dragged", "mouse up", "mouse moved"}));
}

TEST_F(InputGate, AMoveTellsHowFar)
{
    Gate().PointerMoved(At(mWindow, 290, 150));
    mWindowLog.mAnswer = [](const std::string&, EventRef theEvent) {
        const HIPoint theDelta = Parameter<HIPoint>(theEvent, kEventParamMouseDelta, typeHIPoint);
        EXPECT_EQ(theDelta.x, CGFloat{-20});
        EXPECT_EQ(theDelta.y, CGFloat{7});
        return OSStatus{eventNotHandledErr};
    };
    EXPECT_TRUE(Gate().PointerMoved(At(mWindow, 270, 157)));
    EXPECT_EQ(Take(), (Log{"mouse moved", "mouse moved"}));
}

TEST_F(InputGate, DropsAMoveToTheSamePlace)
{
    Gate().PointerMoved(At(mWindow, 290, 150));
    EXPECT_FALSE(Gate().PointerMoved(At(mWindow, 290, 150)));
    EXPECT_EQ(Take(), Log{"mouse moved"});
}

TEST_F(InputGate, AMoveOverTheDesktopGoesToTheApplication)
{
    Log theLog;
    const EventLog theApplication(GetApplicationEventTarget(), theLog);
    EXPECT_TRUE(Gate().PointerMoved(At(Host::kNoObject, 900, 600)));
    EXPECT_EQ(theLog, Log{"mouse moved"});
    EXPECT_EQ(Take(), Log());
}

TEST_F(InputGate, AWheelTellsItsAxisAndHowFar)
{
    Host::WheelAction theAction;
    theAction.theWindow = mWindow;
    theAction.thePlace = {400, 230};
    theAction.theLines = -3;
    std::vector<UInt16> theAxes;
    mWindowLog.mAnswer = [&](const std::string&, EventRef theEvent) {
        theAxes.push_back(Parameter<UInt16>(theEvent, kEventParamMouseWheelAxis, typeMouseWheelAxis));
        EXPECT_EQ(Parameter<SInt32>(theEvent, kEventParamMouseWheelDelta, typeSInt32), -3);
        return OSStatus{eventNotHandledErr};
    };
    EXPECT_TRUE(Gate().WheelTurned(theAction));
    theAction.theIsHorizontal = true;
    EXPECT_TRUE(Gate().WheelTurned(theAction));
    theAction.theLines = 0;
    EXPECT_FALSE(Gate().WheelTurned(theAction));
    EXPECT_EQ(Take(), (Log{"wheel", "wheel"}));
    EXPECT_EQ(theAxes, (std::vector<UInt16>{kEventMouseWheelAxisY, kEventMouseWheelAxisX}));
}

// Every action of the pointer on a window, and whether it was delivered.
Log DeliveredTo(ObjectId theWindow)
{
    Log theDelivered;
    const auto Note = [&theDelivered](bool theIsDelivered, const char* theName) {
        if (theIsDelivered) {
            theDelivered.push_back(theName);
        }
    };
    Host::WheelAction theWheel;
    theWheel.theWindow = theWindow;
    theWheel.theLines = 1;
    Note(Gate().PointerMoved(At(theWindow, 280, 140)), "move");
    Note(Gate().WheelTurned(theWheel), "wheel");
    Note(Gate().PointerPressed(At(theWindow, 280, 140)), "press");
    Note(Gate().PointerReleased(At(theWindow, 280, 140)), "release");
    Note(Gate().WindowMoved(theWindow, {130, 90}), "moved");
    Note(Gate().WindowResized(theWindow, {500, 300}), "resized");
    Note(Gate().WindowActivated(theWindow), "activated");
    Note(Gate().WindowShown(theWindow), "shown");
    Note(Gate().ZoomAsked(theWindow), "zoom");
    Note(Gate().CloseAsked(theWindow), "close");
    return theDelivered;
}

TEST_F(InputGate, DropsWhatIsDoneToAWindowThatDoesNotExist)
{
    EXPECT_EQ(DeliveredTo(kUnknown), Log());
    EXPECT_FALSE(Gate().CollapseAsked(kUnknown, true));
    EXPECT_FALSE(Gate().CollapseAsked(kUnknown, false));
}

TEST_F(InputGate, DropsWhatIsDoneToAHiddenWindow)
{
    HideWindow(mProgram.mWindow.Get());
    Take();
    EXPECT_EQ(DeliveredTo(mWindow), Log());
    EXPECT_FALSE(Gate().CollapseAsked(mWindow, true));
    EXPECT_EQ(Take(), Log());
}

TEST_F(InputGate, DropsWhatIsDoneToACollapsedWindowButItsExpansion)
{
    CollapseWindow(mProgram.mWindow.Get(), true);
    Take();
    EXPECT_EQ(DeliveredTo(mWindow), Log());
    EXPECT_FALSE(Gate().CollapseAsked(mWindow, true));
    EXPECT_EQ(Take(), Log());
    EXPECT_TRUE(Gate().CollapseAsked(mWindow, false));
    EXPECT_FALSE(IsWindowCollapsed(mProgram.mWindow.Get()));
}

TEST_F(InputGate, DropsWhatIsDoneToAWindowBehindAModalOne)
{
    const TestWindow theAlert(MakeRect(600, 80, 800, 180), CFSTR("Alert"), kMovableModalWindowClass,
                              kWindowNoAttributes);
    Take();
    EXPECT_EQ(DeliveredTo(mWindow), Log());
    EXPECT_FALSE(Gate().CollapseAsked(mWindow, true));
    EXPECT_EQ(Take(), Log());
    EXPECT_FALSE(DeliveredTo(Screen().WindowCalled("Alert")).empty());
}

TEST_F(InputGate, LetsAHandlerOfThePressDisposeTheWindow)
{
    const WindowRef theWindow = mProgram.mWindow.Get();
    const EventTypeSpec theType = {kEventClassMouse, kEventMouseDown};
    const auto Dispose = [](EventHandlerCallRef, EventRef, void* theUserData) -> OSStatus {
        DisposeWindow(static_cast<WindowRef>(theUserData));
        return noErr;
    };
    InstallEventHandler(GetWindowEventTarget(theWindow), Dispose, 1, &theType, theWindow, nullptr);
    EXPECT_TRUE(Gate().PointerPressed(At(mWindow, 300, 150)));
    EXPECT_FALSE(IsValidWindowPtr(theWindow));
    EXPECT_FALSE(Gate().PointerMoved(At(mWindow, 310, 150)));
    EXPECT_FALSE(Gate().PointerReleased(At(mWindow, 310, 150)));
}

TEST_F(InputGate, ForgetsAPressOfWhichTheReleaseNeverCame)
{
    {
        const TestWindow theOther(MakeRect(500, 300, 700, 400), CFSTR("Other"));
        Gate().PointerPressed(At(Screen().WindowCalled("Other"), 450, 250));
    }
    Take();
    EXPECT_TRUE(Gate().PointerPressed(At(mWindow, 300, 150)));
    EXPECT_EQ(Take(), Log{"mouse down"});
}

TEST_F(InputGate, TakesAnyCoordinate)
{
    constexpr int kLeast = -2147483647 - 1;
    constexpr int kMost = 2147483647;
    PointerAction theAction;
    theAction.theWindow = mWindow;
    for (const Host::PixelPoint thePlace :
         {Host::PixelPoint{kLeast, kMost}, Host::PixelPoint{kMost, kLeast}}) {
        theAction.thePlace = thePlace;
        EXPECT_TRUE(Gate().PointerMoved(theAction));
        EXPECT_TRUE(Gate().PointerPressed(theAction));
        EXPECT_TRUE(Gate().PointerReleased(theAction));
        Gate().WindowMoved(mWindow, thePlace);
        Gate().WindowResized(mWindow, {thePlace.theX, thePlace.theY});
    }
}

// Keys -------------------------------------------------------------------------------------------------

TEST_F(InputGate, KeysStartAtTheFocusedControl)
{
    Log theLog;
    SetKeyboardFocus(mProgram.mWindow.Get(), mProgram.mField, kControlEditTextPart);
    const EventLog theField(GetControlEventTarget(mProgram.mField), theLog);
    Take();
    Gate().KeyPressed({kVK_ANSI_K, "k", 0});
    Gate().KeyReleased({kVK_ANSI_K, "k", 0});
    EXPECT_EQ(theLog, (Log{"key down", "text", "key up"}));
    EXPECT_EQ(TextOf(mProgram.mField), "k");
}

TEST_F(InputGate, AKeyThatAHandlerConsumedTypesNothing)
{
    SetKeyboardFocus(mProgram.mWindow.Get(), mProgram.mField, kControlEditTextPart);
    Take();
    Consume("key down");
    Gate().KeyPressed({kVK_ANSI_K, "k", 0});
    Gate().KeyReleased({kVK_ANSI_K, "k", 0});
    EXPECT_EQ(Take(), (Log{"key down", "key up"}));
    EXPECT_EQ(TextOf(mProgram.mField), "");
}

TEST_F(InputGate, AKeyHeldDownRepeats)
{
    const KeyAction theKey = {kVK_F1, "", 0};
    EXPECT_FALSE(Gate().KeyRepeated(theKey));
    Gate().KeyPressed(theKey);
    EXPECT_TRUE(Gate().KeyRepeated(theKey));
    EXPECT_TRUE(Gate().KeyPressed(theKey));
    EXPECT_TRUE(Gate().KeyReleased(theKey));
    EXPECT_FALSE(Gate().KeyReleased(theKey));
    EXPECT_EQ(Take(), (Log{"key down", "key repeat", "key repeat", "key up"}));
}

TEST_F(InputGate, ModifiersAreToldWhenTheyChange)
{
    EXPECT_TRUE(Gate().ModifiersChanged(optionKey));
    EXPECT_EQ(GetCurrentKeyModifiers(), UInt32{optionKey});
    EXPECT_FALSE(Gate().ModifiersChanged(optionKey));
    EXPECT_TRUE(Gate().ModifiersChanged(0));
    EXPECT_EQ(GetCurrentKeyModifiers(), 0u);
    EXPECT_EQ(Take(), (Log{"modifiers", "modifiers"}));
}

TEST_F(InputGate, KeysDoNotReachAWindowBehindAModalOne)
{
    const TestWindow theAlert(MakeRect(600, 80, 800, 180), CFSTR("Alert"), kMovableModalWindowClass,
                              kWindowNoAttributes);
    SetUserFocusWindow(mProgram.mWindow.Get());
    Take();
    EXPECT_FALSE(Gate().KeyPressed({kVK_ANSI_K, "k", 0}));
    EXPECT_FALSE(Gate().KeyRepeated({kVK_ANSI_K, "k", 0}));
    EXPECT_FALSE(Gate().KeyReleased({kVK_ANSI_K, "k", 0}));
    EXPECT_EQ(Take(), Log());
    SetUserFocusWindow(kUserFocusAuto);
}

TEST_F(InputGate, TellsWhetherAKeyWasWanted)
{
    const KeyAction theKey = {kVK_ANSI_K, "k", 0};
    ClearKeyboardFocus(mProgram.mWindow.Get());
    Gate().KeyPressed(theKey);
    EXPECT_FALSE(Gate().WasTaken());
    Gate().KeyReleased(theKey);
    Consume("key down");
    Gate().KeyPressed(theKey);
    EXPECT_TRUE(Gate().WasTaken());
    Gate().KeyReleased(theKey);
    EXPECT_FALSE(Gate().WasTaken());
    mWindowLog.mAnswer = nullptr;
    SetKeyboardFocus(mProgram.mWindow.Get(), mProgram.mField, kControlEditTextPart);
    Gate().KeyPressed(theKey);
    EXPECT_TRUE(Gate().WasTaken());
    Gate().KeyRepeated(theKey);
    EXPECT_TRUE(Gate().WasTaken());
    Gate().KeyReleased(theKey);
    Gate().KeyReleased(theKey);
    EXPECT_FALSE(Gate().WasTaken());
}

TEST_F(InputGate, TellsWhetherAPressOrAWheelWasWanted)
{
    Gate().PointerPressed(At(mWindow, 300, 150));
    EXPECT_FALSE(Gate().WasTaken());
    Gate().PointerReleased(At(mWindow, 300, 150));
    Gate().PointerPressed(At(mWindow, 20, 110));
    EXPECT_TRUE(Gate().WasTaken());
    Gate().PointerReleased(At(mWindow, 20, 110));
    Host::WheelAction theWheel;
    theWheel.theWindow = mWindow;
    theWheel.theLines = 1;
    Gate().WheelTurned(theWheel);
    EXPECT_FALSE(Gate().WasTaken());
    Consume("wheel");
    Gate().WheelTurned(theWheel);
    EXPECT_TRUE(Gate().WasTaken());
    theWheel.theLines = 0;
    Gate().WheelTurned(theWheel);
    EXPECT_FALSE(Gate().WasTaken());
}

// Controls ---------------------------------------------------------------------------------------------

class InputGateDrag : public InputGateTest
{
protected:
    InputGateDrag()
        : mSlider(Screen().ControlCalled('temp'))
    {
        mProgram.Name(mProgram.mSlider, 'temp');
    }

    bool Drag(DragPhase thePhase, SInt32 theValue)
    {
        ControlDrag theDrag;
        theDrag.theControl = mSlider;
        theDrag.thePhase = thePhase;
        theDrag.theValue = theValue;
        return Gate().ControlDragged(theDrag);
    }

    // A slider at the left top 10, 130, whose value follows the drag.
    void UseLiveSlider(SInt32 theMaximum)
    {
        const Rect theBounds = MakeRect(10, 130, 210, 150);
        CreateSliderControl(mProgram.mWindow.Get(), &theBounds, 5, 0, theMaximum, kControlSliderDoesNotPoint,
                            0, true, nullptr, &mDragged);
        mProgram.Name(mDragged, 'live');
        mSlider = Screen().ControlCalled('live');
    }

    SInt32 Value() const { return GetControl32BitValue(mDragged); }

    ControlRef mDragged = mProgram.mSlider;
    ObjectId mSlider;
};

TEST_F(InputGateDrag, IsAPressAMoveAndARelease)
{
    EXPECT_TRUE(Drag(DragPhase::kBegan, 5));
    EXPECT_TRUE(Drag(DragPhase::kMoved, 8));
    EXPECT_EQ(Value(), 5);
    EXPECT_TRUE(Drag(DragPhase::kEnded, 8));
    EXPECT_EQ(Value(), 8);
    EXPECT_EQ(Take(), (Log{"mouse down", "click", "mouse dragged", "mouse up", "value", "hit"}));
}

TEST_F(InputGateDrag, ReachesValuesThatLieBetweenThePixels)
{
    SetControl32BitMaximum(mProgram.mSlider, 1000000);
    Drag(DragPhase::kBegan, 5);
    EXPECT_TRUE(Drag(DragPhase::kMoved, 123457));
    EXPECT_TRUE(Drag(DragPhase::kMoved, 123458));
    Drag(DragPhase::kEnded, 123459);
    EXPECT_EQ(Value(), 123459);
}

TEST_F(InputGateDrag, FollowsALiveSliderStepByStep)
{
    UseLiveSlider(1000);
    Drag(DragPhase::kBegan, 5);
    Drag(DragPhase::kMoved, 333);
    EXPECT_EQ(Value(), 333);
    Drag(DragPhase::kMoved, 334);
    EXPECT_EQ(Value(), 334);
    Drag(DragPhase::kEnded, 334);
    EXPECT_EQ(Take(), (Log{"mouse down", "click", "mouse dragged", "value", "mouse dragged", "value",
                           "mouse up", "hit"}));
}

TEST_F(InputGateDrag, MovesNothingWhenAHandlerConsumedThePress)
{
    Consume("mouse down");
    Drag(DragPhase::kBegan, 5);
    Drag(DragPhase::kMoved, 8);
    Drag(DragPhase::kEnded, 8);
    EXPECT_EQ(Value(), 5);
    EXPECT_EQ(Take(), (Log{"mouse down", "mouse dragged", "mouse up"}));
}

TEST_F(InputGateDrag, MovesNothingOnADisabledSlider)
{
    DisableControl(mProgram.mSlider);
    Drag(DragPhase::kBegan, 5);
    Drag(DragPhase::kMoved, 8);
    Drag(DragPhase::kEnded, 8);
    EXPECT_EQ(Value(), 5);
    EXPECT_EQ(Take(), (Log{"mouse down", "mouse dragged", "mouse up"}));
}

// The exact value of a step that a handler kept used to be left behind, and the next move jumped there.
TEST_F(InputGateDrag, LeavesNothingBehindOfAStepThatAHandlerKept)
{
    UseLiveSlider(1000000);
    Drag(DragPhase::kBegan, 5);
    Consume("mouse dragged");
    Drag(DragPhase::kMoved, 900001);
    mWindowLog.mAnswer = nullptr;
    EXPECT_TRUE(Gate().PointerMoved(At(mWindow, 110, 140)));
    EXPECT_GT(Value(), 400000);
    EXPECT_LT(Value(), 600000);
}

TEST_F(InputGateDrag, NeedsABeginning)
{
    EXPECT_FALSE(Drag(DragPhase::kMoved, 8));
    EXPECT_FALSE(Drag(DragPhase::kEnded, 8));
    EXPECT_EQ(Value(), 5);
    EXPECT_EQ(Take(), Log());
}

TEST_F(InputGateDrag, BeginsOnce)
{
    EXPECT_TRUE(Drag(DragPhase::kBegan, 5));
    EXPECT_FALSE(Drag(DragPhase::kBegan, 5));
    EXPECT_TRUE(Drag(DragPhase::kEnded, 5));
    EXPECT_FALSE(Drag(DragPhase::kEnded, 5));
    EXPECT_EQ(Take(), (Log{"mouse down", "click", "mouse up", "hit"}));
}

TEST_F(InputGateDrag, IsDroppedForAControlWithoutIndicator)
{
    mSlider = Screen().ControlCalled('rset');
    EXPECT_FALSE(Drag(DragPhase::kBegan, 0));
    mSlider = kUnknown;
    EXPECT_FALSE(Drag(DragPhase::kBegan, 0));
    EXPECT_EQ(Take(), Log());
}

TEST_F(InputGateDrag, SurvivesTheDisposalOfTheControl)
{
    Drag(DragPhase::kBegan, 5);
    DisposeControl(mProgram.mSlider);
    Take();
    EXPECT_TRUE(Drag(DragPhase::kMoved, 8));
    EXPECT_TRUE(Drag(DragPhase::kEnded, 8));
    EXPECT_EQ(Take(), (Log{"mouse dragged", "mouse up"}));
}

TEST_F(InputGateDrag, SurvivesTheDisposalOfTheWindow)
{
    Drag(DragPhase::kBegan, 5);
    DisposeWindow(mProgram.mWindow.Get());
    EXPECT_FALSE(Drag(DragPhase::kMoved, 8));
    EXPECT_FALSE(Drag(DragPhase::kEnded, 8));
}

struct PartRow
{
    const char* theName;
    Host::ControlPart thePart;
    ControlPartCode theCode;
};

std::vector<ControlPartCode> gPressedParts;

class InputGateParts : public InputGateTest, public testing::WithParamInterface<PartRow>
{
protected:
    InputGateParts()
    {
        const Rect theBounds = MakeRect(10, 130, 210, 146);
        CreateScrollBarControl(mProgram.mWindow.Get(), &theBounds, 50, 0, 100, 10, false, nullptr,
                               &mScrollBar);
        TestProgram::Name(mScrollBar, 'scrl');
        SetControlAction(mScrollBar,
                         [](ControlRef, ControlPartCode thePart) { gPressedParts.push_back(thePart); });
        gPressedParts.clear();
    }

    bool Press(bool theIsDown)
    {
        Host::PartPress thePress;
        thePress.theControl = Screen().ControlCalled('scrl');
        thePress.thePart = GetParam().thePart;
        thePress.theIsDown = theIsDown;
        return Gate().PartPressed(thePress);
    }

    ControlRef mScrollBar = nullptr;
};

TEST_P(InputGateParts, ArePressedWhereTheManagersThinkThatTheyAre)
{
    EXPECT_FALSE(Press(false));
    EXPECT_TRUE(Press(true));
    EXPECT_EQ(gPressedParts, std::vector<ControlPartCode>{GetParam().theCode});
    EXPECT_FALSE(Press(true));
    EXPECT_TRUE(Press(false));
    EXPECT_FALSE(Press(false));
    EXPECT_EQ(Take(), (Log{"mouse down", "click", "mouse up", "hit"}));
}

INSTANTIATE_TEST_SUITE_P(
    ScrollBar, InputGateParts,
    testing::Values(PartRow{"Up", Host::ControlPart::kUpButton, kControlUpButtonPart},
                    PartRow{"Down", Host::ControlPart::kDownButton, kControlDownButtonPart},
                    PartRow{"PageUp", Host::ControlPart::kPageUp, kControlPageUpPart},
                    PartRow{"PageDown", Host::ControlPart::kPageDown, kControlPageDownPart}),
    [](const testing::TestParamInfo<PartRow>& theInfo) { return theInfo.param.theName; });

TEST_F(InputGate, DropsAPressOnAPartThatTheControlDoesNotHave)
{
    Host::PartPress thePress;
    thePress.theControl = Screen().ControlCalled('rset');
    EXPECT_FALSE(Gate().PartPressed(thePress));
    thePress.theControl = kUnknown;
    EXPECT_FALSE(Gate().PartPressed(thePress));
    EXPECT_EQ(Take(), Log());
}

TEST_F(InputGate, AnEditOfAFieldReplacesItsText)
{
    Host::TextEdit theEdit;
    theEdit.theControl = Screen().ControlCalled('room');
    theEdit.theText = "Küche";
    theEdit.theSelectionStart = theEdit.theSelectionEnd = 5;
    EXPECT_TRUE(Gate().TextEdited(theEdit));
    EXPECT_EQ(TextOf(mProgram.mField), "Küche");
    EXPECT_EQ(Take(), Log());
    theEdit.theSelectionStart = -1;
    theEdit.theText = "Bad";
    Gate().TextEdited(theEdit);
    EXPECT_EQ(TextOf(mProgram.mField), "Bad");
}

TEST_F(InputGate, DropsAnEditOfWhatIsNoField)
{
    Host::TextEdit theEdit;
    theEdit.theText = "Küche";
    theEdit.theControl = Screen().ControlCalled('rset');
    EXPECT_FALSE(Gate().TextEdited(theEdit));
    theEdit.theControl = kUnknown;
    EXPECT_FALSE(Gate().TextEdited(theEdit));
}

// Windows ----------------------------------------------------------------------------------------------

TEST_F(InputGate, DropsTheEchoOfWhatTheManagersDid)
{
    EXPECT_FALSE(Gate().WindowShown(mWindow));
    EXPECT_FALSE(Gate().WindowMoved(mWindow, {100, 80}));
    EXPECT_FALSE(Gate().WindowResized(mWindow, {320, 200}));
    EXPECT_FALSE(Gate().WindowActivated(mWindow));
    EXPECT_FALSE(Gate().CollapseAsked(mWindow, false));
    EXPECT_EQ(Take(), Log());
}

TEST_F(InputGate, ACloseBoxAsksTheWindowToClose)
{
    const WindowRef theWindow = mProgram.mWindow.Get();
    EXPECT_TRUE(Gate().CloseAsked(mWindow));
    EXPECT_FALSE(IsValidWindowPtr(theWindow));
    const Log theLog = Take();
    ASSERT_FALSE(theLog.empty());
    EXPECT_EQ(theLog.front(), "close");
}

TEST_F(InputGate, AHandlerMayKeepTheWindowOpen)
{
    Consume("close");
    Gate().CloseAsked(mWindow);
    EXPECT_TRUE(IsValidWindowPtr(mProgram.mWindow.Get()));
    EXPECT_EQ(Take(), Log{"close"});
}

TEST_F(InputGate, ADesktopMovesAndSizesTheWindow)
{
    EXPECT_TRUE(Gate().WindowMoved(mWindow, {200, 180}));
    EXPECT_TRUE(Gate().WindowResized(mWindow, {400, 300}));
    Rect theContent = {};
    GetWindowBounds(mProgram.mWindow.Get(), kWindowContentRgn, &theContent);
    EXPECT_EQ(theContent.left, 200);
    EXPECT_EQ(theContent.top, 180);
    EXPECT_EQ(theContent.right, 600);
    EXPECT_EQ(theContent.bottom, 480);
    EXPECT_EQ(Take(), (Log{"drag started", "bounds changing", "bounds changed", "drag completed",
                           "resize started", "bounds changing", "bounds changed", "resize completed"}));
}

TEST_F(InputGate, ADesktopActivatesAWindow)
{
    const TestWindow theOther(MakeRect(500, 300, 700, 400), CFSTR("Other"));
    Take();
    EXPECT_TRUE(Gate().WindowActivated(mWindow));
    EXPECT_TRUE(IsWindowActive(mProgram.mWindow.Get()));
    EXPECT_EQ(Take(), Log{"activated"});
    EXPECT_FALSE(Gate().WindowActivated(mWindow));
    EXPECT_FALSE(Gate().WindowActivated(Host::kNoObject));
    EXPECT_TRUE(IsWindowActive(mProgram.mWindow.Get()));
    EXPECT_EQ(Take(), Log());
}

TEST_F(InputGate, AQuitRequestEndsTheApplicationLoop)
{
    bool theIsTaken = false;
    EventLoopTimerRef theTimer = nullptr;
    const auto Quit = [](EventLoopTimerRef, void* theResult) {
        *static_cast<bool*>(theResult) = Gate().QuitAsked();
    };
    InstallEventLoopTimer(GetMainEventLoop(), 0, 0, Quit, &theIsTaken, &theTimer);
    RunApplicationEventLoop();
    EXPECT_TRUE(theIsTaken);
    RemoveEventLoopTimer(theTimer);
}

TEST_F(InputGate, AQuitRequestIsTheQuitCommandThatAnApplicationMayRefuse)
{
    mWindowLog.mAnswer = [](const std::string&, EventRef inEvent) {
        HICommand theCommand{};
        GetEventParameter(inEvent, kEventParamDirectObject, typeHICommand, nullptr, sizeof theCommand,
                          nullptr, &theCommand);
        EXPECT_EQ(theCommand.commandID, static_cast<UInt32>(kHICommandQuit));
        return OSStatus{noErr};
    };
    EXPECT_TRUE(Gate().QuitAsked());
    EXPECT_EQ(Take(), Log{"command"});
}

TEST_F(InputGate, APresenterWithALoopOfItsOwnFiresTheTimersAndHearsWhenTheNextIsDue)
{
    EXPECT_LT(Gate().FireTimers(), 0);
    int theCount = 0;
    EventLoopTimerRef theTimer = nullptr;
    const auto Count = [](EventLoopTimerRef, void* theCounter) { ++*static_cast<int*>(theCounter); };
    InstallEventLoopTimer(GetMainEventLoop(), 0, 3600, Count, &theCount, &theTimer);
    const double theWait = Gate().FireTimers();
    EXPECT_EQ(theCount, 1);
    EXPECT_GT(theWait, 3500);
    EXPECT_LE(theWait, 3600);
    Gate().FireTimers();
    EXPECT_EQ(theCount, 1);
    RemoveEventLoopTimer(theTimer);
}

TEST_F(InputGate, NothingIsHeldDownForThePresenterThatComesNext)
{
    Gate().PointerPressed(At(mWindow, 300, 150));
    Gate().KeyPressed({kVK_F1, "", 0});
    Take();
    ASSERT_TRUE(PresenterRegistry::Use(std::make_unique<Host::HeadlessSnapshot>()));
    EXPECT_FALSE(Gate().PointerReleased(At(mWindow, 300, 150)));
    EXPECT_FALSE(Gate().KeyReleased({kVK_F1, "", 0}));
    EXPECT_EQ(Take(), Log());
}

// Presenters -------------------------------------------------------------------------------------------

TEST_F(InputGate, ThePictureIsTheSameForThePresenterThatComesNext)
{
    SetKeyboardFocus(mProgram.mWindow.Get(), mProgram.mField, kControlEditTextPart);
    auto theFirst = std::make_unique<Host::HeadlessSnapshot>();
    Host::HeadlessSnapshot* theScreen = theFirst.get();
    ASSERT_TRUE(PresenterRegistry::Use(std::move(theFirst)));
    SetControl32BitValue(mProgram.mSlider, 7);
    HideControl(mProgram.mButton);
    const TestWindow theOther(MakeRect(500, 80, 600, 120), CFSTR("Other"));
    const std::string thePicture = theScreen->DescribeScreen();
    auto theSecond = std::make_unique<Host::HeadlessSnapshot>();
    Host::HeadlessSnapshot* theNextScreen = theSecond.get();
    ASSERT_TRUE(PresenterRegistry::Use(std::move(theSecond)));
    EXPECT_EQ(theNextScreen->DescribeScreen(), thePicture);
    EXPECT_NE(thePicture.find("7 of 0…10"), std::string::npos);
    EXPECT_EQ(theScreen->DescribeScreen(), "Nothing is on the screen.\n");
}

} // namespace
