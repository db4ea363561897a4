// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ShowScreen_h
#define ShowScreen_h

// Prints a line, and below it what is on the screen, drawn with letters.
void ShowScreen(const char* theLine);

#endif
