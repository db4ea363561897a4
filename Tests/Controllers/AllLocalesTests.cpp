// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What formatters do where the platform has the data of all locales.

#include "LmDateFormatter.h"
#include "LmNumberFormatters.h"

#include "FormatterTestSupport.h"
#include "LmScopedReference.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kGreatest = std::numeric_limits<std::int64_t>::max();
const char* const kNoNumber = "This is not a number.";
const char* const kNoDate = "This is not a date.";

// A formatter of short English dates in a zone, with times of a style.
LmDateFormatter ShortDates(const char* theZone, CFDateFormatterStyle theTimeStyle)
{
    const TestLocale theEnglish("en_US");
    const LmScopedReference<CFTimeZoneRef> theTimeZone(
        CFTimeZoneCreateWithName(nullptr, TextValue(theZone).GetString(), true));
    return LmDateFormatter(kCFDateFormatterShortStyle, theTimeStyle, theEnglish, theTimeZone.Get());
}

} // namespace

TEST(AllLocales, NumbersSpeakTheLanguageOfTheLocale)
{
    const TestLocale theGerman("de_DE");
    const LmDecimalFormatter theDecimals(2, kLeast, kGreatest, theGerman);
    EXPECT_EQ(Formatted(theDecimals, LmValue(123456)), "1.234,56");
    EXPECT_EQ(Parsed(theDecimals, "1.234,56"), "SInt64 123456");
    EXPECT_EQ(Parsed(theDecimals, "1.5"), kNoNumber);
    EXPECT_EQ(Formatted(LmPercentFormatter(0, 0, 100, theGerman), LmValue(5)), "5\xC2\xA0%");
    EXPECT_EQ(Formatted(LmCurrencyFormatter(nullptr, 0, 100, theGerman), LmValue(500)),
              "5,00\xC2\xA0\xE2\x82\xAC");
    const TestLocale theHindi("hi_IN");
    EXPECT_EQ(Formatted(LmIntegerFormatter(0, 1, theHindi), LmValue(12345678)), "1,23,45,678");
    EXPECT_EQ(Parsed(LmIntegerFormatter(0, 99999999, theHindi), "1,23,45,678"), "SInt32 12345678");
    const TestLocale theFrench("fr_FR");
    EXPECT_EQ(Parsed(LmIntegerFormatter(0, 99999999, theFrench), "12 345"), "SInt32 12345");
    const TestLocale thePersian("fa_IR");
    EXPECT_EQ(Formatted(LmIntegerFormatter(0, 1, thePersian), LmValue(12)), "\xDB\xB1\xDB\xB2");
    EXPECT_EQ(Parsed(LmIntegerFormatter(0, 99, thePersian), "12"), "SInt32 12");
}

TEST(AllLocales, ADateIsTheFirstInstantOfItsDay)
{
    const struct
    {
        const char* theZone;
        const char* theText;
        long long theTime;
    } kRows[] = {
        {"America/Sao_Paulo", "11/4/2018", 562993200}, // its midnight does not exist
        {"Asia/Beirut", "3/31/2019", 575676000},       {"America/Havana", "3/10/2019", 573886800},
        {"America/Sao_Paulo", "2/18/2018", 540615600}, // the hour before it comes twice
        {"America/Havana", "11/3/2019", 594446400},    // its midnight comes twice
        {"Pacific/Apia", "12/31/2011", 346932000},     // the day before it does not exist
        {"Europe/Berlin", "10/27/2019", 593820000},
    };
    for (const auto& theRow : kRows) {
        const LmDateFormatter theFormatter = ShortDates(theRow.theZone, kCFDateFormatterNoStyle);
        EXPECT_EQ(Parsed(theFormatter, theRow.theText), Describe(LmValue(theRow.theTime))) << theRow.theZone;
        EXPECT_EQ(Formatted(theFormatter, LmValue(theRow.theTime)), theRow.theText) << theRow.theZone;
        EXPECT_NE(Formatted(theFormatter, LmValue(theRow.theTime - 1)), theRow.theText) << theRow.theZone;
    }
    EXPECT_EQ(Parsed(ShortDates("Pacific/Apia", kCFDateFormatterNoStyle), "12/30/2011"), kNoDate);
}

TEST(AllLocales, OfAnHourThatComesTwiceTheFirstIsMeant)
{
    const LmDateFormatter theFormatter = ShortDates("Europe/Berlin", kCFDateFormatterShortStyle);
    const long long kFirst = 593829000;
    EXPECT_EQ(Formatted(theFormatter, LmValue(kFirst)), "10/27/2019 2:30 AM");
    EXPECT_EQ(Formatted(theFormatter, LmValue(kFirst + 3600)), "10/27/2019 2:30 AM");
    EXPECT_EQ(Parsed(theFormatter, "10/27/2019 2:30 AM"), Describe(LmValue(kFirst)));
    EXPECT_EQ(Parsed(theFormatter, "10/27/2019 1:59 AM"), Describe(LmValue(kFirst - 1860)));
    EXPECT_EQ(Parsed(theFormatter, "10/27/2019 3:00 AM"), Describe(LmValue(kFirst + 5400)));
    const LmDateFormatter theNaming = ShortDates("Europe/Berlin", kCFDateFormatterLongStyle);
    for (const long long theTime : {kFirst, kFirst + 3600}) {
        EXPECT_EQ(ThereAndBack(theNaming, LmValue(theTime)).GetSInt64(), theTime)
            << Formatted(theNaming, LmValue(theTime));
    }
}

TEST(AllLocales, ATimeThatTheClocksJumpOverIsNone)
{
    const LmDateFormatter theFormatter = ShortDates("Europe/Berlin", kCFDateFormatterShortStyle);
    EXPECT_EQ(Parsed(theFormatter, "3/31/2019 1:59 AM"), Describe(LmValue(575686740LL)));
    EXPECT_EQ(Parsed(theFormatter, "3/31/2019 2:00 AM"), kNoDate);
    EXPECT_EQ(Parsed(theFormatter, "3/31/2019 2:59 AM"), kNoDate);
    EXPECT_EQ(Parsed(theFormatter, "3/31/2019 3:00 AM"), Describe(LmValue(575686800LL)));
}
