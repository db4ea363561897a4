// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Windows_ControlTable_h
#define Windows_ControlTable_h

#include "Control.h"

namespace Host {

// Every control that exists, by its reference.
HandleTable<ControlRef, Control>& ControlTable();

} // namespace Host

#endif
