// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Run.h"

#include "LineReader.h"
#include "Status.h"
#include "Text.h"

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <ostream>
#include <spawn.h>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>

namespace Inspect {

namespace {

// What a shell says of a program that cannot be started, and of one that a signal ended.
constexpr int kNotStarted = 127;
constexpr int kSignalled = 128;

// The folder of this program, with a slash.
std::string OwnFolder()
{
    std::array<char, PATH_MAX> thePath = {};
    const ssize_t theLength = ::readlink("/proc/self/exe", thePath.data(), thePath.size());
    const std::string theText(thePath.data(), theLength < 0 ? 0 : static_cast<std::size_t>(theLength));
    return theText.substr(0, theText.rfind('/') + 1);
}

// The library that writes journals: beside this program, where it was built or installed; else where the
// system looks for libraries.
std::string FindLibrary()
{
    for (const std::string_view theFolder : {LM_INSPECT_BUILT_LIBRARY, LM_INSPECT_INSTALLED_LIBRARY}) {
        std::string thePath = OwnFolder() + std::string(theFolder);
        if (::access(thePath.c_str(), R_OK) == 0) {
            return thePath;
        }
    }
    return LM_INSPECT_LIBRARY;
}

std::vector<std::string> OwnEnvironment()
{
    std::vector<std::string> theVariables;
    for (char** theVariable = environ; *theVariable != nullptr; ++theVariable) {
        theVariables.emplace_back(*theVariable);
    }
    return theVariables;
}

std::vector<char*> Pointers(std::vector<std::string>& theTexts)
{
    std::vector<char*> thePointers;
    thePointers.reserve(theTexts.size() + 1);
    for (std::string& theText : theTexts) {
        thePointers.push_back(theText.data());
    }
    thePointers.push_back(nullptr);
    return thePointers;
}

// Two ends; what is left of them is closed.
struct Pipe
{
    int theReader = -1;
    int theWriter = -1;

    Pipe() = default;
    ~Pipe()
    {
        CloseWriter();
        if (theReader >= 0) {
            ::close(theReader);
        }
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    bool Open()
    {
        std::array<int, 2> theEnds = {-1, -1};
        if (::pipe2(theEnds.data(), O_CLOEXEC) != 0) {
            return false;
        }
        theReader = theEnds[0];
        theWriter = theEnds[1];
        // The program opens it by its number.
        return ::fcntl(theWriter, F_SETFD, 0) == 0;
    }
    void CloseWriter()
    {
        if (theWriter >= 0) {
            ::close(theWriter);
            theWriter = -1;
        }
    }
    FilePointer TakeReader()
    {
        FilePointer theFile(::fdopen(theReader, "rb"));
        theReader = theFile == nullptr ? theReader : -1;
        return theFile;
    }
};

// Returns 0, or the number of an error of the system.
int Start(const RunOptions& theOptions, const std::string& theFile, pid_t& theProcess)
{
    std::vector<std::string> theProgram = theOptions.theProgram;
    std::vector<std::string> theVariables =
        JournalEnvironment(OwnEnvironment(), theFile, FindLibrary(), theOptions.hasCallers);
    return ::posix_spawnp(&theProcess, theProgram.front().c_str(), nullptr, nullptr,
                          Pointers(theProgram).data(), Pointers(theVariables).data());
}

// What the program ended with, as a shell says it.
int WaitFor(pid_t theProcess)
{
    int theStatus = 0;
    while (::waitpid(theProcess, &theStatus, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(theStatus) ? WEXITSTATUS(theStatus) : kSignalled + WTERMSIG(theStatus);
}

// The key that interrupts belongs to the program; what it did until then is told.
void LeaveSignalsToTheProgram()
{
    std::signal(SIGINT, SIG_IGN);
    std::signal(SIGQUIT, SIG_IGN);
}

// Reads the pipe to its end, so that nobody writes to one that is closed.
void Drain(int theDescriptor)
{
    std::array<char, 65536> theBlock = {};
    ssize_t theCount = 0;
    while ((theCount = ::read(theDescriptor, theBlock.data(), theBlock.size())) > 0 ||
           (theCount < 0 && errno == EINTR)) {
    }
}

int SayNotStarted(const RunOptions& theOptions, int theError, std::ostream& theErrors)
{
    theErrors << "lminspect: " << Escape(theOptions.theProgram.front())
              << " cannot be started: " << std::strerror(theError) << "\n";
    return kNotStarted;
}

int RunWithFile(const RunOptions& theOptions, const Question& ask, std::ostream& theErrors)
{
    pid_t theProcess = 0;
    if (const int theError = Start(theOptions, theOptions.theOutput, theProcess)) {
        return SayNotStarted(theOptions, theError, theErrors);
    }
    LeaveSignalsToTheProgram();
    const int theStatus = WaitFor(theProcess);
    if (ask) {
        Journal theJournal(theOptions.theOutput, theErrors);
        const int theAnswer = ask(theJournal);
        return theAnswer == kFine ? theStatus : theAnswer;
    }
    return theStatus;
}

int RunWithPipe(const RunOptions& theOptions, const Question& ask, std::ostream& theErrors)
{
    Pipe thePipe;
    if (!thePipe.Open()) {
        theErrors << "lminspect: " << std::strerror(errno) << "\n";
        return kTrouble;
    }
    pid_t theProcess = 0;
    const std::string theFile = "/dev/fd/" + std::to_string(thePipe.theWriter);
    if (const int theError = Start(theOptions, theFile, theProcess)) {
        return SayNotStarted(theOptions, theError, theErrors);
    }
    LeaveSignalsToTheProgram();
    thePipe.CloseWriter();
    const int theCopy = ::dup(thePipe.theReader);
    int theAnswer = kTrouble;
    {
        Journal theJournal(thePipe.TakeReader(), "the journal of " + theOptions.theProgram.front(),
                           theErrors);
        theAnswer = ask(theJournal);
    }
    Drain(theCopy);
    ::close(theCopy);
    const int theStatus = WaitFor(theProcess);
    return theAnswer == kFine ? theStatus : theAnswer;
}

} // namespace

std::vector<std::string> JournalEnvironment(const std::vector<std::string>& theOld,
                                            const std::string& theFile, const std::string& theLibrary,
                                            bool hasCallers)
{
    constexpr std::string_view kFile = "LM_JOURNAL=";
    constexpr std::string_view kPreload = "LD_PRELOAD=";
    constexpr std::string_view kCallers = "LM_JOURNAL_CALLERS=";
    std::vector<std::string> theNew;
    std::string thePreload = std::string(kPreload) + theLibrary;
    bool saysCallers = false;
    for (const std::string& theVariable : theOld) {
        if (theVariable.compare(0, kPreload.size(), kPreload) == 0) {
            thePreload += ":" + theVariable.substr(kPreload.size());
        } else if (theVariable.compare(0, kFile.size(), kFile) != 0) {
            saysCallers = saysCallers || theVariable.compare(0, kCallers.size(), kCallers) == 0;
            theNew.push_back(theVariable);
        }
    }
    theNew.push_back(std::string(kFile) + theFile);
    theNew.push_back(thePreload);
    if (hasCallers && !saysCallers) {
        theNew.push_back(std::string(kCallers) + "8");
    }
    return theNew;
}

int RunRun(const RunOptions& theOptions, const Question& ask, std::ostream& theErrors)
{
    return theOptions.theOutput.empty() ? RunWithPipe(theOptions, ask, theErrors)
                                        : RunWithFile(theOptions, ask, theErrors);
}

} // namespace Inspect
