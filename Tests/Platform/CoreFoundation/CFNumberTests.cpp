// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// The expectations are what CoreFoundation of Mac OS X 10.7 answers.

#include "CFTestSupport.h"

#include <climits>
#include <cmath>
#include <cstring>
#include <limits>

namespace {

const SInt64 kLongest = std::numeric_limits<SInt64>::max();
const Float64 kNaN = std::numeric_limits<Float64>::quiet_NaN();
const Float64 kInfinity = std::numeric_limits<Float64>::infinity();

// What a number gives for a type: the result, and what was written.
template <class Value>
std::pair<bool, Value> Get(CFNumberRef theNumber, CFNumberType theType)
{
    Value theValue{};
    const bool theIsExact = CFNumberGetValue(theNumber, theType, &theValue);
    EXPECT_EQ(CFNumberGetValue(theNumber, theType, nullptr), theIsExact)
        << "asked without a place for the value";
    return {theIsExact, theValue};
}

template <class Value>
CFNumberType TypeMadeFrom(CFNumberType theType, Value theValue)
{
    return CFNumberGetType(Number(theType, theValue));
}

const CFNumberType kLongIs =
    sizeof(long) == 8 ? CFNumberType{kCFNumberSInt64Type} : CFNumberType{kCFNumberSInt32Type};

} // namespace

TEST(CFNumber, TypesHaveTheirPublishedValues)
{
    const CFNumberType kTypes[] = {
        kCFNumberSInt8Type,   kCFNumberSInt16Type,  kCFNumberSInt32Type,    kCFNumberSInt64Type,
        kCFNumberFloat32Type, kCFNumberFloat64Type, kCFNumberCharType,      kCFNumberShortType,
        kCFNumberIntType,     kCFNumberLongType,    kCFNumberLongLongType,  kCFNumberFloatType,
        kCFNumberDoubleType,  kCFNumberCFIndexType, kCFNumberNSIntegerType, kCFNumberCGFloatType};
    CFNumberType theExpected = 1;
    for (const CFNumberType theType : kTypes) {
        EXPECT_EQ(theType, theExpected++);
    }
    EXPECT_EQ(kCFNumberMaxType, 16);
}

TEST(CFNumber, TypesOfTheirOwnAreKept)
{
    EXPECT_EQ(TypeMadeFrom(kCFNumberSInt8Type, SInt8{100}), kCFNumberSInt8Type);
    EXPECT_EQ(TypeMadeFrom(kCFNumberSInt16Type, SInt16{100}), kCFNumberSInt16Type);
    EXPECT_EQ(TypeMadeFrom(kCFNumberSInt32Type, SInt32{100}), kCFNumberSInt32Type);
    EXPECT_EQ(TypeMadeFrom(kCFNumberSInt64Type, SInt64{100}), kCFNumberSInt64Type);
    EXPECT_EQ(TypeMadeFrom(kCFNumberFloat32Type, Float32{100}), kCFNumberFloat32Type);
    EXPECT_EQ(TypeMadeFrom(kCFNumberFloat64Type, Float64{100}), kCFNumberFloat64Type);
}

TEST(CFNumber, CTypesBecomeTheTypesOfTheirWidth)
{
    EXPECT_EQ(TypeMadeFrom(kCFNumberCharType, char{100}), kCFNumberSInt8Type);
    EXPECT_EQ(TypeMadeFrom(kCFNumberShortType, short{100}), kCFNumberSInt16Type);
    EXPECT_EQ(TypeMadeFrom(kCFNumberIntType, int{100}), kCFNumberSInt32Type);
    EXPECT_EQ(TypeMadeFrom(kCFNumberLongType, long{100}), kLongIs);
    EXPECT_EQ(TypeMadeFrom(kCFNumberLongLongType, 100LL), kCFNumberSInt64Type);
    EXPECT_EQ(TypeMadeFrom(kCFNumberFloatType, float{100}), kCFNumberFloat32Type);
    EXPECT_EQ(TypeMadeFrom(kCFNumberDoubleType, double{100}), kCFNumberFloat64Type);
    EXPECT_EQ(TypeMadeFrom(kCFNumberCFIndexType, CFIndex{100}), kLongIs);
    EXPECT_EQ(TypeMadeFrom(kCFNumberNSIntegerType, long{100}), kLongIs);
    EXPECT_EQ(TypeMadeFrom(kCFNumberCGFloatType, float{100}), kCFNumberFloat32Type);
}

