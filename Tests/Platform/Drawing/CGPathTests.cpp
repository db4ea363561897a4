// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Paths by themselves, which need nothing that draws.

#include <ApplicationServices/ApplicationServices.h>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>
#include <string>

namespace {

const CGFloat kNoNumber = std::numeric_limits<CGFloat>::quiet_NaN();
const CGFloat kHuge = std::numeric_limits<CGFloat>::max();

void AddStep(void* theInfo, const CGPathElement* theElement)
{
    const size_t theCounts[] = {1, 1, 2, 3, 0};
    std::ostringstream theText;
    theText << "mlqcz"[theElement->type];
    for (size_t theIndex = 0; theIndex < theCounts[theElement->type]; ++theIndex) {
        theText << ' ' << theElement->points[theIndex].x << ',' << theElement->points[theIndex].y;
    }
    *static_cast<std::string*>(theInfo) += theText.str() + ";";
}

class CGPathTest : public testing::Test
{
protected:
    ~CGPathTest() override { CGPathRelease(mPath); }

    static std::string Steps(CGPathRef thePath)
    {
        std::string theSteps;
        CGPathApply(thePath, &theSteps, AddStep);
        return theSteps;
    }

    bool Contains(CGFloat theX, CGFloat theY, bool theIsEvenOdd = false) const
    {
        return CGPathContainsPoint(mPath, nullptr, CGPointMake(theX, theY), theIsEvenOdd);
    }

    CGMutablePathRef mPath = CGPathCreateMutable();
};

} // namespace

TEST_F(CGPathTest, ItGrowsStepByStepInTheCoordinatesOfATransform)
{
    const CGAffineTransform theTwice = CGAffineTransformMakeScale(2, 2);
    EXPECT_TRUE(CGPathIsEmpty(mPath));
    EXPECT_TRUE(CGRectIsNull(CGPathGetBoundingBox(mPath)));
    CGPathMoveToPoint(mPath, nullptr, 1, 2);
    CGPathAddLineToPoint(mPath, &theTwice, 3, 4);
    CGPathAddCurveToPoint(mPath, nullptr, 1, 1, 2, 2, 5, 6);
    EXPECT_TRUE(CGPointEqualToPoint(CGPathGetCurrentPoint(mPath), CGPointMake(5, 6)));
    CGPathCloseSubpath(mPath);
    EXPECT_EQ(Steps(mPath), "m 1,2;l 6,8;c 1,1 2,2 5,6;z;");
    EXPECT_TRUE(CGRectEqualToRect(CGPathGetBoundingBox(mPath), CGRectMake(1, 1, 5, 7)));
    EXPECT_FALSE(CGPathIsEmpty(mPath));
}

TEST_F(CGPathTest, ShapesAreAddedAsToAContext)
{
    const CGPoint thePoints[] = {{0, 0}, {3, 0}, {3, 3}};
    const CGRect theRects[] = {CGRectMake(0, 0, 1, 2), CGRectMake(5, 5, 1, 1)};
    CGPathAddLines(mPath, nullptr, thePoints, 3);
    CGPathAddRects(mPath, nullptr, theRects, 2);
    EXPECT_EQ(Steps(mPath), "m 0,0;l 3,0;l 3,3;m 0,0;l 1,0;l 1,2;l 0,2;z;m 5,5;l 6,5;l 6,6;l 5,6;z;");
    CGPathRelease(mPath);
    mPath = CGPathCreateMutable();
    CGPathAddArc(mPath, nullptr, 0, 0, 2, 0, 1, false);
    CGPathAddArcToPoint(mPath, nullptr, 5, 5, 9, 5, 1);
    CGPathAddQuadCurveToPoint(mPath, nullptr, 9, 9, 3, 3);
    CGPathAddEllipseInRect(mPath, nullptr, CGRectMake(0, 0, 4, 4));
    const std::string theSteps = Steps(mPath);
    std::string theKinds;
    for (size_t thePlace = 0; thePlace < theSteps.size(); thePlace = theSteps.find(';', thePlace) + 1) {
        theKinds += theSteps[thePlace];
    }
    EXPECT_EQ(theKinds, "mclccmccccz");
}

TEST_F(CGPathTest, OneIsAddedToAnotherAndToItself)
{
    const CGMutablePathRef theOther = CGPathCreateMutable();
    CGPathMoveToPoint(theOther, nullptr, 1, 1);
    CGPathAddLineToPoint(theOther, nullptr, 2, 1);
    const CGAffineTransform theMove = CGAffineTransformMakeTranslation(10, 0);
    CGPathAddPath(mPath, &theMove, theOther);
    CGPathAddLineToPoint(mPath, nullptr, 0, 0);
    CGPathAddPath(mPath, nullptr, mPath);
    EXPECT_EQ(Steps(mPath), "m 11,1;l 12,1;l 0,0;m 11,1;l 12,1;l 0,0;");
    CGPathCloseSubpath(mPath);
    EXPECT_TRUE(CGPointEqualToPoint(CGPathGetCurrentPoint(mPath), CGPointMake(11, 1)));
    CGPathRelease(theOther);
}

