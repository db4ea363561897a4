// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The items of menus.

#include "Menu.h"

#include "Base/Guarded.h"
#include "Base/Text.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace Host {

namespace {

// Finds an item and hands it to theAction(menu, item), whose status is the result.
template <class Action>
OSStatus WithItem(MenuRef theMenu, MenuItemIndex theIndex, const Action& theAction)
{
    const SharedMenu theFound = FindMenu(theMenu);
    if (theFound == nullptr) {
        return menuInvalidErr;
    }
    MenuItem* theItem = theFound->Item(theIndex);
    if (theItem == nullptr) {
        return menuItemNotFoundErr;
    }
    return Guarded([&]() -> OSStatus { return theAction(*theItem); });
}

// The same for actions that a person can see.
template <class Action>
OSStatus ChangeItem(MenuRef theMenu, MenuItemIndex theIndex, const Action& theAction)
{
    const OSStatus theStatus = WithItem(theMenu, theIndex, theAction);
    MenusHaveChanged();
    return theStatus;
}

// Reads something of an item into a place that the caller must give.
template <class Result, class Reader>
OSStatus ReadItem(MenuRef theMenu, MenuItemIndex theIndex, Result* theResult, const Reader& theReader)
{
    if (theResult == nullptr) {
        return paramErr;
    }
    return WithItem(theMenu, theIndex, [&](const MenuItem& theItem) {
        *theResult = theReader(theItem);
        return noErr;
    });
}

void SetAttributes(MenuItem& theItem, MenuItemAttributes theSet, MenuItemAttributes theCleared)
{
    theItem.theAttributes = (theItem.theAttributes | theSet) & ~theCleared;
}

OSStatus InsertItem(MenuRef theMenu, size_t theAfter, MenuItem theItem, MenuItemIndex* theNewItem)
{
    const SharedMenu theFound = FindMenu(theMenu);
    if (theFound == nullptr) {
        return menuInvalidErr;
    }
    std::vector<MenuItem>& theItems = theFound->mItems;
    if (theItems.size() >= kLargestMenu) {
        return paramErr;
    }
    const size_t theIndex = std::min(theAfter, theItems.size());
    theItems.insert(theItems.begin() + static_cast<std::ptrdiff_t>(theIndex), std::move(theItem));
    if (theNewItem != nullptr) {
        *theNewItem = static_cast<MenuItemIndex>(theIndex + 1);
    }
    MenusHaveChanged();
    return noErr;
}

OSStatus InsertText(MenuRef theMenu, CFStringRef theText, size_t theAfter, MenuItemAttributes theAttributes,
                    MenuCommand theCommand, MenuItemIndex* theNewItem)
{
    return Guarded([&] {
        MenuItem theItem;
        theItem.theText = MenuString(theText == nullptr ? CFSTR("") : theText);
        theItem.theAttributes = theAttributes;
        theItem.theCommand = theCommand;
        return InsertItem(theMenu, theAfter, std::move(theItem), theNewItem);
    });
}

// Enables or disables an item, or the menu itself.
void SetEnabled(MenuRef theMenu, MenuItemIndex theIndex, bool theIsOn)
{
    const SharedMenu theFound = FindMenu(theMenu);
    if (theFound != nullptr && theIndex == 0) {
        theFound->mIsEnabled = theIsOn;
        MenusHaveChanged();
        return;
    }
    ChangeItem(theMenu, theIndex, [&](MenuItem& theItem) {
        SetAttributes(theItem, theIsOn ? 0 : kMenuItemAttrDisabled, theIsOn ? kMenuItemAttrDisabled : 0);
        return noErr;
    });
}

void SetAllEnabled(MenuRef theMenu, bool theIsOn)
{
    const MenuItemIndex theCount = CountMenuItems(theMenu);
    for (MenuItemIndex theIndex = 1; theIndex <= theCount; ++theIndex) {
        SetEnabled(theMenu, theIndex, theIsOn);
    }
}

// Whether a menu holds another, itself or by the menus of its items. Without recursion: menus may hold menus
// to any depth.
bool Holds(const SharedMenu& theMenu, const SharedMenu& theOther)
{
    std::vector<SharedMenu> theMenus = {theMenu};
    std::unordered_set<SharedMenu> theSeen = {theMenu};
    for (size_t theNext = 0; theNext < theMenus.size(); ++theNext) {
        if (theMenus[theNext] == theOther) {
            return true;
        }
        for (MenuItemIndex theItem = 1; theItem <= theMenus[theNext]->Count(); ++theItem) {
            const SharedMenu theSubmenu = theMenus[theNext]->Submenu(theItem);
            if (theSubmenu != nullptr && theSeen.insert(theSubmenu).second) {
                theMenus.push_back(theSubmenu);
            }
        }
    }
    return false;
}

OSStatus Attach(MenuRef theMenu, MenuItemIndex theIndex, MenuRef theSubmenu)
{
    // The former menu ends, if it does, after the item has the new one.
    MenuHolder theHolder(theSubmenu);
    return ChangeItem(theMenu, theIndex, [&](MenuItem& theItem) {
        std::swap(theItem.theSubmenu, theHolder);
        return noErr;
    });
}

void SetKey(MenuItem& theItem, UInt16 theKey, bool theIsPosition)
{
    (theIsPosition ? theItem.theKeyPosition : theItem.theKeyCharacter) = theKey;
    SetAttributes(theItem, theIsPosition ? kMenuItemAttrUseVirtualKey : 0,
                  theIsPosition ? 0 : kMenuItemAttrUseVirtualKey);
}

UInt16 KeyOf(const MenuItem& theItem, bool theIsPosition)
{
    return theIsPosition ? theItem.theKeyPosition : theItem.theKeyCharacter;
}

// Some calls answer with the shorter type of status.
OSErr ShortStatus(OSStatus theStatus)
{
    return static_cast<OSErr>(theStatus);
}

} // namespace

} // namespace Host

