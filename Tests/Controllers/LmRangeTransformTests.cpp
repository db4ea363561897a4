// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmRangeTransform.h"

#include "ControllersTestSupport.h"
#include "LmKeyValueBinding.h"

#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <ostream>

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInfinity = std::numeric_limits<double>::infinity();
const long long kLowest64 = std::numeric_limits<std::int64_t>::min();
const long long kHighest64 = std::numeric_limits<std::int64_t>::max();
const unsigned long long kHighestUnsigned64 = std::numeric_limits<std::uint64_t>::max();
const LmValue kOpen;

struct Row
{
    LmValue theMinimum;
    LmValue theMaximum;
    LmValue theStep;
    LmValue theInput;
    const char* theResult;
};

void PrintTo(const Row& theRow, std::ostream* theStream)
{
    *theStream << theRow.theMinimum << " to " << theRow.theMaximum << " by " << theRow.theStep << ": "
               << theRow.theInput;
}

LmValue LimitOnce(LmValueTransform* theTransform, const LmValue& theValue)
{
    LmValue theResult = theTransform->Apply(theValue);
    theTransform->Release();
    return theResult;
}

class LmRangeTransformTable : public testing::TestWithParam<Row>
{
};

} // namespace

TEST_P(LmRangeTransformTable, LimitsAsItsRowSays)
{
    const Row& theRow = GetParam();
    EXPECT_EQ(Describe(LimitOnce(new LmRangeTransform(theRow.theMinimum, theRow.theMaximum, theRow.theStep),
                                 theRow.theInput)),
              theRow.theResult);
}

INSTANTIATE_TEST_SUITE_P(
    Clamps, LmRangeTransformTable,
    testing::Values(Row{15, 30, kOpen, 14, "SInt32 15"}, Row{15, 30, kOpen, 15, "SInt32 15"},
                    Row{15, 30, kOpen, 22, "SInt32 22"}, Row{15, 30, kOpen, 30, "SInt32 30"},
                    Row{15, 30, kOpen, 31, "SInt32 30"}, Row{15, kOpen, kOpen, 14, "SInt32 15"},
                    Row{15, kOpen, kOpen, 2147483647, "SInt32 2147483647"},
                    Row{kOpen, 30, kOpen, 31, "SInt32 30"},
                    Row{kOpen, 30, kOpen, kLowest64, "SInt32 -2147483648"},
                    Row{30, 15, kOpen, 99, "SInt32 30"}, // the wrong way round
                    Row{30, 15, kOpen, 0, "SInt32 15"}, Row{7, 7, kOpen, 0, "SInt32 7"},
                    Row{0.25, 0.75, kOpen, 0.1, "Double 0.25"}, Row{0.25, 0.75, kOpen, 0.5, "Double 0.5"},
                    Row{0.25, 0.75, kOpen, 9, "Double 0.75"}, Row{0.75, 0.25, kOpen, 9, "Double 0.75"},
                    Row{0.25, kOpen, kOpen, 1e300, "Double 1e+300"}));

INSTANTIATE_TEST_SUITE_P(
    MakesTheKindOfTheRange, LmRangeTransformTable,
    testing::Values(Row{15, 30, kOpen, 22.0, "SInt32 22"}, Row{15, 30, kOpen, 22ULL, "SInt32 22"},
                    Row{15UL, 30UL, kOpen, 22, "UInt32 22"}, Row{15LL, 30, kOpen, 22, "SInt64 22"},
                    Row{15, 30LL, kOpen, 22, "SInt64 22"}, Row{15, 30, 1LL, 22, "SInt64 22"},
                    Row{15ULL, 30, kOpen, 22, "UInt64 22"}, Row{0, 1, 0.25, 1, "Double 1"},
                    Row{false, true, kOpen, 22, "UInt32 1"}, Row{kOpen, kOpen, 5, 22, "SInt32 20"},
                    Row{-1, 5ULL, kOpen, -4, "UInt64 0"}, // the minimum becomes one that the kind has
                    Row{0LL, kHighestUnsigned64, kOpen, kHighestUnsigned64, "SInt64 9223372036854775807"}));

