// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ThermostatMenu_h
#define ThermostatMenu_h

#include <Carbon/Carbon.h>

class ThermostatModel;

// The application's one menu. Marks and enabled items follow the model; choosing a command changes the model,
// and the model changes the window.
enum ThermostatCommand : MenuCommand
{
    kCommandHeating = 'heat',
    kCommandCelsius = 'cels',
    kCommandFahrenheit = 'fahr',
    kCommandReset = 'rset',
    kCommandShown = 'show'
};

const MenuID kThermostatMenu = 128;

// Puts the menu into the menu bar and handles its commands, as long as it lives. theModel must live as long.
class ThermostatMenu
{
public:
    explicit ThermostatMenu(ThermostatModel& theModel);
    ~ThermostatMenu();

    ThermostatMenu(const ThermostatMenu&) = delete;
    ThermostatMenu& operator=(const ThermostatMenu&) = delete;

private:
    EventHandlerRef mHandler = nullptr; // on the application; owned
};

#endif
