// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmValue.h"

#include "AllocationFailures.h"
#include "StandardErrorCapture.h"
#include "TestStrings.h"
#include "TestValues.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <ostream>
#include <type_traits>
#include <vector>

static_assert(std::is_polymorphic_v<LmValue> && std::has_virtual_destructor_v<LmValue>,
              "applications derive from LmValue");
static_assert(sizeof(LmValue) == 3 * sizeof(void*), "table, kind and word");
static_assert(sizeof(void*) != 4 || sizeof(LmValue) == 12, "12 bytes on 32-bit systems");
static_assert(sizeof(ValueType) == 4 && std::is_unsigned_v<std::underlying_type_t<ValueType>>,
              "the kind is an unsigned number of 32 bits");
static_assert(std::is_nothrow_move_constructible_v<LmValue> && std::is_nothrow_move_assignable_v<LmValue>,
              "a moved value must not need memory");

namespace {

const unsigned kTypeUnknown = 12;

const CGPoint kPoint = {1.5F, -2.5F};
const CGSize kSize = {3.5F, 4.5F};
const CGRect kRect = {{1, 2}, {30, 40}};

Lines Diagnostic(const char* theText)
{
    return {std::string("Source/Core/LmValue.cpp, line #: ") + theText};
}

// One value of each kind, the invalid one first, each at the index of its kind.
std::vector<LmValue> OneOfEachKind()
{
    std::vector<LmValue> theValues;
    theValues.emplace_back();
    theValues.emplace_back(true);
    theValues.emplace_back(2UL);
    theValues.emplace_back(-3L);
    theValues.emplace_back(4ULL);
    theValues.emplace_back(-5LL);
    theValues.emplace_back(6.5);
    theValues.emplace_back(static_cast<const void*>("seven"));
    theValues.emplace_back(MakeString("eight"), true);
    theValues.emplace_back(kPoint);
    theValues.emplace_back(kSize);
    theValues.emplace_back(kRect);
    return theValues;
}

bool IsSamePoint(const CGPoint& theLeft, const CGPoint& theRight)
{
    return theLeft.x == theRight.x && theLeft.y == theRight.y;
}

bool IsSameSize(const CGSize& theLeft, const CGSize& theRight)
{
    return theLeft.width == theRight.width && theLeft.height == theRight.height;
}

bool IsSameRect(const CGRect& theLeft, const CGRect& theRight)
{
    return IsSamePoint(theLeft.origin, theRight.origin) && IsSameSize(theLeft.size, theRight.size);
}

// The 32 bits of a float that a block's bytes hold.
float FloatAt(const void* theBytes)
{
    float theFloat = 0;
    std::memcpy(&theFloat, theBytes, sizeof theFloat);
    return theFloat;
}

} // namespace

TEST(LmValue, StartsInvalid)
{
    const LmValue theValue;
    EXPECT_EQ(theValue.GetType(), kTypeInvalid);
    EXPECT_FALSE(theValue.IsValid());
    EXPECT_TRUE(theValue == LmValue());
}

TEST(LmValue, TheKindsHaveFixedNumbers)
{
    const std::vector<LmValue> theValues = OneOfEachKind();
    for (unsigned theType = 0; theType < theValues.size(); ++theType) {
        EXPECT_EQ(theValues[theType].GetType(), theType);
        EXPECT_EQ(theValues[theType].IsValid(), theType != 0);
    }
    EXPECT_EQ(kTypeRect, 11U);
}

TEST(LmValue, EachKindAnswersItsOwnQuestion)
{
    const std::vector<LmValue> theValues = OneOfEachKind();
    for (const LmValue& theValue : theValues) {
        const unsigned theType = theValue.GetType();
        SCOPED_TRACE(theType);
        EXPECT_EQ(theValue.IsNumber(), theType >= 1 && theType <= 6);
        EXPECT_EQ(theValue.IsBoolean(), theType == 1);
        EXPECT_EQ(theValue.IsPointer(), theType == 7);
        EXPECT_EQ(theValue.IsString(), theType == 8);
        EXPECT_EQ(theValue.IsPoint(), theType == 9);
        EXPECT_EQ(theValue.IsSize(), theType == 10);
        EXPECT_EQ(theValue.IsRect(), theType == 11);
    }
}

TEST(LmValue, EachConstructorStoresItsArgument)
{
    const int theTarget = 0;
    EXPECT_TRUE(LmValue(true).GetBoolean());
    EXPECT_FALSE(LmValue(false).GetBoolean());
    EXPECT_EQ(LmValue(7UL).GetUInt32(), 7U);
    EXPECT_EQ(LmValue(-7L).GetSInt32(), -7);
    EXPECT_EQ(LmValue(0x123456789ABCDEFULL).GetUInt64(), 0x123456789ABCDEFULL);
    EXPECT_EQ(LmValue(-0x123456789ABCDEFLL).GetSInt64(), -0x123456789ABCDEFLL);
    EXPECT_EQ(LmValue(1.25).GetDouble(), 1.25);
    EXPECT_EQ(LmValue(&theTarget).GetPointer(), &theTarget);
    EXPECT_TRUE(IsSamePoint(LmValue(kPoint).GetPoint(), kPoint));
    EXPECT_TRUE(IsSameSize(LmValue(kSize).GetSize(), kSize));
    EXPECT_TRUE(IsSameRect(LmValue(kRect).GetRect(), kRect));
}

