// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFStringObject.h"
#include "CFUnicode.h"
#include "Common/NeverDestroyed.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <map>
#include <mutex>
#include <new>
#include <string_view>

namespace {

using Host::Units;

// Operations of the type

CFStringRef StringOf(const Host::Object* theObject)
{
    return static_cast<CFStringRef>(theObject);
}

bool EqualStrings(const Host::Object* theFirst, const Host::Object* theSecond)
{
    return StringOf(theFirst)->mUnits == StringOf(theSecond)->mUnits;
}

// FNV-1a over the units.
CFHashCode HashString(const Host::Object* theObject)
{
    UInt32 theHash = 0x811C9DC5;
    for (const UniChar theUnit : StringOf(theObject)->mUnits) {
        theHash = (theHash ^ theUnit) * 0x01000193;
    }
    return theHash;
}

CFStringRef DescribeString(const Host::Object* theObject)
{
    return Host::Text()
        .AppendHeader(theObject)
        .Append("{contents = \"")
        .Append(StringOf(theObject))
        .Append("\"}")
        .CopyString();
}

CFStringRef FormatString(const Host::Object* theObject)
{
    return CFStringCreateCopy(kCFAllocatorDefault, StringOf(theObject));
}

CFStringRef RequireString(CFStringRef theString, const char* theCaller)
{
    return Host::Require(theString, Host::kStringType, theCaller);
}

CFMutableStringRef RequireMutableString(CFMutableStringRef theString, const char* theCaller)
{
    return Host::RequireMutable(theString, Host::kStringType, theCaller);
}

const void* RequirePointer(const void* thePointer, const char* theCaller)
{
    if (thePointer == nullptr) {
        Host::Stop(theCaller, "the text is NULL");
    }
    return thePointer;
}

// Constants

// The empty string and the literals. They live as long as the process, and lie in memory that is set aside
// for them: a constant cannot fail, even when there is no memory left.
class ConstantTable
{
public:
    // The one string for a literal.
    CFStringRef Find(std::string_view theLiteral)
    {
        const std::lock_guard<std::mutex> theLock(mMutex);
        const auto theFound = mStrings.find(theLiteral);
        return theFound != mStrings.end() ? theFound->second : Add(theLiteral);
    }

    static ConstantTable& GetShared()
    {
        // Other libraries use their constants until the process ends.
        static Host::NeverDestroyed<ConstantTable> sShared;
        return sShared.Get();
    }

private:
    CFStringRef Add(std::string_view theLiteral)
    {
        const UInt8* const theBytes = reinterpret_cast<const UInt8*>(theLiteral.data());
        void* const thePlace = mMemory.allocate(sizeof(__CFString), alignof(__CFString));
        __CFString* const theString = new (thePlace)
            __CFString(Units(theBytes, theBytes + theLiteral.size(), Units::allocator_type(&mMemory)), false,
                       Host::kImmortal);
        const auto theEntry = mStrings.emplace(theLiteral, theString).first;
        const bool theIsASCII = std::all_of(theLiteral.begin(), theLiteral.end(), [](char theCharacter) {
            return static_cast<unsigned char>(theCharacter) < 0x80;
        });
        theString->mASCII = theIsASCII ? theEntry->first.c_str() : nullptr;
        return theString;
    }

