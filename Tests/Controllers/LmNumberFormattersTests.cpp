// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmNumberFormatters.h"

#include "FormatterTestSupport.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace {

constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kGreatest = std::numeric_limits<std::int64_t>::max();
constexpr std::uint64_t kGreatestUnsigned = std::numeric_limits<std::uint64_t>::max();
const char* const kNoNumber = "This is not a number.";
const char* const kTooManyPlaces = "The number has more places than are kept.";

LmValue Big(std::int64_t theNumber)
{
    return LmValue(static_cast<long long>(theNumber));
}

// Numbers of all lengths, and those at the ends.
std::vector<std::int64_t> Numbers(std::mt19937& theRandom)
{
    std::vector<std::int64_t> theNumbers = {0,
                                            1,
                                            -1,
                                            9,
                                            10,
                                            99,
                                            100,
                                            999,
                                            1000,
                                            -1000,
                                            9999,
                                            10000,
                                            999999,
                                            1000000,
                                            9007199254740993,
                                            -9007199254740993,
                                            kGreatest,
                                            kGreatest - 1,
                                            kLeast,
                                            kLeast + 1};
    for (int theCount = 0; theCount < 150; ++theCount) {
        const std::uint64_t theBits = std::uint64_t{theRandom()} << 32 | theRandom();
        theNumbers.push_back(static_cast<std::int64_t>(theBits) >> (theRandom() % 64));
    }
    return theNumbers;
}

void ExpectNumbersGoThereAndBack(const LmFormatter& theFormatter, const char* theLocale,
                                 std::mt19937& theRandom)
{
    for (const std::int64_t theNumber : Numbers(theRandom)) {
        const LmValue theBack = ThereAndBack(theFormatter, Big(theNumber));
        ASSERT_TRUE(theBack.IsNumber()) << theLocale << " " << Formatted(theFormatter, Big(theNumber));
        ASSERT_EQ(theBack.GetSInt64(), theNumber)
            << theLocale << " " << Formatted(theFormatter, Big(theNumber));
    }
}

} // namespace

TEST(LmIntegerFormatter, WritesAndReadsWholeNumbers)
{
    const TestLocale theEnglish("en_US");
    const LmIntegerFormatter theFormatter(-5000, 5000, theEnglish);
    EXPECT_EQ(Formatted(theFormatter, LmValue(-1234)), "-1,234");
    EXPECT_EQ(Formatted(theFormatter, LmValue(0)), "0");
    EXPECT_EQ(Parsed(theFormatter, "1,234"), "SInt32 1234");
    EXPECT_EQ(Parsed(theFormatter, "1234"), "SInt32 1234");
    EXPECT_EQ(Parsed(theFormatter, " -7\t"), "SInt32 -7");
    EXPECT_EQ(Parsed(theFormatter, "\xE2\x88\x92"
                                   "7"),
              "SInt32 -7");
    EXPECT_EQ(Parsed(theFormatter, "-0"), "SInt32 0");
    EXPECT_EQ(Parsed(theFormatter, "007"), "SInt32 7");
    EXPECT_EQ(Parsed(theFormatter, "7.00"), "SInt32 7");
}

TEST(LmIntegerFormatter, GuessesNothing)
{
    const TestLocale theEnglish("en_US");
    const LmIntegerFormatter theFormatter(-5000000, 5000000, theEnglish);
    for (const char* const theText :
         {"",       " ",        "-",   "+",     ".",      ",",    "x",    "12x",
          "x12",    "1 2",      "1,5", "12,34", "1,2345", ",123", "123,", "1,,234",
          "1,234,", "0,123,45", "--1", "1-",    "1e3",    "0x10", "1.2.3"}) {
        EXPECT_EQ(Parsed(theFormatter, theText), kNoNumber) << theText;
    }
    EXPECT_EQ(Parsed(theFormatter, "1.5"), kTooManyPlaces);
    EXPECT_EQ(Parsed(theFormatter, std::string("1\0", 2)), kNoNumber);
}

TEST(LmIntegerFormatter, TellsItsRange)
{
    const TestLocale theEnglish("en_US");
    const LmIntegerFormatter theFormatter(-5, 5000, theEnglish);
    const char* const kProblem = "The number must be between -5 and 5,000.";
    EXPECT_EQ(Parsed(theFormatter, "-5"), "SInt32 -5");
    EXPECT_EQ(Parsed(theFormatter, "5000"), "SInt32 5000");
    for (const char* const theText : {"-6", "5001", "18446744073709551616", "-9223372036854775809",
                                      "18446744073709551615", "99999999999999999999999999999999"}) {
        EXPECT_EQ(Parsed(theFormatter, theText), kProblem) << theText;
    }
    EXPECT_EQ(Formatted(theFormatter, LmValue(1000000)), "1,000,000");
}

