// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ThermostatApplication_h
#define ThermostatApplication_h

#include "LmPreferenceBinding.h"
#include "ThermostatMenu.h"
#include "ThermostatModel.h"

#include <Carbon/Carbon.h>

// The application: the model, what it remembers from one run to the next, and its window and menu, which are
// open from the constructor on. Run the event loop to use it.
//
// The preference domain org.lmbindings.Thermostat keeps the target, the unit, the window's place and
// whether it is shown.
class ThermostatApplication
{
public:
    ThermostatApplication();

    // Closes the window if it is still open, and writes the preferences.
    ~ThermostatApplication();

    ThermostatApplication(const ThermostatApplication&) = delete;
    ThermostatApplication& operator=(const ThermostatApplication&) = delete;

    ThermostatModel& GetModel() { return mModel; }
    WindowRef GetWindow() const { return mWindow; }

private:
    // In the order in which each needs the one before; destroyed in the opposite one.
    LmPreferenceBinding mPreferences;
    ThermostatModel mModel;
    ThermostatMenu mMenu;
    WindowRef mWindow; // may have been closed since; the Window Manager's
};

#endif
