// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmObserverSnapshot_h
#define LmObserverSnapshot_h

#include "LmStackLink.h"

#include <algorithm>
#include <cstddef>
#include <list>
#include <memory>

class LmKeyValueObserver;
class LmKeyValueStore;

// The observers that one pass tells, copied before the first is told, because what they do may change the
// store's lists. Not part of the interface.
//
// An observer whose observation ends during the pass is still told. One that is destroyed is not: what stands
// for it becomes null. When the store is destroyed, nobody is told any more. To that end the snapshots in use
// form a list from the innermost outwards, which the destructors of observers and stores walk; so a snapshot
// lives on the stack only. Up to sixteen observers need no memory from the heap.
class [[nodiscard]] LmObserverSnapshot : private LmStackLink<LmObserverSnapshot>
{
public:
    using ObserverList = std::list<LmKeyValueObserver*>;

    // The observers of a key of theStore merged with those of all keys, if there are any, in the order in
    // which they are to be told.
    LmObserverSnapshot(const LmKeyValueStore& theStore, const ObserverList& theKeyObservers,
                       const ObserverList* theAnyObservers)
        : mStore(&theStore),
          mBegin(mFew)
    {
        const std::size_t theAnyCount = theAnyObservers != nullptr ? theAnyObservers->size() : 0;
        const std::size_t theCount = theKeyObservers.size() + theAnyCount;
        if (theCount > kFew) {
            mMany = std::make_unique<LmKeyValueObserver*[]>(theCount);
            mBegin = mMany.get();
        }
        mEnd = theAnyCount == 0 ? std::copy(theKeyObservers.begin(), theKeyObservers.end(), mBegin)
                                : Merge(theKeyObservers, *theAnyObservers, mBegin);
    }

    LmObserverSnapshot(const LmObserverSnapshot&) = delete;
    LmObserverSnapshot& operator=(const LmObserverSnapshot&) = delete;

    // The observers; null where one has been destroyed since.
    LmKeyValueObserver* const* begin() const { return mBegin; }
    LmKeyValueObserver* const* end() const { return mEnd; }

    // True once the store has been destroyed: then nobody is told any more.
    bool IsStoreGone() const { return mStore == nullptr; }

    // Called by the destructor of every observer.
    static void ObserverIsGone(LmKeyValueObserver* theObserver);

    // Called by the destructor of every store.
    static void StoreIsGone(const LmKeyValueStore* theStore);

private:
    friend class LmStackLink<LmObserverSnapshot>;

    static LmKeyValueObserver** Merge(const ObserverList& theKeyObservers,
                                      const ObserverList& theAnyObservers, LmKeyValueObserver** theEnd);

    static constexpr std::size_t kFew = 16;
    static inline LmObserverSnapshot* sInnermost = nullptr;

    const LmKeyValueStore* mStore;                // null once it is gone; not owned
    LmKeyValueObserver* mFew[kFew];               // the observers, when they fit
    std::unique_ptr<LmKeyValueObserver*[]> mMany; // the observers, when they do not
    LmKeyValueObserver** mBegin;                  // into mFew or mMany
    LmKeyValueObserver** mEnd;                    // behind the last one
};

#endif
