// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtMenuBar_h
#define QtMenuBar_h

#include "QtReports.h"

#include <functional>
#include <map>
#include <memory>
#include <QMenu>
#include <QPointer>

class QKeyEvent;
class QMenuBar;

namespace Host {

// The menus of the program. There is one of each; the menu bars of all windows show the same.
class QtMenuBar
{
public:
    // Called when a menu is about to be shown: brings it up to date before it is.
    using Opening = std::function<void(ObjectId theMenu)>;

    QtMenuBar(QtReports& theReports, Opening theOpening);
    ~QtMenuBar();
    QtMenuBar(const QtMenuBar&) = delete;
    QtMenuBar& operator=(const QtMenuBar&) = delete;

    void Show(const MenuBarLook& theLook);

    // Whether there is anything to show.
    bool IsShown() const { return mLook.theIsShown && !mLook.theMenus.empty(); }

    // Puts the menus into the bar of a window.
    void Fill(QMenuBar& theBar) const;

    // Opens a menu of a window's bar where the key is one of the desktop's for it: F10 opens the first, Alt
    // with the letter that is underlined in its title that menu. False when it is no such key.
    static bool OpenByKey(QMenuBar& theBar, const QKeyEvent& theEvent);

    // Shows a menu by itself and waits for the choice. Meanwhile theTimers is called whenever time has come:
    // it returns after how many seconds it is to be called again, a negative number for never.
    static MenuChoice Choose(const PopUpLook& theLook, const std::function<double()>& theTimers);

private:
    struct Menu;
    using SharedMenu = std::shared_ptr<Menu>;
    using Menus = std::map<ObjectId, SharedMenu>;

    SharedMenu MenuFor(const MenuLook& theLook, Menus& theKept);
    void ShowTitles();
    void ShowItems(Menu& theMenu, const MenuLook& theLook, Menus& theKept);
    void Connect(const SharedMenu& theMenu);

    QtReports& mReports;
    Opening mOpening;
    MenuBarLook mLook;
    Menus mMenus;
};

} // namespace Host

#endif
