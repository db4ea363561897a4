// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "AllocationFailures.h"

#include <cstdlib>
#include <cstring>
#include <new>

// The allocators behind the ones that this file replaces: those of AddressSanitizer in a sanitized program,
// else those of the C library.
extern "C" {
void* __interceptor_malloc(size_t theSize) __attribute__((weak));
void* __interceptor_calloc(size_t theCount, size_t theSize) __attribute__((weak));
void* __interceptor_realloc(void* theBlock, size_t theSize) __attribute__((weak));
void* __libc_malloc(size_t theSize);
void* __libc_calloc(size_t theCount, size_t theSize);
void* __libc_realloc(void* theBlock, size_t theSize);
}

namespace {

// Thread by thread, so that only the thread of the test is counted. Plain data, because it is used before the
// first constructor of the program has run.
thread_local bool gIsCounting = false;
thread_local size_t gCount = 0;
thread_local size_t gFailing = 0;
thread_local bool gHasFailed = false;
thread_local bool gIsDirty = false;
thread_local char gDirt = 0;

bool FailsNow()
{
    if (!gIsCounting) {
        return false;
    }
    gCount += 1;
    if (gCount != gFailing) {
        return false;
    }
    gHasFailed = true;
    return true;
}

void* AllocateOrThrow(size_t theSize)
{
    void* theBlock = std::malloc(theSize);
    if (theBlock == nullptr) {
        throw std::bad_alloc();
    }
    return theBlock;
}

// Memory resources ask for an alignment, whatever it is. Only as many bytes as are a multiple of it can be
// had.
void* AllocateAlignedOrThrow(size_t theSize, std::align_val_t theAlignment)
{
    const auto theUnit = static_cast<size_t>(theAlignment);
    const size_t theUnits = theSize / theUnit + (theSize % theUnit != 0 || theSize == 0 ? 1 : 0);
    void* const theBlock = FailsNow() ? nullptr : std::aligned_alloc(theUnit, theUnits * theUnit);
    if (theBlock == nullptr) {
        throw std::bad_alloc();
    }
    return theBlock;
}

void StartCounting(size_t theFailing)
{
    gCount = 0;
    gFailing = theFailing;
    gHasFailed = false;
    gIsCounting = true;
}

} // namespace

extern "C" {

// The leak checker knows what the dynamic loader allocates by the caller of malloc, which is this file now.
__attribute__((visibility("default"))) const char* __lsan_default_suppressions();
__attribute__((visibility("default"))) const char* __lsan_default_options();

const char* __lsan_default_suppressions()
{
    return "leak:/ld-linux";
}

const char* __lsan_default_options()
{
    return "print_suppressions=0";
}

void* malloc(size_t theSize)
{
    if (FailsNow()) {
        return nullptr;
    }
    void* const theBlock =
        __interceptor_malloc != nullptr ? __interceptor_malloc(theSize) : __libc_malloc(theSize);
    if (gIsDirty && theBlock != nullptr) {
        std::memset(theBlock, gDirt, theSize);
    }
    return theBlock;
}

void* calloc(size_t theCount, size_t theSize)
{
    if (FailsNow()) {
        return nullptr;
    }
    return __interceptor_calloc != nullptr ? __interceptor_calloc(theCount, theSize)
                                           : __libc_calloc(theCount, theSize);
}

void* realloc(void* theBlock, size_t theSize)
{
    if (FailsNow()) {
        return nullptr;
    }
    return __interceptor_realloc != nullptr ? __interceptor_realloc(theBlock, theSize)
                                            : __libc_realloc(theBlock, theSize);
}
}

// Both halves of the operators are replaced, because an allocation checker wants them to match.
void* operator new(size_t theSize)
{
    return AllocateOrThrow(theSize == 0 ? 1 : theSize);
}

void* operator new[](size_t theSize)
{
    return AllocateOrThrow(theSize == 0 ? 1 : theSize);
}

void* operator new(size_t theSize, const std::nothrow_t&) noexcept
{
    return std::malloc(theSize == 0 ? 1 : theSize);
}

void* operator new[](size_t theSize, const std::nothrow_t&) noexcept
{
    return std::malloc(theSize == 0 ? 1 : theSize);
}

void* operator new(size_t theSize, std::align_val_t theAlignment)
{
    return AllocateAlignedOrThrow(theSize, theAlignment);
}

void* operator new[](size_t theSize, std::align_val_t theAlignment)
{
    return AllocateAlignedOrThrow(theSize, theAlignment);
}

void operator delete(void* theBlock) noexcept
{
    std::free(theBlock);
}

void operator delete[](void* theBlock) noexcept
{
    std::free(theBlock);
}

void operator delete(void* theBlock, size_t) noexcept
{
    std::free(theBlock);
}

void operator delete[](void* theBlock, size_t) noexcept
{
    std::free(theBlock);
}

void operator delete(void* theBlock, const std::nothrow_t&) noexcept
{
    std::free(theBlock);
}

void operator delete[](void* theBlock, const std::nothrow_t&) noexcept
{
    std::free(theBlock);
}

void operator delete(void* theBlock, std::align_val_t) noexcept
{
    std::free(theBlock);
}

void operator delete[](void* theBlock, std::align_val_t) noexcept
{
    std::free(theBlock);
}

void operator delete(void* theBlock, size_t, std::align_val_t) noexcept
{
    std::free(theBlock);
}

void operator delete[](void* theBlock, size_t, std::align_val_t) noexcept
{
    std::free(theBlock);
}

AllocationFailures::AllocationFailures()
{
    StartCounting(0);
}

AllocationFailures::AllocationFailures(size_t theNumber)
{
    StartCounting(theNumber);
}

AllocationFailures::~AllocationFailures()
{
    Stop();
}

void AllocationFailures::Stop()
{
    if (gIsCounting) {
        gIsCounting = false;
        mCount = gCount;
        mHasFailed = gHasFailed;
    }
}

size_t AllocationFailures::GetCount() const
{
    return gIsCounting ? gCount : mCount;
}

bool AllocationFailures::HasFailed() const
{
    return gIsCounting ? gHasFailed : mHasFailed;
}

DirtyMemory::DirtyMemory(char theByte)
{
    gDirt = theByte;
    gIsDirty = true;
}

DirtyMemory::~DirtyMemory()
{
    gIsDirty = false;
}
