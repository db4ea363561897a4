// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmKeyMemo_h
#define LmKeyMemo_h

#include "LmKeyValueStore.h"
#include "LmLifeWatch.h"

#include <cstddef>

// The entry of theName in one of a store's maps, or null. A function of its own, so that those who need it
// seldom stay short.
template <typename Entry>
[[gnu::noinline]] const Entry* LmFind(const std::map<LmString, Entry>& theMap, const LmString& theName)
{
    if (theMap.size() == 1) {
        // Most objects of a user interface have one key, which is found by one comparison instead of two.
        const auto& theOnly = *theMap.begin();
        return theOnly.first == theName ? &theOnly.second : nullptr;
    }
    const auto thePlace = theMap.find(theName);
    return thePlace != theMap.end() ? &thePlace->second : nullptr;
}

// The same, kept for the next time. Entries of a store's maps are never erased: what is there stays there,
// and what is not there can have come only when the map has grown.
template <typename Entry>
class LmFound
{
public:
    // The entry of theName, or null. Both arguments must be the same each time.
    const Entry* In(const std::map<LmString, Entry>& theMap, const LmString& theName)
    {
        if (mEntry == nullptr && mSize != theMap.size()) {
            mEntry = LmFind(theMap, theName);
            mSize = theMap.size();
        }
        return mEntry;
    }

private:
    const Entry* mEntry = nullptr; // belongs to the map
    std::size_t mSize = 0;         // of the map when it was searched
};

// What has been found of a key while it is being set. Each step of that, and most observers, ask for the
// same key again, by a reference to the very string that the set works with; those are answered from here.
// Also a watch on the store. Not part of the interface.
//
// A memo lives on the stack only; only the innermost one is asked.
class LmKeyMemo : public LmLifeWatch
{
public:
    LmKeyMemo(const LmKeyValueStore* theStore, const LmString& theKeyName)
        : LmLifeWatch(theStore),
          mKeyName(&theKeyName),
          mOuter(sInnermost)
    {
        sInnermost = this;
    }
    ~LmKeyMemo() { sInnermost = mOuter; }

    LmKeyMemo(const LmKeyMemo&) = delete;
    LmKeyMemo& operator=(const LmKeyMemo&) = delete;

    // The memo of that store and that very string, or null.
    static LmKeyMemo* Of(const LmKeyValueStore* theStore, const LmString& theKeyName)
    {
        const bool isIt =
            sInnermost != nullptr && sInnermost->mKeyName == &theKeyName && sInnermost->IsOn(theStore);
        return isIt ? sInnermost : nullptr;
    }

    LmFound<LmValue> mValue;    // the key's value
    LmFound<LmKeyState> mState; // the key's state

private:
    static inline LmKeyMemo* sInnermost = nullptr;

    const LmString* mKeyName; // the string that the set works with; not owned
    LmKeyMemo* mOuter;        // the memo that was made before; on the stack, not owned
};

#endif
