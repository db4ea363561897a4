// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreFoundation/CFPropertyList.h>

#include "CFArrayObject.h"
#include "CFCalendar.h"
#include "CFDictionaryObject.h"
#include "CFNumberObject.h"
#include "CFPropertyListForms.h"
#include "CFPropertyListSupport.h"
#include "CFPropertyListText.h"
#include "CFStringObject.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace {

using Host::CopyOptions;
using Host::Holder;

// Why an object cannot be part of a property list; null when it can.
const char* FaultOf(CFPropertyListRef theObject, int theDepth);

// Containers of plain pointers cannot be looked at.
const char* const kPlainPointers = "a container holds something else than objects";

const char* FaultOfArray(CFArrayRef theArray, int theDepth)
{
    if (theArray->mCallBacks.equal != CFEqual) {
        return kPlainPointers;
    }
    const char* theFault = nullptr;
    for (size_t theIndex = 0; theFault == nullptr && theIndex < theArray->mValues.size(); ++theIndex) {
        theFault = FaultOf(theArray->mValues[theIndex], theDepth + 1);
    }
    return theFault;
}

const char* FaultOfEntry(const void* theKey, const void* theValue, int theDepth)
{
    if (CFGetTypeID(theKey) != Host::kStringTypeID) {
        return "a key is no string";
    }
    const char* const theFault = FaultOf(theKey, theDepth);
    return theFault == nullptr ? FaultOf(theValue, theDepth) : theFault;
}

const char* FaultOfDictionary(CFDictionaryRef theDictionary, int theDepth)
{
    if (theDictionary->mKeyCallBacks.equal != CFEqual || theDictionary->mValueCallBacks.equal != CFEqual) {
        return kPlainPointers;
    }
    for (const Host::Entries::value_type& theEntry : theDictionary->mEntries) {
        if (const char* theFault = FaultOfEntry(theEntry.first, theEntry.second, theDepth + 1)) {
            return theFault;
        }
    }
    return nullptr;
}

const char* FaultOfLeaf(CFPropertyListRef theLeaf)
{
    switch (CFGetTypeID(theLeaf)) {
    case Host::kStringTypeID:
        return Host::UTF8Text(static_cast<CFStringRef>(theLeaf)).has_value() ? nullptr : Host::kHalfAPair;
    case Host::kDateTypeID:
        return Host::DateText(CFDateGetAbsoluteTime(static_cast<CFDateRef>(theLeaf))).has_value()
                   ? nullptr
                   : Host::kDateWithoutText;
    case Host::kNumberTypeID:
    case Host::kBooleanTypeID:
    case Host::kDataTypeID:
        return nullptr;
    default:
        return "there is an object that no file can hold";
    }
}

