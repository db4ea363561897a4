// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Menus, items and their commands, as the platform's headers describe them.

#include "MenuTestSupport.h"

#include <cstring>
#include <memory>

namespace {

using MenuManager = MenuTest;

MenuRef DisposedMenu()
{
    MenuRef theMenu = nullptr;
    CreateNewMenu(1, 0, &theMenu);
    DisposeMenu(theMenu);
    return theMenu;
}

CharParameter MarkOf(MenuRef theMenu, MenuItemIndex theItem)
{
    CharParameter theMark = -1;
    GetItemMark(theMenu, theItem, &theMark);
    return theMark;
}

std::string PascalText(const unsigned char* theText)
{
    return std::string(reinterpret_cast<const char*>(theText) + 1, theText[0]);
}

} // namespace

// --- Life -------------------------------------------------------------------------------------------

TEST_F(MenuManager, ANewMenuIsEmptyUntitledAndTheCallers)
{
    MenuRef theMenu = nullptr;
    ASSERT_EQ(CreateNewMenu(7, kMenuAttrAutoDisable, &theMenu), noErr);
    EXPECT_TRUE(IsValidMenu(theMenu));
    EXPECT_EQ(GetMenuID(theMenu), 7);
    EXPECT_EQ(CountMenuItems(theMenu), 0);
    EXPECT_EQ(GetMenuRetainCount(theMenu), 1u);
    MenuAttributes theAttributes = 0;
    EXPECT_EQ(GetMenuAttributes(theMenu, &theAttributes), noErr);
    EXPECT_EQ(theAttributes, MenuAttributes(kMenuAttrAutoDisable));
    CFStringRef theTitle = nullptr;
    EXPECT_EQ(CopyMenuTitleAsCFString(theMenu, &theTitle), noErr);
    EXPECT_EQ(TakeText(theTitle), "");
    EXPECT_TRUE(IsMenuItemEnabled(theMenu, 0));
    DisposeMenu(theMenu);
    EXPECT_FALSE(IsValidMenu(theMenu));
}

TEST_F(MenuManager, AMenuLivesUntilItsLastReferenceIsGone)
{
    MenuRef theMenu = nullptr;
    CreateNewMenu(7, 0, &theMenu);
    EXPECT_EQ(RetainMenu(theMenu), noErr);
    EXPECT_EQ(GetMenuRetainCount(theMenu), 2u);
    EXPECT_EQ(ReleaseMenu(theMenu), noErr);
    EXPECT_TRUE(IsValidMenu(theMenu));
    EXPECT_EQ(ReleaseMenu(theMenu), noErr);
    EXPECT_EQ(ReleaseMenu(theMenu), menuInvalidErr);
}

TEST_F(MenuManager, TheEndOfAMenuIsToldWhileItCanStillBeRead)
{
    const MenuRef theMenu = NewMenuWith(7, "Going", {{"Item", 'item'}});
    MenuRef theSeen = nullptr;
    std::string theText;
    const TestHandler theLower(GetMenuEventTarget(theMenu), "lower", mLog,
                               [&](EventHandlerCallRef, EventRef theEvent) {
                                   GetEventParameter(theEvent, kEventParamDirectObject, typeMenuRef, nullptr,
                                                     sizeof theSeen, nullptr, &theSeen);
                                   theText = ItemText(theSeen, 1);
                                   return OSStatus(eventNotHandledErr);
                               },
                               {{kEventClassMenu, kEventMenuDispose}});
    const TestHandler theUpper(GetMenuEventTarget(theMenu), "upper", mLog,
                               [](EventHandlerCallRef, EventRef) { return OSStatus(noErr); },
                               {{kEventClassMenu, kEventMenuDispose}});
    DisposeMenu(theMenu);
    EXPECT_EQ(mLog, (Log{"upper", "lower"}));
    EXPECT_EQ(theSeen, theMenu);
    EXPECT_EQ(theText, "Item");
    EXPECT_EQ(GetMenuEventTarget(theMenu), nullptr);
}

