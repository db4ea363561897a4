// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef QtNames_h
#define QtNames_h

#include <Presentation/PresenterTypes.h>
#include <string>
#include <vector>

namespace Host {

// What a screen reader calls the controls of one window. The looks that are added must stay while this lives.
class SpokenNames
{
public:
    // Adds a control of the window. All are added before the first is asked for.
    void Add(const ControlLook& theControl);

    // The title of a control or, where it has none that is seen, the text that a person who sees takes for
    // its label, to the left of it or above. Empty for a control that nothing names.
    std::string NameOf(const ControlLook& theControl) const;

    // The title of the smallest group box around it; empty when there is none.
    std::string GroupOf(const ControlLook& theControl) const;

private:
    using Controls = std::vector<const ControlLook*>;

    bool IsTaken(const PixelRect& theLabel, const ControlLook& theControl) const;
    const ControlLook* LabelBeside(const ControlLook& theControl) const;
    const ControlLook* LabelAbove(const ControlLook& theControl) const;

    Controls mLabels; // visible texts that can be labels
    Controls mOwners; // visible controls that can have a label for themselves
    Controls mGroups; // visible group boxes
};

} // namespace Host

#endif
