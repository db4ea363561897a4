// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The life of menus and the menu bar, as the platform's headers describe them.

#include "MenuTestSupport.h"

namespace {

using MenuManager = MenuTest;

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

TEST_F(MenuManager, TheRootMenuThatIsThereAlreadyKeepsItsSubmenus)
{
    MenuRef theHidden = NewMenuWith(150, "Hidden", {});
    InsertMenu(theHidden, kInsertHierarchicalMenu);
    MenuRef theRoot = AcquireRootMenu();
    const ItemCount theCount = GetMenuRetainCount(theRoot);
    EXPECT_EQ(SetRootMenu(theRoot), noErr);
    EXPECT_EQ(GetMenuRetainCount(theRoot), theCount);
    EXPECT_EQ(GetMenuHandle(150), theHidden);
    EXPECT_EQ(GetMenuRetainCount(theHidden), 2u);
    ReleaseMenu(theRoot);
    DisposeMenu(theHidden);
}

TEST_F(MenuManager, TheRootMenuIsNotInsertedIntoItself)
{
    MenuRef theRoot = AcquireRootMenu();
    InsertMenu(theRoot, 0);
    EXPECT_EQ(CountMenuItems(theRoot), 2);
    ReleaseMenu(theRoot);
}
