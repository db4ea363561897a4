// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The state of a context: its coordinates, colours and lines.

#include "DrawingTestSupport.h"

#include <limits>

namespace {

const CGRect kAll = CGRectMake(0, 0, 10, 10);
const CGFloat kNoNumber = std::numeric_limits<CGFloat>::quiet_NaN();
const CGFloat kEndless = std::numeric_limits<CGFloat>::infinity();

class CGContextState : public DrawingTest
{
protected:
    std::string Filled()
    {
        CGContextClearRect(mContext, kAll);
        CGContextFillRect(mContext, kAll);
        return Pixel(5, 5);
    }

    // The row of pixels that a line through the middle paints: "##..".
    std::string Line()
    {
        CGContextClearRect(mContext, kAll);
        CGContextMoveToPoint(mContext, 2, 5.5F);
        CGContextAddLineToPoint(mContext, 8, 5.5F);
        CGContextStrokePath(mContext);
        return Picture().substr(1 + 4 * (kSide + 1), kSide);
    }

    // How many pixels a line through the middle is wide.
    int Width()
    {
        Line();
        int theWidth = 0;
        for (size_t theDown = 0; theDown < kSide; ++theDown) {
            theWidth += Pixel(5, theDown).substr(0, 2) == "ff" ? 1 : 0;
        }
        return theWidth;
    }
};

} // namespace

TEST_F(CGContextState, AChangeOfCoordinatesComesBeforeThoseThatWere)
{
    CGContextTranslateCTM(mContext, 2, 2);
    CGContextScaleCTM(mContext, 3, 3);
    CGContextFillRect(mContext, CGRectMake(0, 0, 1, 1));
    EXPECT_EQ(Pixel(2, 7), "ff000000");
    EXPECT_EQ(Pixel(4, 5), "ff000000");
    EXPECT_EQ(Pixel(5, 7), "00000000");
    EXPECT_EQ(CGContextGetCTM(mContext).a, 3);
    EXPECT_EQ(CGContextGetCTM(mContext).tx, 2);
    CGContextRotateCTM(mContext, 1.5707963F);
    EXPECT_NEAR(CGContextGetCTM(mContext).b, 3, 1e-5);
    CGContextConcatCTM(mContext, CGAffineTransformInvert(CGContextGetCTM(mContext)));
    EXPECT_NEAR(CGContextGetCTM(mContext).a, 1, 1e-5);
    EXPECT_TRUE(CGAffineTransformIsIdentity(CGContextGetCTM(nullptr)));
}

TEST_F(CGContextState, CoordinatesThatAreNoNumbersAreIgnored)
{
    CGContextScaleCTM(mContext, kNoNumber, 1);
    CGContextTranslateCTM(mContext, kEndless, 1);
    CGContextRotateCTM(mContext, kEndless);
    EXPECT_TRUE(CGAffineTransformIsIdentity(CGContextGetCTM(mContext)));
}

TEST_F(CGContextState, CoordinatesWithoutAreaDrawNothingAndHarmNothing)
{
    CGContextSaveGState(mContext);
    CGContextScaleCTM(mContext, 0, 1);
    CGContextStrokeRect(mContext, kAll);
    CGContextFillRect(mContext, kAll);
    EXPECT_EQ(Pixel(0, 5), "00000000");
    CGContextRestoreGState(mContext);
    EXPECT_EQ(Filled(), "ff000000");
}

TEST_F(CGContextState, WhatWasSavedComesBack)
{
    CGContextSetRGBFillColor(mContext, 1, 0, 0, 1);
    CGContextSaveGState(mContext);
    CGContextSetRGBFillColor(mContext, 0, 1, 0, 1);
    CGContextSetAlpha(mContext, 0.5F);
    CGContextScaleCTM(mContext, 2, 2);
    CGContextSetBlendMode(mContext, kCGBlendModeCopy);
    CGContextRestoreGState(mContext);
    EXPECT_EQ(Filled(), "ffff0000");
    CGContextRestoreGState(mContext);
    EXPECT_EQ(Filled(), "ffff0000");
}

TEST_F(CGContextState, ColoursComeInThreeModels)
{
    EXPECT_EQ(Filled(), "ff000000");
    CGContextSetGrayFillColor(mContext, 0.4F, 1);
    EXPECT_EQ(Filled(), "ff666666");
    CGContextSetRGBFillColor(mContext, 1, 0.4F, 0.2F, 1);
    EXPECT_EQ(Filled(), "ffff6633");
    CGContextSetCMYKFillColor(mContext, 0, 0.5F, 1, 0.2F, 1);
    EXPECT_EQ(Filled(), "ffcc6600");
    CGContextSetRGBFillColor(mContext, 7, -7, kNoNumber, 1);
    EXPECT_EQ(Filled(), "ffff0000");
}

