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
    const Point theOwnPoint = MakePoint(thePoint.h - theOrigin.h, thePoint.v - theOrigin.v);
    OutgoingEvent theEvent(kEventClassControl, kEventControlHitTest);
    theEvent.Set(kEventParamDirectObject, typeControlRef, Reference());
    theEvent.Set(kEventParamMouseLocation, typeQDPoint, theOwnPoint);
    const OSStatus theAnswer = theEvent.SendTo(Target(), kEventTargetDontPropagate);
    if (theAnswer == noErr) {
        theEvent.Read(kEventParamControlPart, typeControlPartCode, &thePart);
    } else if (theAnswer == eventNotHandledErr && !IsGone()) {
        thePart = UnhandledPartAt(theOwnPoint);
    }
    return thePart;
}

ControlPartCode CustomView::UnhandledPartAt(Point) const
{
    return kControlNoPart;
}

bool CustomView::HasPartAt(ControlPartCode thePart, Point thePoint) const
{
    return Contains(WindowBounds(), thePoint) && PartAt(thePoint) == thePart;
}

} // namespace Host
