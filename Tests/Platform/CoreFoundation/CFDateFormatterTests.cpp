// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "FormatsTestSupport.h"

#include <cmath>
#include <limits>
#include <random>

namespace {

Owned<CFDateFormatterRef> FormatterWith(const std::string& theFormat, const std::string& theZone = "GMT")
{
    auto theFormatter = DateFormatter(kCFDateFormatterShortStyle, kCFDateFormatterNoStyle, "en_US", theZone);
    CFDateFormatterSetFormat(theFormatter, String(theFormat));
    return theFormatter;
}

void SetStrict(CFDateFormatterRef theFormatter)
{
    CFDateFormatterSetProperty(theFormatter, kCFDateFormatterIsLenient, kCFBooleanFalse);
}

// The moment as "year-month-day hour:minute:second", and how much of the text was read; "-" for none.
std::string Read(CFDateFormatterRef theFormatter, const std::string& theText)
{
    CFRange theRange = WholeOf(String(theText));
    CFAbsoluteTime theTime = 0;
    if (!CFDateFormatterGetAbsoluteTimeFromString(theFormatter, String(theText), &theRange, &theTime)) {
        return "-";
    }
    const CFGregorianDate theDate = CFAbsoluteTimeGetGregorianDate(theTime, nullptr);
    char theResult[64];
    std::snprintf(theResult, sizeof theResult, "%d-%02d-%02d %02d:%02d:%06.3f:%ld",
                  static_cast<int>(theDate.year), theDate.month, theDate.day, theDate.hour, theDate.minute,
                  theDate.second, theRange.length);
    return theResult;
}

std::string PropertyOf(CFDateFormatterRef theFormatter, CFStringRef theKey)
{
    const Owned<CFTypeRef> theValue(CFDateFormatterCopyProperty(theFormatter, theKey));
    return theValue == nullptr ? "(NULL)"
                               : TextOf(static_cast<CFStringRef>(static_cast<CFTypeRef>(theValue)));
}

std::vector<std::string> NamesOf(CFDateFormatterRef theFormatter, CFStringRef theKey)
{
    const Owned<CFTypeRef> theValue(CFDateFormatterCopyProperty(theFormatter, theKey));
    const auto theArray = static_cast<CFArrayRef>(static_cast<CFTypeRef>(theValue));
    std::vector<std::string> theNames;
    for (CFIndex theIndex = 0; theIndex < CFArrayGetCount(theArray); ++theIndex) {
        theNames.push_back(TextOf(static_cast<CFStringRef>(CFArrayGetValueAtIndex(theArray, theIndex))));
    }
    return theNames;
}

} // namespace

TEST(CFDateFormatter, TellsWhatItWasMadeWith)
{
    const auto theLocale = Locale("en_US");
    const Owned<CFDateFormatterRef> theFormatter(
        CFDateFormatterCreate(nullptr, theLocale, kCFDateFormatterShortStyle, kCFDateFormatterLongStyle));
    EXPECT_EQ(CFGetTypeID(theFormatter), CFDateFormatterGetTypeID());
    EXPECT_EQ(TextOf(Owned(CFCopyTypeIDDescription(CFDateFormatterGetTypeID()))), "CFDateFormatter");
    EXPECT_EQ(CFDateFormatterGetDateStyle(theFormatter), kCFDateFormatterShortStyle);
    EXPECT_EQ(CFDateFormatterGetTimeStyle(theFormatter), kCFDateFormatterLongStyle);
    EXPECT_EQ(CFDateFormatterGetLocale(theFormatter), static_cast<CFLocaleRef>(theLocale));
    const Owned<CFTypeRef> theZone(CFDateFormatterCopyProperty(theFormatter, kCFDateFormatterTimeZone));
    EXPECT_TRUE(CFEqual(theZone, Owned(CFTimeZoneCopyDefault())));
    EXPECT_EQ(DescriptionOf(DateFormatter(kCFDateFormatterShortStyle, kCFDateFormatterNoStyle)),
              "{styles = 1, 0, locale = en_US, time zone = GMT, format = M/d/yy}");
}

TEST(CFDateFormatter, WithoutALocaleItHasThatOfThePerson)
{
    const Owned<CFDateFormatterRef> theFormatter(
        CFDateFormatterCreate(nullptr, nullptr, kCFDateFormatterShortStyle, kCFDateFormatterNoStyle));
    EXPECT_TRUE(CFEqual(CFDateFormatterGetLocale(theFormatter), Owned(CFLocaleCopyCurrent())));
}

