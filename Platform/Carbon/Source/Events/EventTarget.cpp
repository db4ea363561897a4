// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "EventTarget.h"

#include "Base/Guarded.h"
#include "Base/ReferenceTable.h"
#include "Common/NeverDestroyed.h"

#include <algorithm>
#include <utility>

namespace Host {

namespace {

// Events are made by any thread, but sent by the main thread only.
using TargetTable = ReferenceTable<EventTargetRef, ReferenceKind::kEventTarget, EventTarget, NoMutex>;
using HandlerTable = ReferenceTable<EventHandlerRef, ReferenceKind::kEventHandler, EventHandler, NoMutex>;

// Objects with targets may still be disposed while the program ends.
TargetTable& Targets()
{
    static NeverDestroyed<TargetTable> sTargets;
    return sTargets.Get();
}

HandlerTable& Handlers()
{
    static NeverDestroyed<HandlerTable> sHandlers;
    return sHandlers.Get();
}

bool IsList(ItemCount theCount, const EventTypeSpec* theTypes)
{
    return theCount == 0 || theTypes != nullptr;
}

OSStatus InstallOn(const std::shared_ptr<EventTarget>& theTarget, EventHandlerUPP theFunction,
                   ItemCount theCount, const EventTypeSpec* theTypes, void* theUserData,
                   EventHandlerRef* theReference)
{
    auto theHandler = std::make_shared<EventHandler>(theTarget, theFunction, theUserData);
    theHandler->AddTypes(theCount, theTypes);
    const EventHandlerRef theNew = Handlers().Add(theHandler);
    theHandler->SetReference(theNew);
    const OSStatus theStatus = Guarded([&] {
        theTarget->Install(std::move(theHandler));
        return noErr;
    });
    if (theStatus != noErr) {
        Handlers().Remove(theNew);
    } else if (theReference != nullptr) {
        *theReference = theNew;
    }
    return theStatus;
}

} // namespace

// --- EventHandler -----------------------------------------------------------------------------------

std::vector<EventHandler::WantedType>::iterator EventHandler::FindType(const EventTypeSpec& theType)
{
    return std::find_if(mTypes.begin(), mTypes.end(), [&](const WantedType& theWanted) {
        return theWanted.theType.eventClass == theType.eventClass &&
               theWanted.theType.eventKind == theType.eventKind;
    });
}

bool EventHandler::Wants(const EventTypeSpec& theType) const
{
    return !mIsRemoved && std::any_of(mTypes.begin(), mTypes.end(), [&](const WantedType& theWanted) {
        return theWanted.theType.eventClass == theType.eventClass &&
               theWanted.theType.eventKind == theType.eventKind;
    });
}

void EventHandler::AddTypes(ItemCount theCount, const EventTypeSpec* theTypes)
{
    mTypes.reserve(mTypes.size() + theCount);
    for (ItemCount theIndex = 0; theIndex < theCount; ++theIndex) {
        const auto theWanted = FindType(theTypes[theIndex]);
        if (theWanted == mTypes.end()) {
            mTypes.push_back({theTypes[theIndex], 1});
        } else {
            ++theWanted->theCount;
        }
    }
}

void EventHandler::RemoveTypes(ItemCount theCount, const EventTypeSpec* theTypes)
{
    for (ItemCount theIndex = 0; theIndex < theCount; ++theIndex) {
        const auto theWanted = FindType(theTypes[theIndex]);
        if (theWanted != mTypes.end() && --theWanted->theCount == 0) {
            mTypes.erase(theWanted);
        }
    }
}

// --- EventTarget ------------------------------------------------------------------------------------

bool EventTarget::Has(EventHandlerUPP theFunction, const void* theUserData) const
{
    return std::any_of(mHandlers.begin(), mHandlers.end(),
                       [&](const std::shared_ptr<EventHandler>& theHandler) {
                           return !theHandler->IsRemoved() && theHandler->Is(theFunction, theUserData);
                       });
}

bool EventTarget::ActsOn(OSType theClass) const
{
    return !mIsDisposed && mBehaviour.theDefault &&
           (mBehaviour.theConcerns == nullptr || mBehaviour.theConcerns(theClass));
}

bool EventTarget::HasHandlerOf(const EventTypeSpec& theType) const
{
    return std::any_of(mHandlers.begin(), mHandlers.end(),
                       [&](const auto& theHandler) { return theHandler->Wants(theType); });
}

bool EventTarget::Awaits(const EventTypeSpec& theType) const
{
    return ActsOn(theType.eventClass) || HasHandlerOf(theType);
}

void EventTarget::Install(std::shared_ptr<EventHandler> theHandler)
{
    mHandlers.push_back(std::move(theHandler));
}

void EventTarget::Remove(const EventHandler& theHandler)
{
    const auto theFound =
        std::find_if(mHandlers.begin(), mHandlers.end(), [&](const std::shared_ptr<EventHandler>& theOther) {
            return theOther.get() == &theHandler;
        });
    if (theFound == mHandlers.end()) {
        return;
    }
    (*theFound)->MarkRemoved();
    if (mPasses == 0) {
        mHandlers.erase(theFound);
    } else {
        mNeedsSweep = true;
    }
}

void EventTarget::Dispose()
{
    mIsDisposed = true;
    for (const std::shared_ptr<EventHandler>& theHandler : mHandlers) {
        theHandler->MarkRemoved();
    }
    if (mPasses > 0) {
        // The pass still goes by places in the list.
        mNeedsSweep = true;
    } else {
        mHandlers.clear();
    }
}

void EventTarget::Sweep()
{
    mNeedsSweep = false;
    mHandlers.erase(std::remove_if(mHandlers.begin(), mHandlers.end(),
                                   [](const std::shared_ptr<EventHandler>& theHandler) {
                                       return theHandler->IsRemoved();
                                   }),
                    mHandlers.end());
}

EventTarget::Pass::~Pass()
{
    if (--mTarget.mPasses == 0 && mTarget.mNeedsSweep) {
        mTarget.Sweep();
    }
}

std::shared_ptr<EventTarget> FindEventTarget(EventTargetRef theReference)
{
    return Targets().Find(theReference);
}

EventTargetRef NewEventTarget(EventTargetBehaviour theBehaviour)
{
    return Targets().Add(std::make_shared<EventTarget>(std::move(theBehaviour)));
}

void DisposeEventTarget(EventTargetRef theTarget)
{
    const std::shared_ptr<EventTarget> theFound = Targets().Remove(theTarget);
    if (theFound == nullptr) {
        return;
    }
    for (size_t theIndex = 0; theIndex < theFound->Count(); ++theIndex) {
        Handlers().Remove(theFound->At(theIndex)->Reference());
    }
    theFound->Dispose();
}

} // namespace Host

