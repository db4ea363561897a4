// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Group boxes, radio groups, and the pane that holds all controls of a window.

#include "ManagerTestSupport.h"

#include <algorithm>

namespace {

using Containers = ManagerTest;

// The shapes of the controls that a presenter is told of, the outermost first.
std::vector<Host::ControlShape> Shapes()
{
    class ShapeReader : public Host::Presenter
    {
    public:
        void ControlLooks(const Host::ControlLook& theLook) override { mShapes.push_back(theLook.theShape); }
        std::vector<Host::ControlShape> mShapes;
    };
    ShapeReader theReader;
    Host::PresenterRegistry::ReplayLooks(theReader);
    return theReader.mShapes;
}

} // namespace

TEST_F(Containers, HoldOtherControlsAndTakeNoPress)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theRoot = nullptr;
    ASSERT_EQ(GetRootControl(mWindow, &theRoot), noErr);
    for (ControlRef theContainer : {theBox, theRoot}) {
        UInt32 theFeatures = 0;
        EXPECT_EQ(GetControlFeatures(theContainer, &theFeatures), noErr);
        EXPECT_EQ(theFeatures, UInt32{kControlSupportsEmbedding});
    }
    Rect theBounds = MakeRect(0, 0, 0, 0);
    GetControlBounds(theBox, &theBounds);
    const Point theInside = {static_cast<short>(theBounds.top + 2), static_cast<short>(theBounds.left + 2)};
    EXPECT_EQ(TestControl(theBox, theInside), kControlNoPart);
    EXPECT_EQ(HIViewSimulateClick(theBox, kControlEntireControl, 0, nullptr), errInvalidPartCode);
}

TEST_F(Containers, AreShownAsPaneAndBox)
{
    NewGroupBox();
    EXPECT_EQ(Shapes(),
              (std::vector<Host::ControlShape>{Host::ControlShape::kPane, Host::ControlShape::kGroupBox}));
}

TEST_F(Containers, APlacardHoldsControlsWithOrWithoutAWindow)
{
    const Rect theBounds = MakeRect(20, 200, 220, 240);
    ControlRef thePlacard = nullptr;
    EXPECT_EQ(CreatePlacardControl(nullptr, &theBounds, &thePlacard), noErr);
    ControlRef theButton = NewPushButton();
    ControlRef theRoot = nullptr;
    EXPECT_EQ(GetRootControl(mWindow, &theRoot), noErr);
    EXPECT_EQ(EmbedControl(thePlacard, theRoot), noErr);
    EXPECT_EQ(EmbedControl(theButton, thePlacard), noErr);
    EXPECT_EQ(TestControl(thePlacard, Point{230, 210}), kControlNoPart);
}

// Window headers -----------------------------------------------------------------------------------------

namespace {

class WindowHeaders : public ControlKindTest
{
};

} // namespace

TEST_F(WindowHeaders, HoldControlsAndKeepWhetherTheyAreOfAList)
{
    const Rect theBounds = MakeRect(20, 200, 220, 240);
    for (const bool theIsListHeader : {false, true}) {
        ControlRef theHeader = nullptr;
        EXPECT_EQ(CreateWindowHeaderControl(mWindow, &theBounds, theIsListHeader, &theHeader), noErr);
        EXPECT_EQ(EmbedControl(NewPushButton(), theHeader), noErr);
        EXPECT_EQ(TestControl(theHeader, Point{230, 210}), kControlNoPart);
        EXPECT_EQ(LookOf(theHeader).theShape, Host::ControlShape::kWindowHeader);
        CheckFlag(theHeader, kControlWindowHeaderIsListHeaderTag, theIsListHeader);
    }
}

// Radio groups -------------------------------------------------------------------------------------------

namespace {

// A group of three radio buttons that do not toggle by themselves, one below the other.
class RadioGroups : public ControlKindTest
{
protected:
    RadioGroups()
    {
        const Rect theBounds = MakeRect(10, 100, 200, 190);
        EXPECT_EQ(CreateRadioGroupControl(mWindow, &theBounds, &mGroup), noErr);
        for (int theIndex = 0; theIndex < 3; ++theIndex) {
            mButtons.push_back(Add(0));
        }
    }

