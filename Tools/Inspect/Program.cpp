// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Program.h"

#include "Attach.h"
#include "Diff.h"
#include "Graph.h"
#include "Journal.h"
#include "Lint.h"
#include "Log.h"
#include "Options.h"
#include "Page.h"
#include "Run.h"
#include "Status.h"
#include "Why.h"
#include "WhyNot.h"

#include <ostream>

namespace Inspect {

namespace {

// Answers what is asked of one journal.
int Answer(const Options& theOptions, Journal& theJournal, std::ostream& theOutput, std::ostream& theErrors)
{
    switch (theOptions.theCommand) {
    case Command::Why:
        return RunWhy(theJournal, theOptions.theTarget, theOptions.theTime, theOutput, theErrors);
    case Command::WhyNot:
        return RunWhyNot(theJournal, theOptions.theTarget, theOutput, theErrors);
    case Command::Graph:
        return RunGraph(theJournal, theOptions.theGraph, theOutput, theErrors);
    case Command::Page:
        return RunPage(theJournal, theOptions.theOutput, theOutput, theErrors);
    case Command::Lint:
        return RunLint(theJournal, theOutput, theErrors);
    default:
        return RunLog(theJournal, theOptions.theLog, theOutput, theErrors);
    }
}

// The question that is asked of a program: the one that was given, or else its log while it runs.
Question QuestionOf(const Options& theOptions, std::ostream& theOutput, std::ostream& theErrors)
{
    Options theAsked = theOptions;
    theAsked.theLog.isLive = true;
    if (!theOptions.theQuestion.empty()) {
        theAsked = ReadOptions(theOptions.theQuestion);
    }
    return [=, &theOutput, &theErrors](Journal& theJournal) {
        return Answer(theAsked, theJournal, theOutput, theErrors);
    };
}

int RunCommand(const Options& theOptions, std::ostream& theOutput, std::ostream& theErrors)
{
    const Question ask = QuestionOf(theOptions, theOutput, theErrors);
    const bool hasQuestion = !theOptions.theQuestion.empty();
    const bool hasCallers =
        hasQuestion || theOptions.theLog.hasCallers || !theOptions.theLog.theFilter.theCaller.empty();
    const std::string theProgram = theOptions.theProgram.empty() ? "" : theOptions.theProgram.front();
    if (theOptions.theCommand == Command::Run) {
        const bool isSilent = !theOptions.theOutput.empty() && !hasQuestion;
        return RunRun({theOptions.theProgram, theOptions.theOutput, hasCallers || isSilent},
                      isSilent ? Question() : ask, theErrors);
    }
    if (theOptions.theCommand == Command::Attach) {
        return RunAttach({theProgram, theOptions.theOutput, hasCallers}, ask, theOutput, theErrors);
    }
    if (theOptions.theCommand == Command::Detach) {
        return RunDetach(theProgram, theErrors);
    }
    if (theOptions.theCommand == Command::Ask) {
        return RunAsk(theOptions.theProgram, theOutput, theErrors);
    }
    Journal theJournal(theOptions.theJournal, theErrors);
    if (theOptions.theCommand == Command::Diff) {
        Journal theOther(theOptions.theOtherJournal, theErrors);
        return RunDiff(theJournal, theOther, theOutput, theErrors);
    }
    return Answer(theOptions, theJournal, theOutput, theErrors);
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
