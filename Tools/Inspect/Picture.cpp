// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Picture.h"

#include "LineReader.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <ostream>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace Inspect {

namespace {

// What `dot` has come to.
struct Outcome
{
    int theError = 0; // of the system, when it could not be started
    int theStatus = 0;
    bool isTooSlow = false;
};

int StartDot(const std::string& theFormat, std::FILE* theInput, std::FILE* theResult, pid_t& theProcess)
{
    posix_spawn_file_actions_t theActions;
    posix_spawn_file_actions_init(&theActions);
    posix_spawn_file_actions_adddup2(&theActions, fileno(theInput), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&theActions, fileno(theResult), STDOUT_FILENO);
    std::string theName = "dot";
    std::string theOption = "-T" + theFormat;
    const std::array<char*, 3> theArguments = {theName.data(), theOption.data(), nullptr};
    const int theError =
        ::posix_spawnp(&theProcess, theName.c_str(), &theActions, nullptr, theArguments.data(), environ);
    posix_spawn_file_actions_destroy(&theActions);
    return theError;
}

// Waits for theProcess; it is ended when theLimit, which is none when it is 0, has passed.
void WaitFor(pid_t theProcess, std::chrono::milliseconds theLimit, Outcome& theOutcome)
{
    const auto theEnd = std::chrono::steady_clock::now() + theLimit;
    for (;;) {
        const bool isLimited = theLimit.count() > 0 && !theOutcome.isTooSlow;
        const pid_t theResult = ::waitpid(theProcess, &theOutcome.theStatus, isLimited ? WNOHANG : 0);
        if (theResult == theProcess || (theResult < 0 && errno != EINTR)) {
            return;
        }
        if (isLimited && std::chrono::steady_clock::now() >= theEnd) {
            theOutcome.isTooSlow = true;
            ::kill(theProcess, SIGKILL);
        } else if (theResult == 0) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }
}

// What `dot` makes of theGraph in theFormat; null when a temporary file cannot be written.
FilePointer RunDot(const std::string& theGraph, const std::string& theFormat,
                   std::chrono::milliseconds theLimit, Outcome& theOutcome)
{
    const FilePointer theInput(std::tmpfile());
    FilePointer theResult(std::tmpfile());
    if (theInput == nullptr || theResult == nullptr ||
        std::fwrite(theGraph.data(), 1, theGraph.size(), theInput.get()) != theGraph.size() ||
        std::fflush(theInput.get()) != 0) {
        return nullptr;
    }
    std::rewind(theInput.get());
    pid_t theProcess = 0;
    theOutcome.theError = StartDot(theFormat, theInput.get(), theResult.get(), theProcess);
    if (theOutcome.theError == 0) {
        WaitFor(theProcess, theLimit, theOutcome);
    }
    std::rewind(theResult.get());
    return theResult;
}

std::string NoTemporaryFile()
{
    return std::string("a temporary file cannot be written: ") + std::strerror(errno);
}

} // namespace

std::string DrawPicture(const std::string& theGraph, std::ostream& theOutput)
{
    Outcome theOutcome;
    const FilePointer theResult = RunDot(theGraph, "svg", std::chrono::milliseconds(0), theOutcome);
    if (theResult == nullptr) {
        return NoTemporaryFile();
    }
    if (theOutcome.theError != 0) {
        return std::string("dot, which draws the picture, cannot be started: ") +
               std::strerror(theOutcome.theError) + "; install graphviz, or take --dot";
    }
    if (theOutcome.theStatus != 0) {
        return "dot could not draw the picture";
    }
    std::array<char, 65536> theBlock = {};
    while (const std::size_t theCount = std::fread(theBlock.data(), 1, theBlock.size(), theResult.get())) {
        theOutput.write(theBlock.data(), static_cast<std::streamsize>(theCount));
    }
    return {};
}

std::string FindPlaces(const std::string& theGraph, std::chrono::milliseconds theLimit,
                       std::string& theResult)
{
    Outcome theOutcome;
    const FilePointer theFile = RunDot(theGraph, "plain-ext", theLimit, theOutcome);
    if (theFile == nullptr) {
        return NoTemporaryFile();
    }
    if (theOutcome.theError != 0) {
        return "the program dot is not installed";
    }
    if (theOutcome.isTooSlow) {
        return "dot took too long";
    }
    if (theOutcome.theStatus != 0) {
        return "dot could not place it";
    }
    std::array<char, 65536> theBlock = {};
    while (const std::size_t theCount = std::fread(theBlock.data(), 1, theBlock.size(), theFile.get())) {
        theResult.append(theBlock.data(), theCount);
    }
    return {};
}

} // namespace Inspect
