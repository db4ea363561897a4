// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFURLAccess_h
#define CFURLAccess_h

// What is at the other end of a URL, for files.
//
// A call that fails answers false or NULL and writes why to outError, which may be NULL; 0 when it succeeds.

#include <CoreFoundation/CFArray.h>
#include <CoreFoundation/CFData.h>
#include <CoreFoundation/CFDictionary.h>
#include <CoreFoundation/CFURL.h>

typedef SInt32 CFURLError;
enum CF_OF_TYPE(SInt32)
{
    kCFURLUnknownError = -10,
    kCFURLUnknownSchemeError = -11,           // no file
    kCFURLResourceNotFoundError = -12,        // nothing is there
    kCFURLResourceAccessViolationError = -13, // it cannot be read, written or deleted
    kCFURLImproperArgumentsError = -15,
    kCFURLUnknownPropertyKeyError = -16,
    kCFURLPropertyKeyUnavailableError = -17,
    kCFURLTimeoutError = -18
};

// Properties
CF_EXPORT const CFStringRef kCFURLFileExists;               // CFBoolean
CF_EXPORT const CFStringRef kCFURLFileLength;               // CFNumber: bytes
CF_EXPORT const CFStringRef kCFURLFileLastModificationTime; // CFDate

// Reads a file whole, and the desired properties (of NULL: all); both results belong to the caller, and
// either place may be NULL. Nothing is written where the call fails. Files beyond 64 MB are refused.
CF_EXPORT Boolean CFURLCreateDataAndPropertiesFromResource(CFAllocatorRef inAllocator, CFURLRef inURL,
                                                           CFDataRef* outData, CFDictionaryRef* outProperties,
                                                           CFArrayRef inDesiredProperties, SInt32* outError);

// Writes a file whole, or leaves the old one; its folder must be there. Without data nothing is written.
// Properties cannot be set: anything but NULL or an empty dictionary fails before something is written.
CF_EXPORT Boolean CFURLWriteDataAndPropertiesToResource(CFURLRef inURL, CFDataRef inData,
                                                        CFDictionaryRef inProperties, SInt32* outError);

// One property; the caller releases it. Only kCFURLFileExists is told of a file that is not there.
CF_EXPORT CFTypeRef CFURLCreatePropertyFromResource(CFAllocatorRef inAllocator, CFURLRef inURL,
                                                    CFStringRef inProperty, SInt32* outError);

// Deletes a file.
CF_EXPORT Boolean CFURLDestroyResource(CFURLRef inURL, SInt32* outError);

#endif
