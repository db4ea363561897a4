// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Events that let an application fill its menus and bring their items up to date, and the sending of
// commands.

#include "Menu.h"

#include "Events/OutgoingEvent.h"
#include "Menus.h"

#include <utility>

namespace Host {

namespace {

// The items of a menu that somebody asked to have brought up to date.
void RunPendingEnabling(const SharedMenu& theMenu)
{
    if (theMenu != nullptr && theMenu->mWantsEnabling) {
        theMenu->mWantsEnabling = false;
        EnableMenuItems(theMenu, kMenuContextMenuBar | kMenuContextMenuEnabling);
    }
}

void RunPendingEnabling()
{
    const SharedMenu theRoot = RootMenu();
    if (theRoot == nullptr) {
        return;
    }
    for (MenuItemIndex theItem = 1; theItem <= theRoot->Count(); ++theItem) {
        RunPendingEnabling(theRoot->Submenu(theItem));
    }
}

bool gHasPendingEnabling = false;

} // namespace

void PopulateMenu(const SharedMenu& theMenu, UInt32 theContext, MenuCommand theCommand)
{
    // Looking for a command asks every menu, and hardly any menu fills itself.
    if (!IsAwaited(theMenu->Target(), {kEventClassMenu, kEventMenuPopulate})) {
        return;
    }
    OutgoingEvent theEvent(kEventClassMenu, kEventMenuPopulate);
    theEvent.Set(kEventParamDirectObject, typeMenuRef, theMenu->Reference());
    theEvent.Set(kEventParamMenuContext, typeUInt32, theContext);
    if ((theContext & kMenuContextCommandIDSearch) != 0) {
        theEvent.Set(kEventParamMenuCommand, typeMenuCommand, theCommand);
    }
    theEvent.SendTo(theMenu->Target(), kEventTargetSendToAllHandlers);
}

void EnableMenuItems(const SharedMenu& theMenu, UInt32 theContext)
{
    OutgoingEvent theEvent(kEventClassMenu, kEventMenuEnableItems);
    theEvent.Set(kEventParamDirectObject, typeMenuRef, theMenu->Reference());
    theEvent.Set(kEventParamEnableMenuForKeyEvent, typeBoolean,
                 static_cast<Boolean>((theContext & kMenuContextKeyMatching) != 0));
    theEvent.Set(kEventParamMenuContext, typeUInt32, theContext);
    theEvent.SendTo(theMenu->Target());
    for (MenuItemIndex theItem = 1; theItem <= theMenu->Count(); ++theItem) {
        UpdateMenuItem(theMenu, theItem, theContext);
    }
}

void UpdateMenuItem(const SharedMenu& theMenu, MenuItemIndex theItem, UInt32 theContext)
{
    if (theMenu->Item(theItem)->Is(kMenuItemAttrSeparator)) {
        return;
    }
    OutgoingEvent theEvent(kEventClassCommand, kEventCommandUpdateStatus);
    theEvent.Set(kEventParamDirectObject, typeHICommand, CommandOf(theMenu, theItem));
    theEvent.Set(kEventParamMenuContext, typeUInt32, theContext);
    const OSStatus theStatus = theEvent.SendTo(theMenu->Target());
    const MenuItem* theUpdated = theMenu->Item(theItem);
    if (theStatus == eventNotHandledErr && theUpdated != nullptr &&
        theUpdated->Is(kMenuItemAttrAutoDisable)) {
        DisableMenuItem(theMenu->Reference(), theItem);
    }
}

bool IsChoosable(const SharedMenu& theMenu, MenuItemIndex theItem)
{
    const MenuItem* theFound = theMenu->Item(theItem);
    return theFound != nullptr && theMenu->mIsEnabled && theFound->IsEnabled() &&
           !theFound->Is(kMenuItemAttrSeparator) && !theFound->Is(kMenuItemAttrSectionHeader) &&
           (theMenu->Submenu(theItem) == nullptr || theFound->Is(kMenuItemAttrSubmenuParentChoosable));
}

HICommand CommandOf(const SharedMenu& theMenu, MenuItemIndex theItem)
{
    HICommand theCommand{};
    theCommand.attributes = kHICommandFromMenu;
    theCommand.commandID = theMenu->Item(theItem)->theCommand;
    theCommand.menu.menuRef = theMenu->Reference();
    theCommand.menu.menuItemIndex = theItem;
    return theCommand;
}

OSStatus SendMenuCommand(const SharedMenu& theMenu, MenuItemIndex theItem, UInt32 theContext,
                         const UInt32* theModifiers)
{
    OutgoingEvent theEvent(kEventClassCommand, kEventCommandProcess);
    theEvent.Set(kEventParamDirectObject, typeHICommand, CommandOf(theMenu, theItem));
    if (theModifiers != nullptr) {
        theEvent.Set(kEventParamKeyModifiers, typeUInt32, *theModifiers);
    }
    theEvent.Set(kEventParamMenuContext, typeUInt32, theContext);
    return theEvent.SendTo(theMenu->Target());
}

bool CatchUpWithMenus()
{
    const bool theIsEnabling = std::exchange(gHasPendingEnabling, false);
    if (theIsEnabling) {
        RunPendingEnabling();
    }
    return ShowChangedMenuBar() || theIsEnabling;
}

} // namespace Host

using namespace Host;

OSStatus InvalidateMenuEnabling(MenuRef inMenu)
{
    const SharedMenu theMenu = FindMenu(inMenu);
    if (theMenu == nullptr && inMenu != nullptr) {
        return menuInvalidErr;
    }
    const SharedMenu theRoot = RootMenu();
    for (MenuItemIndex theItem = 1; theRoot != nullptr && theItem <= theRoot->Count(); ++theItem) {
        const SharedMenu theTopLevel = theRoot->Submenu(theItem);
        if (theTopLevel != nullptr && (inMenu == nullptr || theTopLevel == theMenu)) {
            theTopLevel->mWantsEnabling = true;
            gHasPendingEnabling = true;
        }
    }
    return noErr;
}
