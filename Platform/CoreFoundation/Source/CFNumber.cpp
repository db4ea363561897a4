// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFNumberObject.h"

#include "CFText.h"

#include <cmath>
#include <CoreGraphics/CGBase.h>
#include <cstring>
#include <iterator>
#include <limits>

namespace {

// 2 to the power of 63: the first double that is too large for an SInt64.
constexpr Float64 kIntegerLimit = 9223372036854775808.0;

constexpr SInt64 kFirstSmall = -1;
constexpr SInt64 kLastSmall = 12;

// The cache owns one reference to each, so a balanced count never reaches zero.
const __CFNumber gSmall[] = {
    {kCFNumberSInt32Type, SInt64{-1}}, {kCFNumberSInt32Type, SInt64{0}},  {kCFNumberSInt32Type, SInt64{1}},
    {kCFNumberSInt32Type, SInt64{2}},  {kCFNumberSInt32Type, SInt64{3}},  {kCFNumberSInt32Type, SInt64{4}},
    {kCFNumberSInt32Type, SInt64{5}},  {kCFNumberSInt32Type, SInt64{6}},  {kCFNumberSInt32Type, SInt64{7}},
    {kCFNumberSInt32Type, SInt64{8}},  {kCFNumberSInt32Type, SInt64{9}},  {kCFNumberSInt32Type, SInt64{10}},
    {kCFNumberSInt32Type, SInt64{11}}, {kCFNumberSInt32Type, SInt64{12}},
};

const __CFNumber gNaN(kCFNumberFloat64Type, std::numeric_limits<Float64>::quiet_NaN(), Host::kImmortal);
const __CFNumber gPositiveInfinity(kCFNumberFloat64Type, std::numeric_limits<Float64>::infinity(),
                                   Host::kImmortal);
const __CFNumber gNegativeInfinity(kCFNumberFloat64Type, -std::numeric_limits<Float64>::infinity(),
                                   Host::kImmortal);

// Types

template <class Class>
constexpr CFNumberType IntegerType()
{
    switch (sizeof(Class)) {
    case 1:
        return kCFNumberSInt8Type;
    case 2:
        return kCFNumberSInt16Type;
    case 4:
        return kCFNumberSInt32Type;
    default:
        return kCFNumberSInt64Type;
    }
}

// One of the first six types for any type; 0 for an unknown one.
CFNumberType CanonicalType(CFNumberType theType)
{
    switch (theType) {
    case kCFNumberCharType:
        return IntegerType<char>();
    case kCFNumberShortType:
        return IntegerType<short>();
    case kCFNumberIntType:
        return IntegerType<int>();
    case kCFNumberLongType:
    case kCFNumberNSIntegerType:
        return IntegerType<long>();
    case kCFNumberLongLongType:
        return IntegerType<long long>();
    case kCFNumberCFIndexType:
        return IntegerType<CFIndex>();
    case kCFNumberFloatType:
        return kCFNumberFloat32Type;
    case kCFNumberDoubleType:
        return kCFNumberFloat64Type;
    case kCFNumberCGFloatType:
        return sizeof(CGFloat) == sizeof(Float32) ? kCFNumberFloat32Type : kCFNumberFloat64Type;
    default:
        return theType >= kCFNumberSInt8Type && theType <= kCFNumberFloat64Type ? theType : 0;
    }
}

const char* TypeName(CFNumberType theType)
{
    static const char* const kNames[] = {"kCFNumberSInt8Type",   "kCFNumberSInt16Type",
                                         "kCFNumberSInt32Type",  "kCFNumberSInt64Type",
                                         "kCFNumberFloat32Type", "kCFNumberFloat64Type"};
    return kNames[theType - 1];
}

// Creation

// A pointer to a C value need not be aligned.
template <class Class>
Class Load(const void* theValue)
{
    Class theResult;
    std::memcpy(&theResult, theValue, sizeof theResult);
    return theResult;
}

template <class Class>
void Store(void* theValue, Class theNewValue)
{
    std::memcpy(theValue, &theNewValue, sizeof theNewValue);
}

SInt64 LoadInteger(CFNumberType theType, const void* theValue)
{
    switch (theType) {
    case kCFNumberSInt8Type:
        return Load<SInt8>(theValue);
    case kCFNumberSInt16Type:
        return Load<SInt16>(theValue);
    case kCFNumberSInt32Type:
        return Load<SInt32>(theValue);
    default:
        return Load<SInt64>(theValue);
    }
}

CFNumberRef CreateInteger(CFNumberType theType, SInt64 theValue)
{
    if (theValue >= kFirstSmall && theValue <= kLastSmall) {
        return static_cast<CFNumberRef>(CFRetain(&gSmall[theValue - kFirstSmall]));
    }
    return new __CFNumber(theType, theValue);
}

CFNumberRef CreateFloat(CFNumberType theType, Float64 theValue)
{
    if (std::isnan(theValue)) {
        return kCFNumberNaN;
    }
    if (std::isinf(theValue)) {
        return theValue > 0 ? kCFNumberPositiveInfinity : kCFNumberNegativeInfinity;
    }
    return new __CFNumber(theType, theValue);
}

// Conversion

// Cut towards zero; beyond the range, its nearest end.
SInt64 IntegerFromFloat(Float64 theValue, SInt64 theMinimum, SInt64 theMaximum)
{
    if (std::isnan(theValue)) {
        return 0;
    }
    if (theValue >= kIntegerLimit) {
        return theMaximum;
    }
    if (theValue < -kIntegerLimit) {
        return theMinimum;
    }
    const SInt64 theInteger = static_cast<SInt64>(theValue);
    return theInteger < theMinimum ? theMinimum : theInteger > theMaximum ? theMaximum : theInteger;
}

// theGreatest is the largest value of a stored integer that counts as exact.
template <class Class>
bool GetInteger(const __CFNumber& theNumber, SInt64 theGreatest, void* theResult)
{
    // The halves of the range follow from its width.
    constexpr SInt64 kMaximum = std::numeric_limits<SInt64>::max() >> (64 - 8 * sizeof(Class));
    constexpr SInt64 kMinimum = -kMaximum - 1;
    SInt64 theInteger = theNumber.mInteger;
    bool theIsExact = theInteger >= kMinimum && theInteger <= theGreatest;
    if (theNumber.IsFloat()) {
        theInteger = IntegerFromFloat(theNumber.mFloat, kMinimum, kMaximum);
        theIsExact = theNumber.mFloat < kIntegerLimit && static_cast<Float64>(theInteger) == theNumber.mFloat;
    }
    if (theResult != nullptr) {
        Store(theResult, static_cast<Class>(static_cast<UInt64>(theInteger)));
    }
    return theIsExact;
}

template <class Class>
bool GetFloat(const __CFNumber& theNumber, void* theResult)
{
    Class theFloat = static_cast<Class>(theNumber.mFloat);
    bool theIsExact = static_cast<Float64>(theFloat) == theNumber.mFloat;
    if (!theNumber.IsFloat()) {
        // Storing it takes away the extra bits that some processors keep when they convert a 64-bit integer.
        const volatile Class theRounded = static_cast<Class>(theNumber.mInteger);
        theFloat = theRounded;
        // Rounding may lead just past the largest integer, which cannot be converted back.
        theIsExact = static_cast<Float64>(theFloat) < kIntegerLimit &&
                     static_cast<SInt64>(theFloat) == theNumber.mInteger;
    }
    if (theResult != nullptr) {
        Store(theResult, theFloat);
    }
    return theIsExact;
}

// Comparison

CFComparisonResult Compare(bool theIsLess, bool theIsGreater)
{
    return theIsLess ? kCFCompareLessThan : theIsGreater ? kCFCompareGreaterThan : kCFCompareEqualTo;
}

// A double and an integer may differ by less than a double can tell, so they meet as integers.
CFComparisonResult CompareFloatWithInteger(Float64 theFloat, SInt64 theInteger)
{
    if (theFloat >= kIntegerLimit) {
        return kCFCompareGreaterThan;
    }
    if (theFloat < -kIntegerLimit) {
        return kCFCompareLessThan;
    }
    const SInt64 theWhole = static_cast<SInt64>(theFloat);
    if (theWhole != theInteger) {
        return theWhole < theInteger ? kCFCompareLessThan : kCFCompareGreaterThan;
    }
    const Float64 theFraction = theFloat - static_cast<Float64>(theWhole);
    return Compare(theFraction < 0 || (theFloat == 0 && std::signbit(theFloat)), theFraction > 0);
}

// NaN stands between the negative numbers and the others.
CFComparisonResult CompareNaNWith(const __CFNumber& theNumber)
{
    if (std::isnan(theNumber.mFloat)) {
        return kCFCompareEqualTo;
    }
    const bool theIsNegative = theNumber.IsFloat() ? theNumber.mFloat < 0 : theNumber.mInteger < 0;
    return theIsNegative ? kCFCompareGreaterThan : kCFCompareLessThan;
}

CFComparisonResult CompareFloats(Float64 theFirst, Float64 theSecond)
{
    if (theFirst == 0 && theSecond == 0) {
        return Compare(std::signbit(theFirst) && !std::signbit(theSecond),
                       !std::signbit(theFirst) && std::signbit(theSecond));
    }
    return Compare(theFirst<theSecond, theFirst> theSecond);
}

CFComparisonResult CompareNumbers(const __CFNumber& theFirst, const __CFNumber& theSecond)
{
    if (std::isnan(theFirst.mFloat)) {
        return CompareNaNWith(theSecond);
    }
    if (std::isnan(theSecond.mFloat)) {
        return -CompareNaNWith(theFirst);
    }
    if (theFirst.IsFloat()) {
        return theSecond.IsFloat() ? CompareFloats(theFirst.mFloat, theSecond.mFloat)
                                   : CompareFloatWithInteger(theFirst.mFloat, theSecond.mInteger);
    }
    if (theSecond.IsFloat()) {
        return -CompareFloatWithInteger(theSecond.mFloat, theFirst.mInteger);
    }
    return Compare(theFirst.mInteger<theSecond.mInteger, theFirst.mInteger> theSecond.mInteger);
}

// Operations of the type

const __CFNumber& NumberOf(const Host::Object* theObject)
{
    return *static_cast<const __CFNumber*>(theObject);
}

void FreeNumber(const Host::Object* theObject)
{
    const CFNumberRef theNumber = &NumberOf(theObject);
    if (theNumber >= std::begin(gSmall) && theNumber < std::end(gSmall)) {
        Host::Stop("CFRelease", "a number was released more often than it was retained");
    }
    delete theNumber;
}

bool EqualNumbers(const Host::Object* theFirst, const Host::Object* theSecond)
{
    return CompareNumbers(NumberOf(theFirst), NumberOf(theSecond)) == kCFCompareEqualTo;
}

CFHashCode HashInteger(SInt64 theInteger)
{
    const UInt64 theBits = static_cast<UInt64>(theInteger);
    const UInt64 theMagnitude = theInteger < 0 ? 0 - theBits : theBits;
    return static_cast<CFHashCode>(theMagnitude ^ (theMagnitude >> 32));
}

// A float that equals an integer has that integer's hash.
CFHashCode HashNumber(const Host::Object* theObject)
{
    const __CFNumber& theNumber = NumberOf(theObject);
    if (!theNumber.IsFloat()) {
        return HashInteger(theNumber.mInteger);
    }
    const Float64 theFloat = theNumber.mFloat;
    if (theFloat >= -kIntegerLimit && theFloat < kIntegerLimit) {
        return HashInteger(static_cast<SInt64>(theFloat));
    }
    return std::isnan(theFloat) ? 0 : HashInteger(Load<SInt64>(&theFloat));
}

std::string DescribeValue(const __CFNumber& theNumber)
{
    if (!theNumber.IsFloat()) {
        return Host::FormatInCLocale("%+lld", theNumber.mInteger);
    }
    const Float64 theFloat = theNumber.mFloat;
    if (std::isnan(theFloat)) {
        return "nan";
    }
    if (std::isinf(theFloat)) {
        return theFloat > 0 ? "+infinity" : "-infinity";
    }
    if (theFloat == 0) {
        return std::signbit(theFloat) ? "-0.0" : "+0.0";
    }
    return Host::FormatInCLocale("%+.*f", theNumber.mNumberType == kCFNumberFloat32Type ? 10 : 20, theFloat);
}

CFStringRef DescribeNumber(const Host::Object* theObject)
{
    return Host::Text()
        .AppendHeader(theObject)
        .Append("{value = ")
        .Append(DescribeValue(NumberOf(theObject)))
        .Append(", type = ")
        .Append(TypeName(NumberOf(theObject).mNumberType))
        .Append("}")
        .CopyString();
}

CFStringRef FormatNumber(const Host::Object* theObject)
{
    return Host::Text().Append(Host::NumberText(NumberOf(theObject))).CopyString();
}

} // namespace

