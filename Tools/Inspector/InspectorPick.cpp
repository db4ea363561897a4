// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "InspectorPick.h"

#include <Carbon/Carbon.h>

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>
#include <utility>

InspectorPick::InspectorPick(const LmLiveSurvey& theSurvey, const QWidget& theOwn,
                             std::function<void(std::uint64_t)> theChosen)
    : mSurvey(theSurvey),
      mOwn(theOwn),
      mChosen(std::move(theChosen))
{
}

InspectorPick::~InspectorPick()
{
    Stop();
}

// The managers are asked, whose points are those of the screen.
InspectorPick::Found InspectorPick::FindAt(const QWidget& theWidget, QPoint thePlace) const
{
    const QPoint theGlobal = theWidget.mapToGlobal(thePlace);
    WindowRef theWindow = nullptr;
    const Point thePoint = {static_cast<short>(theGlobal.y()), static_cast<short>(theGlobal.x())};
    FindWindow(thePoint, &theWindow);
    Rect theContent = {};
    if (theWindow == nullptr || GetWindowBounds(theWindow, kWindowContentRgn, &theContent) != noErr) {
        return {};
    }
    const Point theInside = {static_cast<short>(thePoint.v - theContent.top),
                             static_cast<short>(thePoint.h - theContent.left)};
    ControlRef theControl = nullptr;
    FindControl(theInside, theWindow, &theControl);
    const std::uint64_t theObject = mSurvey.FindByControl(theControl);
    if (theObject == 0) {
        return {mSurvey.FindByWindow(theWindow), QRect(QPoint(theContent.left, theContent.top),
                                                       QPoint(theContent.right - 1, theContent.bottom - 1))};
    }
    Rect theBounds = {};
    GetControlBounds(theControl, &theBounds);
    return {theObject, QRect(theContent.left + theBounds.left, theContent.top + theBounds.top,
                             theBounds.right - theBounds.left, theBounds.bottom - theBounds.top)
                           .adjusted(-2, -2, 2, 2)};
}

void InspectorPick::Mark(const QWidget& theWidget, QPoint thePlace)
{
    const Found theFound = FindAt(theWidget, thePlace);
    if (theFound.theObject == 0) {
        delete mFrame;
        return;
    }
    // Inside of the window that it lies in: a window of its own could be placed nowhere on some desktops.
    QWidget* const theWindow = theWidget.window();
    if (mFrame == nullptr || mFrame->parentWidget() != theWindow) {
        delete mFrame;
        mFrame = new QRubberBand(QRubberBand::Rectangle, theWindow);
        mFrame->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    mFrame->setGeometry(
        QRect(theWindow->mapFromGlobal(theFound.thePlace.topLeft()), theFound.thePlace.size()));
    mFrame->show();
    mFrame->raise();
}

void InspectorPick::End(std::uint64_t theObject)
{
    Stop();
    mChosen(theObject);
}

void InspectorPick::Start()
{
    if (!mIsOn) {
        mIsOn = true;
        mIsPressed = false;
        qGuiApp->installEventFilter(this);
        QGuiApplication::setOverrideCursor(Qt::CrossCursor);
    }
}

void InspectorPick::Stop()
{
    if (mIsOn) {
        mIsOn = false;
        qGuiApp->removeEventFilter(this);
        delete mFrame;
        QGuiApplication::restoreOverrideCursor();
    }
}

bool InspectorPick::eventFilter(QObject* theObject, QEvent* theEvent)
{
    if (theEvent->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(theEvent)->key() == Qt::Key_Escape) {
        End(0);
        return true;
    }
    auto* const theWidget = qobject_cast<QWidget*>(theObject);
    if (theWidget == nullptr || theWidget->window() == &mOwn || qobject_cast<QRubberBand*>(theWidget)) {
        return false;
    }
    switch (theEvent->type()) {
    case QEvent::MouseMove:
    case QEvent::HoverMove:
    case QEvent::Enter:
        Mark(*theWidget, theWidget->mapFromGlobal(QCursor::pos()));
        return theEvent->type() == QEvent::MouseMove;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        mIsPressed = true;
        mPressed = FindAt(*theWidget, static_cast<QMouseEvent*>(theEvent)->position().toPoint()).theObject;
        return true;
    case QEvent::MouseButtonRelease:
        if (std::exchange(mIsPressed, false)) {
            End(mPressed);
        }
        return true;
    case QEvent::ContextMenu:
    case QEvent::Wheel:
        return true;
    default:
        return false;
    }
}
