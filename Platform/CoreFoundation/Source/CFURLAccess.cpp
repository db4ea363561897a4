// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFPropertyListSupport.h"
#include "CFStringObject.h"
#include "CFURLObject.h"
#include "System/Files.h"
#include "System/Folders.h"

#include <CoreFoundation/CFDate.h>
#include <CoreFoundation/CFURLAccess.h>

const CFStringRef kCFURLFileExists = CFSTR("kCFURLFileExists");
const CFStringRef kCFURLFileLength = CFSTR("kCFURLFileLength");
const CFStringRef kCFURLFileLastModificationTime = CFSTR("kCFURLFileLastModificationTime");

namespace {

using Host::FileState;
using Host::Holder;

// What has gone wrong, as a number of the interface.
struct Failure
{
    SInt32 theError;
};

// Runs the body of a call, whose failures become its error and an empty result.
template <class Body>
auto Answer(SInt32* outError, const Body& theBody) -> decltype(theBody())
{
    SInt32 theError = kCFURLUnknownError;
    const auto theResult = Host::NothingWithoutMemory([&]() -> decltype(theBody()) {
        try {
            auto theInner = theBody();
            theError = 0;
            return theInner;
        } catch (const Failure& theFailure) {
            theError = theFailure.theError;
            return {};
        }
    });
    if (outError != nullptr) {
        *outError = theError;
    }
    return theResult;
}

std::string PathOf(CFURLRef theURL)
{
    const std::optional<std::string> thePath = Host::PathOfFile(theURL);
    if (!thePath) {
        throw Failure{kCFURLUnknownSchemeError};
    }
    return *thePath;
}

std::string ContentOf(const std::string& thePath)
{
    std::string theContent;
    switch (Host::ReadFile(thePath, theContent)) {
    case Host::FileContent::kRead:
        return theContent;
    case Host::FileContent::kAbsent:
        throw Failure{kCFURLResourceNotFoundError};
    case Host::FileContent::kUnreadable:
        break;
    }
    throw Failure{kCFURLResourceAccessViolationError};
}

CFTypeRef MakeProperty(CFStringRef theKey, const std::optional<FileState>& theState)
{
    if (CFEqual(theKey, kCFURLFileExists)) {
        return CFRetain(theState ? kCFBooleanTrue : kCFBooleanFalse);
    }
    const bool theIsLength = CFEqual(theKey, kCFURLFileLength) != 0;
    if (!theIsLength && !CFEqual(theKey, kCFURLFileLastModificationTime)) {
        throw Failure{kCFURLUnknownPropertyKeyError};
    }
    if (!theState) {
        throw Failure{kCFURLResourceNotFoundError};
    }
    const SInt64 theLength = theState->theLength;
    return theIsLength
               ? static_cast<CFTypeRef>(CFNumberCreate(nullptr, kCFNumberSInt64Type, &theLength))
               : CFDateCreate(nullptr, theState->theModificationTime - kCFAbsoluteTimeIntervalSince1970);
}

void AddProperty(const void* theKey, const std::optional<FileState>& theState,
                 CFMutableDictionaryRef theProperties)
{
    if (CFGetTypeID(theKey) != CFStringGetTypeID()) {
        throw Failure{kCFURLImproperArgumentsError};
    }
    const Holder<CFTypeRef> theValue =
        Host::RequireMemory(MakeProperty(static_cast<CFStringRef>(theKey), theState));
    Host::SetInList(theProperties, static_cast<CFStringRef>(theKey), theValue.Get());
}

Holder<CFMutableDictionaryRef> PropertiesOf(const std::string& thePath, CFArrayRef theKeys)
{
    auto theProperties = Host::RequireMemory(CFDictionaryCreateMutable(
        nullptr, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
    const std::optional<FileState> theState = Host::StateOfFile(thePath);
    if (theKeys == nullptr) {
        for (const CFStringRef theKey :
             {kCFURLFileExists, kCFURLFileLength, kCFURLFileLastModificationTime}) {
            AddProperty(theKey, theState, theProperties.Get());
        }
        return theProperties;
    }
    for (CFIndex theIndex = 0; theIndex < CFArrayGetCount(theKeys); ++theIndex) {
        AddProperty(CFArrayGetValueAtIndex(theKeys, theIndex), theState, theProperties.Get());
    }
    return theProperties;
}

} // namespace

Boolean CFURLCreateDataAndPropertiesFromResource(CFAllocatorRef, CFURLRef inURL, CFDataRef* outData,
                                                 CFDictionaryRef* outProperties,
                                                 CFArrayRef inDesiredProperties, SInt32* outError)
{
    Host::Require(inURL, Host::kURLType, "CFURLCreateDataAndPropertiesFromResource");
    return Answer(outError, [&]() -> Boolean {
        const std::string thePath = PathOf(inURL);
        const std::string theContent = ContentOf(thePath);
        auto theData =
            Host::RequireMemory(CFDataCreate(nullptr, reinterpret_cast<const UInt8*>(theContent.data()),
                                             static_cast<CFIndex>(theContent.size())));
        if (outProperties != nullptr) {
            *outProperties = PropertiesOf(thePath, inDesiredProperties).Release();
        }
        if (outData != nullptr) {
            *outData = theData.Release();
        }
        return 1;
    });
}

Boolean CFURLWriteDataAndPropertiesToResource(CFURLRef inURL, CFDataRef inData, CFDictionaryRef inProperties,
                                              SInt32* outError)
{
    Host::Require(inURL, Host::kURLType, "CFURLWriteDataAndPropertiesToResource");
    return Answer(outError, [&]() -> Boolean {
        const std::string thePath = PathOf(inURL);
        if (inProperties != nullptr && CFDictionaryGetCount(inProperties) > 0) {
            throw Failure{kCFURLPropertyKeyUnavailableError};
        }
        if (inData == nullptr) {
            return 1;
        }
        const std::string_view theContent(reinterpret_cast<const char*>(CFDataGetBytePtr(inData)),
                                          static_cast<size_t>(CFDataGetLength(inData)));
        if (Host::IsFolder(thePath) || !Host::ReplaceFile(thePath, theContent)) {
            throw Failure{kCFURLResourceAccessViolationError};
        }
        return 1;
    });
}

CFTypeRef CFURLCreatePropertyFromResource(CFAllocatorRef, CFURLRef inURL, CFStringRef inProperty,
                                          SInt32* outError)
{
    Host::Require(inURL, Host::kURLType, "CFURLCreatePropertyFromResource");
    Host::Require(inProperty, Host::kStringType, "CFURLCreatePropertyFromResource");
    return Answer(outError, [&] { return MakeProperty(inProperty, Host::StateOfFile(PathOf(inURL))); });
}

Boolean CFURLDestroyResource(CFURLRef inURL, SInt32* outError)
{
    Host::Require(inURL, Host::kURLType, "CFURLDestroyResource");
    return Answer(outError, [&]() -> Boolean {
        const std::string thePath = PathOf(inURL);
        if (!Host::StateOfFile(thePath)) {
            throw Failure{kCFURLResourceNotFoundError};
        }
        if (!Host::RemoveFile(thePath)) {
            throw Failure{kCFURLResourceAccessViolationError};
        }
        return 1;
    });
}
