// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmString.h"

#include "AllocationFailures.h"
#include "StandardErrorCapture.h"

#include <gtest/gtest.h>
#include <new>
#include <ostream>
#include <stdexcept>
#include <type_traits>

static_assert(std::is_polymorphic_v<LmString>, "applications derive from LmString");
static_assert(std::has_virtual_destructor_v<LmString>, "applications derive from LmString");
static_assert(sizeof(LmString) == sizeof(void*) + sizeof(std::string),
              "one standard string and nothing else");
static_assert(std::is_nothrow_move_constructible_v<LmString> && std::is_nothrow_move_assignable_v<LmString>,
              "a moved string must not need memory");

namespace {

const char* const kLongText = "a text that is too long to be kept without the heap";

const char* const kLeftIsEmpty = "Source/Core/LmString.cpp, line #: resultLeft.IsNotEmpty()";
const char* const kRightIsEmpty = "Source/Core/LmString.cpp, line #: resultRight.IsNotEmpty()";

// Not a constant, so that tools which warn about null do not see it.
const char* gNoText = nullptr;

} // namespace

TEST(LmString, StartsEmpty)
{
    const LmString theString;
    EXPECT_TRUE(theString.IsEmpty());
    EXPECT_FALSE(theString.IsNotEmpty());
    ASSERT_NE(theString.GetUTF8(), nullptr);
    EXPECT_STREQ(theString.GetUTF8(), "");
}

TEST(LmString, HoldsTheBytesOfACStringUpToItsNul)
{
    char theText[] = "caf\xC3\xA9\0more";
    const LmString theString(theText);
    theText[0] = 'X';
    EXPECT_STREQ(theString.GetUTF8(), "caf\xC3\xA9");
    EXPECT_FALSE(theString.IsEmpty());
    EXPECT_TRUE(theString.IsNotEmpty());
}

TEST(LmString, RefusesANullPointerAsTheStandardStringDoes)
{
    EXPECT_THROW(LmString{gNoText}, std::logic_error);
}

TEST(LmString, ACopyIsIndependentOfItsSource)
{
    LmString theSource(kLongText);
    const LmString theCopy(theSource);
    theSource += "!";
    EXPECT_STREQ(theCopy.GetUTF8(), kLongText);

    LmString theOther("other");
    theOther = theSource;
    theSource = "changed";
    EXPECT_EQ(theOther, LmString(kLongText) + "!");
    EXPECT_STREQ(theSource.GetUTF8(), "changed");
}

TEST(LmString, AssigningReturnsTheString)
{
    LmString theString;
    const LmString theOther("other");
    EXPECT_EQ(&(theString = theOther), &theString);
    EXPECT_EQ(&(theString = LmString("moved")), &theString);
    EXPECT_EQ(&(theString += theOther), &theString);
}

TEST(LmString, AssigningAStringToItselfChangesNothing)
{
    LmString theString(kLongText);
    const LmString& theSame = theString;
    theString = theSame;
    EXPECT_STREQ(theString.GetUTF8(), kLongText);
}

TEST(LmString, AMovedStringLeavesAnEmptyOne)
{
    LmString theSource(kLongText);
    LmString theString(std::move(theSource));
    EXPECT_STREQ(theString.GetUTF8(), kLongText);
    EXPECT_TRUE(theSource.IsEmpty()); // NOLINT: the promise under test

    LmString theOther("short");
    theOther = std::move(theString);
    EXPECT_STREQ(theOther.GetUTF8(), kLongText);
    EXPECT_TRUE(theString.IsEmpty()); // NOLINT: the promise under test
}

TEST(LmString, AppendsAnotherText)
{
    LmString theString("left");
    const LmString theOther("right");
    theString += theOther;
    EXPECT_STREQ(theString.GetUTF8(), "leftright");
    EXPECT_STREQ(theOther.GetUTF8(), "right");
}

