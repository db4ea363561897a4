// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFTestSupport.h"

#include <ctime>

TEST(CFDate, TimesAreKeptWithTheirFractions)
{
    const Owned<CFDateRef> theDate(CFDateCreate(nullptr, 123.456));
    EXPECT_EQ(CFDateGetAbsoluteTime(theDate), 123.456);
    EXPECT_EQ(CFGetTypeID(theDate), CFDateGetTypeID());
}

TEST(CFDate, DatesCompareByTheirTime)
{
    const Owned<CFDateRef> theEarly(CFDateCreate(nullptr, -1.5));
    const Owned<CFDateRef> theLate(CFDateCreate(nullptr, 2));
    EXPECT_EQ(CFDateCompare(theEarly, theLate, nullptr), kCFCompareLessThan);
    EXPECT_EQ(CFDateCompare(theLate, theEarly, nullptr), kCFCompareGreaterThan);
    EXPECT_EQ(CFDateCompare(theLate, theLate, nullptr), kCFCompareEqualTo);
    EXPECT_EQ(CFDateGetTimeIntervalSinceDate(theLate, theEarly), 3.5);
    EXPECT_FALSE(CFEqual(theEarly, theLate));
    EXPECT_TRUE(CFEqual(theLate, Owned(CFDateCreate(nullptr, 2))));
}

TEST(CFDate, TheEpochIsTheStartOf2001)
{
    EXPECT_EQ(kCFAbsoluteTimeIntervalSince1970, 978307200.0);
    EXPECT_EQ(kCFAbsoluteTimeIntervalSince1904, 3061152000.0);
    const auto theBefore = static_cast<double>(std::time(nullptr));
    const double theNow = CFAbsoluteTimeGetCurrent() + kCFAbsoluteTimeIntervalSince1970;
    EXPECT_GE(theNow, theBefore - 1);
    EXPECT_LE(theNow, static_cast<double>(std::time(nullptr)) + 2);
}
