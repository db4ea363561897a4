// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef StringsTable_h
#define StringsTable_h

#include "CFRuntime.h"

#include <CoreFoundation/CFDictionary.h>
#include <string_view>

namespace Host {

// The texts of a .strings file by their keys: "key" = "value"; line by line, or a property list in another
// form. Text is in UTF-8, in UTF-16, or, where it is neither, in MacRoman. What is no string is left out.
// Holds null for what is no such table. Throws std::bad_alloc.
Holder<CFDictionaryRef> ReadStringsTable(std::string_view theData);

} // namespace Host

#endif
