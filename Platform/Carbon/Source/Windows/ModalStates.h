// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Windows_ModalStates_h
#define Windows_ModalStates_h

#include "Windows.h"

namespace Host {

// The window of the newest modal state, of those whose window is on the screen; null when there is none.
SharedWindow WindowOfModalState();

} // namespace Host

#endif
