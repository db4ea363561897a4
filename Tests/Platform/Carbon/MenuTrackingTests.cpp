// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A person's way through menus, by pointer and by command key, and the events it sends.

#include "MenuTestSupport.h"

#include <map>
#include <Simulation/VirtualClock.h>

namespace {

using Host::PresenterRegistry;

const EventTypeSpec kMenuEvents[] = {
    {kEventClassMenu, kEventMenuBeginTracking}, {kEventClassMenu, kEventMenuEndTracking},
    {kEventClassMenu, kEventMenuOpening},       {kEventClassMenu, kEventMenuClosed},
    {kEventClassMenu, kEventMenuTargetItem},    {kEventClassMenu, kEventMenuMatchKey},
    {kEventClassMenu, kEventMenuEnableItems},   {kEventClassMenu, kEventMenuPopulate},
    {kEventClassCommand, kEventCommandProcess}, {kEventClassCommand, kEventCommandUpdateStatus},
};

std::string TitleOf(MenuRef theMenu)
{
    CFStringRef theTitle = nullptr;
    CopyMenuTitleAsCFString(theMenu, &theTitle);
    return TakeText(theTitle);
}

std::string CodeText(UInt32 theCode)
{
    std::string theText;
    for (int theShift = 24; theShift >= 0; theShift -= 8) {
        theText += static_cast<char>((theCode >> theShift) & 0xFF);
    }
    return theCode == 0 ? "none" : theText;
}

// A menu or command event in words.
std::string Describe(EventRef theEvent)
{
    const UInt32 theKind = GetEventKind(theEvent);
    if (GetEventClass(theEvent) == kEventClassCommand) {
        HICommand theCommand{};
        GetEventParameter(theEvent, kEventParamDirectObject, typeHICommand, nullptr, sizeof theCommand,
                          nullptr, &theCommand);
        return std::string(theKind == kEventCommandProcess ? "process " : "update ") +
               CodeText(theCommand.commandID) + " " + TitleOf(theCommand.menu.menuRef) + " " +
               std::to_string(theCommand.menu.menuItemIndex);
    }
    static const std::map<UInt32, std::string> kNames = {
        {kEventMenuBeginTracking, "begin"}, {kEventMenuEndTracking, "end"},   {kEventMenuOpening, "opening"},
        {kEventMenuClosed, "closed"},       {kEventMenuTargetItem, "target"}, {kEventMenuMatchKey, "match"},
        {kEventMenuEnableItems, "enable"},  {kEventMenuPopulate, "populate"},
    };
    MenuRef theMenu = nullptr;
    GetEventParameter(theEvent, kEventParamDirectObject, typeMenuRef, nullptr, sizeof theMenu, nullptr,
                      &theMenu);
    return kNames.at(theKind) + " " + TitleOf(theMenu);
}

template <class Type>
Type Parameter(EventRef theEvent, EventParamName theName, EventParamType theType)
{
    Type theValue{};
    EXPECT_EQ(GetEventParameter(theEvent, theName, theType, nullptr, sizeof theValue, nullptr, &theValue),
              noErr);
    return theValue;
}

// Notes every menu and command event that reaches the application.
class MenuTracking : public MenuTest
{
protected:
    MenuTracking()
        : mSpy(
              GetApplicationEventTarget(), "", mIgnored,
              [this](EventHandlerCallRef, EventRef theEvent) {
                  mLog.push_back(Describe(theEvent));
                  mContexts.push_back(Parameter<UInt32>(theEvent, kEventParamMenuContext, typeUInt32));
                  return OSStatus(eventNotHandledErr);
              },
              std::vector<EventTypeSpec>(std::begin(kMenuEvents), std::end(kMenuEvents)))
    {
    }

    // What presenters call a menu.
    static Host::ObjectId IdOf(const std::string& theTitle)
    {
        return FindTitle(BarLook().theMenus, theTitle);
    }

    static bool Open(const std::string& theTitle)
    {
        return PresenterRegistry::Events().MenuOpened(IdOf(theTitle));
    }
    static bool Close(const std::string& theTitle)
    {
        return PresenterRegistry::Events().MenuClosed(IdOf(theTitle));
    }
    static bool Choose(const std::string& theTitle, int theItem, UInt32 theModifiers = 0)
    {
        return PresenterRegistry::Events().MenuChosen({IdOf(theTitle), theItem}, theModifiers);
    }

