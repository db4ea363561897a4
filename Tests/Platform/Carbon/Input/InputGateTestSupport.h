// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef InputGateTestSupport_h
#define InputGateTestSupport_h

#include "TestProgram.h"

#include <gtest/gtest.h>

inline Host::PresenterEvents& Gate()
{
    return Host::PresenterRegistry::Events();
}

// The tests speak of places in the content of the window at 100, 80.
inline Host::PointerAction At(Host::ObjectId theWindow, int theX, int theY,
                              Host::PointerButton theButton = Host::PointerButton::kPrimary)
{
    Host::PointerAction theAction;
    theAction.theWindow = theWindow;
    theAction.thePlace = {100 + theX, 80 + theY};
    theAction.theButton = theButton;
    return theAction;
}

// A program, and the events that reach its window.
class InputGateTest : public testing::Test
{
protected:
    InputGateTest()
        : mWindow(Screen().WindowCalled("Thermostat")),
          mWindowLog(GetWindowEventTarget(mProgram.mWindow.Get()), mLog)
    {
    }

    ~InputGateTest() override
    {
        // The gate outlives the test: nothing stays pressed.
        mWindowLog.mAnswer = nullptr;
        for (const Host::PointerButton theButton :
             {Host::PointerButton::kPrimary, Host::PointerButton::kSecondary,
              Host::PointerButton::kTertiary}) {
            Gate().PointerReleased(At(mWindow, 0, 0, theButton));
        }
        Gate().ModifiersChanged(0);
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

    TestProgram mProgram;
    Host::ObjectId mWindow;
    Log mLog;
    EventLog mWindowLog;
};

#endif
