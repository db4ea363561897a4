// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFTestSupport.h"

extern "C" Boolean HeadersWorkInC();

namespace {

static_assert(sizeof(Boolean) == 1 && sizeof(UInt8) == 1 && sizeof(SInt8) == 1);
static_assert(sizeof(UInt16) == 2 && sizeof(SInt16) == 2 && sizeof(UniChar) == 2 && sizeof(OSErr) == 2);
static_assert(sizeof(UInt32) == 4 && sizeof(SInt32) == 4 && sizeof(UTF32Char) == 4 && sizeof(OSStatus) == 4);
static_assert(sizeof(UInt64) == 8 && sizeof(SInt64) == 8 && sizeof(Float32) == 4 && sizeof(Float64) == 8);
static_assert(sizeof(CFIndex) == sizeof(void*) && sizeof(CFTypeID) == sizeof(void*));
static_assert(sizeof(CFHashCode) == sizeof(void*) && sizeof(CFOptionFlags) == sizeof(void*));
static_assert(sizeof(CFRange) == 2 * sizeof(void*) && sizeof(CFNumberType) == sizeof(CFIndex));
static_assert(sizeof(CFStringEncoding) == 4 && sizeof(CFAbsoluteTime) == 8 && sizeof(Str255) == 256);
static_assert(static_cast<UInt8>(-1) > 0 && static_cast<SInt8>(-1) < 0 && static_cast<Boolean>(-1) > 0);
#ifndef __LP64__
static_assert(std::is_same_v<UInt32, unsigned long> && std::is_same_v<SInt32, long>);
#endif

} // namespace

TEST(CFBase, HeadersWorkInCToo)
{
    EXPECT_TRUE(HeadersWorkInC());
}

TEST(CFBase, RangeMakeKeepsLocationAndLength)
{
    const CFRange theRange = CFRangeMake(3, 4);
    EXPECT_EQ(theRange.location, 3);
    EXPECT_EQ(theRange.length, 4);
}

TEST(CFBase, ConstantsHaveTheirPublishedValues)
{
    EXPECT_EQ(kCFNotFound, -1);
    EXPECT_EQ(kCFCompareLessThan, -1);
    EXPECT_EQ(kCFCompareEqualTo, 0);
    EXPECT_EQ(kCFCompareGreaterThan, 1);
    EXPECT_EQ(kCFAllocatorDefault, nullptr);
}
