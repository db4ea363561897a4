// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFStringObject.h"
#include "CFUnicode.h"

#include <algorithm>
#include <cstring>

namespace {

using Host::Units;

// Walks over the units of a text as a comparison sees them: decomposed and case-folded as it asks for, and
// with no memory taken, however long the text is.
class Cursor
{
public:
    enum Reading
    {
        kPlain = 0,
        kFolded = 1,
        kDecomposed = 2,
        kWithoutMarks = 4
    };

    Cursor(const UniChar* theUnit, const UniChar* theEnd, int theReading)
        : mUnit(theUnit),
          mEnd(theEnd),
          mReading(theReading),
          mNext(0),
          mCount(0)
    {
        Fill();
    }

    bool IsAtEnd() const { return mNext == mCount; }

    // The current unit; only before the end.
    UniChar Peek() const { return mPending[mNext]; }

    // -1 at the end.
    int PeekOrEnd() const { return IsAtEnd() ? -1 : Peek(); }

    void Advance()
    {
        ++mNext;
        Fill();
    }

    // The place in the text, when no character is half read; null otherwise.
    const UniChar* GetBoundary() const { return mNext == 0 ? mStart : IsAtEnd() ? mUnit : nullptr; }

private:
    static constexpr int kMaximumPending = Host::kMaximumDecomposedUnits * Host::kMaximumMappedUnits;

    // Reads characters until there is a unit to show.
    void Fill()
    {
        while (mNext == mCount && mUnit != mEnd) {
            mStart = mUnit;
            mNext = 0;
            mCount = 0;
            Read(*mUnit++);
        }
    }

    void Read(UniChar theUnit)
    {
        UniChar theParts[Host::kMaximumDecomposedUnits] = {theUnit};
        const int theCount = (mReading & kDecomposed) != 0 ? Host::Decompose(theUnit, theParts) : 1;
        for (int theIndex = 0; theIndex < theCount; ++theIndex) {
            if ((mReading & kWithoutMarks) == 0 || !Host::IsCombiningMark(theParts[theIndex])) {
                ReadPart(theParts[theIndex]);
            }
        }
    }

    void ReadPart(UniChar theUnit)
    {
        if ((mReading & kFolded) != 0) {
            mCount += Host::MapCase(Host::kFoldMapping, theUnit, mPending + mCount);
        } else {
            mPending[mCount++] = theUnit;
        }
    }

