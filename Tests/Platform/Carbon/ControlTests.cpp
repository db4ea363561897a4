// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What all controls have in common: values, states, bounds, titles, identity, and the events that tell of
// changes.

#include "ManagerTestSupport.h"

#include <cstdint>

namespace {

class ControlManager : public ManagerTest
{
};

// Every control that can be made, by name.
struct KindRow
{
    const char* theName;
    OSType theKind;
    OSStatus (*theMaker)(WindowRef theWindow, const Rect* theBounds, ControlRef* theControl);
    SInt32 theMinimum;
    SInt32 theMaximum;
    bool theWindowMayBeNull;
};

const KindRow kKinds[] = {
    {"PushButton", kControlKindPushButton,
     [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
         return CreatePushButtonControl(theWindow, theBounds, CFSTR("Title"), theControl);
     },
     0, 1, true},
    {"CheckBox", kControlKindCheckBox,
     [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
         return CreateCheckBoxControl(theWindow, theBounds, CFSTR("Title"), 0, true, theControl);
     },
     0, 2, true},
    {"RadioButton", kControlKindRadioButton,
     [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
         return CreateRadioButtonControl(theWindow, theBounds, CFSTR("Title"), 0, true, theControl);
     },
     0, 2, true},
    {"Slider", kControlKindSlider,
     [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
         return CreateSliderControl(theWindow, theBounds, 0, 0, 10, kControlSliderDoesNotPoint, 0, false,
                                    nullptr, theControl);
     },
     0, 10, false},
    {"ScrollBar", kControlKindScrollBar,
     [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
         return CreateScrollBarControl(theWindow, theBounds, 0, 0, 100, 10, false, nullptr, theControl);
     },
     0, 100, true},
    {"ProgressBar", kControlKindProgressBar,
     [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
         return CreateProgressBarControl(theWindow, theBounds, 0, 0, 100, false, theControl);
     },
     0, 100, false},
    {"LittleArrows", kControlKindLittleArrows,
     [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
         return CreateLittleArrowsControl(theWindow, theBounds, 0, 0, 9, 3, theControl);
     },
     0, 9, false},
    {"StaticText", kControlKindStaticText,
     [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
         return CreateStaticTextControl(theWindow, theBounds, CFSTR("Text"), nullptr, theControl);
     },
     0, 0, true},
    {"EditText", kControlKindEditText,
     [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
         return CreateEditTextControl(theWindow, theBounds, CFSTR("Text"), false, false, nullptr, theControl);
     },
     0, 0, true},
    {"EditUnicodeText", kControlKindEditUnicodeText,
     [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
         return CreateEditUnicodeTextControl(theWindow, theBounds, CFSTR("Text"), false, nullptr, theControl);
     },
     0, 0, true},
    {"GroupBox", kControlKindGroupBox,
     [](WindowRef theWindow, const Rect* theBounds, ControlRef* theControl) {
         return CreateGroupBoxControl(theWindow, theBounds, CFSTR("Title"), true, theControl);
     },
     0, 0, false},
};

const Rect kBounds = {20, 10, 40, 110};

class EveryControl : public ManagerTest, public testing::WithParamInterface<KindRow>
{
protected:
    ControlRef Make()
    {
        ControlRef theControl = nullptr;
        EXPECT_EQ(GetParam().theMaker(mWindow, &kBounds, &theControl), noErr);
        return theControl;
    }
};

INSTANTIATE_TEST_SUITE_P(Kinds, EveryControl, testing::ValuesIn(kKinds),
                         [](const auto& theInfo) { return std::string(theInfo.param.theName); });

} // namespace

// --- Every kind --------------------------------------------------------------------------------------

TEST_P(EveryControl, StartsVisibleEnabledAndActiveInItsWindow)
{
    ControlRef theControl = Make();
    EXPECT_TRUE(IsControlVisible(theControl));
    EXPECT_TRUE(IsControlEnabled(theControl));
    EXPECT_TRUE(IsControlActive(theControl));
    EXPECT_TRUE(IsValidControlHandle(theControl));
    EXPECT_EQ(GetControlOwner(theControl), mWindow);
    EXPECT_EQ(GetControlHilite(theControl), 0);
}

TEST_P(EveryControl, TellsItsKind)
{
    ControlRef theControl = Make();
    ControlKind theKind = {0, 0};
    EXPECT_EQ(GetControlKind(theControl, &theKind), noErr);
    EXPECT_EQ(OSType{theKind.signature}, OSType{kControlKindSignatureApple});
    EXPECT_EQ(OSType{theKind.kind}, GetParam().theKind);
    theKind = {0, 0};
    EXPECT_EQ(GetControlData(theControl, 0, kControlKindTag, sizeof theKind, &theKind, nullptr), noErr);
    EXPECT_EQ(OSType{theKind.kind}, GetParam().theKind);
    EXPECT_EQ(SetControlData(theControl, 0, kControlKindTag, sizeof theKind, &theKind), errDataNotSupported);
}

TEST_P(EveryControl, StartsWithItsRange)
{
    ControlRef theControl = Make();
    EXPECT_EQ(GetControl32BitValue(theControl), 0);
    EXPECT_EQ(GetControl32BitMinimum(theControl), GetParam().theMinimum);
    EXPECT_EQ(GetControl32BitMaximum(theControl), GetParam().theMaximum);
}

TEST_P(EveryControl, StartsWithoutIdentifierCommandOrReference)
{
    ControlRef theControl = Make();
    ControlID theID = {1, 1};
    UInt32 theCommand = 1;
    EXPECT_EQ(GetControlID(theControl, &theID), noErr);
    EXPECT_EQ(OSType{theID.signature}, OSType{0});
    EXPECT_EQ(SInt32{theID.id}, 0);
    EXPECT_EQ(GetControlCommandID(theControl, &theCommand), noErr);
    EXPECT_EQ(theCommand, 0u);
    EXPECT_EQ(GetControlReference(theControl), SRefCon{});
}

