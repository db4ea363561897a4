// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFCalendar_h
#define CFCalendar_h

// The Gregorian calendar, carried on into the past and the future for as long as anybody asks; and dates as
// property lists write them: "2001-01-01T00:00:00Z".

#include <CoreFoundation/CFDate.h>
#include <optional>
#include <string>
#include <string_view>

namespace Host {

// The year 0 is the one before the year 1.
struct Day
{
    SInt64 theYear;
    int theMonth; // from 1 to 12
    int theDay;   // from 1 on
};

int DaysInMonth(SInt64 theYear, int theMonth);

// Days count from the first of 2001, which is 0 and a Monday. The year is within ±2^33.
SInt64 DaysSince2001(const Day& theDay);
Day DayAt(SInt64 theDaysSince2001);

// Division that rounds down, for a divisor above 0; the remainder is never negative.
constexpr SInt64 FloorQuotient(SInt64 theNumber, SInt64 theDivisor)
{
    return theNumber / theDivisor - (theNumber % theDivisor < 0 ? 1 : 0);
}
constexpr SInt64 FloorRemainder(SInt64 theNumber, SInt64 theDivisor)
{
    return theNumber - FloorQuotient(theNumber, theDivisor) * theDivisor;
}

// A year that others have written with fewer than four digits is read too. None for a text of another form,
// or with a day or an hour that does not exist.
std::optional<CFAbsoluteTime> ParseDate(std::string_view theDate);

// The whole second that theTime is in. None for a year that does not have four digits.
std::optional<std::string> DateText(CFAbsoluteTime theTime);

} // namespace Host

#endif
