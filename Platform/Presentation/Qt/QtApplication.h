// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtApplication_h
#define QtApplication_h

#include <string>

namespace Host {

// Makes Qt's application object, unless the program has one already. It is made once and lives until the
// program ends. Returns false when there is no display to be had.
bool PrepareQtApplication();

// Whether there is one. Not any more while the program ends: static objects of the program that are destroyed
// late may still dispose their windows then.
bool HasQtApplication();

} // namespace Host

#endif
