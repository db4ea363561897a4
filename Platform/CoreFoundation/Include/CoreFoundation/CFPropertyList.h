// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFPropertyList_h
#define CFPropertyList_h

// Property lists: objects that can be kept in a file.
//
// They consist of strings, numbers, booleans, data, dates, arrays of these, and dictionaries of these with
// strings as keys. A string is part of one only when it is well-formed Unicode (zero characters are allowed),
// a date only when it is in the years 0 to 9999, and containers may be nested 512 deep.
//
// A file does not carry the type of a number. An integer is read as kCFNumberSInt32Type from -1 to 12 and as
// kCFNumberSInt64Type otherwise, whatever its size; any other number as kCFNumberFloat64Type. The binary form
// also keeps kCFNumberFloat32Type. XML keeps neither the sign of 0 nor the fractions of a date.

#include <CoreFoundation/CFBase.h>
#include <CoreFoundation/CFData.h>
#include <CoreFoundation/CFError.h>
#include <CoreFoundation/CFString.h>

typedef CFIndex CFPropertyListFormat;
enum CF_OF_TYPE(CFIndex)
{
    kCFPropertyListOpenStepFormat = 1,
    kCFPropertyListXMLFormat_v1_0 = 100,
    kCFPropertyListBinaryFormat_v1_0 = 200
};

// What can be changed in a property list that is read or copied.
enum CF_OF_TYPE(CFOptionFlags)
{
    kCFPropertyListImmutable = 0,
    kCFPropertyListMutableContainers = 1,
    kCFPropertyListMutableContainersAndLeaves = 2
};

// Codes of errors in kCFErrorDomainCocoa. Since Mac OS X 10.6.
enum CF_OF_TYPE(CFIndex)
{
    kCFPropertyListReadCorruptError = 3840,
    kCFPropertyListReadUnknownVersionError = 3841,
    kCFPropertyListReadStreamError = 3842,
    kCFPropertyListWriteStreamError = 3851
};

// The property list as XML text, in UTF-8, with the keys of each dictionary in ascending order. NULL when
// inList is no property list. The caller releases it.
CF_EXPORT CFDataRef CFPropertyListCreateXMLData(CFAllocatorRef inAllocator, CFPropertyListRef inList);

// Reads XML text, the binary form or the OpenStep form, whose leaves are strings and data. NULL, and a reason
// in *outError, when the data is none of them. outError may be NULL. The caller releases both the property
// list and the reason.
//
// Strict, so that a damaged file is not taken for another one: unknown elements and entities, keys without
// values, and texts that are no number or date are errors. Of a key that is there twice, the last value
// stays.
CF_EXPORT CFPropertyListRef CFPropertyListCreateFromXMLData(CFAllocatorRef inAllocator, CFDataRef inData,
                                                            CFOptionFlags inMutability,
                                                            CFStringRef* outError);

// The property list in the XML or the binary form. NULL, and an error in *outError, when inList is no
// property list or the format is another one. outError may be NULL. No options are known; give 0. The caller
// releases data and error. Since Mac OS X 10.6.
CF_EXPORT CFDataRef CFPropertyListCreateData(CFAllocatorRef inAllocator, CFPropertyListRef inList,
                                             CFPropertyListFormat inFormat, CFOptionFlags inOptions,
                                             CFErrorRef* outError);

// CFPropertyListCreateFromXMLData with an error, whose description says the reason, and with the form of the
// data in *outFormat, which may be NULL. Since Mac OS X 10.6.
CF_EXPORT CFPropertyListRef CFPropertyListCreateWithData(CFAllocatorRef inAllocator, CFDataRef inData,
                                                         CFOptionFlags inMutability,
                                                         CFPropertyListFormat* outFormat,
                                                         CFErrorRef* outError);

// A copy down to the leaves. NULL when inList is no property list. The caller releases it.
CF_EXPORT CFPropertyListRef CFPropertyListCreateDeepCopy(CFAllocatorRef inAllocator, CFPropertyListRef inList,
                                                         CFOptionFlags inMutability);

// Whether inList is a property list that can be written in that format: XML or binary.
CF_EXPORT Boolean CFPropertyListIsValid(CFPropertyListRef inList, CFPropertyListFormat inFormat);

#endif
