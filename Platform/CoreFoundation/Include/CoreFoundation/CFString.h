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

// See CFLocale.h. The calls here look at no locale: NULL is the one to use.
typedef const struct __CFLocale* CFLocaleRef;

// How characters become bytes.
typedef UInt32 CFStringEncoding;
enum CF_OF_TYPE(UInt32)
{
    kCFStringEncodingMacRoman = 0,
    kCFStringEncodingWindowsLatin1 = 0x0500,
    kCFStringEncodingNextStepLatin = 0x0B01,
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
CF_EXPORT CFStringRef __CFStringMakeConstantString(const char* inLiteral);
#if defined(__cplusplus) && __cplusplus >= 201103L
#define CFSTR(inLiteral)                                                                                     \
    ([]() -> CFStringRef {                                                                                   \
        static const CFStringRef kString = __CFStringMakeConstantString("" inLiteral "");                    \
        return kString;                                                                                      \
    }())
#else
#define CFSTR(inLiteral) __CFStringMakeConstantString("" inLiteral "")
#endif

CF_EXPORT CFTypeID CFStringGetTypeID(void);

// The encoding of %s in formats: MacRoman.
CF_EXPORT CFStringEncoding CFStringGetSystemEncoding(void);

// Making strings; the caller releases them. Bytes that are no text in the encoding, and an encoding that is
// not supported, give NULL.

CF_EXPORT CFStringRef CFStringCreateWithCString(CFAllocatorRef inAllocator, const char* inText,
                                                CFStringEncoding inEncoding);
CF_EXPORT CFStringRef CFStringCreateWithPascalString(CFAllocatorRef inAllocator, ConstStr255Param inText,
                                                     CFStringEncoding inEncoding);

// Exactly inLength bytes, zero bytes included; inBytes may be NULL when there are none. An external
// representation of UTF-16 or UTF-32 may start with a byte order mark, and is big-endian without one. A mark
// before UTF-8 is dropped.
CF_EXPORT CFStringRef CFStringCreateWithBytes(CFAllocatorRef inAllocator, const UInt8* inBytes,
                                              CFIndex inLength, CFStringEncoding inEncoding,
                                              Boolean inIsExternalRepresentation);

// Copies units as they are, halves of surrogate pairs included.
CF_EXPORT CFStringRef CFStringCreateWithCharacters(CFAllocatorRef inAllocator, const UniChar* inCharacters,
                                                   CFIndex inLength);

// An immutable string is shared: the result is the same object with one more reference.
CF_EXPORT CFStringRef CFStringCreateCopy(CFAllocatorRef inAllocator, CFStringRef inString);
CF_EXPORT CFStringRef CFStringCreateWithSubstring(CFAllocatorRef inAllocator, CFStringRef inString,
                                                  CFRange inRange);

// Strings that can be changed. The maximum length is the caller's promise and limits nothing; 0 means no
// limit.
CF_EXPORT CFMutableStringRef CFStringCreateMutable(CFAllocatorRef inAllocator, CFIndex inMaximumLength);
CF_EXPORT CFMutableStringRef CFStringCreateMutableCopy(CFAllocatorRef inAllocator, CFIndex inMaximumLength,
                                                       CFStringRef inString);

// Formats as printf does in the "C" locale, whatever the process's locale is, and further knows
//     %@  an object: a string's characters, a number's value, another object's description; "(null)"
//     %C  one UTF-16 unit, passed as an int
//     %S  units up to a zero
//     %P  a Pascal string in the system encoding
//     %s  a C string in the system encoding, which is MacRoman and not UTF-8
//     %1$d  arguments by their position
// Width and precision do nothing to %@; a width does nothing to %C and to a text that is NULL; and a
// precision of 0 does nothing to %s unless it is an argument ("%.*s"). Widths, and the digits that a
// precision asks for, end at 65,535. %n takes an argument and writes nothing. An unknown letter is printed.
// inOptions is NULL.
CF_EXPORT CFStringRef CFStringCreateWithFormat(CFAllocatorRef inAllocator, CFDictionaryRef inOptions,
                                               CFStringRef inFormat, ...);
CF_EXPORT CFStringRef CFStringCreateWithFormatAndArguments(CFAllocatorRef inAllocator,
                                                           CFDictionaryRef inOptions, CFStringRef inFormat,
                                                           va_list inArguments);

// Joins an array of strings; an empty one gives the empty string.
CF_EXPORT CFStringRef CFStringCreateByCombiningStrings(CFAllocatorRef inAllocator, CFArrayRef inStrings,
                                                       CFStringRef inSeparator);
// Splits a string: always one part more than there are separators.
CF_EXPORT CFArrayRef CFStringCreateArrayBySeparatingStrings(CFAllocatorRef inAllocator, CFStringRef inString,
                                                            CFStringRef inSeparator);

// Reading

CF_EXPORT CFIndex CFStringGetLength(CFStringRef inString);
// 0 outside the string.
CF_EXPORT UniChar CFStringGetCharacterAtIndex(CFStringRef inString, CFIndex inIndex);
CF_EXPORT void CFStringGetCharacters(CFStringRef inString, CFRange inRange, UniChar* outBuffer);

// The text and a zero byte, in inSize bytes. False when it does not fit or the encoding lacks a character:
// the buffer's content is then of no use. Never cuts the text.
CF_EXPORT Boolean CFStringGetCString(CFStringRef inString, char* outBuffer, CFIndex inSize,
                                     CFStringEncoding inEncoding);
// The same with a length byte. Only text of up to 255 bytes fits; more than 255 units leave the buffer
// untouched.
CF_EXPORT Boolean CFStringGetPascalString(CFStringRef inString, StringPtr outBuffer, CFIndex inSize,
                                          CFStringEncoding inEncoding);

// Direct access to the characters, where the string happens to be stored so. Always be ready for NULL, and
// then use the functions that copy. The pointer is good until the string is changed or freed.
// A constant in ASCII has a C string, for kCFStringEncodingMacRoman.
CF_EXPORT const char* CFStringGetCStringPtr(CFStringRef inString, CFStringEncoding inEncoding);
CF_EXPORT ConstStringPtr CFStringGetPascalStringPtr(CFStringRef inString, CFStringEncoding inEncoding);
CF_EXPORT const UniChar* CFStringGetCharactersPtr(CFStringRef inString);

// Converts a range into bytes, and returns how many units it has converted: fewer than the range has when the
// next character does not fit whole into inSize bytes, or when the encoding lacks it and inLossByte is 0.
//
// inLossByte stands for each unit that the encoding lacks. Half a surrogate pair stops a conversion to
// Unicode bytes even so. outBuffer may be NULL, to measure; inSize is then ignored. *outUsed becomes the
// number of bytes; outUsed may be NULL. No zero byte is added. An external representation of UTF-16 or UTF-32
// in the host's order starts with a byte order mark. An encoding that is not supported gives 0 and leaves
// *outUsed alone.
CF_EXPORT CFIndex CFStringGetBytes(CFStringRef inString, CFRange inRange, CFStringEncoding inEncoding,
                                   UInt8 inLossByte, Boolean inIsExternalRepresentation, UInt8* outBuffer,
                                   CFIndex inSize, CFIndex* outUsed);

// The most bytes that inLength units can take, without a zero byte or mark; kCFNotFound for an encoding that
// is not supported or when the number is too large.
CF_EXPORT CFIndex CFStringGetMaximumSizeForEncoding(CFIndex inLength, CFStringEncoding inEncoding);

// The decimal number at the start, after white space, a sign and white space; 0 when there is none, and the
// end of the range when it is too large.
CF_EXPORT SInt32 CFStringGetIntValue(CFStringRef inString);
// The number at the start, after white space, with '.' as the decimal point in every locale; 0 when there is
// none.
CF_EXPORT double CFStringGetDoubleValue(CFStringRef inString);

// Comparing and searching. Case is folded by Unicode's rules for the characters up to U+FFFF, independent of
// the locale. Backwards and Anchored matter to the Find functions only.

CF_EXPORT CFComparisonResult CFStringCompare(CFStringRef inFirst, CFStringRef inSecond,
                                             CFStringCompareFlags inFlags);
CF_EXPORT CFComparisonResult CFStringCompareWithOptions(CFStringRef inFirst, CFStringRef inSecond,
                                                        CFRange inRangeOfFirst, CFStringCompareFlags inFlags);

// On purpose: an empty prefix or suffix is one of no string, not even of the empty one.
CF_EXPORT Boolean CFStringHasPrefix(CFStringRef inString, CFStringRef inPrefix);
CF_EXPORT Boolean CFStringHasSuffix(CFStringRef inString, CFStringRef inSuffix);

// The first place, or the last with kCFCompareBackwards; with kCFCompareAnchored only at the start (or the
// end). Location kCFNotFound and length 0 when there is none; the empty string is found nowhere.
CF_EXPORT CFRange CFStringFind(CFStringRef inString, CFStringRef inWanted, CFStringCompareFlags inFlags);
// The same within a range. outResult may be NULL, and stays untouched when nothing is found.
CF_EXPORT Boolean CFStringFindWithOptions(CFStringRef inString, CFStringRef inWanted, CFRange inRange,
                                          CFStringCompareFlags inFlags, CFRange* outResult);

// Changing mutable strings

// A string may be appended to itself.
CF_EXPORT void CFStringAppend(CFMutableStringRef inString, CFStringRef inAppended);
CF_EXPORT void CFStringAppendCharacters(CFMutableStringRef inString, const UniChar* inCharacters,
                                        CFIndex inLength);
// Bytes that are no text in the encoding leave the string as it is.
CF_EXPORT void CFStringAppendCString(CFMutableStringRef inString, const char* inText,
                                     CFStringEncoding inEncoding);
CF_EXPORT void CFStringAppendPascalString(CFMutableStringRef inString, ConstStr255Param inText,
                                          CFStringEncoding inEncoding);
CF_EXPORT void CFStringAppendFormat(CFMutableStringRef inString, CFDictionaryRef inOptions,
                                    CFStringRef inFormat, ...);
CF_EXPORT void CFStringAppendFormatAndArguments(CFMutableStringRef inString, CFDictionaryRef inOptions,
                                                CFStringRef inFormat, va_list inArguments);
CF_EXPORT void CFStringInsert(CFMutableStringRef inString, CFIndex inIndex, CFStringRef inInserted);
CF_EXPORT void CFStringDelete(CFMutableStringRef inString, CFRange inRange);
CF_EXPORT void CFStringReplace(CFMutableStringRef inString, CFRange inRange, CFStringRef inReplacement);
CF_EXPORT void CFStringReplaceAll(CFMutableStringRef inString, CFStringRef inReplacement);
// Replaces every place within the range, and returns their number.
CF_EXPORT CFIndex CFStringFindAndReplace(CFMutableStringRef inString, CFStringRef inWanted,
                                         CFStringRef inReplacement, CFRange inRange,
                                         CFStringCompareFlags inFlags);
// Makes the string inLength units long: cuts it off, or appends units of inPad, from inIndex on and from its
// start again as often as needed. inPad is NULL or empty when there is only to be cut.
CF_EXPORT void CFStringPad(CFMutableStringRef inString, CFStringRef inPad, CFIndex inLength, CFIndex inIndex);
// Takes white space away at both ends.
CF_EXPORT void CFStringTrimWhitespace(CFMutableStringRef inString);
CF_EXPORT void CFStringUppercase(CFMutableStringRef inString, CFLocaleRef inLocale);
CF_EXPORT void CFStringLowercase(CFMutableStringRef inString, CFLocaleRef inLocale);
// The first letter of each word in upper case, or in title case where that is another, and the rest in lower
// case. A word is a run of letters, with the apostrophes and marks within it; a digit or a hyphen ends it:
// "don't STOP 2nd-hand" becomes "Don't Stop 2Nd-Hand".
CF_EXPORT void CFStringCapitalize(CFMutableStringRef inString, CFLocaleRef inLocale);

// Surrogate pairs: the two units of a character beyond U+FFFF. The headers of Mac OS X 10.4 do not have these
// functions; compiled with newer ones, they run there too, as they are part of the program itself.

CF_INLINE Boolean CFStringIsSurrogateHighCharacter(UniChar inUnit)
{
    return inUnit >= 0xD800 && inUnit <= 0xDBFF;
}

CF_INLINE Boolean CFStringIsSurrogateLowCharacter(UniChar inUnit)
{
    return inUnit >= 0xDC00 && inUnit <= 0xDFFF;
}

// The character of a pair; of use only when the units are one.
CF_INLINE UTF32Char CFStringGetLongCharacterForSurrogatePair(UniChar inHigh, UniChar inLow)
{
    return (((UTF32Char)inHigh - 0xD800) << 10) + ((UTF32Char)inLow - 0xDC00) + 0x10000;
}

// Writes the two units of a character beyond U+FFFF, and gives true. Of a character up to U+FFFF it writes
// the one unit, and gives false. False also, with nothing written, for a number beyond the last character.
CF_INLINE Boolean CFStringGetSurrogatePairForLongCharacter(UTF32Char inCharacter, UniChar* outUnits)
{
    if (inCharacter > 0xFFFF && inCharacter < 0x110000) {
        outUnits[0] = (UniChar)(0xD800 + ((inCharacter - 0x10000) >> 10));
        outUnits[1] = (UniChar)(0xDC00 + (inCharacter & 0x3FF));
        return 1;
    }
    if (inCharacter <= 0xFFFF) {
        outUnits[0] = (UniChar)inCharacter;
    }
    return 0;
}

#endif
