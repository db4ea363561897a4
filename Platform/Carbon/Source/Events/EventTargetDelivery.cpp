// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// How an event travels along the handlers of a target and out to the containing ones.

#include "Base/Guarded.h"
#include "Base/OnStack.h"
#include "Base/ReferenceTable.h"
#include "EventManager.h"
#include "EventTarget.h"

#include <cstdint>

namespace Host {

namespace {

using Chain = std::vector<std::shared_ptr<EventTarget>>;

// The target and everything around it, settled when sending begins: a handler may move or dispose the
// object that it is called for.
Chain ChainFrom(std::shared_ptr<EventTarget> theTarget, bool theGoesOutward)
{
    Chain theChain;
    while (theTarget != nullptr) {
        theChain.push_back(theTarget);
        const auto& theContainer = theTarget->Behaviour().theContainer;
        const bool theHasNext = theGoesOutward && theContainer;
        theTarget = theHasNext ? FindEventTarget(theContainer()) : nullptr;
    }
    return theChain;
}

OSStatus Stronger(OSStatus theOne, OSStatus theOther)
{
    const auto theStrength = [](OSStatus theStatus) {
        if (theStatus == eventNotHandledErr || theStatus == eventPassToNextTargetErr) {
            return 0;
        }
        return theStatus == noErr ? 1 : 2;
    };
    return theStrength(theOther) > theStrength(theOne) ? theOther : theOne;
}

// One sending of an event.
class Delivery
{
public:
    Delivery(Chain theChain, OptionBits theOptions)
        : mChain(std::move(theChain)),
          mGoesToAll((theOptions & kEventTargetSendToAllHandlers) != 0)
    {
    }

    OSStatus Run(EventRef theEvent);

    // Where a handler was called from: its target's place in the chain, its own place in the target.
    struct Position
    {
        size_t theTarget;
        size_t theHandler;
    };

    // Asks everything below and beyond a place.
    OSStatus RunBelow(Position thePosition, EventRef theEvent);

private:
    // What the walk along one target came to.
    struct Outcome
    {
        OSStatus theStatus;
        bool theIsOver; // nobody else is to be asked
    };

    Outcome RunTarget(Position thePosition, EventRef theEvent);
    Outcome CallHandler(const EventHandler& theHandler, Position thePosition, EventRef theEvent);
    OSStatus CallDefault(const EventTarget& theTarget, EventRef theEvent) const;

    Chain mChain;
    bool mGoesToAll;
};

// A handler that is running: what its call reference stands for. A reference of none of them is not one of a
// running handler.
class [[nodiscard]] HandlerCall : public OnStack<HandlerCall>
{
public:
    HandlerCall(Delivery& theDelivery, Delivery::Position thePosition)
        : mDelivery(theDelivery),
          mPosition(thePosition)
    {
    }

    EventHandlerCallRef Reference() const { return mReference; }

    static HandlerCall* Find(EventHandlerCallRef theReference)
    {
        HandlerCall* theCall = Innermost();
        while (theCall != nullptr && theCall->Reference() != theReference) {
            theCall = theCall->Outer();
        }
        return theCall;
    }

    OSStatus CallNext(EventRef theEvent)
    {
        mHasPassedOn = true;
        const OSStatus theStatus = mDelivery.RunBelow(mPosition, theEvent);
        mNextStatus = Stronger(mNextStatus, theStatus);
        return theStatus;
    }

    // Whether the handler has asked the ones below by itself, and their strongest answer.
    bool HasPassedOn() const { return mHasPassedOn; }
    OSStatus NextStatus() const { return mNextStatus; }

private:
    using Numbered = NumberedReference<EventHandlerCallRef, ReferenceKind::kHandlerCall>;

    inline static std::uintptr_t sLastNumber = 0;

