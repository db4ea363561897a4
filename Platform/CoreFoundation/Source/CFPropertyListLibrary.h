// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFPropertyListLibrary_h
#define CFPropertyListLibrary_h

// What a library for property lists does for the host, where there is one: it writes the XML form, and reads
// the binary one. Without it nothing can be written.

#include "CFRuntime.h"

#include <string>
#include <string_view>

namespace Host {

bool HasPropertyListLibrary();

// Only for valid property lists. Empty when it cannot be written. Throws std::bad_alloc.
std::string WriteXMLPropertyList(CFPropertyListRef theList);

// A property list in the binary form, as XML. Only for data that IsSafeBinaryPropertyList. Empty when it is
// damaged.
std::string XMLOfBinaryPropertyList(std::string_view theData);

} // namespace Host

#endif
