// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef HeadlessScreen_h
#define HeadlessScreen_h

#include "HeadlessPresenter.h"

#include <memory>
#include <Presentation/PresenterRegistry.h>

// A headless presenter of the test's own, which is in use from now on and can be asked what it was told.
class HeadlessScreen
{
public:
    HeadlessScreen()
    {
        auto thePresenter = std::make_unique<Host::HeadlessPresenter>();
        mPresenter = thePresenter.get();
        Host::PresenterRegistry::Use(std::move(thePresenter));
    }

    // The registry keeps every presenter as long as the program runs.
    const Host::HeadlessPresenter* operator->() const { return mPresenter; }

private:
    const Host::HeadlessPresenter* mPresenter;
};

#endif
