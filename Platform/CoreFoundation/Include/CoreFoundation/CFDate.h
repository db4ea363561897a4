// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFDate_h
#define CFDate_h

// Dates: moments in time, counted in seconds from the first instant of 2001, UTC.

#include <CoreFoundation/CFBase.h>

typedef double CFTimeInterval;
typedef double CFAbsoluteTime;

typedef const struct __CFDate* CFDateRef;

// See CFTimeZone.h. NULL is Greenwich mean time.
typedef const struct __CFTimeZone* CFTimeZoneRef;

// A moment as a calendar and a clock show it. The year 0 is the one before the year 1.
typedef struct CFGregorianDate
{
    SInt32 year;
    SInt8 month;   // from 1 to 12
    SInt8 day;     // from 1 on
    SInt8 hour;    // from 0 to 23
    SInt8 minute;  // from 0 to 59
    double second; // from 0 up to, but not including, 60
} CFGregorianDate;

// What lies between two moments, or is added to one. Each may be negative.
typedef struct CFGregorianUnits
{
    SInt32 years;
    SInt32 months;
    SInt32 days;
    SInt32 hours;
    SInt32 minutes;
    double seconds;
} CFGregorianUnits;

// Which of them count; combined with |.
typedef CFOptionFlags CFGregorianUnitFlags;
enum CF_OF_TYPE(CFOptionFlags)
{
    kCFGregorianUnitsYears = 1,
    kCFGregorianUnitsMonths = 2,
    kCFGregorianUnitsDays = 4,
    kCFGregorianUnitsHours = 8,
    kCFGregorianUnitsMinutes = 16,
    kCFGregorianUnitsSeconds = 32,
    kCFGregorianAllUnits = 0x00FFFFFF
};

// From the first instants of 1970 and of 1904 to that of 2001.
CF_EXPORT const CFTimeInterval kCFAbsoluteTimeIntervalSince1970;
CF_EXPORT const CFTimeInterval kCFAbsoluteTimeIntervalSince1904;

CF_EXPORT CFAbsoluteTime CFAbsoluteTimeGetCurrent(void);

CF_EXPORT CFTypeID CFDateGetTypeID(void);
// Fractions of a second are kept. The caller releases it.
CF_EXPORT CFDateRef CFDateCreate(CFAllocatorRef inAllocator, CFAbsoluteTime inTime);
CF_EXPORT CFAbsoluteTime CFDateGetAbsoluteTime(CFDateRef inDate);
// inDate minus inOther.
CF_EXPORT CFTimeInterval CFDateGetTimeIntervalSinceDate(CFDateRef inDate, CFDateRef inOther);
// The context is not used.
CF_EXPORT CFComparisonResult CFDateCompare(CFDateRef inDate, CFDateRef inOther, void* inContext);

// The Gregorian calendar, also for the time before there was one, as the clocks of a time zone show it.
// Nothing here takes memory or fails.

// Whether each field that inUnitFlags names is one of a calendar and a clock. Years are valid from 1 on. That
// the month has such a day is looked at when year, month and day are all named.
CF_EXPORT Boolean CFGregorianDateIsValid(CFGregorianDate inDate, CFOptionFlags inUnitFlags);
// Fields that are not valid are carried over: the month 13 is the January of the next year, the day 0 the
// last of the month before. Where clocks are put back, an hour comes twice, and the first is meant; where
// they are put forward, one is left out, and stands for the hour behind it.
CF_EXPORT CFAbsoluteTime CFGregorianDateGetAbsoluteTime(CFGregorianDate inDate, CFTimeZoneRef inTimeZone);
// Always valid, except for its year. A time whose year SInt32 does not hold gives the nearest day that it
// holds; a time that is no number gives the first day of 2001.
CF_EXPORT CFGregorianDate CFAbsoluteTimeGetGregorianDate(CFAbsoluteTime inTime, CFTimeZoneRef inTimeZone);

// Adds years and months first; a day that the month does not have becomes its last: one month after the 31st
// of January is the 28th or 29th of February. Then days, hours, minutes and seconds of fixed length.
CF_EXPORT CFAbsoluteTime CFAbsoluteTimeAddGregorianUnits(CFAbsoluteTime inTime, CFTimeZoneRef inTimeZone,
                                                         CFGregorianUnits inUnits);
// inTime minus inOther in the units that inUnitFlags names, the longer ones first; the others are 0. Added to
// inOther, the units lead to inTime, or, without seconds, towards it and not past it. All are negative or 0
// when inTime is the earlier one. A number that does not fit is the largest that does. Where no number lies
// between the two, all units are 0.
CF_EXPORT CFGregorianUnits CFAbsoluteTimeGetDifferenceAsGregorianUnits(CFAbsoluteTime inTime,
                                                                       CFAbsoluteTime inOther,
                                                                       CFTimeZoneRef inTimeZone,
                                                                       CFOptionFlags inUnitFlags);

// From 1, Monday, to 7, Sunday.
CF_EXPORT SInt32 CFAbsoluteTimeGetDayOfWeek(CFAbsoluteTime inTime, CFTimeZoneRef inTimeZone);
// From 1 to 366.
CF_EXPORT SInt32 CFAbsoluteTimeGetDayOfYear(CFAbsoluteTime inTime, CFTimeZoneRef inTimeZone);
// From 1 to 53, as ISO 8601 counts: weeks start on Monday, and belong to the year that has most of their
// days. The first days of January can be in the last week of the year before, the last ones of December in
// the first week of the next.
CF_EXPORT SInt32 CFAbsoluteTimeGetWeekOfYear(CFAbsoluteTime inTime, CFTimeZoneRef inTimeZone);

#endif
