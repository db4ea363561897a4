// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFTestSupport.h"

#include <clocale>
#include <cmath>

namespace {

CFStringRef ConstantFromElsewhere()
{
    return CFSTR("the same literal");
}

SInt32 IntValue(const std::string& theText)
{
    return CFStringGetIntValue(String(theText));
}

double DoubleValue(const std::string& theText)
{
    return CFStringGetDoubleValue(String(theText));
}

std::vector<std::string> Split(const char* theText, const char* theSeparator)
{
    const Owned<CFArrayRef> theParts(
        CFStringCreateArrayBySeparatingStrings(nullptr, String(theText), String(theSeparator)));
    std::vector<std::string> theTexts;
    for (CFIndex theIndex = 0; theIndex < CFArrayGetCount(theParts); ++theIndex) {
        theTexts.push_back(TextOf(static_cast<CFStringRef>(CFArrayGetValueAtIndex(theParts, theIndex))));
    }
    return theTexts;
}

} // namespace

TEST(CFString, EqualLiteralsAreOneObject)
{
    EXPECT_EQ(CFSTR("the same literal"), ConstantFromElsewhere());
    EXPECT_NE(CFSTR("the same literal"), CFSTR("another literal"));
    EXPECT_EQ(TextOf(ConstantFromElsewhere()), "the same literal");
}

TEST(CFString, LengthsCountUnits)
{
    EXPECT_EQ(CFStringGetLength(CFSTR("")), 0);
    EXPECT_EQ(CFStringGetLength(String(u8"caf\u00E9!")), 5);
    EXPECT_EQ(CFStringGetLength(String(u8"a\U0001F600z")), 4);
    EXPECT_EQ(UnitsOf(String(u8"a\U0001F600z")), (Units{'a', 0xD83D, 0xDE00, 'z'}));
}

TEST(CFString, ZeroCharactersAreCharacters)
{
    const auto theString = String(std::string("a\0b", 3));
    EXPECT_EQ(CFStringGetLength(theString), 3);
    EXPECT_EQ(CFStringGetCharacterAtIndex(theString, 1), 0);
    EXPECT_EQ(CFStringGetCharacterAtIndex(theString, 2), 'b');
}

TEST(CFString, CharactersOutsideAreZero)
{
    EXPECT_EQ(CFStringGetCharacterAtIndex(CFSTR("abc"), -1), 0);
    EXPECT_EQ(CFStringGetCharacterAtIndex(CFSTR("abc"), 3), 0);
}

TEST(CFString, EmptyImmutableStringsAreOneObject)
{
    const Owned<CFStringRef> theFirst(CFStringCreateWithCString(nullptr, "", kCFStringEncodingUTF8));
    const Owned<CFStringRef> theSecond(CFStringCreateWithCharacters(nullptr, nullptr, 0));
    EXPECT_EQ(static_cast<CFStringRef>(theFirst), static_cast<CFStringRef>(theSecond));
    EXPECT_GT(CFGetRetainCount(theFirst), 2000000000);
}

TEST(CFString, CopiesOfImmutableStringsAreTheSameObject)
{
    const auto theString = String("text");
    const Owned<CFStringRef> theCopy(CFStringCreateCopy(nullptr, theString));
    EXPECT_EQ(static_cast<CFStringRef>(theCopy), static_cast<CFStringRef>(theString));
    EXPECT_EQ(CFGetRetainCount(theString), 2);
    EXPECT_EQ(CFStringCreateCopy(nullptr, CFSTR("constant")), CFSTR("constant"));
}

TEST(CFString, CopiesOfMutableStringsAreSnapshots)
{
    const auto theString = MutableString("text");
    const Owned<CFStringRef> theCopy(CFStringCreateCopy(nullptr, theString));
    CFStringAppend(theString, CFSTR(" changed"));
    EXPECT_EQ(TextOf(theCopy), "text");
    EXPECT_EQ(CFGetRetainCount(theCopy), 1);
}

TEST(CFString, MutableCopiesAreObjectsOfTheirOwn)
{
    const auto theString = String("text");
    const Owned<CFMutableStringRef> theCopy(CFStringCreateMutableCopy(nullptr, 0, theString));
    EXPECT_EQ(CFGetRetainCount(theCopy), 1);
    EXPECT_EQ(CFGetRetainCount(theString), 1);
    EXPECT_TRUE(CFEqual(theCopy, theString));
    CFStringAppend(theCopy, CFSTR("!"));
    EXPECT_EQ(TextOf(theString), "text");
}

TEST(CFString, TheMaximumLengthLimitsNothingOnPurpose)
{
    const Owned<CFMutableStringRef> theCopy(CFStringCreateMutableCopy(nullptr, 3, CFSTR("hello")));
    EXPECT_EQ(TextOf(theCopy), "hello");
    CFStringAppend(theCopy, CFSTR(" there"));
    EXPECT_EQ(TextOf(theCopy), "hello there");
    const Owned<CFMutableStringRef> theEmpty(CFStringCreateMutable(nullptr, 1));
    EXPECT_EQ(CFStringGetLength(theEmpty), 0);
}

