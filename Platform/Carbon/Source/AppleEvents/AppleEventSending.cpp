// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "AppleEventHandlers.h"
#include "AppleEvents.h"
#include "Base/Text.h"
#include "System/CommandLine.h"

namespace Host {

namespace {

AEInteractAllowed gInteractionAllowed = kAEInteractWithLocal;

template <class Value>
bool Reads(const AppleEvent* theEvent, AEKeyword theKeyword, DescType theType, Value* theValue)
{
    Size theSize = 0;
    return AEGetAttributePtr(theEvent, theKeyword, theType, nullptr, theValue, sizeof *theValue, &theSize) ==
               noErr &&
           theSize == Size{sizeof *theValue};
}

OSErr FoundWhen(bool theIsThisProgram)
{
    return theIsThisProgram ? OSErr{noErr} : OSErr{procNotFound};
}

bool IsThisSerialNumber(const AppleEvent* theEvent)
{
    const ProcessSerialNumber theThis = {0, kCurrentProcess};
    ProcessSerialNumber theNumber = {};
    Boolean theIsThis = 0;
    return Reads(theEvent, keyAddressAttr, typeProcessSerialNumber, &theNumber) &&
           SameProcess(&theNumber, &theThis, &theIsThis) == noErr && theIsThis != 0;
}

bool IsThisProcess(const AppleEvent* theEvent)
{
    SInt32 theNumber = 0;
    return Reads(theEvent, keyAddressAttr, typeKernelProcessID, &theNumber) && theNumber == ProcessNumber();
}

bool IsThisSignature(const AppleEvent* theEvent)
{
    UInt32 theType = 0;
    UInt32 theSignature = 0;
    OSType theCode = 0;
    CFBundleGetPackageInfo(CFBundleGetMainBundle(), &theType, &theSignature);
    return Reads(theEvent, keyAddressAttr, typeApplSignature, &theCode) && theCode == theSignature;
}

bool IsThisBundle(const AppleEvent* theEvent)
{
    AEDesc theDescriptor;
    const CFStringRef theOwn = CFBundleGetIdentifier(CFBundleGetMainBundle());
    if (theOwn == nullptr ||
        AEGetAttributeDesc(theEvent, keyAddressAttr, typeWildCard, &theDescriptor) != noErr) {
        return false;
    }
    SharedDescriptor theFound;
    const bool theIsThis =
        FindDescriptor(&theDescriptor, &theFound) == noErr && theFound->theBytes == Utf8Of(TextOf(theOwn));
    AEDisposeDesc(&theDescriptor);
    return theIsThis;
}

// Whether an event is addressed to this program.
OSErr CheckAddress(const AppleEvent* theEvent)
{
    DescType theType = typeNull;
    const OSErr theStatus = AESizeOfAttribute(theEvent, keyAddressAttr, &theType, nullptr);
    if (theStatus != noErr && theStatus != errAEDescNotFound) {
        return theStatus;
    }
    switch (theType) {
    case typeProcessSerialNumber:
        return FoundWhen(IsThisSerialNumber(theEvent));
    case typeKernelProcessID:
        return FoundWhen(IsThisProcess(theEvent));
    case typeApplSignature:
        return FoundWhen(IsThisSignature(theEvent));
    case typeApplicationBundleID:
        return FoundWhen(IsThisBundle(theEvent));
    default:
        return errAEUnknownAddressType;
    }
}

bool IsHandled(const AppleEvent* theEvent)
{
    OSType theClass = 0;
    OSType theIdentifier = 0;
    return Reads(theEvent, keyEventClassAttr, typeType, &theClass) &&
           Reads(theEvent, keyEventIDAttr, typeType, &theIdentifier) &&
           IsAppleEventHandled(theClass, theIdentifier);
}

// The handler gets a copy, so that what it reads is not read for the sender.
OSErr CallHandler(const AppleEvent* theEvent, AppleEvent* theReply)
{
    AppleEvent theCopy;
    OSErr theStatus = AEDuplicateDesc(theEvent, &theCopy);
    if (theStatus == noErr) {
        theStatus = HandleAppleEvent(&theCopy, theReply);
        AEDisposeDesc(&theCopy);
    }
    return theStatus;
}

void SendWithoutReply(const AppleEvent* theEvent)
{
    AppleEvent theReply = {typeNull, nullptr};
    CallHandler(theEvent, &theReply);
}

OSErr SendForReply(const AppleEvent* theEvent, AppleEvent* theReply)
{
    const OSErr theStatus = MakeReply(theEvent, theReply);
    if (theStatus != noErr) {
        return theStatus;
    }
    const SInt32 theAnswer = CallHandler(theEvent, theReply);
    if (theAnswer != noErr && AESizeOfParam(theReply, keyErrorNumber, nullptr, nullptr) != noErr) {
        AEPutParamPtr(theReply, keyErrorNumber, typeSInt32, &theAnswer, sizeof theAnswer);
    }
    return noErr;
}

OSErr Send(const AppleEvent* theEvent, AppleEvent* theReply, AESendMode theMode)
{
    constexpr AESendMode kReplyMask = 3;
    const AESendMode theReplyMode = theMode & kReplyMask;
    if (theReplyMode != kAENoReply && theReplyMode != kAEWaitReply) {
        return errAEUnknownSendMode;
    }
    if (theReplyMode == kAEWaitReply && theReply == nullptr) {
        return paramErr;
    }
    const OSErr theStatus = CheckAddress(theEvent);
    if (theStatus != noErr) {
        return theStatus;
    }
    if (!IsHandled(theEvent)) {
        return errAEEventNotHandled;
    }
    if ((theMode & kAEDontExecute) != 0) {
        return noErr;
    }
    if (theReplyMode == kAEWaitReply) {
        return SendForReply(theEvent, theReply);
    }
    SendWithoutReply(theEvent);
    return noErr;
}

} // namespace

} // namespace Host

using namespace Host;

OSErr AESend(const AppleEvent* theAppleEvent, AppleEvent* reply, AESendMode sendMode, AESendPriority, SInt32,
             AEIdleUPP, AEFilterUPP)
{
    return AnswerOf([&] { return Send(theAppleEvent, reply, sendMode); });
}

OSStatus AESendMessage(const AppleEvent* event, AppleEvent* reply, AESendMode sendMode, long)
{
    return AnswerOf([&] { return Send(event, reply, sendMode); });
}

OSErr AEInteractWithUser(SInt32, NMRecPtr, AEIdleUPP)
{
    return noErr;
}

OSErr AESetInteractionAllowed(AEInteractAllowed level)
{
    if (level < kAEInteractWithSelf || level > kAEInteractWithAll) {
        return paramErr;
    }
    gInteractionAllowed = level;
    return noErr;
}

OSErr AEGetInteractionAllowed(AEInteractAllowed* level)
{
    if (level == nullptr) {
        return paramErr;
    }
    *level = gInteractionAllowed;
    return noErr;
}
