// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmNumericalTransforms.h"

#include "AllocationFailures.h"
#include "StandardErrorCapture.h"
#include "TestStrings.h"
#include "TestValues.h"
#include "VirtualSlot.h"

#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <ostream>
#include <type_traits>

static_assert(std::is_base_of_v<LmValueTransform, LmAbsoluteTransform> &&
                  std::is_base_of_v<LmValueTransform, LmAddTransform> &&
                  std::is_base_of_v<LmValueTransform, LmScaleTransform> &&
                  std::is_base_of_v<LmValueTransform, LmNegateTransform>,
              "transforms like any other");
static_assert(sizeof(LmAbsoluteTransform) == sizeof(LmValueTransform), "no members");
static_assert(sizeof(LmAddTransform) == sizeof(LmValueTransform) + sizeof(LmValue), "the amount");
static_assert(sizeof(LmScaleTransform) == sizeof(LmValueTransform) + sizeof(double), "the factor");
static_assert(sizeof(LmNegateTransform) == sizeof(LmValueTransform), "no members");

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInfinity = std::numeric_limits<double>::infinity();
const float kFloatInfinity = std::numeric_limits<float>::infinity();

std::string IllegalType(unsigned theType)
{
    return "Source/Transforms/LmNumericalTransforms.cpp, line #: Illegal value type: " +
           std::to_string(theType);
}

std::string ValueLine(const char* theText)
{
    return std::string("Source/Core/LmValue.cpp, line #: ") + theText;
}

// What a transform makes of a value; the transform is released.
LmValue Apply(LmValueTransform* theTransform, const LmValue& theValue)
{
    LmValue theResult = theTransform->Apply(theValue);
    theTransform->Release();
    return theResult;
}

LmValue Pointer(std::uintptr_t theAddress)
{
    return LmValue(reinterpret_cast<const void*>(theAddress));
}

LmValue UInt32Value(std::uint32_t theNumber)
{
    return LmValue(static_cast<unsigned long>(theNumber));
}

LmValue SInt32Value(std::int32_t theNumber)
{
    return LmValue(static_cast<long>(theNumber));
}

LmValue UInt64Value(std::uint64_t theNumber)
{
    return LmValue(static_cast<unsigned long long>(theNumber));
}

LmValue SInt64Value(std::int64_t theNumber)
{
    return LmValue(static_cast<long long>(theNumber));
}

LmValue Text(const char* theText)
{
    return LmValue(MakeString(theText), true);
}

// Kind and payload alike. Unlike operator==, it tells 1.5 from 1, and a NaN is like a NaN.
bool IsSame(const LmValue& theLeft, const LmValue& theRight)
{
    if (theLeft.GetType() != theRight.GetType()) {
        return false;
    }
    if (theLeft.GetType() != kTypeDouble) {
        return theLeft == theRight;
    }
    const double theNumber = theLeft.GetDouble();
    return theNumber == theRight.GetDouble() || (std::isnan(theNumber) && std::isnan(theRight.GetDouble()));
}

struct Row
{
    const char* theName;
    LmValue theInput;
    LmValue theResult;
};

std::ostream& operator<<(std::ostream& theStream, const Row& theRow)
{
    return theStream << theRow.theName;
}

// With an operand: the amount, or the factor as a double value.
struct OperandRow
{
    const char* theName;
    LmValue theInput;
    LmValue theOperand;
    LmValue theResult;
};

std::ostream& operator<<(std::ostream& theStream, const OperandRow& theRow)
{
    return theStream << theRow.theName;
}

// A value of a kind that a transform may have no arithmetic for.
std::unique_ptr<LmValue> MakeIllegal(unsigned theType)
{
    switch (theType) {
    case kTypeInvalid:
        return std::make_unique<LmValue>();
    case kTypeBoolean:
        return std::make_unique<LmValue>(true);
    case kTypePointer:
        return std::make_unique<LmValue>(static_cast<const void*>("target"));
    case kTypeString:
        return std::make_unique<LmValue>(MakeString("text"), true);
    default:
        return std::make_unique<TestValue>(theType);
    }
}

