// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Timers, under a clock that stands still unless it is waited for.

#include "EventTestSupport.h"
#include "StandardErrorCapture.h"

#include <atomic>

namespace {

using EventLoopTimers = EventLoopTest;

} // namespace

TEST_F(EventLoopTimers, ATimerFiresAfterItsDelayAndThenInItsInterval)
{
    const TestTimer theTimer(2, 3, "fired", mLog);
    RunCurrentEventLoop(10);
    EXPECT_EQ(mLog, (Log{"fired 2", "fired 5", "fired 8"}));
}

TEST_F(EventLoopTimers, ATimerWithoutAnIntervalFiresOnce)
{
    const TestTimer theZero(2, 0, "zero", mLog);
    const TestTimer theForever(3, kEventDurationForever, "forever", mLog);
    RunCurrentEventLoop(20);
    EXPECT_EQ(mLog, (Log{"zero 2", "forever 3"}));
}

TEST_F(EventLoopTimers, ATimerDelayedForEverWaitsUntilItIsSet)
{
    const TestTimer theTimer(kEventDurationForever, 4, "fired", mLog);
    RunCurrentEventLoop(10);
    EXPECT_TRUE(mLog.empty());
    EXPECT_EQ(SetEventLoopTimerNextFireTime(theTimer.Get(), 1), noErr);
    RunCurrentEventLoop(7);
    EXPECT_EQ(mLog, (Log{"fired 11", "fired 15"}));
}

TEST_F(EventLoopTimers, SettingTheNextTimeMovesTheRhythm)
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

TEST_F(EventLoopTimers, TimersFireInTheOrderOfTheirTimes)
{
    const TestTimer theLate(3, 0, "late", mLog);
    const TestTimer theEarly(1, 0, "early", mLog);
    const TestTimer theTwin(3, 0, "twin", mLog);
    mClock.Advance(5);
    RunCurrentEventLoop(0);
    EXPECT_EQ(mLog, (Log{"early 5", "late 5", "twin 5"}));
}

TEST_F(EventLoopTimers, MissedTimesAreNotMadeUpFor)
{
    const TestTimer theTimer(1, 2, "fired", mLog);
    mClock.Advance(6);
    RunCurrentEventLoop(4);
    EXPECT_EQ(mLog, (Log{"fired 6", "fired 7", "fired 9"}));
}

TEST_F(EventLoopTimers, ATimerMayRemoveItselfAndOthers)
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

TEST_F(EventLoopTimers, ATimerMaySetItsOwnNextTime)
{
    std::unique_ptr<TestTimer> theTimer;
    theTimer = std::make_unique<TestTimer>(1, 0, [&] {
        mLog.push_back(std::to_string(std::lround(mClock.Now() - 1000)));
        SetEventLoopTimerNextFireTime(theTimer->Get(), mClock.Now() < 1005 ? 4 : kEventDurationForever);
    });
    RunCurrentEventLoop(20);
    EXPECT_EQ(mLog, (Log{"1", "5"}));
}

TEST_F(EventLoopTimers, ATimerStartedByATimerWaitsForItsTurn)
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

TEST_F(EventLoopTimers, ATimerDoesNotFireWhileItsFunctionRuns)
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

TEST_F(EventLoopTimers, ATinyIntervalDoesNotStopTheTime)
{
    int theCount = 0;
    const TestTimer theTimer(0, 1e-300, [&] { ++theCount; });
    EXPECT_EQ(RunCurrentEventLoop(1e-4), eventLoopTimedOutErr);
    EXPECT_GT(theCount, 50);
    EXPECT_LT(theCount, 150);
}

TEST_F(EventLoopTimers, BadArgumentsOfTimersAreRefused)
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

// --- Other threads ----------------------------------------------------------------------------------

namespace {

// Timers that end the loop when they fire, under the machine's clock.
const EventLoopTimerUPP kQuit = [](EventLoopTimerRef, void*) { QuitEventLoop(GetMainEventLoop()); };

} // namespace

TEST(SystemEventLoopTimers, ATimerThatAnotherThreadInstallsFiresAlthoughTheLoopWaits)
{
    EventLoopTimerRef theTimer = nullptr;
    const DuringTheWait theWait([&] {
        EXPECT_EQ(InstallEventLoopTimer(GetMainEventLoop(), 0, 0, kQuit, nullptr, &theTimer), noErr);
    });
    EXPECT_EQ(RunCurrentEventLoop(kEventDurationForever), eventLoopQuitErr);
    EXPECT_EQ(RemoveEventLoopTimer(theTimer), noErr);
}

TEST(SystemEventLoopTimers, ATimerThatAnotherThreadSetsFiresAlthoughTheLoopWaits)
{
    EventLoopTimerRef theTimer = nullptr;
    InstallEventLoopTimer(GetMainEventLoop(), kEventDurationForever, 0, kQuit, nullptr, &theTimer);
    const DuringTheWait theWait([&] { EXPECT_EQ(SetEventLoopTimerNextFireTime(theTimer, 0), noErr); });
    EXPECT_EQ(RunCurrentEventLoop(kEventDurationForever), eventLoopQuitErr);
    EXPECT_EQ(RemoveEventLoopTimer(theTimer), noErr);
}

TEST(SystemEventLoopTimers, AnyThreadMayInstallSetAndRemoveTimersWhileOthersFire)
{
    static const int kThreads = 4;
    static const int kTimers = 100;
    static std::atomic<int> sFired;
    sFired = 0;
    const EventLoopTimerUPP theCount = [](EventLoopTimerRef theTimer, void*) {
        EXPECT_EQ(RemoveEventLoopTimer(theTimer), noErr);
        if (++sFired == kThreads * kTimers) {
            QuitEventLoop(GetMainEventLoop());
        }
    };
    const auto theWork = [&] {
        for (int theNumber = 0; theNumber < kTimers; ++theNumber) {
            EventLoopTimerRef theFiring = nullptr;
            EventLoopTimerRef theOther = nullptr;
            EXPECT_EQ(InstallEventLoopTimer(GetMainEventLoop(), 0, 0, theCount, nullptr, &theFiring), noErr);
            EXPECT_EQ(InstallEventLoopTimer(GetMainEventLoop(), kEventDurationForever, 1, theCount, nullptr,
                                            &theOther),
                      noErr);
            EXPECT_EQ(SetEventLoopTimerNextFireTime(theOther, kEventDurationHour), noErr);
            EXPECT_EQ(RemoveEventLoopTimer(theOther), noErr);
        }
    };
    std::vector<std::thread> theThreads;
    theThreads.reserve(kThreads);
    for (int theThread = 0; theThread < kThreads; ++theThread) {
        theThreads.emplace_back(theWork);
    }
    EXPECT_EQ(RunCurrentEventLoop(kEventDurationForever), eventLoopQuitErr);
    for (std::thread& theThread : theThreads) {
        theThread.join();
    }
    EXPECT_EQ(sFired, kThreads * kTimers);
}
