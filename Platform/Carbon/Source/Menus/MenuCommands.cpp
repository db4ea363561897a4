// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Items looked for by their commands.

#include "Menu.h"

#include "Base/Guarded.h"

#include <algorithm>
#include <vector>

namespace Host {

namespace {

// Walks along menus and the menus that their items hold, each menu once, an item before what it holds.
//
// Every menu is asked to fill itself before it is looked into. Its handlers may change any menu, so places
// are looked up anew at each step, and a menu that is gone is left.
class CommandSearch
{
public:
    explicit CommandSearch(MenuCommand theCommand)
        : mCommand(theCommand)
    {
        mSteps.reserve(kUsualDepth);
        mSeen.reserve(kUsualMenus);
    }

    // The items found after the walk, or up to the theWanted-th.
    ItemCount Count() const { return mCount; }
    const FoundItem& Found() const { return mFound; }

    void Run(MenuRef theMenu, ItemCount theWanted)
    {
        mWanted = theWanted;
        if (theMenu != nullptr) {
            Walk(FindMenu(theMenu));
            return;
        }
        Walk(RootMenu());
        for (const SharedMenu& theSubmenu : HierarchicalMenus()) {
            Walk(theSubmenu);
        }
    }

private:
    static constexpr size_t kUsualDepth = 4;
    static constexpr size_t kUsualMenus = 16;

    // A menu on the way, and the item that comes next in it.
    struct Step
    {
        SharedMenu theMenu;
        MenuItemIndex theNext;
    };

    bool IsOver() const { return mWanted != 0 && mCount == mWanted; }

    // False when the menu has been seen before.
    bool SeeFirst(const SharedMenu& theMenu)
    {
        const auto thePlace = std::lower_bound(mSeen.begin(), mSeen.end(), theMenu);
        if (thePlace != mSeen.end() && *thePlace == theMenu) {
            return false;
        }
        mSeen.insert(thePlace, theMenu);
        return true;
    }

    void Enter(const SharedMenu& theMenu)
    {
        if (theMenu == nullptr || !SeeFirst(theMenu)) {
            return;
        }
        PopulateMenu(theMenu, kMenuContextCommandIDSearch, mCommand);
        mSteps.push_back({theMenu, 1});
    }

    void Walk(const SharedMenu& theMenu)
    {
        // With a list of its own instead of recursion: menus may hold menus to any depth.
        Enter(theMenu);
        while (!mSteps.empty() && !IsOver()) {
            TakeStep();
        }
        mSteps.clear();
    }

    void TakeStep()
    {
        Step& theStep = mSteps.back();
        const MenuItem* theItem = theStep.theMenu->Item(theStep.theNext);
        if (theItem == nullptr) {
            mSteps.pop_back();
            return;
        }
        if (theItem->theCommand == mCommand) {
            ++mCount;
            mFound = {theStep.theMenu, theStep.theNext};
        }
        const SharedMenu theSubmenu = theStep.theMenu->Submenu(theStep.theNext);
        ++theStep.theNext;
        if (!IsOver()) {
            Enter(theSubmenu);
        }
    }

    MenuCommand mCommand;
    ItemCount mWanted = 0; // 0: all
    ItemCount mCount = 0;
    FoundItem mFound;
    std::vector<Step> mSteps;
    std::vector<SharedMenu> mSeen; // in order of their addresses
};

// Finds the first item with a command and hands it to theAction, whose status is the result.
template <class Action>
OSStatus WithCommand(MenuRef theMenu, MenuCommand theCommand, const Action& theAction)
{
    if (theMenu != nullptr && FindMenu(theMenu) == nullptr) {
        return menuInvalidErr;
    }
    return Guarded([&]() -> OSStatus {
        const FoundItem theFound = FindCommand(theMenu, theCommand);
        if (!theFound) {
            return menuItemNotFoundErr;
        }
        return theAction(theFound.theMenu->Reference(), theFound.theIndex);
    });
}

} // namespace

FoundItem FindCommand(MenuRef theMenu, MenuCommand theCommand, UInt32 theNumber)
{
    CommandSearch theSearch(theCommand);
    theSearch.Run(theMenu, theNumber);
    return theSearch.Count() == theNumber ? theSearch.Found() : FoundItem();
}

} // namespace Host

using namespace Host;

ItemCount CountMenuItemsWithCommandID(MenuRef inMenu, MenuCommand inCommandID)
{
    ItemCount theCount = 0;
    Guarded([&] {
        CommandSearch theSearch(inCommandID);
        theSearch.Run(inMenu, 0);
        theCount = theSearch.Count();
        return noErr;
    });
    return theCount;
}

