// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "RadioMenu.h"

#include <algorithm>

namespace {

const long kStep = 10;

void AddItem(MenuRef theMenu, CFStringRef theText, MenuCommand theCommand, UInt16 theKey)
{
    MenuItemIndex theItem = 0;
    AppendMenuItemTextWithCFString(theMenu, theText, 0, theCommand, &theItem);
    SetMenuItemCommandKey(theMenu, theItem, false, theKey);
}

void InsertNewMenu()
{
    MenuRef theMenu = nullptr;
    CreateNewMenu(kRadioMenu, 0, &theMenu);
    SetMenuTitleWithCFString(theMenu, CFSTR("Radio"));
    AddItem(theMenu, CFSTR("On"), kCommandOn, 'O');
    AddItem(theMenu, CFSTR("Louder"), kCommandLouder, 'L');
    AddItem(theMenu, CFSTR("More Softly"), kCommandSoftly, 'S');
    AddItem(theMenu, CFSTR("Window Shown"), kCommandShown, 'W');
    AddItem(theMenu, CFSTR("Quit"), kHICommandQuit, 'Q');
    InsertMenu(theMenu, 0);
    ReleaseMenu(theMenu); // the menu bar holds it now
}

void BindCommands(LmKeyValueBinding* theModel)
{
    (new LmMenuBinding(kCommandOn))->BindTo("mark", theModel, "on", NULL);
    (new LmMenuBinding(kCommandLouder))->BindTo("enabled", theModel, "on", NULL);
    (new LmMenuBinding(kCommandSoftly))->BindTo("enabled", theModel, "on", NULL);
    (new LmMenuBinding(kCommandShown))->BindTo("mark", theModel, "shown", NULL);
}

void Toggle(Radio& theRadio, const char* theKey)
{
    theRadio.Set(theKey, LmValue(!theRadio.Get(theKey).GetBoolean()));
}

void TurnBy(Radio& theRadio, long theStep)
{
    theRadio.Set("volume", LmValue(std::clamp(theRadio.Get("volume").GetSInt32() + theStep, 0L, 100L)));
}

OSStatus DoCommand(Radio& theRadio, MenuCommand theCommand)
{
    switch (theCommand) {
    case kCommandOn:
        Toggle(theRadio, "on");
        return noErr;
    case kCommandLouder:
        TurnBy(theRadio, kStep);
        return noErr;
    case kCommandSoftly:
        TurnBy(theRadio, -kStep);
        return noErr;
    case kCommandShown:
        Toggle(theRadio, "shown");
        return noErr;
    case kHICommandQuit:
        QuitApplicationEventLoop();
        return noErr;
    default:
        return eventNotHandledErr;
    }
}

OSStatus HandleCommand(EventHandlerCallRef, EventRef theEvent, void* theRadio)
{
    HICommand theCommand = {};
    GetEventParameter(theEvent, kEventParamDirectObject, typeHICommand, nullptr, sizeof theCommand, nullptr,
                      &theCommand);
    return DoCommand(*static_cast<Radio*>(theRadio), theCommand.commandID);
}

} // namespace

RadioMenu::RadioMenu(Radio& theRadio)
{
    static const EventHandlerUPP kHandler = NewEventHandlerUPP(HandleCommand);
    const EventTypeSpec theCommands = {kEventClassCommand, kEventCommandProcess};
    InsertNewMenu();
    BindCommands(theRadio.GetBindings());
    InstallApplicationEventHandler(kHandler, 1, &theCommands, &theRadio, &mHandler);
}

RadioMenu::~RadioMenu()
{
    RemoveEventHandler(mHandler);
    DeleteMenu(kRadioMenu); // the bindings of its commands go with it
}