TEST(LmIntegerFormatter, ItsKindFollowsFromItsRange)
{
    const TestLocale theEnglish("en_US");
    EXPECT_EQ(Parsed(LmIntegerFormatter(), "1"), "SInt32 1");
    EXPECT_EQ(Parsed(LmIntegerFormatter(0, 2147483648LL, theEnglish), "1"), "SInt64 1");
    EXPECT_EQ(Parsed(LmIntegerFormatter(-2147483649LL, 0, theEnglish), "0"), "SInt64 0");
    EXPECT_EQ(Parsed(LmUnsignedFormatter(), "1"), "UInt32 1");
    EXPECT_EQ(Parsed(LmUnsignedFormatter(0, 4294967296ULL, theEnglish), "1"), "UInt64 1");
}

TEST(LmIntegerFormatter, WritesEachKindOfWholeNumber)
{
    const TestLocale theEnglish("en_US");
    const LmIntegerFormatter theFormatter(0, 9, theEnglish);
    EXPECT_EQ(Formatted(theFormatter, LmValue(true)), "1");
    EXPECT_EQ(Formatted(theFormatter, LmValue(4294967295U)), "4,294,967,295");
    EXPECT_EQ(Formatted(theFormatter, LmValue(18446744073709551615ULL)), "18,446,744,073,709,551,615");
    EXPECT_EQ(Formatted(theFormatter, LmValue(-3.0)), "-3");
    for (const double theNumber :
         {0.5, -0.5, std::nan(""), HUGE_VAL, -HUGE_VAL, 1e300, 18446744073709551616.0, -1e19}) {
        EXPECT_EQ(Formatted(theFormatter, LmValue(theNumber)), "-") << theNumber;
    }
    EXPECT_EQ(Formatted(theFormatter, LmValue()), "-");
    EXPECT_EQ(Formatted(theFormatter, TextValue("5")), "-");
}

TEST(LmUnsignedFormatter, HasNoSign)
{
    const TestLocale theEnglish("en_US");
    const LmUnsignedFormatter theFormatter(1, kGreatestUnsigned, theEnglish);
    EXPECT_EQ(Parsed(theFormatter, "18,446,744,073,709,551,615"), "UInt64 18446744073709551615");
    EXPECT_EQ(Parsed(theFormatter, "-1"), "The number must be between 1 and 18,446,744,073,709,551,615.");
    EXPECT_EQ(Parsed(LmUnsignedFormatter(), "-0"), "UInt32 0");
}

TEST(LmDecimalFormatter, KeepsPlacesInWholeNumbers)
{
    const TestLocale theEnglish("en_US");
    const LmDecimalFormatter theFormatter(2, -1000000, 1000000, theEnglish);
    EXPECT_EQ(Formatted(theFormatter, LmValue(4250)), "42.50");
    EXPECT_EQ(Formatted(theFormatter, LmValue(-5)), "-0.05");
    EXPECT_EQ(Formatted(theFormatter, LmValue(123456)), "1,234.56");
    EXPECT_EQ(Parsed(theFormatter, "42.5"), "SInt32 4250");
    EXPECT_EQ(Parsed(theFormatter, "42."), "SInt32 4200");
    EXPECT_EQ(Parsed(theFormatter, ".5"), "SInt32 50");
    EXPECT_EQ(Parsed(theFormatter, "42.500"), "SInt32 4250");
    EXPECT_EQ(Parsed(theFormatter, "42.505"), kTooManyPlaces);
    EXPECT_EQ(Parsed(theFormatter, "10000.01"), "The number must be between -10,000.00 and 10,000.00.");
    EXPECT_NE(Parsed(theFormatter, "42.00"), Parsed(theFormatter, "42.50"));
    EXPECT_FALSE(LmValue(4200) == LmValue(4250));
}

TEST(LmDecimalFormatter, HasNoMoreThanEighteenPlaces)
{
    const TestLocale theEnglish("en_US");
    EXPECT_EQ(Formatted(LmDecimalFormatter(4000000000U, 0, 9, theEnglish), LmValue(1)),
              "0.000000000000000001");
    EXPECT_EQ(Formatted(LmDecimalFormatter(100, 0, 9, theEnglish), LmValue(1)), "0.000000000000000001");
    EXPECT_EQ(Formatted(LmDecimalFormatter(0, 0, 9, theEnglish), LmValue(1)), "1");
}

TEST(LmPercentFormatter, ReadsWithTheSignOrWithout)
{
    const TestLocale theEnglish("en_US");
    const LmPercentFormatter theFormatter(1, -1000, 1000, theEnglish);
    EXPECT_EQ(Formatted(theFormatter, LmValue(125)), "12.5%");
    EXPECT_EQ(Parsed(theFormatter, "12.5%"), "SInt32 125");
    EXPECT_EQ(Parsed(theFormatter, "12.5 %"), "SInt32 125");
    EXPECT_EQ(Parsed(theFormatter, "-12.5"), "SInt32 -125");
    EXPECT_EQ(Parsed(theFormatter, "%"), kNoNumber);
    EXPECT_EQ(Parsed(theFormatter, "5%%"), kNoNumber);
}

