// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Diff_h
#define Diff_h

// `lminspect diff`: the first place where two journals of the same session part. Times, addresses and the
// numbers of entries, objects, records and transforms may differ, as long as they stand for the same.

#include "Journal.h"

#include <iosfwd>

namespace Inspect {

int RunDiff(Journal& theLeft, Journal& theRight, std::ostream& theOutput, std::ostream& theErrors);

} // namespace Inspect

#endif
