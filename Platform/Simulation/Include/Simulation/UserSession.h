// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef UserSession_h
#define UserSession_h

#include <deque>
#include <functional>

#include <Simulation/UserSimulator.h>

namespace Host {

// A simulated person at work while the application runs its event loop:
//
//     Host::UserSession theSession;
//     theSession.Then([&](Host::UserSimulator& theUser) { theUser.DragSlider(theSlider, 23); });
//     theSession.Then([&](Host::UserSimulator& theUser) { theUser.CloseWindow(theWindow); });
//     RunApplicationEventLoop();
//
// Each step is done when the loop has handled everything that the steps before have led to; the loop may be
// any (RunApplicationEventLoop, RunCurrentEventLoop, ReceiveNextEvent). After the last step the person asks
// the application to quit. A step may add further steps; those come last. It may run a nested loop, during
// which no other step begins; only a modal loop (RunAppModalLoopForWindow, RunStandardAlert) goes on with the
// next steps, which are there to end it. Exceptions must not leave a step.
//
// The steps that are left when a session goes are not done. A session must not go during one of its own
// steps. Main thread only.
class HOST_PUBLIC UserSession
{
public:
    // What the person does at one step.
    using Step = std::function<void(UserSimulator&)>;

    UserSession();
    ~UserSession();
    UserSession(const UserSession&) = delete;
    UserSession& operator=(const UserSession&) = delete;

    // Adds a step at the end; returns the session, so that steps can be strung together. When the session was
    // over, it goes on.
    UserSession& Then(Step theStep);

    // Whether every step was done and the application was asked to quit.
    bool IsOver() const { return mIsOver; }

private:
    static void Turn(EventLoopTimerRef theTimer, void* theUserData);
    void TakeTurn();
    static void GoOnInLoop();
    void InstallTimer();
    bool IsQueueBeingHandled();
    void AskForTurn();

    static UserSession* sActing; // whose step is being done, innermost; null for none

    std::deque<Step> mSteps;
    EventLoopTimerRef mTimer = nullptr; // owned
    ItemCount mQueued = 0;              // events that waited at the last turn
    bool mIsOver = false;
};

} // namespace Host

#endif
