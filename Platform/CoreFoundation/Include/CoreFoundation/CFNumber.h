// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFNumber_h
#define CFNumber_h

// Numbers and the two booleans.

#include <CoreFoundation/CFBase.h>

typedef const struct __CFBoolean* CFBooleanRef;
typedef const struct __CFNumber* CFNumberRef;

// Booleans: these two objects, and no others.

CF_EXPORT const CFBooleanRef kCFBooleanTrue;
CF_EXPORT const CFBooleanRef kCFBooleanFalse;

CF_EXPORT CFTypeID CFBooleanGetTypeID(void);
// 1 for kCFBooleanTrue, 0 for everything else, NULL included.
CF_EXPORT Boolean CFBooleanGetValue(CFBooleanRef inBoolean);

// Numbers

// What a number holds (1 to 6), or the C type behind a pointer (all of them).
typedef CFIndex CFNumberType;
enum CF_OF_TYPE(CFIndex)
{
    kCFNumberSInt8Type = 1,
    kCFNumberSInt16Type = 2,
    kCFNumberSInt32Type = 3,
    kCFNumberSInt64Type = 4,
    kCFNumberFloat32Type = 5,
    kCFNumberFloat64Type = 6,
    kCFNumberCharType = 7,
    kCFNumberShortType = 8,
    kCFNumberIntType = 9,
    kCFNumberLongType = 10,
    kCFNumberLongLongType = 11,
    kCFNumberFloatType = 12,
    kCFNumberDoubleType = 13,
    kCFNumberCFIndexType = 14,
    kCFNumberNSIntegerType = 15, // long; since Mac OS X 10.5
    kCFNumberCGFloatType = 16,   // CGFloat, a float on every host; since Mac OS X 10.5
    kCFNumberMaxType = 16        // 14 up to Mac OS X 10.4
};

CF_EXPORT const CFNumberRef kCFNumberNaN;
CF_EXPORT const CFNumberRef kCFNumberPositiveInfinity;
CF_EXPORT const CFNumberRef kCFNumberNegativeInfinity;

CF_EXPORT CFTypeID CFNumberGetTypeID(void);

// Copies the value that inValue points to. The caller releases the number. NULL for an unknown type.
//
// The integers -1 to 12 are shared objects: whatever type they are made with, they are of type
// kCFNumberSInt32Type. NaN and the infinities are the constants above, so of type kCFNumberFloat64Type.
CF_EXPORT CFNumberRef CFNumberCreate(CFAllocatorRef inAllocator, CFNumberType inType, const void* inValue);

// kCFNumberSInt8Type to kCFNumberFloat64Type, never another.
CF_EXPORT CFNumberType CFNumberGetType(CFNumberRef inNumber);
CF_EXPORT CFIndex CFNumberGetByteSize(CFNumberRef inNumber);
CF_EXPORT Boolean CFNumberIsFloatType(CFNumberRef inNumber);

// Converts to the C type that inType names, writes it to outValue, and returns whether it is exact.
//
// A value that is not exact is written all the same: the low bits of an integer that is too large, the
// nearest float or double, a float cut towards zero. A float beyond the integer type's range gives the
// nearest end of that range, NaN gives 0. On purpose: integers up to 255 count as exact in an SInt8, and up
// to 65535 in an SInt16, where they appear as negative numbers; programs keep unsigned values that way.
//
// outValue may be NULL, to ask for the answer only. An unknown type writes nothing and returns false.
CF_EXPORT Boolean CFNumberGetValue(CFNumberRef inNumber, CFNumberType inType, void* outValue);

// Compares by mathematical value, exactly, whatever the types are. -0.0 is less than 0.0 and 0. NaN equals
// itself; it is less than every number from 0 on, and greater than every negative one. The context is not
// used.
CF_EXPORT CFComparisonResult CFNumberCompare(CFNumberRef inNumber, CFNumberRef inOther, void* inContext);

#endif