    std::mutex mMutex;
    unsigned char mReserve[64 * 1024]; // more than programs usually need; beyond it, the heap
    std::pmr::monotonic_buffer_resource mMemory{mReserve, sizeof mReserve, std::pmr::new_delete_resource()};
    std::pmr::map<std::pmr::string, CFStringRef, std::less<>> mStrings{&mMemory};
};

CFStringRef EmptyString()
{
    static const CFStringRef kEmpty = ConstantTable::GetShared().Find("");
    return kEmpty;
}

// Changing

// Replaces a range of a mutable string. theNewUnits may be the string's own.
void ReplaceUnits(CFMutableStringRef theString, CFRange theRange, const Units& theNewUnits)
{
    const CFRange theClipped = Host::ClipRange(theString, theRange);
    const Units& theOld = theString->mUnits;
    Units theResult;
    theResult.reserve(theOld.size() - static_cast<size_t>(theClipped.length) + theNewUnits.size());
    theResult.insert(theResult.end(), theOld.begin(), theOld.begin() + theClipped.location);
    theResult.insert(theResult.end(), theNewUnits.begin(), theNewUnits.end());
    theResult.insert(theResult.end(), theOld.begin() + theClipped.location + theClipped.length, theOld.end());
    theString->mUnits.swap(theResult);
}

void AppendUnits(CFMutableStringRef theString, const UniChar* theUnits, size_t theCount)
{
    theString->mUnits.insert(theString->mUnits.end(), theUnits, theUnits + theCount);
}

void AppendBytes(CFMutableStringRef theString, const void* theBytes, size_t theLength,
                 CFStringEncoding theEncoding)
{
    Host::NothingWithoutMemory([=] {
        Units theUnits;
        if (Host::DecodeBytes(static_cast<const UInt8*>(theBytes), static_cast<CFIndex>(theLength),
                              theEncoding, false, theUnits)) {
            AppendUnits(theString, theUnits.data(), theUnits.size());
        }
    });
}

// Maps each unit with the mapping that theChoose names for it.
template <class Choose>
void MapString(CFMutableStringRef theString, Choose theChoose)
{
    Host::NothingWithoutMemory([&] {
        Units theResult;
        theResult.reserve(theString->mUnits.size());
        for (const UniChar theUnit : theString->mUnits) {
            UniChar theMapped[Host::kMaximumMappedUnits];
            const int theCount = Host::MapCase(theChoose(theUnit), theUnit, theMapped);
            theResult.insert(theResult.end(), theMapped, theMapped + theCount);
        }
        theString->mUnits.swap(theResult);
    });
}

// Whether theUnit can stand within a word without being a letter of it.
bool IsPartOfWord(UniChar theUnit)
{
    constexpr UniChar kApostrophe = 0x2019;
    return theUnit == '\'' || theUnit == kApostrophe || Host::IsCombiningMark(theUnit);
}

// Numbers at the start of a string

Units::const_iterator SkipWhitespace(Units::const_iterator theUnit, Units::const_iterator theEnd)
{
    return std::find_if_not(theUnit, theEnd, Host::IsWhitespace);
}

// The text of the longest number that the units start with, in plain ASCII; empty when there is none.
class NumberScanner
{
public:
    NumberScanner(Units::const_iterator theUnit, Units::const_iterator theEnd)
        : mUnit(theUnit),
          mEnd(theEnd)
    {
    }

    std::string Scan()
    {
        TakeAnyOf('+', '-');
        size_t theDigits = TakeDigits();
        if (TakeAnyOf('.', '.')) {
            theDigits += TakeDigits();
        }
        if (theDigits == 0) {
            return std::string();
        }
        ScanExponent();
        return mText;
    }

private:
    void ScanExponent()
    {
        const std::string theMantissa = mText;
        if (TakeAnyOf('e', 'E')) {
            TakeAnyOf('+', '-');
            if (TakeDigits() == 0) {
                mText = theMantissa;
            }
        }
    }

    bool TakeAnyOf(char theFirst, char theSecond)
    {
        const bool theIsThere = mUnit != mEnd && (*mUnit == theFirst || *mUnit == theSecond);
        if (theIsThere) {
            mText.push_back(static_cast<char>(*mUnit++));
        }
        return theIsThere;
    }

    size_t TakeDigits()
    {
        const size_t theLength = mText.size();
        while (mUnit != mEnd && Host::IsDigit(*mUnit)) {
            mText.push_back(static_cast<char>(*mUnit++));
        }
        return mText.size() - theLength;
    }

