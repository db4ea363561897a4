// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlKinds_Creation_h
#define ControlKinds_Creation_h

#include "Internal/Control.h"

#include <utility>

namespace Host {

// What every creation call is given.
struct CreationRequest
{
    WindowRef theWindow;
    const Rect* theBounds;
    CFStringRef theTitle;
    ControlRef* theControl;
    bool theWindowMayBeNull = false;
    ControlRange theRange = {};
};

// Checks the request and clears the result.
OSStatus CheckRequest(const CreationRequest& theRequest);

// Brings a new control into being: reference, range, and place in the window.
OSStatus Place(const SharedControl& theControl, const CreationRequest& theRequest);

// Makes a control of a kind. theArguments are those of its constructor.
template <class Kind, class... Arguments>
OSStatus Create(const CreationRequest& theRequest, Arguments&&... theArguments)
{
    const OSStatus theStatus = CheckRequest(theRequest);
    if (theStatus != noErr) {
        return theStatus;
    }
    return Place(std::make_shared<Kind>(std::forward<Arguments>(theArguments)...), theRequest);
}

} // namespace Host

#endif
