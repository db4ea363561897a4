// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmControlBinding.h"
#include "ExampleWindow.h"
#include "KeyTable.h"

#include <gtest/gtest.h>

namespace {

const ControlID kTargetSlider = {'Targ', 1};

} // namespace

TEST(LmControlBinding, FollowsTheModelAsItsHeaderShows)
{
    LmKeyValueBinding theModel;
    theModel.SetKeyPathValue("target", LmValue(21L));
    ExampleWindow theExample;
    const WindowRef theWindow = theExample.Get();
    const ControlRef theControl = theExample.AddSlider(kTargetSlider, 30);
    // @code 1
    EXPECT_EQ(GetControl32BitValue(theControl), 21);
    SetControl32BitValue(theControl, 24);
    EXPECT_EQ(theModel.GetKeyPathValue("target").GetUInt32(), 24UL);
}

TEST(LmControlBinding, HasTheKeysThatItsHeaderLists)
{
    KeyRow kShown[] = {
        // @rows 2
    };
    ExampleWindow theExample;
    theExample.AddSlider(kTargetSlider, 30);
    const LmControlBinding* theSlider = new LmControlBinding(theExample.Get(), kTargetSlider);
    for (KeyRow& theRow : kShown) {
        ExpectKey(*theSlider, theRow);
    }
}
