// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "FormatsTestSupport.h"

#include <cmath>
#include <limits>
#include <random>

namespace {

const double kInfinity = std::numeric_limits<double>::infinity();
const SInt64 kLargest = std::numeric_limits<SInt64>::max();
const SInt64 kSmallest = std::numeric_limits<SInt64>::min();

std::string WrittenInteger(CFNumberFormatterRef theFormatter, SInt64 theNumber)
{
    return TextOf(Owned(CFNumberFormatterCreateStringWithNumber(nullptr, theFormatter, Integer(theNumber))));
}

Owned<CFNumberFormatterRef> FormatterWith(const std::string& theFormat)
{
    auto theFormatter = NumberFormatter(kCFNumberFormatterDecimalStyle);
    CFNumberFormatterSetFormat(theFormatter, String(theFormat));
    return theFormatter;
}

void SetNumber(CFNumberFormatterRef theFormatter, CFStringRef theKey, SInt64 theNumber)
{
    CFNumberFormatterSetProperty(theFormatter, theKey, Integer(theNumber));
}

std::string PropertyOf(CFNumberFormatterRef theFormatter, CFStringRef theKey)
{
    const Owned<CFTypeRef> theValue(CFNumberFormatterCopyProperty(theFormatter, theKey));
    return theValue == nullptr ? "(NULL)"
                               : TextOf(Owned(CFStringCreateWithFormat(nullptr, nullptr, CFSTR("%@"),
                                                                       static_cast<CFTypeRef>(theValue))));
}

const char* const kLocales[] = {"en_US", "de_DE", "fr_FR", "de_CH", "ru_RU", "ja_JP",
                                "hi_IN", "ar_EG", "fa_IR", "sv_SE", "pt_BR", "pl_PL"};

} // namespace

TEST(CFNumberFormatter, TellsWhatItWasMadeWith)
{
    const auto theLocale = Locale("en_US");
    const Owned<CFNumberFormatterRef> theFormatter(
        CFNumberFormatterCreate(nullptr, theLocale, kCFNumberFormatterPercentStyle));
    EXPECT_EQ(CFGetTypeID(theFormatter), CFNumberFormatterGetTypeID());
    EXPECT_EQ(TextOf(Owned(CFCopyTypeIDDescription(CFNumberFormatterGetTypeID()))), "CFNumberFormatter");
    EXPECT_EQ(CFNumberFormatterGetStyle(theFormatter), kCFNumberFormatterPercentStyle);
    EXPECT_EQ(CFNumberFormatterGetLocale(theFormatter), static_cast<CFLocaleRef>(theLocale));
    EXPECT_EQ(DescriptionOf(theFormatter), "{style = 3, locale = en_US, format = #,##0%}");
    EXPECT_FALSE(CFEqual(theFormatter, NumberFormatter(kCFNumberFormatterPercentStyle)));
}

TEST(CFNumberFormatter, WithoutALocaleItHasThatOfThePerson)
{
    const Owned<CFNumberFormatterRef> theFormatter(
        CFNumberFormatterCreate(nullptr, nullptr, kCFNumberFormatterDecimalStyle));
    EXPECT_TRUE(CFEqual(CFNumberFormatterGetLocale(theFormatter), Owned(CFLocaleCopyCurrent())));
}

TEST(CFNumberFormatter, ThereIsNoneForAnUnknownStyle)
{
    EXPECT_EQ(CFNumberFormatterCreate(nullptr, nullptr, -1), nullptr);
    EXPECT_EQ(CFNumberFormatterCreate(nullptr, nullptr, 6), nullptr);
}

TEST(CFNumberFormatter, EachStyleHasItsFormat)
{
    const auto theFormat = [](CFNumberFormatterStyle theStyle) {
        return TextOf(CFNumberFormatterGetFormat(NumberFormatter(theStyle)));
    };
    EXPECT_EQ(theFormat(kCFNumberFormatterNoStyle), "0");
    EXPECT_EQ(theFormat(kCFNumberFormatterDecimalStyle), "#,##0.###");
    EXPECT_EQ(theFormat(kCFNumberFormatterCurrencyStyle), "\xC2\xA4#,##0.00;(\xC2\xA4#,##0.00)");
    EXPECT_EQ(theFormat(kCFNumberFormatterPercentStyle), "#,##0%");
    EXPECT_EQ(theFormat(kCFNumberFormatterScientificStyle), "#E0");
}

