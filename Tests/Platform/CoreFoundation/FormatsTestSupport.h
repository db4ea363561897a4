// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef FormatsTestSupport_h
#define FormatsTestSupport_h

#include "CFTestSupport.h"

// Ends a test that is about other languages where the host knows English alone.
#define NEED_DATA_OF_LOCALES()                                                                               \
    if (!KnowsLocale("de_DE")) {                                                                             \
        GTEST_SKIP() << "needs the data of all locales, which this host does not have";                      \
    }

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

#endif
