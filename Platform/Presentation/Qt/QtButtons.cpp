// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtButtons.h"

#include <QAccessibleWidget>
#include <QPainter>
#include <QStyleOptionSpinBox>

#include <algorithm>
#include <functional>
#include <utility>

namespace Host {

namespace {

// The value of a check box that is neither on nor off.
constexpr std::int32_t kMixed = 2;

Qt::CheckState CheckStateOf(std::int32_t theValue)
{
    if (theValue == kMixed) {
        return Qt::PartiallyChecked;
    }
    return theValue == 0 ? Qt::Unchecked : Qt::Checked;
}

// Styles draw arrows only as a part of a whole spin box. This draws one that is as wide as it needs to be for
// its arrows to fall on this widget, and shows no more of it than that. The frame is closed on the left with
// a mirror image of its right edge.
class ArrowsWidget : public QWidget
{
public:
    using QWidget::QWidget;

    void SetPressed(bool theIsPressed)
    {
        mIsPressed = theIsPressed;
        update();
    }

    // For screen readers, who see a value and two ways to step it.
    std::int32_t mValue = 0;
    std::int32_t mMinimum = 0;
    std::int32_t mMaximum = 0;
    std::function<void(ControlPart)> mStep;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPixmap thePicture(size() * devicePixelRatioF());
        thePicture.setDevicePixelRatio(devicePixelRatioF());
        thePicture.fill(Qt::transparent);
        DrawSpinBox(thePicture);
        CloseFrame(thePicture);
        QPainter(this).drawPixmap(0, 0, thePicture);
    }

private:
    static constexpr int kHiddenWidth = 100;
    static constexpr int kEdge = 3;

    void DrawSpinBox(QPixmap& thePicture) const
    {
        QStyleOptionSpinBox theOption;
        theOption.initFrom(this);
        theOption.frame = true;
        theOption.subControls = QStyle::SC_SpinBoxUp | QStyle::SC_SpinBoxDown | QStyle::SC_SpinBoxFrame;
        theOption.stepEnabled = QAbstractSpinBox::StepUpEnabled | QAbstractSpinBox::StepDownEnabled;
        theOption.rect = rect().adjusted(-kHiddenWidth, 0, 0, 0);
        if (mIsPressed) {
            theOption.state |= QStyle::State_Sunken;
            theOption.activeSubControls = PressedArrow();
        }
        QPainter thePainter(&thePicture);
        style()->drawComplexControl(QStyle::CC_SpinBox, &theOption, &thePainter, this);
    }

    static void CloseFrame(QPixmap& thePicture)
    {
        const int theWidth = std::min(qRound(kEdge * thePicture.devicePixelRatio()), thePicture.width());
        QImage theEdge = thePicture.copy(thePicture.width() - theWidth, 0, theWidth, thePicture.height())
                             .toImage()
                             .mirrored(true, false);
        QPainter thePainter(&thePicture);
        thePainter.setCompositionMode(QPainter::CompositionMode_Source);
        thePainter.drawImage(QPoint(0, 0), theEdge);
    }

    QStyle::SubControl PressedArrow() const
    {
        const bool theIsUpper = mapFromGlobal(QCursor::pos()).y() < height() / 2;
        return theIsUpper ? QStyle::SC_SpinBoxUp : QStyle::SC_SpinBoxDown;
    }

    bool mIsPressed = false;
};

// What a screen reader learns of little arrows, and does to them.
class ArrowsInterface : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit ArrowsInterface(ArrowsWidget& theWidget)
        : QAccessibleWidget(&theWidget, QAccessible::SpinBox)
    {
    }

    void* interface_cast(QAccessible::InterfaceType theType) override
    {
        return theType == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                      : QAccessibleWidget::interface_cast(theType);
    }

    QVariant currentValue() const override { return Arrows().mValue; }
    QVariant minimumValue() const override { return Arrows().mMinimum; }
    QVariant maximumValue() const override { return Arrows().mMaximum; }
    QVariant minimumStepSize() const override { return 1; }

