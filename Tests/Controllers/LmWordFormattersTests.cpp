// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmWordFormatters.h"

#include "FormatterTestSupport.h"

#include <gtest/gtest.h>
#include <random>
#include <string>

TEST(LmWordFormatter, ReadsWordsAndWritesThem)
{
    const LmWordFormatter theFormatter({"Small", "Medium", "Extra large"});
    EXPECT_EQ(Parsed(theFormatter, "Small"), "SInt32 0");
    EXPECT_EQ(Parsed(theFormatter, " mEDIUM "), "SInt32 1");
    EXPECT_EQ(Parsed(theFormatter, "extra\xC2\xA0large"), "SInt32 2");
    EXPECT_EQ(Formatted(theFormatter, LmValue(2)), "Extra large");
    EXPECT_EQ(Formatted(theFormatter, LmValue(1.0)), "Medium");
    for (const char* const theText : {"", "S", "Smaller", "Small Medium", "Extra  large"}) {
        EXPECT_EQ(Parsed(theFormatter, theText), "Only these are possible: Small, Medium, Extra large.")
            << theText;
    }
}

TEST(LmWordFormatter, APlaceWithoutAWordHasNoText)
{
    const LmWordFormatter theFormatter({"one", "two"});
    for (const LmValue& theValue : {LmValue(2), LmValue(-1), LmValue(0.5), LmValue(), TextValue("one")}) {
        EXPECT_EQ(Formatted(theFormatter, theValue), "-") << Describe(theValue);
    }
    EXPECT_EQ(Parsed(LmWordFormatter({}), "one"), "Only these are possible: .");
}

TEST(LmWordFormatter, OfEqualWordsTheFirstIsRead)
{
    const LmWordFormatter theFormatter({"a", "A", "\xFF", ""});
    EXPECT_EQ(Parsed(theFormatter, "A"), "SInt32 0");
    EXPECT_EQ(Formatted(theFormatter, LmValue(1)), "A");
    EXPECT_EQ(Parsed(theFormatter, ""), "SInt32 2");
    EXPECT_EQ(Formatted(theFormatter, LmValue(2)), "");
}

TEST(LmPatternFormatter, BringsTextsIntoItsForm)
{
    const LmPatternFormatter theFormatter("AA-0000");
    for (const char* const theText : {"AB-1234", "ab-1234", "AB1234", " ab - 1234 ", "a b 1 2 3 4"}) {
        EXPECT_EQ(UTF8Of(theFormatter.Parse(TextValue(theText).GetString()).theValue), "AB-1234") << theText;
    }
    for (const char* const theText :
         {"", "AB", "AB-123", "AB-12345", "1B-1234", "AB-123x", "AB--1234", u8"\u00C4B-1234"}) {
        EXPECT_EQ(Parsed(theFormatter, theText), "The text must look like AA-0000.") << theText;
    }
    EXPECT_EQ(Formatted(theFormatter, TextValue("ab1234")), "AB-1234");
    EXPECT_EQ(Formatted(theFormatter, TextValue("no")), "-");
    EXPECT_EQ(Formatted(theFormatter, LmValue(5)), "-");
    EXPECT_EQ(Formatted(theFormatter, LmValue(static_cast<CFStringRef>(nullptr), false)), "-");
}

TEST(LmPatternFormatter, ABackslashMakesACharacterStandForItself)
{
    const LmPatternFormatter theFormatter("\\A0X");
    EXPECT_EQ(Formatted(theFormatter, TextValue("a1z")), "A1Z");
    EXPECT_EQ(Formatted(theFormatter, TextValue("12")), "A12");
    EXPECT_EQ(Formatted(LmPatternFormatter("0\\"), TextValue("1\\")), "1\\");
    EXPECT_EQ(Formatted(LmPatternFormatter(nullptr), TextValue("")), "");
    EXPECT_EQ(Formatted(LmPatternFormatter("\xFF"), TextValue("x")), "-");
}

TEST(LmPatternFormatter, ReadsWhatItWrites)
{
    const LmPatternFormatter theFormatter("XX (0) X");
    for (const char* const theText : {"A1 (2) B", "zz9c"}) {
        const LmValue theForm = theFormatter.Parse(TextValue(theText).GetString()).theValue;
        EXPECT_EQ(UTF8Of(ThereAndBack(theFormatter, theForm)), UTF8Of(theForm));
    }
}

TEST(LmPatternFormatter, ReadsWhatItWritesWhateverStandsForItself)
{
    const LmPatternFormatter theFormatter("A\xE2\x80\x99"
                                          "0"); // with a printer's apostrophe
    for (const char* const theText : {"a5", "A'5",
                                      "A\xE2\x80\x99"
                                      "5",
                                      "A\xCA\xBC"
                                      "5"}) {
        EXPECT_EQ(Formatted(theFormatter, TextValue(theText)), "A\xE2\x80\x99"
                                                               "5")
            << theText;
    }
    // Each character that has a plain one, or is not seen.
    const std::string kLiterals[] = {
        u8"\u2212", u8"\u2010", u8"\u2011", u8"\uFE63", u8"\uFF0D", u8"\u2019",    u8"\u02BC", u8"\u00A0",
        u8"\u2003", u8"\u202F", u8"\u3000", u8"\u200E", u8"\u061C", "-",           "'",        " ",
        "\\0",      "\\A",      "\\\\",     "b",        u8"\u00E9", u8"\U0001F600"};
    const std::string kKinds[] = {"0", "A", "X"};
    std::mt19937 theRandom(20040501);
    for (int theCount = 0; theCount < 500; ++theCount) {
        std::string thePattern;
        std::string theTyped;
        for (int thePlace = 0; thePlace < 5; ++thePlace) {
            const std::size_t theKind = theRandom() % std::size(kKinds);
            thePattern += kLiterals[theRandom() % std::size(kLiterals)] + kKinds[theKind];
            theTyped += "7qz"[theKind];
        }
        const LmPatternFormatter theOne(thePattern.c_str());
        const LmValue theForm = theOne.Parse(TextValue(theTyped).GetString()).theValue;
        EXPECT_TRUE(theForm.IsString() || thePattern.find('\\') != std::string::npos) << thePattern;
        if (theForm.IsString()) {
            EXPECT_EQ(UTF8Of(ThereAndBack(theOne, theForm)), UTF8Of(theForm)) << thePattern;
        }
    }
}

TEST(LmPatternFormatter, WhatStandsForItselfTakesTheNextCharacterWhereItIsTheSame)
{
    const LmPatternFormatter theFormatter("\\00");
    EXPECT_EQ(Formatted(theFormatter, TextValue("5")), "05");
    EXPECT_EQ(Formatted(theFormatter, TextValue("0")), "-");
    EXPECT_EQ(Formatted(theFormatter, TextValue("00")), "00");
    EXPECT_EQ(Formatted(LmPatternFormatter(u8"\u00C900"), TextValue(u8"\u00E912")), "-");
}
