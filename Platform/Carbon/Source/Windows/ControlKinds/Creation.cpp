// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Creation.h"

#include "Base/Geometry.h"
#include "Base/Guarded.h"
#include "Windows/Window.h"

namespace Host {

OSStatus CheckRequest(const CreationRequest& theRequest)
{
    if (theRequest.theControl == nullptr) {
        return paramErr;
    }
    *theRequest.theControl = nullptr;
    if (theRequest.theBounds == nullptr || theRequest.theRange.theMinimum > theRequest.theRange.theMaximum) {
        return paramErr;
    }
    if (theRequest.theWindow == nullptr) {
        return theRequest.theCanBeNull ? OSStatus{noErr} : OSStatus{paramErr};
    }
    const SharedWindow theWindow = FindWindow(theRequest.theWindow);
    return theWindow == nullptr || theWindow->IsClosing() ? OSStatus{paramErr} : OSStatus{noErr};
}

OSStatus Refuse(ControlRef* theControl)
{
    if (theControl != nullptr) {
        *theControl = nullptr;
    }
    return paramErr;
}

Rect RectOf(const HIRect* theRect)
{
    if (theRect == nullptr) {
        return MakeRect(0, 0, 0, 0);
    }
    const double theLeft = double{theRect->origin.x};
    const double theTop = double{theRect->origin.y};
    return MakeRect(NearestCoordinate(theLeft), NearestCoordinate(theTop),
                    NearestCoordinate(theLeft + double{theRect->size.width}),
                    NearestCoordinate(theTop + double{theRect->size.height}));
}

void Begin(const SharedControl& theControl, const CreationRequest& theRequest)
{
    const SharedWindow theWindow = FindWindow(theRequest.theWindow);
    if (theWindow != nullptr) {
        theWindow->EnsureRoot();
    }
    theControl->StartWithRange(theRequest.theRange);
    theControl->Begin(theWindow, *theRequest.theBounds, TextOf(theRequest.theTitle));
}

OSStatus Place(const SharedControl& theControl, const CreationRequest& theRequest)
{
    *theRequest.theControl = theControl->Reference();
    const SharedWindow theWindow = FindWindow(theRequest.theWindow);
    if (theWindow == nullptr) {
        return noErr;
    }
    const OSStatus theStatus = Guarded([&] {
        theControl->Join(theWindow->Root());
        return OSStatus{noErr};
    });
    if (theStatus != noErr) {
        *theRequest.theControl = nullptr;
        theControl->Dispose();
    }
    return theStatus;
}

} // namespace Host