TEST_P(EveryControl, HasTheBoundsOfItsCreation)
{
    Rect theBounds;
    EXPECT_EQ(GetControlBounds(Make(), &theBounds), &theBounds);
    EXPECT_EQ(Describe(theBounds), Describe(kBounds));
}

TEST_P(EveryControl, IsRefusedWithoutBoundsOrResult)
{
    ControlRef theControl = InventedReference<ControlRef>();
    EXPECT_EQ(GetParam().theMaker(mWindow, nullptr, &theControl), paramErr);
    EXPECT_EQ(theControl, nullptr);
    EXPECT_EQ(GetParam().theMaker(mWindow, &kBounds, nullptr), paramErr);
}

TEST_P(EveryControl, IsRefusedInAWindowThatIsGone)
{
    WindowRef theWindow = NewWindow();
    DisposeWindow(theWindow);
    ControlRef theControl = InventedReference<ControlRef>();
    EXPECT_EQ(GetParam().theMaker(theWindow, &kBounds, &theControl), paramErr);
    EXPECT_EQ(theControl, nullptr);
    EXPECT_EQ(GetParam().theMaker(InventedReference<WindowRef>(), &kBounds, &theControl), paramErr);
}

TEST_P(EveryControl, StandsAloneWithoutAWindowWhereItsKindMay)
{
    ControlRef theControl = InventedReference<ControlRef>();
    const OSStatus theStatus = GetParam().theMaker(nullptr, &kBounds, &theControl);
    if (!GetParam().theWindowMayBeNull) {
        EXPECT_EQ(theStatus, paramErr);
        EXPECT_EQ(theControl, nullptr);
        return;
    }
    EXPECT_EQ(theStatus, noErr);
    EXPECT_EQ(GetControlOwner(theControl), nullptr);
    EXPECT_TRUE(IsControlVisible(theControl));
    DisposeControl(theControl);
    EXPECT_FALSE(IsValidControlHandle(theControl));
}

TEST_P(EveryControl, TellsEachChangeOnceAndNothingWithoutOne)
{
    ControlRef theControl = Make();
    Watch(theControl, "control");
    SetControlTitleWithCFString(theControl, CFSTR("New"));
    SetControlTitleWithCFString(theControl, CFSTR("New"));
    DisableControl(theControl);
    DisableControl(theControl);
    HideControl(theControl);
    HideControl(theControl);
    MoveControl(theControl, 1, 2);
    MoveControl(theControl, 1, 2);
    SetControl32BitMaximum(theControl, 1000);
    SetControl32BitMaximum(theControl, 1000);
    SetControl32BitValue(theControl, 500);
    SetControl32BitValue(theControl, 500);
    const Log theExpected = {"control: TitleChanged",      "control: EnabledStateChanged",
                             "control: VisibilityChanged", "control: BoundsChanged",
                             "control: ValueFieldChanged", "control: ValueFieldChanged"};
    EXPECT_EQ(TakeLog(), theExpected);
}

TEST_P(EveryControl, MayBeDisposedInItsOwnEvent)
{
    ControlRef theControl = Make();
    Watch(theControl, "control", EventWatch::ControlNotifications(), [theControl](EventRef theEvent) {
        if (GetEventKind(theEvent) == kEventControlValueFieldChanged) {
            DisposeControl(theControl);
        }
        return OSStatus{eventNotHandledErr};
    });
    SetControl32BitMaximum(theControl, 77);
    EXPECT_EQ(TakeLog(), (Log{"control: ValueFieldChanged", "control: Dispose"}));
    EXPECT_FALSE(IsValidControlHandle(theControl));
    EXPECT_EQ(GetControl32BitMaximum(theControl), 0);
}

TEST_P(EveryControl, GoesWithItsWindow)
{
    ControlRef theControl = Make();
    Watch(theControl, "control");
    DisposeWindow(mWindow);
    EXPECT_EQ(TakeLog(), Log{"control: Dispose"});
    EXPECT_FALSE(IsValidControlHandle(theControl));
}

TEST_P(EveryControl, RefusesDataThatItDoesNotHave)
{
    ControlRef theControl = Make();
    UInt32 theData = 0;
    Size theSize = 5;
    EXPECT_EQ(SetControlData(theControl, 0, 'none', sizeof theData, &theData), errDataNotSupported);
    EXPECT_EQ(GetControlData(theControl, 0, 'none', sizeof theData, &theData, &theSize), errDataNotSupported);
    EXPECT_EQ(theSize, 0);
    EXPECT_EQ(GetControlDataSize(theControl, 0, 'none', &theSize), errDataNotSupported);
    EXPECT_EQ(GetControlData(theControl, 99, kControlKindTag, sizeof theData, &theData, nullptr),
              errInvalidPartCode);
    EXPECT_EQ(GetControlData(theControl, 0, kControlKindTag, -1, &theData, nullptr), paramErr);
}

