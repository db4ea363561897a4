// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef MenuTestSupport_h
#define MenuTestSupport_h

#include "EventTestSupport.h"

#include <Carbon/Carbon.h>
#include <gtest/gtest.h>
#include <Presentation/Presenter.h>
#include <Presentation/PresenterRegistry.h>
#include <string>

// A string that is no constant: its count can be looked at.
inline CFMutableStringRef NewMutableString(const char* theText)
{
    CFMutableStringRef theString = CFStringCreateMutable(nullptr, 0);
    CFStringAppendCString(theString, theText, kCFStringEncodingUTF8);
    return theString;
}

// The text of a string, which is released.
inline std::string TakeText(CFStringRef theString)
{
    if (theString == nullptr) {
        return "(none)";
    }
    char theText[1024] = "";
    CFStringGetCString(theString, theText, sizeof theText, kCFStringEncodingUTF8);
    CFRelease(theString);
    return theText;
}

inline std::string ItemText(MenuRef theMenu, MenuItemIndex theItem)
{
    CFStringRef theString = nullptr;
    CopyMenuItemTextAsCFString(theMenu, theItem, &theString);
    return TakeText(theString);
}

// The texts of all items.
inline Log ItemTexts(MenuRef theMenu)
{
    Log theTexts;
    for (MenuItemIndex theItem = 1; theItem <= CountMenuItems(theMenu); ++theItem) {
        theTexts.push_back(ItemText(theMenu, theItem));
    }
    return theTexts;
}

// What the menu bar looks like to a presenter.
inline Host::MenuBarLook BarLook()
{
    class BarReader : public Host::Presenter
    {
    public:
        void MenuBarLooks(const Host::MenuBarLook& theLook) override { mLook = theLook; }
        Host::MenuBarLook mLook;
    };
    BarReader theReader;
    Host::PresenterRegistry::ReplayLooks(theReader);
    return theReader.mLook;
}

// Menus to test with:
//
//     File: Open (oO), Save (save), Recent > First (frst), Second (scnd)
//     Edit: Cut (cut ), -, Save (save)
//
// Everything is taken out of the bar again at the end.
class MenuTest : public testing::Test
{
protected:
    MenuTest()
    {
        mRecent = NewMenuWith(130, "Recent", {{"First", 'frst'}, {"Second", 'scnd'}});
        mFile = NewMenuWith(128, "File", {{"Open", 'open'}, {"Save", 'save'}, {"Recent", 0}});
        mEdit = NewMenuWith(129, "Edit", {{"Cut", 'cut '}, {"-", 0}, {"Save", 'save'}});
        ChangeMenuItemAttributes(mEdit, 2, kMenuItemAttrSeparator, 0);
        SetMenuItemHierarchicalMenu(mFile, 3, mRecent);
        InsertMenu(mFile, 0);
        InsertMenu(mEdit, 0);
    }
    ~MenuTest() override
    {
        ClearMenuBar();
        for (const MenuRef theMenu : {mFile, mEdit, mRecent}) {
            if (IsValidMenu(theMenu)) {
                DisposeMenu(theMenu);
            }
        }
    }

    struct NewItem
    {
        const char* theText;
        MenuCommand theCommand;
    };

    static MenuRef NewMenuWith(MenuID theID, const char* theTitle, const std::vector<NewItem>& theItems)
    {
        MenuRef theMenu = nullptr;
        CreateNewMenu(theID, 0, &theMenu);
        CFStringRef theString = NewMutableString(theTitle);
        SetMenuTitleWithCFString(theMenu, theString);
        CFRelease(theString);
        for (const NewItem& theItem : theItems) {
            theString = NewMutableString(theItem.theText);
            AppendMenuItemTextWithCFString(theMenu, theString, 0, theItem.theCommand, nullptr);
            CFRelease(theString);
        }
        return theMenu;
    }

    Log mLog;
    MenuRef mFile = nullptr;
    MenuRef mEdit = nullptr;
    MenuRef mRecent = nullptr;
};

#endif
