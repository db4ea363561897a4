// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmDiagnostics.h"

#include "StandardErrorCapture.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

// The text of an assertion must not show what this stands for.
#define kSomeMacro 12

namespace {

// "Tests/Core/LmDiagnosticsTests.cpp, line 34: theText"
std::string LineAt(int theLine, const char* theText)
{
    return "Tests/Core/LmDiagnosticsTests.cpp, line " + std::to_string(theLine) + ": " + theText;
}

} // namespace

TEST(LmDiagnostics, AnAssertionThatHoldsIsSilent)
{
    const int theNumber = 12;
    LM_ASSERT(theNumber == kSomeMacro);
    EXPECT_EQ(StandardErrorCapture::TakeLines(), Lines());
}

TEST(LmDiagnostics, AFailedAssertionPrintsItsPlaceAndItsTextAndGoesOn)
{
    const int theNumber = 13;
    bool isReached = false;
    LM_ASSERT(theNumber == kSomeMacro), isReached = true;
    EXPECT_EQ(StandardErrorCapture::TakeLines(), Lines{LineAt(__LINE__ - 1, "theNumber == kSomeMacro")});
    EXPECT_TRUE(isReached);
}

TEST(LmDiagnostics, AnAssertionSaysNullAsItIsWritten)
{
    const void* thePointer = nullptr;
    LM_ASSERT(thePointer != NULL);
    EXPECT_EQ(StandardErrorCapture::TakeLines(), Lines{LineAt(__LINE__ - 1, "thePointer != NULL")});
}

TEST(LmDiagnostics, AnAssertionWithPercentSignsIsNotAFormat)
{
    const std::string theText = "other";
    LM_ASSERT(theText == "%s%n");
    EXPECT_EQ(StandardErrorCapture::TakeLines(), Lines{LineAt(__LINE__ - 1, "theText == \"%s%n\"")});
}

TEST(LmDiagnostics, TheConditionIsEvaluatedOnceWhetherItHoldsOrNot)
{
    int theCalls = 0;
    LM_ASSERT(++theCalls == 1);
    EXPECT_EQ(theCalls, 1);
    LM_ASSERT(++theCalls == 1);
    EXPECT_EQ(theCalls, 2);
    EXPECT_EQ(StandardErrorCapture::TakeLines(), Lines{LineAt(__LINE__ - 2, "++theCalls == 1")});
}

TEST(LmDiagnostics, AStatusOfZeroIsSilent)
{
    EXPECT_EQ(LM_CHECK_STATUS(0), 0);
}

TEST(LmDiagnostics, AnyOtherStatusPrintsItsNumberAndIsHandedOn)
{
    const short theStatus = LM_CHECK_STATUS(static_cast<short>(-50));
    EXPECT_EQ(StandardErrorCapture::TakeLines(), Lines{LineAt(__LINE__ - 1, "Error -50")});
    EXPECT_EQ(theStatus, -50);

    LM_CHECK_STATUS(-30585L);
    EXPECT_EQ(StandardErrorCapture::TakeLines(), Lines{LineAt(__LINE__ - 1, "Error -30585")});
}

TEST(LmDiagnostics, TheCallOfAStatusCheckIsMadeOnce)
{
    int theCalls = 0;
    const auto theCall = [&](int theStatus) {
        ++theCalls;
        return theStatus;
    };
    LM_CHECK_STATUS(theCall(0));
    EXPECT_EQ(theCalls, 1);
    LM_CHECK_STATUS(theCall(5));
    EXPECT_EQ(theCalls, 2);
    EXPECT_EQ(StandardErrorCapture::TakeLines(), Lines{LineAt(__LINE__ - 2, "Error 5")});
}

TEST(LmDiagnostics, AnErrorPrintsItsFormattedMessage)
{
    int theCalls = 0;
    LM_ERROR("Unknown type: %d", ++theCalls);
    EXPECT_EQ(StandardErrorCapture::TakeLines(), Lines{LineAt(__LINE__ - 1, "Unknown type: 1")});
    EXPECT_EQ(theCalls, 1);
    LM_ERROR("Nothing more to say");
    EXPECT_EQ(StandardErrorCapture::TakeLines(), Lines{LineAt(__LINE__ - 1, "Nothing more to say")});
}

TEST(LmDiagnostics, EachReportIsOneWholeLine)
{
    LM_ASSERT(1 > 2);
    LM_CHECK_STATUS(1);
    LM_ERROR("%s", "last");
    const std::string theText = StandardErrorCapture::TakeText();
    ASSERT_FALSE(theText.empty());
    EXPECT_EQ(std::count(theText.begin(), theText.end(), '\n'), 3);
    EXPECT_EQ(theText.back(), '\n');
}

TEST(LmDiagnostics, AMacroIsAnExpression)
{
    const bool isAsked = false;
    isAsked ? LM_ASSERT(1 > 2) : LM_ERROR("not asked");
    EXPECT_EQ(StandardErrorCapture::TakeLines(), Lines{LineAt(__LINE__ - 1, "not asked")});
}
