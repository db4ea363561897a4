// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "QtPresenter.h"

#include <Presentation/PresenterRegistry.h>

namespace {

// Whatever is linked with this library can be shown with Qt.
struct QtRegistration
{
    QtRegistration() { Host::PresenterRegistry::Register("qt", Host::QtPresenter::Make); }
};

const QtRegistration kRegistration;

} // namespace
