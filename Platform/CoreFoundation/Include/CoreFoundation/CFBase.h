// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFBase_h
#define CFBase_h

// The base of CoreFoundation: scalar types, the calls that work on every object, allocators and the null
// object.
//
// Ownership follows the names of the functions. The result of one with Create or Copy in its name belongs to
// the caller, who gives it back with CFRelease. The result of one with Get in its name belongs to somebody
// else; CFRetain keeps it. A container retains for itself what is put into it.
//
// Retaining and releasing are safe from any thread. A mutable object is used by one thread at a time.
//
// An argument that is NULL where no comment allows it, an object of another type, and a mutation of an
// immutable object end the process with a message or are ignored; they never corrupt memory.
//
// A function that makes an object returns NULL when there is no memory for it. A mutation that finds no
// memory leaves the object as it was.

#include <MacTypes.h>

#ifdef __cplusplus
#define CF_EXTERN extern "C"
#else
#define CF_EXTERN extern
#endif
// Older languages have no enumerations of a type.
#if defined(__cplusplus) && __cplusplus >= 201103L
#define CF_OF_TYPE(inType) : inType
#else
#define CF_OF_TYPE(inType)
#endif
#define CF_EXPORT CF_EXTERN __attribute__((visibility("default")))
#define CF_INLINE static __inline__ // the word that C of 1989 knows as well

// A type's identifier: compare it with what the CF...GetTypeID functions return.
typedef unsigned long CFTypeID;
// Bits that are combined with |.
typedef unsigned long CFOptionFlags;
typedef unsigned long CFHashCode;
// A count or a position; kCFNotFound says that there is none.
typedef signed long CFIndex;

enum CF_OF_TYPE(CFIndex)
{
    kCFNotFound = -1
};

// Any object.
typedef const void* CFTypeRef;
// An object that can be part of a property list.
typedef CFTypeRef CFPropertyListRef;

typedef const struct __CFString* CFStringRef;
typedef struct __CFString* CFMutableStringRef;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef const struct __CFNull* CFNullRef;

// A sequence of positions: the first, and how many there are.
typedef struct CFRange
{
    CFIndex location;
    CFIndex length;
} CFRange;

CF_INLINE CFRange CFRangeMake(CFIndex inLocation, CFIndex inLength)
{
    CFRange theRange;
    theRange.location = inLocation;
    theRange.length = inLength;
    return theRange;
}

// How the first of two objects stands to the second.
typedef CFIndex CFComparisonResult;
enum CF_OF_TYPE(CFIndex)
{
    kCFCompareLessThan = -1,
    kCFCompareEqualTo = 0,
    kCFCompareGreaterThan = 1
};

typedef CFComparisonResult (*CFComparatorFunction)(const void* inFirst, const void* inSecond,
                                                   void* inContext);

// Every object

// The type of an object. Mutable and immutable objects of one kind have the same type.
CF_EXPORT CFTypeID CFGetTypeID(CFTypeRef inObject);

// The name of a type, such as "CFString"; NULL for an identifier that no type has. The caller releases it.
CF_EXPORT CFStringRef CFCopyTypeIDDescription(CFTypeID inType);

// Adds a reference, and returns its argument. Constants, such as kCFBooleanTrue or a CFSTR, stay as they are.
CF_EXPORT CFTypeRef CFRetain(CFTypeRef inObject);

// Takes a reference away, and frees the object at once when it was the last. Constants stay as they are.
CF_EXPORT void CFRelease(CFTypeRef inObject);

// The number of references; a huge number that never changes for a constant.
CF_EXPORT CFIndex CFGetRetainCount(CFTypeRef inObject);

// Whether two objects have the same type and the same content. Numbers compare by their value, whatever
// type they were made with.
CF_EXPORT Boolean CFEqual(CFTypeRef inFirst, CFTypeRef inSecond);

// A number that is the same for equal objects.
CF_EXPORT CFHashCode CFHash(CFTypeRef inObject);

// A text for debugging, with the object's type, address and content. The caller releases it. NULL for NULL.
CF_EXPORT CFStringRef CFCopyDescription(CFTypeRef inObject);

// The allocator of an object: kCFAllocatorSystemDefault unless the object is itself an allocator.
CF_EXPORT CFAllocatorRef CFGetAllocator(CFTypeRef inObject);

// Writes a string's characters (those outside ASCII as \uXXXX), or another object's description, and a new
// line to the standard error stream; "(null)" for NULL.
CF_EXPORT void CFShow(CFTypeRef inObject);

// Allocators

// Functions that make objects take an allocator first. Memory always comes from malloc, so NULL, which
// stands for the default allocator, is the argument to use.
#ifdef __cplusplus
#define kCFAllocatorDefault (static_cast<CFAllocatorRef>(0))
#else
#define kCFAllocatorDefault ((CFAllocatorRef)0)
#endif

CF_EXPORT const CFAllocatorRef kCFAllocatorSystemDefault;
CF_EXPORT const CFAllocatorRef kCFAllocatorMalloc;
// Frees nothing: for bytes that outlive the object that uses them.
CF_EXPORT const CFAllocatorRef kCFAllocatorNull;

CF_EXPORT CFTypeID CFAllocatorGetTypeID(void);
CF_EXPORT CFAllocatorRef CFAllocatorGetDefault(void);

// The null object: stands for "no value" in a container, which cannot hold NULL.

CF_EXPORT const CFNullRef kCFNull;

CF_EXPORT CFTypeID CFNullGetTypeID(void);

#endif
