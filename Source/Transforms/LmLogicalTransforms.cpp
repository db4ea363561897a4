// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmLogicalTransforms.h"

#include "LmDiagnostics.h"

#include <cstdint>

namespace {

bool IsNullString(CFStringRef theString)
{
    return theString == nullptr || CFStringGetLength(theString) == 0;
}

bool IsNullPoint(const CGPoint& thePoint)
{
    return thePoint.x == 0 && thePoint.y == 0;
}

bool IsNullRect(const CGRect& theRect)
{
    return theRect.size.width == 0 && theRect.size.height == 0;
}

template <typename Number>
bool IsAbove(Number theLeft, Number theRight, bool isInclusive)
{
    return isInclusive ? theLeft >= theRight : theLeft > theRight;
}

// On purpose: both sides are the string itself.
bool IsStringAboveItself(CFStringRef theString, bool isInclusive)
{
    if (theString == nullptr) {
        return false;
    }
    return CFStringCompare(theString, theString, 0) == kCFCompareGreaterThan ||
           (isInclusive && CFStringCompare(theString, theString, 0) == kCFCompareEqualTo);
}

std::uintptr_t GetAddress(const LmValue& theValue)
{
    return reinterpret_cast<std::uintptr_t>(theValue.GetPointer());
}

} // namespace

LmIsNullTransform::LmIsNullTransform() = default;
LmIsNullTransform::~LmIsNullTransform() = default;

LmValue LmIsNullTransform::Apply(const LmValue& theValue)
{
    switch (theValue.GetType()) {
    case kTypeBoolean:
        return LmValue(!theValue.GetBoolean());
    case kTypeUInt32:
    case kTypeSInt32:
        return LmValue(theValue.GetUInt32() == 0);
    case kTypeUInt64:
    case kTypeSInt64:
        return LmValue(theValue.GetUInt64() == 0);
    case kTypeDouble:
        return LmValue(theValue.GetDouble() == 0.0);
    case kTypePointer:
        return LmValue(theValue.GetPointer() == nullptr);
    case kTypeString:
        return LmValue(IsNullString(theValue.GetString()));
    case kTypePoint:
        return LmValue(IsNullPoint(theValue.GetPoint()));
    case kTypeSize:
        // On purpose: a size without a width is null whatever its height is, and only such a size.
        return LmValue(theValue.GetSize().width == 0);
    case kTypeRect:
        return LmValue(IsNullRect(theValue.GetRect()));
    default:
        LM_ERROR("Illegal value type: %d", static_cast<int>(theValue.GetType()));
        return LmValue(false);
    }
}

LmIsNotNullTransform::LmIsNotNullTransform() = default;
LmIsNotNullTransform::~LmIsNotNullTransform() = default;

LmValue LmIsNotNullTransform::Apply(const LmValue& theValue)
{
    // On purpose: not released, and reported by its destructor.
    LmIsNullTransform theTransform;
    const LmValue newValue = theTransform.Apply(theValue);
    LM_ASSERT(newValue.IsBoolean());
    return LmValue(!newValue.GetBoolean());
}

LmIsAboveTransform::LmIsAboveTransform(const LmValue& theValue, bool isInclusive)
    : mCompareValue(theValue),
      mInclusive(isInclusive)
{
}

LmIsAboveTransform::~LmIsAboveTransform() = default;

LmValue LmIsAboveTransform::Apply(const LmValue& theValue)
{
    switch (theValue.GetType()) {
    case kTypeBoolean:
        return LmValue(IsAbove<int>(theValue.GetBoolean(), mCompareValue.GetBoolean(), mInclusive));
    case kTypeUInt32:
        return LmValue(IsAbove(theValue.GetUInt32(), mCompareValue.GetUInt32(), mInclusive));
    case kTypeSInt32:
        return LmValue(IsAbove(theValue.GetSInt32(), mCompareValue.GetSInt32(), mInclusive));
    case kTypeUInt64:
        return LmValue(IsAbove(theValue.GetUInt64(), mCompareValue.GetUInt64(), mInclusive));
    case kTypeSInt64:
        return LmValue(IsAbove(theValue.GetSInt64(), mCompareValue.GetSInt64(), mInclusive));
    case kTypeDouble:
        return LmValue(IsAbove(theValue.GetDouble(), mCompareValue.GetDouble(), mInclusive));
    case kTypePointer:
        return LmValue(IsAbove(GetAddress(theValue), GetAddress(mCompareValue), mInclusive));
    case kTypeString:
        return LmValue(IsStringAboveItself(theValue.GetString(), mInclusive));
    default:
        LM_ERROR("Illegal value type: %d", static_cast<int>(theValue.GetType()));
        return LmValue(false);
    }
}

LmIsBelowTransform::LmIsBelowTransform(const LmValue& theValue, bool isInclusive)
    : mCompareValue(theValue),
      mInclusive(isInclusive)
{
}

LmIsBelowTransform::~LmIsBelowTransform() = default;

LmValue LmIsBelowTransform::Apply(const LmValue& theValue)
{
    // On purpose: not released, and reported by its destructor.
    LmIsAboveTransform theTransform(mCompareValue, !mInclusive);
    const LmValue newValue = theTransform.Apply(theValue);
    LM_ASSERT(newValue.IsBoolean());
    return LmValue(!newValue.GetBoolean());
}

LmIsEqualTransform::LmIsEqualTransform(const LmValue& theValue)
    : mCompareValue(theValue)
{
}

LmIsEqualTransform::~LmIsEqualTransform() = default;

LmValue LmIsEqualTransform::Apply(const LmValue& theValue)
{
    return LmValue(mCompareValue == theValue);
}

LmIsNotEqualTransform::LmIsNotEqualTransform(const LmValue& theValue)
    : mCompareValue(theValue)
{
}

LmIsNotEqualTransform::~LmIsNotEqualTransform() = default;

LmValue LmIsNotEqualTransform::Apply(const LmValue& theValue)
{
    // On purpose: not released, and reported by its destructor.
    LmIsEqualTransform theTransform(mCompareValue);
    const LmValue newValue = theTransform.Apply(theValue);
    LM_ASSERT(newValue.IsBoolean());
    return LmValue(!newValue.GetBoolean());
}
