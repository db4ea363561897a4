// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Windows_WindowDefaults_h
#define Windows_WindowDefaults_h

#include "ControlTracking.h"
#include "Window.h"

namespace Host {

// What a window does with an event that none of its handlers took: what every window does (requests to
// collapse, expand and zoom, being clicked to the front), and for kWindowStandardHandlerAttribute also
// closing, presses on controls and the keys of a window. Answers as a handler does.
OSStatus HandleWindowEvent(const SharedWindow& theWindow, EventRef theEvent);

// Whether it does anything with events of a class.
bool ConcernsWindow(OSType theClass);

// The press of a mouse event at a global point in a window.
Press PressOf(const Window& theWindow, EventRef theEvent, const HIPoint& theGlobalPoint);

// Between the bounds that fill the main screen and those before. False when that changed nothing.
bool Zoom(const SharedWindow& theWindow);

} // namespace Host

#endif