TEST(CFDateFormatter, ThereIsNoneForAnUnknownStyle)
{
    EXPECT_EQ(CFDateFormatterCreate(nullptr, nullptr, -1, 0), nullptr);
    EXPECT_EQ(CFDateFormatterCreate(nullptr, nullptr, 0, 5), nullptr);
}

TEST(CFDateFormatter, WritesAsAmericansDo)
{
    const struct
    {
        CFDateFormatterStyle theDateStyle;
        CFDateFormatterStyle theTimeStyle;
        const char* theText;
    } kRows[] = {
        {kCFDateFormatterNoStyle, kCFDateFormatterNoStyle, ""},
        {kCFDateFormatterShortStyle, kCFDateFormatterNoStyle, "7/20/69"},
        {kCFDateFormatterMediumStyle, kCFDateFormatterNoStyle, "Jul 20, 1969"},
        {kCFDateFormatterLongStyle, kCFDateFormatterNoStyle, "July 20, 1969"},
        {kCFDateFormatterFullStyle, kCFDateFormatterNoStyle, "Sunday, July 20, 1969"},
        {kCFDateFormatterNoStyle, kCFDateFormatterShortStyle, "8:17 PM"},
        {kCFDateFormatterNoStyle, kCFDateFormatterMediumStyle, "8:17:40 PM"},
        {kCFDateFormatterNoStyle, kCFDateFormatterLongStyle, "8:17:40 PM GMT"},
        {kCFDateFormatterShortStyle, kCFDateFormatterShortStyle, "7/20/69 8:17 PM"},
    };
    for (const auto& theRow : kRows) {
        EXPECT_EQ(Written(DateFormatter(theRow.theDateStyle, theRow.theTimeStyle), kLanding), theRow.theText);
    }
}

TEST(CFDateFormatter, AFormatSaysHowDatesAreWritten)
{
    const struct
    {
        const char* theFormat;
        const char* theText;
    } kRows[] = {
        {"yyyy-MM-dd HH:mm:ss", "1969-07-20 20:17:40"},
        {"d.M.y", "20.7.1969"},
        {"EEE EEEE", "Sun Sunday"},
        {"MMM MMMM", "Jul July"},
        {"h hh K KK a", "8 08 8 08 PM"},
        {"H HH k kk", "20 20 20 20"},
        {"D DDD", "201 201"},
        {"G yyyyy", "AD 01969"},
        {"yy", "69"},
        {"S SSS", "2 250"},
        {"Z", "+0000"},
        {"'o''clock' ''", "o'clock '"},
        {"yyyyMMdd", "19690720"},
    };
    for (const auto& theRow : kRows) {
        EXPECT_EQ(Written(FormatterWith(theRow.theFormat), kLanding + 0.25), theRow.theText)
            << theRow.theFormat;
        EXPECT_EQ(TextOf(CFDateFormatterGetFormat(FormatterWith(theRow.theFormat))), theRow.theFormat);
    }
    EXPECT_EQ(PropertyOf(FormatterWith("yyyy"), kCFDateFormatterDefaultFormat), "M/d/yy");
}

TEST(CFDateFormatter, TheMiddleOfTheDayIsTwelve)
{
    const auto theFormatter = FormatterWith("h K H k a");
    EXPECT_EQ(Written(theFormatter, 0), "12 0 0 24 AM");
    EXPECT_EQ(Written(theFormatter, 43200), "12 0 12 12 PM");
}

TEST(CFDateFormatter, WritesInItsTimeZone)
{
    EXPECT_EQ(Written(FormatterWith("yyyy-MM-dd HH:mm Z", "GMT+0530"), kLanding), "1969-07-21 01:47 +0530");
    EXPECT_EQ(Written(FormatterWith("yyyy-MM-dd HH:mm Z", "GMT-0930"), kLanding), "1969-07-20 10:47 -0930");
    EXPECT_EQ(Read(FormatterWith("yyyy-MM-dd HH:mm", "GMT+0530"), "1969-07-21 01:47"),
              "1969-07-20 20:17:00.000:16");
}

