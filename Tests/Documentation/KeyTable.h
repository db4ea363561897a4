// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef KeyTable_h
#define KeyTable_h

#include "LmKeyValueStore.h"

#include <gtest/gtest.h>
#include <string>

// What a table of keys says of one key: its name in quotes, and what begins with the type of its value.
using KeyRow = const char* const[2];

inline std::string TypeOf(const LmValue& theValue)
{
    switch (theValue.GetType()) {
    case kTypeBoolean:
        return "boolean";
    case kTypeUInt32:
        return "unsigned 32-bit";
    case kTypeSInt32:
        return "signed 32-bit";
    case kTypeString:
        return "string";
    case kTypeRect:
        return "rectangle";
    default:
        return "neither of the types that tables of keys speak of";
    }
}

// The name without its quotes.
inline std::string NameOf(KeyRow& theRow)
{
    const std::string theName = theRow[0];
    return theName.substr(1, theName.size() - 2);
}

// Expects the key of theStore to have a value of the type that the row says.
inline void ExpectKey(const LmKeyValueStore& theStore, KeyRow& theRow)
{
    const std::string theFound = TypeOf(theStore.GetKeyPathValue(NameOf(theRow).c_str()));
    EXPECT_EQ(std::string(theRow[1]).substr(0, theFound.size()), theFound) << "of the key " << theRow[0];
}

#endif
