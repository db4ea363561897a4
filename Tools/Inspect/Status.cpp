// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Status.h"

#include "Text.h"

#include <ostream>

namespace Inspect {

int Finish(const Journal& theJournal, std::ostream& theErrors)
{
    if (!theJournal.GetTrouble().empty()) {
        theErrors << "lminspect: " << Escape(theJournal.GetTrouble()) << "\n";
        return kTrouble;
    }
    if (theJournal.CountMissing() > 0) {
        theErrors << "lminspect: " << Count(theJournal.CountMissing(), "entry is", "entries are")
                  << " missing from " << Escape(theJournal.GetName()) << "\n";
    }
    return kFine;
}

} // namespace Inspect
