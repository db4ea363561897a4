// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "DescriptorTestSupport.h"

// --- Lists --------------------------------------------------------------------------------------------

TEST(DescriptorLists, ItemsAreAppendedReplacedAndDeleted)
{
    TestList theList;
    EXPECT_EQ(theList.Type(), DescType{typeAEList});
    EXPECT_EQ(theList.Count(), 0);
    EXPECT_EQ(Put(theList, 0, "one"), noErr);
    EXPECT_EQ(Put(theList, 0, "two"), noErr);
    EXPECT_EQ(Put(theList, 3, "three"), noErr);
    EXPECT_EQ(Put(theList, 2, "other"), noErr);
    EXPECT_EQ(theList.Count(), 3);
    EXPECT_EQ(theList.At(1) + theList.At(2) + theList.At(3), "oneotherthree");
    EXPECT_EQ(AEDeleteItem(theList, 1), noErr);
    EXPECT_EQ(theList.At(1) + theList.At(2), "otherthree");
}

TEST(DescriptorLists, OtherIndicesAreIllegal)
{
    TestList theList;
    Put(theList, 0, "one");
    TestDescriptor theResult(typeChar, "before");
    AEDisposeDesc(theResult);
    for (const long theIndex : {-1L, 0L, 2L}) {
        EXPECT_EQ(AEGetNthDesc(theList, theIndex, typeWildCard, nullptr, theResult), errAEIllegalIndex);
        EXPECT_EQ(AEGetNthPtr(theList, theIndex, typeWildCard, nullptr, nullptr, nullptr, 0, nullptr),
                  errAEIllegalIndex);
        EXPECT_EQ(AESizeOfNthItem(theList, theIndex, nullptr, nullptr), errAEIllegalIndex);
        EXPECT_EQ(AEDeleteItem(theList, theIndex), errAEIllegalIndex);
    }
    EXPECT_EQ(Put(theList, -1, "x"), errAEIllegalIndex);
    EXPECT_EQ(Put(theList, 3, "x"), errAEIllegalIndex);
    EXPECT_EQ(theList.Count(), 1);
}

TEST(DescriptorLists, AnItemIsCopiedAsFarAsThereIsRoom)
{
    TestList theList;
    Put(theList, 0, "warm");
    AEKeyword theKeyword = 0;
    DescType theType = 0;
    Size theSize = 0;
    char theBytes[] = "------";
    EXPECT_EQ(AEGetNthPtr(theList, 1, typeWildCard, &theKeyword, &theType, theBytes, 2, &theSize), noErr);
    EXPECT_STREQ(theBytes, "wa----");
    EXPECT_EQ(theKeyword, AEKeyword{typeWildCard});
    EXPECT_EQ(theType, DescType{typeChar});
    EXPECT_EQ(theSize, 4);
    EXPECT_EQ(AEGetNthPtr(theList, 1, typeWildCard, nullptr, nullptr, theBytes, 6, nullptr), noErr);
    EXPECT_STREQ(theBytes, "warm--");
    EXPECT_EQ(AEGetNthPtr(theList, 1, typeWildCard, nullptr, nullptr, theBytes, -1, nullptr), paramErr);
}

TEST(DescriptorLists, AnItemComesAsTheTypeThatIsAskedFor)
{
    TestList theList;
    Put(theList, 0, "17");
    SInt32 theNumber = 0;
    DescType theType = 0;
    EXPECT_EQ(AEGetNthPtr(theList, 1, typeSInt32, nullptr, &theType, &theNumber, sizeof theNumber, nullptr),
              noErr);
    EXPECT_EQ(theNumber, 17);
    EXPECT_EQ(theType, DescType{typeSInt32});
    TestDescriptor theItem;
    EXPECT_EQ(AEGetNthDesc(theList, 1, typeSInt16, nullptr, theItem), noErr);
    EXPECT_EQ(theItem.Bytes(), BytesOfValue(SInt16{17}));
    TestDescriptor theOther;
    EXPECT_EQ(AEGetNthDesc(theList, 1, typeFSRef, nullptr, theOther), errAECoercionFail);
    EXPECT_EQ(theOther.Type(), DescType{typeNull});
    EXPECT_EQ(AEGetNthPtr(theList, 1, typeFSRef, nullptr, nullptr, nullptr, 0, nullptr), errAECoercionFail);
}

