// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Windows_Layout_h
#define Windows_Layout_h

#include "Controls.h"

namespace Host {

// The rules by which a control follows others, those that do nothing when it has none.
HILayoutInfo LayoutOf(const Control& theControl);
OSStatus SetLayout(const Control& theControl, const HILayoutInfo& theRules);

// Forgets the rules of a control that goes.
void RemoveLayout(const Control& theControl);

// Moves and resizes what follows a control, whose bounds were others before. Handlers are called.
void LayOutFollowers(const SharedControl& theLeader, const Rect& theOldBounds);

// Positions and scales a control by its rules.
void ApplyLayout(const SharedControl& theControl);

// Whether the layout of the control and of all around it is on.
bool IsLayoutActive(const Control& theControl);

} // namespace Host

#endif
