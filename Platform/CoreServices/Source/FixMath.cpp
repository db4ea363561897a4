// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <algorithm>
#include <cmath>
#include <CoreServices/FixMath.h>
#include <cstdint>

namespace {

constexpr double kOne = 65536;

Fixed Narrow(double theNumber)
{
    return static_cast<Fixed>(std::clamp(theNumber, double{INT32_MIN}, double{INT32_MAX}));
}

} // namespace

Fixed Long2Fix(SInt32 x)
{
    return Narrow(x * kOne);
}

SInt32 Fix2Long(Fixed x)
{
    return static_cast<SInt32>(std::round(x / kOne));
}

Fixed FixRatio(short numer, short denom)
{
    if (denom == 0) {
        return numer < 0 ? INT32_MIN : INT32_MAX;
    }
    return Narrow(std::round(numer * kOne / denom));
}

Fixed X2Fix(double x)
{
    return std::isnan(x) ? 0 : Narrow(std::round(x * kOne));
}

double Fix2X(Fixed x)
{
    return x / kOne;
}
