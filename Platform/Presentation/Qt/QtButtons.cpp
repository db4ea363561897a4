// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtButtons.h"

#include <QPainter>
#include <QStyleOptionSpinBox>

#include <algorithm>

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

} // namespace

// Push buttons -----------------------------------------------------------------------------------------

QtPushButton::QtPushButton(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtControl(theLook, theInput, new QPushButton(&theContent)),
      mButton(static_cast<QPushButton&>(Widget()))
{
    mButton.setAutoDefault(false);
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
    // Turning the others off is the program's task.
    mButton.setAutoExclusive(false);
    theInput.Watch(mButton, QtInput::MouseUse::kManagers);
}

void QtRadioButton::ShowState(const ControlLook& theLook)
{
    mButton.setText(WithoutMnemonics(theLook.theTitle));
    mButton.setChecked(CheckStateOf(theLook.theValue) == Qt::Checked);
    mButton.setDown(theLook.theIsHilited);
}

// Pop-up buttons ---------------------------------------------------------------------------------------

QtPopUpButton::QtPopUpButton(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtControl(theLook, theInput, new QComboBox(&theContent)),
      mBox(static_cast<QComboBox&>(Widget()))
{
    theInput.Watch(mBox, QtInput::MouseUse::kManagers);
}

void QtPopUpButton::ShowState(const ControlLook& theLook)
{
    const QString theTitle = QString::fromStdString(theLook.theTitle);
    if (mBox.count() != 1 || mBox.itemText(0) != theTitle) {
        mBox.clear();
        mBox.addItem(theTitle);
    }
}

QRect QtPopUpButton::PlaceFor(const QRect& theBounds) const
{
    return AtLeastAsHigh(theBounds);
}

// Little arrows ----------------------------------------------------------------------------------------

QtLittleArrows::QtLittleArrows(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtControl(theLook, theInput, new ArrowsWidget(&theContent))
{
    theInput.Watch(Widget(), QtInput::MouseUse::kManagers);
}

void QtLittleArrows::ShowState(const ControlLook& theLook)
{
    static_cast<ArrowsWidget&>(Widget()).SetPressed(theLook.theIsHilited);
}

} // namespace Host
