// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef Log_h
#define Log_h

// `lminspect log`: what happened, as a tree. What an entry led to stands below it, further in.

#include "Callers.h"
#include "Causes.h"
#include "Filter.h"
#include "Journal.h"

#include <cstdint>
#include <iosfwd>

namespace Inspect {

struct LogOptions
{
    Filter theFilter;
    bool isAll = false;      // also what is only of interest to who looks closely
    bool hasCauses = false;  // also what led to the entries that the filter lets through
    bool hasCallers = false; // with who made the call
    bool isLive = false;     // whether each line is shown at once
};

class Log
{
public:
    Log(const LogOptions& theOptions, std::ostream& theOutput);

    // Writes theEntry, the next one of the journal, if it is wanted.
    void Take(const Entry& theEntry);
    std::uint64_t CountShown() const { return mShown; }

private:
    bool IsWanted(const Entry& theEntry);
    bool IsOfInterest(What theWhat) const;
    void WriteStep(Causes::Step& theStep, std::size_t theDepth);

    const LogOptions& mOptions;
    std::ostream& mOutput;
    Causes mCauses;
    Callers mCallers;
    std::uint64_t mShown = 0;
};

// The status for the shell.
int RunLog(Journal& theJournal, const LogOptions& theOptions, std::ostream& theOutput,
           std::ostream& theErrors);

} // namespace Inspect

#endif
