// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Carbon_program_h
#define Carbon_program_h

// The short spelling that older programs use.

#include <Carbon/Carbon.h>

#endif
