// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The life of menus, and the menu bar.

#include "Menu.h"
#include "Menus.h"

#include "Base/Guarded.h"
#include "Base/ReferenceTable.h"
#include "Base/Text.h"
#include "Common/NeverDestroyed.h"
#include "Events/EventLoop.h"
#include "Events/EventTargets.h"
#include "Events/OutgoingEvent.h"

#include <algorithm>
#include <utility>

namespace Host {

namespace {

using MenuTable = ReferenceTable<MenuRef, ReferenceKind::kMenu, Menu, NoMutex>;

// Menus may still be released while the program ends.
MenuTable& Menus()
{
    static NeverDestroyed<MenuTable> sMenus;
    return sMenus.Get();
}

// The bar's menu, and the menus that were inserted as submenus.
struct MenuBar
{
    MenuHolder theRoot;
    std::vector<MenuHolder> theSubmenus;
};

MenuBar& TheMenuBar()
{
    static NeverDestroyed<MenuBar> sBar;
    return sBar.Get();
}

// --- The end of menus -------------------------------------------------------------------------------

// Menus whose count has reached zero and that wait for their turn, linked from one to the next. One menu's
// end releases the menus of its items: they are put in line here instead of one inside the other, however
// deep menus hold menus.
SharedMenu& EndingMenus()
{
    static NeverDestroyed<SharedMenu> sEnding;
    return sEnding.Get();
}

bool gIsEndingMenus = false;

void TellOfEnd(const SharedMenu& theMenu)
{
    OutgoingEvent theEvent(kEventClassMenu, kEventMenuDispose);
    const MenuRef theReference = theMenu->Reference();
    theEvent.Set(kEventParamDirectObject, typeMenuRef, theReference);
    theEvent.TellAll(theMenu->Target());
}

} // namespace

void DestroyMenu(const SharedMenu& theMenu)
{
    TellOfEnd(theMenu);
    theMenu->mIsGone = true;
    Menus().Remove(theMenu->Reference());
    DisposeEventTarget(theMenu->mTarget);
    // Taken out first: releasing what the items hold may ask for the items.
    const std::vector<MenuItem> theItems = std::exchange(theMenu->mItems, {});
    MenusHaveChanged();
}

namespace {

void EndMenu(const SharedMenu& theMenu)
{
    theMenu->mIsGoing = true;
    theMenu->mNextEnding = std::exchange(EndingMenus(), theMenu);
    if (std::exchange(gIsEndingMenus, true)) {
        return;
    }
    while (EndingMenus() != nullptr) {
        const SharedMenu theNext = EndingMenus();
        EndingMenus() = std::move(theNext->mNextEnding);
        DestroyMenu(theNext);
    }
    gIsEndingMenus = false;
}

// --- The bar ----------------------------------------------------------------------------------------

OSStatus MakeRootMenu()
{
    if (RootMenu() == nullptr) {
        const SharedMenu theMenu = AddMenu(0, 0);
        TheMenuBar().theRoot = MenuHolder(theMenu->Reference());
        ReleaseMenu(theMenu->Reference());
    }
    return noErr;
}

// The place in the bar of the menu with an identifier; 0 when it is not there.
MenuItemIndex ItemInBar(const SharedMenu& theRoot, MenuID theID)
{
    for (MenuItemIndex theItem = 1; theItem <= theRoot->Count(); ++theItem) {
        const SharedMenu theMenu = theRoot->Submenu(theItem);
        if (theMenu != nullptr && theMenu->mID == theID) {
            return theItem;
        }
    }
    return 0;
}

bool IsInBar(const SharedMenu& theRoot, MenuRef theMenu)
{
    return std::any_of(theRoot->mItems.begin(), theRoot->mItems.end(),
                       [&](const MenuItem& theItem) { return theItem.theSubmenu.Get() == theMenu; });
}

bool IsHierarchical(MenuRef theMenu)
{
    const std::vector<MenuHolder>& theMenus = TheMenuBar().theSubmenus;
    return std::any_of(theMenus.begin(), theMenus.end(),
                       [&](const MenuHolder& theHolder) { return theHolder.Get() == theMenu; });
}

OSStatus InsertIntoBar(const SharedMenu& theMenu, MenuID theBefore)
{
    MakeRootMenu();
    const SharedMenu theRoot = RootMenu();
    const MenuRef theReference = theMenu->Reference();
    if (IsInBar(theRoot, theReference) || theMenu == theRoot) {
        return paramErr;
    }
    const MenuItemIndex theNext = theBefore == 0 ? MenuItemIndex(0) : ItemInBar(theRoot, theBefore);
    const MenuItemIndex theAfter = theNext == 0 ? theRoot->Count() : static_cast<MenuItemIndex>(theNext - 1);
    const OSStatus theStatus =
        InsertMenuItemTextWithCFString(theRoot->Reference(), theMenu->mTitle.Get(), theAfter, 0, 0);
    if (theStatus != noErr) {
        return theStatus;
    }
    const auto theItem = static_cast<MenuItemIndex>(theAfter + 1);
    const OSStatus theAttached = SetMenuItemHierarchicalMenu(theRoot->Reference(), theItem, theReference);
    if (theAttached != noErr) {
        DeleteMenuItem(theRoot->Reference(), theItem);
    }
    return theAttached;
}

OSStatus InsertAsSubmenu(const SharedMenu& theMenu)
{
    if (!IsHierarchical(theMenu->Reference())) {
        TheMenuBar().theSubmenus.emplace_back(theMenu->Reference());
    }
    return noErr;
}

} // namespace

// --- MenuString, MenuHolder -------------------------------------------------------------------------

MenuString::MenuString()
    : mString(CFSTR(""))
{
}

MenuString::MenuString(CFStringRef theString)
    : mString(CFStringCreateCopy(nullptr, theString))
{
    if (mString == nullptr) {
        throw std::bad_alloc();
    }
}

MenuString::MenuString(ConstStr255Param theString)
    : mString(CreateString(TextOfPascalString(theString)))
{
    if (mString == nullptr) {
        throw std::bad_alloc();
    }
}

MenuString::~MenuString()
{
    CFRelease(mString);
}

MenuString::MenuString(const MenuString& theOther)
    : mString(static_cast<CFStringRef>(CFRetain(theOther.mString)))
{
}

MenuString::MenuString(MenuString&& theOther) noexcept
    : mString(std::exchange(theOther.mString, CFSTR("")))
{
}

MenuString& MenuString::operator=(MenuString theOther) noexcept
{
    std::swap(mString, theOther.mString);
    return *this;
}

MenuHolder::MenuHolder(MenuRef theMenu)
    : mMenu(theMenu)
{
    RetainMenu(mMenu);
}

MenuHolder::~MenuHolder()
{
    ReleaseMenu(mMenu);
}

MenuHolder::MenuHolder(const MenuHolder& theOther)
    : MenuHolder(theOther.mMenu)
{
}

MenuHolder::MenuHolder(MenuHolder&& theOther) noexcept
    : mMenu(std::exchange(theOther.mMenu, nullptr))
{
}

MenuHolder& MenuHolder::operator=(MenuHolder theOther) noexcept
{
    std::swap(mMenu, theOther.mMenu);
    return *this;
}

// --- Menu -------------------------------------------------------------------------------------------

Menu::Menu(MenuID theID, MenuAttributes theAttributes)
    : mID(theID),
      mAttributes(theAttributes),
      mIdentifier(NewObjectId()),
      // What no handler of the menu takes goes on to the user focus.
      mTarget(NewEventTarget({GetUserFocusEventTarget, nullptr}))
{
}

MenuRef Menu::Reference() const
{
    return MenuTable::Numbered::Of(mIdentifier);
}

MenuItem* Menu::Item(MenuItemIndex theItem)
{
    return theItem >= 1 && theItem <= mItems.size() ? &mItems[theItem - 1U] : nullptr;
}

SharedMenu Menu::Submenu(MenuItemIndex theItem)
{
    const MenuItem* theFound = Item(theItem);
    return theFound == nullptr ? nullptr : FindMenu(theFound->theSubmenu.Get());
}

bool Menu::HasEnabledItems() const
{
    return std::any_of(mItems.begin(), mItems.end(), [](const MenuItem& theItem) {
        return theItem.IsEnabled() && !theItem.Is(kMenuItemAttrSeparator);
    });
}

bool Menu::LooksEnabled() const
{
    return mIsEnabled && ((mAttributes & kMenuAttrAutoDisable) == 0 || HasEnabledItems());
}

SharedMenu FindMenu(MenuRef theReference)
{
    return Menus().Find(theReference);
}

SharedMenu FindMenu(ObjectId theIdentifier)
{
    return Menus().FindNumber(theIdentifier);
}

SharedMenu AddMenu(MenuID theID, MenuAttributes theAttributes)
{
    // The first menu is what brings command keys into the way of key events, and the bar before every wait.
    SetCommandKeyMatcher(TakeCommandKey);
    AddLoopChore(CatchUpWithMenus);
    auto theMenu = std::make_shared<Menu>(theID, theAttributes);
    Menus().Add(theMenu->Identifier(), theMenu);
    return theMenu;
}

SharedMenu RootMenu()
{
    return FindMenu(TheMenuBar().theRoot.Get());
}

std::vector<SharedMenu> HierarchicalMenus()
{
    std::vector<SharedMenu> theMenus;
    for (const MenuHolder& theHolder : TheMenuBar().theSubmenus) {
        theMenus.push_back(FindMenu(theHolder.Get()));
    }
    return theMenus;
}

} // namespace Host

