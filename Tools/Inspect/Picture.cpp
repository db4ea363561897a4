// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Picture.h"

#include "LineReader.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <ostream>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace Inspect {

namespace {

// Runs `dot` from one file to another. Returns 0, or the number of an error of the system; theStatus is its
// own.
int RunDot(std::FILE* theInput, std::FILE* theResult, int& theStatus)
{
    posix_spawn_file_actions_t theActions;
    posix_spawn_file_actions_init(&theActions);
    posix_spawn_file_actions_adddup2(&theActions, fileno(theInput), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&theActions, fileno(theResult), STDOUT_FILENO);
    std::string theName = "dot";
    std::string theFormat = "-Tsvg";
    const std::array<char*, 3> theArguments = {theName.data(), theFormat.data(), nullptr};
    pid_t theProcess = 0;
    const int theError =
        ::posix_spawnp(&theProcess, theName.c_str(), &theActions, nullptr, theArguments.data(), environ);
    posix_spawn_file_actions_destroy(&theActions);
    if (theError == 0) {
        while (::waitpid(theProcess, &theStatus, 0) < 0 && errno == EINTR) {
        }
    }
    return theError;
}

} // namespace

std::string DrawPicture(const std::string& theGraph, std::ostream& theOutput)
{
    const FilePointer theInput(std::tmpfile());
    const FilePointer theResult(std::tmpfile());
    if (theInput == nullptr || theResult == nullptr ||
        std::fwrite(theGraph.data(), 1, theGraph.size(), theInput.get()) != theGraph.size() ||
        std::fflush(theInput.get()) != 0) {
        return std::string("a temporary file cannot be written: ") + std::strerror(errno);
    }
    std::rewind(theInput.get());
    int theStatus = 0;
    const int theError = RunDot(theInput.get(), theResult.get(), theStatus);
    if (theError != 0) {
        return std::string("dot, which draws the picture, cannot be started: ") + std::strerror(theError) +
               "; install graphviz, or take --dot";
    }
    if (theStatus != 0) {
        return "dot could not draw the picture";
    }
    std::rewind(theResult.get());
    std::array<char, 65536> theBlock = {};
    while (const std::size_t theCount = std::fread(theBlock.data(), 1, theBlock.size(), theResult.get())) {
        theOutput.write(theBlock.data(), static_cast<std::streamsize>(theCount));
    }
    return {};
}

} // namespace Inspect