using namespace Host;

// --- Adding and removing ----------------------------------------------------------------------------

OSStatus AppendMenuItemTextWithCFString(MenuRef inMenu, CFStringRef inString, MenuItemAttributes inAttributes,
                                        MenuCommand inCommandID, MenuItemIndex* outNewItem)
{
    return InsertText(inMenu, inString, kLargestMenu, inAttributes, inCommandID, outNewItem);
}

OSStatus InsertMenuItemTextWithCFString(MenuRef inMenu, CFStringRef inString, MenuItemIndex inAfterItem,
                                        MenuItemAttributes inAttributes, MenuCommand inCommandID)
{
    return InsertText(inMenu, inString, inAfterItem, inAttributes, inCommandID, nullptr);
}

OSStatus AppendMenuItemText(MenuRef menu, ConstStr255Param inString)
{
    if (inString == nullptr) {
        return FindMenu(menu) == nullptr ? OSStatus(menuInvalidErr) : OSStatus(paramErr);
    }
    return Guarded([&] {
        const MenuString theText(inString);
        return InsertText(menu, theText.Get(), kLargestMenu, 0, 0, nullptr);
    });
}

void DeleteMenuItem(MenuRef theMenu, MenuItemIndex item)
{
    DeleteMenuItems(theMenu, item, 1);
}

OSStatus DeleteMenuItems(MenuRef inMenu, MenuItemIndex inFirstItem, ItemCount inNumItems)
{
    const SharedMenu theMenu = FindMenu(inMenu);
    if (theMenu == nullptr) {
        return menuInvalidErr;
    }
    if (theMenu->Item(inFirstItem) == nullptr || inNumItems > theMenu->Count() + 1U - inFirstItem) {
        return menuItemNotFoundErr;
    }
    return Guarded([&] {
        const auto theFirst = theMenu->mItems.begin() + (inFirstItem - 1);
        const auto theEnd = theFirst + static_cast<std::ptrdiff_t>(inNumItems);
        // Kept until the menu is whole again: what they hold may end, and handlers are told then.
        const std::vector<MenuItem> theRemoved(std::make_move_iterator(theFirst),
                                               std::make_move_iterator(theEnd));
        theMenu->mItems.erase(theFirst, theEnd);
        MenusHaveChanged();
        return noErr;
    });
}

// --- Text and command -------------------------------------------------------------------------------

OSStatus SetMenuItemTextWithCFString(MenuRef inMenu, MenuItemIndex inItem, CFStringRef inString)
{
    return ChangeItem(inMenu, inItem, [&](MenuItem& theItem) {
        if (inString == nullptr) {
            return OSStatus(paramErr);
        }
        theItem.theText = MenuString(inString);
        return OSStatus(noErr);
    });
}

OSStatus CopyMenuItemTextAsCFString(MenuRef inMenu, MenuItemIndex inItem, CFStringRef* outString)
{
    return ReadItem(inMenu, inItem, outString, [](const MenuItem& theItem) {
        return static_cast<CFStringRef>(CFRetain(theItem.theText.Get()));
    });
}

