// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "NamedBinding.h"
#include "StandardErrorCapture.h"

#include <gtest/gtest.h>

TEST(Diagnostics, TheTraceLooksAsTheDocumentShows)
{
    const char* const kShown =
        // @text 1
        ;
    NamedBinding theModel("[Thermostat]");
    LmDebugObject::SetLogging(true);
    theModel.SetKeyPathValue("target", LmValue(21L));
    LmDebugObject::SetLogging(false);
    EXPECT_EQ(StandardErrorCapture::TakeText(), kShown);
}
