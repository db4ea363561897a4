// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#include "LmBindingIndex.h"

#include "LmRollback.h"
#include "LmSideIndex.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace LmBindingIndex {

namespace {

// Where a record is, with the store that it is bound to, so that most comparisons need not look at the
// record.
struct Place
{
    Place(Map::iterator theEntry, Records::iterator theFoundRecord)
        : theStore(theFoundRecord->boundTo),
          theKey(&theEntry->first),
          theRecord(theFoundRecord)
    {
    }

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

    bool operator()(const Place& theLeft, const Place& theRight) const
    {
        if (theLeft.theStore != theRight.theStore) {
            return IsBefore(theLeft.theStore, theRight.theStore);
        }
        const LmString& theLeftKey = theLeft.theRecord->boundKey;
        const LmString& theRightKey = theRight.theRecord->boundKey;
        return theLeftKey < theRightKey || (theLeftKey == theRightKey && *theLeft.theKey < *theRight.theKey);
    }
    bool operator()(const Place& theLeft, const KeyOfStore& theRight) const
    {
        return theLeft.theStore != theRight.theStore ? IsBefore(theLeft.theStore, theRight.theStore)
                                                     : theLeft.theRecord->boundKey < theRight.theKey;
    }
    bool operator()(const Place& theLeft, const LmKeyValueStore* theRight) const
    {
        return IsBefore(theLeft.theStore, theRight);
    }
    bool operator()(const LmKeyValueStore* theLeft, const Place& theRight) const
    {
        return IsBefore(theLeft, theRight.theStore);
    }

private:
    static bool IsBefore(const LmKeyValueStore* theLeft, const LmKeyValueStore* theRight)
    {
        return std::less<>()(theLeft, theRight);
    }
};

using Index = LmSideIndex<Place, Order>;

// How many keys and records there are; no more than three of those beyond a few are counted, for a new key
// with its record adds two.
std::size_t CountSome(const Map& theMap)
{
    constexpr std::size_t kEnough = kFew + 3;
    std::size_t theCount = theMap.size();
    for (auto theEntry = theMap.begin(); theCount < kEnough && theEntry != theMap.end(); ++theEntry) {
        theCount += theEntry->second.size();
    }
    return std::min(theCount, kEnough);
}

bool IsLarge(const Map& theMap)
{
    return CountSome(theMap) > kFew;
}

// What only large objects need is made small, and stays out of what small ones need.

[[gnu::cold, gnu::noinline]] void IndexAll(Map& theMap)
{
    Index::Set theSet;
    for (auto theEntry = theMap.begin(); theEntry != theMap.end(); ++theEntry) {
        Records& theRecords = theEntry->second;
        for (auto theRecord = theRecords.begin(); theRecord != theRecords.end(); ++theRecord) {
            theSet.insert(Place(theEntry, theRecord));
        }
    }
    Index::Keep(&theMap, std::move(theSet));
}

[[gnu::cold, gnu::noinline]] void AddToIndex(const Map& theMap, const Place& theNew)
{
    Index::Of(&theMap).insert(theNew);
}

[[gnu::cold, gnu::noinline]] void RemoveFromIndex(const Map& theMap, const Place& theOld)
{
    Index::Set& theSet = Index::Of(&theMap);
    const auto theRange = theSet.equal_range(theOld);
    const auto thePlace = std::find_if(theRange.first, theRange.second, [&](const Place& theOne) {
        return &*theOne.theRecord == &*theOld.theRecord;
    });
    // A derived class may hand over a record that it keeps itself.
    if (thePlace != theRange.second) {
        theSet.erase(thePlace);
    }
}

[[gnu::cold, gnu::noinline]] void DropWhenSmall(const Map& theMap)
{
    if (!IsLarge(theMap)) {
        Index::Drop(&theMap);
    }
}

} // namespace

Hit FindFirstInIndex(const Map& theMap, const LmKeyValueStore* theStore, const LmString& theStoreKey)
{
    const Index::Set& theSet = Index::Of(&theMap);
    const auto thePlace = theSet.lower_bound(KeyOfStore{theStore, theStoreKey});
    const bool isHit = thePlace != theSet.end() && IsBoundTo(*thePlace->theRecord, theStore, theStoreKey);
    return isHit ? Hit{thePlace->theKey, &*thePlace->theRecord} : Hit();
}

Records::iterator FindIn(Map& theMap, Map::iterator theEntry, const LmKeyValueBinding* boundTo)
{
    Records& theRecords = theEntry->second;
    if (theRecords.size() > kFew) {
        const auto theRange = Index::Of(&theMap).equal_range(static_cast<const LmKeyValueStore*>(boundTo));
        const auto isOfEntry = [&](const Place& thePlace) { return thePlace.theKey == &theEntry->first; };
        const auto thePlace = std::find_if(theRange.first, theRange.second, isOfEntry);
        if (thePlace == theRange.second) {
            return theRecords.end();
        }
        if (std::none_of(std::next(thePlace), theRange.second, isOfEntry)) {
            return thePlace->theRecord;
        }
        // Which of several is the oldest, the list alone knows.
    }
    return std::find_if(theRecords.begin(), theRecords.end(),
                        [&](const BindingInfo& theRecord) { return theRecord.boundTo == boundTo; });
}

void Append(Map& theMap, const LmString& bindKey, const BindingInfo& theInfo)
{
    Records theNewRecord(1, theInfo);
    const auto theInsertion = theMap.try_emplace(bindKey);
    Records& theRecords = theInsertion.first->second;
    theRecords.splice(theRecords.end(), theNewRecord);
    LmRollback theRollback([&] {
        theRecords.pop_back();
        if (theInsertion.second) {
            theMap.erase(theInsertion.first);
        }
    });
    const std::size_t theCount = CountSome(theMap);
    const std::size_t theNewCount = theInsertion.second ? 2 : 1;
    if (theCount > kFew + theNewCount) {
        AddToIndex(theMap, Place(theInsertion.first, std::prev(theRecords.end())));
    } else if (theCount > kFew) {
        IndexAll(theMap);
    }
    theRollback.Commit();
}

void Take(Map& theMap, Map::iterator theEntry, Records::iterator theRecord, Records& theTaken)
{
    const bool wasLarge = IsLarge(theMap);
    if (wasLarge) {
        RemoveFromIndex(theMap, Place(theEntry, theRecord));
    }
    theTaken.splice(theTaken.end(), theEntry->second, theRecord);
    if (wasLarge) {
        DropWhenSmall(theMap);
    }
}

void EraseEntry(Map& theMap, Map::iterator theEntry)
{
    const bool wasLarge = IsLarge(theMap);
    theMap.erase(theEntry);
    if (wasLarge) {
        DropWhenSmall(theMap);
    }
}

} // namespace LmBindingIndex