// The transform has no arithmetic for the kind: one line, and the invalid value.
void ExpectIllegal(LmValueTransform* theTransform, unsigned theType)
{
    std::unique_ptr<LmValue> theValue = MakeIllegal(theType);
    StandardErrorCapture::TakeText();
    EXPECT_EQ(Apply(theTransform, *theValue).GetType(), kTypeInvalid);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{IllegalType(theType)});
    theValue.reset();
    StandardErrorCapture::TakeText();
}

} // namespace

class LmAbsoluteTransformTable : public testing::TestWithParam<Row>
{
};

TEST_P(LmAbsoluteTransformTable, GivesTheResultAndKeepsTheInput)
{
    const LmValue theInput = GetParam().theInput;
    EXPECT_TRUE(IsSame(Apply(new LmAbsoluteTransform, theInput), GetParam().theResult));
    EXPECT_TRUE(IsSame(theInput, GetParam().theInput));
}

INSTANTIATE_TEST_SUITE_P(
    Values, LmAbsoluteTransformTable,
    testing::Values(Row{"invalid", LmValue(), LmValue()}, //
                    Row{"true", LmValue(true), LmValue(true)}, Row{"false", LmValue(false), LmValue(false)},
                    Row{"7UL", LmValue(7UL), LmValue(7UL)},
                    Row{"4294967295UL", LmValue(4294967295UL), LmValue(4294967295UL)},
                    Row{"5L", LmValue(5L), LmValue(5L)}, Row{"-5L", LmValue(-5L), LmValue(5L)},
                    Row{"2147483647L", SInt32Value(INT32_MAX), SInt32Value(INT32_MAX)},
                    Row{"-2147483647L", SInt32Value(-INT32_MAX), SInt32Value(INT32_MAX)},
                    Row{"-2147483648L", SInt32Value(INT32_MIN), SInt32Value(INT32_MIN)},
                    Row{"2^64 - 1", UInt64Value(UINT64_MAX), UInt64Value(UINT64_MAX)},
                    Row{"-1LL", LmValue(-1LL), LmValue(1LL)}, Row{"1LL", LmValue(1LL), LmValue(1LL)},
                    Row{"5000000000LL, on purpose", LmValue(5000000000LL), LmValue(705032704LL)},
                    Row{"-4294967296LL, on purpose", LmValue(-4294967296LL), LmValue(0LL)},
                    Row{"4294967295LL, on purpose", LmValue(4294967295LL), LmValue(1LL)},
                    Row{"2147483648LL, on purpose", LmValue(2147483648LL), LmValue(-2147483648LL)},
                    Row{"-2^63, on purpose", SInt64Value(INT64_MIN), LmValue(0LL)},
                    Row{"1.5", LmValue(1.5), LmValue(1.5)}, Row{"-1.5", LmValue(-1.5), LmValue(1.5)},
                    Row{"-infinity", LmValue(-kInfinity), LmValue(kInfinity)},
                    Row{"NaN", LmValue(kNaN), LmValue(kNaN)}, Row{"a pointer", Pointer(16), Pointer(16)},
                    Row{"a string", Text("-5"), Text("-5")},
                    Row{"a point", LmValue(CGPoint{-1, 2}), LmValue(CGPoint{1, 2})},
                    Row{"another point", LmValue(CGPoint{1, -2}), LmValue(CGPoint{1, 2})},
                    Row{"a size", LmValue(CGSize{-1, -2}), LmValue(CGSize{1, 2})},
                    Row{"a rectangle, on purpose", LmValue(CGRect{{-1, -2}, {-3, -4}}),
                        LmValue(CGRect{{-1, -2}, {-3, -4}})}));

