// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmBindable.h"
#include "ExampleWindow.h"
#include "LmControlBinding.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

const ControlID kTargetSlider = {'Targ', 1};
std::vector<unsigned long> gHeated;

void Heat(unsigned long theTarget)
{
    gHeated.push_back(theTarget);
}

} // namespace

TEST(LmBindable, TakesPartInBindingsAsItsHeaderShows)
{
    gHeated.clear();
    ExampleWindow theExample;
    const ControlRef theControl = theExample.AddSlider(kTargetSlider, 30);
    LmControlBinding* theSlider = new LmControlBinding(theExample.Get(), kTargetSlider);
    // @code 1
    EXPECT_EQ(GetControl32BitValue(theControl), 20);
    SetControl32BitValue(theControl, 23);
    EXPECT_EQ(gHeated, std::vector<unsigned long>{23});
    theExample.Close();
}
