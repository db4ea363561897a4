// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmLifeWatch_h
#define LmLifeWatch_h

#include "LmExport.h"
#include "LmStackLink.h"

class LmKeyValueStore;

// Tells a function that calls out whether the store it works for still lives. For authors of bindings and
// stores.
//
// Observers and event handlers may do anything, disposing the control whose binding just called them
// included, and such a binding deletes itself. A member function that calls out and then goes on with its
// members therefore keeps a watch on its own store across the call:
//
//     const LmLifeWatch theWatch(this);
//     mLamp.SetBrightness(theBrightness); // tells its listeners
//     if (theWatch.IsGone()) {
//         return;
//     }
//
// A watch owns nothing, and the store does not know of it: watches form a list from the innermost outwards,
// which the destructor of every store walks. So a watch lives on the stack only, and ends before the ones
// that began earlier. Any number may be on the same store. Main thread only. Cost: a call and a few
// instructions at either end, and no memory.
class LM_EXPORT LmLifeWatch : private LmStackLink<LmLifeWatch>
{
public:
    // Watches theStore, which may be null: then it is gone from the start.
    [[nodiscard]] explicit LmLifeWatch(const LmKeyValueStore* theStore);
    ~LmLifeWatch();

    LmLifeWatch(const LmLifeWatch&) = delete;
    LmLifeWatch& operator=(const LmLifeWatch&) = delete;

    // True once the store has been destroyed.
    [[nodiscard]] bool IsGone() const { return mStore == nullptr; }

    // Called by the destructor of every store, and by nobody else.
    LM_HIDDEN static void StoreIsGone(const LmKeyValueStore* theStore);

private:
    friend class LmStackLink<LmLifeWatch>;

    LM_HIDDEN static LmLifeWatch* sInnermost; // null while there is none

    const LmKeyValueStore* mStore; // null once the store is gone; not owned
};

#endif
