// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What the components of colours mean.

#include <ApplicationServices/ApplicationServices.h>
#include <gtest/gtest.h>

TEST(CGColorSpace, EachModelHasItsComponents)
{
    EXPECT_EQ(CGColorSpaceGetNumberOfComponents(CGColorSpaceCreateDeviceGray()), 1u);
    EXPECT_EQ(CGColorSpaceGetNumberOfComponents(CGColorSpaceCreateDeviceRGB()), 3u);
    EXPECT_EQ(CGColorSpaceGetNumberOfComponents(CGColorSpaceCreateDeviceCMYK()), 4u);
    EXPECT_EQ(CGColorSpaceGetModel(CGColorSpaceCreateDeviceGray()), kCGColorSpaceModelMonochrome);
    EXPECT_EQ(CGColorSpaceGetModel(CGColorSpaceCreateDeviceRGB()), kCGColorSpaceModelRGB);
    EXPECT_EQ(CGColorSpaceGetModel(CGColorSpaceCreateDeviceCMYK()), kCGColorSpaceModelCMYK);
}

TEST(CGColorSpace, ASpaceIsFoundByItsName)
{
    EXPECT_EQ(CGColorSpaceGetModel(CGColorSpaceCreateWithName(kCGColorSpaceGenericGray)),
              kCGColorSpaceModelMonochrome);
    EXPECT_EQ(CGColorSpaceGetModel(CGColorSpaceCreateWithName(kCGColorSpaceGenericRGB)),
              kCGColorSpaceModelRGB);
    EXPECT_EQ(CGColorSpaceGetModel(CGColorSpaceCreateWithName(kCGColorSpaceSRGB)), kCGColorSpaceModelRGB);
    EXPECT_EQ(CGColorSpaceGetModel(CGColorSpaceCreateWithName(kCGColorSpaceGenericCMYK)),
              kCGColorSpaceModelCMYK);
    EXPECT_EQ(CGColorSpaceCreateWithName(CFSTR("unknown")), nullptr);
    EXPECT_EQ(CGColorSpaceCreateWithName(nullptr), nullptr);
}

TEST(CGColorSpace, ASpaceIsKeptAndGivenBackLikeAnyObject)
{
    CGColorSpaceRef theSpace = CGColorSpaceCreateDeviceRGB();
    EXPECT_EQ(CGColorSpaceRetain(theSpace), theSpace);
    CGColorSpaceRelease(theSpace);
    CFRelease(theSpace);
    EXPECT_EQ(CFGetTypeID(theSpace), CGColorSpaceGetTypeID());
    CGColorSpaceRelease(theSpace);
    EXPECT_EQ(CGColorSpaceRetain(nullptr), nullptr);
    CGColorSpaceRelease(nullptr);
}

TEST(CGColorSpace, NothingHasNoComponents)
{
    EXPECT_EQ(CGColorSpaceGetNumberOfComponents(nullptr), 0u);
    EXPECT_EQ(CGColorSpaceGetModel(nullptr), kCGColorSpaceModelUnknown);
}