TEST(CFNumberFormatter, WritesAsAmericansDo)
{
    const struct
    {
        CFNumberFormatterStyle theStyle;
        double theNumber;
        const char* theText;
    } kRows[] = {
        {kCFNumberFormatterNoStyle, 1234.5, "1234"},
        {kCFNumberFormatterNoStyle, 1235.5, "1236"},
        {kCFNumberFormatterNoStyle, 0, "0"},
        {kCFNumberFormatterNoStyle, -7, "-7"},
        {kCFNumberFormatterDecimalStyle, 0, "0"},
        {kCFNumberFormatterDecimalStyle, 1234567.8912, "1,234,567.891"},
        {kCFNumberFormatterDecimalStyle, -0.5, "-0.5"},
        {kCFNumberFormatterDecimalStyle, 0.0625, "0.062"},
        {kCFNumberFormatterDecimalStyle, 999.9995, "1,000"},
        {kCFNumberFormatterDecimalStyle, 0.0001, "0"},
        {kCFNumberFormatterDecimalStyle, -0.0001, "-0"},
        {kCFNumberFormatterDecimalStyle, 1e21, "1,000,000,000,000,000,000,000"},
        {kCFNumberFormatterDecimalStyle, kInfinity, "\xE2\x88\x9E"},
        {kCFNumberFormatterDecimalStyle, -kInfinity, "-\xE2\x88\x9E"},
        {kCFNumberFormatterDecimalStyle, std::nan(""), "NaN"},
        {kCFNumberFormatterCurrencyStyle, 1234.5, "$1,234.50"},
        {kCFNumberFormatterCurrencyStyle, -1234.5, "($1,234.50)"},
        {kCFNumberFormatterCurrencyStyle, 0.005, "$0.00"},
        {kCFNumberFormatterPercentStyle, 0.256, "26%"},
        {kCFNumberFormatterPercentStyle, -12, "-1,200%"},
        {kCFNumberFormatterScientificStyle, 12345, "1.2345E4"},
        {kCFNumberFormatterScientificStyle, -0.00012, "-1.2E-4"},
        {kCFNumberFormatterScientificStyle, 0, "0E0"},
    };
    for (const auto& theRow : kRows) {
        EXPECT_EQ(Written(NumberFormatter(theRow.theStyle), theRow.theNumber), theRow.theText)
            << theRow.theStyle << " " << theRow.theNumber;
    }
}

TEST(CFNumberFormatter, IntegersKeepAllTheirDigits)
{
    const auto theFormatter = NumberFormatter(kCFNumberFormatterDecimalStyle);
    EXPECT_EQ(WrittenInteger(theFormatter, kLargest), "9,223,372,036,854,775,807");
    EXPECT_EQ(WrittenInteger(theFormatter, kSmallest), "-9,223,372,036,854,775,808");
    EXPECT_EQ(WrittenInteger(NumberFormatter(kCFNumberFormatterPercentStyle), kLargest),
              "922,337,203,685,477,580,700%");
    for (const SInt64 theNumber : {kLargest, kSmallest, kLargest - 1, SInt64{9007199254740993}}) {
        SInt64 theRead = 0;
        const Owned<CFStringRef> theText(
            CFNumberFormatterCreateStringWithNumber(nullptr, theFormatter, Integer(theNumber)));
        EXPECT_TRUE(CFNumberFormatterGetValueFromString(theFormatter, theText, nullptr, kCFNumberSInt64Type,
                                                        &theRead));
        EXPECT_EQ(theRead, theNumber);
    }
}

TEST(CFNumberFormatter, WritesTheValueOfEachType)
{
    const auto theFormatter = NumberFormatter(kCFNumberFormatterDecimalStyle);
    const SInt8 theByte = -5;
    const float theFloat = 1.5F;
    const auto theText = [&](CFNumberType theType, const void* theValue) {
        return TextOf(
            Owned(CFNumberFormatterCreateStringWithValue(nullptr, theFormatter, theType, theValue)));
    };
    EXPECT_EQ(theText(kCFNumberCharType, &theByte), "-5");
    EXPECT_EQ(theText(kCFNumberFloatType, &theFloat), "1.5");
    EXPECT_EQ(theText(99, &theFloat), "(NULL)");
}

