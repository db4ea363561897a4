// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmValue.h"

#include "StandardErrorCapture.h"
#include "TestStrings.h"

#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <ostream>

namespace {

const char* const kIsNumber = "Source/Core/LmValue.cpp, line #: IsNumber()";

const double kInfinity = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

// A value, and what each getter makes of it.
struct NumberRow
{
    const char* theName;
    LmValue theValue;
    bool theBoolean;
    std::uint32_t theUInt32;
    std::int32_t theSInt32;
    std::uint64_t theUInt64;
    std::int64_t theSInt64;
    double theDouble;
};

std::ostream& operator<<(std::ostream& theStream, const NumberRow& theRow)
{
    return theStream << theRow.theName;
}

LmValue MakeUInt32(std::uint32_t theValue)
{
    return LmValue(static_cast<unsigned long>(theValue));
}

LmValue MakeSInt32(std::int32_t theValue)
{
    return LmValue(static_cast<long>(theValue));
}

LmValue MakeUInt64(std::uint64_t theValue)
{
    return LmValue(static_cast<unsigned long long>(theValue));
}

LmValue MakeSInt64(std::int64_t theValue)
{
    return LmValue(static_cast<long long>(theValue));
}

} // namespace

class LmNumericConversionTable : public testing::TestWithParam<NumberRow>
{
};

TEST_P(LmNumericConversionTable, EveryGetterConvertsByItsRule)
{
    const NumberRow& theRow = GetParam();
    const LmValue& theValue = theRow.theValue;
    EXPECT_EQ(theValue.GetBoolean(), theRow.theBoolean);
    EXPECT_EQ(theValue.GetUInt32(), theRow.theUInt32);
    EXPECT_EQ(theValue.GetSInt32(), theRow.theSInt32);
    EXPECT_EQ(theValue.GetUInt64(), theRow.theUInt64);
    EXPECT_EQ(theValue.GetSInt64(), theRow.theSInt64);
    if (std::isnan(theRow.theDouble)) {
        EXPECT_TRUE(std::isnan(theValue.GetDouble()));
    } else {
        EXPECT_EQ(theValue.GetDouble(), theRow.theDouble);
    }
}

TEST_P(LmNumericConversionTable, TheTemplateAndTheNamedGettersAgree)
{
    const LmValue& theValue = GetParam().theValue;
    EXPECT_EQ(theValue.GetNumber<bool>(), theValue.GetBoolean());
    EXPECT_EQ(theValue.GetNumber<unsigned long>(), theValue.GetUInt32());
    EXPECT_EQ(theValue.GetNumber<long>(), theValue.GetSInt32());
    EXPECT_EQ(theValue.GetNumber<unsigned long long>(), theValue.GetUInt64());
    EXPECT_EQ(theValue.GetNumber<long long>(), theValue.GetSInt64());
    if (!std::isnan(theValue.GetDouble())) {
        EXPECT_EQ(theValue.GetNumber<double>(), theValue.GetDouble());
    }
}

TEST_P(LmNumericConversionTable, ACopyKeepsKindAndNumber)
{
    const LmValue& theValue = GetParam().theValue;
    const LmValue theCopy(theValue);
    EXPECT_EQ(theCopy.GetType(), theValue.GetType());
    EXPECT_EQ(theCopy.GetUInt64(), theValue.GetUInt64());
    EXPECT_TRUE(theCopy == theValue);
}

INSTANTIATE_TEST_SUITE_P(Booleans, LmNumericConversionTable,
                         testing::Values(NumberRow{"true", LmValue(true), true, 1, 1, 1, 1, 1.0},
                                         NumberRow{"false", LmValue(false), false, 0, 0, 0, 0, 0.0}));

INSTANTIATE_TEST_SUITE_P(Unsigned32BitIntegers, LmNumericConversionTable,
                         testing::Values(NumberRow{"0", MakeUInt32(0), false, 0, 0, 0, 0, 0.0},
                                         NumberRow{"1", MakeUInt32(1), true, 1, 1, 1, 1, 1.0},
                                         NumberRow{"2147483647", MakeUInt32(2147483647), true, 2147483647,
                                                   2147483647, 2147483647, 2147483647, 2147483647.0},
                                         NumberRow{"2147483648", MakeUInt32(0x80000000U), true, 0x80000000U,
                                                   INT32_MIN, 2147483648U, 2147483648LL, 2147483648.0},
                                         NumberRow{"4294967295", MakeUInt32(UINT32_MAX), true, UINT32_MAX, -1,
                                                   4294967295U, 4294967295LL, 4294967295.0}));

INSTANTIATE_TEST_SUITE_P(
    Signed32BitIntegers, LmNumericConversionTable,
    testing::Values(NumberRow{"0", MakeSInt32(0), false, 0, 0, 0, 0, 0.0},
                    NumberRow{"2147483647", MakeSInt32(INT32_MAX), true, 2147483647, INT32_MAX, 2147483647,
                              2147483647, 2147483647.0},
                    NumberRow{"-1", MakeSInt32(-1), true, UINT32_MAX, -1, UINT64_MAX, -1, -1.0},
                    NumberRow{"-2147483648", MakeSInt32(INT32_MIN), true, 0x80000000U, INT32_MIN,
                              0xFFFFFFFF80000000U, INT32_MIN, -2147483648.0}));