    static OSStatus Press(char theCharacter, UInt32 theModifiers = cmdKey, UInt32 theKind = kEventRawKeyDown)
    {
        TestEvent theEvent(kEventClassKeyboard, theKind, kEventAttributeUserEvent);
        theEvent.Set(kEventParamKeyMacCharCodes, typeChar, theCharacter);
        theEvent.Set(kEventParamKeyCode, typeUInt32, UInt32(0x7F));
        theEvent.Set(kEventParamKeyModifiers, typeUInt32, theModifiers);
        return SendEventToEventTarget(theEvent.Get(), GetEventDispatcherTarget());
    }

    Log TakeLog() { return std::exchange(mLog, {}); }

    std::vector<UInt32> mContexts;

private:
    static Host::ObjectId FindTitle(const std::vector<Host::MenuLook>& theMenus, const std::string& theTitle)
    {
        for (const Host::MenuLook& theMenu : theMenus) {
            if (theMenu.theTitle == theTitle) {
                return theMenu.theId;
            }
            for (const Host::MenuItemLook& theItem : theMenu.theItems) {
                const Host::ObjectId theFound = FindTitle(theItem.theSubmenu, theTitle);
                if (theFound != Host::kNoObject) {
                    return theFound;
                }
            }
        }
        return Host::kNoObject;
    }

    Log mIgnored;
    TestHandler mSpy;
};

TestHandler::Action Answer(OSStatus theStatus)
{
    return [theStatus](EventHandlerCallRef, EventRef) { return theStatus; };
}

} // namespace

// --- Opening and choosing ---------------------------------------------------------------------------

TEST_F(MenuTracking, OpeningAMenuFirstBringsItsItemsUpToDate)
{
    EXPECT_TRUE(Open("Edit"));
    EXPECT_EQ(TakeLog(), (Log{"begin ", "populate Edit", "enable Edit", "update cut  Edit 1",
                              "update save Edit 3", "opening Edit"}));
    EXPECT_EQ(mContexts.front(), UInt32(kMenuContextMenuBar | kMenuContextMenuBarTracking));
    EXPECT_EQ(mContexts.back(),
              UInt32(kMenuContextMenuBar | kMenuContextMenuBarTracking | kMenuContextPullDown));
    EXPECT_FALSE(Open("Edit"));
    EXPECT_TRUE(Close("Edit"));
    EXPECT_EQ(TakeLog(), (Log{"closed Edit", "end ", "end Edit"}));
    EXPECT_FALSE(Close("Edit"));
    EXPECT_TRUE(mLog.empty());
}

TEST_F(MenuTracking, ChoosingAnItemClosesTheMenusThenSendsItsCommand)
{
    Open("File");
    TakeLog();
    EXPECT_TRUE(Choose("File", 2, optionKey));
    EXPECT_EQ(TakeLog(), (Log{"target File", "closed File", "end ", "end File", "process save File 2"}));
    EXPECT_FALSE(Close("File")) << "it is closed already";
}

TEST_F(MenuTracking, AMenuThatClosedBeforeTheChoiceWasToldSendsTheCommandToo)
{
    Open("File");
    Close("File");
    TakeLog();
    EXPECT_TRUE(Choose("File", 1));
    EXPECT_EQ(TakeLog(), (Log{"target File", "process open File 1"}));
    EXPECT_EQ(mContexts.back(), UInt32(kMenuContextMenuBar | kMenuContextPullDown));
}

