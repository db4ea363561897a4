// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Program.h"

#include "Journal.h"
#include "Log.h"
#include "Options.h"
#include "Status.h"

#include <ostream>

namespace Inspect {

namespace {

int RunCommand(const Options& theOptions, std::ostream& theOutput, std::ostream& theErrors)
{
    Journal theJournal(theOptions.theJournal, theErrors);
    return RunLog(theJournal, theOptions.theLog, theOutput, theErrors);
}

} // namespace

int RunProgram(const std::vector<std::string>& theArguments, std::ostream& theOutput, std::ostream& theErrors)
{
    const Options theOptions = ReadOptions(theArguments);
    if (!theOptions.theError.empty()) {
        theErrors << "lminspect: " << theOptions.theError << "\nTry 'lminspect --help'.\n";
        return kTrouble;
    }
    if (theOptions.theCommand == Command::Help) {
        theOutput << GetUsage();
        return kFine;
    }
    if (theOptions.theCommand == Command::Version) {
        theOutput << "lminspect " << LM_INSPECT_VERSION << "\n";
        return kFine;
    }
    return RunCommand(theOptions, theOutput, theErrors);
}

} // namespace Inspect
