// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Events_OutgoingEvent_h
#define Events_OutgoingEvent_h

#include "Base/Guarded.h"
#include "EventManager.h"
#include "EventTargets.h"

#include <Carbon/Carbon.h>

namespace Host {

// An event that a manager makes, fills, sends and forgets:
//
//     OutgoingEvent theEvent(kEventClassControl, kEventControlHit);
//     theEvent.Set(kEventParamDirectObject, typeControlRef, theControl);
//     theEvent.Set(kEventParamControlPart, typeControlPartCode, thePart);
//     OSStatus theStatus = theEvent.SendTo(GetControlEventTarget(theControl));
//
// Owns one reference to the event. Without memory there is none: nothing is set then, and sending answers
// paramErr.
class OutgoingEvent
{
public:
    OutgoingEvent(OSType theClass, UInt32 theKind, EventAttributes theAttributes = kEventAttributeNone)
    {
        Guarded([&] {
            mEvent = Event::Make({theClass, theKind}, GetCurrentEventTime(), theAttributes);
            return noErr;
        });
    }
    ~OutgoingEvent()
    {
        if (mEvent != nullptr) {
            mEvent->Release();
        }
    }
    OutgoingEvent(const OutgoingEvent&) = delete;
    OutgoingEvent& operator=(const OutgoingEvent&) = delete;

    EventRef Get() const { return mEvent == nullptr ? nullptr : mEvent->Reference(); }

    template <class Type>
    void Set(EventParamName theName, EventParamType theType, const Type& theValue)
    {
        if (mEvent != nullptr) {
            WriteEventParameter(*mEvent, theName, theType, sizeof(Type), &theValue);
        }
    }

    // Reads a parameter that a handler may have set. False, and theValue untouched, when there is none.
    template <class Type>
    bool Read(EventParamName theName, EventParamType theType, Type* theValue) const
    {
        return mEvent != nullptr && ReadEventParameter(*mEvent, theName, theType, nullptr, sizeof(Type),
                                                       nullptr, theValue) == noErr;
    }

    OSStatus SendTo(EventTargetRef theTarget, OptionBits theOptions = 0) const
    {
        return SendEvent(mEvent, theTarget, theOptions);
    }

    // Tells every handler of one target, none of which can keep it from the others.
    OSStatus TellAll(EventTargetRef theTarget) const
    {
        return SendTo(theTarget, kEventTargetDontPropagate | kEventTargetSendToAllHandlers);
    }

private:
    SharedEvent mEvent;
};

// Reads a parameter of any event. False, and theValue untouched, when there is none of that type.
template <class Type>
bool ReadParameter(EventRef theEvent, EventParamName theName, EventParamType theType, Type* theValue)
{
    return GetEventParameter(theEvent, theName, theType, nullptr, sizeof(Type), nullptr, theValue) == noErr;
}

} // namespace Host

#endif
