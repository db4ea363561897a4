// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ThermostatApplication.h"

int main()
{
    ThermostatApplication theApplication;
    RunApplicationEventLoop();
    return 0;
}
