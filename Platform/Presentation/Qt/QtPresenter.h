// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtPresenter_h
#define QtPresenter_h

#include "QtPointer.h"
#include "QtReports.h"

#include <map>
#include <memory>
#include <QElapsedTimer>
#include <set>
#include <vector>

#include <Presentation/Presenter.h>

class QWidget;

namespace Host {

class QtControl;
class QtEventPump;
class QtMenuBar;
class QtMenuWindow;
class QtSession;
class QtWindow;

// Shows the program on a desktop, with the widgets of Qt.
//
// What the managers say is noted and put on the screen the next time the event loop turns, so a thing that
// changes ten thousand times in between is shown once. Repaints keep to the pace of a screen even when the
// loop turns more often. What the person does is reported when the loop turns, between Qt's events.
//
// Where the environment variable LM_SCREENSHOT names a file, a picture of the front window is written to it
// as soon as there is nothing left to do, and the program is asked to quit.
class HOST_PUBLIC QtPresenter : public Presenter
{
public:
    static std::unique_ptr<Presenter> Make();

    QtPresenter();
    ~QtPresenter() override;

    bool Start(PresenterEvents& theEvents) override;
    std::string Complaint() const override;
    void Stop() override;
    std::vector<ScreenLook> Screens() const override;
    PixelSize MeasureText(const std::string& theText, TextStyle theStyle) const override;
    int ScaleOf(ObjectId theWindow) const override;
    std::string ClipboardText() const override;
    void SetClipboardText(const std::string& theText) override;
    void WindowLooks(const WindowLook& theLook) override;
    void WindowGone(ObjectId theWindow) override;
    void ControlLooks(const ControlLook& theLook) override;
    void ControlGone(ObjectId theControl) override;
    void MenuBarLooks(const MenuBarLook& theLook) override;
    void FocusIsAt(ObjectId theWindow, ObjectId theControl) override;
    void PointerLooks(const PointerLook& theLook) override;
    void Beep() override;
    MenuChoice RunPopUp(const PopUpLook& theLook) override;
    bool WaitUntil(double theDeadline, double theNow) override;
    void Wake() override;

    // Puts everything that was noted on the screen.
    void ShowNow();

    // The widget of a window or control; null while it has none. A window that was never shown has none, nor
    // have its controls.
    QWidget* FindWindowWidget(ObjectId theWindow) const;
    QWidget* FindControlWidget(ObjectId theControl) const;

private:
    void ReportLetGo(PixelPoint thePlace);
    struct WindowEntry
    {
        WindowLook theLook;
        QtWindow* theWindow = nullptr; // null until the window is shown for the first time
    };

    struct ControlEntry
    {
        ControlLook theLook;
        std::unique_ptr<QtControl> theControl;
    };

    bool IsRunning() const;
    void Forget();
    void ShowWindow(WindowEntry& theEntry);
    void ShowControl(ControlEntry& theEntry);
    void ShowMenus();
    void ShowMenuWindow();
    void ShowChangedWindows();
    void ShowChangedControls();
    void AddControlsOf(ObjectId theWindow);
    void StackControls(ObjectId theWindow);
    void NameControls(ObjectId theWindow);
    std::vector<const ControlEntry*> ControlsOf(ObjectId theWindow) const;
    void StackWindows();
    void LinkWindows(const std::vector<QtWindow*>& theFrontToBack);
    std::vector<QtWindow*> WindowsFrontToBack() const;
    void ShowFocus();
    bool CarriesMenuBar(const WindowLook& theLook) const;
    void OpenMenu(ObjectId theMenu);
    void EndSession();
    void CollectReports();
    void CollectActivation();
    void ActivateWindow();
    bool IsActivationWanted(ObjectId theWindow);
    bool MakeReports();
    bool WaitForReports(double theSeconds);
    bool TakeScreenshot();

    PresenterEvents* mEvents = nullptr; // not owned; null while stopped
    QtReports mReports;
    std::unique_ptr<QtEventPump> mPump;
    std::unique_ptr<QtMenuBar> mMenuBar;
    std::unique_ptr<QtSession> mSession;
    QtPointer mPointer;
    QtMenuWindow* mMenuWindow = nullptr; // null until it is needed
    std::map<ObjectId, WindowEntry> mWindows;
    std::map<ObjectId, ControlEntry> mControls;
    std::set<ObjectId> mChangedWindows;
    std::set<ObjectId> mChangedControls;
    std::set<ObjectId> mUnstackedWindows; // whose controls have changed places
    std::set<ObjectId> mUnnamedWindows;   // whose controls may be called otherwise now
    MenuBarLook mMenuLook;
    bool mIsMenuChanged = false;
    bool mIsOrderChanged = false;
    ObjectId mFocusedWindow = kNoObject;
    ObjectId mFocusedControl = kNoObject;
    ObjectId mActiveWindow = kNoObject; // as it was reported last
    std::vector<ObjectId> mActivations; // windows that were asked to be active, and are not yet
    QElapsedTimer mActivationTime;      // since the last of these
    std::vector<QtWindow*> mStack;      // the windows on the screen as they were stacked last
    int mWaits = 0;                     // how many WaitUntil are running, one inside another
};

} // namespace Host

#endif
