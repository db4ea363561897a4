// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ThermostatModel.h"

const char* const kModelTarget = "target";
const char* const kModelHeating = "heating";
const char* const kModelRoom = "room";
const char* const kModelPower = "power";

ThermostatModel::ThermostatModel()
{
    SetKeyPathValue(kModelTarget, LmValue(21UL));
    SetKeyPathValue(kModelHeating, LmValue(true));
    SetKeyPathValue(kModelRoom, LmValue(CFSTR("Living room"), false));
    MakeDependency(kModelTarget, kModelPower);
    MakeDependency(kModelHeating, kModelPower);
}

LmString ThermostatModel::GetDebugInfo() const
{
    return "[Thermostat]";
}

LmValue ThermostatModel::GetKeyValue(const LmString& theKeyName) const
{
    return theKeyName == kModelPower ? ComputePower() : LmKeyValueBinding::GetKeyValue(theKeyName);
}

LmValue ThermostatModel::ComputePower() const
{
    if (!GetKeyPathValue(kModelHeating).GetBoolean()) {
        return LmValue(0UL);
    }
    const long theDegrees = GetKeyPathValue(kModelTarget).GetSInt32() - kLowestTarget;
    return LmValue(static_cast<unsigned long>(theDegrees * 100 / (kHighestTarget - kLowestTarget)));
}