    const UniChar* mUnit;                   // the next character to read
    const UniChar* mEnd;                    // behind the last one
    const UniChar* mStart = nullptr;        // the character that the pending units come from
    int mReading;                           // how to read
    UniChar mPending[kMaximumPending] = {}; // what the last character has become
    int mNext;                              // the first pending unit that is not used
    int mCount;                             // the number of pending units
};

CFComparisonResult Compare(int theFirst, int theSecond)
{
    return theFirst < theSecond   ? kCFCompareLessThan
           : theFirst > theSecond ? kCFCompareGreaterThan
                                  : kCFCompareEqualTo;
}

void SkipZeros(Cursor& theCursor)
{
    while (theCursor.PeekOrEnd() == '0') {
        theCursor.Advance();
    }
}

// Both cursors stand at a digit, and afterwards behind the last one.
CFComparisonResult CompareDigits(Cursor& theFirst, Cursor& theSecond)
{
    SkipZeros(theFirst);
    SkipZeros(theSecond);
    CFComparisonResult theResult = kCFCompareEqualTo;
    while (Host::IsDigit(theFirst.PeekOrEnd()) && Host::IsDigit(theSecond.PeekOrEnd())) {
        if (theResult == kCFCompareEqualTo) {
            theResult = Compare(theFirst.Peek(), theSecond.Peek());
        }
        theFirst.Advance();
        theSecond.Advance();
    }
    if (Host::IsDigit(theFirst.PeekOrEnd())) {
        return kCFCompareGreaterThan;
    }
    return Host::IsDigit(theSecond.PeekOrEnd()) ? CFComparisonResult{kCFCompareLessThan} : theResult;
}

CFComparisonResult CompareCursors(Cursor theFirst, Cursor theSecond, bool theIsNumeric)
{
    while (!theFirst.IsAtEnd() && !theSecond.IsAtEnd()) {
        CFComparisonResult theResult = kCFCompareEqualTo;
        if (theIsNumeric && Host::IsDigit(theFirst.Peek()) && Host::IsDigit(theSecond.Peek())) {
            theResult = CompareDigits(theFirst, theSecond);
        } else {
            theResult = Compare(theFirst.Peek(), theSecond.Peek());
            theFirst.Advance();
            theSecond.Advance();
        }
        if (theResult != kCFCompareEqualTo) {
            return theResult;
        }
    }
    return Compare(theFirst.PeekOrEnd(), theSecond.PeekOrEnd());
}

struct Span
{
    const UniChar* theBegin;
    const UniChar* theEnd;
};

Span SpanOf(CFStringRef theString, CFRange theRange)
{
    const CFRange theClipped = Host::ClipRange(theString, theRange);
    const UniChar* const theBegin = theString->mUnits.data() + theClipped.location;
    return {theBegin, theBegin + theClipped.length};
}

Span SpanOf(CFStringRef theString)
{
    const Units& theUnits = theString->mUnits;
    return {theUnits.data(), theUnits.data() + theUnits.size()};
}

CFComparisonResult CompareReadings(Span theFirst, Span theSecond, int theReading,
                                   CFStringCompareFlags theFlags)
{
    return CompareCursors(Cursor(theFirst.theBegin, theFirst.theEnd, theReading),
                          Cursor(theSecond.theBegin, theSecond.theEnd, theReading),
                          (theFlags & kCFCompareNumerically) != 0);
}

CFComparisonResult CompareUnits(Span theFirst, Span theSecond)
{
    const std::ptrdiff_t theFirstCount = theFirst.theEnd - theFirst.theBegin;
    const std::ptrdiff_t theSecondCount = theSecond.theEnd - theSecond.theBegin;
    // Four units at a time as long as they agree.
    const std::ptrdiff_t theCount = std::min(theFirstCount, theSecondCount);
    std::ptrdiff_t theIndex = 0;
    while (theCount - theIndex >= 4 && std::memcmp(theFirst.theBegin + theIndex,
                                                   theSecond.theBegin + theIndex, 4 * sizeof(UniChar)) == 0) {
        theIndex += 4;
    }
    for (; theIndex < theCount; ++theIndex) {
        if (theFirst.theBegin[theIndex] != theSecond.theBegin[theIndex]) {
            return Compare(theFirst.theBegin[theIndex], theSecond.theBegin[theIndex]);
        }
    }
    return theFirstCount < theSecondCount   ? kCFCompareLessThan
           : theFirstCount > theSecondCount ? kCFCompareGreaterThan
                                            : kCFCompareEqualTo;
}

// Letters count first, then their marks, then their case, where the small letter comes first.
CFComparisonResult CompareLocalized(Span theFirst, Span theSecond, CFStringCompareFlags theFlags)
{
    const int kLetters = Cursor::kDecomposed | Cursor::kFolded;
    for (const int theReading : {kLetters | Cursor::kWithoutMarks, kLetters}) {
        const CFComparisonResult theResult = CompareReadings(theFirst, theSecond, theReading, theFlags);
        if (theResult != kCFCompareEqualTo) {
            return theResult;
        }
    }
    if ((theFlags & kCFCompareCaseInsensitive) != 0) {
        return kCFCompareEqualTo;
    }
    return -CompareReadings(theFirst, theSecond, Cursor::kDecomposed, theFlags);
}

int ReadingOf(CFStringCompareFlags theFlags)
{
    return ((theFlags & kCFCompareCaseInsensitive) != 0 ? Cursor::kFolded : Cursor::kPlain) |
           ((theFlags & kCFCompareNonliteral) != 0 ? Cursor::kDecomposed : Cursor::kPlain);
}

CFComparisonResult CompareSpans(Span theFirst, Span theSecond, CFStringCompareFlags theFlags)
{
    if ((theFlags & kCFCompareLocalized) != 0) {
        return CompareLocalized(theFirst, theSecond, theFlags);
    }
    const CFStringCompareFlags kSpecial =
        CFStringCompareFlags{kCFCompareCaseInsensitive} | kCFCompareNonliteral | kCFCompareNumerically;
    if ((theFlags & kSpecial) == 0) {
        return CompareUnits(theFirst, theSecond);
    }
    return CompareReadings(theFirst, theSecond, ReadingOf(theFlags), theFlags);
}

// Where theWanted ends when theText starts with it; null when it does not.
const UniChar* MatchStart(Span theText, Span theWanted, int theReading)
{
    Cursor theTextCursor(theText.theBegin, theText.theEnd, theReading);
    Cursor theWantedCursor(theWanted.theBegin, theWanted.theEnd, theReading);
    while (!theWantedCursor.IsAtEnd()) {
        if (theTextCursor.PeekOrEnd() != theWantedCursor.Peek()) {
            return nullptr;
        }
        theTextCursor.Advance();
        theWantedCursor.Advance();
    }
    return theTextCursor.GetBoundary();
}

// Tries the places in the order that the flags ask for.
bool FindSpan(Span theText, Span theWanted, CFStringCompareFlags theFlags, Span& theFound)
{
    const bool theIsBackwards = (theFlags & kCFCompareBackwards) != 0;
    const bool theIsAnchored = (theFlags & kCFCompareAnchored) != 0;
    const std::ptrdiff_t theLength = theText.theEnd - theText.theBegin;
    for (std::ptrdiff_t theStep = 0; theStep < theLength; ++theStep) {
        const UniChar* const theStart =
            theText.theBegin + (theIsBackwards ? theLength - 1 - theStep : theStep);
        const UniChar* const theEnd = MatchStart({theStart, theText.theEnd}, theWanted, ReadingOf(theFlags));
        if (theEnd != nullptr && (!theIsAnchored || !theIsBackwards || theEnd == theText.theEnd)) {
            theFound = {theStart, theEnd};
            return true;
        }
        if (theIsAnchored && !theIsBackwards) {
            break;
        }
    }
    return false;
}

} // namespace

