// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmKeyValueBinding_h
#define LmKeyValueBinding_h

#include "LmExport.h"
#include "LmKeyValueObserver.h"
#include "LmKeyValueStore.h"
#include "LmString.h"

#include <CoreFoundation/CoreFoundation.h>
#include <list>
#include <map>

// A binding object is a store and an observer at once. It ties keys of its own to keys of other binding
// objects: each change of the other key is copied into its own, on the way through a transform if one is
// given.
//
//     LmKeyValueBinding theModel;
//     theModel.SetKeyPathValue("volume", LmValue(40UL));
//     LmControlBinding* theSlider = new LmControlBinding(theWindow, kVolumeSlider);
//     LmControlBinding* theLabel = new LmControlBinding(theWindow, kVolumeLabel);
//     theSlider->Bind("value", &theModel, "volume", NULL, NULL); // both ways: they follow each other
//     theLabel->BindTo("value", &theModel, "volume", new LmToStringTransform); // one way: the model drives
//
// How a change travels. Let A.Bind("a", &B, "b", t, r). Setting B's "b" to x tells A, which reads x from B
// and sets its own "a" to t(x); that tells B, which sets "b" to r(t(x)). Where r undoes t this equals x, and
// setting an equal value ends the round. On purpose: that comparison is what ends it. Transforms that do not
// undo each other keep the values moving until they settle; where they never do, the round ends with a
// diagnostic when a set is nested in a thousand others of its key (see LmKeyValueStore::SetKeyPathValue).
//
// Ownership. A binding object does not own the objects that it is bound to; the application owns them all. A
// transform handed to Bind or BindTo is adopted: the caller's reference becomes the binding's, which
// gives it back when the binding is removed. To keep a transform, or to hand it out twice, call Retain once
// for each further holder. A transform may own the object that its values come from, and take it along when
// it dies; its destructor must not touch the object that was bound, nor destroy it.
//
// Lifetime. Destroying an object removes all bindings that it made, and the other half of its two-way
// bindings. It does not reach one-way bindings that others made to its keys: these must be removed with the
// others' Unbind before, for the others keep a pointer to it.
//
// The rules of LmKeyValueStore hold here too: main thread only, diagnostics instead of failures, only a
// failed allocation throws. A null boundTo is not supported where it is not said otherwise.

class LmKeyValueBinding;
class LmValueTransform;

// One record: a key of mine takes its value from that key of that object. Copies share the transform's
// reference.
struct BindingInfo
{
    LmKeyValueBinding* boundTo;  // the other object; not owned, never null in a stored record
    LmString boundKey;           // the key of boundTo whose changes are copied
    LmValueTransform* transform; // what values pass through on their way here, or null; the record holds
                                 // one reference
};

// The binding object, usable as it is for a model and as the base of the bindings of controls, menus, windows
// and preferences.
//
// A derived class overrides SetKeyValue to show the value in its own object, calling
// LmKeyValueStore::SetKeyValue to keep it; or both SetKeyValue and GetKeyValue to keep it elsewhere. When its
// object changes by itself, it calls SetKeyPathValue, which tells the bound objects.
//
// The observer base comes first. Stores know a binding object as an observer by that base; observers
// receive the store base, and get back to the binding by a dynamic_cast.
class LM_EXPORT LmKeyValueBinding : public LmKeyValueObserver, public LmKeyValueStore
{
public:
    // ---- Life

    // An empty store that observes nothing.
    LmKeyValueBinding();

    // Removes all bindings of this object, then its observers, then its observations.
    ~LmKeyValueBinding() override;

    // ---- The virtual functions, in this order

    // "[LmKeyValueBinding 0x0804A1B0]", with the address of the store base.
    LmString GetDebugInfo() const override;

    // Called by an observed store: copies the changed value into the key that is bound to it, through the
    // transform. A result that is not valid is copied as well.
    //
    // On purpose: only one record is served, the first in the order of this object's keys and, within a key,
    // in the order of binding. Of two keys bound to the same key of the same object, only the one that sorts
    // first follows. Changes of stores that this object is not bound to are ignored.
    //
    // A transform may do anything while it works, even remove the binding that it works for: its result is
    // still copied, unless it has destroyed this object. Cost of the search: the logarithm of the number of
    // this object's bindings.
    void ValueChanged(const LmKeyValueStore* theStore, const LmString& theKeyName) override;

