// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreServices/ToolUtils.h>
#include <cstdint>

namespace {

// Lehmer's sequence: each number below 2^31 - 1 comes once before any comes again.
std::int64_t gSeed = 1;

} // namespace

short Random(void)
{
    gSeed = gSeed * 16807 % INT32_MAX;
    const auto theLowHalf = static_cast<std::int16_t>(gSeed & 0xFFFF);
    return theLowHalf == INT16_MIN ? std::int16_t(0) : theLowHalf;
}
