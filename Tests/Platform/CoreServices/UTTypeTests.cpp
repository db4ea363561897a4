// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreServices/CoreServices.h>
#include <gtest/gtest.h>

namespace {

std::string TextOfCode(OSType theCode)
{
    const CFStringRef theString = UTCreateStringForOSType(theCode);
    char theText[32] = "";
    CFStringGetCString(theString, theText, sizeof theText, kCFStringEncodingUTF8);
    CFRelease(theString);
    return theText;
}

OSType CodeOf(const char* theText)
{
    const CFStringRef theString = CFStringCreateWithCString(nullptr, theText, kCFStringEncodingUTF8);
    const OSType theCode = UTGetOSTypeFromString(theString);
    CFRelease(theString);
    return theCode;
}

} // namespace

TEST(UTType, ACodeIsFourCharacters)
{
    EXPECT_EQ(TextOfCode('TEXT'), "TEXT");
    EXPECT_EQ(TextOfCode(0x54455854u), "TEXT");
    EXPECT_EQ(TextOfCode(0xC4414141u), "\u0192AAA");
    EXPECT_EQ(TextOfCode(0), "");
}

TEST(UTType, FourCharactersAreACode)
{
    EXPECT_EQ(CodeOf("TEXT"), OSType{'TEXT'});
    EXPECT_EQ(CodeOf("\u0192AAA"), 0xC4414141u);
    EXPECT_EQ(CodeOf("vol "), OSType{'vol '});
}

TEST(UTType, WhatIsNoCodeIsZero)
{
    EXPECT_EQ(CodeOf(""), 0u);
    EXPECT_EQ(CodeOf("TEX"), 0u);
    EXPECT_EQ(CodeOf("TEXTS"), 0u);
    EXPECT_EQ(CodeOf("TEX\u3042"), 0u);
    EXPECT_EQ(UTGetOSTypeFromString(nullptr), 0u);
}