TEST(LmAbsoluteTransform, SharesAString)
{
    const TestString theString("text");
    EXPECT_EQ(Apply(new LmAbsoluteTransform, LmValue(theString.Get(), false)).GetString(), theString.Get());
    EXPECT_EQ(theString.GetRetainCount(), 1);
}

TEST(LmAbsoluteTransform, ReportsAnUnknownKindAsACopyDoes)
{
    TestValue theValue(12);
    StandardErrorCapture::TakeText();
    EXPECT_EQ(Apply(new LmAbsoluteTransform, theValue).GetType(), kTypeInvalid);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{ValueLine("Unknown type: 12")});
    theValue.InitialiseSelf();
}

class LmAddTransformTable : public testing::TestWithParam<OperandRow>
{
};

TEST_P(LmAddTransformTable, GivesTheResultAndKeepsTheInput)
{
    const LmValue theInput = GetParam().theInput;
    EXPECT_TRUE(IsSame(Apply(new LmAddTransform(GetParam().theOperand), theInput), GetParam().theResult));
    EXPECT_TRUE(IsSame(theInput, GetParam().theInput));
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, LmAddTransformTable,
    testing::Values(
        OperandRow{"true and true", LmValue(true), LmValue(true), LmValue(true)},
        OperandRow{"false and true", LmValue(false), LmValue(true), LmValue(false)},
        OperandRow{"true and false", LmValue(true), LmValue(false), LmValue(false)},
        OperandRow{"true and 2UL", LmValue(true), LmValue(2UL), LmValue(true)},
        OperandRow{"5UL and 6UL", LmValue(5UL), LmValue(6UL), LmValue(11UL)},
        OperandRow{"5UL and 2.7", LmValue(5UL), LmValue(2.7), LmValue(7UL)},
        OperandRow{"5UL and 3e9", LmValue(5UL), LmValue(3e9), LmValue(3000000005UL)},
        OperandRow{"-5L and 3e9", LmValue(-5L), LmValue(3e9), LmValue(2147483642L)},
        OperandRow{"5ULL and 1e19", LmValue(5ULL), LmValue(1e19), LmValue(10000000000000000005ULL)},
        OperandRow{"-5LL and 1e19", LmValue(-5LL), LmValue(1e19), LmValue(9223372036854775802LL)},
        OperandRow{"5UL and -6L", LmValue(5UL), LmValue(-6L), UInt32Value(UINT32_MAX)},
        OperandRow{"4294967295UL and 1UL", UInt32Value(UINT32_MAX), LmValue(1UL), LmValue(0UL)},
        OperandRow{"-5L and 6UL", LmValue(-5L), LmValue(6UL), LmValue(1L)},
        OperandRow{"2147483647L and 1L", SInt32Value(INT32_MAX), LmValue(1L), SInt32Value(INT32_MIN)},
        OperandRow{"-2147483648L and -1L", SInt32Value(INT32_MIN), LmValue(-1L), SInt32Value(INT32_MAX)},
        OperandRow{"5ULL and -6L", LmValue(5ULL), LmValue(-6L), UInt64Value(UINT64_MAX)},
        OperandRow{"2^64 - 1 and 2UL", UInt64Value(UINT64_MAX), LmValue(2UL), LmValue(1ULL)},
        OperandRow{"-5LL and 4294967296LL", LmValue(-5LL), LmValue(4294967296LL), LmValue(4294967291LL)},
        OperandRow{"2^63 - 1 and 1L", SInt64Value(INT64_MAX), LmValue(1L), SInt64Value(INT64_MIN)},
        OperandRow{"1.5 and 2L", LmValue(1.5), LmValue(2L), LmValue(3.5)},
        OperandRow{"1.5 and 0.25", LmValue(1.5), LmValue(0.25), LmValue(1.75)},
        OperandRow{"1.5 and infinity", LmValue(1.5), LmValue(kInfinity), LmValue(kInfinity)},
        OperandRow{"infinity and -infinity", LmValue(kInfinity), LmValue(-kInfinity), LmValue(kNaN)}));