using namespace Host;

OSStatus InstallEventHandler(EventTargetRef inTarget, EventHandlerUPP inHandler, ItemCount inNumTypes,
                             const EventTypeSpec* inList, void* inUserData, EventHandlerRef* outRef)
{
    if (outRef != nullptr) {
        *outRef = nullptr;
    }
    const std::shared_ptr<EventTarget> theTarget = FindEventTarget(inTarget);
    if (theTarget == nullptr || inHandler == nullptr || !IsList(inNumTypes, inList)) {
        return paramErr;
    }
    if (theTarget->Has(inHandler, inUserData)) {
        return eventHandlerAlreadyInstalledErr;
    }
    return Guarded([&] { return InstallOn(theTarget, inHandler, inNumTypes, inList, inUserData, outRef); });
}

OSStatus RemoveEventHandler(EventHandlerRef inHandlerRef)
{
    const std::shared_ptr<EventHandler> theHandler = Handlers().Remove(inHandlerRef);
    if (theHandler == nullptr) {
        return paramErr;
    }
    const std::shared_ptr<EventTarget> theTarget = theHandler->Target();
    if (theTarget != nullptr) {
        theTarget->Remove(*theHandler);
    }
    return noErr;
}

OSStatus AddEventTypesToHandler(EventHandlerRef inHandlerRef, ItemCount inNumTypes,
                                const EventTypeSpec* inList)
{
    const std::shared_ptr<EventHandler> theHandler = Handlers().Find(inHandlerRef);
    if (theHandler == nullptr || !IsList(inNumTypes, inList)) {
        return paramErr;
    }
    return Guarded([&] {
        theHandler->AddTypes(inNumTypes, inList);
        return noErr;
    });
}

OSStatus RemoveEventTypesFromHandler(EventHandlerRef inHandlerRef, ItemCount inNumTypes,
                                     const EventTypeSpec* inList)
{
    const std::shared_ptr<EventHandler> theHandler = Handlers().Find(inHandlerRef);
    if (theHandler == nullptr || !IsList(inNumTypes, inList)) {
        return paramErr;
    }
    theHandler->RemoveTypes(inNumTypes, inList);
    return noErr;
}
