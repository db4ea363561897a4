// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "AllocationFailures.h"
#include "LmValue.h"

#include <gtest/gtest.h>

TEST(AllocationFailures, LetTheFirstAllocationFailAsTheirHeaderShows)
{
    // @code 1
    EXPECT_TRUE(theFailures.HasFailed());
}
