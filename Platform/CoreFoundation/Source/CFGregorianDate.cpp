// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFCalendar.h"
#include "CFTimeZoneObject.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr SInt64 kMonthsPerYear = 12;
constexpr SInt64 kDaysPerWeek = 7;
constexpr SInt64 kMinutesPerDay = 1440;
constexpr double kSecondsPerMinute = 60;
constexpr double kSecondsPerHour = 3600;
constexpr double kSecondsPerDay = 86400;
constexpr SInt64 kFirstYear = std::numeric_limits<SInt32>::min();
constexpr SInt64 kLastYear = std::numeric_limits<SInt32>::max();

void RequireZone(CFTimeZoneRef theTimeZone, const char* theCaller)
{
    if (theTimeZone != nullptr) {
        Host::Require(theTimeZone, Host::kTimeZoneType, theCaller);
    }
}

// A moment in parts that nothing was rounded away from.
struct Moment
{
    SInt64 theDay;    // since 2001
    int theMinute;    // of the day
    double theSecond; // of the minute; below 60
};

// Within the years that SInt32 holds; that of 0 when theTime is no number.
Moment MomentAt(CFAbsoluteTime theTime)
{
    static const SInt64 kFirstDay = Host::DaysSince2001({kFirstYear, 1, 1});
    static const SInt64 kLastDay = Host::DaysSince2001({kLastYear, 12, 31});
    // More seconds than those years have, and few enough for SInt64.
    constexpr double kLimit = 1e17;
    const double theClamped = std::isnan(theTime) ? 0 : std::clamp(theTime, -kLimit, kLimit);
    double theSecond = std::fmod(theClamped, kSecondsPerMinute);
    SInt64 theMinutes = static_cast<SInt64>((theClamped - theSecond) / kSecondsPerMinute);
    // Just before a minute the sum is rounded up to 60, and the second is then the first of that minute.
    if (theSecond < 0 && theSecond + kSecondsPerMinute < kSecondsPerMinute) {
        theSecond += kSecondsPerMinute;
        --theMinutes;
    }
    return {std::clamp(Host::FloorQuotient(theMinutes, kMinutesPerDay), kFirstDay, kLastDay),
            static_cast<int>(Host::FloorRemainder(theMinutes, kMinutesPerDay)), std::max(0.0, theSecond)};
}

// The same day so many months later, or the last day of that month.
Host::Day AddMonths(const Host::Day& theDay, SInt64 theMonths)
{
    const SInt64 theCount = theDay.theYear * kMonthsPerYear + theDay.theMonth - 1 + theMonths;
    const SInt64 theYear = Host::FloorQuotient(theCount, kMonthsPerYear);
    const int theMonth = static_cast<int>(Host::FloorRemainder(theCount, kMonthsPerYear)) + 1;
    return {theYear, theMonth, std::min(theDay.theDay, Host::DaysInMonth(theYear, theMonth))};
}

// theTime so many months later, at the same hour by the clocks of the zone.
CFAbsoluteTime TimeAfterMonths(CFAbsoluteTime theTime, CFTimeZoneRef theTimeZone, SInt64 theMonths)
{
    if (theMonths == 0) {
        return theTime;
    }
    const CFAbsoluteTime theLocalTime = Host::LocalTimeAt(theTimeZone, theTime);
    const SInt64 theDay = MomentAt(theLocalTime).theDay;
    const SInt64 theLater = Host::DaysSince2001(AddMonths(Host::DayAt(theDay), theMonths));
    return Host::MomentOfLocalTime(theTimeZone,
                                   theLocalTime + static_cast<double>(theLater - theDay) * kSecondsPerDay);
}

SInt64 MonthsSinceYear0(CFAbsoluteTime theTime, CFTimeZoneRef theTimeZone)
{
    const Host::Day theDay = Host::DayAt(MomentAt(Host::LocalTimeAt(theTimeZone, theTime)).theDay);
    return theDay.theYear * kMonthsPerYear + theDay.theMonth;
}

