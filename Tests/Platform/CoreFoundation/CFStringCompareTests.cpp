// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFTestSupport.h"

namespace {

struct Row
{
    const char* theFirst;
    const char* theSecond;
    CFStringCompareFlags theFlags;
    CFComparisonResult theExpected;
};

void PrintTo(const Row& theRow, std::ostream* theStream)
{
    *theStream << theRow.theFirst << " with " << theRow.theSecond << ", flags " << theRow.theFlags;
}

class CFStringComparison : public testing::TestWithParam<Row>
{
};

const CFStringCompareFlags kIgnoreCase = kCFCompareCaseInsensitive;
const CFStringCompareFlags kNonliteral = kCFCompareNonliteral;
const CFStringCompareFlags kNumbers = kCFCompareNumerically;
const CFStringCompareFlags kLocalized = kCFCompareLocalized;

const Row kRows[] = {
    // Unit by unit.
    {"A", "B", 0, kCFCompareLessThan},
    {"Z", "[", 0, kCFCompareLessThan},
    {"_", "a", 0, kCFCompareLessThan},
    {"B", "a", 0, kCFCompareLessThan},
    {"a", "ab", 0, kCFCompareLessThan},
    {"", "a", 0, kCFCompareLessThan},
    {"", "", 0, kCFCompareEqualTo},
    {"same", "same", 0, kCFCompareEqualTo},
    // Wherever the difference stands in a longer text.
    {"abcdefgh", "abcdefgh", 0, kCFCompareEqualTo},
    {"abcdefghi", "abcdefghi", 0, kCFCompareEqualTo},
    {"abcd", "abcde", 0, kCFCompareLessThan},
    {"abcdefg", "abcdefgh", 0, kCFCompareLessThan},
    {"abcdefgh", "abcdefghi", 0, kCFCompareLessThan},
    {"abcdefgA", "abcdefgB", 0, kCFCompareLessThan},
    {"abcdAzzz", "abcdBaaa", 0, kCFCompareLessThan},
    {"abcdeAzz", "abcdeBaa", 0, kCFCompareLessThan},
    {"abcdefAz", "abcdefBa", 0, kCFCompareLessThan},
    {"abcdefghA", "abcdefghB", 0, kCFCompareLessThan},
    // Units, not bytes, are compared: U+00FF and U+0100.
    {u8"abcdefg\u00FF", u8"abcdefg\u0100", 0, kCFCompareLessThan},
    {u8"abcdefgh\u00FF", u8"abcdefgh\u0100", 0, kCFCompareLessThan},
    {u8"\U0001F600", u8"\uFFFD", 0, kCFCompareLessThan},
    {u8"\u00E9", u8"e\u0301", 0, kCFCompareGreaterThan},
    {u8"\u00E9", "z", 0, kCFCompareGreaterThan},
    // Without case.
    {"a", "A", kIgnoreCase, kCFCompareEqualTo},
    {"Volume", "vOLUME", kIgnoreCase, kCFCompareEqualTo},
    {"B", "a", kIgnoreCase, kCFCompareGreaterThan},
    {u8"\u00E9", u8"\u00C9", kIgnoreCase, kCFCompareEqualTo},
    {u8"\u00DF", "ss", kIgnoreCase, kCFCompareEqualTo},
    {u8"\u00DF", "SS", kIgnoreCase, kCFCompareEqualTo},
    {u8"stra\u00DFe", "STRASSE", kIgnoreCase, kCFCompareEqualTo},
    {u8"\u00DF", "s", kIgnoreCase, kCFCompareGreaterThan},
    {u8"\u03C2", u8"\u03A3", kIgnoreCase, kCFCompareEqualTo},
    {u8"\uFB01", "fi", kIgnoreCase, kCFCompareEqualTo},
    {u8"\u212A", "k", kIgnoreCase, kCFCompareEqualTo},
    {u8"\uFF21", u8"\uFF41", kIgnoreCase, kCFCompareEqualTo},
    {u8"\u0391", u8"\u03B1", kIgnoreCase, kCFCompareEqualTo},
    {"_", "a", kIgnoreCase, kCFCompareLessThan},
    {"_", "A", kIgnoreCase, kCFCompareLessThan},
    {u8"\u00E9", u8"e\u0301", kIgnoreCase, kCFCompareGreaterThan},
    {u8"\u0130", "i", kIgnoreCase, kCFCompareGreaterThan},
    {u8"\U00010400", u8"\U00010428", kIgnoreCase, kCFCompareLessThan},
    {"", "", kIgnoreCase, kCFCompareEqualTo},
    {"", "a", kIgnoreCase, kCFCompareLessThan},
    // Composed or not.
    {u8"\u00E9", u8"e\u0301", kNonliteral, kCFCompareEqualTo},
    {u8"\u00E9", "f", kNonliteral, kCFCompareLessThan},
    {u8"\u1F82", u8"\u03B1\u0313\u0300\u0345", kNonliteral, kCFCompareEqualTo},
    {u8"\uAC01", u8"\u1100\u1161\u11A8", kNonliteral, kCFCompareEqualTo},
    {u8"\u00E9", u8"E\u0301", kNonliteral | kIgnoreCase, kCFCompareEqualTo},
    // By the numbers inside.
    {"img10", "img9", kNumbers, kCFCompareGreaterThan},
    {"img10", "img9", 0, kCFCompareLessThan},
    {"img010", "img10", kNumbers, kCFCompareEqualTo},
    {"a2b", "a2c", kNumbers, kCFCompareLessThan},
    {"12", "12a", kNumbers, kCFCompareLessThan},
    {"99999999999999999999999998", "99999999999999999999999999", kNumbers, kCFCompareLessThan},
    {"IMG10", "img9", kNumbers | kIgnoreCase, kCFCompareGreaterThan},
    // As a person sorts.
    {"a", "A", kLocalized, kCFCompareLessThan},
    {"A", "b", kLocalized, kCFCompareLessThan},
    {u8"\u00E9", "f", kLocalized, kCFCompareLessThan},
    {"e", u8"\u00E9", kLocalized, kCFCompareLessThan},
    {u8"\u00E9a", "eb", kLocalized, kCFCompareLessThan},
    {"a", "A", kLocalized | kIgnoreCase, kCFCompareEqualTo},
};

} // namespace

