// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmAdoptedString_h
#define LmAdoptedString_h

#include "LmValue.h"

// The value for a string that a Copy call gave: takes over the caller's reference. Null, which such a call
// leaves when it fails, gives an invalid value, so that a key is not set to a text that nobody has. Not part
// of the interface.
inline LmValue LmAdoptedString(CFStringRef theString)
{
    LmValue theValue;
    if (theString != nullptr) {
        theValue.SetString(theString, true);
    }
    return theValue;
}

#endif
