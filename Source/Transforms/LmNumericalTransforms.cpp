// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmNumericalTransforms.h"

#include "LmDiagnostics.h"
#include "LmNumericConversion.h"

#include <cmath>
#include <cstdint>
#include <limits>

// A product that is too large for a float becomes an infinity.
static_assert(std::numeric_limits<float>::is_iec559, "the arithmetic of IEC 60559");

namespace {

using LmNumericConversion::ToSInt32;
using LmNumericConversion::ToSInt64;
using LmNumericConversion::ToUInt32;
using LmNumericConversion::ToUInt64;

// Signed arithmetic wraps round, so it is done with unsigned numbers.
std::int32_t Negate(std::int32_t theNumber)
{
    return static_cast<std::int32_t>(0U - static_cast<std::uint32_t>(theNumber));
}

std::int64_t Negate(std::int64_t theNumber)
{
    return static_cast<std::int64_t>(std::uint64_t{0} - static_cast<std::uint64_t>(theNumber));
}

std::int32_t Absolute(std::int32_t theNumber)
{
    return theNumber < 0 ? Negate(theNumber) : theNumber;
}

// Values of each integer kind, from the exact type that the arithmetic is done in.
LmValue FromUInt32(std::uint32_t theNumber)
{
    return LmValue(static_cast<unsigned long>(theNumber));
}

LmValue FromSInt32(std::int32_t theNumber)
{
    return LmValue(static_cast<long>(theNumber));
}

LmValue FromUInt64(std::uint64_t theNumber)
{
    return LmValue(static_cast<unsigned long long>(theNumber));
}

LmValue FromSInt64(std::int64_t theNumber)
{
    return LmValue(static_cast<long long>(theNumber));
}

float Scale(float theNumber, double theScale)
{
    return static_cast<float>(static_cast<double>(theNumber) * theScale);
}

CGPoint Absolute(const CGPoint& thePoint)
{
    return {std::fabs(thePoint.x), std::fabs(thePoint.y)};
}

CGSize Absolute(const CGSize& theSize)
{
    return {std::fabs(theSize.width), std::fabs(theSize.height)};
}

CGPoint Add(const CGPoint& theLeft, const CGPoint& theRight)
{
    return {theLeft.x + theRight.x, theLeft.y + theRight.y};
}

CGSize Add(const CGSize& theLeft, const CGSize& theRight)
{
    return {theLeft.width + theRight.width, theLeft.height + theRight.height};
}

CGPoint Scale(const CGPoint& thePoint, double theScale)
{
    return {Scale(thePoint.x, theScale), Scale(thePoint.y, theScale)};
}

CGSize Scale(const CGSize& theSize, double theScale)
{
    return {Scale(theSize.width, theScale), Scale(theSize.height, theScale)};
}

CGPoint Negate(const CGPoint& thePoint)
{
    return {-thePoint.x, -thePoint.y};
}

CGSize Negate(const CGSize& theSize)
{
    return {-theSize.width, -theSize.height};
}

// The rectangle of theValue with another size.
LmValue WithSize(const LmValue& theValue, const CGSize& theSize)
{
    return LmValue(CGRect{theValue.GetRect().origin, theSize});
}

// The string of theValue. A value of another kind is reported by the getter, and then has none: what it holds
// in place of a string must not be touched.
CFStringRef GetStringOrNull(const LmValue& theValue)
{
    CFStringRef theString = theValue.GetString();
    return theValue.IsString() ? theString : nullptr;
}

LmValue AddPointers(const LmValue& theLeft, const LmValue& theRight)
{
    const auto theSum = reinterpret_cast<std::uintptr_t>(theLeft.GetPointer()) +
                        reinterpret_cast<std::uintptr_t>(theRight.GetPointer());
    return LmValue(reinterpret_cast<const void*>(theSum));
}

LmValue AddStrings(CFStringRef theLeft, CFStringRef theRight)
{
    if (theRight == nullptr) {
        return LmValue(theLeft, false);
    }
    if (theLeft == nullptr) {
        return LmValue(theRight, false);
    }
    CFMutableStringRef theSum = CFStringCreateMutableCopy(NULL, 0, theLeft);
    if (theSum == nullptr) {
        return LmValue();
    }
    CFStringAppend(theSum, theRight);
    return LmValue(theSum, true);
}

LmValue ReportIllegalType(const LmValue& theValue)
{
    LM_ERROR("Illegal value type: %d", static_cast<int>(theValue.GetType()));
    return LmValue();
}

} // namespace

LmAbsoluteTransform::LmAbsoluteTransform() = default;
LmAbsoluteTransform::~LmAbsoluteTransform() = default;

