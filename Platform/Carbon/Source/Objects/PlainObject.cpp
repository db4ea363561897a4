// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "PlainObject.h"

#include "Base/Guarded.h"
#include "Base/ReferenceTable.h"
#include "Common/NeverDestroyed.h"
#include "Events/EventTargets.h"

#include <utility>

namespace Host {

namespace {

using ObjectTable = ReferenceTable<HIObjectRef, ReferenceKind::kObject, PlainObject, NoMutex>;

ObjectTable& Objects()
{
    static NeverDestroyed<ObjectTable> sObjects;
    return sObjects.Get();
}

} // namespace

PlainObject::PlainObject(SharedObjectClass theClass)
    : Instance(std::move(theClass))
{
}

void PlainObject::Begin()
{
    mReference = Objects().Add(shared_from_this());
    const OSStatus theStatus = Guarded([this] {
        mTarget = NewEventTarget(EventTargetBehaviour());
        return OSStatus{noErr};
    });
    if (theStatus != noErr) {
        Objects().Remove(mReference);
        throw std::bad_alloc();
    }
}

void PlainObject::Release()
{
    if (--mCount == 0) {
        End();
    }
}

void PlainObject::End()
{
    if (mIsOver) {
        return;
    }
    mIsOver = true;
    const std::shared_ptr<PlainObject> theKeepAlive = Objects().Remove(mReference);
    Destruct();
    DisposeEventTarget(mTarget);
}

std::shared_ptr<PlainObject> FindPlainObject(HIObjectRef theReference)
{
    return Objects().Find(theReference);
}

} // namespace Host
