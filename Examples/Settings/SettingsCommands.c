/* LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE. */

#include "Settings.h"

static pascal OSStatus DoCommand(EventHandlerCallRef theNext, EventRef theEvent, void* theWindow)
{
    HICommand theCommand;
    (void)theNext;
    GetEventParameter(theEvent, kEventParamDirectObject, typeHICommand, NULL, sizeof theCommand, NULL,
                      &theCommand);
    switch (theCommand.commandID) {
    case kHICommandOK:
        QuitApplicationEventLoop();
        return noErr;
    case kRestoreCommand:
        RestoreSettings((WindowRef)theWindow);
        return noErr;
    default:
        return eventNotHandledErr;
    }
}

/* The window goes when the program does, so that what it shows can still be kept. */
static pascal OSStatus DoClose(EventHandlerCallRef theNext, EventRef theEvent, void* theData)
{
    (void)theNext;
    (void)theEvent;
    (void)theData;
    QuitApplicationEventLoop();
    return noErr;
}

static void InstallMenus(void)
{
    MenuRef theMenu = NULL;
    MenuItemIndex theItem = 0;
    CreateNewMenu(128, 0, &theMenu);
    SetMenuTitleWithCFString(theMenu, CFSTR("Settings"));
    AppendMenuItemTextWithCFString(theMenu, CFSTR("Restore"), 0, kRestoreCommand, &theItem);
    SetMenuItemCommandKey(theMenu, theItem, false, 'R');
    AppendMenuItemTextWithCFString(theMenu, CFSTR("Quit"), 0, kHICommandQuit, &theItem);
    SetMenuItemCommandKey(theMenu, theItem, false, 'Q');
    InsertMenu(theMenu, 0);
    ReleaseMenu(theMenu);
}

void InstallSettingsCommands(WindowRef theWindow)
{
    EventTypeSpec theCommands;
    EventTypeSpec theClosing;
    theCommands.eventClass = kEventClassCommand;
    theCommands.eventKind = kEventCommandProcess;
    theClosing.eventClass = kEventClassWindow;
    theClosing.eventKind = kEventWindowClose;
    InstallMenus();
    InstallWindowEventHandler(theWindow, NewEventHandlerUPP(DoCommand), 1, &theCommands, theWindow, NULL);
    InstallWindowEventHandler(theWindow, NewEventHandlerUPP(DoClose), 1, &theClosing, NULL, NULL);
}
