// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmStringTransforms.h"

#include "AllocationFailures.h"
#include "StandardErrorCapture.h"
#include "TestStrings.h"
#include "TestValues.h"
#include "VirtualSlot.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

static_assert(std::is_base_of_v<LmValueTransform, LmToStringTransform> &&
                  std::is_base_of_v<LmValueTransform, LmFromStringTransform>,
              "transforms like any other");
static_assert(sizeof(LmToStringTransform) == sizeof(LmValueTransform), "no members");
static_assert(sizeof(LmFromStringTransform) == sizeof(LmValueTransform), "no members");

namespace {

std::string IllegalType(unsigned theType)
{
    return "Source/Transforms/LmStringTransforms.cpp, line #: Illegal value type: " + std::to_string(theType);
}

// What a transform makes of a value; the transform is released.
LmValue Apply(LmValueTransform* theTransform, const LmValue& theValue)
{
    LmValue theResult = theTransform->Apply(theValue);
    theTransform->Release();
    return theResult;
}

LmValue ToString(const LmValue& theValue)
{
    return Apply(new LmToStringTransform, theValue);
}

LmValue FromString(const LmValue& theValue)
{
    return Apply(new LmFromStringTransform, theValue);
}

LmValue FromText(const std::string& theText)
{
    return FromString(LmValue(MakeString(theText.c_str()), true));
}

LmValue Pointer(std::uintptr_t theAddress)
{
    return LmValue(reinterpret_cast<const void*>(theAddress));
}

} // namespace

// A value and its text.
struct TextRow
{
    LmValue theValue;
    const char* theText;
};

static std::ostream& operator<<(std::ostream& theStream, const TextRow& theRow)
{
    return theStream << "'" << theRow.theText << "'";
}

class LmToStringTransformTable : public testing::TestWithParam<TextRow>
{
};

TEST_P(LmToStringTransformTable, WritesTheText)
{
    const LmValue theResult = ToString(GetParam().theValue);
    ASSERT_EQ(theResult.GetType(), kTypeString);
    EXPECT_EQ(GetText(theResult.GetString()), GetParam().theText);
}

INSTANTIATE_TEST_SUITE_P(Numbers, LmToStringTransformTable,
                         testing::Values(TextRow{LmValue(true), "true"}, TextRow{LmValue(false), "false"},
                                         TextRow{LmValue(0UL), "0"},
                                         TextRow{LmValue(4294967295UL), "4294967295"},
                                         TextRow{LmValue(-3L), "-3"},
                                         TextRow{LmValue(2147483647L), "2147483647"},
                                         TextRow{LmValue(-2147483647L - 1), "-2147483648"},
                                         TextRow{LmValue(18446744073709551615ULL), "18446744073709551615"},
                                         TextRow{LmValue(-9223372036854775807LL - 1), "-9223372036854775808"},
                                         TextRow{LmValue(9223372036854775807LL), "9223372036854775807"}));

INSTANTIATE_TEST_SUITE_P(Doubles, LmToStringTransformTable,
                         testing::Values(TextRow{LmValue(1.5), "1.500000"}, TextRow{LmValue(0.0), "0.000000"},
                                         TextRow{LmValue(-0.0), "-0.000000"},
                                         TextRow{LmValue(-2.25), "-2.250000"},
                                         TextRow{LmValue(1.0 / 3), "0.333333"},
                                         TextRow{LmValue(1e20), "100000000000000000000.000000"},
                                         TextRow{LmValue(1e-7), "0.000000"},
                                         TextRow{LmValue(std::numeric_limits<double>::infinity()), "inf"},
                                         TextRow{LmValue(-std::numeric_limits<double>::infinity()), "-inf"},
                                         TextRow{LmValue(std::numeric_limits<double>::quiet_NaN()), "nan"}));

INSTANTIATE_TEST_SUITE_P(Others, LmToStringTransformTable,
                         testing::Values(TextRow{Pointer(0xBEEF), "0xBEEF"}, TextRow{Pointer(0), "0x0"},
                                         TextRow{Pointer(0xFFFFFFFFU), "0xFFFFFFFF"},
                                         TextRow{LmValue(CFSTR("text"), false), "text"},
                                         TextRow{LmValue(CFSTR(""), false), ""},
                                         TextRow{LmValue(CGPoint{1.5F, 2}), "(1.5, 2)"},
                                         TextRow{LmValue(CGPoint{-1, 1e20F}), "(-1, 1e+20)"},
                                         TextRow{LmValue(CGPoint{0.1F, 123456.7F}), "(0.1, 123457)"},
                                         TextRow{LmValue(CGSize{30, 40.25F}), "(30, 40.25)"},
                                         TextRow{LmValue(CGRect{{1, 2}, {30, 40}}), "(1, 2)-(30, 40)"}));

