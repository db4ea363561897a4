// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmKeyValueObserver.h"

#include "LmDiagnostics.h"
#include "LmKeyValueStore.h"
#include "LmObserverSnapshot.h"

#include <algorithm>
#include <cstddef>

LmKeyValueObserver::LmKeyValueObserver() = default;

LmKeyValueObserver::~LmKeyValueObserver()
{
    LmObserverSnapshot::ObserverIsGone(this);
    StopObserving();
}

void LmKeyValueObserver::ValueChanging(const LmKeyValueStore* /*theStore*/, const LmString& /*theKeyName*/) {}

void LmKeyValueObserver::ValueChanged(const LmKeyValueStore* /*theStore*/, const LmString& /*theKeyName*/) {}

bool LmKeyValueObserver::AmObserving(LmKeyValueStore* theStore, const LmString& theKeyPath)
{
    LM_ASSERT(theStore != NULL); // NOLINT(modernize-use-nullptr): the text is fixed
    LM_ASSERT(theKeyPath.IsNotEmpty());
    return std::any_of(mKeys.begin(), mKeys.end(),
                       [&](const LmObservedKey& theKey) { return theKey.IsFor(theStore, theKeyPath); });
}

void LmKeyValueObserver::StopObserving()
{
    while (!mKeys.empty()) {
        // Not a copy: a destructor must not need memory. StoppedObserving keeps the record long enough.
        const LmObservedKey& theKey = mKeys.front();
        LM_ASSERT(AmObserving(theKey.theStore, theKey.theKeyPath));
        theKey.theStore->IgnoreKeyPathValue(theKey.theKeyPath, this);
    }
}

void LmKeyValueObserver::StartedObserving(LmKeyValueStore* theStore, const LmString& theKeyPath)
{
    LM_ASSERT(theStore != NULL); // NOLINT(modernize-use-nullptr): the text is fixed
    LM_ASSERT(!AmObserving(theStore, theKeyPath));
    mKeys.push_back({theStore, theKeyPath});
}

void LmKeyValueObserver::StoppedObserving(LmKeyValueStore* theStore, const LmString& theKeyPath)
{
    LM_ASSERT(theStore != NULL); // NOLINT(modernize-use-nullptr): the text is fixed
    LM_ASSERT(AmObserving(theStore, theKeyPath));
    // The records are only set aside at first, because theKeyPath may be a part of one of them.
    std::list<LmObservedKey> theEnded;
    for (auto theNext = mKeys.begin(); theNext != mKeys.end();) {
        const auto theKey = theNext++;
        if (theKey->IsFor(theStore, theKeyPath)) {
            theEnded.splice(theEnded.end(), mKeys, theKey);
        }
    }
}
