// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "StandardErrorCapture.h"

#include <CoreServices/CoreServices.h>
#include <gtest/gtest.h>

TEST(Debugging, PrintsAPascalStringInMacRoman)
{
    const unsigned char theText[] = {4, 'K', 0x9F, 'c', 'h', 'e'};
    DebugStr(theText);
    const unsigned char theEmpty[] = {0};
    DebugStr(theEmpty);
    EXPECT_EQ(StandardErrorCapture::TakeText(), "K\u00FCch\n\n");
}

TEST(Debugging, PrintsTheLongestString)
{
    // Three bytes each in UTF-8.
    unsigned char theText[256];
    memset(theText, 0xF0, sizeof theText);
    theText[0] = 255;
    DebugStr(theText);
    EXPECT_EQ(StandardErrorCapture::TakeText().size(), 3u * 255 + 1);
}

TEST(Debugging, NothingIsPrintedOfNull)
{
    DebugStr(nullptr);
    EXPECT_EQ(StandardErrorCapture::TakeText(), "");
}
