// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "AppleEventTestSupport.h"

namespace {

OSErr SendFor(AppleEvent* theEvent, AppleEvent* theReply, AESendMode theMode = kAEWaitReply)
{
    return AESend(theEvent, theReply, theMode, kAENormalPriority, kAEDefaultTimeout, nullptr, nullptr);
}

// The answer to an event to an address.
OSErr SendTo(DescType theType, const std::string& theAddress)
{
    TestDescriptor theTarget(theType, theAddress);
    TestDescriptor theEvent;
    AECreateAppleEvent(kCoreEventClass, kAEOpenApplication, theTarget, 1, 0, theEvent);
    return SendFor(theEvent, nullptr, kAENoReply);
}

SInt32 Number(AppleEvent* theEvent, AEKeyword theKeyword)
{
    SInt32 theNumber = 0;
    AEGetParamPtr(theEvent, theKeyword, typeSInt32, nullptr, &theNumber, sizeof theNumber, nullptr);
    return theNumber;
}

} // namespace

TEST(AppleEventSending, AReplyComesBack)
{
    const TestEventHandler theHandler(
        'clas', 'idid', [](const AppleEvent* theEvent, AppleEvent* theReply) -> OSErr {
            SInt32 theNumber = 0;
            AEGetParamPtr(theEvent, keyDirectObject, typeSInt32, nullptr, &theNumber, sizeof theNumber,
                          nullptr);
            ++theNumber;
            return AEPutParamPtr(theReply, keyDirectObject, typeSInt32, &theNumber, sizeof theNumber);
        });
    TestAppleEvent theEvent('clas', 'idid');
    PutParameter(theEvent, keyDirectObject, "41");
    TestDescriptor theReply;
    EXPECT_EQ(SendFor(theEvent, theReply), noErr);
    EXPECT_EQ(Number(theReply, keyDirectObject), 42);
    EXPECT_EQ(AESizeOfParam(theReply, keyErrorNumber, nullptr, nullptr), errAEDescNotFound);
    OSType theIdentifier = 0;
    AEGetAttributePtr(theReply, keyEventIDAttr, typeType, nullptr, &theIdentifier, sizeof theIdentifier,
                      nullptr);
    EXPECT_EQ(theIdentifier, OSType{kAEAnswer});
    SInt32 theAsked = 0;
    SInt32 theAnswered = 1;
    AEGetAttributePtr(theEvent, keyReturnIDAttr, typeSInt32, nullptr, &theAsked, sizeof theAsked, nullptr);
    AEGetAttributePtr(theReply, keyReturnIDAttr, typeSInt32, nullptr, &theAnswered, sizeof theAnswered,
                      nullptr);
    EXPECT_EQ(theAsked, theAnswered);
    AEKeyword theMissed = 0;
    EXPECT_EQ(AEGetAttributePtr(theEvent, keyMissedKeywordAttr, typeWildCard, nullptr, &theMissed,
                                sizeof theMissed, nullptr),
              noErr)
        << "what the handler reads is not read for the sender";
    TestDescriptor theOther;
    EXPECT_EQ(AESendMessage(theEvent, theOther, kAEWaitReply, kAEDefaultTimeout), noErr);
    EXPECT_EQ(Number(theOther, keyDirectObject), 42);
}

TEST(AppleEventSending, WhatWentWrongIsInTheReply)
{
    const TestEventHandler theHandler('clas', 'idid',
                                      [](const AppleEvent*, AppleEvent*) -> OSErr { return fnfErr; });
    const TestEventHandler theOther('clas', 'othr', [](const AppleEvent*, AppleEvent* theReply) -> OSErr {
        const SInt32 theError = dupFNErr;
        AEPutParamPtr(theReply, keyErrorNumber, typeSInt32, &theError, sizeof theError);
        return fnfErr;
    });
    TestDescriptor theReply;
    TestAppleEvent theEvent('clas', 'idid');
    EXPECT_EQ(SendFor(theEvent, theReply), noErr);
    EXPECT_EQ(Number(theReply, keyErrorNumber), fnfErr);
    TestDescriptor theOtherReply;
    TestAppleEvent theOtherEvent('clas', 'othr');
    EXPECT_EQ(SendFor(theOtherEvent, theOtherReply), noErr);
    EXPECT_EQ(Number(theOtherReply, keyErrorNumber), dupFNErr);
}

