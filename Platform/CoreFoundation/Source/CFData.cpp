// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CFDataObject.h"

#include "CFText.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

CFDataRef DataOf(const Host::Object* theObject)
{
    return static_cast<CFDataRef>(theObject);
}

bool EqualData(const Host::Object* theFirst, const Host::Object* theSecond)
{
    return std::equal(
        DataOf(theFirst)->GetBytes(), DataOf(theFirst)->GetBytes() + DataOf(theFirst)->GetLength(),
        DataOf(theSecond)->GetBytes(), DataOf(theSecond)->GetBytes() + DataOf(theSecond)->GetLength());
}

// The length and the first bytes: hashing stays cheap for long data.
CFHashCode HashData(const Host::Object* theObject)
{
    constexpr CFIndex kMostBytes = 80;
    const CFIndex theLength = DataOf(theObject)->GetLength();
    CFHashCode theHash = static_cast<CFHashCode>(theLength);
    const UInt8* const theBytes = DataOf(theObject)->GetBytes();
    std::for_each(theBytes, theBytes + std::min(theLength, kMostBytes),
                  [&theHash](UInt8 theByte) { theHash = theHash * 31 + theByte; });
    return theHash;
}

std::string HexText(const UInt8* theBytes, CFIndex theCount)
{
    static const char* const kDigits = "0123456789abcdef";
    std::string theText;
    std::for_each(theBytes, theBytes + theCount, [&theText](UInt8 theByte) {
        theText += kDigits[theByte >> 4];
        theText += kDigits[theByte & 0xF];
    });
    return theText;
}

// Of long data, the start and the end.
std::string BytesText(CFDataRef theData)
{
    constexpr CFIndex kStart = 16;
    constexpr CFIndex kEnd = 8;
    const CFIndex theLength = theData->GetLength();
    if (theLength <= kStart + kEnd) {
        return HexText(theData->GetBytes(), theLength);
    }
    return HexText(theData->GetBytes(), kStart) + " ... " +
           HexText(theData->GetBytes() + theLength - kEnd, kEnd);
}

CFStringRef DescribeData(const Host::Object* theObject)
{
    const long theLength = DataOf(theObject)->GetLength();
    return Host::Text()
        .AppendHeader(theObject)
        .Append(Host::FormatInCLocale("{length = %ld, capacity = %ld, bytes = 0x", theLength, theLength))
        .Append(BytesText(DataOf(theObject)))
        .Append("}")
        .CopyString();
}

CFDataRef RequireData(CFDataRef theData, const char* theCaller)
{
    return Host::Require(theData, Host::kDataType, theCaller);
}

CFMutableDataRef RequireMutableData(CFMutableDataRef theData, const char* theCaller)
{
    return Host::RequireMutable(theData, Host::kDataType, theCaller);
}

void RequireCapacity(CFDataRef theData, CFIndex theLength, const char* theCaller)
{
    if (theData->mCapacity > 0 && theLength > theData->mCapacity) {
        Host::Stop(theCaller, "the data would become longer than its capacity");
    }
}

void RequireRange(CFDataRef theData, CFRange theRange, const char* theCaller)
{
    const CFIndex theLength = theData->GetLength();
    if (theRange.location < 0 || theRange.length < 0 || theRange.location > theLength ||
        theRange.length > theLength - theRange.location) {
        Host::Stop(theCaller, "the range is not inside the data");
    }
}

std::vector<UInt8> CopyBytes(const UInt8* theBytes, CFIndex theLength)
{
    return theLength > 0 ? std::vector<UInt8>(theBytes, theBytes + theLength) : std::vector<UInt8>();
}

} // namespace

const Host::TypeOperations Host::kDataType = {
    Host::kDataTypeID, "CFData", Host::Delete<__CFData>, EqualData, HashData, DescribeData, nullptr};

__CFData::~__CFData()
{
    if (mFreesForeignBytes) {
        std::free(const_cast<UInt8*>(mForeignBytes));
    }
}

CFTypeID CFDataGetTypeID()
{
    return Host::kDataTypeID;
}

// Making data

CFDataRef CFDataCreate(CFAllocatorRef, const UInt8* inBytes, CFIndex inLength)
{
    if (inLength < 0) {
        return nullptr;
    }
    if (inBytes == nullptr && inLength > 0) {
        Host::Stop(__func__, "the bytes are NULL");
    }
    return Host::NothingWithoutMemory([=] { return new __CFData(CopyBytes(inBytes, inLength), false); });
}

