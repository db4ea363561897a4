// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What every call on menus answers to references that are none, and to texts and places that are missing.

#include "MenuTestSupport.h"

namespace {

using BadMenuArguments = MenuTest;

} // namespace

class BadMenuReference : public MenuTest, public testing::WithParamInterface<int>
{
protected:
    MenuRef Reference() const
    {
        switch (GetParam()) {
        case 0:
            return nullptr;
        case 1:
            return DisposedMenu();
        default:
            return InventedReference<MenuRef>();
        }
    }
};

TEST_P(BadMenuReference, GetsAStatusFromEveryCall)
{
    const MenuRef theMenu = Reference();
    CFStringRef theString = nullptr;
    MenuRef theOther = nullptr;
    UInt32 theWord = 0;
    UInt16 theShort = 0;
    UInt8 theByte = 0;
    CharParameter theCharacter = 0;
    URefCon theRefCon{};
    ByteCount theSize = 0;
    Str255 theText = {3, 'a', 'b', 'c'};
    EXPECT_FALSE(IsValidMenu(theMenu));
    EXPECT_EQ(RetainMenu(theMenu), menuInvalidErr);
    EXPECT_EQ(ReleaseMenu(theMenu), menuInvalidErr);
    DisposeMenu(theMenu);
    EXPECT_EQ(GetMenuRetainCount(theMenu), 0u);
    EXPECT_EQ(DuplicateMenu(theMenu, &theOther), menuInvalidErr);
    EXPECT_EQ(SetRootMenu(theMenu), menuInvalidErr);
    InsertMenu(theMenu, 0);
    EXPECT_EQ(GetMenuID(theMenu), 0);
    SetMenuID(theMenu, 5);
    EXPECT_EQ(SetMenuTitleWithCFString(theMenu, CFSTR("a")), menuInvalidErr);
    EXPECT_EQ(CopyMenuTitleAsCFString(theMenu, &theString), menuInvalidErr);
    EXPECT_EQ(SetMenuTitle(theMenu, theText), menuInvalidErr);
    EXPECT_EQ(GetMenuTitle(theMenu, theText), nullptr);
    EXPECT_EQ(GetMenuAttributes(theMenu, &theWord), menuInvalidErr);
    EXPECT_EQ(ChangeMenuAttributes(theMenu, 1, 0), menuInvalidErr);
    EXPECT_EQ(CountMenuItems(theMenu), 0);
    EXPECT_EQ(AppendMenuItemTextWithCFString(theMenu, CFSTR("a"), 0, 0, nullptr), menuInvalidErr);
    EXPECT_EQ(InsertMenuItemTextWithCFString(theMenu, CFSTR("a"), 0, 0, 0), menuInvalidErr);
    EXPECT_EQ(AppendMenuItemText(theMenu, theText), menuInvalidErr);
    EXPECT_EQ(AppendMenuItemText(theMenu, nullptr), menuInvalidErr);
    DeleteMenuItem(theMenu, 1);
    EXPECT_EQ(DeleteMenuItems(theMenu, 1, 1), menuInvalidErr);
    EXPECT_EQ(SetMenuItemTextWithCFString(theMenu, 1, CFSTR("a")), menuInvalidErr);
    EXPECT_EQ(CopyMenuItemTextAsCFString(theMenu, 1, &theString), menuInvalidErr);
    SetMenuItemText(theMenu, 1, theText);
    GetMenuItemText(theMenu, 1, theText);
    EXPECT_EQ(theText[0], 0);
    EXPECT_EQ(SetMenuItemCommandID(theMenu, 1, 'cmnd'), menuInvalidErr);
    EXPECT_EQ(GetMenuItemCommandID(theMenu, 1, &theWord), menuInvalidErr);
    EnableMenuItem(theMenu, 0);
    DisableMenuItem(theMenu, 1);
    EXPECT_FALSE(IsMenuItemEnabled(theMenu, 0));
    EnableAllMenuItems(theMenu);
    DisableAllMenuItems(theMenu);
    EXPECT_FALSE(MenuHasEnabledItems(theMenu));
    CheckMenuItem(theMenu, 1, true);
    SetItemMark(theMenu, 1, 'x');
    GetItemMark(theMenu, 1, &theCharacter);
    EXPECT_EQ(SetMenuItemHierarchicalMenu(theMenu, 1, mRecent), menuInvalidErr);
    EXPECT_EQ(GetMenuItemHierarchicalMenu(theMenu, 1, &theOther), menuInvalidErr);
    EXPECT_EQ(SetMenuItemCommandKey(theMenu, 1, false, 'X'), menuInvalidErr);
    EXPECT_EQ(GetMenuItemCommandKey(theMenu, 1, false, &theShort), menuInvalidErr);
    SetItemCmd(theMenu, 1, 'X');
    GetItemCmd(theMenu, 1, &theCharacter);
    EXPECT_EQ(SetMenuItemModifiers(theMenu, 1, 0), menuInvalidErr);
    EXPECT_EQ(GetMenuItemModifiers(theMenu, 1, &theByte), menuInvalidErr);
    EXPECT_EQ(GetMenuItemAttributes(theMenu, 1, &theWord), menuInvalidErr);
    EXPECT_EQ(ChangeMenuItemAttributes(theMenu, 1, 1, 0), menuInvalidErr);
    EXPECT_EQ(SetMenuItemRefCon(theMenu, 1, theRefCon), menuInvalidErr);
    EXPECT_EQ(GetMenuItemRefCon(theMenu, 1, &theRefCon), menuInvalidErr);
    EXPECT_EQ(SetMenuItemProperty(theMenu, 1, 'MINE', 'data', 1, "a"), menuInvalidErr);
    EXPECT_EQ(GetMenuItemProperty(theMenu, 1, 'MINE', 'data', 1, &theSize, theText), menuInvalidErr);
    EXPECT_EQ(GetMenuItemPropertySize(theMenu, 1, 'MINE', 'data', &theSize), menuInvalidErr);
    EXPECT_EQ(RemoveMenuItemProperty(theMenu, 1, 'MINE', 'data'), menuInvalidErr);
    EXPECT_EQ(PopUpMenuSelect(theMenu, 0, 0, 0), 0);
    EXPECT_EQ(GetMenuEventTarget(theMenu), nullptr);
}

