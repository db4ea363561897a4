// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFDictionary_h
#define CFDictionary_h

// Dictionaries: values found by their keys.
//
// What a dictionary does with keys and values is told by its callbacks. With &kCFTypeDictionaryKeyCallBacks
// and &kCFTypeDictionaryValueCallBacks it retains objects and compares them with CFEqual and CFHash. Without
// callbacks (NULL) it holds plain pointers, neither retained nor looked at, and compares addresses.
//
// The order of the keys is unspecified. A lookup costs the same however many keys there are. A mutable
// string that is changed while it is a key can no longer be found; kCFCopyStringDictionaryKeyCallBacks
// copies the keys instead.

#include <CoreFoundation/CFBase.h>

typedef const struct __CFDictionary* CFDictionaryRef;
typedef struct __CFDictionary* CFMutableDictionaryRef;

typedef const void* (*CFDictionaryRetainCallBack)(CFAllocatorRef theAllocator, const void* theValue);
typedef void (*CFDictionaryReleaseCallBack)(CFAllocatorRef theAllocator, const void* theValue);
typedef CFStringRef (*CFDictionaryCopyDescriptionCallBack)(const void* theValue);
typedef Boolean (*CFDictionaryEqualCallBack)(const void* theFirst, const void* theSecond);
typedef CFHashCode (*CFDictionaryHashCallBack)(const void* theValue);

// Each function may be NULL: keys are then not retained, not released, described by their address, compared
// by their address, and hashed by their address. The version is 0.
typedef struct CFDictionaryKeyCallBacks
{
    CFIndex version;
    CFDictionaryRetainCallBack retain;
    CFDictionaryReleaseCallBack release;
    CFDictionaryCopyDescriptionCallBack copyDescription;
    CFDictionaryEqualCallBack equal;
    CFDictionaryHashCallBack hash;
} CFDictionaryKeyCallBacks;

typedef struct CFDictionaryValueCallBacks
{
    CFIndex version;
    CFDictionaryRetainCallBack retain;
    CFDictionaryReleaseCallBack release;
    CFDictionaryCopyDescriptionCallBack copyDescription;
    CFDictionaryEqualCallBack equal;
} CFDictionaryValueCallBacks;

// For keys and values that are objects.
CF_EXPORT const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks;
CF_EXPORT const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks;
// For keys that are strings; the dictionary holds immutable copies of them.
CF_EXPORT const CFDictionaryKeyCallBacks kCFCopyStringDictionaryKeyCallBacks;

typedef void (*CFDictionaryApplierFunction)(const void* theKey, const void* theValue, void* theContext);

CF_EXPORT CFTypeID CFDictionaryGetTypeID(void);

// Making dictionaries; the caller releases them. The callbacks are copied.

// Of a key that is given twice, the first value stays.
CF_EXPORT CFDictionaryRef CFDictionaryCreate(CFAllocatorRef theAllocator, const void** theKeys,
                                             const void** theValues, CFIndex theCount,
                                             const CFDictionaryKeyCallBacks* theKeyCallBacks,
                                             const CFDictionaryValueCallBacks* theValueCallBacks);

// A new immutable dictionary with the same keys, values and callbacks.
CF_EXPORT CFDictionaryRef CFDictionaryCreateCopy(CFAllocatorRef theAllocator, CFDictionaryRef theDictionary);

// An empty dictionary that can be changed. The capacity is a hint; 0 is the usual argument.
CF_EXPORT CFMutableDictionaryRef CFDictionaryCreateMutable(
    CFAllocatorRef theAllocator, CFIndex theCapacity, const CFDictionaryKeyCallBacks* theKeyCallBacks,
    const CFDictionaryValueCallBacks* theValueCallBacks);

CF_EXPORT CFMutableDictionaryRef CFDictionaryCreateMutableCopy(CFAllocatorRef theAllocator,
                                                               CFIndex theCapacity,
                                                               CFDictionaryRef theDictionary);

// Reading. Keys and values are not retained for the caller.

CF_EXPORT CFIndex CFDictionaryGetCount(CFDictionaryRef theDictionary);
// 1 or 0.
CF_EXPORT CFIndex CFDictionaryGetCountOfKey(CFDictionaryRef theDictionary, const void* theKey);
CF_EXPORT CFIndex CFDictionaryGetCountOfValue(CFDictionaryRef theDictionary, const void* theValue);
CF_EXPORT Boolean CFDictionaryContainsKey(CFDictionaryRef theDictionary, const void* theKey);
CF_EXPORT Boolean CFDictionaryContainsValue(CFDictionaryRef theDictionary, const void* theValue);
// NULL when there is no such key.
CF_EXPORT const void* CFDictionaryGetValue(CFDictionaryRef theDictionary, const void* theKey);
// Tells a NULL value from an absent one. theValue may be NULL, and stays untouched when the key is absent.
CF_EXPORT Boolean CFDictionaryGetValueIfPresent(CFDictionaryRef theDictionary, const void* theKey,
                                                const void** theValue);
// Fills two buffers of CFDictionaryGetCount pointers each; either may be NULL.
CF_EXPORT void CFDictionaryGetKeysAndValues(CFDictionaryRef theDictionary, const void** theKeys,
                                            const void** theValues);
// Calls theFunction with each key and its value. It must not change the dictionary.
CF_EXPORT void CFDictionaryApplyFunction(CFDictionaryRef theDictionary,
                                         CFDictionaryApplierFunction theFunction, void* theContext);

// Changing mutable dictionaries

// Only when the key is absent; an existing value stays.
CF_EXPORT void CFDictionaryAddValue(CFMutableDictionaryRef theDictionary, const void* theKey,
                                    const void* theValue);
// Adds, or replaces the value. The key object that is there already stays.
CF_EXPORT void CFDictionarySetValue(CFMutableDictionaryRef theDictionary, const void* theKey,
                                    const void* theValue);
// Only when the key is present.
CF_EXPORT void CFDictionaryReplaceValue(CFMutableDictionaryRef theDictionary, const void* theKey,
                                        const void* theValue);
// Does nothing when the key is absent.
CF_EXPORT void CFDictionaryRemoveValue(CFMutableDictionaryRef theDictionary, const void* theKey);
CF_EXPORT void CFDictionaryRemoveAllValues(CFMutableDictionaryRef theDictionary);

#endif
