// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Events_OutgoingEvent_h
#define Events_OutgoingEvent_h

#include <Carbon/Carbon.h>

namespace Host {

// An event that a manager makes, fills, sends and forgets:
//
//     OutgoingEvent theEvent(kEventClassControl, kEventControlHit);
//     theEvent.Set(kEventParamDirectObject, typeControlRef, theControl);
//     theEvent.Set(kEventParamControlPart, typeControlPartCode, thePart);
//     OSStatus theStatus = theEvent.SendTo(GetControlEventTarget(theControl));
//
// Owns one reference to the event.
class OutgoingEvent
{
public:
    OutgoingEvent(OSType theClass, UInt32 theKind, EventAttributes theAttributes = kEventAttributeNone)
    {
        CreateEvent(nullptr, theClass, theKind, 0, theAttributes, &mEvent);
    }
    ~OutgoingEvent() { ReleaseEvent(mEvent); }
    OutgoingEvent(const OutgoingEvent&) = delete;
    OutgoingEvent& operator=(const OutgoingEvent&) = delete;

    EventRef Get() const { return mEvent; }

    template <class Type>
    void Set(EventParamName theName, EventParamType theType, const Type& theValue)
    {
        SetEventParameter(mEvent, theName, theType, sizeof(Type), &theValue);
    }

    // Reads a parameter that a handler may have set. False, and theValue untouched, when there is none.
    template <class Type>
    bool Read(EventParamName theName, EventParamType theType, Type* theValue) const
    {
        return GetEventParameter(mEvent, theName, theType, nullptr, sizeof(Type), nullptr, theValue) == noErr;
    }

    OSStatus SendTo(EventTargetRef theTarget, OptionBits theOptions = 0) const
    {
        return SendEventToEventTargetWithOptions(mEvent, theTarget, theOptions);
    }

    // Tells every handler of one target, none of which can keep it from the others.
    OSStatus TellAll(EventTargetRef theTarget) const
    {
        return SendTo(theTarget, kEventTargetDontPropagate | kEventTargetSendToAllHandlers);
    }

private:
    EventRef mEvent = nullptr;
};

// Reads a parameter of any event. False, and theValue untouched, when there is none of that type.
template <class Type>
bool ReadParameter(EventRef theEvent, EventParamName theName, EventParamType theType, Type* theValue)
{
    return GetEventParameter(theEvent, theName, theType, nullptr, sizeof(Type), nullptr, theValue) == noErr;
}

} // namespace Host

#endif