// The compiler warns of these two, which a test of its own sees to.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
TEST(LmValue, ALonePointerIsAPointerWhateverItPointsToOnPurpose)
{
    const TestString theString("text");
    const char* const kText = "text";
    EXPECT_TRUE(LmValue(kText).IsPointer());
    EXPECT_EQ(LmValue(kText).GetPointer(), kText);
    EXPECT_TRUE(LmValue(theString.Get()).IsPointer());
    EXPECT_EQ(LmValue(theString.Get()).GetPointer(), theString.Get());
    EXPECT_EQ(theString.GetRetainCount(), 1);
}
#pragma GCC diagnostic pop

// A setter, and the kind that it leaves.
struct SetterRow
{
    ValueType theType;
    void (*theSet)(LmValue& theValue);
    bool (*theIsSet)(const LmValue& theValue);
};

static std::ostream& operator<<(std::ostream& theStream, const SetterRow& theRow)
{
    return theStream << "kind " << theRow.theType;
}

class LmValueSetter : public testing::TestWithParam<SetterRow>
{
};

TEST_P(LmValueSetter, ReplacesAPayloadOfAnyKind)
{
    const SetterRow& theRow = GetParam();
    for (LmValue& theValue : OneOfEachKind()) {
        SCOPED_TRACE(theValue.GetType());
        theRow.theSet(theValue);
        EXPECT_EQ(theValue.GetType(), theRow.theType);
        EXPECT_TRUE(theRow.theIsSet(theValue));
    }
}

TEST_P(LmValueSetter, TakesExactlyTheBlockThatTheKindNeeds)
{
    const SetterRow& theRow = GetParam();
    const bool hasBlock = theRow.theType != kTypePointer && theRow.theType >= kTypeUInt64;
    AllocationFailures theCounter;
    {
        LmValue theValue(true);
        theRow.theSet(theValue);
    }
    theCounter.Stop();
    EXPECT_EQ(theCounter.GetCount(), hasBlock ? 1U : 0U);
}

TEST_P(LmValueSetter, LeavesTheValueInvalidWhenThereIsNoMemory)
{
    const SetterRow& theRow = GetParam();
    FailEachAllocation([&](AllocationFailures& theFailures) {
        LmValue theValue(true);
        theRow.theSet(theValue);
        theFailures.Stop();
        EXPECT_EQ(theValue.GetType(), theFailures.HasFailed() ? kTypeInvalid : theRow.theType);
        EXPECT_EQ(theValue == LmValue(), theFailures.HasFailed());
    });
}

TEST_P(LmValueSetter, ACopyIsInvalidWhenThereIsNoMemory)
{
    const SetterRow& theRow = GetParam();
    LmValue theSource;
    theRow.theSet(theSource);
    FailEachAllocation([&](AllocationFailures& theFailures) {
        const LmValue theCopy(theSource);
        theFailures.Stop();
        EXPECT_EQ(theCopy.GetType(), theFailures.HasFailed() ? kTypeInvalid : theRow.theType);
        EXPECT_TRUE(theRow.theIsSet(theSource));
    });
    FailEachAllocation([&](AllocationFailures& theFailures) {
        LmValue theCopy(CGPoint{1, 1});
        theFailures.Stop();
        AllocationFailures theSecond(theFailures.HasFailed() ? 1 : 0);
        theCopy = theSource;
        theSecond.Stop();
        EXPECT_EQ(theCopy.GetType(), theSecond.HasFailed() ? kTypeInvalid : theRow.theType);
        EXPECT_TRUE(theRow.theIsSet(theSource));
    });
}

static const char* const kTarget = "target";

INSTANTIATE_TEST_SUITE_P(
    Kinds, LmValueSetter,
    testing::Values(
        SetterRow{kTypeBoolean, [](LmValue& theValue) { theValue.SetBoolean(true); },
                  [](const LmValue& theValue) { return theValue.GetBoolean(); }},
        SetterRow{kTypeBoolean, [](LmValue& theValue) { theValue.SetBoolean(false); },
                  [](const LmValue& theValue) { return !theValue.GetBoolean(); }},
        SetterRow{kTypeUInt32, [](LmValue& theValue) { theValue.SetUInt32(4294967295UL); },
                  [](const LmValue& theValue) { return theValue.GetUInt32() == 4294967295UL; }},
        SetterRow{kTypeSInt32, [](LmValue& theValue) { theValue.SetSInt32(-12L); },
                  [](const LmValue& theValue) { return theValue.GetSInt32() == -12; }},
        SetterRow{kTypeUInt64, [](LmValue& theValue) { theValue.SetUInt64(0x8000000000000001ULL); },
                  [](const LmValue& theValue) { return theValue.GetUInt64() == 0x8000000000000001ULL; }},
        SetterRow{kTypeSInt64, [](LmValue& theValue) { theValue.SetSInt64(-0x100000001LL); },
                  [](const LmValue& theValue) { return theValue.GetSInt64() == -0x100000001LL; }},
        SetterRow{kTypeDouble, [](LmValue& theValue) { theValue.SetDouble(-0.125); },
                  [](const LmValue& theValue) { return theValue.GetDouble() == -0.125; }},
        SetterRow{kTypePointer, [](LmValue& theValue) { theValue.SetPointer(kTarget); },
                  [](const LmValue& theValue) { return theValue.GetPointer() == kTarget; }},
        SetterRow{kTypePoint, [](LmValue& theValue) { theValue.SetPoint(kPoint); },
                  [](const LmValue& theValue) { return IsSamePoint(theValue.GetPoint(), kPoint); }},
        SetterRow{kTypeSize, [](LmValue& theValue) { theValue.SetSize(kSize); },
                  [](const LmValue& theValue) { return IsSameSize(theValue.GetSize(), kSize); }},
        SetterRow{kTypeRect, [](LmValue& theValue) { theValue.SetRect(kRect); },
                  [](const LmValue& theValue) { return IsSameRect(theValue.GetRect(), kRect); }}));