    // What a step does to the value is the program's to say.
    void setCurrentValue(const QVariant& theValue) override
    {
        if (theValue.toInt() != Arrows().mValue) {
            Step(theValue.toInt() > Arrows().mValue ? ControlPart::kUpButton : ControlPart::kDownButton);
        }
    }

    QStringList actionNames() const override
    {
        return Arrows().isEnabled() ? QStringList{increaseAction(), decreaseAction()} : QStringList();
    }

    void doAction(const QString& theAction) override
    {
        if (theAction == increaseAction()) {
            Step(ControlPart::kUpButton);
        } else if (theAction == decreaseAction()) {
            Step(ControlPart::kDownButton);
        }
    }

private:
    ArrowsWidget& Arrows() const { return static_cast<ArrowsWidget&>(*widget()); }

    void Step(ControlPart thePart)
    {
        if (Arrows().isEnabled() && Arrows().mStep) {
            Arrows().mStep(thePart);
        }
    }
};

// Qt takes a radio button that does not turn the others off for a check box.
class RadioInterface : public QAccessibleWidget
{
public:
    explicit RadioInterface(QRadioButton& theButton)
        : QAccessibleWidget(&theButton, QAccessible::RadioButton)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State theState = QAccessibleWidget::state();
        theState.checkable = true;
        theState.checked = Button().isChecked();
        return theState;
    }

    QStringList actionNames() const override
    {
        return Button().isEnabled() ? QStringList{toggleAction(), pressAction()} : QStringList();
    }

    void doAction(const QString& theAction) override
    {
        if (actionNames().contains(theAction)) {
            Button().click();
        }
    }

private:
    QRadioButton& Button() const { return static_cast<QRadioButton&>(*widget()); }
};

// A button that opens and closes something. It is not a checkable one, which would look pressed while open.
class DisclosureWidget : public QToolButton
{
public:
    using QToolButton::QToolButton;

    bool mIsOpen = false;
};

class DisclosureInterface : public QAccessibleWidget
{
public:
    explicit DisclosureInterface(DisclosureWidget& theButton)
        : QAccessibleWidget(&theButton, QAccessible::Button)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State theState = QAccessibleWidget::state();
        theState.expandable = true;
        theState.expanded = Button().mIsOpen;
        theState.collapsed = !Button().mIsOpen;
        return theState;
    }

    QStringList actionNames() const override
    {
        return Button().isEnabled() ? QStringList{pressAction()} : QStringList();
    }

    void doAction(const QString& theAction) override
    {
        if (actionNames().contains(theAction)) {
            Button().click();
        }
    }

private:
    DisclosureWidget& Button() const { return static_cast<DisclosureWidget&>(*widget()); }
};

QAccessibleInterface* MakeInterface(const QString&, QObject* theObject)
{
    if (auto* const theArrows = dynamic_cast<ArrowsWidget*>(theObject)) {
        return new ArrowsInterface(*theArrows);
    }
    if (auto* const theDisclosure = dynamic_cast<DisclosureWidget*>(theObject)) {
        return new DisclosureInterface(*theDisclosure);
    }
    auto* const theRadioButton = qobject_cast<QRadioButton*>(theObject);
    const bool theIsOurs = theRadioButton != nullptr && !theRadioButton->autoExclusive();
    return theIsOurs ? new RadioInterface(*theRadioButton) : nullptr;
}

// Qt keeps what makes interfaces as long as the program runs.
void MakeButtonsKnown()
{
    static bool sIsKnown = false;
    if (!std::exchange(sIsKnown, true)) {
        QAccessible::installFactory(MakeInterface);
    }
}

} // namespace

// Push buttons -----------------------------------------------------------------------------------------

