// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFURLText.h"

#include <algorithm>

namespace Host {

namespace {

constexpr std::string_view kSigns = "-_.~:/?#[]@!$&'()*+,;=";
constexpr std::string_view kSignsOfPaths = "-_.~/!$&'()*+,:=@";
constexpr char kDigits[] = "0123456789ABCDEF";

bool IsLetter(char theCharacter)
{
    const char theLetter = static_cast<char>(theCharacter | 0x20);
    return theLetter >= 'a' && theLetter <= 'z';
}

bool IsLetterOrDigit(char theCharacter)
{
    return IsLetter(theCharacter) || (theCharacter >= '0' && theCharacter <= '9');
}

bool IsOneOf(char theCharacter, std::string_view theSigns)
{
    return theSigns.find(theCharacter) != std::string_view::npos;
}

int HexValue(char theCharacter)
{
    const char theLetter = static_cast<char>(theCharacter | 0x20);
    return theCharacter >= '0' && theCharacter <= '9' ? theCharacter - '0'
           : theLetter >= 'a' && theLetter <= 'f'     ? theLetter - 'a' + 10
                                                      : -1;
}

// Takes what is behind the first sign off the text, and the sign too.
std::optional<std::string> TakeBehind(std::string_view& theText, char theSign)
{
    const size_t thePlace = theText.find(theSign);
    if (thePlace == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string theRest(theText.substr(thePlace + 1));
    theText = theText.substr(0, thePlace);
    return theRest;
}

std::optional<std::string> TakeScheme(std::string_view& theText)
{
    size_t theLength = 0;
    while (theLength < theText.size() &&
           (IsLetterOrDigit(theText[theLength]) || IsOneOf(theText[theLength], "+-."))) {
        ++theLength;
    }
    if (theLength == 0 || !IsLetter(theText[0]) || theLength == theText.size() || theText[theLength] != ':') {
        return std::nullopt;
    }
    const std::string theScheme(theText.substr(0, theLength));
    theText.remove_prefix(theLength + 1);
    return theScheme;
}

std::optional<std::string> TakeAuthority(std::string_view& theText)
{
    if (theText.substr(0, 2) != "//") {
        return std::nullopt;
    }
    theText.remove_prefix(2);
    const size_t theLength = std::min(theText.find('/'), theText.size());
    const std::string theAuthority(theText.substr(0, theLength));
    theText.remove_prefix(theLength);
    return theAuthority;
}

// Carries out the components "." and "..".
std::string WithoutDots(std::string_view thePath)
{
    std::string theResult;
    const bool theIsAbsolute = thePath.substr(0, 1) == "/";
    while (!thePath.empty()) {
        const size_t theEnd = thePath.find('/', 1);
        const std::string_view thePart = thePath.substr(0, theEnd);
        const bool theIsLast = theEnd == std::string_view::npos;
        thePath = theIsLast ? std::string_view() : thePath.substr(theEnd);
        const std::string_view theName = thePart.substr(thePart.substr(0, 1) == "/" ? 1 : 0);
        if (theName == "..") {
            theResult.erase(std::min(theResult.rfind('/'), theResult.size()));
        } else if (theName != ".") {
            theResult += thePart;
            continue;
        }
        if (theIsLast) {
            theResult += '/';
        }
    }
    return theIsAbsolute && theResult.empty() ? "/" : theResult;
}

std::string Merge(const URLParts& theBase, const std::string& thePath)
{
    if (theBase.theAuthority && theBase.thePath.empty()) {
        return "/" + thePath;
    }
    return theBase.thePath.substr(0, theBase.thePath.rfind('/') + 1) + thePath;
}

} // namespace

bool IsURLText(std::string_view theText)
{
    for (size_t theIndex = 0; theIndex < theText.size(); ++theIndex) {
        const bool theIsAllowed = theText[theIndex] == '%' ? IsEscape(theText.substr(theIndex))
                                                           : IsLetterOrDigit(theText[theIndex]) ||
                                                                 IsOneOf(theText[theIndex], kSigns);
        if (!theIsAllowed) {
            return false;
        }
    }
    return true;
}

URLParts SplitURL(std::string_view theText)
{
    URLParts theParts;
    theParts.theFragment = TakeBehind(theText, '#');
    theParts.theQuery = TakeBehind(theText, '?');
    theParts.theScheme = TakeScheme(theText);
    theParts.theAuthority = TakeAuthority(theText);
    theParts.thePath = theText;
    return theParts;
}

std::string JoinURL(const URLParts& theParts)
{
    std::string theText;
    theText += theParts.theScheme ? *theParts.theScheme + ":" : "";
    theText += theParts.theAuthority ? "//" + *theParts.theAuthority : "";
    theText += theParts.thePath;
    theText += theParts.theQuery ? "?" + *theParts.theQuery : "";
    theText += theParts.theFragment ? "#" + *theParts.theFragment : "";
    return theText;
}

URLParts ResolveURL(const URLParts& theBase, const URLParts& theRelative)
{
    URLParts theResult = theRelative;
    if (theRelative.theScheme) {
        return theResult;
    }
    theResult.theScheme = theBase.theScheme;
    if (theRelative.theAuthority) {
        return theResult;
    }
    theResult.theAuthority = theBase.theAuthority;
    if (theRelative.thePath.empty()) {
        theResult.thePath = theBase.thePath;
        theResult.theQuery = theRelative.theQuery ? theRelative.theQuery : theBase.theQuery;
        return theResult;
    }
    const bool theIsAbsolute = theRelative.thePath[0] == '/';
    theResult.thePath =
        WithoutDots(theIsAbsolute ? theRelative.thePath : Merge(theBase, theRelative.thePath));
    return theResult;
}

std::string EscapePath(std::string_view thePath)
{
    std::string theText;
    for (const char theByte : thePath) {
        if (IsLetterOrDigit(theByte) || IsOneOf(theByte, kSignsOfPaths)) {
            theText += theByte;
        } else {
            AppendEscape(theByte, theText);
        }
    }
    return theText;
}

std::optional<std::string> Unescape(std::string_view theText)
{
    std::string theResult;
    while (!theText.empty()) {
        const bool theIsEscape = IsEscape(theText);
        const char theByte = theIsEscape ? ByteOfEscape(theText) : theText[0];
        if (theByte == 0) {
            return std::nullopt;
        }
        theResult += theByte;
        theText.remove_prefix(theIsEscape ? 3 : 1);
    }
    return theResult;
}

bool IsEscape(std::string_view theText)
{
    return theText.size() >= 3 && theText[0] == '%' && HexValue(theText[1]) >= 0 && HexValue(theText[2]) >= 0;
}

char ByteOfEscape(std::string_view theEscape)
{
    return static_cast<char>(HexValue(theEscape[1]) * 16 + HexValue(theEscape[2]));
}

void AppendEscape(char theByte, std::string& theText)
{
    const auto theNumber = static_cast<unsigned char>(theByte);
    theText += '%';
    theText += kDigits[theNumber / 16];
    theText += kDigits[theNumber % 16];
}

std::string WithoutSlash(std::string thePath)
{
    if (thePath.size() > 1 && thePath.back() == '/') {
        thePath.pop_back();
    }
    return thePath;
}

std::string LastComponent(std::string_view thePath)
{
    const std::string theWhole = WithoutSlash(std::string(thePath));
    return theWhole == "/" ? theWhole : theWhole.substr(theWhole.rfind('/') + 1);
}

std::string WithoutLastComponent(std::string_view thePath)
{
    const std::string theWhole = WithoutSlash(std::string(thePath));
    const size_t theSlash = theWhole.rfind('/');
    return theSlash == std::string::npos ? "./" : theWhole.substr(0, theSlash + 1);
}

size_t ExtensionLength(std::string_view theComponent)
{
    const size_t theDot = theComponent.rfind('.');
    const bool theHasOne =
        theDot != std::string_view::npos && theDot != 0 && theDot + 1 < theComponent.size();
    return theHasOne ? theComponent.size() - theDot : 0;
}

} // namespace Host
