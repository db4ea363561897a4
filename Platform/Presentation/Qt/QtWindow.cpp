// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtWindow.h"

#include "QtControl.h"
#include "QtMenuBar.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QWindow>

#include <algorithm>

namespace Host {

namespace {

// Milliseconds. Screens show about sixty pictures a second; more would be painted for nobody.
constexpr int kFrameTime = 16;

constexpr PixelSize kNoLimit;

// Of a content. Leaves room for the menu bar in the largest widget that Qt makes.
constexpr QSize kLargest(QWIDGETSIZE_MAX / 2, QWIDGETSIZE_MAX / 2);

Qt::WindowFlags KindOf(const WindowLook& theLook)
{
    switch (theLook.theShape) {
    case WindowShape::kDialog:
    case WindowShape::kAlert:
    case WindowShape::kSheet:
        return Qt::Dialog;
    case WindowShape::kFloating:
    case WindowShape::kUtility:
    case WindowShape::kToolbar:
        return Qt::Tool;
    case WindowShape::kPlain:
        return Qt::Window | Qt::FramelessWindowHint;
    case WindowShape::kDrawer:
        return Qt::Tool | Qt::FramelessWindowHint;
    case WindowShape::kHelp:
        return Qt::ToolTip;
    case WindowShape::kOverlay:
        return Qt::Tool | Qt::FramelessWindowHint | Qt::WindowTransparentForInput;
    case WindowShape::kDocument:
        break;
    }
    return Qt::Window;
}

Qt::WindowFlags FlagsFor(const WindowLook& theLook)
{
    Qt::WindowFlags theFlags = KindOf(theLook) | Qt::CustomizeWindowHint;
    theFlags.setFlag(Qt::WindowTitleHint, (theFlags & Qt::FramelessWindowHint) == 0);
    theFlags.setFlag(Qt::WindowSystemMenuHint, (theFlags & Qt::FramelessWindowHint) == 0);
    theFlags.setFlag(Qt::WindowCloseButtonHint, theLook.theHasCloseBox);
    theFlags.setFlag(Qt::WindowMinimizeButtonHint, theLook.theHasCollapseBox);
    theFlags.setFlag(Qt::WindowMaximizeButtonHint, theLook.theHasZoomBox);
    return theFlags;
}

QSize LimitOr(PixelSize theLimit, const QSize& theDefault)
{
    const QSize theSize = QSize(theLimit.theWidth, theLimit.theHeight).boundedTo(kLargest);
    return theLimit == kNoLimit ? theDefault : theSize.expandedTo(QSize(0, 0));
}

} // namespace

QtWindow::QtWindow(ObjectId theId, QtReports& theReports)
    : mReports(theReports),
      mMenuBar(this),
      mContent(this),
      mInput(theId, mContent, theReports)
{
    setObjectName(QStringLiteral("window %1").arg(theId));
    mMenuBar.setNativeMenuBar(false);
    mMenuBar.hide();
    mInput.SetMenuKeys(
        [this](const QKeyEvent& theEvent) { return QtMenuBar::OpenByKey(mMenuBar, theEvent); });
    mInput.Watch(*this, QtInput::MouseUse::kNone);
    mInput.Watch(mContent, QtInput::MouseUse::kManagers);
    mSettling.setSingleShot(true);
    mNextFrame.setSingleShot(true);
    connect(&mNextFrame, &QTimer::timeout, this,
            [this] { QCoreApplication::postEvent(this, new QEvent(QEvent::UpdateRequest)); });
}

// Looks ------------------------------------------------------------------------------------------------

void QtWindow::Show(const WindowLook& theLook)
{
    mLook = theLook;
    const QPoint thePlace = ToQRect(theLook.theContent).topLeft();
    mInput.SetContentPlace({thePlace.x(), thePlace.y()});
    ShowFlags();
    ShowTitle();
    ShowPlace();
}

void QtWindow::ShowFlags()
{
    const Qt::WindowFlags theFlags = FlagsFor(mLook);
    if (theFlags != windowFlags()) {
        // Qt hides a window to change its kind; Appear shows it again.
        setWindowFlags(theFlags);
    }
    setAttribute(Qt::WA_ShowWithoutActivating, !mLook.theIsActive);
}

// Qt puts its sign of unsaved changes in the place of "[*]", and wants a real one written twice.
void QtWindow::ShowTitle()
{
    const QString kPlaceholder = QStringLiteral("[*]");
    QString theTitle = QString::fromStdString(mLook.theTitle);
    setWindowTitle(theTitle.replace(kPlaceholder, kPlaceholder + kPlaceholder) + kPlaceholder);
    setWindowModified(mLook.theIsModified);
}

void QtWindow::ShowPlace()
{
    const QRect thePlace = ToQRect(mLook.theContent);
    LimitSize(thePlace.size());
    if (thePlace == mKnownPlace) {
        return;
    }
    mConfirmation.theMove |= thePlace.topLeft() != mKnownPlace.topLeft();
    mConfirmation.theResize |= thePlace.size() != mKnownPlace.size();
    mKnownPlace = thePlace;
    Settle();
    setGeometry(FrameFor(thePlace));
    LayOut();
}

void QtWindow::LimitSize(const QSize& theSize)
{
    const QSize theRest(0, mMenuBarHeight);
    if (mLook.theIsResizable) {
        const QSize theMost(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        setMinimumSize(LimitOr(mLook.theSmallest, QSize(1, 1)) + theRest);
        setMaximumSize((LimitOr(mLook.theLargest, theMost - theRest) + theRest).boundedTo(theMost));
    } else {
        setMinimumSize(theSize + theRest);
        setMaximumSize(theSize + theRest);
    }
}

void QtWindow::Appear()
{
    const bool theWasShown = isVisible() && !isMinimized();
    const bool theIsShown = mLook.theIsVisible && !mLook.theIsCollapsed;
    if (!mLook.theIsVisible) {
        setVisible(false);
        mConfirmation = Confirmation();
    } else if (mLook.theIsCollapsed) {
        mConfirmation = Confirmation();
        if (!isVisible() || !isMinimized()) {
            Settle();
            showMinimized();
        }
    } else if (!theWasShown) {
        Settle();
        isMinimized() ? showNormal() : show();
    }
    if (theIsShown && !theWasShown) {
        mConfirmation = {true, true, true};
    }
    mIsShownInactive |= mLook.theIsVisible && !theWasShown && !mLook.theIsActive;
}

// The height is kept: what the bar asks for may change when it is seen, and the content must not move with
// it.
void QtWindow::SetHasMenuBar(bool theHasMenuBar)
{
    mMenuBar.ensurePolished();
    mMenuBar.setVisible(theHasMenuBar);
    const int theHeight = theHasMenuBar ? mMenuBar.sizeHint().height() : 0;
    const bool theIsChanged = std::exchange(mMenuBarHeight, theHeight) != theHeight;
    if (theIsChanged && !mKnownPlace.isNull()) {
        LimitSize(mKnownPlace.size());
        Settle();
        setGeometry(FrameFor(mKnownPlace));
        LayOut();
    }
}

// The first ones that stand in this order already stay: raising a widget paints it and what it covers.
void QtWindow::Stack(const std::vector<QWidget*>& theWidgets)
{
    auto theNext = theWidgets.begin();
    for (const QObject* theChild : mContent.children()) {
        theNext += theNext != theWidgets.end() && theChild == *theNext ? 1 : 0;
    }
    std::for_each(theNext, theWidgets.end(), [](QWidget* theWidget) { theWidget->raise(); });
}

void QtWindow::SetKeyWidget(QWidget* theWidget)
{
    QWidget& theTarget = theWidget == nullptr ? mContent : *theWidget;
    if (focusWidget() != &theTarget) {
        theTarget.setFocus(Qt::OtherFocusReason);
        // The focus always shows, as it does on the platform. Qt hides it from those who use the mouse.
        setAttribute(Qt::WA_KeyboardFocusChange);
    }
}

void QtWindow::SetParentWindow(QtWindow* theParent)
{
    winId();
    QWindow* const theHandle = theParent == nullptr ? nullptr : theParent->windowHandle();
    if (windowHandle() != nullptr && windowHandle()->transientParent() != theHandle) {
        windowHandle()->setTransientParent(theHandle);
    }
}

void QtWindow::ComeToFront()
{
    raise();
}

bool QtWindow::TakeActivationByShowing()
{
    return std::exchange(mIsShownInactive, false) && mSettling.isActive() && !mLook.theIsActive;
}

void QtWindow::Retire()
{
    mIsRetired = true;
    mInput.ReleaseKeys();
    hide();
    deleteLater();
}

// Places -----------------------------------------------------------------------------------------------

QRect QtWindow::FrameFor(const QRect& theContent) const
{
    return theContent.adjusted(0, -mMenuBarHeight, 0, 0);
}

QRect QtWindow::ContentPlace() const
{
    return geometry().adjusted(0, mMenuBarHeight, 0, 0);
}

void QtWindow::LayOut()
{
    mMenuBar.setGeometry(0, 0, width(), mMenuBarHeight);
    mContent.setGeometry(0, mMenuBarHeight, width(), std::max(height() - mMenuBarHeight, 0));
}

// Events -----------------------------------------------------------------------------------------------

bool QtWindow::IsFrameDue()
{
    if (mLastFrame.isValid() && mLastFrame.elapsed() < kFrameTime) {
        return false;
    }
    mLastFrame.start();
    return true;
}

bool QtWindow::event(QEvent* theEvent)
{
    if (theEvent->type() == QEvent::UpdateRequest && !IsFrameDue()) {
        if (!mNextFrame.isActive()) {
            mNextFrame.start(kFrameTime - static_cast<int>(mLastFrame.elapsed()));
        }
        return true;
    }
    if (theEvent->type() == QEvent::WindowDeactivate && !mIsRetired) {
        mInput.ReleaseKeys();
    }
    return QWidget::event(theEvent);
}

void QtWindow::closeEvent(QCloseEvent* theEvent)
{
    // The program closes it, or does not.
    theEvent->ignore();
    Report(
        [](const QtWindow& theWindow, PresenterEvents& theEvents) { theEvents.CloseAsked(theWindow.Id()); });
}

void QtWindow::changeEvent(QEvent* theEvent)
{
    mIsDeviating |= theEvent->type() == QEvent::WindowStateChange;
    QWidget::changeEvent(theEvent);
}

void QtWindow::moveEvent(QMoveEvent* theEvent)
{
    mIsDeviating = true;
    QWidget::moveEvent(theEvent);
}

void QtWindow::resizeEvent(QResizeEvent* theEvent)
{
    mIsDeviating = true;
    LayOut();
    QWidget::resizeEvent(theEvent);
}

// Reports ----------------------------------------------------------------------------------------------

void QtWindow::Settle()
{
    mSettling.start(kSettlingTime);
}

void QtWindow::Report(Telling theTelling)
{
    const QPointer<QtWindow> theWindow(this);
    mReports.Add([theWindow, theTelling](PresenterEvents& theEvents) {
        if (theWindow != nullptr && !theWindow->mIsRetired) {
            theTelling(*theWindow, theEvents);
        }
    });
}

void QtWindow::CollectReports()
{
    CollectConfirmations();
    if (mIsDeviating && !mSettling.isActive()) {
        mIsDeviating = false;
        CollectDeviations();
    }
}

void QtWindow::CollectConfirmations()
{
    const Confirmation theDue = std::exchange(mConfirmation, Confirmation());
    if (!isVisible() || isMinimized()) {
        return;
    }
    if (theDue.theShow) {
        Report([](const QtWindow& theWindow, PresenterEvents& theEvents) {
            theEvents.WindowShown(theWindow.Id());
        });
    }
    if (theDue.theMove) {
        Report([](const QtWindow& theWindow, PresenterEvents& theEvents) {
            theEvents.WindowMoved(theWindow.Id(), {theWindow.mKnownPlace.x(), theWindow.mKnownPlace.y()});
        });
    }
    if (theDue.theResize) {
        Report([](const QtWindow& theWindow, PresenterEvents& theEvents) {
            theEvents.WindowResized(theWindow.Id(),
                                    {theWindow.mKnownPlace.width(), theWindow.mKnownPlace.height()});
        });
    }
}

void QtWindow::CollectDeviations()
{
    if (!isVisible()) {
        return;
    }
    if (isMinimized() != mLook.theIsCollapsed) {
        Report([](const QtWindow& theWindow, PresenterEvents& theEvents) {
            theEvents.CollapseAsked(theWindow.Id(), theWindow.isMinimized());
        });
    } else if (!isMinimized() && ContentPlace() != mKnownPlace && ContentPlace() != mDisputedPlace) {
        const QRect theOld = std::exchange(mKnownPlace, ContentPlace());
        if (theOld.topLeft() != mKnownPlace.topLeft()) {
            Report([](const QtWindow& theWindow, PresenterEvents& theEvents) {
                theEvents.WindowMoved(theWindow.Id(), {theWindow.mKnownPlace.x(), theWindow.mKnownPlace.y()});
            });
        }
        if (theOld.size() != mKnownPlace.size()) {
            Report([](const QtWindow& theWindow, PresenterEvents& theEvents) {
                theEvents.WindowResized(theWindow.Id(),
                                        {theWindow.mKnownPlace.width(), theWindow.mKnownPlace.height()});
            });
        }
    } else {
        return;
    }
    const QPointer<QtWindow> theWindow(this);
    mReports.Add([theWindow](PresenterEvents&) {
        if (theWindow != nullptr && !theWindow->mIsRetired) {
            theWindow->ShowTruth();
        }
    });
}

// The managers need not have followed the desktop. A desktop that insists gets its way: the two must not push
// a window to and fro for ever.
void QtWindow::ShowTruth()
{
    const QRect thePlace = ToQRect(mLook.theContent);
    if (thePlace != mKnownPlace) {
        mDisputedPlace = mKnownPlace;
        ShowPlace();
    }
    Appear();
}

} // namespace Host
