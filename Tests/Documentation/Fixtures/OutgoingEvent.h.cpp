// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Events/OutgoingEvent.h"

using Host::OutgoingEvent;

OSStatus SendHit(ControlRef theControl, ControlPartCode thePart);

OSStatus SendHit(ControlRef theControl, ControlPartCode thePart)
{
    // @code 1
    return theStatus;
}
