// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "DrawingTypes.h"

namespace {

// Before any function of the program runs.
[[maybe_unused]] const bool gAreKnown = [] {
    static const Host::TypeOperations* const kTypes[] = {&Host::kColorSpaceType, &Host::kColorType,
                                                         &Host::kContextType, &Host::kPathType};
    Host::UseOtherTypes(kTypes, sizeof kTypes / sizeof kTypes[0]);
    return true;
}();

} // namespace
