// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "DescriptorTestSupport.h"

#include <thread>
#include <vector>

static_assert(sizeof(AEDesc) == 8 || sizeof(void*) != 4);
static_assert(sizeof(AEKeyDesc) == 12 || sizeof(void*) != 4);

TEST(Descriptors, DataIsCopied)
{
    std::string theText = "warm";
    const TestDescriptor theDescriptor(typeChar, theText);
    theText = "cold";
    EXPECT_EQ(theDescriptor.Type(), DescType{typeChar});
    EXPECT_EQ(theDescriptor.Bytes(), "warm");
}

TEST(Descriptors, AsManyBytesAreGivenAsThereIsRoomFor)
{
    TestDescriptor theDescriptor(typeChar, "warm");
    char theBytes[] = "------";
    EXPECT_EQ(AEGetDescData(theDescriptor, theBytes, 2), noErr);
    EXPECT_STREQ(theBytes, "wa----");
    EXPECT_EQ(AEGetDescData(theDescriptor, theBytes, 6), noErr);
    EXPECT_STREQ(theBytes, "warm--");
    EXPECT_EQ(AEGetDescData(theDescriptor, nullptr, 0), noErr);
}

TEST(Descriptors, NothingIsDataToo)
{
    AEDesc theDescriptor;
    EXPECT_EQ(AECreateDesc(typeTrue, nullptr, 0, &theDescriptor), noErr);
    EXPECT_EQ(theDescriptor.descriptorType, DescType{typeTrue});
    EXPECT_EQ(AEGetDescDataSize(&theDescriptor), 0);
    EXPECT_EQ(AEDisposeDesc(&theDescriptor), noErr);
}

TEST(Descriptors, ADisposedDescriptorIsNull)
{
    AEDesc theDescriptor;
    EXPECT_EQ(AECreateDesc(typeChar, "a", 1, &theDescriptor), noErr);
    AEDesc theOther = theDescriptor;
    EXPECT_EQ(AEDisposeDesc(&theDescriptor), noErr);
    EXPECT_EQ(theDescriptor.descriptorType, DescType{typeNull});
    EXPECT_EQ(theDescriptor.dataHandle, nullptr);
    EXPECT_EQ(AEDisposeDesc(&theDescriptor), noErr);
    char theByte = 'x';
    EXPECT_EQ(AEGetDescData(&theOther, &theByte, 1), errAENotAEDesc);
    EXPECT_EQ(theByte, 'x');
    EXPECT_EQ(AEGetDescDataSize(&theOther), 0);
    EXPECT_EQ(AEDisposeDesc(&theOther), errAENotAEDesc);
    EXPECT_EQ(theOther.dataHandle, nullptr);
}

TEST(Descriptors, ANullOneCanBeRead)
{
    AEDesc theDescriptor = {'what', reinterpret_cast<AEDataStorage>(0x1234)};
    AEInitializeDesc(&theDescriptor);
    EXPECT_EQ(theDescriptor.descriptorType, DescType{typeNull});
    EXPECT_EQ(theDescriptor.dataHandle, nullptr);
    EXPECT_EQ(AEGetDescDataSize(&theDescriptor), 0);
    TestDescriptor theCopy;
    EXPECT_EQ(AEDuplicateDesc(&theDescriptor, theCopy), noErr);
    EXPECT_EQ(theCopy.Type(), DescType{typeNull});
    AEInitializeDesc(nullptr);
}

TEST(Descriptors, ACopySharesNothing)
{
    TestList theList;
    EXPECT_EQ(Put(theList, 0, "one"), noErr);
    TestList theOther;
    AEDisposeDesc(theOther);
    EXPECT_EQ(AEDuplicateDesc(theList, theOther), noErr);
    EXPECT_EQ(Put(theOther, 1, "two"), noErr);
    EXPECT_EQ(theList.At(1), "one");
    EXPECT_EQ(theOther.At(1), "two");
}

TEST(Descriptors, TheProgramMaySayAnotherType)
{
    AEDesc theDescriptor;
    EXPECT_EQ(AECreateDesc(typeType, BytesOfValue(OSType{'what'}).data(), 4, &theDescriptor), noErr);
    theDescriptor.descriptorType = typeApplSignature;
    TestDescriptor theCopy;
    EXPECT_EQ(AEDuplicateDesc(&theDescriptor, theCopy), noErr);
    EXPECT_EQ(theCopy.Type(), DescType{typeApplSignature});
    AEDisposeDesc(&theDescriptor);
}

TEST(Descriptors, DataCanBeReplaced)
{
    TestDescriptor theDescriptor(typeChar, "warm");
    EXPECT_EQ(AEReplaceDescData(typeUTF8Text, "hot", 3, theDescriptor), noErr);
    EXPECT_EQ(theDescriptor.Type(), DescType{typeUTF8Text});
    EXPECT_EQ(theDescriptor.Bytes(), "hot");
    EXPECT_EQ(AEReplaceDescData(typeChar, nullptr, 3, theDescriptor), paramErr);
    EXPECT_EQ(theDescriptor.Bytes(), "hot");
    EXPECT_EQ(AEReplaceDescData(typeChar, "a", 1, nullptr), paramErr);
}

TEST(Descriptors, BadArgumentsAreRefused)
{
    AEDesc theDescriptor = {'what', nullptr};
    EXPECT_EQ(AECreateDesc(typeChar, nullptr, 1, &theDescriptor), paramErr);
    EXPECT_EQ(theDescriptor.descriptorType, DescType{typeNull});
    EXPECT_EQ(AECreateDesc(typeChar, "a", -1, &theDescriptor), paramErr);
    EXPECT_EQ(AECreateDesc(typeChar, "a", 1, nullptr), paramErr);
    EXPECT_EQ(AEDisposeDesc(nullptr), paramErr);
    EXPECT_EQ(AEDuplicateDesc(nullptr, &theDescriptor), paramErr);
    EXPECT_EQ(AEDuplicateDesc(&theDescriptor, nullptr), paramErr);
    char theByte = 0;
    TestDescriptor theText(typeChar, "warm");
    EXPECT_EQ(AEGetDescData(nullptr, &theByte, 1), paramErr);
    EXPECT_EQ(AEGetDescData(theText, nullptr, 1), paramErr);
    EXPECT_EQ(AEGetDescData(theText, &theByte, -1), paramErr);
    EXPECT_EQ(AEGetDescDataSize(nullptr), 0);
}

TEST(Descriptors, AnInventedOneIsRecognised)
{
    AEDesc theDescriptor = {typeChar, reinterpret_cast<AEDataStorage>(0x12345670)};
    TestDescriptor theCopy;
    long theCount = 7;
    EXPECT_EQ(AEDuplicateDesc(&theDescriptor, theCopy), errAENotAEDesc);
    EXPECT_EQ(AECountItems(&theDescriptor, &theCount), errAENotAEDesc);
    EXPECT_EQ(theCount, 0);
    EXPECT_FALSE(AECheckIsRecord(&theDescriptor));
    EXPECT_EQ(AEDisposeDesc(&theDescriptor), errAENotAEDesc);
}

TEST(Descriptors, EachThreadMayHaveItsOwn)
{
    std::vector<std::thread> theThreads;
    theThreads.reserve(4);
    for (int theThread = 0; theThread < 4; ++theThread) {
        theThreads.emplace_back([] {
            for (int theRound = 0; theRound < 100; ++theRound) {
                TestList theList;
                Put(theList, 0, "one");
                EXPECT_EQ(theList.At(1), "one");
            }
        });
    }
    for (std::thread& theThread : theThreads) {
        theThread.join();
    }
}