TEST_P(EveryControl, KeepsItsFontStyleAndSize)
{
    ControlRef theControl = Make();
    ControlFontStyleRec theStyle = {};
    theStyle.flags = kControlUseSizeMask;
    theStyle.size = 18;
    EXPECT_EQ(SetControlFontStyle(theControl, &theStyle), noErr);
    ControlFontStyleRec theRead = {};
    Size theSize = 0;
    EXPECT_EQ(GetControlData(theControl, 0, kControlFontStyleTag, sizeof theRead, &theRead, &theSize), noErr);
    EXPECT_EQ(theSize, Size{sizeof theRead});
    EXPECT_EQ(SInt16{theRead.size}, 18);
    theStyle.size = 9;
    EXPECT_EQ(SetControlData(theControl, 0, kControlFontStyleTag, sizeof theStyle, &theStyle), noErr);
    EXPECT_EQ(GetControlData(theControl, 0, kControlFontStyleTag, sizeof theRead, &theRead, nullptr), noErr);
    EXPECT_EQ(SInt16{theRead.size}, 9);
    ControlSize theControlSize = kControlSizeSmall;
    EXPECT_EQ(SetControlData(theControl, 0, kControlSizeTag, sizeof theControlSize, &theControlSize), noErr);
    theControlSize = 77;
    EXPECT_EQ(SetControlData(theControl, 0, kControlSizeTag, sizeof theControlSize, &theControlSize),
              paramErr);
    EXPECT_EQ(GetControlData(theControl, 0, kControlSizeTag, sizeof theControlSize, &theControlSize, nullptr),
              noErr);
    EXPECT_EQ(theControlSize, kControlSizeSmall);
}

// --- Values ------------------------------------------------------------------------------------------

namespace {

struct ValueRow
{
    const char* theName;
    SInt32 theSet;
    SInt32 theKept;
};

class ValueWithinRange : public ManagerTest, public testing::WithParamInterface<ValueRow>
{
};

const ValueRow kValueRows[] = {
    {"Inside", 7, 7},  {"AtTheMinimum", -10, -10}, {"AtTheMaximum", 10, 10},   {"Below", -11, -10},
    {"Above", 11, 10}, {"Lowest", INT32_MIN, -10}, {"Highest", INT32_MAX, 10},
};

INSTANTIATE_TEST_SUITE_P(Values, ValueWithinRange, testing::ValuesIn(kValueRows),
                         [](const auto& theInfo) { return std::string(theInfo.param.theName); });

} // namespace

TEST_P(ValueWithinRange, IsKeptOrPutAtTheNearerEnd)
{
    ControlRef theSlider = NewSlider(0, -10, 10);
    SetControl32BitValue(theSlider, GetParam().theSet);
    EXPECT_EQ(GetControl32BitValue(theSlider), GetParam().theKept);
}

TEST_P(ValueWithinRange, IsKeptOrPutAtTheNearerEndAtCreation)
{
    EXPECT_EQ(GetControl32BitValue(NewSlider(GetParam().theSet, -10, 10)), GetParam().theKept);
}

TEST_F(ControlManager, ValueFollowsARangeThatShrinksAndIsToldOnce)
{
    ControlRef theSlider = NewSlider(5, 0, 10);
    Watch(theSlider, "slider");
    SetControl32BitMinimum(theSlider, 7);
    EXPECT_EQ(GetControl32BitValue(theSlider), 7);
    EXPECT_EQ(TakeLog(), Log{"slider: ValueFieldChanged"});
    SetControl32BitMaximum(theSlider, 8);
    SetControl32BitValue(theSlider, 8);
    SetControl32BitMaximum(theSlider, 7);
    EXPECT_EQ(GetControl32BitValue(theSlider), 7);
    EXPECT_EQ(TakeLog().size(), 3u);
}

TEST_F(ControlManager, ValueIsTheMinimumWhileTheRangeEndsBeforeItStarts)
{
    ControlRef theSlider = NewSlider(5, 0, 10);
    SetControl32BitMinimum(theSlider, 20);
    EXPECT_EQ(GetControl32BitValue(theSlider), 20);
    EXPECT_EQ(GetControl32BitMaximum(theSlider), 10);
    SetControl32BitValue(theSlider, 15);
    EXPECT_EQ(GetControl32BitValue(theSlider), 20);
}

TEST_F(ControlManager, AValuePutBackAtTheSameEndIsNoChange)
{
    ControlRef theSlider = NewSlider(10, 0, 10);
    Watch(theSlider, "slider");
    SetControl32BitValue(theSlider, 999);
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(ControlManager, SixteenBitCallsReadTheLowerHalf)
{
    ControlRef theSlider = NewSlider(0x12345, 0x12345 - 1, 0x54321);
    EXPECT_EQ(GetControlValue(theSlider), 0x2345);
    EXPECT_EQ(GetControlMinimum(theSlider), 0x2344);
    EXPECT_EQ(GetControlMaximum(theSlider), 0x4321);
    SetControlMinimum(theSlider, -5);
    SetControlMaximum(theSlider, 500);
    SetControlValue(theSlider, -3);
    EXPECT_EQ(GetControl32BitMinimum(theSlider), -5);
    EXPECT_EQ(GetControl32BitMaximum(theSlider), 500);
    EXPECT_EQ(GetControl32BitValue(theSlider), -3);
    EXPECT_EQ(GetControlValue(theSlider), -3);
}

TEST_F(ControlManager, ViewSizeSharesTheEventOfTheValue)
{
    const Rect theBounds = MakeRect(0, 0, 16, 200);
    ControlRef theBar = nullptr;
    CreateScrollBarControl(mWindow, &theBounds, 0, 0, 100, 10, false, nullptr, &theBar);
    EXPECT_EQ(GetControlViewSize(theBar), 10);
    Watch(theBar, "bar");
    SetControlViewSize(theBar, 20);
    SetControlViewSize(theBar, 20);
    EXPECT_EQ(GetControlViewSize(theBar), 20);
    EXPECT_EQ(TakeLog(), Log{"bar: ValueFieldChanged"});
}

TEST_F(ControlManager, EventsNameTheControlAndClimbToTheApplication)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theSlider = NewSlider();
    EmbedControl(theSlider, theBox);
    ControlRef theNamed = nullptr;
    const std::vector<EventTypeSpec> theTypes = {{kEventClassControl, kEventControlValueFieldChanged}};
    Watch(theSlider, "slider", theTypes);
    Watch(theBox, "box", theTypes);
    Watch(mWindow, "window", theTypes);
    EventWatch theApplication(
        GetApplicationEventTarget(), "application", mLog, theTypes, [&](EventRef theEvent) {
            theNamed = Parameter<ControlRef>(theEvent, kEventParamDirectObject, typeControlRef);
            return OSStatus{eventNotHandledErr};
        });
    SetControl32BitValue(theSlider, 6);
    EXPECT_EQ(TakeLog(), (Log{"slider: ValueFieldChanged", "box: ValueFieldChanged",
                              "window: ValueFieldChanged", "application: ValueFieldChanged"}));
    EXPECT_EQ(theNamed, theSlider);
}