using namespace Host;

// --- Life -------------------------------------------------------------------------------------------

OSStatus CreateNewMenu(MenuID inMenuID, MenuAttributes inMenuAttributes, MenuRef* outMenuRef)
{
    if (outMenuRef == nullptr) {
        return paramErr;
    }
    *outMenuRef = nullptr;
    return Guarded([&] {
        *outMenuRef = AddMenu(inMenuID, inMenuAttributes)->Reference();
        return noErr;
    });
}

MenuRef NewMenu(MenuID menuID, ConstStr255Param menuTitle)
{
    MenuRef theMenu = nullptr;
    if (menuTitle != nullptr && CreateNewMenu(menuID, 0, &theMenu) == noErr &&
        SetMenuTitle(theMenu, menuTitle) != noErr) {
        ReleaseMenu(theMenu);
        theMenu = nullptr;
    }
    return theMenu;
}

void DisposeMenu(MenuRef theMenu)
{
    ReleaseMenu(theMenu);
}

OSStatus ReleaseMenu(MenuRef inMenu)
{
    const SharedMenu theMenu = FindMenu(inMenu);
    if (theMenu == nullptr) {
        return menuInvalidErr;
    }
    // While its end is being told it may be retained and released, but its end is settled.
    if (theMenu->mCount > 0 && --theMenu->mCount == 0 && !theMenu->mIsGoing) {
        EndMenu(theMenu);
    }
    return noErr;
}

