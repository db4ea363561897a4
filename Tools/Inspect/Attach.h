// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Attach_h
#define Attach_h

// `lminspect attach`, `detach` and `ask`: journals of programs that run already, and questions to them, where
// they allow it. Each has a socket for that in the user's runtime directory, called after the program and its
// process.

#include "Run.h"

#include <cstdint>
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

// What is wanted of a program.
enum class Wish : std::uint8_t
{
    Journal,
    Answer // to a question
};

// What theFolder holds for this, by name and process; what is no such socket is left out.
std::vector<Running> FindRunning(const std::string& theFolder, Wish theWish = Wish::Journal);

// The one that theName stands for. When there is none, or more than one, theProblem says so.
Running ChooseRunning(const std::vector<Running>& thePrograms, const std::string& theName,
                      std::string& theProblem, Wish theWish = Wish::Journal);

int RunAttach(const AttachOptions& theOptions, const Question& ask, std::ostream& theOutput,
              std::ostream& theErrors);
int RunDetach(const std::string& theName, std::ostream& theErrors);

// theWords: the program, and the words of the question, or none for "help". Without a program
// those that can be asked are listed.
int RunAsk(const std::vector<std::string>& theWords, std::ostream& theOutput, std::ostream& theErrors);

} // namespace Inspect

#endif
