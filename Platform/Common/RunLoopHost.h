// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Common_RunLoopHost_h
#define Common_RunLoopHost_h

namespace Host {

// The event loop, as the run loop below it knows it: what lets its timers fire. Each may be called from any
// thread.
struct RunLoopHost
{
    // Calls the function for timers with theTimer after theDelay seconds, and then every theInterval, once
    // for 0. Null when there is no memory.
    void* (*theStart)(double theDelay, double theInterval, void* theTimer);
    // What theStart has given fires after theDelay instead, and then in its rhythm again.
    void (*theSetDelay)(void* theStarted, double theDelay);
    void (*theStop)(void* theStarted);
};

using RunLoopTimerFunction = void (*)(void* theTimer);

// The event loop says here that it is there, and is told what to call.
__attribute__((visibility("default"))) RunLoopTimerFunction UseRunLoopHost(const RunLoopHost& theHost);

} // namespace Host

#endif