TEST(CFNumber, SmallIntegersAreAlwaysOfThirtyTwoBits)
{
    for (SInt64 theValue = -1; theValue <= 12; ++theValue) {
        EXPECT_EQ(TypeMadeFrom(kCFNumberSInt64Type, theValue), kCFNumberSInt32Type) << theValue;
        EXPECT_EQ(TypeMadeFrom(kCFNumberSInt8Type, static_cast<SInt8>(theValue)), kCFNumberSInt32Type)
            << theValue;
        EXPECT_EQ(CFNumberGetByteSize(Integer(theValue)), 4) << theValue;
        EXPECT_EQ(Get<SInt64>(Integer(theValue), kCFNumberSInt64Type), (std::pair{true, theValue}));
    }
    EXPECT_EQ(TypeMadeFrom(kCFNumberSInt64Type, SInt64{13}), kCFNumberSInt64Type);
    EXPECT_EQ(TypeMadeFrom(kCFNumberSInt64Type, SInt64{-2}), kCFNumberSInt64Type);
    EXPECT_EQ(TypeMadeFrom(kCFNumberFloat64Type, Float64{5}), kCFNumberFloat64Type);
}

TEST(CFNumber, SmallIntegersAreSharedObjects)
{
    const auto theNumber = Integer(7);
    const CFIndex theCount = CFGetRetainCount(theNumber);
    EXPECT_GT(theCount, 1);
    {
        const auto theSame = Number(kCFNumberSInt8Type, SInt8{7});
        EXPECT_EQ(static_cast<CFNumberRef>(theSame), static_cast<CFNumberRef>(theNumber));
        EXPECT_EQ(CFGetRetainCount(theNumber), theCount + 1);
    }
    EXPECT_EQ(CFGetRetainCount(theNumber), theCount);
    EXPECT_NE(static_cast<CFNumberRef>(Integer(13)), static_cast<CFNumberRef>(Integer(13)));
}

TEST(CFNumber, NaNAndInfinitiesAreTheConstants)
{
    EXPECT_EQ(static_cast<CFNumberRef>(Float(kNaN)), kCFNumberNaN);
    EXPECT_EQ(static_cast<CFNumberRef>(Float(-kNaN)), kCFNumberNaN);
    EXPECT_EQ(static_cast<CFNumberRef>(Number(kCFNumberFloat32Type, std::numeric_limits<float>::infinity())),
              kCFNumberPositiveInfinity);
    EXPECT_EQ(static_cast<CFNumberRef>(Float(-kInfinity)), kCFNumberNegativeInfinity);
    EXPECT_EQ(TypeMadeFrom(kCFNumberFloat32Type, std::numeric_limits<float>::quiet_NaN()),
              kCFNumberFloat64Type);
}

TEST(CFNumber, SizesAndFloatnessFollowTheType)
{
    EXPECT_EQ(CFNumberGetByteSize(Number(kCFNumberSInt8Type, SInt8{100})), 1);
    EXPECT_EQ(CFNumberGetByteSize(Number(kCFNumberSInt16Type, SInt16{100})), 2);
    EXPECT_EQ(CFNumberGetByteSize(Number(kCFNumberSInt32Type, SInt32{100})), 4);
    EXPECT_EQ(CFNumberGetByteSize(Integer(100)), 8);
    EXPECT_EQ(CFNumberGetByteSize(Number(kCFNumberFloat32Type, 1.0F)), 4);
    EXPECT_EQ(CFNumberGetByteSize(Float(1)), 8);
    EXPECT_FALSE(CFNumberIsFloatType(Integer(100)));
    EXPECT_TRUE(CFNumberIsFloatType(Number(kCFNumberFloat32Type, 1.0F)));
    EXPECT_TRUE(CFNumberIsFloatType(Float(1)));
}

TEST(CFNumber, UnsignedValuesAreTakenAsSignedBits)
{
    EXPECT_EQ(Get<SInt64>(Number(kCFNumberIntType, 4000000000U), kCFNumberSInt64Type),
              (std::pair{true, SInt64{-294967296}}));
    EXPECT_EQ(Get<SInt64>(Number(kCFNumberCharType, static_cast<unsigned char>(200)), kCFNumberSInt64Type),
              (std::pair{true, SInt64{-56}}));
}