    // Whether others may bind to this key. Every key but "*", unless overridden.
    virtual bool IsBindable(const LmString& theKeyName);

    // ---- Binding

    // Binds bindKey of this object and boundKey of boundTo both ways.
    //
    // transform converts values coming from boundTo, reverseTransform those going there; either may be null,
    // and both are adopted. When boundKey's value (transformed) is valid, it is copied into bindKey at once,
    // and observers are told; boundTo is told too, so its own key is set to the value that reverseTransform
    // gives back.
    //
    // Result: noErr, or paramErr when a key is not bindable; then nothing has changed, and the transforms
    // are still the caller's. On purpose: binding the same pair again makes a second record, but no second
    // observation; one Unbind then ends the observation for both.
    //
    // When memory runs out before both sides are linked, nothing is bound, and the transforms are still the
    // caller's. When it runs out later, while the first value is copied, the binding stands.
    //
    // Diagnostics: "bindKey.IsNotEmpty()", "boundKey.IsNotEmpty()"; the keys are bound all the same.
    OSStatus Bind(const LmString& bindKey, LmKeyValueBinding* boundTo, const LmString& boundKey,
                  LmValueTransform* transform, LmValueTransform* reverseTransform);

    // Binds one way: boundKey of boundTo drives bindKey of this object. Otherwise as Bind.
    //
    // On purpose: whether bindKey itself is bindable is not asked, for nobody observes it.
    OSStatus BindTo(const LmString& bindKey, LmKeyValueBinding* boundTo, const LmString& boundKey,
                    LmValueTransform* transform);

    // Removes bindings of boundKey, which here is this object's own key: the oldest one with boundTo, or
    // all of them when boundTo is null.
    //
    // The values stay as they are, and nobody is told. The other half of a two-way binding goes too. This
    // object stops observing the other key, on purpose even when another of its bindings uses it still.
    //
    // Result: noErr, also when there is no binding with boundTo; paramErr when nothing was ever bound to the
    // key. Diagnostics: "boundKey.IsNotEmpty()"; and, on purpose, an error line with the status -50 for
    // each one-way binding removed, where the other object has no bindings of its key. Cost, as that of
    // binding: the logarithms of the numbers of bindings, observations and observers of the two sides. Where
    // boundTo is bound many times, it may be linear in that number and in the bindings of the key.
    OSStatus Unbind(const LmString& boundKey, LmKeyValueBinding* boundTo);

    // Removes all bindings of this object, key by key in ascending order. Needs no memory while tracing is
    // off.
    void UnbindAll();

protected:
    // The records of one key in the order of binding, and those of all keys.
    using BindingList = std::list<BindingInfo>;
    using BindingMap = std::map<LmString, BindingList>;

    // ---- Inner steps

    // What Bind and BindTo have in common: the records on both sides, the observations, the first value.
    // Always noErr.
    //
    // Diagnostics: "bindKey.IsNotEmpty()", "boundKey.IsNotEmpty()", "boundTo != NULL".
    OSStatus CreateBinding(const LmString& bindKey, bool twoWay, LmKeyValueBinding* boundTo,
                           const LmString& boundKey, LmValueTransform* transform,
                           LmValueTransform* reverseTransform);

    // Appends a copy of theInfo to the records of bindKey. The copy takes over the reference to the
    // transform.
    void AddBinding(const LmString& bindKey, const BindingInfo& theInfo);

    // Removes one record, which theEntry's list holds at theRecord, with everything that it implied: the
    // reference to the transform, the observation, the mirror record in boundTo. The entry stays.
    //
    // bindKey is the key of theEntry, boundTo the other object of the record. Diagnostics: "boundTo != NULL".
    void RemoveBinding(BindingMap::iterator theEntry, BindingList::iterator theRecord,
                       const LmString& bindKey, LmKeyValueBinding* boundTo);

private:
    BindingMap mBindings; // the records by own key, in the order of binding; entries are erased by Unbind
                          // with a null object
};

#endif
