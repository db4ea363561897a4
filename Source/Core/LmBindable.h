// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmBindable_h
#define LmBindable_h

#include "LmExport.h"
#include "LmKeyValueBinding.h"
#include "LmKeyValueObserver.h"

// The base of an application's own objects that take part in bindings: it owns a binding object, whose keys
// are the object's bindable properties, and observes all of them.
//
//     class Thermostat : public LmBindable
//     {
//     public:
//         Thermostat() { GetBindings()->SetKeyPathValue("target", LmValue(20UL)); }
//
//         void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName) override
//         {
//             Heat(theStore->GetKeyPathValue(theKeyName).GetUInt32());
//         }
//     };
//
//     Thermostat theThermostat;
//     theSlider->Bind("value", theThermostat.GetBindings(), "target", NULL, NULL);
//
// The object itself is neither a store nor a binding object: others bind to GetBindings(). The rules of
// LmKeyValueStore hold here too.

// A derived class overrides ValueChanged, ValueChanging or both, and is told of every change of its keys, no
// matter whether a binding or the application's code made it.
//
// On purpose: it is told as an observer of "*", so only of keys that have a key state: those that somebody
// has bound both ways or as a source, observed by name, or made others depend on. A key that only the
// application sets is silent.
//
// Order of destruction: the derived class, the binding object with all its bindings and observers, then
// the observer base.
class LM_EXPORT LmBindable : public LmKeyValueObserver
{
public:
    // An object without keys that observes "*" of its binding object; IgnoreChanges is false.
    LmBindable();

    // Removes all bindings of the object's keys that the binding object knows of. See LmKeyValueBinding about
    // one-way bindings that others made: they must be removed before.
    ~LmBindable() override;

    // The binding object on which keys are set, read, observed and bound. Owned by this object, never null.
    LmKeyValueBinding* GetBindings() { return &mBinding; }

    // A flag for derived classes, such as: the change comes from me, do not react. The library only keeps it.
    bool IgnoreChanges() { return mIgnoreChanges; }
    void SetIgnoreChanges(bool isIgnoring) { mIgnoreChanges = isIgnoring; }

private:
    bool mIgnoreChanges;        // the flag
    LmKeyValueBinding mBinding; // the keys and their bindings
};

#endif
