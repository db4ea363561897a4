// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFError_h
#define CFError_h

// Errors: why a call has failed, for programs (a domain and a code in it) and for people (texts). Since Mac
// OS X 10.5.

#include <CoreFoundation/CFBase.h>
#include <CoreFoundation/CFDictionary.h>

typedef const struct __CFError* CFErrorRef;

// Domains
CF_EXPORT const CFStringRef kCFErrorDomainPOSIX;    // codes of errno
CF_EXPORT const CFStringRef kCFErrorDomainOSStatus; // codes of Carbon
CF_EXPORT const CFStringRef kCFErrorDomainMach;     // codes of the kernel
CF_EXPORT const CFStringRef kCFErrorDomainCocoa;

// Keys of what an error says besides
CF_EXPORT const CFStringRef kCFErrorLocalizedDescriptionKey;        // whole sentences for a person
CF_EXPORT const CFStringRef kCFErrorLocalizedFailureReasonKey;      // a sentence: why
CF_EXPORT const CFStringRef kCFErrorLocalizedRecoverySuggestionKey; // a sentence: what to do
CF_EXPORT const CFStringRef kCFErrorDescriptionKey;                 // words that belong behind the code
CF_EXPORT const CFStringRef kCFErrorUnderlyingErrorKey;             // the error that has led to this one

CF_EXPORT CFTypeID CFErrorGetTypeID(void);

// An error; the dictionary, which may be NULL, is copied. The caller releases it.
CF_EXPORT CFErrorRef CFErrorCreate(CFAllocatorRef inAllocator, CFStringRef inDomain, CFIndex inCode,
                                   CFDictionaryRef inUserInfo);
// The same with inCount keys and values.
CF_EXPORT CFErrorRef CFErrorCreateWithUserInfoKeysAndValues(CFAllocatorRef inAllocator, CFStringRef inDomain,
                                                            CFIndex inCode, const void* const* inKeys,
                                                            const void* const* inValues, CFIndex inCount);

CF_EXPORT CFStringRef CFErrorGetDomain(CFErrorRef inError);
CF_EXPORT CFIndex CFErrorGetCode(CFErrorRef inError);
// A dictionary, empty when the error has none. The caller releases it.
CF_EXPORT CFDictionaryRef CFErrorCopyUserInfo(CFErrorRef inError);

// Texts for a person; the caller releases them. The description is never NULL: without one of its own it is
// made of the reason, or of the domain, the code and the words behind it. The others are NULL when the error
// does not have them.
CF_EXPORT CFStringRef CFErrorCopyDescription(CFErrorRef inError);
CF_EXPORT CFStringRef CFErrorCopyFailureReason(CFErrorRef inError);
CF_EXPORT CFStringRef CFErrorCopyRecoverySuggestion(CFErrorRef inError);

#endif
