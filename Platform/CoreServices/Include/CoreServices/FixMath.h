// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef FixMath_h
#define FixMath_h

// Numbers with 16 bits before the binary point and 16 after it. A result that does not fit stays at the end
// of the range.

#include <CoreFoundation/CFBase.h>

#define fixed1 ((Fixed)0x00010000)

CF_EXPORT Fixed Long2Fix(SInt32 x);

// The nearest whole number; of two that are equally near, the one farther from 0.
CF_EXPORT SInt32 Fix2Long(Fixed x);

// The quotient; by 0 the greatest number of the numerator's sign.
CF_EXPORT Fixed FixRatio(short numer, short denom);

// From and to a double. No number at all gives 0.
CF_EXPORT Fixed X2Fix(double x);
CF_EXPORT double Fix2X(Fixed x);

#endif
