// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFPropertyListXMLLeaves.h"

#include "CFText.h"

#include <limits>

namespace {

int DigitValue(char theCharacter)
{
    if (theCharacter >= '0' && theCharacter <= '9') {
        return theCharacter - '0';
    }
    const char theLetter = static_cast<char>(theCharacter | 0x20);
    return theLetter >= 'a' && theLetter <= 'f' ? theLetter - 'a' + 10 : 16;
}

std::string LowerCase(std::string_view theText)
{
    std::string theResult(theText);
    for (char& theCharacter : theResult) {
        theCharacter = static_cast<char>(theCharacter >= 'A' && theCharacter <= 'Z' ? theCharacter | 0x20
                                                                                    : theCharacter);
    }
    return theResult;
}

// "inf", "-infinity" and "nan" in any case; none for other words.
std::optional<double> ParseSpecialReal(const std::string& theText)
{
    const bool theHasSign = !theText.empty() && (theText[0] == '+' || theText[0] == '-');
    const std::string theWord = theText.substr(theHasSign ? 1 : 0);
    if (theWord == "inf" || theWord == "infinity") {
        const double kInfinity = std::numeric_limits<double>::infinity();
        return theText[0] == '-' ? -kInfinity : kInfinity;
    }
    return theText == "nan" ? std::optional<double>(std::numeric_limits<double>::quiet_NaN()) : std::nullopt;
}

} // namespace

bool Host::IsXMLSpace(char theCharacter)
{
    return theCharacter == ' ' || theCharacter == '\t' || theCharacter == '\n' || theCharacter == '\r';
}

bool Host::TakePrefix(std::string_view& theText, std::string_view thePrefix)
{
    const bool theIsThere = theText.substr(0, thePrefix.size()) == thePrefix;
    theText.remove_prefix(theIsThere ? thePrefix.size() : 0);
    return theIsThere;
}

std::optional<UInt64> Host::ParseDigits(std::string_view theDigits, unsigned theBase)
{
    UInt64 theValue = 0;
    for (const char theCharacter : theDigits) {
        const unsigned theDigit = static_cast<unsigned>(DigitValue(theCharacter));
        if (theDigit >= theBase || theValue > (std::numeric_limits<UInt64>::max() - theDigit) / theBase) {
            return std::nullopt;
        }
        theValue = theValue * theBase + theDigit;
    }
    return theDigits.empty() ? std::nullopt : std::optional<UInt64>(theValue);
}

// White space before the number is allowed, behind it is not. On purpose: a number from 2 to the power of 63
// on wraps around, because there is no type for it.
SInt64 Host::ParseInteger(std::string_view theText)
{
    while (!theText.empty() && IsXMLSpace(theText[0])) {
        theText.remove_prefix(1);
    }
    const bool theIsNegative = TakePrefix(theText, "-");
    if (!theIsNegative) {
        TakePrefix(theText, "+");
    }
    const bool theIsHexadecimal = TakePrefix(theText, "0x") || TakePrefix(theText, "0X");
    const std::optional<UInt64> theMagnitude = ParseDigits(theText, theIsHexadecimal ? 16 : 10);
    const UInt64 kLargestNegative = UInt64{1} << 63;
    if (!theMagnitude.has_value() || (theIsNegative && *theMagnitude > kLargestNegative)) {
        throw MalformedPropertyList("an integer is none, or is too large");
    }
    return static_cast<SInt64>(theIsNegative ? 0 - *theMagnitude : *theMagnitude);
}

double Host::ParseReal(std::string_view theText)
{
    const std::string theNumber = LowerCase(theText);
    if (const std::optional<double> theSpecial = ParseSpecialReal(theNumber)) {
        return *theSpecial;
    }
    if (theNumber.empty() || theNumber.find_first_not_of("+-.0123456789e") != std::string::npos ||
        Host::NumberLength(theNumber) != theNumber.size()) {
        throw MalformedPropertyList("a real number is none");
    }
    return Host::ParseInCLocale(theNumber);
}

// Characters outside the alphabet are skipped, and padding ends the data.
std::vector<UInt8> Host::DecodeBase64(std::string_view theText)
{
    static const std::string_view kAlphabet =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::vector<UInt8> theBytes;
    unsigned theBits = 0;
    int theBitCount = 0;
    for (const char theCharacter : theText.substr(0, theText.find('='))) {
        const size_t theValue = kAlphabet.find(theCharacter);
        if (theValue == std::string_view::npos) {
            continue;
        }
        theBits = (theBits << 6 | static_cast<unsigned>(theValue)) & 0xFFFF;
        theBitCount += 6;
        if (theBitCount >= 8) {
            theBitCount -= 8;
            theBytes.push_back(static_cast<UInt8>(theBits >> theBitCount));
        }
    }
    return theBytes;
}
