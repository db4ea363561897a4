// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFDateFormatter_h
#define CFDateFormatter_h

// Dates and times as people write them: "7/20/69" in New York is "20.07.69" in Berlin.
//
// A formatter writes moments and reads them, in one locale, one time zone and one style for each of date and
// time. Its format is a pattern of Unicode (UTS #35), and can be replaced: y is the year, M the month (MMM
// and MMMM its name), d the day, EEE and EEEE the day of the week, h and H the hour (of 12 and of 24), m the
// minute, s the second, S its fraction, a the half of the day, z the zone; what stands between single
// quotes is text.
//
// The calendar is the Gregorian one, and the zone that of CFTimeZoneCopyDefault, unless a property says
// otherwise. A formatter is used by one thread at a time.

#include <CoreFoundation/CFBase.h>
#include <CoreFoundation/CFDate.h>
#include <CoreFoundation/CFLocale.h>
#include <CoreFoundation/CFString.h>

typedef struct __CFDateFormatter* CFDateFormatterRef;

typedef CFIndex CFDateFormatterStyle;
enum CF_OF_TYPE(CFIndex)
{
    kCFDateFormatterNoStyle = 0, // not written
    kCFDateFormatterShortStyle = 1,
    kCFDateFormatterMediumStyle = 2,
    kCFDateFormatterLongStyle = 3,
    kCFDateFormatterFullStyle = 4
};

// Properties, and what each is. Arrays of names hold strings, and begin with January, Sunday and the era
// before the first year.
CF_EXPORT const CFStringRef kCFDateFormatterIsLenient;           // a boolean, at first true
CF_EXPORT const CFStringRef kCFDateFormatterTimeZone;            // a time zone
CF_EXPORT const CFStringRef kCFDateFormatterCalendarName;        // kCFGregorianCalendar; only to be read
CF_EXPORT const CFStringRef kCFDateFormatterDefaultFormat;       // a string, the style's; only to be read
CF_EXPORT const CFStringRef kCFDateFormatterTwoDigitStartDate;   // a date; "yy" is in the 100 years from it
CF_EXPORT const CFStringRef kCFDateFormatterEraSymbols;          // an array
CF_EXPORT const CFStringRef kCFDateFormatterMonthSymbols;        // an array
CF_EXPORT const CFStringRef kCFDateFormatterShortMonthSymbols;   // an array
CF_EXPORT const CFStringRef kCFDateFormatterWeekdaySymbols;      // an array
CF_EXPORT const CFStringRef kCFDateFormatterShortWeekdaySymbols; // an array
CF_EXPORT const CFStringRef kCFDateFormatterAMSymbol;            // a string
CF_EXPORT const CFStringRef kCFDateFormatterPMSymbol;            // a string

CF_EXPORT CFTypeID CFDateFormatterGetTypeID(void);

// NULL for the locale is the person's. NULL for a style that is none. The caller releases it.
CF_EXPORT CFDateFormatterRef CFDateFormatterCreate(CFAllocatorRef inAllocator, CFLocaleRef inLocale,
                                                   CFDateFormatterStyle inDateStyle,
                                                   CFDateFormatterStyle inTimeStyle);
CF_EXPORT CFLocaleRef CFDateFormatterGetLocale(CFDateFormatterRef inFormatter);
CF_EXPORT CFDateFormatterStyle CFDateFormatterGetDateStyle(CFDateFormatterRef inFormatter);
CF_EXPORT CFDateFormatterStyle CFDateFormatterGetTimeStyle(CFDateFormatterRef inFormatter);

// The format lives until the formatter is changed.
CF_EXPORT CFStringRef CFDateFormatterGetFormat(CFDateFormatterRef inFormatter);
CF_EXPORT void CFDateFormatterSetFormat(CFDateFormatterRef inFormatter, CFStringRef inFormat);

// The moment as text. The caller releases it. NULL for a time that is no number, or more than 250,000 years
// away.
CF_EXPORT CFStringRef CFDateFormatterCreateStringWithDate(CFAllocatorRef inAllocator,
                                                          CFDateFormatterRef inFormatter, CFDateRef inDate);
CF_EXPORT CFStringRef CFDateFormatterCreateStringWithAbsoluteTime(CFAllocatorRef inAllocator,
                                                                  CFDateFormatterRef inFormatter,
                                                                  CFAbsoluteTime inTime);

// The moment that the text starts with, in the range that ioRange points to, or in all of it for NULL. What
// was read is then in ioRange: compare its length to see whether something follows. What the format does not
// tell is as it was at the beginning of 1970. NULL, and false, when the text does not have the format;
// ioRange stays as it was then. A lenient formatter also takes the 32nd of January for the 1st of February.
// The caller releases the date.
CF_EXPORT CFDateRef CFDateFormatterCreateDateFromString(CFAllocatorRef inAllocator,
                                                        CFDateFormatterRef inFormatter, CFStringRef inString,
                                                        CFRange* ioRange);
CF_EXPORT Boolean CFDateFormatterGetAbsoluteTimeFromString(CFDateFormatterRef inFormatter,
                                                           CFStringRef inString, CFRange* ioRange,
                                                           CFAbsoluteTime* outTime);

// Sets a property; for a key that is none of the above, or a value that is none for it, nothing happens.
CF_EXPORT void CFDateFormatterSetProperty(CFDateFormatterRef inFormatter, CFStringRef inKey,
                                          CFTypeRef inValue);
// NULL for a key that is none. The caller releases it.
CF_EXPORT CFTypeRef CFDateFormatterCopyProperty(CFDateFormatterRef inFormatter, CFStringRef inKey);

#endif
