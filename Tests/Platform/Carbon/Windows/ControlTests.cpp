// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What all controls have in common: values, states and bounds, and the events that tell of changes.

#include "ManagerTestSupport.h"

#include <cstdint>

namespace {

using Control = ManagerTest;

INSTANTIATE_TEST_SUITE_P(Kinds, EveryControl, testing::ValuesIn(EveryKind()),
                         [](const auto& theInfo) { return std::string(theInfo.param.theName); });

} // namespace

// --- Every kind --------------------------------------------------------------------------------------

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

TEST_F(Control, ValueFollowsARangeThatShrinksAndIsToldOnce)
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

TEST_F(Control, ValueIsTheMinimumWhileTheRangeEndsBeforeItStarts)
{
    ControlRef theSlider = NewSlider(5, 0, 10);
    SetControl32BitMinimum(theSlider, 20);
    EXPECT_EQ(GetControl32BitValue(theSlider), 20);
    EXPECT_EQ(GetControl32BitMaximum(theSlider), 10);
    SetControl32BitValue(theSlider, 15);
    EXPECT_EQ(GetControl32BitValue(theSlider), 20);
}

TEST_F(Control, AValuePutBackAtTheSameEndIsNoChange)
{
    ControlRef theSlider = NewSlider(10, 0, 10);
    Watch(theSlider, "slider");
    SetControl32BitValue(theSlider, 999);
    EXPECT_EQ(TakeLog(), Log{});
}

TEST_F(Control, ViewSizeSharesTheEventOfTheValue)
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

TEST_F(Control, EventsNameTheControlAndClimbToTheApplication)
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

TEST_F(Control, AHandlerSeesTheNewStateAndMayChangeItAgain)
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

TEST_F(Control, VisibilityDoesNotDependOnTheWindow)
{
    ControlRef theSlider = NewSlider();
    Watch(theSlider, "slider");
    HideWindow(mWindow);
    EXPECT_TRUE(IsControlVisible(theSlider));
    EXPECT_EQ(TakeLog(), Log{"slider: Deactivate"});
}

TEST_F(Control, HiliteTellsOldAndNewPart)
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
