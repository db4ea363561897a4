// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmLogicalTransforms.h"

#include "StandardErrorCapture.h"
#include "TestStrings.h"
#include "TestValues.h"
#include "VirtualSlot.h"

#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <ostream>
#include <type_traits>

template <typename Transform>
constexpr bool kIsTransform =
    std::is_base_of_v<LmValueTransform, Transform> && !std::is_abstract_v<Transform>;
static_assert(kIsTransform<LmIsNullTransform> && kIsTransform<LmIsNotNullTransform> &&
                  kIsTransform<LmIsAboveTransform> && kIsTransform<LmIsBelowTransform> &&
                  kIsTransform<LmIsEqualTransform> && kIsTransform<LmIsNotEqualTransform>,
              "transforms like any other");
static_assert(sizeof(LmIsNullTransform) == sizeof(LmValueTransform), "no members");
static_assert(sizeof(LmIsNotNullTransform) == sizeof(LmValueTransform), "no members");
static_assert(sizeof(LmIsAboveTransform) == sizeof(LmValueTransform) + sizeof(LmValue) + sizeof(void*),
              "the compared value and the flag");
static_assert(sizeof(LmIsBelowTransform) == sizeof(LmIsAboveTransform), "the compared value and the flag");
static_assert(sizeof(LmIsEqualTransform) == sizeof(LmValueTransform) + sizeof(LmValue), "the compared value");
static_assert(sizeof(LmIsNotEqualTransform) == sizeof(LmIsEqualTransform), "the compared value");

namespace {

const char* const kLeftOver = "Source/Core/LmValueTransform.cpp, line #: mRefCount == 0";
const char* const kNotANumber = "Source/Core/LmValue.cpp, line #: IsNumber()";
const char* const kNotAPointer = "Source/Core/LmValue.cpp, line #: IsPointer()";

const double kNaN = std::numeric_limits<double>::quiet_NaN();

std::string IllegalType(unsigned theType)
{
    return "Source/Transforms/LmLogicalTransforms.cpp, line #: Illegal value type: " +
           std::to_string(theType);
}

// Holds a transform as its creator does, and applies it.
class Question
{
public:
    explicit Question(LmValueTransform* theTransform)
        : mTransform(theTransform)
    {
    }
    ~Question() { mTransform->Release(); }
    Question(const Question&) = delete;
    Question& operator=(const Question&) = delete;

    bool Ask(const LmValue& theValue)
    {
        const LmValue theAnswer = mTransform->Apply(theValue);
        EXPECT_EQ(theAnswer.GetType(), kTypeBoolean);
        return theAnswer.IsBoolean() && theAnswer.GetBoolean();
    }

private:
    LmValueTransform* mTransform;
};

LmValue Pointer(std::uintptr_t theAddress)
{
    return LmValue(reinterpret_cast<const void*>(theAddress));
}

LmValue Text(const char* theText)
{
    return LmValue(MakeString(theText), true);
}

LmValue NullText()
{
    return LmValue(NULL, false);
}

// A value that may be of an unknown kind: made on the spot, because such a value cannot be copied.
LmValue* NewValueOfKind(unsigned theType)
{
    switch (theType) {
    case kTypePoint:
        return new LmValue(CGPoint{1, 2});
    case kTypeSize:
        return new LmValue(CGSize{1, 2});
    case kTypeRect:
        return new LmValue(CGRect{{1, 2}, {3, 4}});
    case kTypeInvalid:
        return new LmValue;
    default:
        return new TestValue(theType);
    }
}

// Applies the question to a value of an illegal kind; the lines that it prints go to theLines.
bool AskIllegal(Question& theQuestion, unsigned theType, Lines& theLines)
{
    LmValue* theValue = NewValueOfKind(theType);
    StandardErrorCapture::TakeText();
    const bool theAnswer = theQuestion.Ask(*theValue);
    theLines = StandardErrorCapture::TakeDiagnostics();
    delete theValue;
    StandardErrorCapture::TakeText();
    return theAnswer;
}

} // namespace

