// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "System/Clock.h"

#include <Carbon/Carbon.h>
#include <cmath>

namespace {

constexpr double kTicksPerSecond = 60;
constexpr double kTickCounts = 4294967296.0; // before the count begins anew
constexpr UInt32 kHalfASecond = 30;

} // namespace

UInt32 TickCount(void)
{
    const double theTicks = std::floor(Host::CurrentClock().Now() * kTicksPerSecond);
    return static_cast<UInt32>(std::fmod(theTicks, kTickCounts));
}

void Delay(unsigned long numTicks, unsigned long* finalTicks)
{
    Host::Clock& theClock = Host::CurrentClock();
    const double theEnd = theClock.Now() + static_cast<double>(numTicks) / kTicksPerSecond;
    // Something may wake the loop that does not run now; it looks for everything before it waits.
    while (theClock.Now() < theEnd) {
        theClock.WaitUntil(theEnd);
    }
    if (finalTicks != nullptr) {
        *finalTicks = TickCount();
    }
}

UInt32 GetDblTime(void)
{
    return kHalfASecond;
}

UInt32 GetCaretTime(void)
{
    return kHalfASecond;
}
