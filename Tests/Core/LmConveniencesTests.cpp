// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmConveniences.h"

#include "LmString.h"
#include "LmValue.h"
#include "StandardErrorCapture.h"

#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>
#include <limits>
#include <ostream>
#include <sstream>
#include <string>

namespace {

template <typename Printed>
std::string Print(const Printed& thePrinted)
{
    std::ostringstream theStream;
    theStream << thePrinted;
    return theStream.str();
}

struct PrintedValue
{
    const char* theName;
    LmValue theValue;
    const char* theText;
};

const CGPoint kPoint = {1.5F, -2};
const CGSize kSize = {3, 4.25F};
const CGRect kRect = {{1, 2}, {30, 40}};

const PrintedValue kPrintedValues[] = {
    {"Nothing", LmValue(), "Invalid"},
    {"True", LmValue(true), "Boolean true"},
    {"False", LmValue(false), "Boolean false"},
    {"TheLargestUInt32", LmValue(4294967295UL), "UInt32 4294967295"},
    {"TheSmallestSInt32", LmValue(-2147483647L - 1), "SInt32 -2147483648"},
    {"TheLargestUInt64", LmValue(18446744073709551615ULL), "UInt64 18446744073709551615"},
    {"TheSmallestSInt64", LmValue(std::numeric_limits<long long>::min()), "SInt64 -9223372036854775808"},
    {"ADouble", LmValue(0.1), "Double 0.1"},
    {"AWholeDouble", LmValue(3.0), "Double 3"},
    {"APointer", LmValue(reinterpret_cast<const void*>(0x1F40)), "Pointer 0x1F40"},
    {"NoPointer", LmValue(nullptr), "Pointer 0x0"},
    {"AString", LmMakeStringValue("Quiet \xC3\xA9"), "String \"Quiet \xC3\xA9\""},
    {"NoString", LmValue(static_cast<CFStringRef>(nullptr), false), "String null"},
    {"APoint", LmValue(kPoint), "Point (1.5, -2)"},
    {"ASize", LmValue(kSize), "Size 3 x 4.25"},
    {"ARect", LmValue(kRect), "Rect (1, 2) 30 x 40"},
};

class LmConveniencesTable : public testing::TestWithParam<PrintedValue>
{
};

} // namespace

TEST_P(LmConveniencesTable, PrintsAKindAndWhatIsInIt)
{
    EXPECT_EQ(Print(GetParam().theValue), GetParam().theText);
    std::ostringstream theStream;
    PrintTo(GetParam().theValue, &theStream);
    EXPECT_EQ(theStream.str(), GetParam().theText);
}

INSTANTIATE_TEST_SUITE_P(, LmConveniencesTable, testing::ValuesIn(kPrintedValues),
                         [](const auto& theInfo) { return theInfo.param.theName; });

TEST(LmConveniences, PrintingLeavesTheStreamAsItIs)
{
    std::ostringstream theStream;
    theStream << std::hex << LmValue(40) << ' ' << 255;
    EXPECT_EQ(theStream.str(), "SInt32 40 ff");
}

TEST(LmConveniences, AStringPrintsItsBytesAndGoogleTestQuotesThem)
{
    EXPECT_EQ(Print(LmString("volume")), "volume");
    std::ostringstream theStream;
    PrintTo(LmString("volume"), &theStream);
    EXPECT_EQ(theStream.str(), "\"volume\"");
}

TEST(LmConveniences, UnequalIsTheOppositeOfEqual)
{
    EXPECT_FALSE(LmValue(1) != LmValue(1.5)) << "numbers are compared as integers";
    EXPECT_TRUE(LmValue(1) != LmValue(2));
    EXPECT_TRUE(LmValue(1) != LmValue());
    const LmValue theNull(static_cast<CFStringRef>(nullptr), false);
    EXPECT_TRUE(theNull != theNull) << "a null string equals nothing";
}

TEST(LmConveniences, AStringGoesToAStandardStringAndBack)
{
    EXPECT_EQ(LmGetStdString(LmString("volume")), "volume");
    EXPECT_EQ(LmMakeString(std::string("volume")), LmString("volume"));
    EXPECT_EQ(LmMakeString(std::string("vol\0ume", 7)), LmString("vol")) << "a NUL ends a string";
    EXPECT_TRUE(LmMakeString(std::string()).IsEmpty());
}

TEST(LmConveniences, AStringValueGoesToAStandardStringAndBack)
{
    for (const std::string& theText :
         {std::string(), std::string("Quiet"), std::string("\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"),
          std::string("a\0b", 3), std::string(1000, 'x')}) {
        const LmValue theValue = LmMakeStringValue(theText);
        ASSERT_TRUE(theValue.IsString());
        EXPECT_EQ(LmGetStdString(theValue), theText);
    }
    const LmValue theOnlyHolder = LmMakeStringValue("a text that is no constant");
    EXPECT_EQ(CFGetRetainCount(theOnlyHolder.GetString()), 1);
}

TEST(LmConveniences, ATextThatIsNoUtf8MakesAnInvalidValue)
{
    EXPECT_FALSE(LmMakeStringValue("\xC3(").IsValid());
}

TEST(LmConveniences, AValueThatIsNoStringHasNoText)
{
    EXPECT_EQ(LmGetStdString(LmValue(static_cast<CFStringRef>(nullptr), false)), "");
    EXPECT_EQ(LmGetStdString(LmValue(7)), "");
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{"Source/Core/LmValue.cpp, line #: IsString()"});
}
