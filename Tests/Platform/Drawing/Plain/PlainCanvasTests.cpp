// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// A host that was built without what draws.

#include <ApplicationServices/ApplicationServices.h>
#include <gtest/gtest.h>

TEST(PlainCanvas, ThereIsNothingToDrawOn)
{
    testing::internal::CaptureStderr();
    CGContextRef theContext = CGBitmapContextCreate(nullptr, 10, 10, 8, 0, CGColorSpaceCreateDeviceRGB(),
                                                    kCGImageAlphaPremultipliedFirst);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "CGBitmapContextCreate: this host was built without what draws\n");
    EXPECT_EQ(theContext, nullptr);
    CGContextFillRect(theContext, CGRectMake(0, 0, 10, 10));
    EXPECT_TRUE(CGContextIsPathEmpty(theContext));
}
