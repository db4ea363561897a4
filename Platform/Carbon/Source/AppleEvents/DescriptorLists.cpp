// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Lists, records and the parameters of Apple events.

#include "Coercions.h"
#include "Descriptors.h"

#include <utility>

namespace Host {

namespace {

// What a list, record or event consists of; errAEWrongDataType for data.
OSErr FindItems(const AEDesc* theList, SharedDescriptor* theResult)
{
    const OSErr theStatus = FindDescriptor(theList, theResult);
    return theStatus == noErr && !IsList(**theResult) ? OSErr{errAEWrongDataType} : theStatus;
}

OSErr FindRecord(const AEDesc* theRecord, SharedDescriptor* theResult)
{
    const OSErr theStatus = FindDescriptor(theRecord, theResult);
    return theStatus == noErr && !IsRecord(**theResult) ? OSErr{errAEWrongDataType} : theStatus;
}

// A plain list, whose items have no keywords.
OSErr FindList(const AEDesc* theList, SharedDescriptor* theResult)
{
    const OSErr theStatus = FindItems(theList, theResult);
    return theStatus == noErr && IsRecord(**theResult) ? OSErr{errAEWrongDataType} : theStatus;
}

// Calls theAction with an item of a list; it answers a status.
template <class Action>
OSErr WithItemAt(const AEDesc* theList, long theIndex, const Action& theAction)
{
    return AnswerOf([&]() -> OSErr {
        SharedDescriptor theFound;
        const OSErr theStatus = FindItems(theList, &theFound);
        if (theStatus != noErr) {
            return theStatus;
        }
        std::vector<Descriptor>& theItems = theFound->theItems;
        const bool theIsThere = theIndex > 0 && static_cast<size_t>(theIndex) <= theItems.size();
        return theIsThere ? theAction(theItems[static_cast<size_t>(theIndex) - 1]) : OSErr{errAEIllegalIndex};
    });
}

// The same with an item of a record, which counts as read then.
template <class Action>
OSErr WithParameter(const AEDesc* theRecord, AEKeyword theKeyword, const Action& theAction)
{
    return AnswerOf([&]() -> OSErr {
        SharedDescriptor theFound;
        const OSErr theStatus = FindRecord(theRecord, &theFound);
        if (theStatus != noErr) {
            return theStatus;
        }
        Descriptor* const theItem = FindKeyword(theFound->theItems, theKeyword);
        return theItem == nullptr ? OSErr{errAEDescNotFound} : theAction(*theItem);
    });
}

void TellSize(const Descriptor& theItem, DescType* theType, Size* theSize)
{
    if (theType != nullptr) {
        *theType = theItem.theType;
    }
    if (theSize != nullptr) {
        *theSize = static_cast<Size>(theItem.theBytes.size());
    }
}

void TellKeyword(const Descriptor& theItem, AEKeyword* theKeyword)
{
    if (theKeyword != nullptr) {
        *theKeyword = theItem.theKeyword;
    }
}

OSErr CoerceItem(const Descriptor& theItem, DescType theType, Descriptor* theResult)
{
    if (!Coerce(theItem, theType, theResult)) {
        return errAECoercionFail;
    }
    theResult->theKeyword = typeWildCard;
    return noErr;
}

OSErr PutAt(std::vector<Descriptor>& theItems, long theIndex, Descriptor&& theItem)
{
    const OSErr theStatus = CheckDepth(theItem);
    if (theStatus != noErr) {
        return theStatus;
    }
    if (theIndex < 0 || static_cast<size_t>(theIndex) > theItems.size() + 1) {
        return errAEIllegalIndex;
    }
    if (theIndex == 0 || static_cast<size_t>(theIndex) > theItems.size()) {
        theItems.push_back(std::move(theItem));
    } else {
        theItems[static_cast<size_t>(theIndex) - 1] = std::move(theItem);
    }
    return noErr;
}

// Puts into a list what theMake makes; it answers a status.
template <class Make>
OSErr PutIntoList(const AEDesc* theList, long theIndex, const Make& theMake)
{
    return AnswerOf([&]() -> OSErr {
        SharedDescriptor theFound;
        Descriptor theItem;
        OSErr theStatus = FindList(theList, &theFound);
        theStatus = theStatus == noErr ? theMake(&theItem) : theStatus;
        return theStatus == noErr ? PutAt(theFound->theItems, theIndex, std::move(theItem)) : theStatus;
    });
}

template <class Make>
OSErr PutIntoRecord(const AEDesc* theRecord, AEKeyword theKeyword, const Make& theMake)
{
    return AnswerOf([&]() -> OSErr {
        SharedDescriptor theFound;
        Descriptor theItem;
        OSErr theStatus = FindRecord(theRecord, &theFound);
        theStatus = theStatus == noErr ? theMake(&theItem) : theStatus;
        return theStatus == noErr ? PutKeyword(theFound->theItems, theKeyword, std::move(theItem))
                                  : theStatus;
    });
}

OSErr CopyOf(const AEDesc* theSource, Descriptor* theResult)
{
    SharedDescriptor theFound;
    const OSErr theStatus = FindDescriptor(theSource, &theFound);
    if (theStatus == noErr) {
        *theResult = *theFound;
    }
    return theStatus;
}

} // namespace

} // namespace Host

using namespace Host;

OSErr AECreateList(const void*, Size, Boolean isRecord, AEDescList* resultList)
{
    return ResultOf(resultList, [&](Descriptor& theContent) -> OSErr {
        theContent.theType = isRecord != 0 ? DescType{typeAERecord} : DescType{typeAEList};
        theContent.theForm = isRecord != 0 ? Descriptor::Form::kRecord : Descriptor::Form::kList;
        return noErr;
    });
}

