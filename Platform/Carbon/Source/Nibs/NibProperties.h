// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Nibs_NibProperties_h
#define Nibs_NibProperties_h

#include "Nib.h"

namespace Host {

// What every control can have: its name, command, title, size, font, layout, help, the program's own
// properties, and whether it is shown and enabled.
void SetNibProperties(const NibObject& theObject, ControlRef theControl);

} // namespace Host

#endif
