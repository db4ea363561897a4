// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Causes.h"

#include <utility>

namespace Inspect {

// How many steps lead to what theCause led to. 0 when it is not among them.
std::size_t Causes::DepthOf(const Thread& theThread, std::uint64_t theCause)
{
    for (std::size_t theDepth = theThread.theDepth; theDepth > 0 && theCause != 0; --theDepth) {
        const std::uint64_t theNumber = theThread.theSteps[theDepth - 1].theEntry.theNumber;
        if (theNumber <= theCause) {
            return theNumber == theCause ? theDepth : 0;
        }
    }
    return 0;
}

// A dependent key is told right behind the change that it is told of, or behind another dependent key of it.
void Causes::Watch(Step& theEarlier, Step& theStep)
{
    const Entry& theEntry = theEarlier.theEntry;
    if (theEntry.theObject.theID != theStep.theEntry.theObject.theID) {
        return;
    }
    if (theEntry.theWhat == What::Changed && theEntry.theKey == theStep.theEntry.theOtherKey) {
        theStep.theWatched = theEntry;
        theStep.hasWatched = true;
    } else if (theEntry.theWhat == What::Told && theEntry.theOtherKey == theStep.theEntry.theOtherKey) {
        theStep.theWatched = std::move(theEarlier.theWatched);
        theStep.hasWatched = theEarlier.hasWatched;
    }
}

void Causes::Take(const Entry& theEntry)
{
    const bool isKnown = mThreads.count(theEntry.theThread) > 0 || mThreads.size() < kMostThreads;
    mThread = &mThreads[isKnown ? theEntry.theThread : 0];
    Thread& theThread = *mThread;
    const std::size_t theDepth = DepthOf(theThread, theEntry.theCause);
    if (theDepth == 0) {
        theThread.isComplete = theEntry.theCause == 0;
    }
    if (theDepth >= kDeepest) {
        theThread.theDepth = kDeepest;
        theThread.isComplete = false;
        theThread.theSteps[kDeepest - 1].theEntry = theEntry;
        return;
    }
    const bool hasEarlier = theDepth < theThread.theFilled && theDepth < theThread.theSteps.size();
    if (theDepth == theThread.theSteps.size()) {
        theThread.theSteps.emplace_back();
    }
    Step& theStep = theThread.theSteps[theDepth];
    if (hasEarlier && theEntry.theWhat == What::Told) {
        Step theNew;
        theNew.theEntry = theEntry;
        Watch(theStep, theNew);
        theStep = std::move(theNew);
    } else {
        theStep.theEntry = theEntry;
        theStep.hasWatched = false;
    }
    theStep.isMarked = false;
    theThread.theDepth = theThread.theFilled = theDepth + 1;
}

std::vector<Causes::Step> Causes::Copy() const
{
    return {mThread->theSteps.begin(), mThread->theSteps.begin() + static_cast<std::ptrdiff_t>(Count())};
}

} // namespace Inspect
