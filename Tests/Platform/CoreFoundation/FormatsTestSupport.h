// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef FormatsTestSupport_h
#define FormatsTestSupport_h

#include "CFTestSupport.h"

#include <cstdio>
#include <tuple>

inline bool KnowsLocale(const std::string& theIdentifier)
{
    const Owned<CFArrayRef> theKnown(CFLocaleCopyAvailableLocaleIdentifiers());
    return CFArrayContainsValue(theKnown, CFRangeMake(0, CFArrayGetCount(theKnown)), String(theIdentifier)) !=
           0;
}

inline Owned<CFLocaleRef> Locale(const std::string& theIdentifier)
{
    return Owned(CFLocaleCreate(nullptr, String(theIdentifier)));
}

inline Owned<CFTimeZoneRef> Zone(const std::string& theName)
{
    return Owned(CFTimeZoneCreateWithName(nullptr, String(theName), false));
}

inline Owned<CFNumberFormatterRef> NumberFormatter(CFNumberFormatterStyle theStyle,
                                                   const std::string& theLocale = "en_US")
{
    return Owned(CFNumberFormatterCreate(nullptr, Locale(theLocale), theStyle));
}

inline Owned<CFDateFormatterRef> DateFormatter(CFDateFormatterStyle theDateStyle,
                                               CFDateFormatterStyle theTimeStyle,
                                               const std::string& theLocale = "en_US",
                                               const std::string& theZone = "GMT")
{
    Owned<CFDateFormatterRef> theFormatter(
        CFDateFormatterCreate(nullptr, Locale(theLocale), theDateStyle, theTimeStyle));
    CFDateFormatterSetProperty(theFormatter, kCFDateFormatterTimeZone, Zone(theZone));
    return theFormatter;
}

constexpr CFAbsoluteTime kLanding = -992490140; // 20:17:40 on the 20th of July 1969, a Sunday

inline std::string Written(CFNumberFormatterRef theFormatter, double theNumber)
{
    return TextOf(Owned(
        CFNumberFormatterCreateStringWithValue(nullptr, theFormatter, kCFNumberDoubleType, &theNumber)));
}

// The number that was read, and how much of the text; "-" for none.
inline std::string Read(CFNumberFormatterRef theFormatter, const std::string& theText)
{
    CFRange theRange = WholeOf(String(theText));
    double theNumber = 0;
    if (!CFNumberFormatterGetValueFromString(theFormatter, String(theText), &theRange, kCFNumberDoubleType,
                                             &theNumber)) {
        return "-";
    }
    char theResult[64];
    std::snprintf(theResult, sizeof theResult, "%.17g:%ld", theNumber, theRange.length);
    return theResult;
}

inline std::string Written(CFDateFormatterRef theFormatter, CFAbsoluteTime theTime)
{
    return TextOf(Owned(CFDateFormatterCreateStringWithAbsoluteTime(nullptr, theFormatter, theTime)));
}

inline std::string ValueOf(const std::string& theLocale, CFStringRef theKey)
{
    const auto theOwned = Locale(theLocale);
    return TextOf(static_cast<CFStringRef>(CFLocaleGetValue(theOwned, theKey)));
}

inline std::string NameOf(CFTimeZoneRef theZone)
{
    return theZone == nullptr ? "(NULL)" : TextOf(CFTimeZoneGetName(theZone));
}

inline CFAbsoluteTime TimeOf(SInt32 theYear, int theMonth, int theDay, int theHour = 0, int theMinute = 0,
                             CFTimeZoneRef theZone = nullptr)
{
    const CFGregorianDate theDate = {theYear,
                                     static_cast<SInt8>(theMonth),
                                     static_cast<SInt8>(theDay),
                                     static_cast<SInt8>(theHour),
                                     static_cast<SInt8>(theMinute),
                                     0};
    return CFGregorianDateGetAbsoluteTime(theDate, theZone);
}

using Fields = std::tuple<SInt32, int, int, int, int>;

inline Fields FieldsAt(CFAbsoluteTime theTime, CFTimeZoneRef theZone)
{
    const CFGregorianDate theDate = CFAbsoluteTimeGetGregorianDate(theTime, theZone);
    return {theDate.year, theDate.month, theDate.day, theDate.hour, theDate.minute};
}

#endif
