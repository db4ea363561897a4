// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFArray_h
#define CFArray_h

// Arrays: ordered sequences of pointers, counted from 0.
//
// What an array does with a value that is put in, taken out, compared or described is told by its callbacks.
// With &kCFTypeArrayCallBacks it retains objects and compares them with CFEqual. Without callbacks (NULL) it
// holds plain pointers, neither retained nor looked at, and compares addresses.
//
// A position or range outside the array ends the process with a message.

#include <CoreFoundation/CFBase.h>

typedef const struct __CFArray* CFArrayRef;
typedef struct __CFArray* CFMutableArrayRef;

typedef const void* (*CFArrayRetainCallBack)(CFAllocatorRef inAllocator, const void* inValue);
typedef void (*CFArrayReleaseCallBack)(CFAllocatorRef inAllocator, const void* inValue);
typedef CFStringRef (*CFArrayCopyDescriptionCallBack)(const void* inValue);
typedef Boolean (*CFArrayEqualCallBack)(const void* inFirst, const void* inSecond);

// Each function may be NULL: values are then not retained, not released, described by their address, and
// compared by their address. The version is 0.
typedef struct CFArrayCallBacks
{
    CFIndex version;
    CFArrayRetainCallBack retain;
    CFArrayReleaseCallBack release;
    CFArrayCopyDescriptionCallBack copyDescription;
    CFArrayEqualCallBack equal;
} CFArrayCallBacks;

// For arrays of objects.
CF_EXPORT const CFArrayCallBacks kCFTypeArrayCallBacks;

typedef void (*CFArrayApplierFunction)(const void* inValue, void* inContext);

CF_EXPORT CFTypeID CFArrayGetTypeID(void);

// Making arrays; the caller releases them.

// Holds inCount values, each retained; inValues may be NULL when inCount is 0. The callbacks are copied.
CF_EXPORT CFArrayRef CFArrayCreate(CFAllocatorRef inAllocator, const void** inValues, CFIndex inCount,
                                   const CFArrayCallBacks* inCallBacks);

// A new immutable array with the same values and callbacks.
CF_EXPORT CFArrayRef CFArrayCreateCopy(CFAllocatorRef inAllocator, CFArrayRef inArray);

// An empty array that can be changed. The capacity is a hint; 0 is the usual argument.
CF_EXPORT CFMutableArrayRef CFArrayCreateMutable(CFAllocatorRef inAllocator, CFIndex inCapacity,
                                                 const CFArrayCallBacks* inCallBacks);

CF_EXPORT CFMutableArrayRef CFArrayCreateMutableCopy(CFAllocatorRef inAllocator, CFIndex inCapacity,
                                                     CFArrayRef inArray);

// Reading. Values are not retained for the caller.

CF_EXPORT CFIndex CFArrayGetCount(CFArrayRef inArray);
CF_EXPORT const void* CFArrayGetValueAtIndex(CFArrayRef inArray, CFIndex inIndex);
CF_EXPORT void CFArrayGetValues(CFArrayRef inArray, CFRange inRange, const void** outValues);

CF_EXPORT Boolean CFArrayContainsValue(CFArrayRef inArray, CFRange inRange, const void* inValue);
// The place counted from the array's start, or kCFNotFound.
CF_EXPORT CFIndex CFArrayGetFirstIndexOfValue(CFArrayRef inArray, CFRange inRange, const void* inValue);
CF_EXPORT CFIndex CFArrayGetLastIndexOfValue(CFArrayRef inArray, CFRange inRange, const void* inValue);
CF_EXPORT CFIndex CFArrayGetCountOfValue(CFArrayRef inArray, CFRange inRange, const void* inValue);

// Calls inFunction with each value of the range, in order. It must not change the array.
CF_EXPORT void CFArrayApplyFunction(CFArrayRef inArray, CFRange inRange, CFArrayApplierFunction inFunction,
                                    void* inContext);

// Changing mutable arrays

CF_EXPORT void CFArrayAppendValue(CFMutableArrayRef inArray, const void* inValue);
CF_EXPORT void CFArrayAppendArray(CFMutableArrayRef inArray, CFArrayRef inOther, CFRange inRange);
// An index equal to the count appends.
CF_EXPORT void CFArrayInsertValueAtIndex(CFMutableArrayRef inArray, CFIndex inIndex, const void* inValue);
// Replaces a value; an index equal to the count appends.
CF_EXPORT void CFArraySetValueAtIndex(CFMutableArrayRef inArray, CFIndex inIndex, const void* inValue);
CF_EXPORT void CFArrayRemoveValueAtIndex(CFMutableArrayRef inArray, CFIndex inIndex);
CF_EXPORT void CFArrayRemoveAllValues(CFMutableArrayRef inArray);
CF_EXPORT void CFArrayExchangeValuesAtIndices(CFMutableArrayRef inArray, CFIndex inFirst, CFIndex inSecond);
// Sorts the range; values that compare equal keep their order.
CF_EXPORT void CFArraySortValues(CFMutableArrayRef inArray, CFRange inRange,
                                 CFComparatorFunction inComparator, void* inContext);

// Where inValue is in a range that is sorted, by bisection: the index of a value that compares equal; when
// there is none, the index of the first that is greater, or the end of the range.
CF_EXPORT CFIndex CFArrayBSearchValues(CFArrayRef inArray, CFRange inRange, const void* inValue,
                                       CFComparatorFunction inComparator, void* inContext);

#endif
