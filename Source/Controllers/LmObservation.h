// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmObservation_h
#define LmObservation_h

#include "LmExport.h"
#include "LmString.h"
#include "LmValue.h"

#include <functional>

// An observation is a function that is called when a key changes. It lasts as long as the object does.
//
//     LmObservation theObservation(&theModel, "volume", [&](const LmChange& theChange) {
//         theMeter.Move(theChange.theOldValue.GetSInt32(), theChange.theNewValue.GetSInt32());
//     });
//     theModel.SetKeyPathValue("volume", LmValue(55)); // the meter moves from 40 to 55
//
// It saves a class derived from LmKeyValueObserver, and the care for its life. Where an object is told of
// many keys and answers with its own state, the class is the better way.
//
// These rules hold:
//
// - The store and the observation may be destroyed in any order, also while the function runs. When the store
//   goes first, the function is not called any more.
// - The function may do anything: end or move the observation, destroy what it has captured, destroy the
//   store, set keys, begin other observations. It is called no more once the observation has ended, not even
//   in a pass that has begun, and is kept until the calls that are under way have returned.
// - An observation that begins while a change is told takes part from the next pass on. One that begins in
//   ValueChanging, or in a function that is called before a change, is thus told of that change after it.
// - An exception that leaves the function passes through to whoever set the key; what is told is then in the
//   state that other observers leave it in.
// - Main thread only.

class LmKeyValueStore;

// What an observation's function is told. All of it is good for the time of the call.
struct LmChange
{
    const LmKeyValueStore* theStore; // the store whose key it is; never null
    const LmString& theKeyName;      // the key, also for an observation of "*"
    const LmValue& theOldValue;      // what the key held; invalid when it held nothing, or nobody can know
    const LmValue& theNewValue;      // what it holds now; invalid before a change
};

// When an observation's function is called.
enum LmChangeTime
{
    kAfterChange, // when the new value is stored, and when a key that this one depends on has changed
    kBeforeChange // before it is stored. The new value is nowhere yet
};

// The observation, which an application keeps where it keeps what the function uses.
class LM_EXPORT LmObservation
{
public:
    // What is called.
    using Function = std::function<void(const LmChange& theChange)>;

    // ---- Life

    // Observes nothing.
    LmObservation() noexcept = default;

    // Observes a key of theStore, or all of its keys with "*", from now on. theFunction is kept until the
    // observation ends. With a null store, or an empty function, nothing is observed.
    //
    // The function is called when an observer of the key would be told, in the place that an observer has
    // which is registered now (see LmKeyValueStore::NotifyObservers): so it is not called when an equal value
    // is set, and "*" is about keys that have a key state.
    //
    // The old values form a chain: what the function is told as the old value is what it was told as the new
    // one before, or what the key held when the observation began. So one that adds up differences is right
    // even where another observer sets the key again, and a key that depends on others has an old value too.
    // For "*", the chain of a key begins with its first change; where that reaches it through a dependency,
    // its first old value is invalid.
    //
    // When memory runs out, nothing is observed.
    //
    // Cost: that of
    // observing; for each call one look-up of the key's last value and one read of the key. A copy of the
    // last value of each key that has changed is kept.
    [[nodiscard]] LmObservation(LmKeyValueStore* theStore, const LmString& theKeyPath, Function theFunction,
                                LmChangeTime theTime = kAfterChange);

    // Goes over to another object; the one that it was ends its own first, and this one observes nothing.
    LmObservation(LmObservation&& theOther) noexcept;
    LmObservation& operator=(LmObservation&& theOther) noexcept;

    // Ends it.
    ~LmObservation();

    LmObservation(const LmObservation&) = delete;
    LmObservation& operator=(const LmObservation&) = delete;

    // ---- What becomes of it

    // Ends the observation, and lets go of the function, unless it is running. Without one nothing happens.
    // Needs no memory while tracing is off.
    void End() noexcept;

    // True while the function can be called: the observation has not ended, and the store lives. Never prints
    // anything.
    [[nodiscard]] bool IsObserving() const;

private:
    class LM_HIDDEN Observer;

    Observer* mObserver =
        nullptr; // what the store knows; on the heap, so that this object can move. Held until End
};

#endif
