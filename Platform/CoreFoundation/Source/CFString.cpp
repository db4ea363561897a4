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
        const CFStringRef theString = new (thePlace)
            __CFString(Units(theBytes, theBytes + theLiteral.size(), Units::allocator_type(&mMemory)), false,
                       Host::kImmortal);
        mStrings.emplace(theLiteral, theString);
        return theString;
    }

    std::mutex mMutex;
    unsigned char mReserve[64 * 1024]; // more than programs usually need; beyond it, the heap
    std::pmr::monotonic_buffer_resource mMemory{mReserve, sizeof mReserve};
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

void MapString(CFMutableStringRef theString, const Host::CaseMapping& theMapping)
{
    Host::NothingWithoutMemory([&] {
        Units theResult;
        theResult.reserve(theString->mUnits.size());
        for (const UniChar theUnit : theString->mUnits) {
            UniChar theMapped[Host::kMaximumMappedUnits];
            const int theCount = Host::MapCase(theMapping, theUnit, theMapped);
            theResult.insert(theResult.end(), theMapped, theMapped + theCount);
        }
        theString->mUnits.swap(theResult);
    });
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

CFStringRef __CFStringMakeConstantString(const char* theLiteral)
{
    const CFStringRef theString =
        Host::NothingWithoutMemory([=] { return ConstantTable::GetShared().Find(theLiteral); });
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

CFStringRef CFStringCreateWithCString(CFAllocatorRef theAllocator, const char* theText,
                                      CFStringEncoding theEncoding)
{
    RequirePointer(theText, __func__);
    return CFStringCreateWithBytes(theAllocator, reinterpret_cast<const UInt8*>(theText),
                                   static_cast<CFIndex>(std::strlen(theText)), theEncoding, false);
}

CFStringRef CFStringCreateWithPascalString(CFAllocatorRef theAllocator, ConstStr255Param theText,
                                           CFStringEncoding theEncoding)
{
    RequirePointer(theText, __func__);
    return CFStringCreateWithBytes(theAllocator, theText + 1, theText[0], theEncoding, false);
}

CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const UInt8* theBytes, CFIndex theLength,
                                    CFStringEncoding theEncoding, Boolean theIsExternalRepresentation)
{
    if (theLength > 0) {
        RequirePointer(theBytes, __func__);
    }
    return Host::NothingWithoutMemory([=]() -> CFStringRef {
        Units theUnits;
        const bool theIsText =
            Host::DecodeBytes(theBytes, theLength, theEncoding, theIsExternalRepresentation, theUnits);
        return theIsText ? Host::MakeString(std::move(theUnits)) : nullptr;
    });
}

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar* theCharacters, CFIndex theLength)
{
    if (theLength < 0) {
        return nullptr;
    }
    if (theLength > 0) {
        RequirePointer(theCharacters, __func__);
    }
    return Host::NothingWithoutMemory(
        [=] { return Host::MakeString(Units(theCharacters, theCharacters + theLength)); });
}

CFStringRef CFStringCreateCopy(CFAllocatorRef, CFStringRef theString)
{
    if (!RequireString(theString, __func__)->mIsMutable) {
        return static_cast<CFStringRef>(CFRetain(theString));
    }
    return Host::NothingWithoutMemory([=] { return Host::MakeString(Units(theString->mUnits)); });
}

CFStringRef CFStringCreateWithSubstring(CFAllocatorRef theAllocator, CFStringRef theString, CFRange theRange)
{
    const CFRange theClipped = Host::ClipRange(RequireString(theString, __func__), theRange);
    if (theClipped.length == theString->GetLength()) {
        return CFStringCreateCopy(theAllocator, theString);
    }
    return CFStringCreateWithCharacters(theAllocator, theString->mUnits.data() + theClipped.location,
                                        theClipped.length);
}

CFMutableStringRef CFStringCreateMutable(CFAllocatorRef, CFIndex)
{
    return Host::NothingWithoutMemory([] { return new __CFString(Units(), true); });
}

CFMutableStringRef CFStringCreateMutableCopy(CFAllocatorRef, CFIndex, CFStringRef theString)
{
    RequireString(theString, __func__);
    return Host::NothingWithoutMemory([=] { return new __CFString(Units(theString->mUnits), true); });
}

