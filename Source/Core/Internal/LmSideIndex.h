// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmSideIndex_h
#define LmSideIndex_h

#include "LmRollback.h"

#include <set>
#include <unordered_map>
#include <utility>

// Sorted sets of places in containers that have no room for such a set in themselves, because their types are
// fixed: one set for each container that has grown long. Not part of the interface.
//
// Nothing is there until the first container has grown, and nothing is left when the last one has shrunk: the
// library takes no memory when it is loaded and runs nothing when it is unloaded, when an application's own
// objects may still be alive.
template <typename Place, typename Order>
class LmSideIndex
{
public:
    using Set = std::multiset<Place, Order>;

    // The set of a container, which must have one.
    static Set& Of(const void* theContainer) { return sSets->find(theContainer)->second; }

    // Keeps theSet as the set of a container. When there is no memory for it, there is none.
    static void Keep(const void* theContainer, Set&& theSet)
    {
        if (sSets == nullptr) {
            sSets = new Sets;
        }
        LmRollback theRollback([] { FreeWhenEmpty(); });
        sSets->insert_or_assign(theContainer, std::move(theSet));
        theRollback.Commit();
    }

    static void Drop(const void* theContainer)
    {
        sSets->erase(theContainer);
        FreeWhenEmpty();
    }

private:
    using Sets = std::unordered_map<const void*, Set>;

    static void FreeWhenEmpty()
    {
        if (sSets->empty()) {
            delete sSets;
            sSets = nullptr;
        }
    }

    static inline Sets* sSets = nullptr; // the sets by their container; null while there is none
};

#endif
