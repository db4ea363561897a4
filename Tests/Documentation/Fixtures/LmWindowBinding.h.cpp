// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmWindowBinding.h"
#include "ExampleWindow.h"
#include "KeyTable.h"
#include "LmPreferenceBinding.h"

#include <gtest/gtest.h>

TEST(LmWindowBinding, KeepsItsPlaceAsItsHeaderShows)
{
    LmPreferenceBinding thePreferences(CFSTR("com.example.window"));
    ExampleWindow theExample;
    const WindowRef theWindow = theExample.Get();
    // @code 1
    MoveWindow(theWindow, 150, 120, false);
    EXPECT_EQ(thePreferences.GetKeyPathValue("window place").GetRect().origin.x, 150);
    thePreferences.SetKeyPathValue("window place", LmValue(CGRectMake(40, 60, 300, 200)));
    Rect theBounds = {0, 0, 0, 0};
    GetWindowBounds(theWindow, kWindowContentRgn, &theBounds);
    EXPECT_EQ(theBounds.left, 40);
    EXPECT_EQ(theBounds.top, 60);
}

TEST(LmWindowBinding, HasTheKeysThatItsHeaderLists)
{
    KeyRow kShown[] = {
        // @rows 2
    };
    ExampleWindow theExample;
    const LmWindowBinding* theWindow = new LmWindowBinding(theExample.Get());
    for (KeyRow& theRow : kShown) {
        ExpectKey(*theWindow, theRow);
    }
}
