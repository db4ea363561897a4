// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmSharedTransform_h
#define LmSharedTransform_h

#include "LmValueTransform.h"

#include <utility>

// A reference to a transform that gives itself back. Each copy holds one of its own, so that one transform
// can be used in many places, and goes with the last of them:
//
//     const LmSharedTransform theUnit(new LmScaleTransform(0.01));
//     LmScopedBinding theVolume(theVolumeSlider, "value", &theModel, "volume", theUnit, theReverse);
//     LmScopedBinding theBalance(theBalanceSlider, "value", &theModel, "balance", theUnit, theReverse);
//
// Main thread only, as the count of transforms is. Cost: that of Retain and Release.
class LmSharedTransform
{
public:
    // Holds no transform: values pass as they are.
    LmSharedTransform() noexcept = default;

    // Takes over the caller's reference to theTransform, as a binding does; null is accepted. So a transform
    // that is made for one place alone is made there: `new LmToStringTransform` stands where this is asked
    // for. A transform that somebody else holds is retained by him before.
    LmSharedTransform(LmValueTransform* theTransform) noexcept
        : mTransform(theTransform)
    {
    }

    // Another reference to the same transform.
    LmSharedTransform(const LmSharedTransform& theOther) noexcept
        : mTransform(theOther.mTransform)
    {
        if (mTransform != nullptr) {
            mTransform->Retain();
        }
    }

    // The reference of theOther, which then holds none.
    LmSharedTransform(LmSharedTransform&& theOther) noexcept
        : mTransform(std::exchange(theOther.mTransform, nullptr))
    {
    }

    // Gives back the reference that was held before.
    LmSharedTransform& operator=(LmSharedTransform theOther) noexcept
    {
        std::swap(mTransform, theOther.mTransform);
        return *this;
    }

    // Gives the reference back; the last one deletes the transform.
    ~LmSharedTransform()
    {
        if (mTransform != nullptr) {
            mTransform->Release();
        }
    }

    // The transform, or null. Not retained for the caller.
    [[nodiscard]] LmValueTransform* Get() const { return mTransform; }

    // What the transform makes of theValue; theValue itself where there is none. The transform lives as long
    // as it works.
    [[nodiscard]] LmValue Apply(const LmValue& theValue) const
    {
        const LmSharedTransform theHold(*this); // for a transform may do anything
        return theHold.mTransform != nullptr ? theHold.mTransform->Apply(theValue) : theValue;
    }

private:
    LmValueTransform* mTransform = nullptr; // one reference, or null
};

#endif
