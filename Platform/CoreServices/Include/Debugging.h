// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Debugging_h
#define Debugging_h

// Words for whoever runs the program, on the standard error stream.

#include <AssertMacros.h>

// Prints a Pascal string, in MacRoman, and a line end; nothing for NULL. The program goes on.
CF_EXPORT void DebugStr(ConstStr255Param debuggerMsg);

#endif
