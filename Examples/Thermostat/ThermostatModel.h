// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ThermostatModel_h
#define ThermostatModel_h

#include "LmBindable.h"

// The state of the thermostat, apart from any window. Its keys are those of GetBindings():
//
//     "target"        the wanted temperature in degrees Celsius, 5 to 30
//     "heating"       whether the heating is on
//     "room"          the name of the room
//     "fahrenheit"    whether temperatures are shown in Fahrenheit
//     "shown"         whether the window is shown
//     "shown target"  the target in the unit that is shown; follows from "target" and "fahrenheit"
//     "power"         how hard the heating works, 0 to 100; follows from "target" and "heating"
//     "altered"       whether Reset would change anything
//
// The last three are derived keys and are not set from outside. When a key that they follow from has changed,
// the model puts their new values into the store without a word, and the dependencies that the constructor
// makes let the store tell their observers.
class ThermostatModel : public LmBindable
{
public:
    // 21 °C, heating on, in a room called "Living room".
    ThermostatModel();

    // Sets target, heating and unit as they are in a new model.
    void Reset();

    // Keeps the derived keys up to date.
    void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName) override;

    LmValue Get(const char* theKey) { return GetBindings()->GetKeyPathValue(theKey); }
    void Set(const char* theKey, const LmValue& theValue)
    {
        GetBindings()->SetKeyPathValue(theKey, theValue);
    }

private:
    void DeriveKeys();
    LmValue ComputeShownTarget();
    LmValue ComputePower();
    LmValue ComputeAltered();
};

extern const char* const kModelTarget;
extern const char* const kModelHeating;
extern const char* const kModelRoom;
extern const char* const kModelFahrenheit;
extern const char* const kModelShown;
extern const char* const kModelShownTarget;
extern const char* const kModelPower;
extern const char* const kModelAltered;

const long kLowestTarget = 5;
const long kUsualTarget = 21;
const long kHighestTarget = 30;

#endif
