// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "StandardErrorCapture.h"

#include <gtest/gtest.h>

#define DEBUG 1
#include <CoreServices/CoreServices.h>

namespace {

// What happens to a program that asserts something in each way.
struct Course
{
    int theEvaluations = 0;
    bool theHasActed = false;
    bool theIsOut = false;

    OSStatus Status(OSStatus theStatus)
    {
        ++theEvaluations;
        return theStatus;
    }
    bool Answer(bool theAnswer)
    {
        ++theEvaluations;
        return theAnswer;
    }
};

Lines TakeWithoutPlaces()
{
    Lines theLines = StandardErrorCapture::TakeLines();
    for (std::string& theLine : theLines) {
        theLine.erase(theLine.rfind(", "));
    }
    return theLines;
}

Course RequireStatus(OSStatus theStatus)
{
    Course theCourse;
    require_noerr_action(theCourse.Status(theStatus), Out, theCourse.theHasActed = true);
    return theCourse;
Out:
    theCourse.theIsOut = true;
    return theCourse;
}

Course RequireQuietly(bool theAnswer)
{
    Course theCourse;
    require_action_quiet(theCourse.Answer(theAnswer), Out, theCourse.theHasActed = true);
    return theCourse;
Out:
    theCourse.theIsOut = true;
    return theCourse;
}

} // namespace

TEST(AssertMacros, ALineNamesTheAssertionItsFileAndItsLine)
{
    const long theLine = __LINE__ + 1;
    check(1 > 2);
    const Lines theLines = StandardErrorCapture::TakeLines();
    ASSERT_EQ(theLines.size(), 1u);
    EXPECT_EQ(theLines[0].rfind("Assertion failed: 1 > 2, ", 0), 0u) << theLines[0];
    const std::string theEnd = "AssertMacrosTests.cpp:" + std::to_string(theLine);
    EXPECT_NE(theLines[0].find(theEnd), std::string::npos) << theLines[0];
}

TEST(AssertMacros, RemarksAreMadeOfWhatFails)
{
    Course theCourse;
    check(theCourse.Answer(true));
    check_noerr(theCourse.Status(noErr));
    ncheck(theCourse.Answer(false));
    verify(theCourse.Answer(true));
    verify_noerr(theCourse.Status(noErr));
    nverify(theCourse.Answer(false));
    verify_action(theCourse.Answer(true), theCourse.theHasActed = true);
    EXPECT_EQ(theCourse.theEvaluations, 7);
    EXPECT_FALSE(theCourse.theHasActed);
    EXPECT_EQ(StandardErrorCapture::TakeText(), "");

    check_string(1 == 2, "of numbers");
    check_noerr(-50);
    check_noerr_string(-50, "of statuses");
    ncheck(1 == 1);
    verify_string(2 == 3, "more");
    verify_noerr(-128);
    nverify(2 == 2);
    verify_action(3 == 4, theCourse.theHasActed = true);
    debug_string("in words");
    EXPECT_TRUE(theCourse.theHasActed);
    EXPECT_EQ(
        TakeWithoutPlaces(),
        (Lines{"Assertion failed: 1 == 2, of numbers", "Assertion failed: -50, error -50",
               "Assertion failed: -50, of statuses, error -50", "Assertion failed: !(1 == 1)",
               "Assertion failed: 2 == 3, more", "Assertion failed: -128, error -128",
               "Assertion failed: !(2 == 2)", "Assertion failed: 3 == 4", "Assertion failed: in words"}));
}

TEST(AssertMacros, AStatusThatIsRequiredIsEvaluatedOnceAndLeadsOut)
{
    const Course theGood = RequireStatus(noErr);
    EXPECT_EQ(theGood.theEvaluations, 1);
    EXPECT_FALSE(theGood.theIsOut || theGood.theHasActed);

    const Course theBad = RequireStatus(-50);
    EXPECT_EQ(theBad.theEvaluations, 1);
    EXPECT_TRUE(theBad.theIsOut && theBad.theHasActed);
    EXPECT_EQ(TakeWithoutPlaces(), Lines{"Assertion failed: theCourse.Status(theStatus), error -50"});
}

TEST(AssertMacros, QuietOnesSayNothing)
{
    EXPECT_FALSE(RequireQuietly(true).theIsOut);
    const Course theBad = RequireQuietly(false);
    EXPECT_TRUE(theBad.theIsOut && theBad.theHasActed);
    EXPECT_EQ(theBad.theEvaluations, 1);
}

// Each of the ways out by itself: the number of the first that does not lead out, or none.
TEST(AssertMacros, EveryRequirementLeadsOut)
{
    int theLast = 0;
    int theActions = 0;
#define EXPECT_TO_LEAVE(inNumber, inRequirement)                                                             \
    theLast = inNumber;                                                                                      \
    inRequirement;                                                                                           \
    ADD_FAILURE() << "stayed at " << theLast;
    EXPECT_TO_LEAVE(1, require(1 == 2, One))
One:
    EXPECT_TO_LEAVE(2, require_quiet(1 == 2, Two))
Two:
    EXPECT_TO_LEAVE(3, require_string(1 == 2, Three, "three"))
Three:
    EXPECT_TO_LEAVE(4, require_action(1 == 2, Four, ++theActions))
Four:
    EXPECT_TO_LEAVE(5, require_action_string(1 == 2, Five, ++theActions, "five"))
Five:
    EXPECT_TO_LEAVE(6, require_noerr(-1, Six))
Six:
    EXPECT_TO_LEAVE(7, require_noerr_quiet(-1, Seven))
Seven:
    EXPECT_TO_LEAVE(8, require_noerr_string(-1, Eight, "eight"))
Eight:
    EXPECT_TO_LEAVE(9, require_noerr_action_quiet(-1, Nine, ++theActions))
Nine:
    EXPECT_TO_LEAVE(10, require_noerr_action_string(-1, Ten, ++theActions, "ten"))
Ten:
    EXPECT_TO_LEAVE(11, nrequire(1 == 1, Eleven))
Eleven:
    EXPECT_TO_LEAVE(12, nrequire_quiet(1 == 1, Twelve))
Twelve:
    EXPECT_TO_LEAVE(13, nrequire_action(1 == 1, Thirteen, ++theActions))
Thirteen:
    EXPECT_TO_LEAVE(14, nrequire_action_quiet(1 == 1, Fourteen, ++theActions))
Fourteen:
    EXPECT_TO_LEAVE(15, nrequire_string(1 == 1, Fifteen, "fifteen"))
Fifteen:
    EXPECT_TO_LEAVE(16, nrequire_action_string(1 == 1, Sixteen, ++theActions, "sixteen"))
Sixteen:
    EXPECT_EQ(theLast, 16);
    EXPECT_EQ(theActions, 7);
    EXPECT_EQ(
        TakeWithoutPlaces(),
        (Lines{"Assertion failed: 1 == 2", "Assertion failed: 1 == 2, three", "Assertion failed: 1 == 2",
               "Assertion failed: 1 == 2, five", "Assertion failed: -1, error -1",
               "Assertion failed: -1, eight, error -1", "Assertion failed: -1, ten, error -1",
               "Assertion failed: !(1 == 1)", "Assertion failed: !(1 == 1)",
               "Assertion failed: !(1 == 1), fifteen", "Assertion failed: !(1 == 1), sixteen"}));
}
