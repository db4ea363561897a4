// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFPropertyListReader_h
#define CFPropertyListReader_h

// Reads the XML form of property lists.
//
// Strict about everything that could be a sign of damage, and safe with files that were made to do harm:
// entities are never defined, nesting is limited, and nothing is taken for something else.

#include "CFRuntime.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace Host {

// How deep containers may be nested.
constexpr int kDeepestNesting = 512;

// What is wrong with a property list.
class MalformedPropertyList : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// The property list that theText is, with mutable containers. Throws MalformedPropertyList and
// std::bad_alloc.
Holder<CFPropertyListRef> ReadXMLPropertyList(std::string_view theText);

} // namespace Host

#endif