TEST(CFDateFormatter, WritesDatesAndTimesAlike)
{
    const auto theFormatter = FormatterWith("HH:mm:ss.SSS");
    EXPECT_EQ(TextOf(Owned(CFDateFormatterCreateStringWithDate(nullptr, theFormatter,
                                                               Owned(CFDateCreate(nullptr, 61.5))))),
              "00:01:01.500");
    EXPECT_EQ(Written(theFormatter, 61.4996), "00:01:01.500");
    EXPECT_EQ(Written(theFormatter, 0.001), "00:00:00.001");
    EXPECT_EQ(Written(theFormatter, -0.001), "23:59:59.999");
}

TEST(CFDateFormatter, TimesThatAreTooFarAwayHaveNoText)
{
    const auto theFormatter = FormatterWith("y G");
    EXPECT_EQ(Written(theFormatter, 7.8e12), "249173 AD");
    for (const double theTime : {8e12, 1e300, std::nan(""), std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(Written(theFormatter, theTime), "(NULL)") << theTime;
        EXPECT_EQ(Written(theFormatter, -theTime), "(NULL)") << theTime;
    }
    EXPECT_EQ(Written(theFormatter, -63145526400.0 - 86400 * 100), "2 BC");
}

TEST(CFDateFormatter, ReadsWhatTheTextBeginsWith)
{
    const auto theShort = DateFormatter(kCFDateFormatterShortStyle, kCFDateFormatterNoStyle);
    EXPECT_EQ(Read(theShort, "7/20/69"), "1969-07-20 00:00:00.000:7");
    EXPECT_EQ(Read(theShort, "7/20/69 and more"), "1969-07-20 00:00:00.000:7");
    EXPECT_EQ(Read(theShort, "7/20/1969"), "1969-07-20 00:00:00.000:9");
    EXPECT_EQ(Read(DateFormatter(kCFDateFormatterFullStyle, kCFDateFormatterShortStyle),
                   "Sunday, July 20, 1969 8:17 PM"),
              "1969-07-20 20:17:00.000:29");
    EXPECT_EQ(Read(FormatterWith("d MMM yyyy"), "20 jul 1969"), "1969-07-20 00:00:00.000:11");
    EXPECT_EQ(Read(FormatterWith("yyyyMMddHHmmss"), "19690720201740"), "1969-07-20 20:17:40.000:14");
    EXPECT_EQ(Read(FormatterWith("h:mm a"), "12:05 AM"), "1970-01-01 00:05:00.000:8");
    EXPECT_EQ(Read(FormatterWith("kk:mm"), "24:05"), "1970-01-01 00:05:00.000:5");
    EXPECT_EQ(Read(FormatterWith("s.SSS"), "7.25"), "1970-01-01 00:00:07.250:4");
    EXPECT_EQ(Read(FormatterWith("yyyy D"), "1969 201"), "1969-07-20 00:00:00.000:8");
    EXPECT_EQ(Read(FormatterWith("y G"), "2 BC"), "-1-01-01 00:00:00.000:4");
    EXPECT_EQ(Read(FormatterWith("HH:mm Z"), "20:17 +0530"), "1970-01-01 14:47:00.000:11");
    EXPECT_EQ(Read(FormatterWith("HH:mm z"), "20:17 GMT"), "1970-01-01 20:17:00.000:9");
    for (const char* const theText : {"", "x", "7", "7/", "7/20", "//"}) {
        EXPECT_EQ(Read(theShort, theText), "-") << theText;
    }
}

TEST(CFDateFormatter, ReadsInTheRangeThatItIsGiven)
{
    const auto theFormatter = FormatterWith("yyyy");
    CFRange theRange = CFRangeMake(2, 4);
    CFAbsoluteTime theTime = 0;
    EXPECT_TRUE(
        CFDateFormatterGetAbsoluteTimeFromString(theFormatter, CFSTR("x 200115"), &theRange, &theTime));
    EXPECT_EQ(theTime, 0);
    EXPECT_EQ(theRange.location, 2);
    EXPECT_EQ(theRange.length, 4);
    EXPECT_TRUE(CFDateFormatterGetAbsoluteTimeFromString(theFormatter, CFSTR("2001"), nullptr, nullptr));
    theRange = CFRangeMake(0, 4);
    const Owned<CFDateRef> theDate(
        CFDateFormatterCreateDateFromString(nullptr, theFormatter, CFSTR("2001 x"), &theRange));
    EXPECT_EQ(CFDateGetAbsoluteTime(theDate), 0);
    EXPECT_EQ(theRange.length, 4);
    EXPECT_EQ(CFDateFormatterCreateDateFromString(nullptr, theFormatter, CFSTR("x"), nullptr), nullptr);
}

TEST(CFDateFormatter, ALenientOneCarriesOver)
{
    const auto theFormatter = FormatterWith("yyyy-MM-dd HH:mm");
    EXPECT_EQ(Read(theFormatter, "2001-01-32 00:00"), "2001-02-01 00:00:00.000:16");
    EXPECT_EQ(Read(theFormatter, "2001-13-01 24:60"), "2002-01-02 01:00:00.000:16");
}

TEST(CFDateFormatter, AStrictOneTakesOnlyDaysThatExist)
{
    const auto theFormatter = FormatterWith("yyyy-MM-dd HH:mm:ss");
    SetStrict(theFormatter);
    EXPECT_EQ(Read(theFormatter, "2004-02-29 23:59:59"), "2004-02-29 23:59:59.000:19");
    for (const char* const theText :
         {"2001-02-29 00:00:00", "2001-13-01 00:00:00", "2001-00-01 00:00:00", "2001-01-00 00:00:00",
          "2001-01-01 24:00:00", "2001-01-01 00:60:00", "2001-01-01 00:00:60"}) {
        EXPECT_EQ(Read(theFormatter, theText), "-") << theText;
    }
    const auto theOther = FormatterWith("h a");
    SetStrict(theOther);
    EXPECT_EQ(Read(theOther, "12 PM"), "1970-01-01 12:00:00.000:5");
    EXPECT_EQ(Read(theOther, "13 PM"), "-");
}

TEST(CFDateFormatter, TwoDigitsAreAYearOfTheHundredFromAStart)
{
    const auto theFormatter = FormatterWith("d.M.yy");
    const Owned<CFTypeRef> theStart(
        CFDateFormatterCopyProperty(theFormatter, kCFDateFormatterTwoDigitStartDate));
    EXPECT_NEAR(CFDateGetAbsoluteTime(static_cast<CFDateRef>(static_cast<CFTypeRef>(theStart))),
                CFAbsoluteTimeGetCurrent() - 80 * 365.2425 * 86400, 3 * 86400);
    CFDateFormatterSetProperty(theFormatter, kCFDateFormatterTwoDigitStartDate,
                               Owned(CFDateCreate(nullptr, 0))); // 2001
    EXPECT_EQ(Read(theFormatter, "1.2.00"), "2100-02-01 00:00:00.000:6");
    EXPECT_EQ(Read(theFormatter, "1.2.01"), "2001-02-01 00:00:00.000:6");
    EXPECT_EQ(Read(theFormatter, "1.2.1"), "1-02-01 00:00:00.000:5");
}

TEST(CFDateFormatter, NamesCanBeReplaced)
{
    const auto theFormatter = FormatterWith("G EEE EEEE MMM MMMM a");
    EXPECT_EQ(NamesOf(theFormatter, kCFDateFormatterShortWeekdaySymbols),
              (std::vector<std::string>{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"}));
    EXPECT_EQ(NamesOf(theFormatter, kCFDateFormatterMonthSymbols).at(11), "December");
    EXPECT_EQ(NamesOf(theFormatter, kCFDateFormatterShortMonthSymbols).at(0), "Jan");
    EXPECT_EQ(NamesOf(theFormatter, kCFDateFormatterWeekdaySymbols).at(0), "Sunday");
    EXPECT_EQ(NamesOf(theFormatter, kCFDateFormatterEraSymbols).at(0), "BC");
    EXPECT_EQ(PropertyOf(theFormatter, kCFDateFormatterAMSymbol), "AM");
    const auto theNames = ObjectArray({CFSTR("one"), CFSTR("two"), kCFNull, CFSTR("four"), CFSTR("five"),
                                       CFSTR("six"), CFSTR("seven"), CFSTR("eight")});
    for (const CFStringRef theKey :
         {kCFDateFormatterShortWeekdaySymbols, kCFDateFormatterWeekdaySymbols, kCFDateFormatterMonthSymbols,
          kCFDateFormatterShortMonthSymbols, kCFDateFormatterEraSymbols}) {
        CFDateFormatterSetProperty(theFormatter, theKey, theNames);
    }
    CFDateFormatterSetProperty(theFormatter, kCFDateFormatterAMSymbol, CFSTR("early"));
    CFDateFormatterSetProperty(theFormatter, kCFDateFormatterPMSymbol, CFSTR("late"));
    EXPECT_EQ(Written(theFormatter, kLanding), "two one one seven seven late");
    EXPECT_EQ(Written(theFormatter, 0), "two two two one one early");
    EXPECT_EQ(PropertyOf(theFormatter, kCFDateFormatterPMSymbol), "late");
}

TEST(CFDateFormatter, WhatIsNoPropertyChangesNothing)
{
    const auto theFormatter = FormatterWith("h a");
    for (const CFStringRef theKey :
         {kCFDateFormatterIsLenient, kCFDateFormatterTimeZone, kCFDateFormatterTwoDigitStartDate,
          kCFDateFormatterMonthSymbols, kCFDateFormatterAMSymbol, kCFDateFormatterCalendarName,
          CFSTR("no key")}) {
        CFDateFormatterSetProperty(theFormatter, theKey, kCFNull);
        CFDateFormatterSetProperty(theFormatter, theKey, nullptr);
    }
    EXPECT_EQ(Written(theFormatter, 0), "12 AM");
    EXPECT_EQ(PropertyOf(theFormatter, kCFDateFormatterCalendarName), "gregorian");
    EXPECT_EQ(CFDateFormatterCopyProperty(theFormatter, CFSTR("no key")), nullptr);
    EXPECT_EQ(CFDateFormatterCopyProperty(theFormatter, kCFDateFormatterIsLenient), kCFBooleanTrue);
    SetStrict(theFormatter);
    EXPECT_EQ(CFDateFormatterCopyProperty(theFormatter, kCFDateFormatterIsLenient), kCFBooleanFalse);
}

TEST(CFDateFormatter, ReadsWhatItWritesInEachLocale)
{
    std::mt19937 theRandom(20040429);
    for (const char* const theLocale : {"en_US", "de_DE", "fr_FR", "ru_RU", "ja_JP", "hi_IN", "ar_EG",
                                        "sv_SE", "pt_BR", "pl_PL", "th_TH"}) {
        const auto theFormatter =
            DateFormatter(kCFDateFormatterLongStyle, kCFDateFormatterMediumStyle, theLocale, "GMT+0100");
        for (int theCount = 0; theCount < 40; ++theCount) {
            const CFAbsoluteTime theTime = static_cast<double>(theRandom()) * 2 - 3e9;
            const auto theText = Written(theFormatter, theTime);
            CFAbsoluteTime theRead = 0;
            ASSERT_TRUE(
                CFDateFormatterGetAbsoluteTimeFromString(theFormatter, String(theText), nullptr, &theRead))
                << theLocale << " " << theText;
            ASSERT_EQ(theRead, theTime) << theLocale << " " << theText;
        }
    }
}

TEST(CFDateFormatter, HostileTextIsReadOrRefused)
{
    std::mt19937 theRandom(20040430);
    const std::u16string kAlphabet = u"0123456789/:., -+'JulyGMTPMZ\u00A0\u202F\u0660\xD835";
    const auto theFormatter = DateFormatter(kCFDateFormatterShortStyle, kCFDateFormatterFullStyle);
    const auto theOther = FormatterWith("y D H m s S Z");
    for (int theCount = 0; theCount < 1000; ++theCount) {
        Units theUnits(theRandom() % 30);
        for (UniChar& theUnit : theUnits) {
            theUnit = kAlphabet[theRandom() % kAlphabet.size()];
        }
        for (const CFDateFormatterRef theReader :
             {static_cast<CFDateFormatterRef>(theFormatter), static_cast<CFDateFormatterRef>(theOther)}) {
            CFRange theRange = CFRangeMake(0, static_cast<CFIndex>(theUnits.size()));
            CFAbsoluteTime theTime = 0;
            if (CFDateFormatterGetAbsoluteTimeFromString(theReader, String(theUnits), &theRange, &theTime)) {
                EXPECT_TRUE(std::isfinite(theTime));
                EXPECT_LE(theRange.length, static_cast<CFIndex>(theUnits.size()));
            }
        }
    }
    for (const char* const theFormat :
         {"'", "'''", "yyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyyy", "QqWwABCX", "\xC3\xA9"}) {
        const auto theOdd = FormatterWith(theFormat);
        EXPECT_NE(Written(theOdd, 0), "(NULL)") << theFormat;
    }
}
