// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Windows_ControlTracking_h
#define Windows_ControlTracking_h

#include "Control.h"

#include <optional>

namespace Host {

// Where the program counts the points of a control from: the content's top left, in a compositing window the
// control's own.
Point OriginOf(const Control& theControl);

// A press of the primary button.
struct Press
{
    WindowRef theWindow = nullptr;
    Point thePoint = {0, 0}; // in the window's content
    HIPoint theGlobalPoint = {0, 0};
    HIPoint theWindowPoint = {0, 0}; // from the top left of the window's structure
    UInt32 theModifiers = 0;
    UInt32 theClickCount = 1;
};

// Starts, follows and ends the tracking of one control: hilite, indicator and action procedure while the
// button is down; the new value, kEventControlHit and the command when it comes up inside the control. The
// calls before and after may find the control gone, or nothing tracked, and do nothing then. An indicator
// goes where the pointer is, or to theExactValue.
void BeginTracking(const SharedControl& theControl, const Press& thePress);
void ContinueTracking(Point theContentPoint, std::optional<SInt32> theExactValue);
void EndTracking(Point theContentPoint, std::optional<SInt32> theExactValue, UInt32 theModifiers);

// The steps of a click, for those who click otherwise: what the control does by itself, its new value for
// one; the hit and the command; and all of it with the action procedure.
void Toggle(const SharedControl& theControl, ControlPartCode thePart);
void Hit(const SharedControl& theControl, ControlPartCode thePart, UInt32 theModifiers, UInt32 theClickCount);
void PressAndRelease(const SharedControl& theControl, ControlPartCode thePart, UInt32 theModifiers);

} // namespace Host

#endif