TEST(LmToStringTransform, WritesTheWholeOfAnAddress)
{
    const std::uintptr_t theAddress = UINTPTR_MAX - 0xF;
    char theExpected[32];
    std::snprintf(theExpected, sizeof theExpected, "0x%lX", static_cast<unsigned long>(theAddress));
    EXPECT_EQ(GetText(ToString(Pointer(theAddress)).GetString()), theExpected);
}

TEST(LmToStringTransform, WritesTheLongestDouble)
{
    const std::string theText = GetText(ToString(LmValue(std::numeric_limits<double>::max())).GetString());
    EXPECT_EQ(theText.size(), 309 + 7U);
    EXPECT_EQ(theText.substr(0, 17), "17976931348623157");
    EXPECT_EQ(theText.substr(309), ".000000");
}

TEST(LmToStringTransform, OwnsOneReferenceToATextThatItMade)
{
    const LmValue theResult = ToString(LmValue(123456L));
    EXPECT_EQ(CFGetRetainCount(theResult.GetString()), 1);
}

TEST(LmToStringTransform, SharesTheStringOfAStringValue)
{
    const TestString theString("text");
    {
        const LmValue theResult = ToString(LmValue(theString.Get(), false));
        EXPECT_EQ(theResult.GetString(), theString.Get());
        EXPECT_EQ(theString.GetRetainCount(), 2);
    }
    EXPECT_EQ(theString.GetRetainCount(), 1);
}

TEST(LmToStringTransform, TheTextsOfBooleansAreConstants)
{
    EXPECT_EQ(ToString(LmValue(true)).GetString(), ToString(LmValue(1 < 2)).GetString());
    EXPECT_EQ(ToString(LmValue(false)).GetString(), ToString(LmValue(2 < 1)).GetString());
}

TEST(LmToStringTransform, ANullStringStaysNull)
{
    const LmValue theResult = ToString(LmValue(NULL, false));
    EXPECT_TRUE(theResult.IsString());
    EXPECT_EQ(theResult.GetString(), nullptr);
}

TEST(LmToStringTransform, CallsAnInvalidValueUnknownAndReportsIt)
{
    EXPECT_EQ(GetText(ToString(LmValue()).GetString()), "unknown");
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{IllegalType(0)});
}

TEST(LmToStringTransform, CallsAnUnknownKindUnknownAndReportsIt)
{
    TestValue theValue(12);
    StandardErrorCapture::TakeText();
    EXPECT_EQ(GetText(ToString(theValue).GetString()), "unknown");
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{IllegalType(12)});
    theValue.InitialiseSelf();
}

TEST(LmToStringTransform, ATextThatThereIsNoMemoryForIsUnknown)
{
    ToString(LmValue()); // the constants are made on first use
    StandardErrorCapture::TakeText();
    for (const LmValue& theValue :
         {LmValue(7UL), LmValue(-7L), LmValue(7ULL), LmValue(-7LL), LmValue(7.5), Pointer(7),
          LmValue(CGPoint{1, 2}), LmValue(CGSize{1, 2}), LmValue(CGRect{{1, 2}, {3, 4}})}) {
        const std::string theWhole = GetText(ToString(theValue).GetString());
        LmToStringTransform* const theTransform = new LmToStringTransform;
        const size_t theFailed = FailEachAllocation([&](AllocationFailures& theFailures) {
            const LmValue theResult = theTransform->Apply(theValue);
            theFailures.Stop();
            ASSERT_TRUE(theResult.IsString());
            EXPECT_EQ(GetText(theResult.GetString()), theFailures.HasFailed() ? "unknown" : theWhole);
        });
        EXPECT_GE(theFailed, 1U);
        theTransform->Release();
    }
}

// A text and the value that it is read as.
struct ReadRow
{
    const char* theText;
    LmValue theValue;
};

static std::ostream& operator<<(std::ostream& theStream, const ReadRow& theRow)
{
    return theStream << "'" << theRow.theText << "'";
}

class LmFromStringTransformTable : public testing::TestWithParam<ReadRow>
{
};

TEST_P(LmFromStringTransformTable, ReadsTheText)
{
    const LmValue theResult = FromText(GetParam().theText);
    const LmValue& theExpected = GetParam().theValue;
    ASSERT_EQ(theResult.GetType(), theExpected.GetType());
    EXPECT_TRUE(theResult == theExpected);
    if (theExpected.GetType() == kTypeDouble && !std::isnan(theExpected.GetDouble())) {
        EXPECT_EQ(theResult.GetDouble(), theExpected.GetDouble());
    }
}

