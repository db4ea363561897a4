// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What a press of the mouse does to a control, and the clicks that a program makes itself.

#include "ManagerTestSupport.h"

namespace {

using ControlTracking = ControlKindTest;

} // namespace

// --- Push buttons ------------------------------------------------------------------------------------

TEST_F(ControlTracking, AClickOnAButtonHitsItAndSendsItsCommand)
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

TEST_F(ControlTracking, AHitThatSomebodyHandledSendsNoCommand)
{
    ControlRef theButton = NewPushButton();
    SetControlCommandID(theButton, 'doit');
    Watch(mWindow, "window", kWithoutHilite, [](EventRef) { return OSStatus{noErr}; });
    Click(20, 50);
    EXPECT_EQ(TakeLog(), Log{"window: Hit"});
}

TEST_F(ControlTracking, ACommandClimbsFromItsControlToTheApplication)
{
    ControlRef theButton = NewPushButton();
    SetControlCommandID(theButton, 'doit');
    EventWatch theApplication(GetApplicationEventTarget(), "application", mLog, kWithoutHilite);
    Watch(mWindow, "window", {{kEventClassCommand, kEventCommandProcess}});
    Click(20, 50);
    EXPECT_EQ(TakeLog(), (Log{"application: Hit", "window: CommandProcess", "application: CommandProcess"}));
}

TEST_F(ControlTracking, AReleaseOutsideIsNoClick)
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

// --- Presses that do nothing -------------------------------------------------------------------------

TEST_F(ControlTracking, DisabledAndHiddenControlsTakeNoPress)
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

TEST_F(ControlTracking, ADisabledControlCoversWhatIsBehindIt)
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

TEST_F(ControlTracking, AClickThatAHandlerTakesIsNotTracked)
{
    ControlRef theButton = NewPushButton();
    Watch(theButton, "button", EventWatch::ControlEvents(), [](EventRef) { return OSStatus{noErr}; });
    Click(20, 50);
    EXPECT_EQ(TakeLog(), Log{"button: Click"});
}

TEST_F(ControlTracking, TrackingThatAHandlerTakesHitsThePartThatItGives)
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

TEST_F(ControlTracking, ModifiersThatAHandlersTrackingEndedWithArriveInTheHitAndTheCommand)
{
    ControlRef theButton = NewPushButton();
    SetControlCommandID(theButton, 'doit');
    std::vector<UInt32> theModifiers;
    Watch(theButton, "button", EventWatch::ControlEvents(), [&](EventRef theEvent) {
        theModifiers.push_back(Parameter<UInt32>(theEvent, kEventParamKeyModifiers, typeUInt32));
        if (GetEventKind(theEvent) != kEventControlTrack) {
            return OSStatus{eventNotHandledErr};
        }
        const ControlPartCode thePart = kControlButtonPart;
        const UInt32 theLast = optionKey;
        SetEventParameter(theEvent, kEventParamControlPart, typeControlPartCode, sizeof thePart, &thePart);
        SetEventParameter(theEvent, kEventParamKeyModifiers, typeUInt32, sizeof theLast, &theLast);
        return OSStatus{noErr};
    });
    Mouse(kEventMouseDown, 20, 50, shiftKey);
    EXPECT_EQ(TakeLog(), (Log{"button: Click", "button: Track", "button: Hit", "button: CommandProcess"}));
    EXPECT_EQ(theModifiers, (std::vector<UInt32>{shiftKey, shiftKey, optionKey, optionKey}));
}

