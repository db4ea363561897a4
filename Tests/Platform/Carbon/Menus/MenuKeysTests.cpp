// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Command keys.

#include "MenuTestSupport.h"

namespace {

using MenuKeys = MenuTrackingTest;

} // namespace

TEST_F(MenuKeys, ACommandKeyUpdatesTheMenusThenSendsTheCommand)
{
    SetItemCmd(mEdit, 1, 'X');
    EXPECT_EQ(Press('x'), noErr);
    EXPECT_EQ(TakeLog(), (Log{"populate File", "enable File", "update open File 1", "update save File 2",
                              "update none File 3", "populate Edit", "enable Edit", "update cut  Edit 1",
                              "update save Edit 3", "process cut  Edit 1"}));
    EXPECT_EQ(mContexts.back(), UInt32(kMenuContextMenuBar | kMenuContextKeyMatching));
}

TEST_F(MenuKeys, AKeyThatIsNoCommandGoesToTheUserFocus)
{
    SetItemCmd(mEdit, 1, 'X');
    const TestHandler theHandler(GetApplicationEventTarget(), "key", mLog, Answer(noErr),
                                 {{kEventClassKeyboard, kEventRawKeyDown}});
    EXPECT_EQ(Press('y'), noErr);
    EXPECT_EQ(mLog.back(), "key");
}

TEST_F(MenuKeys, TypingTellsTheMenusNothing)
{
    SetItemCmd(mEdit, 1, 'X');
    EXPECT_EQ(Press('x', 0), eventNotHandledErr);
    EXPECT_TRUE(mLog.empty());
}

TEST_F(MenuKeys, AnItemMayDoWithoutTheCommandKey)
{
    SetItemCmd(mRecent, 1, 'X');
    SetMenuItemModifiers(mRecent, 1, kMenuNoCommandModifier);
    EXPECT_EQ(Press('x', 0), noErr);
    EXPECT_EQ(mLog.front(), "populate File");
    EXPECT_EQ(mLog.back(), "process frst Recent 1");
}

TEST_F(MenuKeys, ACommandKeyWithMoreModifiersIsAnotherKey)
{
    SetItemCmd(mEdit, 1, 'X');
    EXPECT_EQ(Press('x', cmdKey | shiftKey), eventNotHandledErr);
    EXPECT_EQ(mLog.back(), "update scnd Recent 2");
}

struct KeyCase
{
    UInt8 theItemModifiers;
    UInt32 theModifiers;
    bool theMatches;
};

class CommandKey : public MenuTrackingTest, public testing::WithParamInterface<KeyCase>
{
};

TEST_P(CommandKey, NeedsExactlyItsModifiers)
{
    SetItemCmd(mEdit, 1, 'X');
    SetMenuItemModifiers(mEdit, 1, GetParam().theItemModifiers);
    TestEvent theEvent(kEventClassKeyboard, kEventRawKeyDown);
    theEvent.Set(kEventParamKeyMacCharCodes, typeChar, 'x');
    theEvent.Set(kEventParamKeyModifiers, typeUInt32, GetParam().theModifiers);
    EXPECT_EQ(IsMenuKeyEvent(nullptr, theEvent.Get(), kMenuEventQueryOnly, nullptr, nullptr),
              GetParam().theMatches);
}

INSTANTIATE_TEST_SUITE_P(EachModifier, CommandKey,
                         testing::Values(KeyCase{kMenuNoModifiers, cmdKey, true},
                                         KeyCase{kMenuNoModifiers, cmdKey | optionKey, false},
                                         KeyCase{kMenuNoModifiers, cmdKey | alphaLock, true},
                                         KeyCase{kMenuShiftModifier, cmdKey, false},
                                         KeyCase{kMenuShiftModifier, cmdKey | shiftKey, true},
                                         KeyCase{kMenuOptionModifier, cmdKey | optionKey, true},
                                         KeyCase{kMenuControlModifier, cmdKey | controlKey, true},
                                         KeyCase{kMenuNoCommandModifier, 0, true},
                                         KeyCase{kMenuNoCommandModifier, cmdKey, false}));

