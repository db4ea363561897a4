// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Apple events as such: what they are made of, and their attributes.

#include "AppleEvents.h"

#include "Coercions.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Host {

namespace {

constexpr ProcessSerialNumber kThisProcess = {0, kCurrentProcess};

AEReturnID NextReturnID()
{
    static AEReturnID sLast = 0;
    sLast =
        sLast == std::numeric_limits<AEReturnID>::max() ? AEReturnID{1} : static_cast<AEReturnID>(sLast + 1);
    return sLast;
}

template <class Value>
void PutAttribute(Descriptor& theEvent, AEKeyword theKeyword, DescType theType, const Value& theValue)
{
    Descriptor theAttribute;
    MakeDescriptor(theType, &theValue, sizeof theValue, &theAttribute);
    PutKeyword(theEvent.theAttributes, theKeyword, std::move(theAttribute));
}

OSErr FindEvent(const AppleEvent* theEvent, SharedDescriptor* theResult)
{
    const OSErr theStatus = FindDescriptor(theEvent, theResult);
    const bool theIsEvent = theStatus == noErr && (*theResult)->theForm == Descriptor::Form::kEvent;
    return theStatus == noErr && !theIsEvent ? OSErr{errAENotAppleEvent} : theStatus;
}

bool Names(const Descriptor& theKeyword, AEKeyword theOther)
{
    Descriptor theCode;
    return Coerce(theKeyword, typeKeyword, &theCode) && theCode.theBytes.size() == sizeof theOther &&
           std::equal(theCode.theBytes.begin(), theCode.theBytes.end(),
                      reinterpret_cast<const char*>(&theOther));
}

bool IsOptional(Descriptor& theEvent, AEKeyword theKeyword)
{
    const Descriptor* const theOptional = FindKeyword(theEvent.theAttributes, keyOptionalKeywordAttr);
    if (theOptional == nullptr) {
        return false;
    }
    const std::vector<Descriptor>& theList = theOptional->theItems;
    return Names(*theOptional, theKeyword) ||
           std::any_of(theList.begin(), theList.end(),
                       [&](const Descriptor& theItem) { return Names(theItem, theKeyword); });
}

// The first parameter that a handler should have read and has not.
bool FindMissed(Descriptor& theEvent, Descriptor* theResult)
{
    for (const Descriptor& theParameter : theEvent.theItems) {
        if (!theParameter.theWasRead && !IsOptional(theEvent, theParameter.theKeyword)) {
            MakeDescriptor(typeKeyword, &theParameter.theKeyword, sizeof theParameter.theKeyword, theResult);
            return true;
        }
    }
    return false;
}

// Calls theAction with an attribute; it answers a status.
template <class Action>
OSErr WithAttribute(const AppleEvent* theEvent, AEKeyword theKeyword, const Action& theAction)
{
    return AnswerOf([&]() -> OSErr {
        SharedDescriptor theFound;
        const OSErr theStatus = FindEvent(theEvent, &theFound);
        if (theStatus != noErr) {
            return theStatus;
        }
        if (Descriptor theMissed; theKeyword == keyMissedKeywordAttr) {
            return FindMissed(*theFound, &theMissed) ? theAction(theMissed) : OSErr{errAEDescNotFound};
        }
        const Descriptor* const theAttribute = FindKeyword(theFound->theAttributes, theKeyword);
        return theAttribute == nullptr ? OSErr{errAEDescNotFound} : theAction(*theAttribute);
    });
}

// Puts in what theMake makes; it answers a status.
template <class Make>
OSErr PutMadeAttribute(const AppleEvent* theEvent, AEKeyword theKeyword, const Make& theMake)
{
    return AnswerOf([&]() -> OSErr {
        SharedDescriptor theFound;
        Descriptor theAttribute;
        OSErr theStatus = FindEvent(theEvent, &theFound);
        theStatus = theStatus == noErr ? theMake(&theAttribute) : theStatus;
        return theStatus == noErr ? PutKeyword(theFound->theAttributes, theKeyword, std::move(theAttribute))
                                  : theStatus;
    });
}

} // namespace

OSErr MakeCoreEvent(AEEventID theIdentifier, AppleEvent* theResult)
{
    AEAddressDesc theTarget;
    OSErr theStatus = AECreateDesc(typeProcessSerialNumber, &kThisProcess, sizeof kThisProcess, &theTarget);
    if (theStatus == noErr) {
        theStatus = AECreateAppleEvent(kCoreEventClass, theIdentifier, &theTarget, kAutoGenerateReturnID,
                                       kAnyTransactionID, theResult);
    }
    AEDisposeDesc(&theTarget);
    return theStatus;
}

