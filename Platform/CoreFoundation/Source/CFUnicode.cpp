// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFUnicode.h"

#include <algorithm>
#include <iterator>

namespace Host {

namespace {

// Hangul syllables are composed by arithmetic.
constexpr int kFirstSyllable = 0xAC00;
constexpr int kSyllables = 11172;
constexpr int kFirstLeading = 0x1100;
constexpr int kFirstVowel = 0x1161;
constexpr int kFirstTrailing = 0x11A7;
constexpr int kVowels = 21;
constexpr int kTrailings = 28;

int DecomposeSyllable(int theIndex, UniChar* theResult)
{
    const int theTrailing = theIndex % kTrailings;
    theResult[0] = static_cast<UniChar>(kFirstLeading + theIndex / (kVowels * kTrailings));
    theResult[1] = static_cast<UniChar>(kFirstVowel + theIndex / kTrailings % kVowels);
    theResult[2] = static_cast<UniChar>(kFirstTrailing + theTrailing);
    return theTrailing == 0 ? 2 : 3;
}

const Decomposition* FindDecomposition(UniChar theUnit)
{
    const Decomposition* const theFound = std::lower_bound(
        kFirstDecomposition, kLastDecomposition, theUnit,
        [](const Decomposition& theEntry, UniChar theWanted) { return theEntry.theUnit < theWanted; });
    return theFound != kLastDecomposition && theFound->theUnit == theUnit ? theFound : nullptr;
}

const CaseExpansion* FindExpansion(const CaseMapping& theMapping, UniChar theUnit)
{
    const CaseExpansion* const theFound = std::lower_bound(
        theMapping.theFirstExpansion, theMapping.theLastExpansion, theUnit,
        [](const CaseExpansion& theEntry, UniChar theWanted) { return theEntry.theUnit < theWanted; });
    return theFound != theMapping.theLastExpansion && theFound->theUnit == theUnit ? theFound : nullptr;
}

UniChar MapInRanges(const CaseMapping& theMapping, UniChar theUnit)
{
    const CaseRange* const theFound = std::lower_bound(
        theMapping.theFirstRange, theMapping.theLastRange, theUnit,
        [](const CaseRange& theRange, UniChar theWanted) { return theRange.theLast < theWanted; });
    if (theFound == theMapping.theLastRange || theUnit < theFound->theFirst ||
        (theUnit - theFound->theFirst) % theFound->theStride != 0) {
        return theUnit;
    }
    return static_cast<UniChar>(theUnit + theFound->theDelta);
}

} // namespace

int MapCase(const CaseMapping& theMapping, UniChar theUnit, UniChar* theResult)
{
    const CaseExpansion* const theExpansion = theUnit < 0x80 ? nullptr : FindExpansion(theMapping, theUnit);
    if (theExpansion == nullptr) {
        theResult[0] = MapInRanges(theMapping, theUnit);
        return 1;
    }
    std::copy(std::begin(theExpansion->theUnits), std::end(theExpansion->theUnits), theResult);
    return theResult[2] == 0 ? 2 : 3;
}

int Decompose(UniChar theUnit, UniChar* theResult)
{
    if (theUnit >= kFirstSyllable && theUnit < kFirstSyllable + kSyllables) {
        return DecomposeSyllable(theUnit - kFirstSyllable, theResult);
    }
    const Decomposition* const theEntry = theUnit < 0x80 ? nullptr : FindDecomposition(theUnit);
    if (theEntry == nullptr) {
        theResult[0] = theUnit;
        return 1;
    }
    int theCount = Decompose(theEntry->theFirst, theResult);
    if (theEntry->theSecond != 0) {
        theResult[theCount++] = theEntry->theSecond;
    }
    return theCount;
}

UniChar Compose(UniChar theLetter, UniChar theMark, const UniChar* theUnits, int theCount)
{
    const UniChar* const theFound = std::find_if(theUnits, theUnits + theCount, [=](UniChar theUnit) {
        const Decomposition* const theEntry = FindDecomposition(theUnit);
        return theEntry != nullptr && theEntry->theFirst == theLetter && theEntry->theSecond == theMark;
    });
    return theFound == theUnits + theCount ? UniChar{0} : *theFound;
}

bool HasCase(UniChar theUnit)
{
    const LetterRange* const theFound = std::lower_bound(
        kFirstLetterWithCase, kLastLetterWithCase, theUnit,
        [](const LetterRange& theRange, UniChar theWanted) { return theRange.theLast < theWanted; });
    return theFound != kLastLetterWithCase && theUnit >= theFound->theFirst;
}

bool IsCombiningMark(UniChar theUnit)
{
    return (theUnit >= 0x0300 && theUnit <= 0x036F) || (theUnit >= 0x1AB0 && theUnit <= 0x1AFF) ||
           (theUnit >= 0x1DC0 && theUnit <= 0x1DFF) || (theUnit >= 0x20D0 && theUnit <= 0x20FF) ||
           (theUnit >= 0xFE20 && theUnit <= 0xFE2F);
}

bool IsWhitespace(UniChar theUnit)
{
    return (theUnit >= 0x09 && theUnit <= 0x0D) || theUnit == 0x20 || theUnit == 0x85 || theUnit == 0xA0 ||
           theUnit == 0x1680 || (theUnit >= 0x2000 && theUnit <= 0x200A) || theUnit == 0x2028 ||
           theUnit == 0x2029 || theUnit == 0x202F || theUnit == 0x205F || theUnit == 0x3000;
}

} // namespace Host
