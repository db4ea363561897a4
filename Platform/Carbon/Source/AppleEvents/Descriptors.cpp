// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Descriptors.h"

#include "Base/ReferenceTable.h"
#include "Coercions.h"
#include "Common/NeverDestroyed.h"

#include <algorithm>
#include <cstring>

namespace Host {

namespace {

using DescriptorTable = ReferenceTable<AEDataStorage, ReferenceKind::kDescriptor, Descriptor>;

DescriptorTable& Descriptors()
{
    static NeverDestroyed<DescriptorTable> sTable;
    return sTable.Get();
}

// Far more than any program has, and few enough for copies that call themselves.
constexpr int kMostLevels = 100;

int DepthOf(const Descriptor& theDescriptor)
{
    int theDepth = 0;
    for (const Descriptor& theItem : theDescriptor.theItems) {
        theDepth = std::max(theDepth, DepthOf(theItem));
    }
    return theDepth + 1;
}

void CopyBytes(const std::string& theBytes, void* theRoom, Size theSize)
{
    if (theRoom != nullptr) {
        std::memcpy(theRoom, theBytes.data(), std::min(theBytes.size(), static_cast<size_t>(theSize)));
    }
}

} // namespace

OSErr MakeDescriptor(DescType theType, const void* theBytes, Size theSize, Descriptor* theResult)
{
    if (theSize < 0 || (theBytes == nullptr && theSize > 0)) {
        return paramErr;
    }
    theResult->theType = theType;
    if (theSize > 0) {
        theResult->theBytes.assign(static_cast<const char*>(theBytes), static_cast<size_t>(theSize));
    }
    return noErr;
}

OSErr FindDescriptor(const AEDesc* theReference, SharedDescriptor* theResult)
{
    if (theReference == nullptr) {
        return paramErr;
    }
    *theResult = theReference->dataHandle == nullptr ? std::make_shared<Descriptor>()
                                                     : Descriptors().Find(theReference->dataHandle);
    if (*theResult == nullptr) {
        return errAENotAEDesc;
    }
    (*theResult)->theType = theReference->descriptorType;
    return noErr;
}

void GiveDescriptor(Descriptor&& theContent, AEDesc* theResult)
{
    const DescType theType = theContent.theType;
    const AEDataStorage theData = Descriptors().Add(std::make_shared<Descriptor>(std::move(theContent)));
    theResult->descriptorType = theType;
    theResult->dataHandle = theData;
}

Descriptor* FindKeyword(std::vector<Descriptor>& theItems, AEKeyword theKeyword)
{
    const auto theItem = std::find_if(theItems.begin(), theItems.end(), [&](const Descriptor& theCandidate) {
        return theCandidate.theKeyword == theKeyword;
    });
    return theItem == theItems.end() ? nullptr : &*theItem;
}

OSErr PutKeyword(std::vector<Descriptor>& theItems, AEKeyword theKeyword, Descriptor&& theItem)
{
    const OSErr theStatus = CheckDepth(theItem);
    if (theStatus != noErr) {
        return theStatus;
    }
    theItem.theKeyword = theKeyword;
    theItem.theWasRead = false;
    if (Descriptor* const thePlace = FindKeyword(theItems, theKeyword); thePlace != nullptr) {
        *thePlace = std::move(theItem);
    } else {
        theItems.push_back(std::move(theItem));
    }
    return noErr;
}

OSErr CheckDepth(const Descriptor& theItem)
{
    return DepthOf(theItem) < kMostLevels ? OSErr{noErr} : OSErr{memFullErr};
}

OSErr CopyOut(const Descriptor& theItem, DescType theType, const Destination& theDestination)
{
    if (theDestination.theRoom < 0) {
        return paramErr;
    }
    Descriptor theCopy;
    if (!Coerce(theItem, theType, &theCopy)) {
        return errAECoercionFail;
    }
    if (IsList(theCopy)) {
        return errAEWrongDataType;
    }
    CopyBytes(theCopy.theBytes, theDestination.theBytes, theDestination.theRoom);
    if (theDestination.theActualType != nullptr) {
        *theDestination.theActualType = theCopy.theType;
    }
    if (theDestination.theActualSize != nullptr) {
        *theDestination.theActualSize = static_cast<Size>(theCopy.theBytes.size());
    }
    return noErr;
}

} // namespace Host

