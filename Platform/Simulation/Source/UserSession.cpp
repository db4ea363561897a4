// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <Simulation/UserSession.h>

#include "Events/EventLoop.h"

#include <Presentation/PresenterRegistry.h>

#include <utility>

namespace Host {

UserSession* UserSession::sActing = nullptr;

UserSession::UserSession()
{
    InstallTimer();
    SetLoopObserver(GoOnInLoop);
}

UserSession::~UserSession()
{
    RemoveEventLoopTimer(mTimer);
}

UserSession& UserSession::Then(Step theStep)
{
    mSteps.push_back(std::move(theStep));
    if (std::exchange(mIsOver, false)) {
        AskForTurn();
    }
    return *this;
}

void UserSession::Turn(EventLoopTimerRef, void* theUserData)
{
    static_cast<UserSession*>(theUserData)->TakeTurn();
}

void UserSession::TakeTurn()
{
    if (IsQueueBeingHandled()) {
        AskForTurn();
        return;
    }
    if (mSteps.empty()) {
        mIsOver = true;
        PresenterRegistry::Events().QuitAsked();
        return;
    }
    const Step theStep = std::move(mSteps.front());
    mSteps.pop_front();
    UserSimulator theUser;
    UserSession* const theOuter = std::exchange(sActing, this);
    theStep(theUser);
    sActing = theOuter;
    AskForTurn();
}

// A step that opens an alert, say, does not return before the next steps have answered it. The timer that the
// step runs in does not fire until then, so another takes over.
void UserSession::GoOnInLoop()
{
    if (sActing != nullptr) {
        RemoveEventLoopTimer(sActing->mTimer);
        sActing->InstallTimer();
    }
}

void UserSession::InstallTimer()
{
    InstallEventLoopTimer(GetMainEventLoop(), 0, 0, Turn, this, &mTimer);
}

// A loop that leaves events in the queue does not hold the session up: only a queue that changes does.
bool UserSession::IsQueueBeingHandled()
{
    const ItemCount theNumber = GetNumEventsInQueue(GetMainEventQueue());
    return std::exchange(mQueued, theNumber) != theNumber && theNumber > 0;
}

void UserSession::AskForTurn()
{
    SetEventLoopTimerNextFireTime(mTimer, 0);
}

} // namespace Host
