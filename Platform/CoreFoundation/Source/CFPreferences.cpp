// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreFoundation/CFPreferences.h>

#include "CFPropertyListSupport.h"
#include "CFStringObject.h"
#include "CFUnicode.h"
#include "Common/NeverDestroyed.h"
#include "PreferenceStore.h"
#include "System/Files.h"

#include <algorithm>
#include <array>
#include <CoreFoundation/CFNumber.h>
#include <cstdio>
#include <cstring>
#include <map>
#include <mutex>

namespace {

using Host::Holder;
using Host::Units;
using Values = Host::PreferenceStore::Values;

// One domain as this process sees it.
//
// Values are what was loaded, with the changes on top. The changes wait to be written; a key that is to go
// has kCFNull.
class Domain
{
public:
    // An empty name says that the domain can be kept nowhere: it holds values only as long as the process
    // lasts.
    explicit Domain(std::string&& theName)
        : mName(std::move(theName))
    {
    }

    CFDictionaryRef GetValues()
    {
        if (mIsToBeLoaded) {
            LoadValues();
        }
        return mValues.Get();
    }

    // theValue is a copy that nobody else changes, or NULL. Throws std::bad_alloc before anything is changed.
    void Set(CFStringRef theKey, CFPropertyListRef theValue)
    {
        const CFTypeRef theOldValue = CFDictionaryGetValue(GetValues(), theKey);
        const bool theIsSame = theValue == nullptr ? theOldValue == nullptr
                                                   : theOldValue != nullptr && CFEqual(theOldValue, theValue);
        if (theIsSame && mIsKnown) {
            return;
        }
        if (mChanges.Get() == nullptr) {
            Replace(mChanges, NewDictionary());
        }
        // What is seen and what will be written change together.
        const auto theOwnKey = Host::RequireMemory(CFStringCreateCopy(nullptr, theKey));
        const Holder<CFTypeRef> theOld(theOldValue == nullptr ? nullptr : CFRetain(theOldValue));
        Put(mValues, theOwnKey.Get(), theValue);
        try {
            Put(mChanges, theOwnKey.Get(), theValue == nullptr ? kCFNull : theValue);
        } catch (...) {
            Put(mValues, theOwnKey.Get(), theOld.Get());
            throw;
        }
    }

    // Writes the changes; without changes, lets the values be loaded again when they are asked for.
    bool Synchronize()
    {
        if (mChanges.Get() == nullptr) {
            mIsToBeLoaded = mIsToBeLoaded || !mName.empty();
            return true;
        }
        if (mName.empty()) {
            return false;
        }
        Values theWritten = Host::PreferenceStore::GetShared().Save(mName, mChanges.Get());
        if (theWritten.Get() == nullptr) {
            return false;
        }
        Replace(mValues, std::move(theWritten));
        Replace(mChanges, Values(nullptr));
        mIsKnown = true;
        return true;
    }

private:
    // While the values cannot be read, the domain holds those that were read last.
    void LoadValues()
    {
        Values theValues = mName.empty() ? NewDictionary() : Host::PreferenceStore::GetShared().Load(mName);
        mIsKnown = theValues.Get() != nullptr;
        if (mIsKnown) {
            Replace(mValues, std::move(theValues));
        } else if (mValues.Get() == nullptr) {
            Replace(mValues, NewDictionary());
        }
        mIsToBeLoaded = false;
    }

    static Values NewDictionary()
    {
        return Host::RequireMemory(CFDictionaryCreateMutable(nullptr, 0, &kCFTypeDictionaryKeyCallBacks,
                                                             &kCFTypeDictionaryValueCallBacks));
    }

    // NULL takes the key away. Going back to an earlier value takes no memory.
    static void Put(const Values& theValues, CFStringRef theKey, CFTypeRef theValue)
    {
        if (theValue == nullptr) {
            CFDictionaryRemoveValue(theValues.Get(), theKey);
            return;
        }
        CFDictionarySetValue(theValues.Get(), theKey, theValue);
        if (CFDictionaryGetValue(theValues.Get(), theKey) != theValue) {
            throw std::bad_alloc();
        }
    }