Boolean AECheckIsRecord(const AEDesc* theDesc)
{
    return AnswerOf([&] {
               SharedDescriptor theFound;
               return FindRecord(theDesc, &theFound);
           }) == noErr;
}

OSErr AECountItems(const AEDescList* theAEDescList, long* theCount)
{
    if (theCount == nullptr) {
        return paramErr;
    }
    *theCount = 0;
    return AnswerOf([&] {
        SharedDescriptor theFound;
        const OSErr theStatus = FindItems(theAEDescList, &theFound);
        *theCount = theStatus == noErr ? static_cast<long>(theFound->theItems.size()) : 0;
        return theStatus;
    });
}

OSErr AEGetNthPtr(const AEDescList* theAEDescList, long index, DescType desiredType, AEKeyword* theAEKeyword,
                  DescType* typeCode, void* dataPtr, Size maximumSize, Size* actualSize)
{
    return WithItemAt(theAEDescList, index, [&](const Descriptor& theItem) {
        TellKeyword(theItem, theAEKeyword);
        return CopyOut(theItem, desiredType, {typeCode, dataPtr, maximumSize, actualSize});
    });
}

OSErr AEGetNthDesc(const AEDescList* theAEDescList, long index, DescType desiredType, AEKeyword* theAEKeyword,
                   AEDesc* result)
{
    return ResultOf(result, [&](Descriptor& theContent) {
        return WithItemAt(theAEDescList, index, [&](const Descriptor& theItem) {
            TellKeyword(theItem, theAEKeyword);
            return CoerceItem(theItem, desiredType, &theContent);
        });
    });
}

OSErr AESizeOfNthItem(const AEDescList* theAEDescList, long index, DescType* typeCode, Size* dataSize)
{
    return WithItemAt(theAEDescList, index, [&](const Descriptor& theItem) -> OSErr {
        TellSize(theItem, typeCode, dataSize);
        return noErr;
    });
}

OSErr AEPutPtr(AEDescList* theAEDescList, long index, DescType typeCode, const void* dataPtr, Size dataSize)
{
    return PutIntoList(theAEDescList, index, [&](Descriptor* theItem) {
        return MakeDescriptor(typeCode, dataPtr, dataSize, theItem);
    });
}

OSErr AEPutDesc(AEDescList* theAEDescList, long index, const AEDesc* theAEDesc)
{
    return PutIntoList(theAEDescList, index, [&](Descriptor* theItem) { return CopyOf(theAEDesc, theItem); });
}

OSErr AEDeleteItem(AEDescList* theAEDescList, long index)
{
    return AnswerOf([&]() -> OSErr {
        SharedDescriptor theFound;
        const OSErr theStatus = FindItems(theAEDescList, &theFound);
        if (theStatus != noErr) {
            return theStatus;
        }
        if (index < 1 || static_cast<size_t>(index) > theFound->theItems.size()) {
            return errAEIllegalIndex;
        }
        theFound->theItems.erase(theFound->theItems.begin() + (index - 1));
        return noErr;
    });
}

OSErr AEGetParamPtr(const AppleEvent* theAppleEvent, AEKeyword theAEKeyword, DescType desiredType,
                    DescType* actualType, void* dataPtr, Size maximumSize, Size* actualSize)
{
    return WithParameter(theAppleEvent, theAEKeyword, [&](Descriptor& theItem) {
        theItem.theWasRead = true;
        return CopyOut(theItem, desiredType, {actualType, dataPtr, maximumSize, actualSize});
    });
}

OSErr AEGetParamDesc(const AppleEvent* theAppleEvent, AEKeyword theAEKeyword, DescType desiredType,
                     AEDesc* result)
{
    return ResultOf(result, [&](Descriptor& theContent) {
        return WithParameter(theAppleEvent, theAEKeyword, [&](Descriptor& theItem) {
            theItem.theWasRead = true;
            return CoerceItem(theItem, desiredType, &theContent);
        });
    });
}

OSErr AESizeOfParam(const AppleEvent* theAppleEvent, AEKeyword theAEKeyword, DescType* typeCode,
                    Size* dataSize)
{
    return WithParameter(theAppleEvent, theAEKeyword, [&](const Descriptor& theItem) -> OSErr {
        TellSize(theItem, typeCode, dataSize);
        return noErr;
    });
}

OSErr AEPutParamPtr(AppleEvent* theAppleEvent, AEKeyword theAEKeyword, DescType typeCode, const void* dataPtr,
                    Size dataSize)
{
    return PutIntoRecord(theAppleEvent, theAEKeyword, [&](Descriptor* theItem) {
        return MakeDescriptor(typeCode, dataPtr, dataSize, theItem);
    });
}

OSErr AEPutParamDesc(AppleEvent* theAppleEvent, AEKeyword theAEKeyword, const AEDesc* theAEDesc)
{
    return PutIntoRecord(theAppleEvent, theAEKeyword,
                         [&](Descriptor* theItem) { return CopyOf(theAEDesc, theItem); });
}

OSErr AEDeleteParam(AppleEvent* theAppleEvent, AEKeyword theAEKeyword)
{
    return AnswerOf([&]() -> OSErr {
        SharedDescriptor theFound;
        const OSErr theStatus = FindRecord(theAppleEvent, &theFound);
        if (theStatus != noErr) {
            return theStatus;
        }
        const Descriptor* const theItem = FindKeyword(theFound->theItems, theAEKeyword);
        if (theItem == nullptr) {
            return errAEDescNotFound;
        }
        theFound->theItems.erase(theFound->theItems.begin() + (theItem - theFound->theItems.data()));
        return noErr;
    });
}
