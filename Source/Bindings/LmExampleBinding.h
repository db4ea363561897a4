// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmExampleBinding_h
#define LmExampleBinding_h

#include "LmExport.h"
#include "LmKeyValueBinding.h"

#include <Carbon/Carbon.h>

// The pattern of a binding for an application's own model object: the smallest complete binding. It has the
// shape of the bindings for controls and windows, with a plain pointer in place of the Carbon object, and
// with a notification that the model calls in place of Carbon events.
//
// Copy both of its files and fill them in: in ReadModel read your model's properties, in WriteModel write
// them, and let the model call DoEventFromModel when one changes by itself. They include nothing but the
// interface. As it stands the class works, with constants for the properties:
//
//     "one"     boolean true
//     "two"     unsigned 32-bit 0
//     "three"   a string value that holds no string
//
// Unlike the bindings for Carbon objects it never deletes itself: the application owns it, and detaches
// or deletes it before the model goes away.
class LM_EXPORT LmExampleBinding : public LmKeyValueBinding
{
public:
    // A binding without a model: its keys are only stored.
    LmExampleBinding();

    // Removes all bindings. The model is not touched.
    ~LmExampleBinding() override;

    LmExampleBinding(const LmExampleBinding&) = delete;
    LmExampleBinding& operator=(const LmExampleBinding&) = delete;

    // "[Model 0x804A1B0]": the model's address, 0 when there is none.
    LmString GetDebugInfo() const override;

    // The model, or null. Not owned.
    void* GetModel() const { return mModel; }

    // Attaches theModel, which stays the application's; null detaches it. The keys then take the model's
    // state, in the order "one", "two", "three"; observers hear of each that changed, and nothing is written
    // into the model. Detaching leaves the keys as they are.
    void SetModel(void* theModel);

    // Reads the model's state for theKey into the key. Observers hear of it when the value differs. Any other
    // key than the three changes nothing.
    void SyncValue(const LmString& theKey);

    // To be called by the model when one of its properties has changed: 1 for "one", 2 for "two", 3 for
    // "three". Copies the property into its key; any other number does nothing.
    void DoEventFromModel(UInt32 theEvent);

    // Where a real binding writes theValue into its model, unless the value comes from the model itself; then
    // stores it. Called by the store's SetKeyPathValue, which notifies.
    void SetKeyValue(const LmString& theKey, const LmValue& theValue) override;

private:
    void WriteModel(const LmString& theKey, const LmValue& theValue);
    LmValue ReadModel(const LmString& theKey) const;

    void* mModel;      // the application's model, or null; not owned
    bool mUpdateModel; // set keys are written into the model; clear while copying from it
};

#endif
