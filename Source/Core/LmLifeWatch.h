// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmLifeWatch_h
#define LmLifeWatch_h

class LmKeyValueStore;

// Tells a function that calls out whether the store it works for still lives. Not part of the interface.
//
// Observers and event handlers may do anything, disposing the control whose binding just called them
// included, and such a binding deletes itself. A member function that calls out and then goes on with its
// members therefore keeps a watch on its own store across the call:
//
//     LmLifeWatch theWatch(this);
//     theObserver->ValueChanged(this, theKeyName);
//     if (theWatch.IsGone()) {
//         return;
//     }
//
// A watch lives on the stack only: watches form a list from the innermost outwards, which the destructor of
// the store walks. Making one costs a few instructions and no memory.
class LmLifeWatch
{
public:
    explicit LmLifeWatch(const LmKeyValueStore* theStore)
        : mStore(theStore),
          mOuter(sInnermost)
    {
        sInnermost = this;
    }
    ~LmLifeWatch() { sInnermost = mOuter; }

    LmLifeWatch(const LmLifeWatch&) = delete;
    LmLifeWatch& operator=(const LmLifeWatch&) = delete;

    // True once the store has been destroyed.
    bool IsGone() const { return mStore == nullptr; }

    // True while theStore lives and is the one that is watched.
    bool IsOn(const LmKeyValueStore* theStore) const { return mStore == theStore; }

    // Called by the destructor of every store.
    static void StoreIsGone(const LmKeyValueStore* theStore)
    {
        for (LmLifeWatch* theWatch = sInnermost; theWatch != nullptr; theWatch = theWatch->mOuter) {
            if (theWatch->mStore == theStore) {
                theWatch->mStore = nullptr;
            }
        }
    }

private:
    static inline LmLifeWatch* sInnermost = nullptr;

    const LmKeyValueStore* mStore; // null once the store is gone; not owned
    LmLifeWatch* mOuter;           // the watch that was made before this one; on the stack, not owned
};

#endif
