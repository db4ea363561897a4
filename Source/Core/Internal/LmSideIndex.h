// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmSideIndex_h
#define LmSideIndex_h

#include "LmRollback.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <unordered_map>
#include <utility>

// So many items are searched by walking through them. More have an index.
constexpr std::size_t kLmFew = 16;

// Indexes beside containers that have no room for one in themselves, because their types are fixed. Not part
// of the interface.
//
// A container that has grown beyond a few items gets an index, which lasts until only a few are left. Whether
// there is one is for Find to say, and nobody else works it out. The user tells of each item that it has
// added and of each that it is about to remove; all must have been removed before the container dies.
//
// Nothing is there until the first container has grown, and nothing is left when the last one has shrunk: the
// library takes no memory when it is loaded and runs nothing when it is unloaded, when an application's own
// objects may still be alive.
//
// The traits of a user say what is indexed:
//
//     using Container = ...;
//     using Item = ...;        // what stands for an item of the container; equal when they are the same one
//     using Order = ...;       // of items, and of items and what is looked for
//     template <typename Visit> static void VisitItems(Container&, const Visit&);
//     static bool HasMany(const Container&); // more than a few: asked when there is no index
//     static bool HasFew(const Container&, std::size_t theItems); // only a few: asked when there is one
template <typename Traits>
class LmSideIndex
{
public:
    using Container = typename Traits::Container;
    using Item = typename Traits::Item;
    using Items = std::multiset<Item, typename Traits::Order>;
    using Range = std::pair<typename Items::const_iterator, typename Items::const_iterator>;

    // The index of a container, or null.
    static Items* Find(const Container& theContainer)
    {
        return sIndexes != nullptr ? FindAmongAll(theContainer) : nullptr;
    }

    // theItem is in the container now. When there is no memory for the index, it stays as it was.
    static void Add(Container& theContainer, const Item& theItem)
    {
        if (Items* theItems = Find(theContainer)) {
            theItems->insert(theItem);
        } else if (Traits::HasMany(theContainer)) {
            Make(theContainer);
        }
    }

    // theItem leaves the container. What is not in the index leaves nothing behind. Needs no memory.
    static void Remove(const Container& theContainer, const Item& theItem)
    {
        if (Items* theItems = Find(theContainer)) {
            RemoveFrom(*theItems, theItem);
            DropWhenFew(theContainer, *theItems);
        }
    }

    // The same for all items of a part of the index.
    static void Remove(const Container& theContainer, Items& theItems, const Range& theRange)
    {
        theItems.erase(theRange.first, theRange.second);
        DropWhenFew(theContainer, theItems);
    }

    // The container has shrunk without an item leaving it. Needs no memory.
    static void Shrink(const Container& theContainer)
    {
        if (const Items* theItems = Find(theContainer)) {
            DropWhenFew(theContainer, *theItems);
        }
    }

private:
    using Indexes = std::unordered_map<const Container*, Items>;

    [[gnu::noinline]] static Items* FindAmongAll(const Container& theContainer)
    {
        const auto theIndex = sIndexes->find(&theContainer);
        return theIndex != sIndexes->end() ? &theIndex->second : nullptr;
    }

    // Making and changing an index is made small, and stays out of what short containers need.

    [[gnu::cold, gnu::noinline]] static void Make(Container& theContainer)
    {
        Items theItems;
        Traits::VisitItems(theContainer, [&](const Item& theItem) { theItems.insert(theItem); });
        if (sIndexes == nullptr) {
            sIndexes = new Indexes;
        }
        LmRollback theRollback([] { FreeWhenEmpty(); });
        sIndexes->emplace(&theContainer, std::move(theItems));
        theRollback.Commit();
    }

    [[gnu::cold, gnu::noinline]] static void RemoveFrom(Items& theItems, const Item& theItem)
    {
        const auto theRange = theItems.equal_range(theItem);
        const auto theOne = std::find(theRange.first, theRange.second, theItem);
        if (theOne != theRange.second) {
            theItems.erase(theOne);
        }
    }

    [[gnu::cold, gnu::noinline]] static void DropWhenFew(const Container& theContainer, const Items& theItems)
    {
        if (Traits::HasFew(theContainer, theItems.size())) {
            sIndexes->erase(&theContainer);
            FreeWhenEmpty();
        }
    }

    static void FreeWhenEmpty()
    {
        if (sIndexes->empty()) {
            delete sIndexes;
            sIndexes = nullptr;
        }
    }

    static inline Indexes* sIndexes = nullptr; // the indexes by their container; null while there is none
};

#endif
