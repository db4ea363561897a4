// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The items of menus, as the platform's headers describe them.

#include "MenuTestSupport.h"

#include <cstring>

namespace {

using MenuItems = MenuTest;

} // namespace

// --- Bad references ---------------------------------------------------------------------------------

class MissingItem : public MenuTest, public testing::WithParamInterface<int>
{
};

TEST_P(MissingItem, IsNotFound)
{
    const auto theItem = static_cast<MenuItemIndex>(GetParam());
    CFStringRef theString = nullptr;
    UInt32 theWord = 0;
    EXPECT_EQ(SetMenuItemTextWithCFString(mFile, theItem, CFSTR("a")), menuItemNotFoundErr);
    EXPECT_EQ(CopyMenuItemTextAsCFString(mFile, theItem, &theString), menuItemNotFoundErr);
    EXPECT_EQ(SetMenuItemCommandID(mFile, theItem, 'cmnd'), menuItemNotFoundErr);
    EXPECT_EQ(GetMenuItemCommandID(mFile, theItem, &theWord), menuItemNotFoundErr);
    EXPECT_EQ(GetMenuItemAttributes(mFile, theItem, &theWord), menuItemNotFoundErr);
    EXPECT_EQ(SetMenuItemHierarchicalMenu(mFile, theItem, mEdit), menuItemNotFoundErr);
    EXPECT_EQ(DeleteMenuItems(mFile, theItem, 1), menuItemNotFoundErr);
    DeleteMenuItem(mFile, theItem);
    EXPECT_EQ(CountMenuItems(mFile), 3);
}

INSTANTIATE_TEST_SUITE_P(BeforeAndBeyond, MissingItem, testing::Values(0, 4, 65535));

// --- Items ------------------------------------------------------------------------------------------

TEST_F(MenuItems, ItemsAreInsertedAfterOthers)
{
    MenuItemIndex theNew = 0;
    EXPECT_EQ(AppendMenuItemTextWithCFString(mRecent, CFSTR("Last"), 0, 0, &theNew), noErr);
    EXPECT_EQ(theNew, 3);
    EXPECT_EQ(InsertMenuItemTextWithCFString(mRecent, CFSTR("Top"), 0, 0, 0), noErr);
    EXPECT_EQ(InsertMenuItemTextWithCFString(mRecent, CFSTR("After First"), 2, 0, 0), noErr);
    EXPECT_EQ(InsertMenuItemTextWithCFString(mRecent, CFSTR("Beyond"), 99, 0, 0), noErr);
    const unsigned char theText[] = {4, '-', '(', ';', 'x'};
    EXPECT_EQ(AppendMenuItemText(mRecent, theText), noErr);
    EXPECT_EQ(ItemTexts(mRecent), (Log{"Top", "First", "After First", "Second", "Last", "Beyond", "-(;x"}));
}

TEST_F(MenuItems, ANewItemHasTheAttributesAndCommandItWasGiven)
{
    AppendMenuItemTextWithCFString(mRecent, CFSTR("New"), kMenuItemAttrDisabled | kMenuItemAttrDynamic,
                                   'new ', nullptr);
    MenuItemAttributes theAttributes = 0;
    MenuCommand theCommand = 0;
    EXPECT_EQ(GetMenuItemAttributes(mRecent, 3, &theAttributes), noErr);
    EXPECT_EQ(theAttributes, UInt32(kMenuItemAttrDisabled | kMenuItemAttrDynamic));
    EXPECT_EQ(GetMenuItemCommandID(mRecent, 3, &theCommand), noErr);
    EXPECT_EQ(theCommand, MenuCommand('new '));
    EXPECT_FALSE(IsMenuItemEnabled(mRecent, 3));
    EXPECT_EQ(MarkOf(mRecent, 3), noMark);
}

TEST_F(MenuItems, ANullTextIsTheEmptyTextAndEnoughForASeparator)
{
    MenuItemIndex theNew = 0;
    EXPECT_EQ(AppendMenuItemTextWithCFString(mRecent, nullptr, kMenuItemAttrSeparator, 0, &theNew), noErr);
    EXPECT_EQ(theNew, 3);
    MenuItemAttributes theAttributes = 0;
    GetMenuItemAttributes(mRecent, theNew, &theAttributes);
    EXPECT_EQ(theAttributes & kMenuItemAttrSeparator, UInt32{kMenuItemAttrSeparator});
    EXPECT_EQ(InsertMenuItemTextWithCFString(mRecent, nullptr, 0, 0, 0), noErr);
    CFStringRef theText = nullptr;
    ASSERT_EQ(CopyMenuItemTextAsCFString(mRecent, 1, &theText), noErr);
    EXPECT_EQ(CFStringGetLength(theText), 0);
    CFRelease(theText);
}

