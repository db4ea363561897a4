// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmDebugObject.h"
#include "ThermostatApplication.h"

#include <string>

// Thermostat [--trace]: with --trace, every change is told on the standard error stream.
int main(int theCount, char** theArguments)
{
    LmDebugObject::SetLogging(theCount > 1 && std::string(theArguments[1]) == "--trace");
    ThermostatApplication theApplication;
    RunApplicationEventLoop();
    return 0;
}
