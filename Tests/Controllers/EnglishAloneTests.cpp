// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What formatters do where the platform knows English alone. AllLocalesTests.cpp makes the same calls where
// it knows all locales.

#include "LmNumberFormatters.h"

#include "FormatterTestSupport.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kGreatest = std::numeric_limits<std::int64_t>::max();
const char* const kNoNumber = "This is not a number.";

} // namespace

TEST(EnglishAlone, NumbersSpeakItWhateverTheLocale)
{
    const TestLocale theGerman("de_DE");
    const LmDecimalFormatter theDecimals(2, kLeast, kGreatest, theGerman);
    EXPECT_EQ(Formatted(theDecimals, LmValue(123456)), "1,234.56");
    EXPECT_EQ(Parsed(theDecimals, "1,234.56"), "SInt64 123456");
    EXPECT_EQ(Parsed(theDecimals, "1.5"), "SInt64 150");
    EXPECT_EQ(Parsed(theDecimals, "1.234,56"), kNoNumber);
    EXPECT_EQ(Formatted(LmPercentFormatter(0, 0, 100, theGerman), LmValue(5)), "5%");
    EXPECT_EQ(Formatted(LmCurrencyFormatter(nullptr, 0, 100, theGerman), LmValue(500)), "$5.00");
    const TestLocale theHindi("hi_IN");
    EXPECT_EQ(Formatted(LmIntegerFormatter(0, 1, theHindi), LmValue(12345678)), "12,345,678");
    EXPECT_EQ(Parsed(LmIntegerFormatter(0, 99999999, theHindi), "12,345,678"), "SInt32 12345678");
    const TestLocale theFrench("fr_FR");
    EXPECT_EQ(Parsed(LmIntegerFormatter(0, 99999999, theFrench), "12 345"), kNoNumber);
    const TestLocale thePersian("fa_IR");
    EXPECT_EQ(Formatted(LmIntegerFormatter(0, 1, thePersian), LmValue(12)), "12");
    EXPECT_EQ(Parsed(LmIntegerFormatter(0, 99, thePersian), "12"), "SInt32 12");
}
