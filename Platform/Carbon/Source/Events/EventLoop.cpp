// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "EventLoop.h"

#include "Base/OnStack.h"
#include "Common/NeverDestroyed.h"
#include "EventLoopTimers.h"
#include "EventQueue.h"
#include "OutgoingEvent.h"
#include "System/Clock.h"
#include "System/EndSignals.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <mutex>
#include <Presentation/PresenterRegistry.h>
#include <utility>

namespace Host {

namespace {

// Times later than any other stand for "never" here; presenters and clocks call that negative.
double ForOthers(double theTime)
{
    return theTime == kNever ? -1 : theTime;
}

// --- Waiting ----------------------------------------------------------------------------------------

// The presenter that the loop waits in, and whether somebody wanted the next wait to end at once.
struct WaitState
{
    std::mutex theMutex;
    Presenter* thePresenter = nullptr;
    bool theIsWoken = false;
};

WaitState& TheWaitState()
{
    static NeverDestroyed<WaitState> sState;
    return sState.Get();
}

// Names the presenter that is waited in, so that another thread can wake it. Waits may nest: a handler of
// what a presenter reports may run the loop.
class [[nodiscard]] PresenterWait
{
public:
    explicit PresenterWait(Presenter& thePresenter)
    {
        const std::lock_guard<std::mutex> theLock(TheWaitState().theMutex);
        mOuter = std::exchange(TheWaitState().thePresenter, &thePresenter);
        mWasWoken = std::exchange(TheWaitState().theIsWoken, false);
    }
    ~PresenterWait()
    {
        const std::lock_guard<std::mutex> theLock(TheWaitState().theMutex);
        TheWaitState().thePresenter = mOuter;
    }
    PresenterWait(const PresenterWait&) = delete;
    PresenterWait& operator=(const PresenterWait&) = delete;

    bool WasWoken() const { return mWasWoken; }

private:
    Presenter* mOuter = nullptr;
    bool mWasWoken = false;
};

// Lets the presenter report what the person has done already.
void PollPresenter()
{
    const double theNow = CurrentClock().Now();
    PresenterRegistry::Current().WaitUntil(theNow, theNow);
}

// Lets the presenter report what the person does, waiting for it until theDeadline. False when it has nothing
// that could be waited for.
bool WaitInPresenter(double theDeadline)
{
    Presenter& thePresenter = PresenterRegistry::Current();
    const double theNow = CurrentClock().Now();
    const PresenterWait theWait(thePresenter);
    return thePresenter.WaitUntil(theWait.WasWoken() ? theNow : ForOthers(theDeadline), theNow);
}

// False when the wait would never end.
bool Wait(double theDeadline)
{
    const bool theHasWaited = !CurrentClock().StandsStill() && WaitInPresenter(theDeadline);
    return theHasWaited || CurrentClock().WaitUntil(ForOthers(theDeadline));
}

// --- Running ----------------------------------------------------------------------------------------

// One running ReceiveNextEvent or RunCurrentEventLoop; QuitEventLoop ends the innermost.
class [[nodiscard]] LoopRun : public OnStack<LoopRun>
{
public:
    bool IsQuit() const { return mIsQuit; }
    void Quit() { mIsQuit = true; }

private:
    bool mIsQuit = false;
};

std::array<LoopChore, 3> gChores = {}; // the focus, the menus, and the buttons that show menus

LoopChore gLastChore = nullptr;

// False when there was nothing to do.
bool DoChoresOnce()
{
    bool theWasWork = false;
    for (const LoopChore theChore : gChores) {
        theWasWork = (theChore != nullptr && theChore()) || theWasWork;
    }
    return theWasWork;
}

// The handlers that hear of one chore may leave something for another, which must not wait until the loop
// wakes. Not more than twice: a handler may leave something each time.
void DoChores()
{
    if (DoChoresOnce()) {
        DoChoresOnce();
    }
}

// Runs timers and the presenter until theIsDone, theDeadline or QuitEventLoop. Both have their turn before
// each event that is taken, however many there are, and even when the deadline has passed already.
template <class Condition>
OSStatus RunUntil(double theDeadline, const Condition& theIsDone)
{
    LoopRun theRun;
    for (;;) {
        FireDueTimers();
        PollPresenter();
        DoChores();
        if (EndSignals::TakeFirst()) {
            AskToQuit();
        }
        if (theRun.IsQuit()) {
            return eventLoopQuitErr;
        }
        if (theIsDone()) {
            return noErr;
        }
        if (gLastChore != nullptr && gLastChore()) {
            if (theRun.IsQuit()) {
                return eventLoopQuitErr;
            }
            if (theIsDone()) {
                return noErr;
            }
        }
        if (CurrentClock().Now() >= theDeadline || !Wait(std::min(theDeadline, NextTimerTime()))) {
            return eventLoopTimedOutErr;
        }
    }
}

double DeadlineAfter(EventTimeout theTimeout)
{
    return theTimeout < 0 ? kNever : CurrentClock().Now() + theTimeout;
}

// --- The application's loop -------------------------------------------------------------------------

// A running RunApplicationEventLoop or RunLoopUntil.
struct DispatchingLoop : OnStack<DispatchingLoop>
{
    explicit DispatchingLoop(bool theIsApplications)
        : theIsTheApplications(theIsApplications)
    {
    }