INSTANTIATE_TEST_SUITE_P(
    Others, LmAddTransformTable,
    testing::Values(
        OperandRow{"pointers", Pointer(16), Pointer(32), Pointer(48)},
        OperandRow{"pointers that wrap round", Pointer(UINTPTR_MAX), Pointer(2), Pointer(1)},
        OperandRow{"strings", Text("left "), Text("right"), Text("left right")},
        OperandRow{"an empty string", Text(""), Text("right"), Text("right")},
        OperandRow{"points", LmValue(CGPoint{1, 2}), LmValue(CGPoint{10, -20}), LmValue(CGPoint{11, -18})},
        OperandRow{"sizes", LmValue(CGSize{1, 2}), LmValue(CGSize{10, -20}), LmValue(CGSize{11, -18})},
        OperandRow{"rectangles", LmValue(CGRect{{1, 2}, {10, 20}}), LmValue(CGRect{{100, 200}, {1, 2}}),
                   LmValue(CGRect{{1, 2}, {11, 22}})},
        // 2^24 + 1 has no 32-bit float.
        OperandRow{"points, as floats", LmValue(CGPoint{16777216, 0}), LmValue(CGPoint{1, 0}),
                   LmValue(CGPoint{16777216, 0})}));

TEST(LmAddTransform, ReadsTheOperandOfABooleanOnlyWhenItMatters)
{
    EXPECT_FALSE(Apply(new LmAddTransform(LmValue()), LmValue(false)).GetBoolean());
    EXPECT_EQ(StandardErrorCapture::TakeText(), "");
    EXPECT_FALSE(Apply(new LmAddTransform(LmValue()), LmValue(true)).GetBoolean());
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{ValueLine("IsNumber()")});
}

TEST(LmAddTransform, WithANullOperandTheResultIsTheInputsOwnString)
{
    const TestString theString("text");
    {
        const LmValue theResult =
            Apply(new LmAddTransform(LmValue(NULL, false)), LmValue(theString.Get(), false));
        EXPECT_EQ(theResult.GetString(), theString.Get());
        EXPECT_EQ(theString.GetRetainCount(), 2);
    }
    EXPECT_EQ(theString.GetRetainCount(), 1);
}

TEST(LmAddTransform, WithANullInputTheResultIsTheOperandsOwnString)
{
    const TestString theString("text");
    {
        const LmValue theResult =
            Apply(new LmAddTransform(LmValue(theString.Get(), false)), LmValue(NULL, false));
        EXPECT_EQ(theResult.GetString(), theString.Get());
        EXPECT_EQ(theString.GetRetainCount(), 2);
    }
    EXPECT_EQ(theString.GetRetainCount(), 1);
}

TEST(LmAddTransform, TwoNullStringsGiveANullString)
{
    const LmValue theResult = Apply(new LmAddTransform(LmValue(NULL, false)), LmValue(NULL, false));
    EXPECT_TRUE(theResult.IsString());
    EXPECT_EQ(theResult.GetString(), nullptr);
}

TEST(LmAddTransform, AddingStringsMakesANewOne)
{
    const TestString theLeft("left");
    const TestString theRight("right");
    {
        const LmValue theResult =
            Apply(new LmAddTransform(LmValue(theRight.Get(), false)), LmValue(theLeft.Get(), false));
        EXPECT_EQ(GetText(theResult.GetString()), "leftright");
        EXPECT_EQ(CFGetRetainCount(theResult.GetString()), 1);
        EXPECT_EQ(GetText(theLeft.Get()), "left");
    }
    EXPECT_EQ(theLeft.GetRetainCount(), 1);
    EXPECT_EQ(theRight.GetRetainCount(), 1);
}

TEST(LmAddTransform, TheSumOfStringsIsInvalidWithoutMemory)
{
    const LmValue theInput = Text("left");
    LmAddTransform* const theTransform = new LmAddTransform(Text("right"));
    AllocationFailures theFailures(1);
    const LmValue theResult = theTransform->Apply(theInput);
    theFailures.Stop();
    EXPECT_TRUE(theFailures.HasFailed());
    EXPECT_EQ(theResult.GetType(), kTypeInvalid);
    theTransform->Release();
}

