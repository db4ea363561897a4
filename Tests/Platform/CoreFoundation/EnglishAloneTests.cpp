// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What there is where the host is built without ICU: every locale is written as English of the United States,
// and zones are distances from Greenwich. AllLocalesTests.cpp makes the same calls where it has ICU.

#include "FormatsTestSupport.h"

#include <cstdlib>
#include <vector>

namespace {

std::vector<std::string> TextsOf(CFArrayRef theArray)
{
    std::vector<std::string> theTexts;
    for (CFIndex theIndex = 0; theIndex < CFArrayGetCount(theArray); ++theIndex) {
        theTexts.push_back(TextOf(static_cast<CFStringRef>(CFArrayGetValueAtIndex(theArray, theIndex))));
    }
    return theTexts;
}

std::string WrittenWith(const std::string& theFormat, const std::string& theLocale)
{
    const auto theFormatter =
        DateFormatter(kCFDateFormatterShortStyle, kCFDateFormatterNoStyle, theLocale, "GMT");
    CFDateFormatterSetFormat(theFormatter, String(theFormat));
    return Written(theFormatter, kLanding);
}

} // namespace

TEST(EnglishAlone, IsAllThatIsKnown)
{
    const Owned<CFArrayRef> theKnown(CFLocaleCopyAvailableLocaleIdentifiers());
    EXPECT_EQ(TextsOf(theKnown), (std::vector<std::string>{"en", "en_US"}));
}

TEST(EnglishAlone, IsWhatALocaleTellsBesideItsIdentifier)
{
    EXPECT_EQ(ValueOf("de_DE", kCFLocaleLanguageCode), "de");
    EXPECT_EQ(ValueOf("de_DE", kCFLocaleCountryCode), "DE");
    EXPECT_EQ(ValueOf("de_DE", kCFLocaleDecimalSeparator), ".");
    EXPECT_EQ(ValueOf("de_DE", kCFLocaleGroupingSeparator), ",");
    EXPECT_EQ(ValueOf("de_DE", kCFLocaleCurrencySymbol), "(NULL)");
    EXPECT_EQ(ValueOf("de_CH", kCFLocaleCurrencyCode), "(NULL)");
    EXPECT_EQ(ValueOf("ja_JP", kCFLocaleMeasurementSystem), "Metric");
}

TEST(EnglishAlone, IsWhatNumbersAreWrittenIn)
{
    EXPECT_EQ(Written(NumberFormatter(kCFNumberFormatterDecimalStyle, "de_DE"), -1234.5), "-1,234.5");
    EXPECT_EQ(Written(NumberFormatter(kCFNumberFormatterDecimalStyle, "fr_FR"), 1234.5), "1,234.5");
    EXPECT_EQ(Written(NumberFormatter(kCFNumberFormatterDecimalStyle, "de_CH"), 1234.5), "1,234.5");
    EXPECT_EQ(Written(NumberFormatter(kCFNumberFormatterDecimalStyle, "hi_IN"), 12345678), "12,345,678");
    EXPECT_EQ(Written(NumberFormatter(kCFNumberFormatterCurrencyStyle, "de_DE"), 5), "$5.00");
    EXPECT_EQ(Written(NumberFormatter(kCFNumberFormatterCurrencyStyle, "ja_JP"), 5), "$5.00");
    EXPECT_EQ(Written(NumberFormatter(kCFNumberFormatterNoStyle, "de_DE"), 1234.5), "1234");
    EXPECT_EQ(Read(NumberFormatter(kCFNumberFormatterDecimalStyle, "de_DE"), "1,234.5"), "1234.5:7");
}

TEST(EnglishAlone, HasNoNumbersInWords)
{
    EXPECT_EQ(CFNumberFormatterCreate(nullptr, Locale("en_US"), kCFNumberFormatterSpellOutStyle), nullptr);
    EXPECT_EQ(CFNumberFormatterCreate(nullptr, nullptr, kCFNumberFormatterSpellOutStyle), nullptr);
}

TEST(EnglishAlone, KnowsSevenCurrencies)
{
    SInt32 theDigits = -1;
    for (const char* const theCode : {"AUD", "CAD", "CHF", "EUR", "GBP", "USD"}) {
        EXPECT_TRUE(CFNumberFormatterGetDecimalInfoForCurrencyCode(String(theCode), &theDigits, nullptr));
        EXPECT_EQ(theDigits, 2) << theCode;
    }
    EXPECT_TRUE(CFNumberFormatterGetDecimalInfoForCurrencyCode(CFSTR("JPY"), &theDigits, nullptr));
    EXPECT_EQ(theDigits, 0);
    EXPECT_FALSE(CFNumberFormatterGetDecimalInfoForCurrencyCode(CFSTR("SEK"), &theDigits, nullptr));
}

