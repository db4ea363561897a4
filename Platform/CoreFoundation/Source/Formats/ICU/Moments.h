// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ICU_Moments_h
#define ICU_Moments_h

#include "Formats/DateFormat.h"

#include <algorithm>
#include <cmath>

namespace Host {

// As ICU counts, since 1970; the nearest that it can count, 0 for no number. Whole milliseconds stay whole.
inline double MillisecondsOf(CFAbsoluteTime theTime)
{
    const double theClamped = std::isnan(theTime) ? 0 : std::clamp(theTime, -kFarthestTime, kFarthestTime);
    return std::round(theClamped * 1000) + kCFAbsoluteTimeIntervalSince1970 * 1000;
}

inline CFAbsoluteTime TimeOfMilliseconds(double theMilliseconds)
{
    return (theMilliseconds - kCFAbsoluteTimeIntervalSince1970 * 1000) / 1000;
}

} // namespace Host

#endif