// Whether a value is null.
struct NullRow
{
    const char* theName;
    LmValue theValue;
    bool theIsNull;
};

static std::ostream& operator<<(std::ostream& theStream, const NullRow& theRow)
{
    return theStream << theRow.theName;
}

class LmIsNullTransformTable : public testing::TestWithParam<NullRow>
{
};

TEST_P(LmIsNullTransformTable, TellsWhatIsNull)
{
    Question theQuestion(new LmIsNullTransform);
    EXPECT_EQ(theQuestion.Ask(GetParam().theValue), GetParam().theIsNull);
}

TEST_P(LmIsNullTransformTable, IsNotNullIsTheOppositeAndReportsItsTemporaryOnPurpose)
{
    Question theQuestion(new LmIsNotNullTransform);
    EXPECT_EQ(theQuestion.Ask(GetParam().theValue), !GetParam().theIsNull);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{kLeftOver});
}

INSTANTIATE_TEST_SUITE_P(
    Values, LmIsNullTransformTable,
    testing::Values(NullRow{"false", LmValue(false), true}, NullRow{"true", LmValue(true), false},
                    NullRow{"0UL", LmValue(0UL), true}, NullRow{"1UL", LmValue(1UL), false},
                    NullRow{"4294967295UL", LmValue(4294967295UL), false}, NullRow{"0L", LmValue(0L), true},
                    NullRow{"-1L", LmValue(-1L), false}, NullRow{"0ULL", LmValue(0ULL), true},
                    NullRow{"4294967296ULL", LmValue(4294967296ULL), false},
                    NullRow{"0LL", LmValue(0LL), true},
                    NullRow{"-4294967296LL", LmValue(-4294967296LL), false},
                    NullRow{"0.0", LmValue(0.0), true}, NullRow{"-0.0", LmValue(-0.0), true},
                    NullRow{"0.25", LmValue(0.25), false}, NullRow{"NaN", LmValue(kNaN), false},
                    NullRow{"a null pointer", Pointer(0), true}, NullRow{"a pointer", Pointer(16), false},
                    NullRow{"a null string", NullText(), true},
                    NullRow{"an empty string", LmValue(CFSTR(""), false), true},
                    NullRow{"a string", LmValue(CFSTR("x"), false), false},
                    NullRow{"the point 0 0", LmValue(CGPoint{0, 0}), true},
                    NullRow{"the point 1 0", LmValue(CGPoint{1, 0}), false},
                    NullRow{"the point 0 1", LmValue(CGPoint{0, 1}), false},
                    NullRow{"the size 0 0", LmValue(CGSize{0, 0}), true},
                    NullRow{"the size 0 7, on purpose", LmValue(CGSize{0, 7}), true},
                    NullRow{"the size 7 0, on purpose", LmValue(CGSize{7, 0}), false},
                    NullRow{"an empty rectangle at 5 5", LmValue(CGRect{{5, 5}, {0, 0}}), true},
                    NullRow{"a rectangle of width 1", LmValue(CGRect{{0, 0}, {1, 0}}), false},
                    NullRow{"a rectangle of height 1", LmValue(CGRect{{0, 0}, {0, 1}}), false}));

TEST(LmIsNullTransform, ReportsAnInvalidValueAndAnUnknownKind)
{
    Question theQuestion(new LmIsNullTransform);
    for (const unsigned theType : {0U, 12U, 4711U}) {
        Lines theLines;
        EXPECT_FALSE(AskIllegal(theQuestion, theType, theLines));
        EXPECT_EQ(theLines, Lines{IllegalType(theType)});
    }
}

TEST(LmIsNotNullTransform, ReportsAnIllegalKindAndAnswersTrueOnPurpose)
{
    Question theQuestion(new LmIsNotNullTransform);
    for (const unsigned theType : {0U, 12U}) {
        Lines theLines;
        EXPECT_TRUE(AskIllegal(theQuestion, theType, theLines));
        EXPECT_EQ(theLines, (Lines{IllegalType(theType), kLeftOver}));
    }
}

