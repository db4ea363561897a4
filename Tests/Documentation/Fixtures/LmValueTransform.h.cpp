// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmValueTransform.h"
#include "LmKeyValueBinding.h"
#include "StandardErrorCapture.h"

#include <gtest/gtest.h>

TEST(LmValueTransform, IsDerivedFromAsItsHeaderShows)
{
    LmKeyValueBinding theModelObject;
    LmKeyValueBinding* theModel = &theModelObject;
    theModel->SetKeyPathValue("half", LmValue(21.0));
    LmKeyValueBinding theSlider;
    // @code 1
    EXPECT_EQ(theSlider.GetKeyPathValue("value").GetDouble(), 42.0);
    theSlider.Unbind("value", theModel);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{"Source/Core/LmKeyValueBinding.cpp, line #: Error -50"});
}
