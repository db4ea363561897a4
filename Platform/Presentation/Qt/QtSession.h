// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtSession_h
#define QtSession_h

#include "QtReports.h"

#include <functional>
#include <QObject>

namespace Host {

// Hears that the desktop wants the program to end, and reports it; the program decides, as with its quit
// command. Without it Qt would close the windows, one by one, behind the program's back.
class QtSession : public QObject
{
public:
    // theSaving is called when the session ends: what the program has to save must be saved when it returns.
    QtSession(QtReports& theReports, std::function<void()> theSaving);

    bool eventFilter(QObject* theObject, QEvent* theEvent) override;

private:
    QtReports& mReports;
    std::function<void()> mSaving;
};

} // namespace Host

#endif
