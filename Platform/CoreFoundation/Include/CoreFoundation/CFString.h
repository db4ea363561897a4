// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFString_h
#define CFString_h

// Strings: sequences of UTF-16 code units.
//
// Lengths, positions and ranges count units; a character beyond U+FFFF takes two. A zero unit is a character
// like any other. A range that goes past the end of a string is cut at the end.
//
// Pascal strings start with a byte that holds their length.

#include <CoreFoundation/CFArray.h>
#include <CoreFoundation/CFBase.h>
#include <CoreFoundation/CFData.h>
#include <CoreFoundation/CFDictionary.h>
#include <stdarg.h>

// Only NULL is used as a locale.
typedef const struct __CFLocale* CFLocaleRef;

// How characters become bytes.
typedef UInt32 CFStringEncoding;
enum CF_OF_TYPE(UInt32)
{
    kCFStringEncodingMacRoman = 0,
    kCFStringEncodingWindowsLatin1 = 0x0500,
    kCFStringEncodingISOLatin1 = 0x0201,
    kCFStringEncodingASCII = 0x0600,
    kCFStringEncodingUnicode = 0x0100,
    kCFStringEncodingUTF8 = 0x08000100,
    kCFStringEncodingUTF16 = 0x0100, // the host's byte order, or what a byte order mark says
    kCFStringEncodingUTF16BE = 0x10000100,
    kCFStringEncodingUTF16LE = 0x14000100,
    kCFStringEncodingUTF32 = 0x0C000100, // the host's byte order, or what a byte order mark says
    kCFStringEncodingUTF32BE = 0x18000100,
    kCFStringEncodingUTF32LE = 0x1C000100
};
#define kCFStringEncodingInvalidId (0xFFFFFFFFU)

// How strings are compared; combined with |. 0 compares unit by unit.
typedef CFOptionFlags CFStringCompareFlags;
enum CF_OF_TYPE(CFOptionFlags)
{
    kCFCompareCaseInsensitive = 1,
    kCFCompareBackwards = 4,
    kCFCompareAnchored = 8,
    kCFCompareNonliteral = 16,
    kCFCompareLocalized = 32,
    kCFCompareNumerically = 64
};

// A constant string, made from a literal of ASCII characters. Equal literals give the same object, which is
// never freed.
CF_EXPORT CFStringRef __CFStringMakeConstantString(const char* theLiteral);
#ifdef __cplusplus
#define CFSTR(theLiteral)                                                                                    \
    ([]() -> CFStringRef {                                                                                   \
        static const CFStringRef kString = __CFStringMakeConstantString("" theLiteral "");                   \
        return kString;                                                                                      \
    }())
#else
#define CFSTR(theLiteral) __CFStringMakeConstantString("" theLiteral "")
#endif

CF_EXPORT CFTypeID CFStringGetTypeID(void);

// The encoding of %s in formats: MacRoman.
CF_EXPORT CFStringEncoding CFStringGetSystemEncoding(void);

// Making strings; the caller releases them. Bytes that are no text in the encoding, and an encoding that is
// not supported, give NULL.

CF_EXPORT CFStringRef CFStringCreateWithCString(CFAllocatorRef theAllocator, const char* theText,
                                                CFStringEncoding theEncoding);
CF_EXPORT CFStringRef CFStringCreateWithPascalString(CFAllocatorRef theAllocator, ConstStr255Param theText,
                                                     CFStringEncoding theEncoding);

// Exactly theLength bytes, zero bytes included; theBytes may be NULL when there are none. An external
// representation of UTF-16 or UTF-32 may start with a byte order mark, and is big-endian without one.
CF_EXPORT CFStringRef CFStringCreateWithBytes(CFAllocatorRef theAllocator, const UInt8* theBytes,
                                              CFIndex theLength, CFStringEncoding theEncoding,
                                              Boolean theIsExternalRepresentation);

// Copies units as they are, halves of surrogate pairs included.
CF_EXPORT CFStringRef CFStringCreateWithCharacters(CFAllocatorRef theAllocator, const UniChar* theCharacters,
                                                   CFIndex theLength);

// An immutable string is shared: the result is the same object with one more reference.
CF_EXPORT CFStringRef CFStringCreateCopy(CFAllocatorRef theAllocator, CFStringRef theString);
CF_EXPORT CFStringRef CFStringCreateWithSubstring(CFAllocatorRef theAllocator, CFStringRef theString,
                                                  CFRange theRange);