TEST_F(MenuManager, RetainingAMenuThatIsGoingDoesNotSaveIt)
{
    MenuRef theMenu = nullptr;
    CreateNewMenu(7, 0, &theMenu);
    const TestHandler theHandler(GetMenuEventTarget(theMenu), "end", mLog,
                                 [&](EventHandlerCallRef, EventRef) {
                                     EXPECT_EQ(RetainMenu(theMenu), noErr);
                                     EXPECT_EQ(ReleaseMenu(theMenu), noErr);
                                     return OSStatus(noErr);
                                 },
                                 {{kEventClassMenu, kEventMenuDispose}});
    DisposeMenu(theMenu);
    EXPECT_EQ(mLog, Log{"end"});
    EXPECT_FALSE(IsValidMenu(theMenu));
}

TEST_F(MenuManager, AnEventKeepsTheMenuInIt)
{
    MenuRef theMenu = nullptr;
    CreateNewMenu(7, 0, &theMenu);
    {
        TestEvent theEvent;
        theEvent.Set(kEventParamDirectObject, typeMenuRef, theMenu);
        EXPECT_EQ(GetMenuRetainCount(theMenu), 2u);
        DisposeMenu(theMenu);
        EXPECT_TRUE(IsValidMenu(theMenu));
    }
    EXPECT_FALSE(IsValidMenu(theMenu));
}

TEST_F(MenuManager, MenusThatHoldMenusEndHoweverDeepTheyAre)
{
    const MenuRef theInnermost = NewMenuWith(7, "", {{"Item", 'deep'}});
    MenuRef theOuter = theInnermost;
    for (int theDepth = 0; theDepth < 1000; ++theDepth) {
        const MenuRef theHolder = NewMenuWith(7, "", {{"Item", 0}});
        ASSERT_EQ(SetMenuItemHierarchicalMenu(theHolder, 1, theOuter), noErr);
        DisposeMenu(theOuter);
        theOuter = theHolder;
    }
    EXPECT_EQ(CountMenuItemsWithCommandID(theOuter, 'deep'), 1u);
    EXPECT_EQ(GetMenuRetainCount(theInnermost), 1u);
    DisposeMenu(theOuter);
    EXPECT_FALSE(IsValidMenu(theInnermost));
}

TEST_F(MenuManager, ADuplicateHasTheSameItemsAndALifeOfItsOwn)
{
    SetItemMark(mFile, 1, checkMark);
    SetMenuItemProperty(mFile, 1, 'MINE', 'data', 3, "abc");
    DisableMenuItem(mFile, 0);
    MenuRef theCopy = nullptr;
    ASSERT_EQ(DuplicateMenu(mFile, &theCopy), noErr);
    EXPECT_EQ(ItemTexts(theCopy), (Log{"Open", "Save", "Recent"}));
    EXPECT_EQ(GetMenuID(theCopy), 128);
    EXPECT_EQ(MarkOf(theCopy, 1), checkMark);
    EXPECT_FALSE(IsMenuItemEnabled(theCopy, 0));
    ByteCount theSize = 0;
    EXPECT_EQ(GetMenuItemPropertySize(theCopy, 1, 'MINE', 'data', &theSize), noErr);
    EXPECT_EQ(theSize, 3u);
    MenuRef theSubmenu = nullptr;
    EXPECT_EQ(GetMenuItemHierarchicalMenu(theCopy, 3, &theSubmenu), noErr);
    EXPECT_EQ(theSubmenu, mRecent);
    EXPECT_EQ(GetMenuRetainCount(mRecent), 3u);
    CFStringRef theTitle = nullptr;
    CopyMenuTitleAsCFString(theCopy, &theTitle);
    EXPECT_EQ(TakeText(theTitle), "File");
    DeleteMenuItem(theCopy, 1);
    EXPECT_EQ(CountMenuItems(mFile), 3);
    EXPECT_EQ(GetMenuRetainCount(theCopy), 1u);
    DisposeMenu(theCopy);
    EXPECT_EQ(GetMenuRetainCount(mRecent), 2u);
}

TEST_F(MenuManager, AMenuCanBeMadeWithAPascalTitle)
{
    const unsigned char theTitle[] = {5, 'T', 'i', 't', 'l', 'e'};
    const MenuRef theMenu = NewMenu(9, theTitle);
    Str255 theRead = {0};
    EXPECT_EQ(GetMenuTitle(theMenu, theRead), theRead);
    EXPECT_EQ(PascalText(theRead), "Title");
    EXPECT_EQ(GetMenuID(theMenu), 9);
    DisposeMenu(theMenu);
    EXPECT_EQ(NewMenu(9, nullptr), nullptr);
}

