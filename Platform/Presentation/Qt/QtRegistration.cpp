// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtPresenter.h"

#include <Presentation/PresenterRegistry.h>

namespace {

// Whatever is linked with this library is shown with Qt, unless LM_PRESENTER says otherwise.
struct QtRegistration
{
    QtRegistration() { Host::PresenterRegistry::RegisterPreferred("qt", Host::QtPresenter::Make); }
};

const QtRegistration kRegistration;

} // namespace
