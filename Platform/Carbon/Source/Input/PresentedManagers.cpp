// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

// Makes the managers known to those who show them.

#include "Common/NeverDestroyed.h"
#include "InputGate.h"
#include "Menus/Menus.h"
#include "Toolbox/Cursors.h"
#include "Windows/Windows.h"

#include <Presentation/PresentedProgram.h>
#include <Presentation/PresenterRegistry.h>

namespace Host {

namespace {

class PresentedManagers : public PresentedProgram
{
public:
    PresenterEvents& Gate() override { return mGate; }
    void ForgetWhatIsHeld() override { mGate.LetGo(); }

    void ReplayLooks(Presenter& thePresenter) override
    {
        ReplayMenuLooks(thePresenter);
        ReplayWindowLooks(thePresenter);
        ReplayPointerLook(thePresenter);
    }

private:
    InputGate mGate;
};

struct Introduction
{
    Introduction()
    {
        static NeverDestroyed<PresentedManagers> sManagers;
        PresenterRegistry::Present(sManagers.Get());
    }
};

const Introduction kIntroduction;

} // namespace

} // namespace Host
