// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// What a context paints and clips.

#include "DrawingTestSupport.h"

namespace {

using CGContextPainting = DrawingTest;

const char* const kNothing = R"(
..........
..........
..........
..........
..........
..........
..........
..........
..........
..........
)";

} // namespace

TEST_F(CGContextPainting, TheOriginIsAtTheBottomLeft)
{
    CGContextFillRect(mContext, CGRectMake(1, 0, 4, 2));
    EXPECT_EQ(Picture(), R"(
..........
..........
..........
..........
..........
..........
..........
..........
.####.....
.####.....
)");
}

TEST_F(CGContextPainting, AFillClosesWhatIsOpen)
{
    CGContextMoveToPoint(mContext, 0, 0);
    CGContextAddLineToPoint(mContext, 10, 0);
    CGContextAddLineToPoint(mContext, 10, 10);
    CGContextFillPath(mContext);
    EXPECT_EQ(Pixel(9, 1).substr(0, 2), "ff");
    EXPECT_EQ(Pixel(8, 8).substr(0, 2), "ff");
    EXPECT_EQ(Pixel(0, 0).substr(0, 2), "00");
    EXPECT_TRUE(CGContextIsPathEmpty(mContext));
}

TEST_F(CGContextPainting, TwoRulesSayWhatIsInside)
{
    const CGRect theRects[] = {CGRectMake(0, 0, 10, 10), CGRectMake(2, 2, 6, 6)};
    CGContextAddRects(mContext, theRects, 2);
    CGContextEOFillPath(mContext);
    EXPECT_EQ(Pixel(5, 5), "00000000");
    EXPECT_EQ(Pixel(1, 1), "ff000000");
    CGContextFillRects(mContext, theRects, 2);
    EXPECT_EQ(Pixel(5, 5), "ff000000");
}

TEST_F(CGContextPainting, ALineIsAsWideOnBothSides)
{
    CGContextSetLineWidth(mContext, 2);
    CGContextMoveToPoint(mContext, 2, 5);
    CGContextAddLineToPoint(mContext, 8, 5);
    CGContextStrokePath(mContext);
    EXPECT_EQ(Picture(), R"(
..........
..........
..........
..........
..######..
..######..
..........
..........
..........
..........
)");
}

TEST_F(CGContextPainting, AModeFillsAndStrokes)
{
    CGContextSetRGBFillColor(mContext, 1, 0, 0, 1);
    CGContextSetRGBStrokeColor(mContext, 0, 0, 1, 1);
    CGContextSetLineWidth(mContext, 2);
    CGContextAddRect(mContext, CGRectMake(2, 2, 6, 6));
    CGContextDrawPath(mContext, kCGPathFillStroke);
    EXPECT_EQ(Pixel(5, 5), "ffff0000");
    EXPECT_EQ(Pixel(1, 5), "ff0000ff");
    EXPECT_EQ(Pixel(2, 5), "ff0000ff");
    EXPECT_EQ(Pixel(0, 5), "00000000");
    CGContextAddRect(mContext, CGRectMake(0, 0, 10, 10));
    CGContextDrawPath(mContext, static_cast<CGPathDrawingMode>(5));
    EXPECT_EQ(Pixel(5, 5), "ffff0000");
    EXPECT_FALSE(CGContextIsPathEmpty(mContext));
}

TEST_F(CGContextPainting, ShapesPaintThemselvesAndEmptyThePath)
{
    CGContextMoveToPoint(mContext, 0, 0);
    CGContextStrokeRect(mContext, CGRectMake(1.5F, 1.5F, 7, 7));
    EXPECT_TRUE(CGContextIsPathEmpty(mContext));
    EXPECT_EQ(Pixel(1, 5), "ff000000");
    EXPECT_EQ(Pixel(2, 5), "00000000");
    CGContextStrokeRectWithWidth(mContext, CGRectMake(1.5F, 1.5F, 7, 7), 3);
    EXPECT_EQ(Pixel(2, 5), "ff000000");
    EXPECT_EQ(Pixel(3, 5), "00000000");
    CGContextStrokeRectWithWidth(mContext, CGRectMake(1.5F, 1.5F, 7, 7), -3);
    CGContextFillEllipseInRect(mContext, CGRectMake(3, 3, 4, 4));
    EXPECT_EQ(Pixel(4, 4), "ff000000");
    EXPECT_EQ(Pixel(3, 3), "00000000");
    CGContextClearRect(mContext, CGRectMake(0, 0, 10, 10));
    EXPECT_EQ(Picture(), kNothing);
    CGContextStrokeEllipseInRect(mContext, CGRectMake(1.5F, 1.5F, 7, 7));
    EXPECT_EQ(Pixel(1, 5), "ff000000");
    EXPECT_EQ(Pixel(5, 5), "00000000");
}

