// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ThermostatWindow_h
#define ThermostatWindow_h

#include <Carbon/Carbon.h>

class LmPreferenceBinding;
class ThermostatModel;

// The window that shows a thermostat: an ordinary Carbon window whose controls are bound to the model. There
// is no code here, nor anywhere else, that copies a value from one to the other.
//
// The signature of the controls is 'Ther'; their numbers:
enum ThermostatControl : SInt32
{
    kRoomField = 1,
    kHeatingBox = 2,
    kTargetSlider = 3,
    kTargetText = 4,
    kUnitText = 5,
    kPowerBar = 6,
    kPowerText = 7
};

const OSType kThermostatSignature = 'Ther';

// Makes the window and binds its controls, its title and its visibility to theModel, and its place on the
// screen to a key of thePreferences. The window belongs to the Window Manager until it is closed; a person
// who closes it ends the application's event loop. Both objects must outlive it.
WindowRef OpenThermostatWindow(ThermostatModel& theModel, LmPreferenceBinding& thePreferences);

// Closes the window. The model, and what is bound to it, keep whether it was shown until then.
void CloseThermostatWindow(WindowRef theWindow, ThermostatModel& theModel);

#endif
