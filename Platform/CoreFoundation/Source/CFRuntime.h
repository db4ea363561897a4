// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFRuntime_h
#define CFRuntime_h

// What every object has: a type, with a table of the type's operations, and a count of references.
//
// The structures behind the references (__CFString and the others) derive from Host::Object and have nothing
// before it, so that a CFTypeRef is a pointer to its Host::Object.
//
// Bad arguments end the process here, in Stop, with a line that names the call. Memory that cannot be had
// travels as std::bad_alloc as far as the interface: each function that takes memory runs inside
// NothingWithoutMemory, which turns the exception into an empty result.

#include <CoreFoundation/CFBase.h>

#include <atomic>
#include <exception>
#include <new>
#include <utility>

namespace Host {

struct Object;

// The operations of one type.
struct TypeOperations
{
    CFTypeID theIdentifier;
    const char* theName;
    void (*theFree)(const Object* theObject);                          // null: never freed
    bool (*theEqual)(const Object* theFirst, const Object* theSecond); // null: only identical ones are
    CFHashCode (*theHash)(const Object* theObject);                    // null: by address
    CFStringRef (*theCopyDescription)(const Object* theObject);        // null: only type and address
    CFStringRef (*theCopyFormatText)(const Object* theObject);         // what %@ shows; null: the description
};

// The identifiers are an index into the table of types.
enum : CFTypeID
{
    kAllocatorTypeID = 1,
    kArrayTypeID,
    kBooleanTypeID,
    kDataTypeID,
    kDateTypeID,
    kDictionaryTypeID,
    kErrorTypeID,
    kNullTypeID,
    kNumberTypeID,
    kSetTypeID,
    kStringTypeID,
    kURLTypeID,
    kBundleTypeID,
    kDateFormatterTypeID,
    kLocaleTypeID,
    kNumberFormatterTypeID,
    kRunLoopTypeID,
    kRunLoopTimerTypeID,
    kTimeZoneTypeID,
    kNumberedObjectTypeID,
    kFirstOtherTypeID // of the types of rooms above
};

extern const TypeOperations kAllocatorType;
extern const TypeOperations kArrayType;
extern const TypeOperations kBooleanType;
extern const TypeOperations kBundleType;
extern const TypeOperations kDataType;
extern const TypeOperations kDateType;
extern const TypeOperations kDateFormatterType;
extern const TypeOperations kDictionaryType;
extern const TypeOperations kErrorType;
extern const TypeOperations kLocaleType;
extern const TypeOperations kNullType;
extern const TypeOperations kNumberedObjectType;
extern const TypeOperations kNumberType;
extern const TypeOperations kNumberFormatterType;
extern const TypeOperations kRunLoopType;
extern const TypeOperations kRunLoopTimerType;
extern const TypeOperations kSetType;
extern const TypeOperations kStringType;
extern const TypeOperations kTimeZoneType;
extern const TypeOperations kURLType;

// Says which types there are besides, from kFirstOtherTypeID on. Once, by the room that has them.
__attribute__((visibility("default"))) void UseOtherTypes(const TypeOperations* const* theTypes,
                                                          size_t theCount);

// The retain count of an object that is never freed: it shows, and never changes.
constexpr CFIndex kImmortal = sizeof(CFIndex) == 8 ? static_cast<CFIndex>(0x0FFFFFFFFFFFFFFFLL) : 0x7FFFFFFF;

struct Object
{
    constexpr explicit Object(const TypeOperations& theType, CFIndex theRetainCount = 1)
        : mType(&theType),
          mRetainCount(theRetainCount)
    {
    }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    const TypeOperations* mType;
    mutable std::atomic<CFIndex> mRetainCount;
};

// Writes "theCaller: theReason" to the standard error stream and ends the process.
[[noreturn]] void Stop(const char* theCaller, const char* theReason);

// The object behind a reference that must have a certain type; ends the process when it does not.
template <class Reference>
Reference Require(Reference theReference, const TypeOperations& theType, const char* theCaller)
{
    if (theReference == nullptr) {
        Stop(theCaller, "the object is NULL");
    }
    if (theReference->mType != &theType) {
        Stop(theCaller, "the object has another type");
    }
    return theReference;
}

// The same for an object that is going to be changed.
template <class Reference>
Reference RequireMutable(Reference theReference, const TypeOperations& theType, const char* theCaller)
{
    if (!Require(theReference, theType, theCaller)->mIsMutable) {
        Stop(theCaller, "the object is immutable");
    }
    return theReference;
}

// The result of theFunction; an empty one (NULL, false, 0) when it finds no memory.
template <class Function>
auto NothingWithoutMemory(Function theFunction) -> decltype(theFunction())
{
    try {
        return theFunction();
    } catch (const std::exception&) {
        return decltype(theFunction())();
    }
}

// Frees an object of class theClass that was made with new.
template <class Class>
void Delete(const Object* theObject)
{
    delete static_cast<const Class*>(theObject);
}

// Holds one reference, and releases it at the end of the scope.
template <class Reference>
class [[nodiscard]] Holder
{
public:
    explicit Holder(Reference theReference)
        : mReference(theReference)
    {
    }
    Holder(Holder&& theOther) noexcept
        : mReference(theOther.Release())
    {
    }
    ~Holder()
    {
        if (mReference != nullptr) {
            CFRelease(mReference);
        }
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
    Holder& operator=(Holder&&) = delete;

    Reference Get() const { return mReference; }
    Reference Release() { return std::exchange(mReference, nullptr); }
    void Swap(Holder& theOther) { std::swap(mReference, theOther.mReference); }

private:
    Reference mReference; // owned; may be null
};

// The same for a new object, which is NULL when there was no memory for it: throws std::bad_alloc then.
template <class Reference>
Holder<Reference> RequireMemory(Reference theReference)
{
    if (theReference == nullptr) {
        throw std::bad_alloc();
    }
    return Holder<Reference>(theReference);
}

} // namespace Host

#endif