TEST_F(MenuTracking, TheCommandTellsWhereItCameFromAndTheModifiers)
{
    HICommand theCommand{};
    UInt32 theModifiers = 0;
    const TestHandler theHandler(
        GetMenuEventTarget(mFile), "", mLog,
        [&](EventHandlerCallRef, EventRef theEvent) {
            theCommand = Parameter<HICommand>(theEvent, kEventParamDirectObject, typeHICommand);
            theModifiers = Parameter<UInt32>(theEvent, kEventParamKeyModifiers, typeUInt32);
            return OSStatus(noErr);
        },
        {{kEventClassCommand, kEventCommandProcess}});
    Choose("File", 2, shiftKey);
    const UInt32 theAttributes = theCommand.attributes;
    const UInt32 theID = theCommand.commandID;
    const MenuRef theMenu = theCommand.menu.menuRef;
    const MenuItemIndex theItem = theCommand.menu.menuItemIndex;
    EXPECT_EQ(theAttributes, UInt32(kHICommandFromMenu));
    EXPECT_EQ(theID, UInt32('save'));
    EXPECT_EQ(theMenu, mFile);
    EXPECT_EQ(theItem, 2);
    EXPECT_EQ(theModifiers, UInt32(shiftKey));
}

TEST_F(MenuTracking, AnItemWithoutACommandSendsOneAllTheSame)
{
    SetMenuItemCommandID(mFile, 1, 0);
    EXPECT_TRUE(Choose("File", 1));
    EXPECT_EQ(TakeLog().back(), "process none File 1");
}

TEST_F(MenuTracking, ACommandGoesFromTheMenuToTheUserFocus)
{
    const Rect theBounds = {100, 100, 300, 400};
    const Rect theFieldBounds = {10, 10, 30, 200};
    WindowRef theWindow = nullptr;
    ControlRef theField = nullptr;
    CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes, &theBounds, &theWindow);
    CreateEditUnicodeTextControl(theWindow, &theFieldBounds, CFSTR(""), false, nullptr, &theField);
    ShowWindow(theWindow);
    SetKeyboardFocus(theWindow, theField, kControlEditTextPart);
    {
        const EventTypeSpec theType = {kEventClassCommand, kEventCommandProcess};
        const TestHandler theInWindow(GetWindowEventTarget(theWindow), "window", mLog,
                                      Answer(eventNotHandledErr), {theType});
        const TestHandler theInField(GetControlEventTarget(theField), "field", mLog,
                                     Answer(eventNotHandledErr), {theType});
        const TestHandler theInMenu(GetMenuEventTarget(mFile), "menu", mLog, Answer(eventNotHandledErr),
                                    {theType});
        Choose("File", 1);
    }
    EXPECT_EQ(TakeLog(), (Log{"target File", "menu", "field", "window", "process open File 1"}));
    DisposeWindow(theWindow);
}

TEST_F(MenuTracking, SubmenusOpenInsideTheirMenuAndCloseWithIt)
{
    Open("File");
    TakeLog();
    EXPECT_TRUE(Open("Recent"));
    EXPECT_EQ(TakeLog(), (Log{"populate Recent", "enable Recent", "update frst Recent 1",
                              "update scnd Recent 2", "opening Recent"}));
    EXPECT_EQ(mContexts.back(),
              UInt32(kMenuContextMenuBar | kMenuContextMenuBarTracking | kMenuContextSubmenu));
    EXPECT_TRUE(Close("File"));
    EXPECT_EQ(TakeLog(), (Log{"closed Recent", "closed File", "end ", "end File", "end Recent"}));
}

TEST_F(MenuTracking, OpeningAnotherMenuClosesWhatIsBesideIt)
{
    Open("File");
    Open("Recent");
    TakeLog();
    Open("Edit");
    const Log theSeen = TakeLog();
    ASSERT_GE(theSeen.size(), 3u);
    EXPECT_EQ(theSeen[0], "closed Recent");
    EXPECT_EQ(theSeen[1], "closed File");
    EXPECT_EQ(theSeen[2], "populate Edit");
    Choose("Edit", 1);
    EXPECT_EQ(TakeLog(), (Log{"target Edit", "closed Edit", "end ", "end File", "end Recent", "end Edit",
                              "process cut  Edit 1"}));
}

TEST_F(MenuTracking, OpeningTellsWhetherItIsTheFirstTime)
{
    std::vector<int> theFirsts;
    const TestHandler theHandler(GetMenuEventTarget(mFile), "", mLog,
                                 [&](EventHandlerCallRef, EventRef theEvent) {
                                     theFirsts.push_back(
                                         Parameter<Boolean>(theEvent, kEventParamMenuFirstOpen, typeBoolean));
                                     return OSStatus(noErr);
                                 },
                                 {{kEventClassMenu, kEventMenuOpening}});
    Open("File");
    Open("Edit");
    Open("File");
    Close("File");
    Open("File");
    Close("File");
    EXPECT_EQ(theFirsts, (std::vector<int>{1, 0, 1}));
}

