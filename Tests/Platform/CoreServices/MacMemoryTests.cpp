// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreServices/CoreServices.h>
#include <gtest/gtest.h>
#include <limits>

namespace {

// A handle that is disposed of at the end.
class TestHandle
{
public:
    explicit TestHandle(const std::string& theBytes)
        : mHandle(NewHandle(static_cast<Size>(theBytes.size())))
    {
        BlockMoveData(theBytes.data(), *mHandle, static_cast<Size>(theBytes.size()));
    }
    ~TestHandle() { DisposeHandle(mHandle); }
    TestHandle(const TestHandle&) = delete;
    TestHandle& operator=(const TestHandle&) = delete;
    operator Handle() const { return mHandle; }

private:
    Handle mHandle;
};

std::string BytesOf(Handle theHandle)
{
    return std::string(*theHandle, static_cast<size_t>(GetHandleSize(theHandle)));
}

} // namespace

TEST(MacMemory, APointerHasASize)
{
    const Ptr thePointer = NewPtrClear(100);
    EXPECT_EQ(MemError(), noErr);
    EXPECT_EQ(GetPtrSize(thePointer), 100);
    EXPECT_EQ(std::string(thePointer, 100), std::string(100, '\0'));
    DisposePtr(thePointer);
    EXPECT_EQ(MemError(), noErr);
    EXPECT_EQ(GetPtrSize(thePointer), 0);
    EXPECT_EQ(MemError(), memWZErr);
}

TEST(MacMemory, NothingIsABlockToo)
{
    const Ptr thePointer = NewPtr(0);
    EXPECT_NE(thePointer, nullptr);
    EXPECT_EQ(GetPtrSize(thePointer), 0);
    EXPECT_EQ(MemError(), noErr);
    DisposePtr(thePointer);
    const TestHandle theHandle("");
    EXPECT_NE(*theHandle, nullptr);
    EXPECT_EQ(GetHandleSize(theHandle), 0);
}

TEST(MacMemory, AHandleKeepsItsBytesWhenItGrowsAndShrinks)
{
    const TestHandle theHandle("warm");
    SetHandleSize(theHandle, 100000);
    EXPECT_EQ(MemError(), noErr);
    EXPECT_EQ(GetHandleSize(theHandle), 100000);
    EXPECT_EQ(BytesOf(theHandle).substr(0, 4), "warm");
    SetHandleSize(theHandle, 2);
    EXPECT_EQ(BytesOf(theHandle), "wa");
    SetHandleSize(theHandle, 0);
    EXPECT_EQ(GetHandleSize(theHandle), 0);
    SetHandleSize(theHandle, 1);
    EXPECT_EQ(MemError(), noErr);
}

TEST(MacMemory, AClearHandleIsZero)
{
    const Handle theHandle = NewHandleClear(64);
    EXPECT_EQ(BytesOf(theHandle), std::string(64, '\0'));
    DisposeHandle(theHandle);
}

TEST(MacMemory, LockingMovesNothingAndTheStateIsKept)
{
    const TestHandle theHandle("x");
    const Ptr theBlock = *theHandle;
    HLock(theHandle);
    EXPECT_EQ(HGetState(theHandle), 0);
    HSetState(theHandle, 0x40);
    HUnlock(theHandle);
    HNoPurge(theHandle);
    EXPECT_EQ(HGetState(theHandle), 0x40);
    EXPECT_EQ(*theHandle, theBlock);
    EXPECT_EQ(MemError(), noErr);
}

TEST(MacMemory, BytesAreJoined)
{
    Handle theHandle = nullptr;
    EXPECT_EQ(PtrToHand("warm", &theHandle, 4), noErr);
    EXPECT_EQ(PtrAndHand(" and", theHandle, 4), noErr);
    const TestHandle theEnd(" dry");
    EXPECT_EQ(HandAndHand(theEnd, theHandle), noErr);
    EXPECT_EQ(BytesOf(theHandle), "warm and dry");
    Handle theCopy = theHandle;
    EXPECT_EQ(HandToHand(&theCopy), noErr);
    EXPECT_NE(theCopy, theHandle);
    EXPECT_EQ(BytesOf(theCopy), "warm and dry");
    DisposeHandle(theCopy);
    DisposeHandle(theHandle);
}