    Units::const_iterator mUnit;
    const Units::const_iterator mEnd;
    std::string mText;
};

// Joining and splitting

CFStringRef JoinStrings(CFArrayRef theStrings, CFStringRef theSeparator)
{
    Units theUnits;
    const CFIndex theCount = CFArrayGetCount(theStrings);
    for (CFIndex theIndex = 0; theIndex < theCount; ++theIndex) {
        if (theIndex > 0) {
            theUnits.insert(theUnits.end(), theSeparator->mUnits.begin(), theSeparator->mUnits.end());
        }
        const CFStringRef theString =
            RequireString(static_cast<CFStringRef>(CFArrayGetValueAtIndex(theStrings, theIndex)),
                          "CFStringCreateByCombiningStrings");
        theUnits.insert(theUnits.end(), theString->mUnits.begin(), theString->mUnits.end());
    }
    return Host::MakeString(std::move(theUnits));
}

bool AppendPart(CFMutableArrayRef theParts, CFStringRef theString, CFIndex theStart, CFIndex theEnd)
{
    const Host::Holder<CFStringRef> thePart(CFStringCreateWithSubstring(
        kCFAllocatorDefault, theString, CFRangeMake(theStart, theEnd - theStart)));
    if (thePart.Get() == nullptr) {
        return false;
    }
    const CFIndex theCount = CFArrayGetCount(theParts);
    CFArrayAppendValue(theParts, thePart.Get());
    return CFArrayGetCount(theParts) > theCount;
}

} // namespace

const Host::TypeOperations Host::kStringType = {Host::kStringTypeID, "CFString", Host::Delete<__CFString>,
                                                EqualStrings,        HashString, DescribeString,
                                                FormatString};

CFStringRef Host::MakeString(Units&& theUnits)
{
    return theUnits.empty() ? EmptyString() : new __CFString(std::move(theUnits), false);
}

CFRange Host::ClipRange(CFStringRef theString, CFRange theRange)
{
    const CFIndex theLength = theString->GetLength();
    const CFIndex theStart = std::clamp<CFIndex>(theRange.location, 0, theLength);
    return CFRangeMake(theStart, std::clamp<CFIndex>(theRange.length, 0, theLength - theStart));
}

CFStringRef __CFStringMakeConstantString(const char* inLiteral)
{
    const CFStringRef theString =
        Host::NothingWithoutMemory([=] { return ConstantTable::GetShared().Find(inLiteral); });
    if (theString == nullptr) {
        Host::Stop(__func__, "there is no memory for a constant");
    }
    return theString;
}

CFTypeID CFStringGetTypeID()
{
    return Host::kStringTypeID;
}

// Making strings

CFStringRef CFStringCreateWithCString(CFAllocatorRef inAllocator, const char* inText,
                                      CFStringEncoding inEncoding)
{
    RequirePointer(inText, __func__);
    return CFStringCreateWithBytes(inAllocator, reinterpret_cast<const UInt8*>(inText),
                                   static_cast<CFIndex>(std::strlen(inText)), inEncoding, false);
}

CFStringRef CFStringCreateWithPascalString(CFAllocatorRef inAllocator, ConstStr255Param inText,
                                           CFStringEncoding inEncoding)
{
    RequirePointer(inText, __func__);
    return CFStringCreateWithBytes(inAllocator, inText + 1, inText[0], inEncoding, false);
}

CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const UInt8* inBytes, CFIndex inLength,
                                    CFStringEncoding inEncoding, Boolean inIsExternalRepresentation)
{
    if (inLength > 0) {
        RequirePointer(inBytes, __func__);
    }
    return Host::NothingWithoutMemory([=]() -> CFStringRef {
        Units theUnits;
        const bool theIsText =
            Host::DecodeBytes(inBytes, inLength, inEncoding, inIsExternalRepresentation, theUnits);
        return theIsText ? Host::MakeString(std::move(theUnits)) : nullptr;
    });
}

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar* inCharacters, CFIndex inLength)
{
    if (inLength < 0) {
        return nullptr;
    }
    if (inLength > 0) {
        RequirePointer(inCharacters, __func__);
    }
    return Host::NothingWithoutMemory(
        [=] { return Host::MakeString(Units(inCharacters, inCharacters + inLength)); });
}

