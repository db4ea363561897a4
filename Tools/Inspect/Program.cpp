// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Program.h"

#include "Diff.h"
#include "Graph.h"
#include "Journal.h"
#include "Lint.h"
#include "Log.h"
#include "Options.h"
#include "Page.h"
#include "Status.h"
#include "Why.h"
#include "WhyNot.h"

#include <ostream>

namespace Inspect {

namespace {

int RunCommand(const Options& theOptions, std::ostream& theOutput, std::ostream& theErrors)
{
    Journal theJournal(theOptions.theJournal, theErrors);
    if (theOptions.theCommand == Command::Why) {
        return RunWhy(theJournal, theOptions.theTarget, theOptions.theTime, theOutput, theErrors);
    }
    if (theOptions.theCommand == Command::WhyNot) {
        return RunWhyNot(theJournal, theOptions.theTarget, theOutput, theErrors);
    }
    if (theOptions.theCommand == Command::Graph) {
        return RunGraph(theJournal, theOptions.theGraph, theOutput, theErrors);
    }
    if (theOptions.theCommand == Command::Page) {
        return RunPage(theJournal, theOptions.thePage, theOutput, theErrors);
    }
    if (theOptions.theCommand == Command::Lint) {
        return RunLint(theJournal, theOutput, theErrors);
    }
    if (theOptions.theCommand == Command::Diff) {
        Journal theOther(theOptions.theOtherJournal, theErrors);
        return RunDiff(theJournal, theOther, theOutput, theErrors);
    }
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