TEST_F(MenuKeys, WithTheOptionKeyTheLabelOfTheKeyCounts)
{
    SetItemCmd(mEdit, 1, 'X');
    SetMenuItemModifiers(mEdit, 1, kMenuOptionModifier);
    TestEvent theEvent(kEventClassKeyboard, kEventRawKeyDown);
    // What Option and X type together.
    theEvent.Set(kEventParamKeyMacCharCodes, typeChar, UInt8(0xC5));
    theEvent.Set(kEventParamKeyCode, typeUInt32, UInt32(kVK_ANSI_X));
    theEvent.Set(kEventParamKeyModifiers, typeUInt32, UInt32(cmdKey | optionKey));
    MenuRef theMenu = nullptr;
    MenuItemIndex theItem = 0;
    EXPECT_TRUE(IsMenuKeyEvent(nullptr, theEvent.Get(), 0, &theMenu, &theItem));
    EXPECT_EQ(theMenu, mEdit);
    EXPECT_EQ(theItem, 1);
}

TEST_F(MenuKeys, AKeyMayBeNamedByItsPosition)
{
    SetMenuItemCommandKey(mEdit, 1, true, kVK_F1);
    SetMenuItemModifiers(mEdit, 1, kMenuNoCommandModifier);
    TestEvent theEvent(kEventClassKeyboard, kEventRawKeyDown);
    theEvent.Set(kEventParamKeyMacCharCodes, typeChar, char(kFunctionKeyCharCode));
    theEvent.Set(kEventParamKeyCode, typeUInt32, UInt32(kVK_F1));
    EXPECT_TRUE(IsMenuKeyEvent(nullptr, theEvent.Get(), 0, nullptr, nullptr));
    theEvent.Set(kEventParamKeyCode, typeUInt32, UInt32(kVK_F2));
    EXPECT_FALSE(IsMenuKeyEvent(nullptr, theEvent.Get(), 0, nullptr, nullptr));
}

TEST_F(MenuKeys, ItemsThatCannotBeChosenHaveNoKey)
{
    SetItemCmd(mEdit, 1, 'X');
    DisableMenuItem(mEdit, 1);
    EXPECT_EQ(Press('x'), eventNotHandledErr);
    EnableMenuItem(mEdit, 1);
    ChangeMenuItemAttributes(mEdit, 1, kMenuItemAttrHidden, 0);
    EXPECT_EQ(Press('x'), eventNotHandledErr);
    ChangeMenuItemAttributes(mEdit, 1, kMenuItemAttrIncludeInCmdKeyMatching, 0);
    EXPECT_EQ(Press('x'), noErr);
    DisableMenuItem(mEdit, 0);
    EXPECT_EQ(Press('x'), eventNotHandledErr);
}

TEST_F(MenuKeys, DisabledItemsAreFoundWhenTheyAreAskedFor)
{
    SetItemCmd(mEdit, 1, 'X');
    DisableMenuItem(mEdit, 1);
    TestEvent theEvent(kEventClassKeyboard, kEventRawKeyDown);
    theEvent.Set(kEventParamKeyMacCharCodes, typeChar, 'x');
    theEvent.Set(kEventParamKeyModifiers, typeUInt32, UInt32(cmdKey));
    MenuItemIndex theItem = 0;
    EXPECT_TRUE(IsMenuKeyEvent(nullptr, theEvent.Get(), kMenuEventIncludeDisabledItems, nullptr, &theItem));
    EXPECT_EQ(theItem, 1);
    EXPECT_FALSE(IsMenuKeyEvent(nullptr, theEvent.Get(), 0, nullptr, nullptr));
}

TEST_F(MenuKeys, SubmenusAreLookedIntoUnlessTheCallerSaysNo)
{
    SetItemCmd(mRecent, 2, 'R');
    TestEvent theEvent(kEventClassKeyboard, kEventRawKeyDown);
    theEvent.Set(kEventParamKeyMacCharCodes, typeChar, 'R');
    theEvent.Set(kEventParamKeyModifiers, typeUInt32, UInt32(cmdKey));
    MenuRef theMenu = nullptr;
    EXPECT_TRUE(IsMenuKeyEvent(nullptr, theEvent.Get(), 0, &theMenu, nullptr));
    EXPECT_EQ(theMenu, mRecent);
    EXPECT_TRUE(IsMenuKeyEvent(mFile, theEvent.Get(), 0, nullptr, nullptr));
    EXPECT_FALSE(IsMenuKeyEvent(mEdit, theEvent.Get(), 0, nullptr, nullptr));
    EXPECT_FALSE(IsMenuKeyEvent(mFile, theEvent.Get(), kMenuEventDontCheckSubmenus, nullptr, nullptr));
    EXPECT_FALSE(IsMenuKeyEvent(nullptr, theEvent.Get(), kMenuEventDontCheckSubmenus, nullptr, nullptr));
    DisableMenuItem(mFile, 3);
    EXPECT_FALSE(IsMenuKeyEvent(nullptr, theEvent.Get(), 0, nullptr, nullptr));
}

