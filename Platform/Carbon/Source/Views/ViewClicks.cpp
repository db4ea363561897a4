// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Which view an event of the mouse is for, and pressing it.

#include "Base/Geometry.h"
#include "Events/OutgoingEvent.h"
#include "Windows/WindowDefaults.h"

using namespace Host;

namespace {

// The press that an event of the mouse stands for, in the window of a view. False when it is none there.
bool ReadPress(const Control& theView, EventRef theEvent, Press* thePress)
{
    const SharedWindow theWindow = theView.Owner();
    HIPoint thePlace = {0, 0};
    if (theWindow == nullptr || GetEventClass(theEvent) != kEventClassMouse ||
        !ReadParameter(theEvent, kEventParamMouseLocation, typeHIPoint, &thePlace)) {
        return false;
    }
    *thePress = PressOf(*theWindow, theEvent, thePlace);
    return true;
}

bool IsPressAt(const Control& theView, const Press& thePress)
{
    return theView.Is(ControlState::kVisible) && Contains(theView.WindowBounds(), thePress.thePoint);
}

// A view may want what is meant for those in it.
bool Intercepts(const Control& theView, EventRef theMouseEvent)
{
    OutgoingEvent theEvent(kEventClassControl, kEventControlInterceptSubviewClick);
    theEvent.Set(kEventParamDirectObject, typeControlRef, theView.Reference());
    theEvent.Set(kEventParamEventRef, typeEventRef, theMouseEvent);
    return theEvent.SendTo(theView.Target(), kEventTargetDontPropagate) == noErr;
}

// Handlers may dispose what lies on the way, which ends it there.
SharedControl ViewFor(SharedControl theView, const Press& thePress, EventRef theMouseEvent)
{
    while (const SharedControl theInner = SubControlAt(*theView, thePress.thePoint, false)) {
        if (Intercepts(*theView, theMouseEvent) || theInner->IsGone()) {
            break;
        }
        theView = theInner;
    }
    return theView->IsGone() ? nullptr : theView;
}

} // namespace

OSStatus HIViewGetViewForMouseEvent(HIViewRef inView, EventRef inEvent, HIViewRef* outView)
{
    if (outView == nullptr) {
        return paramErr;
    }
    *outView = nullptr;
    const SharedControl theView = Host::FindControl(inView);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    Press thePress;
    if (!ReadPress(*theView, inEvent, &thePress)) {
        return paramErr;
    }
    if (theView->IsRoot() || IsPressAt(*theView, thePress)) {
        const SharedControl theFound = ViewFor(theView, thePress, inEvent);
        *outView = theFound == nullptr ? nullptr : theFound->Reference();
    }
    return noErr;
}

OSStatus HIViewClick(HIViewRef inView, EventRef inEvent)
{
    const SharedControl theView = Host::FindControl(inView);
    if (theView == nullptr) {
        return errUnknownControl;
    }
    Press thePress;
    if (GetEventKind(inEvent) != kEventMouseDown || !ReadPress(*theView, inEvent, &thePress)) {
        return paramErr;
    }
    BeginTracking(theView, thePress);
    return noErr;
}
