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
#include <mutex>
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

// All timers. Any thread may change them while the main thread fires them; the lock is never held while a
// timer's function runs.
class TimerList
{
public:
    // Writes the reference before the timer can fire.
    void Add(const Timer& theNew, EventLoopTimerRef* theReference);
    bool Remove(EventLoopTimerRef theReference);
    bool SetNextTime(EventLoopTimerRef theReference, double theTime);

    double NextTime() const;
    std::vector<SharedTimer> Due(double theNow) const;

    // Calls a timer's function, unless the timer was removed or set to a later time since it was found due.
    void Fire(const SharedTimer& theTimer, double theNow);

private:
    bool Start(Timer& theTimer, double theNow);
    void End(Timer& theTimer);

    using Lock = std::lock_guard<std::mutex>;

    mutable std::mutex mMutex;
    ReferenceTable<EventLoopTimerRef, ReferenceKind::kTimer, Timer, NoMutex> mTable;
    std::vector<SharedTimer> mTimers; // in the order in which they were installed
};

void TimerList::Add(const Timer& theNew, EventLoopTimerRef* theReference)
{
    const auto theTimer = std::make_shared<Timer>(theNew);
    const Lock theLock(mMutex);
    mTimers.reserve(mTimers.size() + 1);
    theTimer->theReference = mTable.Add(theTimer);
    mTimers.push_back(theTimer);
    *theReference = theTimer->theReference;
}

bool TimerList::Remove(EventLoopTimerRef theReference)
{
    const Lock theLock(mMutex);
    const SharedTimer theTimer = mTable.Remove(theReference);
    if (theTimer == nullptr) {
        return false;
    }
    mTimers.erase(std::find(mTimers.begin(), mTimers.end(), theTimer));
    return true;
}

bool TimerList::SetNextTime(EventLoopTimerRef theReference, double theTime)
{
    const Lock theLock(mMutex);
    const SharedTimer theTimer = mTable.Find(theReference);
    if (theTimer == nullptr) {
        return false;
    }
    theTimer->theNextTime = theTime;
    return true;
}

double TimerList::NextTime() const
{
    const Lock theLock(mMutex);
    double theNext = kNever;
    for (const SharedTimer& theTimer : mTimers) {
        if (!theTimer->theIsRunning) {
            theNext = std::min(theNext, theTimer->theNextTime);
        }
    }
    return theNext;
}

std::vector<SharedTimer> TimerList::Due(double theNow) const
{
    const Lock theLock(mMutex);
    std::vector<SharedTimer> theDue;
    for (const SharedTimer& theTimer : mTimers) {
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

bool TimerList::Start(Timer& theTimer, double theNow)
{
    const Lock theLock(mMutex);
    if (mTable.Find(theTimer.theReference) == nullptr || !IsDue(theTimer, theNow)) {
        return false;
    }
    // Set before the call, so that the function can set another time.
    theTimer.theNextTime = TimeAfterFiring(theTimer, theNow);
    theTimer.theIsRunning = true;
    return true;
}

void TimerList::End(Timer& theTimer)
{
    const Lock theLock(mMutex);
    theTimer.theIsRunning = false;
}

void TimerList::Fire(const SharedTimer& theTimer, double theNow)
{
    if (Start(*theTimer, theNow)) {
        theTimer->theFunction(theTimer->theReference, theTimer->theData);
        End(*theTimer);
    }
}

// Another thread may still use it while the program ends.
TimerList& Timers()
{
    static NeverDestroyed<TimerList> sTimers;
    return sTimers.Get();
}

} // namespace

void FireDueTimers()
{
    const double theNow = CurrentClock().Now();
    std::vector<SharedTimer> theDue;
    Guarded([&] {
        theDue = Timers().Due(theNow);
        return noErr;
    });
    for (const SharedTimer& theTimer : theDue) {
        Timers().Fire(theTimer, theNow);
    }
}

double NextTimerTime()
{
    return Timers().NextTime();
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
    const OSStatus theStatus = Guarded([&] {
        Timers().Add(theTimer, outTimer);
        return noErr;
    });
    if (theStatus == noErr) {
        WakeEventLoop();
    }
    return theStatus;
}

OSStatus RemoveEventLoopTimer(EventLoopTimerRef inTimer)
{
    return Timers().Remove(inTimer) ? OSStatus(noErr) : OSStatus(paramErr);
}

OSStatus SetEventLoopTimerNextFireTime(EventLoopTimerRef inTimer, EventTimerInterval inNextFire)
{
    if (std::isnan(inNextFire) || !Timers().SetNextTime(inTimer, TimeAfter(inNextFire))) {
        return paramErr;
    }
    WakeEventLoop();
    return noErr;
}