const char* FaultOf(CFPropertyListRef theObject, int theDepth)
{
    if (theObject == nullptr) {
        return "there is no object";
    }
    if (theDepth >= Host::kDeepestNesting) {
        return Host::kTooDeep;
    }
    switch (CFGetTypeID(theObject)) {
    case Host::kArrayTypeID:
        return FaultOfArray(static_cast<CFArrayRef>(theObject), theDepth);
    case Host::kDictionaryTypeID:
        return FaultOfDictionary(static_cast<CFDictionaryRef>(theObject), theDepth);
    default:
        return FaultOfLeaf(theObject);
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
    return Host::MakeReadInteger(theNumber->mInteger);
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

std::string_view BytesOf(CFDataRef theData)
{
    return std::string_view(reinterpret_cast<const char*>(CFDataGetBytePtr(theData)),
                            static_cast<size_t>(CFDataGetLength(theData)));
}

// Reads the data; without success, calls theReport with the reason.
template <class Report>
CFPropertyListRef ReadData(CFDataRef theData, CFOptionFlags theMutability, CFPropertyListFormat& theFormat,
                           Report theReport)
{
    const std::string_view theText = BytesOf(theData);
    try {
        return Host::CopyPropertyList(Host::ReadPropertyList(theText, theFormat).Get(),
                                      OptionsOf(theMutability));
    } catch (const Host::MalformedPropertyList& theReason) {
        theReport(theReason.what());
        return nullptr;
    }
}

CFDataRef MakeData(const std::string& theText)
{
    return CFDataCreate(nullptr, reinterpret_cast<const UInt8*>(theText.data()),
                        static_cast<CFIndex>(theText.size()));
}

// Nothing when nobody wants the error.
void ReportError(CFErrorRef* theError, CFIndex theCode, const char* theReason)
{
    if (theError == nullptr) {
        return;
    }
    const Holder<CFStringRef> theText(Host::Text().Append(theReason).CopyString());
    const void* const theKeys[] = {kCFErrorDescriptionKey};
    const void* const theValues[] = {theText.Get()};
    *theError =
        CFErrorCreateWithUserInfoKeysAndValues(nullptr, kCFErrorDomainCocoa, theCode, theKeys, theValues, 1);
}

bool IsWritable(CFPropertyListFormat theFormat)
{
    return theFormat == kCFPropertyListXMLFormat_v1_0 || theFormat == kCFPropertyListBinaryFormat_v1_0;
}

// Why a list cannot be written in a format; null when it can.
const char* WritingFaultOf(CFPropertyListRef theList, CFPropertyListFormat theFormat)
{
    return IsWritable(theFormat) ? FaultOf(theList, 0) : "nothing is written in this format";
}

} // namespace

bool Host::IsPropertyList(CFPropertyListRef theList, int theDepth)
{
    return FaultOf(theList, theDepth) == nullptr;
}

CFPropertyListRef Host::CopyPropertyList(CFPropertyListRef theList, const CopyOptions& theOptions)
{
    return IsPropertyList(theList) ? CopyList(theList, theOptions) : nullptr;
}

Host::Holder<CFPropertyListRef> Host::ReadPropertyList(std::string_view theData,
                                                       CFPropertyListFormat& theFormat)
{
    if (theData.empty()) {
        throw MalformedPropertyList("there is nothing");
    }
    if (IsBinaryPropertyList(theData)) {
        theFormat = kCFPropertyListBinaryFormat_v1_0;
        return ReadBinaryPropertyList(theData);
    }
    const std::string theText = DecodePropertyListText(theData);
    const bool theIsXML = !IsOpenStepPropertyList(theText);
    theFormat = theIsXML ? kCFPropertyListXMLFormat_v1_0 : kCFPropertyListOpenStepFormat;
    return theIsXML ? ReadXMLPropertyList(theText) : ReadOpenStepPropertyList(theText);
}

CFNumberRef Host::MakeReadInteger(SInt64 theValue)
{
    return CFNumberCreate(nullptr, kCFNumberSInt64Type, &theValue);
}

// A container that had no memory for a value has stayed as it was.
void Host::AppendToList(CFMutableArrayRef theArray, CFPropertyListRef theValue)
{
    const CFIndex theCount = CFArrayGetCount(theArray);
    CFArrayAppendValue(theArray, theValue);
    if (CFArrayGetCount(theArray) == theCount) {
        throw std::bad_alloc();
    }
}

void Host::SetInList(CFMutableDictionaryRef theDictionary, CFStringRef theKey, CFPropertyListRef theValue)
{
    CFDictionarySetValue(theDictionary, theKey, theValue);
    if (CFDictionaryGetValue(theDictionary, theKey) != theValue) {
        throw std::bad_alloc();
    }
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
    return theConverted == theRange.length ? std::optional<std::string>(theText) : std::nullopt;
}

CFDataRef CFPropertyListCreateXMLData(CFAllocatorRef inAllocator, CFPropertyListRef inList)
{
    return CFPropertyListCreateData(inAllocator, inList, kCFPropertyListXMLFormat_v1_0, 0, nullptr);
}

CFDataRef CFPropertyListCreateData(CFAllocatorRef, CFPropertyListRef inList, CFPropertyListFormat inFormat,
                                   CFOptionFlags, CFErrorRef* outError)
{
    if (outError != nullptr) {
        *outError = nullptr;
    }
    return Host::NothingWithoutMemory([=]() -> CFDataRef {
        if (const char* const theFault = WritingFaultOf(inList, inFormat)) {
            ReportError(outError, kCFPropertyListWriteStreamError, theFault);
            return nullptr;
        }
        return MakeData(inFormat == kCFPropertyListXMLFormat_v1_0 ? Host::WriteXMLPropertyList(inList)
                                                                  : Host::WriteBinaryPropertyList(inList));
    });
}

CFPropertyListRef CFPropertyListCreateFromXMLData(CFAllocatorRef, CFDataRef inData,
                                                  CFOptionFlags inMutability, CFStringRef* outError)
{
    if (outError != nullptr) {
        *outError = nullptr;
    }
    return Host::NothingWithoutMemory([=] {
        CFPropertyListFormat theFormat = 0;
        return ReadData(inData, inMutability, theFormat, [outError](const char* theReason) {
            if (outError != nullptr) {
                *outError = Host::Text().Append(theReason).CopyString();
            }
        });
    });
}

CFPropertyListRef CFPropertyListCreateWithData(CFAllocatorRef, CFDataRef inData, CFOptionFlags inMutability,
                                               CFPropertyListFormat* outFormat, CFErrorRef* outError)
{
    if (outError != nullptr) {
        *outError = nullptr;
    }
    return Host::NothingWithoutMemory([=] {
        CFPropertyListFormat theFoundFormat = 0;
        const CFPropertyListRef theList =
            ReadData(inData, inMutability, theFoundFormat, [outError](const char* theReason) {
                ReportError(outError, kCFPropertyListReadCorruptError, theReason);
            });
        if (theList != nullptr && outFormat != nullptr) {
            *outFormat = theFoundFormat;
        }
        return theList;
    });
}

CFPropertyListRef CFPropertyListCreateDeepCopy(CFAllocatorRef, CFPropertyListRef inList,
                                               CFOptionFlags inMutability)
{
    return Host::NothingWithoutMemory(
        [=] { return Host::CopyPropertyList(inList, OptionsOf(inMutability)); });
}

Boolean CFPropertyListIsValid(CFPropertyListRef inList, CFPropertyListFormat inFormat)
{
    return Host::NothingWithoutMemory([=] { return WritingFaultOf(inList, inFormat) == nullptr; });
}