// --- Bad references ---------------------------------------------------------------------------------

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

TEST_F(MenuManager, AMenuThatIsNoneIsNotSearchedForCommands)
{
    const MenuRef theMenu = DisposedMenu();
    MenuRef theFound = mEdit;
    MenuItemIndex theItem = 99;
    UniChar theMark = 77;
    EXPECT_EQ(CountMenuItemsWithCommandID(theMenu, 'save'), 0u);
    EXPECT_EQ(GetIndMenuItemWithCommandID(theMenu, 'save', 1, &theFound, &theItem), menuInvalidErr);
    EXPECT_EQ(theFound, mEdit);
    EXPECT_EQ(theItem, 99);
    EnableMenuCommand(theMenu, 'save');
    EXPECT_FALSE(IsMenuCommandEnabled(theMenu, 'save'));
    EXPECT_EQ(SetMenuCommandMark(theMenu, 'save', checkMark), menuInvalidErr);
    EXPECT_EQ(GetMenuCommandMark(theMenu, 'save', &theMark), menuInvalidErr);
    EXPECT_EQ(theMark, 77);
}

TEST_F(MenuManager, PlacesForResultsMustBeGiven)
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

TEST_F(MenuManager, NoTextIsRefused)
{
    EXPECT_EQ(SetMenuTitleWithCFString(mFile, nullptr), paramErr);
    EXPECT_EQ(SetMenuTitle(mFile, nullptr), paramErr);
    EXPECT_EQ(AppendMenuItemTextWithCFString(mFile, nullptr, 0, 0, nullptr), paramErr);
    EXPECT_EQ(InsertMenuItemTextWithCFString(mFile, nullptr, 0, 0, 0), paramErr);
    EXPECT_EQ(AppendMenuItemText(mFile, nullptr), paramErr);
    EXPECT_EQ(SetMenuItemTextWithCFString(mFile, 1, nullptr), paramErr);
    SetMenuItemText(mFile, 1, nullptr);
    EXPECT_EQ(ItemTexts(mFile), (Log{"Open", "Save", "Recent"}));
}

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

TEST_F(MenuManager, ItemsAreInsertedAfterOthers)
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

TEST_F(MenuManager, ANewItemHasTheAttributesAndCommandItWasGiven)
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

TEST_F(MenuManager, ItemsCanBeDeletedOneOrMoreAtATime)
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

TEST_F(MenuManager, AMenuIsFullAt65534Items)
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

TEST_F(MenuManager, MutableTextsAreCopiedAndImmutableOnesRetained)
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

TEST_F(MenuManager, TextsAreReadAsPascalStringsUpTo255Characters)
{
    CFMutableStringRef theLong = NewMutableString(std::string(300, 'x').c_str());
    SetMenuItemTextWithCFString(mFile, 1, theLong);
    Str255 theText = {0};
    GetMenuItemText(mFile, 1, theText);
    EXPECT_EQ(PascalText(theText), std::string(255, 'x'));
    CFRelease(theLong);
    const unsigned char theNew[] = {3, 'N', 'e', 'w'};
    SetMenuItemText(mFile, 1, theNew);
    EXPECT_EQ(ItemText(mFile, 1), "New");
    GetMenuItemText(mFile, 9, theText);
    EXPECT_EQ(theText[0], 0);
}

TEST_F(MenuManager, ItemsAreEnabledAndDisabledOneByOne)
{
    DisableMenuItem(mFile, 1);
    EXPECT_FALSE(IsMenuItemEnabled(mFile, 1));
    EXPECT_TRUE(IsMenuItemEnabled(mFile, 2));
    EXPECT_TRUE(IsMenuItemEnabled(mFile, 0));
    EXPECT_FALSE(IsMenuItemEnabled(mFile, 9));
    EnableMenuItem(mFile, 1);
    EXPECT_TRUE(IsMenuItemEnabled(mFile, 1));
}