// An operand that is not of the input's kind, and the assertion that reading it prints.
struct MismatchRow
{
    const char* theAssertion;
    LmValue theInput;
    LmValue theOperand;
    LmValue theResult;
};

static std::ostream& operator<<(std::ostream& theStream, const MismatchRow& theRow)
{
    return theStream << theRow.theAssertion;
}

class LmAddTransformMismatch : public testing::TestWithParam<MismatchRow>
{
};

TEST_P(LmAddTransformMismatch, PrintsTheGettersAssertion)
{
    const MismatchRow& theRow = GetParam();
    EXPECT_TRUE(IsSame(Apply(new LmAddTransform(theRow.theOperand), theRow.theInput), theRow.theResult));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{ValueLine(theRow.theAssertion)});
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, LmAddTransformMismatch,
    testing::Values(MismatchRow{"IsNumber()", LmValue(5UL), LmValue(), LmValue(5UL)},
                    MismatchRow{"IsNumber()", LmValue(-5L), LmValue(CGPoint{1, 2}), LmValue(-5L)},
                    MismatchRow{"IsNumber()", LmValue(5ULL), LmValue(CFSTR("6"), false), LmValue(5ULL)},
                    MismatchRow{"IsNumber()", LmValue(-5LL), LmValue(), LmValue(-5LL)},
                    MismatchRow{"IsNumber()", LmValue(1.5), LmValue(), LmValue(1.5)},
                    MismatchRow{"IsPointer()", Pointer(16), LmValue(), Pointer(16)},
                    MismatchRow{"IsString()", Text("text"), LmValue(4711UL), Text("text")},
                    MismatchRow{"IsString()", Text("text"), Pointer(4711), Text("text")},
                    MismatchRow{"IsString()", Text("text"), LmValue(1.5), Text("text")},
                    MismatchRow{"IsPoint()", LmValue(CGPoint{1, 2}), LmValue(3UL), LmValue(CGPoint{1, 2})},
                    MismatchRow{"IsSize()", LmValue(CGSize{1, 2}), LmValue(), LmValue(CGSize{1, 2})},
                    MismatchRow{"IsRect()", LmValue(CGRect{{1, 2}, {3, 4}}), LmValue(CGSize{5, 6}),
                                LmValue(CGRect{{1, 2}, {3, 4}})}));

TEST(LmAddTransform, HasNothingForOtherKinds)
{
    for (const unsigned theType : {0U, 12U, 4711U}) {
        ExpectIllegal(new LmAddTransform(LmValue(1UL)), theType);
    }
}

TEST(LmAddTransform, KeepsACopyOfTheAmount)
{
    LmValue theAmount(10L);
    auto* const theTransform = new LmAddTransform(theAmount);
    theAmount.SetSInt32(20);
    EXPECT_EQ(Apply(theTransform, LmValue(1L)).GetSInt32(), 11);
}

class LmScaleTransformTable : public testing::TestWithParam<OperandRow>
{
};

TEST_P(LmScaleTransformTable, GivesTheResultAndKeepsTheInput)
{
    const LmValue theInput = GetParam().theInput;
    auto* const theTransform = new LmScaleTransform(GetParam().theOperand.GetDouble());
    EXPECT_TRUE(IsSame(Apply(theTransform, theInput), GetParam().theResult));
    EXPECT_TRUE(IsSame(theInput, GetParam().theInput));
}

