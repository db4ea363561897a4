// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Text.h"

#include "Guarded.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace Host {

namespace {

const char16_t kReplacement = 0xFFFD;

struct Releaser
{
    void operator()(const __CFString* theString) const { CFRelease(theString); }
};

// A string that is released at the end, also for want of memory.
using OwnedString = std::unique_ptr<const __CFString, Releaser>;

Text TakeText(CFStringRef theString)
{
    const OwnedString theOwned(theString);
    return TextOf(theString);
}

CFStringRef CreateFromBytes(const void* theBytes, size_t theCount, CFStringEncoding theEncoding)
{
    return CFStringCreateWithBytes(nullptr, static_cast<const UInt8*>(theBytes),
                                   static_cast<CFIndex>(theCount), theEncoding, false);
}

bool IsAscii(const Text& theText)
{
    return std::all_of(theText.begin(), theText.end(), [](char16_t theUnit) { return theUnit < 0x80; });
}

// The encodings asked for here all have the characters of ASCII at their places.
std::string BytesOfAscii(const Text& theText)
{
    return std::string(theText.begin(), theText.end());
}

std::string EncodedAs(const Text& theText, CFStringEncoding theEncoding)
{
    const OwnedString theOwned(CreateString(theText));
    if (theOwned == nullptr) {
        return std::string();
    }
    CFStringRef theString = theOwned.get();
    const CFRange theAll = CFRangeMake(0, static_cast<CFIndex>(theText.size()));
    CFIndex theSize = 0;
    CFStringGetBytes(theString, theAll, theEncoding, '?', false, nullptr, 0, &theSize);
    std::string theBytes(static_cast<size_t>(theSize), '\0');
    CFStringGetBytes(theString, theAll, theEncoding, '?', false, reinterpret_cast<UInt8*>(theBytes.data()),
                     theSize, &theSize);
    return theBytes;
}

bool IsFirstHalf(char16_t theUnit)
{
    return theUnit >= 0xD800 && theUnit < 0xDC00;
}

bool IsSecondHalf(char16_t theUnit)
{
    return theUnit >= 0xDC00 && theUnit < 0xE000;
}

// Presenters get well-formed text only, whatever the program put in.
Text WithoutLoneHalves(const Text& theText)
{
    Text theResult = theText;
    for (size_t theIndex = 0; theIndex < theResult.size(); ++theIndex) {
        if (IsFirstHalf(theResult[theIndex]) && theIndex + 1 < theResult.size() &&
            IsSecondHalf(theResult[theIndex + 1])) {
            ++theIndex;
        } else if (IsFirstHalf(theResult[theIndex]) || IsSecondHalf(theResult[theIndex])) {
            theResult[theIndex] = kReplacement;
        }
    }
    return theResult;
}

} // namespace

Text TextOf(CFStringRef theString)
{
    if (theString == nullptr) {
        return Text();
    }
    const CFIndex theLength = CFStringGetLength(theString);
    std::vector<UniChar> theUnits(static_cast<size_t>(theLength));
    if (theLength > 0) {
        CFStringGetCharacters(theString, CFRangeMake(0, theLength), theUnits.data());
    }
    return Text(theUnits.begin(), theUnits.end());
}

Text TextOfBytes(const void* theBytes, size_t theCount)
{
    return TakeText(CreateFromBytes(theBytes, theCount, kCFStringEncodingMacRoman));
}

Text TextOfPascalString(ConstStr255Param theString)
{
    return theString == nullptr ? Text() : TextOfBytes(theString + 1, theString[0]);
}

CFStringRef CreateString(const Text& theText)
{
    const std::vector<UniChar> theUnits(theText.begin(), theText.end());
    return CFStringCreateWithCharacters(nullptr, theUnits.data(), static_cast<CFIndex>(theUnits.size()));
}

std::string BytesOf(const Text& theText)
{
    return IsAscii(theText) ? BytesOfAscii(theText) : EncodedAs(theText, kCFStringEncodingMacRoman);
}

void CopyToPascalString(const Text& theText, Str255 theString)
{
    theString[0] = 0;
    Guarded([&] {
        const std::string theBytes = BytesOf(theText);
        const size_t theCount = std::min<size_t>(theBytes.size(), 255);
        theString[0] = static_cast<unsigned char>(theCount);
        std::copy_n(theBytes.data(), theCount, theString + 1);
        return OSStatus{noErr};
    });
}

std::string Utf8Of(const Text& theText)
{
    return IsAscii(theText) ? BytesOfAscii(theText)
                            : EncodedAs(WithoutLoneHalves(theText), kCFStringEncodingUTF8);
}

Text TextOfUtf8(const std::string& theBytes)
{
    return TakeText(CreateFromBytes(theBytes.data(), theBytes.size(), kCFStringEncodingUTF8));
}

} // namespace Host
