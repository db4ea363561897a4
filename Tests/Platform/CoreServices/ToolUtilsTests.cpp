// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreServices/CoreServices.h>
#include <gtest/gtest.h>
#include <set>

TEST(ToolUtils, WordsAreSigned)
{
    EXPECT_EQ(HiWord(0x00010002), 1);
    EXPECT_EQ(LoWord(0x00010002), 2);
    EXPECT_EQ(HiWord(-2), -1);
    EXPECT_EQ(LoWord(0x0001FFFE), -2);
}

TEST(ToolUtils, RandomNumbersAreSpreadAndNeverTheLowest)
{
    std::set<short> theNumbers;
    int theNegative = 0;
    for (int theCount = 0; theCount < 200000; ++theCount) {
        const short theNumber = Random();
        EXPECT_NE(theNumber, -32768);
        theNumbers.insert(theNumber);
        theNegative += theNumber < 0 ? 1 : 0;
    }
    EXPECT_GT(theNumbers.size(), 50000u);
    EXPECT_NEAR(theNegative, 100000, 2000);
}

TEST(ToolUtils, BytesAreTurnedRound)
{
    const UInt8 theBytes[] = {1, 2, 3, 4, 5, 6, 7, 8};
    UInt16 theShort = 0;
    UInt32 theLong = 0;
    UInt64 theWide = 0;
    memcpy(&theShort, theBytes, sizeof theShort);
    memcpy(&theLong, theBytes, sizeof theLong);
    memcpy(&theWide, theBytes, sizeof theWide);
    EXPECT_EQ(EndianU16_BtoN(theShort), 0x0102);
    EXPECT_EQ(EndianU16_LtoN(theShort), 0x0201);
    EXPECT_EQ(EndianU32_BtoN(theLong), 0x01020304u);
    EXPECT_EQ(EndianU32_LtoN(theLong), 0x04030201u);
    EXPECT_EQ(EndianU64_BtoN(theWide), 0x0102030405060708u);
    EXPECT_EQ(EndianU64_LtoN(theWide), 0x0807060504030201u);
    EXPECT_EQ(EndianS16_NtoB(EndianS16_BtoN(-2)), -2);
    EXPECT_EQ(EndianS32_NtoL(EndianS32_LtoN(-2)), -2);
    EXPECT_EQ(EndianS16_BtoL(0x7FFE), static_cast<SInt16>(0xFE7F));
    EXPECT_EQ(EndianU32_LtoB(1u), 0x01000000u);
    EXPECT_EQ(EndianU64_BtoL(1u), UInt64{1} << 56);
}
