// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Items looked for by their commands.

#include "MenuTestSupport.h"

namespace {

using MenuCommands = MenuTest;

} // namespace

// --- Bad references ---------------------------------------------------------------------------------

TEST_F(MenuCommands, AMenuThatIsNoneIsNotSearchedForCommands)
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

// --- Commands ---------------------------------------------------------------------------------------

struct FoundCommand
{
    UInt32 theNumber;
    bool theIsInFile;
    MenuItemIndex theItem;
};

TEST_F(MenuCommands, ItemsAreFoundByCommandDepthFirst)
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

TEST_F(MenuCommands, ACommandThatIsNotThereLeavesTheResultsAlone)
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

TEST_F(MenuCommands, TheHierarchicalMenusAreSearchedAfterTheBar)
{
    MenuRef theHidden = NewMenuWith(150, "Hidden", {{"Save", 'save'}});
    InsertMenu(theHidden, kInsertHierarchicalMenu);
    MenuRef theMenu = nullptr;
    EXPECT_EQ(GetIndMenuItemWithCommandID(nullptr, 'save', 3, &theMenu, nullptr), noErr);
    EXPECT_EQ(theMenu, theHidden);
    DeleteMenu(150);
    DisposeMenu(theHidden);
}

TEST_F(MenuCommands, AMenuHeldTwiceIsSearchedOnce)
{
    SetMenuItemHierarchicalMenu(mEdit, 1, mRecent);
    EXPECT_EQ(CountMenuItemsWithCommandID(nullptr, 'frst'), 1u);
}

TEST_F(MenuCommands, CommandsAreWorkedOnAtTheirFirstItem)
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

TEST_F(MenuCommands, ACommandThatIsNotThereGetsAStatus)
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

TEST_F(MenuCommands, ACommandKeepsDataAtItsFirstItem)
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

TEST_F(MenuCommands, ASearchLetsEachMenuFillItselfFirst)
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

TEST_F(MenuCommands, ASearchSurvivesMenusThatGoOnTheWay)
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

TEST_F(MenuCommands, AHandlerOfTheApplicationFillsMenusForASearch)
{
    MenuRef theAsked = nullptr;
    const TestHandler theHandler(GetApplicationEventTarget(), "populate", mLog,
                                 [&](EventHandlerCallRef, EventRef theEvent) {
                                     GetEventParameter(theEvent, kEventParamDirectObject, typeMenuRef,
                                                       nullptr, sizeof theAsked, nullptr, &theAsked);
                                     return OSStatus(eventNotHandledErr);
                                 },
                                 {{kEventClassMenu, kEventMenuPopulate}});
    EXPECT_EQ(CountMenuItemsWithCommandID(mRecent, 'none'), 0u);
    EXPECT_EQ(theAsked, mRecent);
    EXPECT_EQ(mLog, Log{"populate"});
}
