// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// How items are brought up to date, and the sending of commands.

#include "MenuTestSupport.h"

#include <Simulation/VirtualClock.h>

namespace {

using MenuUpdating = MenuTrackingTest;

} // namespace

TEST_F(MenuUpdating, TheCommandTellsWhereItCameFromAndTheModifiers)
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

TEST_F(MenuUpdating, AnItemWithoutACommandSendsOneAllTheSame)
{
    SetMenuItemCommandID(mFile, 1, 0);
    EXPECT_TRUE(Choose("File", 1));
    EXPECT_EQ(TakeLog().back(), "process none File 1");
}

TEST_F(MenuUpdating, ACommandGoesFromTheMenuToTheUserFocus)
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

TEST_F(MenuUpdating, AnItemThatNobodyUpdatesMayDisableItself)
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

TEST_F(MenuUpdating, AFreshRoundOfEnablingHappensWhenTheLoopRuns)
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
