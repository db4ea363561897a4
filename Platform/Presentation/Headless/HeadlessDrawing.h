// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef HeadlessDrawing_h
#define HeadlessDrawing_h

#include <Presentation/PresenterTypes.h>

// Pictures of controls, windows and menus made of characters.
namespace Host {

// The control as a person would see it, on one line: "[x] Heating on", "( OK )", "|---o------| 21".
std::string DrawControl(const ControlLook& theLook);

// A thing and the program's own name for it: "control 'heat' 1".
std::string Identified(const std::string& theThing, std::uint32_t theSignature, std::int32_t theNumber);

// What it is and how it is called: "check box 'heat' 1".
std::string NameControl(const ControlLook& theLook);

// What a picture does not show of it: ", hidden, disabled". Empty when there is nothing to say.
std::string StateOfControl(const ControlLook& theLook);

// The window's headline: "Thermostat" - document window, active.
std::string NameWindow(const WindowLook& theLook);

// Where it is, and the boxes in its frame.
std::string PlaceOfWindow(const WindowLook& theLook);

// One menu item with its mark and its command key.
std::string DrawMenuItem(const MenuItemLook& theLook);

// A text in quotation marks, on one line whatever it holds.
std::string Quoted(const std::string& theText);

// A four-character code: 'heat'. Bytes outside of printable ASCII read "?".
std::string QuotedCode(std::uint32_t theCode);

// The text followed by blanks up to theWidth characters; longer texts stay whole.
std::string Padded(const std::string& theText, size_t theWidth);

} // namespace Host

#endif
