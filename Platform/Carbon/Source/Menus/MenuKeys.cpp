// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Command keys.

#include "Menu.h"

#include "Base/Guarded.h"
#include "Events/OutgoingEvent.h"
#include "Events/PersonActions.h"

#include <algorithm>

namespace Host {

namespace {

// A key press as items are compared with it.
struct KeyPress
{
    UInt32 thePosition = 0;
    UInt16 theCharacter = 0; // a capital letter for letters
    UInt32 theModifiers = 0;
    bool theIsRepeat = false;
};

UInt16 Capital(UInt16 theCharacter)
{
    return theCharacter >= 'a' && theCharacter <= 'z' ? static_cast<UInt16>(theCharacter - 'a' + 'A')
                                                      : theCharacter;
}

// What the keys of letters and digits type on a US keyboard, by their positions.
const char kCharacters[] = "ASDFHGZXCV\0BQWERYT123465=97-80]OU[IP\0LJ'K;\\,/NM.";

// With the option or control key held, a key types something else than what stands on it.
bool TypesOtherThanItsLabel(UInt32 theModifiers)
{
    return (theModifiers & (optionKey | controlKey)) != 0;
}

bool ReadKeyPress(EventRef theEvent, KeyPress* theKey)
{
    const UInt32 theKind = GetEventKind(theEvent);
    if (GetEventClass(theEvent) != kEventClassKeyboard ||
        (theKind != kEventRawKeyDown && theKind != kEventRawKeyRepeat)) {
        return false;
    }
    UInt8 theCharacter = 0;
    ReadParameter(theEvent, kEventParamKeyMacCharCodes, typeChar, &theCharacter);
    ReadParameter(theEvent, kEventParamKeyModifiers, typeUInt32, &theKey->theModifiers);
    theKey->theIsRepeat = theKind == kEventRawKeyRepeat;
    theKey->theCharacter = Capital(theCharacter);
    if (ReadParameter(theEvent, kEventParamKeyCode, typeUInt32, &theKey->thePosition) &&
        theKey->thePosition < sizeof kCharacters && kCharacters[theKey->thePosition] != '\0' &&
        TypesOtherThanItsLabel(theKey->theModifiers)) {
        theKey->theCharacter = static_cast<unsigned char>(kCharacters[theKey->thePosition]);
    }
    return true;
}

// The modifiers that an item's command key needs, as an event has them.
UInt32 NeededModifiers(const MenuItem& theItem)
{
    UInt32 theNeeded = (theItem.theModifiers & kMenuNoCommandModifier) != 0 ? 0 : UInt32(cmdKey);
    theNeeded |= (theItem.theModifiers & kMenuShiftModifier) != 0 ? UInt32(shiftKey) : 0;
    theNeeded |= (theItem.theModifiers & kMenuOptionModifier) != 0 ? UInt32(optionKey) : 0;
    theNeeded |= (theItem.theModifiers & kMenuControlModifier) != 0 ? UInt32(controlKey) : 0;
    return theNeeded;
}

bool IsKeyOf(const MenuItem& theItem, const KeyPress& theKey)
{
    const UInt32 kCompared = cmdKey | shiftKey | optionKey | controlKey;
    const bool theIsHidden =
        theItem.Is(kMenuItemAttrHidden) && !theItem.Is(kMenuItemAttrIncludeInCmdKeyMatching);
    if (theIsHidden || (theKey.theIsRepeat && !theItem.Is(kMenuItemAttrAutoRepeat)) ||
        NeededModifiers(theItem) != (theKey.theModifiers & kCompared)) {
        return false;
    }
    if (theItem.Is(kMenuItemAttrUseVirtualKey)) {
        return theItem.theKeyPosition == theKey.thePosition;
    }
    return theItem.theKeyCharacter != 0 && Capital(theItem.theKeyCharacter) == theKey.theCharacter;
}

// Looks for the item that a key stands for in a menu and the menus that its items hold, each menu once.
class KeySearch
{
public:
    KeySearch(EventRef theEvent, const KeyPress& theKey, MenuEventOptions theOptions)
        : mEvent(theEvent),
          mKey(theKey),
          mOptions(theOptions)
    {
    }

    // Whether any item has the key now, looked for without telling anybody.
    bool HasKey(const SharedMenu& theMenu)
    {
        mMenus.clear();
        Add(theMenu);
        // NOLINTNEXTLINE(modernize-loop-convert): the list grows while it is walked.
        for (size_t theNext = 0; theNext < mMenus.size(); ++theNext) {
            const SharedMenu theCurrent = mMenus[theNext];
            if (Match(theCurrent) != 0) {
                return true;
            }
            AddSubmenus(theCurrent);
        }
        return false;
    }

    FoundItem Run(const SharedMenu& theMenu)
    {
        mMenus.clear();
        Add(theMenu);
        // NOLINTNEXTLINE(modernize-loop-convert): the list grows while it is walked.
        for (size_t theNext = 0; theNext < mMenus.size(); ++theNext) {
            const SharedMenu theCurrent = mMenus[theNext];
            const MenuItemIndex theFound = FindIn(theCurrent);
            if (theFound != 0) {
                return {theCurrent, theFound};
            }
            AddSubmenus(theCurrent);
        }
        return FoundItem();
    }

private:
    void Add(const SharedMenu& theMenu)
    {
        if (theMenu != nullptr && std::find(mMenus.begin(), mMenus.end(), theMenu) == mMenus.end()) {
            mMenus.push_back(theMenu);
        }
    }