TEST(CFNumberFormatter, ReadsWhatTheTextBeginsWith)
{
    const auto theDecimal = NumberFormatter(kCFNumberFormatterDecimalStyle);
    EXPECT_EQ(Read(theDecimal, "1,234.5"), "1234.5:7");
    EXPECT_EQ(Read(theDecimal, "1234.5"), "1234.5:6");
    EXPECT_EQ(Read(theDecimal, "-12 apples"), "-12:3");
    EXPECT_EQ(Read(theDecimal, "12."), "12:3");
    EXPECT_EQ(Read(theDecimal, ".5"), "0.5:2");
    EXPECT_EQ(Read(theDecimal, "1.2.3"), "1.2:3");
    EXPECT_EQ(Read(theDecimal, "\xE2\x88\x9E"), "inf:1");
    EXPECT_EQ(Read(theDecimal, "NaN"), "nan:3");
    EXPECT_EQ(Read(NumberFormatter(kCFNumberFormatterPercentStyle), "12.5%"), "0.125:5");
    EXPECT_EQ(Read(NumberFormatter(kCFNumberFormatterCurrencyStyle), "($1,234.50)"), "-1234.5:11");
    EXPECT_EQ(Read(NumberFormatter(kCFNumberFormatterCurrencyStyle), "$0.07"), "0.070000000000000007:5");
    EXPECT_EQ(Read(NumberFormatter(kCFNumberFormatterScientificStyle), "-1.5E-3"), "-0.0015:7");
    for (const char* const theText : {"", "apples", "-", ".", ","}) {
        EXPECT_EQ(Read(theDecimal, theText), "-") << theText;
    }
}

TEST(CFNumberFormatter, ReadsInTheRangeThatItIsGiven)
{
    const auto theFormatter = NumberFormatter(kCFNumberFormatterDecimalStyle);
    CFRange theRange = CFRangeMake(2, 3);
    double theNumber = 0;
    EXPECT_TRUE(CFNumberFormatterGetValueFromString(theFormatter, CFSTR("x 12345"), &theRange,
                                                    kCFNumberDoubleType, &theNumber));
    EXPECT_EQ(theNumber, 123);
    EXPECT_EQ(theRange.location, 2);
    EXPECT_EQ(theRange.length, 3);
    theRange = CFRangeMake(0, 100);
    EXPECT_FALSE(CFNumberFormatterGetValueFromString(theFormatter, CFSTR("x 12345"), &theRange,
                                                     kCFNumberDoubleType, &theNumber));
    EXPECT_EQ(theRange.length, 100);
    EXPECT_TRUE(CFNumberFormatterGetValueFromString(theFormatter, CFSTR("42"), nullptr, kCFNumberDoubleType,
                                                    nullptr));
}

TEST(CFNumberFormatter, ANumberThatTheTypeDoesNotHoldIsNone)
{
    const auto theFormatter = NumberFormatter(kCFNumberFormatterDecimalStyle);
    const auto theIsRead = [&](const char* theText, CFNumberType theType) {
        char theValue[8];
        return CFNumberFormatterGetValueFromString(theFormatter, String(theText), nullptr, theType,
                                                   theValue) != 0;
    };
    EXPECT_TRUE(theIsRead("127", kCFNumberSInt8Type));
    EXPECT_FALSE(theIsRead("128", kCFNumberSInt8Type));
    EXPECT_TRUE(theIsRead("-32768", kCFNumberShortType));
    EXPECT_FALSE(theIsRead("-32769", kCFNumberShortType));
    EXPECT_FALSE(theIsRead("2147483648", kCFNumberIntType));
    EXPECT_TRUE(theIsRead("9223372036854775807", kCFNumberLongLongType));
    EXPECT_FALSE(theIsRead("9223372036854775808", kCFNumberLongLongType));
    EXPECT_FALSE(theIsRead("99999999999999999999999", kCFNumberLongLongType));
    EXPECT_FALSE(theIsRead("\xE2\x88\x9E", kCFNumberLongLongType));
    EXPECT_FALSE(theIsRead(std::string(60, '9').c_str(), kCFNumberFloatType));
    EXPECT_TRUE(theIsRead(std::string(60, '9').c_str(), kCFNumberDoubleType));
    EXPECT_FALSE(theIsRead(std::string(350, '9').c_str(), kCFNumberDoubleType));
    EXPECT_FALSE(theIsRead(std::string(1000, '9').c_str(), kCFNumberDoubleType));
    EXPECT_FALSE(theIsRead("1", 0));
    EXPECT_FALSE(theIsRead("1", 99));
}

