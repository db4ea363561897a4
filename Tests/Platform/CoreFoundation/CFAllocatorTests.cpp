// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFTestSupport.h"

TEST(CFAllocator, ObjectsComeFromTheSystemAllocator)
{
    EXPECT_EQ(CFGetAllocator(CountedObject()), kCFAllocatorSystemDefault);
    EXPECT_EQ(CFGetAllocator(Owned(CFStringCreateMutable(kCFAllocatorMalloc, 0))), kCFAllocatorSystemDefault);
    EXPECT_EQ(CFAllocatorGetDefault(), kCFAllocatorSystemDefault);
    EXPECT_EQ(CFGetAllocator(kCFAllocatorNull), kCFAllocatorNull);
    EXPECT_EQ(CFGetTypeID(kCFAllocatorNull), CFAllocatorGetTypeID());
}