INSTANTIATE_TEST_SUITE_P(Booleans, LmFromStringTransformTable,
                         testing::Values(ReadRow{"true", LmValue(true)}, ReadRow{"TRUE", LmValue(true)},
                                         ReadRow{"False", LmValue(false)}, ReadRow{"false", LmValue(false)},
                                         ReadRow{"true ", LmValue(CFSTR("true "), false)},
                                         ReadRow{"truth", LmValue(CFSTR("truth"), false)}));

INSTANTIATE_TEST_SUITE_P(
    Integers, LmFromStringTransformTable,
    testing::Values(ReadRow{"42", LmValue(42UL)}, ReadRow{"0", LmValue(0UL)}, ReadRow{"-0", LmValue(0UL)},
                    ReadRow{"+7", LmValue(7UL)}, ReadRow{" \t\n\v\f\r7", LmValue(7UL)},
                    ReadRow{"007 and more", LmValue(7UL)}, ReadRow{"-1", LmValue(4294967295UL)},
                    ReadRow{"-5", LmValue(4294967291UL)}, ReadRow{"3.75", LmValue(3UL)},
                    ReadRow{"2.5", LmValue(2UL)}, ReadRow{"0x1F", LmValue(0UL)}, ReadRow{"1e3", LmValue(1UL)},
                    ReadRow{"12:30", LmValue(12UL)}, ReadRow{"12/30", LmValue(12UL)},
                    ReadRow{"4294967295", LmValue(4294967295UL)},
                    ReadRow{"4294967296", LmValue(4294967295UL)}, ReadRow{"-4294967295", LmValue(1UL)},
                    ReadRow{"-4294967296", LmValue(4294967295UL)},
                    ReadRow{"99999999999999999999999999999", LmValue(4294967295UL)},
                    ReadRow{"-99999999999999999999999999999", LmValue(4294967295UL)},
                    ReadRow{"18446744073709551617", LmValue(4294967295UL)}));

INSTANTIATE_TEST_SUITE_P(Doubles, LmFromStringTransformTable,
                         testing::Values(ReadRow{".25", LmValue(0.25)}, ReadRow{"-.5", LmValue(-0.5)},
                                         ReadRow{" +.5e1x", LmValue(5.0)},
                                         ReadRow{"inf", LmValue(std::numeric_limits<double>::infinity())},
                                         ReadRow{"-Infinity",
                                                 LmValue(-std::numeric_limits<double>::infinity())},
                                         ReadRow{"nan", LmValue(std::numeric_limits<double>::quiet_NaN())},
                                         ReadRow{"NAN", LmValue(std::numeric_limits<double>::quiet_NaN())}));

INSTANTIATE_TEST_SUITE_P(
    PairsAndOthers, LmFromStringTransformTable,
    testing::Values(
        ReadRow{"(3, 4)", LmValue(CGPoint{3, 4})}, ReadRow{"(-1.5,2e1", LmValue(CGPoint{-1.5F, 20})},
        ReadRow{"( 1,\n 2) and more", LmValue(CGPoint{1, 2})},
        ReadRow{"(1, 2)-(3, 4)", LmValue(CGPoint{1, 2})}, ReadRow{"(1", LmValue(CFSTR("(1"), false)},
        ReadRow{"(1, x)", LmValue(CFSTR("(1, x)"), false)},
        ReadRow{" (1, 2)", LmValue(CFSTR(" (1, 2)"), false)},
        ReadRow{"(1 , 2)", LmValue(CFSTR("(1 , 2)"), false)}, ReadRow{"", LmValue(CFSTR(""), false)},
        ReadRow{" ", LmValue(CFSTR(" "), false)}, ReadRow{"-", LmValue(CFSTR("-"), false)},
        ReadRow{"+ 5", LmValue(CFSTR("+ 5"), false)}, ReadRow{"--5", LmValue(CFSTR("--5"), false)},
        ReadRow{".", LmValue(CFSTR("."), false)}, ReadRow{"hello", LmValue(CFSTR("hello"), false)}));

TEST(LmFromStringTransform, ATextThatIsNothingElseIsTheSameStringShared)
{
    const TestString theString("hello");
    {
        const LmValue theResult = FromString(LmValue(theString.Get(), false));
        EXPECT_EQ(theResult.GetString(), theString.Get());
        EXPECT_EQ(theString.GetRetainCount(), 2);
    }
    EXPECT_EQ(theString.GetRetainCount(), 1);
}

