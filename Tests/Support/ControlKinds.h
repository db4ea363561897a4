// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControlKinds_h
#define ControlKinds_h

#include <Carbon/Carbon.h>

#include <vector>

// A kind of control that can be made.
struct KindRow
{
    const char* theName;
    OSType theKind;
    OSStatus (*theMaker)(WindowRef theWindow, const Rect* theBounds, ControlRef* theControl);
    SInt32 theMinimum; // of a new one, whose value is the same
    SInt32 theMaximum;
    bool theWindowMayBeNull;
    bool theHoldsOthers;
    bool theIsView = false; // made without a window and hidden; theMaker then puts it into one and shows it
};

// Every one, for tests of what all kinds owe: those of the managers, of running out of memory, of bindings,
// and the sessions by chance.
const std::vector<KindRow>& EveryKind();

#endif
