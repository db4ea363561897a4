// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmIsText_h
#define LmIsText_h

#include "LmValue.h"

// Whether theValue, to which a key that stands for a text is set, can be written into the object: whether it
// is a string, null included. Another kind has nothing that an object could show, and is reported with the
// assertion of the string's getter, "IsString()". Not part of the interface.
inline bool LmIsText(const LmValue& theValue)
{
    if (!theValue.IsString()) {
        static_cast<void>(theValue.GetString());
    }
    return theValue.IsString();
}

#endif
