// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFPropertyListTestSupport.h"

#include <climits>
#include <cmath>

namespace {

// The number, as its type and its value.
std::pair<CFNumberType, SInt64> IntegerIn(const std::string& theText)
{
    const Owned<CFPropertyListRef> theList = ReadContent("<integer>" + theText + "</integer>");
    if (theList == nullptr) {
        return {0, 0};
    }
    const CFNumberRef theNumber = static_cast<CFNumberRef>(static_cast<CFPropertyListRef>(theList));
    SInt64 theValue = 0;
    CFNumberGetValue(theNumber, kCFNumberSInt64Type, &theValue);
    return {CFNumberGetType(theNumber), theValue};
}

using TypeAndValue = std::pair<CFNumberType, SInt64>;

} // namespace

TEST(CFPropertyListXMLLeaves, IntegersHave64BitsUnlessTheyAreSharedOnes)
{
    EXPECT_EQ(IntegerIn("-2"), TypeAndValue(kCFNumberSInt64Type, -2));
    EXPECT_EQ(IntegerIn("-1"), TypeAndValue(kCFNumberSInt32Type, -1));
    EXPECT_EQ(IntegerIn("12"), TypeAndValue(kCFNumberSInt32Type, 12));
    EXPECT_EQ(IntegerIn("13"), TypeAndValue(kCFNumberSInt64Type, 13));
    EXPECT_EQ(IntegerIn("1000"), TypeAndValue(kCFNumberSInt64Type, 1000));
    EXPECT_EQ(IntegerIn("-9223372036854775808"), TypeAndValue(kCFNumberSInt64Type, LLONG_MIN));
    EXPECT_EQ(IntegerIn("9223372036854775808"), TypeAndValue(kCFNumberSInt64Type, LLONG_MIN));
}

TEST(CFPropertyListXMLLeaves, IntegersHaveSignsZerosAndTwoBases)
{
    EXPECT_EQ(IntegerIn("+5").second, 5);
    EXPECT_EQ(IntegerIn("010").second, 10);
    EXPECT_EQ(IntegerIn(" \n\t42").second, 42);
    EXPECT_EQ(IntegerIn("0x1F").second, 31);
    EXPECT_EQ(IntegerIn("-0x1f").second, -31);
}

TEST(CFPropertyListXMLLeaves, TextsThatAreNoIntegersAreErrors)
{
    for (const char* theText :
         {"", "7x", "1.5", "7 ", "--7", "0x", "18446744073709551616", "-9223372036854775809"}) {
        EXPECT_EQ(ContentError(std::string("<integer>") + theText + "</integer>"),
                  "an integer is none, or is too large")
            << theText;
    }
    EXPECT_EQ(ContentError("<integer>" + std::string(1000000, '9') + "</integer>"),
              "an integer is none, or is too large");
    EXPECT_EQ(ContentError("<integer/>"), "an integer is none, or is too large");
}

TEST(CFPropertyListXMLLeaves, RealNumbersAreDoubles)
{
    const std::pair<const char*, double> kRows[] = {
        {"5", 5},          {"1e3", 1000},          {"-0", -0.0},
        {"inf", HUGE_VAL}, {"-INF", -HUGE_VAL},    {"+Infinity", HUGE_VAL},
        {"0.1", 0.1},      {"infinity", HUGE_VAL}, {"-2.5E-1", -0.25}};
    for (const auto& theRow : kRows) {
        EXPECT_TRUE(
            CFEqual(ReadContent(std::string("<real>") + theRow.first + "</real>"), Float(theRow.second)))
            << theRow.first;
    }
    EXPECT_EQ(static_cast<CFPropertyListRef>(ReadContent("<real>NaN</real>")), kCFNumberNaN);
    for (const char* theText : {"", " 5", "5 ", "5x", "0x10", "1e", "infinit", "nan(1)"}) {
        EXPECT_EQ(ContentError(std::string("<real>") + theText + "</real>"), "a real number is none")
            << theText;
    }
}

TEST(CFPropertyListXMLLeaves, DataSkipsWhatIsNoBase64)
{
    EXPECT_TRUE(CFEqual(ReadContent("<data>\n\tAQ ID\n</data>"), Data({1, 2, 3})));
    EXPECT_TRUE(CFEqual(ReadContent("<data>A*QI=</data>"), Data({1, 2})));
    EXPECT_TRUE(CFEqual(ReadContent("<data></data>"), Data({})));
    EXPECT_EQ(ContentError("<data/>"), "data has no content");
}
