// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Objects_PlainObject_h
#define Objects_PlainObject_h

#include "Instance.h"

namespace Host {

// An object that is no view.
//
// The table of references holds one, whoever works on it another.
class PlainObject : public Instance, public std::enable_shared_from_this<PlainObject>
{
public:
    explicit PlainObject(SharedObjectClass theClass);

    // Makes the target and the reference. Throws std::bad_alloc.
    void Begin();

    CFIndex Count() const { return mCount; }
    void Retain() { ++mCount; }
    void Release();

    HIObjectRef ObjectReference() const override { return mReference; }
    EventTargetRef ObjectTarget() const override { return mTarget; }
    bool IsOver() const override { return mIsOver; }
    void End() override;

private:
    HIObjectRef mReference = nullptr;
    EventTargetRef mTarget = nullptr;
    CFIndex mCount = 1;
    bool mIsOver = false;
};

// Null for null, disposed and foreign references, and for those of views.
std::shared_ptr<PlainObject> FindPlainObject(HIObjectRef theReference);

} // namespace Host

#endif
