// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmNumberFormatters_h
#define LmNumberFormatters_h

#include "LmFormatter.h"

#include <cstdint>
#include <limits>
#include <memory>

class LmNumberShape;

// Formatters for numbers, in the language of the person or in another: signs, separators, groups, digits and
// currencies are those that the platform's number formatter has for the locale.
//
// What all of them do:
//
// - What they write they can read, and no digit is lost, over the whole range of 64 bits.
// - They read a number with its groups or without, with or without the currency or percent sign, with blanks
//   around it, in digits of the locale or of ASCII. All else is refused: a plus sign, letters behind the
//   number, groups of another size ("1,5" in English), more places than there are, the empty text.
// - Bounds that stand the wrong way round are exchanged.
// - A problem is an English sentence. The application's LmFormatters.strings translates it: its keys are
//   the sentences, "This is not a number.", "The number must be between %@ and %@." and "The number has
//   more places than are kept."
//
// The value of a number with places is scaled: a whole number of its smallest units, 4250 for 42.50. On
// purpose: stores compare numbers as integers, so as doubles 42.00 and 42.50 would be equal, and the second
// would not be set where the first is. The model keeps the whole number, and calculates with it.
//
// Values are SInt32 (UInt32) where the range is within 32 bits, and SInt64 (UInt64) otherwise. Format takes
// any kind of number that is whole, also one out of the range; a number with a fraction, one that 64 bits do
// not hold, and what is no number give an invalid value.
//
// A formatter keeps nothing of the locale but how numbers look; null is the locale of the person. Cost: some
// calls of the platform when it is made, none to read or to write, but for a refusal. Where memory runs out
// while one is made, std::bad_alloc is thrown.
class LM_EXPORT LmNumberFormatter : public LmFormatter
{
public:
    ~LmNumberFormatter() override;

    [[nodiscard]] LmReading Parse(CFStringRef theText) const override;
    [[nodiscard]] LmValue Format(const LmValue& theValue) const override;

protected:
    // For the classes below. The ends of the range are the bits of signed or of unsigned numbers.
    struct Range
    {
        std::uint64_t theLeast;    // the lower end
        std::uint64_t theGreatest; // the upper end
        bool isUnsigned;           // whether the bits are those of unsigned numbers
    };
    // For a range, so many places, and a style of the platform's formatter; the code is for currencies.
    LmNumberFormatter(const Range& theRange, unsigned thePlaces, CFLocaleRef theLocale,
                      CFNumberFormatterStyle theStyle, CFStringRef theCurrencyCode);

    // For the currency's own number of places.
    static constexpr unsigned kPlacesOfCurrency = 100;

    // The range of signed numbers from theLeast to theGreatest.
    static Range SignedRange(std::int64_t theLeast, std::int64_t theGreatest);

private:
    [[nodiscard]] LmReading Accept(bool isNegative, std::uint64_t theMagnitude) const;
    [[nodiscard]] bool IsInRange(bool isNegative, std::uint64_t theBits) const;
    [[nodiscard]] LmReading RefuseRange() const;

    const std::unique_ptr<const LmNumberShape> mShape;
    const Range mRange;
    const unsigned mPlaces;
};

// Whole numbers from theLeast to theGreatest.
class LM_EXPORT LmIntegerFormatter : public LmNumberFormatter
{
public:
    // By default all of 32 bits.
    explicit LmIntegerFormatter(std::int64_t theLeast = std::numeric_limits<std::int32_t>::min(),
                                std::int64_t theGreatest = std::numeric_limits<std::int32_t>::max(),
                                CFLocaleRef theLocale = nullptr);
};

// The same without a sign. "-0" is 0.
class LM_EXPORT LmUnsignedFormatter : public LmNumberFormatter
{
public:
    // By default all of 32 bits.
    explicit LmUnsignedFormatter(std::uint64_t theLeast = 0,
                                 std::uint64_t theGreatest = std::numeric_limits<std::uint32_t>::max(),
                                 CFLocaleRef theLocale = nullptr);
};

// Numbers with thePlaces behind the separator, no more than 18, scaled: 4250 is "42.50" with two places. The
// range is one of scaled numbers.
class LM_EXPORT LmDecimalFormatter : public LmNumberFormatter
{
public:
    // By default all of 64 bits.
    explicit LmDecimalFormatter(unsigned thePlaces,
                                std::int64_t theLeast = std::numeric_limits<std::int64_t>::min(),
                                std::int64_t theGreatest = std::numeric_limits<std::int64_t>::max(),
                                CFLocaleRef theLocale = nullptr);
};

// Percentages with thePlaces, scaled: with one place 125 is "12.5%". The range is one of scaled percentages.
class LM_EXPORT LmPercentFormatter : public LmNumberFormatter
{
public:
    // By default without places, and all of 32 bits.
    explicit LmPercentFormatter(unsigned thePlaces = 0,
                                std::int64_t theLeast = std::numeric_limits<std::int32_t>::min(),
                                std::int64_t theGreatest = std::numeric_limits<std::int32_t>::max(),
                                CFLocaleRef theLocale = nullptr);
};

// Amounts of a currency, as whole numbers of its smallest unit: 4250 is "$42.50", and "¥4,250" in yen, which
// have no smaller unit. theCurrencyCode is one such as "EUR"; null is the currency of the locale. Where the
// platform does not know the currency, it has two places.
class LM_EXPORT LmCurrencyFormatter : public LmNumberFormatter
{
public:
    // By default the currency of the locale, and all of 64 bits.
    explicit LmCurrencyFormatter(CFStringRef theCurrencyCode = nullptr,
                                 std::int64_t theLeast = std::numeric_limits<std::int64_t>::min(),
                                 std::int64_t theGreatest = std::numeric_limits<std::int64_t>::max(),
                                 CFLocaleRef theLocale = nullptr);
};

#endif
