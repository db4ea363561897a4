// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The loop and its timers, under a clock that stands still unless it is waited for.

#include "EventTestSupport.h"
#include "StandardErrorCapture.h"

#include <cmath>
#include <condition_variable>
#include <gtest/gtest.h>
#include <memory>
#include <mutex>
#include <Presentation/Presenter.h>
#include <Presentation/PresenterRegistry.h>
#include <Simulation/VirtualClock.h>
#include <thread>

namespace {

class EventLoop : public testing::Test
{
protected:
    EventLoop() { FlushEventQueue(GetMainEventQueue()); }
    ~EventLoop() override { FlushEventQueue(GetMainEventQueue()); }

    static EventRef Post(UInt32 theKind)
    {
        const TestEvent theEvent(theKind);
        PostEventToQueue(GetMainEventQueue(), theEvent.Get(), kEventPriorityStandard);
        return theEvent.Get();
    }

    Host::VirtualClock mClock{1000};
    Log mLog;
};

// A timer that notes the time since the start of the test, then does what the test wants. It is removed at
// the end.
class TestTimer
{
public:
    using Action = std::function<void()>;

    TestTimer(EventTimerInterval theDelay, EventTimerInterval theInterval, Action theAction)
        : mAction(std::move(theAction))
    {
        mStatus = InstallEventLoopTimer(GetMainEventLoop(), theDelay, theInterval, Fire, this, &mReference);
    }
    TestTimer(EventTimerInterval theDelay, EventTimerInterval theInterval, const std::string& theName,
              Log& theLog)
        : TestTimer(theDelay, theInterval, [theName, &theLog] {
              theLog.push_back(theName + " " + std::to_string(std::lround(GetCurrentEventTime() - 1000)));
          })
    {
    }
    ~TestTimer() { RemoveEventLoopTimer(mReference); }
    TestTimer(const TestTimer&) = delete;
    TestTimer& operator=(const TestTimer&) = delete;

    OSStatus Status() const { return mStatus; }
    EventLoopTimerRef Get() const { return mReference; }

private:
    static void Fire(EventLoopTimerRef theTimer, void* theUserData)
    {
        auto* theSelf = static_cast<TestTimer*>(theUserData);
        EXPECT_EQ(theTimer, theSelf->mReference);
        theSelf->mAction();
    }

