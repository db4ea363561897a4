// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmBindingIndex_h
#define LmBindingIndex_h

#include "LmKeyValueBinding.h"
#include "LmSideIndex.h"

#include <cstddef>
#include <list>
#include <map>

// The records of a binding object, and how one of them is found. Not part of the interface.
//
// Records are ordered by the key that is bound and, within a key, by age; where several match, the first one
// counts. An object with a few keys and records, counted together, is searched in that order: keys count too,
// because a walk visits them even when they have no records. One with more has an index, so that a search
// costs the logarithm of the number of its records. Records that are changed here must not be changed by
// other means, and must be removed here before they die.
namespace LmBindingIndex {

using Records = std::list<BindingInfo>;
using Map = std::map<LmString, Records>;

// A record, and the key that it is a record of. Null for none.
struct Hit
{
    const LmString* theKey;
    const BindingInfo* theRecord;
};

inline bool IsBoundTo(const BindingInfo& theRecord, const LmKeyValueStore* theStore,
                      const LmString& theStoreKey)
{
    // A binding object is the store that is its base, so this finds what casting theStore down would. The
    // objects come first, which are compared at once.
    return theRecord.boundTo == theStore && theRecord.boundKey == theStoreKey;
}

// FindFirst for an object that has an index.
Hit FindFirstInIndex(const Map& theMap, const LmKeyValueStore* theStore, const LmString& theStoreKey);

// The first record in the whole of theMap that is bound to that key of that store.
inline Hit FindFirst(const Map& theMap, const LmKeyValueStore* theStore, const LmString& theStoreKey)
{
    std::size_t theCount = 0;
    for (const auto& theEntry : theMap) {
        const Records& theRecords = theEntry.second;
        theCount += 1 + theRecords.size();
        if (theCount > kLmFew) {
            return FindFirstInIndex(theMap, theStore, theStoreKey);
        }
        for (const BindingInfo& theRecord : theRecords) {
            if (IsBoundTo(theRecord, theStore, theStoreKey)) {
                return {&theEntry.first, &theRecord};
            }
        }
    }
    return {};
}

// The first record of one entry that is bound to some key of that object, or the end.
Records::iterator FindIn(Map& theMap, Map::iterator theEntry, const LmKeyValueBinding* boundTo);

// Appends a copy of theInfo to the records of bindKey. When memory runs out, nothing has changed.
void Append(Map& theMap, const LmString& bindKey, const BindingInfo& theInfo);

// Takes a record out of its entry; it lives on in theTaken. The entry need not be one of theMap. Needs no
// memory.
void Take(Map& theMap, Map::iterator theEntry, Records::iterator theRecord, Records& theTaken);

// Erases an entry that has no records. Needs no memory.
void EraseEntry(Map& theMap, Map::iterator theEntry);

} // namespace LmBindingIndex

#endif
