// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Objects_ClassView_h
#define Objects_ClassView_h

#include "Instance.h"
#include "Windows/ControlKinds/CustomViews.h"

namespace Host {

// A view of a class of the program's own.
class ClassView : public CustomView, public Instance
{
public:
    explicit ClassView(SharedObjectClass theClass);

    // It takes the focus when it has a feature that says so.
    ControlPartCode FocusPart(bool theIsFullAccess) const override;
    void Disposed() override;

    HIObjectRef ObjectReference() const override;
    EventTargetRef ObjectTarget() const override { return Target(); }
    bool IsOver() const override { return IsGoing(); }
    void End() override;

protected:
    OSStatus Initialized() override;
};

} // namespace Host

#endif
