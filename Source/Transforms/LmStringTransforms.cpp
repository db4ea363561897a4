// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmStringTransforms.h"

#include "LmDiagnostics.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace {

CFStringRef GetTrue()
{
    return CFSTR("true");
}

CFStringRef GetFalse()
{
    return CFSTR("false");
}

CFStringRef GetUnknown()
{
    return CFSTR("unknown");
}

// A reference for the caller; null stays null.
CFStringRef Retained(CFStringRef theString)
{
    if (theString != nullptr) {
        CFRetain(theString);
    }
    return theString;
}

CFStringRef CreatePairText(float theFirst, float theSecond)
{
    return CFStringCreateWithFormat(NULL, NULL, CFSTR("(%g, %g)"), static_cast<double>(theFirst),
                                    static_cast<double>(theSecond));
}

CFStringRef CreateRectText(const CGRect& theRect)
{
    return CFStringCreateWithFormat(
        NULL, NULL, CFSTR("(%g, %g)-(%g, %g)"), static_cast<double>(theRect.origin.x),
        static_cast<double>(theRect.origin.y), static_cast<double>(theRect.size.width),
        static_cast<double>(theRect.size.height));
}

// The text of theValue as a reference for the caller; null without memory, and for a null string.
CFStringRef CreateText(const LmValue& theValue)
{
    switch (theValue.GetType()) {
    case kTypeBoolean:
        return Retained(theValue.GetBoolean() ? GetTrue() : GetFalse());
    case kTypeUInt32:
        return CFStringCreateWithFormat(NULL, NULL, CFSTR("%lu"), theValue.GetUInt32());
    case kTypeSInt32:
        return CFStringCreateWithFormat(NULL, NULL, CFSTR("%ld"), theValue.GetSInt32());
    case kTypeUInt64:
        return CFStringCreateWithFormat(NULL, NULL, CFSTR("%llu"), theValue.GetUInt64());
    case kTypeSInt64:
        return CFStringCreateWithFormat(NULL, NULL, CFSTR("%lld"), theValue.GetSInt64());
    case kTypeDouble:
        return CFStringCreateWithFormat(NULL, NULL, CFSTR("%Lf"),
                                        static_cast<long double>(theValue.GetDouble()));
    case kTypePointer:
        // A long is as wide as a pointer: the whole address, also where an int is narrower.
        return CFStringCreateWithFormat(NULL, NULL, CFSTR("0x%lX"),
                                        reinterpret_cast<unsigned long>(theValue.GetPointer()));
    case kTypeString:
        return Retained(theValue.GetString());
    case kTypePoint:
        return CreatePairText(theValue.GetPoint().x, theValue.GetPoint().y);
    case kTypeSize:
        return CreatePairText(theValue.GetSize().width, theValue.GetSize().height);
    case kTypeRect:
        return CreateRectText(theValue.GetRect());
    default:
        LM_ERROR("Illegal value type: %d", static_cast<int>(theValue.GetType()));
        return Retained(GetUnknown());
    }
}

bool IsEqualIgnoringCase(CFStringRef theLeft, CFStringRef theRight)
{
    return CFStringCompare(theLeft, theRight, kCFCompareCaseInsensitive) == kCFCompareEqualTo;
}

// Reads what sscanf reads with "%lu" where a long has 32 bits, whatever width it has here: white space, a
// sign, digits. A number that is too large gives the largest one, with either sign. Whether there was a
// number.
bool ReadUInt32(const char* theText, std::uint32_t& theResult)
{
    theText += std::strspn(theText, " \t\n\v\f\r");
    const bool isNegative = *theText == '-';
    if (isNegative || *theText == '+') {
        ++theText;
    }
    const char* const theDigits = theText;
    const std::uint64_t theLimit = std::numeric_limits<std::uint32_t>::max();
    std::uint64_t theNumber = 0;
    for (; *theText >= '0' && *theText <= '9'; ++theText) {
        theNumber = std::min(10 * theNumber + static_cast<std::uint64_t>(*theText - '0'), theLimit + 1);
    }
    if (theNumber > theLimit) {
        theResult = std::numeric_limits<std::uint32_t>::max();
    } else {
        const auto theMagnitude = static_cast<std::uint32_t>(theNumber);
        theResult = isNegative ? 0U - theMagnitude : theMagnitude;
    }
    return theText != theDigits;
}

// The value that theText, the bytes of theValue's string, can be read as; theValue itself if none.
//
// On purpose: these are all the readings that a text can reach. A signed or 64-bit integer or a pointer
// begins like an unsigned integer, and the text of a size or a rectangle begins like that of a point.
LmValue ReadText(const LmValue& theValue, const char* theText)
{
    if (IsEqualIgnoringCase(theValue.GetString(), GetTrue())) {
        return LmValue(true);
    }
    if (IsEqualIgnoringCase(theValue.GetString(), GetFalse())) {
        return LmValue(false);
    }
    std::uint32_t theInteger = 0;
    if (ReadUInt32(theText, theInteger)) {
        return LmValue(static_cast<unsigned long>(theInteger));
    }
    double theDouble = 0;
    if (std::sscanf(theText, "%lf", &theDouble) == 1) {
        return LmValue(theDouble);
    }
    CGPoint thePoint = {0, 0};
    if (std::sscanf(theText, "(%g, %g)", &thePoint.x, &thePoint.y) == 2) {
        return LmValue(thePoint);
    }
    return LmValue(theValue);
}

} // namespace

LmToStringTransform::LmToStringTransform() = default;
LmToStringTransform::~LmToStringTransform() = default;

LmValue LmToStringTransform::Apply(const LmValue& theValue)
{
    CFStringRef theText = CreateText(theValue);
    if (theText == nullptr && !theValue.IsString()) {
        theText = Retained(GetUnknown());
    }
    return LmValue(theText, true);
}

LmFromStringTransform::LmFromStringTransform() = default;
LmFromStringTransform::~LmFromStringTransform() = default;

LmValue LmFromStringTransform::Apply(const LmValue& theValue)
{
    if (!theValue.IsString() || theValue.GetString() == nullptr) {
        return LmValue(theValue);
    }
    const CFIndex theLength = CFStringGetLength(theValue.GetString());
    char* const theBuffer = static_cast<char*>(std::malloc(static_cast<std::size_t>(theLength) + 1));
    if (theBuffer == nullptr) {
        return LmValue();
    }
    CFIndex theUsed = 0;
    CFStringGetBytes(theValue.GetString(), CFRangeMake(0, theLength), kCFStringEncodingUTF8, '?', false,
                     reinterpret_cast<UInt8*>(theBuffer), theLength, &theUsed);
    theBuffer[theUsed] = '\0';
    LmValue theResult = ReadText(theValue, theBuffer);
    std::free(theBuffer);
    return theResult;
}
