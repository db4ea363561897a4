// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Menus_Menu_h
#define Menus_Menu_h

#include "Base/ObjectIds.h"
#include "Base/Properties.h"

#include <Carbon/Carbon.h>
#include <memory>
#include <Presentation/PresenterTypes.h>
#include <vector>

namespace Host {

class Menu;
using SharedMenu = std::shared_ptr<Menu>;

// A string that belongs to a menu: an immutable one is retained, a mutable one copied. Never null.
class MenuString
{
public:
    MenuString();
    explicit MenuString(CFStringRef theString);
    explicit MenuString(ConstStr255Param theString);
    ~MenuString();
    MenuString(const MenuString& theOther);
    MenuString(MenuString&& theOther) noexcept;
    MenuString& operator=(MenuString theOther) noexcept;

    CFStringRef Get() const { return mString; }

private:
    CFStringRef mString;
};

// One count on a menu, or none.
class [[nodiscard]] MenuHolder
{
public:
    explicit MenuHolder(MenuRef theMenu = nullptr);
    ~MenuHolder();
    MenuHolder(const MenuHolder& theOther);
    MenuHolder(MenuHolder&& theOther) noexcept;
    MenuHolder& operator=(MenuHolder theOther) noexcept;

    MenuRef Get() const { return mMenu; }

private:
    MenuRef mMenu;
};

struct MenuItem
{
    bool Is(MenuItemAttributes theAttribute) const { return (theAttributes & theAttribute) != 0; }
    bool IsEnabled() const { return !Is(kMenuItemAttrDisabled); }

    MenuString theText;
    MenuItemAttributes theAttributes = 0;
    MenuCommand theCommand = 0;
    UInt8 theMark = noMark;
    UInt16 theKeyCharacter = 0;
    UInt16 theKeyPosition = 0; // chooses the item with kMenuItemAttrUseVirtualKey, the character without
    UInt8 theModifiers = kMenuNoModifiers;
    URefCon theRefCon{};
    MenuHolder theSubmenu;
    Properties theProperties;
};

// A menu.
//
// The table of menus holds one for as long as its count is above zero. When the count reaches zero,
// kEventMenuDispose is sent while the table still knows the menu, so that handlers can read it; then it
// leaves the table, and its event target and items go. What still walks along the menu keeps the object
// itself, and asks IsGone after everything that sends events.
class Menu
{
public:
    Menu(MenuID theID, MenuAttributes theAttributes);

    ObjectId Identifier() const { return mIdentifier; }
    MenuRef Reference() const;
    EventTargetRef Target() const { return mTarget; }

    // The item at a place, from 1; null when there is none.
    MenuItem* Item(MenuItemIndex theItem);
    MenuItemIndex Count() const { return static_cast<MenuItemIndex>(mItems.size()); }

    // The menu that an item holds, or null.
    SharedMenu Submenu(MenuItemIndex theItem);

    bool HasEnabledItems() const;
    bool IsGone() const { return mIsGone; }

    // Whether a person sees the title as enabled.
    bool LooksEnabled() const;

    MenuID mID;
    MenuAttributes mAttributes;
    MenuString mTitle;
    std::vector<MenuItem> mItems;
    bool mIsEnabled = true;
    bool mWantsEnabling = false; // InvalidateMenuEnabling was called
    ItemCount mCount = 1;        // references held
    bool mIsGoing = false;       // the count has reached zero
    SharedMenu mNextEnding;      // the next in line of those that are going

private:
    friend void DestroyMenu(const SharedMenu& theMenu);

    ObjectId mIdentifier;
    EventTargetRef mTarget = nullptr;
    bool mIsGone = false;
};

const MenuItemIndex kLargestMenu = 65534; // the number after it stands for "at the end"

// The menu behind a reference or identifier, or null.
SharedMenu FindMenu(MenuRef theReference);
SharedMenu FindMenu(ObjectId theIdentifier);

// Makes a menu and puts it into the table; its one count belongs to the caller.
SharedMenu AddMenu(MenuID theID, MenuAttributes theAttributes);

// The menu of the bar, or null when there is none yet; not retained.
SharedMenu RootMenu();

// The menus inserted with kInsertHierarchicalMenu.
std::vector<SharedMenu> HierarchicalMenus();

// The first item with a command, as the calls on commands look for it. False when there is none.
struct FoundItem
{
    SharedMenu theMenu;
    MenuItemIndex theIndex = 0;

    explicit operator bool() const { return theMenu != nullptr; }
    MenuItem& Item() const { return *theMenu->Item(theIndex); }
};
FoundItem FindCommand(MenuRef theMenu, MenuCommand theCommand, UInt32 theNumber = 1);

// Notes that the bar may look different now; it is shown when there is time.
void MenusHaveChanged();

// Shows the bar, whether it has changed or not; or only if it has, and answers whether it had.
void ShowMenuBar();
bool ShowChangedMenuBar();

// Whether a person is kept from the menus of the bar.
bool IsBarHeld();

// A menu as presenters know it.
MenuLook LookOfMenu(const SharedMenu& theMenu);

// Brings a menu up to date before a person sees it or a key is looked for in it: kEventMenuPopulate, then
// kEventMenuEnableItems, then kEventCommandUpdateStatus for each item.
void PopulateMenu(const SharedMenu& theMenu, UInt32 theContext, MenuCommand theCommand = 0);
void EnableMenuItems(const SharedMenu& theMenu, UInt32 theContext);
void UpdateMenuItem(const SharedMenu& theMenu, MenuItemIndex theItem, UInt32 theContext);

// Whether a person could choose an item, not regarding what holds its menu.
bool IsChoosable(const SharedMenu& theMenu, MenuItemIndex theItem);

// The command of an item, as events tell of it.
HICommand CommandOf(const SharedMenu& theMenu, MenuItemIndex theItem);

// Sends the command of an item that was chosen; result as of sending.
OSStatus SendMenuCommand(const SharedMenu& theMenu, MenuItemIndex theItem, UInt32 theContext,
                         const UInt32* theModifiers);

// What a person chose from a menu that was shown by itself; no menu when nothing was chosen.
struct PopUpChoice
{
    SharedMenu theMenu; // the one that popped up, or one that it holds
    MenuItemIndex theItem = 0;
    UInt32 theContext = 0; // for SendMenuCommand

    explicit operator bool() const { return theMenu != nullptr; }
};

// Shows a menu by itself, with theItem at a global place, and waits until the person has chosen or closed
// it. All menus are closed when it returns, and the command is still to be sent. While another menu is
// open, or where a handler refuses, nothing is shown and nothing chosen.
PopUpChoice TrackPopUp(const SharedMenu& theMenu, Point thePlace, MenuItemIndex theItem);

// How often the looks of menus have changed; for what shows a menu elsewhere than in the bar.
std::uint32_t CountMenuChanges();

// Takes a key-down event as a command key of the bar: finds the item and sends its command. False when it is
// none.
bool TakeCommandKey(EventRef theEvent);

} // namespace Host

#endif
