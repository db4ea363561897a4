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

TEST(Geometry, ARectangleIsInset)
{
    Rect theRect = MakeRect(10, 20, 50, 60);
    InsetRect(&theRect, 5, -10);
    EXPECT_EQ(Describe(theRect), "15, 10, 45, 70");
    InsetRect(&theRect, 15, 0);
    EXPECT_EQ(Describe(theRect), "0, 0, 0, 0");
    theRect = MakeRect(-32768, -32768, 32767, 32767);
    InsetRect(&theRect, -32768, -1);
    EXPECT_EQ(Describe(theRect), "-32768, -32768, 32767, 32767");
    InsetRect(nullptr, 1, 1);
}

TEST(Geometry, RectanglesHaveSomethingInCommonOrNothing)
{
    const Rect theOne = MakeRect(0, 0, 20, 20);
    const Rect theOther = MakeRect(10, -5, 30, 15);
    const Rect theNeighbour = MakeRect(20, 0, 40, 20);
    Rect theResult = MakeRect(1, 2, 3, 4);
    EXPECT_TRUE(SectRect(&theOne, &theOther, &theResult));
    EXPECT_EQ(Describe(theResult), "10, 0, 20, 15");
    EXPECT_FALSE(SectRect(&theOne, &theNeighbour, &theResult));
    EXPECT_EQ(Describe(theResult), "0, 0, 0, 0");
    UnionRect(&theOne, &theOther, &theResult);
    EXPECT_EQ(Describe(theResult), "0, -5, 30, 20");
    // The result may be one of the two.
    theResult = theOne;
    EXPECT_TRUE(SectRect(&theResult, &theOther, &theResult));
    EXPECT_EQ(Describe(theResult), "10, 0, 20, 15");
    for (const auto& [theFirst, theSecond, theThird] :
         {std::tuple<const Rect*, const Rect*, Rect*>{nullptr, &theOne, &theResult},
          {&theOne, nullptr, &theResult},
          {&theOne, &theOne, nullptr}}) {
        EXPECT_FALSE(SectRect(theFirst, theSecond, theThird));
        UnionRect(theFirst, theSecond, theThird);
    }
    EXPECT_EQ(Describe(theResult), "10, 0, 20, 15");
}

TEST(Geometry, ARectangleWithoutAnInsideIsEmpty)
{
    const Rect theRect = MakeRect(0, 0, 1, 1);
    const Rect theLine = MakeRect(0, 0, 1, 0);
    const Rect theTurned = MakeRect(5, 0, 1, 9);
    EXPECT_FALSE(EmptyRect(&theRect));
    EXPECT_TRUE(EmptyRect(&theLine));
    EXPECT_TRUE(EmptyRect(&theTurned));
    EXPECT_TRUE(EmptyRect(nullptr));
}

TEST(Geometry, PointsAreAddedAndTakenAway)
{
    Point thePoint;
    SetPt(&thePoint, 3, 4);
    EXPECT_EQ(thePoint.h, 3);
    EXPECT_EQ(thePoint.v, 4);
    AddPt({10, 20}, &thePoint);
    EXPECT_TRUE(EqualPt(thePoint, {14, 23}));
    SubPt({1, 2}, &thePoint);
    EXPECT_TRUE(EqualPt(thePoint, {13, 21}));
    EXPECT_FALSE(EqualPt(thePoint, {13, 22}));
    EXPECT_FALSE(EqualPt(thePoint, {12, 21}));
    AddPt({32767, 32767}, &thePoint);
    EXPECT_TRUE(EqualPt(thePoint, {32767, 32767}));
    SetPt(nullptr, 1, 1);
    AddPt({1, 1}, nullptr);
    SubPt({1, 1}, nullptr);
}