CFStringRef CFStringCreateByCombiningStrings(CFAllocatorRef, CFArrayRef theStrings, CFStringRef theSeparator)
{
    RequireString(theSeparator, __func__);
    return Host::NothingWithoutMemory([=] { return JoinStrings(theStrings, theSeparator); });
}

CFArrayRef CFStringCreateArrayBySeparatingStrings(CFAllocatorRef theAllocator, CFStringRef theString,
                                                  CFStringRef theSeparator)
{
    const CFIndex theLength = CFStringGetLength(theString);
    const CFIndex theSeparatorLength = CFStringGetLength(theSeparator);
    const CFMutableArrayRef theParts = CFArrayCreateMutable(theAllocator, 0, &kCFTypeArrayCallBacks);
    bool theIsWhole = theParts != nullptr;
    CFIndex theStart = 0;
    CFRange theFound = CFRangeMake(0, 0);
    while (theIsWhole && CFStringFindWithOptions(theString, theSeparator,
                                                 CFRangeMake(theStart, theLength - theStart), 0, &theFound)) {
        theIsWhole = AppendPart(theParts, theString, theStart, theFound.location);
        theStart = theFound.location + theSeparatorLength;
    }
    if (theIsWhole && AppendPart(theParts, theString, theStart, theLength)) {
        return theParts;
    }
    if (theParts != nullptr) {
        CFRelease(theParts);
    }
    return nullptr;
}

// Reading

CFIndex CFStringGetLength(CFStringRef theString)
{
    return RequireString(theString, __func__)->GetLength();
}

UniChar CFStringGetCharacterAtIndex(CFStringRef theString, CFIndex theIndex)
{
    const bool theIsInside = theIndex >= 0 && theIndex < RequireString(theString, __func__)->GetLength();
    return theIsInside ? theString->mUnits[static_cast<size_t>(theIndex)] : UniChar{0};
}

void CFStringGetCharacters(CFStringRef theString, CFRange theRange, UniChar* theBuffer)
{
    const CFRange theClipped = Host::ClipRange(RequireString(theString, __func__), theRange);
    std::copy_n(theString->mUnits.begin() + theClipped.location, theClipped.length, theBuffer);
}

const char* CFStringGetCStringPtr(CFStringRef theString, CFStringEncoding)
{
    // Strings hold UTF-16 units, never bytes.
    RequireString(theString, __func__);
    return nullptr;
}

ConstStringPtr CFStringGetPascalStringPtr(CFStringRef theString, CFStringEncoding)
{
    RequireString(theString, __func__);
    return nullptr;
}

const UniChar* CFStringGetCharactersPtr(CFStringRef theString)
{
    return RequireString(theString, __func__)->mUnits.data();
}

