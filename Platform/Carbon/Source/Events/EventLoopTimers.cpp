// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "EventLoopTimers.h"

#include "Base/Guarded.h"
#include "Base/ReferenceTable.h"
#include "Common/NeverDestroyed.h"
#include "EventLoop.h"
#include "System/Clock.h"

#include <algorithm>
#include <Carbon/Carbon.h>
#include <cmath>
#include <vector>

namespace Host {

namespace {

// The list holds one of each timer, the table of references another, and the loop one more while the
// timer's function runs. A timer that was removed is in neither list nor table.
struct Timer
{
    EventLoopTimerUPP theFunction = nullptr;
    void* theData = nullptr;
    double theNextTime = kNever;
    double theInterval = 0; // 0: fires once
    EventLoopTimerRef theReference = nullptr;
    bool theIsRunning = false;
};

using SharedTimer = std::shared_ptr<Timer>;
using TimerTable = ReferenceTable<EventLoopTimerRef, ReferenceKind::kTimer, Timer>;

TimerTable& Table()
{
    static NeverDestroyed<TimerTable> sTable;
    return sTable.Get();
}

// In the order in which they were installed.
std::vector<SharedTimer>& Timers()
{
    static NeverDestroyed<std::vector<SharedTimer>> sTimers;
    return sTimers.Get();
}

bool IsDue(const Timer& theTimer, double theNow)
{
    return !theTimer.theIsRunning && theTimer.theNextTime <= theNow;
}

// A shorter interval would not move the clock's value on hosts that have been up for long.
const double kShortestInterval = kEventDurationMicrosecond;

double TimeAfter(double theDelay)
{
    return theDelay < 0 ? kNever : CurrentClock().Now() + theDelay;
}

double UsableInterval(double theInterval)
{
    return theInterval > 0 && theInterval < kNever ? std::max(theInterval, kShortestInterval) : 0;
}

// When a timer that fires now fires again: the next time of its rhythm that has not passed.
double TimeAfterFiring(const Timer& theTimer, double theNow)
{
    if (theTimer.theInterval == 0) {
        return kNever;
    }
    const double theMissed = std::floor((theNow - theTimer.theNextTime) / theTimer.theInterval);
    const double theNext = theTimer.theNextTime + (theMissed + 1) * theTimer.theInterval;
    return theNext > theNow ? theNext : theNow + theTimer.theInterval;
}

void Fire(Timer& theTimer, double theNow)
{
    // Set before the call, so that the function can set another time.
    theTimer.theNextTime = TimeAfterFiring(theTimer, theNow);
    theTimer.theIsRunning = true;
    theTimer.theFunction(theTimer.theReference, theTimer.theData);
    theTimer.theIsRunning = false;
}

std::vector<SharedTimer> DueTimers(double theNow)
{
    std::vector<SharedTimer> theDue;
    for (const SharedTimer& theTimer : Timers()) {
        if (IsDue(*theTimer, theNow)) {
            theDue.push_back(theTimer);
        }
    }
    std::stable_sort(theDue.begin(), theDue.end(),
                     [](const SharedTimer& theOne, const SharedTimer& theOther) {
                         return theOne->theNextTime < theOther->theNextTime;
                     });
    return theDue;
}

OSStatus AddTimer(Timer theNew, EventLoopTimerRef* theReference)
{
    const auto theTimer = std::make_shared<Timer>(theNew);
    Timers().reserve(Timers().size() + 1);
    theTimer->theReference = Table().Add(theTimer);
    Timers().push_back(theTimer);
    *theReference = theTimer->theReference;
    return noErr;
}

} // namespace

void FireDueTimers()
{
    const double theNow = CurrentClock().Now();
    std::vector<SharedTimer> theDue;
    Guarded([&] {
        theDue = DueTimers(theNow);
        return noErr;
    });
    for (const SharedTimer& theTimer : theDue) {
        // One that was called before may have removed it, or set it to a later time.
        if (Table().Find(theTimer->theReference) != nullptr && IsDue(*theTimer, theNow)) {
            Fire(*theTimer, theNow);
        }
    }
}

double NextTimerTime()
{
    double theNext = kNever;
    for (const SharedTimer& theTimer : Timers()) {
        if (!theTimer->theIsRunning) {
            theNext = std::min(theNext, theTimer->theNextTime);
        }
    }
    return theNext;
}

} // namespace Host

using namespace Host;

OSStatus InstallEventLoopTimer(EventLoopRef inEventLoop, EventTimerInterval inFireDelay,
                               EventTimerInterval inInterval, EventLoopTimerUPP inTimerProc,
                               void* inTimerData, EventLoopTimerRef* outTimer)
{
    if (outTimer == nullptr) {
        return paramErr;
    }
    *outTimer = nullptr;
    if (inEventLoop != GetMainEventLoop() || inTimerProc == nullptr || std::isnan(inFireDelay) ||
        std::isnan(inInterval)) {
        return paramErr;
    }
    Timer theTimer;
    theTimer.theFunction = inTimerProc;
    theTimer.theData = inTimerData;
    theTimer.theNextTime = TimeAfter(inFireDelay);
    theTimer.theInterval = UsableInterval(inInterval);
    return Guarded([&] { return AddTimer(theTimer, outTimer); });
}

OSStatus RemoveEventLoopTimer(EventLoopTimerRef inTimer)
{
    const SharedTimer theTimer = Table().Remove(inTimer);
    if (theTimer == nullptr) {
        return paramErr;
    }
    Timers().erase(std::find(Timers().begin(), Timers().end(), theTimer));
    return noErr;
}

OSStatus SetEventLoopTimerNextFireTime(EventLoopTimerRef inTimer, EventTimerInterval inNextFire)
{
    const SharedTimer theTimer = Table().Find(inTimer);
    if (theTimer == nullptr || std::isnan(inNextFire)) {
        return paramErr;
    }
    theTimer->theNextTime = TimeAfter(inNextFire);
    return noErr;
}
