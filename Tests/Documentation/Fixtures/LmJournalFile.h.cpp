// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmJournalFile.h"

#include <Carbon/Carbon.h>
#include <cstdio>
#include <gtest/gtest.h>

TEST(LmJournalFile, IsBegunAsItsHeaderShows)
{
    EventRef theEnd = nullptr;
    CreateEvent(nullptr, kEventClassApplication, kEventAppQuit, 0, kEventAttributeNone, &theEnd);
    PostEventToQueue(GetMainEventQueue(), theEnd, kEventPriorityStandard);
    ReleaseEvent(theEnd);
    // @code 1
    EXPECT_EQ(std::remove("/tmp/thermostat.journal"), 0);
}