TEST(LmValueString, SharesTheStringAndRetainsIt)
{
    const TestString theString("text");
    {
        LmValue theValue;
        theValue.SetString(theString.Get(), false);
        EXPECT_EQ(theValue.GetType(), kTypeString);
        EXPECT_EQ(theValue.GetString(), theString.Get());
        EXPECT_EQ(theString.GetRetainCount(), 2);
    }
    EXPECT_EQ(theString.GetRetainCount(), 1);
}

TEST(LmValueString, TakesOverTheCallersReferenceWhenAskedTo)
{
    const TestString theString("text");
    CFRetain(theString.Get());
    {
        LmValue theValue;
        theValue.SetString(theString.Get(), true);
        EXPECT_EQ(theValue.GetString(), theString.Get());
        EXPECT_EQ(theString.GetRetainCount(), 2);
    }
    EXPECT_EQ(theString.GetRetainCount(), 1);
}

TEST(LmValueString, TheConstructorFollowsTheRuleOfTheSetter)
{
    const TestString theString("text");
    {
        const LmValue theValue(theString.Get(), false);
        EXPECT_EQ(theString.GetRetainCount(), 2);
        const LmValue theOther(static_cast<CFStringRef>(CFRetain(theString.Get())), true);
        EXPECT_EQ(theString.GetRetainCount(), 3);
    }
    EXPECT_EQ(theString.GetRetainCount(), 1);
}

TEST(LmValueString, MayBeNull)
{
    for (const bool shouldRelease : {false, true}) {
        LmValue theValue(1.5);
        theValue.SetString(NULL, shouldRelease);
        EXPECT_TRUE(theValue.IsString());
        EXPECT_TRUE(theValue.IsValid());
        EXPECT_EQ(theValue.GetString(), nullptr);
        LmValue theCopy;
        theCopy = theValue;
        EXPECT_TRUE(theCopy.IsString());
        EXPECT_EQ(theCopy.GetString(), nullptr);
    }
}

TEST(LmValueString, EverySetterReleasesTheOldString)
{
    const TestString theString("text");
    const TestString theOther("other");
    LmValue theValue(theString.Get(), false);
    theValue.SetString(theOther.Get(), false);
    EXPECT_EQ(theString.GetRetainCount(), 1);
    EXPECT_EQ(theOther.GetRetainCount(), 2);
    theValue.SetUInt32(1);
    EXPECT_EQ(theOther.GetRetainCount(), 1);
    theValue.SetString(theString.Get(), false);
    theValue.SetDouble(1);
    EXPECT_EQ(theString.GetRetainCount(), 1);
    theValue.SetString(theString.Get(), false);
    theValue = LmValue(CGPoint{1, 2});
    EXPECT_EQ(theString.GetRetainCount(), 1);
}

TEST(LmValueString, MayBeSetToTheStringThatTheValueAloneHolds)
{
    LmValue theValue(MakeString("text"), true);
    theValue.SetString(theValue.GetString(), false);
    EXPECT_EQ(CFGetRetainCount(theValue.GetString()), 1);
    EXPECT_EQ(GetText(theValue.GetString()), "text");

    CFRetain(theValue.GetString());
    theValue.SetString(theValue.GetString(), true);
    EXPECT_EQ(CFGetRetainCount(theValue.GetString()), 1);
}

TEST(LmValueString, CopiesShareTheString)
{
    const TestString theString("text");
    {
        const LmValue theValue(theString.Get(), false);
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the copy is under test
        const LmValue theCopy(theValue);
        LmValue theAssigned(5UL);
        theAssigned = theValue;
        EXPECT_EQ(theCopy.GetString(), theString.Get());
        EXPECT_EQ(theAssigned.GetString(), theString.Get());
        EXPECT_EQ(theString.GetRetainCount(), 4);
    }
    EXPECT_EQ(theString.GetRetainCount(), 1);
}

TEST(LmValueString, NeedsNoMemoryOfItsOwn)
{
    const TestString theString("text");
    AllocationFailures theCounter;
    {
        LmValue theValue(theString.Get(), false);
        const LmValue theCopy(theValue);
        theValue.SetString(theString.Get(), false);
    }
    theCounter.Stop();
    EXPECT_EQ(theCounter.GetCount(), 0U);
}

// What the getters of pointers, strings and geometry do with a value of another kind.
TEST(LmValueGetters, ReportAValueOfAnotherKind)
{
    for (const LmValue& theValue : OneOfEachKind()) {
        SCOPED_TRACE(theValue.GetType());
        Lines theExpected;
        const auto theExpect = [&](bool isRight, const char* theText) {
            if (!isRight) {
                theExpected.push_back(Diagnostic(theText)[0]);
            }
        };
        (void)theValue.GetPointer();
        theExpect(theValue.IsPointer(), "IsPointer()");
        (void)theValue.GetString();
        theExpect(theValue.IsString(), "IsString()");
        (void)theValue.GetPoint();
        theExpect(theValue.IsPoint(), "IsPoint()");
        (void)theValue.GetSize();
        theExpect(theValue.IsSize(), "IsSize()");
        (void)theValue.GetRect();
        theExpect(theValue.IsRect(), "IsRect()");
        EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), theExpected);
    }
}

TEST(LmValueGetters, AnInvalidValueHasANullPointerAndANullString)
{
    const LmValue theValue;
    EXPECT_EQ(theValue.GetString(), nullptr);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("IsString()"));
    EXPECT_EQ(theValue.GetPointer(), nullptr);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("IsPointer()"));
}

