// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtControl.h"

#include "QtContent.h"

#include <QSignalBlocker>
#include <QTextDocument>

#include <algorithm>
#include <tuple>
#include <utility>

namespace Host {

namespace {

// A window is never wider; what programs say beyond that would overflow Qt's sums.
constexpr int kFarthest = 32767;

// Where controls have widgets, around the content of a window on the largest of screens. A style draws a
// widget into memory as a whole, however little of it can be seen.
constexpr QRect kRoom(-1024, -1024, 9216, 9216);

// Whether a widget that shows the one look shows the other as well, but for where it is and what it may do.
bool IsDrawnAlike(const ControlLook& theOne, const ControlLook& theOther)
{
    const auto theParts = [](const ControlLook& theLook) {
        return std::tie(
            theLook.theBounds, theLook.theValue, theLook.theMinimum, theLook.theMaximum, theLook.theViewSize,
            theLook.theTickMarks, theLook.theTitleWidth, theLook.theTitle, theLook.theText,
            theLook.theAlignment, theLook.theSelectionStart, theLook.theSelectionEnd, theLook.theIsHilited,
            theLook.theIsPassword, theLook.theIsMultiline, theLook.theIsLocked, theLook.theIsDefault,
            theLook.theIsIndeterminate, theLook.theIsAnimated, theLook.theHidesTitle, theLook.thePointsLeft);
    };
    return theParts(theOne) == theParts(theOther) &&
           (theOne.theRareLook == theOther.theRareLook || theOne.Rare() == theOther.Rare());
}

// Whether the widget has its place already. What it wants to be high depends on no more than this.
bool IsAsHigh(const ControlLook& theOne, const ControlLook& theOther)
{
    return theOne.theBounds == theOther.theBounds && theOne.theTitle == theOther.theTitle &&
           theOne.theTickMarks == theOther.theTickMarks && theOne.theIsDefault == theOther.theIsDefault &&
           theOne.Rare().theDiameter == theOther.Rare().theDiameter;
}

int Nearer(int theCoordinate)
{
    return std::clamp(theCoordinate, -kFarthest, kFarthest);
}

} // namespace

QString WithoutMnemonics(const std::string& theText)
{
    return QString::fromStdString(theText).replace(QLatin1Char('&'), QLatin1String("&&"));
}

QRect ToQRect(const PixelRect& theRect)
{
    const QPoint theTopLeft(Nearer(theRect.theLeft), Nearer(theRect.theTop));
    const QPoint theEnd(Nearer(theRect.theRight), Nearer(theRect.theBottom));
    return {theTopLeft,
            QSize(std::max(theEnd.x() - theTopLeft.x(), 0), std::max(theEnd.y() - theTopLeft.y(), 0))};
}

bool IsUpright(const PixelRect& theBounds)
{
    const QSize theSize = ToQRect(theBounds).size();
    return theSize.height() > theSize.width();
}

QtControl::QtControl(const ControlLook& theLook, QtInput& theInput, QWidget* theWidget)
    : mInput(theInput),
      mWidget(theWidget),
      mLook(theLook)
{
}

QtControl::~QtControl()
{
    // The window takes its controls' widgets with it.
    if (mWidget != nullptr) {
        mWidget->blockSignals(true);
        GiveUpKeys();
        mWidget->hide();
        mInput.Unwatch(*mWidget);
        mWidget->deleteLater();
    }
}

bool QtControl::Suits(const ControlLook& theLook) const
{
    return theLook.theShape == mLook.theShape && theLook.theWindow == mLook.theWindow;
}

QRect QtControl::PlaceFor(const QRect& theBounds) const
{
    return theBounds;
}

QRect QtControl::AtLeastAsHigh(const QRect& theBounds) const
{
    const int theMissing = std::max(mWidget->sizeHint().height() - theBounds.height(), 0);
    const int theAbove = theMissing / 2;
    return theBounds.adjusted(0, -theAbove, 0, theMissing - theAbove);
}

void QtControl::Show(const ControlLook& theLook, bool theWindowIsActive)
{
    const QSignalBlocker theBlocker(mWidget);
    const bool theIsNew = !std::exchange(mIsShown, true);
    const bool theIsOther = theIsNew || !IsDrawnAlike(theLook, mLook);
    const bool theIsMoved = theIsNew || !IsAsHigh(theLook, mLook);
    mLook = theLook;
    const bool theIsEnabled = theLook.theIsEnabled && (theLook.theIsActive || !theWindowIsActive);
    if (!theIsEnabled || !theLook.theIsVisible) {
        GiveUpKeys();
    }
    mWidget->setEnabled(theIsEnabled);
    // Tab and clicks are the managers'; this tells a screen reader what takes the keys.
    mWidget->setFocusPolicy(theLook.theTakesFocus ? Qt::TabFocus : Qt::NoFocus);
    if (theIsOther) {
        ShowNewState();
        ShowHelp();
    }
    if (theIsMoved) {
        mWidget->setGeometry(PlaceFor(ToQRect(theLook.theBounds) & kRoom));
    }
    // What has never been hidden is shown with its window.
    if (mWidget->isHidden() == theLook.theIsVisible) {
        mWidget->setVisible(theLook.theIsVisible);
    }
    if (theIsOther && mWidget->isVisible()) {
        static_cast<QtContent*>(mWidget->parentWidget())->Changed(mWidget->geometry());
    }
}

// The widget does not ask to be painted: the content does, for all that have changed.
void QtControl::ShowNewState()
{
    mWidget->setAttribute(Qt::WA_UpdatesDisabled, true);
    ShowState(mLook);
    mWidget->setAttribute(Qt::WA_UpdatesDisabled, false);
}

// Words that look like mark-up are words.
void QtControl::ShowHelp()
{
    const QString theHelp = QString::fromStdString(mLook.Rare().theHelp);
    const QString theTip = Qt::mightBeRichText(theHelp) ? Qt::convertFromPlainText(theHelp) : theHelp;
    if (mWidget->toolTip() != theTip) {
        mWidget->setToolTip(theTip);
    }
}

// Screen readers are told of each name that is set, even of one that stays.
void QtControl::Name(const std::string& theName, const std::string& theGroup)
{
    const QString theSpoken = QString::fromStdString(theName);
    if (mWidget->accessibleName() != theSpoken) {
        mWidget->setAccessibleName(theSpoken);
    }
    const QString theDescription = QString::fromStdString(theGroup);
    if (mWidget->accessibleDescription() != theDescription) {
        mWidget->setAccessibleDescription(theDescription);
    }
}

void QtControl::GiveUpKeys()
{
    if (mWidget->window()->focusWidget() == mWidget) {
        mWidget->clearFocus();
    }
}

void QtControl::ReportClickAt(PixelPoint thePlace)
{
    const PointerAction theClick = mInput.ActionAt(thePlace);
    const QPointer<QtControl> theControl(this);
    Reports().Add([theClick, theControl](PresenterEvents& theEvents) {
        theEvents.PointerPressed(theClick);
        theEvents.PointerReleased(theClick);
        if (theControl != nullptr) {
            theControl->ShowAgain();
        }
    });
}

void QtControl::ShowAgain()
{
    const QSignalBlocker theBlocker(mWidget);
    ShowState(mLook);
}

} // namespace Host
