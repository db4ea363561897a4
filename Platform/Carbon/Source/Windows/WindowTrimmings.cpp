// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Calls for what windows here do not have: icons of documents, toolbars, drags.

#include "Windows.h"

namespace {

OSStatus Check(WindowRef theWindow)
{
    return Host::FindWindow(theWindow) == nullptr ? OSStatus{errInvalidWindowRef} : OSStatus{noErr};
}

} // namespace

OSStatus SetWindowProxyFSSpec(WindowRef window, const FSSpec* inFile)
{
    return inFile == nullptr ? OSStatus{paramErr} : Check(window);
}

OSStatus HIWindowSetProxyFSRef(WindowRef inWindow, const FSRef* inRef)
{
    return inRef == nullptr ? OSStatus{paramErr} : Check(inWindow);
}

OSStatus SetWindowProxyCreatorAndType(WindowRef window, OSType, OSType, SInt16)
{
    return Check(window);
}

OSStatus RemoveWindowProxy(WindowRef window)
{
    return Check(window);
}

OSStatus TrackWindowProxyDrag(WindowRef window, Point)
{
    const OSStatus theStatus = Check(window);
    return theStatus == noErr ? OSStatus{errUserWantsToDragWindow} : theStatus;
}

OSStatus SetWindowToolbar(WindowRef inWindow, HIToolbarRef inToolbar)
{
    const OSStatus theStatus = Check(inWindow);
    return theStatus == noErr && inToolbar != nullptr ? OSStatus{paramErr} : theStatus;
}

OSStatus ShowHideWindowToolbar(WindowRef inWindow, Boolean, Boolean)
{
    return Check(inWindow);
}

Boolean IsWindowToolbarVisible(WindowRef)
{
    return false;
}

OSStatus SetAutomaticControlDragTrackingEnabledForWindow(WindowRef inWindow, Boolean)
{
    return Check(inWindow);
}