    ControlRef Add(SInt32 theValue)
    {
        const int theTop = 105 + 25 * static_cast<int>(mButtons.size());
        const Rect theBounds = MakeRect(20, theTop, 180, theTop + 20);
        ControlRef theButton = nullptr;
        CreateRadioButtonControl(mWindow, &theBounds, CFSTR("Choice"), theValue, false, &theButton);
        EXPECT_EQ(EmbedControl(theButton, mGroup), noErr);
        return theButton;
    }

    // The values of group and buttons, and the group's maximum: "2 of 3: 010".
    std::string State() const
    {
        std::string theText = std::to_string(GetControl32BitValue(mGroup)) + " of " +
                              std::to_string(GetControl32BitMaximum(mGroup)) + ": ";
        for (ControlRef theButton : mButtons) {
            theText +=
                IsValidControlHandle(theButton) ? std::to_string(GetControl32BitValue(theButton)) : "-";
        }
        return theText;
    }

    void WatchAll()
    {
        Watch(mGroup, "group", kWithoutHilite);
        for (size_t theIndex = 0; theIndex < mButtons.size(); ++theIndex) {
            Watch(mButtons[theIndex], "button " + std::to_string(theIndex + 1), kWithoutHilite);
        }
    }

    ControlRef mGroup = nullptr;
    std::vector<ControlRef> mButtons;
};

} // namespace

TEST_F(RadioGroups, StartWithNoneAndCountTheirButtons)
{
    EXPECT_EQ(State(), "0 of 3: 000");
    EXPECT_EQ(GetControl32BitMinimum(mGroup), 0);
}

TEST_F(RadioGroups, TheValueTurnsOneButtonOnAndTheOthersOff)
{
    SetControl32BitValue(mGroup, 2);
    EXPECT_EQ(State(), "2 of 3: 010");
    WatchAll();
    SetControl32BitValue(mGroup, 3);
    EXPECT_EQ(State(), "3 of 3: 001");
    EXPECT_EQ(TakeLog(),
              (Log{"button 2: ValueFieldChanged", "group: ValueFieldChanged", "button 3: ValueFieldChanged",
                   "group: ValueFieldChanged", "group: ValueFieldChanged"}))
        << "the group hears of its buttons first";
    SetControl32BitValue(mGroup, 0);
    EXPECT_EQ(State(), "0 of 3: 000");
}

TEST_F(RadioGroups, AButtonThatTheProgramTurnsOnIsTheChosenOne)
{
    SetControl32BitValue(mButtons[0], 1);
    EXPECT_EQ(State(), "1 of 3: 100");
    SetControl32BitValue(mButtons[2], 1);
    EXPECT_EQ(State(), "3 of 3: 001");
    SetControl32BitValue(mButtons[2], 0);
    EXPECT_EQ(State(), "0 of 3: 000");
}

TEST_F(RadioGroups, AClickChoosesAndTellsTheButtonAndThenTheGroup)
{
    SetControl32BitValue(mGroup, 1);
    SetControlCommandID(mGroup, 'grup');
    WatchAll();
    Click(30, 140);
    EXPECT_EQ(State(), "2 of 3: 010");
    const Log theLog = TakeLog();
    ASSERT_GE(theLog.size(), 3u);
    EXPECT_EQ(theLog[theLog.size() - 2], "group: Hit");
    EXPECT_EQ(theLog.back(), "group: CommandProcess");
    EXPECT_EQ(std::count(theLog.begin(), theLog.end(), "button 2: Hit"), 1);
    EXPECT_EQ(std::count(theLog.begin(), theLog.end(), "group: ValueFieldChanged"), 3)
        << "those of two buttons come by";
}

TEST_F(RadioGroups, TheArrowKeysChoose)
{
    SetControl32BitValue(mGroup, 1);
    SetKeyboardFocus(mWindow, mButtons[0], kControlFocusNextPart);
    Key(kVK_DownArrow);
    EXPECT_EQ(State(), "2 of 3: 010");
    Key(kVK_UpArrow);
    EXPECT_EQ(State(), "1 of 3: 100");
}

TEST_F(RadioGroups, TheFirstThatIsOnStaysChosenWhenAnotherComes)
{
    SetControl32BitValue(mGroup, 2);
    mButtons.push_back(Add(1));
    EXPECT_EQ(State(), "2 of 4: 0100");
    SetControl32BitValue(mGroup, 0);
    mButtons.push_back(Add(1));
    EXPECT_EQ(State(), "5 of 5: 00001");
}