INSTANTIATE_TEST_SUITE_P(
    Integers32, LmScaleTransformTable,
    testing::Values(
        OperandRow{"5UL by 0.5", LmValue(5UL), LmValue(0.5), LmValue(2UL)},
        OperandRow{"4000000000UL by 0.5", LmValue(4000000000UL), LmValue(0.5), LmValue(2000000000UL)},
        OperandRow{"2000000000UL by 2", LmValue(2000000000UL), LmValue(2.0), LmValue(4000000000UL)},
        OperandRow{"2000000000UL by 3", LmValue(2000000000UL), LmValue(3.0), UInt32Value(UINT32_MAX)},
        OperandRow{"3UL by -0.5", LmValue(3UL), LmValue(-0.5), UInt32Value(UINT32_MAX)},
        OperandRow{"3UL by -1e300", LmValue(3UL), LmValue(-1e300), UInt32Value(0x80000000U)},
        OperandRow{"3UL by NaN", LmValue(3UL), LmValue(kNaN), UInt32Value(0x80000000U)},
        OperandRow{"0UL by infinity", LmValue(0UL), LmValue(kInfinity), UInt32Value(0x80000000U)},
        OperandRow{"1UL by infinity", LmValue(1UL), LmValue(kInfinity), UInt32Value(UINT32_MAX)},
        OperandRow{"5L by 0.5", LmValue(5L), LmValue(0.5), LmValue(2L)},
        OperandRow{"-5L by 0.5", LmValue(-5L), LmValue(0.5), LmValue(-2L)},
        OperandRow{"2000000000L by 2", LmValue(2000000000L), LmValue(2.0), SInt32Value(INT32_MAX)},
        OperandRow{"2000000000L by -2", LmValue(2000000000L), LmValue(-2.0), SInt32Value(INT32_MIN)},
        OperandRow{"5L by NaN", LmValue(5L), LmValue(kNaN), SInt32Value(INT32_MIN)}));

INSTANTIATE_TEST_SUITE_P(
    Integers64, LmScaleTransformTable,
    testing::Values(
        OperandRow{"5ULL by 0.5", LmValue(5ULL), LmValue(0.5), LmValue(2ULL)},
        OperandRow{"2^63 by 0.5", UInt64Value(0x8000000000000000U), LmValue(0.5),
                   UInt64Value(0x4000000000000000U)},
        OperandRow{"2^63 by 1", UInt64Value(0x8000000000000000U), LmValue(1.0),
                   UInt64Value(0x8000000000000000U)},
        OperandRow{"2^63 by 2", UInt64Value(0x8000000000000000U), LmValue(2.0), UInt64Value(UINT64_MAX)},
        OperandRow{"5ULL by -0.5", LmValue(5ULL), LmValue(-0.5), UInt64Value(UINT64_MAX - 1)},
        OperandRow{"5ULL by NaN", LmValue(5ULL), LmValue(kNaN), LmValue(0ULL)},
        OperandRow{"5LL by -0.5", LmValue(5LL), LmValue(-0.5), LmValue(-2LL)},
        OperandRow{"-5000000000LL by 2", LmValue(-5000000000LL), LmValue(2.0), LmValue(-10000000000LL)},
        OperandRow{"2^62 by 4", LmValue(0x4000000000000000LL), LmValue(4.0), SInt64Value(INT64_MAX)},
        OperandRow{"2^62 by -4", LmValue(0x4000000000000000LL), LmValue(-4.0), SInt64Value(INT64_MIN)},
        OperandRow{"5LL by NaN", LmValue(5LL), LmValue(kNaN), LmValue(0LL)}));

INSTANTIATE_TEST_SUITE_P(
    Others, LmScaleTransformTable,
    testing::Values(OperandRow{"1.5 by 3", LmValue(1.5), LmValue(3.0), LmValue(4.5)},
                    OperandRow{"1e300 by 1e300", LmValue(1e300), LmValue(1e300), LmValue(kInfinity)},
                    OperandRow{"a point", LmValue(CGPoint{1, -2}), LmValue(2.5), LmValue(CGPoint{2.5F, -5})},
                    OperandRow{"a point beyond floats", LmValue(CGPoint{1, -1}), LmValue(1e300),
                               LmValue(CGPoint{kFloatInfinity, -kFloatInfinity})},
                    // 3 * 0.1 as a double, then rounded; 0.1 as a float would give another product.
                    OperandRow{"a point, in doubles", LmValue(CGPoint{3, 0}), LmValue(0.1),
                               LmValue(CGPoint{static_cast<float>(3.0 * 0.1), 0})},
                    OperandRow{"a size", LmValue(CGSize{1, -2}), LmValue(-2.0), LmValue(CGSize{-2, 4})},
                    OperandRow{"a rectangle", LmValue(CGRect{{1, 2}, {3, 4}}), LmValue(2.0),
                               LmValue(CGRect{{1, 2}, {6, 8}})}));

