// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ThermostatMenu.h"

#include "LmLogicalTransforms.h"
#include "LmMenuBinding.h"
#include "ThermostatModel.h"

namespace {

void AddItem(MenuRef theMenu, CFStringRef theText, MenuCommand theCommand, UInt16 theKey)
{
    MenuItemIndex theItem = 0;
    AppendMenuItemTextWithCFString(theMenu, theText, 0, theCommand, &theItem);
    if (theKey != 0) {
        SetMenuItemCommandKey(theMenu, theItem, false, theKey);
    }
}

void AddSeparator(MenuRef theMenu)
{
    AppendMenuItemTextWithCFString(theMenu, CFSTR(""), kMenuItemAttrSeparator, 0, nullptr);
}

void InsertNewMenu()
{
    MenuRef theMenu = nullptr;
    CreateNewMenu(kThermostatMenu, 0, &theMenu);
    SetMenuTitleWithCFString(theMenu, CFSTR("Thermostat"));
    AddItem(theMenu, CFSTR("Heating On"), kCommandHeating, 'H');
    AddSeparator(theMenu);
    AddItem(theMenu, CFSTR("Celsius"), kCommandCelsius, 0);
    AddItem(theMenu, CFSTR("Fahrenheit"), kCommandFahrenheit, 0);
    AddItem(theMenu, CFSTR("Reset"), kCommandReset, 'R');
    AddSeparator(theMenu);
    AddItem(theMenu, CFSTR("Window Shown"), kCommandShown, 0);
    AddItem(theMenu, CFSTR("Quit"), kHICommandQuit, 'Q');
    InsertMenu(theMenu, 0);
    ReleaseMenu(theMenu); // the menu bar holds it now
}

// A menu binding deletes itself together with its menu, so nobody has to keep it.
void BindCommands(LmKeyValueBinding* theModel)
{
    (new LmMenuBinding(kCommandHeating))->BindTo("mark", theModel, kModelHeating, nullptr);
    (new LmMenuBinding(kCommandCelsius))
        ->BindTo("mark", theModel, kModelFahrenheit, new LmIsEqualTransform(LmValue(false)));
    (new LmMenuBinding(kCommandFahrenheit))->BindTo("mark", theModel, kModelFahrenheit, nullptr);
    (new LmMenuBinding(kCommandReset))->BindTo("enabled", theModel, kModelAltered, nullptr);
    (new LmMenuBinding(kCommandShown))->BindTo("mark", theModel, kModelShown, nullptr);
}

void Toggle(ThermostatModel& theModel, const char* theKey)
{
    theModel.Set(theKey, LmValue(!theModel.Get(theKey).GetBoolean()));
}

OSStatus DoCommand(ThermostatModel& theModel, MenuCommand theCommand)
{
    switch (theCommand) {
    case kCommandHeating:
        Toggle(theModel, kModelHeating);
        return noErr;
    case kCommandCelsius:
    case kCommandFahrenheit:
        theModel.Set(kModelFahrenheit, LmValue(theCommand == kCommandFahrenheit));
        return noErr;
    case kCommandReset:
        theModel.Reset();
        return noErr;
    case kCommandShown:
        Toggle(theModel, kModelShown);
        return noErr;
    case kHICommandQuit:
        QuitApplicationEventLoop();
        return noErr;
    default:
        return eventNotHandledErr;
    }
}

OSStatus HandleCommand(EventHandlerCallRef, EventRef theEvent, void* theModel)
{
    HICommand theCommand = {};
    const OSStatus theStatus = GetEventParameter(theEvent, kEventParamDirectObject, typeHICommand, nullptr,
                                                 sizeof theCommand, nullptr, &theCommand);
    if (theStatus != noErr) {
        return eventNotHandledErr;
    }
    return DoCommand(*static_cast<ThermostatModel*>(theModel), theCommand.commandID);
}

} // namespace

ThermostatMenu::ThermostatMenu(ThermostatModel& theModel)
{
    static const EventHandlerUPP kHandler = NewEventHandlerUPP(HandleCommand);
    const EventTypeSpec theCommands = {kEventClassCommand, kEventCommandProcess};

    InsertNewMenu();
    BindCommands(theModel.GetBindings());
    InstallApplicationEventHandler(kHandler, 1, &theCommands, &theModel, &mHandler);
}

ThermostatMenu::~ThermostatMenu()
{
    RemoveEventHandler(mHandler);
    DeleteMenu(kThermostatMenu); // the last that held it, so its bindings go too
}
