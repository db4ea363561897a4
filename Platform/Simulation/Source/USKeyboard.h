// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef USKeyboard_h
#define USKeyboard_h

#include <Carbon/Carbon.h>
#include <string>

namespace Host {

// One key of a US keyboard and the modifiers that are held with it.
struct KeyStroke
{
    UInt32 theKey = 0;
    UInt32 theModifiers = 0;
};

// The stroke that types an ASCII character, Tab and Return ('\t', '\n') included. A key without position for
// any other.
KeyStroke StrokeFor(char theCharacter);

// What a key types, as UTF-8: the upper character with Shift, an upper-case letter with Caps Lock too. Empty
// for keys that type nothing of their own (Return, the arrows, ...).
std::string TypedBy(UInt32 theKey, UInt32 theModifiers);

} // namespace Host

#endif
