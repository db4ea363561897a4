// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Run loop timers in the event loop.

#include "EventTestSupport.h"

#include <functional>
#include <string>
#include <vector>

namespace {

// A timer whose function is a lambda; out of the loop at the end of the scope.
class RunLoopTimer
{
public:
    RunLoopTimer(double theDelay, double theInterval, std::function<void(CFRunLoopTimerRef)> theFunction)
        : mFunction(std::move(theFunction))
    {
        CFRunLoopTimerContext theContext = {0, this, nullptr, nullptr, nullptr};
        mTimer = CFRunLoopTimerCreate(nullptr, CFAbsoluteTimeGetCurrent() + theDelay, theInterval, 0, 0, Fire,
                                      &theContext);
    }
    ~RunLoopTimer()
    {
        CFRunLoopTimerInvalidate(mTimer);
        CFRelease(mTimer);
    }
    RunLoopTimer(const RunLoopTimer&) = delete;
    RunLoopTimer& operator=(const RunLoopTimer&) = delete;

    void Add(CFStringRef theMode = kCFRunLoopDefaultMode) const
    {
        CFRunLoopAddTimer(CFRunLoopGetCurrent(), mTimer, theMode);
    }
    CFRunLoopTimerRef Get() const { return mTimer; }

private:
    static void Fire(CFRunLoopTimerRef theTimer, void* theInfo)
    {
        static_cast<RunLoopTimer*>(theInfo)->mFunction(theTimer);
    }

    std::function<void(CFRunLoopTimerRef)> mFunction;
    CFRunLoopTimerRef mTimer = nullptr;
};

class RunLoopTimers : public testing::Test
{
protected:
    Host::VirtualClock mClock;
    int mCount = 0;
};

} // namespace

TEST_F(RunLoopTimers, FireOnceAtTheirDateAndAreInvalidThen)
{
    const RunLoopTimer theTimer(5, 0, [this](CFRunLoopTimerRef theFiring) {
        ++mCount;
        EXPECT_TRUE(CFRunLoopTimerIsValid(theFiring));
    });
    theTimer.Add();
    RunCurrentEventLoop(4);
    EXPECT_EQ(mCount, 0);
    RunCurrentEventLoop(2);
    EXPECT_EQ(mCount, 1);
    EXPECT_FALSE(CFRunLoopTimerIsValid(theTimer.Get()));
    EXPECT_FALSE(CFRunLoopContainsTimer(CFRunLoopGetMain(), theTimer.Get(), kCFRunLoopDefaultMode));
    RunCurrentEventLoop(20);
    EXPECT_EQ(mCount, 1);
}

TEST_F(RunLoopTimers, FireInTheirRhythm)
{
    const RunLoopTimer theTimer(1, 2, [this](CFRunLoopTimerRef) { ++mCount; });
    theTimer.Add(kCFRunLoopCommonModes);
    const CFAbsoluteTime theFirst = CFRunLoopTimerGetNextFireDate(theTimer.Get());
    RunCurrentEventLoop(8);
    EXPECT_EQ(mCount, 4);
    EXPECT_EQ(CFRunLoopTimerGetNextFireDate(theTimer.Get()), theFirst + 8);
    EXPECT_TRUE(CFRunLoopTimerIsValid(theTimer.Get()));
}

TEST_F(RunLoopTimers, ADateThatHasPassedIsNow)
{
    const RunLoopTimer theTimer(-100, 0, [this](CFRunLoopTimerRef) { ++mCount; });
    theTimer.Add();
    RunCurrentEventLoop(0);
    EXPECT_EQ(mCount, 1);
}

TEST_F(RunLoopTimers, WaitInOtherModes)
{
    const RunLoopTimer theTimer(1, 0, [this](CFRunLoopTimerRef) { ++mCount; });
    theTimer.Add(CFSTR("another"));
    RunCurrentEventLoop(5);
    EXPECT_EQ(mCount, 0);
    theTimer.Add();
    RunCurrentEventLoop(5);
    EXPECT_EQ(mCount, 1);
}

TEST_F(RunLoopTimers, InBothModesFireOnce)
{
    const RunLoopTimer theTimer(1, 10, [this](CFRunLoopTimerRef) { ++mCount; });
    theTimer.Add(kCFRunLoopDefaultMode);
    theTimer.Add(kCFRunLoopCommonModes);
    RunCurrentEventLoop(5);
    EXPECT_EQ(mCount, 1);
    CFRunLoopRemoveTimer(CFRunLoopGetMain(), theTimer.Get(), kCFRunLoopDefaultMode);
    RunCurrentEventLoop(10);
    EXPECT_EQ(mCount, 2);
    CFRunLoopRemoveTimer(CFRunLoopGetMain(), theTimer.Get(), kCFRunLoopCommonModes);
    RunCurrentEventLoop(20);
    EXPECT_EQ(mCount, 2);
    EXPECT_TRUE(CFRunLoopTimerIsValid(theTimer.Get()));
}

TEST_F(RunLoopTimers, MayInvalidateThemselves)
{
    const RunLoopTimer theTimer(1, 1, [this](CFRunLoopTimerRef theFiring) {
        if (++mCount == 2) {
            CFRunLoopTimerInvalidate(theFiring);
        }
    });
    theTimer.Add();
    RunCurrentEventLoop(10);
    EXPECT_EQ(mCount, 2);
}

TEST_F(RunLoopTimers, MayTakeOneAnotherOut)
{
    const RunLoopTimer theOther(1, 0, [this](CFRunLoopTimerRef) { mCount += 100; });
    const RunLoopTimer theTimer(0.5, 0, [&](CFRunLoopTimerRef) {
        ++mCount;
        CFRunLoopTimerInvalidate(theOther.Get());
    });
    theTimer.Add();
    theOther.Add();
    RunCurrentEventLoop(10);
    EXPECT_EQ(mCount, 1);
}

TEST_F(RunLoopTimers, FireAtTheDateThatIsSet)
{
    const RunLoopTimer theTimer(1, 5, [this](CFRunLoopTimerRef theFiring) {
        if (++mCount == 1) {
            CFRunLoopTimerSetNextFireDate(theFiring, CFAbsoluteTimeGetCurrent() + 2);
        }
    });
    theTimer.Add();
    CFRunLoopTimerSetNextFireDate(theTimer.Get(), CFAbsoluteTimeGetCurrent() + 3);
    RunCurrentEventLoop(2);
    EXPECT_EQ(mCount, 0);
    RunCurrentEventLoop(1.5);
    EXPECT_EQ(mCount, 1);
    RunCurrentEventLoop(2);
    EXPECT_EQ(mCount, 2);
}

TEST_F(RunLoopTimers, TheLoopIsTheOneThatTheEventLoopIs)
{
    EXPECT_EQ(GetCFRunLoopFromEventLoop(GetMainEventLoop()), CFRunLoopGetMain());
    EXPECT_EQ(GetCFRunLoopFromEventLoop(nullptr), nullptr);
}