TEST_F(MenuManager, DisablingTheMenuLeavesTheItemsTheirStates)
{
    DisableMenuItem(mFile, 0);
    EXPECT_FALSE(IsMenuItemEnabled(mFile, 0));
    EXPECT_TRUE(IsMenuItemEnabled(mFile, 1));
    EnableMenuItem(mFile, 0);
    EXPECT_TRUE(IsMenuItemEnabled(mFile, 0));
}

TEST_F(MenuManager, AllItemsAreEnabledAndDisabledWithoutTheTitle)
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

TEST_F(MenuManager, AMarkIsAnyCharacter)
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

TEST_F(MenuManager, ACommandKeyIsACharacterOrAPosition)
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
    EXPECT_EQ(theCharacter, 0);
    SetItemCmd(mFile, 1, 'Q');
    GetItemCmd(mFile, 1, &theCharacter);
    EXPECT_EQ(theCharacter, 'Q');
    GetMenuItemAttributes(mFile, 1, &theAttributes);
    EXPECT_EQ(theAttributes, 0u);
    UInt8 theModifiers = 99;
    EXPECT_EQ(GetMenuItemModifiers(mFile, 1, &theModifiers), noErr);
    EXPECT_EQ(theModifiers, kMenuNoModifiers);
    EXPECT_EQ(SetMenuItemModifiers(mFile, 1, kMenuShiftModifier), noErr);
    EXPECT_EQ(GetMenuItemModifiers(mFile, 1, &theModifiers), noErr);
    EXPECT_EQ(theModifiers, kMenuShiftModifier);
}

TEST_F(MenuManager, AttributesAreSetAndCleared)
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

TEST_F(MenuManager, AnItemKeepsAValueAndDataOfTheApplication)
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

TEST_F(MenuManager, AnAttachedMenuIsRetainedByItsItem)
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

TEST_F(MenuManager, AMenuCannotComeToHoldItself)
{
    EXPECT_EQ(SetMenuItemHierarchicalMenu(mFile, 1, mFile), paramErr);
    EXPECT_EQ(SetMenuItemHierarchicalMenu(mRecent, 1, mFile), paramErr);
    EXPECT_EQ(SetMenuItemHierarchicalMenu(mRecent, 1, mEdit), noErr);
    EXPECT_EQ(SetMenuItemHierarchicalMenu(mEdit, 1, mFile), paramErr);
    SetMenuItemHierarchicalMenu(mRecent, 1, nullptr);
}

// --- The bar ----------------------------------------------------------------------------------------

TEST_F(MenuManager, InsertedMenusStandInTheBarInOrder)
{
    MenuRef theMiddle = NewMenuWith(140, "Middle", {});
    MenuRef theLast = NewMenuWith(141, "Last", {});
    InsertMenu(theMiddle, 129);
    InsertMenu(theLast, 999);
    InsertMenu(theMiddle, 128);
    EXPECT_EQ(GetMenuRetainCount(theMiddle), 2u) << "it was in the bar already";
    MenuRef theRoot = AcquireRootMenu();
    EXPECT_EQ(ItemTexts(theRoot), (Log{"File", "Middle", "Edit", "Last"}));
    ReleaseMenu(theRoot);
    DeleteMenu(140);
    EXPECT_EQ(GetMenuRetainCount(theMiddle), 1u);
    EXPECT_EQ(CountMenuItems(theRoot), 3);
    DisposeMenu(theMiddle);
    DisposeMenu(theLast);
    EXPECT_TRUE(IsValidMenu(theLast));
    ClearMenuBar();
    EXPECT_FALSE(IsValidMenu(theLast));
    EXPECT_EQ(CountMenuItems(theRoot), 0);
}

TEST_F(MenuManager, MenusAreFoundByTheirIdentifiersWhileTheyAreInserted)
{
    MenuRef theHidden = NewMenuWith(150, "Hidden", {});
    EXPECT_EQ(GetMenuHandle(128), mFile);
    EXPECT_EQ(GetMenuRef(129), mEdit);
    EXPECT_EQ(GetMenuHandle(130), nullptr) << "held by an item, but not inserted";
    EXPECT_EQ(GetMenuHandle(150), nullptr);
    InsertMenu(theHidden, kInsertHierarchicalMenu);
    InsertMenu(theHidden, kInsertHierarchicalMenu);
    EXPECT_EQ(GetMenuHandle(150), theHidden);
    EXPECT_EQ(GetMenuRetainCount(theHidden), 2u);
    SetMenuID(theHidden, 151);
    EXPECT_EQ(GetMenuHandle(151), theHidden);
    DeleteMenu(151);
    EXPECT_EQ(GetMenuHandle(151), nullptr);
    DeleteMenu(151);
    InsertMenu(theHidden, kInsertHierarchicalMenu);
    DisposeMenu(theHidden);
    ClearMenuBar();
    EXPECT_FALSE(IsValidMenu(theHidden));
}

