// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmKeyValueBinding.h"
#include "LmMetaTransforms.h"
#include "LmNumericalTransforms.h"
#include "StandardErrorCapture.h"

#include <gtest/gtest.h>

namespace {

using FirstTransform = LmNegateTransform;

} // namespace

TEST(Ownership, OfAListOfTransformsIsAsTheDocumentShows)
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theView;
    theModel.SetKeyPathValue("level", LmValue(5L));
    // @code 1
    EXPECT_EQ(theView.GetKeyPathValue("value").GetSInt32(), -5);
    // The binding gives its reference back, and the sanitizer sees that nothing is left.
    theView.Unbind("value", &theModel);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              Lines{"Source/Core/LmKeyValueBinding.cpp, line #: Error -50"});
}
