// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtNames_h
#define QtNames_h

#include <Presentation/PresenterTypes.h>
#include <string>
#include <vector>

namespace Host {

// What a screen reader calls a control: its title or, where it has none that is seen, the text that a person
// who sees takes for its label, to the left of it or above. theControls are all controls of its window. Empty
// for a control that nothing names.
std::string SpokenName(const ControlLook& theControl, const std::vector<const ControlLook*>& theControls);

// The title of the smallest group box around it; empty when there is none.
std::string SpokenGroup(const ControlLook& theControl, const std::vector<const ControlLook*>& theControls);

} // namespace Host

#endif