TEST_F(MenuManager, TheRootMenuIsRetainedForTheCaller)
{
    MenuRef theRoot = AcquireRootMenu();
    const ItemCount theCount = GetMenuRetainCount(theRoot);
    EXPECT_EQ(AcquireRootMenu(), theRoot);
    EXPECT_EQ(GetMenuRetainCount(theRoot), theCount + 1);
    ReleaseMenu(theRoot);
    ReleaseMenu(theRoot);
    EXPECT_TRUE(IsValidMenu(theRoot));
    MenuRef theSubmenu = nullptr;
    EXPECT_EQ(GetMenuItemHierarchicalMenu(theRoot, 1, &theSubmenu), noErr);
    EXPECT_EQ(theSubmenu, mFile);
}

TEST_F(MenuManager, ANewRootMenuReplacesTheOldOneAndTheSubmenus)
{
    MenuRef theHidden = NewMenuWith(150, "Hidden", {});
    InsertMenu(theHidden, kInsertHierarchicalMenu);
    MenuRef theOld = AcquireRootMenu();
    MenuRef theNew = NewMenuWith(0, "", {{"Only", 0}});
    SetMenuItemHierarchicalMenu(theNew, 1, mEdit);
    EXPECT_EQ(SetRootMenu(theNew), noErr);
    EXPECT_EQ(GetMenuRetainCount(theNew), 2u);
    EXPECT_EQ(GetMenuRetainCount(theOld), 1u);
    EXPECT_EQ(GetMenuRetainCount(theHidden), 1u);
    EXPECT_EQ(GetMenuHandle(128), nullptr);
    EXPECT_EQ(GetMenuHandle(129), mEdit);
    EXPECT_EQ(GetMenuHandle(150), nullptr);
    EXPECT_EQ(SetRootMenu(theOld), noErr);
    EXPECT_EQ(GetMenuRetainCount(theNew), 1u);
    DisposeMenu(theNew);
    DisposeMenu(theHidden);
    ReleaseMenu(theOld);
}

TEST_F(MenuManager, TheRootMenuIsNotInsertedIntoItself)
{
    MenuRef theRoot = AcquireRootMenu();
    InsertMenu(theRoot, 0);
    EXPECT_EQ(CountMenuItems(theRoot), 2);
    ReleaseMenu(theRoot);
}

// --- Commands ---------------------------------------------------------------------------------------

struct FoundCommand
{
    UInt32 theNumber;
    bool theIsInFile;
    MenuItemIndex theItem;
};

TEST_F(MenuManager, ItemsAreFoundByCommandDepthFirst)
{
    SetMenuItemCommandID(mRecent, 2, 'save');
    const FoundCommand theExpected[] = {{1, true, 2}, {3, false, 3}};
    for (const FoundCommand& theRow : theExpected) {
        MenuRef theMenu = nullptr;
        MenuItemIndex theItem = 0;
        EXPECT_EQ(GetIndMenuItemWithCommandID(nullptr, 'save', theRow.theNumber, &theMenu, &theItem), noErr);
        EXPECT_EQ(theMenu, theRow.theIsInFile ? mFile : mEdit);
        EXPECT_EQ(theItem, theRow.theItem);
    }
    MenuRef theMenu = nullptr;
    MenuItemIndex theItem = 0;
    EXPECT_EQ(GetIndMenuItemWithCommandID(nullptr, 'save', 2, &theMenu, &theItem), noErr);
    EXPECT_EQ(theMenu, mRecent);
    EXPECT_EQ(theItem, 2);
    EXPECT_EQ(CountMenuItemsWithCommandID(nullptr, 'save'), 3u);
    EXPECT_EQ(CountMenuItemsWithCommandID(mFile, 'save'), 2u);
    EXPECT_EQ(CountMenuItemsWithCommandID(mEdit, 'save'), 1u);
    EXPECT_EQ(CountMenuItemsWithCommandID(nullptr, 'none'), 0u);
}

