// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef TestMenus_h
#define TestMenus_h

#include "TestProgram.h"

// A menu bar for the test: "File" with one item, and "Heating" with a submenu. It is cleared at the end.
//
//     File: Quit (quit)
//     Heating: Heating On (heat, checked), -, Units > Celsius (cels), Fahrenheit (fahr), Reset (rset)
struct TestMenus
{
    TestMenus()
    {
        mFile = NewTitledMenu(1, CFSTR("File"));
        Append(mFile, CFSTR("Quit"), 'quit');
        mUnits = NewTitledMenu(3, CFSTR("Units"));
        Append(mUnits, CFSTR("Celsius"), 'cels');
        Append(mUnits, CFSTR("Fahrenheit"), 'fahr');
        mHeating = NewTitledMenu(2, CFSTR("Heating"));
        Append(mHeating, CFSTR("Heating On"), 'heat');
        CheckMenuItem(mHeating, 1, true);
        AppendMenuItemTextWithCFString(mHeating, CFSTR(""), kMenuItemAttrSeparator, 0, nullptr);
        Append(mHeating, CFSTR("Units"), 0);
        SetMenuItemHierarchicalMenu(mHeating, 3, mUnits);
        Append(mHeating, CFSTR("Reset"), 'rset');
        SetMenuItemCommandKey(mHeating, 4, false, 'R');
        InsertMenu(mFile, 0);
        InsertMenu(mHeating, 0);
    }
    ~TestMenus()
    {
        ClearMenuBar();
        DisposeMenu(mFile);
        DisposeMenu(mHeating);
        DisposeMenu(mUnits);
    }
    TestMenus(const TestMenus&) = delete;
    TestMenus& operator=(const TestMenus&) = delete;

    static MenuRef NewTitledMenu(MenuID theID, CFStringRef theTitle)
    {
        MenuRef theMenu = nullptr;
        CreateNewMenu(theID, 0, &theMenu);
        SetMenuTitleWithCFString(theMenu, theTitle);
        return theMenu;
    }

    static void Append(MenuRef theMenu, CFStringRef theText, MenuCommand theCommand)
    {
        AppendMenuItemTextWithCFString(theMenu, theText, 0, theCommand, nullptr);
    }

    MenuRef mFile = nullptr;
    MenuRef mHeating = nullptr;
    MenuRef mUnits = nullptr;
};

// Notes what menus and commands are told of: "opening Heating", "update heat", "command rset"; a command of 0
// reads "none".
class MenuLog
{
public:
    explicit MenuLog(Log& theLog)
        : mLog(theLog)
    {
        const EventTypeSpec theTypes[] = {
            {kEventClassMenu, kEventMenuBeginTracking}, {kEventClassMenu, kEventMenuEndTracking},
            {kEventClassMenu, kEventMenuOpening},       {kEventClassMenu, kEventMenuClosed},
            {kEventClassCommand, kEventCommandProcess}, {kEventClassCommand, kEventCommandUpdateStatus}};
        InstallEventHandler(GetApplicationEventTarget(), Handle, std::size(theTypes), theTypes, this,
                            &mHandler);
    }
    ~MenuLog() { RemoveEventHandler(mHandler); }
    MenuLog(const MenuLog&) = delete;
    MenuLog& operator=(const MenuLog&) = delete;

    // What the handler does, and answers, after it has noted the event.
    std::function<OSStatus(const std::string&)> mAnswer;

private:
    static OSStatus Handle(EventHandlerCallRef, EventRef theEvent, void* theUserData)
    {
        auto* theSelf = static_cast<MenuLog*>(theUserData);
        const std::string theName =
            GetEventClass(theEvent) == kEventClassMenu ? NameOfMenu(theEvent) : NameOfCommand(theEvent);
        theSelf->mLog.push_back(theName);
        return theSelf->mAnswer ? theSelf->mAnswer(theName) : OSStatus{eventNotHandledErr};
    }

    static std::string NameOfMenu(EventRef theEvent)
    {
        switch (GetEventKind(theEvent)) {
        case kEventMenuBeginTracking:
            return "begin";
        case kEventMenuEndTracking:
            return "end " + TitleOf(theEvent);
        case kEventMenuOpening:
            return "opening " + TitleOf(theEvent);
        default:
            return "closed " + TitleOf(theEvent);
        }
    }

    static std::string TitleOf(EventRef theEvent)
    {
        CFStringRef theTitle = nullptr;
        CopyMenuTitleAsCFString(Parameter<MenuRef>(theEvent, kEventParamDirectObject, typeMenuRef),
                                &theTitle);
        char theBytes[64] = "";
        if (theTitle != nullptr) {
            CFStringGetCString(theTitle, theBytes, sizeof theBytes, kCFStringEncodingUTF8);
            CFRelease(theTitle);
        }
        return theBytes;
    }

    static std::string NameOfCommand(EventRef theEvent)
    {
        const UInt32 theCommand =
            Parameter<HICommand>(theEvent, kEventParamDirectObject, typeHICommand).commandID;
        std::string theName = GetEventKind(theEvent) == kEventCommandProcess ? "command " : "update ";
        if (theCommand == 0) {
            return theName + "none";
        }
        for (int theShift = 24; theShift >= 0; theShift -= 8) {
            theName += static_cast<char>((theCommand >> theShift) & 0xFFu);
        }
        return theName;
    }

    Log& mLog;
    EventHandlerRef mHandler = nullptr;
};

#endif
