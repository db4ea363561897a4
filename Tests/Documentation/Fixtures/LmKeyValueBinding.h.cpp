// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmKeyValueBinding.h"
#include "ExampleWindow.h"
#include "LmControlBinding.h"
#include "LmStringTransforms.h"
#include "TestStrings.h"

#include <gtest/gtest.h>

namespace {

const ControlID kVolumeSlider = {'Volm', 1};
const ControlID kVolumeLabel = {'Volm', 2};

} // namespace

TEST(LmKeyValueBinding, BindsASliderAndALabelAsItsHeaderShows)
{
    ExampleWindow theExample;
    const WindowRef theWindow = theExample.Get();
    const ControlRef theSliderControl = theExample.AddSlider(kVolumeSlider, 100);
    theExample.AddStaticText(kVolumeLabel);
    // @code 1
    EXPECT_EQ(GetControl32BitValue(theSliderControl), 40);
    EXPECT_EQ(GetText(theLabel->GetKeyPathValue("value").GetString()), "40");
    SetControl32BitValue(theSliderControl, 55);
    EXPECT_EQ(theModel.GetKeyPathValue("volume").GetUInt32(), 55UL);
    EXPECT_EQ(GetText(theLabel->GetKeyPathValue("value").GetString()), "55");
    theExample.Close(); // and the bindings with it, before the model goes
}
