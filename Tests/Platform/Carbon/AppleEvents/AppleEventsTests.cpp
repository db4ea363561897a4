// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "AppleEventTestSupport.h"

namespace {

// An attribute as a number or code; zero when there is none.
template <class Value>
Value Attribute(AppleEvent* theEvent, AEKeyword theKeyword, DescType theType)
{
    Value theValue{};
    AEGetAttributePtr(theEvent, theKeyword, theType, nullptr, &theValue, sizeof theValue, nullptr);
    return theValue;
}

OSErr Missed(AppleEvent* theEvent, AEKeyword* theKeyword)
{
    return AEGetAttributePtr(theEvent, keyMissedKeywordAttr, typeWildCard, nullptr, theKeyword,
                             sizeof *theKeyword, nullptr);
}

OSErr Read(AppleEvent* theEvent, AEKeyword theKeyword)
{
    return AEGetParamPtr(theEvent, theKeyword, typeWildCard, nullptr, nullptr, 0, nullptr);
}

} // namespace

TEST(AppleEvents, AnEventHasAttributes)
{
    TestDescriptor theTarget(typeApplSignature, BytesOfValue(OSType{'what'}));
    TestDescriptor theEvent;
    EXPECT_EQ(AECreateAppleEvent('clas', 'idid', theTarget, 17, 23, theEvent), noErr);
    EXPECT_EQ(theEvent.Type(), DescType{typeAppleEvent});
    EXPECT_EQ(Attribute<OSType>(theEvent, keyEventClassAttr, typeType), OSType{'clas'});
    EXPECT_EQ(Attribute<OSType>(theEvent, keyEventIDAttr, typeType), OSType{'idid'});
    EXPECT_EQ(Attribute<SInt32>(theEvent, keyReturnIDAttr, typeSInt32), 17);
    EXPECT_EQ(Attribute<SInt32>(theEvent, keyTransactionIDAttr, typeSInt32), 23);
    EXPECT_EQ(Attribute<SInt16>(theEvent, keyEventSourceAttr, typeSInt16), kAEDirectCall);
    EXPECT_EQ(Attribute<OSType>(theEvent, keyAddressAttr, typeApplSignature), OSType{'what'});
    DescType theType = 0;
    Size theSize = 0;
    EXPECT_EQ(AESizeOfAttribute(theEvent, keyAddressAttr, &theType, &theSize), noErr);
    EXPECT_EQ(theType, DescType{typeApplSignature});
    EXPECT_EQ(theSize, 4);
    TestDescriptor theAddress;
    EXPECT_EQ(AEGetAttributeDesc(theEvent, keyAddressAttr, typeWildCard, theAddress), noErr);
    EXPECT_EQ(theAddress.Bytes(), BytesOfValue(OSType{'what'}));
    EXPECT_EQ(AEGetAttributeDesc(theEvent, keyAddressAttr, typeSInt32, theAddress), errAECoercionFail);
}

TEST(AppleEvents, AttributesAreNoParameters)
{
    TestDescriptor theEvent;
    EXPECT_EQ(AECreateAppleEvent('clas', 'idid', nullptr, 1, 0, theEvent), noErr);
    EXPECT_EQ(AEPutAttributePtr(theEvent, keyTimeoutAttr, typeChar, "7", 1), noErr);
    EXPECT_EQ(PutParameter(theEvent, keyTimeoutAttr, "8"), noErr);
    EXPECT_EQ(Attribute<SInt32>(theEvent, keyTimeoutAttr, typeSInt32), 7);
    TestDescriptor theNine(typeChar, "9");
    EXPECT_EQ(AEPutAttributeDesc(theEvent, keyTimeoutAttr, theNine), noErr);
    EXPECT_EQ(Attribute<SInt32>(theEvent, keyTimeoutAttr, typeSInt32), 9);
    long theCount = 0;
    EXPECT_EQ(AECountItems(theEvent, &theCount), noErr);
    EXPECT_EQ(theCount, 1);
    EXPECT_TRUE(AECheckIsRecord(theEvent));
    EXPECT_EQ(AESizeOfAttribute(theEvent, keyAddressAttr, nullptr, nullptr), errAEDescNotFound);
}

