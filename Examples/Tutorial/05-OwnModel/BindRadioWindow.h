// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef BindRadioWindow_h
#define BindRadioWindow_h

#include "Radio.h"

#include <Carbon/Carbon.h>

// Lets the controls of the window and the radio follow each other.
void BindRadioWindow(WindowRef theWindow, Radio& theRadio);

#endif
