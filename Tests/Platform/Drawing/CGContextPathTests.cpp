// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The path of a context.

#include "DrawingTestSupport.h"

#include <limits>
#include <sstream>

namespace {

const CGFloat kPi = 3.14159265F;
const CGFloat kNoNumber = std::numeric_limits<CGFloat>::quiet_NaN();
const CGFloat kEndless = std::numeric_limits<CGFloat>::infinity();

class CGContextPath : public DrawingTest
{
protected:
    std::string Current() const
    {
        const CGPoint thePoint = CGContextGetPathCurrentPoint(mContext);
        std::ostringstream theText;
        theText << std::round(thePoint.x * 100) / 100 + 0 << ", " << std::round(thePoint.y * 100) / 100 + 0;
        return theText.str();
    }

    void ExpectBox(double theLeft, double theBottom, double theWidth, double theHeight) const
    {
        const CGRect theBox = CGContextGetPathBoundingBox(mContext);
        EXPECT_NEAR(theBox.origin.x, theLeft, 0.01);
        EXPECT_NEAR(theBox.origin.y, theBottom, 0.01);
        EXPECT_NEAR(theBox.size.width, theWidth, 0.01);
        EXPECT_NEAR(theBox.size.height, theHeight, 0.01);
    }
};

} // namespace

TEST_F(CGContextPath, ItGrowsFromPointToPoint)
{
    EXPECT_TRUE(CGContextIsPathEmpty(mContext));
    EXPECT_EQ(Current(), "0, 0");
    CGContextMoveToPoint(mContext, 1, 2);
    EXPECT_FALSE(CGContextIsPathEmpty(mContext));
    CGContextAddLineToPoint(mContext, 4, 6);
    EXPECT_EQ(Current(), "4, 6");
    ExpectBox(1, 2, 3, 4);
    CGContextClosePath(mContext);
    EXPECT_EQ(Current(), "1, 2");
    CGContextBeginPath(mContext);
    EXPECT_TRUE(CGContextIsPathEmpty(mContext));
    EXPECT_TRUE(CGRectIsNull(CGContextGetPathBoundingBox(mContext)));
}

TEST_F(CGContextPath, WhatNeedsAStartAddsNothingWithoutOne)
{
    CGContextAddLineToPoint(mContext, 1, 1);
    CGContextAddCurveToPoint(mContext, 1, 1, 2, 2, 3, 3);
    CGContextAddQuadCurveToPoint(mContext, 1, 1, 2, 2);
    CGContextAddArcToPoint(mContext, 1, 1, 2, 2, 1);
    CGContextClosePath(mContext);
    EXPECT_TRUE(CGContextIsPathEmpty(mContext));
}

TEST_F(CGContextPath, WhatIsInItStaysWhereItIs)
{
    CGContextMoveToPoint(mContext, 4, 6);
    CGContextScaleCTM(mContext, 2, 2);
    EXPECT_EQ(Current(), "2, 3");
    CGContextAddLineToPoint(mContext, 3, 3);
    CGContextScaleCTM(mContext, 0.5F, 0.5F);
    EXPECT_EQ(Current(), "6, 6");
    ExpectBox(4, 6, 2, 0);
}

TEST_F(CGContextPath, AnArcTurnsAsItIsTold)
{
    CGContextAddArc(mContext, 5, 5, 4, 0, kPi / 2, 0);
    EXPECT_EQ(Current(), "5, 9");
    ExpectBox(5, 5, 4, 4);
    CGContextBeginPath(mContext);
    CGContextAddArc(mContext, 5, 5, 4, 0, kPi / 2, 1);
    EXPECT_EQ(Current(), "5, 9");
    ExpectBox(1, 1, 8, 8);
    CGContextBeginPath(mContext);
    CGContextAddArc(mContext, 5, 5, 4, kPi / 2, 0, 0);
    EXPECT_EQ(Current(), "9, 5");
    ExpectBox(1, 1, 8, 8);
}

TEST_F(CGContextPath, AnArcBeginsWithALineFromWhereThePathIs)
{
    CGContextMoveToPoint(mContext, 0, 0);
    CGContextAddArc(mContext, 5, 5, 4, 0, kPi / 2, 0);
    ExpectBox(0, 0, 9, 9);
    CGContextClosePath(mContext);
    EXPECT_EQ(Current(), "0, 0");
}

TEST_F(CGContextPath, ACornerIsRounded)
{
    CGContextMoveToPoint(mContext, 0, 0);
    CGContextAddArcToPoint(mContext, 8, 0, 8, 8, 3);
    EXPECT_EQ(Current(), "8, 3");
    ExpectBox(0, 0, 8, 3);
    CGContextBeginPath(mContext);
    CGContextMoveToPoint(mContext, 0, 8);
    CGContextAddArcToPoint(mContext, 8, 8, 8, 0, 3);
    EXPECT_EQ(Current(), "8, 5");
    CGContextAddArcToPoint(mContext, 8, 0, 8, -5, 3);
    EXPECT_EQ(Current(), "8, 0");
}

