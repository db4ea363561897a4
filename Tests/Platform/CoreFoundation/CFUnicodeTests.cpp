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

TEST(CFUnicode, WordsAreCapitalizedByUnicode)
{
    const struct
    {
        const char* theText;
        const char* theExpected;
    } kRows[] = {
        {"", ""},
        {"hello WORLD", "Hello World"},
        {"don't STOP 2nd-hand", "Don't Stop 2Nd-Hand"},
        {u8"l\u2019\u00C9T\u00C9", u8"L\u2019\u00E9t\u00E9"},
        {"'quoted' text's\tend\nnew_line", "'Quoted' Text's\tEnd\nNew_Line"},
        {u8"e\u0301TE\u0301 \u0301a", u8"E\u0301te\u0301 \u0301A"},
        {u8"\u01C6ungla \u00DFharp \uFB01n", u8"\u01C5ungla Ssharp Fin"},
        {u8"\u0436\u0423\u041A \u6F22a", u8"\u0416\u0443\u043A \u6F22A"},
        {u8"\U0001F600smile", u8"\U0001F600Smile"},
    };
    for (const auto& theRow : kRows) {
        const auto theString = MutableString(theRow.theText);
        CFStringCapitalize(theString, nullptr);
        EXPECT_EQ(TextOf(theString), theRow.theExpected);
    }
}
