// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmNumberFormatters.h"

#include "LmNumberShape.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr unsigned kMostPlaces = 18;

std::uint64_t BitsOf(std::int64_t theNumber)
{
    return static_cast<std::uint64_t>(theNumber);
}

// The bits of a negative number are greater than those of any other.
LmNumberShape::Number NumberOfBits(std::uint64_t theBits, bool isUnsigned)
{
    const bool isNegative = !isUnsigned && (theBits >> 63) != 0;
    return {isNegative, isNegative ? 0 - theBits : theBits};
}

// A whole number of any kind, as its sign and its magnitude; false for what is none.
bool GetNumber(const LmValue& theValue, LmNumberShape::Number& outNumber)
{
    constexpr double kEnd = 18446744073709551616.0; // of unsigned numbers; of signed ones, half of it
    if (!theValue.IsNumber()) {
        return false;
    }
    if (theValue.GetType() == kTypeDouble) {
        const double theNumber = theValue.GetDouble();
        if (!(theNumber >= -kEnd / 2 && theNumber < kEnd) || std::trunc(theNumber) != theNumber) {
            return false;
        }
        outNumber = {theNumber < 0, static_cast<std::uint64_t>(std::abs(theNumber))};
        return true;
    }
    const bool isUnsigned = theValue.GetType() == kTypeUInt64;
    outNumber = NumberOfBits(isUnsigned ? theValue.GetUInt64() : BitsOf(theValue.GetSInt64()), isUnsigned);
    return true;
}

template <class Narrow>
bool HoldsBoth(std::uint64_t theLeast, std::uint64_t theGreatest)
{
    return BitsOf(static_cast<std::int64_t>(static_cast<Narrow>(theLeast))) == theLeast &&
           BitsOf(static_cast<std::int64_t>(static_cast<Narrow>(theGreatest))) == theGreatest;
}

} // namespace

LmNumberFormatter::LmNumberFormatter(const Range& theRange, unsigned thePlaces, CFLocaleRef theLocale,
                                     CFNumberFormatterStyle theStyle, CFStringRef theCurrencyCode)
    : mShape(std::make_unique<LmNumberShape>(theLocale, theStyle, theCurrencyCode)),
      mRange(theRange),
      mPlaces(std::min(thePlaces == kPlacesOfCurrency ? mShape->GetCurrencyPlaces() : thePlaces, kMostPlaces))
{
}

LmNumberFormatter::~LmNumberFormatter() = default;

LmNumberFormatter::Range LmNumberFormatter::SignedRange(std::int64_t theLeast, std::int64_t theGreatest)
{
    return {BitsOf(std::min(theLeast, theGreatest)), BitsOf(std::max(theLeast, theGreatest)), false};
}

LmReading LmNumberFormatter::Parse(CFStringRef theText) const
{
    LmNumberShape::Number theNumber{false, 0};
    switch (mShape->Read(theText, mPlaces, theNumber)) {
    case LmNumberShape::Outcome::kIsNumber:
        return Accept(theNumber.isNegative, theNumber.theMagnitude);
    case LmNumberShape::Outcome::kHasTooManyPlaces:
        return LmRefusal(CFSTR("The number has more places than are kept."));
    case LmNumberShape::Outcome::kIsTooLarge:
        return RefuseRange();
    default:
        return LmRefusal(CFSTR("This is not a number."));
    }
}

bool LmNumberFormatter::IsInRange(bool isNegative, std::uint64_t theBits) const
{
    if (mRange.isUnsigned) {
        return !isNegative && theBits >= mRange.theLeast && theBits <= mRange.theGreatest;
    }
    const bool isWhatItSeems = isNegative == ((theBits >> 63) != 0) || theBits == 0;
    const auto theNumber = static_cast<std::int64_t>(theBits);
    return isWhatItSeems && theNumber >= static_cast<std::int64_t>(mRange.theLeast) &&
           theNumber <= static_cast<std::int64_t>(mRange.theGreatest);
}

LmReading LmNumberFormatter::Accept(bool isNegative, std::uint64_t theMagnitude) const
{
    const std::uint64_t theBits = isNegative ? 0 - theMagnitude : theMagnitude;
    if (!IsInRange(isNegative, theBits)) {
        return RefuseRange();
    }
    if (mRange.isUnsigned) {
        return LmReading::Accept(mRange.theGreatest <= std::numeric_limits<std::uint32_t>::max()
                                     ? LmValue(static_cast<unsigned long>(theBits))
                                     : LmValue(static_cast<unsigned long long>(theBits)));
    }
    return LmReading::Accept(HoldsBoth<std::int32_t>(mRange.theLeast, mRange.theGreatest)
                                 ? LmValue(static_cast<long>(static_cast<std::int64_t>(theBits)))
                                 : LmValue(static_cast<long long>(theBits)));
}

LmReading LmNumberFormatter::RefuseRange() const
{
    return LmRefusal(CFSTR("The number must be between %@ and %@."),
                     mShape->Write(NumberOfBits(mRange.theLeast, mRange.isUnsigned), mPlaces),
                     mShape->Write(NumberOfBits(mRange.theGreatest, mRange.isUnsigned), mPlaces));
}

LmValue LmNumberFormatter::Format(const LmValue& theValue) const
{
    LmNumberShape::Number theNumber{false, 0};
    return GetNumber(theValue, theNumber) ? LmTextValue(mShape->Write(theNumber, mPlaces)) : LmValue();
}

LmIntegerFormatter::LmIntegerFormatter(std::int64_t theLeast, std::int64_t theGreatest, CFLocaleRef theLocale)
    : LmNumberFormatter(SignedRange(theLeast, theGreatest), 0, theLocale, kCFNumberFormatterDecimalStyle,
                        nullptr)
{
}

LmUnsignedFormatter::LmUnsignedFormatter(std::uint64_t theLeast, std::uint64_t theGreatest,
                                         CFLocaleRef theLocale)
    : LmNumberFormatter({std::min(theLeast, theGreatest), std::max(theLeast, theGreatest), true}, 0,
                        theLocale, kCFNumberFormatterDecimalStyle, nullptr)
{
}

LmDecimalFormatter::LmDecimalFormatter(unsigned thePlaces, std::int64_t theLeast, std::int64_t theGreatest,
                                       CFLocaleRef theLocale)
    : LmNumberFormatter(SignedRange(theLeast, theGreatest), std::min(thePlaces, kMostPlaces), theLocale,
                        kCFNumberFormatterDecimalStyle, nullptr)
{
}

LmPercentFormatter::LmPercentFormatter(unsigned thePlaces, std::int64_t theLeast, std::int64_t theGreatest,
                                       CFLocaleRef theLocale)
    : LmNumberFormatter(SignedRange(theLeast, theGreatest), std::min(thePlaces, kMostPlaces), theLocale,
                        kCFNumberFormatterPercentStyle, nullptr)
{
}

LmCurrencyFormatter::LmCurrencyFormatter(CFStringRef theCurrencyCode, std::int64_t theLeast,
                                         std::int64_t theGreatest, CFLocaleRef theLocale)
    : LmNumberFormatter(SignedRange(theLeast, theGreatest), kPlacesOfCurrency, theLocale,
                        kCFNumberFormatterCurrencyStyle, theCurrencyCode)
{
}
