// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ExampleWindow.h"

#include <gtest/gtest.h>
#include <Simulation/UserSession.h>

namespace {

OSStatus NoteValue(EventHandlerCallRef, EventRef theEvent, void* theUserData)
{
    ControlRef theControl = nullptr;
    GetEventParameter(theEvent, kEventParamDirectObject, typeControlRef, nullptr, sizeof theControl, nullptr,
                      &theControl);
    *static_cast<SInt32*>(theUserData) = GetControl32BitValue(theControl);
    return eventNotHandledErr;
}

} // namespace

TEST(UserSession, UsesTheApplicationAsItsHeaderShows)
{
    const EventTypeSpec kChange = {kEventClassControl, kEventControlValueFieldChanged};
    ExampleWindow theExample;
    const WindowRef theWindow = theExample.Get();
    const ControlRef theSlider = theExample.AddSlider({'temp', 1}, 30);
    SInt32 theValue = 0;
    InstallEventHandler(GetControlEventTarget(theSlider), NoteValue, 1, &kChange, &theValue, nullptr);
    // @code 1
    EXPECT_TRUE(theSession.IsOver());
    EXPECT_EQ(theValue, 23);
    EXPECT_FALSE(IsValidWindowPtr(theWindow));
    theExample.Forget();
}
