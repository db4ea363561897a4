// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef CFPropertyListText_h
#define CFPropertyListText_h

// The text of the forms that are text. The functions throw MalformedPropertyList and std::bad_alloc.

#include "CFPropertyListForms.h"
#include "CFText.h"

namespace Host {

// The text in UTF-8, from the encoding that its first bytes or the header of XML tell.
std::string DecodePropertyListText(std::string_view theData);

// Appends the text of a string.
void AppendUTF8(std::string_view theText, Units& theUnits);

} // namespace Host

#endif
