// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Views in a host that has nothing to draw with.

#include "Views/DrawingTestSupport.h"

using UndrawnView = DrawingTest;

TEST_F(UndrawnView, IsNeverAskedToDraw)
{
    const ControlRef thePane = NewFilledPane({0, 0, 20, 30}, "pane");
    EXPECT_EQ(HIViewSetNeedsDisplay(thePane, true), noErr);
    EXPECT_FALSE(HIViewGetNeedsDisplay(thePane));
    EXPECT_EQ(HIViewRender(thePane), noErr);
    Draw1Control(thePane);
    EXPECT_EQ(Draws(), Log());
    EXPECT_EQ(PictureOf(thePane), nullptr);
}
