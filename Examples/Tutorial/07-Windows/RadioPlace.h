// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef RadioPlace_h
#define RadioPlace_h

#include "Radio.h"

#include <Carbon/Carbon.h>

// Lets the window follow the radio: its title the station, whether it is shown the key "shown". The binding
// is the window's and goes with it.
LmWindowBinding* BindRadioPlace(WindowRef theWindow, Radio& theRadio);

#endif
