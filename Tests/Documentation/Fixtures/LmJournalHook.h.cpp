// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmJournalHook.h"
#include "LmKeyValueStore.h"

#include <gtest/gtest.h>

namespace {

// @code 2

} // namespace

TEST(LmJournalHook, TellsACounterAsItsHeaderShows)
{
    Counter theCounter;
    LmSetJournalHook(&theCounter);
    LmKeyValueStore theModel;
    // @code 1
    LmSetJournalHook(nullptr);
    EXPECT_EQ(theCounter.Write({kJournalNamed}, nullptr), 3U);
}
