// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtControl.h"

#include <QSignalBlocker>

#include <algorithm>

namespace Host {

namespace {

// A window is never wider; what programs say beyond that would overflow Qt's sums.
constexpr int kFarthest = 32767;

// Where controls have widgets, around the content of a window on the largest of screens. A style draws a
// widget into memory as a whole, however little of it can be seen.
constexpr QRect kRoom(-1024, -1024, 9216, 9216);

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
    theWidget->setObjectName(QStringLiteral("control %1").arg(theLook.theId));
}

QtControl::~QtControl()
{
    // The window takes its controls' widgets with it.
    if (mWidget != nullptr) {
        mWidget->blockSignals(true);
        GiveUpKeys();
        mWidget->hide();
        mWidget->removeEventFilter(&mInput);
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
    mLook = theLook;
    const bool theIsEnabled = theLook.theIsEnabled && (theLook.theIsActive || !theWindowIsActive);
    if (!theIsEnabled || !theLook.theIsVisible) {
        GiveUpKeys();
    }
    mWidget->setEnabled(theIsEnabled);
    // Tab and clicks are the managers'; this tells a screen reader what takes the keys.
    mWidget->setFocusPolicy(theLook.theTakesFocus ? Qt::TabFocus : Qt::NoFocus);
    ShowState(theLook);
    mWidget->setGeometry(PlaceFor(ToQRect(theLook.theBounds) & kRoom));
    mWidget->setVisible(theLook.theIsVisible);
}

void QtControl::GiveUpKeys()
{
    if (mWidget->window()->focusWidget() == mWidget) {
        mWidget->clearFocus();
    }
}

void QtControl::ReportClick()
{
    const PointerAction theClick = mInput.ActionAt(CentreOf(mLook.theBounds));
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
