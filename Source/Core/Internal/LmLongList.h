// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmLongList_h
#define LmLongList_h

#include "LmSideIndex.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <list>

// Lists that are searched, short mostly, but long now and then. Not part of the interface.
//
// A list of up to sixteen elements is searched by walking through it. Beside a longer one stands an index, so
// that searching it costs the logarithm of its length. A list that is changed here must not be changed by
// other means, and must be emptied here before it dies.
//
// Compare tells which of two elements, or of an element and what is looked for, comes first: its result is
// negative, zero or positive, as that of std::strcmp.
template <typename Element, typename Compare>
class LmLongList
{
public:
    using List = std::list<Element>;

    // Moves the element of theNewElement, a list of one, to the end of theList. When there is no memory for
    // the index, both stay as they are.
    static void Append(List& theList, List& theNewElement)
    {
        if (theList.size() >= kFew) {
            AddToIndex(theList, theNewElement.begin());
        }
        theList.splice(theList.end(), theNewElement);
    }

    // Removes the element that was appended last. Needs no memory.
    static void RemoveLast(List& theList)
    {
        if (IsLong(theList)) {
            RemoveLastFromIndex(theList);
        }
        theList.pop_back();
    }

    // Whether there is an element equal to theSought.
    template <typename Sought>
    static bool Has(const List& theList, const Sought& theSought)
    {
        if (IsLong(theList)) {
            return IsInIndex(theList, theSought);
        }
        return std::any_of(theList.begin(), theList.end(), IsEqualTo(theSought));
    }

    // Takes every element equal to theSought out of the list; they live on in theTaken, of which theSought
    // may be a part. Needs no memory.
    template <typename Sought>
    static void TakeAll(List& theList, const Sought& theSought, List& theTaken)
    {
        if (IsLong(theList)) {
            TakeAllByIndex(theList, theSought, theTaken);
            return;
        }
        for (auto theNext = theList.begin(); theNext != theList.end();) {
            const auto thePlace = theNext++;
            if (IsEqualTo(theSought)(*thePlace)) {
                theTaken.splice(theTaken.end(), theList, thePlace);
            }
        }
    }

private:
    using Place = typename List::iterator;

    struct Order
    {
        using is_transparent = void;

        bool operator()(Place theLeft, Place theRight) const { return Compare()(*theLeft, *theRight) < 0; }
        template <typename Sought>
        bool operator()(Place theLeft, const Sought& theRight) const
        {
            return Compare()(*theLeft, theRight) < 0;
        }
        template <typename Sought>
        bool operator()(const Sought& theLeft, Place theRight) const
        {
            return Compare()(*theRight, theLeft) > 0;
        }
    };

    using Index = LmSideIndex<Place, Order>;

    static bool IsLong(const List& theList) { return theList.size() > kFew; }

    template <typename Sought>
    static auto IsEqualTo(const Sought& theSought)
    {
        return [&theSought](const Element& theElement) { return Compare()(theElement, theSought) == 0; };
    }

    // What only long lists need is made small, and stays out of what short ones need.

    [[gnu::cold, gnu::noinline]] static void AddToIndex(List& theList, Place theNewElement)
    {
        if (IsLong(theList)) {
            Index::Of(&theList).insert(theNewElement);
            return;
        }
        typename Index::Set theSet;
        for (auto thePlace = theList.begin(); thePlace != theList.end(); ++thePlace) {
            theSet.insert(thePlace);
        }
        theSet.insert(theNewElement);
        Index::Keep(&theList, std::move(theSet));
    }

    [[gnu::cold, gnu::noinline]] static void RemoveLastFromIndex(List& theList)
    {
        // Equal elements stand in the order in which they were appended.
        auto& theSet = Index::Of(&theList);
        theSet.erase(std::prev(theSet.upper_bound(theList.back())));
        DropWhenShort(theList, theList.size() - 1);
    }

    template <typename Sought>
    [[gnu::cold, gnu::noinline]] static bool IsInIndex(const List& theList, const Sought& theSought)
    {
        const auto& theSet = Index::Of(&theList);
        return theSet.find(theSought) != theSet.end();
    }

    template <typename Sought>
    [[gnu::cold, gnu::noinline]] static void TakeAllByIndex(List& theList, const Sought& theSought,
                                                            List& theTaken)
    {
        auto& theSet = Index::Of(&theList);
        const auto theEqual = theSet.equal_range(theSought);
        for (auto thePlace = theEqual.first; thePlace != theEqual.second; ++thePlace) {
            theTaken.splice(theTaken.end(), theList, *thePlace);
        }
        theSet.erase(theEqual.first, theEqual.second);
        DropWhenShort(theList, theList.size());
    }

    static void DropWhenShort(const List& theList, std::size_t theNewSize)
    {
        if (theNewSize <= kFew) {
            Index::Drop(&theList);
        }
    }

    static constexpr std::size_t kFew = 16;
};

#endif