TEST(AppleEvents, ReturnIdentifiersAreMadeOnRequest)
{
    TestDescriptor theFirst;
    TestDescriptor theSecond;
    AECreateAppleEvent('clas', 'idid', nullptr, kAutoGenerateReturnID, 0, theFirst);
    AECreateAppleEvent('clas', 'idid', nullptr, kAutoGenerateReturnID, 0, theSecond);
    const auto theNumber = Attribute<SInt16>(theFirst, keyReturnIDAttr, typeSInt16);
    EXPECT_GT(theNumber, 0);
    EXPECT_NE(Attribute<SInt16>(theSecond, keyReturnIDAttr, typeSInt16), theNumber);
}

TEST(AppleEvents, ParametersThatNobodyReadAreMissed)
{
    TestDescriptor theEvent;
    AECreateAppleEvent('clas', 'idid', nullptr, 1, 0, theEvent);
    AEKeyword theKeyword = 0;
    EXPECT_EQ(Missed(theEvent, &theKeyword), errAEDescNotFound);
    PutParameter(theEvent, 'colr', "red");
    PutParameter(theEvent, 'size', "12");
    PutParameter(theEvent, 'font', "Any");
    EXPECT_EQ(Missed(theEvent, &theKeyword), noErr);
    EXPECT_EQ(theKeyword, AEKeyword{'colr'});
    EXPECT_EQ(Read(theEvent, 'colr'), noErr);
    EXPECT_EQ(Missed(theEvent, &theKeyword), noErr);
    EXPECT_EQ(theKeyword, AEKeyword{'size'});
    TestDescriptor theSize;
    EXPECT_EQ(AEGetParamDesc(theEvent, 'size', typeWildCard, theSize), noErr);
    EXPECT_EQ(Missed(theEvent, &theKeyword), noErr);
    EXPECT_EQ(theKeyword, AEKeyword{'font'});
    EXPECT_EQ(
        AEPutAttributePtr(theEvent, keyOptionalKeywordAttr, typeKeyword, &theKeyword, sizeof theKeyword),
        noErr);
    EXPECT_EQ(Missed(theEvent, &theKeyword), errAEDescNotFound);
    PutParameter(theEvent, 'size', "13");
    EXPECT_EQ(Missed(theEvent, &theKeyword), noErr) << "it is a new one";
    EXPECT_EQ(theKeyword, AEKeyword{'size'});
    TestList theOptional;
    const AEKeyword theSizeKey = 'size';
    const AEKeyword theFontKey = 'font';
    AEPutPtr(theOptional, 0, typeKeyword, &theSizeKey, sizeof theSizeKey);
    AEPutPtr(theOptional, 0, typeType, &theFontKey, sizeof theFontKey);
    EXPECT_EQ(AEPutAttributeDesc(theEvent, keyOptionalKeywordAttr, theOptional), noErr);
    EXPECT_EQ(Missed(theEvent, &theKeyword), errAEDescNotFound);
}

TEST(AppleEvents, WhatIsNoEventIsRefused)
{
    TestList theRecord(true);
    TestDescriptor theResult;
    EXPECT_EQ(AEGetAttributePtr(theRecord, keyEventClassAttr, typeType, nullptr, nullptr, 0, nullptr),
              errAENotAppleEvent);
    EXPECT_EQ(AEGetAttributeDesc(theRecord, keyEventClassAttr, typeType, theResult), errAENotAppleEvent);
    EXPECT_EQ(AEPutAttributePtr(theRecord, keyTimeoutAttr, typeChar, "7", 1), errAENotAppleEvent);
    EXPECT_EQ(AEPutAttributeDesc(theRecord, keyTimeoutAttr, theResult), errAENotAppleEvent);
    EXPECT_EQ(AEGetAttributePtr(nullptr, keyEventClassAttr, typeType, nullptr, nullptr, 0, nullptr),
              paramErr);
    EXPECT_EQ(AECreateAppleEvent('clas', 'idid', nullptr, 1, 0, nullptr), paramErr);
    const AEDesc theInvented = {typeChar, reinterpret_cast<AEDataStorage>(0x12345670)};
    EXPECT_EQ(AECreateAppleEvent('clas', 'idid', &theInvented, 1, 0, theResult), errAENotAEDesc);
    TestDescriptor theEvent;
    AECreateAppleEvent('clas', 'idid', nullptr, 1, 0, theEvent);
    EXPECT_EQ(AEPutAttributePtr(theEvent, keyTimeoutAttr, typeChar, nullptr, 1), paramErr);
    EXPECT_EQ(AEPutAttributeDesc(theEvent, keyTimeoutAttr, nullptr), paramErr);
}
