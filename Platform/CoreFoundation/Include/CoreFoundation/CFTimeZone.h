// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFTimeZone_h
#define CFTimeZone_h

// Time zones: how far the clocks of a place are from Greenwich mean time, and when.
//
// A zone is named as "Europe/Berlin", or is a fixed distance. Which names there are, the host's data say;
// CFTimeZoneCopyKnownNames lists them. Where a call takes a zone, NULL is Greenwich mean time.
//
// Reading is safe from any thread.

#include <CoreFoundation/CFArray.h>
#include <CoreFoundation/CFBase.h>
#include <CoreFoundation/CFDate.h>
#include <CoreFoundation/CFString.h>

CF_EXPORT CFTypeID CFTimeZoneGetTypeID(void);

// The zone of the machine: what TZ in the environment names, or the system is set to; "GMT" where that is no
// known zone. It is looked up once, until CFTimeZoneResetSystem. The caller releases it.
CF_EXPORT CFTimeZoneRef CFTimeZoneCopySystem(void);
CF_EXPORT void CFTimeZoneResetSystem(void);

// The zone that the program wants to use: the system's, until it sets another. The caller releases the copy.
// NULL cannot be set, and does nothing.
CF_EXPORT CFTimeZoneRef CFTimeZoneCopyDefault(void);
CF_EXPORT void CFTimeZoneSetDefault(CFTimeZoneRef inTimeZone);

// The names that zones can be made with, in alphabetical order. The caller releases the array.
CF_EXPORT CFArrayRef CFTimeZoneCopyKnownNames(void);

// "Europe/Berlin", "GMT", "UTC", or a distance: "GMT+0130", "GMT-08:00". With inTryAbbreviation an
// abbreviation is taken too, such as "PST", which stands for a zone with its summer time. NULL when there is
// no such zone. The caller releases it.
CF_EXPORT CFTimeZoneRef CFTimeZoneCreateWithName(CFAllocatorRef inAllocator, CFStringRef inName,
                                                 Boolean inTryAbbreviation);
// A fixed distance, rounded to whole minutes, called "GMT+0130". NULL for more than 18 hours, or no number.
// The caller releases it.
CF_EXPORT CFTimeZoneRef CFTimeZoneCreateWithTimeIntervalFromGMT(CFAllocatorRef inAllocator,
                                                                CFTimeInterval inInterval);

CF_EXPORT CFStringRef CFTimeZoneGetName(CFTimeZoneRef inTimeZone);

// What is added to Greenwich mean time at that moment, in seconds; positive in the east.
CF_EXPORT CFTimeInterval CFTimeZoneGetSecondsFromGMT(CFTimeZoneRef inTimeZone, CFAbsoluteTime inTime);
CF_EXPORT Boolean CFTimeZoneIsDaylightSavingTime(CFTimeZoneRef inTimeZone, CFAbsoluteTime inTime);
// A short name for it at that moment: "PDT", or "GMT+2" where there is no shorter one. The caller releases
// it.
CF_EXPORT CFStringRef CFTimeZoneCopyAbbreviation(CFTimeZoneRef inTimeZone, CFAbsoluteTime inTime);

#endif
