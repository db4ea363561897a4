// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFRuntime.h"

#include "CFAllocatorObject.h"
#include "CFStringObject.h"
#include "CFText.h"
#include "Common/NumberedObjects.h"

#include <cstdio>
#include <cstdlib>

namespace {

// In the order of the identifiers.
const Host::TypeOperations* const kTypes[] = {
    &Host::kAllocatorType, &Host::kArrayType,         &Host::kBooleanType,  &Host::kDataType,
    &Host::kDateType,      &Host::kDictionaryType,    &Host::kErrorType,    &Host::kNullType,
    &Host::kNumberType,    &Host::kSetType,           &Host::kStringType,   &Host::kURLType,
    &Host::kBundleType,    &Host::kDateFormatterType, &Host::kLocaleType,   &Host::kNumberFormatterType,
    &Host::kRunLoopType,   &Host::kRunLoopTimerType,  &Host::kTimeZoneType, &Host::kNumberedObjectType,
};

const Host::TypeOperations* const* gOtherTypes = nullptr;
size_t gOtherTypeCount = 0;

// Null for a type that there is not.
const char* NameOf(CFTypeID theType)
{
    for (const Host::TypeOperations* theOperations : kTypes) {
        if (theOperations->theIdentifier == theType) {
            return theOperations->theName;
        }
    }
    const CFTypeID theIndex = theType - Host::kFirstOtherTypeID;
    return theIndex < gOtherTypeCount ? gOtherTypes[theIndex]->theName : nullptr;
}

Host::NumberedObjects gNumberedObjects = {};

// Stands for each object whose reference is a number. It is never freed, so that what counts references looks
// further only where it has found nothing to count.
const Host::Object kNumberedObject(Host::kNumberedObjectType, Host::kImmortal);

bool IsNumber(CFTypeRef theObject)
{
    return (reinterpret_cast<std::uintptr_t>(theObject) & 1) != 0;
}

bool IsNumberedObject(CFTypeRef theObject)
{
    return IsNumber(theObject) && gNumberedObjects.theRetain != nullptr;
}

const Host::Object* RequireObject(CFTypeRef theObject, const char* theCaller)
{
    if (theObject == nullptr) {
        Host::Stop(theCaller, "the object is NULL");
    }
    if (IsNumber(theObject)) {
        return &kNumberedObject;
    }
    return static_cast<const Host::Object*>(theObject);
}

void ShowString(CFStringRef theString)
{
    for (const UniChar theUnit : theString->mUnits) {
        if (theUnit < 0x80) {
            std::fputc(theUnit, stderr);
        } else {
            std::fprintf(stderr, "\\u%04x", static_cast<unsigned>(theUnit));
        }
    }
}

} // namespace

const Host::TypeOperations Host::kNumberedObjectType = {
    kNumberedObjectTypeID, "HIObject", nullptr, nullptr, nullptr, nullptr, nullptr};

void Host::UseOtherTypes(const TypeOperations* const* theTypes, size_t theCount)
{
    gOtherTypes = theTypes;
    gOtherTypeCount = theCount;
}

void Host::UseNumberedObjects(const NumberedObjects& theObjects)
{
    gNumberedObjects = theObjects;
}

void Host::Stop(const char* theCaller, const char* theReason)
{
    std::fprintf(stderr, "%s: %s\n", theCaller, theReason);
    std::abort();
}

CFTypeID CFGetTypeID(CFTypeRef inObject)
{
    return RequireObject(inObject, __func__)->mType->theIdentifier;
}

CFStringRef CFCopyTypeIDDescription(CFTypeID inType)
{
    const char* const theName = NameOf(inType);
    return theName == nullptr
               ? nullptr
               : CFStringCreateWithCString(kCFAllocatorDefault, theName, kCFStringEncodingASCII);
}

CFTypeRef CFRetain(CFTypeRef inObject)
{
    std::atomic<CFIndex>& theCount = RequireObject(inObject, __func__)->mRetainCount;
    if (theCount.load(std::memory_order_relaxed) != Host::kImmortal) {
        theCount.fetch_add(1, std::memory_order_relaxed);
    } else if (IsNumberedObject(inObject)) {
        gNumberedObjects.theRetain(inObject);
    }
    return inObject;
}

void CFRelease(CFTypeRef inObject)
{
    const Host::Object* const theHeader = RequireObject(inObject, __func__);
    if (theHeader->mRetainCount.load(std::memory_order_relaxed) == Host::kImmortal) {
        if (IsNumberedObject(inObject)) {
            gNumberedObjects.theRelease(inObject);
        }
        return;
    }
    // What other threads did with the object happens before it is freed.
    if (theHeader->mRetainCount.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        theHeader->mType->theFree(theHeader);
    }
}

CFIndex CFGetRetainCount(CFTypeRef inObject)
{
    const Host::Object* const theHeader = RequireObject(inObject, __func__);
    return IsNumberedObject(inObject) ? gNumberedObjects.theCount(inObject)
                                      : theHeader->mRetainCount.load(std::memory_order_relaxed);
}

Boolean CFEqual(CFTypeRef inFirst, CFTypeRef inSecond)
{
    const Host::Object* const theFirstHeader = RequireObject(inFirst, __func__);
    const Host::Object* const theSecondHeader = RequireObject(inSecond, __func__);
    if (inFirst == inSecond) {
        return true;
    }
    const Host::TypeOperations* const theType = theFirstHeader->mType;
    return theType == theSecondHeader->mType && theType->theEqual != nullptr &&
           theType->theEqual(theFirstHeader, theSecondHeader);
}

CFHashCode CFHash(CFTypeRef inObject)
{
    const Host::Object* const theHeader = RequireObject(inObject, __func__);
    if (theHeader->mType->theHash == nullptr) {
        return reinterpret_cast<CFHashCode>(inObject);
    }
    return theHeader->mType->theHash(theHeader);
}

CFStringRef CFCopyDescription(CFTypeRef inObject)
{
    if (inObject == nullptr) {
        return nullptr;
    }
    const Host::Object* const theHeader = RequireObject(inObject, __func__);
    return Host::NothingWithoutMemory([theHeader] {
        if (theHeader->mType->theCopyDescription == nullptr) {
            return Host::Text().AppendHeader(theHeader).CopyString();
        }
        return theHeader->mType->theCopyDescription(theHeader);
    });
}

CFAllocatorRef CFGetAllocator(CFTypeRef inObject)
{
    const bool theIsAllocator = RequireObject(inObject, __func__)->mType == &Host::kAllocatorType;
    return theIsAllocator ? static_cast<CFAllocatorRef>(inObject) : kCFAllocatorSystemDefault;
}

void CFShow(CFTypeRef inObject)
{
    if (inObject == nullptr) {
        std::fputs("(null)", stderr);
    } else if (CFGetTypeID(inObject) == CFStringGetTypeID()) {
        ShowString(static_cast<CFStringRef>(inObject));
    } else {
        const Host::Holder<CFStringRef> theDescription(CFCopyDescription(inObject));
        if (theDescription.Get() != nullptr) {
            ShowString(theDescription.Get());
        }
    }
    std::fputc('\n', stderr);
}
