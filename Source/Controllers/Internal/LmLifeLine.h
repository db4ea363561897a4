// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmLifeLine_h
#define LmLifeLine_h

#include "LmKeyValueObserver.h"
#include "LmKeyValueStore.h"

// Tells whether a store still lives, for as long as one likes. LmLifeWatch does that for the time of a call.
//
//     LmLifeLine theLine(theStore);
//     RunTheEventLoop();
//     if (theLine.IsAttached()) {
//         theStore.SetKeyPathValue("value", theValue);
//     }
//
// It observes a key of the store that nobody sets: a store that goes takes all of its observers off, and an
// application that takes them off itself (RemoveObservers) cuts the line too. The key has a key state from
// then on, and no value. Cost: that of observing, and of one look-up for each question.
class LmLifeLine : private LmKeyValueObserver
{
public:
    // The key that is observed. Its name begins with a letter, so that a store finds the state of "*" first.
    static constexpr const char* kKey = "LmLifeLine";

    // Attached to theStore. When memory runs out, there is none.
    explicit LmLifeLine(LmKeyValueStore& theStore)
        : mStore(&theStore)
    {
        Attach(theStore, *this);
    }
    ~LmLifeLine() override = default;

    LmLifeLine(const LmLifeLine&) = delete;
    LmLifeLine& operator=(const LmLifeLine&) = delete;

    // The store whose line this is; perhaps gone.
    [[nodiscard]] LmKeyValueStore* GetStore() const { return mStore; }

    // True while the store lives.
    [[nodiscard]] bool IsAttached() { return IsAttached(mStore, *this); }

    // The same for an observer that is there anyway, and observes other keys as well.
    static void Attach(LmKeyValueStore& theStore, LmKeyValueObserver& theObserver)
    {
        theStore.ObserveKeyPathValue(kKey, &theObserver);
    }
    [[nodiscard]] static bool IsAttached(LmKeyValueStore* theStore, LmKeyValueObserver& theObserver)
    {
        // The address is compared only.
        return theObserver.AmObserving(theStore, kKey);
    }

private:
    LmKeyValueStore* const mStore; // not owned
};

#endif