TEST(CFString, SubstringsAreCutAtTheEnds)
{
    EXPECT_EQ(TextOf(Owned(CFStringCreateWithSubstring(nullptr, CFSTR("hello"), CFRangeMake(1, 3)))), "ell");
    EXPECT_EQ(TextOf(Owned(CFStringCreateWithSubstring(nullptr, CFSTR("hello"), CFRangeMake(3, 100)))), "lo");
    EXPECT_EQ(TextOf(Owned(CFStringCreateWithSubstring(nullptr, CFSTR("hello"), CFRangeMake(100, 3)))), "");
    EXPECT_EQ(TextOf(Owned(CFStringCreateWithSubstring(nullptr, CFSTR("hello"), CFRangeMake(-5, -5)))), "");
}

TEST(CFString, TheWholeOfAnImmutableStringIsTheSameObject)
{
    const auto theString = String("text");
    const Owned<CFStringRef> theWhole(CFStringCreateWithSubstring(nullptr, theString, CFRangeMake(0, 4)));
    EXPECT_EQ(static_cast<CFStringRef>(theWhole), static_cast<CFStringRef>(theString));
    EXPECT_EQ(CFGetRetainCount(theString), 2);
}

TEST(CFString, LoneHalvesOfPairsAreKept)
{
    EXPECT_EQ(UnitsOf(String(Units{0xDC00, 'a', 0xD800})), (Units{0xDC00, 'a', 0xD800}));
}

TEST(CFString, JoiningPutsTheSeparatorBetween)
{
    const auto theParts = ObjectArray({CFSTR("a"), CFSTR(""), CFSTR("b")});
    EXPECT_EQ(TextOf(Owned(CFStringCreateByCombiningStrings(nullptr, theParts, CFSTR(", ")))), "a, , b");
    EXPECT_EQ(TextOf(Owned(CFStringCreateByCombiningStrings(nullptr, ObjectArray({}), CFSTR(", ")))), "");
}