TEST_F(MenuItems, ItemsCanBeDeletedOneOrMoreAtATime)
{
    DeleteMenuItem(mFile, 2);
    EXPECT_EQ(ItemTexts(mFile), (Log{"Open", "Recent"}));
    EXPECT_EQ(DeleteMenuItems(mFile, 1, 3), menuItemNotFoundErr);
    EXPECT_EQ(DeleteMenuItems(mFile, 1, ~ItemCount(0)), menuItemNotFoundErr);
    EXPECT_EQ(DeleteMenuItems(mFile, 1, 0), noErr);
    EXPECT_EQ(CountMenuItems(mFile), 2);
    EXPECT_EQ(DeleteMenuItems(mFile, 1, 2), noErr);
    EXPECT_EQ(CountMenuItems(mFile), 0);
    EXPECT_EQ(GetMenuRetainCount(mRecent), 1u);
}

TEST_F(MenuItems, AMenuIsFullAt65534Items)
{
    MenuRef theMenu = nullptr;
    CreateNewMenu(1, 0, &theMenu);
    for (int theCount = 0; theCount < 65534; ++theCount) {
        ASSERT_EQ(AppendMenuItemTextWithCFString(theMenu, CFSTR("x"), 0, 0, nullptr), noErr);
    }
    EXPECT_EQ(AppendMenuItemTextWithCFString(theMenu, CFSTR("x"), 0, 0, nullptr), paramErr);
    EXPECT_EQ(CountMenuItems(theMenu), 65534);
    DisposeMenu(theMenu);
}

TEST_F(MenuItems, MutableTextsAreCopiedAndImmutableOnesRetained)
{
    CFMutableStringRef theMutable = NewMutableString("before");
    SetMenuItemTextWithCFString(mFile, 1, theMutable);
    EXPECT_EQ(CFGetRetainCount(theMutable), 1);
    CFStringAppendCString(theMutable, " and after", kCFStringEncodingUTF8);
    EXPECT_EQ(ItemText(mFile, 1), "before");
    CFStringRef theImmutable = CFStringCreateCopy(nullptr, theMutable);
    SetMenuItemTextWithCFString(mFile, 1, theImmutable);
    EXPECT_EQ(CFGetRetainCount(theImmutable), 2);
    CFStringRef theCopy = nullptr;
    CopyMenuItemTextAsCFString(mFile, 1, &theCopy);
    EXPECT_EQ(TakeText(theCopy), "before and after");
    SetMenuItemTextWithCFString(mFile, 1, CFSTR("x"));
    EXPECT_EQ(CFGetRetainCount(theImmutable), 1);
    CFRelease(theImmutable);
    CFRelease(theMutable);
}

TEST_F(MenuItems, ItemsAreEnabledAndDisabledOneByOne)
{
    DisableMenuItem(mFile, 1);
    EXPECT_FALSE(IsMenuItemEnabled(mFile, 1));
    EXPECT_TRUE(IsMenuItemEnabled(mFile, 2));
    EXPECT_TRUE(IsMenuItemEnabled(mFile, 0));
    EXPECT_FALSE(IsMenuItemEnabled(mFile, 9));
    EnableMenuItem(mFile, 1);
    EXPECT_TRUE(IsMenuItemEnabled(mFile, 1));
}

TEST_F(MenuItems, DisablingTheMenuLeavesTheItemsTheirStates)
{
    DisableMenuItem(mFile, 0);
    EXPECT_FALSE(IsMenuItemEnabled(mFile, 0));
    EXPECT_TRUE(IsMenuItemEnabled(mFile, 1));
    EnableMenuItem(mFile, 0);
    EXPECT_TRUE(IsMenuItemEnabled(mFile, 0));
}

TEST_F(MenuItems, AllItemsAreEnabledAndDisabledWithoutTheTitle)
{
    DisableAllMenuItems(mEdit);
    EXPECT_FALSE(IsMenuItemEnabled(mEdit, 1));
    EXPECT_FALSE(IsMenuItemEnabled(mEdit, 3));
    EXPECT_TRUE(IsMenuItemEnabled(mEdit, 0));
    EXPECT_FALSE(MenuHasEnabledItems(mEdit));
    EnableMenuItem(mEdit, 2);
    EXPECT_FALSE(MenuHasEnabledItems(mEdit)) << "the second item is a separator";
    EnableAllMenuItems(mEdit);
    DisableMenuItem(mEdit, 0);
    EXPECT_TRUE(MenuHasEnabledItems(mEdit));
    EXPECT_TRUE(IsMenuItemEnabled(mEdit, 3));
}

