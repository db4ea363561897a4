// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmKeyMemo_h
#define LmKeyMemo_h

#include "LmKeyValueStore.h"
#include "LmStackLink.h"

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
    const auto theEntry = theMap.find(theName);
    return theEntry != theMap.end() ? &theEntry->second : nullptr;
}

// The same, kept for the next time. What a set has found in a store's maps stays there, and what it has not
// found can have come only when the map has grown.
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

// So many sets of a key may be under way around another one of the same key.
constexpr int kLmDeepest = 1000;

// Counts the changes that are under way, so that hardly anything is spent on the question whether one is
// nested in itself too deep. Not part of the interface.
class [[nodiscard]] LmChangeDepth
{
public:
    LmChangeDepth() { sLeft -= 1; }
    ~LmChangeDepth() { sLeft += 1; }

    LmChangeDepth(const LmChangeDepth&) = delete;
    LmChangeDepth& operator=(const LmChangeDepth&) = delete;

    // True when there are enough around this one to ask.
    bool IsWorthAsking() const { return sLeft < 0; }

    // From now on it is worth asking at every depth, or again in great depth only.
    static void AskAlways(bool isAlways);

private:
    static inline int sLeft = kLmDeepest + 1; // how many more there may be before it is worth asking
};

// Where the value of a key is kept, while that key is being set. Both virtual steps of that, and most
// observers, ask for the same value again, by a reference to the very string that the set works with; those
// are answered from here. Also tells the set whether its store still lives, and whether it is nested in
// itself too deep. Not part of the interface.
//
// A memo lives on the stack only; only the innermost one is asked.
class [[nodiscard]] LmKeyMemo : private LmStackLink<LmKeyMemo>
{
public:
    LmKeyMemo(const LmKeyValueStore* theStore, const LmString& theKeyName, const LmValue& theNewValue)
        : mStore(theStore),
          mKeyName(&theKeyName),
          mNewValue(&theNewValue)
    {
    }

    LmKeyMemo(const LmKeyMemo&) = delete;
    LmKeyMemo& operator=(const LmKeyMemo&) = delete;

    // The memo of that store and that very string, or null.
    static LmKeyMemo* Of(const LmKeyValueStore* theStore, const LmString& theKeyName)
    {
        const bool isIt =
            sInnermost != nullptr && sInnermost->mKeyName == &theKeyName && sInnermost->mStore == theStore;
        return isIt ? sInnermost : nullptr;
    }

    // True once the store has been destroyed.
    bool IsGone() const { return mStore == nullptr; }

    // Whether this set, which is deep in others, must not be made: when more than kLmDeepest sets of the same
    // key are under way around it. That is reported, once for all that happens in the outermost set; until
    // that has ended, no set that is nested in itself is made any more. What comes back on several ways would
    // else begin anew on each of them and never end.
    [[gnu::cold]] bool IsTooDeep() const;

    // Called by the destructor of every store.
    static void StoreIsGone(const LmKeyValueStore* theStore);

    // What the key is being set to; good until it is stored.
    const LmValue& GetNewValue() const { return *mNewValue; }

    LmFound<LmValue> mValue; // the key's value

private:
    friend class LmStackLink<LmKeyMemo>;

    bool IsOfSameKeyAs(const LmKeyMemo& theOther) const;
    int CountSameKeyAround() const;

    static inline LmKeyMemo* sInnermost = nullptr;

    const LmKeyValueStore* mStore; // null once the store is gone; not owned
    const LmString* mKeyName;      // the string that the set works with; not owned
    const LmValue* mNewValue;      // as the caller has it; not owned
};

#endif
