// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Value.h"

#include <gtest/gtest.h>
#include <limits>

using Inspect::Value;

namespace {

Value Integer(Value::Kind theKind, std::uint64_t theNumber)
{
    Value theValue;
    theValue.theKind = theKind;
    theValue.theInteger = theNumber;
    return theValue;
}

Value Double(double theNumber)
{
    Value theValue;
    theValue.theKind = Value::Kind::Double;
    theValue.theDouble = theNumber;
    return theValue;
}

Value Text(const std::string& theText)
{
    Value theValue;
    theValue.theKind = Value::Kind::String;
    theValue.theText = theText;
    return theValue;
}

const std::uint64_t kMinusOne = std::numeric_limits<std::uint64_t>::max();

} // namespace

TEST(Value, IsShownWithAsFewDigitsAsItTakes)
{
    EXPECT_EQ(Inspect::Show(Double(40)), "40");
    EXPECT_EQ(Inspect::Show(Double(0.1)), "0.1");
    EXPECT_EQ(Inspect::Show(Double(1.0 / 3)), "0.3333333333333333");
    EXPECT_EQ(Inspect::Show(Double(1e300)), "1e+300");
}

TEST(Value, DiffersAsANumberWhateverItsKind)
{
    EXPECT_TRUE(AreDifferentNumbers(Double(20.25), Integer(Value::Kind::SInt32, 20)));
    EXPECT_FALSE(AreDifferentNumbers(Double(20), Integer(Value::Kind::SInt32, 20)));
    EXPECT_FALSE(AreDifferentNumbers(Integer(Value::Kind::Boolean, 1), Integer(Value::Kind::UInt32, 1)));
    EXPECT_TRUE(AreDifferentNumbers(Integer(Value::Kind::SInt32, kMinusOne),
                                    Integer(Value::Kind::UInt64, kMinusOne)));
    EXPECT_FALSE(AreDifferentNumbers(Double(std::numeric_limits<double>::quiet_NaN()),
                                     Double(std::numeric_limits<double>::quiet_NaN())));
    EXPECT_FALSE(AreDifferentNumbers(Text("a"), Text("b"))) << "these are no numbers";
}

TEST(Value, IsTheSameOnlyAsItsOwnKind)
{
    EXPECT_TRUE(IsSame(Text("a"), Text("a")));
    EXPECT_FALSE(IsSame(Text("a"), Text("b")));
    EXPECT_FALSE(IsSame(Double(1), Integer(Value::Kind::UInt32, 1)));
    EXPECT_TRUE(IsSame(Double(std::numeric_limits<double>::quiet_NaN()),
                       Double(std::numeric_limits<double>::quiet_NaN())));
    Value thePoint = Double(0);
    thePoint.theKind = Value::Kind::Point;
    Value theOther = thePoint;
    theOther.theParts[1] = 2;
    EXPECT_FALSE(IsSame(thePoint, theOther));
}

TEST(Value, HasANameForEachKind)
{
    for (int theKind = 0; theKind <= static_cast<int>(Value::Kind::Unknown); ++theKind) {
        EXPECT_FALSE(Inspect::ShowKind(static_cast<Value::Kind>(theKind)).empty());
    }
}
