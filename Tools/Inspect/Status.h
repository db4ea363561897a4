// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Status_h
#define Status_h

// How the program ends, for the shell and for scripts.

#include "Journal.h"

#include <iosfwd>

namespace Inspect {

constexpr int kFine = 0;
constexpr int kFindings = 1; // something was found, or two journals differ
constexpr int kTrouble = 2;  // the question could not be answered

// Says what the journal has kept for the end: trouble, and entries that are not there. Returns kTrouble or
// kFine.
int Finish(const Journal& theJournal, std::ostream& theErrors);

} // namespace Inspect

#endif