// How many whole months there are from theStart to theEnd, towards theEnd and not past it.
SInt64 WholeMonthsBetween(CFAbsoluteTime theStart, CFAbsoluteTime theEnd, CFTimeZoneRef theTimeZone)
{
    const SInt64 theMonths = MonthsSinceYear0(theEnd, theTimeZone) - MonthsSinceYear0(theStart, theTimeZone);
    const CFAbsoluteTime theReached = TimeAfterMonths(theStart, theTimeZone, theMonths);
    const bool theIsPast = theMonths > 0 ? theReached > theEnd : theReached < theEnd;
    return theMonths == 0 || !theIsPast ? theMonths : theMonths - (theMonths > 0 ? 1 : -1);
}

SInt32 Saturate(SInt64 theNumber)
{
    return static_cast<SInt32>(std::clamp(theNumber, kFirstYear, kLastYear));
}

// Takes as many whole units out of ioRest as there are, and fit.
SInt32 TakeUnits(double& ioRest, double theLength)
{
    const double theCount = (ioRest - std::fmod(ioRest, theLength)) / theLength;
    const SInt32 theTaken = static_cast<SInt32>(
        std::clamp(theCount, static_cast<double>(kFirstYear), static_cast<double>(kLastYear)));
    ioRest -= theTaken * theLength;
    return theTaken;
}

// The flags of the fields whose values are none of a calendar or a clock.
CFOptionFlags UnitsOutside(const CFGregorianDate& theDate)
{
    const auto theFlag = [](bool theIsInside, CFOptionFlags theUnit) { return theIsInside ? 0 : theUnit; };
    return theFlag(theDate.year >= 1, kCFGregorianUnitsYears) |
           theFlag(theDate.month >= 1 && theDate.month <= 12, kCFGregorianUnitsMonths) |
           theFlag(theDate.day >= 1 && theDate.day <= 31, kCFGregorianUnitsDays) |
           theFlag(theDate.hour >= 0 && theDate.hour <= 23, kCFGregorianUnitsHours) |
           theFlag(theDate.minute >= 0 && theDate.minute <= 59, kCFGregorianUnitsMinutes) |
           theFlag(theDate.second >= 0 && theDate.second < 60, kCFGregorianUnitsSeconds);
}

} // namespace

Boolean CFGregorianDateIsValid(CFGregorianDate inDate, CFOptionFlags inUnitFlags)
{
    constexpr CFOptionFlags kWholeDay =
        kCFGregorianUnitsYears | kCFGregorianUnitsMonths | kCFGregorianUnitsDays;
    if ((UnitsOutside(inDate) & inUnitFlags) != 0) {
        return false;
    }
    return (inUnitFlags & kWholeDay) != kWholeDay ||
           inDate.day <= Host::DaysInMonth(inDate.year, inDate.month);
}

CFAbsoluteTime CFGregorianDateGetAbsoluteTime(CFGregorianDate inDate, CFTimeZoneRef inTimeZone)
{
    RequireZone(inTimeZone, __func__);
    const SInt64 theFirstOfMonth = Host::DaysSince2001(AddMonths({inDate.year, 1, 1}, inDate.month - 1));
    return Host::MomentOfLocalTime(
        inTimeZone, static_cast<double>(theFirstOfMonth + inDate.day - 1) * kSecondsPerDay +
                        inDate.hour * kSecondsPerHour + inDate.minute * kSecondsPerMinute + inDate.second);
}

CFGregorianDate CFAbsoluteTimeGetGregorianDate(CFAbsoluteTime inTime, CFTimeZoneRef inTimeZone)
{
    RequireZone(inTimeZone, __func__);
    const Moment theMoment = MomentAt(Host::LocalTimeAt(inTimeZone, inTime));
    const Host::Day theDay = Host::DayAt(theMoment.theDay);
    return {static_cast<SInt32>(theDay.theYear),
            static_cast<SInt8>(theDay.theMonth),
            static_cast<SInt8>(theDay.theDay),
            static_cast<SInt8>(theMoment.theMinute / 60),
            static_cast<SInt8>(theMoment.theMinute % 60),
            theMoment.theSecond};
}