TEST(CFNumberFormatter, IntegersEndAtTheSeparator)
{
    const auto theFormatter = NumberFormatter(kCFNumberFormatterDecimalStyle);
    CFRange theRange = CFRangeMake(0, 4);
    const Owned<CFNumberRef> theInteger(CFNumberFormatterCreateNumberFromString(
        nullptr, theFormatter, CFSTR("12.5"), &theRange, kCFNumberFormatterParseIntegersOnly));
    EXPECT_TRUE(CFEqual(theInteger, Integer(12)));
    EXPECT_EQ(theRange.length, 2);
    const Owned<CFNumberRef> theNumber(
        CFNumberFormatterCreateNumberFromString(nullptr, theFormatter, CFSTR("12.5"), nullptr, 0));
    EXPECT_TRUE(CFEqual(theNumber, Float(12.5)));
    EXPECT_EQ(CFNumberFormatterCreateNumberFromString(nullptr, theFormatter, CFSTR("x"), nullptr, 0),
              nullptr);
}

TEST(CFNumberFormatter, AFormatSaysHowNumbersAreWritten)
{
    const struct
    {
        const char* theFormat;
        double theNumber;
        const char* theText;
    } kRows[] = {
        {"0000", 42, "0042"},
        {"0.00", 1.005, "1.00"},
        {"0.0##", 2, "2.0"},
        {"#,##0.00 'EUR'", 1234.5, "1,234.50 EUR"},
        {"#,####", 123456789, "1,2345,6789"},
        {"0;'minus' 0", -3, "minus 3"},
        {"0;", -3, "-3"},
        {"0 '#'", 7, "7 #"},
        {"0 ''", 7, "7 '"},
        {"0.0%", 0.256, "25.6%"},
        {"0\xE2\x80\xB0", 0.256, "256\xE2\x80\xB0"},
        {"0.00E00", 12345, "1.23E04"},
        {"\xC2\xA4 0.00", 5, "$ 5.00"},
        {"\xC2\xA4\xC2\xA4 0.00", 5, "USD 5.00"},
        {"+0", 5, "+5"},
    };
    for (const auto& theRow : kRows) {
        EXPECT_EQ(Written(FormatterWith(theRow.theFormat), theRow.theNumber), theRow.theText)
            << theRow.theFormat;
    }
}

TEST(CFNumberFormatter, WhatIsNoFormatChangesNothing)
{
    for (const char* const theFormat : {"0.0.0", "'0", "0#", "0;0;0"}) {
        EXPECT_EQ(TextOf(CFNumberFormatterGetFormat(FormatterWith(theFormat))), "#,##0.###") << theFormat;
    }
    const auto theFormatter = FormatterWith("0.00");
    EXPECT_EQ(TextOf(CFNumberFormatterGetFormat(theFormatter)), "0.00");
    EXPECT_EQ(PropertyOf(theFormatter, kCFNumberFormatterDefaultFormat), "#,##0.###");
}

TEST(CFNumberFormatter, PropertiesOverrideTheFormat)
{
    const auto theFormatter = NumberFormatter(kCFNumberFormatterDecimalStyle);
    SetNumber(theFormatter, kCFNumberFormatterMinFractionDigits, 2);
    EXPECT_EQ(Written(theFormatter, 1234.5), "1,234.50");
    SetNumber(theFormatter, kCFNumberFormatterMaxFractionDigits, 1);
    EXPECT_EQ(Written(theFormatter, 1234.56), "1,234.6");
    EXPECT_EQ(PropertyOf(theFormatter, kCFNumberFormatterMinFractionDigits), "1");
    SetNumber(theFormatter, kCFNumberFormatterMinIntegerDigits, 6);
    EXPECT_EQ(Written(theFormatter, 1234.5), "001,234.5");
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterUseGroupingSeparator, kCFBooleanFalse);
    EXPECT_EQ(Written(theFormatter, 1234.5), "001234.5");
    EXPECT_EQ(PropertyOf(theFormatter, kCFNumberFormatterUseGroupingSeparator),
              PropertyOf(theFormatter, kCFNumberFormatterAlwaysShowDecimalSeparator));
    SetNumber(theFormatter, kCFNumberFormatterMinIntegerDigits, 1);
    SetNumber(theFormatter, kCFNumberFormatterMaxIntegerDigits, 2);
    EXPECT_EQ(Written(theFormatter, 1234.5), "34.5");
}

