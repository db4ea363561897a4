// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Events_EventLoopTimers_h
#define Events_EventLoopTimers_h

#include <limits>

namespace Host {

// A time later than any other.
constexpr double kNever = std::numeric_limits<double>::infinity();

// Calls every timer whose time has come, the earliest first. Timers that are started meanwhile wait for
// the next turn.
void FireDueTimers();

// When the next timer is due; kNever without one.
double NextTimerTime();

} // namespace Host

#endif