TEST_F(ControlManager, AHandlerSeesTheNewStateAndMayChangeItAgain)
{
    ControlRef theSlider = NewSlider(5, 0, 10);
    std::vector<SInt32> theSeen;
    Watch(theSlider, "slider", EventWatch::ControlNotifications(), [&](EventRef) {
        const SInt32 theValue = GetControl32BitValue(theSlider);
        theSeen.push_back(theValue);
        if (theValue < 8) {
            SetControl32BitValue(theSlider, theValue + 1);
        }
        return OSStatus{eventNotHandledErr};
    });
    SetControl32BitValue(theSlider, 6);
    EXPECT_EQ(theSeen, (std::vector<SInt32>{6, 7, 8}));
    EXPECT_EQ(GetControl32BitValue(theSlider), 8);
}

// --- States ------------------------------------------------------------------------------------------

namespace {

struct StateRow
{
    const char* theName;
    OSStatus (*theSwitch)(ControlRef theControl, bool theState);
    Boolean (*theQuery)(ControlRef theControl);
    const char* theOnEvent;
    const char* theOffEvent;
};

class ControlStates : public ManagerTest, public testing::WithParamInterface<StateRow>
{
protected:
    ControlStates()
    {
        mBox = NewGroupBox();
        mSlider = NewSlider();
        EmbedControl(mSlider, mBox);
        Watch(mBox, "box", Own(mBox), nullptr);
        mSliderWatch = std::make_unique<EventWatch>(GetControlEventTarget(mSlider), "slider", mLog,
                                                    EventWatch::ControlNotifications(), [](EventRef) {
                                                        // Keeps its events from the box, which would note
                                                        // them too.
                                                        return OSStatus{noErr};
                                                    });
    }

    static std::vector<EventTypeSpec> Own(ControlRef) { return EventWatch::ControlNotifications(); }

    OSStatus Switch(ControlRef theControl, bool theState)
    {
        return GetParam().theSwitch(theControl, theState);
    }
    bool Is(ControlRef theControl) { return GetParam().theQuery(theControl) != 0; }
    std::string On(const char* theName) { return std::string(theName) + ": " + GetParam().theOnEvent; }
    std::string Off(const char* theName) { return std::string(theName) + ": " + GetParam().theOffEvent; }

    ControlRef mBox = nullptr;
    ControlRef mSlider = nullptr;
    std::unique_ptr<EventWatch> mSliderWatch;
};

const StateRow kStateRows[] = {
    {"Enabled",
     [](ControlRef theControl, bool theState) {
         return theState ? EnableControl(theControl) : DisableControl(theControl);
     },
     IsControlEnabled, "EnabledStateChanged", "EnabledStateChanged"},
    {"Active",
     [](ControlRef theControl, bool theState) {
         return OSStatus{theState ? ActivateControl(theControl) : DeactivateControl(theControl)};
     },
     IsControlActive, "Activate", "Deactivate"},
    {"Visible",
     [](ControlRef theControl, bool theState) {
         return OSStatus{SetControlVisibility(theControl, theState, true)};
     },
     IsControlVisible, "VisibilityChanged", "VisibilityChanged"},
};

INSTANTIATE_TEST_SUITE_P(States, ControlStates, testing::ValuesIn(kStateRows),
                         [](const auto& theInfo) { return std::string(theInfo.param.theName); });

} // namespace

TEST_P(ControlStates, SwitchOffAndOn)
{
    EXPECT_EQ(Switch(mSlider, false), noErr);
    EXPECT_FALSE(Is(mSlider));
    EXPECT_TRUE(Is(mBox));
    EXPECT_EQ(TakeLog(), Log{Off("slider")});
    EXPECT_EQ(Switch(mSlider, true), noErr);
    EXPECT_TRUE(Is(mSlider));
    EXPECT_EQ(TakeLog(), Log{On("slider")});
}

TEST_P(ControlStates, AreTheParentsTooAndToldParentsFirst)
{
    Switch(mBox, false);
    EXPECT_FALSE(Is(mSlider));
    EXPECT_EQ(TakeLog(), (Log{Off("box"), Off("slider")}));
    Switch(mBox, true);
    EXPECT_TRUE(Is(mSlider));
    EXPECT_EQ(TakeLog(), (Log{On("box"), On("slider")}));
}

TEST_P(ControlStates, AreSilentWhileAParentHidesTheDifference)
{
    Switch(mBox, false);
    TakeLog();
    EXPECT_EQ(Switch(mSlider, false), noErr);
    EXPECT_EQ(TakeLog(), Log{});
    Switch(mBox, true);
    EXPECT_EQ(TakeLog(), Log{On("box")});
    EXPECT_FALSE(Is(mSlider));
}

