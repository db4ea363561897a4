// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Run_h
#define Run_h

// `lminspect run`: starts a program that writes a journal, and asks that.

#include "Journal.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace Inspect {

struct RunOptions
{
    std::vector<std::string> theProgram; // with its arguments
    std::string theOutput;               // the file that the journal is kept in; empty for none
    bool hasCallers = false;             // whether callers are kept where the environment does not say it
};

// Answers the question from a journal, and returns the status of that.
using Question = std::function<int(Journal&)>;

// The program has the standard streams. Its journal is read while it runs when it is not to be kept; ask may
// be empty when it is. Returns the status of the question, and when that is fine, that of the program.
int RunRun(const RunOptions& theOptions, const Question& ask, std::ostream& theErrors);

// The environment in which a program writes its journal to theFile: theOld with what is needed for that.
std::vector<std::string> JournalEnvironment(const std::vector<std::string>& theOld,
                                            const std::string& theFile, const std::string& theLibrary,
                                            bool hasCallers);

} // namespace Inspect

#endif