TEST_P(CFStringComparison, GivesTheOrderBothWays)
{
    const Row& theRow = GetParam();
    const auto theFirst = String(theRow.theFirst);
    const auto theSecond = String(theRow.theSecond);
    EXPECT_EQ(CFStringCompare(theFirst, theSecond, theRow.theFlags), theRow.theExpected);
    EXPECT_EQ(CFStringCompare(theSecond, theFirst, theRow.theFlags), -theRow.theExpected);
}

INSTANTIATE_TEST_SUITE_P(Rows, CFStringComparison, testing::ValuesIn(kRows));

TEST(CFStringCompare, FlagsHaveTheirPublishedValues)
{
    EXPECT_EQ(kCFCompareCaseInsensitive, 1U);
    EXPECT_EQ(kCFCompareBackwards, 4U);
    EXPECT_EQ(kCFCompareAnchored, 8U);
    EXPECT_EQ(kCFCompareNonliteral, 16U);
    EXPECT_EQ(kCFCompareLocalized, 32U);
    EXPECT_EQ(kCFCompareNumerically, 64U);
}

TEST(CFStringCompare, WithOptionsComparesARangeOfTheFirst)
{
    EXPECT_EQ(CFStringCompareWithOptions(CFSTR("xabcx"), CFSTR("abc"), CFRangeMake(1, 3), 0),
              kCFCompareEqualTo);
    EXPECT_EQ(CFStringCompareWithOptions(CFSTR("xabcx"), CFSTR("abc"), CFRangeMake(1, 4), 0),
              kCFCompareGreaterThan);
    EXPECT_EQ(CFStringCompareWithOptions(CFSTR("xabcx"), CFSTR("ABC"), CFRangeMake(1, 3), 1),
              kCFCompareEqualTo);
}

TEST(CFStringCompare, SortsArrays)
{
    const auto theArray = ObjectArray({CFSTR("b"), CFSTR("a"), CFSTR("")});
    CFArraySortValues(theArray, CFRangeMake(0, 3), CompareStrings, nullptr);
    EXPECT_EQ(CFArrayGetValueAtIndex(theArray, 0), CFSTR(""));
    EXPECT_EQ(CFArrayGetValueAtIndex(theArray, 1), CFSTR("a"));
    EXPECT_EQ(CFArrayGetValueAtIndex(theArray, 2), CFSTR("b"));
}

TEST(CFStringCompare, AnEmptyPrefixOrSuffixIsNoneOnPurpose)
{
    EXPECT_FALSE(CFStringHasPrefix(CFSTR("text"), CFSTR("")));
    EXPECT_FALSE(CFStringHasPrefix(CFSTR(""), CFSTR("")));
    EXPECT_FALSE(CFStringHasSuffix(CFSTR("text"), CFSTR("")));
    EXPECT_FALSE(CFStringHasSuffix(CFSTR(""), CFSTR("")));
}