TEST_P(ControlStates, SurviveTheDisposalOfASubControlOnTheWay)
{
    Watch(mBox, "box again",
          {{kEventClassControl, kEventControlVisibilityChanged},
           {kEventClassControl, kEventControlEnabledStateChanged},
           {kEventClassControl, kEventControlDeactivate}},
          [this](EventRef) {
              DisposeControl(mSlider);
              return OSStatus{eventNotHandledErr};
          });
    Switch(mBox, false);
    EXPECT_FALSE(IsValidControlHandle(mSlider));
    EXPECT_EQ(TakeLog(), (Log{"box again: " + std::string(GetParam().theOffEvent), "slider: Dispose",
                              "box: RemovingSubControl", Off("box")}));
}

TEST_P(ControlStates, RefuseBadReferences)
{
    EXPECT_EQ(Switch(nullptr, true), errUnknownControl);
    EXPECT_EQ(Switch(InventedReference<ControlRef>(), true), errUnknownControl);
    DisposeControl(mSlider);
    EXPECT_EQ(Switch(mSlider, false), errUnknownControl);
    EXPECT_FALSE(Is(mSlider));
    EXPECT_FALSE(Is(nullptr));
}

TEST_F(ControlManager, VisibilityDoesNotDependOnTheWindow)
{
    ControlRef theSlider = NewSlider();
    Watch(theSlider, "slider");
    HideWindow(mWindow);
    EXPECT_TRUE(IsControlVisible(theSlider));
    EXPECT_EQ(TakeLog(), Log{"slider: Deactivate"});
}

TEST_F(ControlManager, ShowAndHideAreTheOtherNamesOfVisibility)
{
    ControlRef theSlider = NewSlider();
    HideControl(theSlider);
    EXPECT_FALSE(IsControlVisible(theSlider));
    ShowControl(theSlider);
    EXPECT_TRUE(IsControlVisible(theSlider));
}

TEST_F(ControlManager, HiliteTellsOldAndNewPart)
{
    ControlRef theButton = NewPushButton();
    std::vector<int> theParts;
    Watch(theButton, "button", EventWatch::ControlNotifications(), [&](EventRef theEvent) {
        theParts.push_back(
            Parameter<ControlPartCode>(theEvent, kEventParamControlPreviousPart, typeControlPartCode));
        theParts.push_back(
            Parameter<ControlPartCode>(theEvent, kEventParamControlCurrentPart, typeControlPartCode));
        return OSStatus{eventNotHandledErr};
    });
    HiliteControl(theButton, kControlButtonPart);
    HiliteControl(theButton, kControlButtonPart);
    EXPECT_EQ(GetControlHilite(theButton), kControlButtonPart);
    HiliteControl(theButton, 0);
    EXPECT_EQ(theParts, (std::vector<int>{0, kControlButtonPart, kControlButtonPart, 0}));
    EXPECT_EQ(TakeLog(), (Log{"button: HiliteChanged", "button: HiliteChanged"}));
}

TEST_F(ControlManager, HiliteDisablesAndDeactivatesToo)
{
    ControlRef theButton = NewPushButton();
    HiliteControl(theButton, kControlDisabledPart);
    EXPECT_FALSE(IsControlEnabled(theButton));
    EXPECT_EQ(GetControlHilite(theButton), kControlDisabledPart);
    HiliteControl(theButton, 0);
    EXPECT_TRUE(IsControlEnabled(theButton));
    HiliteControl(theButton, kControlInactivePart);
    EXPECT_FALSE(IsControlActive(theButton));
    EXPECT_EQ(GetControlHilite(theButton), kControlInactivePart);
    HiliteControl(theButton, 0);
    EXPECT_TRUE(IsControlActive(theButton));
    HiliteControl(theButton, -1);
    HiliteControl(theButton, 256);
    HiliteControl(nullptr, 1);
    EXPECT_EQ(GetControlHilite(theButton), 0);
    EXPECT_EQ(GetControlHilite(nullptr), 0);
}

// --- Bounds ------------------------------------------------------------------------------------------

namespace {

struct BoundsRow
{
    const char* theName;
    Rect theNew; // top, left, bottom, right
    UInt32 theAttributes;
};

class ControlBounds : public ManagerTest, public testing::WithParamInterface<BoundsRow>
{
};

const BoundsRow kBoundsRows[] = {
    {"Moved", {20, 20, 40, 136}, kControlBoundsChangePositionChanged},
    {"Resized", {10, 10, 40, 136}, kControlBoundsChangeSizeChanged},
    {"Both", {0, 0, 40, 136}, kControlBoundsChangePositionChanged | kControlBoundsChangeSizeChanged},
};

INSTANTIATE_TEST_SUITE_P(Changes, ControlBounds, testing::ValuesIn(kBoundsRows),
                         [](const auto& theInfo) { return std::string(theInfo.param.theName); });

} // namespace

TEST_P(ControlBounds, TellWhatChangedAndFromWhere)
{
    ControlRef theSlider = NewSlider();
    std::string theBounds;
    UInt32 theAttributes = 0;
    Watch(theSlider, "slider", EventWatch::ControlNotifications(), [&](EventRef theEvent) {
        for (const EventParamName theName :
             {kEventParamOriginalBounds, kEventParamPreviousBounds, kEventParamCurrentBounds}) {
            theBounds += Describe(Parameter<Rect>(theEvent, theName, typeQDRectangle)) + "; ";
        }
        theAttributes = Parameter<UInt32>(theEvent, kEventParamAttributes, typeUInt32);
        return OSStatus{eventNotHandledErr};
    });
    SetControlBounds(theSlider, &GetParam().theNew);
    const std::string theNew = Describe(GetParam().theNew);
    const bool theSizeChanged = (GetParam().theAttributes & kControlBoundsChangeSizeChanged) != 0;
    const std::string theBefore = theSizeChanged ? "10, 10, 126, 30; 0, 0, 0, 0; " + theNew + "; " : "";
    EXPECT_EQ(theBounds, theBefore + "10, 10, 126, 30; 10, 10, 126, 30; " + theNew + "; ");
    EXPECT_EQ(theAttributes, GetParam().theAttributes);
    const Log theExpected = theSizeChanged ? Log{"slider: InvalidateForSizeChange", "slider: BoundsChanged"}
                                           : Log{"slider: BoundsChanged"};
    EXPECT_EQ(TakeLog(), theExpected);
}

