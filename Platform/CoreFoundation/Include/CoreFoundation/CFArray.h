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

typedef const void* (*CFArrayRetainCallBack)(CFAllocatorRef theAllocator, const void* theValue);
typedef void (*CFArrayReleaseCallBack)(CFAllocatorRef theAllocator, const void* theValue);
typedef CFStringRef (*CFArrayCopyDescriptionCallBack)(const void* theValue);
typedef Boolean (*CFArrayEqualCallBack)(const void* theFirst, const void* theSecond);

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

typedef void (*CFArrayApplierFunction)(const void* theValue, void* theContext);

CF_EXPORT CFTypeID CFArrayGetTypeID(void);

// Making arrays; the caller releases them.

// Holds theCount values, each retained; theValues may be NULL when theCount is 0. The callbacks are copied.
CF_EXPORT CFArrayRef CFArrayCreate(CFAllocatorRef theAllocator, const void** theValues, CFIndex theCount,
                                   const CFArrayCallBacks* theCallBacks);

// A new immutable array with the same values and callbacks.
CF_EXPORT CFArrayRef CFArrayCreateCopy(CFAllocatorRef theAllocator, CFArrayRef theArray);

// An empty array that can be changed. The capacity is a hint; 0 is the usual argument.
CF_EXPORT CFMutableArrayRef CFArrayCreateMutable(CFAllocatorRef theAllocator, CFIndex theCapacity,
                                                 const CFArrayCallBacks* theCallBacks);

CF_EXPORT CFMutableArrayRef CFArrayCreateMutableCopy(CFAllocatorRef theAllocator, CFIndex theCapacity,
                                                     CFArrayRef theArray);

// Reading. Values are not retained for the caller.

CF_EXPORT CFIndex CFArrayGetCount(CFArrayRef theArray);
CF_EXPORT const void* CFArrayGetValueAtIndex(CFArrayRef theArray, CFIndex theIndex);
CF_EXPORT void CFArrayGetValues(CFArrayRef theArray, CFRange theRange, const void** theValues);

CF_EXPORT Boolean CFArrayContainsValue(CFArrayRef theArray, CFRange theRange, const void* theValue);
// The place counted from the array's start, or kCFNotFound.
CF_EXPORT CFIndex CFArrayGetFirstIndexOfValue(CFArrayRef theArray, CFRange theRange, const void* theValue);
CF_EXPORT CFIndex CFArrayGetLastIndexOfValue(CFArrayRef theArray, CFRange theRange, const void* theValue);
CF_EXPORT CFIndex CFArrayGetCountOfValue(CFArrayRef theArray, CFRange theRange, const void* theValue);

// Calls theFunction with each value of the range, in order. It must not change the array.
CF_EXPORT void CFArrayApplyFunction(CFArrayRef theArray, CFRange theRange, CFArrayApplierFunction theFunction,
                                    void* theContext);

// Changing mutable arrays

CF_EXPORT void CFArrayAppendValue(CFMutableArrayRef theArray, const void* theValue);
CF_EXPORT void CFArrayAppendArray(CFMutableArrayRef theArray, CFArrayRef theOther, CFRange theRange);
// An index equal to the count appends.
CF_EXPORT void CFArrayInsertValueAtIndex(CFMutableArrayRef theArray, CFIndex theIndex, const void* theValue);
// Replaces a value; an index equal to the count appends.
CF_EXPORT void CFArraySetValueAtIndex(CFMutableArrayRef theArray, CFIndex theIndex, const void* theValue);
CF_EXPORT void CFArrayRemoveValueAtIndex(CFMutableArrayRef theArray, CFIndex theIndex);
CF_EXPORT void CFArrayRemoveAllValues(CFMutableArrayRef theArray);
CF_EXPORT void CFArrayExchangeValuesAtIndices(CFMutableArrayRef theArray, CFIndex theFirst,
                                              CFIndex theSecond);
// Sorts the range; values that compare equal keep their order.
CF_EXPORT void CFArraySortValues(CFMutableArrayRef theArray, CFRange theRange,
                                 CFComparatorFunction theComparator, void* theContext);

#endif