TEST_F(MenuTracking, TheReasonOfTheEndIsTold)
{
    std::vector<UInt32> theReasons;
    const TestHandler theHandler(GetMenuEventTarget(mFile), "", mLog,
                                 [&](EventHandlerCallRef, EventRef theEvent) {
                                     theReasons.push_back(
                                         Parameter<UInt32>(theEvent, kEventParamMenuDismissed, typeUInt32));
                                     return OSStatus(noErr);
                                 },
                                 {{kEventClassMenu, kEventMenuEndTracking}});
    Open("File");
    Choose("File", 1);
    Open("File");
    Close("File");
    Open("File");
    EXPECT_EQ(CancelMenuTracking(mEdit, true, kHIMenuDismissedByTimeout), noErr);
    EXPECT_EQ(CancelMenuTracking(nullptr, true, kHIMenuDismissedByTimeout), noErr);
    EXPECT_EQ(CancelMenuTracking(nullptr, true, kHIMenuDismissedByTimeout), noErr);
    EXPECT_EQ(theReasons, (std::vector<UInt32>{kHIMenuDismissedBySelection, kHIMenuDismissedByUserCancel,
                                               kHIMenuDismissedByTimeout}));
    EXPECT_EQ(CancelMenuTracking(InventedReference<MenuRef>(), true, 0), menuInvalidErr);
}

TEST_F(MenuTracking, AHandlerCanKeepTheTrackingFromBeginning)
{
    const TestHandler theHandler(GetApplicationEventTarget(), "refused", mLog, Answer(userCanceledErr),
                                 {{kEventClassMenu, kEventMenuBeginTracking}});
    EXPECT_FALSE(Open("File"));
    EXPECT_EQ(TakeLog(), (Log{"refused", "begin "}));
}

TEST_F(MenuTracking, AHandlerCanKeepAMenuClosed)
{
    const TestHandler theHandler(GetMenuEventTarget(mEdit), "refused", mLog, Answer(userCanceledErr),
                                 {{kEventClassMenu, kEventMenuOpening}});
    EXPECT_FALSE(Open("Edit"));
    EXPECT_EQ(mLog.back(), "end ");
    EXPECT_FALSE(Close("Edit"));
}

TEST_F(MenuTracking, AMenuThatIsDisposedWhileItOpensStaysClosed)
{
    const TestHandler theHandler(GetMenuEventTarget(mEdit), "update", mLog,
                                 [&](EventHandlerCallRef, EventRef) {
                                     DeleteMenu(129);
                                     DisposeMenu(mEdit);
                                     return OSStatus(noErr);
                                 },
                                 {{kEventClassCommand, kEventCommandUpdateStatus}});
    EXPECT_FALSE(Open("Edit"));
    EXPECT_FALSE(IsValidMenu(mEdit));
}

TEST_F(MenuTracking, AMenuThatItsCommandDisposesIsNoTrouble)
{
    const TestHandler theHandler(GetMenuEventTarget(mEdit), "cut", mLog,
                                 [&](EventHandlerCallRef, EventRef) {
                                     DeleteMenu(129);
                                     DisposeMenu(mEdit);
                                     return OSStatus(eventNotHandledErr);
                                 },
                                 {{kEventClassCommand, kEventCommandProcess}});
    EXPECT_TRUE(Choose("Edit", 1));
    EXPECT_EQ(mLog.size(), 3u);
    EXPECT_FALSE(IsValidMenu(mEdit));
}

// --- What cannot be chosen --------------------------------------------------------------------------

struct Unavailable
{
    const char* theCase;
    std::function<void(MenuRef theFile, MenuRef theRecent, MenuRef theRoot)> theSetUp;
    const char* theMenu;
    int theItem;
};

void PrintTo(const Unavailable& theCase, std::ostream* theStream)
{
    *theStream << theCase.theCase;
}

