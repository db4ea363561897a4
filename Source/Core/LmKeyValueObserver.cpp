// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmKeyValueObserver.h"

#include "LmDiagnostics.h"
#include "LmKeyValueStore.h"
#include "LmLifeNote.h"
#include "LmLongList.h"
#include "LmObserverSnapshot.h"

#include <cstddef>
#include <functional>

namespace {

// An observation that is looked for.
struct KeyOfStore
{
    const LmKeyValueStore* theStore;
    const LmString& theKeyPath;
};

struct CompareKeys
{
    template <typename Key>
    int operator()(const LmObservedKey& theLeft, const Key& theRight) const
    {
        if (theLeft.theStore != theRight.theStore) {
            return std::less<const LmKeyValueStore*>()(theLeft.theStore, theRight.theStore) ? -1 : 1;
        }
        if (theLeft.theKeyPath == theRight.theKeyPath) {
            return 0;
        }
        return theLeft.theKeyPath < theRight.theKeyPath ? -1 : 1;
    }
};

using ObservedKeys = LmLongList<LmObservedKey, CompareKeys>;

} // namespace

LmKeyValueObserver::LmKeyValueObserver()
{
    LmNoteMade(*this, kJournalObserver);
}

LmKeyValueObserver::~LmKeyValueObserver()
{
    const LmDestructionNote theNote(*this);
    LmObserverSnapshot::ObserverIsGone(this);
    StopObserving();
}

void LmKeyValueObserver::ValueChanging(const LmKeyValueStore* /*theStore*/, const LmString& /*theKeyName*/) {}

void LmKeyValueObserver::ValueChanged(const LmKeyValueStore* /*theStore*/, const LmString& /*theKeyName*/) {}

bool LmKeyValueObserver::AmObserving(LmKeyValueStore* theStore, const LmString& theKeyPath)
{
    LM_ASSERT(theStore != NULL);
    LM_ASSERT(theKeyPath.IsNotEmpty());
    return ObservedKeys::Has(mKeys, KeyOfStore{theStore, theKeyPath});
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
    LM_ASSERT(theStore != NULL);
    LM_ASSERT(!AmObserving(theStore, theKeyPath));
    ObservedKeys::Append(mKeys, {theStore, theKeyPath});
}

void LmKeyValueObserver::StoppedObserving(LmKeyValueStore* theStore, const LmString& theKeyPath)
{
    LM_ASSERT(theStore != NULL);
    LM_ASSERT(AmObserving(theStore, theKeyPath));
    // The records die last, because theKeyPath may be a part of one of them.
    std::list<LmObservedKey> theEnded;
    ObservedKeys::TakeAll(mKeys, KeyOfStore{theStore, theKeyPath}, theEnded);
}