CFComparisonResult CFStringCompare(CFStringRef inFirst, CFStringRef inSecond, CFStringCompareFlags inFlags)
{
    return CompareSpans(SpanOf(Host::Require(inFirst, Host::kStringType, __func__)),
                        SpanOf(Host::Require(inSecond, Host::kStringType, __func__)), inFlags);
}

CFComparisonResult CFStringCompareWithOptions(CFStringRef inFirst, CFStringRef inSecond,
                                              CFRange inRangeOfFirst, CFStringCompareFlags inFlags)
{
    return CompareSpans(SpanOf(Host::Require(inFirst, Host::kStringType, __func__), inRangeOfFirst),
                        SpanOf(Host::Require(inSecond, Host::kStringType, __func__)), inFlags);
}

Boolean CFStringHasPrefix(CFStringRef inString, CFStringRef inPrefix)
{
    const CFIndex theLength = CFStringGetLength(inPrefix);
    return theLength > 0 &&
           CFStringCompareWithOptions(inString, inPrefix, CFRangeMake(0, theLength), 0) == kCFCompareEqualTo;
}

Boolean CFStringHasSuffix(CFStringRef inString, CFStringRef inSuffix)
{
    const CFIndex theLength = CFStringGetLength(inSuffix);
    const CFIndex theStart = CFStringGetLength(inString) - theLength;
    return theLength > 0 && theStart >= 0 &&
           CFStringCompareWithOptions(inString, inSuffix, CFRangeMake(theStart, theLength), 0) ==
               kCFCompareEqualTo;
}

CFRange CFStringFind(CFStringRef inString, CFStringRef inWanted, CFStringCompareFlags inFlags)
{
    CFRange theResult = CFRangeMake(kCFNotFound, 0);
    CFStringFindWithOptions(inString, inWanted, CFRangeMake(0, CFStringGetLength(inString)), inFlags,
                            &theResult);
    return theResult;
}

Boolean CFStringFindWithOptions(CFStringRef inString, CFStringRef inWanted, CFRange inRange,
                                CFStringCompareFlags inFlags, CFRange* outResult)
{
    const Span theText = SpanOf(Host::Require(inString, Host::kStringType, __func__), inRange);
    const Span theWantedText = SpanOf(Host::Require(inWanted, Host::kStringType, __func__));
    Span theFound = {nullptr, nullptr};
    if (theWantedText.theBegin == theWantedText.theEnd ||
        !FindSpan(theText, theWantedText, inFlags, theFound)) {
        return false;
    }
    if (outResult != nullptr) {
        *outResult =
            CFRangeMake(theFound.theBegin - inString->mUnits.data(), theFound.theEnd - theFound.theBegin);
    }
    return true;
}
