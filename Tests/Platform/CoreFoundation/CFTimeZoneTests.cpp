// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "FormatsTestSupport.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <tuple>

namespace {

// Ends a test that is about places where the host knows distances from Greenwich alone.
#define NEED_DATA_OF_ZONES()                                                                                 \
    if (Zone("Europe/Berlin") == nullptr) {                                                                  \
        GTEST_SKIP() << "needs the data of time zones, which this host does not have";                       \
    }

std::string NameOf(CFTimeZoneRef theZone)
{
    return theZone == nullptr ? "(NULL)" : TextOf(CFTimeZoneGetName(theZone));
}

CFAbsoluteTime TimeOf(SInt32 theYear, int theMonth, int theDay, int theHour = 0, int theMinute = 0,
                      CFTimeZoneRef theZone = nullptr)
{
    const CFGregorianDate theDate = {theYear,
                                     static_cast<SInt8>(theMonth),
                                     static_cast<SInt8>(theDay),
                                     static_cast<SInt8>(theHour),
                                     static_cast<SInt8>(theMinute),
                                     0};
    return CFGregorianDateGetAbsoluteTime(theDate, theZone);
}

using Fields = std::tuple<SInt32, int, int, int, int>;

Fields FieldsAt(CFAbsoluteTime theTime, CFTimeZoneRef theZone)
{
    const CFGregorianDate theDate = CFAbsoluteTimeGetGregorianDate(theTime, theZone);
    return {theDate.year, theDate.month, theDate.day, theDate.hour, theDate.minute};
}

} // namespace

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

TEST(CFTimeZone, APlaceHasWinterAndSummerTime)
{
    NEED_DATA_OF_ZONES();
    const auto theZone = Zone("Europe/Berlin");
    EXPECT_EQ(CFTimeZoneGetSecondsFromGMT(theZone, TimeOf(2005, 1, 15)), 3600);
    EXPECT_EQ(CFTimeZoneGetSecondsFromGMT(theZone, TimeOf(2005, 7, 15)), 7200);
    EXPECT_FALSE(CFTimeZoneIsDaylightSavingTime(theZone, TimeOf(2005, 1, 15)));
    EXPECT_TRUE(CFTimeZoneIsDaylightSavingTime(theZone, TimeOf(2005, 7, 15)));
    EXPECT_EQ(CFTimeZoneGetSecondsFromGMT(theZone, std::nan("")), 3600);
    EXPECT_EQ(CFTimeZoneGetSecondsFromGMT(theZone, 1e300), CFTimeZoneGetSecondsFromGMT(theZone, 1e200));
    const auto theOther = Zone("America/Los_Angeles");
    EXPECT_EQ(TextOf(Owned(CFTimeZoneCopyAbbreviation(theOther, TimeOf(2005, 1, 15)))), "PST");
    EXPECT_EQ(TextOf(Owned(CFTimeZoneCopyAbbreviation(theOther, TimeOf(2005, 7, 15)))), "PDT");
    EXPECT_EQ(TextOf(Owned(CFTimeZoneCopyAbbreviation(theZone, TimeOf(2005, 7, 15)))), "GMT+2");
}

TEST(CFTimeZone, AnAbbreviationStandsForAPlaceWhenItMay)
{
    NEED_DATA_OF_ZONES();
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCreateWithName(nullptr, CFSTR("PST"), true))), "America/Los_Angeles");
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCreateWithName(nullptr, CFSTR("CEST"), true))), "Europe/Berlin");
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCreateWithName(nullptr, CFSTR("GMT"), true))), "GMT");
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCreateWithName(nullptr, CFSTR("XYZ"), true))), "(NULL)");
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

TEST(CFTimeZone, TheSystemsIsThatOfTheEnvironment)
{
    NEED_DATA_OF_ZONES();
    setenv("TZ", "Asia/Tokyo", 1);
    CFTimeZoneResetSystem();
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCopySystem())), "Asia/Tokyo");
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCopyDefault())), "Asia/Tokyo");
    setenv("TZ", "Europe/Berlin", 1);
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCopySystem())), "Asia/Tokyo");
    CFTimeZoneResetSystem();
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCopySystem())), "Europe/Berlin");
    unsetenv("TZ");
    CFTimeZoneResetSystem();
}

