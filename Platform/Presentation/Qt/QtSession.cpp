// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtSession.h"

#include <QEvent>
#include <QGuiApplication>

#include <utility>

namespace Host {

QtSession::QtSession(QtReports& theReports, std::function<void()> theSaving)
    : mReports(theReports),
      mSaving(std::move(theSaving))
{
    qGuiApp->installEventFilter(this);
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [this] { mSaving(); });
}

bool QtSession::eventFilter(QObject* theObject, QEvent* theEvent)
{
    if (theObject != qGuiApp || theEvent->type() != QEvent::Quit) {
        return false;
    }
    mReports.Add([](PresenterEvents& theEvents) { theEvents.QuitAsked(); });
    return true;
}

} // namespace Host