    static void Replace(Values& theOld, Values&& theNew) { theOld.Swap(theNew); }

    const std::string mName;
    Values mValues{nullptr};   // null: never asked for
    Values mChanges{nullptr};  // null: none
    bool mIsToBeLoaded = true; // before they are asked for the next time
    bool mIsKnown = false;     // the values are the store's, as far as it could be read
};

// What a domain is found by: the application, the user and the host, as texts that somebody else keeps.
using DomainKey = std::array<const Units*, 3>;

// The same, with texts of its own.
using OwnDomainKey = std::array<Units, 3>;

// Orders domains by their texts, the shorter first: the constants differ in length, so that most comparisons
// look at no character. A domain is looked for several times whenever a value is read.
class DomainOrder
{
public:
    using is_transparent = void;

    template <class First, class Second>
    bool operator()(const First& theFirst, const Second& theSecond) const
    {
        for (size_t theIndex = 0; theIndex < theFirst.size(); ++theIndex) {
            const int theOrder = Compare(TextOf(theFirst[theIndex]), TextOf(theSecond[theIndex]));
            if (theOrder != 0) {
                return theOrder < 0;
            }
        }
        return false;
    }

private:
    static const Units& TextOf(const Units& theUnits) { return theUnits; }
    static const Units& TextOf(const Units* theUnits) { return *theUnits; }

    static int Compare(const Units& theFirst, const Units& theSecond)
    {
        if (theFirst.size() != theSecond.size()) {
            return theFirst.size() < theSecond.size() ? -1 : 1;
        }
        return theFirst.empty()
                   ? 0
                   : std::memcmp(theFirst.data(), theSecond.data(), theFirst.size() * sizeof(UniChar));
    }
};

// All domains that this process has used. Every function holds the lock while it runs.
class Domains
{
public:
    Domain& Find(CFStringRef theApplication, CFStringRef theUser, CFStringRef theHost)
    {
        const DomainKey theKey = {&UnitsOf(theApplication), &UnitsOf(theUser), &UnitsOf(theHost)};
        const auto theFound = mDomains.find(theKey);
        if (theFound != mDomains.end()) {
            return theFound->second;
        }
        OwnDomainKey theOwnKey = {*theKey[0], *theKey[1], *theKey[2]};
        return mDomains.emplace(std::move(theOwnKey), FileName(theApplication, theUser, theHost))
            .first->second;
    }

    bool SynchronizeAll()
    {
        bool theIsWhole = true;
        for (auto& theDomain : mDomains) {
            // What is set for any user is kept nowhere, which is no failure of the others.
            const bool theIsKept = theDomain.first[1] != UnitsOf(kCFPreferencesAnyUser);
            theIsWhole = (theDomain.second.Synchronize() || !theIsKept) && theIsWhole;
        }
        return theIsWhole;
    }

    std::mutex& GetMutex() { return mMutex; }

    static Domains& GetShared()
    {
        // Preferences are used until the process ends.
        static Host::NeverDestroyed<Domains> sDomains;
        return sDomains.Get();
    }

private:
    static const Units& UnitsOf(CFStringRef theString)
    {
        return Host::Require(theString, Host::kStringType, "CFPreferences")->mUnits;
    }

    // The name of a file within the store; empty for domains that have none.
    static std::string FileName(CFStringRef theApplication, CFStringRef theUser, CFStringRef theHost)
    {
        const std::string theName = ApplicationName(theApplication);
        if (theName.empty() || !CFEqual(theUser, kCFPreferencesCurrentUser)) {
            return std::string();
        }
        if (CFEqual(theHost, kCFPreferencesAnyHost)) {
            return theName + ".plist";
        }
        return "ByHost/" + theName + "." + EscapeName(Host::HostName()) + ".plist";
    }

