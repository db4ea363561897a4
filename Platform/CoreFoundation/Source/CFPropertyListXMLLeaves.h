// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFPropertyListXMLLeaves_h
#define CFPropertyListXMLLeaves_h

// The texts inside the elements of XML property lists that contain no others. They throw
// MalformedPropertyList.

#include "CFPropertyListForms.h"

#include <optional>
#include <vector>

namespace Host {

bool IsXMLSpace(char theCharacter);

// Removes thePrefix from the start of theText; false when it is not there.
bool TakePrefix(std::string_view& theText, std::string_view thePrefix);

// The value of a text that consists of digits and nothing else; none when it has others or is too large.
std::optional<UInt64> ParseDigits(std::string_view theDigits, unsigned theBase);

SInt64 ParseInteger(std::string_view theText);
double ParseReal(std::string_view theText);
std::vector<UInt8> DecodeBase64(std::string_view theText);

} // namespace Host

#endif
