// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "FormatsTestSupport.h"

#include <cmath>
#include <cstdlib>
#include <limits>

TEST(CFTimeZone, HasATypeOfItsOwn)
{
    EXPECT_EQ(CFGetTypeID(Zone("GMT")), CFTimeZoneGetTypeID());
    EXPECT_EQ(TextOf(Owned(CFCopyTypeIDDescription(CFTimeZoneGetTypeID()))), "CFTimeZone");
    EXPECT_EQ(DescriptionOf(Zone("GMT")), "{name = GMT}");
}

TEST(CFTimeZone, IsEqualWhenItsNameIs)
{
    EXPECT_TRUE(CFEqual(Zone("GMT+0100"), Zone("GMT+01:00")));
    EXPECT_EQ(CFHash(Zone("GMT+0100")), CFHash(Zone("GMT+01:00")));
    EXPECT_FALSE(CFEqual(Zone("GMT"), Zone("UTC")));
}

TEST(CFTimeZone, ADistanceIsAZone)
{
    const struct
    {
        const char* theText;
        const char* theName;
        double theSeconds;
    } kRows[] = {
        {"GMT", "GMT", 0},
        {"UTC", "UTC", 0},
        {"GMT+0000", "GMT", 0},
        {"GMT+1", "GMT+0100", 3600},
        {"GMT-11", "GMT-1100", -39600},
        {"GMT+0130", "GMT+0130", 5400},
        {"GMT+130", "GMT+0130", 5400},
        {"GMT-01:30", "GMT-0130", -5400},
        {"GMT-1:30", "GMT-0130", -5400},
        {"GMT+1800", "GMT+1800", 64800},
    };
    for (const auto& theRow : kRows) {
        const auto theZone = Zone(theRow.theText);
        ASSERT_EQ(NameOf(theZone), theRow.theName) << theRow.theText;
        EXPECT_EQ(CFTimeZoneGetSecondsFromGMT(theZone, 0), theRow.theSeconds) << theRow.theText;
        EXPECT_FALSE(CFTimeZoneIsDaylightSavingTime(theZone, 0));
        EXPECT_EQ(TextOf(Owned(CFTimeZoneCopyAbbreviation(theZone, 0))), theRow.theName);
    }
}

TEST(CFTimeZone, WhatIsNoZoneGivesNone)
{
    for (const char* const theText :
         {"", "X", "GM", "GMT+", "GMT*1", "GMT+1801", "GMT+0160", "GMT+01:3", "GMT+:30", "GMT+12345",
          "GMT+1a", "GMT+1:2:3", "Europe/Nowhere", "\xC3\xA9"}) {
        EXPECT_EQ(NameOf(Zone(theText)), "(NULL)") << theText;
    }
}

TEST(CFTimeZone, IntervalsAreRoundedToMinutes)
{
    const auto theNameFor = [](double theInterval) {
        return NameOf(Owned(CFTimeZoneCreateWithTimeIntervalFromGMT(nullptr, theInterval)));
    };
    EXPECT_EQ(theNameFor(0), "GMT");
    EXPECT_EQ(theNameFor(29), "GMT");
    EXPECT_EQ(theNameFor(5431), "GMT+0131");
    EXPECT_EQ(theNameFor(-20700), "GMT-0545");
    EXPECT_EQ(theNameFor(64800), "GMT+1800");
    EXPECT_EQ(theNameFor(64801), "(NULL)");
    EXPECT_EQ(theNameFor(-64801), "(NULL)");
    EXPECT_EQ(theNameFor(std::nan("")), "(NULL)");
    EXPECT_EQ(theNameFor(std::numeric_limits<double>::infinity()), "(NULL)");
}

TEST(CFTimeZone, KnownNamesMakeZones)
{
    const Owned<CFArrayRef> theNames(CFTimeZoneCopyKnownNames());
    EXPECT_GE(CFArrayGetCount(theNames), 2);
    for (CFIndex theIndex = 0; theIndex < CFArrayGetCount(theNames); ++theIndex) {
        const auto theName = static_cast<CFStringRef>(CFArrayGetValueAtIndex(theNames, theIndex));
        EXPECT_EQ(NameOf(Owned(CFTimeZoneCreateWithName(nullptr, theName, false))), TextOf(theName));
        if (theIndex > 0) {
            EXPECT_EQ(CompareStrings(CFArrayGetValueAtIndex(theNames, theIndex - 1), theName, nullptr),
                      kCFCompareLessThan);
        }
    }
}

TEST(CFTimeZone, TheDefaultIsTheSystemsUntilAnotherIsSet)
{
    EXPECT_TRUE(CFEqual(Owned(CFTimeZoneCopyDefault()), Owned(CFTimeZoneCopySystem())));
    setenv("TZ", "Asia/Tokyo", 1);
    CFTimeZoneResetSystem();
    EXPECT_TRUE(CFEqual(Owned(CFTimeZoneCopyDefault()), Owned(CFTimeZoneCopySystem())));
    unsetenv("TZ");
    CFTimeZoneResetSystem();
    const Owned<CFTimeZoneRef> theSystem(CFTimeZoneCopySystem());
    CFTimeZoneSetDefault(Zone("GMT+0330"));
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCopyDefault())), "GMT+0330");
    EXPECT_TRUE(CFEqual(Owned(CFTimeZoneCopySystem()), theSystem));
    CFTimeZoneSetDefault(nullptr);
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCopyDefault())), "GMT+0330");
    CFTimeZoneSetDefault(theSystem);
}

TEST(CFTimeZone, ADateIsWhatTheClocksOfAPlaceShow)
{
    const auto theZone = Zone("GMT-0930");
    EXPECT_EQ(FieldsAt(0, theZone), Fields(2000, 12, 31, 14, 30));
    EXPECT_EQ(TimeOf(2000, 12, 31, 14, 30, theZone), 0);
    EXPECT_EQ(CFAbsoluteTimeGetDayOfWeek(0, theZone), 7);
    EXPECT_EQ(CFAbsoluteTimeGetDayOfYear(0, theZone), 366);
    EXPECT_EQ(CFAbsoluteTimeGetWeekOfYear(0, theZone), 52);
}
