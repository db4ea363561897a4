// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFTestSupport.h"

TEST(CFUnicode, TrimmingTakesWhiteSpaceAwayAtBothEnds)
{
    const auto theString = MutableString(u8" \t\n\u00A0a b\u2003\r\n");
    CFStringTrimWhitespace(theString);
    EXPECT_EQ(TextOf(theString), "a b");
    const auto theBlank = MutableString("   ");
    CFStringTrimWhitespace(theBlank);
    EXPECT_EQ(TextOf(theBlank), "");
}

TEST(CFUnicode, CaseIsMappedByUnicode)
{
    const auto theString = MutableString(u8"aZ1 \u00E9\u00DF\u03C3\u0436\U0001F600\uFB01");
    CFStringUppercase(theString, nullptr);
    EXPECT_EQ(TextOf(theString), u8"AZ1 \u00C9SS\u03A3\u0416\U0001F600FI");
    CFStringLowercase(theString, nullptr);
    EXPECT_EQ(TextOf(theString), u8"az1 \u00E9ss\u03C3\u0436\U0001F600fi");
}
