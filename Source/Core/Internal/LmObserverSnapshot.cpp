// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmObserverSnapshot.h"

#include <algorithm>
#include <functional>

// On purpose: this is the merge step of a merge sort by address, on lists that are in the order of
// registration. Not std::merge, which requires sorted input.
LmKeyValueObserver** LmObserverSnapshot::Merge(const ObserverList& theKeyObservers,
                                               const ObserverList& theAnyObservers,
                                               LmKeyValueObserver** theEnd)
{
    auto theAny = theAnyObservers.begin();
    for (LmKeyValueObserver* theObserver : theKeyObservers) {
        while (theAny != theAnyObservers.end() && std::less<>()(*theAny, theObserver)) {
            *theEnd++ = *theAny++;
        }
        *theEnd++ = theObserver;
    }
    return std::copy(theAny, theAnyObservers.end(), theEnd);
}

void LmObserverSnapshot::ObserverIsGone(LmKeyValueObserver* theObserver)
{
    LmKeyValueObserver* const kGone = nullptr;
    VisitAll([&](const LmObserverSnapshot& theSnapshot) {
        std::replace(theSnapshot.mBegin, theSnapshot.mEnd, theObserver, kGone);
    });
}

void LmObserverSnapshot::StoreIsGone(const LmKeyValueStore* theStore)
{
    VisitAll([&](LmObserverSnapshot& theSnapshot) {
        if (theSnapshot.mStore == theStore) {
            theSnapshot.mStore = nullptr;
        }
    });
}
