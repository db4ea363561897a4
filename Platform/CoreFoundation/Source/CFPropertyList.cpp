// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreFoundation/CFPropertyList.h>

#include "CFArrayObject.h"
#include "CFCalendar.h"
#include "CFDictionaryObject.h"
#include "CFNumberObject.h"
#include "CFPropertyListLibrary.h"
#include "CFPropertyListReader.h"
#include "CFPropertyListSupport.h"
#include "CFStringObject.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace {

using Host::CopyOptions;
using Host::Holder;

bool IsValid(CFPropertyListRef theObject, int theDepth);

// Containers of plain pointers cannot be looked at.
bool IsValidArray(CFArrayRef theArray, int theDepth)
{
    return theArray->mCallBacks.equal == CFEqual &&
           std::all_of(theArray->mValues.begin(), theArray->mValues.end(),
                       [=](const void* theValue) { return IsValid(theValue, theDepth + 1); });
}

bool IsValidEntry(const void* theKey, const void* theValue, int theDepth)
{
    return CFGetTypeID(theKey) == Host::kStringTypeID && IsValid(theKey, theDepth) &&
           IsValid(theValue, theDepth);
}

bool IsValidDictionary(CFDictionaryRef theDictionary, int theDepth)
{
    return theDictionary->mKeyCallBacks.equal == CFEqual && theDictionary->mValueCallBacks.equal == CFEqual &&
           std::all_of(theDictionary->mEntries.begin(), theDictionary->mEntries.end(),
                       [=](const Host::Entries::value_type& theEntry) {
                           return IsValidEntry(theEntry.first, theEntry.second, theDepth + 1);
                       });
}

bool IsValid(CFPropertyListRef theObject, int theDepth)
{
    if (theObject == nullptr || theDepth >= Host::kDeepestNesting) {
        return false;
    }
    switch (CFGetTypeID(theObject)) {
    case Host::kArrayTypeID:
        return IsValidArray(static_cast<CFArrayRef>(theObject), theDepth);
    case Host::kDictionaryTypeID:
        return IsValidDictionary(static_cast<CFDictionaryRef>(theObject), theDepth);
    case Host::kStringTypeID:
        return Host::UTF8Text(static_cast<CFStringRef>(theObject)).has_value();
    case Host::kDateTypeID:
        return Host::DateText(CFDateGetAbsoluteTime(static_cast<CFDateRef>(theObject))).has_value();
    default:
        return CFGetTypeID(theObject) == Host::kNumberTypeID ||
               CFGetTypeID(theObject) == Host::kBooleanTypeID || CFGetTypeID(theObject) == Host::kDataTypeID;
    }
}

// Copying

CFPropertyListRef CopyList(CFPropertyListRef theObject, const CopyOptions& theOptions);

CFPropertyListRef CopyArray(CFArrayRef theArray, const CopyOptions& theOptions)
{
    Host::NewObject<__CFArray> theCopy(kCFTypeArrayCallBacks, theOptions.theHasMutableContainers);
    theCopy.Get()->mValues.reserve(theArray->mValues.size());
    for (const void* theValue : theArray->mValues) {
        theCopy.Get()->mValues.push_back(CopyList(theValue, theOptions));
    }
    return theCopy.Release();
}

CFPropertyListRef CopyDictionary(CFDictionaryRef theDictionary, const CopyOptions& theOptions)
{
    Host::NewObject<__CFDictionary> theCopy(kCFTypeDictionaryKeyCallBacks, kCFTypeDictionaryValueCallBacks,
                                            theOptions.theHasMutableContainers);
    for (const Host::Entries::value_type& theEntry : theDictionary->mEntries) {
        auto theKey =
            Host::RequireMemory(CFStringCreateCopy(nullptr, static_cast<CFStringRef>(theEntry.first)));
        Holder<CFPropertyListRef> theValue(CopyList(theEntry.second, theOptions));
        theCopy.Get()->mEntries.emplace(theKey.Get(), theValue.Get());
        theKey.Release();
        theValue.Release();
    }
    return theCopy.Release();
}

CFPropertyListRef CopyNumberAsRead(CFNumberRef theNumber)
{
    if (theNumber->IsFloat()) {
        return CFNumberCreate(nullptr, kCFNumberFloat64Type, &theNumber->mFloat);
    }
    const SInt32 theShort = static_cast<SInt32>(theNumber->mInteger);
    return theShort == theNumber->mInteger
               ? CFNumberCreate(nullptr, kCFNumberSInt32Type, &theShort)
               : CFNumberCreate(nullptr, kCFNumberSInt64Type, &theNumber->mInteger);
}

CFPropertyListRef CopyLeaf(CFPropertyListRef theLeaf, const CopyOptions& theOptions)
{
    switch (CFGetTypeID(theLeaf)) {
    case Host::kStringTypeID:
        if (theOptions.theHasMutableLeaves) {
            return CFStringCreateMutableCopy(nullptr, 0, static_cast<CFStringRef>(theLeaf));
        }
        return CFStringCreateCopy(nullptr, static_cast<CFStringRef>(theLeaf));
    case Host::kDataTypeID:
        if (theOptions.theHasMutableLeaves) {
            return CFDataCreateMutableCopy(nullptr, 0, static_cast<CFDataRef>(theLeaf));
        }
        return CFDataCreateCopy(nullptr, static_cast<CFDataRef>(theLeaf));
    case Host::kNumberTypeID:
        return theOptions.theHasNumbersAsRead ? CopyNumberAsRead(static_cast<CFNumberRef>(theLeaf))
                                              : CFRetain(theLeaf);
    default:
        return CFRetain(theLeaf);
    }
}

