// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtKeys_h
#define QtKeys_h

#include <Presentation/PresenterTypes.h>
#include <QKeyEvent>

namespace Host {

// The modifiers as programs read them. The Control key of a desktop's keyboard is what a program calls the
// command key, Alt is its option key, and the key with the desktop's own sign its control key.
std::uint32_t ModifiersOf(Qt::KeyboardModifiers theModifiers);

// The same the other way, for showing the command key of a menu item.
Qt::KeyboardModifiers QtModifiersOf(std::uint32_t theModifiers);

// A key as the gate takes it: its place on a US keyboard, found by what is printed on it, and what it types.
KeyAction KeyOf(const QKeyEvent& theEvent);

} // namespace Host

#endif
