// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmConveniences.h"
#include "LmLiveTexts.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <limits>
#include <locale>
#include <string>
#include <utility>
#include <vector>

namespace {

LmValue MakeText(const char* theText)
{
    return {CFStringCreateWithCString(kCFAllocatorDefault, theText, kCFStringEncodingUTF8), true};
}

struct Row
{
    LmValue theValue;
    const char* theShown;
    const char* theTyped;
};

std::vector<Row> Rows()
{
    return {
        {LmValue(true), "true", "true"},
        {LmValue(7UL), "7", "7"},
        {LmValue(-7L), "-7", "-7"},
        {LmValue(18446744073709551615ULL), "18446744073709551615", "18446744073709551615"},
        {LmValue(std::numeric_limits<long long>::min()), "-9223372036854775808", "-9223372036854775808"},
        {LmValue(20.5), "20.5", "20.5"},
        {MakeText("a \"b\""), R"("a \"b\"")", "a \"b\""},
        {LmValue(CGPointMake(1, 2.5F)), "(1, 2.5)", "(1, 2.5)"},
        {LmValue(CGSizeMake(3, 4)), "(3, 4)", "(3, 4)"},
        {LmValue(CGRectMake(1, 2, 3, 4)), "(1, 2, 3, 4)", "(1, 2, 3, 4)"},
    };
}

} // namespace

TEST(LmLiveTexts, ShowEachTypeAndReadItAgain)
{
    for (const Row& theRow : Rows()) {
        EXPECT_EQ(LmShowValue(theRow.theValue), theRow.theShown);
        EXPECT_EQ(LmEditedValue(theRow.theValue), theRow.theTyped);
        EXPECT_TRUE(LmIsEditable(theRow.theValue.GetType()));
        LmValue theRead;
        EXPECT_TRUE(LmReadValue(theRow.theTyped, theRow.theValue.GetType(), theRead)) << theRow.theTyped;
        EXPECT_EQ(theRead.GetType(), theRow.theValue.GetType());
        EXPECT_EQ(LmShowValue(theRead), theRow.theShown);
    }
}

TEST(LmLiveTexts, ShowWhatCannotBeTyped)
{
    EXPECT_EQ(LmShowValue(LmValue()), "not valid");
    EXPECT_EQ(LmShowValue(LmValue(nullptr)), "null pointer");
    int theNumber = 0;
    EXPECT_EQ(LmShowValue(LmValue(static_cast<void*>(&theNumber))), "a pointer");
    EXPECT_EQ(LmShowValue(LmValue(std::numeric_limits<double>::infinity())), "inf");
    EXPECT_EQ(LmShowValue(LmValue(false)), "false");
    EXPECT_FALSE(LmIsEditable(static_cast<ValueType>(99)));
    EXPECT_EQ(LmShowValue(LmValue(static_cast<CFStringRef>(nullptr), false)), "null");
    EXPECT_FALSE(LmIsEditable(kTypeInvalid));
    EXPECT_FALSE(LmIsEditable(kTypePointer));
    LmValue theValue;
    EXPECT_FALSE(LmReadValue("1", kTypePointer, theValue));
    EXPECT_FALSE(LmReadValue("1", kTypeInvalid, theValue));
}