TEST_F(MenuManager, ACommandThatIsNotThereLeavesTheResultsAlone)
{
    MenuRef theMenu = mEdit;
    MenuItemIndex theItem = 99;
    EXPECT_EQ(GetIndMenuItemWithCommandID(nullptr, 'none', 1, &theMenu, &theItem), menuItemNotFoundErr);
    EXPECT_EQ(GetIndMenuItemWithCommandID(nullptr, 'save', 3, &theMenu, &theItem), menuItemNotFoundErr);
    EXPECT_EQ(GetIndMenuItemWithCommandID(nullptr, 'save', 0, &theMenu, &theItem), paramErr);
    EXPECT_EQ(theMenu, mEdit);
    EXPECT_EQ(theItem, 99);
    EXPECT_EQ(GetIndMenuItemWithCommandID(nullptr, 'save', 2, nullptr, nullptr), noErr);
}

TEST_F(MenuManager, TheHierarchicalMenusAreSearchedAfterTheBar)
{
    MenuRef theHidden = NewMenuWith(150, "Hidden", {{"Save", 'save'}});
    InsertMenu(theHidden, kInsertHierarchicalMenu);
    MenuRef theMenu = nullptr;
    EXPECT_EQ(GetIndMenuItemWithCommandID(nullptr, 'save', 3, &theMenu, nullptr), noErr);
    EXPECT_EQ(theMenu, theHidden);
    DeleteMenu(150);
    DisposeMenu(theHidden);
}

TEST_F(MenuManager, AMenuHeldTwiceIsSearchedOnce)
{
    SetMenuItemHierarchicalMenu(mEdit, 1, mRecent);
    EXPECT_EQ(CountMenuItemsWithCommandID(nullptr, 'frst'), 1u);
}

TEST_F(MenuManager, CommandsAreWorkedOnAtTheirFirstItem)
{
    UniChar theMark = 99;
    EXPECT_EQ(GetMenuCommandMark(nullptr, 'save', &theMark), noErr);
    EXPECT_EQ(theMark, 0);
    EXPECT_EQ(SetMenuCommandMark(nullptr, 'save', checkMark), noErr);
    EXPECT_EQ(MarkOf(mFile, 2), checkMark);
    EXPECT_EQ(MarkOf(mEdit, 3), noMark);
    EXPECT_EQ(SetMenuCommandMark(nullptr, 'save', 0x1212), noErr);
    EXPECT_EQ(GetMenuCommandMark(nullptr, 'save', &theMark), noErr);
    EXPECT_EQ(theMark, 0x12) << "only the low byte counts";
    DisableMenuCommand(nullptr, 'save');
    EXPECT_FALSE(IsMenuItemEnabled(mFile, 2));
    EXPECT_TRUE(IsMenuItemEnabled(mEdit, 3));
    EXPECT_FALSE(IsMenuCommandEnabled(nullptr, 'save'));
    EXPECT_TRUE(IsMenuCommandEnabled(mEdit, 'save'));
    EnableMenuCommand(nullptr, 'save');
    EXPECT_TRUE(IsMenuCommandEnabled(nullptr, 'save'));
}

TEST_F(MenuManager, ACommandThatIsNotThereGetsAStatus)
{
    UniChar theMark = 99;
    ByteCount theSize = 0;
    EXPECT_EQ(GetMenuCommandMark(nullptr, 'none', &theMark), menuItemNotFoundErr);
    EXPECT_EQ(theMark, 99);
    EXPECT_EQ(SetMenuCommandMark(nullptr, 'none', checkMark), menuItemNotFoundErr);
    EXPECT_FALSE(IsMenuCommandEnabled(nullptr, 'none'));
    EnableMenuCommand(nullptr, 'none');
    DisableMenuCommand(nullptr, 'none');
    EXPECT_EQ(SetMenuCommandProperty(nullptr, 'none', 'MINE', 'data', 1, "a"), menuItemNotFoundErr);
    EXPECT_EQ(GetMenuCommandPropertySize(nullptr, 'none', 'MINE', 'data', &theSize), menuItemNotFoundErr);
}

