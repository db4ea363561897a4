// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The loop, under a clock that stands still unless it is waited for.

#include "EventTestSupport.h"

#include <memory>
#include <Presentation/Presenter.h>
#include <Presentation/PresenterRegistry.h>
#include <thread>
#include <vector>

namespace {

using EventLoop = EventLoopTest;

} // namespace

// --- Receiving --------------------------------------------------------------------------------------

TEST_F(EventLoop, ThereIsOneLoop)
{
    EXPECT_NE(GetMainEventLoop(), nullptr);
    EXPECT_EQ(GetCurrentEventLoop(), GetMainEventLoop());
}

TEST_F(EventLoop, APulledEventBelongsToTheCaller)
{
    const EventRef thePosted = Post(1);
    EventRef theEvent = nullptr;
    EXPECT_EQ(ReceiveNextEvent(0, nullptr, kEventDurationNoWait, kEventRemoveFromQueue, &theEvent), noErr);
    EXPECT_EQ(theEvent, thePosted);
    EXPECT_EQ(GetEventRetainCount(theEvent), 1u);
    EXPECT_EQ(GetNumEventsInQueue(GetMainEventQueue()), 0u);
    ReleaseEvent(theEvent);
}

TEST_F(EventLoop, AnEventThatIsLeftStaysInTheQueue)
{
    const EventRef thePosted = Post(1);
    EventRef theEvent = nullptr;
    EXPECT_EQ(ReceiveNextEvent(0, nullptr, kEventDurationForever, kEventLeaveInQueue, &theEvent), noErr);
    EXPECT_EQ(theEvent, thePosted);
    EXPECT_EQ(GetEventRetainCount(theEvent), 1u);
    EXPECT_EQ(GetNumEventsInQueue(GetMainEventQueue()), 1u);
}

TEST_F(EventLoop, OnlyTheTypesThatAreAskedForAreReceived)
{
    Post(1);
    const EventRef theSecond = Post(2);
    EventRef theEvent = nullptr;
    EXPECT_EQ(ReceiveNextEvent(1, &kOtherTestEvent, 5, kEventRemoveFromQueue, &theEvent), noErr);
    EXPECT_EQ(theEvent, theSecond);
    ReleaseEvent(theEvent);
    EXPECT_EQ(mClock.Now(), 1000);
}

TEST_F(EventLoop, AnEventPostedByATimerEndsTheWait)
{
    const TestTimer theTimer(3, 0, [] { Post(1); });
    EventRef theEvent = nullptr;
    EXPECT_EQ(ReceiveNextEvent(0, nullptr, kEventDurationForever, kEventRemoveFromQueue, &theEvent), noErr);
    EXPECT_EQ(GetEventTime(theEvent), 1003);
    ReleaseEvent(theEvent);
}

TEST_F(EventLoop, BadArgumentsAreRefused)
{
    EventRef theEvent = nullptr;
    EXPECT_EQ(ReceiveNextEvent(0, nullptr, 0, kEventRemoveFromQueue, nullptr), paramErr);
    EXPECT_EQ(ReceiveNextEvent(1, nullptr, 0, kEventRemoveFromQueue, &theEvent), paramErr);
    EXPECT_EQ(ReceiveNextEvent(0, nullptr, std::nan(""), kEventRemoveFromQueue, &theEvent), paramErr);
    EXPECT_EQ(RunCurrentEventLoop(std::nan("")), paramErr);
    EXPECT_EQ(QuitEventLoop(nullptr), paramErr);
}

// --- Running and quitting ---------------------------------------------------------------------------

TEST_F(EventLoop, RunningTheLoopLeavesEventsAlone)
{
    Post(1);
    EXPECT_EQ(RunCurrentEventLoop(2), eventLoopTimedOutErr);
    EXPECT_EQ(mClock.Now(), 1002);
    EXPECT_EQ(GetNumEventsInQueue(GetMainEventQueue()), 1u);
}

TEST_F(EventLoop, QuittingEndsTheWait)
{
    const TestTimer theTimer(3, 0, [] { QuitEventLoop(GetMainEventLoop()); });
    EXPECT_EQ(RunCurrentEventLoop(kEventDurationForever), eventLoopQuitErr);
    EXPECT_EQ(mClock.Now(), 1003);
    SetEventLoopTimerNextFireTime(theTimer.Get(), 1);
    EventRef theEvent = nullptr;
    EXPECT_EQ(ReceiveNextEvent(0, nullptr, 5, kEventRemoveFromQueue, &theEvent), eventLoopQuitErr);
    EXPECT_EQ(mClock.Now(), 1004);
}

TEST_F(EventLoop, QuittingALoopThatIsNotRunningHasNoEffect)
{
    EXPECT_EQ(QuitEventLoop(GetMainEventLoop()), noErr);
    EXPECT_EQ(RunCurrentEventLoop(1), eventLoopTimedOutErr);
    EXPECT_EQ(mClock.Now(), 1001);
}

