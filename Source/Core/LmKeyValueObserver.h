// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmKeyValueObserver_h
#define LmKeyValueObserver_h

#include "LmDebugObject.h"
#include "LmExport.h"
#include "LmString.h"

#include <list>

// An observer is told twice about every change of a key that it watches: ValueChanging before the new value
// is stored, ValueChanged after it. A change that reaches a key through a dependency is told with
// ValueChanged alone.
//
//     class VolumeMeter : public LmKeyValueObserver
//     {
//     public:
//         void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName) override
//         {
//             Show(theStore->GetKeyPathValue(theKeyName).GetDouble());
//         }
//     };
//
//     VolumeMeter theMeter;
//     theStore.ObserveKeyPathValue("volume", &theMeter); // from here on the meter is told of changes
//     theStore.SetKeyPathValue("volume", LmValue(0.5));
//
// An observation always begins with the store's ObserveKeyPathValue and ends with its IgnoreKeyPathValue. It
// is recorded on both sides, and neither side owns the other: whichever dies first takes itself off the
// other's record, so a store and its observers may be destroyed in any order.
//
// The rules for all of the library hold here too: main thread only; a bad argument prints a line on the
// standard error stream and the call goes on; nothing throws but a failed allocation, which passes through as
// std::bad_alloc.

class LmKeyValueStore;

// One observation, as the observer records it.
struct LmObservedKey
{
    LmKeyValueStore* theStore; // the store that is watched; not owned
    LmString theKeyPath;       // the key of theStore, or "*" for all of them

    // True when this record stands for theOtherStore and theOtherPath.
    bool IsFor(const LmKeyValueStore* theOtherStore, const LmString& theOtherPath) const
    {
        return theStore == theOtherStore && theKeyPath == theOtherPath;
    }

    // True for two records of the same store and an equal key path.
    bool operator==(const LmObservedKey& theOther) const
    {
        return IsFor(theOther.theStore, theOther.theKeyPath);
    }
};

// The base of everything that watches keys. A derived class overrides ValueChanging, ValueChanged or both.
//
// Observers are told from a copy of the store's list. While being told, an observer may set keys of any
// store and add or remove observations, its own included; that takes effect from the next pass on,
// so an observer whose observation ends during a pass is still told in that pass. Only one that is destroyed
// is not; an observer may be destroyed at any time, even by itself while it is being told.
//
// Order of destruction: the derived class first, then every observation ends (see StopObserving). Nothing
// is told to an observer that is being destroyed, but the trace shows its base description only.
//
// Observers are neither copied nor assigned: the stores know them by their address.
class LM_EXPORT LmKeyValueObserver : public LmDebugObject
{
public:
    // ---- Life

    // An observer of nothing.
    LmKeyValueObserver();

    // Ends all observations as StopObserving does.
    ~LmKeyValueObserver() override;

    LmKeyValueObserver(const LmKeyValueObserver&) = delete;
    LmKeyValueObserver& operator=(const LmKeyValueObserver&) = delete;

    // ---- Being told (the virtual functions, after the destructor and GetDebugInfo, in this order)

    // Called before the new value of theKeyName is stored: reading the key from theStore gives the old value.
    //
    // theStore is the store whose key changes; not owned, never null. theKeyName is the name of that key,
    // also for an observer of "*". Does nothing unless overridden.
    virtual void ValueChanging(const LmKeyValueStore* theStore, const LmString& theKeyName);

    // Called after the new value of theKeyName has been stored, and when a key that theKeyName depends on has
    // changed. The parameters are those of ValueChanging. Does nothing unless overridden.
    //
    // On purpose: where "*" has been made a dependent key, its observers receive the name "*", and each of
    // them twice.
    virtual void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName);

    // ---- Observations

    // True while this object observes theKeyPath of theStore. An observation of "*" counts for the path "*"
    // only.
    //
    // Diagnostics: "theStore != NULL", "theKeyPath.IsNotEmpty()". Cost: the logarithm of the number of
    // observations.
    bool AmObserving(LmKeyValueStore* theStore, const LmString& theKeyPath);

    // Ends every observation of this object, in all stores, in the order in which they were made.
    //
    // Needs no memory while tracing is off. Diagnostics, for each: those of AmObserving, then
    // "AmObserving(theKey.theStore, theKey.theKeyPath)".
    void StopObserving();

    // ---- For the store only

    // Records an observation that theStore has just begun; called by ObserveKeyPathValue and nobody else.
    //
    // On purpose: an observation that is on record already prints a diagnostic and is recorded again.
    // Diagnostics: "theStore != NULL", those of AmObserving, "!AmObserving(theStore, theKeyPath)".
    void StartedObserving(LmKeyValueStore* theStore, const LmString& theKeyPath);

    // Removes every record of the observation that theStore has just ended; called by IgnoreKeyPathValue and
    // nobody else. theKeyPath may be the path inside such a record.
    //
    // Diagnostics: "theStore != NULL", those of AmObserving, "AmObserving(theStore, theKeyPath)".
    void StoppedObserving(LmKeyValueStore* theStore, const LmString& theKeyPath);

private:
    std::list<LmObservedKey> mKeys; // the observations, oldest first; erased by StoppedObserving
};

#endif
