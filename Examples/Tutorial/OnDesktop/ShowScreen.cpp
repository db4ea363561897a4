// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ShowScreen.h"

#include <Carbon/Carbon.h>
#include <cstdio>

namespace {

void SayLine(EventLoopTimerRef, void* theLine)
{
    std::printf("%s\n", static_cast<const char*>(theLine));
    std::fflush(stdout);
}

} // namespace

// What the pages' programs are linked with to show their windows to somebody who takes pictures: the line is
// said when the screen is being shown, and the quit command leads on.
void ShowScreen(const char* theLine)
{
    EventLoopTimerRef theTimer = nullptr;
    InstallEventLoopTimer(GetMainEventLoop(), 0, 0, NewEventLoopTimerUPP(SayLine), const_cast<char*>(theLine),
                          &theTimer);
    RunApplicationEventLoop();
    RemoveEventLoopTimer(theTimer);
}
