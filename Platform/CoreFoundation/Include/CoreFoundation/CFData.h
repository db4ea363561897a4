// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFData_h
#define CFData_h

// Data: bytes in an object.

#include <CoreFoundation/CFBase.h>

typedef const struct __CFData* CFDataRef;
typedef struct __CFData* CFMutableDataRef;

CF_EXPORT CFTypeID CFDataGetTypeID(void);

// Making data; the caller releases it.

// Copies inLength bytes; inBytes may be NULL when there are none. NULL for a negative length.
CF_EXPORT CFDataRef CFDataCreate(CFAllocatorRef inAllocator, const UInt8* inBytes, CFIndex inLength);

// Uses the bytes where they are. They are freed with the data: by free for the default allocators, not at all
// for kCFAllocatorNull.
CF_EXPORT CFDataRef CFDataCreateWithBytesNoCopy(CFAllocatorRef inAllocator, const UInt8* inBytes,
                                                CFIndex inLength, CFAllocatorRef inBytesDeallocator);

CF_EXPORT CFDataRef CFDataCreateCopy(CFAllocatorRef inAllocator, CFDataRef inData);

// Empty data that can be changed. A capacity above 0 is the length that it will never exceed: exceeding it
// ends the process with a message. 0 means no limit.
CF_EXPORT CFMutableDataRef CFDataCreateMutable(CFAllocatorRef inAllocator, CFIndex inCapacity);

CF_EXPORT CFMutableDataRef CFDataCreateMutableCopy(CFAllocatorRef inAllocator, CFIndex inCapacity,
                                                   CFDataRef inData);

// Reading

CF_EXPORT CFIndex CFDataGetLength(CFDataRef inData);
// The bytes themselves, until the data is changed or freed; may be NULL when there are none.
CF_EXPORT const UInt8* CFDataGetBytePtr(CFDataRef inData);
CF_EXPORT UInt8* CFDataGetMutableBytePtr(CFMutableDataRef inData);
// Copies the range's bytes to outBuffer. Where the range goes past the end, the bytes that exist are copied
// and the rest of the range becomes zero; a negative location or length copies nothing.
CF_EXPORT void CFDataGetBytes(CFDataRef inData, CFRange inRange, UInt8* outBuffer);

// Changing mutable data

// Makes it longer with zero bytes, or shorter.
CF_EXPORT void CFDataSetLength(CFMutableDataRef inData, CFIndex inLength);
CF_EXPORT void CFDataIncreaseLength(CFMutableDataRef inData, CFIndex inExtraLength);
CF_EXPORT void CFDataAppendBytes(CFMutableDataRef inData, const UInt8* inBytes, CFIndex inLength);
CF_EXPORT void CFDataReplaceBytes(CFMutableDataRef inData, CFRange inRange, const UInt8* inNewBytes,
                                  CFIndex inNewLength);
CF_EXPORT void CFDataDeleteBytes(CFMutableDataRef inData, CFRange inRange);

#endif