using namespace Host;

void AEInitializeDesc(AEDesc* desc)
{
    if (desc != nullptr) {
        desc->descriptorType = typeNull;
        desc->dataHandle = nullptr;
    }
}

OSErr AECreateDesc(DescType typeCode, const void* dataPtr, Size dataSize, AEDesc* result)
{
    return ResultOf(result, [&](Descriptor& theContent) {
        return MakeDescriptor(typeCode, dataPtr, dataSize, &theContent);
    });
}

OSErr AEDisposeDesc(AEDesc* theAEDesc)
{
    if (theAEDesc == nullptr) {
        return paramErr;
    }
    const AEDataStorage theData = theAEDesc->dataHandle;
    const bool theIsGood = theData == nullptr || Descriptors().Remove(theData) != nullptr;
    AEInitializeDesc(theAEDesc);
    return theIsGood ? OSErr{noErr} : OSErr{errAENotAEDesc};
}

OSErr AEDuplicateDesc(const AEDesc* theAEDesc, AEDesc* result)
{
    return AECoerceDesc(theAEDesc, typeWildCard, result);
}

OSErr AECoerceDesc(const AEDesc* theAEDesc, DescType toType, AEDesc* result)
{
    return ResultOf(result, [&](Descriptor& theContent) -> OSErr {
        SharedDescriptor theSource;
        const OSErr theStatus = FindDescriptor(theAEDesc, &theSource);
        if (theStatus != noErr) {
            return theStatus;
        }
        return Coerce(*theSource, toType, &theContent) ? OSErr{noErr} : OSErr{errAECoercionFail};
    });
}

OSErr AECoercePtr(DescType typeCode, const void* dataPtr, Size dataSize, DescType toType, AEDesc* result)
{
    return ResultOf(result, [&](Descriptor& theContent) -> OSErr {
        Descriptor theSource;
        const OSErr theStatus = MakeDescriptor(typeCode, dataPtr, dataSize, &theSource);
        if (theStatus != noErr) {
            return theStatus;
        }
        return Coerce(theSource, toType, &theContent) ? OSErr{noErr} : OSErr{errAECoercionFail};
    });
}

OSErr AEGetDescData(const AEDesc* theAEDesc, void* dataPtr, Size maximumSize)
{
    return AnswerOf([&]() -> OSErr {
        SharedDescriptor theSource;
        const OSErr theStatus = FindDescriptor(theAEDesc, &theSource);
        if (theStatus != noErr) {
            return theStatus;
        }
        if (maximumSize < 0 || (dataPtr == nullptr && maximumSize > 0)) {
            return paramErr;
        }
        if (IsList(*theSource)) {
            return errAEWrongDataType;
        }
        CopyBytes(theSource->theBytes, dataPtr, maximumSize);
        return noErr;
    });
}

Size AEGetDescDataSize(const AEDesc* theAEDesc)
{
    Size theSize = 0;
    AnswerOf([&]() -> OSErr {
        SharedDescriptor theSource;
        const OSErr theStatus = FindDescriptor(theAEDesc, &theSource);
        theSize = theStatus == noErr ? static_cast<Size>(theSource->theBytes.size()) : 0;
        return theStatus;
    });
    return theSize;
}

OSErr AEReplaceDescData(DescType typeCode, const void* dataPtr, Size dataSize, AEDesc* theAEDesc)
{
    AEDesc theNew;
    const OSErr theStatus =
        theAEDesc == nullptr ? OSErr{paramErr} : AECreateDesc(typeCode, dataPtr, dataSize, &theNew);
    if (theStatus != noErr) {
        return theStatus;
    }
    AEDisposeDesc(theAEDesc);
    *theAEDesc = theNew;
    return noErr;
}
