// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "PresenterKinds.h"

#include "HeadlessPresenter.h"

std::vector<PresenterKind> PresenterKinds()
{
    return {{"Headless", Host::HeadlessPresenter::Make}};
}
