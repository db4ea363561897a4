// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <Carbon/Carbon.h>
#include <gtest/gtest.h>
#include <Simulation/UserSimulator.h>
#include <Simulation/VirtualClock.h>

namespace {

void PressOK(EventLoopTimerRef, void*)
{
    Host::UserSimulator theUser;
    EXPECT_TRUE(theUser.Click({FrontWindow(), {'alrt', 1}}));
}

} // namespace

TEST(Dialogs, AskAsTheirHeaderShows)
{
    const Host::VirtualClock theClock;
    EventLoopTimerRef theTimer = nullptr;
    InstallEventLoopTimer(GetMainEventLoop(), 1, 0, PressOK, nullptr, &theTimer);
    // @code 1
    EXPECT_EQ(theItem, kAlertStdAlertOKButton);
    RemoveEventLoopTimer(theTimer);
}
