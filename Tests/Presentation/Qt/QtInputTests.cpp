// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What a person does to the widgets on the screen, and what the program hears of it.

// Before the headers of Carbon, which have macros for some of the names in these.
#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QImage>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSlider>
#include <QStyleOptionSlider>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

#include "HeadlessPresenter.h"
#include "PaintCounter.h"
#include "QtPresenter.h"
#include "TestMenus.h"
#include "Windows/Windows.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <memory>

namespace {

using Host::PresenterRegistry;
using Host::QtPresenter;

class QtInputTest : public testing::Test
{
protected:
    QtInputTest()
    {
        auto thePresenter = std::make_unique<QtPresenter>();
        mPresenter = thePresenter.get();
        EXPECT_TRUE(PresenterRegistry::Use(std::move(thePresenter)));
        mProgram = std::make_unique<TestProgram>();
        mWindowLog = std::make_unique<EventLog>(GetWindowEventTarget(mProgram->mWindow.Get()), mLog);
        Turn();
        mLog.clear();
    }

    ~QtInputTest() override
    {
        mWindowLog = nullptr;
        mProgram = nullptr;
        PresenterRegistry::Use(Host::HeadlessPresenter::Make());
    }

    void Turn()
    {
        for (size_t theCount = mLog.size() + 1; theCount != mLog.size();) {
            theCount = mLog.size();
            RunCurrentEventLoop(0);
        }
    }

    Log Take()
    {
        Turn();
        Log theLog;
        theLog.swap(mLog);
        return theLog;
    }

    // Lets the loop run until the desktop's answers are in and something was heard.
    Log TakeLater()
    {
        while (mLog.empty()) {
            RunCurrentEventLoop(1);
        }
        return Take();
    }

    QWidget& Widget(OSType theSignature) const
    {
        return *mPresenter->FindControlWidget(Screen().ControlCalled(theSignature));
    }

    QWidget& WindowWidget() const
    {
        return *mPresenter->FindWindowWidget(Screen().WindowCalled("Thermostat"));
    }

    QLineEdit& Field() const { return static_cast<QLineEdit&>(Widget('room')); }

    QSlider& Slider() const { return static_cast<QSlider&>(Widget('temp')); }

    QPoint Handle() const
    {
        QStyleOptionSlider theOption;
        theOption.initFrom(&Slider());
        theOption.minimum = Slider().minimum();
        theOption.maximum = Slider().maximum();
        theOption.sliderPosition = Slider().sliderPosition();
        theOption.sliderValue = Slider().value();
        return Slider()
            .style()
            ->subControlRect(QStyle::CC_Slider, &theOption, QStyle::SC_SliderHandle, &Slider())
            .center();
    }

