// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Nibs_NibControlKinds_h
#define Nibs_NibControlKinds_h

#include "Nib.h"

namespace Host {

// What a control is made of.
struct NibMaking
{
    const NibObject& theObject;
    WindowRef theWindow;
    Rect theBounds; // in the content of the window
    NibLimit& theLimit;
};

// Makes a control of the kind that the nib's class stands for, in the window or, if it is a view, in none
// yet. unimpErr for a class that is not known.
OSStatus MakeNibControl(const NibMaking& theMaking, ControlRef* theControl);

// Whether the words of that class are its text, and no title.
bool IsNibText(const std::string& theClass);

} // namespace Host

#endif
