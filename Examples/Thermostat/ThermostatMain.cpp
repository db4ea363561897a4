// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ThermostatModel.h"
#include "ThermostatWindow.h"

int main()
{
    ThermostatModel theModel;
    OpenThermostatWindow(theModel);
    RunApplicationEventLoop();
    return 0;
}
