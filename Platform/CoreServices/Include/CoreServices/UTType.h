// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef UTType_h
#define UTType_h

// Four-character codes as strings.

#include <CoreFoundation/CoreFoundation.h>

// The four characters, in MacRoman; an empty string for 0. The caller releases it.
CF_EXPORT CFStringRef UTCreateStringForOSType(OSType inOSType);

// The code of a string of four characters that MacRoman has; 0 for NULL and for any other string.
CF_EXPORT OSType UTGetOSTypeFromString(CFStringRef inString);

#endif