// A value beside the one that it is compared with: the answers of both modes.
struct AboveRow
{
    const char* theName;
    LmValue theValue;
    LmValue theCompareValue;
    bool theIsAbove;
    bool theIsAboveOrEqual;
};

static std::ostream& operator<<(std::ostream& theStream, const AboveRow& theRow)
{
    return theStream << theRow.theName;
}

class LmIsAboveTransformTable : public testing::TestWithParam<AboveRow>
{
};

TEST_P(LmIsAboveTransformTable, ComparesByTheKindOfTheInput)
{
    const AboveRow& theRow = GetParam();
    Question theStrict(new LmIsAboveTransform(theRow.theCompareValue, false));
    EXPECT_EQ(theStrict.Ask(theRow.theValue), theRow.theIsAbove);
    Question theInclusive(new LmIsAboveTransform(theRow.theCompareValue, true));
    EXPECT_EQ(theInclusive.Ask(theRow.theValue), theRow.theIsAboveOrEqual);
}

TEST_P(LmIsAboveTransformTable, IsBelowIsTheOppositeAndReportsItsTemporaryOnPurpose)
{
    const AboveRow& theRow = GetParam();
    Question theStrict(new LmIsBelowTransform(theRow.theCompareValue, false));
    EXPECT_EQ(theStrict.Ask(theRow.theValue), !theRow.theIsAboveOrEqual);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{kLeftOver});
    Question theInclusive(new LmIsBelowTransform(theRow.theCompareValue, true));
    EXPECT_EQ(theInclusive.Ask(theRow.theValue), !theRow.theIsAbove);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{kLeftOver});
}

INSTANTIATE_TEST_SUITE_P(
    Booleans, LmIsAboveTransformTable,
    testing::Values(AboveRow{"true and false", LmValue(true), LmValue(false), true, true},
                    AboveRow{"true and true", LmValue(true), LmValue(true), false, true},
                    AboveRow{"false and true", LmValue(false), LmValue(true), false, false},
                    AboveRow{"true and 7", LmValue(true), LmValue(7L), false, true}));

INSTANTIATE_TEST_SUITE_P(
    Integers, LmIsAboveTransformTable,
    testing::Values(AboveRow{"10UL and 10L", LmValue(10UL), LmValue(10L), false, true},
                    AboveRow{"11UL and 10.9", LmValue(11UL), LmValue(10.9), true, true},
                    AboveRow{"9UL and 10UL", LmValue(9UL), LmValue(10UL), false, false},
                    // -1 reads as the largest unsigned number.
                    AboveRow{"4294967294UL and -1L", LmValue(4294967294UL), LmValue(-1L), false, false},
                    AboveRow{"4294967295UL and 1L", LmValue(4294967295UL), LmValue(1L), true, true},
                    AboveRow{"10L and 10UL", LmValue(10L), LmValue(10UL), false, true},
                    AboveRow{"11L and 10UL", LmValue(11L), LmValue(10UL), true, true},
                    AboveRow{"-1L and 0L", LmValue(-1L), LmValue(0L), false, false},
                    // 4294967295 reads as -1.
                    AboveRow{"0L and 4294967295UL", LmValue(0L), LmValue(4294967295UL), true, true},
                    AboveRow{"2^63 ULL and 1ULL", LmValue(0x8000000000000000ULL), LmValue(1ULL), true, true},
                    AboveRow{"5ULL and 5.5", LmValue(5ULL), LmValue(5.5), false, true},
                    AboveRow{"5ULL and -1L", LmValue(5ULL), LmValue(-1L), false, false},
                    AboveRow{"-1LL and 1LL", LmValue(-1LL), LmValue(1LL), false, false},
                    AboveRow{"4294967296LL and 1L", LmValue(4294967296LL), LmValue(1L), true, true},
                    // No double tells these two apart.
                    AboveRow{"2^53 + 1 LL and 2^53 LL", LmValue(9007199254740993LL),
                             LmValue(9007199254740992LL), true, true},
                    AboveRow{"7LL and 7UL", LmValue(7LL), LmValue(7UL), false, true}));