TEST_F(CGContextPath, ShapesAddThemselves)
{
    const CGRect theRects[] = {CGRectMake(1, 1, 2, 2), CGRectMake(8, 8, -2, -2)};
    CGContextAddRects(mContext, theRects, 2);
    ExpectBox(1, 1, 7, 7);
    CGContextBeginPath(mContext);
    CGContextAddEllipseInRect(mContext, CGRectMake(1, 2, 6, 4));
    ExpectBox(1, 2, 6, 4);
    CGContextBeginPath(mContext);
    const CGPoint thePoints[] = {{1, 1}, {2, 5}, {3, 1}};
    CGContextAddLines(mContext, thePoints, 3);
    EXPECT_EQ(Current(), "3, 1");
    ExpectBox(1, 1, 2, 4);
}

TEST_F(CGContextPath, AQuadraticCurveIsTheSameCurve)
{
    CGContextMoveToPoint(mContext, 0, 0);
    CGContextAddQuadCurveToPoint(mContext, 3, 9, 6, 0);
    EXPECT_EQ(Current(), "6, 0");
    ExpectBox(0, 0, 6, 6);
}

TEST_F(CGContextPath, WhatIsNoNumberAddsNothing)
{
    for (const CGFloat theBad : {kNoNumber, kEndless, -kEndless}) {
        CGContextMoveToPoint(mContext, theBad, 0);
        CGContextAddRect(mContext, CGRectMake(0, 0, theBad, 1));
        CGContextAddEllipseInRect(mContext, CGRectMake(0, theBad, 1, 1));
        CGContextAddArc(mContext, 0, 0, theBad, 0, 1, 0);
        CGContextAddArc(mContext, 0, 0, 1, theBad, 1, 0);
        CGContextAddArc(mContext, 0, 0, 1, 0, theBad, 1);
        EXPECT_TRUE(CGContextIsPathEmpty(mContext));
        CGContextMoveToPoint(mContext, 1, 1);
        CGContextAddLineToPoint(mContext, 0, theBad);
        CGContextAddCurveToPoint(mContext, 0, 0, theBad, 0, 0, 0);
        CGContextAddQuadCurveToPoint(mContext, theBad, 0, 0, 0);
        CGContextAddArcToPoint(mContext, 0, theBad, 1, 1, 1);
        EXPECT_EQ(Current(), "1, 1");
        CGContextBeginPath(mContext);
    }
    CGContextAddArc(mContext, 0, 0, -1, 0, 1, 0);
    CGContextAddLines(mContext, nullptr, 3);
    CGContextAddRects(mContext, nullptr, 3);
    EXPECT_TRUE(CGContextIsPathEmpty(mContext));
}

TEST_F(CGContextPath, WhatIsFarAwayIsDrawnInFromThere)
{
    const CGFloat theLargest = std::numeric_limits<CGFloat>::max();
    CGContextScaleCTM(mContext, 1000, 1000);
    CGContextAddRect(mContext, CGRectMake(-theLargest, -theLargest, theLargest, theLargest));
    CGContextAddLineToPoint(mContext, theLargest, theLargest);
    CGContextAddEllipseInRect(mContext, CGRectMake(-theLargest / 4, 0, theLargest / 2, 1));
    CGContextDrawPath(mContext, kCGPathFillStroke);
    EXPECT_TRUE(CGContextIsPathEmpty(mContext));
}

TEST_F(CGContextPath, NothingHasNoPath)
{
    CGContextMoveToPoint(nullptr, 1, 1);
    EXPECT_TRUE(CGContextIsPathEmpty(nullptr));
    EXPECT_EQ(CGContextGetPathCurrentPoint(nullptr).x, 0);
    EXPECT_TRUE(CGRectIsNull(CGContextGetPathBoundingBox(nullptr)));
}

TEST_F(CGContextPath, APathIsAddedInTheCoordinatesOfTheMoment)
{
    const CGMutablePathRef thePath = CGPathCreateMutable();
    CGPathAddRect(thePath, nullptr, CGRectMake(0, 0, 3, 2));
    CGContextMoveToPoint(mContext, 9, 9);
    CGContextTranslateCTM(mContext, 4, 1);
    CGContextAddPath(mContext, thePath);
    CGContextAddPath(mContext, nullptr);
    ExpectBox(0, 0, 5, 8);
    CGContextFillPath(mContext);
    EXPECT_EQ(Picture(), "\n"
                         "..........\n"
                         "..........\n"
                         "..........\n"
                         "..........\n"
                         "..........\n"
                         "..........\n"
                         "..........\n"
                         "....###...\n"
                         "....###...\n"
                         "..........\n");
    CGPathRelease(thePath);
}