void SetMenuItemText(MenuRef theMenu, MenuItemIndex item, ConstStr255Param itemString)
{
    ChangeItem(theMenu, item, [&](MenuItem& theItem) {
        if (itemString != nullptr) {
            theItem.theText = MenuString(itemString);
        }
        return noErr;
    });
}

void GetMenuItemText(MenuRef theMenu, MenuItemIndex item, Str255 itemString)
{
    if (itemString == nullptr) {
        return;
    }
    itemString[0] = 0;
    WithItem(theMenu, item, [&](const MenuItem& theItem) {
        CopyToPascalString(TextOf(theItem.theText.Get()), itemString);
        return noErr;
    });
}

OSErr SetMenuItemCommandID(MenuRef inMenu, MenuItemIndex inItem, MenuCommand inCommandID)
{
    return ShortStatus(ChangeItem(inMenu, inItem, [&](MenuItem& theItem) {
        theItem.theCommand = inCommandID;
        return noErr;
    }));
}

OSErr GetMenuItemCommandID(MenuRef inMenu, MenuItemIndex inItem, MenuCommand* outCommandID)
{
    return ShortStatus(
        ReadItem(inMenu, inItem, outCommandID, [](const MenuItem& theItem) { return theItem.theCommand; }));
}

// --- State and mark ---------------------------------------------------------------------------------

void EnableMenuItem(MenuRef theMenu, MenuItemIndex item)
{
    SetEnabled(theMenu, item, true);
}

void DisableMenuItem(MenuRef theMenu, MenuItemIndex item)
{
    SetEnabled(theMenu, item, false);
}

Boolean IsMenuItemEnabled(MenuRef menu, MenuItemIndex item)
{
    const SharedMenu theMenu = FindMenu(menu);
    if (theMenu == nullptr) {
        return false;
    }
    const MenuItem* theItem = theMenu->Item(item);
    return item == 0 ? theMenu->mIsEnabled : theItem != nullptr && theItem->IsEnabled();
}

void EnableAllMenuItems(MenuRef theMenu)
{
    SetAllEnabled(theMenu, true);
}

void DisableAllMenuItems(MenuRef theMenu)
{
    SetAllEnabled(theMenu, false);
}

Boolean MenuHasEnabledItems(MenuRef theMenu)
{
    const SharedMenu theFound = FindMenu(theMenu);
    return theFound != nullptr && theFound->HasEnabledItems();
}

void CheckMenuItem(MenuRef theMenu, MenuItemIndex item, Boolean checked)
{
    SetItemMark(theMenu, item, checked != 0 ? CharParameter(checkMark) : CharParameter(noMark));
}

void SetItemMark(MenuRef theMenu, MenuItemIndex item, CharParameter markChar)
{
    ChangeItem(theMenu, item, [&](MenuItem& theItem) {
        theItem.theMark = static_cast<UInt8>(markChar & 0xFF);
        return noErr;
    });
}

void GetItemMark(MenuRef theMenu, MenuItemIndex item, CharParameter* markChar)
{
    ReadItem(theMenu, item, markChar,
             [](const MenuItem& theItem) { return static_cast<CharParameter>(theItem.theMark); });
}

// --- Submenus ---------------------------------------------------------------------------------------

OSStatus SetMenuItemHierarchicalMenu(MenuRef inMenu, MenuItemIndex inItem, MenuRef inHierMenu)
{
    const SharedMenu theMenu = FindMenu(inMenu);
    const SharedMenu theSubmenu = FindMenu(inHierMenu);
    if (theMenu == nullptr || (theSubmenu == nullptr && inHierMenu != nullptr)) {
        return menuInvalidErr;
    }
    return Guarded([&] {
        const bool theIsCircle = theSubmenu != nullptr && Holds(theSubmenu, theMenu);
        return theIsCircle ? OSStatus(paramErr) : Attach(inMenu, inItem, inHierMenu);
    });
}

OSStatus GetMenuItemHierarchicalMenu(MenuRef inMenu, MenuItemIndex inItem, MenuRef* outHierMenu)
{
    return ReadItem(inMenu, inItem, outHierMenu,
                    [](const MenuItem& theItem) { return theItem.theSubmenu.Get(); });
}

// --- Command keys -----------------------------------------------------------------------------------

