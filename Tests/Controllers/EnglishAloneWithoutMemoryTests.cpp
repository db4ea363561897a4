// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What formatters of numbers and dates do when memory runs out while they are made, where the platform knows
// English alone.

#include "FormatterMemoryTestSupport.h"
#include "LmDateFormatter.h"
#include "LmNumberFormatters.h"

#include <gtest/gtest.h>
#include <memory>

TEST(EnglishAloneWithoutMemory, NumberFormattersAreMadeWholeOrNotAtAll)
{
    const TestLocale theEnglish("en_US");
    const LmValue kNumber(123450LL);
    FailWhileMaking([&] { return std::make_unique<LmIntegerFormatter>(-9, 999999, theEnglish); }, kNumber,
                    "1,234");
    FailWhileMaking([&] { return std::make_unique<LmDecimalFormatter>(2, -9, 999999, theEnglish); }, kNumber,
                    "1.50");
    FailWhileMaking([&] { return std::make_unique<LmPercentFormatter>(1, -9, 999999, theEnglish); }, kNumber,
                    "1.5%");
    FailWhileMaking(
        [&] { return std::make_unique<LmCurrencyFormatter>(CFSTR("JPY"), -9, 999999, theEnglish); }, kNumber,
        "500");
    FailWhileMaking([&] { return std::make_unique<LmCurrencyFormatter>(nullptr, -9, 999999, theEnglish); },
                    kNumber, "$5.00");
}

TEST(EnglishAloneWithoutMemory, DateFormattersAreMadeWholeOrNotAtAll)
{
    const TestLocale theEnglish("en_US");
    for (const CFDateFormatterStyle theStyle : {kCFDateFormatterNoStyle, kCFDateFormatterShortStyle}) {
        FailWhileMaking(
            [&] {
                return std::make_unique<LmDateFormatter>(theStyle, kCFDateFormatterShortStyle, theEnglish);
            },
            LmValue(36000LL), "1/1/2001 10:00 AM");
    }
}
