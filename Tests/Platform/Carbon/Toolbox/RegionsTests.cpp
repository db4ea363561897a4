// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ManagerTestSupport.h"

TEST(Regions, ARegionIsEmptyAndThenARectangle)
{
    const RgnHandle theRegion = NewRgn();
    ASSERT_NE(theRegion, nullptr);
    EXPECT_TRUE(EmptyRgn(theRegion));
    SetRectRgn(theRegion, 10, 20, 30, 40);
    EXPECT_FALSE(EmptyRgn(theRegion));
    Rect theBounds;
    EXPECT_EQ(GetRegionBounds(theRegion, &theBounds), &theBounds);
    EXPECT_EQ(Describe(theBounds), "10, 20, 30, 40");
    EXPECT_TRUE(PtInRgn({20, 10}, theRegion));
    EXPECT_FALSE(PtInRgn({40, 10}, theRegion));
    const Rect theRect = MakeRect(5, 5, 5, 9);
    RectRgn(theRegion, &theRect);
    EXPECT_TRUE(EmptyRgn(theRegion));
    EXPECT_EQ(Describe(*GetRegionBounds(theRegion, &theBounds)), "0, 0, 0, 0");
    DisposeRgn(theRegion);
}

TEST(Regions, ABadRegionIsEmpty)
{
    const RgnHandle theOld = NewRgn();
    SetRectRgn(theOld, 0, 0, 9, 9);
    DisposeRgn(theOld);
    const Rect theRect = MakeRect(0, 0, 9, 9);
    for (const RgnHandle theBad : {theOld, RgnHandle{nullptr}}) {
        SetRectRgn(theBad, 0, 0, 9, 9);
        RectRgn(theBad, &theRect);
        Rect theBounds = MakeRect(1, 2, 3, 4);
        EXPECT_EQ(Describe(*GetRegionBounds(theBad, &theBounds)), "0, 0, 0, 0");
        EXPECT_TRUE(EmptyRgn(theBad));
        EXPECT_FALSE(PtInRgn({1, 1}, theBad));
        DisposeRgn(theBad);
    }
    EXPECT_EQ(GetRegionBounds(theOld, nullptr), nullptr);
    const RgnHandle theRegion = NewRgn();
    SetRectRgn(theRegion, 0, 0, 9, 9);
    RectRgn(theRegion, nullptr);
    EXPECT_FALSE(EmptyRgn(theRegion));
    DisposeRgn(theRegion);
}
