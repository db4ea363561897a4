// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmValueTransform_h
#define LmValueTransform_h

// A transform turns one value into another. A binding applies one to every value that crosses it in one
// direction.
//
//     class DoublingTransform : public LmValueTransform
//     {
//     public:
//         LmValue Apply(const LmValue& theValue) override { return LmValue(theValue.GetDouble() * 2); }
//     };
//
//     theSlider.BindTo("value", theModel, "half", new DoublingTransform);
//
// Ownership. Transforms live on the heap and count their holders. A new one has the count 1, which is its
// creator's reference. Whoever keeps a transform beyond a call either takes over a reference that the caller
// hands to it, or takes one of its own with Retain; each reference is given back with Release, and the
// Release of the last one deletes the transform. The library has one holder of each sort, on purpose:
//
// - A binding takes over: a transform made for one binding is handed to it and forgotten.
// - LmListTransform::Add retains: the creator still releases its own reference to each part.
//
// Rules for every operation: main thread only (the count is a plain number); nothing is thrown; a count that
// is out of step is reported on the standard error stream, and the operation goes on.

#include "LmExport.h"
#include "LmValue.h"

#include <cstdint>

class LM_EXPORT LmValueTransform
{
public:
    // Starts with the count 1.
    LmValueTransform();

    // Prints the assertion "mRefCount == 0" when references are left: a transform is deleted by its last
    // Release. Destroys it all the same.
    virtual ~LmValueTransform();

    LmValueTransform(const LmValueTransform&) = delete;
    LmValueTransform& operator=(const LmValueTransform&) = delete;

    // The transformed value. Must not change theValue, which may be of any kind, the invalid value included.
    virtual LmValue Apply(const LmValue& theValue) = 0;

    // Takes a reference. Prints the assertion "mRefCount != 0" when the count has wrapped round to 0.
    void Retain();

    // Gives a reference back; the last one deletes the transform, so the caller does not touch it afterwards.
    //
    // On purpose: at a count of 0 the assertion "mRefCount >= 1" is printed and the count wraps round to
    // 4294967295, so that nothing is deleted twice.
    void Release();

private:
    std::uint32_t mRefCount; // holders, the creator included
};

#endif