CFDataRef CFDataCreateWithBytesNoCopy(CFAllocatorRef, const UInt8* inBytes, CFIndex inLength,
                                      CFAllocatorRef inBytesDeallocator)
{
    if (inLength < 0) {
        return nullptr;
    }
    const bool theFreesBytes = inBytesDeallocator != kCFAllocatorNull;
    return Host::NothingWithoutMemory([=] { return new __CFData(inBytes, inLength, theFreesBytes); });
}

CFDataRef CFDataCreateCopy(CFAllocatorRef inAllocator, CFDataRef inData)
{
    RequireData(inData, __func__);
    return CFDataCreate(inAllocator, inData->GetBytes(), inData->GetLength());
}

CFMutableDataRef CFDataCreateMutable(CFAllocatorRef, CFIndex inCapacity)
{
    return Host::NothingWithoutMemory([=] { return new __CFData(std::vector<UInt8>(), true, inCapacity); });
}

CFMutableDataRef CFDataCreateMutableCopy(CFAllocatorRef, CFIndex inCapacity, CFDataRef inData)
{
    RequireData(inData, __func__);
    return Host::NothingWithoutMemory(
        [=] { return new __CFData(CopyBytes(inData->GetBytes(), inData->GetLength()), true, inCapacity); });
}

// Reading

CFIndex CFDataGetLength(CFDataRef inData)
{
    return RequireData(inData, __func__)->GetLength();
}

const UInt8* CFDataGetBytePtr(CFDataRef inData)
{
    return RequireData(inData, __func__)->GetBytes();
}

UInt8* CFDataGetMutableBytePtr(CFMutableDataRef inData)
{
    return RequireMutableData(inData, __func__)->mBytes.data();
}

void CFDataGetBytes(CFDataRef inData, CFRange inRange, UInt8* outBuffer)
{
    RequireData(inData, __func__);
    if (inRange.location < 0 || inRange.length <= 0) {
        return;
    }
    const CFIndex theRest = std::max<CFIndex>(inData->GetLength() - inRange.location, 0);
    const CFIndex theCount = std::min(inRange.length, theRest);
    std::copy_n(inData->GetBytes() + (theCount > 0 ? inRange.location : 0), theCount, outBuffer);
    std::fill_n(outBuffer + theCount, inRange.length - theCount, UInt8{0});
}

// Changing

void CFDataSetLength(CFMutableDataRef inData, CFIndex inLength)
{
    RequireMutableData(inData, __func__);
    RequireCapacity(inData, inLength, __func__);
    Host::NothingWithoutMemory(
        [=] { inData->mBytes.resize(static_cast<size_t>(std::max<CFIndex>(inLength, 0))); });
}

void CFDataIncreaseLength(CFMutableDataRef inData, CFIndex inExtraLength)
{
    // An overflow would be longer than any memory.
    CFIndex theLength = 0;
    if (!__builtin_add_overflow(CFDataGetLength(inData), inExtraLength, &theLength)) {
        CFDataSetLength(inData, theLength);
    }
}

void CFDataAppendBytes(CFMutableDataRef inData, const UInt8* inBytes, CFIndex inLength)
{
    CFDataReplaceBytes(inData, CFRangeMake(CFDataGetLength(inData), 0), inBytes, inLength);
}

void CFDataReplaceBytes(CFMutableDataRef inData, CFRange inRange, const UInt8* inNewBytes,
                        CFIndex inNewLength)
{
    RequireMutableData(inData, __func__);
    RequireRange(inData, inRange, __func__);
    const CFIndex theCount = std::max<CFIndex>(inNewLength, 0);
    const CFIndex theRest = inData->GetLength() - inRange.length;
    CFIndex theLength = 0;
    if (__builtin_add_overflow(theRest, theCount, &theLength)) {
        return;
    }
    RequireCapacity(inData, theLength, __func__);
    Host::NothingWithoutMemory([=] {
        // The new bytes may be the data's own.
        const std::vector<UInt8> theCopy = CopyBytes(inNewBytes, theCount);
        std::vector<UInt8> theResult;
        theResult.reserve(static_cast<size_t>(theLength));
        const auto theFirst = inData->mBytes.begin() + inRange.location;
        theResult.insert(theResult.end(), inData->mBytes.begin(), theFirst);
        theResult.insert(theResult.end(), theCopy.begin(), theCopy.end());
        theResult.insert(theResult.end(), theFirst + inRange.length, inData->mBytes.end());
        inData->mBytes.swap(theResult);
    });
}

void CFDataDeleteBytes(CFMutableDataRef inData, CFRange inRange)
{
    CFDataReplaceBytes(inData, inRange, nullptr, 0);
}
