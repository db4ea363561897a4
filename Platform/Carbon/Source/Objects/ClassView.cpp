// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "ClassView.h"

#include "Events/OutgoingEvent.h"

#include <utility>

namespace Host {

ClassView::ClassView(SharedObjectClass theClass)
    : CustomView(kControlSupportsEmbedding),
      Instance(std::move(theClass))
{
}

ControlPartCode ClassView::FocusPart(bool) const
{
    const UInt32 theFocusFeatures = kControlSupportsFocus | kControlGetsFocusOnClick;
    return (Features() & theFocusFeatures) != 0 ? ControlPartCode{1} : ControlPartCode{kControlFocusNoPart};
}

void ClassView::Disposed()
{
    Destruct();
}

HIObjectRef ClassView::ObjectReference() const
{
    return reinterpret_cast<HIObjectRef>(Reference());
}

void ClassView::End()
{
    Dispose();
}

OSStatus ClassView::Initialized()
{
    UInt32 theFeatures = Features();
    OutgoingEvent theEvent(kEventClassControl, kEventControlInitialize);
    theEvent.Set(kEventParamDirectObject, typeControlRef, Reference());
    theEvent.Set(kEventParamControlFeatures, typeUInt32, theFeatures);
    const OSStatus theStatus = theEvent.SendTo(Target(), kEventTargetDontPropagate);
    if (IsOver()) {
        return paramErr;
    }
    if (theStatus == noErr) {
        theEvent.Read(kEventParamControlFeatures, typeUInt32, &theFeatures);
        SetFeatures(theFeatures);
    }
    return theStatus == eventNotHandledErr ? OSStatus{noErr} : theStatus;
}

} // namespace Host
