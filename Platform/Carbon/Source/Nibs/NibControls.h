// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Nibs_NibControls_h
#define Nibs_NibControls_h

#include "Nib.h"

namespace Host {

// A rectangle that is written as "top left bottom right"; empty when it is not.
Rect NibRect(const NibObject& theObject, const char* theName);

// Makes what is in the root control of a nib's window, or of none.
OSStatus AddNibControls(const NibObject& theRoot, WindowRef theWindow);

} // namespace Host

#endif
