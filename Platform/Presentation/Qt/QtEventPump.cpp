// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtEventPump.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace Host {

namespace {

// No timer of Qt's waits longer than 24 days. Waking once an hour for nothing costs nothing.
constexpr double kLongestSleep = 3600;

} // namespace

int QtEventPump::Milliseconds(double theSeconds)
{
    return static_cast<int>(std::ceil(std::clamp(theSeconds, 0.0, kLongestSleep) * 1000));
}

QtEventPump::QtEventPump()
{
    mDeadline.setSingleShot(true);
    mDeadline.setTimerType(Qt::PreciseTimer);
}

void QtEventPump::Poll()
{
    QCoreApplication::processEvents();
}

void QtEventPump::Wait(double theSeconds)
{
    if (mIsWoken) {
        return;
    }
    if (theSeconds >= 0) {
        mDeadline.start(Milliseconds(theSeconds));
    }
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    mDeadline.stop();
}

void QtEventPump::Wake()
{
    mIsWoken = true;
    if (QAbstractEventDispatcher* theDispatcher = QCoreApplication::eventDispatcher()) {
        theDispatcher->wakeUp();
    }
}

} // namespace Host
