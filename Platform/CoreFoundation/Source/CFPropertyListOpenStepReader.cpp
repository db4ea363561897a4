// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The oldest form, which Mac OS X wrote up to 10.2: { key = value; }, (element, element), <hexadecimal data>,
// and strings, with quotation marks or, when they have nothing but letters, digits and a few signs, without.
// The entries of a dictionary may stand without its braces: a text without anything is an empty dictionary.

#include "CFPropertyListForms.h"
#include "CFPropertyListSupport.h"
#include "CFPropertyListText.h"
#include "CFStringObject.h"

#include <algorithm>

namespace {

using Host::Holder;
using Host::MalformedPropertyList;

using ObjectHolder = Holder<CFPropertyListRef>;

constexpr std::string_view kSpace = " \t\n\v\f\r";

int HexValue(char theCharacter)
{
    if (theCharacter >= '0' && theCharacter <= '9') {
        return theCharacter - '0';
    }
    const char theLetter = static_cast<char>(theCharacter | 0x20);
    return theLetter >= 'a' && theLetter <= 'f' ? theLetter - 'a' + 10 : -1;
}

bool IsPlain(char theCharacter)
{
    const char theLetter = static_cast<char>(theCharacter | 0x20);
    return (theLetter >= 'a' && theLetter <= 'z') || (theCharacter >= '0' && theCharacter <= '9') ||
           std::string_view("_$/:.-").find(theCharacter) != std::string_view::npos;
}

class Reader
{
public:
    explicit Reader(std::string_view theText)
        : mRest(theText)
    {
    }