QtPushButton::QtPushButton(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtControl(theLook, theInput, new QPushButton(&theContent)),
      mButton(static_cast<QPushButton&>(Widget()))
{
    mButton.setAutoDefault(false);
    connect(&mButton, &QPushButton::clicked, this, &QtPushButton::ReportClick);
    theInput.Watch(mButton, QtInput::MouseUse::kManagers);
}

void QtPushButton::ShowState(const ControlLook& theLook)
{
    mButton.setText(WithoutMnemonics(theLook.theTitle));
    mButton.setDefault(theLook.theIsDefault);
    mButton.setDown(theLook.theIsHilited);
}

QRect QtPushButton::PlaceFor(const QRect& theBounds) const
{
    return AtLeastAsHigh(theBounds);
}

// Check boxes and radio buttons ------------------------------------------------------------------------

QtCheckBox::QtCheckBox(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtControl(theLook, theInput, new QCheckBox(&theContent)),
      mBox(static_cast<QCheckBox&>(Widget()))
{
    mBox.setTristate(true);
    connect(&mBox, &QCheckBox::stateChanged, this, &QtCheckBox::ReportClick);
    theInput.Watch(mBox, QtInput::MouseUse::kManagers);
}

void QtCheckBox::ShowState(const ControlLook& theLook)
{
    mBox.setText(WithoutMnemonics(theLook.theTitle));
    mBox.setCheckState(CheckStateOf(theLook.theValue));
    mBox.setDown(theLook.theIsHilited);
}

QtRadioButton::QtRadioButton(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtControl(theLook, theInput, new QRadioButton(&theContent)),
      mButton(static_cast<QRadioButton&>(Widget()))
{
    MakeButtonsKnown();
    // Turning the others off is the program's task.
    mButton.setAutoExclusive(false);
    connect(&mButton, &QRadioButton::toggled, this, &QtRadioButton::ReportClick);
    theInput.Watch(mButton, QtInput::MouseUse::kManagers);
}

void QtRadioButton::ShowState(const ControlLook& theLook)
{
    mButton.setText(WithoutMnemonics(theLook.theTitle));
    mButton.setChecked(CheckStateOf(theLook.theValue) == Qt::Checked);
    mButton.setDown(theLook.theIsHilited);
}

// Pop-up buttons ---------------------------------------------------------------------------------------

namespace {

// A combo box that shows what was chosen, with a title before it. Its menu is the managers'.
class PopUpWidget : public QComboBox
{
public:
    using QComboBox::QComboBox;

    void showPopup() override { mOpen(); }

    std::function<void()> mOpen;
    QString mTitle;
    int mTitleWidth = 0;
    Qt::Alignment mAlignment = Qt::AlignLeft;

protected:
    void initStyleOption(QStyleOptionComboBox* theOption) const override
    {
        QComboBox::initStyleOption(theOption);
        theOption->rect =
            QStyle::visualRect(layoutDirection(), rect(), rect().adjusted(mTitleWidth, 0, 0, 0));
    }

    void paintEvent(QPaintEvent* theEvent) override
    {
        if (mTitleWidth > 0) {
            QPainter thePainter(this);
            const QRect thePlace(0, 0, mTitleWidth - kTitleGap, height());
            style()->drawItemText(&thePainter, QStyle::visualRect(layoutDirection(), rect(), thePlace),
                                  static_cast<int>((mAlignment | Qt::AlignVCenter).toInt()) |
                                      Qt::TextSingleLine,
                                  palette(), isEnabled(), mTitle, QPalette::WindowText);
        }
        QComboBox::paintEvent(theEvent);
    }

private:
    static constexpr int kTitleGap = 8;
};

Qt::Alignment AlignmentOf(TextAlignment theAlignment)
{
    return theAlignment == TextAlignment::kRight    ? Qt::AlignRight
           : theAlignment == TextAlignment::kCentre ? Qt::AlignHCenter
                                                    : Qt::AlignLeft;
}

} // namespace

QtPopUpButton::QtPopUpButton(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtControl(theLook, theInput, new PopUpWidget(&theContent)),
      mBox(static_cast<QComboBox&>(Widget()))
{
    static_cast<PopUpWidget&>(Widget()).mOpen = [this] { ReportClick(); };
    theInput.Watch(mBox, QtInput::MouseUse::kManagers);
}

void QtPopUpButton::ShowState(const ControlLook& theLook)
{
    auto& theWidget = static_cast<PopUpWidget&>(Widget());
    theWidget.mTitle = QString::fromStdString(theLook.theTitle);
    theWidget.mTitleWidth = theLook.theTitleWidth;
    theWidget.mAlignment = AlignmentOf(theLook.theAlignment);
    const QString theText = QString::fromStdString(theLook.theText);
    if (mBox.count() != 1 || mBox.itemText(0) != theText) {
        mBox.clear();
        mBox.addItem(theText);
    }
}

QRect QtPopUpButton::PlaceFor(const QRect& theBounds) const
{
    return AtLeastAsHigh(theBounds);
}

// Disclosures ------------------------------------------------------------------------------------------

namespace {

// The triangle points at its title until it is open; the button points at what it opens below it.
Qt::ArrowType ArrowOf(const ControlLook& theLook)
{
    const bool theIsOpen = theLook.theValue != 0;
    if (theLook.theShape == ControlShape::kDisclosureButton) {
        return theIsOpen ? Qt::UpArrow : Qt::DownArrow;
    }
    return theIsOpen ? Qt::DownArrow : theLook.thePointsLeft ? Qt::LeftArrow : Qt::RightArrow;
}

} // namespace

QtDisclosure::QtDisclosure(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtControl(theLook, theInput, new DisclosureWidget(&theContent)),
      mButton(static_cast<QToolButton&>(Widget()))
{
    MakeButtonsKnown();
    mButton.setAutoRaise(theLook.theShape == ControlShape::kDisclosureTriangle);
    connect(&mButton, &QToolButton::clicked, this, &QtDisclosure::ReportClick);
    theInput.Watch(mButton, QtInput::MouseUse::kManagers);
}

void QtDisclosure::ShowState(const ControlLook& theLook)
{
    const bool theShowsTitle = theLook.theShape == ControlShape::kDisclosureTriangle &&
                               !theLook.theHidesTitle && !theLook.theTitle.empty();
    mButton.setToolButtonStyle(theShowsTitle ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
    mButton.setText(theShowsTitle ? WithoutMnemonics(theLook.theTitle) : QString());
    mButton.setArrowType(ArrowOf(theLook));
    static_cast<DisclosureWidget&>(mButton).mIsOpen = theLook.theValue != 0;
    mButton.setDown(theLook.theIsHilited);
}

// Little arrows ----------------------------------------------------------------------------------------

QtLittleArrows::QtLittleArrows(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtControl(theLook, theInput, new ArrowsWidget(&theContent))
{
    MakeButtonsKnown();
    static_cast<ArrowsWidget&>(Widget()).mStep = [this](ControlPart thePart) { ReportStep(thePart); };
    theInput.Watch(Widget(), QtInput::MouseUse::kManagers);
}

void QtLittleArrows::ShowState(const ControlLook& theLook)
{
    auto& theArrows = static_cast<ArrowsWidget&>(Widget());
    theArrows.SetPressed(theLook.theIsHilited);
    theArrows.mMinimum = theLook.theMinimum;
    theArrows.mMaximum = theLook.theMaximum;
    if (std::exchange(theArrows.mValue, theLook.theValue) != theLook.theValue) {
        QAccessibleValueChangeEvent theEvent(&theArrows, theLook.theValue);
        QAccessible::updateAccessibility(&theEvent);
    }
}

void QtLittleArrows::ReportStep(ControlPart thePart)
{
    const PartPress thePress = {Look().theId, thePart, true, kNoModifiers};
    Reports().Add([thePress](PresenterEvents& theEvents) {
        theEvents.PartPressed(thePress);
        theEvents.PartPressed({thePress.theControl, thePress.thePart, false, kNoModifiers});
    });
}

} // namespace Host
