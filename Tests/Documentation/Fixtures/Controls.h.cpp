// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ExampleWindow.h"

#include <Carbon/Carbon.h>
#include <gtest/gtest.h>

namespace {

OSStatus Count(EventHandlerCallRef, EventRef, void* theUserData)
{
    ++*static_cast<int*>(theUserData);
    return eventNotHandledErr;
}

} // namespace

TEST(Controls, SendAnEventForAChangeAsTheirHeaderShows)
{
    ExampleWindow theExample;
    const WindowRef theWindow = theExample.Get();
    const EventTypeSpec kChange = {kEventClassControl, kEventControlValueFieldChanged};
    int theCount = 0;
    InstallEventHandler(GetWindowEventTarget(theWindow), Count, 1, &kChange, &theCount, nullptr);
    const Rect theBounds = {20, 20, 44, 320};
    // @code 1
    EXPECT_EQ(GetControl32BitValue(theSlider), 7);
    EXPECT_EQ(theCount, 1);
}
