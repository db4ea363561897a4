// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtClock.h"

#include <QDateTimeEdit>
#include <QLineEdit>
#include <QMouseEvent>
#include <QStyleOptionSpinBox>

#include <functional>

namespace Host {

namespace {

// By the length of the text, which is always the same for one sort of clock.
QString FormatOf(const std::string& theText)
{
    switch (theText.size()) {
    case 5:
        return QStringLiteral("HH:mm");
    case 8:
        return QStringLiteral("HH:mm:ss");
    case 10:
        return QStringLiteral("yyyy-MM-dd");
    default:
        return QStringLiteral("yyyy-MM");
    }
}

bool IsTime(const std::string& theText)
{
    return theText.find(':') != std::string::npos;
}

// Noon and the first of a month, which every zone has, stand for what the text does not say.
QDateTime MomentOf(const std::string& theText, const QString& theFormat)
{
    const QString theWords = QString::fromStdString(theText);
    return IsTime(theText) ? QDateTime(QDate(2001, 1, 1), QTime::fromString(theWords, theFormat), Qt::UTC)
                           : QDateTime(QDate::fromString(theWords, theFormat), QTime(12, 0), Qt::UTC);
}

} // namespace

// Shows and finds, and changes nothing by itself.
class ClockWidget : public QDateTimeEdit
{
public:
    explicit ClockWidget(QWidget* theParent)
        : QDateTimeEdit(theParent)
    {
        setTimeSpec(Qt::UTC);
        lineEdit()->setAttribute(Qt::WA_TransparentForMouseEvents);
        lineEdit()->setFocusPolicy(Qt::NoFocus);
        lineEdit()->setFocusProxy(nullptr);
    }

    void ShowText(const std::string& theText, int theSection)
    {
        const QString theFormat = FormatOf(theText);
        if (displayFormat() != theFormat) {
            setDisplayFormat(theFormat);
            if (!IsTime(theText)) {
                setDateRange(QDate(1000, 1, 1), QDate(9999, 12, 31)); // Qt begins later
            }
        }
        setDateTime(MomentOf(theText, theFormat));
        mSection = theSection;
        ShowSection();
    }

    std::function<void(bool theIsUp)> mStep;
    std::function<void(size_t thePosition)> mGoTo; // to the field at this place of the text

protected:
    void mousePressEvent(QMouseEvent* theEvent) override
    {
        QStyleOptionSpinBox theOption;
        initStyleOption(&theOption);
        const QStyle::SubControl theControl = style()->hitTestComplexControl(
            QStyle::CC_SpinBox, &theOption, theEvent->position().toPoint(), this);
        if (theControl == QStyle::SC_SpinBoxUp || theControl == QStyle::SC_SpinBoxDown) {
            mStep(theControl == QStyle::SC_SpinBoxUp);
            return;
        }
        const QPoint theInside = lineEdit()->mapFrom(this, theEvent->position().toPoint());
        mGoTo(static_cast<size_t>(lineEdit()->cursorPositionAt(theInside)));
    }

    void mouseReleaseEvent(QMouseEvent*) override {}
    void mouseMoveEvent(QMouseEvent*) override {}
    void wheelEvent(QWheelEvent* theEvent) override { theEvent->ignore(); }
    void keyPressEvent(QKeyEvent* theEvent) override { theEvent->ignore(); }
    void stepBy(int theSteps) override { mStep(theSteps > 0); }

    void focusInEvent(QFocusEvent* theEvent) override
    {
        QDateTimeEdit::focusInEvent(theEvent);
        ShowSection();
    }

    void focusOutEvent(QFocusEvent* theEvent) override
    {
        QDateTimeEdit::focusOutEvent(theEvent);
        ShowSection();
    }

private:
    // Only what has the keys shows where they go.
    void ShowSection()
    {
        if (mSection >= 0 && mSection < sectionCount() && hasFocus()) {
            setCurrentSectionIndex(mSection);
            setSelectedSection(currentSection());
        } else {
            lineEdit()->deselect();
        }
    }

    int mSection = -1;
};

QtClock::QtClock(const ControlLook& theLook, QtInput& theInput, QWidget& theContent)
    : QtControl(theLook, theInput, new ClockWidget(&theContent)),
      mClock(static_cast<ClockWidget&>(Widget()))
{
    mClock.mStep = [this](bool theIsUp) {
        ReportPart(theIsUp ? ControlPart::kUpButton : ControlPart::kDownButton);
    };
    mClock.mGoTo = [this](size_t thePosition) {
        size_t theEnd = 0;
        for (const SegmentLook& theField : Look().Rare().theSegments) {
            theEnd += theField.theTitle.size() + 1;
            if (thePosition < theEnd || theEnd > Look().theText.size()) {
                ReportClickAt(CentreOf(theField.theBounds));
                return;
            }
        }
    };
    theInput.Watch(mClock, QtInput::MouseUse::kWidget);
}

void QtClock::ReportPart(ControlPart thePart)
{
    const PartPress thePress = {Look().theId, thePart, true, kNoModifiers};
    Reports().Add([thePress](PresenterEvents& theEvents) {
        theEvents.PartPressed(thePress);
        theEvents.PartPressed({thePress.theControl, thePress.thePart, false, kNoModifiers});
    });
}

void QtClock::ShowState(const ControlLook& theLook)
{
    int theSection = -1;
    const std::vector<SegmentLook>& theFields = theLook.Rare().theSegments;
    for (size_t theIndex = 0; theIndex < theFields.size(); ++theIndex) {
        theSection = theFields[theIndex].theHasKeys ? static_cast<int>(theIndex) : theSection;
    }
    mClock.setReadOnly(theLook.theIsLocked);
    mClock.setButtonSymbols(theLook.theIsLocked ? QAbstractSpinBox::NoButtons
                                                : QAbstractSpinBox::UpDownArrows);
    mClock.ShowText(theLook.theText, theSection);
}

QRect QtClock::PlaceFor(const QRect& theBounds) const
{
    return AtLeastAsHigh(theBounds);
}

} // namespace Host
