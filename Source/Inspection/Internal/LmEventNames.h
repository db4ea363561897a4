// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmEventNames_h
#define LmEventNames_h

#include <Carbon/Carbon.h>

// What Carbon calls an event of that class and kind, or null for those that nothing here asks for. Not part
// of the interface.
const char* LmEventName(OSType theClass, UInt32 theKind);

#endif
