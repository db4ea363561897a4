// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFDate_h
#define CFDate_h

// Dates: moments in time, counted in seconds from the first instant of 2001, UTC.

#include <CoreFoundation/CFBase.h>

typedef double CFTimeInterval;
typedef double CFAbsoluteTime;

typedef const struct __CFDate* CFDateRef;

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

#endif