    static std::string ApplicationName(CFStringRef theApplication)
    {
        if (CFEqual(theApplication, kCFPreferencesAnyApplication)) {
            return ".GlobalPreferences";
        }
        if (CFEqual(theApplication, kCFPreferencesCurrentApplication)) {
            return EscapeName(Host::ProgramName());
        }
        return EscapeName(Host::UTF8Text(theApplication).value_or(""));
    }

    // No identifier leads out of the folder, and none ends before its end.
    static std::string EscapeName(const std::string& theName)
    {
        std::string theResult;
        for (const char theCharacter : theName) {
            theResult += theCharacter == '/'    ? "%2F"
                         : theCharacter == '%'  ? "%25"
                         : theCharacter == '\0' ? "%00"
                                                : std::string(1, theCharacter);
        }
        return theResult;
    }

    std::mutex mMutex;
    std::map<OwnDomainKey, Domain, DomainOrder> mDomains;
};

// Runs theFunction with the domains while no other thread does.
template <class Function>
auto WithDomains(Function theFunction) -> decltype(theFunction(Domains::GetShared()))
{
    return Host::NothingWithoutMemory([&] {
        Domains& theDomains = Domains::GetShared();
        const std::lock_guard<std::mutex> theLock(theDomains.GetMutex());
        return theFunction(theDomains);
    });
}

CFPropertyListRef CopyFrom(Domain& theDomain, CFStringRef theKey)
{
    const CFTypeRef theValue = CFDictionaryGetValue(theDomain.GetValues(), theKey);
    return theValue == nullptr ? nullptr : CFRetain(theValue);
}

void SetIn(Domain& theDomain, CFStringRef theKey, CFPropertyListRef theValue)
{
    // The domain's own dictionary is around both.
    const bool theIsKept =
        Host::IsPropertyList(theKey, 1) && (theValue == nullptr || Host::IsPropertyList(theValue, 1));
    if (!theIsKept) {
        std::fputs("CFPreferences: a value that is no property list was not set\n", stderr);
        return;
    }
    const Holder<CFPropertyListRef> theCopy(
        theValue == nullptr
            ? nullptr
            : Host::RequireMemory(Host::CopyPropertyList(theValue, Host::CopyOptions())).Release());
    theDomain.Set(theKey, theCopy.Get());
}

void RequireString(CFStringRef theString, const char* theCaller)
{
    Host::Require(theString, Host::kStringType, theCaller);
}

bool IsWord(CFStringRef theString, CFStringRef theWord)
{
    return CFStringCompare(theString, theWord, kCFCompareCaseInsensitive) == kCFCompareEqualTo;
}

// What a value says when a boolean is asked for; false for the second when it says nothing.
std::pair<bool, bool> BooleanOf(CFPropertyListRef theValue)
{
    if (CFGetTypeID(theValue) == CFBooleanGetTypeID()) {
        return {theValue == kCFBooleanTrue, true};
    }
    if (CFGetTypeID(theValue) == CFNumberGetTypeID()) {
        const CFNumberRef theNumber = static_cast<CFNumberRef>(theValue);
        SInt64 theInteger = 0;
        CFNumberGetValue(theNumber, kCFNumberSInt64Type, &theInteger);
        const bool theIsInteger = !CFNumberIsFloatType(theNumber);
        return {theIsInteger && theInteger != 0, theIsInteger};
    }
    if (CFGetTypeID(theValue) != CFStringGetTypeID()) {
        return {false, false};
    }
    const CFStringRef theWord = static_cast<CFStringRef>(theValue);
    const bool theIsTrue = IsWord(theWord, CFSTR("true")) || IsWord(theWord, CFSTR("yes"));
    return {theIsTrue, theIsTrue || IsWord(theWord, CFSTR("false")) || IsWord(theWord, CFSTR("no"))};
}

// A text that is an integer as a whole, with white space before it and behind its sign at most. What is too
// large is the nearest SInt32, on every host.
std::pair<CFIndex, bool> IntegerOf(CFStringRef theString)
{
    const auto theEnd = theString->mUnits.end();
    auto theUnit = std::find_if_not(theString->mUnits.begin(), theEnd, Host::IsWhitespace);
    if (theUnit != theEnd && (*theUnit == '+' || *theUnit == '-')) {
        theUnit = std::find_if_not(theUnit + 1, theEnd, Host::IsWhitespace);
    }
    const bool theIsWhole = theUnit != theEnd && std::all_of(theUnit, theEnd, Host::IsDigit);
    return {theIsWhole ? CFStringGetIntValue(theString) : 0, theIsWhole};
}

std::pair<CFIndex, bool> IntegerOf(CFPropertyListRef theValue)
{
    if (CFGetTypeID(theValue) == CFNumberGetTypeID() &&
        !CFNumberIsFloatType(static_cast<CFNumberRef>(theValue))) {
        CFIndex theNumber = 0;
        CFNumberGetValue(static_cast<CFNumberRef>(theValue), kCFNumberCFIndexType, &theNumber);
        return {theNumber, true};
    }
    return CFGetTypeID(theValue) == CFStringGetTypeID() ? IntegerOf(static_cast<CFStringRef>(theValue))
                                                        : std::pair<CFIndex, bool>(0, false);
}

// An application's value as theConvert sees it; nothing for an absent one.
template <class Result, class Convert>
Result GetAppValue(CFStringRef theKey, CFStringRef theApplication, Boolean* theIsValid, Convert theConvert)
{
    const Holder<CFPropertyListRef> theValue(CFPreferencesCopyAppValue(theKey, theApplication));
    const std::pair<Result, bool> theResult = theValue.Get() == nullptr
                                                  ? std::pair<Result, bool>()
                                                  : std::pair<Result, bool>(theConvert(theValue.Get()));
    if (theIsValid != nullptr) {
        *theIsValid = theResult.second;
    }
    return theResult.first;
}

CFDictionaryRef CopySome(CFDictionaryRef theValues, CFArrayRef theKeys)
{
    auto theResult = Host::RequireMemory(CFDictionaryCreateMutable(nullptr, 0, &kCFTypeDictionaryKeyCallBacks,
                                                                   &kCFTypeDictionaryValueCallBacks));
    for (CFIndex theIndex = 0; theIndex < CFArrayGetCount(theKeys); ++theIndex) {
        const void* const theKey = CFArrayGetValueAtIndex(theKeys, theIndex);
        const void* theValue = nullptr;
        if (CFDictionaryGetValueIfPresent(theValues, theKey, &theValue)) {
            CFDictionarySetValue(theResult.Get(), theKey, theValue);
        }
    }
    return theResult.Release();
}

} // namespace

