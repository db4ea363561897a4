// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef PresentedProgram_h
#define PresentedProgram_h

#include <Presentation/PresenterTypes.h>

namespace Host {

class Presenter;
class PresenterEvents;

// The program that is shown, as its presenters need to know it: where to report to, and whom to ask for
// everything there is to show. The managers are the one such program; they stand above this interface and
// make themselves known to PresenterRegistry when they are loaded.
class HOST_PUBLIC PresentedProgram
{
public:
    PresentedProgram() = default;
    virtual ~PresentedProgram();
    PresentedProgram(const PresentedProgram&) = delete;
    PresentedProgram& operator=(const PresentedProgram&) = delete;

    // The gate that presenters report to; the same as long as the program runs.
    virtual PresenterEvents& Gate() = 0;

    // The presenter that reported until now has stopped: what it said is held down will not be released.
    virtual void ForgetWhatIsHeld() = 0;

    // Describes every window, control and menu to thePresenter, from back to front, and where the focus is.
    virtual void ReplayLooks(Presenter& thePresenter) = 0;
};

} // namespace Host

#endif
