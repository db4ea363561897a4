// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmMetaTransforms.h"
#include "LmKeyValueBinding.h"
#include "LmNumericalTransforms.h"
#include "StandardErrorCapture.h"

#include <gtest/gtest.h>

TEST(LmListTransform, IsFilledAsItsHeaderShows)
{
    LmKeyValueBinding theModelObject;
    LmKeyValueBinding* theModel = &theModelObject;
    theModel->SetKeyPathValue("level", LmValue(80.0));
    LmKeyValueBinding theSlider;
    // @code 1
    EXPECT_EQ(theSlider.GetKeyPathValue("value").GetDouble(), 40.0);
    theSlider.Unbind("value", theModel);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{"Source/Core/LmKeyValueBinding.cpp, line #: Error -50"});
}
