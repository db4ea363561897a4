// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Text in each encoding: the first byte chooses it, and whether the text is an external representation. What
// can be read can be written in the same encoding, and reads as the same again.

#include "FuzzTarget.h"

#include <cstring>
#include <initializer_list>
#include <vector>

namespace {

const CFStringEncoding kEncodings[] = {
    kCFStringEncodingMacRoman,  kCFStringEncodingWindowsLatin1, kCFStringEncodingNextStepLatin,
    kCFStringEncodingISOLatin1, kCFStringEncodingASCII,         kCFStringEncodingUTF8,
    kCFStringEncodingUTF16,     kCFStringEncodingUTF16BE,       kCFStringEncodingUTF16LE,
    kCFStringEncodingUTF32,     kCFStringEncodingUTF32BE,       kCFStringEncodingUTF32LE,
    kCFStringEncodingInvalidId,
};
constexpr std::size_t kEncodingCount = sizeof kEncodings / sizeof *kEncodings;

void ChangeString(CFStringRef theString)
{
    const Held<CFMutableStringRef> theCopy(CFStringCreateMutableCopy(nullptr, 0, theString));
    CFStringTrimWhitespace(theCopy);
    CFStringUppercase(theCopy, nullptr);
    CFStringLowercase(theCopy, nullptr);
    CFStringCapitalize(theCopy, nullptr);
    for (const CFStringCompareFlags theFlags : {CFStringCompareFlags{0}, CFStringCompareFlags{0x7F}}) {
        const CFComparisonResult theResult = CFStringCompare(theString, theCopy, theFlags);
        FUZZ_EXPECT(CFStringCompare(theCopy, theString, theFlags) == -theResult);
    }
    CFStringGetIntValue(theString);
    CFStringGetDoubleValue(theString);
}

// In UTF-8 a character has one form only, so that as many bytes are written as were read. A byte order mark
// before the text is dropped.
void ExpectShortestForm(CFStringRef theString, const std::uint8_t* theBytes, std::size_t theSize)
{
    const bool theHasMark = theSize >= 3 && std::memcmp(theBytes, "\xEF\xBB\xBF", 3) == 0;
    CFIndex theNeeded = 0;
    const CFRange theWhole = CFRangeMake(0, CFStringGetLength(theString));
    FUZZ_EXPECT(CFStringGetBytes(theString, theWhole, kCFStringEncodingUTF8, 0, false, nullptr, 0,
                                 &theNeeded) == theWhole.length);
    FUZZ_EXPECT(theNeeded == static_cast<CFIndex>(theSize) - (theHasMark ? 3 : 0));
}

void WriteAndReadAgain(CFStringRef theString, CFStringEncoding theEncoding, Boolean theIsExternal)
{
    const CFRange theWhole = CFRangeMake(0, CFStringGetLength(theString));
    CFIndex theNeeded = 0;
    const CFIndex theConverted =
        CFStringGetBytes(theString, theWhole, theEncoding, 0, theIsExternal, nullptr, 0, &theNeeded);
    // A lone half of a surrogate pair can be read in UTF-16, and not be written. A character that is the byte
    // order mark would be taken for one.
    const bool theIsMark =
        theEncoding == kCFStringEncodingUTF8 && CFStringGetCharacterAtIndex(theString, 0) == 0xFEFF;
    if (theConverted != theWhole.length || theIsMark) {
        return;
    }
    std::vector<UInt8> theBytes(static_cast<std::size_t>(theNeeded));
    CFIndex theUsed = 0;
    FUZZ_EXPECT(CFStringGetBytes(theString, theWhole, theEncoding, 0, theIsExternal, theBytes.data(),
                                 theNeeded, &theUsed) == theWhole.length);
    FUZZ_EXPECT(theUsed == theNeeded);
    const Held<CFStringRef> theAgain(
        CFStringCreateWithBytes(nullptr, theBytes.data(), theUsed, theEncoding, theIsExternal));
    FUZZ_EXPECT(theAgain != nullptr);
    FUZZ_EXPECT(CFEqual(theAgain, theString));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* theBytes, std::size_t theSize)
{
    if (theSize == 0) {
        return 0;
    }
    const CFStringEncoding theEncoding = kEncodings[theBytes[0] % kEncodingCount];
    const Boolean theIsExternal = theBytes[0] >= 0x80;
    const Held<CFStringRef> theString(CFStringCreateWithBytes(
        nullptr, theBytes + 1, static_cast<CFIndex>(theSize - 1), theEncoding, theIsExternal));
    if (theString != nullptr) {
        if (theEncoding == kCFStringEncodingUTF8) {
            ExpectShortestForm(theString, theBytes + 1, theSize - 1);
        }
        WriteAndReadAgain(theString, theEncoding, theIsExternal);
        ChangeString(theString);
    }
    return 0;
}
