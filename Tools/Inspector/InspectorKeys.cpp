// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "InspectorKeys.h"

#include "InspectorWindow.h"
#include "LmInspector.h"

#include <QKeyEvent>

namespace {

bool IsShortcut(const QKeyEvent& theEvent)
{
    return theEvent.key() == Qt::Key_I &&
           (theEvent.modifiers() & ~Qt::KeypadModifier) == (Qt::ControlModifier | Qt::ShiftModifier);
}

} // namespace

InspectorKeys::~InspectorKeys()
{
    delete mWindow;
}

bool InspectorKeys::eventFilter(QObject* theObject, QEvent* theEvent)
{
    // Each key arrives at the window of the system first, and then at a widget.
    if (!theObject->isWidgetType()) {
        return false;
    }
    switch (theEvent->type()) {
    case QEvent::ShortcutOverride:
        if (IsShortcut(static_cast<QKeyEvent&>(*theEvent))) {
            theEvent->accept();
            return true;
        }
        return false;
    case QEvent::KeyPress: {
        auto& theKey = static_cast<QKeyEvent&>(*theEvent);
        if (!IsShortcut(theKey)) {
            return false;
        }
        if (!theKey.isAutoRepeat()) {
            mIsDown = true;
            Toggle();
        }
        return true;
    }
    case QEvent::KeyRelease:
        if (mIsDown && static_cast<QKeyEvent&>(*theEvent).key() == Qt::Key_I) {
            mIsDown = static_cast<QKeyEvent&>(*theEvent).isAutoRepeat();
            return true;
        }
        return false;
    default:
        return false;
    }
}

void InspectorKeys::Toggle()
{
    if (mWindow != nullptr) {
        mWindow->close();
    } else if (LmGetLiveSurvey() != nullptr) {
        mWindow = new InspectorWindow(*LmGetLiveSurvey());
        mWindow->show();
        mWindow->activateWindow();
    }
}