TEST(MacMemory, AHandleIsJoinedToItself)
{
    const TestHandle theHandle("ab");
    EXPECT_EQ(HandAndHand(theHandle, theHandle), noErr);
    EXPECT_EQ(PtrAndHand(*theHandle + 1, theHandle, 2), noErr);
    EXPECT_EQ(BytesOf(theHandle), "ababba");
    EXPECT_EQ(PtrAndHand(*theHandle + 5, theHandle, 2), paramErr);
    EXPECT_EQ(BytesOf(theHandle), "ababba");
}

TEST(MacMemory, BlocksMayOverlap)
{
    char theText[] = "abcdef";
    BlockMove(theText, theText + 2, 4);
    EXPECT_STREQ(theText, "ababcd");
    BlockMove(theText, theText + 1, -1);
    BlockMove(nullptr, theText, 1);
    BlockMove(theText, nullptr, 1);
    EXPECT_STREQ(theText, "ababcd");
}

TEST(MacMemory, SizesThatAreNoneFail)
{
    EXPECT_EQ(NewPtr(-1), nullptr);
    EXPECT_EQ(MemError(), paramErr);
    EXPECT_EQ(NewHandleClear(-1), nullptr);
    EXPECT_EQ(MemError(), paramErr);
    const Size theLargest = std::numeric_limits<Size>::max();
    EXPECT_EQ(NewPtr(theLargest), nullptr);
    EXPECT_EQ(MemError(), memFullErr);
    EXPECT_EQ(NewHandle(theLargest), nullptr);
    EXPECT_EQ(MemError(), memFullErr);

    const TestHandle theHandle("warm");
    SetHandleSize(theHandle, -1);
    EXPECT_EQ(MemError(), paramErr);
    SetHandleSize(theHandle, theLargest);
    EXPECT_EQ(MemError(), memFullErr);
    EXPECT_EQ(PtrAndHand("x", theHandle, theLargest), memFullErr);
    EXPECT_EQ(PtrAndHand("x", theHandle, -1), paramErr);
    EXPECT_EQ(PtrAndHand(nullptr, theHandle, 1), paramErr);
    EXPECT_EQ(BytesOf(theHandle), "warm");
    Handle theNew = theHandle;
    EXPECT_EQ(PtrToHand("x", &theNew, -1), paramErr);
    EXPECT_EQ(PtrToHand(nullptr, &theNew, 1), paramErr);
    EXPECT_EQ(PtrToHand("x", nullptr, 1), paramErr);
    EXPECT_EQ(theNew, static_cast<Handle>(theHandle));
}

TEST(MacMemory, WhatIsNoHandleIsSaidToBeNone)
{
    char theByte = 0;
    Ptr theFalseBlock = &theByte;
    const Handle theFalse = &theFalseBlock;
    // Made before, so that it does not get the place of the one that is disposed of.
    const TestHandle theGood("x");
    const Handle theOld = NewHandle(1);
    DisposeHandle(theOld);
    for (const Handle theBad : {theFalse, theOld}) {
        EXPECT_EQ(GetHandleSize(theBad), 0);
        EXPECT_EQ(MemError(), memWZErr);
        SetHandleSize(theBad, 1);
        EXPECT_EQ(MemError(), memWZErr);
        HLock(theBad);
        EXPECT_EQ(MemError(), memWZErr);
        HUnlock(theBad);
        HNoPurge(theBad);
        HSetState(theBad, 1);
        EXPECT_EQ(HGetState(theBad), 0);
        DisposeHandle(theBad);
        EXPECT_EQ(MemError(), memWZErr);
        EXPECT_EQ(PtrAndHand("x", theBad, 1), memWZErr);
        EXPECT_EQ(HandAndHand(theBad, theGood), memWZErr);
        EXPECT_EQ(HandAndHand(theGood, theBad), memWZErr);
        Handle theCopy = theBad;
        EXPECT_EQ(HandToHand(&theCopy), memWZErr);
        EXPECT_EQ(theCopy, theBad);
    }
    DisposePtr(&theByte);
    EXPECT_EQ(MemError(), memWZErr);
}

TEST(MacMemory, NullIsNoHandle)
{
    Handle theNull = nullptr;
    EXPECT_EQ(GetHandleSize(nullptr), 0);
    EXPECT_EQ(MemError(), nilHandleErr);
    EXPECT_EQ(PtrAndHand("x", nullptr, 1), nilHandleErr);
    EXPECT_EQ(HandToHand(&theNull), nilHandleErr);
    EXPECT_EQ(HandToHand(nullptr), paramErr);
    DisposeHandle(nullptr);
    EXPECT_EQ(MemError(), noErr);
    DisposePtr(nullptr);
    EXPECT_EQ(MemError(), noErr);
}
