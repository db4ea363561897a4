// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ThermostatModel_h
#define ThermostatModel_h

#include "LmKeyValueBinding.h"

// The state of the thermostat, apart from any window:
//
//     "target"    the wanted temperature in degrees Celsius, 5 to 30
//     "heating"   whether the heating is on
//     "room"      the name of the room
//     "power"     how hard the heating works, 0 to 100; follows from "target" and "heating", and is not set
//
// "power" shows how to derive a key: GetKeyValue computes it, and two dependencies tell its observers when
// to look again.
class ThermostatModel : public LmKeyValueBinding
{
public:
    ThermostatModel();

    LmString GetDebugInfo() const override;
    LmValue GetKeyValue(const LmString& theKeyName) const override;

private:
    LmValue ComputePower() const;
};

extern const char* const kModelTarget;
extern const char* const kModelHeating;
extern const char* const kModelRoom;
extern const char* const kModelPower;

const long kLowestTarget = 5;
const long kHighestTarget = 30;

#endif