TEST_F(MenuItems, AMarkIsAnyCharacter)
{
    CheckMenuItem(mFile, 1, true);
    EXPECT_EQ(MarkOf(mFile, 1), 18);
    CheckMenuItem(mFile, 1, false);
    EXPECT_EQ(MarkOf(mFile, 1), 0);
    SetItemMark(mFile, 1, 0xA5);
    EXPECT_EQ(MarkOf(mFile, 1), 0xA5);
    SetItemMark(mFile, 1, diamondMark);
    EXPECT_EQ(MarkOf(mFile, 1), 19);
    SetItemMark(mFile, 1, noMark);
    EXPECT_EQ(MarkOf(mFile, 1), 0);
}

TEST_F(MenuItems, ACommandKeyIsACharacterOrAPosition)
{
    UInt16 theKey = 99;
    CharParameter theCharacter = 99;
    MenuItemAttributes theAttributes = 0;
    EXPECT_EQ(SetMenuItemCommandKey(mFile, 1, false, 'O'), noErr);
    EXPECT_EQ(GetMenuItemCommandKey(mFile, 1, false, &theKey), noErr);
    EXPECT_EQ(theKey, 'O');
    EXPECT_EQ(GetMenuItemCommandKey(mFile, 1, true, &theKey), noErr);
    EXPECT_EQ(theKey, 0);
    EXPECT_EQ(SetMenuItemCommandKey(mFile, 1, true, kVK_F1), noErr);
    EXPECT_EQ(GetMenuItemCommandKey(mFile, 1, true, &theKey), noErr);
    EXPECT_EQ(theKey, UInt16(kVK_F1));
    GetMenuItemAttributes(mFile, 1, &theAttributes);
    EXPECT_EQ(theAttributes, MenuItemAttributes(kMenuItemAttrUseVirtualKey));
    GetItemCmd(mFile, 1, &theCharacter);
    EXPECT_EQ(theCharacter, 'O') << "the position is beside it";
    SetItemCmd(mFile, 1, 'Q');
    GetItemCmd(mFile, 1, &theCharacter);
    EXPECT_EQ(theCharacter, 'Q');
    GetMenuItemAttributes(mFile, 1, &theAttributes);
    EXPECT_EQ(theAttributes, 0u);
    EXPECT_EQ(GetMenuItemCommandKey(mFile, 1, true, &theKey), noErr);
    EXPECT_EQ(theKey, UInt16(kVK_F1)) << "the character is beside it";
    UInt8 theModifiers = 99;
    EXPECT_EQ(GetMenuItemModifiers(mFile, 1, &theModifiers), noErr);
    EXPECT_EQ(theModifiers, kMenuNoModifiers);
    EXPECT_EQ(SetMenuItemModifiers(mFile, 1, kMenuShiftModifier), noErr);
    EXPECT_EQ(GetMenuItemModifiers(mFile, 1, &theModifiers), noErr);
    EXPECT_EQ(theModifiers, kMenuShiftModifier);
}

TEST_F(MenuItems, TheAttributeOfAPositionMakesNoPositionOfACharacter)
{
    UInt16 theKey = 99;
    SetMenuItemCommandKey(mFile, 1, false, 'O');
    ChangeMenuItemAttributes(mFile, 1, kMenuItemAttrUseVirtualKey, 0);
    EXPECT_EQ(GetMenuItemCommandKey(mFile, 1, true, &theKey), noErr);
    EXPECT_EQ(theKey, 0);
    EXPECT_EQ(GetMenuItemCommandKey(mFile, 1, false, &theKey), noErr);
    EXPECT_EQ(theKey, 'O');
}

