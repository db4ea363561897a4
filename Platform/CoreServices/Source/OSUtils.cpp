// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFCalendar.h"

#include <CoreServices/OSUtils.h>
#include <cstdint>
#include <ctime>

namespace {

// From the beginning of 1904 to that of 1970: 66 years, 17 of them leap years.
constexpr std::int64_t kSecondsBefore1970 = (66 * 365 + 17) * std::int64_t{86400};

constexpr SInt64 kDaysTo2001 = 97 * 365 + 25;
constexpr SInt64 kSecondsInDay = 86400;

} // namespace

using namespace Host;

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

void SecondsToDate(unsigned long secs, DateTimeRec* d)
{
    if (d == nullptr) {
        return;
    }
    const SInt64 theSeconds = static_cast<std::uint32_t>(secs);
    const SInt64 theDays = theSeconds / kSecondsInDay - kDaysTo2001;
    const SInt64 theRest = theSeconds % kSecondsInDay;
    const Day theDay = DayAt(theDays);
    d->year = static_cast<short>(theDay.theYear);
    d->month = static_cast<short>(theDay.theMonth);
    d->day = static_cast<short>(theDay.theDay);
    d->hour = static_cast<short>(theRest / 3600);
    d->minute = static_cast<short>(theRest / 60 % 60);
    d->second = static_cast<short>(theRest % 60);
    // The first of 2001 was a Monday.
    d->dayOfWeek = static_cast<short>(FloorRemainder(theDays + 1, 7) + 1);
}

void DateToSeconds(const DateTimeRec* d, unsigned long* secs)
{
    if (d == nullptr || secs == nullptr) {
        return;
    }
    const SInt64 theMonths = SInt64{d->month} - 1;
    const Day theFirst = {d->year + FloorQuotient(theMonths, 12),
                          static_cast<int>(FloorRemainder(theMonths, 12)) + 1, 1};
    const SInt64 theDays = DaysSince2001(theFirst) + kDaysTo2001 + d->day - 1;
    *secs = static_cast<std::uint32_t>(theDays * kSecondsInDay + SInt64{d->hour} * 3600 +
                                       SInt64{d->minute} * 60 + d->second);
}
