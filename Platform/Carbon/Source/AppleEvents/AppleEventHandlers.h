// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef AppleEvents_AppleEventHandlers_h
#define AppleEvents_AppleEventHandlers_h

#include "Descriptors.h"

namespace Host {

// Whether somebody, or the default, takes events of a class and identifier.
bool IsAppleEventHandled(AEEventClass theClass, AEEventID theIdentifier);

// Calls the handler of an event, or does what the default is. errAEEventNotHandled when there is neither.
OSErr HandleAppleEvent(const AppleEvent* theEvent, AppleEvent* theReply);

// Asks the program to quit by an Apple event. While it is being asked so already, the quit is told to
// everybody as it would be without Apple events.
void QuitByAppleEvent();

} // namespace Host

#endif
