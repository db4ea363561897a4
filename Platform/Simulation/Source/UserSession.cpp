// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <Simulation/UserSession.h>

#include <Presentation/PresenterRegistry.h>

#include <utility>

namespace Host {

UserSession::UserSession()
{
    InstallEventLoopTimer(GetMainEventLoop(), 0, 0, Turn, this, &mTimer);
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
    theStep(theUser);
    AskForTurn();
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
