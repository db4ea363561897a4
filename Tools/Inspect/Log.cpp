// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Log.h"

#include "Describe.h"
#include "Status.h"
#include "Text.h"

#include <iomanip>
#include <ostream>

namespace Inspect {

Log::Log(const LogOptions& theOptions, std::ostream& theOutput)
    : mOptions(theOptions),
      mOutput(theOutput)
{
}

// Without --all, what moved and what kept something from moving. That a key is about to change, and that a
// binding hands its value on, is said by the change itself.
bool Log::IsOfInterest(What theWhat) const
{
    switch (theWhat) {
    case What::Lost:
    case What::Changed:
    case What::Equal:
    case What::Refused:
    case What::Told:
    case What::Notify:
    case What::Transform:
    case What::Action:
    case What::Event:
    case What::Write:
    case What::Diagnostic:
        return true;
    default:
        return mOptions.isAll;
    }
}

bool Log::IsWanted(const Entry& theEntry)
{
    const Filter& theFilter = mOptions.theFilter;
    if (theFilter.theKinds.empty() && !IsOfInterest(theEntry.theWhat)) {
        return false;
    }
    return theFilter.Matches(theEntry, mCallers);
}

void Log::WriteStep(Causes::Step& theStep, std::size_t theDepth)
{
    theStep.isMarked = true;
    const Entry& theEntry = theStep.theEntry;
    mOutput << std::setw(7) << theEntry.theNumber << "  " << std::setw(13) << ShowTime(theEntry.theTime)
            << "  " << std::string(theDepth * 2, ' ') << Describe(theEntry);
    const std::string theCaller = mOptions.hasCallers ? mCallers.ShowInnermost(theEntry) : std::string();
    if (!theCaller.empty()) {
        mOutput << "  [" << theCaller << "]";
    }
    mOutput << "\n";
    ++mShown;
}

void Log::Take(const Entry& theEntry)
{
    mCallers.Take(theEntry);
    mCauses.Take(theEntry);
    if (!IsWanted(theEntry)) {
        return;
    }
    std::size_t theDepth = 0;
    for (std::size_t theIndex = 0; theIndex + 1 < mCauses.Count(); ++theIndex) {
        Causes::Step& theStep = mCauses.At(theIndex);
        if (mOptions.hasCauses && !theStep.isMarked && IsOfInterest(theStep.theEntry.theWhat)) {
            WriteStep(theStep, theDepth);
        }
        theDepth += theStep.isMarked ? 1 : 0;
    }
    WriteStep(mCauses.At(mCauses.Count() - 1), theDepth);
}

int RunLog(Journal& theJournal, const LogOptions& theOptions, std::ostream& theOutput,
           std::ostream& theErrors)
{
    Log theLog(theOptions, theOutput);
    Entry theEntry;
    while (theOutput.good() && theJournal.Next(theEntry)) {
        theLog.Take(theEntry);
        if (theOptions.isLive) {
            theOutput.flush();
        }
    }
    if (!theOptions.theFilter.theCaller.empty() && theJournal.GetTrouble().empty() &&
        !theJournal.HasCallers()) {
        theErrors << "lminspect: no callers were kept; LM_JOURNAL_CALLERS=8 keeps eight of each call\n";
    }
    return Finish(theJournal, theErrors);
}

} // namespace Inspect