INSTANTIATE_TEST_SUITE_P(Doubles, LmIsAboveTransformTable,
                         testing::Values(AboveRow{"1.5 and 1L", LmValue(1.5), LmValue(1L), true, true},
                                         AboveRow{"1.5 and 1.5", LmValue(1.5), LmValue(1.5), false, true},
                                         AboveRow{"1.5 and 1.75", LmValue(1.5), LmValue(1.75), false, false},
                                         AboveRow{"NaN and 1.0", LmValue(kNaN), LmValue(1.0), false, false},
                                         AboveRow{"1.0 and NaN", LmValue(1.0), LmValue(kNaN), false, false}));

INSTANTIATE_TEST_SUITE_P(
    PointersAndStrings, LmIsAboveTransformTable,
    testing::Values(AboveRow{"a higher address", Pointer(UINTPTR_MAX), Pointer(1), true, true},
                    AboveRow{"the same address", Pointer(16), Pointer(16), false, true},
                    AboveRow{"a lower address", Pointer(1), Pointer(16), false, false},
                    AboveRow{"b and a, on purpose", Text("b"), Text("a"), false, true},
                    AboveRow{"a and b, on purpose", Text("a"), Text("b"), false, true},
                    AboveRow{"a and a number, on purpose", Text("a"), LmValue(1L), false, true},
                    AboveRow{"a null string", NullText(), Text("a"), false, false}));

// The kinds that cannot be above or below anything.
class LmIsAboveTransformIllegal : public testing::TestWithParam<unsigned>
{
};

TEST_P(LmIsAboveTransformIllegal, IsReportedAndAnsweredWithFalse)
{
    for (const bool isInclusive : {false, true}) {
        Question theQuestion(new LmIsAboveTransform(LmValue(1L), isInclusive));
        Lines theLines;
        EXPECT_FALSE(AskIllegal(theQuestion, GetParam(), theLines));
        EXPECT_EQ(theLines, Lines{IllegalType(GetParam())});
    }
}

TEST_P(LmIsAboveTransformIllegal, IsReportedAndAnsweredWithTrueByIsBelowOnPurpose)
{
    for (const bool isInclusive : {false, true}) {
        Question theQuestion(new LmIsBelowTransform(LmValue(1L), isInclusive));
        Lines theLines;
        EXPECT_TRUE(AskIllegal(theQuestion, GetParam(), theLines));
        EXPECT_EQ(theLines, (Lines{IllegalType(GetParam()), kLeftOver}));
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, LmIsAboveTransformIllegal, testing::Values(0U, 9U, 10U, 11U, 12U));

TEST(LmIsAboveTransform, AComparedValueThatCannotBeReadIsReported)
{
    Question theQuestion(new LmIsAboveTransform(LmValue(), false));
    EXPECT_TRUE(theQuestion.Ask(LmValue(1L)));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{kNotANumber});
    EXPECT_TRUE(theQuestion.Ask(Pointer(16)));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{kNotAPointer});
}

TEST(LmIsAboveTransform, KeepsACopyOfTheComparedValue)
{
    LmValue theCompareValue(10L);
    Question theAbove(new LmIsAboveTransform(theCompareValue, false));
    Question theBelow(new LmIsBelowTransform(theCompareValue, false));
    theCompareValue.SetSInt32(20);
    EXPECT_TRUE(theAbove.Ask(LmValue(11L)));
    EXPECT_FALSE(theBelow.Ask(LmValue(11L)));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{kLeftOver});
}

// Whether two values are equal.
struct EqualRow
{
    const char* theName;
    LmValue theValue;
    LmValue theCompareValue;
    bool theIsEqual;
};

static std::ostream& operator<<(std::ostream& theStream, const EqualRow& theRow)
{
    return theStream << theRow.theName;
}

class LmIsEqualTransformTable : public testing::TestWithParam<EqualRow>
{
};

TEST_P(LmIsEqualTransformTable, ComparesAsValuesDo)
{
    Question theQuestion(new LmIsEqualTransform(GetParam().theCompareValue));
    EXPECT_EQ(theQuestion.Ask(GetParam().theValue), GetParam().theIsEqual);
}