TEST(CFNumberFormatter, SymbolsCanBeReplaced)
{
    const auto theFormatter = NumberFormatter(kCFNumberFormatterDecimalStyle);
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterDecimalSeparator, CFSTR("!"));
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterGroupingSeparator, CFSTR("_"));
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterMinusSign, CFSTR("~"));
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterNaNSymbol, CFSTR("none"));
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterInfinitySymbol, CFSTR("many"));
    EXPECT_EQ(Written(theFormatter, -1234.5), "~1_234!5");
    EXPECT_EQ(Read(theFormatter, "~1_234!5"), "-1234.5:8");
    EXPECT_EQ(Written(theFormatter, std::nan("")), "none");
    EXPECT_EQ(Written(theFormatter, kInfinity), "many");
    EXPECT_EQ(PropertyOf(theFormatter, kCFNumberFormatterDecimalSeparator), "!");
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterPositivePrefix, CFSTR("'p' "));
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterPositiveSuffix, CFSTR(" #"));
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterNegativePrefix, CFSTR("n"));
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterNegativeSuffix, CFSTR("m"));
    EXPECT_EQ(Written(theFormatter, 5), "'p' 5 #");
    EXPECT_EQ(Written(theFormatter, -5), "n5m");
    EXPECT_EQ(PropertyOf(theFormatter, kCFNumberFormatterPositivePrefix), "'p' ");
}

TEST(CFNumberFormatter, ACurrencyHasItsSymbol)
{
    const auto theFormatter = NumberFormatter(kCFNumberFormatterCurrencyStyle);
    EXPECT_EQ(PropertyOf(theFormatter, kCFNumberFormatterCurrencyCode), "USD");
    EXPECT_EQ(PropertyOf(theFormatter, kCFNumberFormatterCurrencySymbol), "$");
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterCurrencyCode, CFSTR("CHF"));
    EXPECT_EQ(PropertyOf(theFormatter, kCFNumberFormatterCurrencyCode), "CHF");
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterCurrencySymbol, String("\xC2\xA3"));
    EXPECT_EQ(Written(theFormatter, 5), "\xC2\xA3"
                                        "5.00");
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterCurrencyDecimalSeparator, CFSTR("-"));
    EXPECT_EQ(Written(theFormatter, 5), "\xC2\xA3"
                                        "5-00");
}

TEST(CFNumberFormatter, RoundingHasSevenModes)
{
    const double kNumbers[] = {2.4, 2.5, 2.6, 3.5, -2.5, -2.6};
    const struct
    {
        CFNumberFormatterRoundingMode theMode;
        const char* theTexts[6];
    } kRows[] = {
        {kCFNumberFormatterRoundCeiling, {"3", "3", "3", "4", "-2", "-2"}},
        {kCFNumberFormatterRoundFloor, {"2", "2", "2", "3", "-3", "-3"}},
        {kCFNumberFormatterRoundDown, {"2", "2", "2", "3", "-2", "-2"}},
        {kCFNumberFormatterRoundUp, {"3", "3", "3", "4", "-3", "-3"}},
        {kCFNumberFormatterRoundHalfEven, {"2", "2", "3", "4", "-2", "-3"}},
        {kCFNumberFormatterRoundHalfDown, {"2", "2", "3", "3", "-2", "-3"}},
        {kCFNumberFormatterRoundHalfUp, {"2", "3", "3", "4", "-3", "-3"}},
    };
    for (const auto& theRow : kRows) {
        const auto theFormatter = NumberFormatter(kCFNumberFormatterNoStyle);
        SetNumber(theFormatter, kCFNumberFormatterRoundingMode, theRow.theMode);
        for (size_t theIndex = 0; theIndex < 6; ++theIndex) {
            EXPECT_EQ(Written(theFormatter, kNumbers[theIndex]), theRow.theTexts[theIndex])
                << theRow.theMode << " " << kNumbers[theIndex];
        }
    }
}

TEST(CFNumberFormatter, RoundsSmallNumbersAsLargeOnes)
{
    const auto theFormatter = FormatterWith("0.0");
    EXPECT_EQ(Written(theFormatter, 0.06), "0.1");
    EXPECT_EQ(Written(theFormatter, 0.05), "0.0");
    EXPECT_EQ(Written(theFormatter, 0.04), "0.0");
    EXPECT_EQ(Written(theFormatter, 0.0009), "0.0");
    SetNumber(theFormatter, kCFNumberFormatterRoundingMode, kCFNumberFormatterRoundUp);
    EXPECT_EQ(Written(theFormatter, 0.0009), "0.1");
    EXPECT_EQ(Written(theFormatter, 99.91), "100.0");
}

