// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Containers.h"

#include "Creation.h"

namespace Host {

RootControl::RootControl()
    : Control(kControlKindUserPane, kControlSupportsEmbedding)
{
}

void RootControl::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kPane;
}

GroupBox::GroupBox()
    : Control(kControlKindGroupBox, kControlSupportsEmbedding)
{
}

void GroupBox::AddToLook(ControlLook& theLook) const
{
    theLook.theShape = ControlShape::kGroupBox;
}

} // namespace Host

OSStatus CreateGroupBoxControl(WindowRef window, const Rect* boundsRect, CFStringRef title, Boolean,
                               ControlRef* outControl)
{
    return Host::Create<Host::GroupBox>({window, boundsRect, title, outControl});
}