TEST(DescriptorLists, AnItemHasATypeAndASize)
{
    TestList theList;
    Put(theList, 0, "warm");
    DescType theType = 0;
    Size theSize = 0;
    EXPECT_EQ(AESizeOfNthItem(theList, 1, &theType, &theSize), noErr);
    EXPECT_EQ(theType, DescType{typeChar});
    EXPECT_EQ(theSize, 4);
}

TEST(DescriptorLists, ListsHoldLists)
{
    TestList theInner;
    Put(theInner, 0, "one");
    TestList theList;
    EXPECT_EQ(AEPutDesc(theList, 0, theInner), noErr);
    Put(theInner, 0, "two");
    TestList theCopy;
    AEDisposeDesc(theCopy);
    EXPECT_EQ(AEGetNthDesc(theList, 1, typeAEList, nullptr, theCopy), noErr);
    EXPECT_EQ(theCopy.Count(), 1);
    EXPECT_EQ(theCopy.At(1), "one");
    EXPECT_EQ(AEGetNthPtr(theList, 1, typeWildCard, nullptr, nullptr, nullptr, 0, nullptr),
              errAEWrongDataType);
    EXPECT_EQ(theList.Bytes(), std::to_string(errAEWrongDataType));
}

TEST(DescriptorLists, ThereIsAnEndToListsInLists)
{
    OSErr theStatus = noErr;
    int theLevels = 0;
    AEDesc theInner;
    AECreateList(nullptr, 0, false, &theInner);
    while (theStatus == noErr && theLevels < 1000) {
        AEDesc theOuter;
        AECreateList(nullptr, 0, theLevels % 2 != 0, &theOuter);
        theStatus = theLevels % 2 != 0 ? AEPutParamDesc(&theOuter, 'item', &theInner)
                                       : AEPutDesc(&theOuter, 0, &theInner);
        AEDisposeDesc(&theInner);
        theInner = theOuter;
        ++theLevels;
    }
    AEDisposeDesc(&theInner);
    EXPECT_EQ(theStatus, memFullErr);
    EXPECT_EQ(theLevels, 100);
}

TEST(DescriptorLists, WhatIsNoListIsRefused)
{
    TestDescriptor theText(typeChar, "warm");
    TestList theRecord(true);
    TestDescriptor theResult;
    long theCount = 7;
    EXPECT_EQ(AECountItems(theText, &theCount), errAEWrongDataType);
    EXPECT_EQ(theCount, 0);
    EXPECT_EQ(AEGetNthDesc(theText, 1, typeWildCard, nullptr, theResult), errAEWrongDataType);
    EXPECT_EQ(AEDeleteItem(theText, 1), errAEWrongDataType);
    EXPECT_EQ(Put(theText, 0, "x"), errAEWrongDataType);
    EXPECT_EQ(Put(theRecord, 0, "x"), errAEWrongDataType);
    EXPECT_EQ(AECountItems(theRecord, nullptr), paramErr);
    EXPECT_EQ(AECountItems(nullptr, &theCount), paramErr);
    EXPECT_EQ(AECreateList(nullptr, 0, false, nullptr), paramErr);
    EXPECT_EQ(Put(nullptr, 0, "x"), paramErr);
    TestList theList;
    EXPECT_EQ(AEPutPtr(theList, 0, typeChar, nullptr, 1), paramErr);
    EXPECT_EQ(AEPutDesc(theList, 0, nullptr), paramErr);
    EXPECT_EQ(theList.Count(), 0);
}

// --- Records ------------------------------------------------------------------------------------------

TEST(DescriptorLists, ItemsOfARecordHaveKeywords)
{
    TestList theRecord(true);
    EXPECT_EQ(theRecord.Type(), DescType{typeAERecord});
    EXPECT_EQ(PutParameter(theRecord, 'colr', "red"), noErr);
    EXPECT_EQ(PutParameter(theRecord, 'size', "12"), noErr);
    EXPECT_EQ(PutParameter(theRecord, 'colr', "blue"), noErr);
    EXPECT_EQ(theRecord.Count(), 2);
    TestDescriptor theColour;
    EXPECT_EQ(AEGetParamDesc(theRecord, 'colr', typeChar, theColour), noErr);
    EXPECT_EQ(theColour.Bytes(), "blue");
    SInt32 theNumber = 0;
    DescType theType = 0;
    Size theSize = 0;
    EXPECT_EQ(AEGetParamPtr(theRecord, 'size', typeSInt32, &theType, &theNumber, sizeof theNumber, &theSize),
              noErr);
    EXPECT_EQ(theNumber, 12);
    EXPECT_EQ(theType, DescType{typeSInt32});
    EXPECT_EQ(theSize, 4);
    EXPECT_EQ(AESizeOfParam(theRecord, 'size', &theType, &theSize), noErr);
    EXPECT_EQ(theType, DescType{typeChar});
    EXPECT_EQ(theSize, 2);
}

