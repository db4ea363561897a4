// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtMenuWindow_h
#define QtMenuWindow_h

#include "QtInput.h"

#include <QMenuBar>

namespace Host {

// A window with nothing but the menu bar in it, for a program that has menus and no window on the screen that
// carries them: a person must be able to reach the command that shows one.
class QtMenuWindow : public QWidget
{
public:
    explicit QtMenuWindow(QtReports& theReports);

    QMenuBar& MenuBar() { return mMenuBar; }

    // Brings it to the screen, as wide as the menus, or takes it away.
    void SetIsNeeded(bool theIsNeeded);

protected:
    // Closing it is as much as to say that the program is not needed any more.
    void closeEvent(QCloseEvent* theEvent) override;

private:
    QtReports& mReports;
    QMenuBar mMenuBar;
    QtInput mInput;
};

} // namespace Host

#endif