INSTANTIATE_TEST_SUITE_P(
    Unsigned64BitIntegers, LmNumericConversionTable,
    testing::Values(NumberRow{"0", MakeUInt64(0), false, 0, 0, 0, 0, 0.0},
                    NumberRow{"4294967296", MakeUInt64(0x100000000U), true, 0, 0, 0x100000000U, 0x100000000LL,
                              4294967296.0},
                    NumberRow{"4294967297", MakeUInt64(0x100000001U), true, 1, 1, 0x100000001U, 0x100000001LL,
                              4294967297.0},
                    NumberRow{"0xFFFFFFFF80000000", MakeUInt64(0xFFFFFFFF80000000U), true, 0x80000000U,
                              INT32_MIN, 0xFFFFFFFF80000000U, INT32_MIN, 18446744071562067968.0},
                    NumberRow{"2^53 + 1", MakeUInt64(9007199254740993U), true, 1, 1, 9007199254740993U,
                              9007199254740993LL, 9007199254740992.0},
                    NumberRow{"2^63 - 1", MakeUInt64(INT64_MAX), true, UINT32_MAX, -1, INT64_MAX, INT64_MAX,
                              9223372036854775808.0},
                    NumberRow{"2^63", MakeUInt64(0x8000000000000000U), true, 0, 0, 0x8000000000000000U,
                              INT64_MIN, 9223372036854775808.0},
                    // Halfway between two doubles: the even one is below. One more bit, which halving must
                    // not lose, decides for the one above.
                    NumberRow{"2^63 + 1024", MakeUInt64(0x8000000000000400U), true, 1024, 1024,
                              0x8000000000000400U, INT64_MIN + 1024, 9223372036854775808.0},
                    NumberRow{"2^63 + 1025", MakeUInt64(0x8000000000000401U), true, 1025, 1025,
                              0x8000000000000401U, INT64_MIN + 1025, 9223372036854777856.0},
                    NumberRow{"2^64 - 1", MakeUInt64(UINT64_MAX), true, UINT32_MAX, -1, UINT64_MAX, -1,
                              18446744073709551616.0}));

INSTANTIATE_TEST_SUITE_P(Signed64BitIntegers, LmNumericConversionTable,
                         testing::Values(NumberRow{"0", MakeSInt64(0), false, 0, 0, 0, 0, 0.0},
                                         NumberRow{"-1", MakeSInt64(-1), true, UINT32_MAX, -1, UINT64_MAX, -1,
                                                   -1.0},
                                         NumberRow{"4294967296", MakeSInt64(0x100000000LL), true, 0, 0,
                                                   0x100000000U, 0x100000000LL, 4294967296.0},
                                         NumberRow{"-4294967295", MakeSInt64(-4294967295LL), true, 1, 1,
                                                   0xFFFFFFFF00000001U, -4294967295LL, -4294967295.0},
                                         NumberRow{"2^63 - 1", MakeSInt64(INT64_MAX), true, UINT32_MAX, -1,
                                                   INT64_MAX, INT64_MAX, 9223372036854775808.0},
                                         NumberRow{"-2^63", MakeSInt64(INT64_MIN), true, 0, 0,
                                                   0x8000000000000000U, INT64_MIN, -9223372036854775808.0}));

INSTANTIATE_TEST_SUITE_P(
    Doubles, LmNumericConversionTable,
    testing::Values(NumberRow{"0.0", LmValue(0.0), false, 0, 0, 0, 0, 0.0},
                    NumberRow{"-0.0", LmValue(-0.0), false, 0, 0, 0, 0, 0.0},
                    NumberRow{"0.25", LmValue(0.25), true, 0, 0, 0, 0, 0.25},
                    NumberRow{"3.99", LmValue(3.99), true, 3, 3, 3, 3, 3.99},
                    NumberRow{"-0.99", LmValue(-0.99), true, 0, 0, 0, 0, -0.99},
                    NumberRow{"-1.5", LmValue(-1.5), true, 4294967295U, -1, UINT64_MAX, -1, -1.5},
                    NumberRow{"-3.99", LmValue(-3.99), true, 4294967293U, -3, UINT64_MAX - 2, -3, -3.99},
                    NumberRow{"2147483647.5", LmValue(2147483647.5), true, 2147483647U, INT32_MAX,
                              2147483647U, 2147483647LL, 2147483647.5},
                    NumberRow{"2147483648.0", LmValue(2147483648.0), true, 2147483648U, INT32_MAX,
                              2147483648U, 2147483648LL, 2147483648.0},
                    NumberRow{"2147483649.75", LmValue(2147483649.75), true, 2147483649U, INT32_MAX,
                              2147483649U, 2147483649LL, 2147483649.75},
                    NumberRow{"4294967295.5", LmValue(4294967295.5), true, 4294967295U, INT32_MAX,
                              4294967295U, 4294967295LL, 4294967295.5},
                    NumberRow{"4294967296.0", LmValue(4294967296.0), true, 4294967295U, INT32_MAX,
                              4294967296U, 4294967296LL, 4294967296.0},
                    NumberRow{"5e9", LmValue(5e9), true, 4294967295U, INT32_MAX, 5000000000U, 5000000000LL,
                              5e9},
                    NumberRow{"-2147483648.0", LmValue(-2147483648.0), true, 2147483648U, INT32_MIN,
                              0xFFFFFFFF80000000U, -2147483648LL, -2147483648.0},
                    NumberRow{"-2147483648.5", LmValue(-2147483648.5), true, 2147483648U, INT32_MIN,
                              0xFFFFFFFF80000000U, -2147483648LL, -2147483648.5},
                    NumberRow{"-5e9", LmValue(-5e9), true, 2147483648U, INT32_MIN,
                              static_cast<std::uint64_t>(-5000000000LL), -5000000000LL, -5e9}));

