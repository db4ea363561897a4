// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// How an event travels along the handlers of a target and out to the containing ones.

#include "Base/Guarded.h"
#include "Base/OnStack.h"
#include "Base/ReferenceTable.h"
#include "EventManager.h"
#include "EventTarget.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <optional>
#include <vector>

namespace Host {

namespace {

// Null at the end of the way.
std::shared_ptr<EventTarget> TargetAround(const EventTarget& theTarget)
{
    const auto& theContainer = theTarget.Behaviour().theContainer;
    return theContainer ? FindEventTarget(theContainer()) : nullptr;
}

// A target and everything around it, settled when sending begins: a handler may move or dispose the object
// that it is called for. Usual chains need no memory of their own.
class Chain
{
public:
    // Throws std::bad_alloc.
    Chain(std::shared_ptr<EventTarget> theTarget, bool theGoesOutward)
    {
        mTargets.reserve(kUsualLength);
        mTargets.push_back(std::move(theTarget));
        while (theGoesOutward) {
            Target theNext = TargetAround(*mTargets.back());
            if (theNext == nullptr) {
                break;
            }
            mTargets.push_back(std::move(theNext));
        }
    }
    Chain(const Chain&) = delete;
    Chain& operator=(const Chain&) = delete;

    size_t Length() const { return mTargets.size(); }
    EventTarget& At(size_t theIndex) const { return *mTargets[theIndex]; }

private:
    using Target = std::shared_ptr<EventTarget>;

    // A control, what it is embedded in, its window and the application.
    static constexpr size_t kUsualLength = 8;

    alignas(Target) std::array<std::byte, kUsualLength * sizeof(Target)> mRoom;
    std::pmr::monotonic_buffer_resource mMemory{mRoom.data(), mRoom.size(), std::pmr::new_delete_resource()};
    std::pmr::vector<Target> mTargets{&mMemory};
};

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
    // Throws std::bad_alloc.
    Delivery(std::shared_ptr<EventTarget> theTarget, OptionBits theOptions)
        : mChain(std::move(theTarget), (theOptions & kEventTargetDontPropagate) == 0),
          mGoesToAll((theOptions & kEventTargetSendToAllHandlers) != 0)
    {
    }

    OSStatus Run(const Event& theEvent);

    // Where a handler was called from: its target's place in the chain, its own place in the target.
    struct Position
    {
        size_t theTarget;
        size_t theHandler;
    };

    // Asks everything below and beyond a place.
    OSStatus RunBelow(Position thePosition, const Event& theEvent);

private:
    // What the walk along one target came to.
    struct Outcome
    {
        OSStatus theStatus;
        bool theIsOver; // nobody else is to be asked
    };

    Outcome RunTarget(Position thePosition, const Event& theEvent);
    Outcome CallHandler(const EventHandler& theHandler, Position thePosition, const Event& theEvent);
    OSStatus CallDefault(const EventTarget& theTarget, const Event& theEvent) const;

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

