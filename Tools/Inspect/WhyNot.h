// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef WhyNot_h
#define WhyNot_h

// `lminspect why not`: what a key follows, when each of its sources moved last, and what kept that from it.

#include "Journal.h"

#include <iosfwd>
#include <string>

namespace Inspect {

// theName is OBJECT.KEY.
int RunWhyNot(Journal& theJournal, const std::string& theName, std::ostream& theOutput,
              std::ostream& theErrors);

} // namespace Inspect

#endif