CFAbsoluteTime CFAbsoluteTimeAddGregorianUnits(CFAbsoluteTime inTime, CFTimeZoneRef inTimeZone,
                                               CFGregorianUnits inUnits)
{
    RequireZone(inTimeZone, __func__);
    return TimeAfterMonths(inTime, inTimeZone, inUnits.years * kMonthsPerYear + inUnits.months) +
           inUnits.days * kSecondsPerDay + inUnits.hours * kSecondsPerHour +
           inUnits.minutes * kSecondsPerMinute + inUnits.seconds;
}

CFGregorianUnits CFAbsoluteTimeGetDifferenceAsGregorianUnits(CFAbsoluteTime inTime, CFAbsoluteTime inOther,
                                                             CFTimeZoneRef inTimeZone,
                                                             CFOptionFlags inUnitFlags)
{
    RequireZone(inTimeZone, __func__);
    CFGregorianUnits theUnits = {0, 0, 0, 0, 0, 0};
    if (!std::isfinite(inTime - inOther)) {
        return theUnits;
    }
    const SInt64 theMonths = WholeMonthsBetween(inOther, inTime, inTimeZone);
    if ((inUnitFlags & kCFGregorianUnitsYears) != 0) {
        theUnits.years = Saturate(theMonths / kMonthsPerYear);
    }
    const SInt64 theMonthsOfYears = theUnits.years * kMonthsPerYear;
    if ((inUnitFlags & kCFGregorianUnitsMonths) != 0) {
        theUnits.months = Saturate(theMonths - theMonthsOfYears);
    }
    double theRest = inTime - TimeAfterMonths(inOther, inTimeZone, theMonthsOfYears + theUnits.months);
    if ((inUnitFlags & kCFGregorianUnitsDays) != 0) {
        theUnits.days = TakeUnits(theRest, kSecondsPerDay);
    }
    if ((inUnitFlags & kCFGregorianUnitsHours) != 0) {
        theUnits.hours = TakeUnits(theRest, kSecondsPerHour);
    }
    if ((inUnitFlags & kCFGregorianUnitsMinutes) != 0) {
        theUnits.minutes = TakeUnits(theRest, kSecondsPerMinute);
    }
    if ((inUnitFlags & kCFGregorianUnitsSeconds) != 0) {
        theUnits.seconds = theRest;
    }
    return theUnits;
}

SInt32 CFAbsoluteTimeGetDayOfWeek(CFAbsoluteTime inTime, CFTimeZoneRef inTimeZone)
{
    RequireZone(inTimeZone, __func__);
    return static_cast<SInt32>(
               Host::FloorRemainder(MomentAt(Host::LocalTimeAt(inTimeZone, inTime)).theDay, kDaysPerWeek)) +
           1;
}

SInt32 CFAbsoluteTimeGetDayOfYear(CFAbsoluteTime inTime, CFTimeZoneRef inTimeZone)
{
    RequireZone(inTimeZone, __func__);
    const SInt64 theDay = MomentAt(Host::LocalTimeAt(inTimeZone, inTime)).theDay;
    return static_cast<SInt32>(theDay - Host::DaysSince2001({Host::DayAt(theDay).theYear, 1, 1})) + 1;
}

SInt32 CFAbsoluteTimeGetWeekOfYear(CFAbsoluteTime inTime, CFTimeZoneRef inTimeZone)
{
    RequireZone(inTimeZone, __func__);
    // A week belongs to the year of its Thursday.
    const SInt64 theMonday =
        Host::FloorQuotient(MomentAt(Host::LocalTimeAt(inTimeZone, inTime)).theDay, kDaysPerWeek) *
        kDaysPerWeek;
    const SInt64 theThursday = theMonday + 3;
    const SInt64 theNewYear = Host::DaysSince2001({Host::DayAt(theThursday).theYear, 1, 1});
    return static_cast<SInt32>((theThursday - theNewYear) / kDaysPerWeek) + 1;
}