TEST(LmLiveTexts, RefuseWhatIsNoValueOfTheType)
{
    const std::pair<ValueType, const char*> kRefused[] = {
        {kTypeBoolean, "maybe"},
        {kTypeUInt32, "-1"},
        {kTypeUInt32, "4294967296"},
        {kTypeUInt32, ""},
        {kTypeSInt32, "2147483648"},
        {kTypeSInt32, "1x"},
        {kTypeUInt64, "-1"},
        {kTypeDouble, "warm"},
        {kTypeSInt64, "99999999999999999999"},
        {kTypePoint, "(1)"},
        {kTypeSize, "(1, 2, 3)"},
        {kTypeRect, "(1, 2, 3, x)"},
        {kTypePoint, "(1e300, 0)"},
        {kTypeDouble, "1 2"},
        {kTypeSize, "(0, -1e300)"},
        {kTypeUInt64, "99999999999999999999"},
        {kTypeUInt32, "1x"},
        {kTypeSInt32, "-2147483649"},
        {kTypeSInt32, ""},
        {kTypeString, "\xFF"},
    };
    for (const auto& [theType, theText] : kRefused) {
        LmValue theValue(77UL);
        EXPECT_FALSE(LmReadValue(theText, theType, theValue)) << theText;
        EXPECT_EQ(theValue.GetUInt32(), 77U);
    }
}

TEST(LmLiveTexts, ReadBooleansAsNumbersToo)
{
    const std::pair<const char*, bool> kRead[] = {
        {"true", true}, {"1", true}, {"false", false}, {"0", false}};
    for (const auto& [theText, isTrue] : kRead) {
        LmValue theValue;
        EXPECT_TRUE(LmReadValue(theText, kTypeBoolean, theValue)) << theText;
        EXPECT_EQ(theValue.GetBoolean(), isTrue) << theText;
    }
}

TEST(LmLiveTexts, CutALongString)
{
    const std::string theText = LmShowValue(MakeText(std::string(100, 'x').c_str()));
    EXPECT_EQ(theText, "\"" + std::string(60, 'x') + "\"...");
}

TEST(LmLiveTexts, NameEachType)
{
    EXPECT_STREQ(LmTypeName(kTypeSInt32), "32-bit integer");
    EXPECT_STREQ(LmTypeName(kTypeRect), "rectangle");
    EXPECT_STREQ(LmTypeName(static_cast<ValueType>(99)), "a kind of its own");
}

TEST(LmLiveTexts, ReadTheLastNumberOfEachRange)
{
    const std::pair<ValueType, const char*> kLast[] = {{kTypeUInt32, "4294967295"},
                                                       {kTypeSInt32, "2147483647"},
                                                       {kTypeSInt32, "-2147483648"},
                                                       {kTypeSInt64, "9223372036854775807"},
                                                       {kTypeUInt64, "18446744073709551615"}};
    for (const auto& [theType, theText] : kLast) {
        LmValue theValue;
        errno = ERANGE; // left behind by somebody else
        EXPECT_TRUE(LmReadValue(theText, theType, theValue)) << theText;
        EXPECT_EQ(LmShowValue(theValue), theText);
    }
    LmValue theValue;
    const double theMost = std::numeric_limits<float>::max();
    char theText[128];
    std::snprintf(theText, sizeof theText, "(%.17g, %.17g)", -theMost, theMost);
    EXPECT_TRUE(LmReadValue(theText, kTypePoint, theValue));
    EXPECT_EQ(static_cast<double>(theValue.GetPoint().x), -theMost);
    EXPECT_EQ(static_cast<double>(theValue.GetPoint().y), theMost);
    EXPECT_FALSE(LmReadValue("(1, 2) 3x", kTypePoint, theValue));
    EXPECT_FALSE(LmReadValue("(1, 2) x", kTypePoint, theValue));
}

TEST(LmLiveTexts, ReadFullStopsWhateverTheLocaleSays)
{
    struct Commas : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
    };
    const std::locale theOld = std::locale::global(std::locale(std::locale::classic(), new Commas));
    LmValue theValue;
    EXPECT_TRUE(LmReadValue("(1.5, 2)", kTypePoint, theValue));
    EXPECT_EQ(theValue.GetPoint().x, 1.5F);
    std::locale::global(theOld);
}

TEST(LmLiveTexts, CutNoStringThatIsJustLongEnough)
{
    EXPECT_EQ(LmShowValue(MakeText(std::string(60, 'x').c_str())), "\"" + std::string(60, 'x') + "\"");
}
