// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ExampleWindow.h"
#include "StandardErrorCapture.h"
#include "TestStrings.h"

#include <gtest/gtest.h>
#include <iostream>
#include <Simulation/UserSimulator.h>

TEST(UserSimulator, ActsAsItsHeaderShows)
{
    ExampleWindow theExample;
    const WindowRef theWindow = theExample.Get();
    const ControlRef theSlider = theExample.AddSlider({'temp', 1}, 30);
    const ControlRef theField = theExample.AddEditText({'room', 1});
    theExample.AddEditText({'room', 2});
    const ControlRef theButton = theExample.AddPushButton({'Butt', 1});
    DisableControl(theButton);
    // @code 1
    EXPECT_EQ(GetControl32BitValue(theSlider), 23);
    CFStringRef theText = nullptr;
    GetControlData(theField, kControlEntireControl, kControlEditTextCFStringTag, sizeof theText, &theText,
                   nullptr);
    EXPECT_EQ(GetText(theText), "Kitchen");
    CFRelease(theText);
    EXPECT_NE(StandardErrorCapture::TakeText().find("disabled"), std::string::npos);
}