TEST(LmValueGetters, PointerAndStringGiveTheWordOfAnotherKind)
{
    const TestString theString("text");
    const LmValue theText(theString.Get(), false);
    EXPECT_EQ(theText.GetPointer(), theString.Get());
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("IsPointer()"));
    EXPECT_EQ(LmValue(static_cast<const void*>(theString.Get())).GetString(), theString.Get());
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("IsString()"));
    EXPECT_EQ(LmValue(77UL).GetPointer(), reinterpret_cast<const void*>(77));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("IsPointer()"));
    EXPECT_NE(LmValue(1.5).GetPointer(), nullptr);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("IsPointer()"));
}

TEST(LmValueGetters, GeometryOfAValueWithoutABlockIsZero)
{
    for (const LmValue& theValue : OneOfEachKind()) {
        const unsigned theType = theValue.GetType();
        if (theType > kTypeSInt32 && theType != kTypePointer && theType != kTypeString) {
            continue;
        }
        SCOPED_TRACE(theType);
        EXPECT_TRUE(IsSamePoint(theValue.GetPoint(), CGPoint{0, 0}));
        EXPECT_TRUE(IsSameSize(theValue.GetSize(), CGSize{0, 0}));
        EXPECT_TRUE(IsSameRect(theValue.GetRect(), CGRect{{0, 0}, {0, 0}}));
        EXPECT_EQ(StandardErrorCapture::TakeDiagnostics().size(), 3U);
    }
}

TEST(LmValueGetters, ARectangleOfASmallerBlockIsZero)
{
    for (const LmValue& theValue :
         {LmValue(4ULL), LmValue(5LL), LmValue(6.5), LmValue(kPoint), LmValue(kSize)}) {
        SCOPED_TRACE(theValue.GetType());
        EXPECT_TRUE(IsSameRect(theValue.GetRect(), CGRect{{0, 0}, {0, 0}}));
        EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("IsRect()"));
    }
}

TEST(LmValueGetters, GeometryReadsABlockThatIsLargeEnough)
{
    EXPECT_TRUE(IsSamePoint(LmValue(kSize).GetPoint(), CGPoint{kSize.width, kSize.height}));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("IsPoint()"));
    EXPECT_TRUE(IsSamePoint(LmValue(kRect).GetPoint(), kRect.origin));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("IsPoint()"));
    EXPECT_TRUE(IsSameSize(LmValue(kPoint).GetSize(), CGSize{kPoint.x, kPoint.y}));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("IsSize()"));

    const double theNumber = 6.5;
    const CGSize theSize = LmValue(theNumber).GetSize();
    EXPECT_EQ(theSize.width, FloatAt(&theNumber));
    EXPECT_EQ(theSize.height, FloatAt(reinterpret_cast<const char*>(&theNumber) + 4));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("IsSize()"));
}

TEST(LmValueGetters, GeometryIsACopy)
{
    const LmValue theValue(kRect);
    CGRect theRect = theValue.GetRect();
    theRect.origin.x = 99;
    EXPECT_FALSE(IsSameRect(theValue.GetRect(), theRect));
    EXPECT_TRUE(IsSameRect(theValue.GetRect(), kRect));
}

TEST(LmValue, TellsTheSizeOfEachKind)
{
    const LmValue theValue;
    const size_t theSizes[] = {0, 4, 4, 4, 8, 8, 8, sizeof(void*), sizeof(void*), 8, 8, 16};
    for (unsigned theType = 0; theType < 12; ++theType) {
        EXPECT_EQ(theValue.GetTypeSize(static_cast<ValueType>(theType)), theSizes[theType]) << theType;
    }
    EXPECT_EQ(theValue.GetTypeSize(static_cast<ValueType>(12)), 0U);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("Unknown type: 12"));
    EXPECT_EQ(LmValue(1UL).GetTypeSize(static_cast<ValueType>(4711)), 0U);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("Unknown type: 4711"));
}

TEST(LmValueCopy, KeepsKindAndPayloadOfEachKind)
{
    const std::vector<LmValue> theSources = OneOfEachKind();
    for (const LmValue& theSource : theSources) {
        for (LmValue& theTarget : OneOfEachKind()) {
            theTarget = theSource;
            EXPECT_EQ(theTarget.GetType(), theSource.GetType());
            EXPECT_TRUE(theTarget == theSource) << theSource.GetType();
        }
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the copy is under test
        const LmValue theCopy(theSource);
        EXPECT_EQ(theCopy.GetType(), theSource.GetType());
        EXPECT_TRUE(theCopy == theSource) << theSource.GetType();
    }
}

TEST(LmValueCopy, HasABlockOfItsOwn)
{
    const LmValue theSource(kRect);
    LmValue theCopy(theSource);
    EXPECT_NE(theCopy.GetPointer(), theSource.GetPointer());
    theCopy.SetRect(CGRect{{9, 9}, {9, 9}});
    EXPECT_TRUE(IsSameRect(theSource.GetRect(), kRect));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics().size(), 2U);
}

TEST(LmValueCopy, KeepsTheSignOfANaN)
{
    LmValue theCopy;
    theCopy = LmValue(LmValue(-std::numeric_limits<double>::quiet_NaN()));
    EXPECT_TRUE(std::isnan(theCopy.GetDouble()));
    EXPECT_TRUE(std::signbit(theCopy.GetDouble()));
}

