// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Attach_h
#define Attach_h

// `lminspect attach` and `lminspect detach`: journals of programs that run already, and allow it. Each has a
// socket in the user's runtime directory, which is called after the program and its process.

#include "Run.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace Inspect {

struct AttachOptions
{
    std::string theProgram;  // its name or its process; empty to list what there is
    std::string theOutput;   // the file that the program is to write its journal to; empty for none
    bool hasCallers = false; // whether eight callers of each call are kept
};

// A program that has a socket.
struct Running
{
    std::string theProgram;
    std::string theProcess;
    std::string theSocket;
};

// What theFolder holds, by name and process; what is no such socket is left out.
std::vector<Running> FindRunning(const std::string& theFolder);

// The one that theName stands for. When there is none, or more than one, theProblem says so.
Running ChooseRunning(const std::vector<Running>& thePrograms, const std::string& theName,
                      std::string& theProblem);

int RunAttach(const AttachOptions& theOptions, const Question& ask, std::ostream& theOutput,
              std::ostream& theErrors);
int RunDetach(const std::string& theName, std::ostream& theErrors);

} // namespace Inspect

#endif
