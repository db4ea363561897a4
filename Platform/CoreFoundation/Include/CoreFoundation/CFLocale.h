// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFLocale_h
#define CFLocale_h

// Locales: how numbers, dates and currencies are written in a language and a country.
//
// A locale is named by an identifier, "en_US" or "de_AT": a language, a script of four letters where that is
// needed, a country. It knows what the host's own data of locales know;
// CFLocaleCopyAvailableLocaleIdentifiers lists them. A locale that they do not know is written as English of
// the United States.
//
// Reading is safe from any thread.

#include <CoreFoundation/CFArray.h>
#include <CoreFoundation/CFBase.h>
#include <CoreFoundation/CFString.h>

// What CFLocaleGetValue is asked for, and what it gives.
CF_EXPORT const CFStringRef kCFLocaleIdentifier;         // a string
CF_EXPORT const CFStringRef kCFLocaleLanguageCode;       // a string: "de"
CF_EXPORT const CFStringRef kCFLocaleCountryCode;        // a string: "AT"
CF_EXPORT const CFStringRef kCFLocaleScriptCode;         // a string: "Latn"
CF_EXPORT const CFStringRef kCFLocaleVariantCode;        // a string: "POSIX"
CF_EXPORT const CFStringRef kCFLocaleDecimalSeparator;   // a string
CF_EXPORT const CFStringRef kCFLocaleGroupingSeparator;  // a string
CF_EXPORT const CFStringRef kCFLocaleCurrencySymbol;     // a string: "$"
CF_EXPORT const CFStringRef kCFLocaleCurrencyCode;       // a string: "USD"
CF_EXPORT const CFStringRef kCFLocaleUsesMetricSystem;   // a boolean
CF_EXPORT const CFStringRef kCFLocaleMeasurementSystem;  // a string: "Metric" or "U.S."
CF_EXPORT const CFStringRef kCFLocaleCalendarIdentifier; // kCFGregorianCalendar, for every locale

CF_EXPORT const CFStringRef kCFGregorianCalendar;

CF_EXPORT CFTypeID CFLocaleGetTypeID(void);

// The locale of the person who runs the program: what LC_ALL, LC_NUMERIC or LANG says in the environment,
// "en_US" where nobody says anything. The caller releases it.
CF_EXPORT CFLocaleRef CFLocaleCopyCurrent(void);

// The locale that belongs to no language, with an empty identifier: the same for everybody. The caller does
// not own it.
CF_EXPORT CFLocaleRef CFLocaleGetSystem(void);

// Any identifier makes a locale, which has it in its canonical form. The caller releases it.
CF_EXPORT CFLocaleRef CFLocaleCreate(CFAllocatorRef inAllocator, CFStringRef inIdentifier);
CF_EXPORT CFLocaleRef CFLocaleCreateCopy(CFAllocatorRef inAllocator, CFLocaleRef inLocale);

CF_EXPORT CFStringRef CFLocaleGetIdentifier(CFLocaleRef inLocale);

// What the locale has under one of the keys above; NULL for what it does not have, as the country of "en",
// and for other keys. The caller does not own it; it lives as long as the locale.
CF_EXPORT CFTypeRef CFLocaleGetValue(CFLocaleRef inLocale, CFStringRef inKey);

// Those that the host knows, in alphabetical order. The caller releases the array.
CF_EXPORT CFArrayRef CFLocaleCopyAvailableLocaleIdentifiers(void);
// The languages that the person reads, the best first. The caller releases the array.
CF_EXPORT CFArrayRef CFLocaleCopyPreferredLanguages(void);

// "de_AT" of "de-at", "DE_AT" and "de_AT.UTF-8", "en" of "English"; the caller releases it. What has no such
// form stays as it is.
CF_EXPORT CFStringRef CFLocaleCreateCanonicalLocaleIdentifierFromString(CFAllocatorRef inAllocator,
                                                                        CFStringRef inIdentifier);

#endif