// Strings that can be changed. The maximum length is the caller's promise and limits nothing; 0 means no
// limit.
CF_EXPORT CFMutableStringRef CFStringCreateMutable(CFAllocatorRef theAllocator, CFIndex theMaximumLength);
CF_EXPORT CFMutableStringRef CFStringCreateMutableCopy(CFAllocatorRef theAllocator, CFIndex theMaximumLength,
                                                       CFStringRef theString);

// Formats as printf does in the "C" locale, whatever the process's locale is, and further knows
//     %@  an object: a string's characters, a number's value, another object's description; "(null)"
//     %C  one UTF-16 unit, passed as an int
//     %S  units up to a zero
//     %P  a Pascal string in the system encoding
//     %s  a C string in the system encoding, which is MacRoman and not UTF-8
//     %1$d  arguments by their position
// Width and precision do nothing to %@, and a precision of 0 does nothing to %s. %n takes an argument and
// writes nothing. An unknown letter is printed. theOptions is NULL.
CF_EXPORT CFStringRef CFStringCreateWithFormat(CFAllocatorRef theAllocator, CFDictionaryRef theOptions,
                                               CFStringRef theFormat, ...);
CF_EXPORT CFStringRef CFStringCreateWithFormatAndArguments(CFAllocatorRef theAllocator,
                                                           CFDictionaryRef theOptions, CFStringRef theFormat,
                                                           va_list theArguments);

// Joins an array of strings; an empty one gives the empty string.
CF_EXPORT CFStringRef CFStringCreateByCombiningStrings(CFAllocatorRef theAllocator, CFArrayRef theStrings,
                                                       CFStringRef theSeparator);
// Splits a string: always one part more than there are separators.
CF_EXPORT CFArrayRef CFStringCreateArrayBySeparatingStrings(CFAllocatorRef theAllocator,
                                                            CFStringRef theString, CFStringRef theSeparator);

// Reading

CF_EXPORT CFIndex CFStringGetLength(CFStringRef theString);
// 0 outside the string.
CF_EXPORT UniChar CFStringGetCharacterAtIndex(CFStringRef theString, CFIndex theIndex);
CF_EXPORT void CFStringGetCharacters(CFStringRef theString, CFRange theRange, UniChar* theBuffer);

// The text and a zero byte, in theSize bytes. False when it does not fit or the encoding lacks a character:
// the buffer's content is then of no use. Never cuts the text.
CF_EXPORT Boolean CFStringGetCString(CFStringRef theString, char* theBuffer, CFIndex theSize,
                                     CFStringEncoding theEncoding);
// The same with a length byte. Only text of up to 255 bytes fits; more than 255 units leave the buffer
// untouched.
CF_EXPORT Boolean CFStringGetPascalString(CFStringRef theString, StringPtr theBuffer, CFIndex theSize,
                                          CFStringEncoding theEncoding);

// Direct access to the characters, where the string happens to be stored so. Always be ready for NULL, and
// then use the functions that copy. The pointer is good until the string is changed or freed.
CF_EXPORT const char* CFStringGetCStringPtr(CFStringRef theString, CFStringEncoding theEncoding);
CF_EXPORT ConstStringPtr CFStringGetPascalStringPtr(CFStringRef theString, CFStringEncoding theEncoding);
CF_EXPORT const UniChar* CFStringGetCharactersPtr(CFStringRef theString);

// Converts a range into bytes, and returns how many units it has converted: fewer than the range has when the
// next character does not fit whole into theSize bytes, or when the encoding lacks it and theLossByte is 0.
//
// theLossByte stands for each unit that the encoding lacks. Half a surrogate pair stops a conversion to
// Unicode bytes even so. theBuffer may be NULL, to measure; theSize is then ignored. *theUsed becomes the
// number of bytes; theUsed may be NULL. No zero byte is added. An external representation of UTF-16 or UTF-32
// in the host's order starts with a byte order mark. An encoding that is not supported gives 0 and leaves
// *theUsed alone.
CF_EXPORT CFIndex CFStringGetBytes(CFStringRef theString, CFRange theRange, CFStringEncoding theEncoding,
                                   UInt8 theLossByte, Boolean theIsExternalRepresentation, UInt8* theBuffer,
                                   CFIndex theSize, CFIndex* theUsed);