TEST_F(MenuManager, ACommandKeepsDataAtItsFirstItem)
{
    char theBuffer[2] = {'.', '.'};
    ByteCount theSize = 0;
    EXPECT_EQ(SetMenuCommandProperty(nullptr, 'cut ', 'MINE', 'data', 2, "hi"), noErr);
    EXPECT_EQ(GetMenuItemPropertySize(mEdit, 1, 'MINE', 'data', &theSize), noErr);
    EXPECT_EQ(GetMenuCommandPropertySize(nullptr, 'cut ', 'MINE', 'data', &theSize), noErr);
    EXPECT_EQ(theSize, 2u);
    EXPECT_EQ(GetMenuCommandProperty(nullptr, 'cut ', 'MINE', 'data', 2, nullptr, theBuffer), noErr);
    EXPECT_EQ(std::string(theBuffer, 2), "hi");
    EXPECT_EQ(RemoveMenuCommandProperty(nullptr, 'cut ', 'MINE', 'data'), noErr);
    EXPECT_EQ(RemoveMenuCommandProperty(nullptr, 'cut ', 'MINE', 'data'), menuPropertyNotFoundErr);
}

TEST_F(MenuManager, ASearchLetsEachMenuFillItselfFirst)
{
    UInt32 theContext = 0;
    MenuCommand theCommand = 0;
    const TestHandler theHandler(GetMenuEventTarget(mRecent), "populate", mLog,
                                 [&](EventHandlerCallRef, EventRef theEvent) {
                                     GetEventParameter(theEvent, kEventParamMenuContext, typeUInt32, nullptr,
                                                       sizeof theContext, nullptr, &theContext);
                                     GetEventParameter(theEvent, kEventParamMenuCommand, typeMenuCommand,
                                                       nullptr, sizeof theCommand, nullptr, &theCommand);
                                     AppendMenuItemTextWithCFString(mRecent, CFSTR("Late"), 0, 'late',
                                                                    nullptr);
                                     return OSStatus(noErr);
                                 },
                                 {{kEventClassMenu, kEventMenuPopulate}});
    MenuRef theMenu = nullptr;
    MenuItemIndex theItem = 0;
    EXPECT_EQ(GetIndMenuItemWithCommandID(nullptr, 'late', 1, &theMenu, &theItem), noErr);
    EXPECT_EQ(theMenu, mRecent);
    EXPECT_EQ(theItem, 3);
    EXPECT_EQ(theContext, UInt32(kMenuContextCommandIDSearch));
    EXPECT_EQ(theCommand, MenuCommand('late'));
    EXPECT_EQ(mLog, Log{"populate"});
}

TEST_F(MenuManager, ASearchSurvivesMenusThatGoOnTheWay)
{
    const TestHandler theHandler(GetMenuEventTarget(mRecent), "populate", mLog,
                                 [&](EventHandlerCallRef, EventRef) {
                                     DisposeMenu(mRecent);
                                     DeleteMenuItems(mFile, 1, CountMenuItems(mFile));
                                     ClearMenuBar();
                                     DisposeMenu(mFile);
                                     return OSStatus(noErr);
                                 },
                                 {{kEventClassMenu, kEventMenuPopulate}});
    EXPECT_EQ(CountMenuItemsWithCommandID(nullptr, 'frst'), 0u);
    EXPECT_FALSE(IsValidMenu(mRecent));
    EXPECT_FALSE(IsValidMenu(mFile));
}

// --- What a presenter is told -----------------------------------------------------------------------