TEST_F(MenuItems, AttributesAreSetAndCleared)
{
    MenuItemAttributes theItem = 0;
    EXPECT_EQ(ChangeMenuItemAttributes(mFile, 1, kMenuItemAttrHidden | kMenuItemAttrDisabled, 0), noErr);
    EXPECT_FALSE(IsMenuItemEnabled(mFile, 1));
    EXPECT_EQ(ChangeMenuItemAttributes(mFile, 1, kMenuItemAttrAutoRepeat, kMenuItemAttrDisabled), noErr);
    EXPECT_EQ(GetMenuItemAttributes(mFile, 1, &theItem), noErr);
    EXPECT_EQ(theItem, UInt32(kMenuItemAttrHidden | kMenuItemAttrAutoRepeat));
    MenuAttributes theMenu = 0;
    EXPECT_EQ(ChangeMenuAttributes(mFile, kMenuAttrHidden | kMenuAttrAutoDisable, kMenuAttrHidden), noErr);
    EXPECT_EQ(GetMenuAttributes(mFile, &theMenu), noErr);
    EXPECT_EQ(theMenu, MenuAttributes(kMenuAttrAutoDisable));
}

TEST_F(MenuItems, AnItemKeepsAValueAndDataOfTheApplication)
{
    URefCon theRefCon{};
    URefCon theRead{};
    std::memset(&theRefCon, 0x5A, sizeof theRefCon);
    EXPECT_EQ(SetMenuItemRefCon(mFile, 1, theRefCon), noErr);
    EXPECT_EQ(GetMenuItemRefCon(mFile, 1, &theRead), noErr);
    EXPECT_EQ(theRead, theRefCon);
    char theBuffer[4] = {'.', '.', '.', '.'};
    ByteCount theSize = 0;
    EXPECT_EQ(SetMenuItemProperty(mFile, 1, 'mine', 'data', 3, "abc"), menuPropertyInvalidErr);
    EXPECT_EQ(SetMenuItemProperty(mFile, 1, 'MINE', 'data', 3, "abc"), noErr);
    EXPECT_EQ(GetMenuItemPropertySize(mFile, 1, 'MINE', 'data', &theSize), noErr);
    EXPECT_EQ(theSize, 3u);
    EXPECT_EQ(GetMenuItemProperty(mFile, 1, 'MINE', 'data', 3, nullptr, theBuffer), noErr);
    EXPECT_EQ(std::string(theBuffer, 4), "abc.");
    EXPECT_EQ(RemoveMenuItemProperty(mFile, 1, 'MINE', 'data'), noErr);
    EXPECT_EQ(RemoveMenuItemProperty(mFile, 1, 'MINE', 'data'), menuPropertyNotFoundErr);
    EXPECT_EQ(GetMenuItemProperty(mFile, 2, 'MINE', 'data', 3, &theSize, theBuffer), menuPropertyNotFoundErr);
}

TEST_F(MenuItems, AnAttachedMenuIsRetainedByItsItem)
{
    MenuRef theMenu = nullptr;
    CreateNewMenu(1, 0, &theMenu);
    EXPECT_EQ(SetMenuItemHierarchicalMenu(mFile, 1, theMenu), noErr);
    EXPECT_EQ(GetMenuRetainCount(theMenu), 2u);
    EXPECT_EQ(SetMenuItemHierarchicalMenu(mFile, 1, theMenu), noErr);
    EXPECT_EQ(GetMenuRetainCount(theMenu), 2u);
    EXPECT_EQ(SetMenuItemHierarchicalMenu(mFile, 1, nullptr), noErr);
    EXPECT_EQ(GetMenuRetainCount(theMenu), 1u);
    MenuRef theRead = theMenu;
    EXPECT_EQ(GetMenuItemHierarchicalMenu(mFile, 1, &theRead), noErr);
    EXPECT_EQ(theRead, nullptr);
    SetMenuItemHierarchicalMenu(mFile, 1, theMenu);
    DisposeMenu(theMenu);
    EXPECT_TRUE(IsValidMenu(theMenu));
    DeleteMenuItem(mFile, 1);
    EXPECT_FALSE(IsValidMenu(theMenu));
    EXPECT_EQ(SetMenuItemHierarchicalMenu(mFile, 1, theMenu), menuInvalidErr);
}

TEST_F(MenuItems, AMenuCannotComeToHoldItself)
{
    EXPECT_EQ(SetMenuItemHierarchicalMenu(mFile, 1, mFile), paramErr);
    EXPECT_EQ(SetMenuItemHierarchicalMenu(mRecent, 1, mFile), paramErr);
    EXPECT_EQ(SetMenuItemHierarchicalMenu(mRecent, 1, mEdit), noErr);
    EXPECT_EQ(SetMenuItemHierarchicalMenu(mEdit, 1, mFile), paramErr);
    SetMenuItemHierarchicalMenu(mRecent, 1, nullptr);
}
