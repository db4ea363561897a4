// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef MenuTestSupport_h
#define MenuTestSupport_h

#include "EventTestSupport.h"

#include <Carbon/Carbon.h>
#include <gtest/gtest.h>
#include <map>
#include <Presentation/Presenter.h>
#include <Presentation/PresenterRegistry.h>
#include <string>

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

inline std::string TitleOf(MenuRef theMenu)
{
    CFStringRef theTitle = nullptr;
    CopyMenuTitleAsCFString(theMenu, &theTitle);
    return TakeText(theTitle);
}

inline CharParameter MarkOf(MenuRef theMenu, MenuItemIndex theItem)
{
    CharParameter theMark = -1;
    GetItemMark(theMenu, theItem, &theMark);
    return theMark;
}

inline std::string PascalText(const unsigned char* theText)
{
    return std::string(reinterpret_cast<const char*>(theText) + 1, theText[0]);
}

inline MenuRef DisposedMenu()
{
    MenuRef theMenu = nullptr;
    CreateNewMenu(1, 0, &theMenu);
    DisposeMenu(theMenu);
    return theMenu;
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

// Notes every menu and command event that reaches the application.
class MenuTrackingTest : public MenuTest
{
protected:
    MenuTrackingTest()
        : mSpy(GetApplicationEventTarget(), "", mIgnored,
               [this](EventHandlerCallRef, EventRef theEvent) {
                   mLog.push_back(Describe(theEvent));
                   mContexts.push_back(Parameter<UInt32>(theEvent, kEventParamMenuContext, typeUInt32));
                   return OSStatus(eventNotHandledErr);
               },
               {
                   {kEventClassMenu, kEventMenuBeginTracking},
                   {kEventClassMenu, kEventMenuEndTracking},
                   {kEventClassMenu, kEventMenuOpening},
                   {kEventClassMenu, kEventMenuClosed},
                   {kEventClassMenu, kEventMenuTargetItem},
                   {kEventClassMenu, kEventMenuMatchKey},
                   {kEventClassMenu, kEventMenuEnableItems},
                   {kEventClassMenu, kEventMenuPopulate},
                   {kEventClassCommand, kEventCommandProcess},
                   {kEventClassCommand, kEventCommandUpdateStatus},
               })
    {
    }

    // A parameter that must be there.
    template <class Type>
    static Type Parameter(EventRef theEvent, EventParamName theName, EventParamType theType)
    {
        Type theValue{};
        EXPECT_EQ(GetEventParameter(theEvent, theName, theType, nullptr, sizeof theValue, nullptr, &theValue),
                  noErr);
        return theValue;
    }

    // What presenters call a menu.
    static Host::ObjectId IdOf(const std::string& theTitle)
    {
        return FindTitle(BarLook().theMenus, theTitle);
    }

    static bool Open(const std::string& theTitle)
    {
        return Host::PresenterRegistry::Events().MenuOpened(IdOf(theTitle));
    }
    static bool Close(const std::string& theTitle)
    {
        return Host::PresenterRegistry::Events().MenuClosed(IdOf(theTitle));
    }
    static bool Choose(const std::string& theTitle, int theItem, UInt32 theModifiers = 0)
    {
        return Host::PresenterRegistry::Events().MenuChosen({IdOf(theTitle), theItem}, theModifiers);
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
    static std::string CodeText(UInt32 theCode)
    {
        std::string theText;
        for (int theShift = 24; theShift >= 0; theShift -= 8) {
            theText += static_cast<char>((theCode >> theShift) & 0xFF);
        }
        return theCode == 0 ? "none" : theText;
    }

    // A menu or command event in words.
    static std::string Describe(EventRef theEvent)
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
            {kEventMenuBeginTracking, "begin"}, {kEventMenuEndTracking, "end"},
            {kEventMenuOpening, "opening"},     {kEventMenuClosed, "closed"},
            {kEventMenuTargetItem, "target"},   {kEventMenuMatchKey, "match"},
            {kEventMenuEnableItems, "enable"},  {kEventMenuPopulate, "populate"},
        };
        MenuRef theMenu = nullptr;
        GetEventParameter(theEvent, kEventParamDirectObject, typeMenuRef, nullptr, sizeof theMenu, nullptr,
                          &theMenu);
        return kNames.at(theKind) + " " + TitleOf(theMenu);
    }

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

#endif
