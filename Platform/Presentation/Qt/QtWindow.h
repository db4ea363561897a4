// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtWindow_h
#define QtWindow_h

#include "QtContent.h"
#include "QtInput.h"

#include <QElapsedTimer>
#include <QMenuBar>
#include <QTimer>
#include <vector>

namespace Host {

// One window of the program on the desktop: the menu bar, where it has one, and below it the content with the
// controls.
//
// A desktop has the last word on where a window is and which one is active, and it answers late. What the
// managers were told last is kept apart from what is there, and the difference is reported once things have
// settled: an answer that is still on its way must not be taken for the person's doing.
class QtWindow : public QWidget
{
public:
    // Milliseconds after which a desktop has answered a change of a place, or a wish for another active
    // window.
    static constexpr int kSettlingTime = 250;

    QtWindow(ObjectId theId, QtReports& theReports);

    ObjectId Id() const { return mLook.theId; }
    const WindowLook& Look() const { return mLook; }
    QtContent& Content() { return mContent; }
    QMenuBar& MenuBar() { return mMenuBar; }
    QtInput& Input() { return mInput; }

    // Shows everything of the look but whether the window is on the screen, so that the controls can be put
    // in before it appears.
    void Show(const WindowLook& theLook);

    // Puts the window on the screen, into the task bar, or takes it away, as the look says.
    void Appear();

    // Makes room for the menu bar above the content, or takes it away. The content stays where it is.
    void SetHasMenuBar(bool theHasMenuBar);

    // Puts widgets of the content into this order, from back to front.
    void Stack(const std::vector<QWidget*>& theWidgets);

    // Gives the keys to a widget of the window, or to none of them.
    void SetKeyWidget(QWidget* theWidget);

    // The window that this one stays in front of; null for none.
    void SetParentWindow(QtWindow* theParent);

    // Adds reports of what the desktop has done to the window since the last time.
    void CollectReports();

    // The managers have this window in front.
    void ComeToFront();

    // Whether the desktop has made this window the active one for no other reason than that it was shown.
    // Says so once.
    bool TakeActivationByShowing();

    // Takes it off the screen for good. It is deleted when Qt is done with it.
    void Retire();

protected:
    bool event(QEvent* theEvent) override;
    void closeEvent(QCloseEvent* theEvent) override;
    void changeEvent(QEvent* theEvent) override;
    void moveEvent(QMoveEvent* theEvent) override;
    void resizeEvent(QResizeEvent* theEvent) override;

private:
    // What the managers expect an answer to.
    struct Confirmation
    {
        bool theShow = false;
        bool theMove = false;
        bool theResize = false;
    };

    using Telling = void (*)(const QtWindow& theWindow, PresenterEvents& theEvents);

    void ShowFlags();
    void ShowTitle();
    void ShowPlace();
    void LimitSize(const QSize& theSize);
    QRect FrameFor(const QRect& theContent) const;
    QRect ContentPlace() const;
    void LayOut();
    void Settle();
    void Report(Telling theTelling);
    void CollectConfirmations();
    void CollectDeviations();
    void ShowTruth();
    bool IsFrameDue();

    QtReports& mReports;
    WindowLook mLook;
    QMenuBar mMenuBar;
    QtContent mContent;
    QtInput mInput;
    QRect mKnownPlace;    // of the content, as the managers know it
    QRect mDisputedPlace; // where the desktop put it against the managers' will
    Confirmation mConfirmation;
    int mMenuBarHeight = 0;    // 0 while there is none
    bool mIsDeviating = false; // the desktop has done something that was not looked at yet
    bool mIsRetired = false;
    bool mIsShownInactive = false; // until it is active, or the desktop has settled
    QTimer mSettling;              // runs while the desktop may still answer to a change of the managers
    QTimer mNextFrame;             // runs while a repaint waits for its time
    QElapsedTimer mLastFrame;
};

} // namespace Host

#endif