TEST_F(EventLoop, QuittingEndsTheInnermostLoopAlone)
{
    const TestTimer theInner(2, 0, [] { QuitEventLoop(GetMainEventLoop()); });
    const TestTimer theOuter(1, 0, [&] {
        EXPECT_EQ(RunCurrentEventLoop(kEventDurationForever), eventLoopQuitErr);
        mLog.push_back("inner over");
    });
    EXPECT_EQ(RunCurrentEventLoop(10), eventLoopTimedOutErr);
    EXPECT_EQ(mLog, Log{"inner over"});
    EXPECT_EQ(mClock.Now(), 1010);
}

TEST_F(EventLoop, TimersStillRunWhenThereIsNoTimeToWait)
{
    const TestTimer theTimer(0, 0, "fired", mLog);
    EXPECT_EQ(RunCurrentEventLoop(kEventDurationNoWait), eventLoopTimedOutErr);
    EXPECT_EQ(mLog, Log{"fired 0"});
}

// --- The application's loop -------------------------------------------------------------------------

TEST_F(EventLoop, TheApplicationsLoopSendsPostedEventsOnUntilItQuits)
{
    const TestHandler theHandler(GetApplicationEventTarget(), "application", mLog,
                                 [&](EventHandlerCallRef, EventRef theEvent) {
                                     if (GetEventKind(theEvent) == 2) {
                                         QuitApplicationEventLoop();
                                     }
                                     return OSStatus(noErr);
                                 },
                                 {kTestEvent, kOtherTestEvent});
    const EventRef theFirst = Post(1);
    Post(2);
    Post(1);
    RunApplicationEventLoop();
    EXPECT_EQ(mLog, (Log{"application", "application"}));
    EXPECT_EQ(GetEventRetainCount(theFirst), 0u);
    EXPECT_EQ(GetNumEventsInQueue(GetMainEventQueue()), 1u);
}

TEST_F(EventLoop, AHandlerCanKeepTheApplicationFromQuitting)
{
    int theAttempts = 0;
    const TestHandler theRefusal(GetApplicationEventTarget(), "quit", mLog,
                                 [&](EventHandlerCallRef, EventRef) {
                                     return ++theAttempts < 3 ? OSStatus(noErr)
                                                              : OSStatus(eventNotHandledErr);
                                 },
                                 {{kEventClassApplication, kEventAppQuit}});
    const TestTimer theTimer(1, 1, [] { QuitApplicationEventLoop(); });
    RunApplicationEventLoop();
    EXPECT_EQ(mLog, (Log{"quit", "quit", "quit"}));
    EXPECT_EQ(mClock.Now(), 1003);
}

TEST_F(EventLoop, TheQuitCommandEndsTheApplicationsLoop)
{
    const TestTimer theTimer(2, 0, [&] {
        HICommand theCommand{};
        theCommand.commandID = kHICommandQuit;
        EXPECT_EQ(ProcessHICommand(&theCommand), noErr);
    });
    RunApplicationEventLoop();
    EXPECT_EQ(mClock.Now(), 1002);
}

TEST_F(EventLoop, QuittingInsideANestedLoopEndsBoth)
{
    const TestTimer theQuit(2, 0, [] { QuitApplicationEventLoop(); });
    const TestHandler theHandler(GetApplicationEventTarget(), "application", mLog,
                                 [&](EventHandlerCallRef, EventRef) {
                                     EXPECT_EQ(RunCurrentEventLoop(60), eventLoopQuitErr);
                                     return OSStatus(noErr);
                                 });
    Post(1);
    RunApplicationEventLoop();
    EXPECT_EQ(mLog, Log{"application"});
    EXPECT_EQ(mClock.Now(), 1002);
}

TEST_F(EventLoop, QuittingAnApplicationThatDoesNotRunOnlyTellsItsHandlers)
{
    const TestHandler theHandler(GetApplicationEventTarget(), "quit", mLog,
                                 [](EventHandlerCallRef, EventRef) { return OSStatus(eventNotHandledErr); },
                                 {{kEventClassApplication, kEventAppQuit}});
    QuitApplicationEventLoop();
    EXPECT_EQ(mLog, Log{"quit"});
    const TestTimer theTimer(1, 0, [] { QuitApplicationEventLoop(); });
    RunApplicationEventLoop();
    EXPECT_EQ(mClock.Now(), 1001) << "an earlier request does not end a later loop";
}

TEST_F(EventLoop, QuittingTheEventLoopEndsTheApplicationsLoop)
{
    const TestTimer theTimer(1, 0, [] { QuitEventLoop(GetMainEventLoop()); });
    RunApplicationEventLoop();
    EXPECT_EQ(mClock.Now(), 1001);
}

