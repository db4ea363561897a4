// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ManagerTestSupport.h"

#include <Simulation/VirtualClock.h>

TEST(Ticks, SixtyAreASecond)
{
    Host::VirtualClock theClock(1000);
    EXPECT_EQ(TickCount(), 60000u);
    theClock.Advance(0.5);
    EXPECT_EQ(TickCount(), 60030u);
}

TEST(Ticks, TheCountBeginsAnew)
{
    const Host::VirtualClock theClock(4294967296.0 / 60 + 1);
    EXPECT_EQ(TickCount(), 60u);
}

TEST(Ticks, ADelayLetsTimePassAndNothingElse)
{
    const Host::VirtualClock theClock(1000);
    int theFirings = 0;
    EventLoopTimerRef theTimer = nullptr;
    InstallEventLoopTimer(
        GetMainEventLoop(), 0.1, 0, [](EventLoopTimerRef, void* theCount) { ++*static_cast<int*>(theCount); },
        &theFirings, &theTimer);
    unsigned long theEnd = 0;
    Delay(120, &theEnd);
    EXPECT_EQ(theClock.Now(), 1002);
    EXPECT_EQ(theEnd, 60120u);
    EXPECT_EQ(theFirings, 0);
    Delay(0, nullptr);
    EXPECT_EQ(theClock.Now(), 1002);
    RemoveEventLoopTimer(theTimer);
}

TEST(Ticks, TheDesktopsTimesAreHalfASecond)
{
    EXPECT_EQ(GetDblTime(), 30u);
    EXPECT_EQ(GetCaretTime(), 30u);
}
