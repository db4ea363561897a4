// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Rectangles in whole pixels.

#include "ManagerTestSupport.h"

#include <cstdint>

TEST(Geometry, TheOrderOfTheParametersIsNotTheOrderOfTheFieldsOnPurpose)
{
    Rect theRect;
    SetRect(&theRect, 1, 2, 3, 4);
    EXPECT_EQ(theRect.left, 1);
    EXPECT_EQ(theRect.top, 2);
    EXPECT_EQ(theRect.right, 3);
    EXPECT_EQ(theRect.bottom, 4);
    static_assert(offsetof(Rect, top) == 0 && offsetof(Rect, left) == 2, "the platform's own order");
}

TEST(Geometry, OffsetsStayInTheRangeOfCoordinates)
{
    Rect theRect = MakeRect(1, 2, 3, 4);
    OffsetRect(&theRect, 10, -20);
    EXPECT_EQ(Describe(theRect), "11, -18, 13, -16");
    OffsetRect(&theRect, INT16_MAX, INT16_MIN);
    EXPECT_EQ(Describe(theRect), "32767, -32768, 32767, -32768");
}

TEST(Geometry, RectanglesAreEqualWhenAllEdgesAre)
{
    const Rect theOne = MakeRect(1, 2, 3, 4);
    for (const Rect& theOther :
         {MakeRect(0, 2, 3, 4), MakeRect(1, 0, 3, 4), MakeRect(1, 2, 0, 4), MakeRect(1, 2, 3, 0)}) {
        EXPECT_FALSE(EqualRect(&theOne, &theOther));
    }
    const Rect theSame = MakeRect(1, 2, 3, 4);
    EXPECT_TRUE(EqualRect(&theOne, &theSame));
}

TEST(Geometry, TheLeftAndTopEdgesBelongToARectangle)
{
    const Rect theRect = MakeRect(10, 20, 30, 40);
    const auto theIsInside = [&](short theAcross, short theDown) {
        const Point thePoint = {theDown, theAcross};
        return PtInRect(thePoint, &theRect) != 0;
    };
    EXPECT_TRUE(theIsInside(10, 20));
    EXPECT_TRUE(theIsInside(29, 39));
    EXPECT_FALSE(theIsInside(30, 39));
    EXPECT_FALSE(theIsInside(29, 40));
    EXPECT_FALSE(theIsInside(9, 20));
    EXPECT_FALSE(theIsInside(10, 19));
}

TEST(Geometry, NullRectanglesAreLeftAlone)
{
    const Rect theRect = MakeRect(1, 2, 3, 4);
    const Point thePoint = {2, 1};
    SetRect(nullptr, 1, 2, 3, 4);
    OffsetRect(nullptr, 1, 2);
    EXPECT_FALSE(EqualRect(nullptr, &theRect));
    EXPECT_FALSE(EqualRect(&theRect, nullptr));
    EXPECT_FALSE(PtInRect(thePoint, nullptr));
}