LmValue LmAbsoluteTransform::Apply(const LmValue& theValue)
{
    switch (theValue.GetType()) {
    case kTypeSInt32:
        return FromSInt32(Absolute(ToSInt32(theValue.GetSInt32())));
    case kTypeSInt64:
        // On purpose: the absolute value of the low 32 bits alone.
        return FromSInt64(Absolute(ToSInt32(theValue.GetSInt64())));
    case kTypeDouble:
        return LmValue(std::fabs(theValue.GetDouble()));
    case kTypePoint:
        return LmValue(Absolute(theValue.GetPoint()));
    case kTypeSize:
        return LmValue(Absolute(theValue.GetSize()));
    default:
        return LmValue(theValue);
    }
}

LmAddTransform::LmAddTransform(const LmValue& theAmount)
    : mAmount(theAmount)
{
}

LmAddTransform::~LmAddTransform() = default;

LmValue LmAddTransform::Apply(const LmValue& theValue)
{
    switch (theValue.GetType()) {
    case kTypeBoolean:
        return LmValue(theValue.GetBoolean() && mAmount.GetBoolean());
    case kTypeUInt32:
        return FromUInt32(ToUInt32(theValue.GetUInt32()) + ToUInt32(mAmount.GetUInt32()));
    case kTypeSInt32:
        return FromSInt32(ToSInt32(ToUInt32(theValue.GetSInt32()) + ToUInt32(mAmount.GetSInt32())));
    case kTypeUInt64:
        return FromUInt64(theValue.GetUInt64() + mAmount.GetUInt64());
    case kTypeSInt64:
        return FromSInt64(ToSInt64(ToUInt64(theValue.GetSInt64()) + ToUInt64(mAmount.GetSInt64())));
    case kTypeDouble:
        return LmValue(theValue.GetDouble() + mAmount.GetDouble());
    case kTypePointer:
        return AddPointers(theValue, mAmount);
    case kTypeString:
        return AddStrings(theValue.GetString(), GetStringOrNull(mAmount));
    case kTypePoint:
        return LmValue(Add(theValue.GetPoint(), mAmount.GetPoint()));
    case kTypeSize:
        return LmValue(Add(theValue.GetSize(), mAmount.GetSize()));
    case kTypeRect:
        return WithSize(theValue, Add(theValue.GetRect().size, mAmount.GetRect().size));
    default:
        return ReportIllegalType(theValue);
    }
}

LmScaleTransform::LmScaleTransform(double theScale)
    : mScale(theScale)
{
}

LmScaleTransform::~LmScaleTransform() = default;

LmValue LmScaleTransform::Apply(const LmValue& theValue)
{
    switch (theValue.GetType()) {
    case kTypeUInt32:
        return FromUInt32(ToUInt32(theValue.GetDouble() * mScale));
    case kTypeSInt32:
        return FromSInt32(ToSInt32(theValue.GetDouble() * mScale));
    case kTypeUInt64:
        return FromUInt64(ToUInt64(theValue.GetDouble() * mScale));
    case kTypeSInt64:
        return FromSInt64(ToSInt64(theValue.GetDouble() * mScale));
    case kTypeDouble:
        return LmValue(theValue.GetDouble() * mScale);
    case kTypePoint:
        return LmValue(Scale(theValue.GetPoint(), mScale));
    case kTypeSize:
        return LmValue(Scale(theValue.GetSize(), mScale));
    case kTypeRect:
        return WithSize(theValue, Scale(theValue.GetRect().size, mScale));
    default:
        return ReportIllegalType(theValue);
    }
}

LmNegateTransform::LmNegateTransform() = default;
LmNegateTransform::~LmNegateTransform() = default;

LmValue LmNegateTransform::Apply(const LmValue& theValue)
{
    switch (theValue.GetType()) {
    case kTypeBoolean:
        return LmValue(!theValue.GetBoolean());
    case kTypeUInt32:
    case kTypeSInt32:
        // On purpose: unsigned integers become signed ones.
        return FromSInt32(Negate(ToSInt32(theValue.GetSInt32())));
    case kTypeUInt64:
    case kTypeSInt64:
        return FromSInt64(Negate(ToSInt64(theValue.GetSInt64())));
    case kTypeDouble:
        return LmValue(-theValue.GetDouble());
    case kTypePoint:
        return LmValue(Negate(theValue.GetPoint()));
    case kTypeSize:
        return LmValue(Negate(theValue.GetSize()));
    case kTypeRect:
        return WithSize(theValue, Negate(theValue.GetRect().size));
    default:
        return ReportIllegalType(theValue);
    }
}