INSTANTIATE_TEST_SUITE_P(
    DoublesAtTheEndsOf64Bits, LmNumericConversionTable,
    testing::Values(NumberRow{"2^63 - 1024", LmValue(9223372036854774784.0), true, UINT32_MAX, INT32_MAX,
                              9223372036854774784U, 9223372036854774784LL, 9223372036854774784.0},
                    NumberRow{"2^63", LmValue(9223372036854775808.0), true, UINT32_MAX, INT32_MAX,
                              9223372036854775808U, INT64_MAX, 9223372036854775808.0},
                    NumberRow{"2^64 - 2048", LmValue(18446744073709549568.0), true, UINT32_MAX, INT32_MAX,
                              18446744073709549568U, INT64_MAX, 18446744073709549568.0},
                    NumberRow{"2^64", LmValue(18446744073709551616.0), true, UINT32_MAX, INT32_MAX,
                              UINT64_MAX, INT64_MAX, 18446744073709551616.0},
                    NumberRow{"-2^63", LmValue(-9223372036854775808.0), true, 2147483648U, INT32_MIN,
                              0x8000000000000000U, INT64_MIN, -9223372036854775808.0},
                    NumberRow{"1e300", LmValue(1e300), true, UINT32_MAX, INT32_MAX, UINT64_MAX, INT64_MAX,
                              1e300},
                    NumberRow{"-1e300", LmValue(-1e300), true, 2147483648U, INT32_MIN, 0x8000000000000000U,
                              INT64_MIN, -1e300},
                    NumberRow{"infinity", LmValue(kInfinity), true, UINT32_MAX, INT32_MAX, UINT64_MAX,
                              INT64_MAX, kInfinity},
                    NumberRow{"-infinity", LmValue(-kInfinity), true, 2147483648U, INT32_MIN,
                              0x8000000000000000U, INT64_MIN, -kInfinity},
                    NumberRow{"NaN", LmValue(kNaN), true, 2147483648U, INT32_MIN, 0, 0, kNaN}));

TEST(LmNumericConversion, A32BitKindKeepsTheLow32BitsOfAWiderArgument)
{
    // Where unsigned long has 32 bits, the argument has lost the others on its way here.
    const auto theWide = static_cast<unsigned long>(0x700000005ULL);
    EXPECT_EQ(LmValue(theWide).GetUInt32(), 5U);
    EXPECT_EQ(LmValue(theWide).GetUInt64(), 5U);
    const auto theNegative = static_cast<long>(static_cast<unsigned long>(0x7FFFFFFFEULL));
    EXPECT_EQ(LmValue(theNegative).GetSInt32(), -2);
    EXPECT_EQ(LmValue(theNegative).GetSInt64(), -2);
}

// Values that are not numbers.
class LmNotANumber : public testing::TestWithParam<int>
{
protected:
    static LmValue MakeValue()
    {
        switch (GetParam()) {
        case kTypePointer:
            return LmValue(static_cast<const void*>("pointer"));
        case kTypeString:
            return LmValue(MakeString("12"), true);
        case kTypePoint:
            return LmValue(CGPoint{1, 2});
        case kTypeSize:
            return LmValue(CGSize{1, 2});
        case kTypeRect:
            return LmValue(CGRect{{1, 2}, {3, 4}});
        default:
            return LmValue();
        }
    }
};

TEST_P(LmNotANumber, IsReportedAndReadsAsZero)
{
    const LmValue theValue = MakeValue();
    ASSERT_EQ(theValue.GetType(), static_cast<ValueType>(GetParam()));
    EXPECT_FALSE(theValue.IsNumber());
    EXPECT_FALSE(theValue.GetBoolean());
    EXPECT_EQ(theValue.GetUInt32(), 0U);
    EXPECT_EQ(theValue.GetSInt32(), 0);
    EXPECT_EQ(theValue.GetUInt64(), 0U);
    EXPECT_EQ(theValue.GetSInt64(), 0);
    EXPECT_EQ(theValue.GetDouble(), 0.0);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines(6, kIsNumber));
}

INSTANTIATE_TEST_SUITE_P(Kinds, LmNotANumber,
                         testing::Values(kTypeInvalid, kTypePointer, kTypeString, kTypePoint, kTypeSize,
                                         kTypeRect));