TEST(DescriptorLists, ARecordCanBeReadByIndexWithTheKeywords)
{
    TestList theRecord(true);
    PutParameter(theRecord, 'colr', "red");
    AEKeyword theKeyword = 0;
    TestDescriptor theItem;
    EXPECT_EQ(AEGetNthDesc(theRecord, 1, typeWildCard, &theKeyword, theItem), noErr);
    EXPECT_EQ(theKeyword, AEKeyword{'colr'});
    EXPECT_EQ(theItem.Bytes(), "red");
    theKeyword = 0;
    EXPECT_EQ(AEGetNthPtr(theRecord, 1, typeWildCard, &theKeyword, nullptr, nullptr, 0, nullptr), noErr);
    EXPECT_EQ(theKeyword, AEKeyword{'colr'});
    TestList theList;
    EXPECT_EQ(AEPutDesc(theList, 0, theItem), noErr);
    EXPECT_EQ(AEGetNthDesc(theList, 1, typeWildCard, &theKeyword, nullptr), paramErr);
    EXPECT_EQ(AEGetNthPtr(theList, 1, typeWildCard, &theKeyword, nullptr, nullptr, 0, nullptr), noErr);
    EXPECT_EQ(theKeyword, AEKeyword{typeWildCard}) << "it came along from the record";
}

TEST(DescriptorLists, AKeywordThatIsNotThereIsNotFound)
{
    TestList theRecord(true);
    PutParameter(theRecord, 'colr', "red");
    TestDescriptor theItem;
    EXPECT_EQ(AEGetParamDesc(theRecord, 'size', typeWildCard, theItem), errAEDescNotFound);
    EXPECT_EQ(AEGetParamPtr(theRecord, 'size', typeWildCard, nullptr, nullptr, 0, nullptr),
              errAEDescNotFound);
    EXPECT_EQ(AESizeOfParam(theRecord, 'size', nullptr, nullptr), errAEDescNotFound);
    EXPECT_EQ(AEDeleteParam(theRecord, 'size'), errAEDescNotFound);
    EXPECT_EQ(AEDeleteParam(theRecord, 'colr'), noErr);
    EXPECT_EQ(theRecord.Count(), 0);
}

TEST(DescriptorLists, WhatIsNoRecordIsRefused)
{
    TestList theList;
    TestDescriptor theItem(typeChar, "x");
    TestDescriptor theResult;
    EXPECT_FALSE(AECheckIsRecord(theList));
    EXPECT_FALSE(AECheckIsRecord(theItem));
    EXPECT_FALSE(AECheckIsRecord(nullptr));
    EXPECT_TRUE(AECheckIsRecord(TestList(true)));
    EXPECT_EQ(PutParameter(theList, 'colr', "x"), errAEWrongDataType);
    EXPECT_EQ(AEPutParamDesc(theList, 'colr', theItem), errAEWrongDataType);
    EXPECT_EQ(AEGetParamDesc(theList, 'colr', typeWildCard, theResult), errAEWrongDataType);
    EXPECT_EQ(AEDeleteParam(theList, 'colr'), errAEWrongDataType);
    TestList theRecord(true);
    EXPECT_EQ(AEPutParamPtr(theRecord, 'colr', typeChar, nullptr, 2), paramErr);
    EXPECT_EQ(AEPutParamDesc(theRecord, 'colr', nullptr), paramErr);
    EXPECT_EQ(AEPutParamDesc(nullptr, 'colr', theItem), paramErr);
    EXPECT_EQ(AEGetParamDesc(theRecord, 'colr', typeWildCard, nullptr), paramErr);
    EXPECT_EQ(theRecord.Count(), 0);
}
