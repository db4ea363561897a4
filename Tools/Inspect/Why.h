// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Why_h
#define Why_h

// `lminspect why`: how a key got its value, back to what a person did or to the line of code that began it.

#include "Callers.h"
#include "Journal.h"

#include <cstdint>
#include <iosfwd>
#include <string>

namespace Inspect {

// Who set the key of theEntry, a change: its binding, an observer, the program. theCause led to it, and
// theFurtherCause to that; null where nothing did.
std::string SayHowSet(const Entry& theEntry, const Entry* theCause, const Entry* theFurtherCause,
                      Callers& theCallers);

// theName is OBJECT.KEY. theTime is the n-th value of the key, counted from 1; 0 is the last one.
int RunWhy(Journal& theJournal, const std::string& theName, std::uint64_t theTime, std::ostream& theOutput,
           std::ostream& theErrors);

} // namespace Inspect

#endif
