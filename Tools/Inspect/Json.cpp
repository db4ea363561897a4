// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Json.h"

#include <array>
#include <cinttypes>
#include <cstddef>
#include <cstdio>
#include <ostream>

namespace Inspect {

namespace {

constexpr std::uint32_t kNone = 0xffffffff;

// How many bytes a character has that begins with theByte; 0 when none does.
std::size_t LengthOf(unsigned char theByte)
{
    if (theByte < 0x80) {
        return 1;
    }
    if (theByte < 0xc2 || theByte > 0xf4) {
        return 0;
    }
    return theByte < 0xe0 ? 2 : theByte < 0xf0 ? 3 : 4;
}

// The character that theText begins with, and its length; kNone and 1 when that is none.
std::uint32_t Decode(std::string_view theText, std::size_t& theLength)
{
    constexpr std::array<std::uint32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
    const auto theFirst = static_cast<unsigned char>(theText[0]);
    theLength = LengthOf(theFirst);
    if (theLength == 1) {
        return theFirst;
    }
    std::uint32_t theCharacter = theFirst & (0xffU >> (theLength + 1));
    bool isGood = theLength > 0 && theLength <= theText.size();
    for (std::size_t thePlace = 1; isGood && thePlace < theLength; ++thePlace) {
        const auto theByte = static_cast<unsigned char>(theText[thePlace]);
        isGood = (theByte & 0xc0U) == 0x80U;
        theCharacter = (theCharacter << 6U) | (theByte & 0x3fU);
    }
    isGood = isGood && theCharacter >= kSmallest[theLength] && theCharacter <= 0x10ffff &&
             (theCharacter < 0xd800 || theCharacter > 0xdfff);
    if (!isGood) {
        theLength = 1;
        return kNone;
    }
    return theCharacter;
}

// Whether it has a meaning to JSON, to HTML or to a script's lines.
bool IsSpecial(std::uint32_t theCharacter)
{
    return theCharacter < 0x20 || theCharacter == '"' || theCharacter == '\\' || theCharacter == '<' ||
           theCharacter == '>' || theCharacter == '&' || (theCharacter >= 0x7f && theCharacter < 0xa0) ||
           theCharacter == 0x2028 || theCharacter == 0x2029;
}

} // namespace

void Json::Separate()
{
    if (!mIsFirst) {
        mOutput << ',';
    }
    mIsFirst = false;
}

void Json::Begin(char theBracket)
{
    Separate();
    mOutput << theBracket;
    mIsFirst = true;
}

void Json::End(char theBracket)
{
    mOutput << theBracket;
    mIsFirst = false;
}

void Json::Name(std::string_view theName)
{
    Separate();
    Quote(theName);
    mOutput << ':';
    mIsFirst = true;
}

void Json::Quote(std::string_view theText)
{
    mOutput << '"';
    while (!theText.empty()) {
        std::size_t theLength = 0;
        std::uint32_t theCharacter = Decode(theText, theLength);
        if (theCharacter == kNone || IsSpecial(theCharacter)) {
            theCharacter = theCharacter == kNone ? 0xfffd : theCharacter;
            std::array<char, 8> theBuffer = {};
            std::snprintf(theBuffer.data(), theBuffer.size(), "\\u%04" PRIx32, theCharacter & 0xffffU);
            mOutput << theBuffer.data();
        } else {
            mOutput << theText.substr(0, theLength);
        }
        theText.remove_prefix(theLength);
    }
    mOutput << '"';
}

void Json::Text(std::string_view theText)
{
    Separate();
    Quote(theText);
}

void Json::Number(std::int64_t theNumber)
{
    Separate();
    mOutput << theNumber;
}

void Json::Decimal(double theNumber)
{
    Separate();
    std::array<char, 40> theBuffer = {};
    std::snprintf(theBuffer.data(), theBuffer.size(), "%.1f", theNumber);
    mOutput << theBuffer.data();
}

void Json::Boolean(bool theValue)
{
    Separate();
    mOutput << (theValue ? "true" : "false");
}

} // namespace Inspect