TEST(CFNumberFormatter, RoundsToAnIncrement)
{
    const auto theFormatter = FormatterWith("0.00");
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterRoundingIncrement, Float(0.25));
    EXPECT_EQ(Written(theFormatter, 1.1), "1.00");
    EXPECT_EQ(Written(theFormatter, 1.2), "1.25");
    EXPECT_EQ(PropertyOf(theFormatter, kCFNumberFormatterRoundingIncrement), "0.25");
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterRoundingIncrement, Float(-1));
    EXPECT_EQ(PropertyOf(theFormatter, kCFNumberFormatterRoundingIncrement), "0.25");
}

TEST(CFNumberFormatter, PadsToAWidth)
{
    const auto theFormatter = NumberFormatter(kCFNumberFormatterDecimalStyle);
    SetNumber(theFormatter, kCFNumberFormatterFormatWidth, 6);
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterPaddingCharacter, CFSTR("*"));
    const char* const kTexts[] = {"***-42", "-***42", "-42***", "-42***"};
    for (SInt64 thePosition = 0; thePosition < 4; ++thePosition) {
        SetNumber(theFormatter, kCFNumberFormatterPaddingPosition, thePosition);
        EXPECT_EQ(Written(theFormatter, -42), kTexts[thePosition]);
    }
    EXPECT_EQ(Written(theFormatter, 1234567), "1,234,567");
}

TEST(CFNumberFormatter, MultipliesWhatIsWritten)
{
    const auto theFormatter = NumberFormatter(kCFNumberFormatterDecimalStyle);
    SetNumber(theFormatter, kCFNumberFormatterMultiplier, 12);
    EXPECT_EQ(Written(theFormatter, 2.5), "30");
    EXPECT_EQ(WrittenInteger(theFormatter, 3), "36");
    EXPECT_EQ(Read(theFormatter, "30"), "2.5:2");
    EXPECT_EQ(PropertyOf(theFormatter, kCFNumberFormatterMultiplier), "12");
    SetNumber(theFormatter, kCFNumberFormatterMultiplier, -5);
    EXPECT_EQ(PropertyOf(theFormatter, kCFNumberFormatterMultiplier), "1");
}

TEST(CFNumberFormatter, ZeroMayHaveASymbol)
{
    const auto theFormatter = NumberFormatter(kCFNumberFormatterDecimalStyle);
    EXPECT_EQ(PropertyOf(theFormatter, kCFNumberFormatterZeroSymbol), "(NULL)");
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterZeroSymbol, CFSTR("none"));
    EXPECT_EQ(PropertyOf(theFormatter, kCFNumberFormatterZeroSymbol), "none");
    EXPECT_EQ(Written(theFormatter, 0), "none");
    EXPECT_EQ(WrittenInteger(theFormatter, 0), "none");
    EXPECT_EQ(Written(theFormatter, 0.5), "0.5");
    EXPECT_EQ(Read(theFormatter, "none"), "0:4");
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterZeroSymbol, nullptr);
    EXPECT_EQ(Written(theFormatter, 0), "0");
}

TEST(CFNumberFormatter, WhatIsNoPropertyChangesNothing)
{
    const auto theFormatter = NumberFormatter(kCFNumberFormatterDecimalStyle);
    CFNumberFormatterSetProperty(theFormatter, CFSTR("no key"), CFSTR("x"));
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterDecimalSeparator, kCFBooleanTrue);
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterDecimalSeparator, nullptr);
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterMinFractionDigits, CFSTR("3"));
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterMinFractionDigits, kCFNumberNaN);
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterMinFractionDigits, nullptr);
    EXPECT_EQ(Written(theFormatter, 1234.5), "1,234.5");
    EXPECT_EQ(CFNumberFormatterCopyProperty(theFormatter, CFSTR("no key")), nullptr);
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterMinFractionDigits, Float(1e300));
    EXPECT_EQ(PropertyOf(theFormatter, kCFNumberFormatterMinFractionDigits), "127");
    CFNumberFormatterSetProperty(theFormatter, kCFNumberFormatterRoundingMode, Integer(99));
    EXPECT_EQ(PropertyOf(theFormatter, kCFNumberFormatterRoundingMode), "6");
}