TEST(LmFromStringTransform, AValueThatIsNoStringComesBackAsItIs)
{
    for (const LmValue& theValue :
         {LmValue(), LmValue(true), LmValue(7UL), LmValue(7L), LmValue(7ULL), LmValue(7LL), LmValue(7.5),
          Pointer(7), LmValue(CGPoint{1, 2}), LmValue(CGSize{1, 2}), LmValue(CGRect{{1, 2}, {3, 4}})}) {
        const LmValue theResult = FromString(theValue);
        EXPECT_EQ(theResult.GetType(), theValue.GetType());
        EXPECT_TRUE(theResult == theValue);
    }
}

TEST(LmFromStringTransform, ANullStringComesBackAsItIs)
{
    const LmValue theResult = FromString(LmValue(NULL, false));
    EXPECT_TRUE(theResult.IsString());
    EXPECT_EQ(theResult.GetString(), nullptr);
}

TEST(LmFromStringTransform, ATextBeyondASCIIIsReadWithoutItsEndOnPurpose)
{
    // Three units have a buffer of three bytes: two digits, and no room for a character of two.
    EXPECT_EQ(FromText("12\xC3\xA9").GetUInt32(), 12U);
    // Five units, seven bytes: the character of three does not fit behind the fraction.
    EXPECT_EQ(FromText(".251\xE2\x82\xAC").GetDouble(), 0.251);
    // The first character alone is too long, so nothing at all can be read.
    EXPECT_EQ(GetText(FromText("\xE2\x82\xAC").GetString()), "\xE2\x82\xAC");
}

TEST(LmFromStringTransform, ALoneSurrogateEndsANumberLikeAnyOtherCharacter)
{
    const UniChar theUnits[] = {'4', '2', 0xD800};
    const LmValue theValue(CFStringCreateWithCharacters(NULL, theUnits, 3), true);
    EXPECT_EQ(FromString(theValue).GetUInt32(), 42U);
}

TEST(LmFromStringTransform, ANulEndsTheTextThatNumbersAreReadFrom)
{
    const UniChar theUnits[] = {'4', 0, '2'};
    const LmValue theValue(CFStringCreateWithCharacters(NULL, theUnits, 3), true);
    EXPECT_EQ(FromString(theValue).GetUInt32(), 4U);
    const UniChar theOthers[] = {0, '4', '2'};
    const LmValue theOther(CFStringCreateWithCharacters(NULL, theOthers, 3), true);
    EXPECT_EQ(FromString(theOther).GetType(), kTypeString);
}

TEST(LmFromStringTransform, ATextEndsWhereItEndsWhateverWasInTheMemoryBefore)
{
    for (const std::size_t theLength : {1U, 7U, 15U, 63U}) {
        const std::string theText = std::string(theLength - 1, '0') + "7";
        const DirtyMemory theNines('9');
        EXPECT_EQ(FromText(theText).GetUInt32(), 7U) << theLength;
    }
}

TEST(LmFromStringTransform, ReadsTextsOfAMegabyte)
{
    const std::string theDigits(1 << 20, '9');
    EXPECT_EQ(FromText(theDigits).GetUInt32(), 4294967295U);
    EXPECT_EQ(FromText(std::string(1 << 20, '0') + "7").GetUInt32(), 7U);
    EXPECT_EQ(FromText("." + std::string(1 << 20, '0') + "7").GetType(), kTypeDouble);
    EXPECT_EQ(FromText(std::string(1 << 20, ' ')).GetType(), kTypeString);
    EXPECT_EQ(FromText(std::string(1 << 20, 'x')).GetType(), kTypeString);
}

TEST(LmFromStringTransform, IsInvalidWithoutMemoryForTheBuffer)
{
    const LmValue theValue(CFSTR("true"), false);
    FromString(theValue); // the constants are made on first use
    LmFromStringTransform* const theTransform = new LmFromStringTransform;
    AllocationFailures theFailures(1);
    const LmValue theResult = theTransform->Apply(theValue);
    theFailures.Stop();
    EXPECT_TRUE(theFailures.HasFailed());
    EXPECT_EQ(theResult.GetType(), kTypeInvalid);
    theTransform->Release();
}

TEST(LmFromStringTransform, ARoundTripOfANegativeIntegerEndsUnsignedOnPurpose)
{
    const LmValue theResult = FromString(ToString(LmValue(-3L)));
    EXPECT_EQ(theResult.GetType(), kTypeUInt32);
    EXPECT_EQ(theResult.GetUInt32(), 4294967293U);
}

TEST(LmStringTransforms, ApplyIsTheThirdVirtualFunctionOfEach)
{
    EXPECT_EQ(GetVirtualSlot(&LmToStringTransform::Apply), 2U);
    EXPECT_EQ(GetVirtualSlot(&LmFromStringTransform::Apply), 2U);
}
