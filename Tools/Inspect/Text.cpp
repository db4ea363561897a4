// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cinttypes>
#include <cstdio>
#include <utility>

namespace Inspect {

namespace {

void AppendEscaped(std::string& theText, unsigned char theByte)
{
    if (theByte == '\n') {
        theText += "\\n";
    } else if (theByte == '\t') {
        theText += "\\t";
    } else if (theByte == '\r') {
        theText += "\\r";
    } else if (theByte < 0x20 || theByte == 0x7f) {
        std::array<char, 8> theBuffer = {};
        std::snprintf(theBuffer.data(), theBuffer.size(), "\\u%04x", theByte);
        theText += theBuffer.data();
    } else {
        theText += static_cast<char>(theByte);
    }
}

bool BeginsCharacter(char theByte)
{
    return (static_cast<unsigned char>(theByte) & 0xc0U) != 0x80U;
}

// The control characters beyond ASCII, U+0080 to U+009F, are C2 80 to C2 9F in UTF-8; terminals obey them
// too.
bool IsSecondControl(std::string_view theText, std::size_t thePlace)
{
    return theText[thePlace] == '\xc2' && thePlace + 1 < theText.size() &&
           static_cast<unsigned char>(theText[thePlace + 1]) < 0xa0U;
}

// How many letters must be written otherwise to make one of the other; a different case counts nothing.
std::size_t Distance(std::string_view theLeft, std::string_view theRight)
{
    std::vector<std::size_t> theRow(theRight.size() + 1);
    for (std::size_t theColumn = 0; theColumn < theRow.size(); ++theColumn) {
        theRow[theColumn] = theColumn;
    }
    for (std::size_t theLine = 1; theLine <= theLeft.size(); ++theLine) {
        std::size_t theDiagonal = std::exchange(theRow[0], theLine);
        for (std::size_t theColumn = 1; theColumn < theRow.size(); ++theColumn) {
            const bool isSame = std::tolower(static_cast<unsigned char>(theLeft[theLine - 1])) ==
                                std::tolower(static_cast<unsigned char>(theRight[theColumn - 1]));
            const std::size_t theSwap = theDiagonal + (isSame ? 0 : 1);
            theDiagonal = theRow[theColumn];
            theRow[theColumn] = std::min({theSwap, theRow[theColumn] + 1, theRow[theColumn - 1] + 1});
        }
    }
    return theRow.back();
}

constexpr std::size_t kLongestCompared = 200;

} // namespace

std::string Escape(std::string_view theText)
{
    std::string theResult;
    for (std::size_t thePlace = 0; thePlace < theText.size(); ++thePlace) {
        if (IsSecondControl(theText, thePlace)) {
            ++thePlace;
            theResult += "\\u00";
            std::array<char, 4> theBuffer = {};
            std::snprintf(theBuffer.data(), theBuffer.size(), "%02x",
                          static_cast<unsigned>(static_cast<unsigned char>(theText[thePlace])));
            theResult += theBuffer.data();
        } else {
            AppendEscaped(theResult, static_cast<unsigned char>(theText[thePlace]));
        }
    }
    return theResult;
}

std::string Quote(std::string_view theText, std::size_t theLimit)
{
    std::size_t theCharacters = 0;
    std::size_t theEnd = 0;
    while (theEnd < theText.size()) {
        if (BeginsCharacter(theText[theEnd]) && ++theCharacters > theLimit) {
            break;
        }
        ++theEnd;
    }
    const char* const theTail = theEnd < theText.size() ? "…\"" : "\"";
    return "\"" + Escape(theText.substr(0, theEnd)) + theTail;
}

std::string ShowAddress(std::uint64_t theAddress)
{
    std::array<char, 24> theBuffer = {};
    std::snprintf(theBuffer.data(), theBuffer.size(), "0x%" PRIx64, theAddress);
    return theBuffer.data();
}

std::string ShowTime(std::uint64_t theTime)
{
    std::array<char, 40> theBuffer = {};
    std::snprintf(theBuffer.data(), theBuffer.size(), "%" PRIu64 ".%06" PRIu64 " s", theTime / 1000000000,
                  theTime / 1000 % 1000000);
    return theBuffer.data();
}

std::string ShowObject(const Object& theObject)
{
    if (theObject.theID == 0) {
        return "no object";
    }
    return theObject.theName.empty() ? Escape(theObject.theClass) + " " + std::to_string(theObject.theID)
                                     : Escape(theObject.theName);
}

std::string ShowKey(const Object& theObject, std::string_view theKey)
{
    return ShowObject(theObject) + "." + Escape(theKey);
}

std::vector<std::string> NearestNames(std::string_view theName, const std::vector<std::string>& theNames,
                                      std::size_t theCount)
{
    std::vector<std::pair<std::size_t, std::string>> theRanking;
    const std::string_view theAsked = theName.substr(0, kLongestCompared);
    for (const std::string& theCandidate : theNames) {
        const std::size_t theDistance =
            Distance(theAsked, std::string_view(theCandidate).substr(0, kLongestCompared));
        const bool isPart = theAsked.size() >= 3 && theCandidate.find(theAsked) != std::string::npos;
        if (isPart || theDistance * 5 <= std::max(theAsked.size(), theCandidate.size()) * 2) {
            theRanking.emplace_back(isPart ? std::min<std::size_t>(theDistance, 2) : theDistance,
                                    theCandidate);
        }
    }
    std::sort(theRanking.begin(), theRanking.end());
    std::vector<std::string> theNearest;
    for (const auto& [theDistance, theCandidate] : theRanking) {
        if (theNearest.size() < theCount) {
            theNearest.push_back(theCandidate);
        }
    }
    return theNearest;
}

std::string JoinWithOr(const std::vector<std::string>& theParts)
{
    std::string theText;
    for (std::size_t theIndex = 0; theIndex < theParts.size(); ++theIndex) {
        if (theIndex > 0) {
            theText += theIndex + 1 == theParts.size() ? " or " : ", ";
        }
        theText += theParts[theIndex];
    }
    return theText;
}

std::string Count(std::uint64_t theCount, std::string_view theOne, std::string_view theMany)
{
    return std::to_string(theCount) + " " + std::string(theCount == 1 ? theOne : theMany);
}

} // namespace Inspect
