// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What the widgets show of what the presenter is told, and what they make of menus.

#include "PaintCounter.h"
#include "QtPresenter.h"
#include "RecordingGate.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <Presentation/Picture.h>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSessionManager>
#include <QSlider>
#include <QStyleOptionSpinBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QtMath>
#include <QToolButton>
#include <utility>

namespace {

// At a point of the window, however many pixels of the picture that is.
QColor ColourAt(const QImage& thePicture, int theX, int theY)
{
    const int theScale = qRound(thePicture.devicePixelRatio());
    return thePicture.pixelColor(theX * theScale, theY * theScale);
}

using Host::ControlLook;
using Host::ControlShape;
using Host::MenuBarLook;
using Host::MenuItemLook;
using Host::ObjectId;
using Host::QtPresenter;
using Host::WindowLook;
using Reports = RecordingGate::Reports;

constexpr ObjectId kWindow = 1;
constexpr ObjectId kControl = 2;
constexpr ObjectId kMenu = 7;
constexpr ObjectId kSubmenu = 8;

WindowLook Window()
{
    WindowLook theLook;
    theLook.theId = kWindow;
    theLook.theTitle = "Thermostat";
    theLook.theContent = {100, 80, 420, 280};
    theLook.theIsVisible = true;
    theLook.theIsActive = true;
    return theLook;
}

std::shared_ptr<const Host::RareLook> Tabs(std::vector<Host::TabLook> theTabs,
                                           Host::TabEdge theEdge = Host::TabEdge::kTop)
{
    Host::RareLook theLook;
    theLook.theTabs = std::move(theTabs);
    theLook.theTabEdge = theEdge;
    return std::make_shared<Host::RareLook>(theLook);
}

std::shared_ptr<const Host::RareLook> Segments(std::vector<Host::SegmentLook> theSegments)
{
    Host::RareLook theLook;
    theLook.theSegments = std::move(theSegments);
    return std::make_shared<Host::RareLook>(theLook);
}

ControlLook Control(ControlShape theShape, std::int32_t theValue = 0)
{
    ControlLook theLook;
    theLook.theId = kControl;
    theLook.theWindow = kWindow;
    theLook.theShape = theShape;
    theLook.theBounds = {10, 10, 210, 30};
    theLook.theTitle = "Salt & Pepper";
    theLook.theMaximum = 100;
    theLook.theValue = theValue;
    if (theShape == ControlShape::kTabs) {
        theLook.theRareLook = Tabs({{"Salt", true, {10, 10, 80, 36}}, {"& Pepper", true, {80, 10, 170, 36}}});
    }
    if (theShape == ControlShape::kClock) {
        theLook.theText = "14:05";
        theLook.theRareLook =
            Segments({{"14", Host::PictureShape::kNone, true, false, false, false, {14, 10, 30, 30}},
                      {"05", Host::PictureShape::kNone, true, false, false, true, {34, 10, 50, 30}}});
    }
    if (theShape == ControlShape::kSegments) {
        theLook.theRareLook = Segments(
            {{"Salt", Host::PictureShape::kNone, true, true, false, true, {10, 10, 80, 30}},
             {"& Pepper", Host::PictureShape::kFolder, true, false, false, false, {80, 10, 170, 30}}});
    }
    return theLook;
}

class QtLooks : public testing::Test
{
protected:
    QtLooks()
    {
        EXPECT_TRUE(mPresenter.Start(mGate));
        mPresenter.WindowLooks(Window());
        Turn();
        mGate.Take();
    }

    void Turn() { mPresenter.WaitUntil(0, 0); }

    template <class Kind>
    Kind& Shown(const ControlLook& theLook)
    {
        mPresenter.ControlLooks(theLook);
        Turn();
        return dynamic_cast<Kind&>(*mPresenter.FindControlWidget(theLook.theId));
    }

    QWidget& WindowWidget() const { return *mPresenter.FindWindowWidget(kWindow); }

    QMenuBar& MenuBar() const { return *WindowWidget().findChild<QMenuBar*>(); }