TEST(CFNumberFormatter, CurrenciesHaveTheirDigits)
{
    SInt32 theDigits = -1;
    double theIncrement = -1;
    EXPECT_TRUE(CFNumberFormatterGetDecimalInfoForCurrencyCode(CFSTR("USD"), &theDigits, &theIncrement));
    EXPECT_EQ(theDigits, 2);
    EXPECT_EQ(theIncrement, 0);
    EXPECT_TRUE(CFNumberFormatterGetDecimalInfoForCurrencyCode(CFSTR("JPY"), &theDigits, nullptr));
    EXPECT_EQ(theDigits, 0);
    for (const char* const theCode : {"", "ZZ", "QQQ", "dollars"}) {
        EXPECT_FALSE(CFNumberFormatterGetDecimalInfoForCurrencyCode(String(theCode), &theDigits, nullptr))
            << theCode;
    }
}

TEST(CFNumberFormatter, ReadsTheIntegersThatItWritesInEachLocale)
{
    std::mt19937 theRandom(20040429);
    for (const char* const theLocale : kLocales) {
        for (const CFNumberFormatterStyle theStyle :
             {kCFNumberFormatterNoStyle, kCFNumberFormatterDecimalStyle}) {
            const auto theFormatter = NumberFormatter(theStyle, theLocale);
            for (int theCount = 0; theCount < 60; ++theCount) {
                const UInt64 theBits = UInt64{theRandom()} << 32 | theRandom();
                const SInt64 theNumber = static_cast<SInt64>(theBits) >> (theRandom() % 64);
                const Owned<CFStringRef> theText(
                    CFNumberFormatterCreateStringWithNumber(nullptr, theFormatter, Integer(theNumber)));
                SInt64 theRead = 0;
                ASSERT_TRUE(CFNumberFormatterGetValueFromString(theFormatter, theText, nullptr,
                                                                kCFNumberSInt64Type, &theRead))
                    << theLocale << " " << TextOf(theText);
                ASSERT_EQ(theRead, theNumber) << theLocale << " " << TextOf(theText);
            }
        }
    }
}

TEST(CFNumberFormatter, ReadsTheAmountsThatItWritesInEachLocale)
{
    std::mt19937 theRandom(20040429);
    for (const char* const theLocale : kLocales) {
        const auto theFormatter = NumberFormatter(kCFNumberFormatterCurrencyStyle, theLocale);
        for (int theCount = 0; theCount < 60; ++theCount) {
            const double theNumber = (static_cast<double>(theRandom()) - 2147483648.0) * 100;
            const auto theText = Written(theFormatter, theNumber);
            double theRead = 0;
            ASSERT_TRUE(CFNumberFormatterGetValueFromString(theFormatter, String(theText), nullptr,
                                                            kCFNumberDoubleType, &theRead))
                << theLocale << " " << theText;
            ASSERT_EQ(theRead, theNumber) << theLocale << " " << theText;
        }
    }
}

TEST(CFNumberFormatter, HostileTextIsReadOrRefused)
{
    std::mt19937 theRandom(20040430);
    const std::u16string kAlphabet = u"0123456789.,-+()$%E '\u00A0\u202F\u2212\u0660\u221E\xD835";
    for (const char* const theLocale : kLocales) {
        const auto theFormatter = NumberFormatter(kCFNumberFormatterCurrencyStyle, theLocale);
        for (int theCount = 0; theCount < 300; ++theCount) {
            Units theUnits(theRandom() % 12);
            for (UniChar& theUnit : theUnits) {
                theUnit = kAlphabet[theRandom() % kAlphabet.size()];
            }
            const auto theText = String(theUnits);
            CFRange theRange = WholeOf(theText);
            double theNumber = 0;
            if (CFNumberFormatterGetValueFromString(theFormatter, theText, &theRange, kCFNumberDoubleType,
                                                    &theNumber)) {
                EXPECT_GT(theRange.length, 0);
                EXPECT_LE(theRange.length, CFStringGetLength(theText));
            }
        }
    }
    const auto theFormatter = NumberFormatter(kCFNumberFormatterScientificStyle);
    EXPECT_EQ(Read(theFormatter, "1E999999999999"), "-");
    EXPECT_EQ(Read(theFormatter, "1E-999999999999").substr(0, 2), "0:");
}
