// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmDebugObject.h"
#include "ThermostatModel.h"
#include "ThermostatSession.h"
#include "ThermostatWindow.h"

#include <cstdio>
#include <cstring>

// Runs the application with a scripted person in front of it:
//
//     ThermostatSession [--trace]
//
// With --trace the library's own trace appears between the lines, on the standard error stream.
int main(int theCount, char** theArguments)
{
    const bool theTraceIsWanted = theCount == 2 && std::strcmp(theArguments[1], "--trace") == 0;
    if (theCount > 1 && !theTraceIsWanted) {
        std::fprintf(stderr, "usage: ThermostatSession [--trace]\n");
        return 2;
    }
    LmDebugObject::SetLogging(theTraceIsWanted);

    ThermostatModel theModel;
    ThermostatSession theSession(theModel, OpenThermostatWindow(theModel));
    theSession.Start();
    RunApplicationEventLoop();
    return theSession.WasSuccessful() ? 0 : 1;
}
