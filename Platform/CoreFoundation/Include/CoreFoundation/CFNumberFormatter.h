// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFNumberFormatter_h
#define CFNumberFormatter_h

// Numbers as people write them: "1,234.50" in New York is "1.234,50" in Berlin.
//
// A formatter writes numbers and reads them, in one locale and one style. Its format is a pattern of Unicode
// (UTS #35), and can be replaced: 0 is a digit that is always written, # one that is written when it is
// needed, "." and "," the two separators, % hundredths, the currency sign the currency, E0 the exponent; what
// stands behind a semicolon is for negative numbers. Its properties override single points.
//
// A formatter is used by one thread at a time. Rounding is to the nearest, from the middle to the even digit,
// unless the property says otherwise.

#include <CoreFoundation/CFBase.h>
#include <CoreFoundation/CFLocale.h>
#include <CoreFoundation/CFNumber.h>
#include <CoreFoundation/CFString.h>

typedef struct __CFNumberFormatter* CFNumberFormatterRef;

typedef CFIndex CFNumberFormatterStyle;
enum CF_OF_TYPE(CFIndex)
{
    kCFNumberFormatterNoStyle = 0, // 1235, without a fraction
    kCFNumberFormatterDecimalStyle = 1,
    kCFNumberFormatterCurrencyStyle = 2,
    kCFNumberFormatterPercentStyle = 3,
    kCFNumberFormatterScientificStyle = 4,
    kCFNumberFormatterSpellOutStyle = 5 // in words
};

typedef CFOptionFlags CFNumberFormatterOptionFlags;
enum CF_OF_TYPE(CFOptionFlags)
{
    kCFNumberFormatterParseIntegersOnly = 1 // reading ends at the decimal separator
};

typedef CFIndex CFNumberFormatterRoundingMode;
enum CF_OF_TYPE(CFIndex)
{
    kCFNumberFormatterRoundCeiling = 0,
    kCFNumberFormatterRoundFloor = 1,
    kCFNumberFormatterRoundDown = 2, // towards zero
    kCFNumberFormatterRoundUp = 3,   // away from it
    kCFNumberFormatterRoundHalfEven = 4,
    kCFNumberFormatterRoundHalfDown = 5,
    kCFNumberFormatterRoundHalfUp = 6
};

typedef CFIndex CFNumberFormatterPadPosition;
enum CF_OF_TYPE(CFIndex)
{
    kCFNumberFormatterPadBeforePrefix = 0,
    kCFNumberFormatterPadAfterPrefix = 1,
    kCFNumberFormatterPadBeforeSuffix = 2,
    kCFNumberFormatterPadAfterSuffix = 3
};

// Properties, and what each is. Strings may be of any length.
CF_EXPORT const CFStringRef kCFNumberFormatterCurrencyCode;               // a string: "EUR"
CF_EXPORT const CFStringRef kCFNumberFormatterDecimalSeparator;           // a string
CF_EXPORT const CFStringRef kCFNumberFormatterCurrencyDecimalSeparator;   // a string
CF_EXPORT const CFStringRef kCFNumberFormatterAlwaysShowDecimalSeparator; // a boolean
CF_EXPORT const CFStringRef kCFNumberFormatterGroupingSeparator;          // a string
CF_EXPORT const CFStringRef kCFNumberFormatterUseGroupingSeparator;       // a boolean
CF_EXPORT const CFStringRef kCFNumberFormatterPercentSymbol;              // a string
CF_EXPORT const CFStringRef kCFNumberFormatterZeroSymbol;                 // a string: what 0 is written as
CF_EXPORT const CFStringRef kCFNumberFormatterNaNSymbol;                  // a string
CF_EXPORT const CFStringRef kCFNumberFormatterInfinitySymbol;             // a string
CF_EXPORT const CFStringRef kCFNumberFormatterMinusSign;                  // a string
CF_EXPORT const CFStringRef kCFNumberFormatterPlusSign;                   // a string
CF_EXPORT const CFStringRef kCFNumberFormatterCurrencySymbol;             // a string
CF_EXPORT const CFStringRef kCFNumberFormatterExponentSymbol;             // a string
CF_EXPORT const CFStringRef kCFNumberFormatterMinIntegerDigits;           // a number, as all below
CF_EXPORT const CFStringRef kCFNumberFormatterMaxIntegerDigits;
CF_EXPORT const CFStringRef kCFNumberFormatterMinFractionDigits;
CF_EXPORT const CFStringRef kCFNumberFormatterMaxFractionDigits;
CF_EXPORT const CFStringRef kCFNumberFormatterGroupingSize;
CF_EXPORT const CFStringRef kCFNumberFormatterSecondaryGroupingSize;
CF_EXPORT const CFStringRef kCFNumberFormatterRoundingMode;
CF_EXPORT const CFStringRef kCFNumberFormatterRoundingIncrement; // 0 for none
CF_EXPORT const CFStringRef kCFNumberFormatterFormatWidth;       // shorter texts are padded; 0 for none
CF_EXPORT const CFStringRef kCFNumberFormatterPaddingPosition;
CF_EXPORT const CFStringRef kCFNumberFormatterPaddingCharacter; // a string
CF_EXPORT const CFStringRef kCFNumberFormatterDefaultFormat;    // a string: the format of the style
CF_EXPORT const CFStringRef kCFNumberFormatterMultiplier; // a number: what is written is so many times more
CF_EXPORT const CFStringRef kCFNumberFormatterPositivePrefix; // strings, up to here
CF_EXPORT const CFStringRef kCFNumberFormatterPositiveSuffix;
CF_EXPORT const CFStringRef kCFNumberFormatterNegativePrefix;
CF_EXPORT const CFStringRef kCFNumberFormatterNegativeSuffix;
CF_EXPORT const CFStringRef kCFNumberFormatterPerMillSymbol;
CF_EXPORT const CFStringRef kCFNumberFormatterInternationalCurrencySymbol; // a string: "USD"
CF_EXPORT const CFStringRef kCFNumberFormatterCurrencyGroupingSeparator;   // a string; since Mac OS X 10.5
CF_EXPORT const CFStringRef kCFNumberFormatterIsLenient; // a boolean, at first false; since Mac OS X 10.5