SInt32 CFStringGetIntValue(CFStringRef theString)
{
    const Units& theUnits = RequireString(theString, __func__)->mUnits;
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

double CFStringGetDoubleValue(CFStringRef theString)
{
    const Units& theUnits = RequireString(theString, __func__)->mUnits;
    return Host::NothingWithoutMemory([&] {
        NumberScanner theScanner(SkipWhitespace(theUnits.begin(), theUnits.end()), theUnits.end());
        return Host::ParseInCLocale(theScanner.Scan());
    });
}

// Changing

void CFStringAppend(CFMutableStringRef theString, CFStringRef theAppended)
{
    RequireMutableString(theString, __func__);
    RequireString(theAppended, __func__);
    Host::NothingWithoutMemory([=] {
        // The string may be appended to itself, so the room is made before its units are read.
        const size_t theCount = theAppended->mUnits.size();
        const size_t theOldLength = theString->mUnits.size();
        theString->mUnits.resize(theOldLength + theCount);
        std::copy_n(theAppended->mUnits.begin(), theCount,
                    theString->mUnits.begin() + static_cast<CFIndex>(theOldLength));
    });
}

void CFStringAppendCharacters(CFMutableStringRef theString, const UniChar* theCharacters, CFIndex theLength)
{
    RequireMutableString(theString, __func__);
    if (theLength <= 0) {
        return;
    }
    RequirePointer(theCharacters, __func__);
    Host::NothingWithoutMemory([=] {
        const Units theCopy(theCharacters, theCharacters + theLength);
        AppendUnits(theString, theCopy.data(), theCopy.size());
    });
}

void CFStringAppendCString(CFMutableStringRef theString, const char* theText, CFStringEncoding theEncoding)
{
    RequirePointer(theText, __func__);
    AppendBytes(RequireMutableString(theString, __func__), theText, std::strlen(theText), theEncoding);
}

void CFStringAppendPascalString(CFMutableStringRef theString, ConstStr255Param theText,
                                CFStringEncoding theEncoding)
{
    RequirePointer(theText, __func__);
    AppendBytes(RequireMutableString(theString, __func__), theText + 1, theText[0], theEncoding);
}

void CFStringInsert(CFMutableStringRef theString, CFIndex theIndex, CFStringRef theInserted)
{
    CFStringReplace(theString, CFRangeMake(theIndex, 0), theInserted);
}

void CFStringDelete(CFMutableStringRef theString, CFRange theRange)
{
    const CFRange theClipped = Host::ClipRange(RequireMutableString(theString, __func__), theRange);
    const auto theFirst = theString->mUnits.begin() + theClipped.location;
    theString->mUnits.erase(theFirst, theFirst + theClipped.length);
}

void CFStringReplace(CFMutableStringRef theString, CFRange theRange, CFStringRef theReplacement)
{
    RequireMutableString(theString, __func__);
    RequireString(theReplacement, __func__);
    Host::NothingWithoutMemory([=] { ReplaceUnits(theString, theRange, theReplacement->mUnits); });
}

void CFStringReplaceAll(CFMutableStringRef theString, CFStringRef theReplacement)
{
    CFStringReplace(theString, CFRangeMake(0, CFStringGetLength(theString)), theReplacement);
}

CFIndex CFStringFindAndReplace(CFMutableStringRef theString, CFStringRef theWanted,
                               CFStringRef theReplacement, CFRange theRange, CFStringCompareFlags theFlags)
{
    RequireMutableString(theString, __func__);
    RequireString(theReplacement, __func__);
    return Host::NothingWithoutMemory([=] {
        // Replaces in a copy: without memory, all places or none are replaced.
        const Units& theNewUnits = theReplacement->mUnits;
        __CFString theCopy(Units(theString->mUnits), true);
        const bool theIsBackwards = (theFlags & kCFCompareBackwards) != 0;
        CFRange theRest = Host::ClipRange(theString, theRange);
        CFRange theFound = CFRangeMake(0, 0);
        CFIndex theCount = 0;
        while (CFStringFindWithOptions(&theCopy, theWanted, theRest, theFlags, &theFound)) {
            const CFIndex theEnd = theRest.location + theRest.length;
            const CFIndex theFoundEnd = theFound.location + theFound.length;
            ReplaceUnits(&theCopy, theFound, theNewUnits);
            ++theCount;
            theRest = theIsBackwards ? CFRangeMake(theRest.location, theFound.location - theRest.location)
                                     : CFRangeMake(theFound.location + theReplacement->GetLength(),
                                                   theEnd - theFoundEnd);
        }
        theString->mUnits.swap(theCopy.mUnits);
        return theCount;
    });
}

void CFStringTrimWhitespace(CFMutableStringRef theString)
{
    Units& theUnits = RequireMutableString(theString, __func__)->mUnits;
    const auto theLast = std::find_if_not(theUnits.rbegin(), theUnits.rend(), Host::IsWhitespace);
    theUnits.erase(theLast.base(), theUnits.end());
    theUnits.erase(theUnits.cbegin(), SkipWhitespace(theUnits.begin(), theUnits.end()));
}

void CFStringUppercase(CFMutableStringRef theString, CFLocaleRef)
{
    MapString(RequireMutableString(theString, __func__), Host::kUpperMapping);
}

void CFStringLowercase(CFMutableStringRef theString, CFLocaleRef)
{
    MapString(RequireMutableString(theString, __func__), Host::kLowerMapping);
}
