// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Formats_Decimal_h
#define Formats_Decimal_h

// Numbers as digits, of which none gets lost between a text and an integer.

#include <CoreFoundation/CFNumberFormatter.h>
#include <optional>
#include <string>

namespace Host {

struct Decimal
{
    bool theIsNegative = false;
    std::string theDigits; // without zeros at either end; empty for 0
    int thePoint = 0;      // behind how many of the digits the point stands; may be outside of them
};

// The fewest digits that stand for the number alone. It is finite.
Decimal DecimalOf(double theNumber);
Decimal DecimalOf(SInt64 theNumber);
// Of "-12.5E+3", as decimals are written without a locale. None for anything else.
std::optional<Decimal> ParseDecimal(const std::string& theText);

// Takes the zeros away from both ends.
void Normalise(Decimal& ioDecimal);

// So that no more than theCount digits stand behind the point, or, when that is negative, so many fewer
// before it.
void RoundDecimal(Decimal& ioDecimal, int theCount, CFNumberFormatterRoundingMode theMode);

double DoubleOf(const Decimal& theDecimal);
// The part before the point; none when 64 bits do not hold it.
std::optional<SInt64> IntegerOf(const Decimal& theDecimal);

} // namespace Host

#endif