TEST(LmValueCopy, AssigningAValueToItselfLeavesItInvalidOnPurpose)
{
    const TestString theString("text");
    std::vector<LmValue> theValues = OneOfEachKind();
    theValues.emplace_back(theString.Get(), false);
    for (LmValue& theValue : theValues) {
        SCOPED_TRACE(theValue.GetType());
        const LmValue& theSame = theValue;
        theValue = theSame;
        EXPECT_EQ(theValue.GetType(), kTypeInvalid);
        EXPECT_TRUE(theValue == LmValue());
    }
    EXPECT_EQ(theString.GetRetainCount(), 1);
}

TEST(LmValueCopy, AssigningAValueOfTheSameKindUsesItsBlockAgain)
{
    std::vector<LmValue> theTargets = OneOfEachKind();
    const LmValue theSources[] = {LmValue(40ULL),          LmValue(-50LL),
                                  LmValue(65.25),          LmValue(CGPoint{15, 16}),
                                  LmValue(CGSize{17, 18}), LmValue(CGRect{{19, 20}, {21, 22}})};
    for (const LmValue& theSource : theSources) {
        LmValue& theTarget = theTargets[theSource.GetType()];
        AllocationFailures theFailures(1);
        theTarget = theSource;
        theFailures.Stop();
        SCOPED_TRACE(theSource.GetType());
        EXPECT_EQ(theFailures.GetCount(), 0U);
        EXPECT_EQ(theTarget.GetType(), theSource.GetType());
        EXPECT_TRUE(theTarget == theSource);
    }
    EXPECT_EQ(theTargets[kTypeDouble].GetDouble(), 65.25) << "the whole of it, not only its integer";
}

TEST(LmValueCopy, AssigningReturnsTheValue)
{
    LmValue theValue;
    const LmValue theOther(5UL);
    EXPECT_EQ(&(theValue = theOther), &theValue);
    EXPECT_EQ(&(theValue = LmValue(6UL)), &theValue);
}

TEST(LmValueMove, TakesThePayloadOverAndLeavesAnInvalidValue)
{
    const std::vector<LmValue> theExpected = OneOfEachKind();
    std::vector<LmValue> theSources = OneOfEachKind();
    for (size_t theIndex = 0; theIndex < theSources.size(); ++theIndex) {
        LmValue theValue(std::move(theSources[theIndex]));
        EXPECT_TRUE(theValue == theExpected[theIndex]) << theIndex;
        EXPECT_EQ(theSources[theIndex].GetType(), kTypeInvalid);

        LmValue theAssigned(kRect);
        theAssigned = std::move(theValue);
        EXPECT_TRUE(theAssigned == theExpected[theIndex]) << theIndex;
        EXPECT_EQ(theValue.GetType(), // NOLINT: the promise under test
                  kTypeInvalid);      // NOLINT: the promise under test
    }
}

TEST(LmValueMove, NeitherRetainsNorAllocates)
{
    const TestString theString("text");
    LmValue theText(theString.Get(), false);
    LmValue theRect(kRect);
    AllocationFailures theCounter;
    const LmValue theMovedText(std::move(theText));
    LmValue theMovedRect;
    theMovedRect = std::move(theRect);
    theCounter.Stop();
    EXPECT_EQ(theCounter.GetCount(), 0U);
    EXPECT_EQ(theString.GetRetainCount(), 2);
}

TEST(LmValueMove, ToItselfLeavesTheValueInvalid)
{
    LmValue theValue(kRect);
    LmValue& theSame = theValue;
    theValue = std::move(theSame);
    EXPECT_EQ(theValue.GetType(), kTypeInvalid); // NOLINT: the promise under test
}

TEST(LmValueEquality, ValuesOfDifferentKindsAreUnequalUnlessBothAreNumbers)
{
    const std::vector<LmValue> theLefts = {LmValue(),
                                           LmValue(true),
                                           LmValue(1UL),
                                           LmValue(1L),
                                           LmValue(1ULL),
                                           LmValue(1LL),
                                           LmValue(1.0),
                                           LmValue(reinterpret_cast<const void*>(1)),
                                           LmValue(CFSTR("1"), false),
                                           LmValue(CGPoint{1, 1}),
                                           LmValue(CGSize{1, 1}),
                                           LmValue(CGRect{{1, 1}, {1, 1}})};
    for (const LmValue& theLeft : theLefts) {
        for (const LmValue& theRight : theLefts) {
            const bool isExpected =
                theLeft.GetType() == theRight.GetType() || (theLeft.IsNumber() && theRight.IsNumber());
            EXPECT_EQ(theLeft == theRight, isExpected) << theLeft.GetType() << " and " << theRight.GetType();
        }
    }
}

// Two numbers.
struct NumbersRow
{
    const char* theName;
    LmValue theLeft;
    LmValue theRight;
    bool theAreEqual;
};

static std::ostream& operator<<(std::ostream& theStream, const NumbersRow& theRow)
{
    return theStream << theRow.theName;
}

class LmValueNumberEquality : public testing::TestWithParam<NumbersRow>
{
};

