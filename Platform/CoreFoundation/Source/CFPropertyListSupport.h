// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFPropertyListSupport_h
#define CFPropertyListSupport_h

// What the parts of the host that handle property lists have in common.

#include "CFRuntime.h"

#include <CoreFoundation/CFArray.h>
#include <CoreFoundation/CFData.h>
#include <CoreFoundation/CFDictionary.h>
#include <CoreFoundation/CFNumber.h>
#include <CoreFoundation/CFPropertyList.h>
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

// Also in a container that is itself nested: theDepth levels above.
bool IsPropertyList(CFPropertyListRef theList, int theDepth = 0);

// Reads any form, and tells which it was. Throws MalformedPropertyList and std::bad_alloc. Containers are
// mutable.
Holder<CFPropertyListRef> ReadPropertyList(std::string_view theData, CFPropertyListFormat& theFormat);

// An integer as it is when it comes from a file, which does not carry its type: 64 bits wide, unless it is
// one of the shared small ones. The caller releases it. NULL when there is no memory.
CFNumberRef MakeReadInteger(SInt64 theValue);

// Put a value into a container that is being read. They throw std::bad_alloc.
void AppendToList(CFMutableArrayRef theArray, CFPropertyListRef theValue);
void SetInList(CFMutableDictionaryRef theDictionary, CFStringRef theKey, CFPropertyListRef theValue);

// The keys in the order in which they are written.
std::vector<CFStringRef> SortedKeys(CFDictionaryRef theDictionary);

// A string in UTF-8, zero characters included; none for one with half of a surrogate pair.
std::optional<std::string> UTF8Text(CFStringRef theString);

} // namespace Host

#endif
