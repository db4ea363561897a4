// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are the definitions of CoreGraphics.

#include <CoreGraphics/CoreGraphics.h>
#include <gtest/gtest.h>
#include <limits>

namespace {

static_assert(sizeof(CGFloat) == 4 && sizeof(CGPoint) == 8 && sizeof(CGSize) == 8 && sizeof(CGRect) == 16);

void ExpectRect(CGRect theRect, CGFloat theX, CGFloat theY, CGFloat theWidth, CGFloat theHeight)
{
    EXPECT_EQ(theRect.origin.x, theX);
    EXPECT_EQ(theRect.origin.y, theY);
    EXPECT_EQ(theRect.size.width, theWidth);
    EXPECT_EQ(theRect.size.height, theHeight);
}

const CGRect kRect = {{10, 20}, {30, 40}};
const CGRect kTurned = {{40, 60}, {-30, -40}};

} // namespace

TEST(CGBase, TheLimitsAreThoseOfAFloat)
{
    EXPECT_EQ(CGFLOAT_MIN, std::numeric_limits<CGFloat>::min());
    EXPECT_EQ(CGFLOAT_MAX, std::numeric_limits<CGFloat>::max());
}

TEST(CGGeometry, MakersKeepTheirNumbers)
{
    ExpectRect(CGRectMake(1, 2, 3, 4), 1, 2, 3, 4);
    EXPECT_TRUE(CGPointEqualToPoint(CGPointMake(1, 2), CGPoint{1, 2}));
    EXPECT_TRUE(CGSizeEqualToSize(CGSizeMake(1, 2), CGSize{1, 2}));
    EXPECT_FALSE(CGPointEqualToPoint(CGPointMake(1, 2), CGPointMake(1, 3)));
    EXPECT_FALSE(CGPointEqualToPoint(CGPointMake(1, 2), CGPointMake(0, 2)));
    EXPECT_FALSE(CGSizeEqualToSize(CGSizeMake(1, 2), CGSizeMake(1, 3)));
    EXPECT_FALSE(CGSizeEqualToSize(CGSizeMake(1, 2), CGSizeMake(0, 2)));
}

TEST(CGGeometry, EdgesOfATurnedRectangleAreThoseOfTheUprightOne)
{
    for (const CGRect theRect : {kRect, kTurned}) {
        EXPECT_EQ(CGRectGetMinX(theRect), 10);
        EXPECT_EQ(CGRectGetMidX(theRect), 25);
        EXPECT_EQ(CGRectGetMaxX(theRect), 40);
        EXPECT_EQ(CGRectGetMinY(theRect), 20);
        EXPECT_EQ(CGRectGetMidY(theRect), 40);
        EXPECT_EQ(CGRectGetMaxY(theRect), 60);
        EXPECT_EQ(CGRectGetWidth(theRect), 30);
        EXPECT_EQ(CGRectGetHeight(theRect), 40);
    }
    EXPECT_TRUE(CGRectEqualToRect(kRect, kTurned));
    EXPECT_FALSE(CGRectEqualToRect(kRect, CGRectMake(10, 20, 30, 41)));
    EXPECT_EQ(CGRectMinXEdge, 0);
    EXPECT_EQ(CGRectMaxYEdge, 3);
}

TEST(CGGeometry, TheNullRectangleIsEmptyAndTheZeroRectangleIsNotNull)
{
    EXPECT_TRUE(CGRectIsNull(CGRectNull));
    EXPECT_TRUE(CGRectIsEmpty(CGRectNull));
    EXPECT_FALSE(CGRectIsNull(CGRectZero));
    EXPECT_TRUE(CGRectIsEmpty(CGRectZero));
    EXPECT_TRUE(CGRectIsEmpty(CGRectMake(1, 2, 0, 5)));
    EXPECT_TRUE(CGRectIsEmpty(CGRectMake(1, 2, 5, 0)));
    EXPECT_FALSE(CGRectIsEmpty(kTurned));
    EXPECT_TRUE(CGPointEqualToPoint(CGPointZero, CGPointMake(0, 0)));
    EXPECT_TRUE(CGSizeEqualToSize(CGSizeZero, CGSizeMake(0, 0)));
    EXPECT_TRUE(CGRectContainsPoint(CGRectInfinite, CGPointMake(-1e30F, 1e30F)));
}

TEST(CGGeometry, InsetAndOffsetMoveTheEdges)
{
    ExpectRect(CGRectInset(kRect, 1, 2), 11, 22, 28, 36);
    ExpectRect(CGRectInset(kTurned, -1, -2), 9, 18, 32, 44);
    EXPECT_TRUE(CGRectIsNull(CGRectInset(kRect, 16, 0)));
    EXPECT_TRUE(CGRectIsNull(CGRectInset(kRect, 0, 21)));
    EXPECT_TRUE(CGRectIsNull(CGRectInset(CGRectNull, 1, 1)));
    ExpectRect(CGRectOffset(kTurned, 5, -5), 15, 15, 30, 40);
    EXPECT_TRUE(CGRectIsNull(CGRectOffset(CGRectNull, 1, 1)));
}

TEST(CGGeometry, UnionHoldsBoth)
{
    ExpectRect(CGRectUnion(kTurned, CGRectMake(0, 50, 15, 100)), 0, 20, 40, 130);
    ExpectRect(CGRectUnion(CGRectNull, kRect), 10, 20, 30, 40);
    ExpectRect(CGRectUnion(kRect, CGRectNull), 10, 20, 30, 40);
}

TEST(CGGeometry, IntersectionIsWhatBothHave)
{
    ExpectRect(CGRectIntersection(kTurned, CGRectMake(0, 50, 15, 100)), 10, 50, 5, 10);
    EXPECT_TRUE(CGRectIsNull(CGRectIntersection(kRect, CGRectMake(100, 20, 5, 5))));
    EXPECT_TRUE(CGRectIsNull(CGRectIntersection(kRect, CGRectMake(10, 200, 5, 5))));
    EXPECT_TRUE(CGRectIsNull(CGRectIntersection(kRect, CGRectNull)));
    EXPECT_TRUE(CGRectIsNull(CGRectIntersection(CGRectNull, kRect)));
    EXPECT_TRUE(CGRectIntersectsRect(kRect, CGRectMake(39, 59, 5, 5)));
    EXPECT_FALSE(CGRectIntersectsRect(kRect, CGRectMake(40, 59, 5, 5)));
}

TEST(CGGeometry, TheRightAndBottomEdgesLieOutside)
{
    EXPECT_TRUE(CGRectContainsPoint(kRect, CGPointMake(10, 20)));
    EXPECT_FALSE(CGRectContainsPoint(kRect, CGPointMake(40, 20)));
    EXPECT_FALSE(CGRectContainsPoint(kRect, CGPointMake(10, 60)));
    EXPECT_FALSE(CGRectContainsPoint(kRect, CGPointMake(9, 20)));
    EXPECT_FALSE(CGRectContainsPoint(kRect, CGPointMake(10, 19)));
    EXPECT_FALSE(CGRectContainsPoint(CGRectNull, CGPointMake(10, 19)));
    EXPECT_TRUE(CGRectContainsRect(kRect, CGRectMake(10, 20, 30, 40)));
    EXPECT_FALSE(CGRectContainsRect(kRect, CGRectMake(10, 20, 31, 40)));
}
