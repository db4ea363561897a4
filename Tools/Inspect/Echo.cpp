// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "Echo.h"

#include <iterator>

namespace Inspect {

namespace {

// The innermost event that an object was told of and that has not ended. 0 when there is none, else its place
// + 1.
std::size_t FindEvent(const Causes& theCauses, std::size_t theEnd, std::uint64_t theObject)
{
    for (std::size_t theIndex = theEnd; theIndex > 0; --theIndex) {
        const Entry& theEntry = theCauses.At(theIndex - 1).theEntry;
        if (theEntry.theWhat == What::Event && theEntry.theObject.theID == theObject) {
            return theIndex;
        }
    }
    return 0;
}

} // namespace

void Echo::Take(Causes& theCauses)
{
    const std::size_t theLast = theCauses.Count() - 1;
    const Entry& theEntry = theCauses.At(theLast).theEntry;
    const std::size_t theEvent = FindEvent(theCauses, theLast, theEntry.theObject.theID);
    if (theEntry.theWhat == What::Event && theEvent > 0) {
        // When the inner event ends, the binding writes again, although the outer one has not ended.
        theCauses.At(theEvent - 1).isMarked = true;
    } else if (theEntry.theWhat == What::Event) {
        Settle(theEntry);
    }
    if (theEntry.theWhat != What::Changed) {
        return;
    }
    const std::pair<std::uint64_t, std::string> theKey = {theEntry.theObject.theID, theEntry.theKey};
    const bool isWritten = theEvent == 0 || theCauses.At(theEvent - 1).isMarked;
    const bool isCopied = theEvent > 0 && theEvent == theLast;
    if (isWritten || isCopied) {
        mKeys.erase(theKey);
        if (isCopied) {
            mKeys[theKey].theShown = theEntry.theNew;
        }
        return;
    }
    Difference& theDifference = mKeys[theKey];
    theDifference.theEvent = theCauses.At(theEvent - 1).theEntry;
    if (!theDifference.theShown.IsThere()) {
        theDifference.theShown = theEntry.theOld;
    }
    // A key that had no value is none of the control's own, and is not shown.
    theDifference.isIt = theDifference.theShown.IsValid() && !IsSame(theDifference.theShown, theEntry.theNew);
    theDifference.theChange = theEntry;
}

// The control has changed again in the same way. Either that is copied into its key now; or the key has that
// value already, and the binding itself had it written after its control's change had been copied.
void Echo::Settle(const Entry& theEvent)
{
    const auto theEnd = mKeys.lower_bound({theEvent.theObject.theID + 1, {}});
    for (auto theKey = mKeys.lower_bound({theEvent.theObject.theID, {}}); theKey != theEnd;) {
        const Entry& theOlder = theKey->second.theEvent;
        const bool isSameKind =
            theOlder.theDetail == theEvent.theDetail && theOlder.theCode == theEvent.theCode;
        theKey = theKey->second.isIt && isSameKind ? mKeys.erase(theKey) : std::next(theKey);
    }
}

const Echo::Difference* Echo::Find(std::uint64_t theObject, const std::string& theKey) const
{
    const auto theFound = mKeys.find({theObject, theKey});
    return theFound == mKeys.end() || !theFound->second.isIt ? nullptr : &theFound->second;
}

void Echo::Forget(std::uint64_t theObject)
{
    mKeys.erase(mKeys.lower_bound({theObject, {}}), mKeys.lower_bound({theObject + 1, {}}));
}

std::string WhatItStandsFor(const Object& theObject)
{
    if (theObject.theClass.find("Window") != std::string::npos) {
        return "window";
    }
    return theObject.theClass.find("Menu") != std::string::npos ? "menu command" : "control";
}

} // namespace Inspect
