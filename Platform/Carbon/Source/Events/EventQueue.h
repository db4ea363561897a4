// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Events_EventQueue_h
#define Events_EventQueue_h

#include <Carbon/Carbon.h>

namespace Host {

// The first event of the listed types in the main queue, with a count for the caller; null when there is
// none. With theIsTaken it leaves the queue.
EventRef FirstEventInQueue(ItemCount theCount, const EventTypeSpec* theTypes, bool theIsTaken);

} // namespace Host

#endif