TEST_F(RadioGroups, FollowTheirButtonsWhenOneGoes)
{
    SetControl32BitValue(mGroup, 3);
    DisposeControl(mButtons[0]);
    EXPECT_EQ(State(), "2 of 2: -01");
    ControlRef theRoot = nullptr;
    GetRootControl(mWindow, &theRoot);
    EmbedControl(mButtons[2], theRoot);
    EXPECT_EQ(State(), "0 of 1: -01");
}

TEST_F(RadioGroups, OtherControlsHaveOnlyAPlace)
{
    ControlRef theText = NewStaticText();
    EmbedControl(theText, mGroup);
    SetControl32BitValue(mGroup, 4);
    EXPECT_EQ(State(), "4 of 4: 000");
    EXPECT_EQ(GetControl32BitValue(theText), 0);
    ControlRef theBox = NewCheckBox();
    EmbedControl(theBox, mGroup);
    SetControl32BitValue(theBox, 1);
    EXPECT_EQ(State(), "0 of 5: 000") << "none of them is on";
}

TEST_F(RadioGroups, AHandlerMayDisposeTheGroupWhileItChanges)
{
    Watch(mButtons[1], "button", kWithoutHilite, [this](EventRef) {
        DisposeControl(mGroup);
        return OSStatus{eventNotHandledErr};
    });
    SetControl32BitValue(mGroup, 2);
    EXPECT_FALSE(IsValidControlHandle(mGroup));
    EXPECT_FALSE(IsValidControlHandle(mButtons[2]));
}

// Procedures of user panes -------------------------------------------------------------------------------

namespace {

class PaneProcedures : public ControlKindTest
{
protected:
    PaneProcedures()
    {
        Calls().clear();
        sIsDisposing = false;
        sAnswer = 3;
    }

    // From 20, 200 to 120, 300.
    ControlRef NewPane(UInt32 theFeatures = 0)
    {
        const Rect theBounds = MakeRect(20, 200, 120, 300);
        ControlRef thePane = nullptr;
        EXPECT_EQ(CreateUserPaneControl(mWindow, &theBounds, theFeatures, &thePane), noErr);
        return thePane;
    }

    template <class Procedure>
    static void Give(ControlRef thePane, ResType theTag, Procedure theProcedure)
    {
        EXPECT_EQ(SetControlData(thePane, 0, theTag, sizeof theProcedure, &theProcedure), noErr);
    }

    static void GiveAll(ControlRef thePane)
    {
        Give(thePane, kControlUserPaneHitTestProcTag, NewControlUserPaneHitTestUPP(HitTest));
        Give(thePane, kControlUserPaneTrackingProcTag, NewControlUserPaneTrackingUPP(Track));
        Give(thePane, kControlUserPaneKeyDownProcTag, NewControlUserPaneKeyDownUPP(KeyDown));
        Give(thePane, kControlUserPaneActivateProcTag, NewControlUserPaneActivateUPP(Activate));
        Give(thePane, kControlUserPaneFocusProcTag, NewControlUserPaneFocusUPP(TakeFocus));
    }

    static Log& Calls()
    {
        static Log sCalls;
        return sCalls;
    }

    static Log TakeCalls() { return std::exchange(Calls(), Log()); }

    static ControlPartCode Note(ControlRef thePane, const std::string& theCall)
    {
        Calls().push_back(theCall);
        if (sIsDisposing) {
            DisposeControl(thePane);
        }
        return sAnswer;
    }

    static ControlPartCode HitTest(ControlRef thePane, Point where)
    {
        return Note(thePane, "hit test " + std::to_string(where.h) + ", " + std::to_string(where.v));
    }

    static ControlPartCode Track(ControlRef thePane, Point startPt, ControlActionUPP actionProc)
    {
        return Note(thePane, "track " + std::to_string(startPt.h) + ", " + std::to_string(startPt.v) +
                                 (actionProc == nullptr ? "" : " with an action"));
    }

    static ControlPartCode KeyDown(ControlRef thePane, SInt16 keyCode, SInt16 charCode, SInt16 modifiers)
    {
        return Note(thePane, "key " + std::to_string(keyCode) + ", " + std::to_string(charCode) + ", " +
                                 std::to_string(modifiers));
    }

    static void Activate(ControlRef thePane, Boolean activating)
    {
        Note(thePane, activating != 0 ? "activate" : "deactivate");
    }

