// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmBindingIndex.h"

#include "LmRollback.h"
#include "LmSideIndex.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace LmBindingIndex {

namespace {

// A record and the key that it is a record of, with the store that it is bound to, so that most comparisons
// need not look at the record.
struct Item
{
    Item(Map::iterator theEntry, Records::iterator theEntrysRecord)
        : theStore(theEntrysRecord->boundTo),
          theKey(&theEntry->first),
          theRecord(theEntrysRecord)
    {
    }

    bool operator==(const Item& theOther) const { return &*theRecord == &*theOther.theRecord; }

    const LmKeyValueStore* theStore;
    const LmString* theKey; // the key of the entry
    Records::iterator theRecord;
};

struct KeyOfStore
{
    const LmKeyValueStore* theStore;
    const LmString& theKey;
};

// By what a record is bound to; what is bound to the same stands in the order of the map.
struct Order
{
    using is_transparent = void;

    bool operator()(const Item& theLeft, const Item& theRight) const
    {
        if (theLeft.theStore != theRight.theStore) {
            return IsBefore(theLeft.theStore, theRight.theStore);
        }
        const LmString& theLeftKey = theLeft.theRecord->boundKey;
        const LmString& theRightKey = theRight.theRecord->boundKey;
        return theLeftKey < theRightKey || (theLeftKey == theRightKey && *theLeft.theKey < *theRight.theKey);
    }
    bool operator()(const Item& theLeft, const KeyOfStore& theRight) const
    {
        if (theLeft.theStore != theRight.theStore) {
            return IsBefore(theLeft.theStore, theRight.theStore);
        }
        return theLeft.theRecord->boundKey < theRight.theKey;
    }
    bool operator()(const Item& theLeft, const LmKeyValueStore* theRight) const
    {
        return IsBefore(theLeft.theStore, theRight);
    }
    bool operator()(const LmKeyValueStore* theLeft, const Item& theRight) const
    {
        return IsBefore(theLeft, theRight.theStore);
    }

private:
    static bool IsBefore(const LmKeyValueStore* theLeft, const LmKeyValueStore* theRight)
    {
        return std::less<>()(theLeft, theRight);
    }
};

struct Traits
{
    using Container = Map;
    using Item = LmBindingIndex::Item;
    using Order = LmBindingIndex::Order;

    template <typename Visit>
    static void VisitItems(Map& theMap, const Visit& theVisit)
    {
        for (auto theEntry = theMap.begin(); theEntry != theMap.end(); ++theEntry) {
            Records& theRecords = theEntry->second;
            for (auto theRecord = theRecords.begin(); theRecord != theRecords.end(); ++theRecord) {
                theVisit(Item(theEntry, theRecord));
            }
        }
    }

    static bool HasMany(const Map& theMap)
    {
        std::size_t theCount = theMap.size();
        for (auto theEntry = theMap.begin(); theCount <= kLmFew && theEntry != theMap.end(); ++theEntry) {
            theCount += theEntry->second.size();
        }
        return theCount > kLmFew;
    }

    static bool HasFew(const Map& theMap, std::size_t theItems) { return theMap.size() + theItems <= kLmFew; }
};

using Index = LmSideIndex<Traits>;

} // namespace

Hit FindFirstInIndex(const Map& theMap, const LmKeyValueStore* theStore, const LmString& theStoreKey)
{
    const Index::Items& theIndex = *Index::Find(theMap);
    const auto theItem = theIndex.lower_bound(KeyOfStore{theStore, theStoreKey});
    const bool isHit = theItem != theIndex.end() && IsBoundTo(*theItem->theRecord, theStore, theStoreKey);
    return isHit ? Hit{theItem->theKey, &*theItem->theRecord} : Hit();
}

Records::iterator FindIn(Map& theMap, Map::iterator theEntry, const LmKeyValueBinding* boundTo)
{
    Records& theRecords = theEntry->second;
    if (theRecords.size() > kLmFew) {
        const Index::Items& theIndex = *Index::Find(theMap);
        const Index::Range theRange = theIndex.equal_range(static_cast<const LmKeyValueStore*>(boundTo));
        const auto isOfEntry = [&](const Item& theItem) { return theItem.theKey == &theEntry->first; };
        const auto theItem = std::find_if(theRange.first, theRange.second, isOfEntry);
        if (theItem == theRange.second) {
            return theRecords.end();
        }
        if (std::none_of(std::next(theItem), theRange.second, isOfEntry)) {
            return theItem->theRecord;
        }
        // Which of several is the oldest, the list alone knows.
    }
    return std::find_if(theRecords.begin(), theRecords.end(),
                        [&](const BindingInfo& theRecord) { return theRecord.boundTo == boundTo; });
}

void Append(Map& theMap, const LmString& bindKey, const BindingInfo& theInfo)
{
    const auto theInsertion = theMap.try_emplace(bindKey);
    LmRollback theNewEntry([&] {
        if (theInsertion.second) {
            theMap.erase(theInsertion.first);
        }
    });
    Records& theRecords = theInsertion.first->second;
    theRecords.push_back(theInfo);
    LmRollback theNewRecord([&] { theRecords.pop_back(); });
    Index::Add(theMap, Item(theInsertion.first, std::prev(theRecords.end())));
    theNewRecord.Commit();
    theNewEntry.Commit();
}

void Take(Map& theMap, Map::iterator theEntry, Records::iterator theRecord, Records& theTaken)
{
    // A derived class may hand over a record that it keeps itself, of which the index knows nothing.
    Index::Remove(theMap, Item(theEntry, theRecord));
    theTaken.splice(theTaken.end(), theEntry->second, theRecord);
}

void EraseEntry(Map& theMap, Map::iterator theEntry)
{
    theMap.erase(theEntry);
    Index::Shrink(theMap);
}

} // namespace LmBindingIndex