TEST_P(LmValueNumberEquality, ComparesThe64BitIntegers)
{
    const NumbersRow& theRow = GetParam();
    EXPECT_EQ(theRow.theLeft == theRow.theRight, theRow.theAreEqual);
    EXPECT_EQ(theRow.theRight == theRow.theLeft, theRow.theAreEqual);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, LmValueNumberEquality,
    testing::Values(NumbersRow{"1.5 and 1.0", LmValue(1.5), LmValue(1.0), true},
                    NumbersRow{"1.5 and 1UL", LmValue(1.5), LmValue(1UL), true},
                    NumbersRow{"1.5 and 2.0", LmValue(1.5), LmValue(2.0), false},
                    NumbersRow{"0.5 and false", LmValue(0.5), LmValue(false), true},
                    NumbersRow{"true and 1UL", LmValue(true), LmValue(1UL), true},
                    NumbersRow{"true and 2UL", LmValue(true), LmValue(2UL), false},
                    NumbersRow{"true and false", LmValue(true), LmValue(false), false},
                    NumbersRow{"-1L and 2^64 - 1", LmValue(-1L), LmValue(0xFFFFFFFFFFFFFFFFULL), true},
                    NumbersRow{"-1L and 2^32 - 1", LmValue(-1L), LmValue(0xFFFFFFFFUL), false},
                    NumbersRow{"-1L and -2L", LmValue(-1L), LmValue(-2L), false},
                    NumbersRow{"-1L and -1LL", LmValue(-1L), LmValue(-1LL), true},
                    NumbersRow{"-1.0 and -1L", LmValue(-1.0), LmValue(-1L), true},
                    NumbersRow{"-1.0 and -2.0", LmValue(-1.0), LmValue(-2.0), false},
                    NumbersRow{"-1.0 and 0.0", LmValue(-1.0), LmValue(0.0), false},
                    NumbersRow{"2^32 + 1 and 1UL", LmValue(0x100000001ULL), LmValue(1UL), false},
                    NumbersRow{"2 and 2", LmValue(2ULL), LmValue(2ULL), true},
                    NumbersRow{"2 and 3", LmValue(2ULL), LmValue(3ULL), false},
                    NumbersRow{"NaN and 0.0", LmValue(std::numeric_limits<double>::quiet_NaN()), LmValue(0.0),
                               true},
                    NumbersRow{"infinity and 1e30", LmValue(std::numeric_limits<double>::infinity()),
                               LmValue(1e30), true}));

TEST(LmValueEquality, PointersAreEqualWhenTheyAreTheSame)
{
    const int theTargets[] = {0, 0};
    EXPECT_TRUE(LmValue(theTargets) == LmValue(theTargets));
    EXPECT_FALSE(LmValue(theTargets) == LmValue(theTargets + 1));
    const void* const theNull = nullptr;
    EXPECT_TRUE(LmValue(theNull) == LmValue(theNull));
}

TEST(LmValueEquality, StringsAreEqualWhenTheirCharactersAre)
{
    const TestString theString("text");
    const TestString theTwin("text");
    const TestString theCapital("Text");
    const TestString theLonger("text!");
    ASSERT_NE(theString.Get(), theTwin.Get());
    const LmValue theValue(theString.Get(), false);
    EXPECT_TRUE(theValue == LmValue(theString.Get(), false));
    EXPECT_TRUE(theValue == LmValue(theTwin.Get(), false));
    EXPECT_FALSE(theValue == LmValue(theCapital.Get(), false));
    EXPECT_FALSE(theValue == LmValue(theLonger.Get(), false));
    EXPECT_TRUE(LmValue(CFSTR(""), false) == LmValue(CFSTR(""), false));
}

TEST(LmValueEquality, ANullStringEqualsNothingOnPurpose)
{
    const LmValue theNull(NULL, false);
    const LmValue theOther(NULL, false);
    const LmValue theText(CFSTR("text"), false);
    EXPECT_FALSE(theNull == theOther);
    EXPECT_FALSE(theNull == theNull);
    EXPECT_FALSE(theNull == theText);
    EXPECT_FALSE(theText == theNull);
}

TEST(LmValueEquality, GeometryIsEqualWhenAllComponentsAre)
{
    const float theNaN = std::numeric_limits<float>::quiet_NaN();
    EXPECT_TRUE(LmValue(CGPoint{1, 2}) == LmValue(CGPoint{1, 2}));
    EXPECT_FALSE(LmValue(CGPoint{1, 2}) == LmValue(CGPoint{3, 2}));
    EXPECT_FALSE(LmValue(CGPoint{1, 2}) == LmValue(CGPoint{1, 3}));
    EXPECT_FALSE(LmValue(CGPoint{1, theNaN}) == LmValue(CGPoint{1, theNaN}));
    EXPECT_TRUE(LmValue(CGPoint{0.0F, 1}) == LmValue(CGPoint{-0.0F, 1}));

    EXPECT_TRUE(LmValue(CGSize{1, 2}) == LmValue(CGSize{1, 2}));
    EXPECT_FALSE(LmValue(CGSize{1, 2}) == LmValue(CGSize{3, 2}));
    EXPECT_FALSE(LmValue(CGSize{1, 2}) == LmValue(CGSize{1, 3}));
    EXPECT_FALSE(LmValue(CGSize{theNaN, 1}) == LmValue(CGSize{theNaN, 1}));

    EXPECT_TRUE(LmValue(CGRect{{1, 2}, {3, 4}}) == LmValue(CGRect{{1, 2}, {3, 4}}));
    EXPECT_FALSE(LmValue(CGRect{{1, 2}, {3, 4}}) == LmValue(CGRect{{9, 2}, {3, 4}}));
    EXPECT_FALSE(LmValue(CGRect{{1, 2}, {3, 4}}) == LmValue(CGRect{{1, 9}, {3, 4}}));
    EXPECT_FALSE(LmValue(CGRect{{1, 2}, {3, 4}}) == LmValue(CGRect{{1, 2}, {9, 4}}));
    EXPECT_FALSE(LmValue(CGRect{{1, 2}, {3, 4}}) == LmValue(CGRect{{1, 2}, {3, 9}}));
}

TEST(LmValueEquality, NeedsNoMemory)
{
    const std::vector<LmValue> theLefts = OneOfEachKind();
    const std::vector<LmValue> theRights = OneOfEachKind();
    AllocationFailures theCounter;
    for (size_t theIndex = 0; theIndex < theLefts.size(); ++theIndex) {
        (void)(theLefts[theIndex] == theRights[theIndex]);
    }
    theCounter.Stop();
    EXPECT_EQ(theCounter.GetCount(), 0U);
}