class UnavailableItem : public MenuTracking, public testing::WithParamInterface<Unavailable>
{
};

TEST_P(UnavailableItem, CannotBeChosen)
{
    MenuRef theRoot = AcquireRootMenu();
    GetParam().theSetUp(mFile, mRecent, theRoot);
    ReleaseMenu(theRoot);
    EXPECT_FALSE(Choose(GetParam().theMenu, GetParam().theItem));
    EXPECT_TRUE(mLog.empty());
}

INSTANTIATE_TEST_SUITE_P(
    EachReason, UnavailableItem,
    testing::Values(
        Unavailable{"disabled", [](MenuRef theFile, MenuRef, MenuRef) { DisableMenuItem(theFile, 1); },
                    "File", 1},
        Unavailable{"the menu is disabled",
                    [](MenuRef theFile, MenuRef, MenuRef) { DisableMenuItem(theFile, 0); }, "File", 1},
        Unavailable{"hidden",
                    [](MenuRef theFile, MenuRef, MenuRef) {
                        ChangeMenuItemAttributes(theFile, 1, kMenuItemAttrHidden, 0);
                    },
                    "File", 1},
        Unavailable{"a heading",
                    [](MenuRef theFile, MenuRef, MenuRef) {
                        ChangeMenuItemAttributes(theFile, 1, kMenuItemAttrSectionHeader, 0);
                    },
                    "File", 1},
        Unavailable{"a separator", [](MenuRef, MenuRef, MenuRef) {}, "Edit", 2},
        Unavailable{"it holds a menu", [](MenuRef, MenuRef, MenuRef) {}, "File", 3},
        Unavailable{"the holder is disabled",
                    [](MenuRef theFile, MenuRef, MenuRef) { DisableMenuItem(theFile, 3); }, "Recent", 1},
        Unavailable{"the holder's menu is disabled",
                    [](MenuRef theFile, MenuRef, MenuRef) { DisableMenuItem(theFile, 0); }, "Recent", 1},
        Unavailable{"the bar's item is disabled",
                    [](MenuRef, MenuRef, MenuRef theRoot) { DisableMenuItem(theRoot, 1); }, "Recent", 1},
        Unavailable{"there is no such item", [](MenuRef, MenuRef, MenuRef) {}, "File", 4},
        Unavailable{"items begin at 1", [](MenuRef, MenuRef, MenuRef) {}, "File", 0},
        Unavailable{"items are no large numbers", [](MenuRef, MenuRef, MenuRef) {}, "File", 65537},
        Unavailable{"there is no such menu", [](MenuRef, MenuRef, MenuRef) {}, "Nowhere", 1}));

TEST_F(MenuTracking, AnItemThatHoldsAMenuMayBeChoosable)
{
    ChangeMenuItemAttributes(mFile, 3, kMenuItemAttrSubmenuParentChoosable, 0);
    EXPECT_TRUE(Choose("File", 3));
    EXPECT_TRUE(Choose("Recent", 1));
}

// --- Enabling ---------------------------------------------------------------------------------------

TEST_F(MenuTracking, AnItemThatNobodyUpdatesMayDisableItself)
{
    ChangeMenuItemAttributes(mFile, 1, kMenuItemAttrAutoDisable, 0);
    ChangeMenuItemAttributes(mFile, 2, kMenuItemAttrAutoDisable, 0);
    const TestHandler theHandler(
        GetMenuEventTarget(mFile), "", mLog,
        [](EventHandlerCallRef, EventRef theEvent) {
            const auto theCommand = Parameter<HICommand>(theEvent, kEventParamDirectObject, typeHICommand);
            return theCommand.commandID == 'save' ? OSStatus(noErr) : OSStatus(eventNotHandledErr);
        },
        {{kEventClassCommand, kEventCommandUpdateStatus}});
    Open("File");
    Close("File");
    EXPECT_FALSE(IsMenuItemEnabled(mFile, 1));
    EXPECT_TRUE(IsMenuItemEnabled(mFile, 2));
    EXPECT_TRUE(IsMenuItemEnabled(mFile, 3));
}

