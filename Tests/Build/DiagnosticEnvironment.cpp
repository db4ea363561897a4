// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// DiagnosticEnvironment [handled]: gives cause for two diagnostics, and says on the standard output that it
// has come to its end. With an argument they go to a handler, which prints them on the standard output.

#include "LmDiagnosticHandler.h"
#include "LmValue.h"

#include <cstdio>

namespace {

void PrintHandled(const LmDiagnostic& theDiagnostic, void* /*theUserData*/)
{
    std::printf("handled %s\n", theDiagnostic.theMessage);
    std::fflush(stdout);
}

} // namespace

int main(int theCount, char** /*theArguments*/)
{
    if (theCount > 1) {
        LmSetDiagnosticHandler(&PrintHandled, nullptr);
    }
    LmValue().GetString();
    LmValue().GetPointer();
    std::puts("the end");
    return 0;
}