    static ControlPartCode TakeFocus(ControlRef thePane, ControlFocusPart action)
    {
        return Note(thePane, "focus " + std::to_string(action));
    }

    OSErr GiveKeys(ControlRef theControl)
    {
        return SetKeyboardFocus(mWindow, theControl, kControlFocusNextPart);
    }

    static bool sIsDisposing;
    static ControlPartCode sAnswer;
};

bool PaneProcedures::sIsDisposing = false;
ControlPartCode PaneProcedures::sAnswer = 3;

} // namespace

TEST_F(PaneProcedures, AreDataThatCanBeReadAndTakenAway)
{
    ControlRef thePane = NewPane();
    ControlUserPaneHitTestUPP theProcedure = HitTest;
    Size theSize = 0;
    const auto theRead = [&] {
        EXPECT_EQ(GetControlData(thePane, 0, kControlUserPaneHitTestProcTag, sizeof theProcedure,
                                 &theProcedure, &theSize),
                  noErr);
        return theProcedure;
    };
    EXPECT_EQ(theRead(), nullptr);
    EXPECT_EQ(theSize, Size{sizeof theProcedure});
    Give(thePane, kControlUserPaneHitTestProcTag, NewControlUserPaneHitTestUPP(HitTest));
    EXPECT_EQ(theRead(), &HitTest);
    EXPECT_EQ(TestControl(thePane, Point{210, 30}), 3);
    Give(thePane, kControlUserPaneHitTestProcTag, ControlUserPaneHitTestUPP{nullptr});
    EXPECT_EQ(TestControl(thePane, Point{210, 30}), kControlNoPart);
    EXPECT_EQ(SetControlData(thePane, 0, kControlUserPaneHitTestProcTag, 1, &theProcedure),
              errDataSizeMismatch);
}

TEST_F(PaneProcedures, AHandlerIsAskedBeforeThem)
{
    ControlRef thePane = NewPane();
    GiveAll(thePane);
    EXPECT_EQ(TestControl(thePane, Point{210, 30}), 3);
    EXPECT_EQ(TakeCalls(), Log{"hit test 30, 210"});
    Watch(thePane, "pane", {{kEventClassControl, kEventControlHitTest}}, [](EventRef) { return noErr; });
    EXPECT_EQ(TestControl(thePane, Point{210, 30}), kControlNoPart);
    EXPECT_EQ(TakeCalls(), Log());
}

TEST_F(PaneProcedures, APressIsFollowedByTheOneForTracking)
{
    ControlRef thePane = NewPane(kControlHandlesTracking);
    GiveAll(thePane);
    SetControlAction(thePane, NoteAction);
    Watch(thePane, "pane", {{kEventClassControl, kEventControlHit}});
    Mouse(kEventMouseDown, 30, 210);
    EXPECT_EQ(TakeCalls(), (Log{"hit test 30, 210", "track 30, 210 with an action"}));
    EXPECT_EQ(TakeLog(), Log{"pane: Hit"});
    sAnswer = 0;
    Mouse(kEventMouseDown, 30, 210);
    EXPECT_EQ(TakeCalls(), Log{"hit test 30, 210"}) << "no part is pressed";
    EXPECT_EQ(TakeLog(), Log());

    ControlRef theOther = NewPane();
    DisposeControl(thePane);
    GiveAll(theOther);
    sAnswer = 3;
    Mouse(kEventMouseDown, 30, 210);
    EXPECT_EQ(TakeCalls(), Log{"hit test 30, 210"}) << "it does not track by itself";
    Mouse(kEventMouseUp, 30, 210);
}

TEST_F(PaneProcedures, TheFocusComesAndGoesWithThem)
{
    ControlRef thePane = NewPane(kControlSupportsFocus);
    ControlRef theField = NewFieldAt(200, 200);
    EXPECT_EQ(GiveKeys(thePane), errCouldntSetFocus) << "without a procedure";
    GiveAll(thePane);
    EXPECT_EQ(GiveKeys(thePane), noErr);
    EXPECT_EQ(Focus(), thePane);
    SetFocus(theField);
    EXPECT_EQ(TakeCalls(), (Log{"focus -1", "focus 0"}));
    sAnswer = 0;
    EXPECT_EQ(GiveKeys(thePane), errCouldntSetFocus);
    EXPECT_NE(Focus(), thePane) << "the pane refused";
    EXPECT_EQ(TakeCalls(), Log{"focus -1"});
    ControlRef theOther = NewPane();
    GiveAll(theOther);
    EXPECT_EQ(GiveKeys(theOther), errCouldntSetFocus) << "it does not support the focus";
    EXPECT_EQ(TakeCalls(), Log());
}

