// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmRangeTransform.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

// What limits numbers of one sort.
class LM_HIDDEN LmRangeTransform::Range
{
public:
    Range() = default;
    virtual ~Range() = default;
    Range(const Range&) = delete;
    Range& operator=(const Range&) = delete;

    [[nodiscard]] virtual LmValue Limit(const LmValue& theNumber) const = 0;
};

namespace {

const double kBeyondSInt32 = 2147483648.0;

bool IsUsable(const LmValue& theValue)
{
    return theValue.IsNumber() && !(theValue.GetType() == kTypeDouble && std::isnan(theValue.GetDouble()));
}

// ---- Integers of all kinds

// Any of them, in two's complement.
struct Integer
{
    bool isNegative;
    std::uint64_t theBits;

    bool operator<(const Integer& theOther) const
    {
        return isNegative != theOther.isNegative ? isNegative : theBits < theOther.theBits;
    }
};

Integer FromSigned(std::int64_t theNumber)
{
    return {theNumber < 0, static_cast<std::uint64_t>(theNumber)};
}

Integer FromDouble(double theNumber)
{
    const LmValue theWhole(std::round(theNumber)); // its getters saturate, and make 0 of NaN
    return theNumber < 0 ? FromSigned(theWhole.GetSInt64()) : Integer{false, theWhole.GetUInt64()};
}

Integer ReadInteger(const LmValue& theNumber)
{
    switch (theNumber.GetType()) {
    case kTypeDouble:
        return FromDouble(theNumber.GetDouble());
    case kTypeSInt32:
    case kTypeSInt64:
        return FromSigned(theNumber.GetSInt64());
    default:
        return {false, theNumber.GetUInt64()};
    }
}

Integer LowestOf(ValueType theKind)
{
    switch (theKind) {
    case kTypeSInt32:
        return FromSigned(std::numeric_limits<std::int32_t>::min());
    case kTypeSInt64:
        return FromSigned(std::numeric_limits<std::int64_t>::min());
    default:
        return {false, 0};
    }
}

Integer HighestOf(ValueType theKind)
{
    switch (theKind) {
    case kTypeSInt32:
        return {false, std::numeric_limits<std::int32_t>::max()};
    case kTypeSInt64:
        return {false, std::numeric_limits<std::int64_t>::max()};
    case kTypeUInt64:
        return {false, std::numeric_limits<std::uint64_t>::max()};
    default:
        return {false, std::numeric_limits<std::uint32_t>::max()};
    }
}

LmValue MakeInteger(ValueType theKind, std::uint64_t theBits)
{
    switch (theKind) {
    case kTypeSInt32:
        return LmValue(static_cast<int>(static_cast<std::int32_t>(theBits)));
    case kTypeSInt64:
        return LmValue(static_cast<long long>(theBits));
    case kTypeUInt64:
        return LmValue(static_cast<unsigned long long>(theBits));
    default:
        return LmValue(static_cast<unsigned int>(theBits));
    }
}

// The first multiple of theStep that is not below theLowest, a negative number.
Integer FirstStepFrom(const Integer& theLowest, std::uint64_t theStep)
{
    const std::uint64_t theDistance = std::uint64_t{0} - theLowest.theBits;
    const std::uint64_t theBits = std::uint64_t{0} - theDistance / theStep * theStep;
    return {theBits != 0, theBits};
}

// On purpose: an unsigned number is the signed one that a control means by it, where it can be no other.
LmValue AsControlsMeanIt(const LmValue& theNumber, bool isUnsignedOutside)
{
    return isUnsignedOutside && theNumber.GetType() == kTypeUInt32 ? LmValue(theNumber.GetSInt32())
                                                                   : theNumber;
}

} // namespace

class LM_HIDDEN LmRangeTransform::IntegerRange : public Range
{
public:
    IntegerRange(ValueType theKind, const LmValue& theMinimum, const LmValue& theMaximum,
                 const LmValue& theStep)
        : mKind(theKind),
          mStep(ReadStep(theStep)),
          mLowest(theMinimum.IsValid() ? Fit(ReadInteger(theMinimum)) : LowestOf(theKind)),
          mHighest(theMaximum.IsValid() ? Fit(ReadInteger(theMaximum)) : HighestOf(theKind))
    {
        if (mHighest < mLowest) {
            std::swap(mLowest, mHighest);
        }
        if (!theMinimum.IsValid() && mLowest.isNegative) {
            mLowest = std::min(FirstStepFrom(mLowest, mStep), mHighest);
        }
    }

