// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFUnicode.h"

#include <algorithm>
#include <CoreFoundation/CoreFoundation.h>
#include <CoreServices/TextUtils.h>
#include <cstdint>
#include <cstring>
#include <string>

namespace {

constexpr size_t kLongest = 255;

void SetPascalString(Str255 theString, const char* theText, size_t theLength)
{
    std::memmove(theString + 1, theText, theLength);
    theString[0] = static_cast<unsigned char>(theLength);
}

bool IsDigit(unsigned char theByte)
{
    return theByte >= '0' && theByte <= '9';
}

// The number of a row of digits, modulo 2^32.
std::uint32_t NumberOf(const unsigned char* theDigits, const unsigned char* theEnd)
{
    std::uint32_t theNumber = 0;
    for (; theDigits != theEnd && IsDigit(*theDigits); ++theDigits) {
        theNumber = theNumber * 10 + (*theDigits - static_cast<std::uint32_t>('0'));
    }
    return theNumber;
}

// The characters of a Pascal string; a byte is a character.
class MacRomanText
{
public:
    explicit MacRomanText(ConstStr255Param theString)
    {
        const CFStringRef theText =
            CFStringCreateWithPascalString(nullptr, theString, kCFStringEncodingMacRoman);
        if (theText != nullptr) {
            CFStringGetCharacters(theText, CFRangeMake(0, CFStringGetLength(theText)), mUnits);
            CFRelease(theText);
        }
    }

    UniChar At(int theIndex) const { return mUnits[theIndex]; }

private:
    UniChar mUnits[kLongest] = {};
};

UniChar WithoutMarks(UniChar theUnit)
{
    UniChar theParts[Host::kMaximumDecomposedUnits] = {theUnit};
    Host::Decompose(theUnit, theParts);
    return theParts[0];
}

bool ReadsTheSame(UniChar theFirst, UniChar theSecond, bool theCaseCounts, bool theMarksCount)
{
    if (!theMarksCount) {
        theFirst = WithoutMarks(theFirst);
        theSecond = WithoutMarks(theSecond);
    }
    if (theCaseCounts) {
        return theFirst == theSecond;
    }
    UniChar theFolded[Host::kMaximumMappedUnits] = {};
    UniChar theOtherFolded[Host::kMaximumMappedUnits] = {};
    const int theCount = Host::MapCase(Host::kFoldMapping, theFirst, theFolded);
    const int theOtherCount = Host::MapCase(Host::kFoldMapping, theSecond, theOtherFolded);
    return std::equal(theFolded, theFolded + theCount, theOtherFolded, theOtherFolded + theOtherCount);
}

} // namespace

void NumToString(long theNum, Str255 theString)
{
    if (theString != nullptr) {
        const std::string theText = std::to_string(theNum);
        SetPascalString(theString, theText.data(), theText.size());
    }
}

void StringToNum(ConstStr255Param theString, long* theNum)
{
    if (theString == nullptr || theNum == nullptr) {
        return;
    }
    const unsigned char* theBegin = theString + 1;
    const unsigned char* const theEnd = theBegin + theString[0];
    const bool theIsNegative = theBegin != theEnd && *theBegin == '-';
    if (theBegin != theEnd && (*theBegin == '-' || *theBegin == '+')) {
        ++theBegin;
    }
    const std::uint32_t theNumber = NumberOf(theBegin, theEnd);
    *theNum = static_cast<std::int32_t>(theIsNegative ? 0u - theNumber : theNumber);
}

void CopyCStringToPascal(const char* src, Str255 dst)
{
    if (src != nullptr && dst != nullptr) {
        SetPascalString(dst, src, strnlen(src, kLongest));
    }
}

void CopyPascalStringToC(ConstStr255Param src, char* dst)
{
    if (src != nullptr && dst != nullptr) {
        const size_t theLength = src[0];
        std::memmove(dst, src + 1, theLength);
        dst[theLength] = 0;
    }
}

void c2pstrcpy(Str255 dst, const char* src)
{
    CopyCStringToPascal(src, dst);
}

void p2cstrcpy(char* dst, ConstStr255Param src)
{
    CopyPascalStringToC(src, dst);
}

Boolean EqualString(ConstStr255Param str1, ConstStr255Param str2, Boolean caseSensitive,
                    Boolean diacSensitive)
{
    if (str1 == nullptr || str2 == nullptr || str1[0] != str2[0]) {
        return 0;
    }
    const MacRomanText theFirst(str1);
    const MacRomanText theSecond(str2);
    for (int theIndex = 0; theIndex < str1[0]; ++theIndex) {
        if (!ReadsTheSame(theFirst.At(theIndex), theSecond.At(theIndex), caseSensitive != 0,
                          diacSensitive != 0)) {
            return 0;
        }
    }
    return 1;
}
