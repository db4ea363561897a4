// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef VirtualClock_h
#define VirtualClock_h

#include <memory>

namespace Host {

// Time that is turned by hand: while one of these exists, the event loop, its timers and the times of events
// go by it instead of the machine's clock.
//
//     Host::VirtualClock theClock;
//     InstallEventLoopTimer(GetMainEventLoop(), 60, 0, BoilOver, nullptr, &theTimer);
//     RunCurrentEventLoop(61); // returns at once, a minute later; BoilOver has been called
//
// Time stands still, except that
// - Advance turns it;
// - a loop that has nothing to do waits by turning it to the next timer, or to the end of its own time.
//
// A loop that could only be ended by something that never comes (no event, no timer, no end of its own
// time) prints "The event loop waits for ever: no event, timer or deadline is left." and ends as if its time
// had run out.
//
// One at a time; make it before the loop runs and let it go after the loop has ended.
class __attribute__((visibility("default"))) VirtualClock
{
public:
    // It is theStart seconds after the system started.
    explicit VirtualClock(double theStart = 1000);
    ~VirtualClock();
    VirtualClock(const VirtualClock&) = delete;
    VirtualClock& operator=(const VirtualClock&) = delete;

    // The seconds since the system started.
    double Now() const;

    // Turns the time forward. Timers that are due then fire when a loop runs. Less than 0 does nothing.
    void Advance(double theSeconds);

private:
    class Hands;
    std::unique_ptr<Hands> mHands;
};

} // namespace Host

#endif
