// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Windows_WindowTable_h
#define Windows_WindowTable_h

#include "Window.h"

namespace Host {

// Every window that exists, by its reference.
HandleTable<WindowRef, Window>& WindowTable();

// A new window stands in front of its layer; a closed one leaves the order.
void AddToOrder(const SharedWindow& theWindow);
void RemoveFromOrder(const SharedWindow& theWindow);

} // namespace Host

#endif
