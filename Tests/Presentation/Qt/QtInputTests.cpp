// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What a person does to the widgets on the screen, and what the program hears of it.

#include "HeadlessPresenter.h"
#include "QtPresenter.h"
#include "TestProgram.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QSlider>
#include <QStyleOptionSlider>
#include <QTest>

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

} // namespace
