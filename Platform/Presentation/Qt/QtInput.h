// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtInput_h
#define QtInput_h

#include "QtReports.h"

#include <QMouseEvent>
#include <QObject>
#include <QPointer>
#include <QWheelEvent>
#include <QWidget>

#include <array>
#include <functional>
#include <set>
#include <utility>

namespace Host {

// Sees what the person does to the widgets of one window before the widgets do, and reports it.
//
// What the managers do by default (press a button, move on to the next field, type) is theirs alone, so the
// widgets never see it. A key that nobody wanted is given back to its widget afterwards.
class QtInput
{
public:
    // Who follows the mouse on a widget.
    enum class MouseUse
    {
        kManagers, // the managers alone
        kBoth,     // the widget as well: text is selected with it
        kWidget,   // the widget, which reports by itself what it makes of the primary button
        kNone,     // nobody: it is watched for its keys
    };

    // theContent is the widget that fills the content of the window. theReports outlives this.
    QtInput(ObjectId theWindow, QWidget& theContent, QtReports& theReports);

    void Watch(QWidget& theWidget, MouseUse theUse);
    void Unwatch(QWidget& theWidget);

    QtReports& Reports() { return mReports; }
    ObjectId WindowId() const { return mWindow; }

    // Where the content is on the screen as the managers see it: there are desktops that do not say where a
    // window is.
    void SetContentPlace(PixelPoint thePlace) { mContentPlace = thePlace; }

    // What a pointer does at a place in the content, with the primary button.
    PointerAction ActionAt(PixelPoint thePlace) const;

    // Called with a key that nobody wanted, before the widget gets it: the desktop's own keys for the menus.
    // It returns whether it was one of them.
    using MenuKeys = std::function<bool(const QKeyEvent& theEvent)>;
    void SetMenuKeys(MenuKeys theMenuKeys) { mMenuKeys = std::move(theMenuKeys); }

    // Keys that are still down are reported as up: they will be released in another window.
    void ReleaseKeys();

private:
    // Sees what arrives at the widgets of one use.
    class Watcher : public QObject
    {
    public:
        Watcher(QtInput& theInput, MouseUse theUse)
            : mInput(theInput),
              mUse(theUse)
        {
        }
        bool eventFilter(QObject* theObject, QEvent* theEvent) override
        {
            return mInput.Filter(static_cast<QWidget&>(*theObject), *theEvent, mUse);
        }

    private:
        QtInput& mInput;
        MouseUse mUse;
    };

    bool Filter(QWidget& theWidget, QEvent& theEvent, MouseUse theUse);
    bool FilterMouse(QWidget& theWidget, QMouseEvent& theEvent, MouseUse theUse);
    void ReportMouse(QWidget& theWidget, const QMouseEvent& theEvent);
    void ReportWheel(QWidget& theWidget, const QWheelEvent& theEvent);
    void ReportKey(QWidget& theWidget, const QKeyEvent& theEvent);
    void ReportKeyRelease(const QKeyEvent& theEvent);
    void ReportModifiers(Qt::KeyboardModifiers theModifiers);
    void GiveBack(QWidget& theWidget, const QEvent& theEvent);
    bool OpensMenu(const QKeyEvent& theEvent);
    void CountClick(const QMouseEvent& theEvent);
    PixelPoint PlaceOf(const QWidget& theWidget, QPointF thePoint) const;

    ObjectId mWindow;
    QWidget& mContent;
    QtReports& mReports;
    std::array<Watcher, 4> mWatchers; // by MouseUse
    PixelPoint mContentPlace;
    std::set<std::uint32_t> mKeysDown;
    std::uint32_t mModifiers = kNoModifiers;
    MenuKeys mMenuKeys;
    bool mIsGivingBack = false;
    int mClickCount = 0;
    Qt::MouseButton mClickButton = Qt::NoButton;
    quint64 mClickTime = 0;
    QPoint mClickPlace;
};

} // namespace Host

#endif