TEST_F(ControlTracking, TrackingIsToldAPlaceInTheWindowOrInACompositingWindowInTheControl)
{
    const WindowAttributes theStandard = kWindowStandardDocumentAttributes | kWindowStandardHandlerAttribute;
    for (const WindowAttributes theCompositing : {WindowAttributes{0}, kWindowCompositingAttribute}) {
        const WindowRef theFormer =
            std::exchange(mWindow, NewWindow(kDocumentWindowClass, theStandard | theCompositing));
        ShowWindow(mWindow);
        ControlRef theBox = NewGroupBox();
        ControlRef theButton = NewPushButton();
        EmbedControl(theButton, theBox);
        MoveControl(theButton, 30, 40);
        Rect theBoxBounds;
        GetControlBounds(theBox, &theBoxBounds);
        Point thePlace = {0, 0};
        const EventWatch theWatch(GetControlEventTarget(theButton), "button", mLog,
                                  {{kEventClassControl, kEventControlTrack}}, [&](EventRef theEvent) {
                                      thePlace =
                                          Parameter<Point>(theEvent, kEventParamMouseLocation, typeQDPoint);
                                      return OSStatus{noErr};
                                  });
        const bool theIsLocal = theCompositing != 0;
        Mouse(kEventMouseDown, 33 + (theIsLocal ? theBoxBounds.left : 0),
              44 + (theIsLocal ? theBoxBounds.top : 0));
        EXPECT_EQ(short{thePlace.h}, theIsLocal ? 3 : 33);
        EXPECT_EQ(short{thePlace.v}, theIsLocal ? 4 : 44);
        DisposeWindow(std::exchange(mWindow, theFormer));
    }
}

TEST_F(ControlTracking, AMousePressThatAHandlerTakesReachesNoControl)
{
    ControlRef theButton = NewPushButton();
    Watch(theButton, "button", EventWatch::ControlEvents());
    EventWatch theWindow(GetWindowEventTarget(mWindow), "window", mLog, {{kEventClassMouse, kEventMouseDown}},
                         [](EventRef) { return OSStatus{noErr}; });
    Click(20, 50);
    EXPECT_EQ(TakeLog().size(), 1u);
}

TEST_F(ControlTracking, WithoutTheStandardHandlerControlsAreNotTracked)
{
    mWindow = NewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes);
    ShowWindow(mWindow);
    Watch(NewPushButton(), "button", EventWatch::ControlEvents());
    Click(20, 50);
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(ControlTracking, AControlDisposedWhileItIsHeldIsForgotten)
{
    ControlRef theCheckBox = NewCheckBox();
    Mouse(kEventMouseDown, 20, 80);
    DisposeControl(theCheckBox);
    EXPECT_EQ(Mouse(kEventMouseUp, 20, 80), eventNotHandledErr);
}

TEST_F(ControlTracking, AControlMayBeDisposedAtAnyStepOfAClick)
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

TEST_F(ControlTracking, AReleaseThatAHandlerKeptIsForgottenAtTheNextPress)
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

// --- Finding and simulating --------------------------------------------------------------------------

TEST_F(ControlTracking, TheFrontmostDeepestVisibleControlIsFound)
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

TEST_F(ControlTracking, TestingAPointAsksForAllStates)
{
    ControlRef theButton = NewPushButton();
    const Point theInside = {50, 20};
    const Point theOutside = {65, 20};
    EXPECT_EQ(TestControl(theButton, theInside), kControlButtonPart);
    EXPECT_EQ(TestControl(theButton, theOutside), kControlNoPart);
    DeactivateControl(theButton);
    EXPECT_EQ(TestControl(theButton, theInside), kControlNoPart);
}

TEST_F(ControlTracking, InACompositingWindowAPointIsTestedFromTheControlsOwnCorner)
{
    const WindowRef theFormer =
        std::exchange(mWindow, NewWindow(kDocumentWindowClass,
                                         kWindowStandardDocumentAttributes | kWindowCompositingAttribute));
    ControlRef theBox = NewGroupBox();
    ControlRef theButton = NewPushButton();
    EmbedControl(theButton, theBox);
    Rect theBoxBounds;
    Rect theBounds;
    GetControlBounds(theBox, &theBoxBounds);
    GetControlBounds(theButton, &theBounds);
    const auto theWidth = static_cast<short>(theBounds.right - theBounds.left);
    const auto theHeight = static_cast<short>(theBounds.bottom - theBounds.top);
    EXPECT_EQ(TestControl(theButton, {0, 0}), kControlButtonPart);
    const Point theLast = {static_cast<short>(theHeight - 1), static_cast<short>(theWidth - 1)};
    EXPECT_EQ(TestControl(theButton, theLast), kControlButtonPart);
    EXPECT_EQ(TestControl(theButton, {theHeight, 0}), kControlNoPart);
    EXPECT_EQ(TestControl(theButton, {-1, 0}), kControlNoPart);
    ControlRef theFound = nullptr;
    const Point theInWindow = {static_cast<short>(theBoxBounds.top + theBounds.top),
                               static_cast<short>(theBoxBounds.left + theBounds.left)};
    EXPECT_EQ(FindControl(theInWindow, mWindow, &theFound), kControlButtonPart);
    EXPECT_EQ(theFound, theButton);
    DisposeWindow(std::exchange(mWindow, theFormer));
}

