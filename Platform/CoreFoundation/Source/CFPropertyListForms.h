// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFPropertyListForms_h
#define CFPropertyListForms_h

// The forms in which property lists are kept. Each is read and written by a file of its own.
//
// Readers are strict about everything that could be a sign of damage, and safe with data that was made to do
// harm: nesting and size are limited, and nothing is taken for something else. What one of them reads, each
// writer can write.

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

// Reasons that several have.
constexpr const char* kTooDeep = "the nesting is too deep";
constexpr const char* kHalfAPair = "a string has half of a surrogate pair";
constexpr const char* kDateWithoutText = "a date is not in the years 0 to 9999";

// The property list that the data holds, with mutable containers. They throw MalformedPropertyList and
// std::bad_alloc.
Holder<CFPropertyListRef> ReadXMLPropertyList(std::string_view theText);      // in UTF-8
Holder<CFPropertyListRef> ReadOpenStepPropertyList(std::string_view theText); // in UTF-8
Holder<CFPropertyListRef> ReadBinaryPropertyList(std::string_view theData);

// Whether the data begins as one of these forms does. Text that is in no other form is in XML.
bool IsBinaryPropertyList(std::string_view theData);
bool IsOpenStepPropertyList(std::string_view theText);

// Only for valid property lists. They throw std::bad_alloc.
std::string WriteXMLPropertyList(CFPropertyListRef theList);
std::string WriteBinaryPropertyList(CFPropertyListRef theList);

} // namespace Host

#endif
