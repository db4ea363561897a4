// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are the definitions of CoreGraphics.

#include <ApplicationServices/ApplicationServices.h>
#include <gtest/gtest.h>

namespace {

const CGAffineTransform kMixed = {2, 1, -1, 3, 5, 7};
const CGFloat kQuarter = 1.5707963F;

void ExpectNear(CGPoint thePoint, CGFloat theX, CGFloat theY)
{
    EXPECT_NEAR(thePoint.x, theX, 1e-5);
    EXPECT_NEAR(thePoint.y, theY, 1e-5);
}

} // namespace

TEST(CGAffineTransform, APointGoesThroughTheMatrix)
{
    ExpectNear(CGPointApplyAffineTransform({10, 100}, kMixed), 20 - 100 + 5, 10 + 300 + 7);
    const CGSize theSize = CGSizeApplyAffineTransform({10, 100}, kMixed);
    EXPECT_EQ(theSize.width, 20 - 100);
    EXPECT_EQ(theSize.height, 10 + 300);
}

TEST(CGAffineTransform, ARotationLeadsFromXToY)
{
    ExpectNear(CGPointApplyAffineTransform({1, 0}, CGAffineTransformMakeRotation(kQuarter)), 0, 1);
}

TEST(CGAffineTransform, AChangeComesBeforeWhatThereIs)
{
    ExpectNear(CGPointApplyAffineTransform({1, 1}, CGAffineTransformScale(kMixed, 10, 100)), 20 - 100 + 5,
               10 + 300 + 7);
    ExpectNear(CGPointApplyAffineTransform({0, 0}, CGAffineTransformTranslate(kMixed, 10, 100)), 20 - 100 + 5,
               10 + 300 + 7);
    ExpectNear(CGPointApplyAffineTransform({1, 0}, CGAffineTransformRotate(kMixed, kQuarter)), -1 + 5, 3 + 7);
    const CGAffineTransform theMove = CGAffineTransformMakeTranslation(1, 0);
    const CGAffineTransform theScale = CGAffineTransformMakeScale(2, 2);
    EXPECT_EQ(CGPointApplyAffineTransform({0, 0}, CGAffineTransformConcat(theMove, theScale)).x, 2);
    EXPECT_EQ(CGPointApplyAffineTransform({0, 0}, CGAffineTransformConcat(theScale, theMove)).x, 1);
}

TEST(CGAffineTransform, TheInverseLeadsBack)
{
    const CGAffineTransform theInverse = CGAffineTransformInvert(kMixed);
    ExpectNear(CGPointApplyAffineTransform(CGPointApplyAffineTransform({3, -4}, kMixed), theInverse), 3, -4);
    const CGAffineTransform theFlat = CGAffineTransformMakeScale(0, 1);
    EXPECT_TRUE(CGAffineTransformEqualToTransform(CGAffineTransformInvert(theFlat), theFlat));
}

TEST(CGAffineTransform, OnlyTheIdentityIsTheIdentity)
{
    EXPECT_TRUE(CGAffineTransformIsIdentity(CGAffineTransformIdentity));
    EXPECT_TRUE(CGAffineTransformIsIdentity(CGAffineTransformMake(1, 0, 0, 1, 0, 0)));
    EXPECT_FALSE(CGAffineTransformIsIdentity(CGAffineTransformMakeTranslation(0, 1)));
    EXPECT_FALSE(CGAffineTransformEqualToTransform(kMixed, CGAffineTransformInvert(kMixed)));
}

TEST(CGAffineTransform, ARectangleIsThatAroundItsCorners)
{
    const CGAffineTransform theTurn = CGAffineTransformMake(0, 1, -1, 0, 0, 0);
    EXPECT_TRUE(CGRectEqualToRect(CGRectApplyAffineTransform(CGRectMake(1, 2, 3, 4), theTurn),
                                  CGRectMake(-6, 1, 4, 3)));
    EXPECT_TRUE(CGRectIsNull(CGRectApplyAffineTransform(CGRectNull, theTurn)));
}
