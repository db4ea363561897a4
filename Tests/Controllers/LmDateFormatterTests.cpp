// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmDateFormatter.h"

#include "FormatterTestSupport.h"
#include "LmScopedReference.h"

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace {

const char* const kNoDate = "This is not a date.";
const char* const kNoTime = "This is not a time.";
constexpr long long kDay = 86400;

// Greenwich mean time.
CFTimeZoneRef GMT()
{
    static const CFTimeZoneRef kZone = CFTimeZoneCreateWithTimeIntervalFromGMT(nullptr, 0);
    return kZone;
}

} // namespace

TEST(LmDateFormatter, WritesAndReadsDates)
{
    const TestLocale theEnglish("en_US");
    const LmDateFormatter theFormatter(kCFDateFormatterShortStyle, kCFDateFormatterNoStyle, theEnglish,
                                       GMT());
    EXPECT_EQ(Formatted(theFormatter, LmValue(0)), "1/1/2001");
    EXPECT_EQ(Formatted(theFormatter, LmValue(-1LL)), "12/31/2000");
    EXPECT_EQ(Parsed(theFormatter, "1/2/2001"), "SInt64 86400");
    EXPECT_EQ(Parsed(theFormatter, "1/2/01"), "SInt64 86400");
    EXPECT_EQ(Parsed(theFormatter, " 1/2/2001 "), "SInt64 86400");
    const LmDateFormatter theFullOne(kCFDateFormatterFullStyle, kCFDateFormatterMediumStyle, theEnglish,
                                     GMT());
    EXPECT_EQ(Formatted(theFullOne, LmValue(61)), "Monday, January 1, 2001 12:01:01 AM");
    EXPECT_EQ(Parsed(theFullOne, "Monday, January 1, 2001 12:01:01 AM"), "SInt64 61");
}

TEST(LmDateFormatter, GuessesNothing)
{
    const TestLocale theEnglish("en_US");
    const LmDateFormatter theFormatter(kCFDateFormatterShortStyle, kCFDateFormatterNoStyle, theEnglish,
                                       GMT());
    for (const char* const theText :
         {"", " ", "x", "1", "1/2", "2/29/2001", "13/1/2001", "0/1/2001", "1/32/2001", "1/2/2001 x",
          "1/2/999", "1/2/10000", "1/2/2001/3", "soon"}) {
        EXPECT_EQ(Parsed(theFormatter, theText), kNoDate) << theText;
    }
}

TEST(LmDateFormatter, ATimeIsTheSecondsSinceMidnight)
{
    const TestLocale theEnglish("en_US");
    const LmDateFormatter theFormatter(kCFDateFormatterNoStyle, kCFDateFormatterShortStyle, theEnglish);
    EXPECT_EQ(Formatted(theFormatter, LmValue(75420)), "8:57 PM");
    EXPECT_EQ(Formatted(theFormatter, LmValue(75459)), "8:57 PM");
    EXPECT_EQ(Parsed(theFormatter, "8:57 PM"), "SInt64 75420");
    EXPECT_EQ(Parsed(theFormatter, "12:00 AM"), "SInt64 0");
    EXPECT_EQ(Parsed(theFormatter, "13:00 PM"), kNoTime);
    EXPECT_EQ(Parsed(theFormatter, ""), kNoTime);
    for (const long long theTime : {-1LL, kDay}) {
        EXPECT_EQ(Formatted(theFormatter, LmValue(theTime)), "-") << theTime;
    }
    for (long long theTime = 0; theTime < kDay; theTime += 60) {
        ASSERT_EQ(ThereAndBack(theFormatter, LmValue(theTime)).GetSInt64(), theTime);
    }
}

TEST(LmDateFormatter, YearsHaveFourDigits)
{
    const TestLocale theEnglish("en_US");
    const LmDateFormatter theFormatter(kCFDateFormatterShortStyle, kCFDateFormatterNoStyle, theEnglish,
                                       GMT());
    EXPECT_EQ(Formatted(theFormatter, LmValue(-31588531200LL)), "1/1/1000");
    EXPECT_EQ(Formatted(theFormatter, LmValue(-31588531201LL)), "-");
    EXPECT_EQ(Formatted(theFormatter, LmValue(252423993599LL)), "12/31/9999");
    EXPECT_EQ(Formatted(theFormatter, LmValue(252423993600LL)), "-");
    EXPECT_EQ(Formatted(theFormatter, LmValue()), "-");
    EXPECT_EQ(Formatted(theFormatter, TextValue("1/1/2001")), "-");
}

TEST(LmDateFormatter, TwoDigitsAreAYearFrom80YearsAgoTo20YearsAhead)
{
    const TestLocale theEnglish("en_US");
    const LmDateFormatter theFormatter(kCFDateFormatterShortStyle, kCFDateFormatterNoStyle, theEnglish,
                                       GMT());
    const int theYear = CFAbsoluteTimeGetGregorianDate(CFAbsoluteTimeGetCurrent(), GMT()).year;
    for (const int theOne : {theYear - 79, theYear, theYear + 19}) {
        const std::string theWhole = std::to_string(theOne);
        const std::string theShort = theWhole.substr(theWhole.size() - 2);
        EXPECT_EQ(
            Formatted(theFormatter, theFormatter.Parse(TextValue("7/1/" + theShort).GetString()).theValue),
            "7/1/" + theWhole);
    }
}

