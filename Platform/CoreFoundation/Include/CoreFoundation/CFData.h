// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFData_h
#define CFData_h

// Data: bytes in an object.

#include <CoreFoundation/CFBase.h>

typedef const struct __CFData* CFDataRef;
typedef struct __CFData* CFMutableDataRef;

CF_EXPORT CFTypeID CFDataGetTypeID(void);

// Making data; the caller releases it.

// Copies theLength bytes; theBytes may be NULL when there are none. NULL for a negative length.
CF_EXPORT CFDataRef CFDataCreate(CFAllocatorRef theAllocator, const UInt8* theBytes, CFIndex theLength);

// Uses the bytes where they are. They are freed with the data: by free for the default allocators, not at all
// for kCFAllocatorNull.
CF_EXPORT CFDataRef CFDataCreateWithBytesNoCopy(CFAllocatorRef theAllocator, const UInt8* theBytes,
                                                CFIndex theLength, CFAllocatorRef theBytesDeallocator);

CF_EXPORT CFDataRef CFDataCreateCopy(CFAllocatorRef theAllocator, CFDataRef theData);

// Empty data that can be changed. A capacity above 0 is the length that it will never exceed: exceeding it
// ends the process with a message. 0 means no limit.
CF_EXPORT CFMutableDataRef CFDataCreateMutable(CFAllocatorRef theAllocator, CFIndex theCapacity);

CF_EXPORT CFMutableDataRef CFDataCreateMutableCopy(CFAllocatorRef theAllocator, CFIndex theCapacity,
                                                   CFDataRef theData);

// Reading

CF_EXPORT CFIndex CFDataGetLength(CFDataRef theData);
// The bytes themselves, until the data is changed or freed; may be NULL when there are none.
CF_EXPORT const UInt8* CFDataGetBytePtr(CFDataRef theData);
CF_EXPORT UInt8* CFDataGetMutableBytePtr(CFMutableDataRef theData);
// Copies the range's bytes to theBuffer. Where the range goes past the end, the bytes that exist are copied
// and the rest of the range becomes zero; a negative location or length copies nothing.
CF_EXPORT void CFDataGetBytes(CFDataRef theData, CFRange theRange, UInt8* theBuffer);

// Changing mutable data

// Makes it longer with zero bytes, or shorter.
CF_EXPORT void CFDataSetLength(CFMutableDataRef theData, CFIndex theLength);
CF_EXPORT void CFDataIncreaseLength(CFMutableDataRef theData, CFIndex theExtraLength);
CF_EXPORT void CFDataAppendBytes(CFMutableDataRef theData, const UInt8* theBytes, CFIndex theLength);
CF_EXPORT void CFDataReplaceBytes(CFMutableDataRef theData, CFRange theRange, const UInt8* theNewBytes,
                                  CFIndex theNewLength);
CF_EXPORT void CFDataDeleteBytes(CFMutableDataRef theData, CFRange theRange);

#endif
