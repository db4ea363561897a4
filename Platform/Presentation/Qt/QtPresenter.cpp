// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtPresenter.h"

#include "QtApplication.h"
#include "QtControl.h"
#include "QtEventPump.h"
#include "QtMenuBar.h"
#include "QtMenuWindow.h"
#include "QtNames.h"
#include "QtScreenshot.h"
#include "QtSession.h"
#include "QtWindow.h"

#include <Presentation/PresenterEvents.h>
#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QFontMetrics>
#include <QScreen>
#include <QtMath>

#include <algorithm>
#include <tuple>

namespace Host {

namespace {

PixelRect ToPixelRect(const QRect& theRect)
{
    return {theRect.x(), theRect.y(), theRect.x() + theRect.width(), theRect.y() + theRect.height()};
}

// Small texts are that much smaller than those of the desktop.
constexpr double kSmallShare = 0.85;

QFont FontOf(TextStyle theStyle)
{
    QFont theFont = QApplication::font();
    if (theStyle == TextStyle::kSmall) {
        theFont.setPointSizeF(theFont.pointSizeF() * kSmallShare);
    }
    theFont.setBold(theStyle == TextStyle::kEmphasis);
    return theFont;
}

// Whether the control, or one that it is the label of, may be called otherwise.
bool IsNamedAnew(const ControlLook& theOld, const ControlLook& theNew)
{
    const bool theIsLabel = theNew.theShape == ControlShape::kStaticText;
    return theOld.theShape != theNew.theShape || theOld.theTitle != theNew.theTitle ||
           theOld.theBounds != theNew.theBounds || theOld.theIsVisible != theNew.theIsVisible ||
           theOld.theTakesFocus != theNew.theTakesFocus || (theIsLabel && theOld.theText != theNew.theText);
}

// Puts the widgets of theParent, and of all that is in it, at the end of theWidgets. theControls are in the
// order of their parents and of their places there.
template <class Controls>
void AddBranch(const Controls& theControls, ObjectId theParent, std::vector<QWidget*>& theWidgets)
{
    auto theEntry = std::lower_bound(
        theControls.begin(), theControls.end(), theParent,
        [](const auto* theControl, ObjectId theOther) { return theControl->theLook.theParent < theOther; });
    for (; theEntry != theControls.end() && (*theEntry)->theLook.theParent == theParent; ++theEntry) {
        if ((*theEntry)->theControl != nullptr) {
            theWidgets.push_back(&(*theEntry)->theControl->Widget());
        }
        AddBranch(theControls, (*theEntry)->theLook.theId, theWidgets);
    }
}

template <class Controls>
std::vector<QWidget*> FromBackToFront(Controls theControls)
{
    std::stable_sort(theControls.begin(), theControls.end(), [](const auto* theOne, const auto* theOther) {
        return std::tie(theOne->theLook.theParent, theOne->theLook.theOrder) <
               std::tie(theOther->theLook.theParent, theOther->theLook.theOrder);
    });
    std::vector<QWidget*> theWidgets;
    AddBranch(theControls, kNoObject, theWidgets);
    return theWidgets;
}

} // namespace

std::unique_ptr<Presenter> QtPresenter::Make()
{
    return std::make_unique<QtPresenter>();
}

QtPresenter::QtPresenter() = default;

QtPresenter::~QtPresenter()
{
    Stop();
    if (HasQtApplication()) {
        // The widgets that wait for their end refer to this.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

// Life -------------------------------------------------------------------------------------------------

bool QtPresenter::Start(PresenterEvents& theEvents)
{
    if (!PrepareQtApplication()) {
        return false;
    }
    mEvents = &theEvents;
    mPump = std::make_unique<QtEventPump>();
    mMenuBar = std::make_unique<QtMenuBar>(mReports, [this](ObjectId theMenu) { OpenMenu(theMenu); });
    mSession = std::make_unique<QtSession>(mReports, [this] { EndSession(); });
    return true;
}

std::string QtPresenter::Complaint() const
{
    return "there is no display, neither DISPLAY nor WAYLAND_DISPLAY leads to one";
}

bool QtPresenter::IsRunning() const
{
    return mEvents != nullptr && HasQtApplication();
}

void QtPresenter::Stop()
{
    mEvents = nullptr;
    if (HasQtApplication()) {
        Forget();
    }
}

// The pump stays: a wait may be going on in it.
void QtPresenter::Forget()
{
    mPointer.Show({});
    mControls.clear();
    for (const auto& theEntry : mWindows) {
        if (theEntry.second.theWindow != nullptr) {
            theEntry.second.theWindow->Retire();
        }
    }
    mWindows.clear();
    if (mMenuWindow != nullptr) {
        mMenuWindow->hide();
        mMenuWindow->deleteLater();
        mMenuWindow = nullptr;
    }
    mMenuBar = nullptr;
    mSession = nullptr;
    mMenuLook = {};
    mIsMenuChanged = false;
    mChangedWindows.clear();
    mChangedControls.clear();
    mUnstackedWindows.clear();
    mUnnamedWindows.clear();
    mStack.clear();
    mFocusedWindow = kNoObject;
    mFocusedControl = kNoObject;
    mActiveWindow = kNoObject;
    mActivations.clear();
    mReports.Clear();
}

// What there is ----------------------------------------------------------------------------------------

std::vector<ScreenLook> QtPresenter::Screens() const
{
    if (!IsRunning()) {
        return Presenter::Screens();
    }
    std::vector<ScreenLook> theScreens;
    QList<QScreen*> theAll = QGuiApplication::screens();
    theAll.removeOne(QGuiApplication::primaryScreen());
    theAll.prepend(QGuiApplication::primaryScreen());
    for (const QScreen* theScreen : std::as_const(theAll)) {
        theScreens.push_back(
            {ToPixelRect(theScreen->geometry()), ToPixelRect(theScreen->availableGeometry())});
    }
    return theScreens;
}

// A window that has not been shown yet will be on the main screen.
int QtPresenter::ScaleOf(ObjectId theWindow) const
{
    const QWidget* const theWidget = FindWindowWidget(theWindow);
    const qreal theRatio = theWidget == nullptr ? qApp->devicePixelRatio() : theWidget->devicePixelRatio();
    return qCeil(theRatio);
}

std::string QtPresenter::ClipboardText() const
{
    return IsRunning() ? QGuiApplication::clipboard()->text().toStdString() : Presenter::ClipboardText();
}

void QtPresenter::SetClipboardText(const std::string& theText)
{
    if (IsRunning()) {
        QGuiApplication::clipboard()->setText(QString::fromStdString(theText));
    } else {
        Presenter::SetClipboardText(theText);
    }
}

PixelSize QtPresenter::MeasureText(const std::string& theText, TextStyle theStyle) const
{
    if (!IsRunning()) {
        return Presenter::MeasureText(theText, theStyle);
    }
    const QFontMetrics theMetrics(FontOf(theStyle));
    return {theMetrics.horizontalAdvance(QString::fromStdString(theText)), theMetrics.height()};
}

// Looks ------------------------------------------------------------------------------------------------

void QtPresenter::WindowLooks(const WindowLook& theLook)
{
    if (IsRunning()) {
        mWindows[theLook.theId].theLook = theLook;
        mChangedWindows.insert(theLook.theId);
        mIsOrderChanged = true;
    }
}

void QtPresenter::WindowGone(ObjectId theWindow)
{
    const auto theEntry = mWindows.find(theWindow);
    if (!IsRunning() || theEntry == mWindows.end()) {
        return;
    }
    for (auto theControl = mControls.begin(); theControl != mControls.end();) {
        const bool theIsInside = theControl->second.theLook.theWindow == theWindow;
        theControl = theIsInside ? mControls.erase(theControl) : std::next(theControl);
    }
    if (theEntry->second.theWindow != nullptr) {
        theEntry->second.theWindow->Retire();
    }
    mWindows.erase(theEntry);
    mIsOrderChanged = true;
}

void QtPresenter::ControlLooks(const ControlLook& theLook)
{
    if (!IsRunning()) {
        return;
    }
    const auto theEntry = mControls.find(theLook.theId);
    const bool theIsNew = theEntry == mControls.end();
    if (theIsNew || theEntry->second.theLook.theOrder != theLook.theOrder ||
        theEntry->second.theLook.theParent != theLook.theParent) {
        mUnstackedWindows.insert(theLook.theWindow);
    }
    if (theIsNew || IsNamedAnew(theEntry->second.theLook, theLook)) {
        mUnnamedWindows.insert(theLook.theWindow);
    }
    mControls[theLook.theId].theLook = theLook;
    mChangedControls.insert(theLook.theId);
}

void QtPresenter::ControlGone(ObjectId theControl)
{
    const auto theEntry = mControls.find(theControl);
    if (IsRunning() && theEntry != mControls.end()) {
        mUnnamedWindows.insert(theEntry->second.theLook.theWindow);
        mControls.erase(theEntry);
    }
}

void QtPresenter::MenuBarLooks(const MenuBarLook& theLook)
{
    if (IsRunning()) {
        mMenuLook = theLook;
        mIsMenuChanged = true;
    }
}

void QtPresenter::FocusIsAt(ObjectId theWindow, ObjectId theControl)
{
    mFocusedWindow = theWindow;
    mFocusedControl = theControl;
}

void QtPresenter::PointerLooks(const PointerLook& theLook)
{
    if (IsRunning()) {
        mPointer.Show(theLook);
    }
}

void QtPresenter::Beep()
{
    if (IsRunning()) {
        QApplication::beep();
    }
}

QWidget* QtPresenter::FindWindowWidget(ObjectId theWindow) const
{
    const auto theEntry = mWindows.find(theWindow);
    return theEntry == mWindows.end() ? nullptr : theEntry->second.theWindow;
}

QWidget* QtPresenter::FindControlWidget(ObjectId theControl) const
{
    const auto theEntry = mControls.find(theControl);
    const bool theHasWidget = theEntry != mControls.end() && theEntry->second.theControl != nullptr;
    return theHasWidget ? &theEntry->second.theControl->Widget() : nullptr;
}

// Showing ----------------------------------------------------------------------------------------------

// Windows are filled before they appear and appear before they are stacked.
void QtPresenter::ShowNow()
{
    if (!IsRunning()) {
        return;
    }
    ShowMenus();
    ShowChangedWindows();
    ShowFocus();
}

void QtPresenter::ShowMenus()
{
    if (!mIsMenuChanged) {
        return;
    }
    mIsMenuChanged = false;
    mMenuBar->Show(mMenuLook);
    for (const auto& theEntry : mWindows) {
        if (QtWindow* theWindow = theEntry.second.theWindow) {
            mMenuBar->Fill(theWindow->MenuBar());
            theWindow->SetHasMenuBar(CarriesMenuBar(theWindow->Look()));
        }
    }
}

// A desktop has no menu bar of its own to show the program's in, so the document windows carry it.
bool QtPresenter::CarriesMenuBar(const WindowLook& theLook) const
{
    return theLook.theShape == WindowShape::kDocument && mMenuBar->IsShown();
}

void QtPresenter::ShowMenuWindow()
{
    const std::vector<QtWindow*> theWindows = WindowsFrontToBack();
    const bool theIsNeeded = mMenuBar->IsShown() &&
                             std::none_of(theWindows.begin(), theWindows.end(), [this](QtWindow* theWindow) {
                                 return CarriesMenuBar(theWindow->Look());
                             });
    if (theIsNeeded && mMenuWindow == nullptr) {
        mMenuWindow = new QtMenuWindow(mReports);
    }
    if (theIsNeeded) {
        mMenuBar->Fill(mMenuWindow->MenuBar());
    }
    if (mMenuWindow != nullptr) {
        mMenuWindow->SetIsNeeded(theIsNeeded);
    }
}

void QtPresenter::ShowChangedWindows()
{
    const std::set<ObjectId> theChanged = std::exchange(mChangedWindows, {});
    for (const ObjectId theId : theChanged) {
        const auto theEntry = mWindows.find(theId);
        if (theEntry != mWindows.end()) {
            ShowWindow(theEntry->second);
        }
    }
    ShowChangedControls();
    for (const ObjectId theId : theChanged) {
        if (auto* theWindow = static_cast<QtWindow*>(FindWindowWidget(theId))) {
            theWindow->Appear();
        }
    }
    StackWindows();
}

void QtPresenter::ShowWindow(WindowEntry& theEntry)
{
    const WindowLook& theLook = theEntry.theLook;
    const bool theIsNew = theEntry.theWindow == nullptr;
    if (theIsNew && !theLook.theIsVisible) {
        return;
    }
    if (theIsNew) {
        theEntry.theWindow = new QtWindow(theLook.theId, mReports);
        mMenuBar->Fill(theEntry.theWindow->MenuBar());
        AddControlsOf(theLook.theId);
    } else if (theEntry.theWindow->Look().theIsActive != theLook.theIsActive) {
        AddControlsOf(theLook.theId);
    }
    theEntry.theWindow->SetHasMenuBar(CarriesMenuBar(theLook));
    theEntry.theWindow->Show(theLook);
}

void QtPresenter::AddControlsOf(ObjectId theWindow)
{
    for (const auto& theEntry : mControls) {
        if (theEntry.second.theLook.theWindow == theWindow) {
            mChangedControls.insert(theEntry.first);
        }
    }
    mUnstackedWindows.insert(theWindow);
}

void QtPresenter::ShowChangedControls()
{
    for (const ObjectId theId : std::exchange(mChangedControls, {})) {
        const auto theEntry = mControls.find(theId);
        if (theEntry != mControls.end()) {
            ShowControl(theEntry->second);
        }
    }
    for (const auto& theEntry : mWindows) {
        if (theEntry.second.theWindow != nullptr) {
            theEntry.second.theWindow->Content().RepaintChanged();
        }
    }
    for (const ObjectId theId : std::exchange(mUnstackedWindows, {})) {
        StackControls(theId);
    }
    for (const ObjectId theId : std::exchange(mUnnamedWindows, {})) {
        NameControls(theId);
    }
}

void QtPresenter::ShowControl(ControlEntry& theEntry)
{
    auto* const theWindow = static_cast<QtWindow*>(FindWindowWidget(theEntry.theLook.theWindow));
    if (theWindow == nullptr) {
        return;
    }
    if (theEntry.theControl == nullptr || !theEntry.theControl->Suits(theEntry.theLook)) {
        theEntry.theControl = QtControl::Make(theEntry.theLook, theWindow->Input(), theWindow->Content());
        mUnstackedWindows.insert(theEntry.theLook.theWindow);
        mUnnamedWindows.insert(theEntry.theLook.theWindow);
    }
    theEntry.theControl->Show(theEntry.theLook, theWindow->Look().theIsActive);
}

std::vector<const QtPresenter::ControlEntry*> QtPresenter::ControlsOf(ObjectId theWindow) const
{
    std::vector<const ControlEntry*> theControls;
    for (const auto& theEntry : mControls) {
        if (theEntry.second.theLook.theWindow == theWindow) {
            theControls.push_back(&theEntry.second);
        }
    }
    return theControls;
}

// For screen readers; nobody sees it.
void QtPresenter::NameControls(ObjectId theWindow)
{
    const std::vector<const ControlEntry*> theControls = ControlsOf(theWindow);
    SpokenNames theNames;
    for (const ControlEntry* theEntry : theControls) {
        theNames.Add(theEntry->theLook);
    }
    for (const ControlEntry* theEntry : theControls) {
        if (theEntry->theControl != nullptr) {
            theEntry->theControl->Name(theNames.NameOf(theEntry->theLook),
                                       theNames.GroupOf(theEntry->theLook));
        }
    }
}

// All widgets of a window are neighbours; what is inside another control lies over it.
void QtPresenter::StackControls(ObjectId theWindow)
{
    auto* const theWidget = static_cast<QtWindow*>(FindWindowWidget(theWindow));
    if (theWidget != nullptr) {
        theWidget->Stack(FromBackToFront(ControlsOf(theWindow)));
    }
}

std::vector<QtWindow*> QtPresenter::WindowsFrontToBack() const
{
    std::vector<QtWindow*> theWindows;
    for (const auto& theEntry : mWindows) {
        if (theEntry.second.theWindow != nullptr && theEntry.second.theLook.theIsVisible) {
            theWindows.push_back(theEntry.second.theWindow);
        }
    }
    std::stable_sort(theWindows.begin(), theWindows.end(), [](QtWindow* theOne, QtWindow* theOther) {
        return theOne->Look().theOrder < theOther->Look().theOrder;
    });
    return theWindows;
}

// A window that the person brought to front is there already; the others keep their order.
void QtPresenter::StackWindows()
{
    if (!std::exchange(mIsOrderChanged, false)) {
        return;
    }
    const std::vector<QtWindow*> theWindows = WindowsFrontToBack();
    if (theWindows != mStack) {
        LinkWindows(theWindows);
        mStack = theWindows;
        if (!theWindows.empty() && !theWindows.front()->isActiveWindow()) {
            theWindows.front()->ComeToFront();
        }
    }
    ActivateWindow();
}

// The desktop does as it is asked a while later, so that the active window may be one that was to be active
// before: as long as a wish is open, the last one is said again.
void QtPresenter::ActivateWindow()
{
    for (const auto& theEntry : mWindows) {
        QtWindow* const inWindow = theEntry.second.theWindow;
        const bool theIsWanted = inWindow != nullptr && inWindow->isVisible() &&
                                 inWindow->Look().theIsActive && !inWindow->Look().theIsCollapsed;
        if (theIsWanted && (!inWindow->isActiveWindow() || !mActivations.empty())) {
            inWindow->activateWindow();
            mActivations.push_back(theEntry.first);
            mActivationTime.start();
        }
    }
}

// Whether a window has become active because it was asked to. Who waits too long for an answer gets none.
bool QtPresenter::IsActivationWanted(ObjectId theWindow)
{
    const auto theWish = std::find(mActivations.begin(), mActivations.end(), theWindow);
    const bool theIsWanted =
        theWish != mActivations.end() && mActivationTime.elapsed() < QtWindow::kSettlingTime;
    mActivations.erase(mActivations.begin(), theIsWanted ? theWish + 1 : mActivations.end());
    return theIsWanted;
}

// Dialogs and palettes stay in front of the document window behind them.
void QtPresenter::LinkWindows(const std::vector<QtWindow*>& theFrontToBack)
{
    QtWindow* theDocument = nullptr;
    for (auto theWindow = theFrontToBack.rbegin(); theWindow != theFrontToBack.rend(); ++theWindow) {
        const WindowLook& theLook = (*theWindow)->Look();
        if (theLook.theShape == WindowShape::kDocument) {
            theDocument = *theWindow;
            continue;
        }
        auto* const theParent = static_cast<QtWindow*>(FindWindowWidget(theLook.theParent));
        (*theWindow)->SetParentWindow(theParent != nullptr ? theParent : theDocument);
    }
}

void QtPresenter::ShowFocus()
{
    auto* const theWindow = static_cast<QtWindow*>(FindWindowWidget(mFocusedWindow));
    if (theWindow == nullptr) {
        return;
    }
    const auto theEntry = mControls.find(mFocusedControl);
    const bool theHasWidget = theEntry != mControls.end() && theEntry->second.theControl != nullptr &&
                              theEntry->second.theLook.theWindow == mFocusedWindow;
    theWindow->SetKeyWidget(theHasWidget ? &theEntry->second.theControl->Widget() : nullptr);
}

// Waiting ----------------------------------------------------------------------------------------------

void QtPresenter::Wake()
{
    if (mPump != nullptr) {
        mPump->Wake();
    }
}

bool QtPresenter::WaitUntil(double theDeadline, double theNow)
{
    if (!IsRunning()) {
        return false;
    }
    ++mWaits;
    ShowNow();
    // Not earlier: a program that closes its last window most often ends.
    ShowMenuWindow();
    mPump->Poll();
    bool theHasReported = MakeReports();
    const bool theIsLook = theDeadline >= 0 && theDeadline <= theNow;
    if (!theHasReported && !theIsLook && IsRunning()) {
        theHasReported = WaitForReports(theDeadline < 0 ? -1 : theDeadline - theNow);
    }
    --mWaits;
    if (mWaits == 0 && HasQtApplication()) {
        // Outside of Qt's own loop, Qt does not do this by itself.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return theHasReported || !theIsLook;
}

// Qt wakes for many a reason that is no news for the program.
bool QtPresenter::WaitForReports(double theSeconds)
{
    QElapsedTimer theTime;
    theTime.start();
    while (IsRunning() && !mPump->TakeWake()) {
        const double theRest = theSeconds - static_cast<double>(theTime.nsecsElapsed()) / 1e9;
        if (theSeconds >= 0 && theRest <= 0) {
            return false;
        }
        if (!TakeScreenshot()) {
            mPump->Wait(theSeconds < 0 ? -1 : theRest);
        }
        if (MakeReports()) {
            return true;
        }
    }
    return false;
}

bool QtPresenter::MakeReports()
{
    bool theHasReported = false;
    CollectReports();
    while (IsRunning() && !mReports.IsEmpty()) {
        mReports.TakeNext()(*mEvents);
        theHasReported = true;
        // A key that nobody wanted goes to a widget that shows what the handlers have made of things.
        ShowNow();
        CollectReports();
    }
    return theHasReported;
}

void QtPresenter::CollectReports()
{
    for (const auto& theEntry : mWindows) {
        if (theEntry.second.theWindow != nullptr) {
            theEntry.second.theWindow->CollectReports();
        }
    }
    CollectActivation();
}

// There are desktops that make every new window the active one, whatever they are asked for, and some become
// active when the program wants another by now. The window that the program wants to be active is made so
// again.
void QtPresenter::CollectActivation()
{
    auto* const theActive = dynamic_cast<QtWindow*>(QApplication::activeWindow());
    const ObjectId theId = theActive == nullptr ? kNoObject : theActive->Id();
    // Between two windows of the program there is a moment in which none is active.
    const bool theIsElsewhere = QGuiApplication::applicationState() != Qt::ApplicationActive;
    if (theId == mActiveWindow || (theId == kNoObject && !theIsElsewhere)) {
        return;
    }
    mActiveWindow = theId;
    const bool theIsLate =
        theActive != nullptr && IsActivationWanted(theId) && !theActive->Look().theIsActive;
    if (theIsLate || (theActive != nullptr && theActive->TakeActivationByShowing())) {
        ActivateWindow();
    } else {
        mReports.Add([this, theId](PresenterEvents& theEvents) {
            const bool theIsThere = theId == kNoObject || FindWindowWidget(theId) != nullptr;
            if (theIsThere && !theEvents.WindowActivated(theId) && theId != kNoObject) {
                ActivateWindow(); // a modal window keeps the person from this one
            }
        });
    }
}

// Menus ------------------------------------------------------------------------------------------------

// The one report that cannot wait: the menu appears as soon as this returns.
void QtPresenter::OpenMenu(ObjectId theMenu)
{
    if (IsRunning()) {
        mEvents->MenuOpened(theMenu);
        ShowNow();
    }
}

// Nor can this: the desktop goes on as soon as this returns, and what is not saved then is lost.
void QtPresenter::EndSession()
{
    if (IsRunning()) {
        mEvents->QuitAsked();
        ShowNow();
    }
}

MenuChoice QtPresenter::RunPopUp(const PopUpLook& theLook)
{
    ShowNow();
    const auto theTimers = [this] {
        const double theWait = mEvents != nullptr ? mEvents->FireTimers() : -1;
        ShowNow();
        return theWait;
    };
    const MenuChoice theChoice = IsRunning() ? QtMenuBar::Choose(theLook, theTimers) : MenuChoice();
    ReportLetGo(theLook.thePlace);
    return theChoice;
}

// The menu has kept for itself that the button came up which opened it. Where none is down, nothing comes
// of it.
void QtPresenter::ReportLetGo(PixelPoint thePlace)
{
    for (const PointerButton theButton : {PointerButton::kPrimary, PointerButton::kSecondary}) {
        PointerAction theRelease;
        theRelease.thePlace = thePlace;
        theRelease.theButton = theButton;
        mReports.AddNext([theRelease](PresenterEvents& theEvents) { theEvents.PointerReleased(theRelease); });
    }
}

// Pictures ---------------------------------------------------------------------------------------------

bool QtPresenter::TakeScreenshot()
{
    const std::vector<QtWindow*> theWindows =
        IsScreenshotWanted() ? WindowsFrontToBack() : std::vector<QtWindow*>();
    if (theWindows.empty()) {
        return false;
    }
    TakeScreenshotOf(*theWindows.front());
    mReports.Add([](PresenterEvents& theEvents) { theEvents.QuitAsked(); });
    return true;
}

} // namespace Host
