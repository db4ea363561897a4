// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFDictionaryObject.h"

#include "CFText.h"

#include <algorithm>
#include <CoreFoundation/CFString.h>

namespace {

using Host::Entries;

constexpr CFDictionaryKeyCallBacks kPointerKeyCallBacks = {0, nullptr, nullptr, nullptr, nullptr, nullptr};
constexpr CFDictionaryValueCallBacks kPointerValueCallBacks = {0, nullptr, nullptr, nullptr, nullptr};

CFDictionaryRef RequireDictionary(CFDictionaryRef theDictionary, const char* theCaller)
{
    return Host::Require(theDictionary, Host::kDictionaryType, theCaller);
}

CFMutableDictionaryRef RequireMutableDictionary(CFMutableDictionaryRef theDictionary, const char* theCaller)
{
    return Host::RequireMutable(theDictionary, Host::kDictionaryType, theCaller);
}

// An empty dictionary looks at no key, not even at one that cannot be hashed.
Entries::const_iterator Find(CFDictionaryRef theDictionary, const void* theKey)
{
    return theDictionary->mEntries.empty() ? theDictionary->mEntries.end()
                                           : theDictionary->mEntries.find(theKey);
}

// Only for absent keys. A key that finds no place is given back.
void AddEntry(CFMutableDictionaryRef theDictionary, const void* theKey, const void* theValue)
{
    const void* const theOwnKey = Host::RetainValue(theDictionary->mKeyCallBacks, theKey);
    if (theOwnKey == nullptr && theKey != nullptr) {
        return;
    }
    const void*& thePlace = [=]() -> const void*& {
        try {
            return theDictionary->mEntries[theOwnKey];
        } catch (...) {
            Host::ReleaseValue(theDictionary->mKeyCallBacks, theOwnKey);
            throw;
        }
    }();
    thePlace = Host::RetainValue(theDictionary->mValueCallBacks, theValue);
}

void ReplaceEntry(CFMutableDictionaryRef theDictionary, Entries::const_iterator theEntry,
                  const void* theValue)
{
    // Erasing nothing makes the iterator one that can write. The old value may be the only owner of the new
    // one.
    const void*& thePlace = theDictionary->mEntries.erase(theEntry, theEntry)->second;
    const void* const theOldValue = thePlace;
    thePlace = Host::RetainValue(theDictionary->mValueCallBacks, theValue);
    Host::ReleaseValue(theDictionary->mValueCallBacks, theOldValue);
}

void ReleaseEntry(const __CFDictionary& theDictionary, const Entries::value_type& theEntry)
{
    Host::ReleaseValue(theDictionary.mValueCallBacks, theEntry.second);
    Host::ReleaseValue(theDictionary.mKeyCallBacks, theEntry.first);
}

// The first of equal keys stays.
void AddNewEntry(CFMutableDictionaryRef theDictionary, const void* theKey, const void* theValue)
{
    if (Find(theDictionary, theKey) == theDictionary->mEntries.end()) {
        AddEntry(theDictionary, theKey, theValue);
    }
}

CFMutableDictionaryRef CopyDictionary(CFDictionaryRef theDictionary, bool theIsMutable)
{
    return Host::NothingWithoutMemory([=] {
        Host::NewObject<__CFDictionary> theCopy(theDictionary->mKeyCallBacks, theDictionary->mValueCallBacks,
                                                theIsMutable);
        for (const Entries::value_type& theEntry : theDictionary->mEntries) {
            AddEntry(theCopy.Get(), theEntry.first, theEntry.second);
        }
        return theCopy.Release();
    });
}

const CFDictionaryKeyCallBacks& CallBacksOrPointers(const CFDictionaryKeyCallBacks* theCallBacks)
{
    return theCallBacks == nullptr ? kPointerKeyCallBacks : *theCallBacks;
}

const CFDictionaryValueCallBacks& CallBacksOrPointers(const CFDictionaryValueCallBacks* theCallBacks)
{
    return theCallBacks == nullptr ? kPointerValueCallBacks : *theCallBacks;
}

// Operations of the type

CFDictionaryRef DictionaryOf(const Host::Object* theObject)
{
    return static_cast<CFDictionaryRef>(theObject);
}

bool EqualDictionaries(const Host::Object* theFirst, const Host::Object* theSecond)
{
    const CFDictionaryRef theDictionary = DictionaryOf(theFirst);
    const CFDictionaryRef theOther = DictionaryOf(theSecond);
    return theDictionary->GetCount() == theOther->GetCount() &&
           std::all_of(theDictionary->mEntries.begin(), theDictionary->mEntries.end(),
                       [=](const Entries::value_type& theEntry) {
                           const auto theFound = Find(theOther, theEntry.first);
                           return theFound != theOther->mEntries.end() &&
                                  Host::EqualValues(theDictionary->mValueCallBacks, theEntry.second,
                                                    theFound->second);
                       });
}

CFHashCode HashDictionary(const Host::Object* theObject)
{
    return static_cast<CFHashCode>(DictionaryOf(theObject)->GetCount());
}

CFStringRef DescribeDictionary(const Host::Object* theObject)
{
    const CFDictionaryRef theDictionary = DictionaryOf(theObject);
    Host::Text theText;
    theText.AppendHeader(theObject)
        .Append(theDictionary->mIsMutable ? "{type = mutable, count = " : "{type = immutable, count = ")
        .Append(std::to_string(theDictionary->GetCount()))
        .Append(", entries = (\n");
    for (const Entries::value_type& theEntry : theDictionary->mEntries) {
        theText.Append("\t")
            .AppendDescription(theEntry.first, theDictionary->mKeyCallBacks.copyDescription)
            .Append(" = ")
            .AppendDescription(theEntry.second, theDictionary->mValueCallBacks.copyDescription)
            .Append("\n");
    }
    return theText.Append(")}").CopyString();
}

const void* CopyStringKey(CFAllocatorRef theAllocator, const void* theKey)
{
    return CFStringCreateCopy(theAllocator, static_cast<CFStringRef>(theKey));
}

} // namespace