    RecordingGate mGate;
    QtPresenter mPresenter;
};

TEST_F(QtLooks, ShowsTitlesAsTheyAreWritten)
{
    const auto& theButton = Shown<QPushButton>(Control(ControlShape::kPushButton));
    EXPECT_EQ(theButton.text(), QStringLiteral("Salt && Pepper")) << "no mnemonic";
    EXPECT_FALSE(theButton.isDefault());
    ControlLook theLook = Control(ControlShape::kPushButton);
    theLook.theIsDefault = true;
    EXPECT_TRUE(Shown<QPushButton>(theLook).isDefault());
}

TEST_F(QtLooks, ShowsTheThreeStatesOfACheckBox)
{
    const Qt::CheckState theStates[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
    for (std::int32_t theValue = 0; theValue < 3; ++theValue) {
        EXPECT_EQ(Shown<QCheckBox>(Control(ControlShape::kCheckBox, theValue)).checkState(),
                  theStates[theValue]);
    }
    EXPECT_TRUE(Shown<QCheckBox>(Control(ControlShape::kCheckBox, 1)).isEnabled());
}

TEST_F(QtLooks, ShowsWithAnArrowWhetherADisclosureIsOpen)
{
    ControlLook theLook = Control(ControlShape::kDisclosureTriangle, 0);
    EXPECT_EQ(Shown<QToolButton>(theLook).arrowType(), Qt::RightArrow);
    EXPECT_EQ(Shown<QToolButton>(theLook).text(), QStringLiteral("Salt && Pepper"));
    theLook.thePointsLeft = true;
    EXPECT_EQ(Shown<QToolButton>(theLook).arrowType(), Qt::LeftArrow);
    theLook.theValue = 1;
    theLook.theHidesTitle = true;
    EXPECT_EQ(Shown<QToolButton>(theLook).arrowType(), Qt::DownArrow);
    EXPECT_EQ(Shown<QToolButton>(theLook).text(), QString());
    EXPECT_EQ(Shown<QToolButton>(Control(ControlShape::kDisclosureButton, 0)).arrowType(), Qt::DownArrow);
    EXPECT_EQ(Shown<QToolButton>(Control(ControlShape::kDisclosureButton, 1)).arrowType(), Qt::UpArrow);
}

TEST_F(QtLooks, TurnsArrowsOnlyWhileTheyAreAnimated)
{
    ControlLook theLook = Control(ControlShape::kChasingArrows);
    const QTimer& theTimer = *Shown<QWidget>(theLook).findChild<QTimer*>();
    EXPECT_FALSE(theTimer.isActive());
    theLook.theIsAnimated = true;
    Shown<QWidget>(theLook);
    EXPECT_TRUE(theTimer.isActive());
    theLook.theIsVisible = false;
    Shown<QWidget>(theLook);
    EXPECT_FALSE(theTimer.isActive());
}

TEST_F(QtLooks, ShowsTheVeryPixelsThatAProgramHasDrawn)
{
    Host::RareLook theRareLook;
    theRareLook.theDrawing =
        std::make_shared<const Host::Picture>(Host::Picture{2, 1, 1, {0xFFFF0000, 0xFF00FF00}});
    ControlLook theLook = Control(ControlShape::kPane);
    theLook.theRareLook = std::make_shared<const Host::RareLook>(theRareLook);
    QImage theImage = Shown<QWidget>(theLook).grab().toImage();
    const QColor theGround = ColourAt(theImage, 2, 0);
    EXPECT_EQ(ColourAt(theImage, 0, 0), QColor(255, 0, 0));
    EXPECT_EQ(ColourAt(theImage, 1, 0), QColor(0, 255, 0));
    EXPECT_EQ(ColourAt(theImage, 0, 1), theGround);
    theRareLook.theDrawing = std::make_shared<const Host::Picture>(
        Host::Picture{4, 2, 2, std::vector<std::uint32_t>(8, 0xFF0000FF)});
    theLook.theRareLook = std::make_shared<const Host::RareLook>(theRareLook);
    theImage = Shown<QWidget>(theLook).grab().toImage();
    EXPECT_EQ(ColourAt(theImage, 1, 0), QColor(0, 0, 255));
    EXPECT_EQ(ColourAt(theImage, 2, 0), theGround);
    EXPECT_EQ(mPresenter.ScaleOf(kWindow), qCeil(WindowWidget().devicePixelRatio()));
}

TEST_F(QtLooks, MakesAControlOfAnotherShapeAnew)
{
    EXPECT_TRUE(Shown<QRadioButton>(Control(ControlShape::kRadioButton, 1)).isChecked());
    EXPECT_EQ(Shown<QScrollBar>(Control(ControlShape::kScrollBar, 40)).value(), 40);
}

TEST_F(QtLooks, ShowsAnyRangeWithoutOverflow)
{
    ControlLook theLook = Control(ControlShape::kProgressBar, 2147483647);
    theLook.theMinimum = -2147483647 - 1;
    theLook.theMaximum = 2147483647;
    const auto& theBar = Shown<QProgressBar>(theLook);
    EXPECT_EQ(theBar.value(), theBar.maximum());
    theLook.theIsIndeterminate = true;
    EXPECT_EQ(Shown<QProgressBar>(theLook).maximum(), 0);
    theLook.theShape = ControlShape::kSlider;
    EXPECT_EQ(Shown<QSlider>(theLook).value(), 2147483647);
    theLook.theBounds = {-2147483647, 2147483647, 2147483647, -2147483647};
    EXPECT_FALSE(Shown<QSlider>(theLook).geometry().isValid());
}

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

class QtLooksOfEveryShape : public QtLooks, public testing::WithParamInterface<ControlShape>
{
protected:
    // Painted, because the sums of places and values are done there.
    void Paint(const ControlLook& theLook)
    {
        Shown<QWidget>(theLook);
        EXPECT_FALSE(WindowWidget().grab().isNull());
    }
};

TEST_P(QtLooksOfEveryShape, AreShownInAnyBoundsAndRange)
{
    const Host::PixelRect kBounds[] = {{kLeast, kLeast, kMost, kMost},
                                       {kMost, kMost, kLeast, kLeast},
                                       {-32768, -32768, 32767, 32767},
                                       {32767, 32767, -32768, -32768},
                                       {10, 10, 210, 30},
                                       {10, 10, 30, 210},
                                       {10, 10, 10, 10}};
    ControlLook theLook = Control(GetParam());
    theLook.theIsMultiline = true;
    for (const Host::PixelRect& theBounds : kBounds) {
        theLook.theBounds = theBounds;
        Paint(theLook);
    }
    theLook.theBounds = {10, 10, 210, 30};
    for (const auto& [theMinimum, theMaximum] :
         {std::pair(kLeast, kMost), std::pair(kMost, kLeast), std::pair(-32768, 32767)}) {
        theLook.theMinimum = theMinimum;
        theLook.theMaximum = theMaximum;
        for (const std::int32_t theValue : {kLeast, 0, kMost}) {
            theLook.theValue = theValue;
            theLook.theViewSize = theValue;
            theLook.theTickMarks = theValue == 0 ? 2 : 0;
            Paint(theLook);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, QtLooksOfEveryShape,
    testing::Values(ControlShape::kPushButton, ControlShape::kCheckBox, ControlShape::kRadioButton,
                    ControlShape::kRadioGroup, ControlShape::kSlider, ControlShape::kScrollBar,
                    ControlShape::kProgressBar, ControlShape::kLittleArrows, ControlShape::kStaticText,
                    ControlShape::kEditText, ControlShape::kGroupBox, ControlShape::kPopUpButton,
                    ControlShape::kTabs, ControlShape::kSeparator, ControlShape::kPlacard,
                    ControlShape::kDisclosureTriangle, ControlShape::kDisclosureButton,
                    ControlShape::kChasingArrows, ControlShape::kRelevanceBar, ControlShape::kBevelButton,
                    ControlShape::kRoundButton, ControlShape::kIcon, ControlShape::kImageWell,
                    ControlShape::kComboBox, ControlShape::kSearchField, ControlShape::kSegments,
                    ControlShape::kClock, ControlShape::kArrow, ControlShape::kWindowHeader,
                    ControlShape::kPane));

class QtFocusLooks : public QtLooks, public testing::WithParamInterface<ControlShape>
{
protected:
    QImage PictureWithFocusAt(ObjectId theControl)
    {
        mPresenter.FocusIsAt(kWindow, theControl);
        Turn();
        return mPresenter.FindControlWidget(kControl)->grab().toImage();
    }
};

TEST_P(QtFocusLooks, ShowWhereTheKeysGo)
{
    ControlLook theLook = Control(GetParam(), 1);
    theLook.theTakesFocus = true;
    Shown<QWidget>(theLook);
    const QImage theOther = PictureWithFocusAt(Host::kNoObject);
    EXPECT_NE(PictureWithFocusAt(kControl), theOther);
    EXPECT_EQ(PictureWithFocusAt(Host::kNoObject), theOther);
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, QtFocusLooks,
    testing::Values(ControlShape::kPushButton, ControlShape::kCheckBox, ControlShape::kRadioButton,
                    ControlShape::kSlider, ControlShape::kScrollBar, ControlShape::kLittleArrows,
                    ControlShape::kEditText, ControlShape::kPopUpButton, ControlShape::kTabs,
                    ControlShape::kDisclosureTriangle, ControlShape::kDisclosureButton,
                    ControlShape::kBevelButton, ControlShape::kRoundButton, ControlShape::kComboBox,
                    ControlShape::kSearchField, ControlShape::kSegments, ControlShape::kClock));

TEST_F(QtLooks, ShowsPictureMenuAndValueOfABevelButton)
{
    ControlLook theLook = Control(ControlShape::kBevelButton, 1);
    auto& theButton = Shown<QToolButton>(theLook);
    EXPECT_EQ(theButton.text(), "Salt && Pepper");
    EXPECT_EQ(theButton.toolButtonStyle(), Qt::ToolButtonTextOnly);
    EXPECT_FALSE(theButton.isCheckable()) << "its value means nothing";
    const QImage theOther = theButton.grab().toImage();
    Host::RareLook theRare;
    theRare.thePicture = Host::PictureShape::kFolder;
    theRare.theTitlePlace = Host::TitlePlace::kBelow;
    theRare.theIsToggle = true;
    theLook.theRareLook = std::make_shared<Host::RareLook>(theRare);
    Shown<QToolButton>(theLook);
    EXPECT_TRUE(theButton.isChecked());
    EXPECT_FALSE(theButton.icon().isNull());
    EXPECT_EQ(theButton.toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    theRare = Host::RareLook();
    theRare.theHasMenu = true;
    theLook.theRareLook = std::make_shared<Host::RareLook>(theRare);
    Shown<QToolButton>(theLook);
    EXPECT_NE(theButton.grab().toImage(), theOther) << "an arrow tells of the menu";
    EXPECT_TRUE(mGate.Take().empty());
    theButton.click();
    Turn();
    EXPECT_EQ(mGate.Take(), (Reports{"pressed 1", "released 1"}));
}

TEST_F(QtLooks, ARoundButtonIsInTheMiddleOfItsBounds)
{
    ControlLook theLook = Control(ControlShape::kRoundButton);
    theLook.theBounds = {10, 10, 110, 70};
    Host::RareLook theRare;
    theRare.theDiameter = 20;
    theLook.theRareLook = std::make_shared<Host::RareLook>(theRare);
    auto& theButton = Shown<QToolButton>(theLook);
    EXPECT_EQ(theButton.geometry(), QRect(50, 30, 20, 20));
    theRare.theDiameter = 24;
    theLook.theRareLook = std::make_shared<Host::RareLook>(theRare);
    Shown<QToolButton>(theLook);
    EXPECT_EQ(theButton.geometry(), QRect(48, 28, 24, 24));
}

TEST_F(QtLooks, ShowsPicturesOfTheDesktopAndAFrameForOthers)
{
    ControlLook theLook = Control(ControlShape::kIcon);
    theLook.theBounds = {10, 10, 42, 42};
    auto& theLabel = Shown<QLabel>(theLook);
    EXPECT_TRUE(theLabel.pixmap().isNull());
    QImage theLast;
    for (const Host::PictureShape thePicture : {Host::PictureShape::kDocument, Host::PictureShape::kFolder,
                                                Host::PictureShape::kCaution, Host::PictureShape::kFrame}) {
        Host::RareLook theRare;
        theRare.thePicture = thePicture;
        theLook.theRareLook = std::make_shared<Host::RareLook>(theRare);
        const QImage theImage = Shown<QLabel>(theLook).pixmap().toImage();
        EXPECT_FALSE(theImage.isNull());
        EXPECT_NE(theImage, theLast);
        theLast = theImage;
    }
    EXPECT_EQ(theLabel.frameShape(), QFrame::NoFrame);
    theLook.theShape = ControlShape::kImageWell;
    EXPECT_EQ(Shown<QLabel>(theLook).frameShape(), QFrame::Panel);
}

TEST_F(QtLooks, AComboBoxReportsWhatIsTypedAndThatItsListIsWanted)
{
    ControlLook theLook = Control(ControlShape::kComboBox);
    theLook.theText = "Oslo";
    auto& theBox = Shown<QComboBox>(theLook);
    EXPECT_EQ(theBox.currentText(), "Oslo");
    EXPECT_EQ(theBox.count(), 0) << "the list is the managers'";
    EXPECT_TRUE(mGate.Take().empty());
    theBox.showPopup();
    Turn();
    EXPECT_EQ(mGate.Take(), (Reports{"part pressed 2", "part released 2"}));
    theBox.lineEdit()->insert("!");
    Turn();
    ASSERT_FALSE(mGate.Take().empty());
}

TEST_F(QtLooks, ASearchFieldHasTheButtonsThatItsLookHas)
{
    ControlLook theLook = Control(ControlShape::kSearchField);
    Host::RareLook theRare;
    theRare.theDescription = "Names";
    theLook.theRareLook = std::make_shared<Host::RareLook>(theRare);
    auto& theField = Shown<QLineEdit>(theLook);
    EXPECT_EQ(theField.placeholderText(), "Names");
    ASSERT_EQ(theField.actions().size(), 2);
    QAction* const theGlass = theField.actions()[0];
    QAction* const theCancel = theField.actions()[1];
    EXPECT_FALSE(theGlass->isVisible());
    EXPECT_FALSE(theCancel->isVisible());
    theRare.theHasGlass = true;
    theRare.theHasCancelButton = true;
    theLook.theRareLook = std::make_shared<Host::RareLook>(theRare);
    theLook.theText = "Ada";
    Shown<QLineEdit>(theLook);
    EXPECT_TRUE(theGlass->isVisible());
    EXPECT_TRUE(theCancel->isVisible());
    EXPECT_TRUE(mGate.Take().empty());
    theGlass->trigger();
    theCancel->trigger();
    Turn();
    EXPECT_EQ(mGate.Take(),
              (Reports{"part pressed 2", "part released 2", "part pressed 2", "part released 2"}));
}

TEST_F(QtLooks, HelpIsAToolTipInPlainWords)
{
    ControlLook theLook = Control(ControlShape::kPushButton);
    auto& theButton = Shown<QPushButton>(theLook);
    EXPECT_EQ(theButton.toolTip(), "");
    Host::RareLook theRare;
    theRare.theHelp = "Does it.";
    theLook.theRareLook = std::make_shared<Host::RareLook>(theRare);
    EXPECT_EQ(Shown<QPushButton>(theLook).toolTip(), "Does it.");
    theRare.theHelp = "Makes <b>it</b> bold.";
    theLook.theRareLook = std::make_shared<Host::RareLook>(theRare);
    EXPECT_TRUE(Shown<QPushButton>(theLook).toolTip().contains("&lt;b&gt;"));
    theLook.theRareLook = nullptr;
    EXPECT_EQ(Shown<QPushButton>(theLook).toolTip(), "");
}

TEST_F(QtLooks, TabsStandWhereTheManagersThinkTheyDo)
{
    ControlLook theLook = Control(ControlShape::kTabs, 2);
    theLook.theBounds = {10, 10, 310, 150};
    std::vector<Host::TabLook> theThree = theLook.Rare().theTabs;
    theThree.push_back({"Oil", false, {170, 10, 240, 36}});
    theLook.theRareLook = Tabs(theThree);
    auto& theTabs = Shown<QTabWidget>(theLook);
    QTabBar& theBar = *theTabs.tabBar();
    ASSERT_EQ(theTabs.count(), 3);
    for (int theIndex = 0; theIndex < 3; ++theIndex) {
        const Host::PixelRect& thePlace = theThree[static_cast<size_t>(theIndex)].theBounds;
        EXPECT_EQ(theBar.pos() + theBar.tabRect(theIndex).topLeft(),
                  QPoint(thePlace.theLeft - 10, thePlace.theTop - 10));
        EXPECT_EQ(theBar.tabRect(theIndex).width(), thePlace.theRight - thePlace.theLeft);
    }
    EXPECT_EQ(theTabs.currentIndex(), 1);
    EXPECT_EQ(theTabs.tabText(1), "&& Pepper");
    EXPECT_FALSE(theTabs.isTabEnabled(2));
    theLook.theValue = 1;
    theLook.theRareLook = Tabs({{"Salt", true, {10, 10, 110, 36}}}, Host::TabEdge::kBottom);
    Shown<QTabWidget>(theLook);
    EXPECT_EQ(theTabs.count(), 1);
    EXPECT_EQ(theBar.tabRect(0).width(), 100);
    EXPECT_EQ(theTabs.tabPosition(), QTabWidget::South);
    EXPECT_TRUE(mGate.Take().empty()) << "the person did nothing";
}

TEST_F(QtLooks, ATabThatIsPressedByAScreenReaderIsReported)
{
    ControlLook theLook = Control(ControlShape::kTabs, 1);
    auto& theTabs = Shown<QTabWidget>(theLook);
    theTabs.setCurrentIndex(1);
    Turn();
    EXPECT_EQ(mGate.Take(), (Reports{"pressed 1", "released 1"}));
    EXPECT_EQ(theTabs.currentIndex(), 0) << "the managers did not follow";
}

TEST_F(QtLooks, AClockIsTheDesktopsOwnAndSelectsTheNumberWithTheKeys)
{
    ControlLook theLook = Control(ControlShape::kClock);
    theLook.theTakesFocus = true;
    auto& theClock = Shown<QDateTimeEdit>(theLook);
    EXPECT_EQ(theClock.text(), "14:05");
    EXPECT_EQ(theClock.buttonSymbols(), QAbstractSpinBox::UpDownArrows);
    const auto& theField = *theClock.findChild<QLineEdit*>();
    EXPECT_EQ(theField.selectedText(), "");
    mPresenter.FocusIsAt(kWindow, kControl);
    Turn();
    EXPECT_EQ(theField.selectedText(), "05");
    for (const char* theText : {"14:05:30", "2024-02", "2024-02-29", "1000-01-01", "9999-12-31"}) {
        theLook.theText = theText;
        EXPECT_EQ(Shown<QDateTimeEdit>(theLook).text(), theText);
    }
    theLook.theIsLocked = true;
    Shown<QDateTimeEdit>(theLook);
    EXPECT_TRUE(theClock.isReadOnly());
    EXPECT_EQ(theClock.buttonSymbols(), QAbstractSpinBox::NoButtons);
    EXPECT_TRUE(mGate.Take().empty()) << "the person did nothing";
}

TEST_F(QtLooks, PressesOfANumberAndOfTheArrowsOfAClockAreReported)
{
    auto& theClock = Shown<QDateTimeEdit>(Control(ControlShape::kClock));
    const auto& theField = *theClock.findChild<QLineEdit*>();
    const auto thePress = [&](QPoint thePlace) {
        QTest::mouseClick(&theClock, Qt::LeftButton, Qt::NoModifier, thePlace);
        Turn();
    };
    const QPoint theStart = theField.pos() + QPoint(4, theField.height() / 2);
    thePress(theStart);
    const Reports theFirst = mGate.Take();
    EXPECT_EQ(theFirst, (Reports{"pressed 1", "released 1"}));
    QStyleOptionSpinBox theOption;
    theOption.initFrom(&theClock);
    theOption.subControls = QStyle::SC_All;
    theOption.buttonSymbols = QAbstractSpinBox::UpDownArrows;
    theOption.frame = true;
    for (const QStyle::SubControl theArrow : {QStyle::SC_SpinBoxUp, QStyle::SC_SpinBoxDown}) {
        thePress(
            theClock.style()->subControlRect(QStyle::CC_SpinBox, &theOption, theArrow, &theClock).center());
    }
    EXPECT_EQ(mGate.Take(),
              (Reports{"part pressed 2", "part released 2", "part pressed 2", "part released 2"}));
    EXPECT_EQ(theClock.text(), "14:05") << "what that does is up to the managers";
}

TEST_F(QtLooks, AnArrowPointsWhereItShould)
{
    std::vector<QImage> thePictures;
    ControlLook theLook = Control(ControlShape::kArrow);
    for (const Host::ArrowDirection theDirection : {Host::ArrowDirection::kRight, Host::ArrowDirection::kLeft,
                                                    Host::ArrowDirection::kUp, Host::ArrowDirection::kDown}) {
        Host::RareLook theRare;
        theRare.theArrow = theDirection;
        theLook.theRareLook = std::make_shared<Host::RareLook>(theRare);
        const QImage thePicture = Shown<QWidget>(theLook).grab().toImage();
        EXPECT_EQ(std::count(thePictures.begin(), thePictures.end(), thePicture), 0);
        thePictures.push_back(thePicture);
    }
}

TEST_F(QtLooks, SegmentsAreButtonsThatStandWhereTheManagersThinkTheyDo)
{
    ControlLook theLook = Control(ControlShape::kSegments);
    std::vector<Host::SegmentLook> theTwo = theLook.Rare().theSegments;
    theTwo[1].theIsPressed = true;
    theTwo[1].theIsEnabled = false;
    theLook.theRareLook = Segments(theTwo);
    auto& theRow = Shown<QWidget>(theLook);
    QList<QToolButton*> theButtons = theRow.findChildren<QToolButton*>();
    ASSERT_EQ(theButtons.size(), 2);
    EXPECT_EQ(theButtons[0]->text(), "Salt");
    EXPECT_TRUE(theButtons[0]->isChecked());
    EXPECT_TRUE(theButtons[0]->isEnabled());
    EXPECT_EQ(theButtons[0]->geometry(), QRect(0, 0, 70, 20));
    EXPECT_EQ(theButtons[1]->text(), "&& Pepper");
    EXPECT_EQ(theButtons[1]->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    EXPECT_FALSE(theButtons[1]->isChecked());
    EXPECT_TRUE(theButtons[1]->isDown());
    EXPECT_FALSE(theButtons[1]->isEnabled());
    EXPECT_EQ(theButtons[1]->geometry(), QRect(70, 0, 90, 20));
    theTwo.resize(1);
    theTwo[0].thePicture = Host::PictureShape::kFolder;
    theTwo[0].theTitle.clear();
    theLook.theRareLook = Segments(theTwo);
    Shown<QWidget>(theLook);
    theButtons = theRow.findChildren<QToolButton*>();
    ASSERT_EQ(theButtons.size(), 1);
    EXPECT_EQ(theButtons[0]->toolButtonStyle(), Qt::ToolButtonIconOnly);
    EXPECT_FALSE(theButtons[0]->icon().isNull());
    EXPECT_TRUE(mGate.Take().empty()) << "the person did nothing";
}

TEST_F(QtLooks, ASegmentThatIsPressedByAScreenReaderIsReported)
{
    auto& theRow = Shown<QWidget>(Control(ControlShape::kSegments));
    QList<QToolButton*> theButtons = theRow.findChildren<QToolButton*>();
    theButtons[0]->click();
    Turn();
    EXPECT_EQ(mGate.Take(), (Reports{"pressed 1", "released 1"}));
    EXPECT_TRUE(theButtons[0]->isChecked()) << "the managers did not follow";
}

TEST_F(QtLooks, ShowsWindowsOfAnyPlaceAndLimits)
{
    WindowLook theLook = Window();
    theLook.theIsResizable = true;
    theLook.theSmallest = {kLeast, kLeast};
    theLook.theLargest = {kMost, kMost};
    theLook.theContent = {kLeast, kLeast, kLeast + 10, kLeast + 10};
    mPresenter.WindowLooks(theLook);
    Turn();
    EXPECT_TRUE(WindowWidget().isVisible());
    theLook.theContent = {kMost, kMost, kLeast, kLeast};
    theLook.theIsResizable = false;
    mPresenter.WindowLooks(theLook);
    Turn();
    EXPECT_TRUE(WindowWidget().isVisible());
}

TEST_F(QtLooks, DisablesWhatTheProgramMadeInactiveButNotWhatIsInactiveWithItsWindow)
{
    ControlLook theLook = Control(ControlShape::kCheckBox);
    theLook.theIsActive = false;
    EXPECT_FALSE(Shown<QCheckBox>(theLook).isEnabled());
    WindowLook theWindow = Window();
    theWindow.theIsActive = false;
    mPresenter.WindowLooks(theWindow);
    EXPECT_TRUE(Shown<QCheckBox>(theLook).isEnabled());
}

TEST_F(QtLooks, TakesAControlOffTheScreen)
{
    Shown<QCheckBox>(Control(ControlShape::kCheckBox));
    mPresenter.ControlGone(kControl);
    Turn();
    EXPECT_EQ(mPresenter.FindControlWidget(kControl), nullptr);
    EXPECT_EQ(WindowWidget().findChild<QCheckBox*>(), nullptr);
}

TEST_F(QtLooks, ABurstIsPaintedOncePerFrameAndEndsOnTheLastValue)
{
    for (const ControlShape theShape : {ControlShape::kSlider, ControlShape::kProgressBar}) {
        ControlLook theLook = Control(theShape);
        QWidget& theWidget = Shown<QWidget>(theLook);
        PaintCounter theCounter;
        theWidget.installEventFilter(&theCounter);
        QElapsedTimer theTime;
        theTime.start();
        for (int theStep = 0; theStep < 10000; ++theStep) {
            theLook.theValue = theStep % 101;
            mPresenter.ControlLooks(theLook);
            Turn();
        }
        // However long it took: a frame lasts 16 milliseconds.
        EXPECT_LE(theCounter.theCount, theTime.elapsed() / 16 + 2);
        const int theShown = theShape == ControlShape::kSlider
                                 ? static_cast<QSlider&>(theWidget).value()
                                 : static_cast<QProgressBar&>(theWidget).value();
        EXPECT_EQ(theShown, theShape == ControlShape::kSlider ? 9999 % 101 : 9999 % 101 * 100);
    }
}

// Windows ----------------------------------------------------------------------------------------------

struct AttributeRow
{
    const char* theName;
    bool WindowLook::*theAttribute;
    Qt::WindowType theHint;
};

class QtWindowAttributes : public QtLooks, public testing::WithParamInterface<AttributeRow>
{
};

TEST_P(QtWindowAttributes, GiveTheWindowItsButtons)
{
    WindowLook theLook = Window();
    theLook.*GetParam().theAttribute = true;
    mPresenter.WindowLooks(theLook);
    Turn();
    EXPECT_TRUE(WindowWidget().windowFlags().testFlag(GetParam().theHint));
    EXPECT_TRUE(WindowWidget().isVisible());
    theLook.*GetParam().theAttribute = false;
    mPresenter.WindowLooks(theLook);
    Turn();
    EXPECT_FALSE(WindowWidget().windowFlags().testFlag(GetParam().theHint));
    EXPECT_TRUE(WindowWidget().isVisible());
}

INSTANTIATE_TEST_SUITE_P(
    Attributes, QtWindowAttributes,
    testing::Values(AttributeRow{"CloseBox", &WindowLook::theHasCloseBox, Qt::WindowCloseButtonHint},
                    AttributeRow{"CollapseBox", &WindowLook::theHasCollapseBox, Qt::WindowMinimizeButtonHint},
                    AttributeRow{"ZoomBox", &WindowLook::theHasZoomBox, Qt::WindowMaximizeButtonHint}),
    [](const testing::TestParamInfo<AttributeRow>& theInfo) { return theInfo.param.theName; });

TEST_F(QtLooks, ShowsTitlePlaceAndStateOfAWindow)
{
    WindowLook theLook = Window();
    theLook.theTitle = "Half [*] & half";
    theLook.theIsModified = true;
    mPresenter.WindowLooks(theLook);
    Turn();
    EXPECT_EQ(WindowWidget().windowTitle(), QStringLiteral("Half [*][*] & half[*]")) << "stars that stay";
    EXPECT_TRUE(WindowWidget().isWindowModified());
    EXPECT_EQ(WindowWidget().geometry(), QRect(100, 80, 320, 200));
    theLook.theIsCollapsed = true;
    mPresenter.WindowLooks(theLook);
    Turn();
    EXPECT_TRUE(WindowWidget().isMinimized());
    theLook.theIsCollapsed = false;
    mPresenter.WindowLooks(theLook);
    Turn();
    EXPECT_FALSE(WindowWidget().isMinimized());
    theLook.theIsVisible = false;
    mPresenter.WindowLooks(theLook);
    Turn();
    EXPECT_FALSE(WindowWidget().isVisible());
}

TEST_F(QtLooks, LetsThePersonResizeAWindowWithinItsLimitsAndNoOther)
{
    EXPECT_EQ(WindowWidget().minimumSize(), QSize(320, 200));
    EXPECT_EQ(WindowWidget().maximumSize(), QSize(320, 200));
    WindowLook theLook = Window();
    theLook.theIsResizable = true;
    theLook.theSmallest = {200, 100};
    theLook.theLargest = {500, 400};
    mPresenter.WindowLooks(theLook);
    Turn();
    EXPECT_EQ(WindowWidget().minimumSize(), QSize(200, 100));
    EXPECT_EQ(WindowWidget().maximumSize(), QSize(500, 400));
}

TEST_F(QtLooks, GivesTheKeysToTheControlThatHasThem)
{
    auto& theField = Shown<QLineEdit>(Control(ControlShape::kEditText));
    EXPECT_NE(WindowWidget().focusWidget(), &theField);
    mPresenter.FocusIsAt(kWindow, kControl);
    Turn();
    EXPECT_EQ(WindowWidget().focusWidget(), &theField);
    mPresenter.FocusIsAt(kWindow, Host::kNoObject);
    Turn();
    EXPECT_NE(WindowWidget().focusWidget(), &theField);
}

TEST_F(QtLooks, ShowsTextsAndTheirKinds)
{
    ControlLook theLook = Control(ControlShape::kEditText);
    theLook.theText = "Käse & <b>Brot</b>";
    theLook.theSelectionStart = 1;
    theLook.theSelectionEnd = 3;
    theLook.theIsPassword = true;
    const auto& theField = Shown<QLineEdit>(theLook);
    EXPECT_EQ(theField.text(), QString::fromStdString(theLook.theText));
    EXPECT_EQ(theField.selectedText().size(), 2);
    EXPECT_EQ(theField.echoMode(), QLineEdit::Password);
    theLook.theIsPassword = false;
    theLook.theIsLocked = true;
    Shown<QLineEdit>(theLook);
    EXPECT_EQ(theField.echoMode(), QLineEdit::Normal);
    EXPECT_TRUE(theField.isReadOnly());
    theLook.theShape = ControlShape::kStaticText;
    const auto& theLabel = Shown<QLabel>(theLook);
    EXPECT_EQ(theLabel.text(), QString::fromStdString(theLook.theText));
    EXPECT_EQ(theLabel.textFormat(), Qt::PlainText) << "no markup";
}

TEST_F(QtLooks, KeepsAHiddenControlOffTheScreen)
{
    ControlLook theLook = Control(ControlShape::kGroupBox);
    EXPECT_TRUE(Shown<QGroupBox>(theLook).isVisible());
    theLook.theIsVisible = false;
    EXPECT_FALSE(Shown<QGroupBox>(theLook).isVisible());
    theLook.theIsVisible = true;
    theLook.theIsEnabled = false;
    EXPECT_TRUE(Shown<QGroupBox>(theLook).isVisible());
    EXPECT_FALSE(Shown<QGroupBox>(theLook).isEnabled());
}

// Colours ----------------------------------------------------------------------------------------------

// A dark desktop while it lives.
class DarkDesktop
{
public:
    DarkDesktop()
        : mOld(QApplication::palette())
    {
        QApplication::setPalette(QPalette(QColor(49, 54, 59), QColor(42, 46, 50)));
    }
    ~DarkDesktop() { QApplication::setPalette(mOld); }
    DarkDesktop(const DarkDesktop&) = delete;
    DarkDesktop& operator=(const DarkDesktop&) = delete;

private:
    QPalette mOld;
};

// How bright the brightest and the darkest point of a picture are.
std::pair<int, int> Brightness(const QImage& thePicture)
{
    int theLeast = 255;
    int theMost = 0;
    for (int theY = 0; theY < thePicture.height(); ++theY) {
        for (int theX = 0; theX < thePicture.width(); ++theX) {
            const QRgb thePoint = thePicture.pixel(theX, theY);
            if (qAlpha(thePoint) == 255) {
                theLeast = std::min(theLeast, qGray(thePoint));
                theMost = std::max(theMost, qGray(thePoint));
            }
        }
    }
    return {theLeast, theMost};
}

TEST_F(QtLooks, FollowsADesktopThatGrowsDark)
{
    auto& theLabel = Shown<QLabel>([] {
        ControlLook theLook = Control(ControlShape::kStaticText);
        theLook.theText = "Target";
        return theLook;
    }());
    EXPECT_LT(Brightness(theLabel.grab().toImage()).first, 64) << "dark letters";
    EXPECT_GT(Brightness(theLabel.grab().toImage()).second, 192) << "on light ground";
    const DarkDesktop theDesktop;
    Turn();
    EXPECT_LT(Brightness(theLabel.grab().toImage()).first, 64) << "dark ground";
    EXPECT_GT(Brightness(theLabel.grab().toImage()).second, 192) << "under light letters";
}

TEST_F(QtLooks, ShowsTickMarksOnADarkDesktopToo)
{
    const DarkDesktop theDesktop;
    ControlLook theLook = Control(ControlShape::kSlider);
    theLook.theBounds = {10, 10, 210, 40};
    theLook.theTickMarks = 11;
    auto& theSlider = Shown<QSlider>(theLook);
    const QRect theTicks(0, theSlider.height() - 4, theSlider.width(), 3);
    EXPECT_GT(Brightness(theSlider.grab(theTicks).toImage()).second, 96);
}

// The end -----------------------------------------------------------------------------------------------

TEST_F(QtLooks, ReportsThatTheDesktopWantsTheProgramToEnd)
{
    QEvent theEvent(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &theEvent);
    EXPECT_EQ(mGate.Take(), Reports());
    Turn();
    EXPECT_EQ(mGate.Take(), Reports{"quit 0"});
    EXPECT_TRUE(WindowWidget().isVisible()) << "the program decides";
}

TEST_F(QtLooks, ReportsTheEndOfTheSessionBeforeTheDesktopGoesOn)
{
    auto* const theManager = qApp->findChild<QSessionManager*>();
    ASSERT_NE(theManager, nullptr);
    emit qApp->commitDataRequest(*theManager);
    EXPECT_EQ(mGate.Take(), Reports{"quit 0"});
    EXPECT_TRUE(WindowWidget().isVisible());
    mPresenter.Stop();
    emit qApp->commitDataRequest(*theManager);
    EXPECT_EQ(mGate.Take(), Reports()) << "it is not shown any more";
}

// Menus ------------------------------------------------------------------------------------------------

MenuBarLook Menus()
{
    MenuItemLook theChecked;
    theChecked.theText = "Heating On";
    theChecked.theMark = 0x2713;
    theChecked.theKey = "H";
    theChecked.theKeyModifiers = Host::kCommandModifier;
    MenuItemLook theDisabled;
    theDisabled.theText = "Reset";
    theDisabled.theIsEnabled = false;
    MenuItemLook theLine;
    theLine.theIsSeparator = true;
    MenuItemLook theInner;
    theInner.theText = "Celsius";
    theInner.theMark = 0x25C6;
    MenuItemLook theUnits;
    theUnits.theText = "Units";
    theUnits.theSubmenu.push_back({kSubmenu, "Units", true, {theInner}});
    MenuBarLook theLook;
    theLook.theMenus.push_back({kMenu, "Thermostat", true, {theChecked, theDisabled, theLine, theUnits}});
    return theLook;
}

class QtMenuLooks : public QtLooks
{
protected:
    QtMenuLooks()
    {
        mPresenter.MenuBarLooks(Menus());
        Turn();
        mGate.Take();
    }

    QMenu& Menu() const { return *MenuBar().actions().at(0)->menu(); }
};

TEST_F(QtMenuLooks, StandAboveTheContentWhichStaysInItsPlace)
{
    EXPECT_TRUE(MenuBar().isVisible());
    EXPECT_EQ(WindowWidget().geometry().bottom(), 279);
    EXPECT_EQ(WindowWidget().geometry().y() + MenuBar().height(), 80);
}

TEST_F(QtMenuLooks, ShowMarksKeysAndStates)
{
    const QList<QAction*> theItems = Menu().actions();
    ASSERT_EQ(theItems.size(), 4);
    EXPECT_TRUE(theItems[0]->isChecked());
    EXPECT_EQ(theItems[0]->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_H));
    EXPECT_FALSE(theItems[1]->isEnabled());
    EXPECT_TRUE(theItems[2]->isSeparator());
    ASSERT_NE(theItems[3]->menu(), nullptr);
    const QAction& theInner = *theItems[3]->menu()->actions().at(0);
    EXPECT_FALSE(theInner.isCheckable());
    EXPECT_FALSE(theInner.icon().isNull()) << "a mark that is no check mark";
}

TEST_F(QtMenuLooks, UnderlineALetterOfTheirOwnInEachTitle)
{
    MenuBarLook theLook;
    ObjectId theId = kMenu;
    for (const char* theTitle : {"File", "Format", "R&D", "Fo", "7 & 8", "éclair", "FO"}) {
        theLook.theMenus.push_back({theId++, theTitle, true, {}});
    }
    mPresenter.MenuBarLooks(theLook);
    Turn();
    QStringList theTitles;
    for (const QAction* theAction : MenuBar().actions()) {
        theTitles.append(theAction->text());
    }
    EXPECT_EQ(theTitles,
              (QStringList{QStringLiteral("&File"), QStringLiteral("F&ormat"), QStringLiteral("&R&&D"),
                           QStringLiteral("Fo"), QStringLiteral("&7 && 8"), QStringLiteral("&éclair"),
                           QStringLiteral("FO")}));
}

TEST_F(QtMenuLooks, ShowMarksInTheColoursOfTheDesktop)
{
    const QIcon theMark = Menu().actions().at(3)->menu()->actions().at(0)->icon();
    EXPECT_LT(Brightness(theMark.pixmap(32).toImage()).second, 64);
    EXPECT_GT(Brightness(theMark.pixmap(QSize(32, 32), QIcon::Disabled).toImage()).second, 64);
    const DarkDesktop theDesktop;
    EXPECT_GT(Brightness(theMark.pixmap(32).toImage()).first, 192);
}

TEST_F(QtMenuLooks, ReportTheChoiceFromTheMenuThatHoldsTheItem)
{
    Menu().actions().at(0)->trigger();
    Turn();
    EXPECT_EQ(mGate.Take(), Reports{"menu chosen 7"});
    Menu().actions().at(3)->menu()->actions().at(0)->trigger();
    Turn();
    EXPECT_EQ(mGate.Take(), Reports{"menu chosen 8"});
}

TEST_F(QtMenuLooks, AreBroughtUpToDateBeforeTheyOpen)
{
    mGate.mHandler = [this](const std::string& theReport) {
        if (theReport == "menu opened 7") {
            MenuBarLook theLook = Menus();
            theLook.theMenus[0].theItems[1].theIsEnabled = true;
            mPresenter.MenuBarLooks(theLook);
        }
    };
    Menu().popup(QPoint(100, 100));
    EXPECT_TRUE(Menu().actions().at(1)->isEnabled());
    Menu().close();
    Turn();
    EXPECT_EQ(mGate.Take(), (Reports{"menu opened 7", "menu closed 7"}));
}

// Clicks on an item as soon as the menu is open; on none, closes it.
void ClickOnPopUp(int theItem)
{
    QTimer::singleShot(0, [theItem] {
        auto* const theMenu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(theMenu, nullptr);
        if (theItem == 0) {
            theMenu->close();
        } else {
            const QRect thePlace = theMenu->actionGeometry(theMenu->actions().at(theItem - 1));
            QTest::mouseClick(theMenu, Qt::LeftButton, {}, thePlace.center());
        }
    });
}

TEST_F(QtMenuLooks, ReturnTheChoiceFromAPopUp)
{
    Host::PopUpLook theLook;
    theLook.theMenu = Menus().theMenus[0];
    theLook.thePlace = {150, 150};
    theLook.theItem = 1;
    ClickOnPopUp(1);
    const Host::MenuChoice theChoice = mPresenter.RunPopUp(theLook);
    EXPECT_EQ(theChoice.theMenu, kMenu);
    EXPECT_EQ(theChoice.theItem, 1);
    ClickOnPopUp(0);
    EXPECT_EQ(mPresenter.RunPopUp(theLook).theMenu, Host::kNoObject);
}

TEST_F(QtMenuLooks, LetTimersRunWhileAPopUpIsOpen)
{
    Host::PopUpLook theLook;
    theLook.theMenu = Menus().theMenus[0];
    theLook.thePlace = {150, 150};
    int theCount = 0;
    mGate.mTimers = [&] {
        if (++theCount < 3) {
            return 0.001;
        }
        QApplication::activePopupWidget()->close();
        return -1.0;
    };
    EXPECT_EQ(mPresenter.RunPopUp(theLook).theMenu, Host::kNoObject);
    EXPECT_EQ(theCount, 3);
}

TEST_F(QtMenuLooks, MayGoWhileTheyOpen)
{
    mGate.mHandler = [this](const std::string& theReport) {
        if (theReport == "menu opened 7") {
            mPresenter.MenuBarLooks({});
        }
    };
    Menu().popup(QPoint(100, 100));
    Turn();
    EXPECT_FALSE(MenuBar().isVisible());
}

TEST_F(QtMenuLooks, HaveAWindowOfTheirOwnWhileNoneCarriesThem)
{
    WindowLook theLook = Window();
    theLook.theIsVisible = false;
    mPresenter.WindowLooks(theLook);
    Turn();
    QWidget* theWindow = nullptr;
    for (QWidget* theWidget : QApplication::topLevelWidgets()) {
        theWindow = theWidget->objectName() == QStringLiteral("menu window") ? theWidget : theWindow;
    }
    ASSERT_NE(theWindow, nullptr);
    EXPECT_TRUE(theWindow->isVisible());
    theWindow->close();
    Turn();
    EXPECT_EQ(mGate.Take().back(), "quit 0");
    mPresenter.WindowLooks(Window());
    Turn();
    EXPECT_FALSE(theWindow->isVisible());
}

} // namespace
