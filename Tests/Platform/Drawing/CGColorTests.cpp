// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Colours, and the objects of drawing among those of CoreFoundation.

#include <ApplicationServices/ApplicationServices.h>
#include <gtest/gtest.h>

TEST(CGColor, AColourHasTheComponentsOfItsSpace)
{
    const CGFloat theComponents[] = {0.25F, 0.5F, 0.75F, 1, 0.5F};
    CGColorRef theColor = CGColorCreate(CGColorSpaceCreateDeviceCMYK(), theComponents);
    ASSERT_EQ(CGColorGetNumberOfComponents(theColor), 5u);
    for (size_t theIndex = 0; theIndex < 5; ++theIndex) {
        EXPECT_EQ(CGColorGetComponents(theColor)[theIndex], theComponents[theIndex]);
    }
    EXPECT_EQ(CGColorGetAlpha(theColor), 0.5F);
    EXPECT_EQ(CGColorGetColorSpace(theColor), CGColorSpaceCreateDeviceCMYK());
    CGColorRelease(theColor);
}

TEST(CGColor, ColoursAreEqualByTheirComponents)
{
    CGColorRef theRed = CGColorCreateGenericRGB(1, 0, 0, 1);
    CGColorRef theOther = CGColorCreateGenericRGB(1, 0, 0, 1);
    CGColorRef thePale = CGColorCreateCopyWithAlpha(theRed, 0.5F);
    CGColorRef theGray = CGColorCreateGenericGray(1, 0);
    EXPECT_TRUE(CGColorEqualToColor(theRed, theOther));
    EXPECT_TRUE(CFEqual(theRed, theOther));
    EXPECT_EQ(CFHash(theRed), CFHash(theOther));
    EXPECT_FALSE(CGColorEqualToColor(theRed, thePale));
    EXPECT_FALSE(CGColorEqualToColor(theRed, theGray));
    EXPECT_FALSE(CGColorEqualToColor(theRed, nullptr));
    EXPECT_TRUE(CGColorEqualToColor(nullptr, nullptr));
    EXPECT_EQ(CGColorGetAlpha(thePale), 0.5F);
    EXPECT_EQ(CGColorGetAlpha(theRed), 1);
    for (CGColorRef theColor : {theRed, theOther, thePale, theGray}) {
        CGColorRelease(theColor);
    }
}

TEST(CGColor, AColourIsAnObject)
{
    CGColorRef theColor = CGColorCreateGenericGray(0.5F, 1);
    CGColorRef theCopy = CGColorCreateCopy(theColor);
    EXPECT_EQ(CFGetRetainCount(theColor), 2);
    CGColorRelease(theCopy);
    EXPECT_EQ(CFGetTypeID(theColor), CGColorGetTypeID());
    const void* theValues[] = {theColor};
    CFArrayRef theColors = CFArrayCreate(nullptr, theValues, 1, &kCFTypeArrayCallBacks);
    EXPECT_EQ(CFGetRetainCount(theColor), 2);
    CFRelease(theColors);
    for (const auto& [theType, theName] : {std::pair{CGColorGetTypeID(), CFSTR("CGColor")},
                                           {CGContextGetTypeID(), CFSTR("CGContext")},
                                           {CGColorSpaceGetTypeID(), CFSTR("CGColorSpace")}}) {
        const CFStringRef theText = CFCopyTypeIDDescription(theType);
        EXPECT_TRUE(CFEqual(theText, theName));
        CFRelease(theText);
    }
    EXPECT_EQ(CFCopyTypeIDDescription(CGPathGetTypeID() + 1), nullptr);
    CGColorRelease(theColor);
}

TEST(CGColor, NothingIsNoColour)
{
    const CGFloat theComponents[] = {0, 1};
    EXPECT_EQ(CGColorCreate(nullptr, theComponents), nullptr);
    EXPECT_EQ(CGColorCreate(CGColorSpaceCreateDeviceGray(), nullptr), nullptr);
    EXPECT_EQ(CGColorCreateCopy(nullptr), nullptr);
    EXPECT_EQ(CGColorCreateCopyWithAlpha(nullptr, 1), nullptr);
    EXPECT_EQ(CGColorRetain(nullptr), nullptr);
    CGColorRelease(nullptr);
    EXPECT_EQ(CGColorGetComponents(nullptr), nullptr);
    EXPECT_EQ(CGColorGetNumberOfComponents(nullptr), 0u);
    EXPECT_EQ(CGColorGetAlpha(nullptr), 0);
    EXPECT_EQ(CGColorGetColorSpace(nullptr), nullptr);
}
