// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ThermostatApplication.h"

#include "ThermostatWindow.h"

ThermostatApplication::ThermostatApplication()
    : mPreferences(CFSTR("org.lmbindings.Thermostat")),
      mMenu(mModel),
      mWindow(nullptr)
{
    // The preferences come first: the initial values flow from them to the model, and from there to the
    // screen.
    LmKeyValueBinding* const theModel = mModel.GetBindings();
    theModel->Bind(kModelTarget, &mPreferences, "target", nullptr, nullptr);
    theModel->Bind(kModelFahrenheit, &mPreferences, "fahrenheit", nullptr, nullptr);
    theModel->Bind(kModelShown, &mPreferences, "shown", nullptr, nullptr);
    mWindow = OpenThermostatWindow(mModel, mPreferences);
}

ThermostatApplication::~ThermostatApplication()
{
    if (IsValidWindowPtr(mWindow)) {
        CloseThermostatWindow(mWindow, mModel);
    }
}
