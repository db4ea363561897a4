// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmUpdateScope_h
#define LmUpdateScope_h

#include "LmLifeWatch.h"

#include <cstddef>
#include <initializer_list>

// Keeps a binding's update flag clear while the state of its object is copied into the keys, so that the
// copies are not written back into the object. For authors of bindings; LmExampleBinding is the pattern.
//
//     void LampBinding::LampHasChanged()
//     {
//         const LmUpdateScope theScope(this, mUpdateLamp);
//         SetKeyPathValue("brightness", LmValue(mLamp.GetBrightness()));
//     }
//
//     void LampBinding::SetKeyValue(const LmString& theKey, const LmValue& theValue)
//     {
//         if (mUpdateLamp && theKey == "brightness") {
//             mLamp.SetBrightness(theValue.GetSInt32());
//         }
//         LmKeyValueStore::SetKeyValue(theKey, theValue);
//     }
//
// The flag is a member of the binding that begins as true. It is set again on every way out of the scope.
//
// Whoever hears of a copied value hears of it within the scope, and may do anything. The binding may be
// destroyed meanwhile: the flag is then not touched any more, BindingIsGone says so, and the function that
// made the scope returns without using a member. Or the object changes once more, and another scope on the
// same flag begins and ends within this one. On purpose: the flag is set then, although this scope goes on;
// what it still copies is written into the object that it was read from.
//
// A scope owns neither the binding nor the flag. It lives on the stack only, as the watch does that it
// holds. Main thread only. Cost: that of the watch.
class LmUpdateScope
{
public:
    // Clears theFlag, a member of theBinding, which must not be null.
    [[nodiscard]] LmUpdateScope(const LmKeyValueStore* theBinding, bool& theFlag)
        : mWatch(theBinding),
          mFlag(theFlag)
    {
        mFlag = false;
    }

    // Sets the flag, unless the binding is gone.
    ~LmUpdateScope()
    {
        if (!BindingIsGone()) {
            mFlag = true;
        }
    }

    LmUpdateScope(const LmUpdateScope&) = delete;
    LmUpdateScope& operator=(const LmUpdateScope&) = delete;
    static void* operator new(std::size_t theSize) = delete;
    static void* operator new[](std::size_t theSize) = delete;

    // True once the binding has been destroyed, by something that a copied value set off.
    [[nodiscard]] bool BindingIsGone() const { return mWatch.IsGone(); }

private:
    LmLifeWatch mWatch;
    bool& mFlag; // a member of the binding; not touched once the binding is gone
};

// Copies several keys of theBinding's object in their order, within one scope: calls
// theBinding->SyncValue(theKey) for each. Ends early when the binding is destroyed by what a copied value
// sets off; the caller must be prepared for that as well, or return at once.
template <typename Binding>
void LmSyncKeys(Binding* theBinding, bool& theFlag, std::initializer_list<const char*> theKeys)
{
    const LmUpdateScope theScope(theBinding, theFlag);
    for (const char* theKey : theKeys) {
        theBinding->SyncValue(theKey);
        if (theScope.BindingIsGone()) {
            return;
        }
    }
}

#endif
