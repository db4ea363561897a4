// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Formats/NumberFormat.h"

#include "Buffers.h"

#include <limits>
#include <unicode/ucurr.h>
#include <unicode/unum.h>

namespace Host {

namespace {

UNumberFormatAttribute ICUAttribute(NumberAttribute theAttribute)
{
    switch (theAttribute) {
    case NumberAttribute::kMinIntegerDigits:
        return UNUM_MIN_INTEGER_DIGITS;
    case NumberAttribute::kMaxIntegerDigits:
        return UNUM_MAX_INTEGER_DIGITS;
    case NumberAttribute::kMinFractionDigits:
        return UNUM_MIN_FRACTION_DIGITS;
    case NumberAttribute::kMaxFractionDigits:
        return UNUM_MAX_FRACTION_DIGITS;
    case NumberAttribute::kGroupingSize:
        return UNUM_GROUPING_SIZE;
    case NumberAttribute::kSecondaryGroupingSize:
        return UNUM_SECONDARY_GROUPING_SIZE;
    case NumberAttribute::kRoundingMode:
        return UNUM_ROUNDING_MODE;
    case NumberAttribute::kFormatWidth:
        return UNUM_FORMAT_WIDTH;
    case NumberAttribute::kPaddingPosition:
        return UNUM_PADDING_POSITION;
    case NumberAttribute::kMultiplier:
        return UNUM_MULTIPLIER;
    case NumberAttribute::kUseGrouping:
        return UNUM_GROUPING_USED;
    case NumberAttribute::kAlwaysShowDecimal:
        return UNUM_DECIMAL_ALWAYS_SHOWN;
    default:
        return UNUM_LENIENT_PARSE;
    }
}

// ICU keeps the texts of a format in two places; this is where the first kind is.
std::optional<UNumberFormatSymbol> ICUSymbol(NumberSymbol theText)
{
    switch (theText) {
    case NumberSymbol::kDecimalSeparator:
        return UNUM_DECIMAL_SEPARATOR_SYMBOL;
    case NumberSymbol::kCurrencyDecimalSeparator:
        return UNUM_MONETARY_SEPARATOR_SYMBOL;
    case NumberSymbol::kGroupingSeparator:
        return UNUM_GROUPING_SEPARATOR_SYMBOL;
    case NumberSymbol::kCurrencyGroupingSeparator:
        return UNUM_MONETARY_GROUPING_SEPARATOR_SYMBOL;
    case NumberSymbol::kPercent:
        return UNUM_PERCENT_SYMBOL;
    case NumberSymbol::kPerMill:
        return UNUM_PERMILL_SYMBOL;
    case NumberSymbol::kMinus:
        return UNUM_MINUS_SIGN_SYMBOL;
    case NumberSymbol::kPlus:
        return UNUM_PLUS_SIGN_SYMBOL;
    case NumberSymbol::kExponent:
        return UNUM_EXPONENTIAL_SYMBOL;
    case NumberSymbol::kInfinity:
        return UNUM_INFINITY_SYMBOL;
    case NumberSymbol::kNaN:
        return UNUM_NAN_SYMBOL;
    case NumberSymbol::kCurrencySymbol:
        return UNUM_CURRENCY_SYMBOL;
    case NumberSymbol::kInternationalCurrencySymbol:
        return UNUM_INTL_CURRENCY_SYMBOL;
    default:
        return std::nullopt;
    }
}

UNumberFormatTextAttribute ICUText(NumberSymbol theText)
{
    switch (theText) {
    case NumberSymbol::kCurrencyCode:
        return UNUM_CURRENCY_CODE;
    case NumberSymbol::kPaddingCharacter:
        return UNUM_PADDING_CHARACTER;
    case NumberSymbol::kPositivePrefix:
        return UNUM_POSITIVE_PREFIX;
    case NumberSymbol::kPositiveSuffix:
        return UNUM_POSITIVE_SUFFIX;
    case NumberSymbol::kNegativePrefix:
        return UNUM_NEGATIVE_PREFIX;
    default:
        return UNUM_NEGATIVE_SUFFIX;
    }
}

using OwnedFormat = std::unique_ptr<UNumberFormat, decltype(&unum_close)>;

class ICUNumberFormat : public NumberFormat
{
public:
    explicit ICUNumberFormat(OwnedFormat&& theFormat)
        : mFormat(std::move(theFormat))
    {
    }

