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

CFDictionaryRef CFDictionaryCreate(CFAllocatorRef, const void** inKeys, const void** inValues,
                                   CFIndex inCount, const CFDictionaryKeyCallBacks* inKeyCallBacks,
                                   const CFDictionaryValueCallBacks* inValueCallBacks)
{
    if (inCount > 0 && (inKeys == nullptr || inValues == nullptr)) {
        Host::Stop(__func__, "the keys or the values are NULL");
    }
    return Host::NothingWithoutMemory([=]() -> CFDictionaryRef {
        Host::NewObject<__CFDictionary> theDictionary(CallBacksOrPointers(inKeyCallBacks),
                                                      CallBacksOrPointers(inValueCallBacks), false);
        for (CFIndex theIndex = 0; theIndex < inCount; ++theIndex) {
            AddNewEntry(theDictionary.Get(), inKeys[theIndex], inValues[theIndex]);
        }
        return theDictionary.Release();
    });
}

CFDictionaryRef CFDictionaryCreateCopy(CFAllocatorRef, CFDictionaryRef inDictionary)
{
    return CopyDictionary(RequireDictionary(inDictionary, __func__), false);
}

CFMutableDictionaryRef CFDictionaryCreateMutable(CFAllocatorRef, CFIndex,
                                                 const CFDictionaryKeyCallBacks* inKeyCallBacks,
                                                 const CFDictionaryValueCallBacks* inValueCallBacks)
{
    return Host::NothingWithoutMemory([=] {
        return new __CFDictionary(CallBacksOrPointers(inKeyCallBacks), CallBacksOrPointers(inValueCallBacks),
                                  true);
    });
}

CFMutableDictionaryRef CFDictionaryCreateMutableCopy(CFAllocatorRef, CFIndex, CFDictionaryRef inDictionary)
{
    return CopyDictionary(RequireDictionary(inDictionary, __func__), true);
}

// Reading

CFIndex CFDictionaryGetCount(CFDictionaryRef inDictionary)
{
    return RequireDictionary(inDictionary, __func__)->GetCount();
}

CFIndex CFDictionaryGetCountOfKey(CFDictionaryRef inDictionary, const void* inKey)
{
    return CFDictionaryContainsKey(inDictionary, inKey) ? 1 : 0;
}

CFIndex CFDictionaryGetCountOfValue(CFDictionaryRef inDictionary, const void* inValue)
{
    const Entries& theEntries = RequireDictionary(inDictionary, __func__)->mEntries;
    return static_cast<CFIndex>(
        std::count_if(theEntries.begin(), theEntries.end(), [=](const Entries::value_type& theEntry) {
            return Host::EqualValues(inDictionary->mValueCallBacks, theEntry.second, inValue);
        }));
}

Boolean CFDictionaryContainsKey(CFDictionaryRef inDictionary, const void* inKey)
{
    return CFDictionaryGetValueIfPresent(inDictionary, inKey, nullptr);
}

Boolean CFDictionaryContainsValue(CFDictionaryRef inDictionary, const void* inValue)
{
    return CFDictionaryGetCountOfValue(inDictionary, inValue) > 0;
}

const void* CFDictionaryGetValue(CFDictionaryRef inDictionary, const void* inKey)
{
    const void* theValue = nullptr;
    CFDictionaryGetValueIfPresent(inDictionary, inKey, &theValue);
    return theValue;
}

Boolean CFDictionaryGetValueIfPresent(CFDictionaryRef inDictionary, const void* inKey, const void** outValue)
{
    const auto theFound = Find(RequireDictionary(inDictionary, __func__), inKey);
    if (theFound == inDictionary->mEntries.end()) {
        return false;
    }
    if (outValue != nullptr) {
        *outValue = theFound->second;
    }
    return true;
}

void CFDictionaryGetKeysAndValues(CFDictionaryRef inDictionary, const void** outKeys, const void** outValues)
{
    CFIndex theIndex = 0;
    for (const Entries::value_type& theEntry : RequireDictionary(inDictionary, __func__)->mEntries) {
        if (outKeys != nullptr) {
            outKeys[theIndex] = theEntry.first;
        }
        if (outValues != nullptr) {
            outValues[theIndex] = theEntry.second;
        }
        ++theIndex;
    }
}

void CFDictionaryApplyFunction(CFDictionaryRef inDictionary, CFDictionaryApplierFunction inFunction,
                               void* inContext)
{
    for (const Entries::value_type& theEntry : RequireDictionary(inDictionary, __func__)->mEntries) {
        inFunction(theEntry.first, theEntry.second, inContext);
    }
}

// Changing

void CFDictionaryAddValue(CFMutableDictionaryRef inDictionary, const void* inKey, const void* inValue)
{
    RequireMutableDictionary(inDictionary, __func__);
    Host::NothingWithoutMemory([=] { AddNewEntry(inDictionary, inKey, inValue); });
}

void CFDictionarySetValue(CFMutableDictionaryRef inDictionary, const void* inKey, const void* inValue)
{
    RequireMutableDictionary(inDictionary, __func__);
    Host::NothingWithoutMemory([=] {
        const auto theFound = Find(inDictionary, inKey);
        if (theFound == inDictionary->mEntries.end()) {
            AddEntry(inDictionary, inKey, inValue);
        } else {
            ReplaceEntry(inDictionary, theFound, inValue);
        }
    });
}

void CFDictionaryReplaceValue(CFMutableDictionaryRef inDictionary, const void* inKey, const void* inValue)
{
    const auto theFound = Find(RequireMutableDictionary(inDictionary, __func__), inKey);
    if (theFound != inDictionary->mEntries.end()) {
        ReplaceEntry(inDictionary, theFound, inValue);
    }
}

void CFDictionaryRemoveValue(CFMutableDictionaryRef inDictionary, const void* inKey)
{
    const auto theFound = Find(RequireMutableDictionary(inDictionary, __func__), inKey);
    if (theFound != inDictionary->mEntries.end()) {
        const Entries::value_type theEntry = *theFound;
        inDictionary->mEntries.erase(theFound);
        ReleaseEntry(*inDictionary, theEntry);
    }
}

void CFDictionaryRemoveAllValues(CFMutableDictionaryRef inDictionary)
{
    RequireMutableDictionary(inDictionary, __func__);
    // A release may run code that looks at the dictionary, which is already without the entry.
    while (!inDictionary->mEntries.empty()) {
        const Entries::value_type theEntry = *inDictionary->mEntries.begin();
        inDictionary->mEntries.erase(inDictionary->mEntries.begin());
        ReleaseEntry(*inDictionary, theEntry);
    }
}
