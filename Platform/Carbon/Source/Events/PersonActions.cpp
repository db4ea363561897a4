// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "PersonActions.h"

#include "Base/Guarded.h"
#include "EventTarget.h"

#include <utility>

namespace Host {

namespace {

// Null until somebody asks for it.
EventTargetRef gTarget = nullptr;

bool IsAnyoneListening()
{
    const auto theTarget = FindEventTarget(gTarget);
    return theTarget != nullptr && theTarget->Count() > 0;
}

OSStatus DoByItself(EventRef theEvent)
{
    PersonAction::DoWorkOf(theEvent);
    return noErr;
}

} // namespace

PersonAction::PersonAction(OSType theClass, UInt32 theKind)
{
    if (IsAnyoneListening()) {
        mEvent.emplace(theClass, theKind, kEventAttributeUserEvent);
    }
}

void PersonAction::Run()
{
    if (mEvent) {
        mEvent->SendTo(gTarget);
    }
    DoWork();
}

void PersonAction::DoWork()
{
    if (const auto theWork = std::exchange(mWork, nullptr)) {
        theWork(mContext);
    }
}

void PersonAction::DoWorkOf(EventRef theEvent)
{
    for (PersonAction* theAction = Innermost(); theAction != nullptr; theAction = theAction->Outer()) {
        if (theAction->mEvent && theAction->mEvent->Get() == theEvent) {
            theAction->DoWork();
            return;
        }
    }
}

} // namespace Host

EventTargetRef HostGetPersonActionTarget()
{
    using namespace Host;
    if (gTarget == nullptr) {
        Guarded([] {
            gTarget = NewEventTarget({nullptr, DoByItself, nullptr});
            return noErr;
        });
    }
    return gTarget;
}