TEST_F(MenuTracking, AFreshRoundOfEnablingHappensWhenTheLoopRuns)
{
    Host::VirtualClock theClock;
    EXPECT_EQ(InvalidateMenuEnabling(nullptr), noErr);
    EXPECT_TRUE(mLog.empty());
    RunCurrentEventLoop(0);
    EXPECT_EQ(TakeLog(), (Log{"enable File", "update open File 1", "update save File 2", "update none File 3",
                              "enable Edit", "update cut  Edit 1", "update save Edit 3"}));
    EXPECT_EQ(mContexts.back(), UInt32(kMenuContextMenuBar | kMenuContextMenuEnabling));
    RunCurrentEventLoop(0);
    EXPECT_TRUE(mLog.empty());
    EXPECT_EQ(InvalidateMenuEnabling(mEdit), noErr);
    RunCurrentEventLoop(0);
    EXPECT_EQ(TakeLog().front(), "enable Edit");
    EXPECT_EQ(InvalidateMenuEnabling(InventedReference<MenuRef>()), menuInvalidErr);
}

// --- Command keys -----------------------------------------------------------------------------------

TEST_F(MenuTracking, ACommandKeyUpdatesTheMenusThenSendsTheCommand)
{
    SetItemCmd(mEdit, 1, 'X');
    EXPECT_EQ(Press('x'), noErr);
    EXPECT_EQ(TakeLog(), (Log{"populate File", "enable File", "update open File 1", "update save File 2",
                              "update none File 3", "populate Edit", "enable Edit", "update cut  Edit 1",
                              "update save Edit 3", "process cut  Edit 1"}));
    EXPECT_EQ(mContexts.back(), UInt32(kMenuContextMenuBar | kMenuContextKeyMatching));
}

TEST_F(MenuTracking, AKeyThatIsNoCommandGoesToTheUserFocus)
{
    SetItemCmd(mEdit, 1, 'X');
    const TestHandler theHandler(GetApplicationEventTarget(), "key", mLog, Answer(noErr),
                                 {{kEventClassKeyboard, kEventRawKeyDown}});
    EXPECT_EQ(Press('y'), noErr);
    EXPECT_EQ(mLog.back(), "key");
}

TEST_F(MenuTracking, TypingTellsTheMenusNothing)
{
    SetItemCmd(mEdit, 1, 'X');
    EXPECT_EQ(Press('x', 0), eventNotHandledErr);
    EXPECT_TRUE(mLog.empty());
}

TEST_F(MenuTracking, AnItemMayDoWithoutTheCommandKey)
{
    SetItemCmd(mRecent, 1, 'X');
    SetMenuItemModifiers(mRecent, 1, kMenuNoCommandModifier);
    EXPECT_EQ(Press('x', 0), noErr);
    EXPECT_EQ(mLog.front(), "populate File");
    EXPECT_EQ(mLog.back(), "process frst Recent 1");
}

TEST_F(MenuTracking, ACommandKeyWithMoreModifiersIsAnotherKey)
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

class CommandKey : public MenuTracking, public testing::WithParamInterface<KeyCase>
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

TEST_F(MenuTracking, WithTheOptionKeyTheLabelOfTheKeyCounts)
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

TEST_F(MenuTracking, AKeyMayBeNamedByItsPosition)
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

TEST_F(MenuTracking, ItemsThatCannotBeChosenHaveNoKey)
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

TEST_F(MenuTracking, DisabledItemsAreFoundWhenTheyAreAskedFor)
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

TEST_F(MenuTracking, SubmenusAreLookedIntoUnlessTheCallerSaysNo)
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

TEST_F(MenuTracking, ARepeatedKeyChoosesOnlyItemsThatRepeat)
{
    SetItemCmd(mEdit, 1, 'X');
    EXPECT_EQ(Press('x', cmdKey, kEventRawKeyRepeat), eventNotHandledErr);
    ChangeMenuItemAttributes(mEdit, 1, kMenuItemAttrAutoRepeat, 0);
    EXPECT_EQ(Press('x', cmdKey, kEventRawKeyRepeat), noErr);
}

TEST_F(MenuTracking, AnItemMayBeUpdatedAlone)
{
    SetItemCmd(mFile, 2, 'S');
    ChangeMenuItemAttributes(mFile, 2, kMenuItemAttrUpdateSingleItem, 0);
    Press('s');
    EXPECT_EQ(TakeLog(), (Log{"populate File", "update save File 2", "process save File 2"}));
}

