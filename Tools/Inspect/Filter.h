// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Filter_h
#define Filter_h

// Which entries a person wants to see.

#include "Callers.h"
#include "Entry.h"

#include <cstdint>
#include <limits>
#include <set>
#include <string>

namespace Inspect {

struct Filter
{
    // Names may hold * and ?, as file names do in a shell. Empty: all.
    std::string theObject; // a name, a class, or a number as "#3"
    std::string theKey;
    std::string theCaller; // a part of what a caller is shown as
    std::set<What> theKinds;
    std::uint64_t theEarliest = 0; // nanoseconds
    std::uint64_t theLatest = std::numeric_limits<std::uint64_t>::max();

    bool Matches(const Entry& theEntry, Callers& theCallers) const;
};

// Whether theObject is called so: by its name or its class, in which * and ? stand for anything, or by "#"
// and its number.
bool IsCalled(const Object& theObject, const std::string& thePattern);

} // namespace Inspect

#endif
