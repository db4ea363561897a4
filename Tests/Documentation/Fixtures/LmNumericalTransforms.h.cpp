// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmNumericalTransforms.h"
#include "LmKeyValueBinding.h"

#include <gtest/gtest.h>

TEST(LmNumericalTransforms, ScaleBothWaysAsTheirHeaderShows)
{
    LmKeyValueBinding theModelObject;
    LmKeyValueBinding* theModel = &theModelObject;
    theModel->SetKeyPathValue("volume", LmValue(40UL));
    LmKeyValueBinding theSlider;
    // @code 1
    EXPECT_EQ(theSlider.GetKeyPathValue("value").GetUInt32(), 80UL);
    theSlider.SetKeyPathValue("value", LmValue(110UL));
    EXPECT_EQ(theModel->GetKeyPathValue("volume").GetUInt32(), 55UL);
}