TEST_F(PaneProcedures, KeysArriveWithCodeCharacterAndModifiers)
{
    ControlRef thePane = NewPane(kControlSupportsFocus);
    GiveAll(thePane);
    GiveKeys(thePane);
    TakeCalls();
    EXPECT_EQ(Key(0, "a", shiftKey), noErr);
    EXPECT_EQ(Key(kVK_F1), noErr);
    TestEvent theUmlaut(kEventClassKeyboard, kEventRawKeyDown, kEventAttributeUserEvent);
    const UniChar theCharacter = 0xF6;
    theUmlaut.Set(kEventParamKeyCode, typeUInt32, UInt32{41});
    SetEventParameter(theUmlaut.Get(), kEventParamKeyUnicodes, typeUnicodeText, sizeof theCharacter,
                      &theCharacter);
    EXPECT_EQ(SendEventToEventTarget(theUmlaut.Get(), GetUserFocusEventTarget()), noErr);
    EXPECT_EQ(TakeCalls(), (Log{"key 0, 97, 512", "key 122, 0, 0", "key 41, 154, 0"}));
    sAnswer = 0;
    EXPECT_EQ(Key(0, "a"), eventNotHandledErr);
}

TEST_F(PaneProcedures, TheyHearWhenThePaneBecomesActiveOrInactive)
{
    ControlRef theOuter = NewPane(kControlSupportsEmbedding);
    ControlRef thePane = NewPane(kControlWantsActivate);
    ControlRef theOther = NewPane();
    GiveAll(thePane);
    GiveAll(theOther);
    EmbedControl(thePane, theOuter);
    EmbedControl(theOther, theOuter);
    TakeCalls();
    DeactivateControl(theOuter);
    EXPECT_EQ(TakeCalls(), Log{"deactivate"});
    ActivateControl(theOuter);
    DisableControl(thePane);
    EnableControl(thePane);
    EXPECT_EQ(TakeCalls(), Log{"activate"});
}

TEST_F(PaneProcedures, EachMayDisposeThePane)
{
    const UInt32 theFeatures = kControlSupportsFocus | kControlHandlesTracking | kControlWantsActivate;
    const auto theNew = [&](ResType theTag, auto theProcedure) {
        ControlRef thePane = NewPane(theFeatures);
        Give(thePane, theTag, theProcedure);
        return thePane;
    };
    ControlRef thePane = theNew(kControlUserPaneHitTestProcTag, HitTest);
    sIsDisposing = true;
    Mouse(kEventMouseDown, 30, 210);
    EXPECT_FALSE(IsValidControlHandle(thePane));

    thePane = theNew(kControlUserPaneFocusProcTag, TakeFocus);
    EXPECT_EQ(GiveKeys(thePane), errCouldntSetFocus);
    EXPECT_FALSE(IsValidControlHandle(thePane));

    thePane = theNew(kControlUserPaneActivateProcTag, Activate);
    DeactivateControl(thePane);
    EXPECT_FALSE(IsValidControlHandle(thePane));

    thePane = theNew(kControlUserPaneFocusProcTag, TakeFocus);
    Give(thePane, kControlUserPaneKeyDownProcTag, NewControlUserPaneKeyDownUPP(KeyDown));
    sIsDisposing = false;
    EXPECT_EQ(GiveKeys(thePane), noErr);
    sIsDisposing = true;
    Key(0, "a");
    EXPECT_FALSE(IsValidControlHandle(thePane));

    thePane = theNew(kControlUserPaneTrackingProcTag, Track);
    Watch(thePane, "pane", {{kEventClassControl, kEventControlHitTest}}, [](EventRef theEvent) {
        const ControlPartCode thePart = 1;
        SetEventParameter(theEvent, kEventParamControlPart, typeControlPartCode, sizeof thePart, &thePart);
        return OSStatus{noErr};
    });
    Mouse(kEventMouseDown, 30, 210);
    EXPECT_FALSE(IsValidControlHandle(thePane));
}
