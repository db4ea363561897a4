// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmValue.h"
#include "StandardErrorCapture.h"

#include <gtest/gtest.h>

TEST(LmValue, ConvertsAndComparesAsItsHeaderShows)
{
    // @code 1
    EXPECT_EQ(theVolume.GetType(), kTypeSInt32);
    EXPECT_EQ(theFraction, 75.0);
    EXPECT_TRUE(isLoud);
    EXPECT_EQ(StandardErrorCapture::TakeLines(), Lines{"Quiet"});
}