    Delivery& mDelivery;
    Delivery::Position mPosition;
    EventHandlerCallRef mReference = Numbered::Of(++sLastNumber);
    bool mHasPassedOn = false;
    OSStatus mNextStatus = eventNotHandledErr;
};

OSStatus Delivery::Run(EventRef theEvent)
{
    return RunBelow({0, mChain.front()->Count()}, theEvent);
}

OSStatus Delivery::RunBelow(Position thePosition, EventRef theEvent)
{
    OSStatus theResult = eventNotHandledErr;
    while (thePosition.theTarget < mChain.size()) {
        const Outcome theOutcome = RunTarget(thePosition, theEvent);
        theResult = Stronger(theResult, theOutcome.theStatus);
        if (theOutcome.theIsOver) {
            break;
        }
        ++thePosition.theTarget;
        if (thePosition.theTarget < mChain.size()) {
            thePosition.theHandler = mChain[thePosition.theTarget]->Count();
        }
    }
    return theResult;
}

Delivery::Outcome Delivery::RunTarget(Position thePosition, EventRef theEvent)
{
    EventTarget& theTarget = *mChain[thePosition.theTarget];
    const EventTarget::Pass thePass(theTarget);
    const OSType theClass = GetEventClass(theEvent);
    const UInt32 theKind = GetEventKind(theEvent);
    OSStatus theResult = eventNotHandledErr;
    while (thePosition.theHandler > 0) {
        --thePosition.theHandler;
        const std::shared_ptr<EventHandler> theHandler = theTarget.At(thePosition.theHandler);
        if (theHandler->IsRemoved() || !theHandler->Wants(theClass, theKind)) {
            continue;
        }
        const Outcome theOutcome = CallHandler(*theHandler, thePosition, theEvent);
        theResult = Stronger(theResult, theOutcome.theStatus);
        if (theOutcome.theIsOver) {
            return {theResult, true};
        }
        if (theOutcome.theStatus == eventPassToNextTargetErr && !mGoesToAll) {
            return {eventNotHandledErr, false};
        }
    }
    theResult = Stronger(theResult, CallDefault(theTarget, theEvent));
    return {theResult, theResult != eventNotHandledErr && !mGoesToAll};
}

Delivery::Outcome Delivery::CallHandler(const EventHandler& theHandler, Position thePosition,
                                        EventRef theEvent)
{
    HandlerCall theCall(*this, thePosition);
    const OSStatus theStatus = theHandler.Call(theCall.Reference(), theEvent);
    if (theCall.HasPassedOn()) {
        // The others have been asked already, whatever the handler says now.
        const bool theIsRefusal = theStatus == eventPassToNextTargetErr;
        const OSStatus theOwn = theIsRefusal ? OSStatus(eventNotHandledErr) : theStatus;
        return {mGoesToAll ? Stronger(theOwn, theCall.NextStatus()) : theOwn, true};
    }
    const bool theGoesOn = theStatus == eventNotHandledErr || theStatus == eventPassToNextTargetErr;
    return {theStatus, !theGoesOn && !mGoesToAll};
}

OSStatus Delivery::CallDefault(const EventTarget& theTarget, EventRef theEvent) const
{
    if (theTarget.IsDisposed() || !theTarget.Behaviour().theDefault) {
        return eventNotHandledErr;
    }
    const OSStatus theStatus = theTarget.Behaviour().theDefault(theEvent);
    return theStatus == eventPassToNextTargetErr ? OSStatus(eventNotHandledErr) : theStatus;
}

// The person's event that the dispatcher works on, and the modifiers of the last one.
EventRef gCurrentEvent = nullptr;
UInt32 gCurrentEventModifiers = 0;
UInt32 gCurrentModifiers = 0;

// Makes a person's event the current one for as long as the dispatcher works on it. One that a program sends
// to another target is no event that a person caused now.
class [[nodiscard]] CurrentEventScope
{
public:
    CurrentEventScope(EventRef theEvent, EventTargetRef theTarget)
        : mSaved(gCurrentEvent)
    {
        if (theTarget == GetEventDispatcherTarget() &&
            (AttributesOfEvent(theEvent) & kEventAttributeUserEvent) != 0) {
            gCurrentEvent = theEvent;
            GetEventParameter(theEvent, kEventParamKeyModifiers, typeUInt32, nullptr,
                              sizeof gCurrentEventModifiers, nullptr, &gCurrentEventModifiers);
        }
    }
    ~CurrentEventScope() { gCurrentEvent = mSaved; }
    CurrentEventScope(const CurrentEventScope&) = delete;
    CurrentEventScope& operator=(const CurrentEventScope&) = delete;

private:
    EventRef mSaved;
};

} // namespace

void SetCurrentKeyModifiers(UInt32 theModifiers)
{
    gCurrentModifiers = theModifiers;
}

} // namespace Host

using namespace Host;

OSStatus SendEventToEventTarget(EventRef inEvent, EventTargetRef inTarget)
{
    return SendEventToEventTargetWithOptions(inEvent, inTarget, 0);
}

OSStatus SendEventToEventTargetWithOptions(EventRef inEvent, EventTargetRef inTarget, OptionBits inOptions)
{
    std::shared_ptr<EventTarget> theTarget = FindEventTarget(inTarget);
    if (theTarget == nullptr || !IsEvent(inEvent)) {
        return paramErr;
    }
    Chain theChain;
    const OSStatus theStatus = Guarded([&] {
        theChain = ChainFrom(std::move(theTarget), (inOptions & kEventTargetDontPropagate) == 0);
        return noErr;
    });
    if (theStatus != noErr) {
        return theStatus;
    }
    const EventHolder theHolder(inEvent);
    const CurrentEventScope theScope(inEvent, inTarget);
    return Delivery(std::move(theChain), inOptions).Run(inEvent);
}

OSStatus CallNextEventHandler(EventHandlerCallRef inCallRef, EventRef inEvent)
{
    HandlerCall* theCall = HandlerCall::Find(inCallRef);
    if (theCall == nullptr || !IsEvent(inEvent)) {
        return paramErr;
    }
    return theCall->CallNext(inEvent);
}

EventRef GetCurrentEvent(void)
{
    return gCurrentEvent;
}

UInt32 GetCurrentEventKeyModifiers(void)
{
    return gCurrentEventModifiers;
}

UInt32 GetCurrentKeyModifiers(void)
{
    return gCurrentModifiers;
}
