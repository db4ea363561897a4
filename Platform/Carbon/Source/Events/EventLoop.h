// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Events_EventLoop_h
#define Events_EventLoop_h

namespace Host {

// Ends the wait of the event loop, or its next one. From any thread.
void WakeEventLoop();

// What a manager puts off until a loop turns; every turn calls it before it looks for an event or waits. It
// answers whether there was something to do. The Menu Manager has one and the keyboard focus has one; adding
// the same again changes nothing.
using LoopChore = bool (*)();
void AddLoopChore(LoopChore theChore);

// Whether RunApplicationEventLoop is running.
bool IsApplicationLoopRunning();

// Asks the application to quit, as a person does by the quit command: sends kHICommandQuit to the user focus,
// and kEventAppQuit to the application when nobody took that.
void AskToQuit();

// Ends the innermost RunApplicationEventLoop; false when none is running.
bool EndApplicationLoop();

} // namespace Host

#endif
