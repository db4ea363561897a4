// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFSet_h
#define CFSet_h

// Sets: values, each of them once.
//
// What a set does with its values is told by its callbacks. With &kCFTypeSetCallBacks it retains objects and
// compares them with CFEqual and CFHash. Without callbacks (NULL) it holds plain pointers, neither retained
// nor looked at, and compares addresses.
//
// The order of the values is unspecified. A lookup costs the same however many values there are. A mutable
// string that is changed while it is in a set can no longer be found; kCFCopyStringSetCallBacks copies the
// strings instead.

#include <CoreFoundation/CFBase.h>

typedef const struct __CFSet* CFSetRef;
typedef struct __CFSet* CFMutableSetRef;

typedef const void* (*CFSetRetainCallBack)(CFAllocatorRef inAllocator, const void* inValue);
typedef void (*CFSetReleaseCallBack)(CFAllocatorRef inAllocator, const void* inValue);
typedef CFStringRef (*CFSetCopyDescriptionCallBack)(const void* inValue);
typedef Boolean (*CFSetEqualCallBack)(const void* inFirst, const void* inSecond);
typedef CFHashCode (*CFSetHashCallBack)(const void* inValue);

// Each function may be NULL: values are then not retained, not released, described by their address, compared
// by their address, and hashed by their address. The version is 0.
typedef struct CFSetCallBacks
{
    CFIndex version;
    CFSetRetainCallBack retain;
    CFSetReleaseCallBack release;
    CFSetCopyDescriptionCallBack copyDescription;
    CFSetEqualCallBack equal;
    CFSetHashCallBack hash;
} CFSetCallBacks;

// For values that are objects.
CF_EXPORT const CFSetCallBacks kCFTypeSetCallBacks;
// For values that are strings; the set holds immutable copies of them.
CF_EXPORT const CFSetCallBacks kCFCopyStringSetCallBacks;

typedef void (*CFSetApplierFunction)(const void* inValue, void* inContext);

CF_EXPORT CFTypeID CFSetGetTypeID(void);

// Making sets; the caller releases them. The callbacks are copied.

// Of equal values, the first stays.
CF_EXPORT CFSetRef CFSetCreate(CFAllocatorRef inAllocator, const void** inValues, CFIndex inCount,
                               const CFSetCallBacks* inCallBacks);

// A new immutable set with the same values and callbacks.
CF_EXPORT CFSetRef CFSetCreateCopy(CFAllocatorRef inAllocator, CFSetRef inSet);

// An empty set that can be changed. The capacity is a hint; 0 is the usual argument.
CF_EXPORT CFMutableSetRef CFSetCreateMutable(CFAllocatorRef inAllocator, CFIndex inCapacity,
                                             const CFSetCallBacks* inCallBacks);

CF_EXPORT CFMutableSetRef CFSetCreateMutableCopy(CFAllocatorRef inAllocator, CFIndex inCapacity,
                                                 CFSetRef inSet);

// Reading. Values are not retained for the caller.

CF_EXPORT CFIndex CFSetGetCount(CFSetRef inSet);
// 1 or 0.
CF_EXPORT CFIndex CFSetGetCountOfValue(CFSetRef inSet, const void* inValue);
CF_EXPORT Boolean CFSetContainsValue(CFSetRef inSet, const void* inValue);
// The set's own value that is equal to inValue; NULL when there is none.
CF_EXPORT const void* CFSetGetValue(CFSetRef inSet, const void* inValue);
// Tells a NULL value from an absent one. outValue may be NULL, and stays untouched when the value is absent.
CF_EXPORT Boolean CFSetGetValueIfPresent(CFSetRef inSet, const void* inCandidate, const void** outValue);
// Fills a buffer of CFSetGetCount pointers.
CF_EXPORT void CFSetGetValues(CFSetRef inSet, const void** outValues);
// Calls inFunction with each value. It must not change the set.
CF_EXPORT void CFSetApplyFunction(CFSetRef inSet, CFSetApplierFunction inFunction, void* inContext);

// Changing mutable sets

// Only when no equal value is there; the one that is there stays.
CF_EXPORT void CFSetAddValue(CFMutableSetRef inSet, const void* inValue);
// Only when an equal value is there, whose place inValue takes.
CF_EXPORT void CFSetReplaceValue(CFMutableSetRef inSet, const void* inValue);
// Adds, or takes the place of the equal value that is there.
CF_EXPORT void CFSetSetValue(CFMutableSetRef inSet, const void* inValue);
// Does nothing when no equal value is there.
CF_EXPORT void CFSetRemoveValue(CFMutableSetRef inSet, const void* inValue);
CF_EXPORT void CFSetRemoveAllValues(CFMutableSetRef inSet);

#endif
