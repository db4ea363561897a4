// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFCalendar.h"

#include "CFText.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr SInt64 kSecondsPerDay = 86400;

// From the first day of the year 0 to that of 2001.
constexpr SInt64 kDaysTo2001 = 730851;

// After so many years the calendar repeats itself.
constexpr SInt64 kYearsPerEra = 400;
constexpr SInt64 kDaysPerEra = 146097;

bool IsLeapYear(SInt64 theYear)
{
    return theYear % 4 == 0 && (theYear % 100 != 0 || theYear % 400 == 0);
}

// From the first day of the era that starts with the year 0, for its own years and the one behind them.
SInt64 DaysBeforeYearOfEra(SInt64 theYear)
{
    const SInt64 thePrevious = theYear - 1;
    return theYear == 0 ? 0 : 365 * theYear + thePrevious / 4 - thePrevious / 100 + thePrevious / 400 + 1;
}

// The number in theCount digits from theStart on.
int NumberAt(std::string_view theText, size_t theStart, size_t theCount)
{
    int theNumber = 0;
    for (const char theDigit : theText.substr(theStart, theCount)) {
        theNumber = theNumber * 10 + (theDigit - '0');
    }
    return theNumber;
}

// A '0' in the pattern stands for any digit.
bool HasPattern(std::string_view theText, std::string_view thePattern)
{
    for (size_t theIndex = 0; theIndex < thePattern.size() && theIndex < theText.size(); ++theIndex) {
        const bool theIsDigit = theText[theIndex] >= '0' && theText[theIndex] <= '9';
        if (thePattern[theIndex] == '0' ? !theIsDigit : theText[theIndex] != thePattern[theIndex]) {
            return false;
        }
    }
    return theText.size() == thePattern.size();
}

// Some programs write "1-01-01" for the first day of the year 1.
std::string PadYear(std::string_view theDate)
{
    const size_t theDigits = std::min<size_t>(theDate.find('-'), 4);
    return std::string(theDigits == 0 ? 0 : 4 - theDigits, '0').append(theDate);
}

} // namespace

int Host::DaysInMonth(SInt64 theYear, int theMonth)
{
    static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return theMonth == 2 && IsLeapYear(theYear) ? 29 : kDays[theMonth - 1];
}

SInt64 Host::DaysSince2001(const Day& theDay)
{
    SInt64 theDays = FloorQuotient(theDay.theYear, kYearsPerEra) * kDaysPerEra - kDaysTo2001 +
                     DaysBeforeYearOfEra(FloorRemainder(theDay.theYear, kYearsPerEra)) + theDay.theDay - 1;
    for (int theMonth = 1; theMonth < theDay.theMonth; ++theMonth) {
        theDays += DaysInMonth(theDay.theYear, theMonth);
    }
    return theDays;
}

Host::Day Host::DayAt(SInt64 theDaysSince2001)
{
    const SInt64 theEra = FloorQuotient(theDaysSince2001 + kDaysTo2001, kDaysPerEra);
    SInt64 theRest = FloorRemainder(theDaysSince2001 + kDaysTo2001, kDaysPerEra);
    SInt64 theYear = theRest / 366;
    while (DaysBeforeYearOfEra(theYear + 1) <= theRest) {
        ++theYear;
    }
    theRest -= DaysBeforeYearOfEra(theYear);
    Day theDay = {theEra * kYearsPerEra + theYear, 1, 1};
    while (theRest >= DaysInMonth(theDay.theYear, theDay.theMonth)) {
        theRest -= DaysInMonth(theDay.theYear, theDay.theMonth);
        ++theDay.theMonth;
    }
    theDay.theDay = static_cast<int>(theRest) + 1;
    return theDay;
}

std::optional<CFAbsoluteTime> Host::ParseDate(std::string_view theDate)
{
    const std::string theText = PadYear(theDate);
    if (!HasPattern(theText, "0000-00-00T00:00:00Z")) {
        return std::nullopt;
    }
    const Day theDay = {NumberAt(theText, 0, 4), NumberAt(theText, 5, 2), NumberAt(theText, 8, 2)};
    const int theHour = NumberAt(theText, 11, 2);
    const int theMinute = NumberAt(theText, 14, 2);
    const int theSecond = NumberAt(theText, 17, 2);
    if (theDay.theMonth < 1 || theDay.theMonth > 12 || theDay.theDay < 1 ||
        theDay.theDay > DaysInMonth(theDay.theYear, theDay.theMonth) || theHour > 23 || theMinute > 59 ||
        theSecond > 59) {
        return std::nullopt;
    }
    return static_cast<double>(DaysSince2001(theDay) * kSecondsPerDay + theHour * SInt64{3600} +
                               theMinute * SInt64{60} + theSecond);
}

std::optional<std::string> Host::DateText(CFAbsoluteTime theTime)
{
    const double theFirst = static_cast<double>(DaysSince2001({0, 1, 1}) * kSecondsPerDay);
    const double theEnd = static_cast<double>(DaysSince2001({10000, 1, 1}) * kSecondsPerDay);
    if (!(theTime >= theFirst && theTime < theEnd)) {
        return std::nullopt;
    }
    const SInt64 theSeconds = static_cast<SInt64>(std::floor(theTime));
    const Day theDay = DayAt(FloorQuotient(theSeconds, kSecondsPerDay));
    const int theRest = static_cast<int>(FloorRemainder(theSeconds, kSecondsPerDay));
    return FormatInCLocale("%04d-%02d-%02dT%02d:%02d:%02dZ", static_cast<int>(theDay.theYear),
                           theDay.theMonth, theDay.theDay, theRest / 3600, theRest / 60 % 60, theRest % 60);
}
