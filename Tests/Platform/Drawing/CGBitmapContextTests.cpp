// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Contexts whose pixels are in memory.

#include "DrawingTestSupport.h"

#include <cstdint>
#include <vector>

namespace {

using CGBitmapContext = DrawingTest;

// The bytes of the one pixel that a context of a kind has after it was painted half transparent.
std::vector<int> BytesOf(CGBitmapInfo theInfo)
{
    alignas(4) unsigned char thePixel[4] = {0, 0, 0, 0};
    CGContextRef theContext =
        CGBitmapContextCreate(thePixel, 1, 1, 8, 4, CGColorSpaceCreateDeviceRGB(), theInfo);
    EXPECT_NE(theContext, nullptr);
    CGContextSetRGBFillColor(theContext, 1, 0.4F, 0, 0.5F);
    CGContextFillRect(theContext, CGRectMake(0, 0, 1, 1));
    CGContextRelease(theContext);
    return {thePixel[0], thePixel[1], thePixel[2], thePixel[3]};
}

// What a kind that there is not answers.
std::string Refused(size_t theWidth, size_t theHeight, size_t theBits, size_t theRow,
                    CGColorSpaceRef theSpace, CGBitmapInfo theInfo, void* theData = nullptr)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(CGBitmapContextCreate(theData, theWidth, theHeight, theBits, theRow, theSpace, theInfo),
              nullptr);
    return testing::internal::GetCapturedStderr();
}

const std::string kLine = "CGBitmapContextCreate: there are no bitmaps of this kind or size\n";
const CGBitmapInfo kUsual = kCGImageAlphaPremultipliedFirst;

} // namespace

TEST_F(CGBitmapContext, TheBytesStandInTheOrderThatWasAskedFor)
{
    const int kA = 0x80;
    const int kR = 0x80;
    const int kG = 0x33;
    const int kB = 0;
    using Bytes = std::vector<int>;
    EXPECT_EQ(BytesOf(kCGImageAlphaPremultipliedFirst), (Bytes{kA, kR, kG, kB}));
    EXPECT_EQ(BytesOf(kCGImageAlphaPremultipliedLast), (Bytes{kR, kG, kB, kA}));
    EXPECT_EQ(BytesOf(CGBitmapInfo{kCGImageAlphaPremultipliedLast} | kCGBitmapByteOrder32Big),
              (Bytes{kR, kG, kB, kA}));
    EXPECT_EQ(BytesOf(CGBitmapInfo{kCGImageAlphaPremultipliedFirst} | kCGBitmapByteOrder32Little),
              (Bytes{kB, kG, kR, kA}));
    EXPECT_EQ(BytesOf(CGBitmapInfo{kCGImageAlphaPremultipliedLast} | kCGBitmapByteOrder32Little),
              (Bytes{kA, kB, kG, kR}));
    const Bytes theOpaque = BytesOf(kCGImageAlphaNoneSkipLast);
    EXPECT_EQ(theOpaque[0], kR);
    EXPECT_EQ(theOpaque[1], kG);
}

TEST_F(CGBitmapContext, ItSaysWhatItIs)
{
    std::vector<std::uint32_t> theData(size_t{3} * 16);
    CGContextRef theContext =
        CGBitmapContextCreate(theData.data(), 10, 3, 8, 64, CGColorSpaceCreateDeviceRGB(), kUsual);
    EXPECT_EQ(CGBitmapContextGetData(theContext), theData.data());
    EXPECT_EQ(CGBitmapContextGetWidth(theContext), 10u);
    EXPECT_EQ(CGBitmapContextGetHeight(theContext), 3u);
    EXPECT_EQ(CGBitmapContextGetBytesPerRow(theContext), 64u);
    EXPECT_EQ(CGBitmapContextGetBitsPerComponent(theContext), 8u);
    EXPECT_EQ(CGBitmapContextGetBitsPerPixel(theContext), 32u);
    EXPECT_EQ(CGBitmapContextGetColorSpace(theContext), CGColorSpaceCreateDeviceRGB());
    EXPECT_EQ(CGBitmapContextGetAlphaInfo(theContext), kCGImageAlphaPremultipliedFirst);
    CGContextRelease(theContext);
    EXPECT_EQ(CGBitmapContextGetBytesPerRow(mContext), 40u);
}