    ObjectHolder Read()
    {
        const std::string_view theWhole = mRest;
        SkipSpace();
        if (mRest.empty()) {
            return ReadEntries(0);
        }
        const bool theIsString = NextIs('"') || NextIs('\'') || IsPlain(Next());
        ObjectHolder theObject = ReadObject(0);
        SkipSpace();
        if (theIsString && !mRest.empty()) {
            mRest = theWhole;
            ObjectHolder theEntries = ReadEntries(0);
            theObject.Swap(theEntries);
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

    // What comes next

    char Next() const { return mRest.empty() ? '\0' : mRest[0]; }
    bool NextIs(char theCharacter) const { return !mRest.empty() && mRest[0] == theCharacter; }

    char Take()
    {
        Require(!mRest.empty(), "the text is cut off");
        const char theCharacter = mRest[0];
        mRest.remove_prefix(1);
        return theCharacter;
    }

    bool TakeIf(char theCharacter)
    {
        const bool theIsThere = NextIs(theCharacter);
        mRest.remove_prefix(theIsThere ? 1 : 0);
        return theIsThere;
    }

    // White space and comments.
    void SkipSpace()
    {
        while (true) {
            mRest.remove_prefix(std::min(mRest.find_first_not_of(kSpace), mRest.size()));
            if (mRest.substr(0, 2) == "//") {
                mRest.remove_prefix(std::min(mRest.find_first_of("\n\r"), mRest.size()));
            } else if (mRest.substr(0, 2) == "/*") {
                const size_t theEnd = mRest.find("*/", 2);
                Require(theEnd != std::string_view::npos, "the text is cut off");
                mRest.remove_prefix(theEnd + 2);
            } else {
                return;
            }
        }
    }

    // Objects

    ObjectHolder ReadObject(int theDepth)
    {
        Require(theDepth < Host::kDeepestNesting, Host::kTooDeep);
        SkipSpace();
        if (TakeIf('{')) {
            ObjectHolder theDictionary = ReadEntries(theDepth);
            Require(TakeIf('}'), "the end of a dictionary is missing");
            return theDictionary;
        }
        if (TakeIf('(')) {
            return ReadArray(theDepth);
        }
        if (TakeIf('<')) {
            return ReadData();
        }
        return ObjectHolder(ReadString().Release());
    }

    // Up to the closing brace or the end. A key without a value is its own.
    ObjectHolder ReadEntries(int theDepth)
    {
        auto theDictionary = Host::RequireMemory(CFDictionaryCreateMutable(
            nullptr, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
        SkipSpace();
        while (!mRest.empty() && !NextIs('}')) {
            Require(theDepth + 1 < Host::kDeepestNesting, Host::kTooDeep);
            const Holder<CFStringRef> theKey = ReadString();
            SkipSpace();
            const ObjectHolder theValue =
                TakeIf('=') ? ReadObject(theDepth + 1) : ObjectHolder(CFRetain(theKey.Get()));
            Host::SetInList(theDictionary.Get(), theKey.Get(), theValue.Get());
            SkipSpace();
            Require(TakeIf(';'), "a semicolon is missing");
            SkipSpace();
        }
        return ObjectHolder(theDictionary.Release());
    }

    ObjectHolder ReadArray(int theDepth)
    {
        auto theArray = Host::RequireMemory(CFArrayCreateMutable(nullptr, 0, &kCFTypeArrayCallBacks));
        SkipSpace();
        bool theIsFollowed = true;
        while (!NextIs(')')) {
            Require(theIsFollowed, "a comma is missing");
            Host::AppendToList(theArray.Get(), ReadObject(theDepth + 1).Get());
            SkipSpace();
            theIsFollowed = TakeIf(',');
            SkipSpace();
        }
        Take();
        return ObjectHolder(theArray.Release());
    }

    ObjectHolder ReadData()
    {
        std::vector<UInt8> theBytes;
        while (true) {
            mRest.remove_prefix(std::min(mRest.find_first_not_of(kSpace), mRest.size()));
            if (TakeIf('>')) {
                return Host::RequireMemory<CFPropertyListRef>(
                    CFDataCreate(nullptr, theBytes.data(), static_cast<CFIndex>(theBytes.size())));
            }
            const int theUpperHalf = HexValue(Take());
            const int theLowerHalf = HexValue(Take());
            Require(theUpperHalf >= 0 && theLowerHalf >= 0, "data is not hexadecimal");
            theBytes.push_back(static_cast<UInt8>(theUpperHalf << 4 | theLowerHalf));
        }
    }

    // Strings

    Holder<CFStringRef> ReadString()
    {
        Host::Units theUnits;
        if (NextIs('"') || NextIs('\'')) {
            ReadQuoted(Take(), theUnits);
        } else {
            size_t theLength = 0;
            while (theLength < mRest.size() && IsPlain(mRest[theLength])) {
                ++theLength;
            }
            Require(theLength > 0, mRest.empty() ? "the text is cut off" : "an object is expected");
            theUnits.assign(mRest.begin(), mRest.begin() + static_cast<std::ptrdiff_t>(theLength));
            mRest.remove_prefix(theLength);
        }
        Holder<CFStringRef> theString(Host::MakeString(std::move(theUnits)));
        Require(Host::UTF8Text(theString.Get()).has_value(), Host::kHalfAPair);
        return theString;
    }

    void ReadQuoted(char theQuote, Host::Units& theUnits)
    {
        const char kEnds[] = {theQuote, '\\', '\0'};
        while (true) {
            const size_t theEnd = mRest.find_first_of(kEnds);
            Require(theEnd != std::string_view::npos, "the text is cut off");
            Host::AppendUTF8(mRest.substr(0, theEnd), theUnits);
            mRest.remove_prefix(theEnd);
            if (Take() == theQuote) {
                return;
            }
            ReadEscape(theUnits);
        }
    }

    // What stands behind a backslash.
    void ReadEscape(Host::Units& theUnits)
    {
        static const std::string_view kLetters = "abfnrtv";
        static const std::string_view kMeanings = "\a\b\f\n\r\t\v";
        if (NextIs('U')) {
            Take();
            theUnits.push_back(static_cast<UniChar>(ReadDigits(4, 16)));
        } else if (Next() >= '0' && Next() <= '7') {
            const UInt8 theByte = static_cast<UInt8>(ReadDigits(3, 8));
            Host::DecodeBytes(&theByte, 1, kCFStringEncodingNextStepLatin, false, theUnits);
        } else if (const size_t theLetter = kLetters.find(Next()); theLetter != std::string_view::npos) {
            Take();
            theUnits.push_back(static_cast<UniChar>(kMeanings[theLetter]));
        } else if (static_cast<unsigned char>(Next()) < 0x80) {
            // Anything else means itself; the characters beyond ASCII are read with what follows.
            theUnits.push_back(static_cast<UniChar>(Take()));
        }
    }

    // At most theCount digits.
    int ReadDigits(int theCount, int theBase)
    {
        int theValue = 0;
        for (; theCount > 0 && !mRest.empty(); --theCount) {
            const int theDigit = HexValue(mRest[0]);
            if (theDigit < 0 || theDigit >= theBase) {
                break;
            }
            theValue = theValue * theBase + theDigit;
            Take();
        }
        return theValue;
    }

    std::string_view mRest; // what is not yet read
};

} // namespace

bool Host::IsOpenStepPropertyList(std::string_view theText)
{
    const size_t theStart = theText.find_first_not_of(kSpace);
    if (theStart == std::string_view::npos || theText[theStart] != '<') {
        return true;
    }
    // Data, unless it is an element of XML.
    size_t thePlace = theStart + 1;
    while (thePlace < theText.size() &&
           (HexValue(theText[thePlace]) >= 0 || kSpace.find(theText[thePlace]) != std::string_view::npos)) {
        ++thePlace;
    }
    return thePlace < theText.size() && theText[thePlace] == '>';
}

Host::Holder<CFPropertyListRef> Host::ReadOpenStepPropertyList(std::string_view theText)
{
    return Reader(theText).Read();
}
