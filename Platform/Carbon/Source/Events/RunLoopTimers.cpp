// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The run loop's timers are timers of the event loop.

#include "Common/RunLoopHost.h"

#include <Carbon/Carbon.h>

namespace {

Host::RunLoopTimerFunction gFunction = nullptr;

void Fire(EventLoopTimerRef, void* theTimer)
{
    gFunction(theTimer);
}

void* Start(double theDelay, double theInterval, void* theTimer)
{
    EventLoopTimerRef theStarted = nullptr;
    InstallEventLoopTimer(GetMainEventLoop(), theDelay, theInterval, Fire, theTimer, &theStarted);
    return theStarted;
}

void SetDelay(void* theStarted, double theDelay)
{
    SetEventLoopTimerNextFireTime(static_cast<EventLoopTimerRef>(theStarted), theDelay);
}

void Stop(void* theStarted)
{
    RemoveEventLoopTimer(static_cast<EventLoopTimerRef>(theStarted));
}

// Before any function of the program runs.
[[maybe_unused]] const bool gIsThere = [] {
    gFunction = Host::UseRunLoopHost({Start, SetDelay, Stop});
    return true;
}();

} // namespace

CFTypeRef GetCFRunLoopFromEventLoop(EventLoopRef inEventLoop)
{
    return inEventLoop == GetMainEventLoop() ? CFRunLoopGetMain() : nullptr;
}