// The most bytes that theLength units can take, without a zero byte or mark; kCFNotFound for an encoding that
// is not supported or when the number is too large.
CF_EXPORT CFIndex CFStringGetMaximumSizeForEncoding(CFIndex theLength, CFStringEncoding theEncoding);

// The decimal number at the start, after white space, a sign and white space; 0 when there is none, and the
// end of the range when it is too large.
CF_EXPORT SInt32 CFStringGetIntValue(CFStringRef theString);
// The number at the start, after white space, with '.' as the decimal point in every locale; 0 when there is
// none.
CF_EXPORT double CFStringGetDoubleValue(CFStringRef theString);

// Comparing and searching. Case is folded by Unicode's rules for the characters up to U+FFFF, independent of
// the locale. Backwards and Anchored matter to the Find functions only.

CF_EXPORT CFComparisonResult CFStringCompare(CFStringRef theFirst, CFStringRef theSecond,
                                             CFStringCompareFlags theFlags);
CF_EXPORT CFComparisonResult CFStringCompareWithOptions(CFStringRef theFirst, CFStringRef theSecond,
                                                        CFRange theRangeOfFirst,
                                                        CFStringCompareFlags theFlags);

// On purpose: an empty prefix or suffix is one of no string, not even of the empty one.
CF_EXPORT Boolean CFStringHasPrefix(CFStringRef theString, CFStringRef thePrefix);
CF_EXPORT Boolean CFStringHasSuffix(CFStringRef theString, CFStringRef theSuffix);

// The first place, or the last with kCFCompareBackwards; with kCFCompareAnchored only at the start (or the
// end). Location kCFNotFound and length 0 when there is none; the empty string is found nowhere.
CF_EXPORT CFRange CFStringFind(CFStringRef theString, CFStringRef theWanted, CFStringCompareFlags theFlags);
// The same within a range. theResult may be NULL, and stays untouched when nothing is found.
CF_EXPORT Boolean CFStringFindWithOptions(CFStringRef theString, CFStringRef theWanted, CFRange theRange,
                                          CFStringCompareFlags theFlags, CFRange* theResult);

// Changing mutable strings

// A string may be appended to itself.
CF_EXPORT void CFStringAppend(CFMutableStringRef theString, CFStringRef theAppended);
CF_EXPORT void CFStringAppendCharacters(CFMutableStringRef theString, const UniChar* theCharacters,
                                        CFIndex theLength);
// Bytes that are no text in the encoding leave the string as it is.
CF_EXPORT void CFStringAppendCString(CFMutableStringRef theString, const char* theText,
                                     CFStringEncoding theEncoding);
CF_EXPORT void CFStringAppendPascalString(CFMutableStringRef theString, ConstStr255Param theText,
                                          CFStringEncoding theEncoding);
CF_EXPORT void CFStringAppendFormat(CFMutableStringRef theString, CFDictionaryRef theOptions,
                                    CFStringRef theFormat, ...);
CF_EXPORT void CFStringAppendFormatAndArguments(CFMutableStringRef theString, CFDictionaryRef theOptions,
                                                CFStringRef theFormat, va_list theArguments);
CF_EXPORT void CFStringInsert(CFMutableStringRef theString, CFIndex theIndex, CFStringRef theInserted);
CF_EXPORT void CFStringDelete(CFMutableStringRef theString, CFRange theRange);
CF_EXPORT void CFStringReplace(CFMutableStringRef theString, CFRange theRange, CFStringRef theReplacement);
CF_EXPORT void CFStringReplaceAll(CFMutableStringRef theString, CFStringRef theReplacement);
// Replaces every place within the range, and returns their number.
CF_EXPORT CFIndex CFStringFindAndReplace(CFMutableStringRef theString, CFStringRef theWanted,
                                         CFStringRef theReplacement, CFRange theRange,
                                         CFStringCompareFlags theFlags);
// Takes white space away at both ends.
CF_EXPORT void CFStringTrimWhitespace(CFMutableStringRef theString);
CF_EXPORT void CFStringUppercase(CFMutableStringRef theString, CFLocaleRef theLocale);
CF_EXPORT void CFStringLowercase(CFMutableStringRef theString, CFLocaleRef theLocale);

#endif