OSErr MakeReply(const AppleEvent* theEvent, AppleEvent* theResult)
{
    AEReturnID theReturnID = 0;
    AETransactionID theTransactionID = 0;
    AEGetAttributePtr(theEvent, keyReturnIDAttr, typeSInt16, nullptr, &theReturnID, sizeof theReturnID,
                      nullptr);
    AEGetAttributePtr(theEvent, keyTransactionIDAttr, typeSInt32, nullptr, &theTransactionID,
                      sizeof theTransactionID, nullptr);
    return AECreateAppleEvent(kCoreEventClass, kAEAnswer, nullptr, theReturnID, theTransactionID, theResult);
}

} // namespace Host

using namespace Host;

OSErr AECreateAppleEvent(AEEventClass theAEEventClass, AEEventID theAEEventID, const AEAddressDesc* target,
                         AEReturnID returnID, AETransactionID transactionID, AppleEvent* result)
{
    return ResultOf(result, [&](Descriptor& theContent) -> OSErr {
        theContent.theType = typeAppleEvent;
        theContent.theForm = Descriptor::Form::kEvent;
        PutAttribute(theContent, keyEventClassAttr, typeType, theAEEventClass);
        PutAttribute(theContent, keyEventIDAttr, typeType, theAEEventID);
        PutAttribute(theContent, keyReturnIDAttr, typeSInt16,
                     returnID == kAutoGenerateReturnID ? NextReturnID() : returnID);
        PutAttribute(theContent, keyTransactionIDAttr, typeSInt32, transactionID);
        PutAttribute(theContent, keyEventSourceAttr, typeSInt16, SInt16{kAEDirectCall});
        if (target == nullptr) {
            return noErr;
        }
        SharedDescriptor theTarget;
        const OSErr theStatus = FindDescriptor(target, &theTarget);
        return theStatus == noErr
                   ? PutKeyword(theContent.theAttributes, keyAddressAttr, Descriptor(*theTarget))
                   : theStatus;
    });
}

OSErr AEGetAttributePtr(const AppleEvent* theAppleEvent, AEKeyword theAEKeyword, DescType desiredType,
                        DescType* typeCode, void* dataPtr, Size maximumSize, Size* actualSize)
{
    return WithAttribute(theAppleEvent, theAEKeyword, [&](const Descriptor& theAttribute) {
        return CopyOut(theAttribute, desiredType, {typeCode, dataPtr, maximumSize, actualSize});
    });
}

OSErr AEGetAttributeDesc(const AppleEvent* theAppleEvent, AEKeyword theAEKeyword, DescType desiredType,
                         AEDesc* result)
{
    return ResultOf(result, [&](Descriptor& theContent) {
        return WithAttribute(theAppleEvent, theAEKeyword, [&](const Descriptor& theAttribute) -> OSErr {
            return Coerce(theAttribute, desiredType, &theContent) ? OSErr{noErr} : OSErr{errAECoercionFail};
        });
    });
}

OSErr AESizeOfAttribute(const AppleEvent* theAppleEvent, AEKeyword theAEKeyword, DescType* typeCode,
                        Size* dataSize)
{
    return WithAttribute(theAppleEvent, theAEKeyword, [&](const Descriptor& theAttribute) -> OSErr {
        if (typeCode != nullptr) {
            *typeCode = theAttribute.theType;
        }
        if (dataSize != nullptr) {
            *dataSize = static_cast<Size>(theAttribute.theBytes.size());
        }
        return noErr;
    });
}

OSErr AEPutAttributePtr(AppleEvent* theAppleEvent, AEKeyword theAEKeyword, DescType typeCode,
                        const void* dataPtr, Size dataSize)
{
    return PutMadeAttribute(theAppleEvent, theAEKeyword, [&](Descriptor* theAttribute) {
        return MakeDescriptor(typeCode, dataPtr, dataSize, theAttribute);
    });
}

OSErr AEPutAttributeDesc(AppleEvent* theAppleEvent, AEKeyword theAEKeyword, const AEDesc* theAEDesc)
{
    return PutMadeAttribute(theAppleEvent, theAEKeyword, [&](Descriptor* theAttribute) {
        SharedDescriptor theFound;
        const OSErr theStatus = FindDescriptor(theAEDesc, &theFound);
        if (theStatus == noErr) {
            *theAttribute = *theFound;
        }
        return theStatus;
    });
}
