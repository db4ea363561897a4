// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFPropertyListSupport_h
#define CFPropertyListSupport_h

// What the parts of the host that handle property lists have in common.

#include "CFRuntime.h"

#include <CoreFoundation/CFArray.h>
#include <CoreFoundation/CFData.h>
#include <CoreFoundation/CFDictionary.h>
#include <CoreFoundation/CFString.h>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Host {

// How a copy of a property list differs from the original.
struct CopyOptions
{
    bool theHasMutableContainers = false;
    bool theHasMutableLeaves = false;
    bool theHasNumbersAsRead = false; // with the types that numbers have when they are read from a file
};

// A copy down to the leaves; the caller releases it. NULL when theList is no property list. Throws
// std::bad_alloc.
CFPropertyListRef CopyPropertyList(CFPropertyListRef theList, const CopyOptions& theOptions);

bool IsPropertyList(CFPropertyListRef theList);

// Reads either form. Throws MalformedPropertyList and std::bad_alloc. Containers are mutable.
Holder<CFPropertyListRef> ReadPropertyList(std::string_view theData);

// The keys in the order in which they are written.
std::vector<CFStringRef> SortedKeys(CFDictionaryRef theDictionary);

// A string as a text that a zero byte ends; none for a string that such a text cannot tell.
std::optional<std::string> UTF8Text(CFStringRef theString);

// Whether reading binary data takes neither more nesting nor more memory than a real property list needs.
bool IsSafeBinaryPropertyList(std::string_view theData);

} // namespace Host

#endif