    Action mAction;
    EventLoopTimerRef mReference = nullptr;
    OSStatus mStatus = noErr;
};

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

TEST_F(EventLoop, WaitingInVainTakesItsTime)
{
    Post(1);
    EventRef theEvent = InventedReference<EventRef>();
    EXPECT_EQ(ReceiveNextEvent(1, &kOtherTestEvent, 5, kEventRemoveFromQueue, &theEvent),
              eventLoopTimedOutErr);
    EXPECT_EQ(theEvent, nullptr);
    EXPECT_EQ(mClock.Now(), 1005);
}

TEST_F(EventLoop, AnEventPostedByATimerEndsTheWait)
{
    const TestTimer theTimer(3, 0, [] { Post(1); });
    EventRef theEvent = nullptr;
    EXPECT_EQ(ReceiveNextEvent(0, nullptr, kEventDurationForever, kEventRemoveFromQueue, &theEvent), noErr);
    EXPECT_EQ(GetEventTime(theEvent), 1003);
    ReleaseEvent(theEvent);
}

TEST_F(EventLoop, AWaitThatWouldNeverEndSaysSo)
{
    EventRef theEvent = nullptr;
    // Posting and quitting wake the loop once for nothing.
    EXPECT_EQ(ReceiveNextEvent(0, nullptr, kEventDurationForever, kEventRemoveFromQueue, &theEvent),
              eventLoopTimedOutErr);
    EXPECT_EQ(StandardErrorCapture::TakeLines(),
              Lines{"The event loop waits for ever: no event, timer or deadline is left."});
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

// --- Timers -----------------------------------------------------------------------------------------

TEST_F(EventLoop, ATimerFiresAfterItsDelayAndThenInItsInterval)
{
    const TestTimer theTimer(2, 3, "fired", mLog);
    RunCurrentEventLoop(10);
    EXPECT_EQ(mLog, (Log{"fired 2", "fired 5", "fired 8"}));
}

TEST_F(EventLoop, ATimerWithoutAnIntervalFiresOnce)
{
    const TestTimer theZero(2, 0, "zero", mLog);
    const TestTimer theForever(3, kEventDurationForever, "forever", mLog);
    RunCurrentEventLoop(20);
    EXPECT_EQ(mLog, (Log{"zero 2", "forever 3"}));
}

TEST_F(EventLoop, ATimerDelayedForEverWaitsUntilItIsSet)
{
    const TestTimer theTimer(kEventDurationForever, 4, "fired", mLog);
    RunCurrentEventLoop(10);
    EXPECT_TRUE(mLog.empty());
    EXPECT_EQ(SetEventLoopTimerNextFireTime(theTimer.Get(), 1), noErr);
    RunCurrentEventLoop(7);
    EXPECT_EQ(mLog, (Log{"fired 11", "fired 15"}));
}

TEST_F(EventLoop, SettingTheNextTimeMovesTheRhythm)
{
    const TestTimer theTimer(1, 5, "fired", mLog);
    RunCurrentEventLoop(2);
    SetEventLoopTimerNextFireTime(theTimer.Get(), 1);
    RunCurrentEventLoop(7);
    EXPECT_EQ(mLog, (Log{"fired 1", "fired 3", "fired 8"}));
    SetEventLoopTimerNextFireTime(theTimer.Get(), kEventDurationForever);
    RunCurrentEventLoop(20);
    EXPECT_EQ(mLog.size(), 3u);
}

TEST_F(EventLoop, TimersFireInTheOrderOfTheirTimes)
{
    const TestTimer theLate(3, 0, "late", mLog);
    const TestTimer theEarly(1, 0, "early", mLog);
    const TestTimer theTwin(3, 0, "twin", mLog);
    mClock.Advance(5);
    RunCurrentEventLoop(0);
    EXPECT_EQ(mLog, (Log{"early 5", "late 5", "twin 5"}));
}

TEST_F(EventLoop, MissedTimesAreNotMadeUpFor)
{
    const TestTimer theTimer(1, 2, "fired", mLog);
    mClock.Advance(6);
    RunCurrentEventLoop(4);
    EXPECT_EQ(mLog, (Log{"fired 6", "fired 7", "fired 9"}));
}

TEST_F(EventLoop, ATimerMayRemoveItselfAndOthers)
{
    std::unique_ptr<TestTimer> theFirst;
    const std::unique_ptr<TestTimer> theSecond = std::make_unique<TestTimer>(2, 0, "second", mLog);
    theFirst = std::make_unique<TestTimer>(1, 1, [&] {
        mLog.push_back("first");
        EXPECT_EQ(RemoveEventLoopTimer(theFirst->Get()), noErr);
        EXPECT_EQ(RemoveEventLoopTimer(theSecond->Get()), noErr);
    });
    mClock.Advance(5);
    RunCurrentEventLoop(5);
    EXPECT_EQ(mLog, Log{"first"});
    EXPECT_EQ(RemoveEventLoopTimer(theFirst->Get()), paramErr);
}

TEST_F(EventLoop, ATimerMaySetItsOwnNextTime)
{
    std::unique_ptr<TestTimer> theTimer;
    theTimer = std::make_unique<TestTimer>(1, 0, [&] {
        mLog.push_back(std::to_string(std::lround(mClock.Now() - 1000)));
        SetEventLoopTimerNextFireTime(theTimer->Get(), mClock.Now() < 1005 ? 4 : kEventDurationForever);
    });
    RunCurrentEventLoop(20);
    EXPECT_EQ(mLog, (Log{"1", "5"}));
}

TEST_F(EventLoop, ATimerStartedByATimerWaitsForItsTurn)
{
    std::unique_ptr<TestTimer> theNew;
    const TestTimer theOld(1, 0, [&] {
        mLog.push_back("old");
        theNew = std::make_unique<TestTimer>(0, 0, "new", mLog);
    });
    RunCurrentEventLoop(1);
    RunCurrentEventLoop(0);
    EXPECT_EQ(mLog, (Log{"old", "new 1"}));
}

TEST_F(EventLoop, ATimerDoesNotFireWhileItsFunctionRuns)
{
    const TestTimer theOther(2, 0, "other", mLog);
    const TestTimer theTimer(1, 1, [&] {
        mLog.push_back("begin");
        RunCurrentEventLoop(3);
        mLog.push_back("end");
        QuitEventLoop(GetMainEventLoop());
    });
    EXPECT_EQ(RunCurrentEventLoop(10), eventLoopQuitErr);
    EXPECT_EQ(mLog, (Log{"begin", "other 2", "end"}));
}

TEST_F(EventLoop, ATinyIntervalDoesNotStopTheTime)
{
    int theCount = 0;
    const TestTimer theTimer(0, 1e-300, [&] { ++theCount; });
    EXPECT_EQ(RunCurrentEventLoop(1e-4), eventLoopTimedOutErr);
    EXPECT_GT(theCount, 50);
    EXPECT_LT(theCount, 150);
}

TEST_F(EventLoop, BadArgumentsOfTimersAreRefused)
{
    const EventLoopTimerUPP theFunction = [](EventLoopTimerRef, void*) {};
    EventLoopTimerRef theTimer = nullptr;
    EXPECT_EQ(InstallEventLoopTimer(nullptr, 0, 0, theFunction, nullptr, &theTimer), paramErr);
    EXPECT_EQ(InstallEventLoopTimer(GetMainEventLoop(), 0, 0, nullptr, nullptr, &theTimer), paramErr);
    EXPECT_EQ(InstallEventLoopTimer(GetMainEventLoop(), 0, 0, theFunction, nullptr, nullptr), paramErr);
    EXPECT_EQ(InstallEventLoopTimer(GetMainEventLoop(), std::nan(""), 0, theFunction, nullptr, &theTimer),
              paramErr);
    EXPECT_EQ(InstallEventLoopTimer(GetMainEventLoop(), 0, std::nan(""), theFunction, nullptr, &theTimer),
              paramErr);
    EXPECT_EQ(theTimer, nullptr);
    for (const EventLoopTimerRef theBad :
         {EventLoopTimerRef(nullptr), InventedReference<EventLoopTimerRef>()}) {
        EXPECT_EQ(RemoveEventLoopTimer(theBad), paramErr);
        EXPECT_EQ(SetEventLoopTimerNextFireTime(theBad, 1), paramErr);
    }
    const TestTimer theGood(1, 0, "fired", mLog);
    EXPECT_EQ(SetEventLoopTimerNextFireTime(theGood.Get(), std::nan("")), paramErr);
    EXPECT_EQ(NewEventLoopTimerUPP(theFunction), theFunction);
    DisposeEventLoopTimerUPP(theFunction);
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

// --- The presenter ----------------------------------------------------------------------------------

namespace {

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

class PresenterTurn : public EventLoop
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
    class WaitingPresenter : public Host::Presenter
    {
    public:
        bool WaitUntil(double theDeadline, double theNow) override
        {
            if (theDeadline >= 0 && theDeadline <= theNow) {
                return false;
            }
            // Posted from here on, so that the wait has begun.
            std::thread thePoster([] {
                const TestEvent theEvent(1);
                PostEventToQueue(GetMainEventQueue(), theEvent.Get(), kEventPriorityStandard);
            });
            std::unique_lock<std::mutex> theLock(mMutex);
            mCondition.wait(theLock, [this] { return mIsWoken; });
            theLock.unlock();
            thePoster.join();
            return true;
        }
        void Wake() override
        {
            const std::lock_guard<std::mutex> theLock(mMutex);
            mIsWoken = true;
            mCondition.notify_one();
        }

    private:
        std::mutex mMutex;
        std::condition_variable mCondition;
        bool mIsWoken = false;
    };
    Host::PresenterRegistry::Use(std::make_unique<WaitingPresenter>());
    EventRef theEvent = nullptr;
    EXPECT_EQ(ReceiveNextEvent(1, &kTestEvent, kEventDurationForever, kEventRemoveFromQueue, &theEvent),
              noErr);
    ReleaseEvent(theEvent);
    Host::PresenterRegistry::Use(std::make_unique<Host::Presenter>());
}

// --- Other threads, and the machine's clock ---------------------------------------------------------

TEST(SystemEventLoop, AnEventPostedByAnotherThreadEndsTheWait)
{
    FlushEventQueue(GetMainEventQueue());
    std::thread thePoster([] {
        const TestEvent theEvent(1);
        PostEventToQueue(GetMainEventQueue(), theEvent.Get(), kEventPriorityStandard);
    });
    EventRef theEvent = nullptr;
    EXPECT_EQ(ReceiveNextEvent(1, &kTestEvent, kEventDurationForever, kEventRemoveFromQueue, &theEvent),
              noErr);
    thePoster.join();
    EXPECT_EQ(GetEventRetainCount(theEvent), 1u);
    ReleaseEvent(theEvent);
}

TEST(SystemEventLoop, AShortWaitEndsByItself)
{
    FlushEventQueue(GetMainEventQueue());
    EventRef theEvent = nullptr;
    EXPECT_EQ(ReceiveNextEvent(1, &kTestEvent, kEventDurationMillisecond, kEventRemoveFromQueue, &theEvent),
              eventLoopTimedOutErr);
}
