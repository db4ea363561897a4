// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef PresenterChoice_h
#define PresenterChoice_h

#include <cstdlib>
#include <functional>
#include <Presentation/PresenterRegistry.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

// How a program ended, and what it said on its standard error stream.
struct Ending
{
    int theStatus = -1; // its exit status, or -1 when it was killed
    std::string theText;
};

inline std::string ReadAll(int theStream)
{
    std::string theText;
    char theBytes[256];
    ssize_t theCount = 0;
    while ((theCount = read(theStream, theBytes, sizeof theBytes)) > 0) {
        theText.append(theBytes, static_cast<size_t>(theCount));
    }
    return theText;
}

// A program that shows something for the first time, after thePreparation. Its status is what theVerdict
// makes of the presenter that was chosen. No presenter may be in use yet in this one.
inline Ending StartProgram(const std::function<void()>& thePreparation,
                           const std::function<int(Host::Presenter&)>& theVerdict)
{
    int theStreams[2] = {-1, -1};
    Ending theEnding;
    if (pipe(theStreams) != 0) {
        return theEnding;
    }
    const pid_t theProcess = fork();
    if (theProcess == 0) {
        dup2(theStreams[1], STDERR_FILENO);
        thePreparation();
        std::_Exit(theVerdict(Host::PresenterRegistry::Current()));
    }
    close(theStreams[1]);
    theEnding.theText = ReadAll(theStreams[0]);
    close(theStreams[0]);
    int theStatus = 0;
    const bool theHasExited = waitpid(theProcess, &theStatus, 0) == theProcess && WIFEXITED(theStatus);
    theEnding.theStatus = theHasExited ? WEXITSTATUS(theStatus) : -1;
    return theEnding;
}

#endif
