// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmNameComparison_h
#define LmNameComparison_h

#include "LmString.h"

#include <cstring>

// Comparing a name with a constant one, as every call of a store and every step of a binding does, without
// making a string of that first. Not part of the interface.

inline bool operator==(const LmString& theName, const char* theText)
{
    return std::strcmp(theName.GetUTF8(), theText) == 0;
}

inline bool operator!=(const LmString& theName, const char* theText)
{
    return !(theName == theText);
}

#endif