TEST(LmCurrencyFormatter, CountsTheSmallestUnits)
{
    const TestLocale theEnglish("en_US");
    const LmCurrencyFormatter theFormatter(nullptr, -100000, 100000, theEnglish);
    EXPECT_EQ(Formatted(theFormatter, LmValue(4250)), "$42.50");
    EXPECT_EQ(Formatted(theFormatter, LmValue(-4250)), "($42.50)");
    for (const char* const theText : {"$42.50", "42.50", "42.5", "$ 42.50", " $42.50 "}) {
        EXPECT_EQ(Parsed(theFormatter, theText), "SInt32 4250") << theText;
    }
    for (const char* const theText : {"($42.50)", "-42.50", "-$42.50"}) {
        EXPECT_EQ(Parsed(theFormatter, theText), "SInt32 -4250") << theText;
    }
    for (const char* const theText : {"$", "($5", "$5)", "$$5", u8"\u20AC5"}) {
        EXPECT_EQ(Parsed(theFormatter, theText), kNoNumber) << theText;
    }
    EXPECT_EQ(Formatted(theFormatter, LmValue(100000)), "$1,000.00");
    const LmCurrencyFormatter theYen(CFSTR("JPY"), 0, 100000, theEnglish);
    EXPECT_EQ(Parsed(theYen, "4,250"), "SInt32 4250");
    EXPECT_EQ(Parsed(theYen, "1.5"), kTooManyPlaces);
}

TEST(LmNumberFormatters, ReadWhatTheyWriteOverTheWholeRange)
{
    std::mt19937 theRandom(20040429);
    for (const char* const theName : kTestLocales) {
        const TestLocale theLocale(theName);
        ExpectNumbersGoThereAndBack(LmIntegerFormatter(kLeast, kGreatest, theLocale), theName, theRandom);
        ExpectNumbersGoThereAndBack(
            LmDecimalFormatter(static_cast<unsigned>(theRandom() % 19), kLeast, kGreatest, theLocale),
            theName, theRandom);
        ExpectNumbersGoThereAndBack(LmPercentFormatter(2, kLeast, kGreatest, theLocale), theName, theRandom);
        ExpectNumbersGoThereAndBack(LmCurrencyFormatter(nullptr, kLeast, kGreatest, theLocale), theName,
                                    theRandom);
        ExpectNumbersGoThereAndBack(LmCurrencyFormatter(CFSTR("EUR"), kLeast, kGreatest, theLocale), theName,
                                    theRandom);
        const LmUnsignedFormatter theUnsigned(0, kGreatestUnsigned, theLocale);
        for (const std::int64_t theNumber : Numbers(theRandom)) {
            const LmValue theValue(static_cast<unsigned long long>(theNumber));
            ASSERT_EQ(ThereAndBack(theUnsigned, theValue).GetUInt64(), theValue.GetUInt64()) << theName;
        }
    }
}

TEST(LmNumberFormatters, ReadAnyTextOrRefuseIt)
{
    std::mt19937 theRandom(20040430);
    const std::u16string kAlphabet = u"0123456789.,-+()$% '\u00A0\u202F\u2212\u0660\u06F1\u221E\u200F\xD835";
    for (const char* const theName : kTestLocales) {
        const TestLocale theLocale(theName);
        const LmCurrencyFormatter theFormatter(nullptr, kLeast, kGreatest, theLocale);
        for (int theCount = 0; theCount < 500; ++theCount) {
            std::vector<UniChar> theUnits(theRandom() % 10);
            for (UniChar& theUnit : theUnits) {
                theUnit = kAlphabet[theRandom() % kAlphabet.size()];
            }
            const LmValue theText(
                CFStringCreateWithCharacters(nullptr, theUnits.data(), static_cast<CFIndex>(theUnits.size())),
                true);
            const LmReading theReading = theFormatter.Parse(theText.GetString());
            EXPECT_NE(theReading.IsAccepted(), theReading.theProblem.IsString());
            if (theReading.IsAccepted()) {
                EXPECT_EQ(ThereAndBack(theFormatter, theReading.theValue).GetSInt64(),
                          theReading.theValue.GetSInt64());
            }
        }
    }
    EXPECT_EQ(Parsed(LmIntegerFormatter(), std::string(100000, '9')).substr(0, 10), "The number");
    EXPECT_EQ(Parsed(LmIntegerFormatter(), std::string(100000, ',')), kNoNumber);
}

TEST(LmNumberFormatters, BoundsTheWrongWayRoundAreExchanged)
{
    EXPECT_EQ(Parsed(LmIntegerFormatter(9, -9), "-5"), "SInt32 -5");
    EXPECT_EQ(Parsed(LmIntegerFormatter(9, -9), "10"), "The number must be between -9 and 9.");
    EXPECT_EQ(Parsed(LmUnsignedFormatter(9, 1), "5"), "UInt32 5");
    EXPECT_EQ(Parsed(LmUnsignedFormatter(9, 1), "0"), "The number must be between 1 and 9.");
}
