// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ToolUtils_h
#define ToolUtils_h

// Small arithmetic.

#include <CoreFoundation/CFBase.h>

// The signed halves of 32 bits.
#define HiWord(inNumber) ((short)((UInt32)(inNumber) >> 16))
#define LoWord(inNumber) ((short)((UInt32)(inNumber)&0xFFFF))

// The next of a sequence of numbers from -32767 to 32767 that look like chance. The sequence is the same each
// time that the program runs. From the main thread.
CF_EXPORT short Random(void);

#endif
