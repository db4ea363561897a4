// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "PreferenceSpy.h"

#include <dlfcn.h>
#include <map>

#define EXPORTED extern "C" __attribute__((visibility("default")))

namespace {

const CFNumberType kRealNumberType = -1;

struct State
{
    bool mIsHost = true; // all calls go through to the host
    std::map<std::string, CFTypeRef> mStored;
    Lines mCalls;
    bool mSynchroniseResult = true;
    CFNumberType mNumberType = kRealNumberType;
    bool mLosesNumbers = false;
    bool mFailsCreation = false;
};

State gState;

std::string Text(CFStringRef theString)
{
    char theText[256] = "";
    CFStringGetCString(theString, theText, sizeof theText, kCFStringEncodingUTF8);
    return theText;
}

// The function behind the one that is calling.
template <typename Function>
Function* FindReal(Function*, const char* theName)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, theName));
}

#define REAL(theName) FindReal(&(theName), #theName)

} // namespace

EXPORTED CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef theKey, CFStringRef theApplication)
{
    if (gState.mIsHost) {
        return REAL(CFPreferencesCopyAppValue)(theKey, theApplication);
    }
    gState.mCalls.push_back("copy " + Text(theKey));
    const CFTypeRef theProperty = PreferenceSpy::Stored(Text(theKey));
    return theProperty != nullptr ? CFRetain(theProperty) : nullptr;
}

EXPORTED void CFPreferencesSetAppValue(CFStringRef theKey, CFPropertyListRef theValue,
                                       CFStringRef theApplication)
{
    if (gState.mIsHost) {
        REAL(CFPreferencesSetAppValue)(theKey, theValue, theApplication);
        return;
    }
    gState.mCalls.push_back("set " + Text(theKey));
    PreferenceSpy::Store(Text(theKey), CFRetain(theValue));
}

EXPORTED Boolean CFPreferencesAppSynchronize(CFStringRef theApplication)
{
    if (gState.mIsHost) {
        return REAL(CFPreferencesAppSynchronize)(theApplication);
    }
    gState.mCalls.push_back("synchronise " + Text(theApplication));
    return gState.mSynchroniseResult;
}

EXPORTED CFNumberType CFNumberGetType(CFNumberRef theNumber)
{
    return gState.mNumberType != kRealNumberType ? gState.mNumberType : REAL(CFNumberGetType)(theNumber);
}

EXPORTED Boolean CFNumberGetValue(CFNumberRef theNumber, CFNumberType theType, void* theValue)
{
    const Boolean isExact = REAL(CFNumberGetValue)(theNumber, theType, theValue);
    return isExact && !gState.mLosesNumbers;
}

EXPORTED CFNumberRef CFNumberCreate(CFAllocatorRef theAllocator, CFNumberType theType, const void* theValue)
{
    return gState.mFailsCreation ? nullptr : REAL(CFNumberCreate)(theAllocator, theType, theValue);
}

EXPORTED CFDataRef CFDataCreate(CFAllocatorRef theAllocator, const UInt8* theBytes, CFIndex theLength)
{
    return gState.mFailsCreation ? nullptr : REAL(CFDataCreate)(theAllocator, theBytes, theLength);
}

void PreferenceSpy::Reset()
{
    for (const auto& theEntry : gState.mStored) {
        CFRelease(theEntry.second);
    }
    gState = State();
    gState.mIsHost = false;
}

void PreferenceSpy::UseHost()
{
    Reset();
    gState.mIsHost = true;
}

CFTypeRef PreferenceSpy::Stored(const std::string& theKey)
{
    const auto theEntry = gState.mStored.find(theKey);
    return theEntry != gState.mStored.end() ? theEntry->second : nullptr;
}

void PreferenceSpy::Store(const std::string& theKey, CFTypeRef theProperty)
{
    CFTypeRef& theStored = gState.mStored[theKey];
    if (theStored != nullptr) {
        CFRelease(theStored);
    }
    theStored = theProperty;
}

Lines PreferenceSpy::TakeCalls()
{
    Lines theCalls;
    theCalls.swap(gState.mCalls);
    return theCalls;
}

void PreferenceSpy::SetSynchroniseResult(bool theResult)
{
    gState.mSynchroniseResult = theResult;
}

void PreferenceSpy::SetNumberType(CFNumberType theType)
{
    gState.mNumberType = theType;
}

void PreferenceSpy::LoseNumbers()
{
    gState.mLosesNumbers = true;
}

void PreferenceSpy::FailCreation()
{
    gState.mFailsCreation = true;
}