    // The menus of the bar are always looked into; deeper ones unless the caller said otherwise.
    void AddSubmenus(const SharedMenu& theMenu)
    {
        if ((mOptions & kMenuEventDontCheckSubmenus) != 0 && theMenu != RootMenu()) {
            return;
        }
        for (MenuItemIndex theItem = 1; theItem <= theMenu->Count(); ++theItem) {
            if (IncludesDisabled() || (theMenu->mIsEnabled && theMenu->Item(theItem)->IsEnabled())) {
                Add(theMenu->Submenu(theItem));
            }
        }
    }

    bool IncludesDisabled() const { return (mOptions & kMenuEventIncludeDisabledItems) != 0; }

    // The place of the matching item in one menu, 0 without one.
    MenuItemIndex FindIn(const SharedMenu& theMenu)
    {
        if (theMenu == RootMenu()) {
            // Its items are the titles of the bar.
            return 0;
        }
        PopulateMenu(theMenu, kContext);
        MenuItemIndex theFound = 0;
        if (!IsAnsweredByMenu(theMenu, &theFound)) {
            BringUpToDate(theMenu);
            theFound = Match(theMenu);
        }
        return IncludesDisabled() || IsChoosable(theMenu, theFound) ? theFound : MenuItemIndex(0);
    }

    void BringUpToDate(const SharedMenu& theMenu) const
    {
        const MenuItemIndex theMatch = Match(theMenu);
        const MenuItem* theSingle = theMenu->Item(theMatch);
        if (theSingle != nullptr && theSingle->Is(kMenuItemAttrUpdateSingleItem)) {
            UpdateMenuItem(theMenu, theMatch, kContext);
        } else {
            EnableMenuItems(theMenu, kContext);
        }
    }

    // The item by its key alone.
    MenuItemIndex Match(const SharedMenu& theMenu) const
    {
        const auto theFound = std::find_if(theMenu->mItems.begin(), theMenu->mItems.end(),
                                           [&](const MenuItem& theItem) { return IsKeyOf(theItem, mKey); });
        return theFound == theMenu->mItems.end()
                   ? MenuItemIndex(0)
                   : static_cast<MenuItemIndex>(theFound - theMenu->mItems.begin() + 1);
    }

    // The item, or 0 for none, as the menu's own handlers say. False when they do not: such a menu has its
    // items brought up to date, which the others see to themselves.
    bool IsAnsweredByMenu(const SharedMenu& theMenu, MenuItemIndex* theFound) const
    {
        OutgoingEvent theEvent(kEventClassMenu, kEventMenuMatchKey);
        theEvent.Set(kEventParamDirectObject, typeMenuRef, theMenu->Reference());
        theEvent.Set(kEventParamEventRef, typeEventRef, mEvent);
        theEvent.Set(kEventParamMenuEventOptions, typeMenuEventOptions, mOptions);
        theEvent.Set(kEventParamMenuContext, typeUInt32, UInt32(kContext));
        const OSStatus theStatus = theEvent.SendTo(theMenu->Target(), kEventTargetDontPropagate);
        if (theStatus == noErr && theEvent.Read(kEventParamMenuItemIndex, typeMenuItemIndex, theFound)) {
            *theFound = theMenu->Item(*theFound) == nullptr ? MenuItemIndex(0) : *theFound;
            return true;
        }
        return theStatus == menuItemNotFoundErr;
    }

    static constexpr UInt32 kContext = kMenuContextMenuBar | kMenuContextKeyMatching;

    EventRef mEvent;
    KeyPress mKey;
    MenuEventOptions mOptions;
    std::vector<SharedMenu> mMenus;
};

FoundItem FindKey(EventRef theEvent, MenuRef theMenu, MenuEventOptions theOptions)
{
    FoundItem theFound;
    KeyPress theKey;
    const SharedMenu theStart = theMenu == nullptr ? RootMenu() : FindMenu(theMenu);
    if (theStart != nullptr && ReadKeyPress(theEvent, &theKey)) {
        Guarded([&] {
            KeySearch theSearch(theEvent, theKey, theOptions);
            // Typing is no reason to bring every menu up to date; only few items do without the command key.
            if ((theKey.theModifiers & cmdKey) != 0 || theSearch.HasKey(theStart)) {
                theFound = theSearch.Run(theStart);
            }
            return noErr;
        });
    }
    return theFound;
}

} // namespace

bool TakeCommandKey(EventRef theEvent)
{
    const FoundItem theFound = IsBarHeld() ? FoundItem() : FindKey(theEvent, nullptr, 0);
    if (!theFound) {
        return false;
    }
    UInt32 theModifiers = 0;
    ReadParameter(theEvent, kEventParamKeyModifiers, typeUInt32, &theModifiers);
    PersonAction theAction(kEventClassCommand, kEventCommandProcess);
    theAction.Set(kEventParamDirectObject, typeHICommand, CommandOf(theFound.theMenu, theFound.theIndex));
    theAction.Do([&] {
        SendMenuCommand(theFound.theMenu, theFound.theIndex, kMenuContextMenuBar | kMenuContextKeyMatching,
                        &theModifiers);
    });
    return true;
}

} // namespace Host

using namespace Host;

Boolean IsMenuKeyEvent(MenuRef inStartMenu, EventRef inEvent, MenuEventOptions inOptions, MenuRef* outMenu,
                       MenuItemIndex* outMenuItem)
{
    const FoundItem theFound = FindKey(inEvent, inStartMenu, inOptions);
    if (!theFound) {
        return false;
    }
    if (outMenu != nullptr) {
        *outMenu = theFound.theMenu->Reference();
    }
    if (outMenuItem != nullptr) {
        *outMenuItem = theFound.theIndex;
    }
    return true;
}