CFStringRef CFStringCreateCopy(CFAllocatorRef, CFStringRef inString)
{
    if (!RequireString(inString, __func__)->mIsMutable) {
        return static_cast<CFStringRef>(CFRetain(inString));
    }
    return Host::NothingWithoutMemory([=] { return Host::MakeString(Units(inString->mUnits)); });
}

CFStringRef CFStringCreateWithSubstring(CFAllocatorRef inAllocator, CFStringRef inString, CFRange inRange)
{
    const CFRange theClipped = Host::ClipRange(RequireString(inString, __func__), inRange);
    if (theClipped.length == inString->GetLength()) {
        return CFStringCreateCopy(inAllocator, inString);
    }
    return CFStringCreateWithCharacters(inAllocator, inString->mUnits.data() + theClipped.location,
                                        theClipped.length);
}

CFMutableStringRef CFStringCreateMutable(CFAllocatorRef, CFIndex)
{
    return Host::NothingWithoutMemory([] { return new __CFString(Units(), true); });
}

CFMutableStringRef CFStringCreateMutableCopy(CFAllocatorRef, CFIndex, CFStringRef inString)
{
    RequireString(inString, __func__);
    return Host::NothingWithoutMemory([=] { return new __CFString(Units(inString->mUnits), true); });
}

CFStringRef CFStringCreateByCombiningStrings(CFAllocatorRef, CFArrayRef inStrings, CFStringRef inSeparator)
{
    RequireString(inSeparator, __func__);
    return Host::NothingWithoutMemory([=] { return JoinStrings(inStrings, inSeparator); });
}

CFArrayRef CFStringCreateArrayBySeparatingStrings(CFAllocatorRef inAllocator, CFStringRef inString,
                                                  CFStringRef inSeparator)
{
    const CFIndex theLength = CFStringGetLength(inString);
    const CFIndex theSeparatorLength = CFStringGetLength(inSeparator);
    const CFMutableArrayRef theParts = CFArrayCreateMutable(inAllocator, 0, &kCFTypeArrayCallBacks);
    bool theIsWhole = theParts != nullptr;
    CFIndex theStart = 0;
    CFRange theFound = CFRangeMake(0, 0);
    while (theIsWhole && CFStringFindWithOptions(inString, inSeparator,
                                                 CFRangeMake(theStart, theLength - theStart), 0, &theFound)) {
        theIsWhole = AppendPart(theParts, inString, theStart, theFound.location);
        theStart = theFound.location + theSeparatorLength;
    }
    if (theIsWhole && AppendPart(theParts, inString, theStart, theLength)) {
        return theParts;
    }
    if (theParts != nullptr) {
        CFRelease(theParts);
    }
    return nullptr;
}

// Reading

CFIndex CFStringGetLength(CFStringRef inString)
{
    return RequireString(inString, __func__)->GetLength();
}

UniChar CFStringGetCharacterAtIndex(CFStringRef inString, CFIndex inIndex)
{
    const bool theIsInside = inIndex >= 0 && inIndex < RequireString(inString, __func__)->GetLength();
    return theIsInside ? inString->mUnits[static_cast<size_t>(inIndex)] : UniChar{0};
}

void CFStringGetCharacters(CFStringRef inString, CFRange inRange, UniChar* outBuffer)
{
    const CFRange theClipped = Host::ClipRange(RequireString(inString, __func__), inRange);
    std::copy_n(inString->mUnits.begin() + theClipped.location, theClipped.length, outBuffer);
}

const char* CFStringGetCStringPtr(CFStringRef inString, CFStringEncoding inEncoding)
{
    RequireString(inString, __func__);
    // On purpose: there is no answer for other encodings, although the bytes would be the same in many.
    return inEncoding == kCFStringEncodingMacRoman ? inString->mASCII : nullptr;
}

ConstStringPtr CFStringGetPascalStringPtr(CFStringRef inString, CFStringEncoding)
{
    RequireString(inString, __func__);
    return nullptr;
}