    QtPresenter* mPresenter = nullptr;
    std::unique_ptr<TestProgram> mProgram;
    std::unique_ptr<EventLog> mWindowLog;
    Log mLog;
};

TEST_F(QtInputTest, AClickOnACheckBoxTogglesIt)
{
    QTest::mouseClick(&Widget('heat'), Qt::LeftButton);
    EXPECT_EQ(Take(), (Log{"mouse down", "click", "mouse up", "value", "hit"}));
    EXPECT_EQ(GetControl32BitValue(mProgram->mCheckBox), 1);
    EXPECT_TRUE(static_cast<QAbstractButton&>(Widget('heat')).isChecked());
}

TEST_F(QtInputTest, AButtonLooksPressedWhileItIs)
{
    auto& theButton = static_cast<QAbstractButton&>(Widget('rset'));
    QTest::mousePress(&theButton, Qt::LeftButton);
    Turn();
    EXPECT_TRUE(theButton.isDown());
    QTest::mouseRelease(&theButton, Qt::LeftButton);
    EXPECT_EQ(Take(), (Log{"mouse down", "click", "mouse up", "hit"}));
    EXPECT_FALSE(theButton.isDown());
}

TEST_F(QtInputTest, AReleaseOutsideOfTheButtonPressesNothing)
{
    QTest::mousePress(&Widget('rset'), Qt::LeftButton);
    Turn();
    QTest::mouseMove(&Widget('rset'), QPoint(-50, -5));
    QTest::mouseRelease(&Widget('rset'), Qt::LeftButton, {}, QPoint(-50, -5));
    EXPECT_EQ(Take().back(), "mouse up");
}

TEST_F(QtInputTest, ADisabledControlIsDeaf)
{
    DisableControl(mProgram->mCheckBox);
    DisableControl(mProgram->mSlider);
    Turn();
    QTest::mouseClick(&Widget('heat'), Qt::LeftButton);
    QTest::mouseClick(&Slider(), Qt::LeftButton);
    EXPECT_EQ(GetControl32BitValue(mProgram->mCheckBox), 0);
    EXPECT_EQ(GetControl32BitValue(mProgram->mSlider), 5);
    EXPECT_FALSE(Slider().isSliderDown());
}

TEST_F(QtInputTest, DraggingTheHandleOfASliderSetsItWhenItIsLetGo)
{
    QTest::mousePress(&Slider(), Qt::LeftButton, {}, Handle());
    QTest::mouseMove(&Slider(), Handle() + QPoint(10, 0));
    QTest::mouseMove(&Slider(), QPoint(Slider().width() - 1, Handle().y()));
    Turn();
    EXPECT_EQ(Slider().sliderPosition(), 10) << "the handle stays with the pointer";
    EXPECT_EQ(GetControl32BitValue(mProgram->mSlider), 5);
    QTest::mouseRelease(&Slider(), Qt::LeftButton, {}, QPoint(Slider().width() - 1, Handle().y()));
    EXPECT_EQ(Take(), (Log{"mouse down", "click", "mouse dragged", "mouse up", "value", "hit"}));
    EXPECT_EQ(GetControl32BitValue(mProgram->mSlider), 10);
}

TEST_F(QtInputTest, ALiveSliderSetsItsValueWhileItIsDragged)
{
    const Rect theBounds = MakeRect(10, 140, 210, 160);
    ControlRef theSlider = nullptr;
    CreateSliderControl(mProgram->mWindow.Get(), &theBounds, 5, 0, 10, kControlSliderDoesNotPoint, 0, true,
                        nullptr, &theSlider);
    TestProgram::Name(theSlider, 'live');
    Turn();
    auto& theWidget = static_cast<QSlider&>(Widget('live'));
    QTest::mousePress(&theWidget, Qt::LeftButton, {}, QPoint(2, theWidget.height() / 2));
    Turn();
    EXPECT_EQ(GetControl32BitValue(theSlider), 0);
    QTest::mouseMove(&theWidget, QPoint(theWidget.width() - 1, theWidget.height() / 2));
    Turn();
    EXPECT_EQ(GetControl32BitValue(theSlider), 10);
    EXPECT_TRUE(theWidget.isSliderDown());
    QTest::mouseRelease(&theWidget, Qt::LeftButton, {}, QPoint(theWidget.width() - 1, 5));
}

TEST_F(QtInputTest, TheWheelOverASliderMovesItUnlessAHandlerTakesIt)
{
    const auto theTurn = [this] {
        QWheelEvent theEvent(Slider().rect().center(), Slider().mapToGlobal(Slider().rect().center()), {},
                             QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Slider(), &theEvent);
        Turn();
        return GetControl32BitValue(mProgram->mSlider);
    };
    const SInt32 theFirst = theTurn();
    EXPECT_GT(theFirst, 5);
    mWindowLog->mAnswer = [](const std::string& theName, EventRef) {
        return theName == "wheel" ? OSStatus{noErr} : OSStatus{eventNotHandledErr};
    };
    EXPECT_EQ(theTurn(), theFirst);
}

TEST_F(QtInputTest, APressBesideTheHandleBringsItThere)
{
    const QPoint theStart(2, Slider().height() / 2);
    QTest::mouseClick(&Slider(), Qt::LeftButton, {}, theStart);
    EXPECT_EQ(Take(), (Log{"mouse down", "click", "mouse dragged", "mouse up", "value", "hit"}));
    EXPECT_EQ(GetControl32BitValue(mProgram->mSlider), 0);
}

TEST_F(QtInputTest, ASliderWhosePressAHandlerConsumedGoesBack)
{
    mWindowLog->mAnswer = [](const std::string& theName, EventRef) {
        return theName == "mouse down" ? OSStatus{noErr} : OSStatus{eventNotHandledErr};
    };
    QTest::mouseClick(&Slider(), Qt::LeftButton, {}, QPoint(2, Slider().height() / 2));
    Turn();
    EXPECT_EQ(GetControl32BitValue(mProgram->mSlider), 5);
    EXPECT_EQ(Slider().value(), 5);
}

TEST_F(QtInputTest, KeysTypeIntoTheFieldThatHasThem)
{
    QTest::mouseClick(&Field(), Qt::LeftButton);
    Take();
    QTest::keyClicks(WindowWidget().focusWidget(), QStringLiteral("hi"));
    EXPECT_EQ(Take(), (Log{"key down", "key up", "key down", "key up"}));
    EXPECT_EQ(TextOf(mProgram->mField), "hi");
    EXPECT_EQ(Field().text(), QStringLiteral("hi"));
    EXPECT_EQ(Field().cursorPosition(), 2);
}

TEST_F(QtInputTest, AKeyThatAHandlerConsumedGoesNoFurther)
{
    QTest::mouseClick(&Field(), Qt::LeftButton);
    Take();
    QGuiApplication::clipboard()->setText(QStringLiteral("Cellar"));
    mWindowLog->mAnswer = [](const std::string& theName, EventRef) {
        return theName == "key down" ? OSStatus{noErr} : OSStatus{eventNotHandledErr};
    };
    QTest::keyClick(&Field(), Qt::Key_A);
    QTest::keyClick(&Field(), Qt::Key_V, Qt::ControlModifier);
    Turn();
    EXPECT_EQ(TextOf(mProgram->mField), "");
    EXPECT_EQ(Field().text(), QString());
}

TEST_F(QtInputTest, AKeyThatNobodyWantedDoesWhatItDoesOnTheDesktop)
{
    QTest::mouseClick(&Field(), Qt::LeftButton);
    Take();
    QGuiApplication::clipboard()->setText(QStringLiteral("Cellar"));
    QTest::keyClick(&Field(), Qt::Key_V, Qt::ControlModifier);
    Turn();
    EXPECT_EQ(TextOf(mProgram->mField), "Cellar");
    QTest::keyClick(&Field(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&Field(), QStringLiteral("x"));
    Turn();
    EXPECT_EQ(TextOf(mProgram->mField), "x");
    QTest::keyClick(&Field(), Qt::Key_Z, Qt::ControlModifier);
    Turn();
    EXPECT_EQ(TextOf(mProgram->mField), "Cellar");
}

TEST_F(QtInputTest, AClickIntoATextPutsTheCaretThere)
{
    SetControlData(mProgram->mField, kControlEntireControl, kControlEditTextTextTag, 7, "Kitchen");
    Turn();
    ASSERT_EQ(Field().text(), QStringLiteral("Kitchen"));
    QTest::mouseClick(&Field(), Qt::LeftButton, {}, QPoint(2, Field().height() / 2));
    Turn();
    EXPECT_EQ(Field().cursorPosition(), 0);
    ControlEditTextSelectionRec theSelection = {9, 9};
    GetControlData(mProgram->mField, kControlEntireControl, kControlEditTextSelectionTag, sizeof theSelection,
                   &theSelection, nullptr);
    EXPECT_EQ(theSelection.selStart, 0);
    EXPECT_EQ(theSelection.selEnd, 0);
}

TEST_F(QtInputTest, TabAndShiftTabMoveTheFocusOverEveryControl)
{
    const auto theKeyOf = [this](Qt::Key theKey, Qt::KeyboardModifiers theModifiers) {
        QTest::keyClick(WindowWidget().focusWidget(), theKey, theModifiers);
        Turn();
        return WindowWidget().focusWidget();
    };
    Turn();
    EXPECT_EQ(WindowWidget().focusWidget(), &Slider()) << "the first control";
    for (const OSType theNext : std::array<OSType, 4>{'heat', 'room', 'rset', 'temp'}) {
        EXPECT_EQ(theKeyOf(Qt::Key_Tab, Qt::NoModifier), &Widget(theNext));
    }
    for (const OSType theNext : std::array<OSType, 4>{'rset', 'room', 'heat', 'temp'}) {
        EXPECT_EQ(theKeyOf(Qt::Key_Backtab, Qt::ShiftModifier), &Widget(theNext));
    }
}

TEST_F(QtInputTest, SpaceAndTheArrowsOperateTheControlThatHasTheFocus)
{
    QTest::keyClick(&Slider(), Qt::Key_Right);
    QTest::keyClick(&Slider(), Qt::Key_PageUp);
    Turn();
    EXPECT_EQ(GetControl32BitValue(mProgram->mSlider), 7);
    EXPECT_EQ(Slider().value(), 7);
    QTest::keyClick(&Slider(), Qt::Key_Tab);
    Take();
    QTest::keyClick(WindowWidget().focusWidget(), Qt::Key_Space);
    EXPECT_EQ(Take(), (Log{"key down", "value", "hit", "key up"}));
    EXPECT_EQ(GetControl32BitValue(mProgram->mCheckBox), 1);
}

TEST_F(QtInputTest, TabIntoAFieldSelectsItsTextAndOutOfItNothingIsSelected)
{
    SetControlData(mProgram->mField, kControlEntireControl, kControlEditTextTextTag, 5, "Attic");
    SetKeyboardFocus(mProgram->mWindow.Get(), mProgram->mCheckBox, kControlCheckBoxPart);
    Turn();
    QTest::keyClick(WindowWidget().focusWidget(), Qt::Key_Tab);
    Turn();
    EXPECT_EQ(Field().selectedText(), QStringLiteral("Attic"));
    QTest::keyClick(&Field(), Qt::Key_Tab);
    Turn();
    EXPECT_FALSE(Field().hasSelectedText());
    QTest::keyClick(WindowWidget().focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    QTest::keyClicks(&Field(), QStringLiteral("Hall"));
    Turn();
    EXPECT_EQ(TextOf(mProgram->mField), "Hall");
}

// How a control that has the focus is lost.
struct Loss
{
    const char* theName;
    void (*theLoss)(ControlRef theControl);
};

class QtFocusLoss : public QtInputTest, public testing::WithParamInterface<Loss>
{
};

TEST_P(QtFocusLoss, GivesTheKeysToNoOtherControl)
{
    SetControlData(mProgram->mField, kControlEntireControl, kControlEditTextTextTag, 5, "Attic");
    SetKeyboardFocus(mProgram->mWindow.Get(), mProgram->mCheckBox, kControlCheckBoxPart);
    Turn();
    ASSERT_EQ(WindowWidget().focusWidget(), &Widget('heat'));
    GetParam().theLoss(mProgram->mCheckBox);
    Turn();
    for (const OSType theOther : std::array<OSType, 3>{'temp', 'room', 'rset'}) {
        EXPECT_NE(WindowWidget().focusWidget(), &Widget(theOther));
    }
    EXPECT_FALSE(Field().hasSelectedText()) << "Qt has not been there meanwhile either";
    QTest::keyClick(WindowWidget().focusWidget(), Qt::Key_Tab);
    Turn();
    EXPECT_EQ(WindowWidget().focusWidget(), &Slider());
}

INSTANTIATE_TEST_SUITE_P(
    Ways, QtFocusLoss,
    testing::Values(Loss{"Disabled", [](ControlRef theControl) { DisableControl(theControl); }},
                    Loss{"Hidden", [](ControlRef theControl) { HideControl(theControl); }},
                    Loss{"Gone", [](ControlRef theControl) { DisposeControl(theControl); }}),
    [](const testing::TestParamInfo<Loss>& theInfo) { return theInfo.param.theName; });

TEST_F(QtInputTest, AltTypesNothing)
{
    SetKeyboardFocus(mProgram->mWindow.Get(), mProgram->mField, kControlEditTextPart);
    Turn();
    QKeyEvent theKey(QEvent::KeyPress, Qt::Key_X, Qt::AltModifier, QStringLiteral("x"));
    QCoreApplication::sendEvent(&Field(), &theKey);
    Turn();
    EXPECT_EQ(TextOf(mProgram->mField), "");
    EXPECT_EQ(Field().text(), QString());
}

TEST_F(QtInputTest, AnArrowThatNobodyWantsLeavesTheFocusWhereItIs)
{
    SetKeyboardFocus(mProgram->mWindow.Get(), mProgram->mButton, kControlButtonPart);
    Take();
    QTest::keyClick(&Widget('rset'), Qt::Key_Up);
    EXPECT_EQ(Take(), (Log{"key down", "key up"}));
    EXPECT_EQ(WindowWidget().focusWidget(), &Widget('rset'));
}

struct ButtonKey
{
    const char* theName;
    Qt::Key theKey;
    Qt::KeyboardModifier theModifier;
    OSStatus (*theSetter)(WindowRef, ControlRef);
};

class QtButtonKeys : public QtInputTest, public testing::WithParamInterface<ButtonKey>
{
protected:
    QtButtonKeys()
    {
        GetParam().theSetter(mProgram->mWindow.Get(), mProgram->mButton);
        Take();
    }

    Log Press()
    {
        QTest::keyClick(WindowWidget().focusWidget(), GetParam().theKey, GetParam().theModifier);
        return Take();
    }
};

TEST_P(QtButtonKeys, PressTheirButton)
{
    const Log theLog = Press();
    EXPECT_EQ(std::count(theLog.begin(), theLog.end(), "hit"), 1);
}

TEST_P(QtButtonKeys, PressNothingWhenAHandlerConsumesThem)
{
    mWindowLog->mAnswer = [](const std::string& theName, EventRef) {
        return theName == "key down" ? OSStatus{noErr} : OSStatus{eventNotHandledErr};
    };
    EXPECT_EQ(Press(), (Log{"key down", "key up"}));
}

INSTANTIATE_TEST_SUITE_P(
    Keys, QtButtonKeys,
    testing::Values(ButtonKey{"Return", Qt::Key_Return, Qt::NoModifier, SetWindowDefaultButton},
                    ButtonKey{"Enter", Qt::Key_Enter, Qt::KeypadModifier, SetWindowDefaultButton},
                    ButtonKey{"Escape", Qt::Key_Escape, Qt::NoModifier, SetWindowCancelButton}),
    [](const testing::TestParamInfo<ButtonKey>& theInfo) { return theInfo.param.theName; });

TEST_F(QtInputTest, KeysAreHeardByTheWindowWhenNoControlHasThem)
{
    QTest::keyClick(WindowWidget().focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(Take(), (Log{"key down", "key up"}));
}

TEST_F(QtInputTest, TheWindowIsMovedAndResizedByThePerson)
{
    WindowWidget().move(WindowWidget().x() + 30, WindowWidget().y() + 40);
    EXPECT_EQ(TakeLater(), (Log{"drag started", "bounds changing", "bounds changed", "drag completed"}));
    WindowWidget().resize(WindowWidget().width() + 50, WindowWidget().height());
    EXPECT_EQ(TakeLater(), (Log{"resize started", "bounds changing", "bounds changed", "resize completed"}));
    Rect theContent = {};
    GetWindowBounds(mProgram->mWindow.Get(), kWindowContentRgn, &theContent);
    EXPECT_EQ(theContent.left, 130);
    EXPECT_EQ(theContent.top, 120);
    EXPECT_EQ(theContent.right, 130 + 320 + 50);
}

TEST_F(QtInputTest, TheWindowIsMinimisedAndRestoredByThePerson)
{
    WindowWidget().showMinimized();
    EXPECT_EQ(TakeLater().front(), "collapse");
    EXPECT_TRUE(IsWindowCollapsed(mProgram->mWindow.Get()));
    WindowWidget().showNormal();
    EXPECT_EQ(TakeLater().front(), "expand");
    EXPECT_FALSE(IsWindowCollapsed(mProgram->mWindow.Get()));
}

TEST_F(QtInputTest, AWindowThatTheProgramKeepsOpenStays)
{
    mWindowLog->mAnswer = [](const std::string& theName, EventRef) {
        return theName == "close" ? OSStatus{noErr} : OSStatus{eventNotHandledErr};
    };
    WindowWidget().close();
    EXPECT_EQ(Take(), Log{"close"});
    EXPECT_TRUE(WindowWidget().isVisible());
}

TEST_F(QtInputTest, AWindowThatIsClosedGoes)
{
    WindowWidget().close();
    const Log theLog = Take();
    EXPECT_EQ(std::count(theLog.begin(), theLog.end(), "closed"), 1);
    EXPECT_EQ(Screen().DescribeScreen(), "Nothing is on the screen.\n");
}

// Alerts and sheets ------------------------------------------------------------------------------------

TEST_F(QtInputTest, AnAlertIsAnsweredByItsButton)
{
    DialogRef theAlert = nullptr;
    CreateStandardAlert(kAlertNoteAlert, CFSTR("Switch off?"), nullptr, nullptr, &theAlert);
    const EventLoopTimerProcPtr thePress = [](EventLoopTimerRef, void* thePresenter) {
        const QWidget* theWidget =
            static_cast<QtPresenter*>(thePresenter)->FindWindowWidget(Host::IdentifierOf(FrontWindow()));
        if (theWidget != nullptr) {
            QTest::mouseClick(theWidget->findChild<QPushButton*>(), Qt::LeftButton);
        }
    };
    EventLoopTimerRef theTimer = nullptr;
    InstallEventLoopTimer(GetMainEventLoop(), 0.01, 0.01, thePress, mPresenter, &theTimer);
    DialogItemIndex theItem = 0;
    EXPECT_EQ(RunStandardAlert(theAlert, nullptr, &theItem), noErr);
    EXPECT_EQ(theItem, kAlertStdAlertOKButton);
    RemoveEventLoopTimer(theTimer);
}

TEST_F(QtInputTest, ASheetStaysInFrontOfItsParentAndKeepsItOut)
{
    DialogRef theSheet = nullptr;
    CreateStandardSheet(kAlertNoteAlert, CFSTR("Save?"), nullptr, nullptr, nullptr, &theSheet);
    ShowSheetWindow(GetDialogWindow(theSheet), mProgram->mWindow.Get());
    Turn();
    QWidget& theWidget = *mPresenter->FindWindowWidget(Host::IdentifierOf(GetDialogWindow(theSheet)));
    EXPECT_EQ(theWidget.windowHandle()->transientParent(), WindowWidget().windowHandle());
    mLog.clear();
    QTest::mouseClick(&Widget('heat'), Qt::LeftButton);
    EXPECT_EQ(Take(), Log());
    EXPECT_EQ(GetControl32BitValue(mProgram->mCheckBox), 0);
    QTest::keyClick(theWidget.focusWidget(), Qt::Key_Return);
    Turn();
    EXPECT_EQ(GetDialogWindow(theSheet), nullptr);
    mLog.clear();
    QTest::mouseClick(&Widget('heat'), Qt::LeftButton);
    Turn();
    EXPECT_EQ(GetControl32BitValue(mProgram->mCheckBox), 1);
}

TEST_F(QtInputTest, AWindowBehindAModalOneDoesNotStayActiveOnTheDesktop)
{
    const TestWindow theDialog(MakeRect(100, 80, 300, 180), CFSTR("Question"), kMovableModalWindowClass,
                               kWindowNoAttributes);
    Turn();
    QWidget& theWidget = *mPresenter->FindWindowWidget(Screen().WindowCalled("Question"));
    ASSERT_EQ(QApplication::activeWindow(), &theWidget);
    WindowWidget().activateWindow();
    for (int theCount = 0; theCount < 5; ++theCount) {
        RunCurrentEventLoop(0.01);
    }
    EXPECT_EQ(QApplication::activeWindow(), &theWidget);
    EXPECT_TRUE(IsWindowActive(theDialog.Get()));
}

// Menus ------------------------------------------------------------------------------------------------

class QtMenuInput : public QtInputTest
{
protected:
    // The loop shows menus at the end of a turn.
    QtMenuInput()
    {
        Turn();
        Take();
    }

    QMenu& Heating() const { return *WindowWidget().findChild<QMenuBar*>()->actions().at(1)->menu(); }

    TestMenus mMenus;
    MenuLog mMenuLog{mLog};
};

TEST_F(QtMenuInput, AMenuAsksForTheStateOfItsItemsBeforeItIsSeen)
{
    mMenuLog.mAnswer = [this](const std::string& theName) {
        if (theName == "update rset") {
            DisableMenuItem(mMenus.mHeating, 4);
        }
        return OSStatus{eventNotHandledErr};
    };
    EXPECT_TRUE(Heating().actions().at(3)->isEnabled());
    Heating().popup(QPoint(100, 100));
    EXPECT_TRUE(Heating().isVisible());
    EXPECT_FALSE(Heating().actions().at(3)->isEnabled());
    EXPECT_EQ(Take(), (Log{"begin", "update heat", "update none", "update rset", "opening Heating"}));
    Heating().close();
    EXPECT_EQ(Take(), (Log{"closed Heating", "end ", "end Heating"}));
}

TEST_F(QtMenuInput, AnItemOfASubmenuSendsItsCommandOnce)
{
    Heating().actions().at(2)->menu()->actions().at(1)->trigger();
    const Log theLog = Take();
    EXPECT_EQ(std::count(theLog.begin(), theLog.end(), "command fahr"), 1);
}

// A key of the desktop's and the menu that it opens.
struct MenuKey
{
    const char* theName;
    Qt::Key theKey;
    Qt::KeyboardModifiers theModifiers;
    int theMenu; // -1 for none
};

class QtMenuKeys : public QtMenuInput, public testing::WithParamInterface<MenuKey>
{
protected:
    QMenu& Menu(int theIndex) const
    {
        return *WindowWidget().findChild<QMenuBar*>()->actions().at(theIndex)->menu();
    }

    void Press()
    {
        QTest::keyClick(WindowWidget().focusWidget(), GetParam().theKey, GetParam().theModifiers);
        Turn();
    }

    void ExpectOpen(int theMenu) const
    {
        for (const int theIndex : {0, 1}) {
            EXPECT_EQ(Menu(theIndex).isVisible(), theIndex == theMenu) << theIndex;
        }
    }
};

TEST_P(QtMenuKeys, OpenTheMenu)
{
    Press();
    ExpectOpen(GetParam().theMenu);
    QTest::keyClick(&Menu(std::max(GetParam().theMenu, 0)), Qt::Key_Escape);
    Turn();
    ExpectOpen(-1);
    EXPECT_EQ(WindowWidget().focusWidget(), &Slider()) << "where it was";
}

TEST_P(QtMenuKeys, OpenItFromATextFieldTooAndTypeNothing)
{
    SetKeyboardFocus(mProgram->mWindow.Get(), mProgram->mField, kControlEditTextPart);
    Turn();
    Press();
    ExpectOpen(GetParam().theMenu);
    EXPECT_EQ(TextOf(mProgram->mField), "");
}

TEST_P(QtMenuKeys, OpenNothingWhenAHandlerTakesThem)
{
    mWindowLog->mAnswer = [](const std::string& theName, EventRef) {
        return theName == "key down" ? OSStatus{noErr} : OSStatus{eventNotHandledErr};
    };
    Press();
    ExpectOpen(-1);
}

INSTANTIATE_TEST_SUITE_P(Keys, QtMenuKeys,
                         testing::Values(MenuKey{"F10", Qt::Key_F10, Qt::NoModifier, 0},
                                         MenuKey{"AltF", Qt::Key_F, Qt::AltModifier, 0},
                                         MenuKey{"AltH", Qt::Key_H, Qt::AltModifier, 1},
                                         MenuKey{"AltQ", Qt::Key_Q, Qt::AltModifier, -1},
                                         MenuKey{"ShiftF10", Qt::Key_F10, Qt::ShiftModifier, -1}),
                         [](const testing::TestParamInfo<MenuKey>& theInfo) {
                             return theInfo.param.theName;
                         });

TEST_F(QtMenuInput, AnItemIsChosenWithKeysAlone)
{
    QTest::keyClick(WindowWidget().focusWidget(), Qt::Key_H, Qt::AltModifier);
    Turn();
    for (const Qt::Key theKey : {Qt::Key_Up, Qt::Key_Return}) {
        QTest::keyClick(&Heating(), theKey);
    }
    const Log theLog = Take();
    EXPECT_EQ(std::count(theLog.begin(), theLog.end(), "command rset"), 1);
}

TEST_F(QtMenuInput, ACommandKeySendsItsCommandOnce)
{
    QTest::keyClick(WindowWidget().focusWidget(), Qt::Key_R, Qt::ControlModifier);
    const Log theLog = Take();
    EXPECT_EQ(std::count(theLog.begin(), theLog.end(), "command rset"), 1);
}

// The loop ---------------------------------------------------------------------------------------------

TEST_F(QtInputTest, TenThousandChangesInOneTurnArePaintedOnce)
{
    PaintCounter theCounter;
    while (theCounter.theCount == 0) { // what is painted when a window appears is over
        Slider().installEventFilter(&theCounter);
        Slider().update();
        RunCurrentEventLoop(kEventDurationSecond / 60);
    }
    theCounter.theCount = 0;
    for (SInt32 theStep = 0; theStep < 10000; ++theStep) {
        SetControl32BitValue(mProgram->mSlider, theStep % 11);
    }
    while (theCounter.theCount == 0) {
        RunCurrentEventLoop(kEventDurationSecond / 60);
    }
    EXPECT_EQ(theCounter.theCount, 1);
    EXPECT_EQ(Slider().value(), 9999 % 11);
}

TEST_F(QtInputTest, AnIdleLoopSleeps)
{
    QTest::mouseClick(&Widget('heat'), Qt::LeftButton);
    RunCurrentEventLoop(kEventDurationSecond / 2); // until the desktop has answered and all is painted
    int theCount = 0;
    const QMetaObject::Connection theConnection = QObject::connect(
        QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, [&theCount] { ++theCount; });
    EXPECT_EQ(RunCurrentEventLoop(kEventDurationSecond / 2), eventLoopTimedOutErr);
    QObject::disconnect(theConnection);
    // For the look at what has arrived, and for the end.
    EXPECT_LE(theCount, 4);
}

// Other presenters -------------------------------------------------------------------------------------

TEST_F(QtInputTest, ThePictureIsTheSameAfterAnotherPresenterHadItsTurn)
{
    const TestMenus theMenus;
    QTest::mouseClick(&Widget('heat'), Qt::LeftButton);
    SetControl32BitValue(mProgram->mSlider, 9);
    SetControlData(mProgram->mField, kControlEntireControl, kControlEditTextTextTag, 5, "Attic");
    HideControl(mProgram->mButton);
    Turn();
    const QImage theBefore = WindowWidget().grab().toImage();
    const QRect thePlace = WindowWidget().geometry();
    PresenterRegistry::Use(Host::HeadlessPresenter::Make());
    Turn();
    auto theNext = std::make_unique<QtPresenter>();
    mPresenter = theNext.get();
    PresenterRegistry::Use(std::move(theNext));
    Turn();
    EXPECT_EQ(WindowWidget().geometry(), thePlace);
    EXPECT_EQ(WindowWidget().grab().toImage(), theBefore);
}

TEST_F(QtInputTest, APresenterStartsWithWhatWasDoneWithoutIt)
{
    PresenterRegistry::Use(Host::HeadlessPresenter::Make());
    Turn();
    SetControl32BitValue(mProgram->mCheckBox, 2);
    SetControl32BitValue(mProgram->mSlider, 1);
    SetWindowTitleWithCFString(mProgram->mWindow.Get(), CFSTR("Thermostat"));
    auto theNext = std::make_unique<QtPresenter>();
    mPresenter = theNext.get();
    PresenterRegistry::Use(std::move(theNext));
    Turn();
    EXPECT_EQ(static_cast<QCheckBox&>(Widget('heat')).checkState(), Qt::PartiallyChecked);
    EXPECT_EQ(Slider().value(), 1);
    QTest::mouseClick(&Widget('heat'), Qt::LeftButton);
    Turn();
    EXPECT_NE(GetControl32BitValue(mProgram->mCheckBox), 2);
}

TEST_F(QtInputTest, AHandlerMayExchangeThePresenterWhoseReportItHandles)
{
    mWindowLog->mAnswer = [](const std::string& theName, EventRef) {
        if (theName == "key down") {
            PresenterRegistry::Use(Host::HeadlessPresenter::Make());
        }
        return OSStatus{eventNotHandledErr};
    };
    QTest::mouseClick(&Field(), Qt::LeftButton);
    Turn();
    QTest::keyClick(&Field(), Qt::Key_H);
    Turn();
    EXPECT_EQ(TextOf(mProgram->mField), "h");
}

// A pop-up button with two items, as the program has it.
class QtPopUps : public QtInputTest
{
protected:
    QtPopUps()
    {
        CreateNewMenu(150, 0, &mMenu);
        AppendMenuItemTextWithCFString(mMenu, CFSTR("Low"), 0, 0, nullptr);
        AppendMenuItemTextWithCFString(mMenu, CFSTR("High"), 0, 0, nullptr);
        const Rect theBounds = MakeRect(120, 100, 300, 124);
        CreatePopupButtonControl(mProgram->mWindow.Get(), &theBounds, CFSTR("Level:"), -12345, false, -1, 0,
                                 0, &mPopUp);
        SetControlPopupMenuHandle(mPopUp, mMenu);
        TestProgram::Name(mPopUp, 'lvel');
        Take();
    }
    ~QtPopUps() override { DisposeMenu(mMenu); }

    // As soon as a menu is open, clicks on one of its items.
    static void ChooseLater(int theItem)
    {
        QTimer::singleShot(0, [theItem] {
            auto* const theMenu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (theMenu == nullptr) {
                ChooseLater(theItem);
                return;
            }
            const QRect thePlace = theMenu->actionGeometry(theMenu->actions().at(theItem - 1));
            QTest::mouseClick(theMenu, Qt::LeftButton, {}, thePlace.center());
        });
    }

    MenuRef mMenu = nullptr;
    ControlRef mPopUp = nullptr;
};

TEST_F(QtPopUps, OpenTheirMenuAtAPressAndLetGoOfTheButton)
{
    ChooseLater(2);
    QTest::mousePress(&Widget('lvel'), Qt::LeftButton);
    Turn();
    EXPECT_EQ(GetControl32BitValue(mPopUp), 2);
    EXPECT_EQ(static_cast<QComboBox&>(Widget('lvel')).currentText(), QStringLiteral("High"));
    EXPECT_EQ(Button(), 0);
    // The next press is one again.
    ChooseLater(1);
    QTest::mousePress(&Widget('lvel'), Qt::LeftButton);
    Turn();
    EXPECT_EQ(GetControl32BitValue(mPopUp), 1);
}

TEST_F(QtPopUps, AreWorkedByKeys)
{
    SetKeyboardFocus(mProgram->mWindow.Get(), mPopUp, kControlFocusNextPart);
    Turn();
    QTest::keyClick(&Widget('lvel'), Qt::Key_Down);
    Turn();
    EXPECT_EQ(GetControl32BitValue(mPopUp), 2);
    ChooseLater(1);
    QTest::keyClick(&Widget('lvel'), Qt::Key_Space);
    Turn();
    EXPECT_EQ(GetControl32BitValue(mPopUp), 1);
}

TEST_F(QtPopUps, OpenForAScreenReader)
{
    ChooseLater(2);
    static_cast<QComboBox&>(Widget('lvel')).showPopup();
    Turn();
    EXPECT_EQ(GetControl32BitValue(mPopUp), 2);
}

} // namespace
