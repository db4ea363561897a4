// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef DrawingTestSupport_h
#define DrawingTestSupport_h

#include <ApplicationServices/ApplicationServices.h>
#include <cstdio>
#include <gtest/gtest.h>
#include <string>

// A context of 10 by 10 transparent pixels. Without smooth edges, each pixel is painted or not.
class DrawingTest : public testing::Test
{
protected:
    DrawingTest()
        : mContext(CGBitmapContextCreate(nullptr, kSide, kSide, 8, 0, CGColorSpaceCreateDeviceRGB(),
                                         kCGImageAlphaPremultipliedFirst))
    {
        CGContextSetShouldAntialias(mContext, false);
    }
    ~DrawingTest() override { CGContextRelease(mContext); }

    // Alpha, red, green and blue in hexadecimal digits, from the top left.
    std::string Pixel(size_t theAcross, size_t theDown) const
    {
        const auto* const theBytes = static_cast<const unsigned char*>(CGBitmapContextGetData(mContext)) +
                                     theDown * CGBitmapContextGetBytesPerRow(mContext) + 4 * theAcross;
        char theText[9];
        std::snprintf(theText, sizeof theText, "%02x%02x%02x%02x", theBytes[0], theBytes[1], theBytes[2],
                      theBytes[3]);
        return theText;
    }

    // The picture, a line for each row: "#" where something is.
    std::string Picture() const
    {
        std::string thePicture = "\n";
        for (size_t theDown = 0; theDown < kSide; ++theDown) {
            for (size_t theAcross = 0; theAcross < kSide; ++theAcross) {
                thePicture += Pixel(theAcross, theDown).substr(0, 2) == "00" ? '.' : '#';
            }
            thePicture += '\n';
        }
        return thePicture;
    }

    static constexpr size_t kSide = 10;
    CGContextRef mContext;
};

#endif
