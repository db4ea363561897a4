// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Events_EventTarget_h
#define Events_EventTarget_h

#include "EventTargets.h"

#include <memory>
#include <vector>

namespace Host {

class EventTarget;

// A function installed on a target, and the types of events that it wants.
//
// The table of handlers and the target each hold one; a pass through the target holds another while the
// function runs. Removing a handler only marks it when a pass is under way; the last pass to end sweeps.
class EventHandler
{
public:
    EventHandler(const std::shared_ptr<EventTarget>& theTarget, EventHandlerUPP theFunction,
                 void* theUserData)
        : mTarget(theTarget),
          mFunction(theFunction),
          mUserData(theUserData)
    {
    }

    bool Is(EventHandlerUPP theFunction, const void* theUserData) const
    {
        return mFunction == theFunction && mUserData == theUserData;
    }

    // False for all types once it is removed.
    bool Wants(const EventTypeSpec& theType) const;
    void AddTypes(ItemCount theCount, const EventTypeSpec* theTypes);
    void RemoveTypes(ItemCount theCount, const EventTypeSpec* theTypes);

    OSStatus Call(EventHandlerCallRef theCall, EventRef theEvent) const
    {
        return mFunction(theCall, theEvent, mUserData);
    }

    std::shared_ptr<EventTarget> Target() const { return mTarget.lock(); }

    EventHandlerRef Reference() const { return mReference; }
    void SetReference(EventHandlerRef theReference) { mReference = theReference; }

    bool IsRemoved() const { return mIsRemoved; }
    void MarkRemoved() { mIsRemoved = true; }

private:
    struct WantedType
    {
        EventTypeSpec theType;
        ItemCount theCount; // how often it was added
    };

    std::vector<WantedType>::iterator FindType(const EventTypeSpec& theType);

    std::weak_ptr<EventTarget> mTarget;
    EventHandlerUPP mFunction;
    void* mUserData; // the application's
    std::vector<WantedType> mTypes;
    EventHandlerRef mReference = nullptr;
    bool mIsRemoved = false;
};

// A stack of handlers and what its object does by itself.
//
// The table of targets holds one, each delivery on its way through another. Disposing takes it out of the
// table and removes its handlers; a delivery that still holds it finds nothing left to call.
class EventTarget
{
public:
    explicit EventTarget(EventTargetBehaviour theBehaviour)
        : mBehaviour(std::move(theBehaviour))
    {
    }

    const EventTargetBehaviour& Behaviour() const { return mBehaviour; }

    bool Has(EventHandlerUPP theFunction, const void* theUserData) const;

    // Whether the object itself may do something with events of a class.
    bool ActsOn(OSType theClass) const;

    // Whether a handler would be asked about an event of a type.
    bool HasHandlerOf(const EventTypeSpec& theType) const;

    // Whether the object or a handler would be asked about an event of a type.
    bool Awaits(const EventTypeSpec& theType) const;

    void Install(std::shared_ptr<EventHandler> theHandler);
    void Remove(const EventHandler& theHandler);

    // Removes all handlers. Takes no memory.
    void Dispose();

    // Handlers by their place, from the bottom. Places hold still while a pass is under way.
    size_t Count() const { return mHandlers.size(); }
    const std::shared_ptr<EventHandler>& At(size_t theIndex) const { return mHandlers[theIndex]; }

    // A walk along the handlers.
    class Pass
    {
    public:
        explicit Pass(EventTarget& theTarget)
            : mTarget(theTarget)
        {
            ++mTarget.mPasses;
        }
        ~Pass();
        Pass(const Pass&) = delete;
        Pass& operator=(const Pass&) = delete;

    private:
        EventTarget& mTarget;
    };

private:
    void Sweep();

    EventTargetBehaviour mBehaviour;
    std::vector<std::shared_ptr<EventHandler>> mHandlers;
    int mPasses = 0;
    bool mNeedsSweep = false;
    bool mIsDisposed = false;
};

// The target behind a reference, or null.
std::shared_ptr<EventTarget> FindEventTarget(EventTargetRef theReference);

} // namespace Host

#endif