TEST_F(MenuTracking, AHandlerOfTheMenuMayDecideWhichItemAKeyIs)
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

TEST_F(MenuTracking, OnlyKeyPressesAreCommandKeys)
{
    const TestEvent theEvent(kEventClassKeyboard, kEventRawKeyUp);
    EXPECT_FALSE(IsMenuKeyEvent(nullptr, theEvent.Get(), 0, nullptr, nullptr));
    EXPECT_FALSE(IsMenuKeyEvent(nullptr, nullptr, 0, nullptr, nullptr));
    EXPECT_FALSE(IsMenuKeyEvent(InventedReference<MenuRef>(), theEvent.Get(), 0, nullptr, nullptr));
    EXPECT_TRUE(mLog.empty());
}

// --- Pop-up menus -----------------------------------------------------------------------------------

namespace {

// A presenter whose person chooses from every pop-up menu what the test wants.
class PopUpPresenter : public Host::Presenter
{
public:
    explicit PopUpPresenter(int theItem)
        : mItem(theItem)
    {
    }

    Host::MenuChoice RunPopUp(const Host::PopUpLook& theLook) override
    {
        sLook = theLook;
        return {mItem == 0 ? Host::kNoObject : theLook.theMenu.theId, mItem};
    }

    static Host::PopUpLook sLook;

private:
    int mItem;
};

Host::PopUpLook PopUpPresenter::sLook;

class PopUpMenu : public MenuTracking
{
protected:
    PopUpMenu() { mPopUp = NewMenuWith(-3, "Pop-up", {{"One", 'one '}, {"Two", 'two '}}); }
    ~PopUpMenu() override
    {
        DisposeMenu(mPopUp);
        PresenterRegistry::Use(std::make_unique<Host::Presenter>());
    }

    SInt32 Select(int theItem)
    {
        PresenterRegistry::Use(std::make_unique<PopUpPresenter>(theItem));
        return PopUpMenuSelect(mPopUp, 40, 30, 1);
    }

    MenuRef mPopUp = nullptr;
};

} // namespace

TEST_F(PopUpMenu, TheChoiceIsMenuAndItem)
{
    const SInt32 theChoice = Select(2);
    EXPECT_EQ(static_cast<SInt16>(static_cast<UInt32>(theChoice) >> 16), -3);
    EXPECT_EQ(theChoice & 0xFFFF, 2);
    EXPECT_EQ(TakeLog(), (Log{"begin Pop-up", "populate Pop-up", "enable Pop-up", "update one  Pop-up 1",
                              "update two  Pop-up 2", "opening Pop-up", "target Pop-up", "closed Pop-up",
                              "end Pop-up", "process two  Pop-up 2"}));
    EXPECT_EQ(mContexts.front(), UInt32(kMenuContextPopUpTracking));
    EXPECT_EQ(mContexts.back(), UInt32(kMenuContextPopUpTracking | kMenuContextPopUp));
    EXPECT_EQ(PopUpPresenter::sLook.thePlace.theX, 30);
    EXPECT_EQ(PopUpPresenter::sLook.thePlace.theY, 40);
    EXPECT_EQ(PopUpPresenter::sLook.theItem, 1);
    EXPECT_EQ(PopUpPresenter::sLook.theMenu.theItems.size(), 2u);
}

TEST_F(PopUpMenu, AHandledCommandLeavesNothingForTheCaller)
{
    const TestHandler theHandler(GetApplicationEventTarget(), "handled", mLog, Answer(noErr),
                                 {{kEventClassCommand, kEventCommandProcess}});
    EXPECT_EQ(Select(1), 0);
    EXPECT_EQ(mLog.back(), "handled");
}

TEST_F(PopUpMenu, ChoosingNothingClosesTheMenu)
{
    EXPECT_EQ(Select(0), 0);
    EXPECT_EQ(mLog.back(), "end Pop-up");
    DisableMenuItem(mPopUp, 2);
    EXPECT_EQ(Select(2), 0);
    EXPECT_EQ(mLog.back(), "end Pop-up");
}
