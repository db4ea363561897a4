// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Push buttons, check boxes, radio buttons, and what opens and closes something.

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

// Disclosures --------------------------------------------------------------------------------------------

namespace {

class Disclosures : public ControlKindTest
{
protected:
    ControlRef NewTriangle(bool theIsToggle = true,
                           UInt16 theOrientation = kControlDisclosureTrianglePointDefault)
    {
        const Rect theBounds = MakeRect(20, 200, 120, 220);
        ControlRef theControl = nullptr;
        EXPECT_EQ(CreateDisclosureTriangleControl(mWindow, &theBounds, theOrientation, CFSTR("Details"), 0,
                                                  true, theIsToggle, &theControl),
                  noErr);
        return theControl;
    }

    ControlRef NewDisclosureButton(SInt32 theValue, bool theIsToggle)
    {
        const Rect theBounds = MakeRect(20, 200, 45, 220);
        ControlRef theControl = nullptr;
        EXPECT_EQ(CreateDisclosureButtonControl(mWindow, &theBounds, theValue, theIsToggle, &theControl),
                  noErr);
        return theControl;
    }
};

} // namespace

TEST_F(Disclosures, AClickOpensAndClosesATriangle)
{
    ControlRef theTriangle = NewTriangle();
    Watch(theTriangle, "triangle", kWithoutHilite);
    Click(30, 210);
    EXPECT_EQ(GetControl32BitValue(theTriangle), 1);
    Click(30, 210);
    EXPECT_EQ(GetControl32BitValue(theTriangle), 0);
    const Log theClick = {"triangle: ValueFieldChanged", "triangle: Hit"};
    EXPECT_EQ(TakeLog(), (Log{theClick[0], theClick[1], theClick[0], theClick[1]}));
    EXPECT_EQ(TestControl(theTriangle, Point{210, 30}), kControlTrianglePart);
}

TEST_F(Disclosures, WithoutAutoTogglesTheValueIsTheProgramsAffair)
{
    ControlRef theTriangle = NewTriangle(false);
    Watch(theTriangle, "triangle", kWithoutHilite);
    Click(30, 210);
    EXPECT_EQ(GetControl32BitValue(theTriangle), 0);
    EXPECT_EQ(TakeLog(), Log{"triangle: Hit"});
}

TEST_F(Disclosures, TheRightArrowOpensATriangleAndTheLeftOneClosesIt)
{
    ControlRef theTriangle = NewTriangle();
    SetKeyboardFocus(mWindow, theTriangle, kControlFocusNextPart);
    Key(kVK_LeftArrow);
    EXPECT_EQ(GetControl32BitValue(theTriangle), 0);
    Key(kVK_RightArrow);
    EXPECT_EQ(GetControl32BitValue(theTriangle), 1);
    Key(kVK_RightArrow);
    EXPECT_EQ(GetControl32BitValue(theTriangle), 1);
    Key(kVK_LeftArrow);
    EXPECT_EQ(GetControl32BitValue(theTriangle), 0);
    Key(kVK_Space, " ");
    EXPECT_EQ(GetControl32BitValue(theTriangle), 1);
}

TEST_F(Disclosures, ATriangleThatPointsNowhereIsRefused)
{
    const Rect theBounds = MakeRect(0, 0, 20, 20);
    ControlRef theControl = InventedReference<ControlRef>();
    EXPECT_EQ(CreateDisclosureTriangleControl(mWindow, &theBounds, 3, nullptr, 0, false, false, &theControl),
              paramErr);
    EXPECT_EQ(theControl, nullptr);
    EXPECT_EQ(CreateDisclosureTriangleControl(mWindow, &theBounds, 3, nullptr, 0, false, false, nullptr),
              paramErr);
}

TEST_F(Disclosures, TheLastValueOfATriangleIsKept)
{
    ControlRef theTriangle = NewTriangle(true, kControlDisclosureTrianglePointLeft);
    EXPECT_EQ(SetDisclosureTriangleLastValue(theTriangle, 1), noErr);
    SInt16 theValue = 0;
    EXPECT_EQ(
        GetControlData(theTriangle, 0, kControlTriangleLastValueTag, sizeof theValue, &theValue, nullptr),
        noErr);
    EXPECT_EQ(theValue, 1);
    EXPECT_EQ(SetDisclosureTriangleLastValue(NewPushButton(), 1), errDataNotSupported);
    EXPECT_EQ(SetDisclosureTriangleLastValue(nullptr, 1), errUnknownControl);
}

TEST_F(Disclosures, AButtonTogglesWhereItMay)
{
    ControlRef theButton = NewDisclosureButton(9, true);
    EXPECT_EQ(GetControl32BitValue(theButton), kControlDisclosureButtonDisclosed);
    Click(30, 210);
    EXPECT_EQ(GetControl32BitValue(theButton), kControlDisclosureButtonClosed);
    DisposeControl(theButton);
    theButton = NewDisclosureButton(0, false);
    Click(30, 210);
    EXPECT_EQ(GetControl32BitValue(theButton), kControlDisclosureButtonClosed);
    EXPECT_EQ(TestControl(theButton, Point{210, 30}), kControlButtonPart);
}
