// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef TextUtils_h
#define TextUtils_h

// Pascal strings: the first byte is the length, 255 at most. Nothing is done where a string is NULL.

#include <CoreFoundation/CFBase.h>

// The number in decimal digits, with a minus sign when it is negative.
CF_EXPORT void NumToString(long theNum, Str255 theString);

// The decimal number that the string begins with, after a sign perhaps; 0 when there is none. What does not
// fit into 32 bits loses its upper digits, as it always did.
CF_EXPORT void StringToNum(ConstStr255Param theString, long* theNum);

// Copies; a C string longer than 255 bytes is cut off. The destination of the second has room for 256 bytes.
// Source and destination may be the same memory.
CF_EXPORT void CopyCStringToPascal(const char* src, Str255 dst);
CF_EXPORT void CopyPascalStringToC(ConstStr255Param src, char* dst);
// The same with the destination first.
CF_EXPORT void c2pstrcpy(Str255 dst, const char* src);
CF_EXPORT void p2cstrcpy(char* dst, ConstStr255Param src);

// Whether two strings in MacRoman read the same, with capital and small letters (caseSensitive) and letters
// with and without marks (diacSensitive) told apart or not.
CF_EXPORT Boolean EqualString(ConstStr255Param str1, ConstStr255Param str2, Boolean caseSensitive,
                              Boolean diacSensitive);

#endif
