// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Sound_h
#define Sound_h

// The sound that asks for attention.

#include <Carbon/CarbonBase.h>

// Plays the desktop's alert sound, once. The duration has no meaning.
CARBON_EXPORT void SysBeep(short duration);

#endif
