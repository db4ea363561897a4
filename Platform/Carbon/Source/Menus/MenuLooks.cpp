// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What presenters are told of menus.

#include "Menu.h"

#include "Base/Text.h"
#include "Menus.h"

#include <Presentation/PresenterRegistry.h>

namespace Host {

namespace {

bool gHasChanged = false;
BarHolder gBarHolder = nullptr;
bool gWasBarHeld = false;   // as the bar was shown last
std::uint32_t gChanges = 0; // runs over in the end, and is only compared

// Menus that hold menus deeper than this are shown without them; no screen has room for them.
const int kDeepestLook = 20;

MenuLook LookAt(const SharedMenu& theMenu, int theDepth);

// Marks that are no letters in the Roman script, which menus use all the same.
std::uint32_t CodePointOf(UInt8 theMark)
{
    switch (theMark) {
    case noMark:
        return 0;
    case commandMark:
        return 0x2318;
    case checkMark:
        return 0x2713;
    case diamondMark:
        return 0x25C6;
    case appleMark:
        return 0xF8FF;
    default:
        return TextOfBytes(&theMark, 1).at(0);
    }
}

std::string KeyOf(const MenuItem& theItem)
{
    if (theItem.theKeyCharacter == 0 || theItem.Is(kMenuItemAttrUseVirtualKey)) {
        return std::string();
    }
    const auto theCharacter = static_cast<UInt8>(theItem.theKeyCharacter & 0xFF);
    return Utf8Of(TextOfBytes(&theCharacter, 1));
}

std::uint32_t KeyModifiersOf(const MenuItem& theItem)
{
    const UInt8 theModifiers = theItem.theModifiers;
    return ((theModifiers & kMenuNoCommandModifier) != 0 ? kNoModifiers : kCommandModifier) |
           ((theModifiers & kMenuShiftModifier) != 0 ? kShiftModifier : kNoModifiers) |
           ((theModifiers & kMenuOptionModifier) != 0 ? kOptionModifier : kNoModifiers) |
           ((theModifiers & kMenuControlModifier) != 0 ? kControlModifier : kNoModifiers);
}

MenuItemLook LookAt(const MenuItem& theItem, int theDepth)
{
    MenuItemLook theLook;
    theLook.theText = Utf8Of(TextOf(theItem.theText.Get()));
    theLook.theCommand = static_cast<std::uint32_t>(theItem.theCommand);
    theLook.theMark = CodePointOf(theItem.theMark);
    theLook.theKey = KeyOf(theItem);
    theLook.theKeyModifiers = theLook.theKey.empty() ? 0 : KeyModifiersOf(theItem);
    theLook.theIsEnabled = theItem.IsEnabled();
    theLook.theIsSeparator = theItem.Is(kMenuItemAttrSeparator);
    theLook.theIsHidden = theItem.Is(kMenuItemAttrHidden);
    const SharedMenu theSubmenu = FindMenu(theItem.theSubmenu.Get());
    if (theSubmenu != nullptr && theDepth < kDeepestLook) {
        theLook.theSubmenu.push_back(LookAt(theSubmenu, theDepth + 1));
    }
    return theLook;
}

// The title of the system menu is one character that stands for a picture; no font of a presenter has it.
std::string TitleOf(const SharedMenu& theMenu)
{
    const Text theTitle = TextOf(theMenu->mTitle.Get());
    return theTitle == u"\x14" ? "System" : Utf8Of(theTitle);
}

MenuLook LookAt(const SharedMenu& theMenu, int theDepth)
{
    MenuLook theLook;
    theLook.theId = theMenu->Identifier();
    theLook.theTitle = TitleOf(theMenu);
    theLook.theIsEnabled = theMenu->LooksEnabled();
    for (const MenuItem& theItem : theMenu->mItems) {
        theLook.theItems.push_back(LookAt(theItem, theDepth));
    }
    return theLook;
}

MenuBarLook LookAtBar()
{
    MenuBarLook theLook;
    const SharedMenu theRoot = RootMenu();
    gWasBarHeld = IsBarHeld();
    for (MenuItemIndex theItem = 1; theRoot != nullptr && theItem <= theRoot->Count(); ++theItem) {
        const SharedMenu theMenu = theRoot->Submenu(theItem);
        if (theMenu != nullptr && (theMenu->mAttributes & kMenuAttrHidden) == 0 &&
            !theRoot->Item(theItem)->Is(kMenuItemAttrHidden)) {
            theLook.theMenus.push_back(LookOfMenu(theMenu));
            theLook.theMenus.back().theIsEnabled &= theRoot->Item(theItem)->IsEnabled() && !gWasBarHeld;
        }
    }
    return theLook;
}

} // namespace

void SetBarHolder(BarHolder theHolder)
{
    gBarHolder = theHolder;
}

bool IsBarHeld()
{
    return gBarHolder != nullptr && gBarHolder();
}

MenuLook LookOfMenu(const SharedMenu& theMenu)
{
    return LookAt(theMenu, 0);
}

void MenusHaveChanged()
{
    gHasChanged = true;
    ++gChanges;
}

std::uint32_t CountMenuChanges()
{
    return gChanges;
}

void ShowMenuBar()
{
    gHasChanged = false;
    PresenterRegistry::Current().MenuBarLooks(LookAtBar());
}

bool ShowChangedMenuBar()
{
    if (!gHasChanged && gWasBarHeld == IsBarHeld()) {
        return false;
    }
    ShowMenuBar();
    return true;
}

void ReplayMenuLooks(Presenter& thePresenter)
{
    thePresenter.MenuBarLooks(LookAtBar());
}

} // namespace Host
