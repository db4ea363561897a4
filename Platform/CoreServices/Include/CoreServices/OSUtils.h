// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef OSUtils_h
#define OSUtils_h

// The time of day.

#include <CoreFoundation/CFBase.h>

// Seconds since the beginning of 1904 in local time; they fit into 32 bits until 2040. Does nothing for NULL.
CF_EXPORT void GetDateTime(unsigned long* secs);

#endif
