// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

#include <Carbon/Carbon.h>

#include "Base/Guarded.h"
#include "Base/ReferenceTable.h"
#include "Common/NeverDestroyed.h"
#include "EventManager.h"
#include "System/Clock.h"

namespace Host {

namespace {

using EventTable = ReferenceTable<EventRef, ReferenceKind::kEvent, Event>;

// Events may still be released while the program ends.
EventTable& Events()
{
    static NeverDestroyed<EventTable> sEvents;
    return sEvents.Get();
}

// What this thread holds; null while that is nothing.
thread_local const EventHolder* tInnermostHolder = nullptr;

// The bytes of a parameter as the type that the caller wants; null when there is no way to have them.
const std::string* BytesAs(const ParameterData& theData, EventParamType theType, std::string* theConverted)
{
    if (theType == typeWildCard || theType == theData.Type()) {
        return &theData.Bytes();
    }
    return theData.Convert(theType, theConverted) ? theConverted : nullptr;
}

OSStatus HandOut(const std::string& theBytes, ByteCount theBufferSize, ByteCount* theActualSize,
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

// A copy of an event, of the type that theMakeType makes of the event's own; null for a bad event.
template <class MakeType>
EventRef Copy(EventRef theOther, const MakeType& theMakeType)
{
    const SharedEvent theEvent = Event::Find(theOther);
    if (theEvent == nullptr) {
        return nullptr;
    }
    EventRef theCopy = nullptr;
    Guarded([&] {
        theCopy = theEvent->CopyAs(theMakeType(theEvent->Type()))->Reference();
        return noErr;
    });
    return theCopy;
}

// What an event answers; 0 for a bad one.
template <class Question>
auto AnswerOf(EventRef theReference, const Question& theQuestion)
    -> decltype(theQuestion(std::declval<Event>()))
{
    if (const SharedEvent* const theHeld = EventHolder::Find(theReference)) {
        return theQuestion(**theHeld);
    }
    const SharedEvent theEvent = Events().Find(theReference);
    return theEvent == nullptr ? 0 : theQuestion(*theEvent);
}

} // namespace

Event::Event(const EventTypeSpec& theType, EventTime theTime, EventAttributes theAttributes)
    : mType(theType),
      mTime(theTime),
      mAttributes(theAttributes)
{
    mParameters.reserve(kUsualParameters);
}

SharedEvent Event::Enter(SharedEvent theEvent)
{
    theEvent->mReference = Events().Add(theEvent);
    return theEvent;
}

SharedEvent Event::Make(const EventTypeSpec& theType, EventTime theTime, EventAttributes theAttributes)
{
    return Enter(std::make_shared<Event>(theType, theTime, theAttributes));
}

SharedEvent Event::Find(EventRef theReference)
{
    const SharedEvent* const theHeld = EventHolder::Find(theReference);
    return theHeld != nullptr ? *theHeld : Events().Find(theReference);
}

SharedEvent Event::CopyAs(const EventTypeSpec& theType) const
{
    auto theCopy = std::make_shared<Event>(theType, mTime, mAttributes);
    theCopy->mParameters = mParameters;
    return Enter(std::move(theCopy));
}

void Event::Release()
{
    ItemCount theCount = mCount.load();
    // Nothing is left to release of an event that was released too often.
    while (theCount != 0 && !mCount.compare_exchange_weak(theCount, theCount - 1)) {
    }
    if (theCount == 1) {
        Events().Remove(mReference);
    }
}

template <class Parameters>
auto Event::Find(Parameters& theParameters, EventParamName theName)
{
    return std::find_if(theParameters.begin(), theParameters.end(),
                        [=](const NamedParameter& theParameter) { return theParameter.theName == theName; });
}

const ParameterData* Event::Parameter(EventParamName theName) const
{
    const auto theFound = Find(mParameters, theName);
    return theFound == mParameters.end() ? nullptr : &theFound->theData;
}

void Event::SetParameter(EventParamName theName, EventParamType theType, ByteCount theSize,
                         const void* theBytes)
{
    const auto theFound = Find(mParameters, theName);
    if (theFound != mParameters.end()) {
        theFound->theData = ParameterData(theType, theSize, theBytes);
    } else {
        mParameters.emplace_back(theName, theType, theSize, theBytes);
    }
}

bool Event::RemoveParameter(EventParamName theName)
{
    const auto theFound = Find(mParameters, theName);
    if (theFound == mParameters.end()) {
        return false;
    }
    // What dies with the data may call handlers, which may look at this event: by then it is in order.
    const ParameterData theOld = std::move(theFound->theData);
    mParameters.erase(theFound);
    return true;
}

EventHolder::EventHolder(SharedEvent theEvent)
    : mEvent(std::move(theEvent)),
      mOuter(std::exchange(tInnermostHolder, this))
{
    mEvent->Retain();
}

EventHolder::~EventHolder()
{
    tInnermostHolder = mOuter;
    mEvent->Release();
}

const SharedEvent* EventHolder::Find(EventRef theReference)
{
    const EventHolder* const theHolder = tInnermostHolder;
    // One that was released too often is out of the table as well.
    const bool theIsIt = theHolder != nullptr && theHolder->mEvent->Reference() == theReference &&
                         theHolder->mEvent->Count() > 0;
    return theIsIt ? &theHolder->mEvent : nullptr;
}

OSStatus WriteEventParameter(Event& theEvent, EventParamName theName, EventParamType theType,
                             ByteCount theSize, const void* theBytes)
{
    if ((theBytes == nullptr && theSize > 0) || !ParameterData::Fits(theType, theSize)) {
        return paramErr;
    }
    return Guarded([&] {
        theEvent.SetParameter(theName, theType, theSize, theBytes);
        return noErr;
    });
}

OSStatus ReadEventParameter(const Event& theEvent, EventParamName theName, EventParamType theDesiredType,
                            EventParamType* theActualType, ByteCount theBufferSize, ByteCount* theActualSize,
                            void* theBuffer)
{
    const ParameterData* const theData = theEvent.Parameter(theName);
    if (theData == nullptr) {
        return eventParameterNotFoundErr;
    }
    return Guarded([&]() -> OSStatus {
        std::string theConverted;
        const std::string* const theBytes = BytesAs(*theData, theDesiredType, &theConverted);
        if (theBytes == nullptr) {
            return eventParameterNotFoundErr;
        }
        if (theActualType != nullptr) {
            *theActualType = theDesiredType == typeWildCard ? theData->Type() : theDesiredType;
        }
        return HandOut(*theBytes, theBufferSize, theActualSize, theBuffer);
    });
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
        *outEvent = Event::Make({inClassID, inKind}, theTime, inAttributes)->Reference();
        return noErr;
    });
}

