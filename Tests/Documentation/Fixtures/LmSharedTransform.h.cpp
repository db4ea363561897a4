// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmSharedTransform.h"
#include "LmKeyValueBinding.h"
#include "LmNumericalTransforms.h"
#include "LmScopedBinding.h"

#include <gtest/gtest.h>

TEST(LmSharedTransform, ServesTwoBindingsAsItsHeaderShows)
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theVolumeObject;
    LmKeyValueBinding theBalanceObject;
    LmKeyValueBinding* const theVolumeSlider = &theVolumeObject;
    LmKeyValueBinding* const theBalanceSlider = &theBalanceObject;
    theModel.SetKeyPathValue("volume", LmValue(500));
    theModel.SetKeyPathValue("balance", LmValue(200));
    const LmSharedTransform theReverse(new LmScaleTransform(100));
    // @code 1
    EXPECT_EQ(theVolumeSlider->GetKeyPathValue("value").GetDouble(), 5);
    theBalanceSlider->SetKeyPathValue("value", LmValue(3));
    EXPECT_EQ(theModel.GetKeyPathValue("balance").GetSInt32(), 300);
}
