// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFErrorObject.h"

#include "CFStringObject.h"

namespace {

using Host::Holder;

const __CFError& ErrorOf(const Host::Object* theObject)
{
    return *static_cast<const __CFError*>(theObject);
}

bool EqualErrors(const Host::Object* theFirst, const Host::Object* theSecond)
{
    const __CFError& theError = ErrorOf(theFirst);
    const __CFError& theOther = ErrorOf(theSecond);
    return theError.mCode == theOther.mCode && CFEqual(theError.mDomain.Get(), theOther.mDomain.Get()) &&
           CFEqual(theError.mUserInfo.Get(), theOther.mUserInfo.Get());
}

CFHashCode HashError(const Host::Object* theObject)
{
    return static_cast<CFHashCode>(ErrorOf(theObject).mCode);
}

CFStringRef DescribeError(const Host::Object* theObject)
{
    const __CFError& theError = ErrorOf(theObject);
    const Holder<CFStringRef> theText = Host::RequireMemory(CFErrorCopyDescription(&theError));
    return Host::Text()
        .AppendHeader(theObject)
        .Append("{domain = ")
        .Append(theError.mDomain.Get())
        .Append(Host::FormatInCLocale(", code = %lld, description = ", static_cast<SInt64>(theError.mCode)))
        .Append(theText.Get())
        .Append("}")
        .CopyString();
}

const __CFError& RequireError(CFErrorRef theError, const char* theCaller)
{
    return *Host::Require(theError, Host::kErrorType, theCaller);
}

// NULL when the error does not have that text.
CFStringRef GetText(const __CFError& theError, CFStringRef theKey)
{
    const CFTypeRef theText = CFDictionaryGetValue(theError.mUserInfo.Get(), theKey);
    const bool theIsText = theText != nullptr && CFGetTypeID(theText) == Host::kStringTypeID;
    return theIsText ? static_cast<CFStringRef>(theText) : nullptr;
}

CFStringRef CopyText(const __CFError& theError, CFStringRef theKey)
{
    const CFStringRef theText = GetText(theError, theKey);
    return theText == nullptr ? nullptr : CFStringCreateCopy(nullptr, theText);
}

// "The operation couldn't be completed", with what else is known.
CFStringRef MakeDescription(const __CFError& theError)
{
    static const UniChar kApostrophe[] = {0x2019};
    Host::Text theText;
    theText.Append("The operation couldn").Append(Host::Units(kApostrophe, kApostrophe + 1));
    theText.Append("t be completed. ");
    if (const CFStringRef theReason = GetText(theError, kCFErrorLocalizedFailureReasonKey)) {
        return theText.Append(theReason).CopyString();
    }
    theText.Append("(").Append(theError.mDomain.Get());
    theText.Append(Host::FormatInCLocale(" error %lld", static_cast<SInt64>(theError.mCode)));
    if (const CFStringRef theWords = GetText(theError, kCFErrorDescriptionKey)) {
        return theText.Append(" - ").Append(theWords).Append(")").CopyString();
    }
    return theText.Append(".)").CopyString();
}

Holder<CFDictionaryRef> MakeUserInfo(const void* const* theKeys, const void* const* theValues,
                                     CFIndex theCount)
{
    return Host::RequireMemory(
        CFDictionaryCreate(nullptr, const_cast<const void**>(theKeys), const_cast<const void**>(theValues),
                           theCount, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
}

CFErrorRef MakeError(CFStringRef theDomain, CFIndex theCode, Holder<CFDictionaryRef>&& theUserInfo)
{
    return new __CFError(Host::RequireMemory(CFStringCreateCopy(nullptr, theDomain)), theCode,
                         std::move(theUserInfo));
}

} // namespace

const Host::TypeOperations Host::kErrorType = {
    Host::kErrorTypeID, "CFError", Host::Delete<__CFError>, EqualErrors, HashError, DescribeError, nullptr};

const CFStringRef kCFErrorDomainPOSIX = CFSTR("NSPOSIXErrorDomain");
const CFStringRef kCFErrorDomainOSStatus = CFSTR("NSOSStatusErrorDomain");
const CFStringRef kCFErrorDomainMach = CFSTR("NSMachErrorDomain");
const CFStringRef kCFErrorDomainCocoa = CFSTR("NSCocoaErrorDomain");

const CFStringRef kCFErrorLocalizedDescriptionKey = CFSTR("NSLocalizedDescription");
const CFStringRef kCFErrorLocalizedFailureReasonKey = CFSTR("NSLocalizedFailureReason");
const CFStringRef kCFErrorLocalizedRecoverySuggestionKey = CFSTR("NSLocalizedRecoverySuggestion");
const CFStringRef kCFErrorDescriptionKey = CFSTR("NSDescription");
const CFStringRef kCFErrorUnderlyingErrorKey = CFSTR("NSUnderlyingError");

CFTypeID CFErrorGetTypeID()
{
    return Host::kErrorTypeID;
}

CFErrorRef CFErrorCreate(CFAllocatorRef, CFStringRef inDomain, CFIndex inCode, CFDictionaryRef inUserInfo)
{
    Host::Require(inDomain, Host::kStringType, __func__);
    return Host::NothingWithoutMemory([=] {
        return MakeError(inDomain, inCode,
                         inUserInfo == nullptr
                             ? MakeUserInfo(nullptr, nullptr, 0)
                             : Host::RequireMemory(CFDictionaryCreateCopy(nullptr, inUserInfo)));
    });
}

CFErrorRef CFErrorCreateWithUserInfoKeysAndValues(CFAllocatorRef, CFStringRef inDomain, CFIndex inCode,
                                                  const void* const* inKeys, const void* const* inValues,
                                                  CFIndex inCount)
{
    Host::Require(inDomain, Host::kStringType, __func__);
    return Host::NothingWithoutMemory(
        [=] { return MakeError(inDomain, inCode, MakeUserInfo(inKeys, inValues, inCount)); });
}

CFStringRef CFErrorGetDomain(CFErrorRef inError)
{
    return RequireError(inError, __func__).mDomain.Get();
}

CFIndex CFErrorGetCode(CFErrorRef inError)
{
    return RequireError(inError, __func__).mCode;
}

CFDictionaryRef CFErrorCopyUserInfo(CFErrorRef inError)
{
    return static_cast<CFDictionaryRef>(CFRetain(RequireError(inError, __func__).mUserInfo.Get()));
}

CFStringRef CFErrorCopyDescription(CFErrorRef inError)
{
    const __CFError& theSource = RequireError(inError, __func__);
    return Host::NothingWithoutMemory([&] {
        return GetText(theSource, kCFErrorLocalizedDescriptionKey) != nullptr
                   ? CopyText(theSource, kCFErrorLocalizedDescriptionKey)
                   : MakeDescription(theSource);
    });
}

CFStringRef CFErrorCopyFailureReason(CFErrorRef inError)
{
    return CopyText(RequireError(inError, __func__), kCFErrorLocalizedFailureReasonKey);
}

CFStringRef CFErrorCopyRecoverySuggestion(CFErrorRef inError)
{
    return CopyText(RequireError(inError, __func__), kCFErrorLocalizedRecoverySuggestionKey);
}