namespace {

// --- The presenter ----------------------------------------------------------------------------------

// A presenter that notes when it is given its turn, and lets the test report something then.
class TurnPresenter : public Host::Presenter
{
public:
    explicit TurnPresenter(std::function<void()> theAction)
        : mAction(std::move(theAction))
    {
    }

    bool WaitUntil(double theDeadline, double theNow) override
    {
        EXPECT_LE(theDeadline, theNow) << "time passes by the virtual clock alone";
        mAction();
        return false;
    }

private:
    std::function<void()> mAction;
};

class PresenterTurn : public EventLoopTest
{
protected:
    void Use(std::function<void()> theAction)
    {
        ASSERT_TRUE(Host::PresenterRegistry::Use(std::make_unique<TurnPresenter>(std::move(theAction))));
    }
    ~PresenterTurn() override { Host::PresenterRegistry::Use(std::make_unique<Host::Presenter>()); }
};

} // namespace

TEST_F(PresenterTurn, ComesBeforeEachEventThatIsTaken)
{
    Use([this] { mLog.push_back("turn"); });
    const TestHandler theHandler(GetApplicationEventTarget(), "event", mLog,
                                 [](EventHandlerCallRef, EventRef theEvent) {
                                     if (GetEventKind(theEvent) == 2) {
                                         QuitApplicationEventLoop();
                                     }
                                     return OSStatus(noErr);
                                 },
                                 {kTestEvent, kOtherTestEvent});
    Post(1);
    Post(2);
    RunApplicationEventLoop();
    EXPECT_EQ(mLog, (Log{"turn", "event", "turn", "event"}));
}

TEST_F(PresenterTurn, ComesEvenWhenThereIsNoTimeToWait)
{
    Use([this] { mLog.push_back("turn"); });
    RunCurrentEventLoop(kEventDurationNoWait);
    EXPECT_EQ(mLog, Log{"turn"});
}

TEST_F(PresenterTurn, MayQuitTheLoopOrPostWhatItWaitsFor)
{
    Use([] { QuitEventLoop(GetMainEventLoop()); });
    EXPECT_EQ(RunCurrentEventLoop(kEventDurationForever), eventLoopQuitErr);
    Use([] { Post(1); });
    EventRef theEvent = nullptr;
    EXPECT_EQ(ReceiveNextEvent(0, nullptr, kEventDurationForever, kEventRemoveFromQueue, &theEvent), noErr);
    ReleaseEvent(theEvent);
}

TEST_F(PresenterTurn, MayRunTheLoopItself)
{
    int theDepth = 0;
    Use([&] {
        if (++theDepth == 1) {
            EXPECT_EQ(RunCurrentEventLoop(2), eventLoopTimedOutErr);
        }
    });
    EXPECT_EQ(RunCurrentEventLoop(5), eventLoopTimedOutErr);
    EXPECT_EQ(mClock.Now(), 1005);
}

TEST(SystemEventLoop, APresenterThatWaitsIsWokenByAnotherThread)
{
    FlushEventQueue(GetMainEventQueue());
    const DuringTheWait theWait([] {
        const TestEvent theEvent(1);
        PostEventToQueue(GetMainEventQueue(), theEvent.Get(), kEventPriorityStandard);
    });
    EventRef theEvent = nullptr;
    EXPECT_EQ(ReceiveNextEvent(1, &kTestEvent, kEventDurationForever, kEventRemoveFromQueue, &theEvent),
              noErr);
    ReleaseEvent(theEvent);
}

TEST(SystemEventLoop, EventsThatSeveralThreadsPostAtOnceAllArrive)
{
    static const int kThreads = 4;
    static const int kEvents = 100;
    FlushEventQueue(GetMainEventQueue());
    std::vector<std::thread> theThreads;
    theThreads.reserve(kThreads);
    for (int theThread = 0; theThread < kThreads; ++theThread) {
        theThreads.emplace_back([] {
            for (int theNumber = 0; theNumber < kEvents; ++theNumber) {
                const TestEvent theEvent(1);
                EXPECT_EQ(PostEventToQueue(GetMainEventQueue(), theEvent.Get(), EventPriority(theNumber % 3)),
                          noErr);
            }
        });
    }
    for (int theNumber = 0; theNumber < kThreads * kEvents; ++theNumber) {
        EventRef theEvent = nullptr;
        ASSERT_EQ(ReceiveNextEvent(1, &kTestEvent, kEventDurationForever, kEventRemoveFromQueue, &theEvent),
                  noErr);
        ReleaseEvent(theEvent);
    }
    for (std::thread& theThread : theThreads) {
        theThread.join();
    }
    EXPECT_EQ(GetNumEventsInQueue(GetMainEventQueue()), 0u);
}
