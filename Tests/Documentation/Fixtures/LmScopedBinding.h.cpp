// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmScopedBinding.h"
#include "LmKeyValueBinding.h"
#include "LmStringTransforms.h"
#include "TestStrings.h"

#include <gtest/gtest.h>

TEST(LmScopedBinding, BindsASliderAndALabelAsItsHeaderShows)
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theSliderObject;
    LmKeyValueBinding theLabelObject;
    LmKeyValueBinding* const theSlider = &theSliderObject;
    LmKeyValueBinding* const theLabel = &theLabelObject;
    theModel.SetKeyPathValue("volume", LmValue(40));
    // @code 1
    theSlider->SetKeyPathValue("value", LmValue(55));
    EXPECT_EQ(theModel.GetKeyPathValue("volume").GetSInt32(), 55);
    EXPECT_EQ(GetText(theLabel->GetKeyPathValue("value").GetString()), "55");
}