TEST_F(CGContextPainting, SegmentsGoFromPointToPointInPairs)
{
    const CGPoint thePoints[] = {{0, 0.5F}, {4, 0.5F}, {6, 0.5F}, {10, 0.5F}, {0, 9}};
    CGContextStrokeLineSegments(mContext, thePoints, 5);
    EXPECT_EQ(Picture(), R"(
..........
..........
..........
..........
..........
..........
..........
..........
..........
####..####
)");
}

TEST_F(CGContextPainting, ClipsBecomeSmallerUntilTheStateIsRestored)
{
    CGContextSaveGState(mContext);
    CGContextClipToRect(mContext, CGRectMake(0, 0, 6, 10));
    CGContextAddRect(mContext, CGRectMake(4, 0, 6, 10));
    CGContextClip(mContext);
    EXPECT_TRUE(CGContextIsPathEmpty(mContext));
    EXPECT_TRUE(CGRectEqualToRect(CGContextGetClipBoundingBox(mContext), CGRectMake(4, 0, 2, 10)));
    CGContextFillRect(mContext, CGRectMake(0, 0, 10, 10));
    EXPECT_EQ(Pixel(3, 5), "00000000");
    EXPECT_EQ(Pixel(4, 5), "ff000000");
    EXPECT_EQ(Pixel(6, 5), "00000000");
    CGContextRestoreGState(mContext);
    CGContextFillRect(mContext, CGRectMake(0, 0, 10, 10));
    EXPECT_EQ(Pixel(6, 5), "ff000000");
}

TEST_F(CGContextPainting, AClipMayHaveHoles)
{
    const CGRect theRects[] = {CGRectMake(0, 0, 10, 10), CGRectMake(2, 2, 6, 6)};
    CGContextAddRects(mContext, theRects, 2);
    CGContextEOClip(mContext);
    CGContextFillRect(mContext, CGRectMake(0, 0, 10, 10));
    EXPECT_EQ(Pixel(5, 5), "00000000");
    EXPECT_EQ(Pixel(1, 5), "ff000000");
}

TEST_F(CGContextPainting, AnEmptyClipLeavesNothing)
{
    CGContextSaveGState(mContext);
    CGContextClip(mContext);
    CGContextFillRect(mContext, CGRectMake(0, 0, 10, 10));
    EXPECT_EQ(Picture(), kNothing);
    CGContextRestoreGState(mContext);
    const CGRect theRects[] = {CGRectMake(0, 0, 1, 1), CGRectMake(9, 9, 1, 1)};
    CGContextClipToRects(mContext, theRects, 2);
    CGContextFillRect(mContext, CGRectMake(0, 0, 10, 10));
    EXPECT_EQ(Pixel(0, 9), "ff000000");
    EXPECT_EQ(Pixel(9, 0), "ff000000");
    EXPECT_EQ(Pixel(5, 5), "00000000");
}

TEST_F(CGContextPainting, TheClipIsToldInTheCoordinatesOfTheMoment)
{
    CGContextScaleCTM(mContext, 2, 2);
    EXPECT_TRUE(CGRectEqualToRect(CGContextGetClipBoundingBox(mContext), CGRectMake(0, 0, 5, 5)));
}

TEST_F(CGContextPainting, AContextIsAnObject)
{
    EXPECT_EQ(CGContextRetain(mContext), mContext);
    EXPECT_EQ(CFGetRetainCount(mContext), 2);
    EXPECT_EQ(CFGetTypeID(mContext), CGContextGetTypeID());
    CGContextRelease(mContext);
    EXPECT_EQ(CGContextRetain(nullptr), nullptr);
    CGContextRelease(nullptr);
}

TEST_F(CGContextPainting, NothingDrawsNothing)
{
    CGContextFillRect(nullptr, CGRectMake(0, 0, 1, 1));
    CGContextStrokePath(nullptr);
    CGContextClip(nullptr);
    CGContextFillRects(mContext, nullptr, 3);
    CGContextStrokeLineSegments(mContext, nullptr, 3);
    CGContextFlush(mContext);
    CGContextSynchronize(nullptr);
    EXPECT_TRUE(CGRectIsNull(CGContextGetClipBoundingBox(nullptr)));
    EXPECT_EQ(Picture(), kNothing);
}