TEST_F(CGPathTest, CopiesAreEqualUntilOneChanges)
{
    CGPathAddRect(mPath, nullptr, CGRectMake(0, 0, 2, 2));
    const CGPathRef theCopy = CGPathCreateCopy(mPath);
    const CGMutablePathRef theOther = CGPathCreateMutableCopy(mPath);
    EXPECT_TRUE(CGPathEqualToPath(theCopy, mPath));
    EXPECT_TRUE(CFEqual(theOther, mPath));
    EXPECT_EQ(CFHash(theOther), CFHash(mPath));
    EXPECT_EQ(CFGetTypeID(mPath), CGPathGetTypeID());
    CGPathMoveToPoint(mPath, nullptr, 0, 0);
    EXPECT_FALSE(CGPathEqualToPath(theCopy, mPath));
    EXPECT_TRUE(CGPathEqualToPath(theCopy, theOther));
    CGPathRelease(mPath);
    mPath = CGPathCreateMutable();
    CGPathAddRect(mPath, nullptr, CGRectMake(0, 0, 2, 3));
    EXPECT_FALSE(CGPathEqualToPath(theCopy, mPath));
    EXPECT_EQ(CGPathRetain(theCopy), theCopy);
    EXPECT_EQ(CFGetRetainCount(theCopy), 2);
    CGPathRelease(theCopy);
    CGPathRelease(theCopy);
    CGPathRelease(theOther);
}

TEST_F(CGPathTest, APointIsInsideWhereFillingPaints)
{
    CGPathAddRect(mPath, nullptr, CGRectMake(0, 0, 10, 10));
    CGPathAddRect(mPath, nullptr, CGRectMake(2, 2, 6, 6));
    EXPECT_TRUE(Contains(1, 5));
    EXPECT_TRUE(Contains(5, 5));
    EXPECT_TRUE(Contains(1, 5, true));
    EXPECT_FALSE(Contains(5, 5, true));
    EXPECT_FALSE(Contains(11, 5));
    EXPECT_FALSE(Contains(-1, 5));
    EXPECT_FALSE(Contains(5, 11));
    EXPECT_FALSE(Contains(kNoNumber, 5));
    const CGAffineTransform theMove = CGAffineTransformMakeTranslation(-10, 0);
    EXPECT_TRUE(CGPathContainsPoint(mPath, &theMove, CGPointMake(11, 5), false));
    CGPathRelease(mPath);
    mPath = CGPathCreateMutable();
    CGPathAddEllipseInRect(mPath, nullptr, CGRectMake(0, 0, 10, 10));
    EXPECT_TRUE(Contains(9.9F, 5));
    EXPECT_TRUE(Contains(8.4F, 8.4F));
    EXPECT_FALSE(Contains(8.7F, 8.7F));
    EXPECT_FALSE(Contains(1, 1));
}

TEST_F(CGPathTest, AnOpenOneIsClosedForFilling)
{
    const CGPoint thePoints[] = {{10, 0}, {0, 0}, {0, 10}};
    CGPathAddLines(mPath, nullptr, thePoints, 3);
    EXPECT_TRUE(Contains(2, 2));
    EXPECT_FALSE(Contains(6, 6));
    CGPathMoveToPoint(mPath, nullptr, 50, 50);
    EXPECT_TRUE(Contains(2, 2));
}

TEST_F(CGPathTest, WhatIsNoneOrNoNumberChangesNothing)
{
    const CGPoint theBad[] = {{kNoNumber, 0}};
    CGPathMoveToPoint(mPath, nullptr, kNoNumber, 1);
    CGPathAddLineToPoint(mPath, nullptr, 1, 1);
    CGPathAddRect(mPath, nullptr, CGRectMake(0, 0, kNoNumber, 1));
    CGPathAddLines(mPath, nullptr, theBad, 1);
    CGPathAddLines(mPath, nullptr, nullptr, 3);
    CGPathAddRects(mPath, nullptr, nullptr, 3);
    CGPathAddPath(mPath, nullptr, nullptr);
    CGPathApply(mPath, nullptr, nullptr);
    EXPECT_TRUE(CGPathIsEmpty(mPath));
    CGPathMoveToPoint(mPath, nullptr, kHuge, -kHuge);
    EXPECT_EQ(Steps(mPath), "m 500000,-500000;");
    CGPathMoveToPoint(nullptr, nullptr, 1, 1);
    CGPathCloseSubpath(nullptr);
    CGPathAddPath(nullptr, nullptr, mPath);
    CGPathRelease(nullptr);
    EXPECT_EQ(CGPathRetain(nullptr), nullptr);
    EXPECT_EQ(CGPathCreateCopy(nullptr), nullptr);
    EXPECT_EQ(CGPathCreateMutableCopy(nullptr), nullptr);
    EXPECT_TRUE(CGPathIsEmpty(nullptr));
    EXPECT_TRUE(CGPathEqualToPath(nullptr, nullptr));
    EXPECT_FALSE(CGPathEqualToPath(nullptr, mPath));
    EXPECT_TRUE(CGPointEqualToPoint(CGPathGetCurrentPoint(nullptr), CGPointZero));
    EXPECT_TRUE(CGRectIsNull(CGPathGetBoundingBox(nullptr)));
    EXPECT_FALSE(CGPathContainsPoint(nullptr, nullptr, CGPointZero, false));
    CGContextAddPath(nullptr, mPath);
}