TEST_F(CGContextState, LinesHaveColoursOfTheirOwn)
{
    const auto theLine = [this] {
        CGContextStrokeRectWithWidth(mContext, CGRectMake(0, 0, 10, 10), 4);
        return Pixel(0, 5);
    };
    CGContextSetGrayStrokeColor(mContext, 0.4F, 1);
    EXPECT_EQ(theLine(), "ff666666");
    CGContextSetRGBStrokeColor(mContext, 1, 0.4F, 0.2F, 1);
    EXPECT_EQ(theLine(), "ffff6633");
    CGContextSetCMYKStrokeColor(mContext, 0, 0.5F, 1, 0.2F, 1);
    EXPECT_EQ(theLine(), "ffcc6600");
    CGContextSetStrokeColorSpace(mContext, CGColorSpaceCreateDeviceRGB());
    EXPECT_EQ(theLine(), "ff000000");
    const CGFloat theBlue[] = {0, 0, 1, 1};
    CGContextSetStrokeColor(mContext, theBlue);
    EXPECT_EQ(theLine(), "ff0000ff");
    CGColorRef theGreen = CGColorCreateGenericRGB(0, 1, 0, 1);
    CGContextSetStrokeColorWithColor(mContext, theGreen);
    CGColorRelease(theGreen);
    EXPECT_EQ(theLine(), "ff00ff00");
    EXPECT_EQ(Pixel(5, 5), "00000000");
}

TEST_F(CGContextState, ASpaceMakesTheColourBlack)
{
    CGContextSetRGBFillColor(mContext, 1, 1, 1, 1);
    CGContextSetFillColorSpace(mContext, CGColorSpaceCreateDeviceCMYK());
    EXPECT_EQ(Filled(), "ff000000");
    const CGFloat theYellow[] = {0, 0, 1, 0, 1};
    CGContextSetFillColor(mContext, theYellow);
    EXPECT_EQ(Filled(), "ffffff00");
    CGContextSetFillColorSpace(mContext, nullptr);
    CGContextSetFillColor(mContext, nullptr);
    CGContextSetFillColorWithColor(mContext, nullptr);
    EXPECT_EQ(Filled(), "ffffff00");
    CGColorRef theGray = CGColorCreateGenericGray(0.4F, 1);
    CGContextSetFillColorWithColor(mContext, theGray);
    CGColorRelease(theGray);
    EXPECT_EQ(Filled(), "ff666666");
}

TEST_F(CGContextState, TheAlphaMultipliesThatOfColours)
{
    CGContextSetRGBFillColor(mContext, 1, 1, 1, 0.5F);
    EXPECT_EQ(Filled().substr(0, 2), "80");
    CGContextSetAlpha(mContext, 0.5F);
    EXPECT_EQ(Filled().substr(0, 2), "40");
    CGContextSetAlpha(mContext, kNoNumber);
    EXPECT_EQ(Filled().substr(0, 2), "40");
    CGContextSetAlpha(mContext, 7);
    EXPECT_EQ(Filled().substr(0, 2), "80");
}

TEST_F(CGContextState, AModeSaysHowColoursMeetWhatIsThere)
{
    CGContextSetRGBFillColor(mContext, 1, 1, 0, 1);
    CGContextFillRect(mContext, kAll);
    CGContextSetRGBFillColor(mContext, 0, 1, 1, 1);
    CGContextSetBlendMode(mContext, kCGBlendModeMultiply);
    CGContextFillRect(mContext, kAll);
    EXPECT_EQ(Pixel(5, 5), "ff00ff00");
    CGContextSetBlendMode(mContext, static_cast<CGBlendMode>(26));
    CGContextSetBlendMode(mContext, static_cast<CGBlendMode>(30));
    CGContextSetRGBFillColor(mContext, 1, 1, 1, 1);
    CGContextFillRect(mContext, kAll);
    EXPECT_EQ(Pixel(5, 5), "ff00ff00");
    CGContextSetBlendMode(mContext, kCGBlendModeClear);
    CGContextFillRect(mContext, kAll);
    EXPECT_EQ(Pixel(5, 5), "00000000");
}

TEST_F(CGContextState, EdgesAreSmoothUnlessTheyAreNot)
{
    const CGRect theHalf = CGRectMake(0, 0, 4.5F, 10);
    CGContextFillRect(mContext, theHalf);
    EXPECT_NE(Pixel(4, 5).substr(0, 2), "80");
    CGContextClearRect(mContext, kAll);
    CGContextSetShouldAntialias(mContext, true);
    CGContextFillRect(mContext, theHalf);
    EXPECT_EQ(Pixel(4, 5).substr(0, 2), "80");
}

