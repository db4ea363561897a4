// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Events/OutgoingEvent.h"
#include "ExampleWindow.h"

#include <gtest/gtest.h>

namespace {

OSStatus ReadPart(EventHandlerCallRef, EventRef theEvent, void* theUserData)
{
    return GetEventParameter(theEvent, kEventParamControlPart, typeControlPartCode, nullptr,
                             sizeof(ControlPartCode), nullptr, theUserData);
}

} // namespace

TEST(OutgoingEvent, IsSentAsItsHeaderShows)
{
    using Host::OutgoingEvent;
    const EventTypeSpec kHit = {kEventClassControl, kEventControlHit};
    ExampleWindow theExample;
    const ControlRef theControl = theExample.AddPushButton({'Butt', 1});
    const ControlPartCode thePart = kControlButtonPart;
    ControlPartCode theReceived = 0;
    InstallEventHandler(GetControlEventTarget(theControl), ReadPart, 1, &kHit, &theReceived, nullptr);
    // @code 1
    EXPECT_EQ(theStatus, noErr);
    EXPECT_EQ(theReceived, thePart);
}