const CFStringRef kCFPreferencesAnyApplication = CFSTR("kCFPreferencesAnyApplication");
const CFStringRef kCFPreferencesCurrentApplication = CFSTR("kCFPreferencesCurrentApplication");
const CFStringRef kCFPreferencesAnyHost = CFSTR("kCFPreferencesAnyHost");
const CFStringRef kCFPreferencesCurrentHost = CFSTR("kCFPreferencesCurrentHost");
const CFStringRef kCFPreferencesAnyUser = CFSTR("kCFPreferencesAnyUser");
const CFStringRef kCFPreferencesCurrentUser = CFSTR("kCFPreferencesCurrentUser");

// An application's values

CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef inKey, CFStringRef inApplication)
{
    RequireString(inKey, __func__);
    RequireString(inApplication, __func__);
    return WithDomains([=](Domains& theDomains) -> CFPropertyListRef {
        for (const CFStringRef theUser : {kCFPreferencesCurrentUser, kCFPreferencesAnyUser}) {
            for (const CFStringRef theOwner : {inApplication, kCFPreferencesAnyApplication}) {
                for (const CFStringRef theHost : {kCFPreferencesCurrentHost, kCFPreferencesAnyHost}) {
                    if (const auto theValue = CopyFrom(theDomains.Find(theOwner, theUser, theHost), inKey)) {
                        return theValue;
                    }
                }
            }
        }
        return nullptr;
    });
}