TEST_F(ControlManager, MovingAndSizingKeepTheRest)
{
    ControlRef theSlider = NewSlider();
    Rect theBounds;
    MoveControl(theSlider, -5, 7);
    EXPECT_EQ(Describe(*GetControlBounds(theSlider, &theBounds)), "-5, 7, 111, 27");
    SizeControl(theSlider, 50, 60);
    EXPECT_EQ(Describe(*GetControlBounds(theSlider, &theBounds)), "-5, 7, 45, 67");
    MoveControl(theSlider, 32767, 0);
    EXPECT_EQ(Describe(*GetControlBounds(theSlider, &theBounds)), "32767, 0, 32767, 60");
}

TEST_F(ControlManager, BoundsOfBadReferencesAreEmpty)
{
    Rect theBounds = MakeRect(1, 2, 3, 4);
    EXPECT_EQ(Describe(*GetControlBounds(nullptr, &theBounds)), "0, 0, 0, 0");
    EXPECT_EQ(GetControlBounds(nullptr, nullptr), nullptr);
    SetControlBounds(nullptr, &theBounds);
    SetControlBounds(NewSlider(), nullptr);
    MoveControl(nullptr, 1, 1);
    SizeControl(nullptr, 1, 1);
}

// --- Titles ------------------------------------------------------------------------------------------

TEST_F(ControlManager, TitlesComeAndGoAsStrings)
{
    ControlRef theButton = NewPushButton("Caf\xC3\xA9");
    CFStringRef theTitle = nullptr;
    EXPECT_EQ(CopyControlTitleAsCFString(theButton, &theTitle), noErr);
    EXPECT_EQ(TextOf(theTitle), "Caf\xC3\xA9");
    CFRelease(theTitle);
    EXPECT_EQ(SetControlTitleWithCFString(theButton, nullptr), paramErr);
    EXPECT_EQ(SetControlTitleWithCFString(nullptr, CFSTR("x")), errUnknownControl);
    EXPECT_EQ(CopyControlTitleAsCFString(nullptr, &theTitle), errUnknownControl);
    EXPECT_EQ(theTitle, nullptr);
    EXPECT_EQ(CopyControlTitleAsCFString(theButton, nullptr), paramErr);
}

TEST_F(ControlManager, ATitleIsACopy)
{
    ControlRef theButton = NewPushButton();
    CFMutableStringRef theTitle = CFStringCreateMutableCopy(nullptr, 0, CFSTR("First"));
    SetControlTitleWithCFString(theButton, theTitle);
    CFStringAppend(theTitle, CFSTR(" and more"));
    CFRelease(theTitle);
    CFStringRef theRead = nullptr;
    CopyControlTitleAsCFString(theButton, &theRead);
    EXPECT_EQ(TextOf(theRead), "First");
    EXPECT_EQ(CFGetRetainCount(theRead), 1);
    CFRelease(theRead);
}

TEST_F(ControlManager, TitlesComeAndGoAsPascalStrings)
{
    ControlRef theButton = NewPushButton();
    const unsigned char theNew[] = {4, 'C', 'a', 'f', 0x8E};
    Str255 theTitle;
    SetControlTitle(theButton, theNew);
    GetControlTitle(theButton, theTitle);
    EXPECT_EQ(std::string(theTitle + 1, theTitle + 1 + theTitle[0]), "Caf\x8E");
    SetControlTitleWithCFString(theButton, TestString("\xE4\xB8\xAD!"));
    GetControlTitle(theButton, theTitle);
    EXPECT_EQ(std::string(theTitle + 1, theTitle + 1 + theTitle[0]), "?!");
    SetControlTitleWithCFString(theButton, TestString(std::string(300, 'x').c_str()));
    GetControlTitle(theButton, theTitle);
    EXPECT_EQ(theTitle[0], 255);
    GetControlTitle(nullptr, theTitle);
    EXPECT_EQ(theTitle[0], 0);
    SetControlTitle(nullptr, theNew);
    SetControlTitle(theButton, nullptr);
    GetControlTitle(theButton, nullptr);
}

// --- Identity ----------------------------------------------------------------------------------------

TEST_F(ControlManager, IsFoundByTheIdentifierThatWasSet)
{
    ControlRef theBox = NewGroupBox();
    ControlRef theSlider = NewSlider();
    EmbedControl(theSlider, theBox);
    const ControlID theID = {'Lmte', 7};
    EXPECT_EQ(SetControlID(theSlider, &theID), noErr);
    ControlRef theFound = nullptr;
    EXPECT_EQ(GetControlByID(mWindow, &theID, &theFound), noErr);
    EXPECT_EQ(theFound, theSlider);
    ControlID theRead = {0, 0};
    EXPECT_EQ(GetControlID(theSlider, &theRead), noErr);
    EXPECT_EQ(OSType{theRead.signature}, OSType{'Lmte'});
    EXPECT_EQ(SInt32{theRead.id}, 7);
}

