// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef ControllersTestSupport_h
#define ControllersTestSupport_h

#include "LmConveniences.h"
#include "LmKeyValueStore.h"

#include <sstream>
#include <string>

// A value as an expectation reads it: "-" when invalid, else "SInt32 40" and the like.
inline std::string Describe(const LmValue& theValue)
{
    if (!theValue.IsValid()) {
        return "-";
    }
    std::ostringstream theText;
    theText << theValue;
    return theText.str();
}

// What a key of theStore reads, in the same way.
inline std::string Read(const LmKeyValueStore& theStore, const char* theKey)
{
    return Describe(theStore.GetKeyPathValue(theKey));
}

#endif