INSTANTIATE_TEST_SUITE_P(
    ReadsNumbersOfAllKinds, LmRangeTransformTable,
    testing::Values(Row{0, 100, kOpen, 22.4, "SInt32 22"}, Row{0, 100, kOpen, 22.5, "SInt32 23"},
                    Row{-100, 100, kOpen, -22.6, "SInt32 -23"}, Row{0, 100, kOpen, true, "SInt32 1"},
                    Row{0, 100, kOpen, 1e300, "SInt32 100"}, Row{0, 100, kOpen, -1e300, "SInt32 0"},
                    Row{0, 100, kOpen, kInfinity, "SInt32 100"}, Row{0, 100, kOpen, -kInfinity, "SInt32 0"},
                    Row{kLowest64, kHighest64, kOpen, -1e300, "SInt64 -9223372036854775808"},
                    Row{0ULL, kOpen, kOpen, 1.8e19, "UInt64 18000000000000000000"},
                    Row{0, 100, kOpen, kLowest64, "SInt32 0"},
                    Row{0, 100, kOpen, kHighestUnsigned64, "SInt32 100"},
                    Row{0.0, 1.0, kOpen, kHighestUnsigned64, "Double 1"},
                    Row{-1.0, 1.0, kOpen, kInfinity, "Double 1"}));

INSTANTIATE_TEST_SUITE_P(ReadsWhatAControlGivesAsSignedOnPurpose, LmRangeTransformTable,
                         testing::Values(Row{-10, 10, kOpen, 4294967291UL, "SInt32 -5"},
                                         Row{0, 10, kOpen, 4294967291UL, "SInt32 0"},
                                         Row{-10.0, 10.0, kOpen, 4294967291UL, "Double -5"},
                                         Row{-10, kOpen, kOpen, 4294967291UL, "SInt32 -5"},
                                         Row{-10, 5000000000LL, kOpen, 4294967291UL, "SInt64 4294967291"},
                                         Row{-10.0, kOpen, kOpen, 4294967291UL, "Double 4294967291"},
                                         Row{0UL, kOpen, kOpen, 4294967291UL, "UInt32 4294967291"},
                                         Row{-10, 10, kOpen, 4294967291LL, "SInt32 10"}));

INSTANTIATE_TEST_SUITE_P(
    SnapsToSteps, LmRangeTransformTable,
    testing::Values(Row{15, 30, 5, 17, "SInt32 15"}, Row{15, 30, 5, 18, "SInt32 20"},
                    Row{1, 9, 4, 3, "SInt32 5"},    // halfway
                    Row{0, 10, 3, 10, "SInt32 9"},  // the maximum is on no step
                    Row{0, 10, 20, 10, "SInt32 0"}, // the only step
                    Row{-7, 7, 5, 0, "SInt32 -2"}, Row{kOpen, 7, 5, -8, "SInt32 -10"},
                    Row{kOpen, 7, 5, 7, "SInt32 5"}, Row{kOpen, 7, 5, kLowest64, "SInt32 -2147483645"},
                    Row{kOpen, -2147483647, 1000, 0, "SInt32 -2147483647"}, // there is no step
                    Row{15, 30, 0, 17, "SInt32 17"}, Row{15, 30, -5, 17, "SInt32 17"},
                    Row{kLowest64, kHighest64, kHighest64, 9223372036854775000LL,
                        "SInt64 9223372036854775806"},
                    Row{0ULL, kHighestUnsigned64, 2, kHighestUnsigned64, "UInt64 18446744073709551614"},
                    Row{0, 1, 0.25, 0.3, "Double 0.25"}, Row{0, 1, 0.25, 0.375, "Double 0.5"},
                    Row{0.0, 0.3, 0.1, 9, "Double 0.3"}, Row{1.0, 1.7, 0.1, 1.7, "Double 1.7"},
                    Row{0.0, 0.2999, 0.1, 9, "Double 0.2"}, Row{0, 1, 0.4, 1, "Double 0.8"},
                    Row{kOpen, -7, 2.5, 0, "Double -7.5"}, Row{0.5, 9, 1.0, 3, "Double 3.5"},
                    Row{0, 1, -0.25, 0.3, "Double 0.3"}, Row{0, 1, 1e-320, 0.3, "Double 0.3"},
                    Row{0, kOpen, 0.5, kInfinity, "Double inf"}, Row{0, 1e300, 0.5, 1e299, "Double 1e+299"}));

