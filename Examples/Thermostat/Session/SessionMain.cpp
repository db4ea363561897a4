// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmDebugObject.h"
#include "ThermostatApplication.h"
#include "ThermostatSession.h"

#include <cstdio>
#include <string>

namespace {

struct Wishes
{
    bool theTraceIsWanted = false;
    ThermostatSession::Script theScript = ThermostatSession::kFirstRun;
};

bool ReadWishes(int theCount, char** theArguments, Wishes& theWishes)
{
    for (int theIndex = 1; theIndex < theCount; ++theIndex) {
        const std::string theArgument = theArguments[theIndex];
        if (theArgument == "--trace") {
            theWishes.theTraceIsWanted = true;
        } else if (theArgument == "--second") {
            theWishes.theScript = ThermostatSession::kSecondRun;
        } else {
            return false;
        }
    }
    return true;
}

} // namespace

// Runs the application with a scripted person in front of it:
//
//     ThermostatSession [--second] [--trace]
//
// With --second the person does what shows that the run before is remembered. With --trace the library's own
// trace appears between the lines, on the standard error stream.
int main(int theCount, char** theArguments)
{
    Wishes theWishes;
    if (!ReadWishes(theCount, theArguments, theWishes)) {
        std::fprintf(stderr, "usage: ThermostatSession [--second] [--trace]\n");
        return 2;
    }
    LmDebugObject::SetLogging(theWishes.theTraceIsWanted);

    ThermostatApplication theApplication;
    ThermostatSession theSession(theApplication, theWishes.theScript);
    theSession.Start();
    RunApplicationEventLoop();
    return theSession.WasSuccessful() ? 0 : 1;
}
