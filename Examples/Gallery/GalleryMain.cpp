// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A window with every kind of control, and a menu with every kind of item.

#include "GalleryWindow.h"

namespace {

constexpr MenuID kMenu = 128;
constexpr MenuID kSubmenu = 129;

MenuRef NewMenu(MenuID theNumber, CFStringRef theTitle)
{
    MenuRef theMenu = nullptr;
    CreateNewMenu(theNumber, 0, &theMenu);
    SetMenuTitleWithCFString(theMenu, theTitle);
    return theMenu;
}

// Returns the new item's number.
MenuItemIndex AddItem(MenuRef theMenu, CFStringRef theText, MenuItemAttributes theAttributes = 0,
                      MenuCommand theCommand = 0)
{
    MenuItemIndex theItem = 0;
    AppendMenuItemTextWithCFString(theMenu, theText, theAttributes, theCommand, &theItem);
    return theItem;
}

MenuRef NewSubmenu()
{
    MenuRef theMenu = NewMenu(kSubmenu, CFSTR("Marks"));
    SetItemMark(theMenu, AddItem(theMenu, CFSTR("Check Mark")), checkMark);
    SetItemMark(theMenu, AddItem(theMenu, CFSTR("Diamond")), diamondMark);
    AddItem(theMenu, CFSTR("None"));
    return theMenu;
}

void InsertMenus()
{
    MenuRef theMenu = NewMenu(kMenu, CFSTR("Items"));
    SetMenuItemCommandKey(theMenu, AddItem(theMenu, CFSTR("With a Key")), false, 'K');
    AddItem(theMenu, CFSTR("Disabled"), kMenuItemAttrDisabled);
    const MenuItemIndex theKept = AddItem(theMenu, CFSTR("Diamond, Disabled"), kMenuItemAttrDisabled);
    SetItemMark(theMenu, theKept, diamondMark);
    AddItem(theMenu, CFSTR(""), kMenuItemAttrSeparator);
    MenuRef theSubmenu = NewSubmenu();
    SetMenuItemHierarchicalMenu(theMenu, AddItem(theMenu, CFSTR("Marks")), theSubmenu);
    AddItem(theMenu, CFSTR(""), kMenuItemAttrSeparator);
    SetMenuItemCommandKey(theMenu, AddItem(theMenu, CFSTR("Quit"), 0, kHICommandQuit), false, 'Q');
    InsertMenu(theMenu, 0);
    // The menu bar and the item hold them now.
    ReleaseMenu(theSubmenu);
    ReleaseMenu(theMenu);
}

OSStatus EndWithWindow(EventHandlerCallRef, EventRef, void*)
{
    QuitApplicationEventLoop();
    return eventNotHandledErr;
}

} // namespace

int main()
{
    Gallery theGallery;
    InsertMenus();
    const EventTypeSpec theClosing = {kEventClassWindow, kEventWindowClosed};
    InstallWindowEventHandler(theGallery.Window(), NewEventHandlerUPP(EndWithWindow), 1, &theClosing, nullptr,
                              nullptr);
    ShowWindow(theGallery.Window());
    RunApplicationEventLoop();
    return 0;
}