INSTANTIATE_TEST_SUITE_P(
    TakesNaN, LmRangeTransformTable,
    testing::Values(Row{15, 30, kOpen, kNaN, "SInt32 15"}, Row{-15, 30, kOpen, kNaN, "SInt32 0"},
                    Row{-1.0, 1.0, kOpen, kNaN, "Double 0"}, Row{1.0, 2.0, kOpen, kNaN, "Double 1"},
                    Row{kNaN, 30, kOpen, -99, "SInt32 -99"}, Row{15, kNaN, kOpen, 99, "SInt32 99"},
                    Row{15, 30, kNaN, 17, "SInt32 17"}, Row{kNaN, kNaN, kNaN, 17, "SInt32 17"}));

TEST(LmRangeTransform, LetsEverythingElsePass)
{
    const LmValue theText(CFSTR("99"), false);
    EXPECT_EQ(Describe(LimitOnce(new LmRangeTransform(15, 30), theText)), "String \"99\"");
    EXPECT_EQ(Describe(LimitOnce(new LmRangeTransform(15, 30), LmValue())), "-");
    EXPECT_EQ(Describe(LimitOnce(new LmRangeTransform(15, 30), LmValue(CGPoint{99, 99}))), "Point (99, 99)");
    EXPECT_EQ(Describe(LimitOnce(new LmRangeTransform(kOpen, theText), LmValue(99))), "SInt32 99");
}

TEST(LmRangeTransform, FindsTheNearestStepOfEveryRange)
{
    for (int theMinimum = -6; theMinimum <= 3; ++theMinimum) {
        for (int theMaximum = theMinimum; theMaximum <= 9; ++theMaximum) {
            for (int theStep = 1; theStep <= 5; ++theStep) {
                LmRangeTransform* theTransform = new LmRangeTransform(theMinimum, theMaximum, theStep);
                for (int theNumber = -9; theNumber <= 12; ++theNumber) {
                    int theNearest = theMinimum;
                    for (int theOne = theMinimum; theOne <= theMaximum; theOne += theStep) {
                        const int theClamped = std::min(std::max(theNumber, theMinimum), theMaximum);
                        if (std::abs(theOne - theClamped) <= std::abs(theNearest - theClamped)) {
                            theNearest = theOne;
                        }
                    }
                    EXPECT_EQ(theTransform->Apply(LmValue(theNumber)).GetSInt32(), theNearest)
                        << theNumber << " in " << theMinimum << " to " << theMaximum << " by " << theStep;
                }
                theTransform->Release();
            }
        }
    }
}

TEST(LmRangeTransform, ReachesAMaximumThatOnlyRoundingTakesOffTheSteps)
{
    for (int theLowest = 0; theLowest < 100; ++theLowest) {
        for (int theHighest = theLowest; theHighest < 100; ++theHighest) {
            const double theMaximum = theHighest / 100.0;
            EXPECT_EQ(
                LimitOnce(new LmRangeTransform(theLowest / 100.0, theMaximum, 0.01), LmValue(9)).GetDouble(),
                theMaximum)
                << "from " << theLowest << " hundredths";
        }
    }
    const double theLarge = 2251799813685248.0; // rounding is as large as the steps here
    EXPECT_EQ(LimitOnce(new LmRangeTransform(0.0, theLarge + 0.5, 1.0), LmValue(1e300)).GetDouble(),
              theLarge);
}

TEST(LmRangeTransform, KeepsWhatAControlGivesFromTheModel)
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theSlider;
    theModel.SetKeyPathValue("target", LmValue(99));
    theSlider.Bind("value", &theModel, "target", nullptr, new LmRangeTransform(15, 30, 5));
    EXPECT_EQ(Read(theModel, "target"), "SInt32 30") << "the first value comes back limited";
    theSlider.SetKeyPathValue("value", LmValue(22));
    EXPECT_EQ(Read(theModel, "target"), "SInt32 20");
}

TEST(LmRangeTransform, AsTheFirstTransformLimitsWhatIsShownAndThenTheModel)
{
    LmKeyValueBinding theModel;
    LmKeyValueBinding theSlider;
    theModel.SetKeyPathValue("target", LmValue(99));
    theSlider.Bind("value", &theModel, "target", new LmRangeTransform(15, 30), nullptr);
    EXPECT_EQ(Read(theSlider, "value"), "SInt32 30");
    EXPECT_EQ(Read(theModel, "target"), "SInt32 30");
}
