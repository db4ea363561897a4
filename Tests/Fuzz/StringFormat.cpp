// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A format. The first byte chooses what the arguments are: whole numbers, doubles, objects or C strings. As
// in C, a format that asks for arguments of another kind, or for more than there are, has no meaning; such a
// format is made one that has before it is used.

#include "FuzzTarget.h"

#include <cstring>
#include <string>

namespace {

constexpr std::size_t kArguments = 16;

// The letters of the conversions that fit the arguments, by kind.
const char* const kConversions[] = {"diouxXcCp", "aAeEfFgG", "@", "s"};

bool IsConversion(char theCharacter)
{
    return theCharacter == '@' || (theCharacter >= 'A' && theCharacter <= 'Z' && theCharacter != 'L') ||
           (theCharacter >= 'a' && theCharacter <= 'z' && std::strchr("hlqLtzj", theCharacter) == nullptr);
}

// Leaves out what would take an argument of another kind, and what stands behind the last argument.
std::string MakeMeaningful(const std::string& theText, std::size_t theKind)
{
    std::string theFormat;
    std::size_t theTaken = 0;
    for (const char theCharacter : theText) {
        const bool theIsTaking = theCharacter == '%' || theCharacter == '*';
        if (theIsTaking && ++theTaken > kArguments) {
            break;
        }
        const bool theIsOfOtherKind =
            (IsConversion(theCharacter) && std::strchr(kConversions[theKind], theCharacter) == nullptr) ||
            (theCharacter == '*' && theKind != 0) || theCharacter == 'L';
        const bool theIsFarPosition = theCharacter == '$' && theFormat.size() >= 2 &&
                                      theFormat.back() >= '0' && theFormat.back() <= '9' &&
                                      theFormat[theFormat.size() - 2] != '%';
        if (theCharacter != '\0' && !theIsOfOtherKind && !theIsFarPosition) {
            theFormat += theCharacter;
        }
    }
    return theFormat;
}

template <class Argument>
void Format(CFStringRef theFormat, Argument the)
{
    const Held<CFStringRef> theText(CFStringCreateWithFormat(nullptr, nullptr, theFormat, the, the, the, the,
                                                             the, the, the, the, the, the, the, the, the, the,
                                                             the, the));
    FUZZ_EXPECT(theText != nullptr);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* theBytes, std::size_t theSize)
{
    if (theSize == 0) {
        return 0;
    }
    const std::size_t theKind = theBytes[0] % 4;
    const std::string theText =
        MakeMeaningful(std::string(reinterpret_cast<const char*>(theBytes) + 1, theSize - 1), theKind);
    const Held<CFStringRef> theFormat(
        CFStringCreateWithCString(nullptr, theText.c_str(), kCFStringEncodingISOLatin1));
    switch (theKind) {
    case 0:
        Format(theFormat, -123456789012LL);
        break;
    case 1:
        Format(theFormat, -1.5e300);
        break;
    case 2:
        Format(theFormat, static_cast<CFTypeRef>(CFSTR("object")));
        break;
    default:
        Format(theFormat, "a C string");
        break;
    }
    return 0;
}