const UniChar* CFStringGetCharactersPtr(CFStringRef inString)
{
    return RequireString(inString, __func__)->mUnits.data();
}

SInt32 CFStringGetIntValue(CFStringRef inString)
{
    const Units& theUnits = RequireString(inString, __func__)->mUnits;
    Units::const_iterator theUnit = SkipWhitespace(theUnits.begin(), theUnits.end());
    bool theIsNegative = false;
    if (theUnit != theUnits.end() && (*theUnit == '+' || *theUnit == '-')) {
        theIsNegative = *theUnit == '-';
        theUnit = SkipWhitespace(theUnit + 1, theUnits.end());
    }
    const SInt64 theLimit = std::numeric_limits<SInt32>::max() + SInt64{theIsNegative};
    SInt64 theValue = 0;
    for (; theUnit != theUnits.end() && Host::IsDigit(*theUnit); ++theUnit) {
        theValue = std::min(theValue * 10 + (*theUnit - '0'), theLimit);
    }
    return static_cast<SInt32>(theIsNegative ? -theValue : theValue);
}

double CFStringGetDoubleValue(CFStringRef inString)
{
    const Units& theUnits = RequireString(inString, __func__)->mUnits;
    return Host::NothingWithoutMemory([&] {
        NumberScanner theScanner(SkipWhitespace(theUnits.begin(), theUnits.end()), theUnits.end());
        return Host::ParseInCLocale(theScanner.Scan());
    });
}

// Changing

void CFStringAppend(CFMutableStringRef inString, CFStringRef inAppended)
{
    RequireMutableString(inString, __func__);
    RequireString(inAppended, __func__);
    Host::NothingWithoutMemory([=] {
        // The string may be appended to itself, so the room is made before its units are read.
        const size_t theCount = inAppended->mUnits.size();
        const size_t theOldLength = inString->mUnits.size();
        inString->mUnits.resize(theOldLength + theCount);
        std::copy_n(inAppended->mUnits.begin(), theCount,
                    inString->mUnits.begin() + static_cast<CFIndex>(theOldLength));
    });
}

void CFStringAppendCharacters(CFMutableStringRef inString, const UniChar* inCharacters, CFIndex inLength)
{
    RequireMutableString(inString, __func__);
    if (inLength <= 0) {
        return;
    }
    RequirePointer(inCharacters, __func__);
    Host::NothingWithoutMemory([=] {
        const Units theCopy(inCharacters, inCharacters + inLength);
        AppendUnits(inString, theCopy.data(), theCopy.size());
    });
}

void CFStringAppendCString(CFMutableStringRef inString, const char* inText, CFStringEncoding inEncoding)
{
    RequirePointer(inText, __func__);
    AppendBytes(RequireMutableString(inString, __func__), inText, std::strlen(inText), inEncoding);
}

void CFStringAppendPascalString(CFMutableStringRef inString, ConstStr255Param inText,
                                CFStringEncoding inEncoding)
{
    RequirePointer(inText, __func__);
    AppendBytes(RequireMutableString(inString, __func__), inText + 1, inText[0], inEncoding);
}

void CFStringInsert(CFMutableStringRef inString, CFIndex inIndex, CFStringRef inInserted)
{
    CFStringReplace(inString, CFRangeMake(inIndex, 0), inInserted);
}

void CFStringDelete(CFMutableStringRef inString, CFRange inRange)
{
    const CFRange theClipped = Host::ClipRange(RequireMutableString(inString, __func__), inRange);
    const auto theFirst = inString->mUnits.begin() + theClipped.location;
    inString->mUnits.erase(theFirst, theFirst + theClipped.length);
}

void CFStringReplace(CFMutableStringRef inString, CFRange inRange, CFStringRef inReplacement)
{
    RequireMutableString(inString, __func__);
    RequireString(inReplacement, __func__);
    Host::NothingWithoutMemory([=] { ReplaceUnits(inString, inRange, inReplacement->mUnits); });
}

void CFStringReplaceAll(CFMutableStringRef inString, CFStringRef inReplacement)
{
    CFStringReplace(inString, CFRangeMake(0, CFStringGetLength(inString)), inReplacement);
}