TEST_P(LmIsEqualTransformTable, IsNotEqualIsTheOppositeAndReportsItsTemporaryOnPurpose)
{
    Question theQuestion(new LmIsNotEqualTransform(GetParam().theCompareValue));
    EXPECT_EQ(theQuestion.Ask(GetParam().theValue), !GetParam().theIsEqual);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{kLeftOver});
}

INSTANTIATE_TEST_SUITE_P(
    Values, LmIsEqualTransformTable,
    testing::Values(EqualRow{"1L and 1.5", LmValue(1L), LmValue(1.5), true},
                    EqualRow{"2L and 1.5", LmValue(2L), LmValue(1.5), false},
                    EqualRow{"true and 1ULL", LmValue(true), LmValue(1ULL), true},
                    EqualRow{"a pointer and a string", Pointer(16), Text("x"), false},
                    EqualRow{"equal strings", Text("x"), Text("x"), true},
                    EqualRow{"strings of different case", Text("x"), Text("X"), false},
                    EqualRow{"null strings", NullText(), NullText(), false},
                    EqualRow{"invalid values", LmValue(), LmValue(), true},
                    EqualRow{"an invalid value and 0", LmValue(), LmValue(0L), false},
                    EqualRow{"equal points", LmValue(CGPoint{1, 2}), LmValue(CGPoint{1, 2}), true},
                    EqualRow{"a point and a size", LmValue(CGPoint{1, 2}), LmValue(CGSize{1, 2}), false},
                    EqualRow{"different rectangles", LmValue(CGRect{{1, 2}, {3, 4}}),
                             LmValue(CGRect{{1, 2}, {3, 5}}), false}));

TEST(LmIsEqualTransform, KeepsACopyOfTheComparedValue)
{
    LmValue theCompareValue(10L);
    Question theEqual(new LmIsEqualTransform(theCompareValue));
    Question theNotEqual(new LmIsNotEqualTransform(theCompareValue));
    theCompareValue.SetSInt32(20);
    EXPECT_TRUE(theEqual.Ask(LmValue(10L)));
    EXPECT_FALSE(theNotEqual.Ask(LmValue(10L)));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Lines{kLeftOver});
}

TEST(LmIsEqualTransform, ReleasesTheComparedStringWhenItDies)
{
    const TestString theString("text");
    {
        Question theEqual(new LmIsEqualTransform(LmValue(theString.Get(), false)));
        Question theAbove(new LmIsAboveTransform(LmValue(theString.Get(), false), true));
        EXPECT_EQ(theString.GetRetainCount(), 3);
    }
    EXPECT_EQ(theString.GetRetainCount(), 1);
}

TEST(LmLogicalTransforms, KeepTheirMembersInOrder)
{
    auto* const theTransform = new LmIsAboveTransform(LmValue(5L), true);
    const char* const theBytes = reinterpret_cast<const char*>(theTransform) + sizeof(LmValueTransform);
    ValueType theType = kTypeInvalid;
    std::memcpy(&theType, theBytes + sizeof(void*), sizeof theType);
    EXPECT_EQ(theType, kTypeSInt32);
    EXPECT_EQ(theBytes[sizeof(LmValue)], 1);
    theTransform->Release();
}

TEST(LmLogicalTransforms, ApplyIsTheThirdVirtualFunctionOfEach)
{
    EXPECT_EQ(GetVirtualSlot(&LmIsNullTransform::Apply), 2U);
    EXPECT_EQ(GetVirtualSlot(&LmIsNotNullTransform::Apply), 2U);
    EXPECT_EQ(GetVirtualSlot(&LmIsAboveTransform::Apply), 2U);
    EXPECT_EQ(GetVirtualSlot(&LmIsBelowTransform::Apply), 2U);
    EXPECT_EQ(GetVirtualSlot(&LmIsEqualTransform::Apply), 2U);
    EXPECT_EQ(GetVirtualSlot(&LmIsNotEqualTransform::Apply), 2U);
}