TEST(LmDateFormatter, NoZoneIsTheDefaultOneOfWhenItWasMade)
{
    const TestLocale theEnglish("en_US");
    const LmScopedReference<CFTimeZoneRef> theOldOne(CFTimeZoneCopyDefault());
    const LmScopedReference<CFTimeZoneRef> theNewOne(CFTimeZoneCreateWithTimeIntervalFromGMT(nullptr, -7200));
    CFTimeZoneSetDefault(theNewOne.Get());
    const LmDateFormatter theDates(kCFDateFormatterShortStyle, kCFDateFormatterNoStyle, theEnglish);
    const LmDateFormatter theMoments(kCFDateFormatterShortStyle, kCFDateFormatterShortStyle, theEnglish);
    CFTimeZoneSetDefault(theOldOne.Get());
    EXPECT_EQ(Parsed(theDates, "1/1/2001"), "SInt64 7200");
    EXPECT_EQ(Formatted(theDates, LmValue(7199)), "12/31/2000");
    EXPECT_EQ(Parsed(theMoments, "1/1/2001 12:30 AM"), "SInt64 9000");
    EXPECT_EQ(Formatted(theMoments, LmValue(9000)), "1/1/2001 12:30 AM");
}

TEST(LmDateFormatter, WithoutAStyleThereIsNothing)
{
    const LmDateFormatter theFormatter(kCFDateFormatterNoStyle);
    EXPECT_EQ(Formatted(theFormatter, LmValue(0)), "-");
    EXPECT_EQ(Parsed(theFormatter, "1/1/2001"), kNoTime);
    const LmDateFormatter theOdd(99);
    EXPECT_EQ(Formatted(theOdd, LmValue(0)), "-");
    EXPECT_EQ(Parsed(theOdd, "1/1/2001"), kNoDate);
}

TEST(LmDateFormatter, ReadsWhatItWritesInEachLanguage)
{
    std::mt19937 theRandom(20040429);
    for (const char* const theName : kTestLocales) {
        const TestLocale theLocale(theName);
        const LmDateFormatter theTimes(kCFDateFormatterNoStyle, kCFDateFormatterShortStyle, theLocale);
        for (long long theTime = 0; theTime < kDay; theTime += 1800) {
            ASSERT_EQ(Describe(ThereAndBack(theTimes, LmValue(theTime))), Describe(LmValue(theTime)))
                << theName << " " << Formatted(theTimes, LmValue(theTime));
        }
        for (const CFDateFormatterStyle theStyle :
             {kCFDateFormatterShortStyle, kCFDateFormatterMediumStyle, kCFDateFormatterLongStyle}) {
            const LmDateFormatter theDates(theStyle, kCFDateFormatterNoStyle, theLocale, GMT());
            const LmDateFormatter theMoments(theStyle, kCFDateFormatterMediumStyle, theLocale, GMT());
            for (int theCount = 0; theCount < 25; ++theCount) {
                const long long theDays = static_cast<long long>(theRandom() % 3287181) - 365607;
                const LmValue theDate(theDays * kDay);
                ASSERT_EQ(Describe(ThereAndBack(theDates, theDate)), Describe(theDate))
                    << theName << " " << Formatted(theDates, theDate);
                const LmValue theMoment(theDays * kDay + static_cast<long long>(theRandom() % 86400));
                ASSERT_EQ(Describe(ThereAndBack(theMoments, theMoment)), Describe(theMoment))
                    << theName << " " << Formatted(theMoments, theMoment);
            }
        }
    }
}

TEST(LmDateFormatter, ReadsAnyTextOrRefusesIt)
{
    std::mt19937 theRandom(20040430);
    const TestLocale theEnglish("en_US");
    const LmDateFormatter theFormatter(kCFDateFormatterShortStyle, kCFDateFormatterShortStyle, theEnglish,
                                       GMT());
    const std::string kAlphabet = "0123456789/: APM-+,";
    for (int theCount = 0; theCount < 1000; ++theCount) {
        std::string theText = "1/1/2001 1:00 PM";
        for (int theChange = 0; theChange < 3; ++theChange) {
            theText[theRandom() % theText.size()] = kAlphabet[theRandom() % kAlphabet.size()];
        }
        const LmReading theReading = theFormatter.Parse(TextValue(theText).GetString());
        EXPECT_NE(theReading.IsAccepted(), theReading.theProblem.IsString());
        if (theReading.IsAccepted()) {
            EXPECT_EQ(ThereAndBack(theFormatter, theReading.theValue).GetSInt64(),
                      theReading.theValue.GetSInt64())
                << theText;
        }
    }
}
