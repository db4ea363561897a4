// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef OSUtils_h
#define OSUtils_h

// The time of day, and dates as people count them.

#include <CoreFoundation/CFBase.h>

// Seconds since the beginning of 1904 in local time; they fit into 32 bits until 2040. Does nothing for NULL.
CF_EXPORT void GetDateTime(unsigned long* secs);

// A date and a time of day: months and days from 1, hours from 0, days of the week from 1, which is Sunday.
typedef struct DateTimeRec
{
    short year;
    short month;
    short day;
    short hour;
    short minute;
    short second;
    short dayOfWeek;
} DateTimeRec;

// Both do nothing for NULL. A day or an hour that there is not is counted on: the thirteenth month is the
// first of the next year, and the day 0 the last of the month before. The day of the week is not looked at.
// Seconds outside of 1904 to 2040 are taken within 32 bits.
CF_EXPORT void SecondsToDate(unsigned long secs, DateTimeRec* d);
CF_EXPORT void DateToSeconds(const DateTimeRec* d, unsigned long* secs);

#endif