TEST(CFNumber, AValueNeedNotBeAligned)
{
    alignas(8) UInt8 theBytes[16] = {};
    const SInt64 theValue = 0x0102030405060708;
    std::memcpy(theBytes + 1, &theValue, sizeof theValue);
    const Owned<CFNumberRef> theNumber(CFNumberCreate(nullptr, kCFNumberSInt64Type, theBytes + 1));
    EXPECT_TRUE(CFNumberGetValue(theNumber, kCFNumberSInt64Type, theBytes + 3));
    EXPECT_EQ(std::memcmp(theBytes + 3, &theValue, sizeof theValue), 0);
}

TEST(CFNumber, AnUnknownTypeMakesNoNumberAndReadsNothing)
{
    const SInt64 theValue = 5;
    for (const CFNumberType theType : {0, 17, 99, -1}) {
        EXPECT_EQ(CFNumberCreate(nullptr, theType, &theValue), nullptr);
        SInt64 theResult = 77;
        EXPECT_FALSE(CFNumberGetValue(Integer(5), theType, &theResult));
        EXPECT_EQ(theResult, 77);
    }
}

TEST(CFNumber, IntegersGoIntoNarrowTypesByTheirLowBitsOnPurpose)
{
    EXPECT_EQ(Get<SInt8>(Integer(127), kCFNumberSInt8Type), (std::pair{true, SInt8{127}}));
    EXPECT_EQ(Get<SInt8>(Integer(-128), kCFNumberSInt8Type), (std::pair{true, SInt8{-128}}));
    EXPECT_EQ(Get<SInt8>(Integer(128), kCFNumberSInt8Type), (std::pair{true, SInt8{-128}}));
    EXPECT_EQ(Get<SInt8>(Integer(200), kCFNumberCharType), (std::pair{true, SInt8{-56}}));
    EXPECT_EQ(Get<SInt8>(Integer(255), kCFNumberSInt8Type), (std::pair{true, SInt8{-1}}));
    EXPECT_EQ(Get<SInt8>(Integer(256), kCFNumberSInt8Type), (std::pair{false, SInt8{0}}));
    EXPECT_EQ(Get<SInt8>(Integer(300), kCFNumberSInt8Type), (std::pair{false, SInt8{44}}));
    EXPECT_EQ(Get<SInt8>(Integer(-129), kCFNumberSInt8Type), (std::pair{false, SInt8{127}}));
    EXPECT_EQ(Get<SInt16>(Integer(-32768), kCFNumberSInt16Type), (std::pair{true, SInt16{-32768}}));
    EXPECT_EQ(Get<SInt16>(Integer(65535), kCFNumberShortType), (std::pair{true, SInt16{-1}}));
    EXPECT_EQ(Get<SInt16>(Integer(65536), kCFNumberSInt16Type), (std::pair{false, SInt16{0}}));
    EXPECT_EQ(Get<SInt16>(Integer(70000), kCFNumberSInt16Type), (std::pair{false, SInt16{4464}}));
}

TEST(CFNumber, IntegersGoIntoThirtyTwoBitsWhenTheyFit)
{
    EXPECT_EQ(Get<SInt32>(Integer(2147483647), kCFNumberSInt32Type), (std::pair{true, SInt32{2147483647}}));
    EXPECT_EQ(Get<SInt32>(Integer(-2147483647 - 1), kCFNumberIntType),
              (std::pair{true, SInt32{-2147483647 - 1}}));
    EXPECT_EQ(Get<SInt32>(Integer(2147483648), kCFNumberSInt32Type),
              (std::pair{false, SInt32{-2147483647 - 1}}));
    EXPECT_EQ(Get<SInt32>(Integer(4294967295), kCFNumberSInt32Type), (std::pair{false, SInt32{-1}}));
    EXPECT_EQ(Get<SInt64>(Integer(kLongest), kCFNumberLongLongType), (std::pair{true, kLongest}));
}