TEST_F(CGBitmapContext, RowsMayBeLongerThanThePicture)
{
    std::vector<std::uint32_t> theData(size_t{2} * 4, 7);
    CGContextRef theContext =
        CGBitmapContextCreate(theData.data(), 2, 2, 8, 16, CGColorSpaceCreateDeviceRGB(), kUsual);
    CGContextClearRect(theContext, CGRectMake(0, 0, 2, 2));
    CGContextRelease(theContext);
    EXPECT_EQ(theData, (std::vector<std::uint32_t>{0, 0, 7, 7, 0, 0, 7, 7}));
}

TEST_F(CGBitmapContext, WhatTheProgramWritesIsDrawnUpon)
{
    alignas(4) unsigned char thePixel[4] = {0xFF, 0, 0, 0};
    CGContextRef theContext =
        CGBitmapContextCreate(thePixel, 1, 1, 8, 4, CGColorSpaceCreateDeviceRGB(), kUsual);
    thePixel[1] = 0xFF;
    CGContextSetRGBFillColor(theContext, 0, 0, 1, 0.5F);
    CGContextFillRect(theContext, CGRectMake(0, 0, 1, 1));
    CGContextRelease(theContext);
    EXPECT_EQ(int{thePixel[0]}, 0xFF);
    EXPECT_NEAR(int{thePixel[1]}, 0x7F, 1);
    EXPECT_NEAR(int{thePixel[3]}, 0x80, 1);
}

TEST_F(CGBitmapContext, OtherKindsAreRefused)
{
    CGColorSpaceRef theRGB = CGColorSpaceCreateDeviceRGB();
    EXPECT_EQ(Refused(0, 1, 8, 4, theRGB, kUsual), kLine);
    EXPECT_EQ(Refused(1, 0, 8, 4, theRGB, kUsual), kLine);
    EXPECT_EQ(Refused(32768, 1, 8, 0, theRGB, kUsual), kLine);
    EXPECT_EQ(Refused(SIZE_MAX, SIZE_MAX, 8, SIZE_MAX, theRGB, kUsual), kLine);
    EXPECT_EQ(Refused(1, 1, 16, 8, theRGB, kUsual), kLine);
    EXPECT_EQ(Refused(2, 1, 8, 4, theRGB, kUsual), kLine);
    EXPECT_EQ(Refused(1, 1, 8, 5, theRGB, kUsual), kLine);
    EXPECT_EQ(Refused(1, 1, 8, 4, nullptr, kUsual), kLine);
    EXPECT_EQ(Refused(1, 1, 8, 4, CGColorSpaceCreateDeviceGray(), kUsual), kLine);
    for (const CGBitmapInfo theInfo :
         {CGBitmapInfo{kCGImageAlphaNone}, CGBitmapInfo{kCGImageAlphaFirst}, CGBitmapInfo{kCGImageAlphaOnly},
          kUsual | kCGBitmapFloatComponents, kUsual | kCGBitmapByteOrder16Big, CGBitmapInfo{0xFFFFFFFF}}) {
        EXPECT_EQ(Refused(1, 1, 8, 4, theRGB, theInfo), kLine) << theInfo;
    }
    alignas(4) unsigned char theBytes[8] = {};
    EXPECT_EQ(Refused(1, 1, 8, 0, theRGB, kUsual, theBytes), kLine);
    EXPECT_EQ(Refused(1, 1, 8, 4, theRGB, kUsual, theBytes + 1), kLine);
}

TEST_F(CGBitmapContext, NothingHasNoPixels)
{
    EXPECT_EQ(CGBitmapContextGetData(nullptr), nullptr);
    EXPECT_EQ(CGBitmapContextGetWidth(nullptr), 0u);
    EXPECT_EQ(CGBitmapContextGetHeight(nullptr), 0u);
    EXPECT_EQ(CGBitmapContextGetBytesPerRow(nullptr), 0u);
    EXPECT_EQ(CGBitmapContextGetBitsPerComponent(nullptr), 0u);
    EXPECT_EQ(CGBitmapContextGetBitsPerPixel(nullptr), 0u);
    EXPECT_EQ(CGBitmapContextGetColorSpace(nullptr), nullptr);
    EXPECT_EQ(CGBitmapContextGetAlphaInfo(nullptr), kCGImageAlphaNone);
}
