// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmExport_h
#define LmExport_h

// Marks a class or function as part of the library's interface. Everything else stays hidden inside the
// shared library.
#define LM_EXPORT __attribute__((visibility("default")))

// Keeps a member of such a class inside the library: for what nothing in a header calls.
#define LM_HIDDEN __attribute__((visibility("hidden")))

// Marks a function whose parameter number theFormat is a printf format for the arguments from theFirst on,
// so that the compiler checks its callers. In a member function, number 1 is the object itself.
#define LM_PRINTF_FORMAT(theFormat, theFirst) __attribute__((format(printf, theFormat, theFirst)))

#endif
