// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Plain_NumberPattern_h
#define Plain_NumberPattern_h

#include "Formats/Characters.h"

#include <optional>

namespace Host {

// What a pattern says of a number's digits, and what stands before and behind them; that still with its
// quotes and signs. "¤#,##0.00;(¤#,##0.00)" has two minimal fraction digits, and groups of three.
struct NumberPattern
{
    Characters thePositivePrefix;
    Characters thePositiveSuffix;
    Characters theNegativePrefix;
    Characters theNegativeSuffix;
    int theMinIntegerDigits = 0;
    int theMinFractionDigits = 0;
    int theMaxFractionDigits = 0;
    int theGroupingSize = 0;   // 0: no groups
    int theExponentDigits = 0; // 0: no exponent
};

// None for what is no pattern, and for one that pads, rounds, or counts significant digits.
std::optional<NumberPattern> ParseNumberPattern(const Characters& thePattern);

Characters TextOfNumberPattern(const NumberPattern& thePattern);

} // namespace Host

#endif
