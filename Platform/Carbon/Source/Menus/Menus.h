// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Menus_Menus_h
#define Menus_Menus_h

#include "Base/ObjectIds.h"

#include <Carbon/Carbon.h>

namespace Host {

class Presenter;

// What a person does to menus, called by the input gate. Menus are named by the identifiers that presenters
// know them by; one that is gone is ignored. Each returns whether anything was delivered.

// A menu of the bar was pulled down, or a submenu of an open menu. Sends, when no menu was open,
// kEventMenuBeginTracking; then kEventMenuPopulate, kEventMenuEnableItems, kEventCommandUpdateStatus for each
// item, and kEventMenuOpening. False when a handler refused.
bool MenuOpenedByPerson(ObjectId theMenu);

// An item was chosen. Open menus close as MenuClosedByPerson says, then the item's command is sent. False
// when it cannot be chosen: disabled, hidden, a separator, or held by something disabled.
bool MenuChosenByPerson(ObjectId theMenu, MenuItemIndex theItem, UInt32 theModifiers);

// The menu, and those opened from it, closed without a choice: kEventMenuClosed for each, the innermost
// first, and kEventMenuEndTracking after the last.
bool MenuClosedByPerson(ObjectId theMenu);

// Tells a presenter what the menu bar looks like.
void ReplayMenuLooks(Presenter& thePresenter);

// Answers whether a person is kept from the menus of the bar: they look disabled, and cannot be opened or
// chosen from, by keys either. Asked each time. Null: never.
using BarHolder = bool (*)();
void SetBarHolder(BarHolder theHolder);

// Does what the menus have put off: brings the items of menus up to date that InvalidateMenuEnabling named,
// and shows the bar when it has changed. The event loop has it called before it waits; the gate may call it
// after a person's action. Answers whether there was something to do.
bool CatchUpWithMenus();

} // namespace Host

#endif
