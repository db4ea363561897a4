// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef MacTypes_h
#define MacTypes_h

// The base types that CoreFoundation and Carbon share.
//
// Widths never differ between hosts, except where a comment says so. UInt32 and SInt32 are the long types
// where long has 32 bits, and the int types elsewhere: a printf format needs a cast to long.

#include <ConditionalMacros.h>
#include <stdbool.h>
#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef unsigned char UInt8;
typedef signed char SInt8;
typedef unsigned short UInt16;
typedef signed short SInt16;
typedef UInt8 Byte;
typedef SInt8 SignedByte;
#ifdef __LP64__
typedef unsigned int UInt32;
typedef signed int SInt32;
#else
typedef unsigned long UInt32;
typedef signed long SInt32;
#endif
typedef unsigned long long UInt64;
typedef signed long long SInt64;
typedef float Float32;
typedef double Float64;

// A byte that is 0 or 1; not the bool of C++, so that it has one size everywhere.
typedef unsigned char Boolean;

typedef SInt16 OSErr;
typedef SInt32 OSStatus;

// Four characters, the first in the most significant byte: 'abcd'.
typedef UInt32 FourCharCode;
typedef FourCharCode OSType;
typedef FourCharCode ResType;

typedef UInt32 OptionBits;
typedef unsigned long ByteCount;  // as wide as a pointer
typedef unsigned long ByteOffset; // as wide as a pointer
typedef unsigned long ItemCount;  // as wide as a pointer
typedef long Size;                // as wide as a pointer

// 16 bits before the binary point and 16 after it.
typedef SInt32 Fixed;
// 2 bits before the binary point and 30 after it.
typedef SInt32 Fract;

typedef char* Ptr;
typedef Ptr* Handle;

// Any function; to be called, it is cast to what it is.
typedef long (*ProcPtr)(void); // NOLINT(modernize-redundant-void-arg): C needs it
typedef ProcPtr UniversalProcPtr;

// What an application hands to a call to get it back later. The names are in the headers since Mac OS X 10.5;
// those of 10.4 say SInt32, UInt32 or void* instead.
typedef void* PRefCon;
#ifdef __LP64__
typedef void* URefCon;
typedef void* SRefCon;
#else
typedef UInt32 URefCon;
typedef SInt32 SRefCon;
#endif

// Characters as UTF-16 and UTF-32 code units.
typedef UInt16 UniChar;
typedef UniChar* UniCharPtr;
typedef UInt32 UTF32Char;
typedef unsigned long UniCharCount; // as wide as a pointer

// Pascal strings: the first byte is the length, the text follows, nothing ends it.
typedef unsigned char Str255[256];
typedef unsigned char Str63[64];
typedef unsigned char Str32[33];
typedef unsigned char Str31[32];
typedef unsigned char Str27[28];
typedef unsigned char Str15[16];
typedef unsigned char* StringPtr;
typedef const unsigned char* ConstStringPtr;
typedef const unsigned char* ConstStr255Param;
typedef const unsigned char* ConstStr63Param;
typedef const unsigned char* ConstStr31Param;

// How a byte stands for a character.
typedef UInt32 TextEncoding;

enum
{
    noErr = 0,
    kNilOptions = 0
};

#ifdef __cplusplus
}
#endif

#endif