TEST_F(MenuManager, ThePresenterSeesTheBarWithAllItsMenus)
{
    SetItemMark(mEdit, 1, checkMark);
    SetMenuItemCommandKey(mEdit, 1, false, 'X');
    SetMenuItemModifiers(mEdit, 1, kMenuShiftModifier | kMenuOptionModifier);
    DisableMenuItem(mEdit, 3);
    const Host::MenuBarLook theBar = BarLook();
    ASSERT_EQ(theBar.theMenus.size(), 2u);
    EXPECT_EQ(theBar.theMenus[0].theTitle, "File");
    ASSERT_EQ(theBar.theMenus[0].theItems.size(), 3u);
    ASSERT_EQ(theBar.theMenus[0].theItems[2].theSubmenu.size(), 1u);
    EXPECT_EQ(theBar.theMenus[0].theItems[2].theSubmenu[0].theItems[1].theText, "Second");
    const Host::MenuItemLook& theCut = theBar.theMenus[1].theItems[0];
    EXPECT_EQ(theCut.theText, "Cut");
    EXPECT_EQ(theCut.theCommand, std::uint32_t('cut '));
    EXPECT_EQ(theCut.theMark, 0x2713u);
    EXPECT_EQ(theCut.theKey, "X");
    EXPECT_EQ(theCut.theKeyModifiers, std::uint32_t(cmdKey | shiftKey | optionKey));
    EXPECT_TRUE(theBar.theMenus[1].theItems[1].theIsSeparator);
    EXPECT_FALSE(theBar.theMenus[1].theItems[2].theIsEnabled);
}

TEST_F(MenuManager, HiddenMenusAreNotInTheBarAndEmptyOnesMayLookDisabled)
{
    ChangeMenuAttributes(mFile, kMenuAttrHidden, 0);
    DisableAllMenuItems(mEdit);
    Host::MenuBarLook theBar = BarLook();
    ASSERT_EQ(theBar.theMenus.size(), 1u);
    EXPECT_TRUE(theBar.theMenus[0].theIsEnabled);
    ChangeMenuAttributes(mEdit, kMenuAttrAutoDisable, 0);
    EXPECT_FALSE(BarLook().theMenus[0].theIsEnabled);
    EnableAllMenuItems(mEdit);
    EXPECT_TRUE(BarLook().theMenus[0].theIsEnabled);
    DisableMenuItem(mEdit, 0);
    EXPECT_FALSE(BarLook().theMenus[0].theIsEnabled);
}

struct MarkLook
{
    CharParameter theMark;
    std::uint32_t theCodePoint;
};

class MenuMark : public MenuTest, public testing::WithParamInterface<MarkLook>
{
};

TEST_P(MenuMark, IsShownAsItsCharacter)
{
    SetItemMark(mEdit, 1, GetParam().theMark);
    EXPECT_EQ(BarLook().theMenus[1].theItems[0].theMark, GetParam().theCodePoint);
}

INSTANTIATE_TEST_SUITE_P(EachMark, MenuMark,
                         testing::Values(MarkLook{noMark, 0}, MarkLook{commandMark, 0x2318},
                                         MarkLook{checkMark, 0x2713}, MarkLook{diamondMark, 0x25C6},
                                         MarkLook{appleMark, 0xF8FF}, MarkLook{'*', '*'},
                                         MarkLook{0xA5, 0x2022}));

TEST_F(MenuManager, AChangedBarIsShownWhenTheLoopRunsOrItIsDrawn)
{
    class CountingPresenter : public Host::Presenter
    {
    public:
        explicit CountingPresenter(Log& theLog)
            : mLog(theLog)
        {
        }
        void MenuBarLooks(const Host::MenuBarLook& theLook) override
        {
            mLog.push_back(theLook.theMenus.at(0).theTitle + " of " +
                           std::to_string(theLook.theMenus.size()));
        }

    private:
        Log& mLog;
    };
    Host::PresenterRegistry::Use(std::make_unique<CountingPresenter>(mLog));
    RunCurrentEventLoop(0);
    mLog.clear();
    SetMenuTitleWithCFString(mFile, CFSTR("New"));
    DisableMenuItem(mFile, 1);
    EXPECT_TRUE(mLog.empty());
    RunCurrentEventLoop(0);
    EXPECT_EQ(mLog, Log{"New of 2"});
    RunCurrentEventLoop(0);
    EXPECT_EQ(mLog.size(), 1u);
    DeleteMenu(129);
    DrawMenuBar();
    EXPECT_EQ(mLog.back(), "New of 1");
    InvalMenuBar();
    EXPECT_EQ(mLog.size(), 2u);
    RunCurrentEventLoop(0);
    EXPECT_EQ(mLog.size(), 3u);
    Host::PresenterRegistry::Use(std::make_unique<Host::Presenter>());
}
