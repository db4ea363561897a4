// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <algorithm>
#include <atomic>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

#include <Carbon/Carbon.h>

#include "Base/Guarded.h"
#include "Base/ReferenceTable.h"
#include "Common/NeverDestroyed.h"
#include "EventManager.h"
#include "EventManagerParameters.h"
#include "System/Clock.h"

namespace Host {

namespace {

struct EventParameter
{
    EventParamName theName;
    ParameterData theData;
};

// An event. It counts its references itself; at zero it leaves the table of events and dies with the last
// call that still works on it.
struct Event
{
    Event(OSType theEventClass, UInt32 theEventKind, EventTime theEventTime,
          EventAttributes theEventAttributes)
        : theClass(theEventClass),
          theKind(theEventKind),
          theTime(theEventTime),
          theAttributes(theEventAttributes)
    {
    }

    EventParameter* Find(EventParamName theName)
    {
        for (EventParameter& theParameter : theParameters) {
            if (theParameter.theName == theName) {
                return &theParameter;
            }
        }
        return nullptr;
    }

    OSType theClass;
    UInt32 theKind;
    EventTime theTime;
    EventAttributes theAttributes;
    std::vector<EventParameter> theParameters; // few, so a search beats a map
    std::atomic<ItemCount> theCount{1};
};

using SharedEvent = std::shared_ptr<Event>;
using EventTable = ReferenceTable<EventRef, ReferenceKind::kEvent, Event>;

// Events may still be released while the program ends.
EventTable& Events()
{
    static NeverDestroyed<EventTable> sEvents;
    return sEvents.Get();
}

SharedEvent FindEvent(EventRef theReference)
{
    return Events().Find(theReference);
}

OSStatus StoreParameter(Event& theEvent, EventParamName theName, ParameterData theData)
{
    EventParameter* theParameter = theEvent.Find(theName);
    if (theParameter != nullptr) {
        theParameter->theData = std::move(theData);
    } else {
        theEvent.theParameters.push_back({theName, std::move(theData)});
    }
    return noErr;
}

// The bytes of a parameter as the type that the caller wants; null when there is no way to have them.
const std::vector<UInt8>* BytesAs(const ParameterData& theData, EventParamType theType,
                                  std::vector<UInt8>* theConverted)
{
    if (theType == typeWildCard || theType == theData.Type()) {
        return &theData.Bytes();
    }
    return theData.Convert(theType, theConverted) ? theConverted : nullptr;
}

OSStatus HandOut(const std::vector<UInt8>& theBytes, ByteCount theBufferSize, ByteCount* theActualSize,
                 void* theBuffer)
{
    if (theActualSize != nullptr) {
        *theActualSize = theBytes.size();
    }
    if (theBuffer == nullptr) {
        return noErr;
    }
    if (theBufferSize < theBytes.size()) {
        return paramErr;
    }
    if (!theBytes.empty()) {
        std::memcpy(theBuffer, theBytes.data(), theBytes.size());
    }
    return noErr;
}

EventRef CopyAs(EventRef theOther, const OSType* theClass, const UInt32* theKind)
{
    const SharedEvent theEvent = FindEvent(theOther);
    if (theEvent == nullptr) {
        return nullptr;
    }
    EventRef theCopy = nullptr;
    Guarded([&] {
        auto theNew = std::make_shared<Event>(theClass == nullptr ? theEvent->theClass : *theClass,
                                              theKind == nullptr ? theEvent->theKind : *theKind,
                                              theEvent->theTime, theEvent->theAttributes);
        theNew->theParameters = theEvent->theParameters;
        theCopy = Events().Add(std::move(theNew));
        return noErr;
    });
    return theCopy;
}

} // namespace

EventAttributes AttributesOfEvent(EventRef theEvent)
{
    const SharedEvent theFound = FindEvent(theEvent);
    return theFound == nullptr ? EventAttributes(kEventAttributeNone) : theFound->theAttributes;
}

bool IsEvent(EventRef theEvent)
{
    return FindEvent(theEvent) != nullptr;
}

} // namespace Host

using namespace Host;

