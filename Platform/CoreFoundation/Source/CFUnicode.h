// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFUnicode_h
#define CFUnicode_h

// What Unicode says about characters: case, decomposition, white space.
//
// Characters beyond U+FFFF, which take two units, map to themselves.

#include <CoreFoundation/CFBase.h>

namespace Host {

// Every theStride-th unit from theFirst to theLast maps to itself plus theDelta.
struct CaseRange
{
    UniChar theFirst;
    UniChar theLast;
    UniChar theStride;
    int theDelta;
};

// A unit that maps to two or three.
struct CaseExpansion
{
    UniChar theUnit;
    UniChar theUnits[3];
};

// The units from theFirst to theLast.
struct LetterRange
{
    UniChar theFirst;
    UniChar theLast;
};

struct CaseMapping
{
    const CaseRange* theFirstRange; // in ascending order
    const CaseRange* theLastRange;
    const CaseExpansion* theFirstExpansion; // in ascending order
    const CaseExpansion* theLastExpansion;
};

// A letter and its first mark, or, with a zero second unit, another form of the same character.
struct Decomposition
{
    UniChar theUnit;
    UniChar theFirst;
    UniChar theSecond;
};

extern const CaseMapping kFoldMapping; // for comparisons that ignore case
extern const CaseMapping kLowerMapping;
extern const CaseMapping kUpperMapping;
extern const CaseMapping kTitleMapping;               // for the first letters of words
extern const LetterRange* const kFirstLetterWithCase; // in ascending order
extern const LetterRange* const kLastLetterWithCase;
extern const Decomposition* const kFirstDecomposition; // in ascending order
extern const Decomposition* const kLastDecomposition;

constexpr int kMaximumMappedUnits = 3;
constexpr int kMaximumDecomposedUnits = 4;

// Writes what theUnit maps to, and returns how many units that is.
int MapCase(const CaseMapping& theMapping, UniChar theUnit, UniChar* theResult);

// Writes theUnit's full decomposition, the unit itself when it has none, and returns how many units that is.
int Decompose(UniChar theUnit, UniChar* theResult);

// The single unit that decomposes into a letter and a mark; 0 when there is none among the theCount units.
UniChar Compose(UniChar theLetter, UniChar theMark, const UniChar* theUnits, int theCount);

// Whether theUnit is a letter of a script that knows upper and lower case.
bool HasCase(UniChar theUnit);

bool IsCombiningMark(UniChar theUnit);
bool IsWhitespace(UniChar theUnit);

inline bool IsHighSurrogate(UniChar theUnit)
{
    return theUnit >= 0xD800 && theUnit <= 0xDBFF;
}

inline bool IsLowSurrogate(UniChar theUnit)
{
    return theUnit >= 0xDC00 && theUnit <= 0xDFFF;
}

inline bool IsDigit(int theUnit)
{
    return theUnit >= '0' && theUnit <= '9';
}

} // namespace Host

#endif