TEST(LmValueUnknownType, IsReportedButTakenByAllocateValueOnPurpose)
{
    TestValue theValue;
    EXPECT_TRUE(theValue.AllocateValue(static_cast<ValueType>(kTypeUnknown)));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("Unknown type: 12"));
    EXPECT_EQ(theValue.GetType(), kTypeUnknown);
    EXPECT_TRUE(theValue.IsValid());
    EXPECT_FALSE(theValue.IsNumber());

    theValue.ReleaseValue();
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("Unknown type: 12"));
    EXPECT_EQ(theValue.GetType(), kTypeInvalid);
}

TEST(LmValueUnknownType, IsReportedByADestructor)
{
    {
        const TestValue theValue(kTypeUnknown);
    }
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              (Lines{Diagnostic("Unknown type: 12")[0], Diagnostic("Unknown type: 12")[0]}));
}

TEST(LmValueUnknownType, CannotBeCopied)
{
    TestValue theSource(kTypeUnknown + 1);
    LmValue theTarget(kRect);
    StandardErrorCapture::TakeText();
    theTarget = theSource;
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("Unknown type: 13"));
    EXPECT_EQ(theTarget.GetType(), kTypeInvalid);
    const LmValue theCopy(theSource);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("Unknown type: 13"));
    EXPECT_EQ(theCopy.GetType(), kTypeInvalid);
    theSource.InitialiseSelf();
}

TEST(LmValueUnknownType, IsNotEvenEqualToItself)
{
    TestValue theValue(kTypeUnknown);
    TestValue theOther(kTypeUnknown + 1);
    StandardErrorCapture::TakeText();
    EXPECT_FALSE(theValue == theValue);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("Unknown type: 12"));
    EXPECT_FALSE(theValue == theOther);
    EXPECT_FALSE(theValue == LmValue(1UL));
    EXPECT_FALSE(LmValue() == theValue);
    theValue.InitialiseSelf();
    theOther.InitialiseSelf();
}

TEST(LmValueUnknownType, ReadsAsNothing)
{
    TestValue theValue(kTypeUnknown);
    StandardErrorCapture::TakeText();
    EXPECT_EQ(theValue.GetUInt32(), 0U);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("IsNumber()"));
    EXPECT_TRUE(IsSameRect(theValue.GetRect(), CGRect{{0, 0}, {0, 0}}));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("IsRect()"));
    theValue.InitialiseSelf();
}

TEST(LmValueAllocateValue, ReportsTheInvalidKind)
{
    TestValue theValue;
    theValue.SetRect(kRect);
    EXPECT_TRUE(theValue.AllocateValue(kTypeInvalid));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), Diagnostic("theType != kTypeInvalid"));
    EXPECT_EQ(theValue.GetType(), kTypeInvalid);
}

TEST(LmValueAllocateValue, ReportsTheKindAskedForBeforeTheOldOneUnlessThatIsUnknown)
{
    TestValue theValue(kTypeUnknown);
    StandardErrorCapture::TakeText();
    EXPECT_TRUE(theValue.AllocateValue(kTypeInvalid));
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              (Lines{Diagnostic("theType != kTypeInvalid")[0], Diagnostic("Unknown type: 12")[0]}));

    TestValue theOther(kTypeUnknown);
    StandardErrorCapture::TakeText();
    EXPECT_TRUE(theOther.AllocateValue(static_cast<ValueType>(kTypeUnknown + 1)));
    EXPECT_EQ(theOther.GetType(), kTypeUnknown + 1);
    theOther.InitialiseSelf();
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(),
              (Lines{Diagnostic("Unknown type: 12")[0], Diagnostic("Unknown type: 13")[0]}));
}

TEST(LmValueAllocateValue, MakesABlockForTheKindsThatHaveOne)
{
    for (unsigned theType = kTypeBoolean; theType <= kTypeRect; ++theType) {
        TestValue theValue;
        AllocationFailures theCount;
        const bool isAllocated = theValue.AllocateValue(static_cast<ValueType>(theType));
        theCount.Stop();
        EXPECT_TRUE(isAllocated);
        const bool isWord = theType <= kTypeSInt32 || theType == kTypePointer || theType == kTypeString;
        EXPECT_EQ(theCount.GetCount(), isWord ? 0U : 1U) << theType;
    }
}

TEST(LmValueAllocateValue, SaysWhenThereIsNoMemoryForABlock)
{
    for (unsigned theType = kTypeBoolean; theType <= kTypeRect; ++theType) {
        SCOPED_TRACE(theType);
        TestValue theValue;
        theValue.SetUInt32(5);
        AllocationFailures theFailures(1);
        const bool isAllocated = theValue.AllocateValue(static_cast<ValueType>(theType));
        theFailures.Stop();
        EXPECT_EQ(isAllocated, !theFailures.HasFailed());
        EXPECT_EQ(theValue.GetType(), isAllocated ? theType : kTypeInvalid);
    }
}

TEST(LmValueAllocateValue, TakesEachKindAndReleasesTheOldPayload)
{
    const TestString theString("text");
    for (unsigned theType = kTypeBoolean; theType <= kTypeRect; ++theType) {
        TestValue theValue;
        theValue.SetString(theString.Get(), false);
        EXPECT_TRUE(theValue.AllocateValue(static_cast<ValueType>(theType)));
        EXPECT_EQ(theValue.GetType(), theType);
        EXPECT_EQ(theString.GetRetainCount(), 1);
    }
}

