// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmRangeTransform.h"
#include "LmKeyValueBinding.h"

#include <gtest/gtest.h>

TEST(LmRangeTransform, LimitsWhatASliderGivesAsItsHeaderShows)
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theObject;
    LmKeyValueBinding* const theSlider = &theObject;
    theModel.SetKeyPathValue("target", LmValue(20));
    // @code 1
    theSlider->SetKeyPathValue("value", LmValue(4));
    EXPECT_EQ(theModel.GetKeyPathValue("target").GetSInt32(), 15);
    theSlider->SetKeyPathValue("value", LmValue(28));
    EXPECT_EQ(theModel.GetKeyPathValue("target").GetSInt32(), 30);
}
