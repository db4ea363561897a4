// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFCalendar.h"
#include "CFPropertyListSupport.h"
#include "CFPropertyListText.h"
#include "CFPropertyListXMLLeaves.h"
#include "CFStringObject.h"

#include <algorithm>

namespace {

using Host::Holder;
using Host::IsXMLSpace;
using Host::MalformedPropertyList;
using Host::TakePrefix;

using ObjectHolder = Holder<CFPropertyListRef>;

Holder<CFStringRef> MakeString(std::string_view theText)
{
    Host::Units theUnits;
    Host::AppendUTF8(theText, theUnits);
    return Holder<CFStringRef>(Host::MakeString(std::move(theUnits)));
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
            // On purpose: what somebody has put behind the end does no harm.
            ReadEndTag("plist");
        } else {
            Require(mRest.empty(), "there is something behind the end");
        }
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

    // What says nothing: a comment, or an instruction for another program.
    bool SkipComment()
    {
        if (TakePrefix(mRest, "<!--")) {
            SkipPast("-->");
            return true;
        }
        if (TakePrefix(mRest, "<?")) {
            SkipPast("?>");
            return true;
        }
        return false;
    }

    void SkipComments()
    {
        SkipSpace();
        while (SkipComment()) {
            SkipSpace();
        }
    }

    // What may stand before the first element. A document type may not define anything.
    void SkipProlog()
    {
        SkipComments();
        while (TakePrefix(mRest, "<!")) {
            Require(TakePrefix(mRest, "DOCTYPE"), "there is unknown markup");
            Require(mRest.substr(0, mRest.find('>')).find('[') == std::string_view::npos,
                    "the document type defines something");
            SkipPast(">");
            SkipComments();
        }
    }

    Tag ReadTag()
    {
        Require(TakePrefix(mRest, "<"), "an element is expected");
        const size_t theLength = std::min(mRest.find_first_of(" \t\n\r/>"), mRest.size());
        const std::string_view theName = mRest.substr(0, theLength);
        mRest.remove_prefix(theLength);
        SkipAttributes();
        const bool theIsEmpty = TakePrefix(mRest, "/");
        Require(TakePrefix(mRest, ">"), "the text is cut off");
        return {theName, theIsEmpty};
    }

    // They say nothing. A value in quotes may hold what would end the tag.
    void SkipAttributes()
    {
        while (!mRest.empty() && mRest[0] != '>' && mRest.substr(0, 2) != "/>") {
            const std::string_view theCharacter = mRest.substr(0, 1);
            mRest.remove_prefix(1);
            if (theCharacter == "\"" || theCharacter == "'") {
                SkipPast(theCharacter);
            }
        }
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
            Require(ReadPlainText(theTag).empty(), "a boolean has content");
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
                Host::MakeReadInteger(Host::ParseInteger(ReadPlainText(theTag))));
        }
        if (theTag.theName == "real") {
            const double theValue = Host::ParseReal(ReadPlainText(theTag));
            return Host::RequireMemory<CFPropertyListRef>(
                CFNumberCreate(nullptr, kCFNumberFloat64Type, &theValue));
        }
        if (theTag.theName == "data") {
            Require(!theTag.theIsEmpty, "data has no content");
            const std::vector<UInt8> theBytes = Host::DecodeBase64(ReadPlainText(theTag));
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

    // Text with comments at most, up to the end tag, which is read too.
    std::string ReadPlainText(const Tag& theTag)
    {
        std::string theText;
        if (!theTag.theIsEmpty) {
            do {
                const size_t theEnd = mRest.find('<');
                Require(theEnd != std::string_view::npos, "the text is cut off");
                theText += mRest.substr(0, theEnd);
                mRest.remove_prefix(theEnd);
            } while (SkipComment());
            ReadEndTag(theTag.theName);
        }
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

    // Text with entities, comments and sections of unmarked characters, up to the end tag.
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
            } else if (!SkipComment()) {
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
        const std::optional<UInt64> theCharacter = Host::ParseDigits(theDigits, theBase);
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
    return Reader(theText).Read();
}
