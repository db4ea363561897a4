// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Common/NeverDestroyed.h"

#include <algorithm>
#include <CoreServices/MacMemory.h>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <mutex>
#include <new>
#include <unordered_map>

namespace Host {

namespace {

thread_local OSErr gLastError = noErr;

OSErr Ended(OSErr theError)
{
    gLastError = theError;
    return theError;
}

// What is known of a block besides its bytes.
struct Block
{
    Size theSize = 0;
    SInt8 theState = 0; // of a handle
};

// The pointers, or the handles, that are in use. A program may hand over any address: it is looked for and
// never followed.
class Blocks
{
public:
    // False without memory for the entry.
    bool Add(const void* theAddress, Size theSize)
    {
        const std::lock_guard<std::mutex> theLock(mMutex);
        try {
            mBlocks[theAddress].theSize = theSize;
            return true;
        } catch (const std::bad_alloc&) {
            return false;
        }
    }

    bool Remove(const void* theAddress)
    {
        const std::lock_guard<std::mutex> theLock(mMutex);
        return mBlocks.erase(theAddress) != 0;
    }

    // Stays where it is until it is removed; null for an address that is none.
    Block* Find(const void* theAddress)
    {
        const std::lock_guard<std::mutex> theLock(mMutex);
        const auto theEntry = mBlocks.find(theAddress);
        return theEntry == mBlocks.end() ? nullptr : &theEntry->second;
    }

private:
    std::mutex mMutex;
    std::unordered_map<const void*, Block> mBlocks;
};

Blocks& Pointers()
{
    static NeverDestroyed<Blocks> sBlocks;
    return sBlocks.Get();
}

Blocks& Handles()
{
    static NeverDestroyed<Blocks> sBlocks;
    return sBlocks.Get();
}

// No machine has more.
constexpr Size kLargest = std::numeric_limits<Size>::max() / 2;

// Whether a block may have a size; else the error that says why.
OSErr CheckSize(Size theSize)
{
    return theSize < 0 ? OSErr{paramErr} : theSize > kLargest ? OSErr{memFullErr} : OSErr{noErr};
}

// A block of 0 bytes has an address of its own too.
size_t AllocatedSize(Size theSize)
{
    return static_cast<size_t>(std::max(theSize, Size{1}));
}

Ptr MakePointer(Size theSize, bool theIsClear)
{
    if (Ended(CheckSize(theSize)) != noErr) {
        return nullptr;
    }
    void* const theBytes =
        theIsClear ? std::calloc(AllocatedSize(theSize), 1) : std::malloc(AllocatedSize(theSize));
    if (theBytes == nullptr || !Pointers().Add(theBytes, theSize)) {
        std::free(theBytes);
        Ended(memFullErr);
        return nullptr;
    }
    Ended(noErr);
    return static_cast<Ptr>(theBytes);
}

Handle MakeHandle(Size theSize, bool theIsClear)
{
    if (Ended(CheckSize(theSize)) != noErr) {
        return nullptr;
    }
    const auto theHandle = static_cast<Handle>(std::malloc(sizeof(Ptr)));
    void* const theBytes =
        theIsClear ? std::calloc(AllocatedSize(theSize), 1) : std::malloc(AllocatedSize(theSize));
    if (theHandle == nullptr || theBytes == nullptr || !Handles().Add(theHandle, theSize)) {
        std::free(theBytes);
        std::free(theHandle);
        Ended(memFullErr);
        return nullptr;
    }
    *theHandle = static_cast<Ptr>(theBytes);
    Ended(noErr);
    return theHandle;
}

// The block of a handle, or null and the error that says why.
Block* FindHandle(Handle theHandle)
{
    Block* const theBlock = theHandle == nullptr ? nullptr : Handles().Find(theHandle);
    Ended(theHandle == nullptr ? OSErr{nilHandleErr} : theBlock == nullptr ? OSErr{memWZErr} : OSErr{noErr});
    return theBlock;
}

void Resize(Handle theHandle, Block& theBlock, Size theSize)
{
    if (Ended(CheckSize(theSize)) != noErr) {
        return;
    }
    void* const theBytes = std::realloc(*theHandle, AllocatedSize(theSize));
    if (theBytes == nullptr) {
        Ended(memFullErr);
        return;
    }
    *theHandle = static_cast<Ptr>(theBytes);
    theBlock.theSize = theSize;
}

// How far into the block an address lies; the block's size for an address outside of it.
Size OffsetIn(Handle theHandle, Size theSize, const void* theAddress)
{
    const auto theDistance =
        reinterpret_cast<uintptr_t>(theAddress) - reinterpret_cast<uintptr_t>(*theHandle);
    return theDistance < static_cast<uintptr_t>(theSize) ? static_cast<Size>(theDistance) : theSize;
}

OSErr Append(const void* theBytes, Handle theHandle, Size theCount)
{
    Block* const theBlock = FindHandle(theHandle);
    if (theBlock == nullptr) {
        return MemError();
    }
    const Size theOldSize = theBlock->theSize;
    if (theCount < 0 || (theBytes == nullptr && theCount > 0)) {
        return Ended(paramErr);
    }
    if (theCount > kLargest - theOldSize) {
        return Ended(memFullErr);
    }
    // What lies in the handle moves with it.
    const Size theOffset = OffsetIn(theHandle, theOldSize, theBytes);
    if (theOffset < theOldSize && theCount > theOldSize - theOffset) {
        return Ended(paramErr);
    }
    Resize(theHandle, *theBlock, theOldSize + theCount);
    if (MemError() == noErr && theCount > 0) {
        const void* const theSource = theOffset < theOldSize ? *theHandle + theOffset : theBytes;
        std::memcpy(*theHandle + theOldSize, theSource, static_cast<size_t>(theCount));
    }
    return MemError();
}

} // namespace

} // namespace Host