    const bool theIsTheApplications;
    bool theIsOver = false;
};

DispatchingLoop* ApplicationLoop()
{
    DispatchingLoop* theLoop = DispatchingLoop::Innermost();
    while (theLoop != nullptr && !theLoop->theIsTheApplications) {
        theLoop = theLoop->Outer();
    }
    return theLoop;
}

void Dispatch(EventRef theEvent)
{
    SendEventToEventTarget(theEvent, GetEventDispatcherTarget());
    ReleaseEvent(theEvent);
}

// Takes events and sends them on until the loop is over or theIsDone.
template <class Condition>
LoopEnd Run(const DispatchingLoop& theLoop, const Condition& theIsDone)
{
    while (!theLoop.theIsOver && !theIsDone()) {
        EventRef theEvent = nullptr;
        const OSStatus theStatus = RunUntil(kNever, [&] {
            if (theLoop.theIsOver || theIsDone()) {
                return true;
            }
            theEvent = FirstEventInQueue(0, nullptr, true);
            return theEvent != nullptr;
        });
        if (theStatus != noErr) {
            return theStatus == eventLoopQuitErr ? LoopEnd::kQuit : LoopEnd::kNothingToWaitFor;
        }
        if (theEvent != nullptr) {
            Dispatch(theEvent);
        }
    }
    return theLoop.theIsOver ? LoopEnd::kQuit : LoopEnd::kDone;
}

AppleEventCalls gAppleEventCalls;

LoopObserver gLoopObserver = nullptr;

// What the reference of the one event loop points at.
char gMainLoop = 0;

} // namespace

void WakeEventLoop()
{
    {
        WaitState& theState = TheWaitState();
        const std::lock_guard<std::mutex> theLock(theState.theMutex);
        theState.theIsWoken = true;
        if (theState.thePresenter != nullptr) {
            theState.thePresenter->Wake();
        }
    }
    CurrentClock().Wake();
}

void AddLoopChore(LoopChore theChore)
{
    for (LoopChore& thePlace : gChores) {
        if (thePlace == nullptr || thePlace == theChore) {
            thePlace = theChore;
            return;
        }
    }
}

void SetLastChore(LoopChore theChore)
{
    gLastChore = theChore;
}

bool IsApplicationLoopRunning()
{
    return ApplicationLoop() != nullptr;
}

void UseAppleEvents(const AppleEventCalls& theCalls)
{
    gAppleEventCalls = theCalls;
}

const AppleEventCalls& TheAppleEventCalls()
{
    return gAppleEventCalls;
}

void AskToQuit()
{
    HICommand theCommand{};
    theCommand.commandID = kHICommandQuit;
    if (ProcessHICommand(&theCommand) == eventNotHandledErr) {
        QuitApplicationEventLoop();
    }
}

bool EndApplicationLoop()
{
    DispatchingLoop* theLoop = DispatchingLoop::Innermost();
    if (theLoop == nullptr) {
        return false;
    }
    const DispatchingLoop* const theLast = ApplicationLoop();
    const DispatchingLoop* const theEnd = theLast == nullptr ? nullptr : theLast->Outer();
    for (; theLoop != theEnd; theLoop = theLoop->Outer()) {
        theLoop->theIsOver = true;
    }
    QuitEventLoop(GetMainEventLoop());
    return true;
}

LoopEnd RunLoopUntil(const std::function<bool()>& theIsDone)
{
    DispatchingLoop theLoop(false);
    if (gLoopObserver != nullptr) {
        gLoopObserver();
    }
    return Run(theLoop, theIsDone);
}

void SetLoopObserver(LoopObserver theObserver)
{
    gLoopObserver = theObserver;
}

} // namespace Host

using namespace Host;

EventLoopRef GetMainEventLoop(void)
{
    return reinterpret_cast<EventLoopRef>(&gMainLoop);
}

EventLoopRef GetCurrentEventLoop(void)
{
    return GetMainEventLoop();
}

OSStatus ReceiveNextEvent(ItemCount inNumTypes, const EventTypeSpec* inList, EventTimeout inTimeout,
                          Boolean inPullEvent, EventRef* outEvent)
{
    if (outEvent == nullptr) {
        return paramErr;
    }
    *outEvent = nullptr;
    if ((inNumTypes > 0 && inList == nullptr) || std::isnan(inTimeout)) {
        return paramErr;
    }
    EventRef theEvent = nullptr;
    const OSStatus theStatus = RunUntil(DeadlineAfter(inTimeout), [&] {
        theEvent = FirstEventInQueue(inNumTypes, inList, inPullEvent != 0);
        return theEvent != nullptr;
    });
    if (theStatus == noErr && inPullEvent == 0) {
        // It stays in the queue, which keeps it alive.
        ReleaseEvent(theEvent);
    }
    *outEvent = theEvent;
    return theStatus;
}

OSStatus RunCurrentEventLoop(EventTimeout inTimeout)
{
    if (std::isnan(inTimeout)) {
        return paramErr;
    }
    return RunUntil(DeadlineAfter(inTimeout), [] { return false; });
}

OSStatus QuitEventLoop(EventLoopRef inEventLoop)
{
    if (inEventLoop != GetMainEventLoop()) {
        return paramErr;
    }
    if (LoopRun* const theRun = LoopRun::Innermost(); theRun != nullptr) {
        theRun->Quit();
    }
    WakeEventLoop();
    return noErr;
}

void RunApplicationEventLoop(void)
{
    const EndSignals theSignals(WakeEventLoop);
    DispatchingLoop theLoop(true);
    gAppleEventCalls.theTellStart();
    Run(theLoop, [] { return false; });
}

void QuitApplicationEventLoop(void)
{
    const OutgoingEvent theEvent(kEventClassApplication, kEventAppQuit);
    theEvent.SendTo(GetApplicationEventTarget());
}