TEST_F(MenuKeys, ARepeatedKeyChoosesOnlyItemsThatRepeat)
{
    SetItemCmd(mEdit, 1, 'X');
    EXPECT_EQ(Press('x', cmdKey, kEventRawKeyRepeat), eventNotHandledErr);
    ChangeMenuItemAttributes(mEdit, 1, kMenuItemAttrAutoRepeat, 0);
    EXPECT_EQ(Press('x', cmdKey, kEventRawKeyRepeat), noErr);
}

TEST_F(MenuKeys, AnItemMayBeUpdatedAlone)
{
    SetItemCmd(mFile, 2, 'S');
    ChangeMenuItemAttributes(mFile, 2, kMenuItemAttrUpdateSingleItem, 0);
    Press('s');
    EXPECT_EQ(TakeLog(), (Log{"populate File", "update save File 2", "process save File 2"}));
}

TEST_F(MenuKeys, AHandlerOfTheMenuMayDecideWhichItemAKeyIs)
{
    OSStatus theAnswer = noErr;
    MenuItemIndex theDecision = 2;
    const TestHandler theHandler(GetMenuEventTarget(mFile), "asked", mLog,
                                 [&](EventHandlerCallRef, EventRef theEvent) {
                                     EventRef theKey =
                                         Parameter<EventRef>(theEvent, kEventParamEventRef, typeEventRef);
                                     EXPECT_EQ(GetEventKind(theKey), UInt32(kEventRawKeyDown));
                                     SetEventParameter(theEvent, kEventParamMenuItemIndex, typeMenuItemIndex,
                                                       sizeof theDecision, &theDecision);
                                     return theAnswer;
                                 },
                                 {{kEventClassMenu, kEventMenuMatchKey}});
    SetItemCmd(mFile, 1, 'O');
    EXPECT_EQ(Press('z'), noErr);
    EXPECT_EQ(mLog.back(), "process save File 2");
    theDecision = 99;
    EXPECT_EQ(Press('z'), eventNotHandledErr);
    theAnswer = menuItemNotFoundErr;
    EXPECT_EQ(Press('o'), eventNotHandledErr);
    theAnswer = eventNotHandledErr;
    EXPECT_EQ(Press('o'), noErr);
    EXPECT_EQ(mLog.back(), "process open File 1");
}

TEST_F(MenuKeys, AMenuThatFindsTheItemOfAKeyItselfIsNotAskedToEnableItsItems)
{
    OSStatus theAnswer = noErr;
    const TestHandler theHandler(GetMenuEventTarget(mFile), "match File", mLog,
                                 [&](EventHandlerCallRef, EventRef theEvent) {
                                     const MenuItemIndex theItem = 2;
                                     SetEventParameter(theEvent, kEventParamMenuItemIndex, typeMenuItemIndex,
                                                       sizeof theItem, &theItem);
                                     return theAnswer;
                                 },
                                 {{kEventClassMenu, kEventMenuMatchKey}});
    SetItemCmd(mFile, 1, 'O');
    EXPECT_EQ(Press('o'), noErr);
    EXPECT_EQ(TakeLog(), (Log{"populate File", "match File", "process save File 2"}));
    theAnswer = eventNotHandledErr;
    EXPECT_EQ(Press('o'), noErr);
    EXPECT_EQ(TakeLog(), (Log{"populate File", "match File", "enable File", "update open File 1",
                              "update save File 2", "update none File 3", "process open File 1"}));
}

TEST_F(MenuKeys, AnItemWithACharacterAndAPositionIsChosenByTheOneThatWasSetLast)
{
    SetItemCmd(mEdit, 1, 'X');
    SetMenuItemCommandKey(mEdit, 1, true, 0x7F);
    EXPECT_EQ(Press('z'), noErr);
    SetItemCmd(mEdit, 1, 'X');
    EXPECT_EQ(Press('z'), eventNotHandledErr);
    EXPECT_EQ(Press('x'), noErr);
}

TEST_F(MenuKeys, OnlyKeyPressesAreCommandKeys)
{
    const TestEvent theEvent(kEventClassKeyboard, kEventRawKeyUp);
    EXPECT_FALSE(IsMenuKeyEvent(nullptr, theEvent.Get(), 0, nullptr, nullptr));
    EXPECT_FALSE(IsMenuKeyEvent(nullptr, nullptr, 0, nullptr, nullptr));
    EXPECT_FALSE(IsMenuKeyEvent(InventedReference<MenuRef>(), theEvent.Get(), 0, nullptr, nullptr));
    EXPECT_TRUE(mLog.empty());
}
