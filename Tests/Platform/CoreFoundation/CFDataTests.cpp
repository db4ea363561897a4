// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFTestSupport.h"

#include <cstdlib>
#include <cstring>

namespace {

using Bytes = std::vector<UInt8>;

Bytes Copied(CFDataRef theData, CFIndex theLocation, CFIndex theLength)
{
    Bytes theBuffer(6, 9);
    CFDataGetBytes(theData, CFRangeMake(theLocation, theLength), theBuffer.data());
    return theBuffer;
}

} // namespace

TEST(CFData, CreateCopiesTheBytes)
{
    Bytes theBytes = {1, 2, 3};
    const auto theData = Data(theBytes);
    theBytes[0] = 99;
    EXPECT_EQ(BytesOf(theData), (Bytes{1, 2, 3}));
    EXPECT_EQ(CFDataGetLength(theData), 3);
}

TEST(CFData, CreateNeedsNoBytesForNoLength)
{
    const Owned<CFDataRef> theData(CFDataCreate(nullptr, nullptr, 0));
    EXPECT_EQ(CFDataGetLength(theData), 0);
    EXPECT_TRUE(CFEqual(theData, Owned(CFDataCreateMutable(nullptr, 0))));
}

TEST(CFData, ANegativeLengthMakesNoData)
{
    const UInt8 theByte = 1;
    EXPECT_EQ(CFDataCreate(nullptr, &theByte, -1), nullptr);
    EXPECT_EQ(CFDataCreateWithBytesNoCopy(nullptr, &theByte, -1, kCFAllocatorNull), nullptr);
}

TEST(CFData, BytesCanBeUsedInPlace)
{
    static const UInt8 kBytes[] = {1, 2, 3};
    const Owned<CFDataRef> theData(CFDataCreateWithBytesNoCopy(nullptr, kBytes, 3, kCFAllocatorNull));
    EXPECT_EQ(CFDataGetBytePtr(theData), kBytes);
    EXPECT_TRUE(CFEqual(theData, Data({1, 2, 3})));
}

TEST(CFData, BytesInPlaceAreFreedByTheirAllocator)
{
    UInt8* const theBytes = static_cast<UInt8*>(std::malloc(3));
    std::memset(theBytes, 5, 3);
    const Owned<CFDataRef> theData(CFDataCreateWithBytesNoCopy(nullptr, theBytes, 3, kCFAllocatorMalloc));
    EXPECT_EQ(BytesOf(theData), (Bytes{5, 5, 5}));
}

TEST(CFData, CopiesAreEqualObjectsOfTheirOwn)
{
    const auto theData = Data({1, 2, 3});
    const Owned<CFDataRef> theCopy(CFDataCreateCopy(nullptr, theData));
    EXPECT_NE(static_cast<CFDataRef>(theCopy), static_cast<CFDataRef>(theData));
    EXPECT_TRUE(CFEqual(theCopy, theData));
    EXPECT_EQ(CFHash(theCopy), CFHash(theData));
    const Owned<CFMutableDataRef> theMutableCopy(CFDataCreateMutableCopy(nullptr, 0, theData));
    CFDataGetMutableBytePtr(theMutableCopy)[0] = 9;
    EXPECT_FALSE(CFEqual(theMutableCopy, theData));
    EXPECT_EQ(BytesOf(theData), (Bytes{1, 2, 3}));
}

TEST(CFData, DataIsEqualByItsBytes)
{
    EXPECT_TRUE(CFEqual(Data({1, 2}), Data({1, 2})));
    EXPECT_FALSE(CFEqual(Data({1, 2}), Data({1, 3})));
    EXPECT_FALSE(CFEqual(Data({1, 2}), Data({1, 2, 0})));
}

TEST(CFData, GetBytesCopiesARange)
{
    const auto theData = Data({1, 2, 3, 4});
    EXPECT_EQ(Copied(theData, 1, 2), (Bytes{2, 3, 9, 9, 9, 9}));
    EXPECT_EQ(Copied(theData, 0, 0), (Bytes{9, 9, 9, 9, 9, 9}));
    EXPECT_EQ(Copied(theData, 4, 0), (Bytes{9, 9, 9, 9, 9, 9}));
}

TEST(CFData, GetBytesFillsUpWithZerosPastTheEnd)
{
    const auto theData = Data({1, 2, 3, 4});
    EXPECT_EQ(Copied(theData, 2, 4), (Bytes{3, 4, 0, 0, 9, 9}));
    EXPECT_EQ(Copied(theData, 100, 3), (Bytes{0, 0, 0, 9, 9, 9}));
    EXPECT_EQ(Copied(theData, -1, 3), (Bytes{9, 9, 9, 9, 9, 9}));
    EXPECT_EQ(Copied(theData, 1, -3), (Bytes{9, 9, 9, 9, 9, 9}));
}

TEST(CFData, LengthsGrowWithZeros)
{
    const Owned<CFMutableDataRef> theData(CFDataCreateMutable(nullptr, 0));
    CFDataSetLength(theData, 2);
    EXPECT_EQ(BytesOf(theData), (Bytes{0, 0}));
    CFDataGetMutableBytePtr(theData)[1] = 5;
    CFDataIncreaseLength(theData, 2);
    EXPECT_EQ(BytesOf(theData), (Bytes{0, 5, 0, 0}));
    CFDataSetLength(theData, 1);
    EXPECT_EQ(BytesOf(theData), (Bytes{0}));
}

TEST(CFData, BytesAreAppendedReplacedAndDeleted)
{
    const Owned<CFMutableDataRef> theData(CFDataCreateMutable(nullptr, 10));
    const Bytes theBytes = {1, 2, 3, 4};
    CFDataAppendBytes(theData, theBytes.data(), 4);
    CFDataAppendBytes(theData, nullptr, 0);
    EXPECT_EQ(BytesOf(theData), theBytes);
    const UInt8 theNewBytes[] = {8, 9, 10};
    CFDataReplaceBytes(theData, CFRangeMake(1, 2), theNewBytes, 3);
    EXPECT_EQ(BytesOf(theData), (Bytes{1, 8, 9, 10, 4}));
    CFDataDeleteBytes(theData, CFRangeMake(0, 2));
    EXPECT_EQ(BytesOf(theData), (Bytes{9, 10, 4}));
    CFDataAppendBytes(theData, CFDataGetBytePtr(theData), 3);
    EXPECT_EQ(BytesOf(theData), (Bytes{9, 10, 4, 9, 10, 4}));
}
