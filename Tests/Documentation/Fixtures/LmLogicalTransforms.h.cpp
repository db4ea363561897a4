// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmLogicalTransforms.h"
#include "ExampleWindow.h"
#include "LmControlBinding.h"
#include "StandardErrorCapture.h"

#include <gtest/gtest.h>

namespace {

const ControlID kButton = {'Butt', 1};

} // namespace

TEST(LmLogicalTransforms, EnableAButtonAsTheirHeaderShows)
{
    ExampleWindow theExample;
    const ControlRef theControl = theExample.AddPushButton(kButton);
    LmControlBinding& theButton = *new LmControlBinding(theExample.Get(), kButton);
    LmKeyValueBinding theFieldObject;
    LmKeyValueBinding* theField = &theFieldObject;
    theField->SetKeyPathValue("value", LmValue(static_cast<CFStringRef>(nullptr), false));
    // @code 1
    EXPECT_FALSE(IsControlEnabled(theControl));
    theField->SetKeyPathValue("value", LmValue(CFSTR("Kitchen"), false));
    EXPECT_TRUE(IsControlEnabled(theControl));
    theExample.Close();
    const Lines theExpected = {
        "Source/Core/LmValueTransform.cpp, line #: mRefCount == 0",
        "Source/Core/LmValueTransform.cpp, line #: mRefCount == 0",
        "Source/Core/LmKeyValueBinding.cpp, line #: Error -50",
    };
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), theExpected);
}
