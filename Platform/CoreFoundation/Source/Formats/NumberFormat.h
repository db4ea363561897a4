// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Formats_NumberFormat_h
#define Formats_NumberFormat_h

// What a number formatter stands on: with ICU (ICU/ICUNumberFormat.cpp) or without
// (Plain/PlainNumberFormat.cpp). Everything here throws std::bad_alloc when there is no memory.

#include "Characters.h"
#include "Decimal.h"

#include <CoreFoundation/CFNumberFormatter.h>
#include <memory>

namespace Host {

enum class NumberAttribute
{
    kMinIntegerDigits,
    kMaxIntegerDigits,
    kMinFractionDigits,
    kMaxFractionDigits,
    kGroupingSize,
    kSecondaryGroupingSize,
    kRoundingMode, // as CFNumberFormatterRoundingMode
    kFormatWidth,
    kPaddingPosition, // as CFNumberFormatterPadPosition
    kMultiplier,
    kUseGrouping, // booleans, from here on
    kAlwaysShowDecimal,
    kIsLenient
};

enum class NumberSymbol
{
    kDecimalSeparator,
    kCurrencyDecimalSeparator,
    kGroupingSeparator,
    kCurrencyGroupingSeparator,
    kPercent,
    kPerMill,
    kMinus,
    kPlus,
    kExponent,
    kInfinity,
    kNaN,
    kCurrencySymbol,
    kInternationalCurrencySymbol,
    kCurrencyCode,
    kPaddingCharacter,
    kPositivePrefix,
    kPositiveSuffix,
    kNegativePrefix,
    kNegativeSuffix
};

class NumberFormat
{
public:
    NumberFormat() = default;
    virtual ~NumberFormat() = default;
    NumberFormat(const NumberFormat&) = delete;
    NumberFormat& operator=(const NumberFormat&) = delete;

    virtual Characters Pattern() const = 0;
    // What is no pattern changes nothing.
    virtual void SetPattern(const Characters& thePattern) = 0;

    virtual Characters Format(SInt64 theNumber) const = 0;
    virtual Characters Format(double theNumber) const = 0;

    // A number, or one that is none or has no end.
    struct Reading
    {
        Decimal theDecimal;
        std::optional<double> theOther;
        size_t theLength; // of the text that was read
    };
    // The number that theText starts with.
    virtual std::optional<Reading> Parse(const Characters& theText, bool theIsInteger) = 0;

    virtual int Attribute(NumberAttribute theAttribute) const = 0;
    virtual void SetAttribute(NumberAttribute theAttribute, int theValue) = 0;
    virtual double RoundingIncrement() const = 0;
    virtual void SetRoundingIncrement(double theIncrement) = 0;
    virtual Characters Text(NumberSymbol theText) const = 0;
    virtual void SetText(NumberSymbol theText, const Characters& theCharacters) = 0;
};

// For a locale by its canonical identifier; null for a style that is not there.
std::unique_ptr<NumberFormat> MakeNumberFormat(const std::string& theLocale, CFNumberFormatterStyle theStyle);

// What amounts of a currency look like; false for an unknown one.
bool CurrencyInfo(const Characters& theCode, int& outFractionDigits, double& outRoundingIncrement);

} // namespace Host

#endif
