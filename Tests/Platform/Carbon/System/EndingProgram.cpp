// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// EndingProgram <way>: a program that says what happens to it, for EndSignalsPosixTests.sh to end from
// outside. It keeps a preference that it writes in a destructor. The ways:
//
//     quits     takes the quit command as programs do
//     stays     takes the quit command and does not quit
//     handles   has a handler of its own for SIGTERM, which ends it with the status 7
//     returns   ends its loop by itself, and waits for a signal then

#include <Carbon/Carbon.h>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace {

const char* gWay = "quits";

// Without a buffer: whoever reads it waits for each line.
void Say(const char* theLine)
{
    std::puts(theLine);
    std::fflush(stdout);
}

OSStatus TakeQuitCommand(EventHandlerCallRef, EventRef inEvent, void*)
{
    HICommand theCommand{};
    GetEventParameter(inEvent, kEventParamDirectObject, typeHICommand, nullptr, sizeof theCommand, nullptr,
                      &theCommand);
    if (theCommand.commandID != kHICommandQuit) {
        return eventNotHandledErr;
    }
    Say("quit command");
    if (std::strcmp(gWay, "quits") == 0) {
        QuitApplicationEventLoop();
    }
    return noErr;
}

void SayRunning(EventLoopTimerRef, void*)
{
    Say("running");
    if (std::strcmp(gWay, "returns") == 0) {
        QuitApplicationEventLoop();
    }
}

void EndBySignal(int)
{
    _exit(7);
}

// What a program's documents and windows do when it ends.
class Document
{
public:
    Document() = default;
    ~Document()
    {
        CFPreferencesSetAppValue(CFSTR("ended"), CFSTR("well"), CFSTR("org.example.Ending"));
        Say(CFPreferencesAppSynchronize(CFSTR("org.example.Ending")) != 0 ? "written" : "not written");
    }
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;
};

} // namespace

int main(int theCount, char** theArguments)
{
    gWay = theCount > 1 ? theArguments[1] : gWay;
    if (std::strcmp(gWay, "handles") == 0) {
        std::signal(SIGTERM, EndBySignal);
    }
    const Document theDocument;
    const EventTypeSpec kCommand = {kEventClassCommand, kEventCommandProcess};
    InstallApplicationEventHandler(TakeQuitCommand, 1, &kCommand, nullptr, nullptr);
    const Rect theBounds = {100, 100, 200, 300};
    WindowRef theWindow = nullptr;
    CreateNewWindow(kDocumentWindowClass, kWindowStandardDocumentAttributes, &theBounds, &theWindow);
    ShowWindow(theWindow);
    EventLoopTimerRef theTimer = nullptr;
    InstallEventLoopTimer(GetMainEventLoop(), 0, 0, SayRunning, nullptr, &theTimer);
    RunApplicationEventLoop();
    Say("loop over");
    if (std::strcmp(gWay, "returns") == 0) {
        pause();
    }
    DisposeWindow(theWindow);
    return 0;
}
