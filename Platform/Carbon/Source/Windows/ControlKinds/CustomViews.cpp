// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "CustomViews.h"

#include "Base/Geometry.h"
#include "Events/OutgoingEvent.h"
#include "Windows/ControlTracking.h"

namespace Host {

CustomView::CustomView(UInt32 theFeatures)
    : DrawnView(kControlKindUserPane, theFeatures)
{
}

ControlPartCode CustomView::PartAt(Point thePoint) const
{
    ControlPartCode thePart = kControlNoPart;
    if ((Features() & kHIViewFeatureIgnoresClicks) != 0) {
        return thePart;
    }
    const Point theOrigin = OriginOf(*this);
    OutgoingEvent theEvent(kEventClassControl, kEventControlHitTest);
    theEvent.Set(kEventParamDirectObject, typeControlRef, Reference());
    theEvent.Set(kEventParamMouseLocation, typeQDPoint,
                 MakePoint(thePoint.h - theOrigin.h, thePoint.v - theOrigin.v));
    if (theEvent.SendTo(Target(), kEventTargetDontPropagate) == noErr) {
        theEvent.Read(kEventParamControlPart, typeControlPartCode, &thePart);
    }
    return thePart;
}

bool CustomView::HasPartAt(ControlPartCode thePart, Point thePoint) const
{
    return Contains(WindowBounds(), thePoint) && PartAt(thePoint) == thePart;
}

} // namespace Host