TEST(EnglishAlone, WritesAndReadsTheSignsOfItsCurrencies)
{
    const char* const kAmounts[][2] = {
        {"AUD", "A$5.00"},     {"CAD", "CA$5.00"}, {"EUR", "\u20AC5.00"}, {"GBP", "\u00A35.00"},
        {"JPY", "\u00A55.00"}, {"USD", "$5.00"},   {"SEK", "SEK5.00"},
    };
    for (const auto& [theCode, theAmount] : kAmounts) {
        const auto theFormatter = NumberFormatter(kCFNumberFormatterCurrencyStyle, "en_US");
        CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterCurrencyCode, String(theCode));
        EXPECT_EQ(Written(theFormatter, 5), theAmount);
        double theNumber = 0;
        EXPECT_TRUE(CFNumberFormatterGetValueFromString(theFormatter, String(theAmount), nullptr,
                                                        kCFNumberDoubleType, &theNumber))
            << theCode;
        EXPECT_EQ(theNumber, 5);
    }
}

TEST(EnglishAlone, IsWhatDatesAreWrittenIn)
{
    const auto theText = [](CFDateFormatterStyle theDate, CFDateFormatterStyle theTime, const char* theLocale,
                            const char* theZone = "GMT") {
        return Written(DateFormatter(theDate, theTime, theLocale, theZone), kLanding);
    };
    EXPECT_EQ(theText(kCFDateFormatterShortStyle, kCFDateFormatterNoStyle, "de_DE"), "7/20/69");
    EXPECT_EQ(theText(kCFDateFormatterFullStyle, kCFDateFormatterNoStyle, "de_DE"), "Sunday, July 20, 1969");
    EXPECT_EQ(theText(kCFDateFormatterNoStyle, kCFDateFormatterShortStyle, "de_DE", "GMT+0100"), "9:17 PM");
    EXPECT_EQ(theText(kCFDateFormatterShortStyle, kCFDateFormatterShortStyle, "th_TH"), "7/20/69 8:17 PM");
    EXPECT_EQ(theText(kCFDateFormatterNoStyle, kCFDateFormatterFullStyle, "en_US", "GMT-0700"),
              "1:17:40 PM GMT-07:00");
}

TEST(EnglishAlone, LeavesOutWeeksAndQuarters)
{
    EXPECT_EQ(WrittenWith("d.M.y", "de_DE"), "20.7.1969");
    EXPECT_EQ(WrittenWith("'<'wWQq'>'", "en_US"), "<>");
}

TEST(FixedZones, AreAllThatAreKnown)
{
    const Owned<CFArrayRef> theNames(CFTimeZoneCopyKnownNames());
    EXPECT_EQ(TextsOf(theNames), (std::vector<std::string>{"GMT", "UTC"}));
    EXPECT_EQ(NameOf(Zone("Europe/Berlin")), "(NULL)");
    EXPECT_EQ(NameOf(Zone("America/Los_Angeles")), "(NULL)");
}

TEST(FixedZones, HaveNoAbbreviationsForPlaces)
{
    for (const char* const theText : {"PST", "CEST", "XYZ"}) {
        EXPECT_EQ(NameOf(Owned(CFTimeZoneCreateWithName(nullptr, String(theText), true))), "(NULL)")
            << theText;
    }
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCreateWithName(nullptr, CFSTR("GMT"), true))), "GMT");
}

TEST(FixedZones, TheSystemsIsGreenwichWhateverTheEnvironmentNames)
{
    setenv("TZ", "Asia/Tokyo", 1);
    CFTimeZoneResetSystem();
    EXPECT_EQ(NameOf(Owned(CFTimeZoneCopySystem())), "GMT");
    unsetenv("TZ");
    CFTimeZoneResetSystem();
}

TEST(FixedZones, HaveNoSummer)
{
    const auto theZone = Zone("GMT+0100");
    EXPECT_EQ(CFTimeZoneGetSecondsFromGMT(theZone, TimeOf(2005, 1, 15)), 3600);
    EXPECT_EQ(CFTimeZoneGetSecondsFromGMT(theZone, TimeOf(2005, 7, 15)), 3600);
    EXPECT_FALSE(CFTimeZoneIsDaylightSavingTime(theZone, TimeOf(2005, 7, 15)));
    EXPECT_EQ(TextOf(Owned(CFTimeZoneCopyAbbreviation(theZone, TimeOf(2005, 7, 15)))), "GMT+0100");
    const double theStart = TimeOf(2005, 3, 1, 12, 0, theZone);
    const double theMonthLater = CFAbsoluteTimeAddGregorianUnits(theStart, theZone, {0, 1, 0, 0, 0, 0});
    EXPECT_EQ(FieldsAt(theMonthLater, theZone), Fields(2005, 4, 1, 12, 0));
    EXPECT_EQ(theMonthLater - theStart, 31 * 86400.0);
}

TEST(FixedZones, EachHourOfAYearGoesThereAndBack)
{
    for (const char* const theName : {"GMT", "GMT+0130", "GMT-0930"}) {
        const auto theZone = Zone(theName);
        for (double theTime = TimeOf(2005, 1, 1); theTime < TimeOf(2006, 1, 1); theTime += 1800) {
            ASSERT_EQ(
                CFGregorianDateGetAbsoluteTime(CFAbsoluteTimeGetGregorianDate(theTime, theZone), theZone),
                theTime)
                << theName;
        }
    }
}