TEST_F(ControlManager, AnIdentifierThatNobodyHasGivesNullAndAStatus)
{
    NewSlider();
    const ControlID theIDs[] = {{'Lmte', 7}, {0, 0}};
    for (const ControlID& theID : theIDs) {
        ControlRef theFound = InventedReference<ControlRef>();
        EXPECT_EQ(GetControlByID(mWindow, &theID, &theFound), errUnknownControl);
        EXPECT_EQ(theFound, nullptr);
    }
    ControlRef theFound = InventedReference<ControlRef>();
    WindowRef theEmptyWindow = NewWindow();
    EXPECT_EQ(GetControlByID(theEmptyWindow, &theIDs[0], &theFound), errUnknownControl);
    EXPECT_EQ(GetControlByID(nullptr, &theIDs[0], &theFound), errInvalidWindowRef);
    EXPECT_EQ(theFound, nullptr);
    EXPECT_EQ(GetControlByID(mWindow, nullptr, &theFound), paramErr);
    EXPECT_EQ(GetControlByID(mWindow, &theIDs[0], nullptr), paramErr);
}

TEST_F(ControlManager, OfTwoWithOneIdentifierTheOneBehindIsFound)
{
    ControlRef theFirst = NewSlider();
    ControlRef theSecond = NewSlider();
    const ControlID theID = {'Lmte', 0};
    SetControlID(theSecond, &theID);
    SetControlID(theFirst, &theID);
    ControlRef theFound = nullptr;
    GetControlByID(mWindow, &theID, &theFound);
    EXPECT_EQ(theFound, theFirst);
    DisposeControl(theFirst);
    GetControlByID(mWindow, &theID, &theFound);
    EXPECT_EQ(theFound, theSecond);
}

TEST_F(ControlManager, KeepsCommandReferenceAndAction)
{
    ControlRef theButton = NewPushButton();
    EXPECT_EQ(SetControlCommandID(theButton, 'doit'), noErr);
    UInt32 theCommand = 0;
    EXPECT_EQ(GetControlCommandID(theButton, &theCommand), noErr);
    EXPECT_EQ(theCommand, UInt32{'doit'});
    SRefCon theReference = {};
    static_assert(sizeof theReference >= 4, "the platform gives it 32 bits at least");
    SetControlReference(theButton, theReference);
    EXPECT_EQ(GetControlReference(theButton), theReference);
    ControlActionUPP theAction = NewControlActionUPP([](ControlRef, ControlPartCode) {});
    SetControlAction(theButton, theAction);
    EXPECT_EQ(GetControlAction(theButton), theAction);
    InvokeControlActionUPP(theButton, 1, theAction);
    InvokeControlActionUPP(theButton, 1, nullptr);
    DisposeControlActionUPP(theAction);
}

TEST_F(ControlManager, TellsItsFeatures)
{
    UInt32 theFeatures = 0;
    EXPECT_EQ(GetControlFeatures(NewGroupBox(), &theFeatures), noErr);
    EXPECT_EQ(theFeatures, UInt32{kControlSupportsEmbedding});
    EXPECT_EQ(GetControlFeatures(NewCheckBox(0, true), &theFeatures), noErr);
    EXPECT_EQ(theFeatures & kControlAutoToggles, UInt32{kControlAutoToggles});
    EXPECT_EQ(GetControlFeatures(NewCheckBox(0, false), &theFeatures), noErr);
    EXPECT_EQ(theFeatures & kControlAutoToggles, 0u);
    EXPECT_EQ(GetControlFeatures(nullptr, &theFeatures), errUnknownControl);
    EXPECT_EQ(theFeatures, 0u);
}

// --- Properties --------------------------------------------------------------------------------------

TEST_F(ControlManager, KeepsPropertiesAsCopies)
{
    ControlRef theSlider = NewSlider();
    char theData[] = "hello";
    EXPECT_EQ(SetControlProperty(theSlider, 'LMTE', 'data', 5, theData), noErr);
    theData[0] = 'j';
    char theRead[8] = {};
    ByteCount theSize = 0;
    EXPECT_EQ(GetControlPropertySize(theSlider, 'LMTE', 'data', &theSize), noErr);
    EXPECT_EQ(theSize, 5u);
    EXPECT_EQ(GetControlProperty(theSlider, 'LMTE', 'data', 5, &theSize, theRead), noErr);
    EXPECT_STREQ(theRead, "hello");
    EXPECT_EQ(SetControlProperty(theSlider, 'LMTE', 'data', 0, nullptr), noErr);
    EXPECT_EQ(GetControlPropertySize(theSlider, 'LMTE', 'data', &theSize), noErr);
    EXPECT_EQ(theSize, 0u);
    EXPECT_EQ(RemoveControlProperty(theSlider, 'LMTE', 'data'), noErr);
    EXPECT_EQ(RemoveControlProperty(theSlider, 'LMTE', 'data'), controlPropertyNotFoundErr);
}

TEST_F(ControlManager, APropertyOfAnotherSizeGivesTheSmallerAmountAndAStatus)
{
    ControlRef theSlider = NewSlider();
    SetControlProperty(theSlider, 'LMTE', 'data', 5, "hello");
    char theRead[8] = {};
    ByteCount theSize = 0;
    EXPECT_EQ(GetControlProperty(theSlider, 'LMTE', 'data', 3, &theSize, theRead), paramErr);
    EXPECT_STREQ(theRead, "hel");
    EXPECT_EQ(theSize, 5u);
    EXPECT_EQ(GetControlProperty(theSlider, 'LMTE', 'data', 8, nullptr, theRead), paramErr);
    EXPECT_STREQ(theRead, "hello");
}

