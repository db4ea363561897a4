// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Events_EventTargets_h
#define Events_EventTargets_h

#include <Carbon/Carbon.h>
#include <functional>
#include <memory>

namespace Host {

// What an object adds to its event target. Each function may be empty. They outlive the object when it is
// disposed while an event is on its way through the target, so they hold it weakly.
struct EventTargetBehaviour
{
    // The target that events go on to from here, asked when an event is sent; null ends the way.
    std::function<EventTargetRef()> theContainer;

    // What the object does by itself with an event that none of the handlers installed on this target
    // handled; it comes before the containing target's handlers. Answers as a handler does. Not asked once
    // the target is disposed.
    std::function<OSStatus(EventRef)> theDefault;

    // Whether theDefault does anything at all with events of a class; null: perhaps with any. Most events are
    // none of the business of most of the targets on their way.
    bool (*theConcerns)(OSType theClass) = nullptr;
};

class Event;

// SendEventToEventTargetWithOptions for an event that has been found.
OSStatus SendEvent(const std::shared_ptr<Event>& theEvent, EventTargetRef theTarget, OptionBits theOptions);

// Whether anybody on a target, or on those around it, would be asked about an event of a type: when not, the
// event need not be made.
bool IsAwaited(EventTargetRef theTarget, const EventTypeSpec& theType);

// Whether a target has a handler of a type of its own.
bool HasHandler(EventTargetRef theTarget, const EventTypeSpec& theType);

// Makes the event target of a control, window or menu; each manager makes one for each of its objects,
// and disposes it with the object.
EventTargetRef NewEventTarget(EventTargetBehaviour theBehaviour);

// Removes all handlers and makes the target's reference invalid. May be called while events are on their
// way through the target: no further handler of it is called. Null and old references are ignored.
void DisposeEventTarget(EventTargetRef theTarget);

// Tells the Event Manager who has the keyboard focus: the function answers the target of the focused control
// or window, or null for none. Set once by the keyboard focus module.
using UserFocusFinder = EventTargetRef (*)();
void SetUserFocusFinder(UserFocusFinder theFinder);

// Tries an unhandled-yet key-down event as a command key of a menu, before it goes to the user focus: true
// when it was one and has been carried out. Set once by the Menu Manager.
using CommandKeyMatcher = bool (*)(EventRef theEvent);
void SetCommandKeyMatcher(CommandKeyMatcher theMatcher);

// Sends a person's event the way the application event loop would: through the dispatcher, so that
// GetCurrentEvent and the modifiers are known to its handlers. Result as of SendEventToEventTarget.
OSStatus DispatchUserEvent(EventRef theEvent);

// The modifier keys that are down now, as GetCurrentKeyModifiers tells them.
void SetCurrentKeyModifiers(UInt32 theModifiers);

} // namespace Host

#endif
