// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmKeyValueStore_h
#define LmKeyValueStore_h

#include "LmDebugObject.h"
#include "LmExport.h"
#include "LmString.h"
#include "LmValue.h"

#include <list>
#include <map>

// A key-value store holds named keys, each with one value, and tells observers when a value changes. Every
// binding is a store: its keys are the state of a control, a menu command, a window, a preference domain.
//
//     LmKeyValueStore theStore;
//     theStore.SetKeyPathValue("volume", LmValue(40UL));      // the key comes into being
//     theStore.ObserveKeyPathValue("volume", &theMeter);
//     theStore.SetKeyPathValue("volume", LmValue(55UL));      // theMeter is told before and after
//     theStore.SetKeyPathValue("volume", LmValue(55UL));      // equal: nothing happens
//     theStore.GetKeyPathValue("volume").GetUInt32();         // 55
//
// Words. A key name is a non-empty string other than "*"; names are compared byte by byte. A key path is used
// whole as one key name: "a.b" is the key of this store whose name is those three characters, and no
// path leads into another store. A key state is the record of who observes a key and which keys depend on it.
// It comes into being with the first observation or dependency made, or even tried to be undone, for that
// key, and then stays as long as the store, also when it has become empty.
//
// These rules hold for every call:
//
// - One thread only, mostly the main thread. Everything happens before the call returns. The first call from
//   another thread than the one that used the library first prints a diagnostic, once in a process, and is
//   made all the same; nothing here is safe from that.
// - A bad argument prints "file, line n: condition" on the standard error stream; the call then goes on with
//   the argument as it is. An empty name and "*" are thus used as keys all the same.
// - Nothing throws but a failed allocation, which passes through as std::bad_alloc. The call that it
//   interrupts has then changed nothing, except that observers may have been told of a change that was not
//   made. A value whose own block could not be allocated is not an error: it is invalid.
// - Observers are not owned, and a null observer is not supported. Either side may be destroyed first.
// - Observers are told from copies of the lists. They may set keys, add and remove observers, make and
//   break dependencies; that takes effect from the next pass on. They may even destroy an observer, which
//   is then not told any more, or the store, which ends the pass and the call.
// - A call costs at most a few map look-ups, logarithmic in the number of keys, besides what it says.
//
// Not here: keeping two keys in step (LmKeyValueBinding), and the observer's side (LmKeyValueObserver).

class LmKeyValueObserver;

// The wildcard key: who observes it is told of all keys of the store that have a key state. It never names
// a value.
constexpr const char* kKeyAnyValue = "*";

// The key state: what a store knows of a key besides its value. A copy copies both lists in their order.
struct LmKeyState
{
    std::list<LmString> theDependents;           // the keys that depend on this one, in the order made
    std::list<LmKeyValueObserver*> theObservers; // the observers in the order of registration; not owned
};

// The store itself, usable as it is and as a base.
//
// A derived class that keeps its values elsewhere overrides GetKeyValue and SetKeyValue. These owe each
// other:
//
// - GetKeyValue returns an invalid value for a key that is not there, and changes nothing.
// - After SetKeyValue, GetKeyValue returns the new value or one equal to it; otherwise setting the same value
//   again counts as a change again.
// - Neither tells the observers: SetKeyPathValue does, around SetKeyValue. A derived class that learns of a
//   change from outside calls SetKeyPathValue with the new value.
//
// Order of destruction: the derived class, then all observers are taken off (RemoveObservers), the
// values, the key states. The trace of that shows the store's base description only.
//
// Stores are neither copied nor assigned.
class LM_EXPORT LmKeyValueStore : public LmDebugObject
{
public:
    // ---- Life

    // An empty store.
    LmKeyValueStore();

    // Unregisters all observers; afterwards none of them has a record of this store.
    ~LmKeyValueStore() override;

    LmKeyValueStore(const LmKeyValueStore&) = delete;
    LmKeyValueStore& operator=(const LmKeyValueStore&) = delete;

    // ---- Where values are kept (the virtual functions, after the destructor and GetDebugInfo, in this
    // order)

    // The stored value of a key, or an invalid value when it has none. Never makes a key.
    //
    // Diagnostics: "theKeyName.IsNotEmpty()", "theKeyName != kKeyAnyValue".
    virtual LmValue GetKeyValue(const LmString& theKeyName) const;

    // Stores a value, and nothing else: it is not compared with the old value, and nobody is told.
    // Applications set keys with SetKeyPathValue.
    //
    // Diagnostics: those of GetKeyValue.
    virtual void SetKeyValue(const LmString& theKeyName, const LmValue& theValue);

    // ---- Reading and writing

    // The value of the key whose name is the whole path, or an invalid value. Asks the virtual GetKeyValue.
    //
    // Diagnostics: "theKeyPath.IsNotEmpty()", "theKeyName != kKeyAnyValue", then those of GetKeyValue.
    LmValue GetKeyPathValue(const LmString& theKeyPath) const;

