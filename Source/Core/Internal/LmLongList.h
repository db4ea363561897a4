// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmLongList_h
#define LmLongList_h

#include "LmRollback.h"
#include "LmSideIndex.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <list>
#include <utility>

// Lists that are searched, short mostly, but long now and then: a long one has an index, so that searching it
// costs the logarithm of its length. Not part of the interface.
//
// A list that is changed here must not be changed by other means, and must be emptied here before it dies.
//
// Compare tells which of two elements, or of an element and what is looked for, comes first: its result is
// negative, zero or positive, as that of std::strcmp.
template <typename Element, typename Compare>
class LmLongList
{
public:
    using List = std::list<Element>;

    // Adds an element at the end. When there is no memory for it or for the index, the list stays as it is.
    static void Append(List& theList, Element theElement)
    {
        theList.push_back(std::move(theElement));
        if (!IsShort(theList)) {
            LmRollback theRollback([&] { theList.pop_back(); });
            Index::Add(theList, std::prev(theList.end()));
            theRollback.Commit();
        }
    }

    // Removes the element that was appended last. Needs no memory.
    static void RemoveLast(List& theList)
    {
        Index::Remove(theList, std::prev(theList.end()));
        theList.pop_back();
    }

    // Whether there is an element equal to theSought.
    template <typename Sought>
    static bool Has(const List& theList, const Sought& theSought)
    {
        if (const auto* theIndex = FindIndex(theList)) {
            return theIndex->find(theSought) != theIndex->end();
        }
        return std::any_of(theList.begin(), theList.end(), IsEqualTo(theSought));
    }

    // Takes every element equal to theSought out of the list; they live on in theTaken, of which theSought
    // may be a part. Needs no memory.
    template <typename Sought>
    static void TakeAll(List& theList, const Sought& theSought, List& theTaken)
    {
        if (auto* theIndex = FindIndex(theList)) {
            TakeAllByIndex(theList, *theIndex, theSought, theTaken);
            return;
        }
        for (auto theNext = theList.begin(); theNext != theList.end();) {
            const auto theElement = theNext++;
            if (IsEqualTo(theSought)(*theElement)) {
                theTaken.splice(theTaken.end(), theList, theElement);
            }
        }
    }

private:
    struct Order
    {
        using is_transparent = void;
        using Item = typename List::iterator;

        bool operator()(Item theLeft, Item theRight) const { return Compare()(*theLeft, *theRight) < 0; }
        template <typename Sought>
        bool operator()(Item theLeft, const Sought& theRight) const
        {
            return Compare()(*theLeft, theRight) < 0;
        }
        template <typename Sought>
        bool operator()(const Sought& theLeft, Item theRight) const
        {
            return Compare()(*theRight, theLeft) > 0;
        }
    };

    struct IndexTraits
    {
        using Container = List;
        using Item = typename List::iterator;
        using Order = typename LmLongList::Order;

        template <typename Visit>
        static void VisitItems(List& theList, const Visit& theVisit)
        {
            for (auto theElement = theList.begin(); theElement != theList.end(); ++theElement) {
                theVisit(theElement);
            }
        }
        static bool HasMany(const List& theList) { return !IsShort(theList); }
        static bool HasFew(const List& /*theList*/, std::size_t theItems) { return theItems <= kLmFew; }
    };

    using Index = LmSideIndex<IndexTraits>;

    static bool IsShort(const List& theList) { return theList.size() <= kLmFew; }

    // A short list has no index, which is seen faster than it is looked up.
    static typename Index::Items* FindIndex(const List& theList)
    {
        return IsShort(theList) ? nullptr : Index::Find(theList);
    }

    template <typename Sought>
    static auto IsEqualTo(const Sought& theSought)
    {
        return [&theSought](const Element& theElement) { return Compare()(theElement, theSought) == 0; };
    }

    template <typename Sought>
    [[gnu::cold, gnu::noinline]] static void TakeAllByIndex(List& theList, typename Index::Items& theIndex,
                                                            const Sought& theSought, List& theTaken)
    {
        const typename Index::Range theEqual = theIndex.equal_range(theSought);
        for (auto theItem = theEqual.first; theItem != theEqual.second; ++theItem) {
            theTaken.splice(theTaken.end(), theList, *theItem);
        }
        Index::Remove(theList, theIndex, theEqual);
    }
};

#endif
