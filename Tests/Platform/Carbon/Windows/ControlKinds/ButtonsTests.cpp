// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Push buttons, check boxes and radio buttons.

#include "ManagerTestSupport.h"

namespace {

using Buttons = ControlKindTest;

} // namespace

TEST_F(Buttons, AButtonsDataTellsItsRoles)
{
    ControlRef theButton = NewPushButton();
    CheckFlag(theButton, kControlPushButtonDefaultTag, false);
    CheckFlag(theButton, kControlPushButtonCancelTag, false);
}

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

TEST_F(Buttons, AHandlerMayChooseTheToggledValue)
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

TEST_F(Buttons, InitialValuesOutOfRangeAreAtTheNearerEnd)
{
    EXPECT_EQ(GetControl32BitValue(NewCheckBox(7)), 2);
    EXPECT_EQ(GetControl32BitValue(NewCheckBox(-7)), 0);
    EXPECT_EQ(GetControl32BitValue(NewRadioButton(7)), 2);
}