OSStatus SetMenuItemCommandKey(MenuRef inMenu, MenuItemIndex inItem, Boolean inSetVirtualKey, UInt16 inKey)
{
    return ChangeItem(inMenu, inItem, [&](MenuItem& theItem) {
        SetKey(theItem, inKey, inSetVirtualKey != 0);
        return noErr;
    });
}

OSStatus GetMenuItemCommandKey(MenuRef inMenu, MenuItemIndex inItem, Boolean inGetVirtualKey, UInt16* outKey)
{
    return ReadItem(inMenu, inItem, outKey,
                    [&](const MenuItem& theItem) { return KeyOf(theItem, inGetVirtualKey != 0); });
}

void SetItemCmd(MenuRef theMenu, MenuItemIndex item, CharParameter cmdChar)
{
    SetMenuItemCommandKey(theMenu, item, false, static_cast<UInt16>(cmdChar & 0xFF));
}

void GetItemCmd(MenuRef theMenu, MenuItemIndex item, CharParameter* cmdChar)
{
    ReadItem(theMenu, item, cmdChar,
             [](const MenuItem& theItem) { return static_cast<CharParameter>(KeyOf(theItem, false)); });
}

OSErr SetMenuItemModifiers(MenuRef inMenu, MenuItemIndex inItem, UInt8 inModifiers)
{
    return ShortStatus(ChangeItem(inMenu, inItem, [&](MenuItem& theItem) {
        theItem.theModifiers = inModifiers;
        return noErr;
    }));
}

OSErr GetMenuItemModifiers(MenuRef inMenu, MenuItemIndex inItem, UInt8* outModifiers)
{
    return ShortStatus(
        ReadItem(inMenu, inItem, outModifiers, [](const MenuItem& theItem) { return theItem.theModifiers; }));
}

// --- Attributes, values and data --------------------------------------------------------------------

OSStatus GetMenuItemAttributes(MenuRef menu, MenuItemIndex item, MenuItemAttributes* outAttributes)
{
    return ReadItem(menu, item, outAttributes, [](const MenuItem& theItem) { return theItem.theAttributes; });
}

OSStatus ChangeMenuItemAttributes(MenuRef menu, MenuItemIndex item, MenuItemAttributes setTheseAttributes,
                                  MenuItemAttributes clearTheseAttributes)
{
    return ChangeItem(menu, item, [&](MenuItem& theItem) {
        SetAttributes(theItem, setTheseAttributes, clearTheseAttributes);
        return noErr;
    });
}

OSErr SetMenuItemRefCon(MenuRef inMenu, MenuItemIndex inItem, URefCon inRefCon)
{
    return ShortStatus(WithItem(inMenu, inItem, [&](MenuItem& theItem) {
        theItem.theRefCon = inRefCon;
        return noErr;
    }));
}

OSErr GetMenuItemRefCon(MenuRef inMenu, MenuItemIndex inItem, URefCon* outRefCon)
{
    return ShortStatus(
        ReadItem(inMenu, inItem, outRefCon, [](const MenuItem& theItem) { return theItem.theRefCon; }));
}

OSStatus SetMenuItemProperty(MenuRef menu, MenuItemIndex item, OSType propertyCreator, OSType propertyTag,
                             ByteCount propertySize, const void* propertyData)
{
    return WithItem(menu, item, [&](MenuItem& theItem) {
        return theItem.theProperties.Set(propertyCreator, propertyTag, propertySize, propertyData);
    });
}

OSStatus GetMenuItemProperty(MenuRef menu, MenuItemIndex item, OSType propertyCreator, OSType propertyTag,
                             ByteCount bufferSize, ByteCount* actualSize, void* propertyBuffer)
{
    return WithItem(menu, item, [&](const MenuItem& theItem) {
        return theItem.theProperties.Get(propertyCreator, propertyTag, bufferSize, actualSize,
                                         propertyBuffer);
    });
}

OSStatus GetMenuItemPropertySize(MenuRef menu, MenuItemIndex item, OSType propertyCreator, OSType propertyTag,
                                 ByteCount* size)
{
    return WithItem(menu, item, [&](const MenuItem& theItem) {
        return theItem.theProperties.GetSize(propertyCreator, propertyTag, size);
    });
}

OSStatus RemoveMenuItemProperty(MenuRef menu, MenuItemIndex item, OSType propertyCreator, OSType propertyTag)
{
    return WithItem(menu, item, [&](MenuItem& theItem) {
        return theItem.theProperties.Remove(propertyCreator, propertyTag);
    });
}
