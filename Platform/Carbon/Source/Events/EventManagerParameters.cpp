// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "EventManagerParameters.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

namespace Host {

namespace {

using Bytes = std::string;

template <class Value>
Value ReadAs(const Bytes& theBytes)
{
    Value theValue{};
    std::memcpy(&theValue, theBytes.data(), std::min(sizeof theValue, theBytes.size()));
    return theValue;
}

template <class Value>
void WriteAs(const Value& theValue, Bytes* theBytes)
{
    theBytes->resize(sizeof theValue);
    std::memcpy(theBytes->data(), &theValue, sizeof theValue);
}

// --- What is retained -------------------------------------------------------------------------------

bool IsCoreFoundationType(EventParamType theType)
{
    switch (theType) {
    case typeCFStringRef:
    case typeCFMutableStringRef:
    case typeCFArrayRef:
    case typeCFMutableArrayRef:
    case typeCFDictionaryRef:
    case typeCFTypeRef:
        return true;
    default:
        return false;
    }
}

bool IsRetainedType(EventParamType theType)
{
    return IsCoreFoundationType(theType) || theType == typeEventRef || theType == typeMenuRef;
}

// --- Conversions ------------------------------------------------------------------------------------

// The whole pixel that a coordinate lies in, at the ends of the range where it lies outside.
short PixelOf(CGFloat theCoordinate)
{
    if (std::isnan(theCoordinate)) {
        return 0;
    }
    const double theLow = std::numeric_limits<short>::min();
    const double theHigh = std::numeric_limits<short>::max();
    return static_cast<short>(std::clamp(std::floor(static_cast<double>(theCoordinate)), theLow, theHigh));
}

void PointToPixels(const Bytes& theSource, Bytes* theResult)
{
    const HIPoint thePoint = ReadAs<HIPoint>(theSource);
    WriteAs(Point{PixelOf(thePoint.y), PixelOf(thePoint.x)}, theResult);
}

void PixelsToPoint(const Bytes& theSource, Bytes* theResult)
{
    const Point thePoint = ReadAs<Point>(theSource);
    WriteAs(HIPoint{static_cast<CGFloat>(thePoint.h), static_cast<CGFloat>(thePoint.v)}, theResult);
}

void RectToPixels(const Bytes& theSource, Bytes* theResult)
{
    const HIRect theRect = ReadAs<HIRect>(theSource);
    WriteAs(Rect{PixelOf(theRect.origin.y), PixelOf(theRect.origin.x),
                 PixelOf(theRect.origin.y + theRect.size.height),
                 PixelOf(theRect.origin.x + theRect.size.width)},
            theResult);
}

void PixelsToRect(const Bytes& theSource, Bytes* theResult)
{
    const Rect theRect = ReadAs<Rect>(theSource);
    const auto theWidth = static_cast<CGFloat>(theRect.right - theRect.left);
    const auto theHeight = static_cast<CGFloat>(theRect.bottom - theRect.top);
    WriteAs(HIRect{{static_cast<CGFloat>(theRect.left), static_cast<CGFloat>(theRect.top)},
                   {theWidth, theHeight}},
            theResult);
}

void StringToUnicode(const Bytes& theSource, Bytes* theResult)
{
    const auto theString = ReadAs<CFStringRef>(theSource);
    const CFIndex theLength = theString == nullptr ? 0 : CFStringGetLength(theString);
    theResult->resize(static_cast<size_t>(theLength) * sizeof(UniChar));
    if (theLength > 0) {
        std::vector<UniChar> theText(static_cast<size_t>(theLength));
        CFStringGetCharacters(theString, CFRangeMake(0, theLength), theText.data());
        std::memcpy(theResult->data(), theText.data(), theResult->size());
    }
}

void CopyBytes(const Bytes& theSource, Bytes* theResult)
{
    *theResult = theSource;
}

struct Conversion
{
    EventParamType theSource;
    EventParamType theTarget;
    ByteCount theSourceSize; // data of another size is not converted
    void (*theFunction)(const Bytes& theSource, Bytes* theResult);
};

const Conversion kConversions[] = {
    {typeHIPoint, typeQDPoint, sizeof(HIPoint), PointToPixels},
    {typeQDPoint, typeHIPoint, sizeof(Point), PixelsToPoint},
    {typeHIRect, typeQDRectangle, sizeof(HIRect), RectToPixels},
    {typeQDRectangle, typeHIRect, sizeof(Rect), PixelsToRect},
    {typeCFStringRef, typeUnicodeText, sizeof(CFStringRef), StringToUnicode},
};

// On 32-bit hosts a pointer and a 32-bit integer are the same bytes.
bool IsPointerAsInteger(EventParamType theSource, EventParamType theTarget, size_t theSize)
{
    const auto theIsInteger = [](EventParamType theType) {
        return theType == typeSInt32 || theType == typeUInt32;
    };
    return sizeof(void*) == sizeof(UInt32) && theSize == sizeof(void*) &&
           ((theSource == typeVoidPtr && theIsInteger(theTarget)) ||
            (theTarget == typeVoidPtr && theIsInteger(theSource)));
}

template <class Value>
bool NumberAs(CFNumberRef theNumber, CFNumberType theType, Bytes* theResult)
{
    // A number that does not fit is cut, as CoreFoundation cuts it; that it was is no failure here.
    Value theValue{};
    CFNumberGetValue(theNumber, theType, &theValue);
    WriteAs(theValue, theResult);
    return true;
}

bool UnsignedNumber(CFNumberRef theNumber, Bytes* theResult)
{
    SInt64 theValue = 0;
    CFNumberGetValue(theNumber, kCFNumberSInt64Type, &theValue);
    WriteAs(static_cast<UInt32>(static_cast<UInt64>(theValue)), theResult);
    return true;
}

bool BooleanNumber(CFNumberRef theNumber, Bytes* theResult)
{
    double theValue = 0;
    CFNumberGetValue(theNumber, kCFNumberFloat64Type, &theValue);
    WriteAs(static_cast<Boolean>(theValue != 0), theResult);
    return true;
}

bool ConvertNumber(CFNumberRef theNumber, EventParamType theType, Bytes* theResult)
{
    switch (theType) {
    case typeSInt16:
        return NumberAs<SInt16>(theNumber, kCFNumberSInt16Type, theResult);
    case typeSInt32:
        return NumberAs<SInt32>(theNumber, kCFNumberSInt32Type, theResult);
    case typeSInt64:
        return NumberAs<SInt64>(theNumber, kCFNumberSInt64Type, theResult);
    case typeIEEE32BitFloatingPoint:
        return NumberAs<Float32>(theNumber, kCFNumberFloat32Type, theResult);
    case typeIEEE64BitFloatingPoint:
        return NumberAs<Float64>(theNumber, kCFNumberFloat64Type, theResult);
    case typeUInt32:
        return UnsignedNumber(theNumber, theResult);
    case typeBoolean:
        return BooleanNumber(theNumber, theResult);
    default:
        return false;
    }
}

bool ConvertObject(CFTypeRef theObject, EventParamType theType, Bytes* theResult)
{
    if (theObject == nullptr) {
        return false;
    }
    if (CFGetTypeID(theObject) == CFNumberGetTypeID()) {
        return ConvertNumber(static_cast<CFNumberRef>(theObject), theType, theResult);
    }
    if (CFGetTypeID(theObject) == CFBooleanGetTypeID() && theType == typeBoolean) {
        WriteAs(CFBooleanGetValue(static_cast<CFBooleanRef>(theObject)), theResult);
        return true;
    }
    return false;
}

} // namespace

// --- ParameterData ----------------------------------------------------------------------------------

bool ParameterData::Fits(EventParamType theType, ByteCount theSize)
{
    // No object is larger than the largest difference of pointers; a size beyond that is a mistake.
    return theType != typeWildCard && theSize <= static_cast<ByteCount>(PTRDIFF_MAX) &&
           (!IsRetainedType(theType) || theSize == sizeof(void*));
}

ParameterData::ParameterData(EventParamType theType, ByteCount theSize, const void* theBytes)
    : mType(theType),
      mBytes(theSize == 0 ? std::string() : std::string(static_cast<const char*>(theBytes), theSize))
{
    Retain();
}

ParameterData::~ParameterData()
{
    Release();
}

ParameterData::ParameterData(const ParameterData& theOther)
    : mType(theOther.mType),
      mBytes(theOther.mBytes)
{
    Retain();
}

ParameterData::ParameterData(ParameterData&& theOther) noexcept
    : mType(theOther.mType),
      mBytes(std::move(theOther.mBytes))
{
    theOther.mBytes.clear();
}

ParameterData& ParameterData::operator=(ParameterData theOther) noexcept
{
    std::swap(mType, theOther.mType);
    mBytes.swap(theOther.mBytes);
    return *this;
}

void ParameterData::Retain() const
{
    if (mBytes.empty()) {
        return;
    }
    if (mType == typeEventRef) {
        RetainEvent(ReadAs<EventRef>(mBytes));
    } else if (mType == typeMenuRef) {
        RetainMenu(ReadAs<MenuRef>(mBytes));
    } else if (IsCoreFoundationType(mType)) {
        const auto theObject = ReadAs<CFTypeRef>(mBytes);
        if (theObject != nullptr) {
            CFRetain(theObject);
        }
    }
}

void ParameterData::Release() const
{
    if (mBytes.empty()) {
        return;
    }
    if (mType == typeEventRef) {
        ReleaseEvent(ReadAs<EventRef>(mBytes));
    } else if (mType == typeMenuRef) {
        ReleaseMenu(ReadAs<MenuRef>(mBytes));
    } else if (IsCoreFoundationType(mType)) {
        const auto theObject = ReadAs<CFTypeRef>(mBytes);
        if (theObject != nullptr) {
            CFRelease(theObject);
        }
    }
}

bool ParameterData::Convert(EventParamType theType, std::string* theResult) const
{
    if ((theType == typeCFTypeRef && IsCoreFoundationType(mType)) ||
        IsPointerAsInteger(mType, theType, mBytes.size())) {
        CopyBytes(mBytes, theResult);
        return true;
    }
    if (mType == typeCFTypeRef) {
        return ConvertObject(ReadAs<CFTypeRef>(mBytes), theType, theResult);
    }
    for (const Conversion& theConversion : kConversions) {
        if (theConversion.theSource == mType && theConversion.theTarget == theType &&
            theConversion.theSourceSize == mBytes.size()) {
            theConversion.theFunction(mBytes, theResult);
            return true;
        }
    }
    return false;
}

} // namespace Host