TEST(CFTimeZone, TheDefaultIsTheSystemsUntilAnotherIsSet)
{
    const Owned<CFTimeZoneRef> theSystem(CFTimeZoneCopySystem());
    EXPECT_TRUE(CFEqual(Owned(CFTimeZoneCopyDefault()), theSystem));
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

TEST(CFTimeZone, AnHourThatComesTwiceIsTheFirst)
{
    NEED_DATA_OF_ZONES();
    // East and west of Greenwich alike.
    const auto theBerlin = Zone("Europe/Berlin");
    EXPECT_EQ(TimeOf(2005, 10, 30, 2, 30, theBerlin), TimeOf(2005, 10, 30, 0, 30));
    EXPECT_EQ(TimeOf(2005, 10, 30, 3, 30, theBerlin), TimeOf(2005, 10, 30, 2, 30));
    const auto theNewYork = Zone("America/New_York");
    EXPECT_EQ(TimeOf(2005, 10, 30, 1, 30, theNewYork), TimeOf(2005, 10, 30, 5, 30));
    EXPECT_EQ(TimeOf(2005, 10, 30, 2, 30, theNewYork), TimeOf(2005, 10, 30, 7, 30));
}

TEST(CFTimeZone, AnHourThatIsLeftOutStandsForTheNext)
{
    NEED_DATA_OF_ZONES();
    const auto theBerlin = Zone("Europe/Berlin");
    EXPECT_EQ(TimeOf(2005, 3, 27, 2, 30, theBerlin), TimeOf(2005, 3, 27, 1, 30));
    EXPECT_EQ(FieldsAt(TimeOf(2005, 3, 27, 2, 30, theBerlin), theBerlin), Fields(2005, 3, 27, 3, 30));
    const auto theNewYork = Zone("America/New_York");
    EXPECT_EQ(FieldsAt(TimeOf(2005, 4, 3, 2, 30, theNewYork), theNewYork), Fields(2005, 4, 3, 3, 30));
}

TEST(CFTimeZone, EachHourOfAYearGoesThereAndBack)
{
    NEED_DATA_OF_ZONES();
    for (const char* const theName :
         {"Europe/Berlin", "America/New_York", "Australia/Lord_Howe", "Asia/Kolkata"}) {
        const auto theZone = Zone(theName);
        int theTwice = 0;
        for (double theTime = TimeOf(2005, 1, 1); theTime < TimeOf(2006, 1, 1); theTime += 1800) {
            const double theBack =
                CFGregorianDateGetAbsoluteTime(CFAbsoluteTimeGetGregorianDate(theTime, theZone), theZone);
            // Only the second of an hour that comes twice leads to another moment.
            theTwice += theBack != theTime ? 1 : 0;
            ASSERT_LE(theTime - theBack, 3600) << theName;
            ASSERT_GE(theTime - theBack, 0) << theName;
        }
        EXPECT_LE(theTwice, 2) << theName;
    }
}

TEST(CFTimeZone, MonthsKeepTheHourAndDaysAreOf24)
{
    NEED_DATA_OF_ZONES();
    const auto theZone = Zone("Europe/Berlin");
    const double theStart = TimeOf(2005, 3, 1, 12, 0, theZone);
    const double theMonthLater = CFAbsoluteTimeAddGregorianUnits(theStart, theZone, {0, 1, 0, 0, 0, 0});
    EXPECT_EQ(FieldsAt(theMonthLater, theZone), Fields(2005, 4, 1, 12, 0));
    EXPECT_EQ(theMonthLater - theStart, 31 * 86400.0 - 3600);
    const double theDaysLater = CFAbsoluteTimeAddGregorianUnits(theStart, theZone, {0, 0, 31, 0, 0, 0});
    EXPECT_EQ(FieldsAt(theDaysLater, theZone), Fields(2005, 4, 1, 13, 0));
    const CFGregorianUnits theUnits =
        CFAbsoluteTimeGetDifferenceAsGregorianUnits(theMonthLater, theStart, theZone, kCFGregorianAllUnits);
    EXPECT_EQ(theUnits.months, 1);
    EXPECT_EQ(theUnits.hours, 0);
}
