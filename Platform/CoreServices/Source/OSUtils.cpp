// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreServices/OSUtils.h>
#include <cstdint>
#include <ctime>

namespace {

// From the beginning of 1904 to that of 1970: 66 years, 17 of them leap years.
constexpr std::int64_t kSecondsBefore1970 = (66 * 365 + 17) * std::int64_t{86400};

} // namespace

void GetDateTime(unsigned long* secs)
{
    if (secs == nullptr) {
        return;
    }
    const std::time_t theNow = std::time(nullptr);
    std::tm theParts{};
    const std::int64_t theOffset = localtime_r(&theNow, &theParts) == nullptr ? 0 : theParts.tm_gmtoff;
    // The count has 32 bits, and begins anew in 2040.
    *secs = static_cast<std::uint32_t>(static_cast<std::int64_t>(theNow) + theOffset + kSecondsBefore1970);
}
