// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Windows_HelpTags_h
#define Windows_HelpTags_h

#include "Controls.h"

namespace Host {

// What appears when the pointer rests on a control: its own help, or that of what is around it. Costs next to
// nothing as long as no control has any.
void AddHelpToLook(const Control& theControl, ControlLook& theLook);

// Forgets the help of a control that goes.
void RemoveHelp(const Control& theControl);

} // namespace Host

#endif
