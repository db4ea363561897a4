// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <CoreServices/CoreServices.h>
#include <gtest/gtest.h>

namespace {

// A Pascal string of a C string.
struct Pascal
{
    explicit Pascal(const std::string& theText)
    {
        theBytes[0] = static_cast<unsigned char>(theText.size());
        memcpy(theBytes + 1, theText.data(), theText.size());
    }
    operator ConstStr255Param() const { return theBytes; }

    Str255 theBytes = {};
};

std::string TextOfPascal(ConstStr255Param theString)
{
    return std::string(reinterpret_cast<const char*>(theString) + 1, theString[0]);
}

std::string Digits(long theNumber)
{
    Str255 theString;
    NumToString(theNumber, theString);
    return TextOfPascal(theString);
}

long Number(const std::string& theText)
{
    long theNumber = 99;
    StringToNum(Pascal(theText), &theNumber);
    return theNumber;
}

} // namespace

TEST(TextUtils, NumbersBecomeDigits)
{
    EXPECT_EQ(Digits(0), "0");
    EXPECT_EQ(Digits(-12), "-12");
    EXPECT_EQ(Digits(INT32_MIN), "-2147483648");
}

TEST(TextUtils, DigitsBecomeNumbers)
{
    EXPECT_EQ(Number("0"), 0);
    EXPECT_EQ(Number("+17"), 17);
    EXPECT_EQ(Number("-17 degrees"), -17);
    EXPECT_EQ(Number("2147483647"), INT32_MAX);
    EXPECT_EQ(Number("-2147483648"), INT32_MIN);
    EXPECT_EQ(Number("4294967296"), 0);
}

TEST(TextUtils, WhatIsNoNumberIsZero)
{
    EXPECT_EQ(Number(""), 0);
    EXPECT_EQ(Number("-"), 0);
    EXPECT_EQ(Number("degrees"), 0);
}

TEST(TextUtils, StringsAreCopiedBothWays)
{
    Str255 thePascal;
    char theText[256];
    CopyCStringToPascal("Lamp", thePascal);
    EXPECT_EQ(TextOfPascal(thePascal), "Lamp");
    CopyPascalStringToC(thePascal, theText);
    EXPECT_STREQ(theText, "Lamp");
    c2pstrcpy(thePascal, "Fan");
    p2cstrcpy(theText, thePascal);
    EXPECT_STREQ(theText, "Fan");
}

TEST(TextUtils, ALongStringIsCutOff)
{
    const std::string theLong(300, 'x');
    Str255 thePascal;
    CopyCStringToPascal(theLong.c_str(), thePascal);
    EXPECT_EQ(TextOfPascal(thePascal), std::string(255, 'x'));
    char theText[256];
    CopyPascalStringToC(thePascal, theText);
    EXPECT_EQ(theText, std::string(255, 'x'));
}

TEST(TextUtils, AStringIsConvertedInPlace)
{
    char theText[256] = "Lamp";
    auto* const thePascal = reinterpret_cast<unsigned char*>(theText);
    CopyCStringToPascal(theText, thePascal);
    EXPECT_EQ(TextOfPascal(thePascal), "Lamp");
    CopyPascalStringToC(thePascal, theText);
    EXPECT_STREQ(theText, "Lamp");
}

TEST(TextUtils, StringsCompareWithAndWithoutCaseAndMarks)
{
    const Pascal theSmall("k\x9Fhl"); // u with two dots
    const Pascal theCapital("K\x86HL");
    const Pascal thePlain("kuhl");
    EXPECT_TRUE(EqualString(theSmall, theSmall, true, true));
    EXPECT_FALSE(EqualString(theSmall, theCapital, true, true));
    EXPECT_TRUE(EqualString(theSmall, theCapital, false, true));
    EXPECT_FALSE(EqualString(theSmall, thePlain, false, true));
    EXPECT_TRUE(EqualString(theSmall, thePlain, true, false));
    EXPECT_FALSE(EqualString(theCapital, thePlain, true, false));
    EXPECT_TRUE(EqualString(theCapital, thePlain, false, false));
    EXPECT_FALSE(EqualString(thePlain, Pascal("kuh"), false, false));
    EXPECT_TRUE(EqualString(Pascal(""), Pascal(""), true, true));
}

TEST(TextUtils, NothingIsDoneWithNull)
{
    Str255 theString = {1, 'x'};
    char theText[4] = "abc";
    long theNumber = 5;
    NumToString(1, nullptr);
    StringToNum(nullptr, &theNumber);
    StringToNum(theString, nullptr);
    CopyCStringToPascal(nullptr, theString);
    CopyCStringToPascal("x", nullptr);
    CopyPascalStringToC(nullptr, theText);
    CopyPascalStringToC(theString, nullptr);
    EXPECT_EQ(theNumber, 5);
    EXPECT_EQ(TextOfPascal(theString), "x");
    EXPECT_STREQ(theText, "abc");
    EXPECT_FALSE(EqualString(nullptr, theString, true, true));
    EXPECT_FALSE(EqualString(theString, nullptr, true, true));
}
