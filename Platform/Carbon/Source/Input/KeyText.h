// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Input_KeyText_h
#define Input_KeyText_h

#include <Carbon/Carbon.h>
#include <string>

namespace Host {

// What a key types, in the two forms that key events carry it.
struct KeyText
{
    std::u16string theUnicode; // empty for a key that types nothing
    char theMacCharacter = 0;  // one byte in the Mac Roman encoding; '?' when it has no such character
};

// theTyped is what the keyboard says that the key types, in UTF-8. Keys that type no letter (Return, Tab, the
// arrows, Escape, ...) have a character of their own, whatever theTyped says.
KeyText TextOfKey(UInt32 theKey, const std::string& theTyped);

// UTF-8 to UTF-16; bytes that are no UTF-8 give an empty text.
std::u16string ToUtf16(const std::string& theText);

} // namespace Host

#endif
