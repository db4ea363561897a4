// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef AppleEvents_AppleEvents_h
#define AppleEvents_AppleEvents_h

#include "Descriptors.h"

namespace Host {

// An event of the class kCoreEventClass to the program itself; the caller disposes of it.
OSErr MakeCoreEvent(AEEventID theIdentifier, AppleEvent* theResult);

// The answer to an event, without parameters; the caller disposes of it.
OSErr MakeReply(const AppleEvent* theEvent, AppleEvent* theResult);

} // namespace Host

#endif
