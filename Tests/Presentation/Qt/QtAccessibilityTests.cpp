// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What a screen reader learns of the windows, and what it can do to them.

// Before the headers of Carbon, which have macros for some of the names in these.
#include <QAccessible>
#include <QLineEdit>
#include <QMenuBar>
#include <QTabBar>
#include <QWidget>

#include "HeadlessPresenter.h"
#include "QtPresenter.h"
#include "TestMenus.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

namespace {

using Host::PresenterRegistry;
using Host::QtPresenter;

// A program with a control of every kind, shown by Qt.
class QtAccessibility : public testing::Test
{
protected:
    QtAccessibility()
    {
        auto thePresenter = std::make_unique<QtPresenter>();
        mPresenter = thePresenter.get();
        EXPECT_TRUE(PresenterRegistry::Use(std::move(thePresenter)));
        mProgram = std::make_unique<TestProgram>();
        Turn();
    }

    ~QtAccessibility() override
    {
        mProgram = nullptr;
        PresenterRegistry::Use(Host::HeadlessPresenter::Make());
    }

    static void Turn()
    {
        for (int theCount = 0; theCount < 3; ++theCount) {
            RunCurrentEventLoop(0);
        }
    }

    WindowRef Window() const { return mProgram->mWindow.Get(); }

    QWidget& Widget(OSType theSignature) const
    {
        return *mPresenter->FindControlWidget(Screen().ControlCalled(theSignature));
    }

    QAccessibleInterface& Spoken(OSType theSignature) const
    {
        return *QAccessible::queryAccessibleInterface(&Widget(theSignature));
    }

    std::string NameOf(OSType theSignature) const
    {
        return Spoken(theSignature).text(QAccessible::Name).toStdString();
    }

    static ControlRef Named(ControlRef theControl)
    {
        TestProgram::Name(theControl, 'made');
        Turn();
        return theControl;
    }

    ControlRef AddText(const Rect& theBounds, CFStringRef theText) const
    {
        ControlRef theControl = nullptr;
        CreateStaticTextControl(Window(), &theBounds, theText, nullptr, &theControl);
        Turn();
        return theControl;
    }