CF_EXPORT CFTypeID CFNumberFormatterGetTypeID(void);

// NULL for the locale is the person's. NULL for a style that the host does not have. The caller releases it.
CF_EXPORT CFNumberFormatterRef CFNumberFormatterCreate(CFAllocatorRef inAllocator, CFLocaleRef inLocale,
                                                       CFNumberFormatterStyle inStyle);
CF_EXPORT CFLocaleRef CFNumberFormatterGetLocale(CFNumberFormatterRef inFormatter);
CF_EXPORT CFNumberFormatterStyle CFNumberFormatterGetStyle(CFNumberFormatterRef inFormatter);

// The format lives until the formatter is changed. It is empty for numbers in words, which have none.
CF_EXPORT CFStringRef CFNumberFormatterGetFormat(CFNumberFormatterRef inFormatter);
// A format that is none changes nothing.
CF_EXPORT void CFNumberFormatterSetFormat(CFNumberFormatterRef inFormatter, CFStringRef inFormat);

// The number as text. The caller releases it. NULL for an unknown type.
CF_EXPORT CFStringRef CFNumberFormatterCreateStringWithNumber(CFAllocatorRef inAllocator,
                                                              CFNumberFormatterRef inFormatter,
                                                              CFNumberRef inNumber);
CF_EXPORT CFStringRef CFNumberFormatterCreateStringWithValue(CFAllocatorRef inAllocator,
                                                             CFNumberFormatterRef inFormatter,
                                                             CFNumberType inType, const void* inValue);

// The number that the text starts with, in the range that ioRange points to, or in all of it for NULL. What
// was read is then in ioRange: compare its length to see whether something follows. NULL, and false, when
// there is no number, or none that the type holds; ioRange stays as it was then. An integer type reads as
// with kCFNumberFormatterParseIntegersOnly.
//
// The number is of 64 bits with that option, and a double without. The caller releases it.
CF_EXPORT CFNumberRef CFNumberFormatterCreateNumberFromString(CFAllocatorRef inAllocator,
                                                              CFNumberFormatterRef inFormatter,
                                                              CFStringRef inString, CFRange* ioRange,
                                                              CFOptionFlags inOptions);
CF_EXPORT Boolean CFNumberFormatterGetValueFromString(CFNumberFormatterRef inFormatter, CFStringRef inString,
                                                      CFRange* ioRange, CFNumberType inType, void* outValue);

// Sets a property; for a key that is none of the above, or a value that is none for it, nothing happens.
CF_EXPORT void CFNumberFormatterSetProperty(CFNumberFormatterRef inFormatter, CFStringRef inKey,
                                            CFTypeRef inValue);
// NULL for a key that is none, and for what the style does not have. The caller releases it.
CF_EXPORT CFTypeRef CFNumberFormatterCopyProperty(CFNumberFormatterRef inFormatter, CFStringRef inKey);

// How many digits a currency has behind the decimal separator ("JPY" has none), and what amounts are rounded
// to, 0 for nothing else. False for a code that is unknown. Either pointer may be NULL.
CF_EXPORT Boolean CFNumberFormatterGetDecimalInfoForCurrencyCode(CFStringRef inCurrencyCode,
                                                                 SInt32* outFractionDigits,
                                                                 double* outRoundingIncrement);

#endif