TEST(LmScaleTransform, HasNothingForOtherKinds)
{
    for (const unsigned theType : {0U, 1U, 7U, 8U, 12U}) {
        ExpectIllegal(new LmScaleTransform(2.0), theType);
    }
}

class LmNegateTransformTable : public testing::TestWithParam<Row>
{
};

TEST_P(LmNegateTransformTable, GivesTheResultAndKeepsTheInput)
{
    const LmValue theInput = GetParam().theInput;
    EXPECT_TRUE(IsSame(Apply(new LmNegateTransform, theInput), GetParam().theResult));
    EXPECT_TRUE(IsSame(theInput, GetParam().theInput));
}

INSTANTIATE_TEST_SUITE_P(
    Values, LmNegateTransformTable,
    testing::Values(
        Row{"true", LmValue(true), LmValue(false)}, Row{"false", LmValue(false), LmValue(true)},
        Row{"5UL", LmValue(5UL), LmValue(-5L)}, Row{"0UL", LmValue(0UL), LmValue(0L)},
        Row{"4294967295UL", UInt32Value(UINT32_MAX), LmValue(1L)},
        Row{"2147483648UL", UInt32Value(0x80000000U), SInt32Value(INT32_MIN)},
        Row{"-5L", LmValue(-5L), LmValue(5L)},
        Row{"-2147483648L", SInt32Value(INT32_MIN), SInt32Value(INT32_MIN)},
        Row{"5ULL", LmValue(5ULL), LmValue(-5LL)}, Row{"2^64 - 1", UInt64Value(UINT64_MAX), LmValue(1LL)},
        Row{"-5LL", LmValue(-5LL), LmValue(5LL)},
        Row{"-2^63", SInt64Value(INT64_MIN), SInt64Value(INT64_MIN)}, Row{"1.5", LmValue(1.5), LmValue(-1.5)},
        Row{"infinity", LmValue(kInfinity), LmValue(-kInfinity)}, Row{"NaN", LmValue(kNaN), LmValue(kNaN)},
        Row{"a point", LmValue(CGPoint{1, -2}), LmValue(CGPoint{-1, 2})},
        Row{"a size", LmValue(CGSize{1, -2}), LmValue(CGSize{-1, 2})},
        Row{"a rectangle", LmValue(CGRect{{1, 2}, {3, -4}}), LmValue(CGRect{{1, 2}, {-3, 4}})}));

TEST(LmNegateTransform, NegatesAZeroOfADouble)
{
    EXPECT_TRUE(std::signbit(Apply(new LmNegateTransform, LmValue(0.0)).GetDouble()));
}

TEST(LmNegateTransform, HasNothingForOtherKinds)
{
    for (const unsigned theType : {0U, 7U, 8U, 12U}) {
        ExpectIllegal(new LmNegateTransform, theType);
    }
}

TEST(LmNumericalTransforms, ApplyIsTheThirdVirtualFunctionOfEach)
{
    EXPECT_EQ(GetVirtualSlot(&LmAbsoluteTransform::Apply), 2U);
    EXPECT_EQ(GetVirtualSlot(&LmAddTransform::Apply), 2U);
    EXPECT_EQ(GetVirtualSlot(&LmScaleTransform::Apply), 2U);
    EXPECT_EQ(GetVirtualSlot(&LmNegateTransform::Apply), 2U);
}
