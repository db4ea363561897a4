// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtInput.h"

#include "QtKeys.h"

#include <QAbstractButton>
#include <QApplication>
#include <QStyleHints>

#include <memory>

namespace Host {

namespace {

constexpr int kWheelStep = 120; // eighths of a degree, as Qt counts them, for one line

PointerButton ButtonOf(Qt::MouseButton theButton)
{
    switch (theButton) {
    case Qt::RightButton:
        return PointerButton::kSecondary;
    case Qt::MiddleButton:
        return PointerButton::kTertiary;
    default:
        return PointerButton::kPrimary;
    }
}

// Buttons beyond the third have no names in programs.
bool IsKnown(Qt::MouseButton theButton)
{
    return theButton == Qt::LeftButton || theButton == Qt::RightButton || theButton == Qt::MiddleButton;
}

bool IsModifierKey(int theKey)
{
    return theKey == Qt::Key_Shift || theKey == Qt::Key_Control || theKey == Qt::Key_Alt ||
           theKey == Qt::Key_Meta || theKey == Qt::Key_CapsLock || theKey == Qt::Key_AltGr;
}

// Alt by itself types nothing on a desktop, although Qt says what the key would type without it.
bool IsTypedWithAlt(const QKeyEvent& theKey)
{
    return (theKey.modifiers() & (Qt::AltModifier | Qt::ControlModifier | Qt::MetaModifier)) ==
               Qt::AltModifier &&
           !theKey.text().isEmpty() && theKey.text().at(0).isPrint();
}

// Moving from field to field is the managers' business even where they find no field, and so is everything
// that keys do to a button.
bool IsForManagers(const QWidget& theWidget, const QEvent& theEvent)
{
    if (theEvent.type() != QEvent::KeyPress) {
        return false;
    }
    const auto& theKey = static_cast<const QKeyEvent&>(theEvent);
    return theKey.key() == Qt::Key_Tab || theKey.key() == Qt::Key_Backtab || IsTypedWithAlt(theKey) ||
           qobject_cast<const QAbstractButton*>(&theWidget) != nullptr;
}

} // namespace

QtInput::QtInput(ObjectId theWindow, QWidget& theContent, QtReports& theReports)
    : mWindow(theWindow),
      mContent(theContent),
      mReports(theReports),
      mWatchers{Watcher(*this, MouseUse::kManagers), Watcher(*this, MouseUse::kBoth),
                Watcher(*this, MouseUse::kWidget), Watcher(*this, MouseUse::kNone)}
{
}

void QtInput::Watch(QWidget& theWidget, MouseUse theUse)
{
    theWidget.setMouseTracking(true);
    // The managers move the focus; Qt must not.
    theWidget.setFocusPolicy(Qt::NoFocus);
    // Everything is reported once, by the widget under the pointer.
    theWidget.setAttribute(Qt::WA_NoMousePropagation);
    theWidget.installEventFilter(&mWatchers.at(static_cast<size_t>(theUse)));
}

void QtInput::Unwatch(QWidget& theWidget)
{
    for (Watcher& theWatcher : mWatchers) {
        theWidget.removeEventFilter(&theWatcher);
    }
}

bool QtInput::Filter(QWidget& theWidget, QEvent& theEvent, MouseUse theUse)
{
    if (mIsGivingBack) {
        return false;
    }
    switch (theEvent.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        return FilterMouse(theWidget, static_cast<QMouseEvent&>(theEvent), theUse);
    case QEvent::Wheel:
        ReportWheel(theWidget, static_cast<QWheelEvent&>(theEvent));
        return true;
    case QEvent::ShortcutOverride:
        // Command keys are looked up by the managers.
        theEvent.accept();
        return true;
    case QEvent::KeyPress:
        ReportKey(theWidget, static_cast<QKeyEvent&>(theEvent));
        return true;
    case QEvent::KeyRelease:
        ReportKeyRelease(static_cast<QKeyEvent&>(theEvent));
        return true;
    default:
        return false;
    }
}

// Pointer ----------------------------------------------------------------------------------------------

PixelPoint QtInput::PlaceOf(const QWidget& theWidget, QPointF thePoint) const
{
    const QPoint thePlace = mContent.mapFromGlobal(theWidget.mapToGlobal(thePoint)).toPoint();
    return {mContentPlace.theX + thePlace.x(), mContentPlace.theY + thePlace.y()};
}

PointerAction QtInput::ActionAt(PixelPoint thePlace) const
{
    PointerAction theAction;
    theAction.theWindow = mWindow;
    theAction.thePlace = {mContentPlace.theX + thePlace.theX, mContentPlace.theY + thePlace.theY};
    return theAction;
}

bool QtInput::FilterMouse(QWidget& theWidget, QMouseEvent& theEvent, MouseUse theUse)
{
    const bool theIsPrimary = ((theEvent.buttons() | theEvent.button()) & Qt::LeftButton) != 0;
    if (theUse == MouseUse::kNone || (theUse == MouseUse::kWidget && theIsPrimary && theWidget.isEnabled())) {
        return false;
    }
    ReportMouse(theWidget, theEvent);
    return theUse != MouseUse::kBoth;
}

void QtInput::ReportMouse(QWidget& theWidget, const QMouseEvent& theEvent)
{
    PointerAction theAction;
    theAction.theWindow = mWindow;
    theAction.thePlace = PlaceOf(theWidget, theEvent.position());
    theAction.theModifiers = ModifiersOf(theEvent.modifiers());
    if (theEvent.type() == QEvent::MouseMove) {
        mReports.Add([theAction](PresenterEvents& theEvents) { theEvents.PointerMoved(theAction); },
                     QtReports::Subject::kPointerMove, mWindow);
        return;
    }
    if (!IsKnown(theEvent.button())) {
        return;
    }
    theAction.theButton = ButtonOf(theEvent.button());
    const bool theIsPress = theEvent.type() != QEvent::MouseButtonRelease;
    if (theIsPress) {
        CountClick(theEvent);
    }
    theAction.theClickCount = mClickCount;
    mReports.Add([theAction, theIsPress](PresenterEvents& theEvents) {
        theIsPress ? theEvents.PointerPressed(theAction) : theEvents.PointerReleased(theAction);
    });
}

// Qt knows double clicks only.
void QtInput::CountClick(const QMouseEvent& theEvent)
{
    const QStyleHints& theHints = *QGuiApplication::styleHints();
    const QPoint thePlace = theEvent.globalPosition().toPoint();
    const bool theIsSoon =
        theEvent.timestamp() - mClickTime < static_cast<quint64>(theHints.mouseDoubleClickInterval());
    const bool theIsNear = (thePlace - mClickPlace).manhattanLength() <= theHints.mouseDoubleClickDistance();
    const bool theIsNext = theIsSoon && theIsNear && theEvent.button() == mClickButton && mClickCount > 0;
    mClickCount = theIsNext ? mClickCount + 1 : 1;
    mClickButton = theEvent.button();
    mClickTime = theEvent.timestamp();
    mClickPlace = thePlace;
}

void QtInput::ReportWheel(QWidget& theWidget, const QWheelEvent& theEvent)
{
    const QPoint theTurn = theEvent.angleDelta();
    WheelAction theAction;
    theAction.theWindow = mWindow;
    theAction.thePlace = PlaceOf(theWidget, theEvent.position());
    theAction.theIsHorizontal = theTurn.y() == 0;
    theAction.theLines = (theAction.theIsHorizontal ? theTurn.x() : theTurn.y()) / kWheelStep;
    theAction.theModifiers = ModifiersOf(theEvent.modifiers());
    const QPointer<QWidget> theTarget(&theWidget);
    const std::shared_ptr<QEvent> theCopy(theEvent.clone());
    mReports.Add([this, theAction, theTarget, theCopy](PresenterEvents& theEvents) {
        const bool theIsTaken = theEvents.WheelTurned(theAction) && theEvents.WasTaken();
        if (!theIsTaken && theTarget != nullptr) {
            GiveBack(*theTarget, *theCopy);
        }
    });
}

// Keys -------------------------------------------------------------------------------------------------

void QtInput::ReportModifiers(Qt::KeyboardModifiers theModifiers)
{
    const std::uint32_t theNew = ModifiersOf(theModifiers);
    if (theNew != mModifiers) {
        mModifiers = theNew;
        mReports.Add([theNew](PresenterEvents& theEvents) { theEvents.ModifiersChanged(theNew); });
    }
}

void QtInput::ReportKey(QWidget& theWidget, const QKeyEvent& theEvent)
{
    ReportModifiers(theEvent.modifiers());
    if (IsModifierKey(theEvent.key())) {
        return;
    }
    const KeyAction theAction = KeyOf(theEvent);
    const bool theIsRepeat = theEvent.isAutoRepeat();
    mKeysDown.insert(theAction.theKey);
    const QPointer<QWidget> theTarget(&theWidget);
    const std::shared_ptr<QEvent> theCopy(theEvent.clone());
    mReports.Add([this, theAction, theIsRepeat, theTarget, theCopy](PresenterEvents& theEvents) {
        const bool theIsDelivered =
            theIsRepeat ? theEvents.KeyRepeated(theAction) : theEvents.KeyPressed(theAction);
        if (theIsDelivered && !theEvents.WasTaken() && theTarget != nullptr) {
            GiveBack(*theTarget, *theCopy);
        }
    });
}

void QtInput::ReportKeyRelease(const QKeyEvent& theEvent)
{
    ReportModifiers(theEvent.modifiers());
    if (theEvent.isAutoRepeat() || IsModifierKey(theEvent.key())) {
        return;
    }
    const KeyAction theAction = KeyOf(theEvent);
    mKeysDown.erase(theAction.theKey);
    mReports.Add([theAction](PresenterEvents& theEvents) { theEvents.KeyReleased(theAction); });
}

void QtInput::ReleaseKeys()
{
    for (const std::uint32_t theKey : mKeysDown) {
        mReports.Add([theKey](PresenterEvents& theEvents) {
            theEvents.KeyReleased({theKey, {}, kNoModifiers});
        });
    }
    mKeysDown.clear();
    ReportModifiers(Qt::NoModifier);
}

// The menu hears when the keys come up.
bool QtInput::OpensMenu(const QKeyEvent& theEvent)
{
    if (!mMenuKeys || theEvent.isAutoRepeat() || !mMenuKeys(theEvent)) {
        return false;
    }
    ReleaseKeys();
    return true;
}

// Comes before all other reports, when the widget shows what the handlers have made of things.
void QtInput::GiveBack(QWidget& theWidget, const QEvent& theEvent)
{
    const QPointer<QWidget> theTarget(&theWidget);
    const std::shared_ptr<QEvent> theCopy(theEvent.clone());
    mReports.AddNext([this, theTarget, theCopy](PresenterEvents&) {
        const bool theIsKey = theCopy->type() == QEvent::KeyPress;
        if (theTarget == nullptr || (theIsKey && OpensMenu(static_cast<const QKeyEvent&>(*theCopy)))) {
            return;
        }
        if (!IsForManagers(*theTarget, *theCopy)) {
            const QtReports::Overtaking theOvertaking(mReports);
            mIsGivingBack = true;
            QCoreApplication::sendEvent(theTarget, theCopy.get());
            mIsGivingBack = false;
        }
    });
}

} // namespace Host