CFPropertyListRef CopyList(CFPropertyListRef theObject, const CopyOptions& theOptions)
{
    if (CFGetTypeID(theObject) == Host::kArrayTypeID) {
        return CopyArray(static_cast<CFArrayRef>(theObject), theOptions);
    }
    if (CFGetTypeID(theObject) == Host::kDictionaryTypeID) {
        return CopyDictionary(static_cast<CFDictionaryRef>(theObject), theOptions);
    }
    return Host::RequireMemory(CopyLeaf(theObject, theOptions)).Release();
}

CopyOptions OptionsOf(CFOptionFlags theMutability)
{
    CopyOptions theOptions;
    theOptions.theHasMutableContainers = theMutability != kCFPropertyListImmutable;
    theOptions.theHasMutableLeaves = (theMutability & kCFPropertyListMutableContainersAndLeaves) != 0;
    return theOptions;
}

CFPropertyListRef ReadData(CFDataRef theData, CFOptionFlags theMutability, CFStringRef* theError)
{
    const std::string_view theText(reinterpret_cast<const char*>(CFDataGetBytePtr(theData)),
                                   static_cast<size_t>(CFDataGetLength(theData)));
    try {
        return Host::CopyPropertyList(Host::ReadPropertyList(theText).Get(), OptionsOf(theMutability));
    } catch (const Host::MalformedPropertyList& theReason) {
        if (theError != nullptr) {
            *theError = Host::Text().Append(theReason.what()).CopyString();
        }
        return nullptr;
    }
}

} // namespace

bool Host::IsPropertyList(CFPropertyListRef theList)
{
    return IsValid(theList, 0);
}

CFPropertyListRef Host::CopyPropertyList(CFPropertyListRef theList, const CopyOptions& theOptions)
{
    return IsPropertyList(theList) ? CopyList(theList, theOptions) : nullptr;
}

Host::Holder<CFPropertyListRef> Host::ReadPropertyList(std::string_view theData)
{
    if (theData.substr(0, 6) != "bplist") {
        return ReadXMLPropertyList(theData);
    }
    const std::string theText =
        IsSafeBinaryPropertyList(theData) ? XMLOfBinaryPropertyList(theData) : std::string();
    if (theText.empty()) {
        throw MalformedPropertyList("the binary form is damaged");
    }
    return ReadXMLPropertyList(theText);
}

std::vector<CFStringRef> Host::SortedKeys(CFDictionaryRef theDictionary)
{
    std::vector<CFStringRef> theKeys;
    for (const Entries::value_type& theEntry : theDictionary->mEntries) {
        theKeys.push_back(static_cast<CFStringRef>(theEntry.first));
    }
    std::sort(theKeys.begin(), theKeys.end(), [](CFStringRef theFirst, CFStringRef theSecond) {
        return CFStringCompare(theFirst, theSecond, 0) == kCFCompareLessThan;
    });
    return theKeys;
}

std::optional<std::string> Host::UTF8Text(CFStringRef theString)
{
    const CFRange theRange = CFRangeMake(0, theString->GetLength());
    std::string theText(static_cast<size_t>(theRange.length) * 3, '\0');
    CFIndex theUsed = 0;
    const CFIndex theConverted = CFStringGetBytes(theString, theRange, kCFStringEncodingUTF8, 0, false,
                                                  reinterpret_cast<UInt8*>(theText.data()),
                                                  static_cast<CFIndex>(theText.size()), &theUsed);
    theText.resize(static_cast<size_t>(theUsed));
    if (theConverted != theRange.length || theText.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    return theText;
}

CFDataRef CFPropertyListCreateXMLData(CFAllocatorRef theAllocator, CFPropertyListRef theList)
{
    return Host::NothingWithoutMemory([=]() -> CFDataRef {
        const std::string theText = Host::IsPropertyList(theList) ? Host::WriteXMLPropertyList(theList) : "";
        return theText.empty() ? nullptr
                               : CFDataCreate(theAllocator, reinterpret_cast<const UInt8*>(theText.data()),
                                              static_cast<CFIndex>(theText.size()));
    });
}

CFPropertyListRef CFPropertyListCreateFromXMLData(CFAllocatorRef, CFDataRef theData,
                                                  CFOptionFlags theMutability, CFStringRef* theError)
{
    if (theError != nullptr) {
        *theError = nullptr;
    }
    return Host::NothingWithoutMemory([=] { return ReadData(theData, theMutability, theError); });
}

CFPropertyListRef CFPropertyListCreateDeepCopy(CFAllocatorRef, CFPropertyListRef theList,
                                               CFOptionFlags theMutability)
{
    return Host::NothingWithoutMemory(
        [=] { return Host::CopyPropertyList(theList, OptionsOf(theMutability)); });
}

Boolean CFPropertyListIsValid(CFPropertyListRef theList, CFPropertyListFormat theFormat)
{
    const bool theIsKnown =
        theFormat == kCFPropertyListXMLFormat_v1_0 || theFormat == kCFPropertyListBinaryFormat_v1_0;
    return Host::NothingWithoutMemory([=] { return theIsKnown && Host::IsPropertyList(theList); });
}
