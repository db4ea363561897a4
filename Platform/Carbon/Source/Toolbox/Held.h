// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Toolbox_Held_h
#define Toolbox_Held_h

#include <cstdint>
#include <Presentation/PresenterTypes.h>
#include <set>

namespace Host {

// What a person holds down, and where the pointer is, as it was reported last.
struct Held
{
    PixelPoint thePlace;
    std::uint32_t theButtons = 0; // bit 0 is the primary one
    std::set<std::uint32_t> theKeys;
};

// The gate tells it before it sends the events of what has changed.
void SetHeld(const Held& theHeld);

} // namespace Host

#endif
