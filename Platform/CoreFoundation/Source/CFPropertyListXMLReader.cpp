// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFCalendar.h"
#include "CFPropertyListForms.h"
#include "CFPropertyListSupport.h"
#include "CFStringObject.h"

#include <cmath>
#include <limits>

namespace {

using Host::Holder;
using Host::MalformedPropertyList;

using ObjectHolder = Holder<CFPropertyListRef>;

bool IsXMLSpace(char theCharacter)
{
    return theCharacter == ' ' || theCharacter == '\t' || theCharacter == '\n' || theCharacter == '\r';
}

bool IsBlank(std::string_view theText)
{
    for (const char theCharacter : theText) {
        if (!IsXMLSpace(theCharacter)) {
            return false;
        }
    }
    return true;
}

Holder<CFStringRef> MakeString(const std::string& theText)
{
    Host::Units theUnits;
    if (!Host::DecodeBytes(reinterpret_cast<const UInt8*>(theText.data()),
                           static_cast<CFIndex>(theText.size()), kCFStringEncodingUTF8, false, theUnits)) {
        throw MalformedPropertyList("a string is not in UTF-8");
    }
    return Holder<CFStringRef>(Host::MakeString(std::move(theUnits)));
}

// Numbers

int DigitValue(char theCharacter)
{
    if (theCharacter >= '0' && theCharacter <= '9') {
        return theCharacter - '0';
    }
    const char theLetter = static_cast<char>(theCharacter | 0x20);
    return theLetter >= 'a' && theLetter <= 'f' ? theLetter - 'a' + 10 : 16;
}

// The value of a text that consists of digits and nothing else; none when it has others or is too large.
std::optional<UInt64> ParseDigits(std::string_view theDigits, unsigned theBase)
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

bool TakePrefix(std::string_view& theText, std::string_view thePrefix)
{
    const bool theIsThere = theText.substr(0, thePrefix.size()) == thePrefix;
    theText.remove_prefix(theIsThere ? thePrefix.size() : 0);
    return theIsThere;
}

// White space before the number is allowed, behind it is not. On purpose: a number from 2 to the power of 63
// on wraps around, because there is no type for it.
SInt64 ParseInteger(std::string_view theText)
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

double ParseReal(std::string_view theText)
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

// Data

// Characters outside the alphabet are skipped, and padding ends the data.
std::vector<UInt8> DecodeBase64(std::string_view theText)
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

// The start tag of an element.
struct Tag
{
    std::string_view theName;
    bool theIsEmpty; // "<name/>", which has no end tag
};

class Reader
{
public:
    explicit Reader(std::string_view theText)
        : mRest(theText)
    {
    }

    ObjectHolder Read()
    {
        TakePrefix(mRest, "\xEF\xBB\xBF");
        SkipProlog();
        Tag theTag = ReadTag();
        const bool theHasRoot = theTag.theName == "plist";
        if (theHasRoot) {
            Require(!theTag.theIsEmpty, "there is no object");
            SkipComments();
            theTag = ReadTag();
        }
        ObjectHolder theObject = ReadObject(theTag, 0);
        SkipComments();
        if (theHasRoot) {
            ReadEndTag("plist");
            SkipComments();
        }
        Require(mRest.empty(), "there is something behind the end");
        return theObject;
    }

private:
    static void Require(bool theCondition, const char* theReason)
    {
        if (!theCondition) {
            throw MalformedPropertyList(theReason);
        }
    }

    // Markup

    void SkipPast(std::string_view theEnd)
    {
        const size_t thePlace = mRest.find(theEnd);
        Require(thePlace != std::string_view::npos, "the text is cut off");
        mRest.remove_prefix(thePlace + theEnd.size());
    }

    void SkipSpace()
    {
        while (!mRest.empty() && IsXMLSpace(mRest[0])) {
            mRest.remove_prefix(1);
        }
    }

    // White space and comments.
    void SkipComments()
    {
        SkipSpace();
        while (TakePrefix(mRest, "<!--")) {
            SkipPast("-->");
            SkipSpace();
        }
    }