const Host::TypeOperations Host::kNumberType = {
    Host::kNumberTypeID, "CFNumber", FreeNumber, EqualNumbers, HashNumber, DescribeNumber, FormatNumber};

const CFNumberRef kCFNumberNaN = &gNaN;
const CFNumberRef kCFNumberPositiveInfinity = &gPositiveInfinity;
const CFNumberRef kCFNumberNegativeInfinity = &gNegativeInfinity;

std::string Host::NumberText(const __CFNumber& theNumber)
{
    if (!theNumber.IsFloat()) {
        return FormatInCLocale("%lld", theNumber.mInteger);
    }
    if (theNumber.mFloat == 0) {
        return "0.0";
    }
    if (!std::isfinite(theNumber.mFloat)) {
        return DescribeValue(theNumber);
    }
    return FormatInCLocale("%.17g", theNumber.mFloat);
}

CFTypeID CFNumberGetTypeID()
{
    return Host::kNumberTypeID;
}

CFNumberRef CFNumberCreate(CFAllocatorRef, CFNumberType inType, const void* inValue)
{
    if (inValue == nullptr) {
        Host::Stop(__func__, "the value is NULL");
    }
    return Host::NothingWithoutMemory([inType, inValue]() -> CFNumberRef {
        const CFNumberType theCanonicalType = CanonicalType(inType);
        switch (theCanonicalType) {
        case 0:
            return nullptr;
        case kCFNumberFloat32Type:
            return CreateFloat(theCanonicalType, Load<Float32>(inValue));
        case kCFNumberFloat64Type:
            return CreateFloat(theCanonicalType, Load<Float64>(inValue));
        default:
            return CreateInteger(theCanonicalType, LoadInteger(theCanonicalType, inValue));
        }
    });
}

