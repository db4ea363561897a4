// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Base_Text_h
#define Base_Text_h

#include <Carbon/Carbon.h>
#include <string>

namespace Host {

// Texts of windows and controls are UTF-16 inside, whatever form they come and go in.
using Text = std::u16string;

// A null string gives the empty text.
Text TextOf(CFStringRef theString);

// From bytes or a Pascal string in the encoding of the system, Mac Roman.
Text TextOfBytes(const void* theBytes, size_t theCount);
Text TextOfPascalString(ConstStr255Param theString);

// The caller releases the string; null when there is no memory for it.
CFStringRef CreateString(const Text& theText);

// In Mac Roman, "?" for what it does not have.
std::string BytesOf(const Text& theText);

// At most 255 characters.
void CopyToPascalString(const Text& theText, Str255 theString);

// For presenters. A lone half of a surrogate pair becomes U+FFFD.
std::string Utf8Of(const Text& theText);
Text TextOfUtf8(const std::string& theBytes);

} // namespace Host

#endif