TEST(CFString, SplittingGivesOnePartMoreThanSeparators)
{
    EXPECT_EQ(Split("a,b,,c", ","), (std::vector<std::string>{"a", "b", "", "c"}));
    EXPECT_EQ(Split("", ","), (std::vector<std::string>{""}));
    EXPECT_EQ(Split("abc", ","), (std::vector<std::string>{"abc"}));
    EXPECT_EQ(Split(",", ","), (std::vector<std::string>{"", ""}));
    EXPECT_EQ(Split("a--b", "--"), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(Split("abc", ""), (std::vector<std::string>{"abc"}));
}

TEST(CFString, IntegersAreReadFromTheStart)
{
    const std::pair<const char*, SInt32> kRows[] = {{"42abc", 42},
                                                    {"- 7", -7},
                                                    {"--7", 0},
                                                    {"1e3", 1},
                                                    {"0x10", 0},
                                                    {"010", 10},
                                                    {"1.5", 1},
                                                    {"", 0},
                                                    {"abc", 0},
                                                    {"+5", 5},
                                                    {" \t\n42", 42},
                                                    {u8"\u00A042", 42},
                                                    {"2147483647", 2147483647},
                                                    {"2147483648", 2147483647},
                                                    {"-2147483648", -2147483647 - 1},
                                                    {"-2147483649", -2147483647 - 1},
                                                    {"99999999999999999999999999", 2147483647},
                                                    {"-99999999999999999999999999", -2147483647 - 1},
                                                    {"-", 0}};
    for (const auto& theRow : kRows) {
        EXPECT_EQ(IntValue(theRow.first), theRow.second) << theRow.first;
    }
}

TEST(CFString, DoublesAreReadFromTheStart)
{
    const std::pair<const char*, double> kRows[] = {
        {"1e3", 1000},    {".5", 0.5}, {"5.", 5},     {"- 7", 0},      {"1e", 1},
        {"1e+", 1},       {"0x10", 0}, {"inf", 0},    {"nan", 0},      {"1e400", HUGE_VAL},
        {"1e-400", 0},    {"", 0},     {".", 0},      {"-2.5x", -2.5}, {" \t1.25", 1.25},
        {"-1E-2", -0.01}, {"+3", 3},   {"1.5.5", 1.5}};
    for (const auto& theRow : kRows) {
        EXPECT_EQ(DoubleValue(theRow.first), theRow.second) << theRow.first;
    }
}

TEST(CFString, AppendingAddsAtTheEnd)
{
    const auto theString = MutableString("ab");
    CFStringAppend(theString, CFSTR("cd"));
    const UniChar theUnits[] = {0xD83D};
    CFStringAppendCharacters(theString, theUnits, 1);
    const UniChar theOtherUnits[] = {0xDE00, 'e'};
    CFStringAppendCharacters(theString, theOtherUnits, 2);
    CFStringAppendCharacters(theString, nullptr, 0);
    EXPECT_EQ(TextOf(theString), u8"abcd\U0001F600e");
}

TEST(CFString, AppendingAStringToItselfDoublesIt)
{
    const auto theString = MutableString("abc");
    CFStringAppend(theString, theString);
    CFStringAppend(theString, theString);
    EXPECT_EQ(TextOf(theString), "abcabcabcabc");
}

TEST(CFString, AppendingBytesThatAreNoTextChangesNothing)
{
    const unsigned char thePascalString[] = {3, 'x', 'y', 0x8E};
    const auto theString = MutableString("ab");
    CFStringAppendCString(theString, "\xFF", kCFStringEncodingUTF8);
    CFStringAppendPascalString(theString, thePascalString, kCFStringEncodingUTF8);
    CFStringAppendCString(theString, "cd", 0x1234);
    EXPECT_EQ(TextOf(theString), "ab");
    CFStringAppendCString(theString, "cd", kCFStringEncodingUTF8);
    CFStringAppendPascalString(theString, thePascalString, kCFStringEncodingMacRoman);
    EXPECT_EQ(TextOf(theString), u8"abcdxy\u00E9");
}

TEST(CFString, InsertingDeletingAndReplacingWorkOnRanges)
{
    const auto theString = MutableString("hello");
    CFStringInsert(theString, 0, CFSTR(">"));
    CFStringInsert(theString, 6, CFSTR("<"));
    EXPECT_EQ(TextOf(theString), ">hello<");
    CFStringDelete(theString, CFRangeMake(1, 2));
    EXPECT_EQ(TextOf(theString), ">llo<");
    CFStringReplace(theString, CFRangeMake(1, 3), CFSTR("ABCD"));
    EXPECT_EQ(TextOf(theString), ">ABCD<");
    CFStringReplace(theString, CFRangeMake(1, 1), theString);
    EXPECT_EQ(TextOf(theString), ">>ABCD<BCD<");
    CFStringDelete(theString, CFRangeMake(2, 1000));
    EXPECT_EQ(TextOf(theString), ">>");
    CFStringReplaceAll(theString, CFSTR("new"));
    EXPECT_EQ(TextOf(theString), "new");
}

TEST(CFString, FindAndReplaceCountsItsPlaces)
{
    const auto theString = MutableString("new");
    EXPECT_EQ(CFStringFindAndReplace(theString, CFSTR("e"), CFSTR("EE"), WholeOf(theString), 0), 1);
    EXPECT_EQ(TextOf(theString), "nEEw");
    EXPECT_EQ(CFStringFindAndReplace(theString, CFSTR("e"), CFSTR(""), WholeOf(theString),
                                     kCFCompareCaseInsensitive),
              2);
    EXPECT_EQ(TextOf(theString), "nw");
    EXPECT_EQ(CFStringFindAndReplace(theString, CFSTR(""), CFSTR("x"), WholeOf(theString), 0), 0);
    const auto theOther = MutableString("a.a.a.a");
    EXPECT_EQ(CFStringFindAndReplace(theOther, CFSTR("a"), CFSTR("aa"), CFRangeMake(1, 5), 0), 2);
    EXPECT_EQ(TextOf(theOther), "a.aa.aa.a");
    EXPECT_EQ(
        CFStringFindAndReplace(theOther, CFSTR("a"), CFSTR("b"), CFRangeMake(0, 7), kCFCompareBackwards), 5);
    EXPECT_EQ(TextOf(theOther), "b.bb.bb.a");
    EXPECT_EQ(CFStringFindAndReplace(theOther, CFSTR("."), theOther, WholeOf(theOther), 0), 3);
    EXPECT_EQ(TextOf(theOther), "bb.bb.bb.abbb.bb.bb.abbb.bb.bb.aa");
}

TEST(CFString, DirectAccessIsOptional)
{
    const auto theString = String("text");
    EXPECT_EQ(CFStringGetCStringPtr(theString, kCFStringEncodingUTF8), nullptr);
    EXPECT_EQ(CFStringGetCStringPtr(theString, kCFStringEncodingMacRoman), nullptr);
    EXPECT_EQ(CFStringGetPascalStringPtr(theString, kCFStringEncodingMacRoman), nullptr);
    const UniChar* const theUnits = CFStringGetCharactersPtr(theString);
    ASSERT_NE(theUnits, nullptr);
    EXPECT_EQ(Units(theUnits, theUnits + 4), (Units{'t', 'e', 'x', 't'}));
}

TEST(CFString, ConstantsInASCIIHaveACString)
{
    EXPECT_STREQ(CFStringGetCStringPtr(CFSTR("constant"), kCFStringEncodingMacRoman), "constant");
    EXPECT_STREQ(CFStringGetCStringPtr(CFSTR(""), kCFStringEncodingMacRoman), "");
    EXPECT_EQ(CFStringGetCStringPtr(CFSTR("constant"), kCFStringEncodingUTF8), nullptr);
    EXPECT_EQ(CFStringGetCStringPtr(CFSTR("constant"), kCFStringEncodingUTF16), nullptr);
    EXPECT_EQ(CFStringGetCStringPtr(CFSTR("caf\xE9"), kCFStringEncodingMacRoman), nullptr);
}

TEST(CFString, GetCharactersCopiesARange)
{
    UniChar theUnits[4] = {9, 9, 9, 9};
    CFStringGetCharacters(CFSTR("hello"), CFRangeMake(1, 2), theUnits);
    EXPECT_EQ(Units(theUnits, theUnits + 4), (Units{'e', 'l', 9, 9}));
    CFStringGetCharacters(CFSTR("hello"), CFRangeMake(4, 3), theUnits);
    EXPECT_EQ(Units(theUnits, theUnits + 4), (Units{'o', 'l', 9, 9}));
}

TEST(CFString, PaddingFillsOrCuts)
{
    const struct Row
    {
        const char* theText;
        CFStringRef thePad;
        CFIndex theLength;
        CFIndex theIndex;
        const char* theExpected;
    } kRows[] = {
        {"abc", CFSTR(" "), 6, 0, "abc   "},  {"abc", CFSTR(". "), 8, 1, "abc . . "},
        {"abc", CFSTR("xyz"), 5, 2, "abczx"}, {"abc", CFSTR("xyz"), 5, 7, "abcyz"},
        {"abc", CFSTR(" "), 2, 0, "ab"},      {"abc", nullptr, 2, 0, "ab"},
        {"abc", nullptr, 5, 0, "abc"},        {"abc", CFSTR(""), 5, 0, "abc"},
        {"abc", CFSTR(" "), 3, 0, "abc"},     {"abc", CFSTR(" "), -1, 0, ""},
        {"", CFSTR("ab"), 3, 0, "aba"},       {"abc", CFSTR("x"), 5, -1, "abc"},
    };
    for (const Row& theRow : kRows) {
        const auto theString = MutableString(theRow.theText);
        CFStringPad(theString, theRow.thePad, theRow.theLength, theRow.theIndex);
        EXPECT_EQ(TextOf(theString), theRow.theExpected);
    }
    const auto theString = MutableString("ab");
    CFStringPad(theString, theString, 5, 1);
    EXPECT_EQ(TextOf(theString), "abbab");
}

TEST(CFString, TheHalvesOfSurrogatePairsAreTold)
{
    const struct
    {
        UniChar theUnit;
        bool theIsHigh;
        bool theIsLow;
    } kRows[] = {{0x0041, false, false}, {0xD7FF, false, false}, {0xD800, true, false}, {0xDBFF, true, false},
                 {0xDC00, false, true},  {0xDFFF, false, true},  {0xE000, false, false}};
    for (const auto& theRow : kRows) {
        EXPECT_EQ(CFStringIsSurrogateHighCharacter(theRow.theUnit), theRow.theIsHigh) << theRow.theUnit;
        EXPECT_EQ(CFStringIsSurrogateLowCharacter(theRow.theUnit), theRow.theIsLow) << theRow.theUnit;
    }
}

TEST(CFString, ACharacterBeyondOneUnitIsASurrogatePair)
{
    for (const UTF32Char theCharacter : {0x10000U, 0x103FFU, 0x10400U, 0x1F600U, 0x10FFFFU}) {
        UniChar theUnits[] = {0, 0};
        EXPECT_TRUE(CFStringGetSurrogatePairForLongCharacter(theCharacter, theUnits));
        EXPECT_TRUE(CFStringIsSurrogateHighCharacter(theUnits[0])) << theCharacter;
        EXPECT_TRUE(CFStringIsSurrogateLowCharacter(theUnits[1])) << theCharacter;
        EXPECT_EQ(CFStringGetLongCharacterForSurrogatePair(theUnits[0], theUnits[1]), theCharacter);
    }
    UniChar theUnits[] = {7, 7};
    EXPECT_FALSE(CFStringGetSurrogatePairForLongCharacter('a', theUnits));
    EXPECT_EQ(Units(theUnits, theUnits + 2), (Units{'a', 7}));
    EXPECT_FALSE(CFStringGetSurrogatePairForLongCharacter(0x110000, theUnits));
    EXPECT_EQ(Units(theUnits, theUnits + 2), (Units{'a', 7}));
}
