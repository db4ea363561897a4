// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What the data of all locales and time zones give: a host that is built with ICU.

#include "FormatsTestSupport.h"

#include <cmath>
#include <cstdlib>

TEST(AllLocales, TellHowOthersWrite)
{
    EXPECT_EQ(ValueOf("de_DE", kCFLocaleDecimalSeparator), ",");
    EXPECT_EQ(ValueOf("de_DE", kCFLocaleGroupingSeparator), ".");
    EXPECT_EQ(ValueOf("de_DE", kCFLocaleCurrencySymbol), "\xE2\x82\xAC");
    EXPECT_EQ(ValueOf("de_CH", kCFLocaleCurrencyCode), "CHF");
    EXPECT_EQ(ValueOf("ja_JP", kCFLocaleMeasurementSystem), "Metric");
}

TEST(AllLocales, WriteNumbersAsOthersDo)
{
    EXPECT_EQ(Written(NumberFormatter(kCFNumberFormatterDecimalStyle, "de_DE"), -1234.5), "-1.234,5");
    EXPECT_EQ(Written(NumberFormatter(kCFNumberFormatterDecimalStyle, "fr_FR"), 1234.5), "1\xE2\x80\xAF"
                                                                                         "234,5");
    EXPECT_EQ(Written(NumberFormatter(kCFNumberFormatterDecimalStyle, "de_CH"), 1234.5), "1\xE2\x80\x99"
                                                                                         "234.5");
    EXPECT_EQ(Written(NumberFormatter(kCFNumberFormatterDecimalStyle, "hi_IN"), 12345678), "1,23,45,678");
    EXPECT_EQ(Written(NumberFormatter(kCFNumberFormatterCurrencyStyle, "de_DE"), 5),
              "5,00\xC2\xA0\xE2\x82\xAC");
    EXPECT_EQ(Written(NumberFormatter(kCFNumberFormatterCurrencyStyle, "ja_JP"), 5), "\xEF\xBF\xA5"
                                                                                     "5");
    EXPECT_EQ(Written(NumberFormatter(kCFNumberFormatterNoStyle, "de_DE"), 1234.5), "1234");
    const auto theWords = NumberFormatter(kCFNumberFormatterSpellOutStyle);
    EXPECT_EQ(Written(theWords, 42), "forty-two");
    EXPECT_EQ(Read(theWords, "forty-two"), "42:9");
}

TEST(AllLocales, WriteDatesAsOthersDo)
{
    const auto theText = [](CFDateFormatterStyle theDate, CFDateFormatterStyle theTime, const char* theLocale,
                            const char* theZone = "GMT") {
        return Written(DateFormatter(theDate, theTime, theLocale, theZone), kLanding);
    };
    EXPECT_EQ(theText(kCFDateFormatterShortStyle, kCFDateFormatterNoStyle, "de_DE"), "20.07.69");
    EXPECT_EQ(theText(kCFDateFormatterFullStyle, kCFDateFormatterNoStyle, "de_DE"), "Sonntag, 20. Juli 1969");
    EXPECT_EQ(theText(kCFDateFormatterNoStyle, kCFDateFormatterShortStyle, "de_DE", "Europe/Berlin"),
              "21:17");
    EXPECT_EQ(theText(kCFDateFormatterShortStyle, kCFDateFormatterNoStyle, "fr_FR"), "20/07/1969");
    EXPECT_EQ(theText(kCFDateFormatterNoStyle, kCFDateFormatterShortStyle, "en_AU"), "8:17 pm");
    // The Gregorian calendar everywhere.
    EXPECT_EQ(theText(kCFDateFormatterShortStyle, kCFDateFormatterNoStyle, "th_TH").substr(0, 5), "20/7/");
    const auto thePacific =
        DateFormatter(kCFDateFormatterNoStyle, kCFDateFormatterFullStyle, "en_US", "America/Los_Angeles");
    EXPECT_EQ(Written(thePacific, 143e6), "7:13:20 PM Pacific Daylight Time");
}

TEST(AllZones, APlaceHasWinterAndSummerTime)
{
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

TEST(AllZones, AnAbbreviationStandsForAPlaceWhenItMay)
{
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCreateWithName(nullptr, CFSTR("PST"), true))), "America/Los_Angeles");
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCreateWithName(nullptr, CFSTR("CEST"), true))), "Europe/Berlin");
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCreateWithName(nullptr, CFSTR("GMT"), true))), "GMT");
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCreateWithName(nullptr, CFSTR("XYZ"), true))), "(NULL)");
}

TEST(AllZones, TheSystemsIsThatOfTheEnvironment)
{
    setenv("TZ", "Asia/Tokyo", 1);
    CFTimeZoneResetSystem();
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCopySystem())), "Asia/Tokyo");
    setenv("TZ", "Europe/Berlin", 1);
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCopySystem())), "Asia/Tokyo");
    CFTimeZoneResetSystem();
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCopySystem())), "Europe/Berlin");
    unsetenv("TZ");
    CFTimeZoneResetSystem();
}

TEST(AllZones, AnHourThatComesTwiceIsTheFirst)
{
    // East and west of Greenwich alike.
    const auto theBerlin = Zone("Europe/Berlin");
    EXPECT_EQ(TimeOf(2005, 10, 30, 2, 30, theBerlin), TimeOf(2005, 10, 30, 0, 30));
    EXPECT_EQ(TimeOf(2005, 10, 30, 3, 30, theBerlin), TimeOf(2005, 10, 30, 2, 30));
    const auto theNewYork = Zone("America/New_York");
    EXPECT_EQ(TimeOf(2005, 10, 30, 1, 30, theNewYork), TimeOf(2005, 10, 30, 5, 30));
    EXPECT_EQ(TimeOf(2005, 10, 30, 2, 30, theNewYork), TimeOf(2005, 10, 30, 7, 30));
}

TEST(AllZones, AnHourThatIsLeftOutStandsForTheNext)
{
    const auto theBerlin = Zone("Europe/Berlin");
    EXPECT_EQ(TimeOf(2005, 3, 27, 2, 30, theBerlin), TimeOf(2005, 3, 27, 1, 30));
    EXPECT_EQ(FieldsAt(TimeOf(2005, 3, 27, 2, 30, theBerlin), theBerlin), Fields(2005, 3, 27, 3, 30));
    const auto theNewYork = Zone("America/New_York");
    EXPECT_EQ(FieldsAt(TimeOf(2005, 4, 3, 2, 30, theNewYork), theNewYork), Fields(2005, 4, 3, 3, 30));
}

TEST(AllZones, EachHourOfAYearGoesThereAndBack)
{
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

TEST(AllZones, MonthsKeepTheHourAndDaysAreOf24)
{
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