TEST(CFStringCompare, PrefixesAndSuffixesAreLiteral)
{
    EXPECT_TRUE(CFStringHasPrefix(CFSTR("text"), CFSTR("te")));
    EXPECT_TRUE(CFStringHasPrefix(CFSTR("text"), CFSTR("text")));
    EXPECT_FALSE(CFStringHasPrefix(CFSTR("text"), CFSTR("Te")));
    EXPECT_FALSE(CFStringHasPrefix(CFSTR("te"), CFSTR("text")));
    EXPECT_TRUE(CFStringHasSuffix(CFSTR("text"), CFSTR("xt")));
    EXPECT_FALSE(CFStringHasSuffix(CFSTR("text"), CFSTR("XT")));
    EXPECT_FALSE(CFStringHasSuffix(CFSTR("xt"), CFSTR("text")));
    EXPECT_FALSE(CFStringHasPrefix(String(u8"\u00E9"), String(u8"e\u0301")));
}

namespace {

struct FindRow
{
    const char* theText;
    const char* theWanted;
    CFStringCompareFlags theFlags;
    CFIndex theLocation;
    CFIndex theLength;
};

void PrintTo(const FindRow& theRow, std::ostream* theStream)
{
    *theStream << theRow.theWanted << " in " << theRow.theText << ", flags " << theRow.theFlags;
}

class CFStringSearch : public testing::TestWithParam<FindRow>
{
};

const FindRow kFindRows[] = {
    {"abcabc", "bc", 0, 1, 2},
    {"abcabc", "bc", kCFCompareBackwards, 4, 2},
    {"abcabc", "x", 0, kCFNotFound, 0},
    {"abcabc", "", 0, kCFNotFound, 0},
    {"", "a", 0, kCFNotFound, 0},
    {"abc", "abcd", 0, kCFNotFound, 0},
    {"abcabc", "abc", kCFCompareAnchored, 0, 3},
    {"abcabc", "bc", kCFCompareAnchored, kCFNotFound, 0},
    {"abcabc", "bc", kCFCompareAnchored | kCFCompareBackwards, 4, 2},
    {"abcabc", "ab", kCFCompareAnchored | kCFCompareBackwards, kCFNotFound, 0},
    {"xABC", "abc", kCFCompareCaseInsensitive, 1, 3},
    {"xABC", "abc", 0, kCFNotFound, 0},
    {"STRASSE", u8"\u00DF", kCFCompareCaseInsensitive, 4, 2},
    {u8"stra\u00DFe", "SS", kCFCompareCaseInsensitive, 4, 1},
    {u8"stra\u00DFe", "as", kCFCompareCaseInsensitive, kCFNotFound, 0},
    {u8"cafe\u0301!", u8"\u00E9", kCFCompareNonliteral, 3, 2},
    {"aaa", "aa", 0, 0, 2},
    {"aaa", "aa", kCFCompareBackwards, 1, 2},
};

} // namespace

TEST_P(CFStringSearch, FindsThePlace)
{
    const FindRow& theRow = GetParam();
    const CFRange theFound = CFStringFind(String(theRow.theText), String(theRow.theWanted), theRow.theFlags);
    EXPECT_EQ(theFound.location, theRow.theLocation);
    EXPECT_EQ(theFound.length, theRow.theLength);
}

INSTANTIATE_TEST_SUITE_P(Rows, CFStringSearch, testing::ValuesIn(kFindRows));

TEST(CFStringFind, WithOptionsLooksInsideARange)
{
    CFRange theFound = CFRangeMake(77, 77);
    EXPECT_FALSE(CFStringFindWithOptions(CFSTR("abcabc"), CFSTR("abc"), CFRangeMake(1, 4), 0, &theFound));
    EXPECT_EQ(theFound.location, 77);
    EXPECT_TRUE(CFStringFindWithOptions(CFSTR("abcabc"), CFSTR("abc"), CFRangeMake(1, 5), 0, &theFound));
    EXPECT_EQ(theFound.location, 3);
    EXPECT_EQ(theFound.length, 3);
    EXPECT_TRUE(CFStringFindWithOptions(CFSTR("abcabc"), CFSTR("abc"), CFRangeMake(0, 1000), 0, nullptr));
}