CFNumberType CFNumberGetType(CFNumberRef inNumber)
{
    return Host::Require(inNumber, Host::kNumberType, __func__)->mNumberType;
}

CFIndex CFNumberGetByteSize(CFNumberRef inNumber)
{
    static const CFIndex kSizes[] = {1, 2, 4, 8, 4, 8};
    return kSizes[CFNumberGetType(inNumber) - 1];
}

Boolean CFNumberIsFloatType(CFNumberRef inNumber)
{
    return Host::Require(inNumber, Host::kNumberType, __func__)->IsFloat();
}

Boolean CFNumberGetValue(CFNumberRef inNumber, CFNumberType inType, void* outValue)
{
    const __CFNumber& theSource = *Host::Require(inNumber, Host::kNumberType, __func__);
    switch (CanonicalType(inType)) {
    case kCFNumberSInt8Type:
        return GetInteger<SInt8>(theSource, 0xFF, outValue);
    case kCFNumberSInt16Type:
        return GetInteger<SInt16>(theSource, 0xFFFF, outValue);
    case kCFNumberSInt32Type:
        return GetInteger<SInt32>(theSource, 0x7FFFFFFF, outValue);
    case kCFNumberSInt64Type:
        return GetInteger<SInt64>(theSource, std::numeric_limits<SInt64>::max(), outValue);
    case kCFNumberFloat32Type:
        return GetFloat<Float32>(theSource, outValue);
    case kCFNumberFloat64Type:
        // The same type is exact even for NaN, which equals nothing.
        return GetFloat<Float64>(theSource, outValue) || theSource.IsFloat();
    default:
        return false;
    }
}

CFComparisonResult CFNumberCompare(CFNumberRef inNumber, CFNumberRef inOther, void*)
{
    return CompareNumbers(*Host::Require(inNumber, Host::kNumberType, __func__),
                          *Host::Require(inOther, Host::kNumberType, __func__));
}
