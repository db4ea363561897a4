// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreServices/CoreServices.h>
#include <gtest/gtest.h>

TEST(TextCommon, ProgramsSpeakMacRoman)
{
    EXPECT_EQ(GetApplicationTextEncoding(), TextEncoding{kTextEncodingMacRoman});
    // The string of that encoding is the one that CoreFoundation makes.
    EXPECT_EQ(CFStringGetSystemEncoding(), GetApplicationTextEncoding());
}