TEST(AppleEventSending, WithoutAReplyNothingIsTouched)
{
    DescType theReplyType = 0;
    const TestEventHandler theHandler('clas', 'idid', [&](const AppleEvent*, AppleEvent* theReply) -> OSErr {
        theReplyType = theReply->descriptorType;
        return fnfErr;
    });
    AppleEvent theReply = {'what', nullptr};
    TestAppleEvent theEvent('clas', 'idid');
    EXPECT_EQ(SendFor(theEvent, &theReply, kAENoReply | kAENeverInteract), noErr);
    EXPECT_EQ(theReplyType, DescType{typeNull});
    EXPECT_EQ(theReply.descriptorType, DescType{'what'});
    EXPECT_EQ(AESendMessage(theEvent, nullptr, kAENoReply, 0), noErr);
}

TEST(AppleEventSending, WhetherAnEventIsHandledCanBeFoundOut)
{
    int theCalls = 0;
    const TestEventHandler theHandler('clas', 'idid', [&](const AppleEvent*, AppleEvent*) -> OSErr {
        ++theCalls;
        return noErr;
    });
    TestAppleEvent theEvent('clas', 'idid');
    TestAppleEvent theOther('clas', 'othr');
    EXPECT_EQ(SendFor(theEvent, nullptr, kAENoReply | kAEDontExecute), noErr);
    EXPECT_EQ(SendFor(theOther, nullptr, kAENoReply | kAEDontExecute), errAEEventNotHandled);
    EXPECT_EQ(theCalls, 0);
    EXPECT_EQ(SendFor(theOther, nullptr, kAENoReply), errAEEventNotHandled);
}

TEST(AppleEventSending, TheProgramIsTheOnlyOneThatCanBeReached)
{
    EXPECT_EQ(SendTo(typeProcessSerialNumber, BytesOfValue(ProcessSerialNumber{0, kCurrentProcess})), noErr);
    EXPECT_EQ(SendTo(typeProcessSerialNumber, BytesOfValue(ProcessSerialNumber{1, kCurrentProcess})),
              procNotFound);
    EXPECT_EQ(SendTo(typeProcessSerialNumber, "abc"), procNotFound);
    EXPECT_EQ(SendTo(typeKernelProcessID, BytesOfValue(SInt32{getpid()})), noErr);
    EXPECT_EQ(SendTo(typeKernelProcessID, BytesOfValue(SInt32{1})), procNotFound);
    UInt32 theType = 0;
    UInt32 theSignature = 0;
    CFBundleGetPackageInfo(CFBundleGetMainBundle(), &theType, &theSignature);
    EXPECT_EQ(SendTo(typeApplSignature, BytesOfValue(OSType{theSignature})), noErr);
    EXPECT_EQ(SendTo(typeApplSignature, BytesOfValue(OSType{'none'})), procNotFound);
    EXPECT_EQ(SendTo(typeApplicationBundleID, "com.example.other"), procNotFound);
    EXPECT_EQ(SendTo(typeChar, "somebody"), errAEUnknownAddressType);
    TestDescriptor theEvent;
    AECreateAppleEvent(kCoreEventClass, kAEOpenApplication, nullptr, 1, 0, theEvent);
    EXPECT_EQ(SendFor(theEvent, nullptr, kAENoReply), errAEUnknownAddressType);
}

TEST(AppleEventSending, BadArgumentsAreRefused)
{
    TestAppleEvent theEvent(kCoreEventClass, kAEOpenApplication);
    TestDescriptor theReply;
    EXPECT_EQ(SendFor(theEvent, theReply, kAEQueueReply), errAEUnknownSendMode);
    EXPECT_EQ(SendFor(theEvent, theReply, 0), errAEUnknownSendMode);
    EXPECT_EQ(SendFor(theEvent, nullptr, kAEWaitReply), paramErr);
    EXPECT_EQ(SendFor(nullptr, theReply), paramErr);
    TestList theRecord(true);
    EXPECT_EQ(SendFor(theRecord, theReply), errAENotAppleEvent);
}

TEST(AppleEventSending, TheLevelOfInteractionIsKept)
{
    AEInteractAllowed theLevel = 0;
    EXPECT_EQ(AEGetInteractionAllowed(&theLevel), noErr);
    EXPECT_EQ(theLevel, kAEInteractWithLocal);
    EXPECT_EQ(AESetInteractionAllowed(kAEInteractWithAll), noErr);
    EXPECT_EQ(AESetInteractionAllowed(3), paramErr);
    EXPECT_EQ(AESetInteractionAllowed(-1), paramErr);
    EXPECT_EQ(AEGetInteractionAllowed(&theLevel), noErr);
    EXPECT_EQ(theLevel, kAEInteractWithAll);
    EXPECT_EQ(AESetInteractionAllowed(kAEInteractWithLocal), noErr);
    EXPECT_EQ(AEGetInteractionAllowed(nullptr), paramErr);
    EXPECT_EQ(AEInteractWithUser(kAEDefaultTimeout, nullptr, nullptr), noErr);
}