TEST(CFNumber, IntegersGoIntoFloatsWhenAFloatCanTellThem)
{
    EXPECT_EQ(Get<Float32>(Integer(16777216), kCFNumberFloat32Type), (std::pair{true, 16777216.0F}));
    EXPECT_EQ(Get<Float32>(Integer(16777217), kCFNumberFloat32Type), (std::pair{false, 16777216.0F}));
    EXPECT_EQ(Get<Float32>(Integer(kLongest), kCFNumberFloatType),
              (std::pair{false, 9223372036854775808.0F}));
    EXPECT_EQ(Get<Float64>(Integer(9007199254740992), kCFNumberFloat64Type),
              (std::pair{true, 9007199254740992.0}));
    EXPECT_EQ(Get<Float64>(Integer(9007199254740993), kCFNumberDoubleType),
              (std::pair{false, 9007199254740992.0}));
    EXPECT_EQ(Get<Float64>(Integer(kLongest), kCFNumberFloat64Type),
              (std::pair{false, 9223372036854775808.0}));
    EXPECT_EQ(Get<Float64>(Integer(-kLongest - 1), kCFNumberFloat64Type),
              (std::pair{true, -9223372036854775808.0}));
}

TEST(CFNumber, FloatsGoIntoIntegersWhenTheyAreWholeAndInTheSignedRange)
{
    EXPECT_EQ(Get<SInt32>(Float(2.0), kCFNumberSInt32Type), (std::pair{true, SInt32{2}}));
    EXPECT_EQ(Get<SInt32>(Float(2.5), kCFNumberSInt32Type), (std::pair{false, SInt32{2}}));
    EXPECT_EQ(Get<SInt32>(Float(-2.9), kCFNumberSInt32Type), (std::pair{false, SInt32{-2}}));
    EXPECT_EQ(Get<SInt8>(Float(127.0), kCFNumberSInt8Type), (std::pair{true, SInt8{127}}));
    EXPECT_FALSE(CFNumberGetValue(Float(128.0), kCFNumberSInt8Type, nullptr));
    EXPECT_EQ(Get<SInt8>(Float(-128.0), kCFNumberSInt8Type), (std::pair{true, SInt8{-128}}));
    EXPECT_EQ(Get<SInt64>(Float(-0.0), kCFNumberSInt64Type), (std::pair{true, SInt64{0}}));
    EXPECT_EQ(Get<SInt64>(Float(-9223372036854775808.0), kCFNumberSInt64Type),
              (std::pair{true, -kLongest - 1}));
    EXPECT_FALSE(CFNumberGetValue(Float(9223372036854775808.0), kCFNumberSInt64Type, nullptr));
    EXPECT_EQ(Get<SInt16>(Number(kCFNumberFloat32Type, 300.0F), kCFNumberSInt16Type),
              (std::pair{true, SInt16{300}}));
}

TEST(CFNumber, FloatsBeyondAnIntegerTypeGiveTheNearestEndOfItsRange)
{
    EXPECT_EQ(Get<SInt8>(Float(1e20), kCFNumberSInt8Type), (std::pair{false, SInt8{127}}));
    EXPECT_EQ(Get<SInt32>(Float(-1e20), kCFNumberSInt32Type), (std::pair{false, SInt32{-2147483647 - 1}}));
    EXPECT_EQ(Get<SInt64>(Float(kInfinity), kCFNumberSInt64Type), (std::pair{false, kLongest}));
    EXPECT_EQ(Get<SInt64>(Float(-kInfinity), kCFNumberSInt64Type), (std::pair{false, -kLongest - 1}));
    EXPECT_EQ(Get<SInt64>(Float(kNaN), kCFNumberSInt64Type), (std::pair{false, SInt64{0}}));
}

TEST(CFNumber, DoublesGoIntoFloatsWhenAFloatCanTellThem)
{
    EXPECT_EQ(Get<Float32>(Float(2.5), kCFNumberFloat32Type), (std::pair{true, 2.5F}));
    EXPECT_EQ(Get<Float32>(Float(0.1), kCFNumberFloat32Type), (std::pair{false, 0.1F}));
    EXPECT_EQ(Get<Float32>(Float(1e300), kCFNumberFloat32Type),
              (std::pair{false, std::numeric_limits<float>::infinity()}));
    EXPECT_EQ(Get<Float32>(Float(kInfinity), kCFNumberFloat32Type),
              (std::pair{true, std::numeric_limits<float>::infinity()}));
    EXPECT_FALSE(CFNumberGetValue(Float(kNaN), kCFNumberFloat32Type, nullptr));
    EXPECT_TRUE(std::isnan(Get<Float32>(Float(kNaN), kCFNumberFloat32Type).second));
}

