// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Events_EventLoop_h
#define Events_EventLoop_h

#include <Carbon/Carbon.h>
#include <functional>

namespace Host {

// Ends the wait of the event loop, or its next one. From any thread.
void WakeEventLoop();

// What a manager puts off until a loop turns; every turn calls it before it looks for an event or waits. It
// answers whether there was something to do. The Menu Manager has one and the keyboard focus has one; adding
// the same again changes nothing.
using LoopChore = bool (*)();
void AddLoopChore(LoopChore theChore);

// What is done when there is nothing else to do, before a loop waits. It answers whether there was something
// to do. The views that programs draw have it.
void SetLastChore(LoopChore theChore);

// Whether RunApplicationEventLoop is running.
bool IsApplicationLoopRunning();

// What the loop leaves to the Apple events: to tell the program what it was started for, to call the handler
// of a kEventAppleEvent, and to quit by an Apple event.
struct AppleEventCalls
{
    void (*theTellStart)() = nullptr;
    OSStatus (*theProcess)(EventRef theEvent) = nullptr;
    void (*theQuit)() = nullptr;
};
void UseAppleEvents(const AppleEventCalls& theCalls);
const AppleEventCalls& TheAppleEventCalls();

// Asks the application to quit, as a person does by the quit command: sends kHICommandQuit to the user focus,
// and kEventAppQuit to the application when nobody took that.
void AskToQuit();

// Ends the innermost RunApplicationEventLoop and all that RunLoopUntil runs inside of it; without one, all
// that it runs. False when nothing is running.
bool EndApplicationLoop();

// Takes events from the main queue and sends them to the dispatcher until theIsDone, which every turn asks.
enum class LoopEnd
{
    kDone,
    kQuit,             // the application quits, or somebody called QuitEventLoop
    kNothingToWaitFor, // the wait would never end
};
LoopEnd RunLoopUntil(const std::function<bool()>& theIsDone);

// Whom RunLoopUntil tells that it begins; null for nobody. A scripted person must go on inside of it,
// although the step that led there has not returned.
using LoopObserver = void (*)();
void SetLoopObserver(LoopObserver theObserver);

} // namespace Host

#endif