    // Sets a key and tells its observers.
    //
    // Does nothing at all when theValue equals the current value. Otherwise, in order: ValueChanging to the
    // key's observers and those of "*"; the value is stored through SetKeyValue; ValueChanged to the same;
    // ValueChanged to the observers of each dependent key, one level deep. In which order the observers are
    // told, see NotifyObservers. theValue must stay as it is until it is stored.
    //
    // On purpose: numbers are compared as integers, so setting 1.0 where 1.5 is stored changes nothing; and
    // a null string equals nothing, so setting one is always told.
    //
    // On purpose: a key without a key state is silent even to the observers of "*".
    //
    // Observers may set the same key again. A set that is nested in more than 1,000 others of the same key of
    // the same store would hardly ever end: it is reported and changes nothing, and what is under way around
    // it goes on to its end. Until then, no further set that is nested in one of its own key is made either,
    // so that one which comes back on several ways ends too. A set does not count as nested in its own key
    // when none of the 64 nearest around it is of that key. Nothing else limits how deep changes are nested.
    //
    // Diagnostics: those of GetKeyPathValue and SetKeyValue, "HasKey(theKeyName)" when the new value is
    // invalid, and "A set of %s.%s is nested in itself more than %d deep, and is not made". Cost: a constant
    // number of look-ups, plus the observers' own work. Up to sixteen observers, a name of up to 15 bytes and
    // a value without a block of its own need no memory from the heap.
    void SetKeyPathValue(const LmString& theKeyPath, const LmValue& theValue);

    // True for "*" and for a key whose current value is valid. Asks the virtual GetKeyValue.
    //
    // Diagnostics: "theKeyName.IsNotEmpty()".
    bool HasKey(const LmString& theKeyName);

    // ---- Observing

    // Registers theObserver for a key, or for all keys with "*". The key need not exist.
    //
    // On purpose: registering the same observer for the same key again prints diagnostics and registers it
    // twice: it is then told twice, and one IgnoreKeyPathValue ends both.
    //
    // theObserver is not owned and must not be null. Diagnostics: those of IsObserving,
    // "!IsObserving(theKeyPath, theObserver)", then those of the observer's StartedObserving.
    // Cost: the logarithms of the numbers of keys, of the key's observers and of the observer's observations.
    void ObserveKeyPathValue(const LmString& theKeyPath, LmKeyValueObserver* theObserver);

    // Unregisters theObserver for a key. A pass that is under way still tells it.
    //
    // On purpose: when it is not registered, diagnostics are printed, and the key has a key state afterwards.
    //
    // Diagnostics: those of IsObserving, "IsObserving(theKeyPath, theObserver)", then those of the observer's
    // StoppedObserving. Cost: as ObserveKeyPathValue.
    void IgnoreKeyPathValue(const LmString& theKeyPath, LmKeyValueObserver* theObserver);

    // True when theObserver is registered for exactly this path: an observer of "*" is registered for "*"
    // only.
    //
    // Diagnostics: "theKeyPath.IsNotEmpty()", "theObserver != NULL" (the answer for null is false).
    bool IsObserving(const LmString& theKeyPath, LmKeyValueObserver* theObserver);

    // Unregisters every observer of every key, by ascending key name and in the order of registration.
    //
    // Needs no memory while tracing is off.
    void RemoveObservers();

    // Tells the observers of a key and those of "*": ValueChanged when it has changed, ValueChanging when it
    // is about to. Called by SetKeyPathValue; a derived class whose key has changed by itself may call it
    // too.
    //
    // The key's observers keep the order of their registration among themselves, and so do those of "*". The
    // two lists are merged by one step of a merge sort on the observers' addresses: while both lists have
    // observers left, the next one of "*" is taken when its address is the lower one, else the next one of
    // the key. An observer of both is told twice.
    //
    // On purpose: the lists are merged as if they were in the order of addresses, which they need not be;
    // nothing is sorted. And a key without a key state reaches nobody, observers of "*" included.
    //
    // Ends early when an observer destroys the store.
    void NotifyObservers(const LmString& theKeyName, bool hasChanged);

    // ---- Dependencies

    // From now on, a change of watchedKey is also told to the observers of dependentKey, as ValueChanged
    // alone.
    //
    // The dependent key's value is neither read nor stored. Dependencies are not followed further: a
    // change of A tells B, which depends on A, and not C, which depends on B; so cycles do no harm.
    // A dependent key without a key state of its own reaches nobody.
    //
    // On purpose: a dependency made twice prints a diagnostic and tells twice.
    //
    // Diagnostics: "watchedKey != kKeyAnyValue", "dependentKey != kKeyAnyValue", those of IsDependent,
    // "!IsDependent(watchedKey, dependentKey)". The dependency is made in any case. Cost: linear in the
    // dependents of watchedKey.
    void MakeDependency(const LmString& watchedKey, const LmString& dependentKey);

    // Undoes MakeDependency, however often the same dependency was made.
    //
    // On purpose: when there is no such dependency, a diagnostic is printed, and watchedKey has a key state
    // afterwards.
    //
    // Diagnostics: as MakeDependency, with "IsDependent(watchedKey, dependentKey)". Cost: the same.
    void BreakDependency(const LmString& watchedKey, const LmString& dependentKey);

    // True when dependentKey is among the dependents of theKeyName.
    //
    // Diagnostics: "HasKey(theKeyName)", "HasKey(dependentKey)" when they hold no valid value; each after
    // the diagnostic of HasKey itself.
    bool IsDependent(const LmString& theKeyName, const LmString& dependentKey);

    // Tells the observers of each dependent of a key, as NotifyObservers(name, true) does, in the order in
    // which the dependencies were made. Called by SetKeyPathValue as its last step. Works on a copy of the
    // list.
    //
    // Diagnostics: "HasKey(theKeyName)".
    void NotifyDependents(const LmString& theKeyName);

private:
    std::map<LmString, LmKeyState> mKeyStates; // observers and dependents by key; an entry stays, but for one
                                               // just made by an observation that runs out of memory
    std::map<LmString, LmValue> mValues;       // the values by key; entries are never erased
};

#endif