using namespace Host;

OSErr MemError(void)
{
    return gLastError;
}

Ptr NewPtr(Size byteCount)
{
    return MakePointer(byteCount, false);
}

Ptr NewPtrClear(Size byteCount)
{
    return MakePointer(byteCount, true);
}

Size GetPtrSize(Ptr p)
{
    const Block* const theBlock = Pointers().Find(p);
    Ended(theBlock == nullptr ? OSErr{memWZErr} : OSErr{noErr});
    return theBlock == nullptr ? 0 : theBlock->theSize;
}

void DisposePtr(Ptr p)
{
    if (p == nullptr) {
        Ended(noErr);
    } else if (Pointers().Remove(p)) {
        std::free(p);
        Ended(noErr);
    } else {
        Ended(memWZErr);
    }
}

Handle NewHandle(Size byteCount)
{
    return MakeHandle(byteCount, false);
}

Handle NewHandleClear(Size byteCount)
{
    return MakeHandle(byteCount, true);
}

Size GetHandleSize(Handle h)
{
    const Block* const theBlock = FindHandle(h);
    return theBlock == nullptr ? 0 : theBlock->theSize;
}

void SetHandleSize(Handle h, Size newSize)
{
    if (Block* const theBlock = FindHandle(h); theBlock != nullptr) {
        Resize(h, *theBlock, newSize);
    }
}

void DisposeHandle(Handle h)
{
    if (h == nullptr) {
        Ended(noErr);
    } else if (Handles().Remove(h)) {
        std::free(*h);
        std::free(h);
        Ended(noErr);
    } else {
        Ended(memWZErr);
    }
}

void HLock(Handle h)
{
    FindHandle(h);
}

void HUnlock(Handle h)
{
    FindHandle(h);
}

void HNoPurge(Handle h)
{
    FindHandle(h);
}

SInt8 HGetState(Handle h)
{
    const Block* const theBlock = FindHandle(h);
    return theBlock == nullptr ? SInt8{0} : theBlock->theState;
}

void HSetState(Handle h, SInt8 flags)
{
    if (Block* const theBlock = FindHandle(h); theBlock != nullptr) {
        theBlock->theState = flags;
    }
}

void BlockMove(const void* srcPtr, void* destPtr, Size byteCount)
{
    if (srcPtr != nullptr && destPtr != nullptr && byteCount > 0) {
        std::memmove(destPtr, srcPtr, static_cast<size_t>(byteCount));
    }
}

void BlockMoveData(const void* srcPtr, void* destPtr, Size byteCount)
{
    BlockMove(srcPtr, destPtr, byteCount);
}

OSErr PtrToHand(const void* srcPtr, Handle* dstHndl, long size)
{
    if (dstHndl == nullptr || size < 0 || (srcPtr == nullptr && size > 0)) {
        return Ended(paramErr);
    }
    *dstHndl = NewHandle(size);
    if (*dstHndl != nullptr) {
        BlockMove(srcPtr, **dstHndl, size);
    }
    return MemError();
}

OSErr PtrAndHand(const void* ptr1, Handle hand2, long size)
{
    return Append(ptr1, hand2, size);
}

OSErr HandAndHand(Handle hand1, Handle hand2)
{
    const Block* const theFirst = FindHandle(hand1);
    return theFirst == nullptr ? MemError() : Append(*hand1, hand2, theFirst->theSize);
}

OSErr HandToHand(Handle* theHndl)
{
    if (theHndl == nullptr) {
        return Ended(paramErr);
    }
    const Block* const theBlock = FindHandle(*theHndl);
    return theBlock == nullptr ? MemError() : PtrToHand(**theHndl, theHndl, theBlock->theSize);
}
