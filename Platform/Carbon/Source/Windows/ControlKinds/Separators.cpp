// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Creation.h"

namespace Host {

namespace {

class Separator : public Control
{
public:
    Separator()
        : Control(kControlKindSeparator, 0)
    {
    }

    void AddToLook(ControlLook& theLook) const override { theLook.theShape = ControlShape::kSeparator; }
};

} // namespace

} // namespace Host

OSStatus CreateSeparatorControl(WindowRef window, const Rect* boundsRect, ControlRef* outControl)
{
    return Host::Create<Host::Separator>({window, boundsRect, nullptr, outControl});
}
