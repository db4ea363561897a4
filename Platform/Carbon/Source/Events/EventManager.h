// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Events_EventManager_h
#define Events_EventManager_h

#include <Carbon/Carbon.h>

namespace Host {

// Whether a reference is that of an event that is alive.
bool IsEvent(EventRef theEvent);

// The attributes an event was made with; none for a bad event.
EventAttributes AttributesOfEvent(EventRef theEvent);

// Holds a count on an event while something that might release it is called.
class [[nodiscard]] EventHolder
{
public:
    explicit EventHolder(EventRef theEvent)
        : mEvent(RetainEvent(theEvent))
    {
    }
    ~EventHolder() { ReleaseEvent(mEvent); }
    EventHolder(const EventHolder&) = delete;
    EventHolder& operator=(const EventHolder&) = delete;

private:
    EventRef mEvent;
};

} // namespace Host

#endif