OSStatus GetIndMenuItemWithCommandID(MenuRef inMenu, MenuCommand inCommandID, UInt32 inItemIndex,
                                     MenuRef* outMenu, MenuItemIndex* outIndex)
{
    if (inMenu != nullptr && FindMenu(inMenu) == nullptr) {
        return menuInvalidErr;
    }
    if (inItemIndex == 0) {
        return paramErr;
    }
    return Guarded([&]() -> OSStatus {
        const FoundItem theFound = FindCommand(inMenu, inCommandID, inItemIndex);
        if (!theFound) {
            return menuItemNotFoundErr;
        }
        if (outMenu != nullptr) {
            *outMenu = theFound.theMenu->Reference();
        }
        if (outIndex != nullptr) {
            *outIndex = theFound.theIndex;
        }
        return noErr;
    });
}

void EnableMenuCommand(MenuRef inMenu, MenuCommand inCommandID)
{
    WithCommand(inMenu, inCommandID, [](MenuRef theMenu, MenuItemIndex theItem) {
        EnableMenuItem(theMenu, theItem);
        return noErr;
    });
}

void DisableMenuCommand(MenuRef inMenu, MenuCommand inCommandID)
{
    WithCommand(inMenu, inCommandID, [](MenuRef theMenu, MenuItemIndex theItem) {
        DisableMenuItem(theMenu, theItem);
        return noErr;
    });
}

Boolean IsMenuCommandEnabled(MenuRef inMenu, MenuCommand inCommandID)
{
    Boolean theState = false;
    WithCommand(inMenu, inCommandID, [&](MenuRef theMenu, MenuItemIndex theItem) {
        theState = IsMenuItemEnabled(theMenu, theItem);
        return noErr;
    });
    return theState;
}

OSStatus SetMenuCommandMark(MenuRef inMenu, MenuCommand inCommandID, UniChar inMark)
{
    return WithCommand(inMenu, inCommandID, [&](MenuRef theMenu, MenuItemIndex theItem) {
        SetItemMark(theMenu, theItem, static_cast<CharParameter>(inMark & 0xFF));
        return noErr;
    });
}

OSStatus GetMenuCommandMark(MenuRef inMenu, MenuCommand inCommandID, UniChar* outMark)
{
    if (outMark == nullptr) {
        return paramErr;
    }
    return WithCommand(inMenu, inCommandID, [&](MenuRef theMenu, MenuItemIndex theItem) {
        CharParameter theMark = noMark;
        GetItemMark(theMenu, theItem, &theMark);
        *outMark = static_cast<UniChar>(theMark);
        return noErr;
    });
}

OSStatus SetMenuCommandProperty(MenuRef inMenu, MenuCommand inCommandID, OSType inPropertyCreator,
                                OSType inPropertyTag, ByteCount inPropertySize, const void* inPropertyData)
{
    return WithCommand(inMenu, inCommandID, [&](MenuRef theMenu, MenuItemIndex theItem) {
        return SetMenuItemProperty(theMenu, theItem, inPropertyCreator, inPropertyTag, inPropertySize,
                                   inPropertyData);
    });
}

OSStatus GetMenuCommandProperty(MenuRef inMenu, MenuCommand inCommandID, OSType inPropertyCreator,
                                OSType inPropertyTag, ByteCount inBufferSize, ByteCount* outActualSize,
                                void* inPropertyBuffer)
{
    return WithCommand(inMenu, inCommandID, [&](MenuRef theMenu, MenuItemIndex theItem) {
        return GetMenuItemProperty(theMenu, theItem, inPropertyCreator, inPropertyTag, inBufferSize,
                                   outActualSize, inPropertyBuffer);
    });
}

OSStatus GetMenuCommandPropertySize(MenuRef inMenu, MenuCommand inCommandID, OSType inPropertyCreator,
                                    OSType inPropertyTag, ByteCount* outSize)
{
    return WithCommand(inMenu, inCommandID, [&](MenuRef theMenu, MenuItemIndex theItem) {
        return GetMenuItemPropertySize(theMenu, theItem, inPropertyCreator, inPropertyTag, outSize);
    });
}

OSStatus RemoveMenuCommandProperty(MenuRef inMenu, MenuCommand inCommandID, OSType inPropertyCreator,
                                   OSType inPropertyTag)
{
    return WithCommand(inMenu, inCommandID, [&](MenuRef theMenu, MenuItemIndex theItem) {
        return RemoveMenuItemProperty(theMenu, theItem, inPropertyCreator, inPropertyTag);
    });
}