    OSStatus CallNext(const Event& theEvent)
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

OSStatus Delivery::Run(const Event& theEvent)
{
    return RunBelow({0, mChain.At(0).Count()}, theEvent);
}

OSStatus Delivery::RunBelow(Position thePosition, const Event& theEvent)
{
    OSStatus theResult = eventNotHandledErr;
    // A handler that releases more than it holds ends the way: nobody is called for an event that is gone.
    while (thePosition.theTarget < mChain.Length() && theEvent.Count() > 0) {
        const Outcome theOutcome = RunTarget(thePosition, theEvent);
        theResult = Stronger(theResult, theOutcome.theStatus);
        if (theOutcome.theIsOver) {
            break;
        }
        ++thePosition.theTarget;
        if (thePosition.theTarget < mChain.Length()) {
            thePosition.theHandler = mChain.At(thePosition.theTarget).Count();
        }
    }
    return theResult;
}

Delivery::Outcome Delivery::RunTarget(Position thePosition, const Event& theEvent)
{
    EventTarget& theTarget = mChain.At(thePosition.theTarget);
    const EventTarget::Pass thePass(theTarget);
    OSStatus theResult = eventNotHandledErr;
    while (thePosition.theHandler > 0) {
        --thePosition.theHandler;
        if (!theTarget.At(thePosition.theHandler)->Wants(theEvent.Type())) {
            continue;
        }
        const std::shared_ptr<EventHandler> theHandler = theTarget.At(thePosition.theHandler);
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
                                        const Event& theEvent)
{
    HandlerCall theCall(*this, thePosition);
    const OSStatus theStatus = theHandler.Call(theCall.Reference(), theEvent.Reference());
    if (theCall.HasPassedOn()) {
        // The others have been asked already, whatever the handler says now.
        const bool theIsRefusal = theStatus == eventPassToNextTargetErr;
        const OSStatus theOwn = theIsRefusal ? OSStatus(eventNotHandledErr) : theStatus;
        return {mGoesToAll ? Stronger(theOwn, theCall.NextStatus()) : theOwn, true};
    }
    const bool theGoesOn = theStatus == eventNotHandledErr || theStatus == eventPassToNextTargetErr;
    return {theStatus, !theGoesOn && !mGoesToAll};
}

OSStatus Delivery::CallDefault(const EventTarget& theTarget, const Event& theEvent) const
{
    if (!theTarget.ActsOn(theEvent.Type().eventClass)) {
        return eventNotHandledErr;
    }
    const OSStatus theStatus = theTarget.Behaviour().theDefault(theEvent.Reference());
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
    CurrentEventScope(const Event& theEvent, EventTargetRef theTarget)
        : mSaved(gCurrentEvent)
    {
        if ((theEvent.Attributes() & kEventAttributeUserEvent) != 0 &&
            theTarget == GetEventDispatcherTarget()) {
            gCurrentEvent = theEvent.Reference();
            ReadEventParameter(theEvent, kEventParamKeyModifiers, typeUInt32, nullptr,
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

OSStatus SendEvent(const SharedEvent& theEvent, EventTargetRef theTarget, OptionBits theOptions)
{
    std::shared_ptr<EventTarget> theFound = FindEventTarget(theTarget);
    if (theFound == nullptr || theEvent == nullptr || theEvent->Count() == 0) {
        return paramErr;
    }
    const EventHolder theHolder(theEvent);
    std::optional<Delivery> theDelivery;
    const OSStatus theStatus = Guarded([&] {
        theDelivery.emplace(std::move(theFound), theOptions);
        return noErr;
    });
    if (theStatus != noErr) {
        return theStatus;
    }
    const CurrentEventScope theScope(*theEvent, theTarget);
    return theDelivery->Run(*theEvent);
}

bool HasHandler(EventTargetRef theTarget, const EventTypeSpec& theType)
{
    const std::shared_ptr<EventTarget> theFound = FindEventTarget(theTarget);
    return theFound != nullptr && theFound->HasHandlerOf(theType);
}

bool IsAwaited(EventTargetRef theTarget, const EventTypeSpec& theType)
{
    std::shared_ptr<EventTarget> theNext = FindEventTarget(theTarget);
    while (theNext != nullptr && !theNext->Awaits(theType)) {
        theNext = TargetAround(*theNext);
    }
    return theNext != nullptr;
}

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
    return SendEvent(Event::Find(inEvent), inTarget, inOptions);
}

OSStatus CallNextEventHandler(EventHandlerCallRef inCallRef, EventRef inEvent)
{
    HandlerCall* const theCall = HandlerCall::Find(inCallRef);
    const SharedEvent theEvent = Event::Find(inEvent);
    if (theCall == nullptr || theEvent == nullptr) {
        return paramErr;
    }
    const EventHolder theHolder(theEvent);
    return theCall->CallNext(*theEvent);
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