OSStatus CreateEvent(CFAllocatorRef, OSType inClassID, UInt32 inKind, EventTime inWhen,
                     EventAttributes inAttributes, EventRef* outEvent)
{
    if (outEvent == nullptr) {
        return paramErr;
    }
    *outEvent = nullptr;
    return Guarded([&] {
        const EventTime theTime = inWhen == 0 ? GetCurrentEventTime() : inWhen;
        *outEvent = Events().Add(std::make_shared<Event>(inClassID, inKind, theTime, inAttributes));
        return noErr;
    });
}

EventRef CopyEvent(EventRef inOther)
{
    return CopyAs(inOther, nullptr, nullptr);
}

EventRef CopyEventAs(CFAllocatorRef, EventRef inOther, OSType inEventClass, UInt32 inEventKind)
{
    return CopyAs(inOther, &inEventClass, &inEventKind);
}

EventRef RetainEvent(EventRef inEvent)
{
    const SharedEvent theEvent = FindEvent(inEvent);
    if (theEvent == nullptr) {
        return nullptr;
    }
    ++theEvent->theCount;
    return inEvent;
}

void ReleaseEvent(EventRef inEvent)
{
    const SharedEvent theEvent = FindEvent(inEvent);
    if (theEvent != nullptr && --theEvent->theCount == 0) {
        Events().Remove(inEvent);
    }
}

ItemCount GetEventRetainCount(EventRef inEvent)
{
    const SharedEvent theEvent = FindEvent(inEvent);
    return theEvent == nullptr ? 0 : theEvent->theCount.load();
}

OSType GetEventClass(EventRef inEvent)
{
    const SharedEvent theEvent = FindEvent(inEvent);
    return theEvent == nullptr ? 0 : theEvent->theClass;
}

UInt32 GetEventKind(EventRef inEvent)
{
    const SharedEvent theEvent = FindEvent(inEvent);
    return theEvent == nullptr ? 0 : theEvent->theKind;
}

EventTime GetEventTime(EventRef inEvent)
{
    const SharedEvent theEvent = FindEvent(inEvent);
    return theEvent == nullptr ? 0 : theEvent->theTime;
}

OSStatus SetEventTime(EventRef inEvent, EventTime inTime)
{
    const SharedEvent theEvent = FindEvent(inEvent);
    if (theEvent == nullptr) {
        return paramErr;
    }
    theEvent->theTime = inTime;
    return noErr;
}

OSStatus SetEventParameter(EventRef inEvent, EventParamName inName, EventParamType inType, ByteCount inSize,
                           const void* inDataPtr)
{
    const SharedEvent theEvent = FindEvent(inEvent);
    if (theEvent == nullptr || (inDataPtr == nullptr && inSize > 0) || !ParameterData::Fits(inType, inSize)) {
        return paramErr;
    }
    return Guarded(
        [&] { return StoreParameter(*theEvent, inName, ParameterData(inType, inSize, inDataPtr)); });
}

OSStatus GetEventParameter(EventRef inEvent, EventParamName inName, EventParamType inDesiredType,
                           EventParamType* outActualType, ByteCount inBufferSize, ByteCount* outActualSize,
                           void* outData)
{
    const SharedEvent theEvent = FindEvent(inEvent);
    if (theEvent == nullptr) {
        return paramErr;
    }
    const EventParameter* theParameter = theEvent->Find(inName);
    if (theParameter == nullptr) {
        return eventParameterNotFoundErr;
    }
    return Guarded([&]() -> OSStatus {
        std::vector<UInt8> theConverted;
        const std::vector<UInt8>* theBytes = BytesAs(theParameter->theData, inDesiredType, &theConverted);
        if (theBytes == nullptr) {
            return eventParameterNotFoundErr;
        }
        if (outActualType != nullptr) {
            *outActualType = inDesiredType == typeWildCard ? theParameter->theData.Type() : inDesiredType;
        }
        return HandOut(*theBytes, inBufferSize, outActualSize, outData);
    });
}

OSStatus RemoveEventParameter(EventRef inEvent, EventParamName inName)
{
    const SharedEvent theEvent = FindEvent(inEvent);
    if (theEvent == nullptr) {
        return paramErr;
    }
    const EventParameter* theParameter = theEvent->Find(inName);
    if (theParameter == nullptr) {
        return eventParameterNotFoundErr;
    }
    theEvent->theParameters.erase(theEvent->theParameters.begin() +
                                  (theParameter - theEvent->theParameters.data()));
    return noErr;
}

EventTime GetCurrentEventTime(void)
{
    return CurrentClock().Now();
}