OSStatus RetainMenu(MenuRef inMenu)
{
    const SharedMenu theMenu = FindMenu(inMenu);
    if (theMenu == nullptr) {
        return menuInvalidErr;
    }
    ++theMenu->mCount;
    return noErr;
}

ItemCount GetMenuRetainCount(MenuRef inMenu)
{
    const SharedMenu theMenu = FindMenu(inMenu);
    return theMenu == nullptr ? 0 : theMenu->mCount;
}

Boolean IsValidMenu(MenuRef inMenu)
{
    return FindMenu(inMenu) != nullptr;
}

OSStatus DuplicateMenu(MenuRef inSourceMenu, MenuRef* outMenu)
{
    if (outMenu == nullptr) {
        return paramErr;
    }
    *outMenu = nullptr;
    const SharedMenu theSource = FindMenu(inSourceMenu);
    if (theSource == nullptr) {
        return menuInvalidErr;
    }
    return Guarded([&] {
        std::vector<MenuItem> theItems = theSource->mItems;
        const SharedMenu theCopy = AddMenu(theSource->mID, theSource->mAttributes);
        theCopy->mTitle = theSource->mTitle;
        theCopy->mIsEnabled = theSource->mIsEnabled;
        theCopy->mItems = std::move(theItems);
        *outMenu = theCopy->Reference();
        return noErr;
    });
}

EventTargetRef GetMenuEventTarget(MenuRef inMenu)
{
    const SharedMenu theMenu = FindMenu(inMenu);
    return theMenu == nullptr ? nullptr : theMenu->Target();
}

// --- The menu bar -----------------------------------------------------------------------------------

MenuRef AcquireRootMenu(void)
{
    if (Guarded(MakeRootMenu) != noErr) {
        return nullptr;
    }
    const MenuRef theRoot = TheMenuBar().theRoot.Get();
    RetainMenu(theRoot);
    return theRoot;
}

OSStatus SetRootMenu(MenuRef inMenu)
{
    if (FindMenu(inMenu) == nullptr) {
        return menuInvalidErr;
    }
    if (inMenu == TheMenuBar().theRoot.Get()) {
        return noErr;
    }
    // The former ones end after the bar has the new one.
    const std::vector<MenuHolder> theOldSubmenus = std::exchange(TheMenuBar().theSubmenus, {});
    const MenuHolder theOldRoot = std::exchange(TheMenuBar().theRoot, MenuHolder(inMenu));
    MenusHaveChanged();
    return noErr;
}

void InsertMenu(MenuRef theMenu, MenuID beforeID)
{
    const SharedMenu theFound = FindMenu(theMenu);
    if (theFound != nullptr) {
        Guarded([&] {
            return beforeID == kInsertHierarchicalMenu ? InsertAsSubmenu(theFound)
                                                       : InsertIntoBar(theFound, beforeID);
        });
    }
}

