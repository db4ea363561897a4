// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "PresenterKinds.h"

#include "QtPresenter.h"

std::vector<PresenterKind> PresenterKinds()
{
    return {{"Qt", Host::QtPresenter::Make}};
}
