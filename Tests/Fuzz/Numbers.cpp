// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The number at the start of a text, and the number that the first bytes are. What is written with all its
// digits reads as the same again.

#include "FuzzTarget.h"

#include <cmath>
#include <cstring>

namespace {

void WriteAndReadAgain(double theNumber)
{
    const Held<CFStringRef> theText(CFStringCreateWithFormat(nullptr, nullptr, CFSTR("%.17g"), theNumber));
    FUZZ_EXPECT(CFStringGetDoubleValue(theText) == theNumber);
}

void WriteAndReadAgain(SInt32 theNumber)
{
    const Held<CFStringRef> theText(
        CFStringCreateWithFormat(nullptr, nullptr, CFSTR("%d"), static_cast<int>(theNumber)));
    FUZZ_EXPECT(CFStringGetIntValue(theText) == theNumber);
}

void ReadNumbers(CFStringRef theText)
{
    const double theDouble = CFStringGetDoubleValue(theText);
    FUZZ_EXPECT(!std::isnan(theDouble));
    if (std::isfinite(theDouble)) {
        WriteAndReadAgain(theDouble);
    }
    WriteAndReadAgain(CFStringGetIntValue(theText));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* theBytes, std::size_t theSize)
{
    const Held<CFStringRef> theText(CFStringCreateWithBytes(nullptr, theBytes, static_cast<CFIndex>(theSize),
                                                            kCFStringEncodingISOLatin1, false));
    FUZZ_EXPECT(theText != nullptr);
    ReadNumbers(theText);
    double theNumber = 0;
    if (theSize >= sizeof theNumber) {
        std::memcpy(&theNumber, theBytes, sizeof theNumber);
        if (std::isfinite(theNumber)) {
            WriteAndReadAgain(theNumber);
        }
    }
    return 0;
}
