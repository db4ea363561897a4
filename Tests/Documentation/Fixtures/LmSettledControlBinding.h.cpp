// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmSettledControlBinding.h"
#include "ExampleWindow.h"
#include "LmRangeTransform.h"

#include <gtest/gtest.h>

namespace {

const ControlID kTargetSlider = {'Targ', 1};

} // namespace

TEST(LmSettledControlBinding, GoesBackToTheModelAsItsHeaderShows)
{
    LmKeyValueBinding theModel;
    theModel.SetKeyPathValue("target", LmValue(30));
    ExampleWindow theExample;
    const WindowRef theWindow = theExample.Get();
    const ControlRef theControl = theExample.AddSlider(kTargetSlider, 40);
    // @code 1
    SetControl32BitValue(theControl, 37);
    EXPECT_EQ(GetControl32BitValue(theControl), 30);
}