EventRef CopyEvent(EventRef inOther)
{
    return Copy(inOther, [](const EventTypeSpec& theType) { return theType; });
}

EventRef CopyEventAs(CFAllocatorRef, EventRef inOther, OSType inEventClass, UInt32 inEventKind)
{
    return Copy(inOther, [=](const EventTypeSpec&) { return EventTypeSpec{inEventClass, inEventKind}; });
}

EventRef RetainEvent(EventRef inEvent)
{
    const SharedEvent theEvent = Event::Find(inEvent);
    if (theEvent == nullptr) {
        return nullptr;
    }
    theEvent->Retain();
    return inEvent;
}

void ReleaseEvent(EventRef inEvent)
{
    const SharedEvent theEvent = Event::Find(inEvent);
    if (theEvent != nullptr) {
        theEvent->Release();
    }
}

ItemCount GetEventRetainCount(EventRef inEvent)
{
    return AnswerOf(inEvent, [](const Event& theEvent) { return theEvent.Count(); });
}

OSType GetEventClass(EventRef inEvent)
{
    return AnswerOf(inEvent, [](const Event& theEvent) { return theEvent.Type().eventClass; });
}

UInt32 GetEventKind(EventRef inEvent)
{
    return AnswerOf(inEvent, [](const Event& theEvent) { return theEvent.Type().eventKind; });
}

EventTime GetEventTime(EventRef inEvent)
{
    return AnswerOf(inEvent, [](const Event& theEvent) { return theEvent.Time(); });
}

OSStatus SetEventTime(EventRef inEvent, EventTime inTime)
{
    const SharedEvent theEvent = Event::Find(inEvent);
    if (theEvent == nullptr) {
        return paramErr;
    }
    theEvent->SetTime(inTime);
    return noErr;
}

OSStatus SetEventParameter(EventRef inEvent, EventParamName inName, EventParamType inType, ByteCount inSize,
                           const void* inDataPtr)
{
    const SharedEvent theEvent = Event::Find(inEvent);
    return theEvent == nullptr ? OSStatus(paramErr)
                               : WriteEventParameter(*theEvent, inName, inType, inSize, inDataPtr);
}

OSStatus GetEventParameter(EventRef inEvent, EventParamName inName, EventParamType inDesiredType,
                           EventParamType* outActualType, ByteCount inBufferSize, ByteCount* outActualSize,
                           void* outData)
{
    const SharedEvent theEvent = Event::Find(inEvent);
    return theEvent == nullptr ? OSStatus(paramErr)
                               : ReadEventParameter(*theEvent, inName, inDesiredType, outActualType,
                                                    inBufferSize, outActualSize, outData);
}

OSStatus RemoveEventParameter(EventRef inEvent, EventParamName inName)
{
    const SharedEvent theEvent = Event::Find(inEvent);
    if (theEvent == nullptr) {
        return paramErr;
    }
    return theEvent->RemoveParameter(inName) ? OSStatus(noErr) : OSStatus(eventParameterNotFoundErr);
}

EventTime GetCurrentEventTime(void)
{
    return CurrentClock().Now();
}