TEST(LmValueReleaseValue, MakesAValueOfAnyKindInvalid)
{
    const TestString theString("text");
    for (const LmValue& theSource : OneOfEachKind()) {
        TestValue theValue;
        static_cast<LmValue&>(theValue) = theSource;
        theValue.ReleaseValue();
        EXPECT_EQ(theValue.GetType(), kTypeInvalid);
        EXPECT_TRUE(theValue == LmValue());
    }
    TestValue theValue;
    theValue.SetString(theString.Get(), false);
    theValue.ReleaseValue();
    EXPECT_EQ(theString.GetRetainCount(), 1);
}

// ---- What each argument makes

namespace {

enum Plain
{
    kPlainOne = 1
};
enum Negative
{
    kMinusOne = -1
};
enum Sized : std::uint32_t
{
    kSizedMost = 0xFFFFFFFF
};

struct MadeValue
{
    const char* theName;
    LmValue theValue;
    ValueType theType;
    long long theNumber;
};

const MadeValue kMadeValues[] = {
    {"Zero", LmValue(0), kTypeSInt32, 0},
    {"AnInt", LmValue(-5), kTypeSInt32, -5},
    {"AnUnsignedInt", LmValue(4000000000U), kTypeUInt32, 4000000000},
    {"ALong", LmValue(-5L), kTypeSInt32, -5},
    {"AnUnsignedLong", LmValue(5UL), kTypeUInt32, 5},
    {"ALongLong", LmValue(-5LL), kTypeSInt64, -5},
    {"AnUnsignedLongLong", LmValue(5ULL), kTypeUInt64, 5},
    {"AShort", LmValue(static_cast<short>(-5)), kTypeSInt32, -5},
    {"AnUnsignedShort", LmValue(static_cast<unsigned short>(65535)), kTypeSInt32, 65535},
    {"ACharacter", LmValue('c'), kTypeSInt32, 'c'},
    {"AnUnsignedCharacter", LmValue(static_cast<unsigned char>(255)), kTypeSInt32, 255},
    {"ASignedCharacter", LmValue(static_cast<signed char>(-1)), kTypeSInt32, -1},
    {"ABoolean", LmValue(true), kTypeBoolean, 1},
    {"AComparison", LmValue(1 == 2), kTypeBoolean, 0},
    {"ADouble", LmValue(2.5), kTypeDouble, 2},
    {"AFloat", LmValue(2.5F), kTypeDouble, 2},
    {"AnSInt32", LmValue(SInt32{-5}), kTypeSInt32, -5},
    {"AUInt32", LmValue(UInt32{4000000000}), kTypeUInt32, 4000000000},
    {"AnSInt16", LmValue(SInt16{-5}), kTypeSInt32, -5},
    {"AUInt8", LmValue(UInt8{5}), kTypeSInt32, 5},
    {"AnSInt64", LmValue(static_cast<long long>(SInt64{-5})), kTypeSInt64, -5},
    {"AnOSStatus", LmValue(static_cast<OSStatus>(paramErr)), kTypeSInt32, -50},
    {"ANegativeEnumerator", LmValue(kMinusOne), kTypeSInt32, -1},
    {"AnEnumeratorOf32Bits", LmValue(kSizedMost), kTypeUInt32, 4294967295},
};

class LmValueMade : public testing::TestWithParam<MadeValue>
{
};

} // namespace

TEST_P(LmValueMade, IsOfTheKindOfItsArgument)
{
    EXPECT_EQ(GetParam().theValue.GetType(), GetParam().theType);
    EXPECT_EQ(GetParam().theValue.GetSInt64(), GetParam().theNumber);
}

INSTANTIATE_TEST_SUITE_P(From, LmValueMade, testing::ValuesIn(kMadeValues),
                         [](const auto& theInfo) { return theInfo.param.theName; });

TEST(LmValue, MadeFromAnEnumeratorIsAnIntegerOf32Bits)
{
    // Whether the compiler gives such an enumeration a sign is its own affair.
    const LmValue theValue(kPlainOne);
    EXPECT_TRUE(theValue.GetType() == kTypeSInt32 || theValue.GetType() == kTypeUInt32);
    EXPECT_EQ(theValue.GetUInt32(), 1u);
}

TEST(LmValue, MadeFromANullPointerIsAPointer)
{
    EXPECT_TRUE(LmValue(nullptr).IsPointer());
    EXPECT_EQ(LmValue(nullptr).GetPointer(), nullptr);
    const int* const kNothing = nullptr;
    EXPECT_TRUE(LmValue(kNothing).IsPointer());
}

TEST(LmValue, IsDestroyedThroughABasePointer)
{
    static int theDestroyed = 0;
    class Derived : public LmValue
    {
    public:
        Derived()
            : LmValue(kRect)
        {
        }
        ~Derived() override { ++theDestroyed; }
    };
    LmValue* theValue = new Derived;
    delete theValue;
    EXPECT_EQ(theDestroyed, 1);
}

TEST(LmValue, KeepsItsKindBehindTheTableAndItsWordBehindTheKind)
{
    const int theTarget = 0;
    const LmValue theValue(&theTarget);
    const char* const theBytes = reinterpret_cast<const char*>(&theValue);
    ValueType theType = kTypeInvalid;
    std::memcpy(&theType, theBytes + sizeof(void*), sizeof theType);
    EXPECT_EQ(theType, kTypePointer);
    const void* theWord = nullptr;
    std::memcpy(&theWord, theBytes + 2 * sizeof(void*), sizeof theWord);
    EXPECT_EQ(theWord, &theTarget);
}
