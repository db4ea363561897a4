// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmUpdateScope_h
#define LmUpdateScope_h

#include "LmLifeWatch.h"

// Keeps a binding's update flag clear while the state of its object is copied into the keys, so that the
// copies are not written back into the object. Not part of the interface.
//
// The flag is set again on every way out, whatever a nested event did to it meanwhile, unless the
// binding deleted itself in between: then its memory is not touched any more.
class LmUpdateScope
{
public:
    LmUpdateScope(const LmKeyValueStore* theBinding, bool& theFlag)
        : mWatch(theBinding),
          mFlag(theFlag)
    {
        mFlag = false;
    }
    ~LmUpdateScope()
    {
        if (!BindingIsGone()) {
            mFlag = true;
        }
    }

    LmUpdateScope(const LmUpdateScope&) = delete;
    LmUpdateScope& operator=(const LmUpdateScope&) = delete;

    // True once the binding has been destroyed, by something that a copied value set off.
    bool BindingIsGone() const { return mWatch.IsGone(); }

private:
    LmLifeWatch mWatch;
    bool& mFlag; // a member of the binding; not touched once the binding is gone
};

#endif