    // What may stand before the first element. A document type may not define anything.
    void SkipProlog()
    {
        SkipComments();
        while (mRest.substr(0, 2) == "<?" || mRest.substr(0, 2) == "<!") {
            const bool theIsType = TakePrefix(mRest, "<!DOCTYPE");
            Require(theIsType || TakePrefix(mRest, "<?"), "there is unknown markup");
            Require(!theIsType || mRest.substr(0, mRest.find('>')).find('[') == std::string_view::npos,
                    "the document type defines something");
            SkipPast(theIsType ? ">" : "?>");
            SkipComments();
        }
    }

    // Only the root has attributes.
    Tag ReadTag()
    {
        Require(TakePrefix(mRest, "<"), "an element is expected");
        const size_t theEnd = mRest.find('>');
        Require(theEnd != std::string_view::npos, "the text is cut off");
        std::string_view theName = mRest.substr(0, theEnd);
        mRest.remove_prefix(theEnd + 1);
        const bool theIsEmpty = !theName.empty() && theName.back() == '/';
        theName.remove_suffix(theIsEmpty ? 1 : 0);
        const bool theIsRoot =
            theName.substr(0, 5) == "plist" && (theName.size() == 5 || IsXMLSpace(theName[5]));
        while (!theIsRoot && !theName.empty() && IsXMLSpace(theName.back())) {
            theName.remove_suffix(1);
        }
        return {theIsRoot ? theName.substr(0, 5) : theName, theIsEmpty};
    }

    void ReadEndTag(std::string_view theName)
    {
        Require(TakePrefix(mRest, "</") && TakePrefix(mRest, theName), "an end tag is missing");
        SkipSpace();
        Require(TakePrefix(mRest, ">"), "an end tag is missing");
    }

    // Objects

    ObjectHolder ReadObject(const Tag& theTag, int theDepth)
    {
        Require(theDepth < Host::kDeepestNesting, Host::kTooDeep);
        if (theTag.theName == "dict") {
            return ReadDictionary(theTag, theDepth);
        }
        if (theTag.theName == "array") {
            return ReadArray(theTag, theDepth);
        }
        if (theTag.theName == "true" || theTag.theName == "false") {
            Require(IsBlank(ReadPlainText(theTag)), "a boolean has content");
            return ObjectHolder(theTag.theName == "true" ? kCFBooleanTrue : kCFBooleanFalse);
        }
        return ReadLeaf(theTag);
    }

    ObjectHolder ReadLeaf(const Tag& theTag)
    {
        if (theTag.theName == "string") {
            return ObjectHolder(ReadString(theTag).Release());
        }
        if (theTag.theName == "integer") {
            return Host::RequireMemory<CFPropertyListRef>(
                Host::MakeReadInteger(ParseInteger(ReadPlainText(theTag))));
        }
        if (theTag.theName == "real") {
            const double theValue = ParseReal(ReadPlainText(theTag));
            return Host::RequireMemory<CFPropertyListRef>(
                CFNumberCreate(nullptr, kCFNumberFloat64Type, &theValue));
        }
        if (theTag.theName == "data") {
            const std::vector<UInt8> theBytes = DecodeBase64(ReadPlainText(theTag));
            return Host::RequireMemory<CFPropertyListRef>(
                CFDataCreate(nullptr, theBytes.data(), static_cast<CFIndex>(theBytes.size())));
        }
        Require(theTag.theName == "date", "there is an unknown element");
        const std::optional<CFAbsoluteTime> theTime = Host::ParseDate(ReadPlainText(theTag));
        Require(theTime.has_value(), "a date is none");
        return Host::RequireMemory<CFPropertyListRef>(CFDateCreate(nullptr, *theTime));
    }

    // Calls theReadElement with the tag of each element up to the container's end tag.
    template <class Function>
    void ReadContent(const Tag& theTag, Function theReadElement)
    {
        if (theTag.theIsEmpty) {
            return;
        }
        SkipComments();
        while (mRest.substr(0, 2) != "</") {
            theReadElement(ReadTag());
            SkipComments();
        }
        ReadEndTag(theTag.theName);
    }

    ObjectHolder ReadArray(const Tag& theTag, int theDepth)
    {
        auto theArray = Host::RequireMemory(CFArrayCreateMutable(nullptr, 0, &kCFTypeArrayCallBacks));
        ReadContent(theTag, [&](const Tag& theElement) {
            const ObjectHolder theValue = ReadObject(theElement, theDepth + 1);
            Host::AppendToList(theArray.Get(), theValue.Get());
        });
        return ObjectHolder(theArray.Release());
    }