TEST_F(CGContextState, LinesAreAsWideAsTheyAreSaidToBe)
{
    EXPECT_EQ(Width(), 1);
    CGContextSetLineWidth(mContext, 3);
    EXPECT_EQ(Width(), 3);
    for (const CGFloat theBad : {CGFloat{-1}, kNoNumber, kEndless}) {
        CGContextSetLineWidth(mContext, theBad);
        EXPECT_EQ(Width(), 3);
    }
    CGContextSetLineWidth(mContext, 0);
    EXPECT_EQ(Width(), 1);
}

TEST_F(CGContextState, ALineWithoutWidthIsAPixelWideInAllCoordinates)
{
    CGContextSetLineWidth(mContext, 0);
    CGContextScaleCTM(mContext, 5, 5);
    CGContextMoveToPoint(mContext, 0, 1.1F);
    CGContextAddLineToPoint(mContext, 2, 1.1F);
    CGContextStrokePath(mContext);
    EXPECT_EQ(Pixel(5, 4), "ff000000");
    EXPECT_EQ(Pixel(5, 3), "00000000");
    EXPECT_EQ(Pixel(5, 5), "00000000");
}

TEST_F(CGContextState, CapsLengthenLines)
{
    EXPECT_EQ(Line(), "..######..");
    CGContextSetLineWidth(mContext, 2);
    EXPECT_EQ(Line(), "..######..");
    CGContextSetLineCap(mContext, kCGLineCapSquare);
    EXPECT_EQ(Line().find('#'), 1u);
    CGContextSetLineCap(mContext, static_cast<CGLineCap>(3));
    EXPECT_EQ(Line().find('#'), 1u);
    CGContextSetLineCap(mContext, kCGLineCapButt);
    EXPECT_EQ(Line(), "..######..");
}

TEST_F(CGContextState, JoinsFillCorners)
{
    const auto theCorner = [this] {
        CGContextClearRect(mContext, kAll);
        const CGPoint thePoints[] = {{3, 0}, {3, 7}, {10, 7}};
        CGContextAddLines(mContext, thePoints, 3);
        CGContextStrokePath(mContext);
        return Pixel(1, 1);
    };
    CGContextSetLineWidth(mContext, 4);
    EXPECT_EQ(theCorner(), "ff000000");
    CGContextSetLineJoin(mContext, kCGLineJoinBevel);
    EXPECT_EQ(theCorner(), "00000000");
    CGContextSetLineJoin(mContext, static_cast<CGLineJoin>(3));
    EXPECT_EQ(theCorner(), "00000000");
    CGContextSetLineJoin(mContext, kCGLineJoinRound);
    EXPECT_EQ(theCorner(), "00000000");
    CGContextSetLineJoin(mContext, kCGLineJoinMiter);
    EXPECT_EQ(theCorner(), "ff000000");
    CGContextSetMiterLimit(mContext, 1);
    CGContextSetMiterLimit(mContext, 0);
    EXPECT_EQ(theCorner(), "00000000");
}

TEST_F(CGContextState, DashesInterruptLines)
{
    const CGFloat theDashes[] = {2, 1};
    CGContextSetLineDash(mContext, 0, theDashes, 2);
    EXPECT_EQ(Line(), "..##.##...");
    CGContextSetLineDash(mContext, 1, theDashes, 2);
    EXPECT_EQ(Line(), "..#.##.#..");
    const CGFloat theBad[] = {2, -1};
    const CGFloat theNothing[] = {0, 0};
    const CGFloat theEndless[] = {kEndless, 1};
    CGContextSetLineDash(mContext, 0, theBad, 2);
    CGContextSetLineDash(mContext, 0, theNothing, 2);
    CGContextSetLineDash(mContext, 0, theEndless, 2);
    CGContextSetLineDash(mContext, kNoNumber, theDashes, 2);
    EXPECT_EQ(Line(), "..#.##.#..");
    CGContextSetLineDash(mContext, 0, nullptr, 2);
    EXPECT_EQ(Line(), "..######..");
    CGContextSetLineDash(mContext, 0, theDashes, 2);
    CGContextSetLineDash(mContext, 0, theDashes, 0);
    EXPECT_EQ(Line(), "..######..");
}

TEST_F(CGContextState, DashesTooFineToBeSeenAreALine)
{
    const CGFloat theDashes[] = {0.001F, 0.001F};
    CGContextSetLineDash(mContext, 0, theDashes, 2);
    EXPECT_EQ(Line(), "..######..");
}
