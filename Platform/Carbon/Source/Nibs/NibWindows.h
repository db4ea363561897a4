// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Nibs_NibWindows_h
#define Nibs_NibWindows_h

#include "Nib.h"

namespace Host {

// Makes a window, hidden, with all that is in it. It belongs to the caller; null when the call fails.
OSStatus MakeNibWindow(const NibObject& theObject, WindowRef* theWindow);

} // namespace Host

#endif