TEST(LmString, AppendingAStringToItselfDoublesIt)
{
    LmString theString("ab");
    theString += theString;
    EXPECT_STREQ(theString.GetUTF8(), "abab");
}

TEST(LmString, JoiningLeavesBothOperandsUnchanged)
{
    const LmString theLeft("left");
    const LmString theRight("right");
    EXPECT_STREQ((theLeft + theRight).GetUTF8(), "leftright");
    EXPECT_STREQ((theLeft + LmString()).GetUTF8(), "left");
    EXPECT_STREQ(theLeft.GetUTF8(), "left");
    EXPECT_STREQ(theRight.GetUTF8(), "right");
}

TEST(LmString, IsDestroyedThroughABasePointer)
{
    static int theDestroyed = 0;
    class Name : public LmString
    {
    public:
        Name()
            : LmString(kLongText)
        {
        }
        ~Name() override { ++theDestroyed; }
    };
    LmString* theString = new Name;
    delete theString;
    EXPECT_EQ(theDestroyed, 1);
}

TEST(LmString, AShortTextNeedsNoHeap)
{
    AllocationFailures theCounter;
    {
        LmString theString("fifteen letters");
        LmString theCopy(theString);
        theCopy = theString;
        (void)(theCopy == theString);
        (void)(theCopy < theString);
    }
    theCounter.Stop();
    EXPECT_EQ(theCounter.GetCount(), 0U);
}

TEST(LmString, RunningOutOfMemoryLeavesTheStringAsItWas)
{
    const LmString theLong(kLongText);
    const size_t theFailed = FailEachAllocation([&](AllocationFailures& theFailures) {
        LmString theString("short");
        bool hasThrown = false;
        try {
            theString += theLong;
        } catch (const std::bad_alloc&) {
            hasThrown = true;
        }
        theFailures.Stop();
        EXPECT_EQ(hasThrown, theFailures.HasFailed());
        EXPECT_EQ(theString, hasThrown ? LmString("short") : LmString("short") + theLong);
    });
    EXPECT_EQ(theFailed, 1U);
}

TEST(LmString, RunningOutOfMemoryLeavesTheResultsOfASplitAsTheyWere)
{
    const LmString theText = LmString(kLongText) + "::" + kLongText;
    const size_t theFailed = FailEachAllocation([&](AllocationFailures& theFailures) {
        LmString theLeft("left");
        LmString theRight("right");
        bool hasThrown = false;
        try {
            theText.Split("::", theLeft, theRight);
        } catch (const std::bad_alloc&) {
            hasThrown = true;
        }
        theFailures.Stop();
        EXPECT_EQ(hasThrown, theFailures.HasFailed());
        EXPECT_STREQ(theLeft.GetUTF8(), hasThrown ? "left" : kLongText);
        EXPECT_STREQ(theRight.GetUTF8(), hasThrown ? "right" : kLongText);
    });
    EXPECT_EQ(theFailed, 2U);
}

// The order and the equality of two texts.
struct OrderRow
{
    const char* theLeft;
    const char* theRight;
    bool theIsLess;
    bool theIsGreater;
};

static std::ostream& operator<<(std::ostream& theStream, const OrderRow& theRow)
{
    return theStream << "'" << theRow.theLeft << "' and '" << theRow.theRight << "'";
}

class LmStringOrder : public testing::TestWithParam<OrderRow>
{
};

TEST_P(LmStringOrder, IsTheOrderOfTheBytes)
{
    const OrderRow& theRow = GetParam();
    const LmString theLeft(theRow.theLeft);
    const LmString theRight(theRow.theRight);
    const bool isEqual = !theRow.theIsLess && !theRow.theIsGreater;
    EXPECT_EQ(theLeft < theRight, theRow.theIsLess);
    EXPECT_EQ(theRight < theLeft, theRow.theIsGreater);
    EXPECT_EQ(theLeft == theRight, isEqual);
    EXPECT_EQ(theLeft != theRight, !isEqual);
}