void CFPreferencesSetAppValue(CFStringRef inKey, CFPropertyListRef inValue, CFStringRef inApplication)
{
    CFPreferencesSetValue(inKey, inValue, inApplication, kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
}

Boolean CFPreferencesAppSynchronize(CFStringRef inApplication)
{
    RequireString(inApplication, __func__);
    return WithDomains([](Domains& theDomains) { return theDomains.SynchronizeAll(); });
}

Boolean CFPreferencesGetAppBooleanValue(CFStringRef inKey, CFStringRef inApplication, Boolean* outIsValid)
{
    return GetAppValue<bool>(inKey, inApplication, outIsValid, BooleanOf);
}

CFIndex CFPreferencesGetAppIntegerValue(CFStringRef inKey, CFStringRef inApplication, Boolean* outIsValid)
{
    return GetAppValue<CFIndex>(inKey, inApplication, outIsValid,
                                [](CFPropertyListRef theValue) { return IntegerOf(theValue); });
}

// One domain's values

CFPropertyListRef CFPreferencesCopyValue(CFStringRef inKey, CFStringRef inApplication, CFStringRef inUser,
                                         CFStringRef inHost)
{
    RequireString(inKey, __func__);
    return WithDomains(
        [=](Domains& theDomains) { return CopyFrom(theDomains.Find(inApplication, inUser, inHost), inKey); });
}

void CFPreferencesSetValue(CFStringRef inKey, CFPropertyListRef inValue, CFStringRef inApplication,
                           CFStringRef inUser, CFStringRef inHost)
{
    RequireString(inKey, __func__);
    WithDomains(
        [=](Domains& theDomains) { SetIn(theDomains.Find(inApplication, inUser, inHost), inKey, inValue); });
}

CFDictionaryRef CFPreferencesCopyMultiple(CFArrayRef inKeys, CFStringRef inApplication, CFStringRef inUser,
                                          CFStringRef inHost)
{
    return WithDomains([=](Domains& theDomains) {
        const CFDictionaryRef theValues = theDomains.Find(inApplication, inUser, inHost).GetValues();
        return inKeys == nullptr ? CFDictionaryCreateCopy(nullptr, theValues) : CopySome(theValues, inKeys);
    });
}

void CFPreferencesSetMultiple(CFDictionaryRef inSet, CFArrayRef inRemoved, CFStringRef inApplication,
                              CFStringRef inUser, CFStringRef inHost)
{
    WithDomains([=](Domains& theDomains) {
        Domain& theDomain = theDomains.Find(inApplication, inUser, inHost);
        if (inSet != nullptr) {
            for (const CFStringRef theKey : Host::SortedKeys(inSet)) {
                SetIn(theDomain, theKey, CFDictionaryGetValue(inSet, theKey));
            }
        }
        for (CFIndex theIndex = 0; inRemoved != nullptr && theIndex < CFArrayGetCount(inRemoved);
             ++theIndex) {
            SetIn(theDomain, static_cast<CFStringRef>(CFArrayGetValueAtIndex(inRemoved, theIndex)), nullptr);
        }
    });
}

Boolean CFPreferencesSynchronize(CFStringRef inApplication, CFStringRef inUser, CFStringRef inHost)
{
    return WithDomains(
        [=](Domains& theDomains) { return theDomains.Find(inApplication, inUser, inHost).Synchronize(); });
}

CFArrayRef CFPreferencesCopyKeyList(CFStringRef inApplication, CFStringRef inUser, CFStringRef inHost)
{
    return WithDomains([=](Domains& theDomains) -> CFArrayRef {
        const CFDictionaryRef theValues = theDomains.Find(inApplication, inUser, inHost).GetValues();
        std::vector<CFStringRef> theKeys = Host::SortedKeys(theValues);
        return theKeys.empty() ? nullptr
                               : CFArrayCreate(nullptr, reinterpret_cast<const void**>(theKeys.data()),
                                               static_cast<CFIndex>(theKeys.size()), &kCFTypeArrayCallBacks);
    });
}
