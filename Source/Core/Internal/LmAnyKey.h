// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmAnyKey_h
#define LmAnyKey_h

#include "LmString.h"

#include <cstring>

// Comparing a name with kKeyAnyValue, which every call of a store does, without making a string of that
// first. Not part of the interface.

inline bool operator==(const LmString& theName, const char* theText)
{
    return std::strcmp(theName.GetUTF8(), theText) == 0;
}

inline bool operator!=(const LmString& theName, const char* theText)
{
    return !(theName == theText);
}

#endif
