// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef SimulatorTestSupport_h
#define SimulatorTestSupport_h

#include "TestProgram.h"

#include <gtest/gtest.h>
#include <Simulation/UserSimulator.h>

// A person in front of a program.
class UserSimulatorTest : public testing::Test
{
protected:
    UserSimulatorTest()
        : mWindowLog(GetWindowEventTarget(mProgram.mWindow.Get()), mLog)
    {
    }

    Log Take()
    {
        Log theLog;
        theLog.swap(mLog);
        return theLog;
    }

    // Has every event of one name answered with noErr.
    void Consume(const std::string& theName)
    {
        mWindowLog.mAnswer = [theName](const std::string& theEvent, EventRef) {
            return theEvent == theName ? OSStatus{noErr} : OSStatus{eventNotHandledErr};
        };
    }

    // Refused for this reason, and nothing was sent.
    void ExpectRefusal(const Host::UserResult& theResult, const std::string& theReason)
    {
        EXPECT_FALSE(theResult);
        EXPECT_EQ(theResult.Reason(), theReason);
        EXPECT_EQ(theResult.Explain(), "Refused: " + theReason + ".\n" + mUser.DescribeScreen());
        EXPECT_EQ(Take(), Log());
    }

    void ExpectDone(const Host::UserResult& theResult)
    {
        EXPECT_TRUE(theResult) << theResult.Explain();
        EXPECT_EQ(theResult.Explain(), "");
    }

    void FocusField() { SetKeyboardFocus(mProgram.mWindow.Get(), mProgram.mField, kControlEditTextPart); }

    TestProgram mProgram;
    Log mLog;
    EventLog mWindowLog;
    Host::UserSimulator mUser;
};

#endif