INSTANTIATE_TEST_SUITE_P(NullDisposedAndInvented, BadMenuReference, testing::Range(0, 3));

TEST_F(BadMenuArguments, PlacesForResultsMustBeGiven)
{
    EXPECT_EQ(CreateNewMenu(1, 0, nullptr), paramErr);
    EXPECT_EQ(DuplicateMenu(mFile, nullptr), paramErr);
    EXPECT_EQ(CopyMenuTitleAsCFString(mFile, nullptr), paramErr);
    EXPECT_EQ(GetMenuTitle(mFile, nullptr), nullptr);
    EXPECT_EQ(GetMenuAttributes(mFile, nullptr), paramErr);
    EXPECT_EQ(CopyMenuItemTextAsCFString(mFile, 1, nullptr), paramErr);
    GetMenuItemText(mFile, 1, nullptr);
    EXPECT_EQ(GetMenuItemCommandID(mFile, 1, nullptr), paramErr);
    GetItemMark(mFile, 1, nullptr);
    GetItemCmd(mFile, 1, nullptr);
    EXPECT_EQ(GetMenuItemHierarchicalMenu(mFile, 1, nullptr), paramErr);
    EXPECT_EQ(GetMenuItemCommandKey(mFile, 1, false, nullptr), paramErr);
    EXPECT_EQ(GetMenuItemModifiers(mFile, 1, nullptr), paramErr);
    EXPECT_EQ(GetMenuItemAttributes(mFile, 1, nullptr), paramErr);
    EXPECT_EQ(GetMenuItemRefCon(mFile, 1, nullptr), paramErr);
    EXPECT_EQ(GetMenuCommandMark(nullptr, 'save', nullptr), paramErr);
}

TEST_F(BadMenuArguments, NoTextIsRefused)
{
    EXPECT_EQ(SetMenuTitleWithCFString(mFile, nullptr), paramErr);
    EXPECT_EQ(SetMenuTitle(mFile, nullptr), paramErr);
    EXPECT_EQ(AppendMenuItemTextWithCFString(nullptr, nullptr, 0, 0, nullptr), menuInvalidErr);
    EXPECT_EQ(InsertMenuItemTextWithCFString(nullptr, nullptr, 0, 0, 0), menuInvalidErr);
    EXPECT_EQ(AppendMenuItemText(mFile, nullptr), paramErr);
    EXPECT_EQ(SetMenuItemTextWithCFString(mFile, 1, nullptr), paramErr);
    SetMenuItemText(mFile, 1, nullptr);
    EXPECT_EQ(ItemTexts(mFile), (Log{"Open", "Save", "Recent"}));
}