TEST_F(ControlManager, RefusesBadPropertyCalls)
{
    ControlRef theSlider = NewSlider();
    ByteCount theSize = 0;
    char theByte = 0;
    EXPECT_EQ(SetControlProperty(theSlider, 'appl', 'data', 1, &theByte), controlPropertyInvalid);
    EXPECT_EQ(SetControlProperty(theSlider, 'LMTE', 'data', 1, nullptr), paramErr);
    EXPECT_EQ(SetControlProperty(nullptr, 'LMTE', 'data', 1, &theByte), controlHandleInvalidErr);
    EXPECT_EQ(GetControlProperty(theSlider, 'LMTE', 'data', 1, nullptr, &theByte),
              controlPropertyNotFoundErr);
    EXPECT_EQ(GetControlProperty(nullptr, 'LMTE', 'data', 1, nullptr, &theByte), controlHandleInvalidErr);
    EXPECT_EQ(GetControlPropertySize(theSlider, 'LMTE', 'data', &theSize), controlPropertyNotFoundErr);
    EXPECT_EQ(GetControlPropertySize(nullptr, 'LMTE', 'data', &theSize), controlHandleInvalidErr);
    EXPECT_EQ(RemoveControlProperty(nullptr, 'LMTE', 'data'), controlHandleInvalidErr);
    SetControlProperty(theSlider, 'LMTE', 'data', 1, &theByte);
    EXPECT_EQ(GetControlProperty(theSlider, 'LMTE', 'data', 1, nullptr, nullptr), paramErr);
    EXPECT_EQ(GetControlPropertySize(theSlider, 'LMTE', 'data', nullptr), paramErr);
}

// --- Bad references ----------------------------------------------------------------------------------

TEST_F(ControlManager, BadReferencesGiveAStatusAndNothingElse)
{
    ControlRef theDisposed = NewSlider();
    DisposeControl(theDisposed);
    // A window's reference is a reference to something, but not to a control.
    ControlRef theForeign = reinterpret_cast<ControlRef>(mWindow);
    for (ControlRef theBad :
         {ControlRef{nullptr}, theDisposed, theForeign, InventedReference<ControlRef>()}) {
        ControlKind theKind;
        ControlID theID = {1, 2};
        UInt32 theCommand = 3;
        EXPECT_EQ(GetControlKind(theBad, &theKind), errUnknownControl);
        EXPECT_EQ(SetControlID(theBad, &theID), errUnknownControl);
        EXPECT_EQ(GetControlID(theBad, &theID), errUnknownControl);
        EXPECT_EQ(OSType{theID.signature}, OSType{0});
        EXPECT_EQ(SetControlCommandID(theBad, 1), errUnknownControl);
        EXPECT_EQ(GetControlCommandID(theBad, &theCommand), errUnknownControl);
        EXPECT_EQ(SetControlData(theBad, 0, kControlKindTag, 0, nullptr), errUnknownControl);
        EXPECT_EQ(GetControlData(theBad, 0, kControlKindTag, 0, nullptr, nullptr), errUnknownControl);
        EXPECT_EQ(SetControlFontStyle(theBad, nullptr), errUnknownControl);
        EXPECT_EQ(GetControl32BitValue(theBad), 0);
        EXPECT_EQ(GetControlViewSize(theBad), 0);
        EXPECT_EQ(GetControlOwner(theBad), nullptr);
        EXPECT_EQ(GetControlReference(theBad), SRefCon{});
        EXPECT_EQ(GetControlAction(theBad), nullptr);
        EXPECT_EQ(GetControlEventTarget(theBad), nullptr);
        EXPECT_FALSE(IsValidControlHandle(theBad));
        SetControl32BitValue(theBad, 1);
        SetControlReference(theBad, SRefCon{});
        SetControlAction(theBad, nullptr);
        DisposeControl(theBad);
    }
}

TEST_F(ControlManager, NullResultsAreRefused)
{
    ControlRef theSlider = NewSlider();
    EXPECT_EQ(GetControlKind(theSlider, nullptr), paramErr);
    EXPECT_EQ(SetControlID(theSlider, nullptr), paramErr);
    EXPECT_EQ(GetControlID(theSlider, nullptr), paramErr);
    EXPECT_EQ(GetControlCommandID(theSlider, nullptr), paramErr);
    EXPECT_EQ(GetControlFeatures(theSlider, nullptr), paramErr);
    EXPECT_EQ(SetControlFontStyle(theSlider, nullptr), paramErr);
    EXPECT_EQ(SetControlData(theSlider, 0, kControlFontStyleTag, sizeof(ControlFontStyleRec), nullptr),
              paramErr);
    EXPECT_EQ(GetControlDataSize(theSlider, 0, kControlFontStyleTag, nullptr), paramErr);
}

TEST_F(ControlManager, AReferenceIsNeverGivenOutAgain)
{
    ControlRef theFirst = NewSlider();
    DisposeControl(theFirst);
    for (int theCount = 0; theCount < 100; ++theCount) {
        ControlRef theNext = NewSlider();
        EXPECT_NE(theNext, theFirst);
        DisposeControl(theNext);
    }
    EXPECT_FALSE(IsValidControlHandle(theFirst));
}

// --- Structures and codes ----------------------------------------------------------------------------

static_assert(sizeof(ControlID) == 8 && sizeof(ControlKind) == 8, "the platform's own sizes");
static_assert(sizeof(ControlFontStyleRec) == 24, "the platform's own size");
static_assert(sizeof(ControlEditTextSelectionRec) == 4, "the platform's own size");
static_assert(sizeof(ControlPartCode) == 2 && sizeof(ControlFocusPart) == 2, "parts have 16 bits");
#if !defined(__LP64__)
static_assert(sizeof(Size) == 4 && sizeof(ByteCount) == 4 && sizeof(SRefCon) == 4, "as on the platform");
#endif