CFIndex CFStringFindAndReplace(CFMutableStringRef inString, CFStringRef inWanted, CFStringRef inReplacement,
                               CFRange inRange, CFStringCompareFlags inFlags)
{
    RequireMutableString(inString, __func__);
    RequireString(inReplacement, __func__);
    return Host::NothingWithoutMemory([=] {
        // Replaces in a copy: without memory, all places or none are replaced.
        const Units& theNewUnits = inReplacement->mUnits;
        __CFString theCopy(Units(inString->mUnits), true);
        const bool theIsBackwards = (inFlags & kCFCompareBackwards) != 0;
        CFRange theRest = Host::ClipRange(inString, inRange);
        CFRange theFound = CFRangeMake(0, 0);
        CFIndex theCount = 0;
        while (CFStringFindWithOptions(&theCopy, inWanted, theRest, inFlags, &theFound)) {
            const CFIndex theEnd = theRest.location + theRest.length;
            const CFIndex theFoundEnd = theFound.location + theFound.length;
            ReplaceUnits(&theCopy, theFound, theNewUnits);
            ++theCount;
            theRest = theIsBackwards
                          ? CFRangeMake(theRest.location, theFound.location - theRest.location)
                          : CFRangeMake(theFound.location + inReplacement->GetLength(), theEnd - theFoundEnd);
        }
        inString->mUnits.swap(theCopy.mUnits);
        return theCount;
    });
}

void CFStringPad(CFMutableStringRef inString, CFStringRef inPad, CFIndex inLength, CFIndex inIndex)
{
    Units& theUnits = RequireMutableString(inString, __func__)->mUnits;
    if (inLength <= inString->GetLength()) {
        theUnits.resize(static_cast<size_t>(std::max<CFIndex>(inLength, 0)));
        return;
    }
    if (inPad == nullptr || RequireString(inPad, __func__)->mUnits.empty() || inIndex < 0) {
        return;
    }
    Host::NothingWithoutMemory([&] {
        // The string may be filled with itself.
        const Units thePad = inPad->mUnits;
        const size_t theOldLength = theUnits.size();
        Units theResult = theUnits;
        theResult.resize(static_cast<size_t>(inLength));
        for (size_t theIndex = theOldLength; theIndex < theResult.size(); ++theIndex) {
            theResult[theIndex] =
                thePad[(theIndex - theOldLength + static_cast<size_t>(inIndex)) % thePad.size()];
        }
        theUnits.swap(theResult);
    });
}

void CFStringTrimWhitespace(CFMutableStringRef inString)
{
    Units& theUnits = RequireMutableString(inString, __func__)->mUnits;
    const auto theLast = std::find_if_not(theUnits.rbegin(), theUnits.rend(), Host::IsWhitespace);
    theUnits.erase(theLast.base(), theUnits.end());
    theUnits.erase(theUnits.cbegin(), SkipWhitespace(theUnits.begin(), theUnits.end()));
}

void CFStringUppercase(CFMutableStringRef inString, CFLocaleRef)
{
    MapString(RequireMutableString(inString, __func__),
              [](UniChar) -> const Host::CaseMapping& { return Host::kUpperMapping; });
}

void CFStringLowercase(CFMutableStringRef inString, CFLocaleRef)
{
    MapString(RequireMutableString(inString, __func__),
              [](UniChar) -> const Host::CaseMapping& { return Host::kLowerMapping; });
}

void CFStringCapitalize(CFMutableStringRef inString, CFLocaleRef)
{
    bool theIsInWord = false;
    MapString(RequireMutableString(inString, __func__),
              [&theIsInWord](UniChar theUnit) -> const Host::CaseMapping& {
                  const bool theWasInWord = theIsInWord;
                  theIsInWord = Host::HasCase(theUnit) || (theWasInWord && IsPartOfWord(theUnit));
                  return theWasInWord ? Host::kLowerMapping : Host::kTitleMapping;
              });
}