    ObjectHolder ReadDictionary(const Tag& theTag, int theDepth)
    {
        auto theDictionary = Host::RequireMemory(CFDictionaryCreateMutable(
            nullptr, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
        ReadContent(theTag, [&](const Tag& theElement) {
            Require(theElement.theName == "key", "a key is expected");
            const Holder<CFStringRef> theKey = ReadString(theElement);
            SkipComments();
            const ObjectHolder theValue = ReadObject(ReadTag(), theDepth + 1);
            Host::SetInList(theDictionary.Get(), theKey.Get(), theValue.Get());
        });
        return ObjectHolder(theDictionary.Release());
    }

    // Text

    // Text without any markup, up to the end tag, which is read too.
    std::string_view ReadPlainText(const Tag& theTag)
    {
        if (theTag.theIsEmpty) {
            return std::string_view();
        }
        const size_t theEnd = mRest.find('<');
        Require(theEnd != std::string_view::npos, "the text is cut off");
        const std::string_view theText = mRest.substr(0, theEnd);
        mRest.remove_prefix(theEnd);
        ReadEndTag(theTag.theName);
        return theText;
    }

    Holder<CFStringRef> ReadString(const Tag& theTag)
    {
        std::string theText;
        if (!theTag.theIsEmpty) {
            ReadMarkedText(theText);
            ReadEndTag(theTag.theName);
        }
        return MakeString(theText);
    }

    // Text with entities and sections of unmarked characters, up to the end tag.
    void ReadMarkedText(std::string& theText)
    {
        while (true) {
            const size_t theEnd = mRest.find_first_of("<&");
            Require(theEnd != std::string_view::npos, "the text is cut off");
            theText += mRest.substr(0, theEnd);
            mRest.remove_prefix(theEnd);
            if (TakePrefix(mRest, "&")) {
                ReadEntity(theText);
            } else if (TakePrefix(mRest, "<![CDATA[")) {
                const std::string_view theSection = mRest.substr(0, mRest.find("]]>"));
                SkipPast("]]>");
                theText += theSection;
            } else {
                return;
            }
        }
    }

    void ReadEntity(std::string& theText)
    {
        static const std::pair<std::string_view, char> kEntities[] = {
            {"lt;", '<'}, {"gt;", '>'}, {"amp;", '&'}, {"quot;", '"'}, {"apos;", '\''}};
        for (const auto& theEntity : kEntities) {
            if (TakePrefix(mRest, theEntity.first)) {
                theText += theEntity.second;
                return;
            }
        }
        Require(TakePrefix(mRest, "#"), "there is an unknown entity");
        const unsigned theBase = TakePrefix(mRest, "x") ? 16 : 10;
        const std::string_view theDigits = mRest.substr(0, mRest.find(';'));
        SkipPast(";");
        const std::optional<UInt64> theCharacter = ParseDigits(theDigits, theBase);
        Require(theCharacter.has_value() && *theCharacter != 0 && *theCharacter <= 0x10FFFF,
                "there is an unknown character");
        AppendCharacter(static_cast<UTF32Char>(*theCharacter), theText);
    }

    // Half of a surrogate pair is found to be no UTF-8 when the string is made.
    static void AppendCharacter(UTF32Char theCharacter, std::string& theText)
    {
        if (theCharacter < 0x80) {
            theText += static_cast<char>(theCharacter);
            return;
        }
        const int theTrailCount = theCharacter < 0x800 ? 1 : theCharacter < 0x10000 ? 2 : 3;
        static const unsigned kLeadMarks[] = {0, 0xC0, 0xE0, 0xF0};
        theText += static_cast<char>(kLeadMarks[theTrailCount] | theCharacter >> (6 * theTrailCount));
        for (int theShift = 6 * (theTrailCount - 1); theShift >= 0; theShift -= 6) {
            theText += static_cast<char>(0x80 | (theCharacter >> theShift & 0x3F));
        }
    }

    std::string_view mRest; // what is not yet read
};

} // namespace

Host::Holder<CFPropertyListRef> Host::ReadXMLPropertyList(std::string_view theText)
{
    if (theText.empty()) {
        throw MalformedPropertyList("there is nothing");
    }
    if (IsBlank(theText)) {
        return RequireMemory<CFPropertyListRef>(CFDictionaryCreateMutable(
            nullptr, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
    }
    return Reader(theText).Read();
}
