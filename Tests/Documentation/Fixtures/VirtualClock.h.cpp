// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <Carbon/Carbon.h>
#include <gtest/gtest.h>
#include <Simulation/VirtualClock.h>

namespace {

int gBoilings = 0;

void BoilOver(EventLoopTimerRef, void*)
{
    ++gBoilings;
}

} // namespace

TEST(VirtualClock, IsTurnedAsItsHeaderShows)
{
    gBoilings = 0;
    EventLoopTimerRef theTimer = nullptr;
    // @code 1
    EXPECT_EQ(gBoilings, 1);
    EXPECT_EQ(theClock.Now(), 1061);
}
