// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Instance.h"

#include "Base/Guarded.h"
#include "Events/OutgoingEvent.h"

#include <utility>

namespace Host {

Instance::Instance(SharedObjectClass theClass)
    : mClass(std::move(theClass))
{
    ++mClass->theInstances;
}

Instance::~Instance()
{
    --mClass->theInstances;
}

OSStatus Instance::Construct()
{
    const OSStatus theStatus = ConstructBases(*mClass);
    return theStatus == noErr && mClass->theFunction != nullptr ? ConstructPart(mClass) : theStatus;
}

OSStatus Instance::ConstructBases(const ObjectClass& theClass)
{
    const SharedObjectClass& theBase = theClass.theBase;
    if (theBase == nullptr) {
        return noErr;
    }
    const OSStatus theStatus = ConstructBases(*theBase);
    return theStatus == noErr && theBase->theFunction != nullptr ? ConstructPart(theBase) : theStatus;
}

// The function is not a handler on the object yet, so nobody else can hear this.
OSStatus Instance::ConstructPart(const SharedObjectClass& theClass)
{
    OutgoingEvent theEvent(kEventClassHIObject, kEventHIObjectConstruct);
    if (theEvent.Get() == nullptr) {
        return memFullErr;
    }
    theEvent.Set(kEventParamHIObjectInstance, typeHIObjectRef, ObjectReference());
    const OSStatus theStatus = theClass->theFunction(nullptr, theEvent.Get(), theClass->theData);
    if (theStatus != noErr) {
        return theStatus;
    }
    void* theData = nullptr;
    theEvent.Read(kEventParamHIObjectInstance, typeVoidPtr, &theData);
    return Add(theClass, theData);
}

// A function that cannot become a handler hears of the end here.
OSStatus Instance::Add(const SharedObjectClass& theClass, void* theData)
{
    const OSStatus theStatus = Guarded([&] {
        if (IsOver()) {
            return OSStatus{paramErr};
        }
        mParts.reserve(mParts.size() + 1);
        return InstallEventHandler(ObjectTarget(), theClass->theFunction, theClass->theEvents.size(),
                                   theClass->theEvents.data(), theData, nullptr);
    });
    if (theStatus == noErr) {
        mParts.push_back({theClass, theData});
    } else {
        const OutgoingEvent theEvent(kEventClassHIObject, kEventHIObjectDestruct);
        theClass->theFunction(nullptr, theEvent.Get(), theData);
    }
    return theStatus;
}

OSStatus Instance::Initialize(EventRef theEvent)
{
    const OSStatus theStatus =
        SendEventToEventTargetWithOptions(theEvent, ObjectTarget(), kEventTargetDontPropagate);
    if (IsOver()) {
        return paramErr;
    }
    return theStatus == noErr || theStatus == eventNotHandledErr ? Initialized() : theStatus;
}

OSStatus Instance::Initialized()
{
    return noErr;
}

void Instance::Destruct()
{
    const OutgoingEvent theEvent(kEventClassHIObject, kEventHIObjectDestruct);
    theEvent.TellAll(ObjectTarget());
}

void* Instance::DataOf(const Text& theClassName) const
{
    for (const Part& thePart : mParts) {
        if (thePart.theClass->theName == theClassName) {
            return thePart.theData;
        }
    }
    const SharedObjectClass theClass = FindObjectClass(theClassName);
    const bool theIsPlatforms = theClass != nullptr && theClass->theIsPlatforms;
    return theIsPlatforms && mClass->IsA(theClassName) ? ObjectReference() : nullptr;
}

} // namespace Host