INSTANTIATE_TEST_SUITE_P(Texts, LmStringOrder,
                         testing::Values(OrderRow{"", "", false, false},         //
                                         OrderRow{"", "a", true, false},         //
                                         OrderRow{"abc", "abc", false, false},   //
                                         OrderRow{"ab", "abc", true, false},     //
                                         OrderRow{"abc", "abd", true, false},    //
                                         OrderRow{"abd", "abcd", false, true},   //
                                         OrderRow{"B", "a", true, false},        //
                                         OrderRow{"Name", "name", true, false},  //
                                         OrderRow{"z", "\xC3\xA9", true, false}, // bytes are unsigned
                                         OrderRow{"e\xCC\x81", "\xC3\xA9", true, false})); // no normalisation

// What Split delivers and says.
struct SplitRow
{
    const char* theText;
    const char* theSeparator;
    bool theResult;
    const char* theLeft;
    const char* theRight;
    Lines theDiagnostics;
};

static std::ostream& operator<<(std::ostream& theStream, const SplitRow& theRow)
{
    return theStream << "'" << theRow.theText << "' at '" << theRow.theSeparator << "'";
}

class LmStringSplit : public testing::TestWithParam<SplitRow>
{
};

TEST_P(LmStringSplit, CutsAtTheFirstSeparator)
{
    const SplitRow& theRow = GetParam();
    const LmString theText(theRow.theText);
    LmString theLeft("old left");
    LmString theRight("old right");
    EXPECT_EQ(theText.Split(theRow.theSeparator, theLeft, theRight), theRow.theResult);
    EXPECT_STREQ(theLeft.GetUTF8(), theRow.theLeft);
    EXPECT_STREQ(theRight.GetUTF8(), theRow.theRight);
    EXPECT_STREQ(theText.GetUTF8(), theRow.theText);
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), theRow.theDiagnostics);
}

INSTANTIATE_TEST_SUITE_P(Texts, LmStringSplit,
                         testing::Values(SplitRow{"a.b.c", ".", true, "a", "b.c", {}},                    //
                                         SplitRow{"abc", ".", false, "", "", {}},                         //
                                         SplitRow{"", ".", false, "", "", {}},                            //
                                         SplitRow{".abc", ".", true, "", "abc", {kLeftIsEmpty}},          //
                                         SplitRow{"abc.", ".", true, "abc", "", {kRightIsEmpty}},         //
                                         SplitRow{".", ".", true, "", "", {kLeftIsEmpty, kRightIsEmpty}}, //
                                         SplitRow{"abc", "", true, "", "abc", {kLeftIsEmpty}},            //
                                         SplitRow{"", "", true, "", "", {kLeftIsEmpty, kRightIsEmpty}},   //
                                         SplitRow{"a::b", "::", true, "a", "b", {}},                      //
                                         SplitRow{"a:b::c::d", "::", true, "a:b", "c::d", {}},            //
                                         SplitRow{"ab", "abc", false, "", "", {}}));

TEST(LmString, SplittingAssignsTheLeftPartFirst)
{
    LmString theBoth;
    EXPECT_TRUE(LmString("a.").Split(".", theBoth, theBoth));
    EXPECT_TRUE(theBoth.IsEmpty());
    EXPECT_EQ(StandardErrorCapture::TakeDiagnostics(), (Lines{kLeftIsEmpty, kRightIsEmpty}));
    EXPECT_TRUE(LmString(".b").Split(".", theBoth, theBoth));
    EXPECT_STREQ(theBoth.GetUTF8(), "b");
}

TEST(LmString, SplittingMayReplaceTheSeparator)
{
    LmString theSeparator("::");
    LmString theRight;
    EXPECT_TRUE(LmString("a::b").Split(theSeparator, theSeparator, theRight));
    EXPECT_STREQ(theSeparator.GetUTF8(), "a");
    EXPECT_STREQ(theRight.GetUTF8(), "b");
}