    Characters Pattern() const override;
    void SetPattern(const Characters& thePattern) override;
    Characters Format(SInt64 theNumber) const override;
    Characters Format(double theNumber) const override;
    std::optional<Reading> Parse(const Characters& theText, bool theIsInteger) override;
    int Attribute(NumberAttribute theAttribute) const override;
    void SetAttribute(NumberAttribute theAttribute, int theValue) override;
    double RoundingIncrement() const override;
    void SetRoundingIncrement(double theIncrement) override;
    Characters Text(NumberSymbol theText) const override;
    void SetText(NumberSymbol theText, const Characters& theCharacters) override;

private:
    const OwnedFormat mFormat;
};

Characters ICUNumberFormat::Pattern() const
{
    return TextFromICU([this](UChar* theBuffer, int32_t theSize, UErrorCode* theStatus) {
        return unum_toPattern(mFormat.get(), 0, theBuffer, theSize, theStatus);
    });
}

void ICUNumberFormat::SetPattern(const Characters& thePattern)
{
    UErrorCode theStatus = U_ZERO_ERROR;
    UParseError theError;
    unum_applyPattern(mFormat.get(), 0, thePattern.data(), LengthOf(thePattern), &theError, &theStatus);
    RequireICUMemory(theStatus);
}

Characters ICUNumberFormat::Format(SInt64 theNumber) const
{
    return TextFromICU([=](UChar* theBuffer, int32_t theSize, UErrorCode* theStatus) {
        return unum_formatInt64(mFormat.get(), theNumber, theBuffer, theSize, nullptr, theStatus);
    });
}

Characters ICUNumberFormat::Format(double theNumber) const
{
    return TextFromICU([=](UChar* theBuffer, int32_t theSize, UErrorCode* theStatus) {
        return unum_formatDouble(mFormat.get(), theNumber, theBuffer, theSize, nullptr, theStatus);
    });
}

std::optional<NumberFormat::Reading> ICUNumberFormat::Parse(const Characters& theText, bool theIsInteger)
{
    // ICU writes a number of a million digits with a million digits; one that fits nowhere is none.
    constexpr int32_t kMostDigits = 400;
    char theNumber[kMostDigits];
    int32_t thePosition = 0;
    UErrorCode theStatus = U_ZERO_ERROR;
    unum_setAttribute(mFormat.get(), UNUM_PARSE_INT_ONLY, theIsInteger ? 1 : 0);
    const int32_t theLength = unum_parseDecimal(mFormat.get(), theText.data(), LengthOf(theText),
                                                &thePosition, theNumber, kMostDigits, &theStatus);
    RequireICUMemory(theStatus);
    if (U_FAILURE(theStatus) || thePosition <= 0 || theLength >= kMostDigits) {
        return std::nullopt;
    }
    const std::string theFound(theNumber, static_cast<size_t>(theLength));
    const size_t theEnd = static_cast<size_t>(thePosition);
    if (const std::optional<Decimal> theDecimal = ParseDecimal(theFound)) {
        return Reading{*theDecimal, std::nullopt, theEnd};
    }
    // Digits that are too many for ICU become infinite, too.
    const double theInfinity = std::numeric_limits<double>::infinity();
    const bool theIsNegative = theFound[0] == '-';
    const bool theIsInfinite = theFound.find("Inf") != std::string::npos;
    if (theIsInfinite && theText.find(Text(NumberSymbol::kInfinity)) >= theEnd) {
        return std::nullopt;
    }
    return Reading{{},
                   !theIsInfinite  ? std::numeric_limits<double>::quiet_NaN()
                   : theIsNegative ? -theInfinity
                                   : theInfinity,
                   theEnd};
}

int ICUNumberFormat::Attribute(NumberAttribute theAttribute) const
{
    return unum_getAttribute(mFormat.get(), ICUAttribute(theAttribute));
}

void ICUNumberFormat::SetAttribute(NumberAttribute theAttribute, int theValue)
{
    unum_setAttribute(mFormat.get(), ICUAttribute(theAttribute), theValue);
}

double ICUNumberFormat::RoundingIncrement() const
{
    return unum_getDoubleAttribute(mFormat.get(), UNUM_ROUNDING_INCREMENT);
}

void ICUNumberFormat::SetRoundingIncrement(double theIncrement)
{
    unum_setDoubleAttribute(mFormat.get(), UNUM_ROUNDING_INCREMENT, theIncrement);
}

Characters ICUNumberFormat::Text(NumberSymbol theText) const
{
    return TextFromICU([=](UChar* theBuffer, int32_t theSize, UErrorCode* theStatus) {
        const auto theSymbol = ICUSymbol(theText);
        return theSymbol
                   ? unum_getSymbol(mFormat.get(), *theSymbol, theBuffer, theSize, theStatus)
                   : unum_getTextAttribute(mFormat.get(), ICUText(theText), theBuffer, theSize, theStatus);
    });
}

void ICUNumberFormat::SetText(NumberSymbol theText, const Characters& theCharacters)
{
    UErrorCode theStatus = U_ZERO_ERROR;
    if (const auto theSymbol = ICUSymbol(theText)) {
        unum_setSymbol(mFormat.get(), *theSymbol, theCharacters.data(), LengthOf(theCharacters), &theStatus);
    } else {
        unum_setTextAttribute(mFormat.get(), ICUText(theText), theCharacters.data(), LengthOf(theCharacters),
                              &theStatus);
    }
    RequireICUMemory(theStatus);
}

UNumberFormatStyle ICUStyle(CFNumberFormatterStyle theStyle)
{
    static const UNumberFormatStyle kStyles[] = {UNUM_DECIMAL, UNUM_DECIMAL,    UNUM_CURRENCY,
                                                 UNUM_PERCENT, UNUM_SCIENTIFIC, UNUM_SPELLOUT};
    return kStyles[theStyle];
}

} // namespace

std::unique_ptr<NumberFormat> MakeNumberFormat(const std::string& theLocale, CFNumberFormatterStyle theStyle)
{
    UErrorCode theStatus = U_ZERO_ERROR;
    OwnedFormat theFormat(unum_open(ICUStyle(theStyle), nullptr, 0, theLocale.c_str(), nullptr, &theStatus),
                          unum_close);
    RequireICUMemory(theStatus);
    if (U_FAILURE(theStatus)) {
        return nullptr;
    }
    unum_setAttribute(theFormat.get(), UNUM_ROUNDING_MODE, UNUM_ROUND_HALFEVEN);
    return std::make_unique<ICUNumberFormat>(std::move(theFormat));
}

bool CurrencyInfo(const Characters& theCode, int& outFractionDigits, double& outRoundingIncrement)
{
    constexpr size_t kCodeLength = 3;
    UErrorCode theStatus = U_ZERO_ERROR;
    if (theCode.size() != kCodeLength || ucurr_getNumericCode(theCode.c_str()) == 0) {
        return false;
    }
    outFractionDigits = ucurr_getDefaultFractionDigits(theCode.c_str(), &theStatus);
    outRoundingIncrement = ucurr_getRoundingIncrement(theCode.c_str(), &theStatus);
    RequireICUMemory(theStatus);
    return U_SUCCESS(theStatus);
}

} // namespace Host
