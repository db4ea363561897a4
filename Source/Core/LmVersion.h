// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmVersion_h
#define LmVersion_h

// The version of the library that these headers belong to, as major.minor.patch. The major number is the
// number of the shared library's soname: it changes when a program must be compiled again.
#define LM_VERSION_STRING "1.0.0"

#endif
