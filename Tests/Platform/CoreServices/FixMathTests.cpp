// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreServices/CoreServices.h>
#include <gtest/gtest.h>

TEST(FixMath, WholeNumbersGoThereAndBack)
{
    for (const SInt32 theNumber : {0, 1, -1, 32767, -32768}) {
        EXPECT_EQ(Long2Fix(theNumber), theNumber * 65536);
        EXPECT_EQ(Fix2Long(Long2Fix(theNumber)), theNumber);
    }
    EXPECT_EQ(Long2Fix(1), fixed1);
}

TEST(FixMath, WhatDoesNotFitStaysAtTheEnd)
{
    EXPECT_EQ(Long2Fix(32768), INT32_MAX);
    EXPECT_EQ(Long2Fix(-32769), INT32_MIN);
    EXPECT_EQ(X2Fix(1e300), INT32_MAX);
    EXPECT_EQ(X2Fix(-HUGE_VAL), INT32_MIN);
    EXPECT_EQ(X2Fix(NAN), 0);
}

TEST(FixMath, HalvesAreRoundedAwayFromZero)
{
    EXPECT_EQ(Fix2Long(fixed1 / 2), 1);
    EXPECT_EQ(Fix2Long(-fixed1 / 2), -1);
    EXPECT_EQ(Fix2Long(fixed1 / 2 - 1), 0);
    EXPECT_EQ(Fix2Long(INT32_MAX), 32768);
}

TEST(FixMath, ARatioIsAQuotient)
{
    EXPECT_EQ(FixRatio(1, 4), fixed1 / 4);
    EXPECT_EQ(FixRatio(-3, 2), -fixed1 * 3 / 2);
    EXPECT_EQ(FixRatio(-32768, -1), INT32_MAX);
    EXPECT_EQ(FixRatio(5, 0), INT32_MAX);
    EXPECT_EQ(FixRatio(-5, 0), INT32_MIN);
}

TEST(FixMath, DoublesGoThereAndBack)
{
    EXPECT_EQ(X2Fix(1.5), fixed1 + fixed1 / 2);
    EXPECT_EQ(Fix2X(X2Fix(-0.25)), -0.25);
}
