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

typedef const void* (*CFDictionaryRetainCallBack)(CFAllocatorRef inAllocator, const void* inValue);
typedef void (*CFDictionaryReleaseCallBack)(CFAllocatorRef inAllocator, const void* inValue);
typedef CFStringRef (*CFDictionaryCopyDescriptionCallBack)(const void* inValue);
typedef Boolean (*CFDictionaryEqualCallBack)(const void* inFirst, const void* inSecond);
typedef CFHashCode (*CFDictionaryHashCallBack)(const void* inValue);

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

typedef void (*CFDictionaryApplierFunction)(const void* inKey, const void* inValue, void* inContext);

CF_EXPORT CFTypeID CFDictionaryGetTypeID(void);

// Making dictionaries; the caller releases them. The callbacks are copied.

// Of a key that is given twice, the first value stays.
CF_EXPORT CFDictionaryRef CFDictionaryCreate(CFAllocatorRef inAllocator, const void** inKeys,
                                             const void** inValues, CFIndex inCount,
                                             const CFDictionaryKeyCallBacks* inKeyCallBacks,
                                             const CFDictionaryValueCallBacks* inValueCallBacks);

// A new immutable dictionary with the same keys, values and callbacks.
CF_EXPORT CFDictionaryRef CFDictionaryCreateCopy(CFAllocatorRef inAllocator, CFDictionaryRef inDictionary);

// An empty dictionary that can be changed. The capacity is a hint; 0 is the usual argument.
CF_EXPORT CFMutableDictionaryRef CFDictionaryCreateMutable(
    CFAllocatorRef inAllocator, CFIndex inCapacity, const CFDictionaryKeyCallBacks* inKeyCallBacks,
    const CFDictionaryValueCallBacks* inValueCallBacks);

CF_EXPORT CFMutableDictionaryRef CFDictionaryCreateMutableCopy(CFAllocatorRef inAllocator, CFIndex inCapacity,
                                                               CFDictionaryRef inDictionary);

// Reading. Keys and values are not retained for the caller.

CF_EXPORT CFIndex CFDictionaryGetCount(CFDictionaryRef inDictionary);
// 1 or 0.
CF_EXPORT CFIndex CFDictionaryGetCountOfKey(CFDictionaryRef inDictionary, const void* inKey);
CF_EXPORT CFIndex CFDictionaryGetCountOfValue(CFDictionaryRef inDictionary, const void* inValue);
CF_EXPORT Boolean CFDictionaryContainsKey(CFDictionaryRef inDictionary, const void* inKey);
CF_EXPORT Boolean CFDictionaryContainsValue(CFDictionaryRef inDictionary, const void* inValue);
// NULL when there is no such key.
CF_EXPORT const void* CFDictionaryGetValue(CFDictionaryRef inDictionary, const void* inKey);
// Tells a NULL value from an absent one. outValue may be NULL, and stays untouched when the key is absent.
CF_EXPORT Boolean CFDictionaryGetValueIfPresent(CFDictionaryRef inDictionary, const void* inKey,
                                                const void** outValue);
// Fills two buffers of CFDictionaryGetCount pointers each; either may be NULL.
CF_EXPORT void CFDictionaryGetKeysAndValues(CFDictionaryRef inDictionary, const void** outKeys,
                                            const void** outValues);
// Calls inFunction with each key and its value. It must not change the dictionary.
CF_EXPORT void CFDictionaryApplyFunction(CFDictionaryRef inDictionary, CFDictionaryApplierFunction inFunction,
                                         void* inContext);

// Changing mutable dictionaries

// Only when the key is absent; an existing value stays.
CF_EXPORT void CFDictionaryAddValue(CFMutableDictionaryRef inDictionary, const void* inKey,
                                    const void* inValue);
// Adds, or replaces the value. The key object that is there already stays.
CF_EXPORT void CFDictionarySetValue(CFMutableDictionaryRef inDictionary, const void* inKey,
                                    const void* inValue);
// Only when the key is present.
CF_EXPORT void CFDictionaryReplaceValue(CFMutableDictionaryRef inDictionary, const void* inKey,
                                        const void* inValue);
// Does nothing when the key is absent.
CF_EXPORT void CFDictionaryRemoveValue(CFMutableDictionaryRef inDictionary, const void* inKey);
CF_EXPORT void CFDictionaryRemoveAllValues(CFMutableDictionaryRef inDictionary);

#endif