const Host::TypeOperations Host::kDictionaryType = {
    Host::kDictionaryTypeID, "CFDictionary", Host::Delete<__CFDictionary>, EqualDictionaries, HashDictionary,
    DescribeDictionary,      nullptr};

const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks = {
    0, Host::RetainObject, Host::ReleaseObject, CFCopyDescription, CFEqual, CFHash};
const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks = {
    0, Host::RetainObject, Host::ReleaseObject, CFCopyDescription, CFEqual};
const CFDictionaryKeyCallBacks kCFCopyStringDictionaryKeyCallBacks = {
    0, CopyStringKey, Host::ReleaseObject, CFCopyDescription, CFEqual, CFHash};

__CFDictionary::~__CFDictionary()
{
    for (const Entries::value_type& theEntry : mEntries) {
        ReleaseEntry(*this, theEntry);
    }
}

CFTypeID CFDictionaryGetTypeID()
{
    return Host::kDictionaryTypeID;
}

// Making dictionaries

CFDictionaryRef CFDictionaryCreate(CFAllocatorRef, const void** theKeys, const void** theValues,
                                   CFIndex theCount, const CFDictionaryKeyCallBacks* theKeyCallBacks,
                                   const CFDictionaryValueCallBacks* theValueCallBacks)
{
    if (theCount > 0 && (theKeys == nullptr || theValues == nullptr)) {
        Host::Stop(__func__, "the keys or the values are NULL");
    }
    return Host::NothingWithoutMemory([=]() -> CFDictionaryRef {
        Host::NewObject<__CFDictionary> theDictionary(CallBacksOrPointers(theKeyCallBacks),
                                                      CallBacksOrPointers(theValueCallBacks), false);
        for (CFIndex theIndex = 0; theIndex < theCount; ++theIndex) {
            AddNewEntry(theDictionary.Get(), theKeys[theIndex], theValues[theIndex]);
        }
        return theDictionary.Release();
    });
}

CFDictionaryRef CFDictionaryCreateCopy(CFAllocatorRef, CFDictionaryRef theDictionary)
{
    return CopyDictionary(RequireDictionary(theDictionary, __func__), false);
}

CFMutableDictionaryRef CFDictionaryCreateMutable(CFAllocatorRef, CFIndex,
                                                 const CFDictionaryKeyCallBacks* theKeyCallBacks,
                                                 const CFDictionaryValueCallBacks* theValueCallBacks)
{
    return Host::NothingWithoutMemory([=] {
        return new __CFDictionary(CallBacksOrPointers(theKeyCallBacks),
                                  CallBacksOrPointers(theValueCallBacks), true);
    });
}

CFMutableDictionaryRef CFDictionaryCreateMutableCopy(CFAllocatorRef, CFIndex, CFDictionaryRef theDictionary)
{
    return CopyDictionary(RequireDictionary(theDictionary, __func__), true);
}

// Reading

CFIndex CFDictionaryGetCount(CFDictionaryRef theDictionary)
{
    return RequireDictionary(theDictionary, __func__)->GetCount();
}