    QtPresenter* mPresenter = nullptr;
    std::unique_ptr<TestProgram> mProgram;
};

// Kinds ------------------------------------------------------------------------------------------------

const Rect kPlace = MakeRect(220, 10, 310, 30);

struct KindRow
{
    const char* theTest;
    ControlRef (*theMaker)(WindowRef theWindow);
    QAccessible::Role theRole;
    const char* theName;
    const char* theValue; // "" for a kind without
    bool theTakesFocus;
    bool theIsChecked;
};

ControlRef MakeButton(WindowRef theWindow)
{
    ControlRef theControl = nullptr;
    CreatePushButtonControl(theWindow, &kPlace, CFSTR("Salt & Pepper"), &theControl);
    return theControl;
}

ControlRef MakeCheckBox(WindowRef theWindow)
{
    ControlRef theControl = nullptr;
    CreateCheckBoxControl(theWindow, &kPlace, CFSTR("Salted"), 1, true, &theControl);
    return theControl;
}

ControlRef MakeRadioButton(WindowRef theWindow)
{
    ControlRef theControl = nullptr;
    CreateRadioButtonControl(theWindow, &kPlace, CFSTR("Peppered"), 0, true, &theControl);
    return theControl;
}

ControlRef WithLabel(WindowRef theWindow, ControlRef theControl)
{
    const Rect theLabelPlace = MakeRect(220, 0, 310, 10);
    ControlRef theLabel = nullptr;
    CreateStaticTextControl(theWindow, &theLabelPlace, CFSTR("Grains:"), nullptr, &theLabel);
    return theControl;
}

ControlRef MakeSlider(WindowRef theWindow)
{
    ControlRef theControl = nullptr;
    CreateSliderControl(theWindow, &kPlace, 7, 0, 10, kControlSliderDoesNotPoint, 0, false, nullptr,
                        &theControl);
    return WithLabel(theWindow, theControl);
}

ControlRef MakeScrollBar(WindowRef theWindow)
{
    ControlRef theControl = nullptr;
    CreateScrollBarControl(theWindow, &kPlace, 7, 0, 10, 2, false, nullptr, &theControl);
    return WithLabel(theWindow, theControl);
}

ControlRef MakeArrows(WindowRef theWindow)
{
    ControlRef theControl = nullptr;
    CreateLittleArrowsControl(theWindow, &kPlace, 7, 0, 10, 1, &theControl);
    return WithLabel(theWindow, theControl);
}

// Shown in ten thousandths of its range.
ControlRef MakeProgressBar(WindowRef theWindow)
{
    ControlRef theControl = nullptr;
    CreateProgressBarControl(theWindow, &kPlace, 7, 0, 10, false, &theControl);
    return WithLabel(theWindow, theControl);
}

ControlRef MakeText(WindowRef theWindow)
{
    ControlRef theControl = nullptr;
    CreateStaticTextControl(theWindow, &kPlace, CFSTR("Cellar"), nullptr, &theControl);
    return theControl;
}

ControlRef MakeField(WindowRef theWindow)
{
    ControlRef theControl = nullptr;
    CreateEditUnicodeTextControl(theWindow, &kPlace, CFSTR("Cellar"), false, nullptr, &theControl);
    return WithLabel(theWindow, theControl);
}

ControlRef MakeTallField(WindowRef theWindow)
{
    const Rect thePlace = MakeRect(220, 10, 310, 90);
    ControlRef theControl = nullptr;
    CreateEditUnicodeTextControl(theWindow, &thePlace, CFSTR("Cellar"), false, nullptr, &theControl);
    return WithLabel(theWindow, theControl);
}

ControlRef MakeGroup(WindowRef theWindow)
{
    ControlRef theControl = nullptr;
    CreateGroupBoxControl(theWindow, &kPlace, CFSTR("Spices"), true, &theControl);
    return theControl;
}

const KindRow kKinds[] = {
    {"PushButton", MakeButton, QAccessible::PushButton, "Salt & Pepper", "", true, false},
    {"CheckBox", MakeCheckBox, QAccessible::CheckBox, "Salted", "", true, true},
    {"RadioButton", MakeRadioButton, QAccessible::RadioButton, "Peppered", "", true, false},
    {"Slider", MakeSlider, QAccessible::Slider, "Grains", "7", true, false},
    {"ScrollBar", MakeScrollBar, QAccessible::ScrollBar, "Grains", "7", true, false},
    {"LittleArrows", MakeArrows, QAccessible::SpinBox, "Grains", "7", true, false},
    {"ProgressBar", MakeProgressBar, QAccessible::ProgressBar, "Grains", "7000", false, false},
    {"StaticText", MakeText, QAccessible::StaticText, "Cellar", "", false, false},
    {"Field", MakeField, QAccessible::EditableText, "Grains", "Cellar", true, false},
    {"TallField", MakeTallField, QAccessible::EditableText, "Grains", "Cellar", true, false},
    {"GroupBox", MakeGroup, QAccessible::Grouping, "Spices", "", false, false},
};

class QtAccessibleKinds : public QtAccessibility, public testing::WithParamInterface<KindRow>
{
protected:
    std::string ValueOf(OSType theSignature) const
    {
        QAccessibleInterface& theSpoken = Spoken(theSignature);
        if (QAccessibleValueInterface* theValue = theSpoken.valueInterface()) {
            return theValue->currentValue().toString().toStdString();
        }
        return theSpoken.text(QAccessible::Value).toStdString();
    }
};

TEST_P(QtAccessibleKinds, HaveNameRoleValueAndState)
{
    const KindRow& theRow = GetParam();
    const ControlRef theControl = Named(theRow.theMaker(Window()));
    EXPECT_EQ(Spoken('made').role(), theRow.theRole);
    EXPECT_EQ(NameOf('made'), theRow.theName);
    EXPECT_EQ(ValueOf('made'), theRow.theValue);
    EXPECT_EQ(Spoken('made').state().focusable != 0, theRow.theTakesFocus);
    EXPECT_EQ(Spoken('made').state().checked != 0, theRow.theIsChecked);
    EXPECT_FALSE(Spoken('made').state().disabled);
    DisableControl(theControl);
    Turn();
    EXPECT_TRUE(Spoken('made').state().disabled);
}

INSTANTIATE_TEST_SUITE_P(Kinds, QtAccessibleKinds, testing::ValuesIn(kKinds),
                         [](const testing::TestParamInfo<KindRow>& theInfo) {
                             return theInfo.param.theTest;
                         });

TEST_F(QtAccessibility, APasswordIsNotReadOut)
{
    ControlRef theControl = nullptr;
    CreateEditUnicodeTextControl(Window(), &kPlace, CFSTR("sesame"), true, nullptr, &theControl);
    Named(theControl);
    EXPECT_TRUE(Spoken('made').state().passwordEdit);
    EXPECT_EQ(Spoken('made').text(QAccessible::Value).indexOf(QStringLiteral("sesame")), -1);
}

TEST_F(QtAccessibility, TellsTheControlThatHasTheFocusAndTheDefaultButton)
{
    EXPECT_TRUE(Spoken('temp').state().focused) << "the first control";
    SetKeyboardFocus(Window(), mProgram->mField, kControlEditTextPart);
    SetWindowDefaultButton(Window(), mProgram->mButton);
    Turn();
    EXPECT_FALSE(Spoken('temp').state().focused);
    EXPECT_TRUE(Spoken('room').state().focused);
    EXPECT_TRUE(Spoken('rset').state().defaultButton);
}

TEST_F(QtAccessibility, FollowsTheValuesOfTheProgram)
{
    SetControl32BitValue(mProgram->mSlider, 9);
    SetControl32BitValue(mProgram->mCheckBox, 2);
    SetControlTitleWithCFString(mProgram->mButton, CFSTR("Start again"));
    Turn();
    EXPECT_EQ(Spoken('temp').valueInterface()->currentValue().toInt(), 9);
    EXPECT_TRUE(Spoken('heat').state().checkStateMixed);
    EXPECT_EQ(NameOf('rset'), "Start again");
}

// Names ------------------------------------------------------------------------------------------------

TEST_F(QtAccessibility, AControlIsCalledByItsTitleBeforeAnyLabel)
{
    AddText(MakeRect(0, 10, 8, 30), CFSTR("Warmth:"));
    EXPECT_EQ(NameOf('temp'), "Warmth");
    SetControlTitleWithCFString(mProgram->mSlider, CFSTR("Temperature"));
    Turn();
    EXPECT_EQ(NameOf('temp'), "Temperature");
}

TEST_F(QtAccessibility, ALabelThatChangesOrGoesChangesTheName)
{
    const ControlRef theLabel = AddText(MakeRect(0, 10, 8, 30), CFSTR("Warmth:"));
    SetControlData(theLabel, kControlEntireControl, kControlStaticTextTextTag, 5, "Heat:");
    Turn();
    EXPECT_EQ(NameOf('temp'), "Heat");
    DisposeControl(theLabel);
    Turn();
    EXPECT_EQ(NameOf('temp'), "");
}

TEST_F(QtAccessibility, ANumberBesideAControlIsNoLabel)
{
    AddText(MakeRect(0, 10, 8, 30), CFSTR("21.5"));
    EXPECT_EQ(NameOf('temp'), "");
}

TEST_F(QtAccessibility, ALabelNamesTheControlNextToItAndNoneBehindThat)
{
    AddText(MakeRect(0, 10, 8, 30), CFSTR("Warmth:"));
    ControlRef theSecond = nullptr;
    const Rect thePlace = MakeRect(220, 10, 300, 30);
    CreateSliderControl(Window(), &thePlace, 0, 0, 10, kControlSliderDoesNotPoint, 0, false, nullptr,
                        &theSecond);
    Named(theSecond);
    EXPECT_EQ(NameOf('temp'), "Warmth");
    EXPECT_EQ(NameOf('made'), "");
}

TEST_F(QtAccessibility, AControlInAGroupBoxTellsOfIt)
{
    const Rect thePlace = MakeRect(5, 35, 215, 65);
    ControlRef theGroup = nullptr;
    CreateGroupBoxControl(Window(), &thePlace, CFSTR("Heating"), true, &theGroup);
    Turn();
    EXPECT_EQ(Spoken('heat').text(QAccessible::Description), QStringLiteral("Heating"));
    EXPECT_EQ(Spoken('rset').text(QAccessible::Description), QString());
}

TEST_F(QtAccessibility, WindowsAndMenusHaveTheirTitles)
{
    const TestMenus theMenus;
    Turn();
    QWidget& theWindow = *mPresenter->FindWindowWidget(Screen().WindowCalled("Thermostat"));
    QAccessibleInterface& theSpoken = *QAccessible::queryAccessibleInterface(&theWindow);
    EXPECT_EQ(theSpoken.role(), QAccessible::Window);
    EXPECT_EQ(theSpoken.text(QAccessible::Name), QStringLiteral("Thermostat"));
    QAccessibleInterface& theBar = *QAccessible::queryAccessibleInterface(theWindow.findChild<QMenuBar*>());
    EXPECT_EQ(theBar.role(), QAccessible::MenuBar);
    ASSERT_EQ(theBar.childCount(), 2);
    EXPECT_EQ(theBar.child(1)->text(QAccessible::Name), QStringLiteral("Heating"));
}

TEST_F(QtAccessibility, ADialogIsOne)
{
    const TestWindow theDialog(MakeRect(100, 80, 300, 180), CFSTR("Question"), kMovableModalWindowClass,
                               kWindowNoAttributes);
    Turn();
    QWidget& theWidget = *mPresenter->FindWindowWidget(Screen().WindowCalled("Question"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&theWidget)->role(), QAccessible::Dialog);
}

// Acting -----------------------------------------------------------------------------------------------

TEST_F(QtAccessibility, AScreenReaderPressesButtonsAsAPersonDoes)
{
    Log theLog;
    const EventLog theEvents(GetWindowEventTarget(Window()), theLog);
    Spoken('heat').actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    Turn();
    EXPECT_EQ(theLog, (Log{"mouse down", "click", "mouse up", "value", "hit"}));
    EXPECT_EQ(GetControl32BitValue(mProgram->mCheckBox), 1);
    EXPECT_TRUE(Spoken('heat').state().checked);
}

TEST_F(QtAccessibility, AScreenReaderPressesRadioButtonsAndPushButtons)
{
    const ControlRef theRadioButton = Named(MakeRadioButton(Window()));
    Log theLog;
    const EventLog theEvents(GetWindowEventTarget(Window()), theLog);
    Spoken('made').actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    Turn();
    EXPECT_EQ(GetControl32BitValue(theRadioButton), 1);
    EXPECT_TRUE(Spoken('made').state().checked);
    theLog.clear();
    Spoken('rset').actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    while (theLog.empty()) { // Qt lets the button look pressed for a moment
        RunCurrentEventLoop(1);
    }
    EXPECT_EQ(std::count(theLog.begin(), theLog.end(), "hit"), 1);
}

TEST_F(QtAccessibility, APressThatAHandlerTakesLeavesTheWidgetAsItWas)
{
    Log theLog;
    EventLog theEvents(GetWindowEventTarget(Window()), theLog);
    theEvents.mAnswer = [](const std::string& theName, EventRef) {
        return theName == "mouse down" ? OSStatus{noErr} : OSStatus{eventNotHandledErr};
    };
    Spoken('heat').actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    Turn();
    EXPECT_EQ(GetControl32BitValue(mProgram->mCheckBox), 0);
    EXPECT_FALSE(Spoken('heat').state().checked);
}

TEST_F(QtAccessibility, AScreenReaderSetsValues)
{
    Spoken('temp').valueInterface()->setCurrentValue(2);
    Turn();
    EXPECT_EQ(GetControl32BitValue(mProgram->mSlider), 2);
}

TEST_F(QtAccessibility, AScreenReaderStepsLittleArrows)
{
    const ControlRef theArrows = Named(MakeArrows(Window()));
    Log theLog;
    const EventLog theEvents(GetWindowEventTarget(Window()), theLog);
    QAccessibleInterface& theSpoken = Spoken('made');
    theSpoken.actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    theSpoken.valueInterface()->setCurrentValue(3);
    Turn();
    EXPECT_EQ(std::count(theLog.begin(), theLog.end(), "hit"), 2);
    DisableControl(theArrows);
    Turn();
    EXPECT_EQ(theSpoken.actionInterface()->actionNames(), QStringList());
}

TEST_F(QtAccessibility, AScreenReaderWritesIntoAField)
{
    Spoken('room').setText(QAccessible::Value, QStringLiteral("Attic"));
    Turn();
    EXPECT_EQ(TextOf(mProgram->mField), "Attic");
}

TEST_F(QtAccessibility, ADisclosureSaysWhetherItIsOpenAndCanBePressed)
{
    const Rect theBounds = MakeRect(220, 40, 300, 60);
    ControlRef theControl = nullptr;
    CreateDisclosureTriangleControl(Window(), &theBounds, 0, CFSTR("Details"), 0, false, true, &theControl);
    Named(theControl);
    QAccessibleInterface& theSpoken = Spoken('made');
    EXPECT_EQ(theSpoken.role(), QAccessible::Button);
    EXPECT_EQ(NameOf('made'), "Details");
    EXPECT_TRUE(theSpoken.state().expandable);
    EXPECT_TRUE(theSpoken.state().collapsed);
    theSpoken.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    Turn();
    EXPECT_EQ(GetControl32BitValue(theControl), 1);
    EXPECT_TRUE(theSpoken.state().expanded);
    EXPECT_FALSE(theSpoken.state().collapsed);
}

TEST_F(QtAccessibility, AScreenReaderKnowsTabsAndPressesThem)
{
    const Rect theBounds = {20, 10, 150, 210};
    const ControlTabEntry theEntries[] = {{nullptr, CFSTR("Salt"), true}, {nullptr, CFSTR("Pepper"), true}};
    ControlRef theTabs = nullptr;
    CreateTabsControl(Window(), &theBounds, kControlTabSizeLarge, kControlTabDirectionNorth, 2, theEntries,
                      &theTabs);
    Named(theTabs);
    auto* const theBar = Spoken('made').object()->findChild<QTabBar*>();
    ASSERT_NE(theBar, nullptr);
    QAccessibleInterface& theTab = *QAccessible::queryAccessibleInterface(theBar)->child(1);
    EXPECT_EQ(theTab.role(), QAccessible::PageTab);
    EXPECT_EQ(theTab.text(QAccessible::Name).toStdString(), "Pepper");
    theTab.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    Turn();
    EXPECT_EQ(GetControl32BitValue(theTabs), 2);
    EXPECT_EQ(theBar->currentIndex(), 1);
}

TEST_F(QtAccessibility, WhatOnlyShowsHasItsRole)
{
    const Rect theBounds = MakeRect(220, 40, 300, 60);
    ControlRef theControl = nullptr;
    CreateChasingArrowsControl(Window(), &theBounds, &theControl);
    Named(theControl);
    EXPECT_EQ(Spoken('made').role(), QAccessible::Animation);
    DisposeControl(theControl);
    CreateRelevanceBarControl(Window(), &theBounds, 5, 0, 10, &theControl);
    Named(theControl);
    EXPECT_EQ(Spoken('made').role(), QAccessible::ProgressBar);
    DisposeControl(theControl);
    CreatePopupButtonControl(Window(), &theBounds, CFSTR("Unit:"), -12345, false, -1, 0, 0, &theControl);
    Named(theControl);
    EXPECT_EQ(Spoken('made').role(), QAccessible::ComboBox);
    EXPECT_EQ(NameOf('made'), "Unit");
}

} // namespace
