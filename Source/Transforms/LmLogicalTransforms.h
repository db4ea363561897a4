// LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.

#ifndef LmLogicalTransforms_h
#define LmLogicalTransforms_h

// Transforms that answer one question about a value with a boolean: is it null, is it above, below or equal
// to a fixed value. They let a key of another type drive a boolean one, such as a control's enabled state:
//
//     // The button can be pressed while the field holds a text.
//     theButton.BindTo("enabled", theField, "value", new LmIsNotNullTransform);
//
// Rules for every Apply: the result is a kTypeBoolean value. The kind of the input decides how it is looked
// at; the fixed value is read with the getter of that kind, so that numbers of different kinds can be
// compared and anything else prints the getter's assertion. A kind that a question makes no sense for prints
// "Illegal value type: %d" and answers as the transform says. Nothing else is changed, and nobody is told.
//
// On purpose: LmIsNotNullTransform, LmIsBelowTransform and LmIsNotEqualTransform ask a temporary transform of
// the opposite sort, which is not released but just goes out of scope. Each application of theirs therefore
// prints the assertion "mRefCount == 0".

#include "LmExport.h"
#include "LmValue.h"
#include "LmValueTransform.h"

// True for false, zero, a null pointer, a null or empty string, the point (0, 0), a size with the width 0 and
// a rectangle with the width and height 0. A NaN is not null. Invalid values and unknown kinds are illegal,
// and answered with false.
//
// On purpose: the height of a size is not looked at, nor is the origin of a rectangle.
class LM_EXPORT LmIsNullTransform : public LmValueTransform
{
public:
    LmIsNullTransform();
    ~LmIsNullTransform() override;
    LmValue Apply(const LmValue& theValue) override;
};

// The opposite of LmIsNullTransform. On purpose: an illegal kind is therefore answered with true.
class LM_EXPORT LmIsNotNullTransform : public LmValueTransform
{
public:
    LmIsNotNullTransform();
    ~LmIsNotNullTransform() override;
    LmValue Apply(const LmValue& theValue) override;
};

// True when the value is greater than a fixed one; with isInclusive, also when it equals it. Booleans are 0
// and 1, pointers are compared as unsigned addresses, a NaN is above nothing. Invalid values, points, sizes,
// rectangles and unknown kinds are illegal, and answered with false.
//
// On purpose: a string is compared with itself, whatever the fixed value is, so that the answer is
// isInclusive. A null string is answered with false.
class LM_EXPORT LmIsAboveTransform : public LmValueTransform
{
public:
    // Compares with theValue, of which it keeps a copy.
    LmIsAboveTransform(const LmValue& theValue, bool isInclusive);
    ~LmIsAboveTransform() override;
    LmValue Apply(const LmValue& theValue) override;

private:
    LmValue mCompareValue; // a copy
    bool mInclusive;       // whether equality passes
};

// True when the value is less than a fixed one; with isInclusive, also when it equals it.
//
// On purpose: it is the opposite of the other question, which gives its odd answers their opposite: illegal
// kinds, a NaN on either side and null strings are answered with true, other strings with isInclusive.
class LM_EXPORT LmIsBelowTransform : public LmValueTransform
{
public:
    // Compares with theValue, of which it keeps a copy.
    LmIsBelowTransform(const LmValue& theValue, bool isInclusive);
    ~LmIsBelowTransform() override;
    LmValue Apply(const LmValue& theValue) override;

private:
    LmValue mCompareValue; // a copy
    bool mInclusive;       // whether equality passes
};

// True when the value equals a fixed one, as operator== of LmValue understands it: numbers as integers, so
// that 1.5 equals 1. No kind is illegal.
class LM_EXPORT LmIsEqualTransform : public LmValueTransform
{
public:
    // Compares with theValue, of which it keeps a copy.
    explicit LmIsEqualTransform(const LmValue& theValue);
    ~LmIsEqualTransform() override;
    LmValue Apply(const LmValue& theValue) override;

private:
    LmValue mCompareValue; // a copy
};

// The opposite of LmIsEqualTransform.
class LM_EXPORT LmIsNotEqualTransform : public LmValueTransform
{
public:
    // Compares with theValue, of which it keeps a copy.
    explicit LmIsNotEqualTransform(const LmValue& theValue);
    ~LmIsNotEqualTransform() override;
    LmValue Apply(const LmValue& theValue) override;

private:
    LmValue mCompareValue; // a copy
};

#endif
