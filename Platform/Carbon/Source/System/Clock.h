// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef System_Clock_h
#define System_Clock_h

namespace Host {

// Seconds since the system started, as this machine measures them. Never goes back.
double SystemTime();

// The time and the waiting of the event loop. There is one in use; tests put one there that they turn by
// hand.
class Clock
{
public:
    Clock() = default;
    virtual ~Clock();
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;

    // Seconds since the system started. From any thread.
    virtual double Now() = 0;

    // Lets time pass until theDeadline (negative: for ever) or until Wake. False: it would never end, and
    // did not begin.
    virtual bool WaitUntil(double theDeadline) = 0;

    // Whether time passes only by this clock's own doing: nobody else may wait for it then.
    virtual bool StandsStill() const { return false; }

    // Ends a wait that is going on, or the next one. From any thread.
    virtual void Wake() = 0;
};

// The clock in use: at first the machine's.
Clock& CurrentClock();

// Uses another clock; null goes back to the machine's. Does not own it. Not while a loop waits.
void UseClock(Clock* theClock);

} // namespace Host

#endif