    LmValue Limit(const LmValue& theNumber) const override
    {
        const bool isUnsignedOutside = !(HighestOf(kTypeSInt32) < mHighest);
        const Integer theInteger = ReadInteger(AsControlsMeanIt(theNumber, isUnsignedOutside));
        const Integer theLimited = std::min(std::max(theInteger, mLowest), mHighest);
        // Within the range, the distance from the lowest number is never negative.
        const std::uint64_t theDistance = Snap(theLimited.theBits - mLowest.theBits);
        return MakeInteger(mKind, mLowest.theBits + theDistance);
    }

private:
    static std::uint64_t ReadStep(const LmValue& theStep)
    {
        const Integer theInteger = theStep.IsValid() ? ReadInteger(theStep) : Integer{false, 1};
        return theInteger.isNegative || theInteger.theBits == 0 ? 1 : theInteger.theBits;
    }

    [[nodiscard]] Integer Fit(const Integer& theInteger) const
    {
        return std::min(std::max(theInteger, LowestOf(mKind)), HighestOf(mKind));
    }

    [[nodiscard]] std::uint64_t Snap(std::uint64_t theDistance) const
    {
        const std::uint64_t theRest = theDistance % mStep;
        const std::uint64_t theLower = theDistance - theRest;
        const bool isUpperNearer = theRest >= mStep - theRest;
        const bool isUpperThere = mHighest.theBits - mLowest.theBits - theLower >= mStep;
        return isUpperNearer && isUpperThere ? theLower + mStep : theLower;
    }

    const ValueType mKind;
    const std::uint64_t mStep; // at least 1
    Integer mLowest;
    Integer mHighest;
};

class LM_HIDDEN LmRangeTransform::DoubleRange : public Range
{
public:
    DoubleRange(const LmValue& theMinimum, const LmValue& theMaximum, const LmValue& theStep)
        : mLowest(theMinimum.IsValid() ? theMinimum.GetDouble() : -kInfinity),
          mHighest(theMaximum.IsValid() ? theMaximum.GetDouble() : kInfinity),
          mStep(theStep.IsValid() ? theStep.GetDouble() : 0)
    {
        if (mHighest < mLowest) {
            std::swap(mLowest, mHighest);
        }
    }

    LmValue Limit(const LmValue& theNumber) const override
    {
        const double theDouble = AsControlsMeanIt(theNumber, mHighest < kBeyondSInt32).GetDouble();
        return LmValue(Snap(std::min(std::max(std::isnan(theDouble) ? 0 : theDouble, mLowest), mHighest)));
    }

private:
    static constexpr double kInfinity = std::numeric_limits<double>::infinity();

    // The nearest step in the range; theNumber where there are none, or they cannot be counted.
    [[nodiscard]] double Snap(double theNumber) const
    {
        const double theOrigin = std::isfinite(mLowest) ? mLowest : 0;
        const double theSteps = mStep > 0 ? std::floor((theNumber - theOrigin) / mStep + 0.5) : kInfinity;
        if (!(std::fabs(theSteps) < kCountable)) {
            return theNumber;
        }
        const double theSnapped = theOrigin + theSteps * mStep;
        if (std::fabs(theSnapped - mHighest) <=
            Rounding(std::max(std::fabs(theOrigin), std::fabs(mHighest)))) {
            return mHighest;
        }
        return theSnapped <= mHighest ? theSnapped : theOrigin + (theSteps - 1) * mStep;
    }

    // How far from its true place a step may be that is counted from or to a number of such a size; no more
    // than a small part of a step.
    [[nodiscard]] double Rounding(double theSize) const
    {
        return std::min(4 * std::numeric_limits<double>::epsilon() * theSize, mStep / 8);
    }

    static constexpr double kCountable = 4503599627370496.0; // 2 to the 52nd: halves are still told apart

    double mLowest;
    double mHighest;
    const double mStep; // 0 or less: none
};

std::unique_ptr<const LmRangeTransform::Range>
LmRangeTransform::MakeRange(const LmValue& theMinimum, const LmValue& theMaximum, const LmValue& theStep)
{
    const LmValue theLowest = IsUsable(theMinimum) ? theMinimum : LmValue();
    const LmValue theHighest = IsUsable(theMaximum) ? theMaximum : LmValue();
    const LmValue theDistance = IsUsable(theStep) ? theStep : LmValue();
    // The kinds are numbered from the narrowest to the widest, behind the invalid one.
    switch (const ValueType theKind =
                std::max({theLowest.GetType(), theHighest.GetType(), theDistance.GetType()})) {
    case kTypeInvalid:
        return nullptr;
    case kTypeDouble:
        return std::make_unique<DoubleRange>(theLowest, theHighest, theDistance);
    default:
        return std::make_unique<IntegerRange>(theKind, theLowest, theHighest, theDistance);
    }
}

LmRangeTransform::LmRangeTransform(const LmValue& theMinimum, const LmValue& theMaximum,
                                   const LmValue& theStep)
    : mRange(MakeRange(theMinimum, theMaximum, theStep))
{
}

LmRangeTransform::~LmRangeTransform() = default;

LmValue LmRangeTransform::Apply(const LmValue& theValue)
{
    return mRange != nullptr && theValue.IsNumber() ? mRange->Limit(theValue) : theValue;
}