void DeleteMenu(MenuID menuID)
{
    const SharedMenu theRoot = RootMenu();
    const MenuItemIndex theItem = theRoot == nullptr ? MenuItemIndex(0) : ItemInBar(theRoot, menuID);
    if (theItem != 0) {
        DeleteMenuItem(theRoot->Reference(), theItem);
        return;
    }
    std::vector<MenuHolder>& theSubmenus = TheMenuBar().theSubmenus;
    const auto theFound =
        std::find_if(theSubmenus.begin(), theSubmenus.end(),
                     [&](const MenuHolder& theHolder) { return GetMenuID(theHolder.Get()) == menuID; });
    if (theFound != theSubmenus.end()) {
        const MenuHolder theKept = std::move(*theFound);
        theSubmenus.erase(theFound);
    }
}

void ClearMenuBar(void)
{
    const std::vector<MenuHolder> theOldSubmenus = std::exchange(TheMenuBar().theSubmenus, {});
    const SharedMenu theRoot = RootMenu();
    if (theRoot != nullptr && theRoot->Count() > 0) {
        DeleteMenuItems(theRoot->Reference(), 1, theRoot->Count());
    }
}

MenuRef GetMenuHandle(MenuID menuID)
{
    const SharedMenu theRoot = RootMenu();
    const MenuItemIndex theItem = theRoot == nullptr ? MenuItemIndex(0) : ItemInBar(theRoot, menuID);
    if (theItem != 0) {
        return theRoot->Item(theItem)->theSubmenu.Get();
    }
    for (const MenuHolder& theHolder : TheMenuBar().theSubmenus) {
        if (GetMenuID(theHolder.Get()) == menuID) {
            return theHolder.Get();
        }
    }
    return nullptr;
}

void DrawMenuBar(void)
{
    ShowMenuBar();
}

void InvalMenuBar(void)
{
    MenusHaveChanged();
}

// --- Menus ------------------------------------------------------------------------------------------

MenuID GetMenuID(MenuRef menu)
{
    const SharedMenu theMenu = FindMenu(menu);
    return theMenu == nullptr ? MenuID(0) : theMenu->mID;
}

void SetMenuID(MenuRef menu, MenuID menuID)
{
    const SharedMenu theMenu = FindMenu(menu);
    if (theMenu != nullptr) {
        theMenu->mID = menuID;
    }
}

OSStatus SetMenuTitleWithCFString(MenuRef inMenu, CFStringRef inString)
{
    const SharedMenu theMenu = FindMenu(inMenu);
    if (theMenu == nullptr) {
        return menuInvalidErr;
    }
    if (inString == nullptr) {
        return paramErr;
    }
    return Guarded([&] {
        theMenu->mTitle = MenuString(inString);
        MenusHaveChanged();
        return noErr;
    });
}

OSStatus CopyMenuTitleAsCFString(MenuRef inMenu, CFStringRef* outString)
{
    if (outString == nullptr) {
        return paramErr;
    }
    *outString = nullptr;
    const SharedMenu theMenu = FindMenu(inMenu);
    if (theMenu == nullptr) {
        return menuInvalidErr;
    }
    *outString = static_cast<CFStringRef>(CFRetain(theMenu->mTitle.Get()));
    return noErr;
}

OSStatus SetMenuTitle(MenuRef menu, ConstStr255Param title)
{
    const SharedMenu theMenu = FindMenu(menu);
    if (theMenu == nullptr) {
        return menuInvalidErr;
    }
    if (title == nullptr) {
        return paramErr;
    }
    return Guarded([&] {
        theMenu->mTitle = MenuString(title);
        MenusHaveChanged();
        return noErr;
    });
}

StringPtr GetMenuTitle(MenuRef menu, Str255 title)
{
    const SharedMenu theMenu = FindMenu(menu);
    if (theMenu == nullptr || title == nullptr) {
        return nullptr;
    }
    CopyToPascalString(TextOf(theMenu->mTitle.Get()), title);
    return title;
}

OSStatus GetMenuAttributes(MenuRef menu, MenuAttributes* outAttributes)
{
    const SharedMenu theMenu = FindMenu(menu);
    if (theMenu == nullptr) {
        return menuInvalidErr;
    }
    if (outAttributes == nullptr) {
        return paramErr;
    }
    *outAttributes = theMenu->mAttributes;
    return noErr;
}

OSStatus ChangeMenuAttributes(MenuRef menu, MenuAttributes setTheseAttributes,
                              MenuAttributes clearTheseAttributes)
{
    const SharedMenu theMenu = FindMenu(menu);
    if (theMenu == nullptr) {
        return menuInvalidErr;
    }
    theMenu->mAttributes = (theMenu->mAttributes | setTheseAttributes) & ~clearTheseAttributes;
    MenusHaveChanged();
    return noErr;
}

UInt16 CountMenuItems(MenuRef theMenu)
{
    const SharedMenu theFound = FindMenu(theMenu);
    return theFound == nullptr ? UInt16(0) : theFound->Count();
}
