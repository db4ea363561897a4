// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ThermostatModel.h"

#include "LmJournalHook.h"

const char* const kModelTarget = "target";
const char* const kModelHeating = "heating";
const char* const kModelRoom = "room";
const char* const kModelFahrenheit = "fahrenheit";
const char* const kModelShown = "shown";
const char* const kModelShownTarget = "shown target";
const char* const kModelPower = "power";
const char* const kModelAltered = "altered";

ThermostatModel::ThermostatModel()
{
    LmNameObject(*this, "thermostat");
    Set(kModelRoom, LmValue(CFSTR("Living room"), false));
    Set(kModelShown, LmValue(true));
    Reset();
    DeriveKeys();
    GetBindings()->MakeDependency(kModelTarget, kModelShownTarget);
    GetBindings()->MakeDependency(kModelFahrenheit, kModelShownTarget);
    GetBindings()->MakeDependency(kModelTarget, kModelPower);
    GetBindings()->MakeDependency(kModelHeating, kModelPower);
    for (const char* theKey : {kModelTarget, kModelHeating, kModelFahrenheit}) {
        GetBindings()->MakeDependency(theKey, kModelAltered);
    }
}

void ThermostatModel::Reset()
{
    Set(kModelTarget, LmValue(kUsualTarget));
    Set(kModelHeating, LmValue(true));
    Set(kModelFahrenheit, LmValue(false));
}

void ThermostatModel::ValueChanged(const LmKeyValueStore*, const LmString& theKeyName)
{
    if (theKeyName == kModelTarget || theKeyName == kModelHeating || theKeyName == kModelFahrenheit) {
        DeriveKeys();
    }
}

// Into the store, past SetKeyPathValue: the dependencies tell the observers, once the key that changed has
// been told to all of its own.
void ThermostatModel::DeriveKeys()
{
    GetBindings()->SetKeyValue(kModelShownTarget, ComputeShownTarget());
    GetBindings()->SetKeyValue(kModelPower, ComputePower());
    GetBindings()->SetKeyValue(kModelAltered, ComputeAltered());
}

LmValue ThermostatModel::ComputeShownTarget()
{
    const long theCelsius = Get(kModelTarget).GetSInt32();
    return LmValue(Get(kModelFahrenheit).GetBoolean() ? theCelsius * 9 / 5 + 32 : theCelsius);
}

LmValue ThermostatModel::ComputePower()
{
    if (!Get(kModelHeating).GetBoolean()) {
        return LmValue(0L);
    }
    const long theDegrees = Get(kModelTarget).GetSInt32() - kLowestTarget;
    return LmValue(theDegrees * 100 / (kHighestTarget - kLowestTarget));
}

LmValue ThermostatModel::ComputeAltered()
{
    return LmValue(Get(kModelTarget).GetSInt32() != kUsualTarget || !Get(kModelHeating).GetBoolean() ||
                   Get(kModelFahrenheit).GetBoolean());
}