TEST(CFNumber, ADoubleTellsEveryFloatAndItself)
{
    EXPECT_EQ(Get<Float64>(Number(kCFNumberFloat32Type, 0.1F), kCFNumberFloat64Type),
              (std::pair{true, 0.10000000149011612}));
    EXPECT_EQ(Get<Float32>(Number(kCFNumberFloat32Type, 0.1F), kCFNumberFloat32Type),
              (std::pair{true, 0.1F}));
    EXPECT_TRUE(CFNumberGetValue(Float(kNaN), kCFNumberFloat64Type, nullptr));
    EXPECT_TRUE(std::isnan(Get<Float64>(Float(kNaN), kCFNumberFloat64Type).second));
}

TEST(CFNumber, NumbersCompareByTheirValueAcrossTypes)
{
    const struct Row
    {
        Owned<CFNumberRef> theFirst;
        Owned<CFNumberRef> theSecond;
        CFComparisonResult theExpected;
    } kRows[] = {
        {Integer(5), Float(5.0), kCFCompareEqualTo},
        {Integer(5), Integer(100), kCFCompareLessThan},
        {Integer(5), Float(5.5), kCFCompareLessThan},
        {Integer(-5), Float(-5.5), kCFCompareGreaterThan},
        {Integer(9007199254740993), Float(9007199254740992.0), kCFCompareGreaterThan},
        {Integer(kLongest), Float(9223372036854775808.0), kCFCompareLessThan},
        {Integer(-kLongest - 1), Float(-9223372036854775808.0), kCFCompareEqualTo},
        {Integer(-kLongest - 1), Float(-1e300), kCFCompareGreaterThan},
        {Float(-0.0), Float(0.0), kCFCompareLessThan},
        {Float(-0.0), Integer(0), kCFCompareLessThan},
        {Float(-0.0), Float(-0.0), kCFCompareEqualTo},
        {Float(0.0), Integer(0), kCFCompareEqualTo},
        {Float(kNaN), Float(kNaN), kCFCompareEqualTo},
        {Float(kNaN), Integer(0), kCFCompareLessThan},
        {Float(kNaN), Float(1e300), kCFCompareLessThan},
        {Float(kNaN), Integer(-1), kCFCompareGreaterThan},
        {Float(kNaN), Float(-kInfinity), kCFCompareGreaterThan},
        {Float(1.5), Float(2.5), kCFCompareLessThan},
    };
    for (const Row& theRow : kRows) {
        SCOPED_TRACE(DescriptionOf(theRow.theFirst) + " with " + DescriptionOf(theRow.theSecond));
        EXPECT_EQ(CFNumberCompare(theRow.theFirst, theRow.theSecond, nullptr), theRow.theExpected);
        EXPECT_EQ(CFNumberCompare(theRow.theSecond, theRow.theFirst, nullptr), -theRow.theExpected);
        EXPECT_EQ(CFEqual(theRow.theFirst, theRow.theSecond), theRow.theExpected == kCFCompareEqualTo);
    }
}

TEST(CFNumber, DescriptionsTellValueAndType)
{
    EXPECT_EQ(DescriptionOf(Integer(5)), "{value = +5, type = kCFNumberSInt32Type}");
    EXPECT_EQ(DescriptionOf(Integer(-500)), "{value = -500, type = kCFNumberSInt64Type}");
    EXPECT_EQ(DescriptionOf(Number(kCFNumberFloat32Type, 2.5F)),
              "{value = +2.5000000000, type = kCFNumberFloat32Type}");
    EXPECT_EQ(DescriptionOf(Float(2.5)), "{value = +2.50000000000000000000, type = kCFNumberFloat64Type}");
    EXPECT_EQ(DescriptionOf(Float(0.0)), "{value = +0.0, type = kCFNumberFloat64Type}");
    EXPECT_EQ(DescriptionOf(Float(-0.0)), "{value = -0.0, type = kCFNumberFloat64Type}");
    EXPECT_EQ(DescriptionOf(kCFNumberNaN), "{value = nan, type = kCFNumberFloat64Type}");
    EXPECT_EQ(DescriptionOf(kCFNumberPositiveInfinity), "{value = +infinity, type = kCFNumberFloat64Type}");
    EXPECT_EQ(DescriptionOf(kCFNumberNegativeInfinity), "{value = -infinity, type = kCFNumberFloat64Type}");
}
