// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtMenuWindow.h"

#include "QtMenuBar.h"

#include <algorithm>
#include <QCloseEvent>
#include <QCoreApplication>

namespace Host {

namespace {

// Room for the title and the buttons of the frame.
constexpr int kSmallestWidth = 240;

} // namespace

QtMenuWindow::QtMenuWindow(QtReports& theReports)
    : mReports(theReports),
      mMenuBar(this),
      mInput(kNoObject, *this, theReports)
{
    setObjectName(QStringLiteral("menu window"));
    setWindowTitle(QCoreApplication::applicationName());
    mMenuBar.setNativeMenuBar(false);
    mInput.SetMenuKeys(
        [this](const QKeyEvent& theEvent) { return QtMenuBar::OpenByKey(mMenuBar, theEvent); });
    mInput.Watch(*this, QtInput::MouseUse::kNone);
}

void QtMenuWindow::SetIsNeeded(bool theIsNeeded)
{
    if (theIsNeeded) {
        const QSize theWish = mMenuBar.sizeHint();
        const QSize theSize(std::max(theWish.width(), kSmallestWidth), theWish.height());
        setFixedSize(theSize);
        mMenuBar.setGeometry(QRect(QPoint(), theSize));
    }
    setVisible(theIsNeeded);
}

void QtMenuWindow::closeEvent(QCloseEvent* theEvent)
{
    theEvent->ignore();
    mReports.Add([](PresenterEvents& theEvents) { theEvents.QuitAsked(); });
}

} // namespace Host