CFIndex CFDictionaryGetCountOfKey(CFDictionaryRef theDictionary, const void* theKey)
{
    return CFDictionaryContainsKey(theDictionary, theKey) ? 1 : 0;
}

CFIndex CFDictionaryGetCountOfValue(CFDictionaryRef theDictionary, const void* theValue)
{
    const Entries& theEntries = RequireDictionary(theDictionary, __func__)->mEntries;
    return static_cast<CFIndex>(
        std::count_if(theEntries.begin(), theEntries.end(), [=](const Entries::value_type& theEntry) {
            return Host::EqualValues(theDictionary->mValueCallBacks, theEntry.second, theValue);
        }));
}

Boolean CFDictionaryContainsKey(CFDictionaryRef theDictionary, const void* theKey)
{
    return CFDictionaryGetValueIfPresent(theDictionary, theKey, nullptr);
}

Boolean CFDictionaryContainsValue(CFDictionaryRef theDictionary, const void* theValue)
{
    return CFDictionaryGetCountOfValue(theDictionary, theValue) > 0;
}

const void* CFDictionaryGetValue(CFDictionaryRef theDictionary, const void* theKey)
{
    const void* theValue = nullptr;
    CFDictionaryGetValueIfPresent(theDictionary, theKey, &theValue);
    return theValue;
}

Boolean CFDictionaryGetValueIfPresent(CFDictionaryRef theDictionary, const void* theKey,
                                      const void** theValue)
{
    const auto theFound = Find(RequireDictionary(theDictionary, __func__), theKey);
    if (theFound == theDictionary->mEntries.end()) {
        return false;
    }
    if (theValue != nullptr) {
        *theValue = theFound->second;
    }
    return true;
}

void CFDictionaryGetKeysAndValues(CFDictionaryRef theDictionary, const void** theKeys, const void** theValues)
{
    CFIndex theIndex = 0;
    for (const Entries::value_type& theEntry : RequireDictionary(theDictionary, __func__)->mEntries) {
        if (theKeys != nullptr) {
            theKeys[theIndex] = theEntry.first;
        }
        if (theValues != nullptr) {
            theValues[theIndex] = theEntry.second;
        }
        ++theIndex;
    }
}

void CFDictionaryApplyFunction(CFDictionaryRef theDictionary, CFDictionaryApplierFunction theFunction,
                               void* theContext)
{
    for (const Entries::value_type& theEntry : RequireDictionary(theDictionary, __func__)->mEntries) {
        theFunction(theEntry.first, theEntry.second, theContext);
    }
}

// Changing

void CFDictionaryAddValue(CFMutableDictionaryRef theDictionary, const void* theKey, const void* theValue)
{
    RequireMutableDictionary(theDictionary, __func__);
    Host::NothingWithoutMemory([=] { AddNewEntry(theDictionary, theKey, theValue); });
}

void CFDictionarySetValue(CFMutableDictionaryRef theDictionary, const void* theKey, const void* theValue)
{
    RequireMutableDictionary(theDictionary, __func__);
    Host::NothingWithoutMemory([=] {
        const auto theFound = Find(theDictionary, theKey);
        if (theFound == theDictionary->mEntries.end()) {
            AddEntry(theDictionary, theKey, theValue);
        } else {
            ReplaceEntry(theDictionary, theFound, theValue);
        }
    });
}

void CFDictionaryReplaceValue(CFMutableDictionaryRef theDictionary, const void* theKey, const void* theValue)
{
    const auto theFound = Find(RequireMutableDictionary(theDictionary, __func__), theKey);
    if (theFound != theDictionary->mEntries.end()) {
        ReplaceEntry(theDictionary, theFound, theValue);
    }
}

void CFDictionaryRemoveValue(CFMutableDictionaryRef theDictionary, const void* theKey)
{
    const auto theFound = Find(RequireMutableDictionary(theDictionary, __func__), theKey);
    if (theFound != theDictionary->mEntries.end()) {
        const Entries::value_type theEntry = *theFound;
        theDictionary->mEntries.erase(theFound);
        ReleaseEntry(*theDictionary, theEntry);
    }
}

void CFDictionaryRemoveAllValues(CFMutableDictionaryRef theDictionary)
{
    RequireMutableDictionary(theDictionary, __func__);
    // A release may run code that looks at the dictionary, which is already without the entry.
    while (!theDictionary->mEntries.empty()) {
        const Entries::value_type theEntry = *theDictionary->mEntries.begin();
        theDictionary->mEntries.erase(theDictionary->mEntries.begin());
        ReleaseEntry(*theDictionary, theEntry);
    }
}