TEST_F(ControlTracking, ASimulatedClickDoesWhatAClickDoes)
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

TEST_F(ControlTracking, ASimulatedClickIsAskedOfTheControlBeforeItHits)
{
    ControlRef theCheckBox = NewCheckBox();
    UInt32 theModifiers = 0;
    ControlPartCode thePart = 0;
    const EventWatch theWindow(GetWindowEventTarget(mWindow), "window", mLog,
                               {{kEventClassControl, kEventControlSimulateHit}});
    Watch(theCheckBox, "check box", EventWatch::ControlEvents(), [&](EventRef theEvent) {
        if (GetEventKind(theEvent) == kEventControlSimulateHit) {
            theModifiers = Parameter<UInt32>(theEvent, kEventParamKeyModifiers, typeUInt32);
            thePart = Parameter<ControlPartCode>(theEvent, kEventParamControlPart, typeControlPartCode);
        }
        return OSStatus{eventNotHandledErr};
    });
    EXPECT_EQ(HIViewSimulateClick(theCheckBox, 0, shiftKey, nullptr), noErr);
    EXPECT_EQ(TakeLog(), (Log{"check box: SimulateHit", "check box: GetAutoToggleValue",
                              "check box: ValueFieldChanged", "check box: Hit"}));
    EXPECT_EQ(theModifiers, UInt32{shiftKey});
    EXPECT_EQ(thePart, kControlCheckBoxPart);
}

TEST_F(ControlTracking, AHandlerOfASimulatedClickMayChooseThePartOrNone)
{
    ControlRef theButton = NewPushButton();
    ControlPartCode theChoice = 42;
    ControlPartCode theHit = 0;
    Watch(theButton, "button", EventWatch::ControlEvents(), [&](EventRef theEvent) {
        if (GetEventKind(theEvent) != kEventControlSimulateHit) {
            theHit = Parameter<ControlPartCode>(theEvent, kEventParamControlPart, typeControlPartCode);
            return OSStatus{eventNotHandledErr};
        }
        SetEventParameter(theEvent, kEventParamControlPart, typeControlPartCode, sizeof theChoice,
                          &theChoice);
        return OSStatus{noErr};
    });
    ControlPartCode thePart = 0;
    EXPECT_EQ(HIViewSimulateClick(theButton, 0, 0, &thePart), noErr);
    EXPECT_EQ(thePart, 42);
    EXPECT_EQ(theHit, 42);
    TakeLog();
    theChoice = kControlNoPart;
    EXPECT_EQ(HIViewSimulateClick(theButton, 0, 0, &thePart), noErr);
    EXPECT_EQ(thePart, kControlNoPart);
    EXPECT_EQ(TakeLog(), Log{"button: SimulateHit"});
}

TEST_F(ControlTracking, AControlThatAHandlerTakesAwayIsNotHitBySimulation)
{
    for (const auto theRemoval : {DisposeControl, HideControl}) {
        ControlRef theButton = NewPushButton();
        const EventWatch theWatch(
            GetControlEventTarget(theButton), "button", mLog,
            {{kEventClassControl, kEventControlSimulateHit}, {kEventClassControl, kEventControlHit}},
            [&](EventRef) {
                theRemoval(theButton);
                return OSStatus{eventNotHandledErr};
            });
        EXPECT_EQ(HIViewSimulateClick(theButton, 0, 0, nullptr), noErr);
        EXPECT_EQ(TakeLog(), Log{"button: SimulateHit"});
    }
}

TEST_F(ControlTracking, ASimulatedClickRefusesWhatCannotBeClicked)
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
